// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `char16` text as `char16_t` text and back: shared storage for views, copies for strings.
#include "orv/liborvxx/text/utf16_interop.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using namespace orv::literals;
using orv::as_char16;
using orv::as_char16_t;
using orv::char16;
using orv::ustring;
using orv::ustring_ref;
using orvtest::unitsOf;

static_assert(
    std::is_same_v<decltype(as_char16_t(std::declval<const char16*>())), const char16_t*>);
static_assert(std::is_same_v<decltype(as_char16_t(std::declval<char16*>())), char16_t*>);
static_assert(std::is_same_v<decltype(as_char16(std::declval<const char16_t*>())), const char16*>);
static_assert(std::is_same_v<decltype(as_char16(std::declval<char16_t*>())), char16*>);

TEST(Utf16Interop, PointersKeepTheAddress) {
    ustring ours = unitsOf({'a', 0xD83D, 0xDE00});
    EXPECT_EQ(static_cast<void*>(as_char16_t(ours.data())), static_cast<void*>(ours.data()));
    EXPECT_EQ(as_char16(as_char16_t(ours.data())), ours.data());
    std::u16string theirs = u"abc";
    EXPECT_EQ(as_char16_t(as_char16(theirs.data())), theirs.data());
    EXPECT_EQ(as_char16_t(static_cast<const char16*>(nullptr)), nullptr);
    EXPECT_EQ(as_char16(static_cast<char16_t*>(nullptr)), nullptr);
}

TEST(Utf16Interop, AUnitWrittenOnOneSideIsReadOnTheOther) {
    ustring ours = unitsOf({1, 2, 3});
    as_char16_t(ours.data())[1] = u'\xABCD';
    EXPECT_EQ(ours, unitsOf({1, 0xABCD, 3}));
    std::u16string theirs = u"abc";
    as_char16(theirs.data())[2] = u'\xD800';
    EXPECT_EQ(theirs, std::u16string({u'a', u'b', u'\xD800'}));
}

TEST(Utf16Interop, ViewsShareTheStorage) {
    const ustring ours = unitsOf({'x', 0, 0xFFFF});
    const std::u16string_view theirs = orv::as_u16string_view(ours);
    EXPECT_EQ(static_cast<const void*>(theirs.data()), static_cast<const void*>(ours.data()));
    EXPECT_EQ(theirs, std::u16string_view(u"x\0\xFFFF", 3));
    const ustring_ref back = orv::as_ustring_ref(theirs);
    EXPECT_EQ(back.data(), ours.data());
    EXPECT_EQ(back.size(), 3U);
}

TEST(Utf16Interop, EmptyViewsStayEmpty) {
    EXPECT_TRUE(orv::as_u16string_view(ustring_ref()).empty());
    EXPECT_EQ(orv::as_u16string_view(ustring_ref()).data(), nullptr);
    EXPECT_TRUE(orv::as_ustring_ref(std::u16string_view()).empty());
}

TEST(Utf16Interop, StringsAreCopiesOfAllUnits) {
    std::u16string all;
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        all.push_back(static_cast<char16_t>(value));
    }
    const ustring ours = orv::to_ustring(all);
    ASSERT_EQ(ours.size(), all.size());
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        ASSERT_EQ(static_cast<unsigned int>(ours[value]), value);
    }
    EXPECT_EQ(orv::to_u16string(ours), all);
    EXPECT_NE(static_cast<const void*>(ours.data()), static_cast<const void*>(all.data()));
}

TEST(Utf16Interop, LiteralsOfEitherKindMeet) {
    EXPECT_EQ(orv::to_u16string(u"caf\u00E9"_u), u"caf\u00E9");
    EXPECT_EQ(orv::to_ustring(u"caf\u00E9"), u"caf\u00E9"_u);
}

} // namespace
