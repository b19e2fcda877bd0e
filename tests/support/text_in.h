// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief One text in either type of characters.
#ifndef ORV_TESTS_SUPPORT_TEXT_IN_H
#define ORV_TESTS_SUPPORT_TEXT_IN_H

#include "orv/liborvxx/text/ustring.h"

#include <string>
#include <string_view>

namespace orvtest {

/// One unit for each byte, of the same value.
template <class CharT>
std::basic_string<CharT> textIn(std::string_view bytes) {
    std::basic_string<CharT> text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        text.push_back(static_cast<CharT>(static_cast<char16_t>(static_cast<unsigned char>(c))));
    }
    return text;
}

} // namespace orvtest

#endif
