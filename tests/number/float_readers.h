// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The readers of floating-point numbers under test: each name in all its shapes, which must
/// agree.
#ifndef ORV_TESTS_NUMBER_FLOAT_READERS_H
#define ORV_TESTS_NUMBER_FLOAT_READERS_H

#include "orv/liborvxx/number/string_to_float.h"
#include "tests/number/number_readers.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace orvtest {

/// The bits of a number, which tell zeros apart. A long double has those of a double.
/// @{
inline std::uint64_t bitsOf(float value) {
    return std::bit_cast<std::uint32_t>(value);
}
inline std::uint64_t bitsOf(double value) {
    return std::bit_cast<std::uint64_t>(value);
}
inline std::uint64_t bitsOf(long double value) {
    return bitsOf(static_cast<double>(value));
}
/// @}

/// Tells numbers apart by their bits.
struct FloatName {
    template <class T>
    static std::uint64_t keyOf(T value) {
        return bitsOf(value);
    }
};

/// \name One type for each name
/// @{
struct Stof : FloatName {
    using Type = float;
    static constexpr const char* TOO_LARGE = "string to float conversion out of range";
    template <class C>
    static constexpr NumberReaders<Type, C> readers{orv::stof_c, orv::stof_c, orv::strtof_c};
};
struct Stod : FloatName {
    using Type = double;
    static constexpr const char* TOO_LARGE = "string to double conversion out of range";
    template <class C>
    static constexpr NumberReaders<Type, C> readers{orv::stod_c, orv::stod_c, orv::strtod_c};
};
struct Stold : FloatName {
    using Type = long double;
    static constexpr const char* TOO_LARGE = "string to long double conversion out of range";
    template <class C>
    static constexpr NumberReaders<Type, C> readers{orv::stold_c, orv::stold_c, orv::strtold_c};
};
/// @}

using FloatNames = testing::Types<Stof, Stod, Stold>;

/// What a reader made of a text: the message is that of the shapes that throw.
template <class T>
struct FloatOutcome {
    T value = 0;
    std::size_t length = 0;
    std::string message;

    bool operator==(const FloatOutcome& other) const {
        return bitsOf(value) == bitsOf(other.value) && length == other.length &&
               message == other.message;
    }

    friend std::ostream& operator<<(std::ostream& out, const FloatOutcome& outcome) {
        return out << outcome.value << ", length " << outcome.length << ' ' << outcome.message;
    }
};

/// Reads \p text in every shape.
template <class Name, class CharT>
FloatOutcome<typename Name::Type> readFloatInShapes(const std::basic_string<CharT>& text) {
    const auto [found, message] = readInShapes<Name>(text);
    return {found.value, found.length, message};
}

/// Reads \p text, one unit for each byte, in every shape and in both types of characters.
template <class Name>
FloatOutcome<typename Name::Type> readFloatEverywhere(std::string_view text) {
    const auto outcome = readFloatInShapes<Name>(std::string(text));
    EXPECT_EQ(readFloatInShapes<Name>(textIn<orv::char16>(text)), outcome);
    return outcome;
}

} // namespace orvtest

#endif
