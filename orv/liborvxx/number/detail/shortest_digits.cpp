// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The shortest digits one by one, in fixed point with 123 bits of fraction.
///
/// With K the exponent of the first digit, c the coefficient shifted to have its top bit set, e the
/// exponent of that bit, and g from the table, x = c * g * 2^(e + floor(log2(10^-K)) - 63 - 127) is
/// from 1 to below 10, and a step of the binary number is g * 2^(q + floor(log2(10^-K)) - 127).
/// In units of 2^-123 the table and the cuts make x too small by less than 4, and the middles to
/// the neighbours by less than 2 and 4. So what differs by 8 at most may be equal; and it is: the
/// error grows with the digits, to 8 * 10^16 units or 2^-66.8 at the last of a double, and what is
/// not equal there differs by more than 2^-64.6, see tools/numbers/closest_decisions.py. Numbers
/// whose neighbours are not equally far, and coefficients below 100, are tested one and all.
///
/// The margins stay below 32, which is what 5 bits before the point hold: behind the first digit
/// they are half of x, which is 5.96 at most, for the coefficient 1 of the three formats, and less
/// than 2.5 for others; and then they are below 1 as long as digits go on.
#include "orv/liborvxx/number/detail/shortest_digits.h"

#include <bit>
#include <cassert>
#include <cstdint>

namespace orv::detail {

namespace {

using words::Limb;
using words::Wide;

constexpr int FRACTION = 123;
constexpr unsigned DIGIT_SHIFT = FRACTION - 64; // in the high limb
constexpr Limb ONE = Limb{1} << DIGIT_SHIFT;    // in the high limb

Wide shiftRight(const Wide& a, int bits) noexcept {
    assert(bits >= 0 && bits < 128);
    const auto n = static_cast<unsigned>(bits);
    if (n >= 64) {
        return {a.high >> (n - 64), 0};
    }
    return n == 0 ? a : Wide{a.low >> n | a.high << (64 - n), a.high >> n};
}

Wide subtract(const Wide& a, const Wide& b) noexcept {
    return {a.low - b.low, a.high - b.high - (a.low < b.low ? 1U : 0U)};
}

bool isLess(const Wide& a, const Wide& b) noexcept {
    return a.high < b.high || (a.high == b.high && a.low < b.low);
}

Wide timesTen(const Wide& a) noexcept {
    const Wide low = words::multiplyLimbs(a.low, 10);
    return {low.low, a.high * 10 + low.high};
}

// -1, 0 or 1; 0 for what differs by no more than the error.
int compare(const Wide& a, const Wide& b, Limb error) noexcept {
    if (isLess(a, b)) {
        return -compare(b, a, error);
    }
    const Wide difference = subtract(a, b);
    return difference.high != 0 || difference.low > error ? 1 : 0;
}

struct Scaled {
    Wide rest;
    Wide margin; // to the middle below
    int exponent;
};

// The number over 10^exponent.
Scaled scale(const BinaryNumber& number, int top, int exponent) noexcept {
    const Wide& g = pow10Significand(-exponent);
    const int power = floorLog2Pow10(-exponent);
    const Limb c = number.coefficient
                   << static_cast<unsigned>(std::countl_zero(number.coefficient));
    const Wide x = words::multiplyAdd(c, g.high, words::multiplyLimbs(c, g.low).high, 0);
    const int halves = number.uneven ? 2 : 1;
    return {shiftRight(x, 126 - FRACTION - (top + power)),
            shiftRight(g, 127 - FRACTION + halves - (number.exponent + power)), exponent};
}

Scaled scale(const BinaryNumber& number) noexcept {
    const int top = number.exponent + static_cast<int>(std::bit_width(number.coefficient)) - 1;
    const int exponent = floorLog10Pow2(top);
    const Scaled scaled = scale(number, top, exponent);
    return scaled.rest.high >> DIGIT_SHIFT < 10 ? scaled : scale(number, top, exponent + 1);
}

} // namespace

DecimalNumber shortestByDigits(const BinaryNumber& number, unsigned maxDigits) noexcept {
    assert(number.coefficient > 0 && maxDigits >= 2 && maxDigits <= DOUBLE_DIGITS);
    const bool even = number.coefficient % 2 == 0;
    Scaled scaled = scale(number);
    Wide& rest = scaled.rest;
    Wide upperMargin = scaled.margin;
    if (number.uneven) {
        upperMargin = {scaled.margin.low << 1U,
                       scaled.margin.high << 1U | scaled.margin.low >> 63U};
    }
    std::uint64_t digits = rest.high >> DIGIT_SHIFT;
    Limb error = 8;
    for (unsigned count = 2;; ++count) {
        rest.high &= ONE - 1;
        rest = timesTen(rest);
        scaled.margin = timesTen(scaled.margin);
        upperMargin = timesTen(upperMargin);
        error *= 10;
        digits = digits * 10 + (rest.high >> DIGIT_SHIFT);
        rest.high &= ONE - 1;

        const Wide complement = subtract({0, ONE}, rest);
        const auto isInside = [even, error](const Wide& distance, const Wide& margin) {
            const int sign = compare(distance, margin, error);
            return sign < 0 || (sign == 0 && even);
        };
        const int half = compare(rest, complement, error);
        const bool roundsUp = half > 0 || (half == 0 && digits % 2 != 0);
        const bool isFound =
            roundsUp ? isInside(complement, upperMargin) : isInside(rest, scaled.margin);
        if (isFound || count == maxDigits) {
            return {digits + (roundsUp ? 1U : 0U), scaled.exponent - static_cast<int>(count) + 1};
        }
    }
}

} // namespace orv::detail
