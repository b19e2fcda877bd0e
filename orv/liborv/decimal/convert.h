// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point numbers from and to integers, each other, and binary floating
/// point.
///
/// What does not fit exactly is rounded half to even. NaNs come out quiet, with the sign and the
/// first digits or bits of the payload. A coefficient above the largest of its format counts as
/// 0. Neither flags nor `errno` are touched.
#ifndef ORV_LIBORV_DECIMAL_CONVERT_H
#define ORV_LIBORV_DECIMAL_CONVERT_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborv/platform.h"

#include <stdint.h>

ORV_EXTERN_C_BEGIN

/// \name From integers
/// With exponent 0; a number of more digits than the format has is rounded.
/// @{
ORV_API ODecimal32 orvDec32FromInt64(int64_t n) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64FromInt64(int64_t n) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128FromInt64(int64_t n) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32FromUInt64(uint64_t n) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64FromUInt64(uint64_t n) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128FromUInt64(uint64_t n) ORV_NOEXCEPT;
/// @}

/// \name To integers
/// Truncated toward zero: -0.9 is 0, for the unsigned one too. NaN, infinity and what is out of
/// range give `INT32_MIN`, `INT64_MIN`, or 2^63 for the unsigned one, which are values of their
/// own too.
/// @{
ORV_API int32_t orvDec32ToInt32(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int32_t orvDec64ToInt32(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int32_t orvDec128ToInt32(ODecimal128 x) ORV_NOEXCEPT;
ORV_API int64_t orvDec32ToInt64(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int64_t orvDec64ToInt64(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int64_t orvDec128ToInt64(ODecimal128 x) ORV_NOEXCEPT;
ORV_API uint64_t orvDec32ToUInt64(ODecimal32 x) ORV_NOEXCEPT;
ORV_API uint64_t orvDec64ToUInt64(ODecimal64 x) ORV_NOEXCEPT;
ORV_API uint64_t orvDec128ToUInt64(ODecimal128 x) ORV_NOEXCEPT;
/// @}

/// \name To wider formats
/// Exact, with the same exponent; a zero's too.
/// @{
ORV_API ODecimal64 orvDec32ToDec64(ODecimal32 x) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec32ToDec128(ODecimal32 x) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec64ToDec128(ODecimal64 x) ORV_NOEXCEPT;
/// @}

/// \name To narrower formats
/// Rounded; infinity on overflow.
/// @{
ORV_API ODecimal32 orvDec64ToDec32(ODecimal64 x) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec128ToDec32(ODecimal128 x) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec128ToDec64(ODecimal128 x) ORV_NOEXCEPT;
/// @}

/// \name To binary floating point
/// The nearest number, rounded once; infinity on overflow.
/// @{
ORV_API float orvDec32ToFloat(ODecimal32 x) ORV_NOEXCEPT;
ORV_API float orvDec64ToFloat(ODecimal64 x) ORV_NOEXCEPT;
ORV_API float orvDec128ToFloat(ODecimal128 x) ORV_NOEXCEPT;
ORV_API double orvDec32ToDouble(ODecimal32 x) ORV_NOEXCEPT;
ORV_API double orvDec64ToDouble(ODecimal64 x) ORV_NOEXCEPT;
ORV_API double orvDec128ToDouble(ODecimal128 x) ORV_NOEXCEPT;
/// @}

ORV_EXTERN_C_END

#endif
