// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16 text as narrow text, to be compared and printed in one line.
#ifndef ORV_TESTS_SUPPORT_SHOWN_TEXT_H
#define ORV_TESTS_SUPPORT_SHOWN_TEXT_H

#include "orv/liborvxx/text/string_ref.h"
#include "tests/support/hex_text.h"

#include <string>

namespace orvtest {

/// Units of ASCII as they are, others as "<00E9>", and a null view as "(null)".
inline std::string shown(orv::ustring_ref text) {
    if (text.data() == nullptr) {
        return "(null)";
    }
    std::string line;
    for (const orv::char16 unit : text) {
        if (static_cast<unsigned int>(unit) < 0x80) {
            line += static_cast<char>(unit);
        } else {
            line += '<' + hexText(orv::ustring(1, unit)) + '>';
        }
    }
    return line;
}

} // namespace orvtest

#endif
