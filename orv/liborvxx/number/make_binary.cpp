// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rounding of coefficient * 10^exponent to the formats of `float` and `double`.
#include "orv/liborvxx/number/make_binary.h"

#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/bit_window.h"
#include "orv/liborvxx/number/detail/decimal_estimate.h"
#include "orv/liborvxx/number/detail/decimal_to_binary.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/rounding.h"

#include <cassert>
#include <cstdint>

namespace orv {

namespace detail {

namespace {

using words::Wide;

// Coefficients of so many bits have a logarithm and make no exponent that matters run out of
// tables.
constexpr unsigned MAX_ESTIMATED_BITS = 8192;

// Coefficients of so many bits are worked out without memory: with the exponents of pow10_table.h,
// and with any. One more bit could not be rounded up.
constexpr unsigned WIDE_BITS = 127;
constexpr unsigned WIDE_BITS_FOR_ANY_EXPONENT = 90;

bool isWide(int exponent, unsigned bits) noexcept {
    return bits <= WIDE_BITS_FOR_ANY_EXPONENT || (bits <= WIDE_BITS && exponent >= MIN_TABLE_POW10);
}

Wide toWide(const big_uint& n) noexcept {
    return {bitWindow(n, 0), bitWindow(n, 64)};
}

// The top 128 bits of a number that has more.
Wide leadingBits(const big_uint& n, unsigned bits) noexcept {
    return {bitWindow(n, bits - 128), bitWindow(n, bits - 64)};
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
    const auto wanted =
        static_cast<unsigned>(power.highest_set_bit() + BinaryFormat<Float>::PRECISION + 1);
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

// For more than 128 bits. \p estimable tells that the estimate may be asked.
template <class Float>
Float scale(bool negative, int exponent, const big_uint& coefficient, bool estimable) {
    const unsigned bits = coefficient.bit_length();
    if (estimable) {
        const Wide w = cutBits(leadingBits(coefficient, bits), countedBits<Float>(exponent));
        const FloatBelow below = placeProduct<Float>(w, static_cast<int>(bits) - 1, exponent);
        if (below.place != Place::UNKNOWN) {
            return assemble<Float>(negative, below.exponent, below.v,
                                   below.place == Place::ABOVE_MIDDLE);
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
    if (isWide(exponent, bits)) {
        return bits <= 64 && rounding == ROUNDING_EXACT
                   ? makeBinary<Float>(negative, exponent, coefficient.to_uint64())
                   : makeBinary<Float>(negative, exponent, toWide(coefficient), rounding);
    }
    const bool estimable = bits <= MAX_ESTIMATED_BITS && exponent >= MIN_TABLE_POW10 &&
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
