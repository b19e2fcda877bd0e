// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point values written into the caller's memory, of every size.
#include "orv/liborvxx/number/to_chars.h"

#include "orv/liborvxx/number/number_to_string.h"
#include "tests/support/case_count.h"
#include "tests/support/float_texts.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace {

using orv::binary16;
using orv::char16;

constexpr std::size_t MARGIN = 8;
constexpr char16_t UNTOUCHED = u'#';

// Writes into exactly `room` units; nothing beside them may change.
template <class CharT, class Float>
void checkRoom(Float value, const std::string& text, std::size_t room) {
    std::vector<CharT> memory(MARGIN + room + MARGIN, static_cast<CharT>(UNTOUCHED));
    CharT* const first = memory.data() + MARGIN;
    const auto [end, fits] = orv::to_chars_c(first, first + room, value);
    ASSERT_EQ(fits, text.size() <= room) << text << " in " << room;
    ASSERT_EQ(static_cast<std::size_t>(end - first), fits ? text.size() : room) << text;
    const auto isUntouched = [](CharT unit) { return unit == static_cast<CharT>(UNTOUCHED); };
    ASSERT_TRUE(std::all_of(memory.data(), first, isUntouched)) << text << " in " << room;
    ASSERT_TRUE(std::all_of(first + room, first + room + MARGIN, isUntouched)) << text;
    if (fits) {
        ASSERT_TRUE(std::equal(text.begin(), text.end(), first, end, [](char a, CharT b) {
            return static_cast<CharT>(static_cast<char16_t>(a)) == b;
        })) << text;
    }
}

template <class Float>
void checkRooms(Float value) {
    const std::string text = orv::to_string_c(value);
    for (std::size_t room = 0; room <= std::max<std::size_t>(text.size() + 1, 26); ++room) {
        checkRoom<char>(value, text, room);
        checkRoom<char16>(value, text, room);
    }
}

TEST(FloatToChars, KeepsToEveryRoom) {
    for (const double value :
         {0.0, -0.0, 1.0, -1.5, 0.001, -0.00123, 1234567.0, -1e7, 5e-324, -2.2250738585072014e-308,
          -1.7976931348623157e308, 1e100, 1e-10, -0.0012345678901234567, -123456.78901234567,
          0x1p-44, std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        checkRooms(value);
        checkRooms(static_cast<float>(value));
        checkRooms(static_cast<long double>(value));
        checkRooms(binary16(value));
    }
}

TEST(FloatToChars, KeepsToEveryRoomForRandomValues) {
    orvtest::NumberSource source(5);
    for (std::size_t i = orvtest::caseCount(3000); i > 0; --i) {
        checkRooms(std::bit_cast<double>(source.bits()));
        checkRooms(std::bit_cast<float>(static_cast<std::uint32_t>(source.bits())));
        checkRooms(binary16::from_bits(static_cast<std::uint16_t>(source.bits())));
        checkRooms(source.between(-20000000, 20000000) / 1e3);
    }
}

template <class Float>
std::size_t lengthOf(Float value) {
    return orv::to_string_c(value).size();
}

TEST(FloatToChars, NeedsTheRoomThatIsNamedAtMost) {
    EXPECT_EQ(lengthOf(-2.2250738585072014e-308), orv::MAX_DOUBLE_LENGTH);
    EXPECT_EQ(lengthOf(-1.17549435e-38F), orv::MAX_FLOAT_LENGTH - 1);
    std::size_t most = 0;
    for (std::uint32_t bits = 0; bits < 0x10000; ++bits) {
        most = std::max(most, lengthOf(binary16::from_bits(static_cast<std::uint16_t>(bits))));
    }
    EXPECT_EQ(most, orv::MAX_BINARY16_LENGTH);
    std::size_t mostOfFloats = 0;
    for (std::uint64_t bits = 0; bits < 0x100000000; bits += 40009) {
        mostOfFloats = std::max(mostOfFloats,
                                lengthOf(std::bit_cast<float>(static_cast<std::uint32_t>(bits))));
    }
    EXPECT_EQ(mostOfFloats, orv::MAX_FLOAT_LENGTH);
}

TEST(FloatToChars, SaysInAConditionWhetherTheTextFits) {
    char text[3];
    EXPECT_TRUE(orv::to_chars_c(text, text + 3, 2.5));
    EXPECT_FALSE(orv::to_chars_c(text, text + 3, -2.5));
    EXPECT_FALSE(orv::to_chars_c(text, text, 2.5F));
}

TEST(FloatToChars, NeverHasMoreDigitsThanTheTypeNeeds) {
    orvtest::NumberSource source(17);
    for (std::size_t i = orvtest::caseCount(300000); i > 0; --i) {
        const auto wide = std::bit_cast<double>(source.bits());
        if (wide - wide == 0) { // finite
            const std::string text = orvtest::textOf(wide);
            ASSERT_LE(orvtest::decimalOf(text).digits.size(), 17U) << text;
            ASSERT_TRUE(orvtest::readsBackAs(text, wide)) << text;
        }
        const auto narrow = std::bit_cast<float>(static_cast<std::uint32_t>(source.bits()));
        if (narrow - narrow == 0) {
            const std::string text = orvtest::textOf(narrow);
            ASSERT_LE(orvtest::decimalOf(text).digits.size(), 9U) << text;
            ASSERT_TRUE(orvtest::readsBackAs(text, narrow)) << text;
        }
    }
}

TEST(FloatToChars, WritesHalvesThatReadBack) {
    for (std::uint16_t bits = 0; bits < 0x7C00; ++bits) {
        const std::string text = orvtest::textOf(binary16::from_bits(bits));
        ASSERT_LE(orvtest::decimalOf(text).digits.size(), 5U) << text;
        ASSERT_EQ(binary16(std::strtod(text.c_str(), nullptr)).bits(), bits) << text;
        ASSERT_EQ(binary16(orv::from_chars_c<double>(text).value).bits(), bits) << text;
    }
}

#ifndef NDEBUG
TEST(FloatToCharsDeathTest, AssertsThatTheRoomIsNotNegative) {
    char text[4];
    EXPECT_DEATH(orv::to_chars_c(text + 1, text, 1.0), "first <= last");
}
#endif

} // namespace
