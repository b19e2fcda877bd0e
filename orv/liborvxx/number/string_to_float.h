// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `stod_c` and its kin: floating-point numbers from text, the same in every locale.
///
/// All read a number from the front of a text and leave the rest:
///
/// 1. White space is skipped: the blank and U+0009 to U+000D; in `char16` text all that `isuspace`
///    (char_class.h) knows.
/// 2. A sign, '+' or '-', may follow.
/// 3. A word, in letters of either case: "inf", "infinity" or "nan". What follows it must be no
///    letter, no digit and no '_'. A NaN is always the positive quiet one.
/// 4. Or decimal digits, with one point before, among or behind them, and at least one digit; then
///    perhaps 'e' or 'E', a sign and the digits of a power of ten. A mark without digits behind it
///    is no part of the number: "1e+" is the number 1, followed by "e+".
/// 5. Or "0x" or "0X" and hexadecimal digits in the same way; then perhaps 'p' or 'P', a sign and
///    the decimal digits of a power of two. "0x" with no digit behind it is no number.
///
/// What does not belong to the number ends it, and so does a NUL within the text. In `char16` text
/// the decimal digits of every script are digits like '0' to '9'.
///
/// Rounding is to nearest, ties to even. Results are the correctly rounded ones but for these:
///
/// - Of the decimal digits 20 are kept, from the first that is not 0; the others round the last
///   one kept to an integer. A text of more digits that lies within 10^-20 of the middle of two
///   neighbours may give the other one. Numbers with an exponent that cancels the point exactly
///   keep the full meaning of these digits.
/// - `make_double` and `make_float` (make_binary.h) tell how many bits of a coefficient count where
///   it is divided by a power of ten: for a double 17 digits always do, for a float 8. A longer
///   text with few digits behind the point may give the neighbour of the nearest one.
/// - Of hexadecimal digits 14 are kept for a double and 6 for a float, which may be 21 bits if the
///   first digit is 1: so a float of more digits can come out less precise than it might.
///
/// A written exponent of ten digits or more counts as too large, or with '-' as too small, even if
/// its digits are zeros. Underflow is no failure: it gives a subnormal number or a zero with the
/// sign.
///
/// Where bad text is no exception, `from_chars_c` (from_chars.h) reads the same with a status. It
/// takes no memory, and neither do these.
///
/// \par Example
/// \code
/// std::size_t length = 0;
/// orv::stod_c("2.5 mm", &length); // 2.5, length 3
/// orv::stod_c("-iNf");            // minus infinity
/// orv::stod_c("0x1.8p3");         // 12
/// \endcode
#ifndef ORV_LIBORVXX_NUMBER_STRING_TO_FLOAT_H
#define ORV_LIBORVXX_NUMBER_STRING_TO_FLOAT_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstddef>

namespace orv {

/// \name From a view
/// The number at the front of \p text. \p index, where not null, receives the units read, white
/// space and sign included; a failure leaves it as it was.
/// \exception std::invalid_argument "decimal digit expected" if there is no digit, also of a
///            hexadecimal number; "'infinity' expected" and "'nan' expected" if a word is not right
/// \exception std::out_of_range "string to double conversion out of range" (or "float", or "long
///            double") if a number, but no word, would be infinite
/// @{

ORVXX_API float stof_c(string_ref text, std::size_t* index = nullptr);
ORVXX_API float stof_c(ustring_ref text, std::size_t* index = nullptr);
ORVXX_API double stod_c(string_ref text, std::size_t* index = nullptr);
ORVXX_API double stod_c(ustring_ref text, std::size_t* index = nullptr);
/// The value of `stod_c`: a long double carries the precision of a double here.
ORVXX_API long double stold_c(string_ref text, std::size_t* index = nullptr);
/// The value of `stod_c`: a long double carries the precision of a double here.
ORVXX_API long double stold_c(ustring_ref text, std::size_t* index = nullptr);

/// @}
/// \name From a cursor
/// The number at the cursor's position. The cursor moves to the first unit behind it; a failure
/// leaves it where it was.
/// \exception std::invalid_argument if there is no number, with the texts told above
/// \exception std::out_of_range if the number would be infinite, with the texts told above
/// @{

ORVXX_API float stof_c(BasicCharIterator<char>& it);
ORVXX_API float stof_c(BasicCharIterator<char16>& it);
ORVXX_API double stod_c(BasicCharIterator<char>& it);
ORVXX_API double stod_c(BasicCharIterator<char16>& it);
ORVXX_API long double stold_c(BasicCharIterator<char>& it);
ORVXX_API long double stold_c(BasicCharIterator<char16>& it);

/// @}
/// \name In the shape of the C library
/// The number at the front of \p text, which ends with a NUL. \p end, where not null, receives the
/// place behind the number.
///
/// Without a number the result is 0 and \p end receives \p text. A number that would be infinite
/// gives infinity with its sign and sets `errno` to `ERANGE`; \p end receives the place behind it.
/// Nothing else changes `errno`, and nothing is thrown. What lies behind the number is not looked
/// at, so many numbers in one long text take no more time than they have units.
/// @{

ORVXX_API float strtof_c(const char* text, char** end) noexcept;
ORVXX_API float strtof_c(const char16* text, char16** end) noexcept;
ORVXX_API double strtod_c(const char* text, char** end) noexcept;
ORVXX_API double strtod_c(const char16* text, char16** end) noexcept;
ORVXX_API long double strtold_c(const char* text, char** end) noexcept;
ORVXX_API long double strtold_c(const char16* text, char16** end) noexcept;

/// @}

} // namespace orv

#endif
