// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Bytes and units as hexadecimal text, for failure messages.
#ifndef ORV_TESTS_SUPPORT_HEX_TEXT_H
#define ORV_TESTS_SUPPORT_HEX_TEXT_H

#include <cstddef>
#include <string>

namespace orvtest {

/// The elements in hexadecimal, separated by spaces.
template <typename Range>
std::string hexText(const Range& range) {
    static constexpr char DIGITS[] = "0123456789ABCDEF";
    std::string text;
    for (const auto& element : range) {
        if (!text.empty()) {
            text += ' ';
        }
        const auto value = static_cast<unsigned int>(static_cast<unsigned short>(element));
        for (int shift = sizeof(element) == 1 ? 4 : 12; shift >= 0; shift -= 4) {
            text += DIGITS[value >> shift & 0xF];
        }
    }
    return text;
}

} // namespace orvtest

#endif
