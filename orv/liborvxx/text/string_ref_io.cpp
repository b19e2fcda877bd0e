// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Stream output of views.
#include "orv/liborvxx/text/string_ref.h"

#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/detail/stream_failure.h"
#include "orv/liborvxx/locale/num_get.h"
#include "orv/liborvxx/locale/num_put.h"

#include <ios>
#include <ostream>
#include <streambuf>

namespace orv {

namespace {

template <typename CharT>
bool put(std::basic_streambuf<CharT>& sink, CharT unit, std::streamsize count) {
    for (; count > 0; --count) {
        if (std::char_traits<CharT>::eq_int_type(sink.sputc(unit),
                                                 std::char_traits<CharT>::eof())) {
            return false;
        }
    }
    return true;
}

template <typename CharT>
bool putPadded(std::basic_ostream<CharT>& os, basic_string_ref<CharT> text) {
    auto& sink = *os.rdbuf();
    const auto size = static_cast<std::streamsize>(text.size());
    const auto putText = [&] { return sink.sputn(text.data(), size) == size; };
    if (os.width() <= size) {
        return putText();
    }
    const std::streamsize padding = os.width() - size;
    const CharT fill = os.fill();
    if ((os.flags() & std::ios_base::adjustfield) == std::ios_base::left) {
        return putText() && put(sink, fill, padding);
    }
    return put(sink, fill, padding) && putText();
}

// Formatted output function in the sense of the standard ([ostream.formatted.reqmts]).
template <typename CharT>
std::basic_ostream<CharT>& insert(std::basic_ostream<CharT>& os, basic_string_ref<CharT> text) {
    const typename std::basic_ostream<CharT>::sentry sentry(os);
    if (sentry) {
        bool written = false;
        try {
            written = putPadded(os, text);
        } catch (...) {
            os.width(0);
            detail::setBadAndRethrow(os);
            return os;
        }
        os.width(0);
        if (!written) {
            os.setstate(std::ios_base::badbit);
        }
    }
    return os;
}

} // namespace

std::ostream& operator<<(std::ostream& os, string_ref text) {
    return insert(os, text);
}

std::wostream& operator<<(std::wostream& os, wstring_ref text) {
    return insert(os, text);
}

std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os, ustring_ref text) {
    return insert(os, text);
}

} // namespace orv
