// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `char16` and `char16_int`: what converts to what, order, hash, all 65,536 values.
#include "orv/liborvxx/text/char16.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <set>
#include <type_traits>
#include <unordered_set>

namespace {

using orv::char16;
using orv::char16_int;

template <typename T>
constexpr bool bothWaysByCastOnly =
    std::is_constructible_v<char16, T> && !std::is_convertible_v<T, char16> &&
    std::is_constructible_v<T, char16> && !std::is_convertible_v<char16, T> &&
    std::is_constructible_v<char16_int, T> && !std::is_convertible_v<T, char16_int> &&
    std::is_constructible_v<T, char16_int> && !std::is_convertible_v<char16_int, T>;

template <typename T>
constexpr bool neverConverts =
    !std::is_constructible_v<char16, T> && !std::is_constructible_v<T, char16> &&
    !std::is_constructible_v<char16_int, T> && !std::is_constructible_v<T, char16_int>;

// A program that takes a wider number for a unit by oversight must not compile.
static_assert(bothWaysByCastOnly<char> && bothWaysByCastOnly<signed char> &&
              bothWaysByCastOnly<unsigned char> && bothWaysByCastOnly<char8_t>);
static_assert(bothWaysByCastOnly<short> && bothWaysByCastOnly<unsigned short>);
static_assert(bothWaysByCastOnly<int> && bothWaysByCastOnly<unsigned int>);
static_assert(bothWaysByCastOnly<long> && bothWaysByCastOnly<unsigned long>);
static_assert(bothWaysByCastOnly<long long> && bothWaysByCastOnly<unsigned long long>);
static_assert(bothWaysByCastOnly<char32_t> && bothWaysByCastOnly<wchar_t>);
static_assert(neverConverts<bool> && neverConverts<double> && neverConverts<const char*> &&
              neverConverts<std::nullptr_t>);

// char16_t is the one integer that is a unit already. Out again it takes a cast.
static_assert(std::is_convertible_v<char16_t, char16> &&
              std::is_convertible_v<char16_t, char16_int>);
static_assert(std::is_constructible_v<char16_t, char16> &&
              !std::is_convertible_v<char16, char16_t>);
static_assert(std::is_constructible_v<char16_t, char16_int> &&
              !std::is_convertible_v<char16_int, char16_t>);
static_assert(std::is_nothrow_constructible_v<char16, char16_t> &&
              std::is_nothrow_constructible_v<char16, int>);
// Between the two classes nothing takes a cast: a stream may keep its fill as a char16_int.
static_assert(std::is_nothrow_convertible_v<char16, char16_int> &&
              std::is_nothrow_convertible_v<char16_int, char16>);

template <typename A, typename B>
concept Comparable = requires(A a, B b) {
    a == b;
    a < b;
    b == a;
    b < a;
};
template <typename A, typename B>
concept Equatable = requires(A a, B b) {
    a == b;
};
template <typename A, typename B>
concept Addable = requires(A a, B b) {
    a + b;
};

static_assert(Comparable<char16, char16> && Comparable<char16, char16_t>);
static_assert(!Equatable<char16, int> && !Equatable<char16, char> && !Equatable<char16, char32_t> &&
              !Equatable<char16, wchar_t> && !Equatable<char16, bool>);
static_assert(Comparable<char16_int, char16_int> && Comparable<char16_int, char16> &&
              Comparable<char16_int, char16_t>);
static_assert(!Equatable<char16_int, int>);
// Arithmetic needs a cast, so that nothing wraps at 16 bits unseen.
static_assert(!Addable<char16, int> && !Addable<char16, char16> && !Addable<char16, char16_t>);

static_assert(std::is_trivial_v<char16> && std::is_trivially_copyable_v<char16> &&
              std::is_standard_layout_v<char16> && sizeof(char16) == 2);
static_assert(std::is_trivial_v<char16_int> && std::is_trivially_copyable_v<char16_int> &&
              sizeof(char16_int) == 2);
static_assert(std::three_way_comparable<char16, std::strong_ordering>);

// All of it serves at compile time.
constexpr char16 EURO = u'\u20AC';
static_assert(EURO == u'\u20AC' && u'\u20AC' == EURO && EURO != u'x' && u'x' < EURO);
static_assert(static_cast<int>(EURO) == 0x20AC && static_cast<std::uint64_t>(EURO) == 0x20AC);
static_assert(static_cast<char16_t>(char16(0x120AC)) == 0x20AC, "the low 16 bits are kept");
static_assert(static_cast<char16_t>(char16(-1)) == 0xFFFF);
static_assert(static_cast<int>(char16_int(char16(0xFFFF))) == 0xFFFF);
static_assert(char16() == u'\0' && char16_int() == char16_int(u'\0'));
static_assert((EURO <=> u'x') == std::strong_ordering::greater);
static_assert(static_cast<char16>(char16_int(EURO)) == EURO);
static_assert(char16_int(EURO) == EURO && EURO == char16_int(EURO) &&
              char16_int(EURO) == u'\u20AC' && u'x' < char16_int(EURO) && char16_int(u'x') < EURO);

TEST(Char16Unit, EveryValueComesBackAsEveryWiderNumberUnsigned) {
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        const char16 unit(value);
        ASSERT_EQ(static_cast<unsigned int>(unit), value);
        ASSERT_EQ(static_cast<char16_t>(unit), static_cast<char16_t>(value));
        ASSERT_EQ(static_cast<int>(unit), static_cast<int>(value));
        ASSERT_EQ(static_cast<long long>(unit), static_cast<long long>(value));
        ASSERT_EQ(static_cast<char32_t>(unit), static_cast<char32_t>(value));
        ASSERT_EQ(static_cast<std::uint8_t>(unit), static_cast<std::uint8_t>(value));
        const char16_int integer(unit);
        ASSERT_EQ(static_cast<unsigned int>(integer), value);
        const char16 back = integer;
        ASSERT_EQ(back, unit);
        ASSERT_EQ(char16_int(value), integer);
    }
}

