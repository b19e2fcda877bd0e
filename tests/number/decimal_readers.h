// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The readers of decimal numbers under test: each name in all its shapes, which must agree.
#ifndef ORV_TESTS_NUMBER_DECIMAL_READERS_H
#define ORV_TESTS_NUMBER_DECIMAL_READERS_H

#include "orv/liborvxx/number/string_to_decimal.h"
#include "tests/number/number_readers.h"
#include "tests/support/shown_decimal.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace orvtest {

/// Tells numbers apart by sign, digits and exponent.
struct DecimalName {
    template <class T>
    static std::string keyOf(const T& value) {
        return shown(value);
    }
};

/// \name One type for each name
/// @{
struct Stod32 : DecimalName {
    using Type = orv::decimal::decimal32;
    static constexpr int DIGITS = 7;
    static constexpr int LEAST = -101;
    static constexpr int GREATEST = 90;
    template <class C>
    static constexpr NumberReaders<Type, C> readers{orv::stod32_c, orv::stod32_c, orv::strtod32_c};
};
struct Stod64 : DecimalName {
    using Type = orv::decimal::decimal64;
    static constexpr int DIGITS = 16;
    static constexpr int LEAST = -398;
    static constexpr int GREATEST = 369;
    template <class C>
    static constexpr NumberReaders<Type, C> readers{orv::stod64_c, orv::stod64_c, orv::strtod64_c};
};
struct Stod128 : DecimalName {
    using Type = orv::decimal::decimal128;
    static constexpr int DIGITS = 34;
    static constexpr int LEAST = -6176;
    static constexpr int GREATEST = 6111;
    template <class C>
    static constexpr NumberReaders<Type, C> readers{orv::stod128_c, orv::stod128_c,
                                                    orv::strtod128_c};
};
/// @}

using DecimalNames = testing::Types<Stod32, Stod64, Stod128>;

struct NameOfDecimalReader {
    template <class Name>
    static std::string GetName(int /*index*/) {
        return "Stod" + std::to_string(8 * sizeof(typename Name::Type));
    }
};

/// What a reader made of a text: the message is that of the shapes that throw.
struct DecimalOutcome {
    std::string value;
    std::size_t length = 0;
    std::string message;

    bool operator==(const DecimalOutcome&) const = default;

    friend std::ostream& operator<<(std::ostream& out, const DecimalOutcome& outcome) {
        return out << outcome.value << ", length " << outcome.length << ' ' << outcome.message;
    }
};

/// Reads \p text in every shape.
template <class Name, class CharT>
DecimalOutcome readDecimalInShapes(const std::basic_string<CharT>& text) {
    const auto [found, message] = readInShapes<Name>(text);
    return {shown(found.value), found.length, message};
}

/// Reads \p text, one unit for each byte, in every shape and in both types of characters.
template <class Name>
DecimalOutcome readDecimalEverywhere(std::string_view text) {
    const auto outcome = readDecimalInShapes<Name>(std::string(text));
    EXPECT_EQ(readDecimalInShapes<Name>(textIn<orv::char16>(text)), outcome);
    return outcome;
}

} // namespace orvtest

#endif
