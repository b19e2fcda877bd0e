// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `to_chars_c` for integers: radixes, types, and room of every size.
#include "orv/liborvxx/number/to_chars.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <string>
#include <vector>

namespace {

using orv::char16;

template <class T>
class ToCharsInteger : public testing::Test {};
using Types = testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned, long,
                             unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(ToCharsInteger, Types);

// Written into room of just its size, one unit more, and every smaller size, with a guard behind.
template <class CharT, class T>
void expectFits(T value, int radix, const std::string& text) {
    static_assert(noexcept(orv::to_chars_c(static_cast<CharT*>(nullptr), nullptr, value, radix)));
    const CharT guard(u'#');
    for (std::size_t size = 0; size <= text.size() + 1; ++size) {
        std::vector<CharT> room(size + 1, guard);
        CharT* const last = room.data() + size;
        const orv::to_chars_result<CharT> written =
            orv::to_chars_c(room.data(), last, value, radix);
        ASSERT_EQ(written.fits, size >= text.size()) << text << " in " << size;
        ASSERT_EQ(static_cast<bool>(written), written.fits);
        ASSERT_EQ(*last, guard) << text << " in " << size;
        if (written) {
            ASSERT_EQ(written.end, room.data() + text.size());
            ASSERT_EQ(std::basic_string<CharT>(room.data(), written.end),
                      orvtest::textIn<CharT>(text));
            ASSERT_TRUE(size == text.size() || *written.end == guard) << "no NUL is written";
        } else {
            ASSERT_EQ(written.end, last);
        }
    }
}

template <class T>
void expectText(T value, int radix, const std::string& text) {
    expectFits<char>(value, radix, text);
    expectFits<char16>(value, radix, text);
}

TYPED_TEST(ToCharsInteger, WritesSmallLettersFromTenOn) {
    constexpr std::string_view DIGITS = "0123456789abcdefghijklmnopqrstuvwxyz";
    for (int radix = 2; radix <= 36; ++radix) {
        for (int i = 0; i < 36; ++i) {
            std::string text(1, DIGITS[static_cast<std::size_t>(i % radix)]);
            for (int rest = i / radix; rest > 0; rest /= radix) {
                text.insert(text.begin(), DIGITS[static_cast<std::size_t>(rest % radix)]);
            }
            expectText(static_cast<TypeParam>(i), radix, text);
            if (std::numeric_limits<TypeParam>::min() < 0 && i > 0) {
                expectText(static_cast<TypeParam>(-i), radix, "-" + text);
            }
        }
    }
}

TYPED_TEST(ToCharsInteger, WritesTheLimitsInRadix10) {
    using Limits = std::numeric_limits<TypeParam>;
    expectText(Limits::max(), 10, std::to_string(Limits::max()));
    expectText(Limits::min(), 10, std::to_string(Limits::min()));
    expectText(TypeParam{0}, 10, "0");
}

TYPED_TEST(ToCharsInteger, WritesTheLimitsInRadix2) {
    using Limits = std::numeric_limits<TypeParam>;
    constexpr auto DIGITS = static_cast<std::size_t>(Limits::digits);
    expectText(Limits::max(), 2, std::string(DIGITS, '1'));
    if (Limits::is_signed) {
        expectText(Limits::min(), 2, "-1" + std::string(DIGITS, '0'));
    }
}

TEST(ToCharsIntegerLimits, StandAsEveryoneKnowsThem) {
    expectText(std::numeric_limits<std::int64_t>::min(), 10, "-9223372036854775808");
    expectText(std::numeric_limits<std::int64_t>::min(), 16, "-8000000000000000");
    expectText(std::numeric_limits<std::uint64_t>::max(), 10, "18446744073709551615");
    expectText(std::numeric_limits<std::uint64_t>::max(), 8, "1777777777777777777777");
    expectText(std::numeric_limits<std::uint64_t>::max(), 16, "ffffffffffffffff");
    expectText(std::numeric_limits<std::uint64_t>::max(), 32, "fvvvvvvvvvvvv");
    expectText(std::numeric_limits<std::uint64_t>::max(), 36, "3w5e11264sgsf");
    expectText(std::numeric_limits<std::int32_t>::min(), 10, "-2147483648");
}

TEST(ToCharsInteger10, TheRoomNamedIsJustEnough) {
    char text[orv::MAX_INTEGER_LENGTH];
    EXPECT_TRUE(orv::to_chars_c(text, text + sizeof text, std::numeric_limits<long long>::min()));
    EXPECT_TRUE(
        orv::to_chars_c(text, text + sizeof text, std::numeric_limits<unsigned long long>::max()));
    EXPECT_FALSE(
        orv::to_chars_c(text, text + sizeof text - 1, std::numeric_limits<long long>::min()));
}

TEST(ToCharsIntegerRoom, MayBeNone) {
    const auto written = orv::to_chars_c(static_cast<char*>(nullptr), nullptr, 0);
    EXPECT_FALSE(written);
    EXPECT_EQ(written.end, nullptr);
}

TEST(ToCharsIntegerTypes, CharactersAndBoolAreNoIntegers) {
    static_assert(orv::detail::WritableInteger<signed char>);
    static_assert(orv::detail::WritableInteger<unsigned char>);
    static_assert(!orv::detail::WritableInteger<char>);
    static_assert(!orv::detail::WritableInteger<bool>);
    static_assert(!orv::detail::WritableInteger<wchar_t>);
    static_assert(!orv::detail::WritableInteger<char16_t>);
    const int constant = 5;
    char text[1];
    EXPECT_TRUE(orv::to_chars_c(text, text + 1, constant));
    EXPECT_EQ(text[0], '5');
}

#if !defined(NDEBUG) && GTEST_HAS_DEATH_TEST
TEST(ToCharsIntegerDeathTest, TheRadixIsFrom2To36) {
    char text[70];
    EXPECT_DEATH(orv::to_chars_c(text, text + sizeof text, 5, 1), "radix");
    EXPECT_DEATH(orv::to_chars_c(text, text + sizeof text, 5, 37), "radix");
    EXPECT_DEATH(orv::to_chars_c(text, text + sizeof text, 5, 0), "radix");
    EXPECT_DEATH(orv::to_chars_c(text, text + sizeof text, 5, -10), "radix");
}

TEST(ToCharsIntegerDeathTest, TheRoomEndsBehindItsBegin) {
    char text[70];
    EXPECT_DEATH(orv::to_chars_c(text + 1, text, 5), "first <= last");
}
#endif

} // namespace
