// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Texts over any of the four character types, from ASCII literals and from numbers.
#ifndef ORV_TESTS_TEXT_TEXT_OF_H
#define ORV_TESTS_TEXT_TEXT_OF_H

#include "orv/liborvxx/text/ustring.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>

namespace orvtest {

/// The ASCII text, unit for unit.
template <typename CharT>
std::basic_string<CharT> textOf(std::string_view ascii) {
    std::basic_string<CharT> text;
    for (const char c : ascii) {
        text.push_back(static_cast<CharT>(static_cast<unsigned char>(c)));
    }
    return text;
}

/// The text of these unit values.
inline orv::ustring unitsOf(std::initializer_list<unsigned int> values) {
    orv::ustring text;
    for (const unsigned int value : values) {
        text.push_back(orv::char16(value));
    }
    return text;
}

/// A number below `bound`. Not a standard distribution: those differ between libraries, and a
/// failure must come back under the same seed.
inline std::size_t below(std::mt19937& random, std::size_t bound) {
    return random() % bound;
}

/// A text of 0 to `maxLength` units of the alphabet.
template <typename CharT>
std::basic_string<CharT> randomText(std::mt19937& random, const std::basic_string<CharT>& alphabet,
                                    std::size_t maxLength) {
    std::basic_string<CharT> text(below(random, maxLength + 1), CharT());
    for (CharT& unit : text) {
        unit = alphabet[below(random, alphabet.size())];
    }
    return text;
}

inline int signOf(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

} // namespace orvtest

#endif
