// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `cvtstr`: conversion between narrow, UTF-16 and wide strings, and errors as UTF-16 text.
#ifndef ORV_LIBORVXX_TEXT_CVTSTR_H
#define ORV_LIBORVXX_TEXT_CVTSTR_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <exception>
#include <string>

namespace orv {

/// Converts text from one string form to another; `To` is `std::string`, `ustring` or
/// `std::wstring`.
///
/// Between narrow text and UTF-16 it goes through the default character set
/// (`Charset::defaultCharset()`): what has no counterpart becomes the replacement, U+FFFD or "?".
/// Between narrow and wide text it goes through the C runtime's locale of the moment, with a
/// conversion state of its own: a wide character that does not convert becomes "?", a run of bad
/// bytes one U+FFFD. Between UTF-16 and wide text it keeps the code points where `wchar_t` has 32
/// bits (lone surrogates keep their value, values above U+10FFFF become U+FFFD), and the units
/// where it has 16.
///
/// Never throws for bad text; `std::bad_alloc` and `std::length_error` as the string does.
/// \code
/// orv::ustring text = orv::cvtstr<orv::ustring>("narrow");
/// \endcode
template <typename To>
To cvtstr(ustring_ref text) = delete;
template <typename To>
To cvtstr(string_ref text) = delete;
template <typename To>
To cvtstr(wstring_ref text) = delete;

/// \name The six conversions
/// @{
template <>
ORVXX_API std::string cvtstr<std::string>(ustring_ref text);
template <>
ORVXX_API ustring cvtstr<ustring>(string_ref text);
template <>
ORVXX_API std::string cvtstr<std::string>(wstring_ref text);
template <>
ORVXX_API std::wstring cvtstr<std::wstring>(string_ref text);
template <>
ORVXX_API std::wstring cvtstr<std::wstring>(ustring_ref text);
template <>
ORVXX_API ustring cvtstr<ustring>(wstring_ref text);
/// @}

/// `to_string` of an exception (error.h) as UTF-16 text.
ORVXX_API ustring to_ustring(const std::exception& e);
/// `to_string` of whatever \p p holds (error.h) as UTF-16 text; empty for a null pointer.
ORVXX_API ustring to_ustring(const std::exception_ptr& p);

} // namespace orv

#endif
