// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `stod64_c` and its kin: decimal floating-point numbers from text, the same in every
/// locale.
///
/// They read what `stod_c` reads (string_to_float.h tells the grammar), but no hexadecimal numbers:
/// "0x10" is the number 0, followed by "x10". As there, the rest of the text is left, what follows
/// a word must be no letter, no digit and no '_', and in `char16` text the decimal digits of every
/// script are digits like '0' to '9'.
///
/// A number keeps the exponent that its text has: "1.50" is 150 * 10^-2, "1e2" is 1 * 10^2, and
/// "0.00" is a zero with the exponent -2. Trailing zeros count as digits, zeros in front do not.
/// The exponent changes only if it must, as `pack_decimal64` (pack_decimal.h) tells.
///
/// The results are the correctly rounded ones, to nearest, ties to even, for texts of any length:
/// the digits beyond the 7, 16 or 34 of the type all take part in the one rounding, also where the
/// number is subnormal. But a written exponent of ten digits or more counts as too large, or with
/// '-' as too small, even if its digits are zeros. What is too large is an infinity, what is too
/// small a zero with the sign: no failures, either of them. A zero that is "too large" has the
/// greatest exponent.
///
/// Where bad text is no exception, `from_chars_c` (from_chars.h) reads the same with a status. It
/// takes no memory, and neither do these.
///
/// \par Example
/// \code
/// std::size_t length = 0;
/// orv::stod64_c("2.50 EUR", &length); // 2.50, length 4
/// orv::stod32_c("9.9999999");         // 10.00000
/// orv::stod128_c("-iNf");             // minus infinity
/// \endcode
#ifndef ORV_LIBORVXX_NUMBER_STRING_TO_DECIMAL_H
#define ORV_LIBORVXX_NUMBER_STRING_TO_DECIMAL_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstddef>

namespace orv {

/// \name From a view
/// The number at the front of \p text. \p index, where not null, receives the units read, white
/// space and sign included; a failure leaves it as it was.
/// \exception std::invalid_argument "decimal digit expected" if there is no digit; "'infinity'
///            expected" and "'nan' expected" if a word is not right
/// @{

ORVXX_API decimal::decimal32 stod32_c(string_ref text, std::size_t* index = nullptr);
ORVXX_API decimal::decimal32 stod32_c(ustring_ref text, std::size_t* index = nullptr);
ORVXX_API decimal::decimal64 stod64_c(string_ref text, std::size_t* index = nullptr);
ORVXX_API decimal::decimal64 stod64_c(ustring_ref text, std::size_t* index = nullptr);
ORVXX_API decimal::decimal128 stod128_c(string_ref text, std::size_t* index = nullptr);
ORVXX_API decimal::decimal128 stod128_c(ustring_ref text, std::size_t* index = nullptr);

/// @}
/// \name From a cursor
/// The number at the cursor's position. The cursor moves to the first unit behind it; a failure
/// leaves it where it was.
/// \exception std::invalid_argument if there is no number, with the texts told above
/// @{

ORVXX_API decimal::decimal32 stod32_c(BasicCharIterator<char>& it);
ORVXX_API decimal::decimal32 stod32_c(BasicCharIterator<char16>& it);
ORVXX_API decimal::decimal64 stod64_c(BasicCharIterator<char>& it);
ORVXX_API decimal::decimal64 stod64_c(BasicCharIterator<char16>& it);
ORVXX_API decimal::decimal128 stod128_c(BasicCharIterator<char>& it);
ORVXX_API decimal::decimal128 stod128_c(BasicCharIterator<char16>& it);

/// @}
/// \name In the shape of the C library
/// The number at the front of \p text, which ends with a NUL. \p end, where not null, receives the
/// place behind the number.
///
/// Without a number the result has all bits 0, which is a zero with the least exponent, and \p end
/// receives \p text. Nothing is thrown, and `errno` is left alone: no number is out of range. What
/// lies behind the number is not looked at, so many numbers in one long text take no more time than
/// they have units.
/// @{

ORVXX_API decimal::decimal32 strtod32_c(const char* text, char** end) noexcept;
ORVXX_API decimal::decimal32 strtod32_c(const char16* text, char16** end) noexcept;
ORVXX_API decimal::decimal64 strtod64_c(const char* text, char** end) noexcept;
ORVXX_API decimal::decimal64 strtod64_c(const char16* text, char16** end) noexcept;
ORVXX_API decimal::decimal128 strtod128_c(const char* text, char** end) noexcept;
ORVXX_API decimal::decimal128 strtod128_c(const char16* text, char16** end) noexcept;

/// @}

} // namespace orv

#endif
