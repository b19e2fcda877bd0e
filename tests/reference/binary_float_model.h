// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Packing of float and double in plain steps over GMP's integers, sharing nothing with the
/// library: no estimates, no windows, no shortcut but the documented one.
#ifndef ORV_TESTS_REFERENCE_BINARY_FLOAT_MODEL_H
#define ORV_TESTS_REFERENCE_BINARY_FLOAT_MODEL_H

#include <gmpxx.h>

namespace orvtest {

/// coefficient * 2^exponent, with rounding information on what is below the coefficient.
/// @{
double modelPackDouble(bool negative, int exponent, const mpz_class& coefficient,
                       unsigned rounding);
float modelPackFloat(bool negative, int exponent, const mpz_class& coefficient, unsigned rounding);
/// @}

/// coefficient * 10^exponent, with rounding information on what is below the coefficient.
/// @{
double modelMakeDouble(bool negative, int exponent, const mpz_class& coefficient,
                       unsigned rounding);
float modelMakeFloat(bool negative, int exponent, const mpz_class& coefficient, unsigned rounding);
/// @}

} // namespace orvtest

#endif
