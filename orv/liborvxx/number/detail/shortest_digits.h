// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The shortest digits of a binary floating-point number, fast: in 128 bits, without memory
/// and without failure.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_SHORTEST_DIGITS_H
#define ORV_LIBORVXX_NUMBER_DETAIL_SHORTEST_DIGITS_H

#include "orv/liborvxx/number/binary16.h"
#include "orv/liborvxx/number/detail/float_digits.h"
#include "orv/liborvxx/number/detail/pow10_table.h"
#include "orv/liborvxx/number/float_class.h"
#include "orv/liborvxx/number/words/decimal_digits.h"

#include <cassert>
#include <cstdint>

namespace orv::detail {

/// coefficient * 10^exponent
struct DecimalNumber {
    std::uint64_t coefficient;
    int exponent;
};

/// coefficient * 2^exponent, positive.
struct BinaryNumber {
    std::uint64_t coefficient; ///< odd or even as the number is
    int exponent;
    bool uneven; ///< a power of two: the neighbour below is half as far as the one above
};

/// The fields of a positive number in the format \p Layout.
template <class Layout>
constexpr BinaryNumber binaryNumber(typename Layout::Bits magnitude) noexcept {
    constexpr int LOWEST = 1 - Layout::BIAS - int{Layout::FRACTION_BITS};
    const std::uint64_t fraction = magnitude & Layout::FRACTION;
    const int field = static_cast<int>(magnitude >> Layout::FRACTION_BITS);
    if (field == 0) {
        return {fraction, LOWEST, false};
    }
    return {fraction | Layout::IMPLIED, LOWEST + field - 1, fraction == 0 && field > 1};
}

/// The most digits of the shortest text of a format.
template <class Layout>
inline constexpr unsigned MOST_DIGITS = DOUBLE_DIGITS;
template <>
inline constexpr unsigned MOST_DIGITS<FloatBits> = FLOAT_DIGITS;
template <>
inline constexpr unsigned MOST_DIGITS<HalfBits> = BINARY16_DIGITS;

/// The shortest digits, one after the other: what `generate_digits` does, in 128 bits.
/// \param number with a coefficient of at most 53 bits and an exponent from -1074 to 971
/// \param maxDigits from 2 to 17
/// \return a coefficient of at most \p maxDigits digits; it may end in zeros
DecimalNumber shortestByDigits(const BinaryNumber& number, unsigned maxDigits) noexcept;

/// The shortest digits of a number whose neighbours are equally far and whose coefficient is from
/// 100 to 2^53 - 1, by one multiplication.
///
/// Follows R. Giulietti, "The Schubfach way to render doubles" (2020). With k the floor of
/// log10(2^q), where q is the number's exponent, steps of 10^k are no larger than those of 2^q, and
/// steps of 10^(k + 1) are larger. So of the multiples of 10^(k + 1) one at most is in the interval
/// that reads back as the number, and has the fewest digits then; else it is the nearest multiple
/// of 10^k. The coefficient of 100 sees to it that the former has two digits.
///
/// With g from the table, the number is x * 10^k for x = c * 2^(b+1) * g / 2^128, where b = q +
/// floor(log2(10^-k)) is from 0 to 3, and half a step of 2^q is h * 10^k for h = g * 2^(b - 128).
/// What g lacks and what is cut makes x and h too small: x by less than 2^-63 and, below in units
/// of 2^-60, h by less than 1, and the distance of x from a multiple of 10 by less than 1. So
/// decisions that are closer than 2, among them all ties, are left to the digits one by one.
ORVXX_ALWAYS_INLINE DecimalNumber shortestByProduct(const BinaryNumber& number,
                                                    unsigned maxDigits) noexcept {
    assert(number.coefficient >= 100 && number.coefficient >> 53U == 0 && !number.uneven);
    const int k = floorLog10Pow2(number.exponent);
    const words::Wide& g = pow10Significand(-k);
    const auto b = static_cast<unsigned>(number.exponent + floorLog2Pow10(-k));
    const std::uint64_t c = number.coefficient << (b + 1);
    const words::Wide x = words::multiplyAdd(c, g.high, words::multiplyLimbs(c, g.low).high,
                                             0); // 64 bits of fraction

    constexpr std::uint64_t TEN = std::uint64_t{10} << 60U;
    constexpr std::uint64_t HALF = std::uint64_t{1} << 63U;
    const std::uint64_t h = g.high >> (4 - b);
    const std::uint64_t tens = x.high / 10;
    const std::uint64_t below = (x.high - tens * 10) << 60U | x.low >> 4U;
    const bool isUpper = below > TEN / 2;
    const std::uint64_t distance = isUpper ? TEN - below : below;
    if (distance - h + 2 <= 4 || x.low - HALF + 2 <= 4) {
        return shortestByDigits(number, maxDigits);
    }
    const std::uint64_t multiple = (tens + (isUpper ? 1U : 0U)) * 10;
    const std::uint64_t nearest = x.high + (x.low > HALF ? 1U : 0U);
    return {distance < h ? multiple : nearest, k};
}

/// The shortest digits of the positive finite number with the bits \p magnitude. Of numbers with as
/// few digits it is the nearest; a number of one digit counts as one of two; and where the
/// neighbours are not equally far, numbers count only if no other of as many digits is nearer.
/// \return a coefficient of at most MOST_DIGITS digits; it may end in zeros
template <class Layout>
ORVXX_ALWAYS_INLINE DecimalNumber shortestDecimal(typename Layout::Bits magnitude) noexcept {
    const BinaryNumber number = binaryNumber<Layout>(magnitude);
    // An integer whose neighbours are 1 or less away: no other is nearer to it than to them.
    if (number.exponent <= 0 && number.exponent >= -int{Layout::FRACTION_BITS}) {
        const auto cut = static_cast<unsigned>(-number.exponent);
        const std::uint64_t integer = number.coefficient >> cut;
        if (integer << cut == number.coefficient) {
            return {integer, 0};
        }
    }
    if (number.uneven || number.coefficient < 100) {
        return shortestByDigits(number, MOST_DIGITS<Layout>);
    }
    return shortestByProduct(number, MOST_DIGITS<Layout>);
}

} // namespace orv::detail

#endif
