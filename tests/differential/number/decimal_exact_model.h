// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Exact decimal numbers, rounded to the decimal formats once, on GMP's integers.
#ifndef ORV_TESTS_DIFFERENTIAL_NUMBER_DECIMAL_EXACT_MODEL_H
#define ORV_TESTS_DIFFERENTIAL_NUMBER_DECIMAL_EXACT_MODEL_H

#include <gmpxx.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string>

namespace orvtest {

struct DecimalRange {
    int digits;
    long least; ///< exponent of the lowest digit
    long greatest;
};

inline constexpr DecimalRange RANGE_32{7, -101, 90};
inline constexpr DecimalRange RANGE_64{16, -398, 369};
inline constexpr DecimalRange RANGE_128{34, -6176, 6111};

/// coefficient * 10^exponent
struct ExactDecimal {
    bool negative = false;
    mpz_class coefficient;
    long exponent = 0;
};

inline mpz_class power10(long n) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned long>(n));
    return power;
}

/// How many digits; 1 for 0.
inline long countDigits(const mpz_class& n) {
    return static_cast<long>(n.get_str().size());
}

/// Drops the lowest \p count digits, half to even.
inline void dropDigits(ExactDecimal& number, long count) {
    number.exponent += count;
    if (count > countDigits(number.coefficient)) {
        number.coefficient = 0; // less than a tenth
        return;
    }
    const mpz_class power = power10(count);
    mpz_class rest;
    mpz_class quotient;
    mpz_fdiv_qr(quotient.get_mpz_t(), rest.get_mpz_t(), number.coefficient.get_mpz_t(),
                power.get_mpz_t());
    const int order = cmp(2 * rest, power);
    if (order > 0 || (order == 0 && mpz_odd_p(quotient.get_mpz_t()) != 0)) {
        ++quotient;
    }
    number.coefficient = quotient;
}

/// The number in a format, as `shown` (shown_decimal.h) shows it.
inline std::string shownIn(const DecimalRange& range, ExactDecimal number) {
    const std::string sign = number.negative ? "-" : "";
    if (number.coefficient == 0) {
        return sign + "0E" +
               std::to_string(std::clamp(number.exponent, range.least, range.greatest));
    }
    const long surplus =
        std::max(countDigits(number.coefficient) - range.digits, range.least - number.exponent);
    if (surplus > 0) {
        dropDigits(number, surplus);
    }
    if (number.coefficient == power10(range.digits)) {
        dropDigits(number, 1);
    }
    if (number.exponent > range.greatest) {
        const long zeros = number.exponent - range.greatest;
        if (countDigits(number.coefficient) + zeros > range.digits) {
            return sign + "inf";
        }
        number.coefficient *= power10(zeros);
        number.exponent = range.greatest;
    }
    return sign + number.coefficient.get_str() + 'E' + std::to_string(number.exponent);
}

/// Reads sign, digits with a point, and an exponent.
inline ExactDecimal exactDecimal(const std::string& text) {
    ExactDecimal number;
    number.negative = text[0] == '-';
    std::string digits = "0";
    bool isFraction = false;
    std::size_t i = 0;
    for (; i < text.size() && std::tolower(text[i]) != 'e'; ++i) {
        if (text[i] == '.') {
            isFraction = true;
        } else if (text[i] >= '0') {
            digits += text[i];
            number.exponent -= isFraction ? 1 : 0;
        }
    }
    number.coefficient.set_str(digits, 10);
    if (i < text.size()) {
        number.exponent += std::strtol(text.c_str() + i + 1, nullptr, 10);
    }
    return number;
}

/// Without zeros at the end of the coefficient.
inline ExactDecimal withoutZeros(ExactDecimal number) {
    while (number.coefficient != 0 && number.coefficient % 10 == 0) {
        number.coefficient /= 10;
        ++number.exponent;
    }
    return number;
}

} // namespace orvtest

#endif
