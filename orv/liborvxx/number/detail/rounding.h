// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rounding information: what is known of the part of a number that was cut off.
///
/// Numbers are rounded in stages: digits of a text are left out, a division leaves a remainder, a
/// shift drops bits. Each stage hands on an `unsigned` that tells how much lies below the lowest
/// digit or bit that is left, so that the last stage rounds once, to nearest, ties to even.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_ROUNDING_H
#define ORV_LIBORVXX_NUMBER_DETAIL_ROUNDING_H

#include "orv/liborvxx/number/big_uint.h"

#include <cassert>

namespace orv::detail {

/// \name Rounding information
/// `big_uint::compute_rounding_info` gives the same values: bit 1 is the first bit cut off, bit 0
/// tells whether anything lies below it.
/// @{
inline constexpr unsigned ROUNDING_EXACT = 0;
inline constexpr unsigned ROUNDING_BELOW_HALF = 1;
inline constexpr unsigned ROUNDING_HALF = 2;
inline constexpr unsigned ROUNDING_ABOVE_HALF = 3;
/// @}

/// Whether a number that ends in the bit \p odd rounds up.
constexpr bool roundsUp(unsigned rounding, bool odd) noexcept {
    assert(rounding <= ROUNDING_ABOVE_HALF);
    return rounding == ROUNDING_ABOVE_HALF || (rounding == ROUNDING_HALF && odd);
}

/// What a cut gave, \p cut, with what was known before of the part below it, \p before.
constexpr unsigned combineRounding(unsigned cut, unsigned before) noexcept {
    assert(cut <= ROUNDING_ABOVE_HALF);
    return before != ROUNDING_EXACT ? cut | ROUNDING_BELOW_HALF : cut;
}

/// What a division left, \p remainder, as part of the \p divisor. The remainder is doubled in
/// place.
/// \pre \p remainder is less than \p divisor and has at least its width
inline unsigned roundingOfRemainder(big_uint& remainder, const big_uint& divisor) noexcept {
    assert(remainder.size() >= divisor.size() && remainder < divisor);
    if (remainder.is_zero()) {
        return ROUNDING_EXACT;
    }
    if (remainder.msb()) { // twice as much has a bit more than the divisor
        return ROUNDING_ABOVE_HALF;
    }
    remainder.shift_left();
    const int order = remainder.compare(divisor);
    return order < 0 ? ROUNDING_BELOW_HALF : order == 0 ? ROUNDING_HALF : ROUNDING_ABOVE_HALF;
}

/// The same in a word and less.
/// \pre \p remainder is less than \p divisor
constexpr unsigned roundingOfRemainder(unsigned remainder, unsigned divisor) noexcept {
    assert(remainder < divisor);
    if (remainder == 0) {
        return ROUNDING_EXACT;
    }
    const unsigned rest = divisor - remainder; // doubling could overflow
    return remainder < rest    ? ROUNDING_BELOW_HALF
           : remainder == rest ? ROUNDING_HALF
                               : ROUNDING_ABOVE_HALF;
}

} // namespace orv::detail

#endif
