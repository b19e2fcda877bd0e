// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rounding of coefficient * 10^exponent to the formats of `float` and `double`.
#include "orv/liborvxx/number/make_binary.h"

#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/decimal_estimate.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/rounding.h"

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace orv {

namespace detail {

namespace {

// Coefficients of so many bits have a logarithm and make no exponent that matters run out of
// tables.
constexpr unsigned MAX_ESTIMATED_BITS = 8192;

// The powers of ten that a Float holds exactly.
template <class Float>
constexpr auto EXACT_POW10 = [] {
    std::array<Float, BinaryFormat<Float>::MAX_EXACT_POW10 + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) {
        powers[i] = powers[i - 1] * 10;
    }
    return powers;
}();

// Both operands are exact, so that a single operation rounds correctly.
template <class Float>
Float makeNatively(bool negative, int exponent, std::uint64_t coefficient) noexcept {
    const auto magnitude = static_cast<Float>(coefficient);
    const Float value = negative ? -magnitude : magnitude;
    return exponent >= 0 ? value * EXACT_POW10<Float>[static_cast<std::size_t>(exponent)]
                         : value / EXACT_POW10<Float>[static_cast<std::size_t>(-exponent)];
}

// How many bits of a coefficient take part when it is divided by a power of ten with the highest
// bit \p highest: as many as make a quotient of one bit more than a Float, or of two.
template <class Float>
constexpr unsigned dividendBits(int highest) noexcept {
    return static_cast<unsigned>(highest + BinaryFormat<Float>::PRECISION + 1);
}

template <class Float>
Float makeByMultiplication(bool negative, unsigned exponent, const big_uint& coefficient,
                           unsigned bits) {
    big_uint cache;
    const big_uint& power = big_uint::pow10(exponent, &cache);
    big_uint trimmed = big_uint::make_uninitialized((bits + 31) / 32);
    trimmed.shift_left(coefficient, 0);
    big_uint product = big_uint::make_uninitialized(trimmed.size() + power.size());
    product.multiply(trimmed, power);
    return packBinary<Float>(negative, 0, product, product.bit_length(), ROUNDING_EXACT);
}

// The dividend gets just the bits that make the quotient as long as needed. Those of a longer
// coefficient that do not fit are dropped and take no part in the rounding.
template <class Float>
Float makeByDivision(bool negative, unsigned exponent, const big_uint& coefficient, unsigned bits) {
    big_uint cache;
    const big_uint& power = big_uint::pow10(exponent, &cache);
    const unsigned wanted = dividendBits<Float>(power.highest_set_bit());
    big_uint dividend = big_uint::make_uninitialized((wanted + 31) / 32);
    if (bits < wanted) {
        dividend.shift_left(coefficient, wanted - bits);
    } else {
        dividend.shift_right(coefficient, bits - wanted);
    }
    int scale = static_cast<int>(bits) - static_cast<int>(wanted);

    big_uint quotient = big_uint::make_uninitialized(dividend.size());
    big_uint remainder = big_uint::make_uninitialized(power.size());
    quotient.divide(dividend, power, remainder);
    unsigned rounding = ROUNDING_EXACT;
    if (quotient.bit_length() == BinaryFormat<Float>::PRECISION) {
        rounding = roundingOfRemainder(remainder, power);
    } else {
        rounding = combineRounding(quotient.lsb() ? ROUNDING_HALF : ROUNDING_EXACT,
                                   remainder.is_zero() ? ROUNDING_EXACT : ROUNDING_BELOW_HALF);
        quotient.shift_right();
        ++scale;
    }
    assert(quotient.bit_length() == BinaryFormat<Float>::PRECISION);
    return packBinary<Float>(negative, scale, quotient, BinaryFormat<Float>::PRECISION, rounding);
}

// \p estimable tells that the estimate may be asked.
template <class Float>
Float scale(bool negative, int exponent, const big_uint& coefficient, bool estimable) {
    const unsigned bits = coefficient.bit_length();
    if (estimable) {
        const unsigned kept =
            exponent < 0 ? dividendBits<Float>(floorLog2OfPow10(-exponent)) : bits;
        if (const auto value = roundEstimate<Float>(negative, exponent, coefficient, bits, kept)) {
            return *value;
        }
    }
    return exponent > 0 ? makeByMultiplication<Float>(negative, static_cast<unsigned>(exponent),
                                                      coefficient, bits)
                        : makeByDivision<Float>(negative, static_cast<unsigned>(-exponent),
                                                coefficient, bits);
}

} // namespace

template <class Float>
Float makeBinary(bool negative, int exponent, const big_uint& coefficient, unsigned rounding) {
    using Format = BinaryFormat<Float>;
    if (exponent == EXPONENT_OVERFLOW) {
        return signedInfinity<Float>(negative);
    }
    if (exponent == EXPONENT_UNDERFLOW) {
        return signedZero<Float>(negative);
    }
    const unsigned bits = coefficient.bit_length();
    if (bits <= Format::PRECISION && exponent >= -Format::MAX_EXACT_POW10 &&
        exponent <= Format::MAX_EXACT_POW10) {
        return makeNatively<Float>(negative, exponent, coefficient.to_uint64());
    }
    if (bits == 0) {
        return signedZero<Float>(negative);
    }
    const bool estimable = bits <= MAX_ESTIMATED_BITS && exponent >= MIN_ESTIMATED_EXPONENT &&
                           exponent <= Format::MAX_DECIMAL;
    if (!estimable) { // what the estimate takes comes out the same without this
        const std::int64_t magnitude = std::int64_t{coefficient.ilog10(bits)} + exponent;
        if (magnitude > Format::MAX_DECIMAL) {
            return signedInfinity<Float>(negative);
        }
        if (magnitude < Format::MIN_DECIMAL) {
            return signedZero<Float>(negative);
        }
    }
    if (exponent == 0) {
        return packBinary<Float>(negative, 0, coefficient, bits, rounding);
    }
    if (!roundsUp(rounding, coefficient.lsb())) {
        return scale<Float>(negative, exponent, coefficient, estimable);
    }
    big_uint rounded(coefficient);
    if (rounded.increment()) {
        rounded.prepend(1);
    }
    return scale<Float>(negative, exponent, rounded, estimable);
}

template float makeBinary<float>(bool, int, const big_uint&, unsigned);
template double makeBinary<double>(bool, int, const big_uint&, unsigned);

} // namespace detail

double make_double(bool negative, int exponent, const big_uint& coefficient) {
    return detail::makeBinary<double>(negative, exponent, coefficient, detail::ROUNDING_EXACT);
}

float make_float(bool negative, int exponent, const big_uint& coefficient) {
    return detail::makeBinary<float>(negative, exponent, coefficient, detail::ROUNDING_EXACT);
}

long double make_long_double(bool negative, int exponent, const big_uint& coefficient) {
    return make_double(negative, exponent, coefficient);
}

} // namespace orv
