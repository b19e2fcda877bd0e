// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point numbers from an exact coefficient and a power of ten.
#ifndef ORV_LIBORVXX_NUMBER_MAKE_BINARY_H
#define ORV_LIBORVXX_NUMBER_MAKE_BINARY_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/big_uint.h"

namespace orv {

/// \name Coefficient * 10^exponent, negated if \p negative
/// Rounded to nearest, ties to even, in the processor's default rounding mode. Overflow gives
/// infinity, underflow zero, both with the sign.
///
/// The result is correctly rounded for every coefficient if the exponent is not negative, and for
/// coefficients of up to n bits if it is, where n is the bit length of 10^|exponent| plus 53 for
/// a double and plus 24 for a float. Of a longer coefficient only the top n bits count: the
/// result is the correctly rounded one for these, which may be the neighbour of the nearest
/// number.
/// \code
/// orv::make_double(false, -1, orv::big_uint(1u)); // 0.1
/// orv::make_double(false, 23, orv::big_uint(1u)); // 1e23
/// \endcode
///
/// The largest `int` as the exponent means certain overflow and the smallest certain underflow,
/// whatever the coefficient, zero included.
///
/// Coefficients that fit the type, with a power of ten that does, cost one multiplication or
/// division. Nearly all others are decided in 128 bits; what those leave open is worked out
/// exactly.
/// \exception std::out_of_range "big_uint::pow10" for coefficients beyond some 10^8191 (see
///            `big_uint::ilog10`), and for exponents below -8191 with coefficients so large that
///            the result is not known to be zero
/// @{
ORVXX_API double make_double(bool negative, int exponent, const big_uint& coefficient);
ORVXX_API float make_float(bool negative, int exponent, const big_uint& coefficient);
/// The value of `make_double`: a long double carries the precision of a double here.
ORVXX_API long double make_long_double(bool negative, int exponent, const big_uint& coefficient);
/// @}

} // namespace orv

#endif
