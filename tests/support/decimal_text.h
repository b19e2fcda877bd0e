// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The digits and the exponent that the text of a number stands for, so that texts of
/// different layouts can be compared.
#ifndef ORV_TESTS_SUPPORT_DECIMAL_TEXT_H
#define ORV_TESTS_SUPPORT_DECIMAL_TEXT_H

#include <cstddef>
#include <cstdlib>
#include <ostream>
#include <string>
#include <string_view>

namespace orvtest {

/// A number d.ddd * 10^exponent without zeros at either end of the digits.
struct DecimalText {
    std::string digits;
    int exponent = 0;

    friend bool operator==(const DecimalText&, const DecimalText&) = default;
    friend std::ostream& operator<<(std::ostream& out, const DecimalText& number) {
        return out << "0." << number.digits << "e" << number.exponent + 1;
    }
};

/// Reads "12.5", "0.00125", "1.25E1", "1.25e+01" and the like; a sign is left out.
inline DecimalText decimalOf(std::string_view text) {
    const std::size_t mark = text.find_first_of("eE");
    DecimalText number;
    int point = -1;
    for (const char c : text.substr(0, mark)) {
        if (c == '.') {
            point = static_cast<int>(number.digits.size());
        } else if (c != '-') {
            number.digits += c;
        }
    }
    number.exponent = (point < 0 ? static_cast<int>(number.digits.size()) : point) - 1;
    if (mark != std::string_view::npos) {
        number.exponent += std::atoi(std::string(text.substr(mark + 1)).c_str());
    }
    const std::size_t first = number.digits.find_first_not_of('0');
    if (first == std::string::npos) {
        return {"0", 0};
    }
    number.digits.erase(0, first);
    number.exponent -= static_cast<int>(first);
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    return number;
}

} // namespace orvtest

#endif
