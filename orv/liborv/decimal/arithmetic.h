// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Arithmetic of decimal floating-point numbers (IEEE 754-2008, clause 5).
///
/// Results are the exact ones, rounded once, half to even where no mode is given. They keep the
/// exponent that the standard prefers (5.1): 1.50 + 1.5 is 3.00. What overflows is infinity;
/// what has no value (0 / 0, the root of -1) is the canonical NaN; a number divided by zero is
/// infinite. A NaN among the operands gives a quiet NaN: the first of them, with its sign and
/// payload, or payload 0 if that has too many digits. A sum that is exactly zero is 0, and -0
/// only if both operands are negative zeros (IEEE 754-2008, 6.3). No flag is kept, `errno` is
/// left alone, and nothing is allocated. A coefficient above the largest of its format counts as
/// 0, and the results are canonical, if nothing else is told.
///
/// All functions are pure, and safe from any thread.
#ifndef ORV_LIBORV_DECIMAL_ARITHMETIC_H
#define ORV_LIBORV_DECIMAL_ARITHMETIC_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborv/platform.h"

ORV_EXTERN_C_BEGIN

/// \name Sum, difference, product, quotient
/// x + y, x - y, x * y and x / y.
/// @{
ORV_API ODecimal32 orvDec32Add(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Add(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Add(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32Subtract(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Subtract(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Subtract(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32Multiply(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Multiply(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Multiply(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32Divide(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Divide(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Divide(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
/// @}

/// \name x * y + z, rounded once
/// @{
ORV_API ODecimal32 orvDec32FusedMultiplyAdd(ODecimal32 x, ODecimal32 y, ODecimal32 z) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64FusedMultiplyAdd(ODecimal64 x, ODecimal64 y, ODecimal64 z) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128FusedMultiplyAdd(ODecimal128 x, ODecimal128 y,
                                              ODecimal128 z) ORV_NOEXCEPT;
/// @}

/// \name Square root
/// @{
ORV_API ODecimal32 orvDec32SquareRoot(ODecimal32 x) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64SquareRoot(ODecimal64 x) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128SquareRoot(ODecimal128 x) ORV_NOEXCEPT;
/// @}

/// \name IEEE remainder
/// x - y * n, exactly, with n the integer nearest to x / y, ties to even: so it may be negative
/// for positive operands. A zero has the sign of x. x itself if y is infinite; NaN if x is
/// infinite or y is zero. The time grows with the difference of the exponents.
/// @{
ORV_API ODecimal32 orvDec32Remainder(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Remainder(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Remainder(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
/// @}

/// \name Quantum
/// x with the exponent of y: digits are rounded away by \p mode (#OrvDecRounding), or zeros
/// appended. NaN if x does not fit then, or if just one of the two is infinite; x if both are.
/// @{
ORV_API ODecimal32 orvDec32Quantize(ODecimal32 x, ODecimal32 y, int mode) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Quantize(ODecimal64 x, ODecimal64 y, int mode) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Quantize(ODecimal128 x, ODecimal128 y, int mode) ORV_NOEXCEPT;
/// @}

/// \name x * 10^n
/// The exponent moves by \p n, which may be any int; beyond the range zeros are appended or
/// digits rounded away. Infinity on overflow.
/// @{
ORV_API ODecimal32 orvDec32ScaleB(ODecimal32 x, int n) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64ScaleB(ODecimal64 x, int n) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128ScaleB(ODecimal128 x, int n) ORV_NOEXCEPT;
/// @}

/// \name Exponent of the first significant digit
/// -1 for 0.5, 3 for 1234. `INT_MIN` for zero and NaN, `INT_MAX` for infinity.
/// @{
ORV_API int orvDec32LogB(ODecimal32 x) ORV_NOEXCEPT;
ORV_API int orvDec64LogB(ODecimal64 x) ORV_NOEXCEPT;
ORV_API int orvDec128LogB(ODecimal128 x) ORV_NOEXCEPT;
/// @}

/// \name Rounding to an integer
/// To exponent 0, or unchanged where the exponent is above it. By \p mode (#OrvDecRounding); or
/// with ties away from zero.
/// @{
ORV_API ODecimal32 orvDec32RoundExact(ODecimal32 x, int mode) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64RoundExact(ODecimal64 x, int mode) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128RoundExact(ODecimal128 x, int mode) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32RoundHalfUp(ODecimal32 x) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64RoundHalfUp(ODecimal64 x) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128RoundHalfUp(ODecimal128 x) ORV_NOEXCEPT;
/// @}

/// \name Sign
/// The bits of x with another sign, and no look at the rest: NaNs stay as they are, signalling
/// ones too, and so do encodings that are not canonical.
/// @{
ORV_API ODecimal32 orvDec32Abs(ODecimal32 x) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Abs(ODecimal64 x) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Abs(ODecimal128 x) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32Negate(ODecimal32 x) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Negate(ODecimal64 x) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Negate(ODecimal128 x) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32CopySign(ODecimal32 magnitude, ODecimal32 sign) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64CopySign(ODecimal64 magnitude, ODecimal64 sign) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128CopySign(ODecimal128 magnitude, ODecimal128 sign) ORV_NOEXCEPT;
/// @}

/// \name Least and greatest
/// A number wins over a quiet NaN (IEEE 754-2008, 5.3.1); a signalling one gives a quiet NaN. Of
/// two that are equal the result is y, be it -0 or of another exponent.
/// @{
ORV_API ODecimal32 orvDec32Min(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Min(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Min(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32Max(ODecimal32 x, ODecimal32 y) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64Max(ODecimal64 x, ODecimal64 y) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128Max(ODecimal128 x, ODecimal128 y) ORV_NOEXCEPT;
/// @}

/// \name Neighbours
/// The least number above x, and the greatest below, in all the digits of the format.
/// @{
ORV_API ODecimal32 orvDec32NextUp(ODecimal32 x) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64NextUp(ODecimal64 x) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128NextUp(ODecimal128 x) ORV_NOEXCEPT;
ORV_API ODecimal32 orvDec32NextDown(ODecimal32 x) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64NextDown(ODecimal64 x) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128NextDown(ODecimal128 x) ORV_NOEXCEPT;
/// @}

ORV_EXTERN_C_END

#endif
