// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The six searches, each in four overloads, against their definitions written out slowly.
#include "orv/liborvxx/text/string_ref.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

namespace {

using namespace orv::literals;
using orv::basic_string_ref;
using orv::char16;
using orvtest::below;
using orvtest::randomText;
using orvtest::textOf;
using orvtest::unitsOf;

constexpr std::size_t npos = static_cast<std::size_t>(-1);

// The definitions, one comparison at a time.

template <typename String>
bool matchesAt(const String& text, const String& needle, std::size_t start) {
    for (std::size_t i = 0; i < needle.size(); ++i) {
        if (text[start + i] != needle[i]) {
            return false;
        }
    }
    return true;
}

template <typename String>
std::size_t slowFind(const String& text, const String& needle, std::size_t pos) {
    if (needle.size() > text.size() || pos > text.size() - needle.size()) {
        return npos;
    }
    for (std::size_t start = pos; start <= text.size() - needle.size(); ++start) {
        if (matchesAt(text, needle, start)) {
            return start;
        }
    }
    return npos;
}

template <typename String>
std::size_t slowRfind(const String& text, const String& needle, std::size_t pos) {
    if (needle.size() > text.size()) {
        return npos;
    }
    for (std::size_t start = std::min(text.size() - needle.size(), pos) + 1; start-- > 0;) {
        if (matchesAt(text, needle, start)) {
            return start;
        }
    }
    return npos;
}

template <typename String>
bool contains(const String& set, typename String::value_type unit) {
    for (const auto element : set) {
        if (element == unit) {
            return true;
        }
    }
    return false;
}

template <typename String>
std::size_t slowFirst(const String& text, const String& set, std::size_t pos, bool wanted) {
    for (std::size_t i = std::min(pos, text.size()); i != text.size(); ++i) {
        if (contains(set, text[i]) == wanted) {
            return i;
        }
    }
    return npos;
}

template <typename String>
std::size_t slowLast(const String& text, const String& set, std::size_t pos, bool wanted) {
    if (text.empty()) {
        return npos;
    }
    for (std::size_t i = std::min(text.size() - 1, pos) + 1; i-- > 0;) {
        if (contains(set, text[i]) == wanted) {
            return i;
        }
    }
    return npos;
}

// A small alphabet makes matches and near misses. The units share bytes, so that a search by bytes
// would find what is not there.
template <typename CharT>
std::basic_string<CharT> smallAlphabet() {
    std::basic_string<CharT> units = textOf<CharT>("abc");
    if constexpr (sizeof(CharT) > 1) {
        units.push_back(static_cast<CharT>(0x6161));
        units.push_back(static_cast<CharT>(0x6162));
    } else {
        units.push_back(static_cast<CharT>(0xE1));
    }
    return units;
}

template <typename CharT>
class StringRefSearch : public testing::Test {};

using CharacterTypes = testing::Types<char, char16, char16_t, wchar_t>;
TYPED_TEST_SUITE(StringRefSearch, CharacterTypes);

TYPED_TEST(StringRefSearch, RandomSearchesAgreeWithTheDefinitions) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    std::mt19937 random(1202);
    const String alphabet = smallAlphabet<TypeParam>();
    for (int i = 0; i < 40'000; ++i) {
        const String text = randomText(random, alphabet, i % 8 == 0 ? 40 : 10);
        const String needle = randomText(random, alphabet, 3);
        const TypeParam unit = alphabet[below(random, alphabet.size())];
        const String one(1, unit);
        const std::size_t last = text.size() + 3;
        std::size_t pos = below(random, last + 2);
        pos = pos == last ? npos : pos == last + 1 ? npos - 1 : pos;
        const TypeParam* const p = needle.c_str();
        const std::size_t n = needle.size();
        const Ref view = text;
        SCOPED_TRACE(i);

        const std::size_t found = slowFind(text, needle, pos);
        EXPECT_EQ(view.find(Ref(needle), pos), found);
        EXPECT_EQ(view.find(p, pos), found);
        EXPECT_EQ(view.find(p, pos, n), found);
        EXPECT_EQ(view.find(unit, pos), slowFind(text, one, pos));
        EXPECT_EQ(view.rfind(p, pos, n), found) << "with a count it searches forward";

        const std::size_t rfound = slowRfind(text, needle, pos);
        EXPECT_EQ(view.rfind(Ref(needle), pos), rfound);
        EXPECT_EQ(view.rfind(p, pos), rfound);
        EXPECT_EQ(view.rfind(unit, pos), slowRfind(text, one, pos));

        const std::size_t first = slowFirst(text, needle, pos, true);
        EXPECT_EQ(view.find_first_of(Ref(needle), pos), first);
        EXPECT_EQ(view.find_first_of(p, pos), first);
        EXPECT_EQ(view.find_first_of(p, pos, n), first);
        EXPECT_EQ(view.find_first_of(unit, pos), slowFirst(text, one, pos, true));

        const std::size_t firstNot = slowFirst(text, needle, pos, false);
        EXPECT_EQ(view.find_first_not_of(Ref(needle), pos), firstNot);
        EXPECT_EQ(view.find_first_not_of(p, pos), firstNot);
        EXPECT_EQ(view.find_first_not_of(p, pos, n), firstNot);
        EXPECT_EQ(view.find_first_not_of(unit, pos), slowFirst(text, one, pos, false));

        const std::size_t lastOf = slowLast(text, needle, pos, true);
        EXPECT_EQ(view.find_last_of(Ref(needle), pos), lastOf);
        EXPECT_EQ(view.find_last_of(p, pos), lastOf);
        EXPECT_EQ(view.find_last_of(p, pos, n), lastOf);
        EXPECT_EQ(view.find_last_of(unit, pos), slowLast(text, one, pos, true));

        const std::size_t lastNot = slowLast(text, needle, pos, false);
        EXPECT_EQ(view.find_last_not_of(Ref(needle), pos), lastNot);
        EXPECT_EQ(view.find_last_not_of(p, pos), lastNot);
        EXPECT_EQ(view.find_last_not_of(p, pos, n), lastNot);
        EXPECT_EQ(view.find_last_not_of(unit, pos), slowLast(text, one, pos, false));
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

TYPED_TEST(StringRefSearch, DefaultsAreThoseOfTheStandardString) {
    using Ref = basic_string_ref<TypeParam>;
    const auto text = textOf<TypeParam>("abcabc");
    const auto set = textOf<TypeParam>("bc");
    const Ref view = text;
    const TypeParam b = set[0];
    EXPECT_EQ(view.find(Ref(set)), 1U);
    EXPECT_EQ(view.find(set.c_str()), 1U);
    EXPECT_EQ(view.find(b), 1U);
    EXPECT_EQ(view.rfind(Ref(set)), 4U);
    EXPECT_EQ(view.rfind(set.c_str()), 4U);
    EXPECT_EQ(view.rfind(b), 4U);
    EXPECT_EQ(view.find_first_of(Ref(set)), 1U);
    EXPECT_EQ(view.find_first_of(set.c_str()), 1U);
    EXPECT_EQ(view.find_first_of(b), 1U);
    EXPECT_EQ(view.find_first_not_of(Ref(set)), 0U);
    EXPECT_EQ(view.find_first_not_of(set.c_str()), 0U);
    EXPECT_EQ(view.find_first_not_of(b), 0U);
    EXPECT_EQ(view.find_last_of(Ref(set)), 5U);
    EXPECT_EQ(view.find_last_of(set.c_str()), 5U);
    EXPECT_EQ(view.find_last_of(b), 4U);
    EXPECT_EQ(view.find_last_not_of(Ref(set)), 3U);
    EXPECT_EQ(view.find_last_not_of(set.c_str()), 3U);
    EXPECT_EQ(view.find_last_not_of(b), 5U);
}

TYPED_TEST(StringRefSearch, RfindWithACountSearchesForward) {
    using Ref = basic_string_ref<TypeParam>;
    const auto text = textOf<TypeParam>("-ab-ab-");
    const auto needle = textOf<TypeParam>("abx");
    const Ref view = text;
    EXPECT_EQ(view.rfind(needle.c_str(), npos, 2), npos);
    EXPECT_EQ(view.rfind(needle.c_str(), 0, 2), 1U);
    EXPECT_EQ(view.rfind(needle.c_str(), 2, 2), 4U);
    EXPECT_EQ(view.rfind(needle.c_str(), 0, 3), npos);
    EXPECT_EQ(view.rfind(Ref(needle.c_str(), 2), npos), 4U) << "a view searches backward";
}

TYPED_TEST(StringRefSearch, AnEmptyNeedleMatchesWhereTheSearchBegins) {
    using Ref = basic_string_ref<TypeParam>;
    const auto text = textOf<TypeParam>("abc");
    const Ref view = text;
    EXPECT_EQ(Ref().find(Ref(), 0), 0U);
    EXPECT_EQ(Ref().find(Ref(), 1), npos);
    for (std::size_t pos = 0; pos <= 3; ++pos) {
        EXPECT_EQ(view.find(Ref(), pos), pos);
        EXPECT_EQ(view.rfind(Ref(), pos), pos);
    }
    EXPECT_EQ(view.find(Ref(), 4), npos);
    EXPECT_EQ(view.rfind(Ref(), npos), 3U);
    EXPECT_EQ(Ref().rfind(Ref()), 0U);
    EXPECT_EQ(view.find(nullptr, 2, 0), 2U);
}

TYPED_TEST(StringRefSearch, AStartBeyondTheEndIsAnOrdinaryMiss) {
    using Ref = basic_string_ref<TypeParam>;
    const auto text = textOf<TypeParam>("aaa");
    const Ref view = text;
    const Ref a = view.substr(0, 1);
    for (const std::size_t pos : {std::size_t{4}, std::size_t{100}, npos}) {
        EXPECT_EQ(view.find(a, pos), npos);
        EXPECT_EQ(view.find(Ref(), pos), npos);
        EXPECT_EQ(view.find(a.front(), pos), npos);
        EXPECT_EQ(view.find_first_of(a, pos), npos);
        EXPECT_EQ(view.find_first_not_of(Ref(), pos), npos);
        EXPECT_EQ(view.rfind(a, pos), 2U) << "a backward search begins at the last unit";
        EXPECT_EQ(view.find_last_of(a, pos), 2U);
        EXPECT_EQ(view.find_last_not_of(Ref(), pos), 2U);
    }
    EXPECT_EQ(view.find(a.front(), 3), npos);
}

TYPED_TEST(StringRefSearch, AnEmptyViewHoldsNothing) {
    using Ref = basic_string_ref<TypeParam>;
    const auto text = textOf<TypeParam>("a");
    const Ref a = text;
    EXPECT_EQ(Ref().find(a), npos);
    EXPECT_EQ(Ref().find(a.front()), npos);
    EXPECT_EQ(Ref().rfind(a), npos);
    EXPECT_EQ(Ref().rfind(a.front()), npos);
    EXPECT_EQ(Ref().find_first_of(a), npos);
    EXPECT_EQ(Ref().find_first_not_of(Ref()), npos);
    EXPECT_EQ(Ref().find_last_of(a), npos);
    EXPECT_EQ(Ref().find_last_not_of(Ref()), npos);
}

TYPED_TEST(StringRefSearch, AnEmptySetHoldsNoUnit) {
    using Ref = basic_string_ref<TypeParam>;
    const auto text = textOf<TypeParam>("abc");
    const Ref view = text;
    EXPECT_EQ(view.find_first_of(Ref(), 1), npos);
    EXPECT_EQ(view.find_first_not_of(Ref(), 1), 1U);
    EXPECT_EQ(view.find_last_of(Ref(), 1), npos);
    EXPECT_EQ(view.find_last_not_of(Ref(), 1), 1U);
    EXPECT_EQ(view.find_first_of(nullptr, 1, 0), npos);
    EXPECT_EQ(view.find_last_not_of(nullptr, 1, 0), 1U);
}

TYPED_TEST(StringRefSearch, ALastSearchFromZeroLooksAtTheFirstUnitOnly) {
    using Ref = basic_string_ref<TypeParam>;
    const auto text = textOf<TypeParam>("xab");
    const auto ab = textOf<TypeParam>("ab");
    EXPECT_EQ(Ref(text).find_last_of(Ref(ab), 0), npos);
    EXPECT_EQ(Ref(text).find_last_of(Ref(text), 0), 0U);
    EXPECT_EQ(Ref(text).find_last_not_of(Ref(ab), 0), 0U);
    EXPECT_EQ(Ref(text).rfind(ab[0], 0), npos);
    EXPECT_EQ(Ref(text).rfind(text[0], 0), 0U);
}

TYPED_TEST(StringRefSearch, ZeroUnitsAreUnitsLikeAnyOther) {
    using Ref = basic_string_ref<TypeParam>;
    const auto a = textOf<TypeParam>("a");
    const auto text = a + TypeParam() + a;
    EXPECT_EQ(Ref(text).find(TypeParam()), 1U);
    EXPECT_EQ(Ref(text).find(Ref(text).substr(1)), 1U);
    EXPECT_EQ(Ref(text).find(text.c_str() + 1, 0, 2), 1U);
    EXPECT_EQ(Ref(text).find_last_of(Ref(text).substr(1, 1)), 1U);
    EXPECT_EQ(Ref(text).find_first_not_of(a.c_str()), 1U);
}

TEST(StringRefSearchUtf16, ASurrogatePairIsTwoUnits) {
    const orv::ustring text = unitsOf({0xD83D, 0xDE00, 0xD83D, 0xDE01});
    const orv::ustring_ref view = text;
    EXPECT_EQ(view.find(u"\xDE01"_u), 3U) << "half a pair matches";
    EXPECT_EQ(view.find_first_of(u"\U0001F601"_u), 0U) << "the set holds the halves";
    EXPECT_EQ(view.find(u"\U0001F601"_u), 2U);
    EXPECT_EQ(view.rfind(char16(0xD83D)), 2U);
}

} // namespace
