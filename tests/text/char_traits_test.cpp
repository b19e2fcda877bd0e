// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::char_traits<char16>`: comparison values, copying, and the end mark.
#include "orv/liborvxx/text/char_traits.h"

#include "orv/liborvxx/text/ustring.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cwchar>
#include <ios>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using orv::char16;
using orv::char16_int;
using orv::ustring;
using orvtest::below;
using orvtest::unitsOf;
using Traits = std::char_traits<char16>;

static_assert(std::is_same_v<Traits::char_type, char16>);
static_assert(std::is_same_v<Traits::int_type, char16_int>);
static_assert(std::is_same_v<Traits::off_type, std::streamoff>);
static_assert(std::is_same_v<Traits::state_type, std::mbstate_t>);
static_assert(std::is_same_v<Traits::comparison_category, std::strong_ordering>);

// Every member serves at compile time.
constexpr char16 ABC[] = {u'a', u'b', u'c', u'\0'};
constexpr char16 ABD[] = {u'a', u'b', u'd', u'\0'};
static_assert(Traits::eq(u'a', u'a') && !Traits::eq(u'a', u'b'));
static_assert(Traits::lt(u'\x7FFF', u'\x8000') && !Traits::lt(u'a', u'a'));
static_assert(Traits::compare(ABC, ABD, 3) == -1 && Traits::compare(ABC, ABD, 2) == 0);
static_assert(Traits::length(ABC) == 3);
static_assert(Traits::find(ABC, 3, u'c') == ABC + 2 && Traits::find(ABC, 2, u'c') == nullptr);
static_assert(Traits::eof() == char16_int(u'\xFFFF'));
static_assert(Traits::not_eof(Traits::eof()) == char16_int(u'\0'));
static_assert(Traits::eq_int_type(Traits::to_int_type(u'\xFFFF'), Traits::eof()));
static_assert(Traits::to_char_type(Traits::eof()) == u'\xFFFF');
static_assert([] {
    std::array<char16, 5> units{u'1', u'2', u'3', u'4', u'5'};
    Traits::move(units.data() + 1, units.data(), 4);
    Traits::copy(units.data(), ABC, 1);
    Traits::assign(units[4], u'z');
    return units == std::array<char16, 5>{u'a', u'1', u'2', u'3', u'z'};
}());

// The definition, one unit at a time.
int differenceOfFirstUnitsThatDiffer(const ustring& a, const ustring& b) {
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i]) {
            return static_cast<int>(a[i]) - static_cast<int>(b[i]);
        }
    }
    return 0;
}

TEST(CharTraits, EqualityAndOrderAreThoseOfTheUnsignedValue) {
    for (unsigned int a = 0; a <= 0xFFFF; ++a) {
        for (const unsigned int b : {0U, 0xFFU, 0x100U, 0x7FFFU, 0x8000U, 0xFFFFU, a}) {
            ASSERT_EQ(Traits::eq(char16(a), char16(b)), a == b);
            ASSERT_EQ(Traits::lt(char16(a), char16(b)), a < b);
        }
    }
}

TEST(CharTraits, CompareGivesTheDifferenceOfTheUnits) {
    const auto compareUnits = [](unsigned int a, unsigned int b) {
        const char16 left(a);
        const char16 right(b);
        return Traits::compare(&left, &right, 1);
    };
    EXPECT_EQ(compareUnits(0xFFFF, 0), 65535);
    EXPECT_EQ(compareUnits(0, 0xFFFF), -65535);
    EXPECT_EQ(compareUnits(0x100, 1), 255);
    EXPECT_EQ(compareUnits(1, 0x100), -255);
    EXPECT_EQ(compareUnits(0x8000, 0x7FFF), 1);
    EXPECT_EQ(compareUnits('a', 'a'), 0);
}

TEST(CharTraits, CompareFindsTheFirstDifferenceAtEveryPlaceAndAlignment) {
    std::mt19937 random(1101);
    for (std::size_t length = 0; length <= 21; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            for (std::size_t shift = 0; shift < 4; ++shift) {
                ustring a(length, u'\0');
                for (char16& unit : a) {
                    unit = char16(random());
                }
                ustring b = a;
                b[place] = char16(static_cast<unsigned int>(a[place]) ^ (1 + random() % 0xFFFF));
                // What follows the first difference counts for nothing.
                for (std::size_t i = place + 1; i < length; ++i) {
                    b[i] = char16(random());
                }
                const ustring shifted = ustring(shift, u'x') + b;
                ASSERT_EQ(Traits::compare(a.data(), shifted.data() + shift, length),
                          differenceOfFirstUnitsThatDiffer(a, b))
                    << length << ' ' << place << ' ' << shift;
                ASSERT_EQ(Traits::compare(a.data(), shifted.data() + shift, place), 0);
            }
        }
    }
}

TEST(CharTraits, NoUnitsAtANullPointerAreEqualAbsentAndCopied) {
    EXPECT_EQ(Traits::compare(nullptr, nullptr, 0), 0);
    EXPECT_EQ(Traits::find(nullptr, 0, u'x'), nullptr);
    EXPECT_EQ(Traits::copy(nullptr, nullptr, 0), nullptr);
    EXPECT_EQ(Traits::move(nullptr, nullptr, 0), nullptr);
    EXPECT_EQ(Traits::assign(nullptr, 0, u'x'), nullptr);
}

