// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `uostream`: the standard output stream over `char16`, with its facets in place.
#ifndef ORV_LIBORVXX_LOCALE_UOSTREAM_H
#define ORV_LIBORVXX_LOCALE_UOSTREAM_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/num_get.h"
#include "orv/liborvxx/locale/num_put.h"
#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/locale/ulocale.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <locale>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace orv {

class uiostream;

/// Text and numbers as UTF-16 units, with the meaning, states and exceptions of
/// `std::basic_ostream` ([ostream]).
///
/// A new stream is on `ulocale::classic()`. Its buffer is borrowed: see ustringstream.h and
/// charset_streambuf.h for some. Each operation is the standard's of its name, but returns a
/// `uostream`.
class ORVXX_API uostream : public std::basic_ostream<char16> {
public:
    using Buffer = std::basic_streambuf<char16>;

    /// Writes to \p buffer; with null the stream is bad.
    explicit uostream(Buffer* buffer);
    ~uostream() override;

    /// Puts the stream and its buffer on \p loc; returns the locale before.
    std::locale imbue(const ulocale& loc);
    using std::basic_ostream<char16>::imbue;

    /// \name Formatted output
    /// @{
    uostream& operator<<(bool value);
    uostream& operator<<(short value);
    uostream& operator<<(unsigned short value);
    uostream& operator<<(int value);
    uostream& operator<<(unsigned int value);
    uostream& operator<<(long value);
    uostream& operator<<(unsigned long value);
    uostream& operator<<(long long value);
    uostream& operator<<(unsigned long long value);
    uostream& operator<<(float value);
    uostream& operator<<(double value);
    uostream& operator<<(long double value);
    uostream& operator<<(const void* value);
    uostream& operator<<(std::nullptr_t);
    uostream& operator<<(Buffer* source);
    uostream& operator<<(std::basic_ostream<char16>& (*manipulator)(std::basic_ostream<char16>&));
    uostream& operator<<(std::basic_ios<char16>& (*manipulator)(std::basic_ios<char16>&));
    uostream& operator<<(std::ios_base& (*manipulator)(std::ios_base&));
    /// @}

    /// \name Unformatted output
    /// @{
    uostream& put(char16 unit);
    uostream& write(const char16* text, std::int64_t size);
    uostream& flush();
    uostream& seekp(pos_type position);
    /// \p direction is one of `std::ios_base::beg`, `cur` and `end`; any other sets `failbit`.
    uostream& seekp(std::int64_t offset, int direction);
    /// @}

protected:
    /// For `uiostream`, whose other half is made already: on its buffer.
    explicit uostream(uiostream& whole);
    uostream(uostream&& other);
    uostream& operator=(uostream&& other);
    void swap(uostream& other);
};

namespace detail {

/// Whether \p T is one of \p Types, with no conversion.
template <typename T, typename... Types>
concept OneOf = (std::same_as<T, Types> || ...);

ORVXX_API void insert(std::basic_ostream<char16>& os, char byte);
ORVXX_API void insert(std::basic_ostream<char16>& os, const char* text);
ORVXX_API void insert(std::basic_ostream<char16>& os, std::string_view text);
ORVXX_API void insert(std::basic_ostream<char16>& os, char16 unit);
ORVXX_API void insert(std::basic_ostream<char16>& os, const char16* text);
ORVXX_API void insert(std::basic_ostream<char16>& os, char32_t codePoint);

} // namespace detail

/// \name Text
/// Formatted output ([ostream.formatted.reqmts]): padded to `width()` with `fill()`, on the left
/// unless `left` is set; `width()` is 0 afterwards; a short write sets `badbit`, and so does a
/// null pointer. Each function returns the stream under the type it was given.
/// @{

/// `width()` is 0 afterwards also where the stream was not good and nothing is written.
ORVXX_API uostream& operator<<(uostream& os, ustring_ref text);

template <std::derived_from<uostream> Stream, typename Allocator>
Stream& operator<<(Stream& os,
                   const std::basic_string<char16, std::char_traits<char16>, Allocator>& text) {
    static_cast<std::basic_ostream<char16>&>(os) << ustring_ref(text.data(), text.size());
    return os;
}
template <std::derived_from<uostream> Stream, std::same_as<ustring_view> Text>
Stream& operator<<(Stream& os, Text text) {
    static_cast<std::basic_ostream<char16>&>(os) << ustring_ref(text);
    return os;
}

/// A unit, or units up to a null. Narrow text is widened by the stream's locale: what is not ASCII
/// becomes U+FFFD, byte by byte.
template <std::derived_from<uostream> Stream,
          detail::OneOf<char, char*, const char*, char16, char16*, const char16*> Text>
Stream& operator<<(Stream& os, Text text) {
    detail::insert(os, text);
    return os;
}

/// As text of `char16`, also on a `std::basic_ostream<char16>`.
template <std::derived_from<std::basic_ostream<char16>> Stream, std::same_as<char16_t> Text>
Stream& operator<<(Stream& os, Text unit) {
    detail::insert(os, char16(unit));
    return os;
}
template <std::derived_from<std::basic_ostream<char16>> Stream,
          detail::OneOf<char16_t*, const char16_t*> Text>
Stream& operator<<(Stream& os, Text text) {
    detail::insert(os, as_char16(text));
    return os;
}
template <std::derived_from<std::basic_ostream<char16>> Stream,
          std::same_as<std::u16string_view> Text>
Stream& operator<<(Stream& os, Text text) {
    static_cast<std::basic_ostream<char16>&>(os) << as_ustring_ref(text);
    return os;
}
template <std::derived_from<std::basic_ostream<char16>> Stream, typename Allocator>
Stream& operator<<(Stream& os,
                   const std::basic_string<char16_t, std::char_traits<char16_t>, Allocator>& text) {
    return os << std::u16string_view(text);
}

/// A code point, as one unit or two; U+FFFD in place of a surrogate or a number above 0x10FFFF.
template <std::derived_from<std::basic_ostream<char16>> Stream, std::same_as<char32_t> Text>
Stream& operator<<(Stream& os, Text codePoint) {
    detail::insert(os, codePoint);
    return os;
}

/// Text in other types of characters is no number and no address.
template <std::derived_from<std::basic_ostream<char16>> Stream,
          detail::OneOf<wchar_t, wchar_t*, const wchar_t*, char8_t, char8_t*, const char8_t*,
                        char32_t*, const char32_t*>
              Text>
Stream& operator<<(Stream& os, Text text) = delete;

/// @}

} // namespace orv

#endif
