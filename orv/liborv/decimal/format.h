// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point numbers as text.
///
/// Three conversions. Let the value be c * 10^q, n the digits of c (a zero has one), and p the
/// precision. Digits are dropped by rounding, half to even; where 9.99 becomes 10.0, n stays.
///
/// - **F**: p digits behind the point: rounded, or zeros appended. With a negative precision -q
///   of them, none for a q above 0.
/// - **E**: one digit, the point, p digits, "E", a sign and an exponent of at least two digits.
///   With a negative precision all n digits.
/// - **G**: the value as it stands, zeros included, but of more than p digits only p (p 0
///   counts as 1). If then q is from -(n + 5) to 0 the text is that of F with -q digits, else
///   that of E with n - 1. With a negative precision no digit is dropped, and the text of a
///   canonical number reads back to the same encoding.
///
/// | value  | F -1     | F 2     | E -1         | E 2      | G -1     | G 3      |
/// |--------|----------|---------|--------------|----------|----------|----------|
/// | 1.50   | 1.50     | 1.50    | 1.50E+00     | 1.50E+00 | 1.50     | 1.50     |
/// | 15E+1  | 150      | 150.00  | 1.5E+02      | 1.50E+02 | 1.5E+02  | 1.5E+02  |
/// | 2E+2   | 200      | 200.00  | 2E+02        | 2.00E+02 | 2E+02    | 2E+02    |
/// |1234.565| 1234.565 | 1234.56 | 1.234565E+03 | 1.23E+03 | 1234.565 | 1.23E+03 |
/// | 9.999  | 9.999    | 10.00   | 9.999E+00    | 1.00E+01 | 9.999    | 10.0     |
/// | 12E-6  | 0.000012 | 0.00    | 1.2E-05      | 1.20E-05 | 0.000012 | 0.000012 |
/// | 1E-7   | 0.0000001| 0.00    | 1E-07        | 1.00E-07 | 1E-07    | 1E-07    |
/// | 0.00   | 0.00     | 0.00    | 0E-02        | 0.00E-02 | 0.00     | 0.00     |
/// | 0E+3   | 0        | 0.00    | 0E+03        | 0.00E+03 | 0E+03    | 0E+03    |
///
/// Small conversion letters write "e", "inf" and "nan", others "E", "INF" and "NAN". A point
/// stands only where digits follow, or always, if that is asked for. In F and G the digits
/// before the point are grouped: 1234567 with the sizes "\3" is "1,234,567", with "\3\2" it is
/// "12,34,567". In texts of the form of E, which have one such digit, there is nothing to
/// group. A sign leads negative values, -0 and -INF too; others have the plus sign given. A NaN
/// has neither sign nor payload. A coefficient above the largest of the format counts as 0.
#ifndef ORV_LIBORV_DECIMAL_FORMAT_H
#define ORV_LIBORV_DECIMAL_FORMAT_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborv/platform.h"

#include <stddef.h>
#include <stdint.h>

ORV_EXTERN_C_BEGIN

/// How to write a number. Punctuation up to 255 is written as that byte, above as UTF-8;
/// surrogates and values above U+10FFFF as U+FFFD.
typedef struct DecimalFormat {
    char conversion;             ///< 'G', 'E' or 'F', or the small letter; others are 'G'
    char plusSign;               ///< before what is not negative: '+', or 0 for nothing
    uint8_t showPoint;           ///< 1 to write a point even if no digit follows
    int32_t precision;           ///< digits; a negative one for the value as it stands
    uint32_t decimalPoint;       ///< a character; 0 counts as '.'
    uint32_t thousandsSeparator; ///< a character; 0 for no groups
    /// The sizes of the groups of digits, from the point leftward, ended by 0; the last one
    /// counts for all that follow, and 127 or above ends the grouping. Null or empty: no
    /// groups.
    const char* grouping;
} DecimalFormat;

/// \name Writing
/// Writes the text of \p value to \p buffer, as far as it fits, and a NUL behind it, if \p size
/// is not 0; what the buffer holds behind the NUL is not kept. It may be null for a size of 0.
/// Takes no more time than writing what fits does, however large the precision.
/// \return the length of the whole text without the NUL: the text is whole if that is below the
///         size
/// @{
ORV_API size_t orvDec32FormatString(const DecimalFormat* format, ODecimal32 value, char* buffer,
                                    size_t size) ORV_NOEXCEPT;
ORV_API size_t orvDec64FormatString(const DecimalFormat* format, ODecimal64 value, char* buffer,
                                    size_t size) ORV_NOEXCEPT;
ORV_API size_t orvDec128FormatString(const DecimalFormat* format, ODecimal128 value, char* buffer,
                                     size_t size) ORV_NOEXCEPT;
/// @}

ORV_EXTERN_C_END

#endif
