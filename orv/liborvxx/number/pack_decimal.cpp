// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rounding of coefficient * 10^exponent to the decimal formats.
#include "orv/liborvxx/number/pack_decimal.h"

#include "orv/liborvxx/number/detail/bit_window.h"
#include "orv/liborvxx/number/detail/decimal_format.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/rounding.h"

#include <algorithm>
#include <cassert>
#include <cstdint>

namespace orv {

namespace detail {

namespace {

// Powers of ten of so many digits have a word.
constexpr unsigned WORD_DIGITS = 9;

// 10^n, n below 78.
const big_uint& power10(std::int64_t n) {
    return *big_uint::precomputed_pow10(static_cast<unsigned>(n));
}

// The quotient of n by 10^digits; tells what it leaves.
unsigned dropDigits(const big_uint& n, unsigned digits, big_uint& quotient) {
    if (digits <= WORD_DIGITS) {
        const auto divisor = static_cast<unsigned>(big_uint::pow10_table[digits]);
        quotient = n;
        return roundingOfRemainder(quotient.divide(divisor), divisor);
    }
    big_uint cache;
    const big_uint& divisor = big_uint::pow10(digits, &cache);
    const unsigned width = n.size() < divisor.size() ? 1 : n.size() - divisor.size() + 1;
    quotient = big_uint::make_uninitialized(width);
    big_uint remainder = big_uint::make_uninitialized(divisor.size());
    quotient.divide(n, divisor, remainder);
    return roundingOfRemainder(remainder, divisor);
}

template <class Decimal>
Decimal encode(bool negative, std::int64_t exponent, const big_uint& coefficient) noexcept {
    return DecimalFormat<Decimal>::encode(negative, static_cast<int>(exponent),
                                          coefficient.to_uint64(), bitWindow(coefficient, 64));
}

template <class Decimal>
Decimal cutAndPack(bool negative, int exponent, const big_uint& coefficient) {
    const int surplus = coefficient.ilog10() + 1 - DecimalFormat<Decimal>::DIGITS;
    if (surplus <= 0) {
        return packDecimal<Decimal>(negative, exponent, coefficient, ROUNDING_EXACT);
    }
    big_uint quotient;
    const unsigned rounding = dropDigits(coefficient, static_cast<unsigned>(surplus), quotient);
    return packDecimal<Decimal>(negative, std::int64_t{exponent} + surplus, quotient, rounding);
}

} // namespace

template <class Decimal>
Decimal packDecimal(bool negative, std::int64_t exponent, const big_uint& coefficient,
                    unsigned rounding) {
    using Format = DecimalFormat<Decimal>;
    constexpr int DIGITS = Format::DIGITS;
    constexpr std::int64_t LEAST = Format::MIN_EXPONENT;
    constexpr std::int64_t GREATEST = Format::MAX_EXPONENT;
    assert(coefficient < power10(DIGITS));
    if (coefficient.is_zero()) {
        return encode<Decimal>(negative, std::clamp(exponent, LEAST, GREATEST), coefficient);
    }
    big_uint digits(coefficient);
    digits.set_size(Format::WORDS);
    if (exponent < LEAST) {
        const std::int64_t surplus = LEAST - exponent;
        if (surplus > DIGITS || digits < power10(surplus - 1)) {
            return encode<Decimal>(negative, LEAST, 0U);
        }
        big_uint quotient;
        rounding =
            combineRounding(dropDigits(digits, static_cast<unsigned>(surplus), quotient), rounding);
        digits = quotient;
        digits.set_size(Format::WORDS);
        exponent = LEAST;
    }
    if (roundsUp(rounding, digits.lsb())) {
        digits.increment();
        if (digits == power10(DIGITS)) {
            digits = power10(DIGITS - 1);
            ++exponent;
        }
    }
    if (exponent > GREATEST) {
        const std::int64_t zeros = exponent - GREATEST;
        if (zeros >= DIGITS || digits >= power10(DIGITS - zeros)) {
            return Format::infinity(negative);
        }
        const big_uint& factor = power10(zeros);
        big_uint product = big_uint::make_uninitialized(digits.size() + factor.size());
        product.multiply(digits, factor);
        return encode<Decimal>(negative, GREATEST, product);
    }
    return encode<Decimal>(negative, exponent, digits);
}

template decimal::decimal32 packDecimal<decimal::decimal32>(bool, std::int64_t, const big_uint&,
                                                            unsigned);
template decimal::decimal64 packDecimal<decimal::decimal64>(bool, std::int64_t, const big_uint&,
                                                            unsigned);
template decimal::decimal128 packDecimal<decimal::decimal128>(bool, std::int64_t, const big_uint&,
                                                              unsigned);

} // namespace detail

decimal::decimal32 pack_decimal32(bool negative, int exponent, const big_uint& coefficient) {
    return detail::cutAndPack<decimal::decimal32>(negative, exponent, coefficient);
}

decimal::decimal64 pack_decimal64(bool negative, int exponent, const big_uint& coefficient) {
    return detail::cutAndPack<decimal::decimal64>(negative, exponent, coefficient);
}

decimal::decimal128 pack_decimal128(bool negative, int exponent, const big_uint& coefficient) {
    return detail::cutAndPack<decimal::decimal128>(negative, exponent, coefficient);
}

} // namespace orv
