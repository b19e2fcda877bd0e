// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 10^exponent in 128 bits: the fast road from decimal to binary, which knows
/// where it cannot decide.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_ESTIMATE_H
#define ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_ESTIMATE_H

#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/pow10_table.h"
#include "orv/liborvxx/number/words/limb.h"

#include <cassert>
#include <limits>

namespace orv::detail {

/// How much of a coefficient counts that is multiplied by 10^exponent: all of it, or, where it is
/// divided, as many bits as make a quotient of one bit more than a Float, or of two.
template <class Float>
constexpr unsigned countedBits(int exponent) noexcept {
    // No power of ten but 1 is a power of two: the logarithms of 10^-n and 10^n add up to -1.
    return exponent >= 0
               ? std::numeric_limits<unsigned>::max()
               : static_cast<unsigned>(BinaryFormat<Float>::PRECISION - floorLog2Pow10(exponent));
}

/// The top \p counted bits of \p number, whose top bit is set; the others are cleared.
/// \pre \p counted is not 0
/// @{
constexpr words::Limb cutBits(words::Limb number, unsigned counted) noexcept {
    constexpr words::Limb ALL_ONES = std::numeric_limits<words::Limb>::max();
    return counted < 64 ? number & ALL_ONES << (64 - counted) : number;
}
constexpr words::Wide cutBits(words::Wide number, unsigned counted) noexcept {
    return {counted <= 64 ? 0 : cutBits(number.low, counted - 64), cutBits(number.high, counted)};
}
/// @}

/// Where a number lies between two neighbouring Floats.
enum class Place : unsigned char { BELOW_MIDDLE, ABOVE_MIDDLE, UNKNOWN };

/// The largest Float that is no further from zero than a number, and where the number lies between
/// that and the next. Fields as `assemble` takes them.
struct FloatBelow {
    words::Limb v;
    int exponent;
    Place place;
};

/// Places w / 2^127 * 2^top * 10^exponent, all bits of \p w counting. The place is unknown at ties,
/// within some 2^-70 of a tie, and near half of the smallest subnormal number.
///
/// What is infinite comes out as such, below the middle.
/// \param w with the top bit set; may be a number of more than 128 bits, cut to these
/// \pre \p exponent is one of pow10_table.h
template <class Float>
FloatBelow placeProduct(const words::Wide& w, int top, int exponent) noexcept;

extern template FloatBelow placeProduct<float>(const words::Wide&, int, int) noexcept;
extern template FloatBelow placeProduct<double>(const words::Wide&, int, int) noexcept;

} // namespace orv::detail

#endif
