// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point numbers from an exact coefficient and a power of ten.
#ifndef ORV_LIBORVXX_NUMBER_PACK_DECIMAL_H
#define ORV_LIBORVXX_NUMBER_PACK_DECIMAL_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/number/big_uint.h"

namespace orv {

/// \name Coefficient * 10^exponent, negated if \p negative
/// Rounded to nearest, ties to even, once.
///
/// A decimal number keeps its exponent: 12 * 10^1 and 120 * 10^0 are equal and have different
/// encodings. The exponent changes only if it must: digits that the format does not have are
/// rounded away, an exponent below the least is raised with them, and one beyond the greatest is
/// lowered as far as zeros fit behind the coefficient. What is too large even so is infinity; what
/// rounds to zero has the least exponent. A zero coefficient keeps the exponent, moved into the
/// range.
/// \code
/// orv::pack_decimal32(false, 0, orv::big_uint(12345678u)); // 1234568 * 10^1
/// orv::pack_decimal32(false, 92, orv::big_uint(12u));      // 1200 * 10^90, 90 being the greatest
/// \endcode
/// \exception std::out_of_range "big_uint::pow10" for coefficients beyond some 10^8191: see
///            `big_uint::ilog10`
/// @{
ORVXX_API decimal::decimal32 pack_decimal32(bool negative, int exponent,
                                            const big_uint& coefficient);
ORVXX_API decimal::decimal64 pack_decimal64(bool negative, int exponent,
                                            const big_uint& coefficient);
ORVXX_API decimal::decimal128 pack_decimal128(bool negative, int exponent,
                                              const big_uint& coefficient);
/// @}

} // namespace orv

#endif
