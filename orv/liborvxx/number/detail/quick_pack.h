// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rounding of coefficient * 10^exponent to the decimal formats, for coefficients of a limb:
/// the numbers that fit as they are, or need their last digits rounded away, in one inlined piece.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_QUICK_PACK_H
#define ORV_LIBORVXX_NUMBER_DETAIL_QUICK_PACK_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/detail/decimal_format.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/rounding.h"
#include "orv/liborvxx/number/words/decimal_digits.h"
#include "orv/liborvxx/number/words/limb.h"

#include <cassert>
#include <cstdint>

namespace orv::detail {

/// A coefficient cut to the digits of a format.
struct CutCoefficient {
    words::Limb coefficient;
    unsigned dropped;  ///< digits that were cut off
    unsigned rounding; ///< rounding information on them
};

/// What a division left, as `roundingOfRemainder` of words.
/// \pre \p remainder is less than \p divisor
constexpr unsigned roundingOfLimbs(words::Limb remainder, words::Limb divisor) noexcept {
    const words::Limb rest = divisor - remainder; // doubling could overflow
    return remainder == 0      ? ROUNDING_EXACT
           : remainder < rest  ? ROUNDING_BELOW_HALF
           : remainder == rest ? ROUNDING_HALF
                               : ROUNDING_ABOVE_HALF;
}

/// Cuts \p coefficient, which has more than \p digits digits, to these.
inline CutCoefficient cutDigits(words::Limb coefficient, unsigned digits) noexcept {
    const unsigned dropped = words::countDigits(coefficient) - digits;
    const words::Limb divisor = words::POW10_IN_LIMBS[dropped];
    const words::Limb quotient = coefficient / divisor;
    return {quotient, dropped, roundingOfLimbs(coefficient - quotient * divisor, divisor)};
}

/// Cuts \p upper * 10^19 + \p lower to \p digits digits, at most 19.
/// \pre \p upper is not 0, and both are below 10^19
inline CutCoefficient cutDigits(words::Limb upper, words::Limb lower, unsigned digits) noexcept {
    constexpr unsigned LOWER_DIGITS = 19;
    const unsigned count = words::countDigits(upper);
    if (count > digits) {
        CutCoefficient cut = cutDigits(upper, digits);
        cut.dropped += LOWER_DIGITS;
        cut.rounding =
            combineRounding(cut.rounding, lower != 0 ? ROUNDING_BELOW_HALF : ROUNDING_EXACT);
        return cut;
    }
    const unsigned taken = digits - count;
    const words::Limb divisor = words::POW10_IN_LIMBS[LOWER_DIGITS - taken];
    const words::Limb quotient = lower / divisor;
    return {upper * words::POW10_IN_LIMBS[taken] + quotient, LOWER_DIGITS - taken,
            roundingOfLimbs(lower - quotient * divisor, divisor)};
}

/// Whether numbers with the exponent have an encoding.
template <class Decimal>
constexpr bool isExponentOf(std::int64_t exponent) noexcept {
    using Format = DecimalFormat<Decimal>;
    return exponent >= Format::MIN_EXPONENT && exponent <= Format::MAX_EXPONENT;
}

/// Rounds the coefficient that was cut from one with the exponent \p exponent.
template <class Decimal>
Decimal packCut(bool negative, std::int64_t exponent, CutCoefficient cut) noexcept {
    using Format = DecimalFormat<Decimal>;
    exponent += cut.dropped;
    // The last but one exponent leaves room for a coefficient that rounds up to 10^DIGITS.
    if (exponent < Format::MIN_EXPONENT || exponent >= Format::MAX_EXPONENT) {
        return packDecimal<Decimal>(negative, exponent, cut.coefficient, cut.rounding);
    }
    if (roundsUp(cut.rounding, cut.coefficient % 2 != 0)) {
        ++cut.coefficient;
        if (cut.coefficient > Format::MAX_COEFFICIENT) {
            cut.coefficient /= 10;
            ++exponent;
        }
    }
    return Format::encode(negative, static_cast<int>(exponent), cut.coefficient);
}

/// What `pack_decimal64` and its kin give, without a big_uint where the exponent is in range.
template <class Decimal>
ORVXX_ALWAYS_INLINE Decimal quickPack(bool negative, std::int64_t exponent,
                                      words::Limb coefficient) noexcept {
    using Format = DecimalFormat<Decimal>;
    if (coefficient > Format::MAX_COEFFICIENT) { // none is in a decimal128
        return packCut<Decimal>(negative, exponent, cutDigits(coefficient, Format::DIGITS));
    }
    if (isExponentOf<Decimal>(exponent)) {
        return Format::encode(negative, static_cast<int>(exponent), coefficient);
    }
    return packDecimal<Decimal>(negative, exponent, coefficient, ROUNDING_EXACT);
}

/// The same for \p upper * 10^19 + \p lower, both below 10^19. For a decimal128 the number has no
/// more than its 34 digits, and its exponent is one of a decimal128.
template <class Decimal>
ORVXX_ALWAYS_INLINE Decimal quickPack(bool negative, std::int64_t exponent, words::Limb upper,
                                      words::Limb lower) noexcept {
    using Format = DecimalFormat<Decimal>;
    if constexpr (Format::DIGITS > 19) {
        assert(isExponentOf<Decimal>(exponent));
        const words::Wide value = words::multiplyAdd(upper, words::POW10_IN_LIMBS[19], lower, 0);
        return Format::encode(negative, static_cast<int>(exponent), value.low, value.high);
    } else {
        return upper == 0
                   ? quickPack<Decimal>(negative, exponent, lower)
                   : packCut<Decimal>(negative, exponent, cutDigits(upper, lower, Format::DIGITS));
    }
}

} // namespace orv::detail

#endif