TEST(CharTraits, LengthCountsTheUnitsBeforeTheFirstZero) {
    const ustring text = unitsOf({'a', 0x100, 0xFF00, 0, 'b', 0});
    EXPECT_EQ(Traits::length(text.data()), 3U);
    EXPECT_EQ(Traits::length(text.data() + 3), 0U);
    EXPECT_EQ(Traits::length(text.data() + 4), 1U);
}

TEST(CharTraits, FindGivesTheFirstUnitOrNull) {
    const ustring text = unitsOf({0x61, 0x6100, 0x62, 0x61, 0x62});
    EXPECT_EQ(Traits::find(text.data(), 5, u'b'), text.data() + 2);
    EXPECT_EQ(Traits::find(text.data(), 2, u'b'), nullptr);
    EXPECT_EQ(Traits::find(text.data(), 5, u'\x6100'), text.data() + 1);
    EXPECT_EQ(Traits::find(text.data(), 5, u'\x6200'), nullptr);
    EXPECT_EQ(Traits::find(text.data(), 5, u'\0'), nullptr);
}

TEST(CharTraits, FindGivesTheFirstOfTwoUnitsAtEveryPlaceInTextsOfEveryLength) {
    const char16 wanted = u'\x0A0D';
    for (std::size_t n = 0; n <= 80; ++n) {
        // Each shares a byte with what is looked for, or differs by one. The vector is no longer
        // than the text, so that a look behind it is found.
        const auto others = unitsOf({0x0A0C, 0x0D0A, 0x0A0E, 0x0A0A, 0x0D0D, 0xF5F2, 0x8A0D});
        std::vector<char16> text(n);
        for (std::size_t i = 0; i < n; ++i) {
            text[i] = others[i % others.size()];
        }
        ASSERT_EQ(Traits::find(text.data(), n, wanted), nullptr) << n;
        for (std::size_t second = n; second-- > 0;) {
            const char16 kept = std::exchange(text[second], wanted);
            ASSERT_EQ(Traits::find(text.data(), n, wanted), text.data() + second) << n;
            ASSERT_EQ(Traits::find(text.data(), second, wanted), nullptr) << n << ", " << second;
            const std::size_t first = second / 2;
            const char16 keptToo = std::exchange(text[first], wanted);
            ASSERT_EQ(Traits::find(text.data(), n, wanted), text.data() + first) << n;
            text[first] = keptToo;
            text[second] = kept;
        }
    }
}

TEST(CharTraits, AssignFillsAndReturnsItsDestination) {
    ustring text = unitsOf({1, 2, 3, 4});
    EXPECT_EQ(Traits::assign(text.data() + 1, 2, u'\x1234'), text.data() + 1);
    EXPECT_EQ(text, unitsOf({1, 0x1234, 0x1234, 4}));
    Traits::assign(text[3], u'z');
    EXPECT_EQ(text[3], u'z');
}

TEST(CharTraits, CopyTakesTheUnitsAndReturnsItsDestination) {
    const ustring source = unitsOf({0xD83D, 0xDE00, 0, 0xFFFF});
    ustring target(6, u'-');
    EXPECT_EQ(Traits::copy(target.data() + 1, source.data(), 4), target.data() + 1);
    EXPECT_EQ(target, unitsOf({'-', 0xD83D, 0xDE00, 0, 0xFFFF, '-'}));
}

TEST(CharTraits, MoveAllowsEveryOverlap) {
    for (std::size_t from = 0; from <= 6; ++from) {
        for (std::size_t to = 0; to <= 6; ++to) {
            ustring text = unitsOf({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
            ustring expected = text;
            for (std::size_t i = 0; i < 6; ++i) {
                expected[to + i] = char16(from + i);
            }
            ASSERT_EQ(Traits::move(text.data() + to, text.data() + from, 6), text.data() + to);
            ASSERT_EQ(text, expected) << from << " to " << to;
        }
    }
}

TEST(CharTraits, TheSizedFormsDoNotConsultTheSize) {
    const ustring source = unitsOf({1, 2, 3});
    ustring target(3, u'-');
    EXPECT_EQ(Traits::_Copy_s(target.data(), 0, source.data(), 3), target.data());
    EXPECT_EQ(target, source);
    ustring text = unitsOf({1, 2, 3, 4});
    EXPECT_EQ(Traits::_Move_s(text.data() + 1, 0, text.data(), 3), text.data() + 1);
    EXPECT_EQ(text, unitsOf({1, 1, 2, 3}));
}

TEST(CharTraits, EveryUnitIsItsOwnIntegerAndTheLastOneIsTheEndMark) {
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        const char16 unit(value);
        const char16_int integer = Traits::to_int_type(unit);
        ASSERT_EQ(static_cast<unsigned int>(integer), value);
        ASSERT_EQ(Traits::to_char_type(integer), unit);
        ASSERT_EQ(Traits::eq_int_type(integer, Traits::eof()), value == 0xFFFF);
        ASSERT_EQ(static_cast<unsigned int>(Traits::not_eof(integer)), value == 0xFFFF ? 0 : value);
    }
}

} // namespace
