// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The cursor: its two end marks, stepping, jumping, and what it cannot be made of.
#include "orv/liborvxx/text/char_iterator.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/thrown_message.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

using namespace orv::literals;
using orv::basic_string_ref;
using orv::BasicCharIterator;
using orv::char16;
using orvtest::textOf;

static_assert(BasicCharIterator<char>::END_MARK == '\0');
static_assert(BasicCharIterator<char16>::END_MARK == u'\xFFFF');

// A cursor is a plain value, and serves constant expressions.
static_assert(std::is_trivially_copyable_v<BasicCharIterator<char>>);
static_assert([] {
    BasicCharIterator<char16> it(u"ab"_u);
    it.step();
    const bool second = it.current() == u'b' && it.position() == 1 && !it.atEnd();
    it.step();
    it.step();
    it.setPosition(0);
    it.advance(2);
    return second && it.atEnd() && it.setPosition(0) == u'a' && it.text().size() == 2;
}());

// It is made of what outlives it, and by a word.
template <typename CharT, typename Text>
constexpr bool MADE_OF = std::is_constructible_v<BasicCharIterator<CharT>, Text>;
static_assert(MADE_OF<char, std::string&> && MADE_OF<char, const std::string&>);
static_assert(MADE_OF<char, orv::string_ref> && MADE_OF<char, const char*>);
static_assert(MADE_OF<char, std::string_view>);
static_assert(!MADE_OF<char, std::string> && !MADE_OF<char, const std::string>);
static_assert(MADE_OF<char16, orv::ustring&> && MADE_OF<char16, orv::ustring_ref>);
static_assert(!MADE_OF<char16, orv::ustring> && !MADE_OF<char16, const orv::ustring>);
static_assert(!MADE_OF<char, orv::ustring_ref> && !MADE_OF<char16, orv::string_ref>);
static_assert(!std::is_convertible_v<orv::string_ref, BasicCharIterator<char>>);

// It is there for char and char16 alone.
template <typename CharT>
constexpr bool EXISTS_FOR = requires {
    typename BasicCharIterator<CharT>;
};
static_assert(EXISTS_FOR<char> && EXISTS_FOR<char16>);
static_assert(!EXISTS_FOR<wchar_t> && !EXISTS_FOR<char16_t>);

template <typename CharT>
class CharIterator : public testing::Test {};

using CursorTypes = testing::Types<char, char16>;
TYPED_TEST_SUITE(CharIterator, CursorTypes);

TYPED_TEST(CharIterator, OverAnEmptyTextIsAtTheEnd) {
    const auto x = textOf<TypeParam>("x");
    for (const auto text :
         {basic_string_ref<TypeParam>(), basic_string_ref<TypeParam>(x.data(), 0)}) {
        BasicCharIterator<TypeParam> it(text);
        EXPECT_EQ(it.position(), 0U);
        EXPECT_EQ(it.current(), BasicCharIterator<TypeParam>::END_MARK);
        EXPECT_TRUE(it.atEnd());
        it.step();
        EXPECT_EQ(it.position(), 0U);
        EXPECT_EQ(it.setPosition(0), BasicCharIterator<TypeParam>::END_MARK);
    }
}

TYPED_TEST(CharIterator, StepsThroughTheTextAndStaysAtTheEnd) {
    const auto text = textOf<TypeParam>("abc");
    BasicCharIterator<TypeParam> it(text);
    for (std::size_t i = 0; i < text.size(); ++i) {
        EXPECT_EQ(it.position(), i);
        EXPECT_EQ(it.current(), text[i]);
        EXPECT_FALSE(it.atEnd());
        it.step();
    }
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(it.position(), 3U);
        EXPECT_EQ(it.current(), BasicCharIterator<TypeParam>::END_MARK);
        EXPECT_TRUE(it.atEnd());
        it.step();
    }
}

TYPED_TEST(CharIterator, JumpsToAnyPlaceAndToTheEnd) {
    const auto text = textOf<TypeParam>("abc");
    BasicCharIterator<TypeParam> it(text);
    EXPECT_EQ(it.setPosition(3), BasicCharIterator<TypeParam>::END_MARK);
    EXPECT_EQ(it.current(), BasicCharIterator<TypeParam>::END_MARK);
    EXPECT_EQ(it.position(), 3U);
    EXPECT_TRUE(it.atEnd());
    EXPECT_EQ(it.setPosition(1), text[1]) << "backwards";
    EXPECT_EQ(it.current(), text[1]);
    EXPECT_EQ(it.position(), 1U);
    EXPECT_FALSE(it.atEnd());
    it.step();
    EXPECT_EQ(it.current(), text[2]);
}

TYPED_TEST(CharIterator, RefusesAPlaceBehindTheEndAndStaysWhereItWas) {
    const auto text = textOf<TypeParam>("abc");
    BasicCharIterator<TypeParam> it(text);
    it.step();
    for (const std::size_t position : {text.size() + 1, static_cast<std::size_t>(-1)}) {
        EXPECT_EQ(orvtest::thrownMessage<std::out_of_range>([&] { it.setPosition(position); }),
                  "BasicCharIterator<CharT>::position");
        EXPECT_EQ(it.position(), 1U);
        EXPECT_EQ(it.current(), text[1]);
    }
}

TYPED_TEST(CharIterator, ShowsTheWholeTextWhereverItStands) {
    const auto text = textOf<TypeParam>("abc");
    BasicCharIterator<TypeParam> it(text);
    it.setPosition(2);
    EXPECT_EQ(it.text().data(), text.data());
    EXPECT_EQ(it.text().size(), text.size());
}

TYPED_TEST(CharIterator, TellsAUnitOfTheEndMarksValueFromTheEnd) {
    constexpr TypeParam END = BasicCharIterator<TypeParam>::END_MARK;
    const auto text = textOf<TypeParam>("a") + END + textOf<TypeParam>("b");
    BasicCharIterator<TypeParam> it(text);
    it.step();
    EXPECT_EQ(it.current(), END);
    EXPECT_FALSE(it.atEnd());
    it.step();
    EXPECT_EQ(it.current(), text[2]);
    it.step();
    EXPECT_EQ(it.current(), END);
    EXPECT_TRUE(it.atEnd());
}

TYPED_TEST(CharIterator, ACopyRemembersThePlace) {
    const auto text = textOf<TypeParam>("abc");
    BasicCharIterator<TypeParam> it(text);
    it.step();
    const auto place = it;
    it.step();
    EXPECT_EQ(place.current(), text[1]);
    it = place;
    EXPECT_EQ(it.position(), 1U);
}

TYPED_TEST(CharIterator, HoldsTheUnitAtItsPositionAfterAnyWalk) {
    std::mt19937 random(17);
    const auto text = textOf<TypeParam>("0123456789");
    BasicCharIterator<TypeParam> it(text);
    std::size_t expected = 0;
    for (int i = 0; i < 1000; ++i) {
        const std::size_t way = orvtest::below(random, 6);
        if (way < 3) {
            it.step();
            expected += expected < text.size() ? 1U : 0U;
        } else if (way == 3) {
            const std::size_t further = orvtest::below(random, text.size() - expected + 1);
            it.advance(further);
            expected += further;
        } else {
            expected = orvtest::below(random, text.size() + 1);
            it.setPosition(expected);
        }
        ASSERT_EQ(it.position(), expected);
        ASSERT_EQ(it.current(),
                  expected < text.size() ? text[expected] : BasicCharIterator<TypeParam>::END_MARK);
        ASSERT_EQ(it.atEnd(), expected == text.size());
    }
}

} // namespace
