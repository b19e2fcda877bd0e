// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimals as exact integers of GMP times a power of ten.
#ifndef ORV_TESTS_DECIMAL_EXACT_DECIMAL_H
#define ORV_TESTS_DECIMAL_EXACT_DECIMAL_H

#include "orv/liborvxx/decimal/decimal_access.h"

#include "tests/support/gmp_number.h"

#include <gmpxx.h>

namespace orvtest {

inline mpz_class power10(int n) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned long>(n));
    return power;
}

inline mpz_class coefficientOf(const orv::decimal::decimal32& x) {
    return coefficient(x);
}
inline mpz_class coefficientOf(const orv::decimal::decimal64& x) {
    return coefficient(x);
}
inline mpz_class coefficientOf(const orv::decimal::decimal128& x) {
    return toGmp(coefficient(x));
}

/// x / 10^exponent.
/// \pre \p x is finite and canonical, and its exponent at least \p exponent
template <class T>
mpz_class scaled(const T& x, int exponent) {
    const mpz_class magnitude = coefficientOf(x) * power10(quantexp(x) - exponent);
    return signbit(x) ? -magnitude : magnitude;
}

} // namespace orvtest

#endif
