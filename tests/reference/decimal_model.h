// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point arithmetic in exact integers of GMP, rounded in plain steps.
#ifndef ORV_TESTS_REFERENCE_DECIMAL_MODEL_H
#define ORV_TESTS_REFERENCE_DECIMAL_MODEL_H

#include "orv/liborv/decimal/decimal.h"

#include <gmpxx.h>

#include <iosfwd>

namespace orvtest {

/// A format: its digits, and the exponents of the lowest digit.
struct DecimalFormat {
    int digits = 0;
    int least = 0;
    int greatest = 0;
};

constexpr DecimalFormat DECIMAL32{7, -101, 90};
constexpr DecimalFormat DECIMAL64{16, -398, 369};
constexpr DecimalFormat DECIMAL128{34, -6176, 6111};

/// A number, an infinity or a NaN; of these two nothing but the sign counts, of a NaN nothing.
struct DecimalValue {
    enum class Kind { FINITE, INFINITE, NOT_A_NUMBER };

    Kind kind = Kind::FINITE;
    bool negative = false;
    mpz_class coefficient;
    int exponent = 0;

    bool isFinite() const { return kind == Kind::FINITE; }
    bool isInfinite() const { return kind == Kind::INFINITE; }
    bool isNaN() const { return kind == Kind::NOT_A_NUMBER; }
    bool isZero() const { return isFinite() && coefficient == 0; }

    /// The same number with the same exponent and sign, a zero's too.
    friend bool operator==(const DecimalValue& a, const DecimalValue& b) {
        return a.kind == b.kind &&
               (a.isNaN() ||
                (a.negative == b.negative &&
                 (a.isInfinite() || (a.coefficient == b.coefficient && a.exponent == b.exponent))));
    }
};

std::ostream& operator<<(std::ostream& out, const DecimalValue& value);

/// 10^n
mpz_class powerOfTen(int n);

/// \name Encodings
/// What is not canonical reads as zero; what is written is canonical.
/// @{
DecimalValue decode(ODecimal32 x);
DecimalValue decode(ODecimal64 x);
DecimalValue decode(ODecimal128 x);
void encode(const DecimalValue& value, ODecimal32& x);
void encode(const DecimalValue& value, ODecimal64& x);
void encode(const DecimalValue& value, ODecimal128& x);
/// @}

/// \p n / \p d, which are not negative, rounded to an integer. \p mode is an #OrvDecRounding.
mpz_class roundedQuotient(const mpz_class& n, const mpz_class& d, bool negative, int mode);

/// n / d * 10^exponent in a format: exact results have the exponent nearest to \p preferred.
DecimalValue rounded(const DecimalFormat& format, bool negative, const mpz_class& n,
                     const mpz_class& d, int exponent, int preferred);

/// \name Operations, ties to even
/// @{
DecimalValue modelAdd(const DecimalFormat& format, const DecimalValue& x, const DecimalValue& y);
DecimalValue modelMultiply(const DecimalFormat& format, const DecimalValue& x,
                           const DecimalValue& y);
DecimalValue modelDivide(const DecimalFormat& format, const DecimalValue& x, const DecimalValue& y);
DecimalValue modelFusedMultiplyAdd(const DecimalFormat& format, const DecimalValue& x,
                                   const DecimalValue& y, const DecimalValue& z);
DecimalValue modelSquareRoot(const DecimalFormat& format, const DecimalValue& x);
DecimalValue modelRemainder(const DecimalFormat& format, const DecimalValue& x,
                            const DecimalValue& y);
DecimalValue modelScaleB(const DecimalFormat& format, const DecimalValue& x, int n);
DecimalValue modelConvert(const DecimalFormat& to, const DecimalValue& x);
/// @}

/// \name Operations in a rounding mode
/// @{
DecimalValue modelQuantize(const DecimalFormat& format, const DecimalValue& x,
                           const DecimalValue& y, int mode);
DecimalValue modelRoundExact(const DecimalValue& x, int mode);
/// @}

/// -1, 0 or 1 by value; neither is a NaN.
int modelCompare(const DecimalValue& x, const DecimalValue& y);

} // namespace orvtest

#endif
