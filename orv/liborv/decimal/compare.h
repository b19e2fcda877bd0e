// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison and classification of decimal floating-point numbers.
///
/// By value: 1.0 and 1.00 are equal, and so are 0 and -0. A NaN is equal to nothing. A
/// coefficient above the largest of its format counts as 0. Nothing signals.
#ifndef ORV_LIBORV_DECIMAL_COMPARE_H
#define ORV_LIBORV_DECIMAL_COMPARE_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborv/platform.h"

ORV_EXTERN_C_BEGIN

/// What `orvDec64Compare` and its kin say of a NaN.
#define ORV_DEC_UNORDERED 2

/// \name Order
/// -1 if x is less than y, 0 if they are equal, 1 if x is greater; #ORV_DEC_UNORDERED if one is
/// a NaN.
/// @{
ORV_API int orvDec32Compare(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API int orvDec64Compare(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API int orvDec128Compare(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
/// @}

/// \name Relations
/// Non-zero if the relation holds. With a NaN only *not equal* does.
/// @{
ORV_API int orvDec32QuietEqual(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API int orvDec64QuietEqual(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API int orvDec128QuietEqual(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
ORV_API int orvDec32QuietNotEqual(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API int orvDec64QuietNotEqual(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API int orvDec128QuietNotEqual(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
ORV_API int orvDec32QuietLess(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API int orvDec64QuietLess(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API int orvDec128QuietLess(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
ORV_API int orvDec32QuietLessEqual(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API int orvDec64QuietLessEqual(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API int orvDec128QuietLessEqual(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
/// @}

/// \name Same quantum
/// Non-zero if both have one exponent, as encoded, or both are infinite, or both NaNs.
/// @{
ORV_API int orvDec32SameQuantum(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API int orvDec64SameQuantum(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API int orvDec128SameQuantum(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
/// @}

/// \name Total order
/// Non-zero if x is not behind y in the order of all values (IEEE 754-2008, 5.10), in which -0
/// is before 0, 1.00 before 1.0, and NaNs are at the ends: a quiet one outside of a signalling
/// one, and of the same kind by their payloads.
/// @{
ORV_API int orvDec32TotalOrder(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API int orvDec64TotalOrder(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API int orvDec128TotalOrder(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
/// @}

/// \name Class
/// A number of #OrvDecClass.
/// @{
ORV_API int orvDec32Class(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64Class(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128Class(ODecimal128 x) ORV_NOEXCEPT;
/// @}

/// \name Questions
/// Non-zero for yes. The sign is that of the sign bit. Canonical is a coefficient that fits, an
/// infinity with no other bit, a NaN whose payload fits.
/// @{
ORV_API int orvDec32IsInfinite(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64IsInfinite(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128IsInfinite(ODecimal128 x) ORV_NOEXCEPT;
ORV_API int orvDec32IsNaN(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64IsNaN(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128IsNaN(ODecimal128 x) ORV_NOEXCEPT;
ORV_API int orvDec32IsSignalling(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64IsSignalling(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128IsSignalling(ODecimal128 x) ORV_NOEXCEPT;
ORV_API int orvDec32IsFinite(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64IsFinite(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128IsFinite(ODecimal128 x) ORV_NOEXCEPT;
ORV_API int orvDec32IsNormal(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64IsNormal(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128IsNormal(ODecimal128 x) ORV_NOEXCEPT;
ORV_API int orvDec32IsZero(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64IsZero(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128IsZero(ODecimal128 x) ORV_NOEXCEPT;
ORV_API int orvDec32IsSigned(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64IsSigned(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128IsSigned(ODecimal128 x) ORV_NOEXCEPT;
ORV_API int orvDec32IsCanonical(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64IsCanonical(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128IsCanonical(ODecimal128 x) ORV_NOEXCEPT;
/// @}

ORV_EXTERN_C_END

#endif
