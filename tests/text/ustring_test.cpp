// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `ustring` as the standard string that it is: its operations, containers, algorithms.
#include "orv/liborvxx/text/ustring.h"

#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <random>
#include <ranges>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::to_u16string;
using orv::ustring;
using orv::ustring_ref;
using orv::ustring_view;
using orvtest::below;
using orvtest::textOf;
using orvtest::unitsOf;

static_assert(
    std::is_same_v<ustring,
                   std::basic_string<char16, std::char_traits<char16>, std::allocator<char16>>>);
static_assert(std::is_same_v<ustring_view, std::basic_string_view<char16>>);
static_assert(std::is_convertible_v<ustring, ustring_view>);
static_assert(std::ranges::contiguous_range<ustring>);

ustring text(std::string_view ascii) {
    return textOf<char16>(ascii);
}

TEST(UString, OperationsOfTheStandardStringWork) {
    ustring s = text("hello");
    s.append(text(" world")).append(3, u'!').push_back(u'?');
    EXPECT_EQ(s, text("hello world!!!?"));
    s.insert(5, text(",")).erase(s.size() - 1).replace(0, 1, text("J"));
    EXPECT_EQ(s, text("Jello, world!!!"));
    EXPECT_EQ(s.find(text("o")), 4U);
    EXPECT_EQ(s.rfind(u'o'), 8U);
    EXPECT_EQ(s.find_first_of(text("lw")), 2U);
    EXPECT_EQ(s.find_last_not_of(u'!'), 11U);
    EXPECT_EQ(s.substr(7, 5), text("world"));
    EXPECT_TRUE(s.starts_with(text("Je")) && s.ends_with(u'!'));
    EXPECT_EQ(s.compare(text("Jello, world!!!")), 0);
    s.resize(5);
    EXPECT_EQ(s + char16(u'w') + text("s"), text("Jellows"));
    s.resize(7, u'x');
    EXPECT_EQ(s, text("Jelloxx"));
    s.clear();
    EXPECT_TRUE(s.empty());
}

TEST(UString, CompareUsesTheDifferenceOfTheUnits) {
    EXPECT_EQ(unitsOf({0x100}).compare(unitsOf({1})), 255);
    EXPECT_LT(unitsOf({0xD800}), unitsOf({0xFFFD}));
    EXPECT_GT(unitsOf({0x8000}), unitsOf({0x7FFF}));
}

TEST(UString, ZeroUnitsInsideAreKept) {
    const ustring s = unitsOf({'a', 0, 'b'});
    EXPECT_EQ(s.size(), 3U);
    EXPECT_EQ(ustring(s.c_str()).size(), 1U);
    EXPECT_EQ(s.c_str()[3], u'\0');
}

TEST(UString, AnIndexBeyondTheEndThrowsWhatTheStandardStringThrows) {
    EXPECT_THROW((void)text("ab").at(2), std::out_of_range);
    EXPECT_THROW((void)text("ab").substr(3), std::out_of_range);
}

// The same operations on a std::u16string, which the standard library knows by itself.
TEST(UString, RandomEditsAgreeWithTheStandardUtf16String) {
    std::mt19937 random(1102);
    const std::u16string alphabet = u"ab\u0100\xD800\xDC00\xFFFF";
    ustring ours;
    std::u16string theirs;
    for (int step = 0; step < 50'000; ++step) {
        const std::u16string piece = orvtest::randomText(random, alphabet, 5);
        const ustring ourPiece = orv::to_ustring(piece);
        const std::size_t at = below(random, theirs.size() + 1);
        const std::size_t count = below(random, 6);
        switch (random() % 8) {
        case 0:
            ours.insert(at, ourPiece);
            theirs.insert(at, piece);
            break;
        case 1:
            ours.erase(at, count);
            theirs.erase(at, count);
            break;
        case 2:
            ours.replace(at, count, ourPiece);
            theirs.replace(at, count, piece);
            break;
        case 3:
            ours += ourPiece;
            theirs += piece;
            break;
        case 4:
            ours.resize(at + count, u'z');
            theirs.resize(at + count, u'z');
            break;
        case 5:
            ASSERT_EQ(ours.find(ourPiece, at), theirs.find(piece, at));
            ASSERT_EQ(ours.rfind(ourPiece, at), theirs.rfind(piece, at));
            ASSERT_EQ(ours.find_first_of(ourPiece, at), theirs.find_first_of(piece, at));
            ASSERT_EQ(ours.find_last_not_of(ourPiece, at), theirs.find_last_not_of(piece, at));
            break;
        case 6:
            ASSERT_EQ(ours.compare(at, count, ourPiece) < 0, theirs.compare(at, count, piece) < 0);
            ASSERT_EQ(ours < ourPiece, theirs < piece);
            break;
        default:
            if (theirs.size() > 200) {
                ours.erase(20);
                theirs.erase(20);
            }
        }
        ASSERT_EQ(to_u16string(ours), theirs);
    }
}

