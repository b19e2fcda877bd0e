// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from text and as text, with the punctuation of a locale: `strtod64`,
/// `to_string`, and streams.
///
/// What a text may look like stands at `orvDecParseInit` (parse.h), what the written ones look like
/// in format.h. The locale gives the decimal point and, if it groups digits, the thousands
/// separator and the sizes of the groups; text that is read may have separators between any two
/// digits before the point. A locale in which the two are no proper punctuation (the same
/// character, a digit, a sign) reads nothing.
///
/// Streams over `char16` take the punctuation of `std::numpunct<char16>`, whose marks are units:
/// the separator may be U+202F, which a byte cannot be. Digits and letters are ASCII there too.
///
/// The functions read the locale that they are given, or the classic one, and nothing that is
/// global. Text that needs no locale at all is read and written faster by `stod64_c` and
/// `to_string_c`.
///
/// \code
/// const orv::decimal::decimal64 price = orv::decimal::strtod64("19.90");
/// std::string text = orv::decimal::to_string(price * 3, 2); // "59.70"
/// \endcode
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_IO_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_IO_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"

#include <cstddef>
#include <iosfwd>
#include <locale>
#include <string>

namespace orv::decimal {

/// \name Reading text
/// The number that \p text begins with, behind white space, rounded once, half to even; "1.50"
/// keeps its zero. Too large a number is infinity, too small a one zero.
///
/// \param locale whose punctuation \p text has; the classic one where there is none
/// \param text   ended by NUL, not null
/// \param end    if not null, takes the end of the number, or \p text if there is none. If null,
///               only white space may stand behind the number, or behind what might have become
///               more of it: "12." and "1e+ " are read whole then, as 12 and 1.
/// \return the number; the canonical NaN if there is none, or something stands behind it that may
///         not
/// \exception std::bad_alloc as the facet of a \p locale throws it; nothing else is thrown but what
///            that facet throws, and nothing without a locale. `errno` is left alone.
/// @{
ORVXX_API decimal64 strtod64(const char* text, const char** end = nullptr);
ORVXX_API decimal64 strtod64(const std::locale& locale, const char* text,
                             const char** end = nullptr);
ORVXX_API decimal128 strtod128(const char* text, const char** end = nullptr);
ORVXX_API decimal128 strtod128(const std::locale& locale, const char* text,
                               const char** end = nullptr);
/// @}

/// \name Reading strings
/// As above. The text ends with the first NUL in it, or with the string.
///
/// \param index if not null, where in \p text to begin, at most its size (asserted); takes the end
///              of the number, or stays if there is none. If null, only white space may stand
///              behind the number.
/// \exception std::bad_alloc as above
/// @{
ORVXX_API decimal64 strtod64(const std::string& text, std::size_t* index = nullptr);
ORVXX_API decimal64 strtod64(const std::locale& locale, const std::string& text,
                             std::size_t* index = nullptr);
ORVXX_API decimal128 strtod128(const std::string& text, std::size_t* index = nullptr);
ORVXX_API decimal128 strtod128(const std::locale& locale, const std::string& text,
                               std::size_t* index = nullptr);
/// @}

/// \name Reading from streams
/// Reads as many characters as can belong to a number, in the punctuation of the stream's locale,
/// behind white space unless `skipws` is clear. If the last of them does not complete one, as in
/// "1e+;", the stream fails and \p value stays as it was. Sets `eofbit` where the stream ends, also
/// behind a number. If the locale has no proper punctuation, nothing happens.
///
/// What the stream buffer or a facet throws sets `badbit`, and passes if `exceptions()` asks for
/// that bit: so does a locale without the facets of the streams over `char16`, for these.
///
/// \exception std::ios_base::failure as `exceptions()` asks for; a number has been stored then, if
///            there was one
/// @{
ORVXX_API std::istream& operator>>(std::istream& is, decimal32& value);
ORVXX_API std::istream& operator>>(std::istream& is, decimal64& value);
ORVXX_API std::istream& operator>>(std::istream& is, decimal128& value);
ORVXX_API std::basic_istream<char16>& operator>>(std::basic_istream<char16>& is, decimal32& value);
ORVXX_API std::basic_istream<char16>& operator>>(std::basic_istream<char16>& is, decimal64& value);
ORVXX_API std::basic_istream<char16>& operator>>(std::basic_istream<char16>& is, decimal128& value);
/// @}

/// \name Writing to streams
/// Writes the number by the flags of the stream, in the punctuation of its locale, and padded as a
/// C string is: to the left of it, unless `left` is set. Groups of digits are written if the
/// locale's `grouping()` has at most 7 bytes.
///
/// | `floatfield`                      | conversion | precision                                   |
/// |-----------------------------------|------------|---------------------------------------------|
/// | `fixed`                           | F          | the stream's                                |
/// | `scientific`                      | E          | the stream's; below 1 as many as there are  |
/// | neither                           | G          | the stream's; below 1 as many as there are  |
/// | both                              | G          | the stream's                                |
///
/// `showpos` writes '+' before what is not negative, `showpoint` a point even if no digit follows,
/// `uppercase` "E", "INF" and "NAN". The conversions are those of format.h: a new stream writes at
/// most 6 digits; `std::setprecision(0)` lets it write all.
///
/// \exception std::bad_alloc if the text has 64 characters or more, and there is no memory; and
///            what the facet of the locale throws
/// \exception std::bad_cast if the locale of a stream over `char16` has no punctuation for it
/// \exception std::ios_base::failure as `exceptions()` asks for
/// @{
ORVXX_API std::ostream& operator<<(std::ostream& os, const decimal32& value);
ORVXX_API std::ostream& operator<<(std::ostream& os, const decimal64& value);
ORVXX_API std::ostream& operator<<(std::ostream& os, const decimal128& value);
ORVXX_API std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os,
                                                 const decimal32& value);
ORVXX_API std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os,
                                                 const decimal64& value);
ORVXX_API std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os,
                                                 const decimal128& value);
/// @}

/// \name As strings
/// What a stream with the flag `fixed` writes: \p precision digits behind the point, rounded half
/// to even; if negative, as many as the number has.
///
/// \param locale whose punctuation the text gets; the classic one where there is none, whatever the
///               global one is
/// \exception std::bad_alloc, std::length_error as the string throws them; and what the facet of
///            the locale throws
/// @{
ORVXX_API std::string to_string(const decimal32& value, int precision);
ORVXX_API std::string to_string(const decimal64& value, int precision);
ORVXX_API std::string to_string(const decimal128& value, int precision);
ORVXX_API std::string to_string(const std::locale& locale, const decimal32& value, int precision);
ORVXX_API std::string to_string(const std::locale& locale, const decimal64& value, int precision);
ORVXX_API std::string to_string(const std::locale& locale, const decimal128& value, int precision);
/// @}

} // namespace orv::decimal

#endif
