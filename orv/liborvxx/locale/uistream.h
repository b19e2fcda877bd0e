// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `uistream`: the standard input stream over `char16`, with its facets in place.
#ifndef ORV_LIBORVXX_LOCALE_UISTREAM_H
#define ORV_LIBORVXX_LOCALE_UISTREAM_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/num_get.h"
#include "orv/liborvxx/locale/num_put.h"
#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/locale/ulocale.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/ustring.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <locale>
#include <streambuf>
#include <string>

namespace orv {

/// Text and numbers from UTF-16 units, with the meaning, states and exceptions of
/// `std::basic_istream` ([istream]).
///
/// A new stream is on `ulocale::classic()`. Its buffer is borrowed: see ustringstream.h and
/// charset_streambuf.h for some. Each operation is the standard's of its name, but returns a
/// `uistream`. U+FFFF is the end mark of `std::char_traits<char16>`: a stream ends there.
class ORVXX_API uistream : public std::basic_istream<char16> {
public:
    using Buffer = std::basic_streambuf<char16>;

    /// Reads from \p buffer; with null the stream is bad.
    explicit uistream(Buffer* buffer);
    ~uistream() override;

    /// Puts the stream and its buffer on \p loc; returns the locale before.
    std::locale imbue(const ulocale& loc);
    using std::basic_istream<char16>::imbue;

    /// \name Formatted input
    /// @{
    uistream& operator>>(bool& value);
    uistream& operator>>(short& value);
    uistream& operator>>(unsigned short& value);
    uistream& operator>>(int& value);
    uistream& operator>>(unsigned int& value);
    uistream& operator>>(long& value);
    uistream& operator>>(unsigned long& value);
    uistream& operator>>(long long& value);
    uistream& operator>>(unsigned long long& value);
    uistream& operator>>(float& value);
    uistream& operator>>(double& value);
    uistream& operator>>(long double& value);
    uistream& operator>>(void*& value);
    uistream& operator>>(Buffer* sink);
    uistream& operator>>(std::basic_istream<char16>& (*manipulator)(std::basic_istream<char16>&));
    uistream& operator>>(std::basic_ios<char16>& (*manipulator)(std::basic_ios<char16>&));
    uistream& operator>>(std::ios_base& (*manipulator)(std::ios_base&));
    /// @}

    /// \name Unformatted input
    /// @{
    char16_int get();
    uistream& get(char16& unit);
    uistream& get(char16* text, std::int64_t size);
    uistream& get(char16* text, std::int64_t size, char16 delimiter);
    uistream& get(Buffer& sink);
    uistream& get(Buffer& sink, char16 delimiter);
    uistream& getline(char16* text, std::int64_t size);
    uistream& getline(char16* text, std::int64_t size, char16 delimiter);
    uistream& ignore(std::int64_t count = 1,
                     char16_int delimiter = std::char_traits<char16>::eof());
    uistream& read(char16* text, std::int64_t size);
    uistream& putback(char16 unit);
    uistream& unget();
    uistream& seekg(pos_type position);
    /// \p direction is one of `std::ios_base::beg`, `cur` and `end`; any other sets `failbit`.
    uistream& seekg(std::int64_t offset, int direction);
    /// @}

protected:
    uistream(uistream&& other);
    uistream& operator=(uistream&& other);
    void swap(uistream& other);
};

namespace detail {

ORVXX_API void extract(std::basic_istream<char16>& is, char16_t& value);
ORVXX_API void extract(std::basic_istream<char16>& is, char32_t& value);
ORVXX_API void extractLine(std::basic_istream<char16>& is, ustring& line, char16 delimiter);

} // namespace detail

/// \name Text
/// The standard's operations on a unit, a word and a line ([istream.extractors],
/// [string.io]). Each returns the stream under the type it was given.
/// @{

template <std::derived_from<uistream> Stream>
Stream& operator>>(Stream& is, char16& unit) {
    static_cast<std::basic_istream<char16>&>(is) >> unit;
    return is;
}
template <std::derived_from<uistream> Stream, std::size_t SIZE>
Stream& operator>>(Stream& is, char16 (&text)[SIZE]) {
    static_cast<std::basic_istream<char16>&>(is) >> text;
    return is;
}
template <std::derived_from<uistream> Stream, typename Allocator>
Stream& operator>>(Stream& is,
                   std::basic_string<char16, std::char_traits<char16>, Allocator>& text) {
    static_cast<std::basic_istream<char16>&>(is) >> text;
    return is;
}

/// The text up to \p delimiter, or to the end; the delimiter is taken away. Units are not counted
/// in `gcount`. Several times as fast as the standard library's, which `std::getline` calls.
template <std::derived_from<uistream> Stream>
Stream& getline(Stream& is, ustring& line, char16 delimiter) {
    detail::extractLine(is, line, delimiter);
    return is;
}
template <std::derived_from<uistream> Stream>
Stream& getline(Stream& is, ustring& line) {
    return getline(is, line, is.widen('\n'));
}

/// The next unit that is no white space, also on a `std::basic_istream<char16>`.
template <std::derived_from<std::basic_istream<char16>> Stream>
Stream& operator>>(Stream& is, char16_t& unit) {
    detail::extract(is, unit);
    return is;
}

/// The next code point that is no white space: a pair of surrogates, or one unit, which may be a
/// lone surrogate.
template <std::derived_from<std::basic_istream<char16>> Stream>
Stream& operator>>(Stream& is, char32_t& codePoint) {
    detail::extract(is, codePoint);
    return is;
}

/// @}

} // namespace orv

#endif