TEST(UString, IsAKeyOfOrderedAndHashedContainers) {
    std::map<ustring, int> ordered{{text("b"), 2}, {text("a"), 1}, {unitsOf({0xFF00}), 3}};
    EXPECT_EQ(ordered.begin()->second, 1);
    EXPECT_EQ(ordered.rbegin()->second, 3);
    std::unordered_map<ustring, int> hashed{{text("b"), 2}, {text("a"), 1}};
    EXPECT_EQ(hashed.at(text("b")), 2);
    EXPECT_EQ(hashed.count(text("c")), 0U);
    const std::unordered_set<ustring_view> views{u"x"_u, u"y"_u};
    EXPECT_TRUE(views.contains(u"x"_u));
    const std::unordered_set<ustring_ref> refs{u"x"_u, u"y"_u};
    EXPECT_TRUE(refs.contains(u"y"_u));
}

TEST(UString, EqualTextsHashAlikeOwnedOrViewed) {
    std::mt19937 random(1103);
    std::set<std::size_t> seen;
    for (int i = 0; i < 1000; ++i) {
        ustring s(1 + below(random, 20), u'\0');
        for (char16& unit : s) {
            unit = char16(random());
        }
        const ustring copy = s;
        const std::size_t hash = std::hash<ustring>()(s);
        ASSERT_EQ(std::hash<ustring>()(copy), hash);
        ASSERT_EQ(std::hash<ustring_view>()(copy), hash);
        ASSERT_EQ(std::hash<ustring_ref>()(copy), hash);
        seen.insert(hash);
    }
    EXPECT_GT(seen.size(), 900U) << "the hash tells texts apart";
    EXPECT_EQ(std::hash<ustring>()(ustring()), std::hash<ustring_ref>()(ustring_ref()));
}

TEST(UString, AlgorithmsWork) {
    ustring s = text("dacb");
    std::sort(s.begin(), s.end());
    EXPECT_EQ(s, text("abcd"));
    std::reverse(s.begin(), s.end());
    EXPECT_EQ(s, text("dcba"));
    EXPECT_EQ(std::find(s.begin(), s.end(), char16(u'b')) - s.begin(), 2);
    EXPECT_EQ(std::count(s.begin(), s.end(), u'a'), 1);
}

#if defined(__cpp_lib_ranges)
TEST(UString, RangesWork) {
    ustring s = text("dacb");
    std::ranges::reverse(s);
    EXPECT_EQ(s, text("bcad"));
    std::ranges::sort(s, std::ranges::greater());
    EXPECT_EQ(std::ranges::find(s, char16(u'b')) - s.begin(), 2);
    EXPECT_EQ(std::ranges::count(s, u'a'), 1);
    EXPECT_EQ(std::erase(s, u'c'), 1U);
    ustring upper;
    std::ranges::transform(s, std::back_inserter(upper),
                           [](char16 c) { return char16(static_cast<int>(c) - 0x20); });
    EXPECT_EQ(upper, text("DBA"));
    std::vector<ustring> names{text("b"), text("a")};
    std::ranges::sort(names);
    EXPECT_EQ(names.front(), text("a"));
}
#endif

TEST(UString, ConvertsToAndFromTheStandardView) {
    const ustring s = text("text");
    const ustring_view view = s;
    EXPECT_EQ(view.data(), s.data());
    EXPECT_EQ(ustring(view), s);
    EXPECT_EQ(view.substr(1), ustring_view(u"ext"_u));
    ustring target;
    target = view;
    target += view.substr(0, 1);
    EXPECT_EQ(target, text("textt"));
}

TEST(UString, TakesAViewOfThisLibraryWhereItTakesAStandardView) {
    ustring s = u"ab"_u;
    s += u"cd"_u;
    s.append(u"ef"_u).insert(0, u"<"_u).replace(s.size() - 1, 1, u">"_u);
    EXPECT_EQ(s, text("<abcde>"));
    EXPECT_EQ(s.find(u"cd"_u), 3U);
    EXPECT_EQ(s.compare(u"<abcde>"_u), 0);
    s = u"new"_u;
    EXPECT_EQ(s, text("new"));
}

TEST(UString, MovesAndSwaps) {
    ustring a = text(std::string(100, 'a'));
    const char16* const storage = a.data();
    ustring b = std::move(a);
    EXPECT_EQ(b.data(), storage);
    ustring c = text("c");
    swap(b, c);
    EXPECT_EQ(c.data(), storage);
    EXPECT_EQ(b, text("c"));
}

} // namespace
