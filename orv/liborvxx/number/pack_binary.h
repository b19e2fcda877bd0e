// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point numbers from an exact coefficient and a power of two.
#ifndef ORV_LIBORVXX_NUMBER_PACK_BINARY_H
#define ORV_LIBORVXX_NUMBER_PACK_BINARY_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/big_uint.h"

namespace orv {

/// \name Coefficient * 2^exponent, negated if \p negative
/// Rounded to nearest, ties to even, once, subnormal results included. What rounds to 2^1024 (for a
/// float 2^128) or more is infinity, and what is at most half of the smallest subnormal is
/// zero; both keep the sign.
///
/// Any exponent will do. No memory is allocated, and the time depends on the coefficient's zero
/// bits alone: the top bits decide, and whether any bit below them is set.
/// \code
/// orv::pack_double(false, -1, orv::big_uint(3u));     // 1.5
/// orv::pack_double(false, -1074, orv::big_uint(1u));  // the smallest subnormal
/// orv::pack_double(true, 5000, orv::big_uint(1u));    // -infinity
/// \endcode
/// @{
ORVXX_API double pack_double(bool negative, int exponent, const big_uint& coefficient) noexcept;
ORVXX_API float pack_float(bool negative, int exponent, const big_uint& coefficient) noexcept;
/// The value of `pack_double`: a long double carries the precision of a double here, so that
/// a result is the same on every platform.
ORVXX_API long double pack_long_double(bool negative, int exponent,
                                       const big_uint& coefficient) noexcept;
/// @}

} // namespace orv

#endif
