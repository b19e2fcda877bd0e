// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Messages with the name of an operation and numbers.
#include "orv/liborvxx/text/detail/range_message.h"

#include <stdexcept>
#include <string_view>

namespace orv::detail {

std::string rangeMessage(const char* pattern, const char* operation, std::size_t first,
                         std::size_t second) {
    const std::size_t numbers[] = {first, second};
    std::size_t used = 0;
    std::string message;
    const std::string_view text = pattern;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view mark = text.substr(i, 2);
        if (mark == "%s") {
            message += operation;
        } else if (mark == "%d" && used < 2) {
            // std::to_string knows no locale.
            message += std::to_string(numbers[used++]);
        } else if (mark == "%%") {
            message += '%';
        } else {
            message += text[i];
            continue;
        }
        ++i;
    }
    return message;
}

void throwOutOfRange(const char* pattern, const char* operation, std::size_t first,
                     std::size_t second) {
    throw std::out_of_range(rangeMessage(pattern, operation, first, second));
}

void throwLengthError(const char* pattern, const char* operation, std::size_t first,
                      std::size_t second) {
    throw std::length_error(rangeMessage(pattern, operation, first, second));
}

void throwInvalidPosition() {
    throw std::out_of_range("invalid string position");
}

} // namespace orv::detail
