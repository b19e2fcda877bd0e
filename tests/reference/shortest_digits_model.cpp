// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The shortest digits, by fractions of GMP's integers.
#include "tests/reference/shortest_digits_model.h"

#include <gmpxx.h>

#include <cstdint>

namespace orvtest {

namespace {

mpz_class power(unsigned long base, int exponent) {
    mpz_class result;
    mpz_ui_pow_ui(result.get_mpz_t(), base, static_cast<unsigned long>(exponent));
    return result;
}

} // namespace

DecimalText shortestModel(std::uint64_t coefficient, int exponent, bool uneven,
                          unsigned maxDigits) {
    // In quarters of a step of the number, over a denominator that is a power of ten.
    mpz_class value(static_cast<unsigned long>(coefficient) * 4);
    mpz_class step = 1;
    mpz_class denominator = 1;
    const int quarter = exponent - 2;
    (quarter >= 0 ? step : denominator) = power(2, quarter >= 0 ? quarter : -quarter);
    value *= step;
    const mpz_class low = step * (uneven ? 1 : 2);
    const mpz_class high = step * 2;
    int first = 0;
    mpz_class ten = denominator * 10;
    while (value >= ten) {
        ten *= 10;
        ++first;
    }
    int scale = 0; // value * 10^scale is in steps of the first digit
    while (value * power(10, scale) < denominator) {
        ++scale;
        --first;
    }
    for (unsigned count = 2;; ++count) {
        // A unit of the last digit is 10^(first - count + 1).
        const int unit = first - static_cast<int>(count) + 1;
        const mpz_class up = unit < 0 ? power(10, -unit) : mpz_class(1);
        const mpz_class down = denominator * (unit > 0 ? power(10, unit) : mpz_class(1));
        const mpz_class scaled = value * up;
        mpz_class digits = scaled / down;
        mpz_class distance = scaled - digits * down;
        const int half = cmp(mpz_class(distance * 2), down);
        const bool roundsUp = half > 0 || (half == 0 && mpz_odd_p(digits.get_mpz_t()) != 0);
        if (roundsUp) {
            ++digits;
            distance = down - distance;
        }
        const int inside = cmp(distance, mpz_class((roundsUp ? high : low) * up));
        if (inside < 0 || (inside == 0 && coefficient % 2 == 0) || count == maxDigits) {
            return decimalOf(digits.get_str() + "e" + std::to_string(unit));
        }
    }
}

} // namespace orvtest
