// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Messages with the name of an operation and two numbers, and the exceptions that say them.
#ifndef ORV_LIBORVXX_TEXT_DETAIL_RANGE_MESSAGE_H
#define ORV_LIBORVXX_TEXT_DETAIL_RANGE_MESSAGE_H

#include <cstddef>
#include <string>

namespace orv::detail {

/// \p pattern with "%s" replaced by \p operation, the first "%d" by \p first, the second by
/// \p second, both in plain decimal digits, and "%%" by a percent sign. Any other "%" stands for
/// itself, as does a third "%d".
std::string rangeMessage(const char* pattern, const char* operation, std::size_t first,
                         std::size_t second);

/// Throws `std::out_of_range` with that message.
[[noreturn]] void throwOutOfRange(const char* pattern, const char* operation, std::size_t first,
                                  std::size_t second);

/// Throws `std::length_error` with that message.
[[noreturn]] void throwLengthError(const char* pattern, const char* operation, std::size_t first,
                                   std::size_t second);

/// Throws `std::out_of_range` "invalid string position".
[[noreturn]] void throwInvalidPosition();

} // namespace orv::detail

#endif
