// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief URIs from and to texts of one byte for each unit, for tables of cases.
#ifndef ORV_TESTS_SUPPORT_URI_OF_H
#define ORV_TESTS_SUPPORT_URI_OF_H

#include "orv/liborvxx/net/uri.h"
#include "tests/support/text_in.h"

#include <string>
#include <string_view>

namespace orvtest {

inline orv::gref<orv::net::URI> uriOf(std::string_view text) {
    return orv::net::URI::create(textIn<orv::char16>(text));
}

/// Units above 255 become "*".
inline std::string narrowText(orv::ustring_ref text) {
    std::string bytes;
    for (const orv::char16 c : text) {
        const auto value = static_cast<unsigned>(c);
        bytes.push_back(value < 256 ? static_cast<char>(value) : '*');
    }
    return bytes;
}

inline std::string narrowText(const orv::gref<orv::net::URI>& uri) {
    return narrowText(uri->toString());
}

} // namespace orvtest

#endif