TEST(Char16Unit, AWiderNumberKeepsItsLowSixteenBits) {
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        const char16 unit(static_cast<char16_t>(value));
        ASSERT_EQ(char16(0xABCD0000U + value), unit);
        ASSERT_EQ(char16(static_cast<int>(value) - 0x10000), unit);
        ASSERT_EQ(char16(0xFFFFFFFFFFFF0000ULL + value), unit);
        ASSERT_EQ(char16(static_cast<short>(value)), unit);
        ASSERT_EQ(char16_int(0xABCD0000U + value), char16_int(unit));
    }
    EXPECT_EQ(static_cast<int>(char16(static_cast<signed char>(-1))), 0xFFFF);
    EXPECT_EQ(static_cast<int>(char16(std::numeric_limits<long long>::min())), 0);
}

TEST(Char16Unit, TheOrderIsThatOfTheUnsignedValues) {
    for (unsigned int a = 0; a <= 0xFFFF; ++a) {
        for (const unsigned int b : {0U, 0x7FU, 0x7FFFU, 0x8000U, 0xD800U, 0xE000U, 0xFFFFU, a}) {
            ASSERT_EQ(char16(a) <=> char16(b), a <=> b) << a << ' ' << b;
            ASSERT_EQ(char16(a) == char16(b), a == b) << a << ' ' << b;
            ASSERT_EQ(char16_int(a) <=> char16_int(b), a <=> b) << a << ' ' << b;
            ASSERT_EQ(char16_int(a) <=> char16(b), a <=> b) << a << ' ' << b;
            ASSERT_EQ(char16(a) <=> char16_int(b), a <=> b) << a << ' ' << b;
            ASSERT_EQ(char16_int(a) == char16(b), a == b) << a << ' ' << b;
            ASSERT_EQ(char16(a) == char16_int(b), a == b) << a << ' ' << b;
            ASSERT_EQ(char16_int(a) <=> static_cast<char16_t>(b), a <=> b) << a << ' ' << b;
        }
    }
}

TEST(Char16Unit, TheOrderIsNotThatOfCodePoints) {
    // U+10000 begins with the unit D800 and sorts below U+FFFD by units.
    EXPECT_LT(char16(0xD800), char16(0xFFFD));
}

TEST(Char16Unit, AnArrayOfUnitsIsAnArrayOfUtf16) {
    static constexpr char16_t TEXT[] = u"a\u20AC\xD83D\xDE00";
    char16 units[std::size(TEXT)];
    static_assert(sizeof units == sizeof TEXT);
    std::memcpy(units, TEXT, sizeof TEXT);
    EXPECT_TRUE(std::equal(std::begin(units), std::end(units), std::begin(TEXT)));
}

TEST(Char16Unit, ServesAsAKey) {
    std::unordered_set<char16> hashed;
    std::set<char16> ordered;
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        const auto unit = static_cast<char16_t>(value);
        ASSERT_EQ(std::hash<char16>()(unit), std::hash<char16_t>()(unit));
        hashed.insert(unit);
        ordered.insert(unit);
    }
    EXPECT_EQ(hashed.size(), 0x10000U);
    EXPECT_EQ(*ordered.begin(), u'\0');
    EXPECT_EQ(*ordered.rbegin(), char16(0xFFFF));
}

TEST(Char16Unit, AssignsFromACharacterLiteral) {
    char16 unit{};
    EXPECT_EQ(unit, u'\0');
    unit = u'x';
    EXPECT_EQ(unit, u'x');
    char16_int integer{};
    integer = unit;
    EXPECT_EQ(integer, u'x');
}

} // namespace
