// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `u"text"_u`: views on static storage, made at compile time.
#include "orv/liborvxx/text/literals.h"

#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::ustring;
using orv::ustring_ref;
using orvtest::unitsOf;

static_assert(std::is_same_v<decltype(u""_u), const ustring_ref&>);

constexpr ustring_ref NAME = u"UTF-8"_u;
static_assert(NAME.size() == 5 && NAME[0] == u'U' && NAME.back() == u'8');
static_assert(u""_u.empty());
static_assert(u"\u20AC"_u.front() == u'\u20AC');

constinit ustring_ref table[] = {u"one"_u, u"two"_u};

ustring_ref madeInAFunction() {
    return u"outlives the call"_u;
}

TEST(Literals, HoldTheUnitsOfTheLiteral) {
    EXPECT_EQ(NAME.to_string(), unitsOf({'U', 'T', 'F', '-', '8'}));
    EXPECT_EQ(u"\u20AC"_u.to_string(), unitsOf({0x20AC}));
    EXPECT_EQ(u"\xDC00"_u.to_string(), unitsOf({0xDC00}));
    EXPECT_EQ(table[1].to_string(), unitsOf({'t', 'w', 'o'}));
    EXPECT_EQ(u"\uFFFF\u0001"_u.to_string(), unitsOf({0xFFFF, 1}));
}

TEST(Literals, WriteASupplementaryCodePointAsAPair) {
    EXPECT_EQ(u"a\U0001F600"_u.to_string(), unitsOf({'a', 0xD83D, 0xDE00}));
}

TEST(Literals, KeepZeroUnitsInside) {
    EXPECT_EQ(u"a\0b"_u.to_string(), unitsOf({'a', 0, 'b'}));
    EXPECT_EQ(u"\0"_u.size(), 1U);
}

TEST(Literals, AZeroUnitFollows) {
    EXPECT_EQ(*NAME.end(), u'\0');
    EXPECT_EQ(*u""_u.data(), u'\0');
}

TEST(Literals, InitialiseStringsInEveryForm) {
    const ustring direct(u"text"_u);
    const ustring braces{u"text"_u};
    const ustring copied = u"text"_u;
    EXPECT_EQ(direct, u"text"_u);
    EXPECT_EQ(braces, direct);
    EXPECT_EQ(copied, direct);
    EXPECT_EQ(ustring(u"text"_u), direct);
}

TEST(Literals, LiveAsLongAsTheProgramAtOnePlace) {
    EXPECT_EQ(madeInAFunction(), u"outlives the call"_u);
    EXPECT_EQ(madeInAFunction().data(), u"outlives the call"_u.data());
}

template <class Text>
Text madeInATemplate() {
    return Text(u"of any type"_u);
}

TEST(Literals, StandWithinTemplates) {
    EXPECT_EQ(madeInATemplate<ustring>(), u"of any type"_u);
    EXPECT_EQ(madeInATemplate<ustring_ref>().data(), u"of any type"_u.data());
}

} // namespace
