// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reading escapes, "%" and two hexadecimal digits (RFC 3986, section 2.1).
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_ESCAPES_H
#define ORV_LIBORVXX_NET_DETAIL_URI_ESCAPES_H

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace orv::net::detail {

/// The value of a hexadecimal digit of either case, or -1.
constexpr int hexDigitValue(char16 c) noexcept {
    const auto value = static_cast<unsigned int>(c);
    if (value - '0' < 10) {
        return static_cast<int>(value - '0');
    }
    const unsigned int letter = (value | 0x20) - 'a';
    return letter < 6 ? static_cast<int>(letter) + 10 : -1;
}

/// The byte that the two units behind \p pos tell, -1 if they are no two digits or not there. The
/// unit at \p pos is not looked at. \p pos is at most the length.
constexpr int escapedByte(ustring_ref text, std::size_t pos) noexcept {
    if (text.size() - pos < 3) {
        return -1;
    }
    const int high = hexDigitValue(text[pos + 1]);
    const int low = hexDigitValue(text[pos + 2]);
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

/// Appends the text of a run of escaped bytes.
inline void appendBytes(ustring& out, Charset& charset, const std::string& bytes) {
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(),
                                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (isAscii && &charset == Charset::UTF_8) {
        for (const char c : bytes) {
            out.push_back(char16(c));
        }
    } else {
        out += charset.decode(string_ref(bytes));
    }
}

/// Moves the bytes of the escapes from \p pos on into \p bytes, up to the first unit that begins
/// none, and returns its position. The unit at \p pos is taken for "%" whatever it is.
inline std::size_t takeEscapes(ustring_ref text, std::size_t pos, std::string& bytes) {
    bytes.clear();
    do {
        const int byte = escapedByte(text, pos);
        if (byte < 0) {
            break;
        }
        bytes.push_back(static_cast<char>(byte));
        pos += 3;
    } while (pos < text.size() && text[pos] == u'%');
    return pos;
}

/// The text with its escapes replaced: each run of them is read as bytes in \p charset, whose
/// replacement stands for bytes that are none of it.
///
/// Units before \p start, which is at most the length, are copied, and the unit at \p start is
/// taken for "%" whatever it is. Where no two digits follow a "%", \p onBadEscape is called with
/// its position: it throws, or returns and the "%" stays.
template <typename OnBadEscape>
ustring decodeEscapes(Charset& charset, ustring_ref text, std::size_t start,
                      OnBadEscape onBadEscape) {
    ustring out;
    out.reserve(text.size());
    std::string bytes;
    std::size_t copied = 0;
    std::size_t pos = start;
    do {
        const std::size_t end = takeEscapes(text, pos, bytes);
        if (end == pos) {
            onBadEscape(pos);
            ++pos;
        } else {
            out.append(text.data() + copied, pos - copied);
            appendBytes(out, charset, bytes);
            copied = pos = end;
        }
        pos = text.find(u'%', pos);
    } while (pos != ustring_ref::npos);
    out.append(text.data() + copied, text.size() - copied);
    return out;
}

} // namespace orv::net::detail

#endif
