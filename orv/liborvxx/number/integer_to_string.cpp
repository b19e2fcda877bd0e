// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Integers as strings.
#include "orv/liborvxx/number/number_to_string.h"

#include "orv/liborvxx/number/to_chars.h"
#include "orv/liborvxx/number/words/decimal_digits.h"

namespace orv {

namespace {

template <class String, class T>
String toText(T value) {
    using CharT = typename String::value_type;
    const std::uint64_t magnitude = detail::magnitudeOf(value);
    const unsigned digits = words::countDigits(magnitude);
    const unsigned sign = value < T{} ? 1U : 0U;
    String text(sign + digits, static_cast<CharT>('-'));
    words::writeDigits(text.data() + sign, digits, magnitude);
    return text;
}

} // namespace

std::string to_string_c(int value) {
    return toText<std::string>(value);
}

std::string to_string_c(long value) {
    return toText<std::string>(value);
}

std::string to_string_c(long long value) {
    return toText<std::string>(value);
}

std::string to_string_c(unsigned int value) {
    return toText<std::string>(value);
}

std::string to_string_c(unsigned long value) {
    return toText<std::string>(value);
}

std::string to_string_c(unsigned long long value) {
    return toText<std::string>(value);
}

ustring to_ustring_c(int value) {
    return toText<ustring>(value);
}

ustring to_ustring_c(long value) {
    return toText<ustring>(value);
}

ustring to_ustring_c(long long value) {
    return toText<ustring>(value);
}

ustring to_ustring_c(unsigned int value) {
    return toText<ustring>(value);
}

ustring to_ustring_c(unsigned long value) {
    return toText<ustring>(value);
}

ustring to_ustring_c(unsigned long long value) {
    return toText<ustring>(value);
}

} // namespace orv
