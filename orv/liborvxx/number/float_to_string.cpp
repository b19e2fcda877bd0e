// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point numbers as strings: the text is written beside, so that a string that has
/// room for short texts in itself asks for no memory.
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/to_chars.h"

#include <cstddef>

namespace orv {

namespace {

template <class String, std::size_t ROOM, class Float>
String toString(Float value) {
    typename String::value_type text[ROOM];
    return String(text, to_chars_c(text, text + ROOM, value).end);
}

} // namespace

std::string to_string_c(double value) {
    return toString<std::string, MAX_DOUBLE_LENGTH>(value);
}

ustring to_ustring_c(double value) {
    return toString<ustring, MAX_DOUBLE_LENGTH>(value);
}

std::string to_string_c(long double value) {
    return to_string_c(static_cast<double>(value));
}

ustring to_ustring_c(long double value) {
    return to_ustring_c(static_cast<double>(value));
}

std::string to_string_c(float value) {
    return toString<std::string, MAX_FLOAT_LENGTH>(value);
}

ustring to_ustring_c(float value) {
    return toString<ustring, MAX_FLOAT_LENGTH>(value);
}

// Not the room of the longest text, but that which is written to directly.
std::string to_string_c(binary16 value) {
    return toString<std::string, MAX_FLOAT_LENGTH>(value);
}

ustring to_ustring_c(binary16 value) {
    return toString<ustring, MAX_FLOAT_LENGTH>(value);
}

} // namespace orv
