// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief How URIs take units without regard to case.
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_FOLD_H
#define ORV_LIBORVXX_NET_DETAIL_URI_FOLD_H

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/text/char16.h"

#include <cstdint>

namespace orv::net::detail {

/// The unit that stands for all those that differ from it in case alone: to upper case and from
/// there to lower case, by the simple mappings. Two steps, as units whose upper-case forms differ
/// may still share the lower-case form of those: "k" and the Kelvin sign do. Surrogates stand for
/// themselves.
inline char16 foldUnit(char16 c) noexcept {
    const auto value = static_cast<std::uint32_t>(c);
    if (value < 128) {
        return value >= 'A' && value <= 'Z' ? char16(value + ('a' - 'A')) : c;
    }
    return char16(orvUniCharToLower(orvUniCharToUpper(value)));
}

/// The upper-case form of "a" to "z"; any other unit as it is.
constexpr char16 upperAscii(char16 c) noexcept {
    return c >= u'a' && c <= u'z' ? char16(static_cast<std::uint32_t>(c) - ('a' - 'A')) : c;
}

/// The difference of the folded units, the first minus the second.
inline int compareIgnoreCase(char16 a, char16 b) noexcept {
    return a == b ? 0 : static_cast<int>(foldUnit(a)) - static_cast<int>(foldUnit(b));
}

inline bool equalsIgnoreCase(char16 a, char16 b) noexcept {
    return a == b || foldUnit(a) == foldUnit(b);
}

} // namespace orv::net::detail

#endif
