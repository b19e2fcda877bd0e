// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The classes of units of the URI grammar as bits of one table, and loops over them.
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_UNITS_H
#define ORV_LIBORVXX_NET_DETAIL_URI_UNITS_H

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace orv::net::detail {

/// \name Classes of units up to 127; each is a bit, unions are combinations
/// @{
enum : std::uint16_t {
    UNRESERVED = 1,       ///< ALPHA / DIGIT / "-" / "." / "_" / "~"
    SUB_DELIM = 2,        ///< "!$&'()*+,;="
    COLON = 4,            ///< ":"
    AT = 8,               ///< "@"
    SLASH = 16,           ///< "/"
    QUESTION = 32,        ///< "?"
    OTHER_GEN_DELIM = 64, ///< "#[]"
    PERCENT = 128,        ///< "%"
    ALPHA = 256,
    DIGIT = 512,
    HEX_LETTER = 1024, ///< A-F, a-f
    SCHEME_MARK = 2048 ///< "+" / "-" / "."
};
inline constexpr unsigned int PCHAR_NC = UNRESERVED | SUB_DELIM | AT;
inline constexpr unsigned int PCHAR = PCHAR_NC | COLON;
inline constexpr unsigned int QUERY_UNIT = PCHAR | SLASH | QUESTION;
inline constexpr unsigned int REG_NAME_UNIT = UNRESERVED | SUB_DELIM;
inline constexpr unsigned int USER_INFO_UNIT = REG_NAME_UNIT | COLON;
inline constexpr unsigned int SCHEME_UNIT = ALPHA | DIGIT | SCHEME_MARK;
inline constexpr unsigned int HEX_DIGIT = DIGIT | HEX_LETTER;
inline constexpr unsigned int RESERVED_UNIT =
    SUB_DELIM | COLON | AT | SLASH | QUESTION | OTHER_GEN_DELIM;
inline constexpr unsigned int URI_UNIT = UNRESERVED | RESERVED_UNIT | PERCENT;
/// @}

/// The classes of each unit up to 127.
inline constexpr std::array<std::uint16_t, 128> URI_UNITS = [] {
    std::array<std::uint16_t, 128> table{};
    const auto mark = [&table](const char* units, unsigned int bits) {
        for (; *units != '\0'; ++units) {
            auto& entry = table[static_cast<unsigned char>(*units)];
            entry = static_cast<std::uint16_t>(entry | bits);
        }
    };
    mark("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", UNRESERVED | ALPHA);
    mark("0123456789", UNRESERVED | DIGIT);
    mark("-._~", UNRESERVED);
    mark("ABCDEFabcdef", HEX_LETTER);
    mark("!$&'()*+,;=", SUB_DELIM);
    mark(":", COLON);
    mark("@", AT);
    mark("/", SLASH);
    mark("?", QUESTION);
    mark("#[]", OTHER_GEN_DELIM);
    mark("%", PERCENT);
    mark("+-.", SCHEME_MARK);
    return table;
}();

/// Whether \p c, up to 127, is in one of the classes \p bits. Units above 127 are in none.
constexpr bool isAscii(char16 c, unsigned int bits) noexcept {
    const auto value = static_cast<unsigned int>(c);
    return value < 128 && (URI_UNITS[value] & bits) != 0;
}

/// Whether \p c, above 127, is unreserved: by its general category.
inline bool isUnreservedBeyondAscii(char16 c) noexcept {
    const auto category = orvUniCharClass(static_cast<std::uint32_t>(c));
    return category != ORV_UNI_CLASS_UNASSIGNED && category != ORV_UNI_CLASS_CONTROL &&
           category != ORV_UNI_CLASS_PRIVATE_USE && (category & 0x38) != 0x30;
}

/// Whether \p c is in one of the classes \p bits; units above 127 count as unreserved if their
/// category admits them, unless \p asciiOnly.
inline bool isUnit(char16 c, unsigned int bits, bool asciiOnly) noexcept {
    const auto value = static_cast<unsigned int>(c);
    if (value < 128) {
        return (URI_UNITS[value] & bits) != 0;
    }
    return (bits & UNRESERVED) != 0 && !asciiOnly && isUnreservedBeyondAscii(c);
}

/// What stands behind the end of a text: a unit of no class, and no digit.
inline constexpr char16 END_MARK = u'\xFFFF';

/// Unit \p index of \p text, or the end mark behind its end.
constexpr char16 unitAt(ustring_ref text, std::size_t index) noexcept {
    return index < text.size() ? text[index] : END_MARK;
}

} // namespace orv::net::detail

#endif
