// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `basic_string_ref`: construction, access, extraction and conversion, for every character
/// type.
#include "orv/liborvxx/text/string_ref.h"

#include "tests/support/thrown_message.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <limits>
#include <ranges>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace {

using orv::basic_string_ref;
using orv::char16;
using orv::string_ref;
using orv::ustring_ref;
using orv::wstring_ref;
using orvtest::textOf;
using orvtest::thrownMessage;

static_assert(std::is_same_v<string_ref, basic_string_ref<char>>);
static_assert(std::is_same_v<ustring_ref, basic_string_ref<char16>>);
static_assert(std::is_same_v<orv::u16string_ref, basic_string_ref<char16_t>>);
static_assert(std::is_same_v<wstring_ref, basic_string_ref<wchar_t>>);

template <typename Ref>
constexpr bool
    isAViewOfTwoWords = sizeof(Ref) == 2 * sizeof(void*) &&
                        std::is_trivially_copyable_v<Ref>&& std::is_standard_layout_v<
                            Ref>&& std::ranges::view<Ref>&& std::ranges::borrowed_range<Ref>&& std::
                            ranges::contiguous_range<Ref>&& std::ranges::sized_range<Ref>;

// Views of different character types have nothing to do with one another.
static_assert(!std::is_convertible_v<string_ref, ustring_ref> &&
              !std::is_convertible_v<ustring_ref, orv::u16string_ref> &&
              !std::is_convertible_v<std::u16string, ustring_ref> &&
              !std::is_convertible_v<const char*, wstring_ref> &&
              !std::is_convertible_v<std::string, ustring_ref>);
static_assert(!std::is_constructible_v<string_ref, int>);

// Views serve at compile time, as far as they do not reach into the library.
static_assert([] {
    string_ref view = "text";
    view.remove_prefix(1);
    view.remove_suffix(1);
    string_ref other;
    view.swap(other);
    swap(view, other);
    return view.size() == 2 && view.front() == 'e' && view.back() == 'x' && view[1] == 'x' &&
           other.empty() && other.data() == nullptr && *view.rbegin() == 'x' &&
           std::string_view(view) == "ex";
}());

// What converts in both directions does so implicitly.
template <typename CharT, typename Ref = basic_string_ref<CharT>>
constexpr bool meetsItsStandardKin =
    std::is_convertible_v<std::basic_string<CharT>, Ref>&& std::is_convertible_v<
        std::basic_string_view<CharT>, Ref>&& std::is_convertible_v<const CharT*, Ref>&&
        std::is_convertible_v<CharT*, Ref>&& std::is_convertible_v<Ref, std::basic_string<CharT>>&&
            std::is_convertible_v<Ref, std::basic_string_view<CharT>>;

template <typename CharT>
class StringRef : public testing::Test {
    static_assert(isAViewOfTwoWords<basic_string_ref<CharT>> && meetsItsStandardKin<CharT>);
    static_assert(std::is_same_v<typename basic_string_ref<CharT>::reverse_iterator,
                                 std::reverse_iterator<const CharT*>>);
    static_assert(basic_string_ref<CharT>::npos == std::numeric_limits<std::size_t>::max());
};

using CharacterTypes = testing::Types<char, char16, char16_t, wchar_t>;
TYPED_TEST_SUITE(StringRef, CharacterTypes);

TYPED_TEST(StringRef, ADefaultViewIsNullAndEmpty) {
    using Ref = basic_string_ref<TypeParam>;
    const Ref view;
    EXPECT_EQ(view.data(), nullptr);
    EXPECT_EQ(view.size(), 0U);
    EXPECT_TRUE(view.empty());
    EXPECT_EQ(view.begin(), view.end());
    EXPECT_TRUE(view.to_string().empty());
}

TYPED_TEST(StringRef, KeepsThePointerFirstAndTheLengthSecond) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    struct {
        const TypeParam* pointer;
        std::size_t length;
    } words;
    static_assert(sizeof words == sizeof view);
    std::memcpy(&words, &view, sizeof words);
    EXPECT_EQ(words.pointer, abc.data());
    EXPECT_EQ(words.length, 3U);
}

TYPED_TEST(StringRef, EachConstructorViewsTheStorageOfItsArgument) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    using View = std::basic_string_view<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const String withZero = abc + TypeParam() + abc;
    EXPECT_EQ(Ref(withZero).data(), withZero.data());
    EXPECT_EQ(Ref(withZero).size(), 7U);
    EXPECT_EQ(Ref(withZero.c_str()).data(), withZero.data());
    EXPECT_EQ(Ref(withZero.c_str()).size(), 3U) << "up to the first 0";
    EXPECT_EQ(Ref(withZero.data(), 5).size(), 5U);
    EXPECT_EQ(Ref(View(withZero)).size(), 7U);
    EXPECT_EQ(Ref(View(withZero)).data(), withZero.data());
    const Ref copy = Ref(withZero);
    Ref assigned;
    assigned = copy;
    EXPECT_EQ(assigned.data(), withZero.data());
    EXPECT_EQ(assigned.size(), 7U);
    EXPECT_EQ(Ref(nullptr, 0).size(), 0U);
    const TypeParam end[] = {TypeParam()};
    EXPECT_EQ(Ref(end).size(), 0U);
    EXPECT_EQ(Ref(end).data(), end);
}

TYPED_TEST(StringRef, ConvertsImplicitlyInEveryPlace) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    using View = std::basic_string_view<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const auto viewed = [](Ref view) { return view.size(); };
    EXPECT_EQ(viewed(abc), 3U);
    EXPECT_EQ(viewed(abc.c_str()), 3U);
    EXPECT_EQ(viewed(View(abc)), 3U);
    EXPECT_EQ(viewed({abc.data(), 2}), 2U);
    const auto owned = [](const String& string) { return string; };
    EXPECT_EQ(owned(Ref(abc)), abc);
    const auto standard = [](View view) { return view; };
    EXPECT_EQ(standard(Ref(abc)).data(), abc.data());
    String target = Ref(abc);
    target = Ref(abc);
    target += Ref(abc);
    EXPECT_EQ(target, String(Ref(textOf<TypeParam>("abcabc"))));
    const View view = Ref(abc);
    EXPECT_EQ(view, View(abc));
}

TYPED_TEST(StringRef, AccessReachesEveryUnit) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(&view[i], abc.data() + i);
        EXPECT_EQ(&view.at(i), abc.data() + i);
    }
    EXPECT_EQ(&view.front(), abc.data());
    EXPECT_EQ(&view.back(), abc.data() + 2);
    EXPECT_EQ(view.length(), 3U);
    EXPECT_FALSE(view.empty());
}

TYPED_TEST(StringRef, AtBeyondTheEndThrows) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    for (const std::size_t i : {std::size_t{3}, std::size_t{4}, Ref::npos}) {
        EXPECT_EQ(thrownMessage<std::out_of_range>([&] { (void)Ref(abc).at(i); }),
                  "basic_string_ref<CharT>::at");
    }
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { (void)Ref().at(0); }),
              "basic_string_ref<CharT>::at");
}

TYPED_TEST(StringRef, IteratesForwardAndBackward) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    EXPECT_EQ(view.begin(), abc.data());
    EXPECT_EQ(view.cbegin(), view.begin());
    EXPECT_EQ(view.end(), abc.data() + 3);
    EXPECT_EQ(view.cend(), view.end());
    EXPECT_EQ(String(view.begin(), view.end()), abc);
    EXPECT_EQ(String(view.rbegin(), view.rend()), textOf<TypeParam>("cba"));
    EXPECT_EQ(String(view.crbegin(), view.crend()), textOf<TypeParam>("cba"));
    EXPECT_EQ(view.rbegin().base(), view.end());
}

TYPED_TEST(StringRef, MaxSizeIsTheLargestNumberForEveryUnit) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    EXPECT_EQ(Ref().max_size(), std::numeric_limits<std::size_t>::max());
    EXPECT_EQ(Ref(abc).max_size(), string_ref().max_size());
}

TYPED_TEST(StringRef, RemovesUnitsAtEitherEnd) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    Ref view = abc;
    view.remove_prefix(1);
    EXPECT_EQ(view.to_string(), textOf<TypeParam>("bc"));
    EXPECT_EQ(view.data(), abc.data() + 1);
    view.remove_suffix(1);
    EXPECT_EQ(view.to_string(), textOf<TypeParam>("b"));
    view.remove_prefix(0);
    view.remove_suffix(1);
    EXPECT_TRUE(view.empty());
    EXPECT_EQ(view.data(), abc.data() + 1);
    view = abc;
    view.remove_prefix(3);
    EXPECT_EQ(view.begin(), abc.data() + 3);
}

TYPED_TEST(StringRef, SwapExchangesBothFields) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    Ref a = abc;
    Ref b;
    a.swap(b);
    EXPECT_EQ(a.data(), nullptr);
    EXPECT_EQ(a.size(), 0U);
    EXPECT_EQ(b.data(), abc.data());
    EXPECT_EQ(b.size(), 3U);
    swap(a, b);
    EXPECT_EQ(a.data(), abc.data());
    std::ranges::swap(a, b);
    EXPECT_EQ(b.data(), abc.data());
}

TYPED_TEST(StringRef, AStringMadeOfAViewOwnsAllUnits) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const String source = abc + TypeParam() + abc;
    const String copy = Ref(source).to_string();
    EXPECT_EQ(copy, source);
    EXPECT_NE(copy.data(), source.data());
    EXPECT_EQ(static_cast<String>(Ref(source)), source);
}

TYPED_TEST(StringRef, SubstrIsClampedAtTheEnd) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    const auto check = [&](Ref part, std::size_t pos, std::size_t size) {
        EXPECT_EQ(part.data(), abc.data() + pos);
        EXPECT_EQ(part.size(), size);
    };
    check(view.substr(), 0, 3);
    check(view.substr(1), 1, 2);
    check(view.substr(1, 1), 1, 1);
    check(view.substr(1, 0), 1, 0);
    check(view.substr(2, 5), 2, 1);
    check(view.substr(2, Ref::npos), 2, 1);
    check(view.substr(3), 3, 0);
    EXPECT_EQ(Ref().substr(0).data(), nullptr);
}

TYPED_TEST(StringRef, SubstrFromBeyondTheEndThrows) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    for (const std::size_t pos : {std::size_t{4}, Ref::npos}) {
        EXPECT_EQ(thrownMessage<std::out_of_range>([&] { (void)Ref(abc).substr(pos, 0); }),
                  "basic_string_ref<CharT>::substr");
    }
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { (void)Ref().substr(1); }),
              "basic_string_ref<CharT>::substr");
}

TYPED_TEST(StringRef, CopyWritesWhatThereIsAndCountsIt) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const auto copied = [&](std::size_t n, std::size_t pos) {
        String target = textOf<TypeParam>("----");
        const std::size_t count = Ref(abc).copy(target.data(), n, pos);
        return std::pair(target, count);
    };
    EXPECT_EQ(copied(3, 0), std::pair(textOf<TypeParam>("abc-"), std::size_t{3}));
    EXPECT_EQ(copied(2, 1), std::pair(textOf<TypeParam>("bc--"), std::size_t{2}));
    EXPECT_EQ(copied(9, 2), std::pair(textOf<TypeParam>("c---"), std::size_t{1}));
    EXPECT_EQ(copied(Ref::npos, 0), std::pair(textOf<TypeParam>("abc-"), std::size_t{3}));
    EXPECT_EQ(copied(5, 3), std::pair(textOf<TypeParam>("----"), std::size_t{0}));
    EXPECT_EQ(copied(0, 0), std::pair(textOf<TypeParam>("----"), std::size_t{0}));
    EXPECT_EQ(Ref(abc).copy(nullptr, 0), 0U);
    EXPECT_EQ(Ref().copy(nullptr, 5), 0U);
}

TYPED_TEST(StringRef, CopyAllowsOverlap) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    String text = textOf<TypeParam>("0123456789");
    EXPECT_EQ(Ref(text.data(), 8).copy(text.data() + 2, 8), 8U);
    EXPECT_EQ(text, textOf<TypeParam>("0101234567"));
    EXPECT_EQ(Ref(text).copy(text.data(), 8, 2), 8U);
    EXPECT_EQ(text, textOf<TypeParam>("0123456767"));
}

TYPED_TEST(StringRef, CopyFromBeyondTheEndThrows) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    String target = abc;
    for (const std::size_t pos : {std::size_t{4}, Ref::npos}) {
        EXPECT_EQ(thrownMessage<std::out_of_range>([&] { Ref(abc).copy(target.data(), 0, pos); }),
                  "basic_string_ref<CharT>::copy");
    }
    EXPECT_EQ(target, abc);
}

TYPED_TEST(StringRef, AlgorithmsWork) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    EXPECT_TRUE(std::equal(view.begin(), view.end(), abc.begin(), abc.end()));
    EXPECT_EQ(std::find(view.begin(), view.end(), abc[1]), abc.data() + 1);
}

#if defined(__cpp_lib_ranges)
TYPED_TEST(StringRef, RangesWork) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    EXPECT_TRUE(std::ranges::equal(view, abc));
    EXPECT_EQ(std::ranges::distance(view), 3);
    String reversed;
    std::ranges::reverse_copy(view, std::back_inserter(reversed));
    EXPECT_EQ(reversed, textOf<TypeParam>("cba"));
    // The iterators of a temporary view stay good: the view is not the owner.
    const auto* const found = std::ranges::find(Ref(abc), abc[1]);
    EXPECT_EQ(found, abc.data() + 1);
}
#endif

TYPED_TEST(StringRef, HashesAsTheStringWithTheSameUnits) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    EXPECT_EQ(std::hash<Ref>()(abc), std::hash<String>()(abc));
    EXPECT_EQ(std::hash<Ref>()(Ref()), std::hash<String>()(String()));
    const String other = textOf<TypeParam>("xabc");
    EXPECT_EQ(std::hash<Ref>()(Ref(other).substr(1)), std::hash<Ref>()(abc));
    EXPECT_NE(std::hash<Ref>()(Ref(other)), std::hash<Ref>()(abc));
}

#ifndef NDEBUG
TYPED_TEST(StringRef, UncheckedMembersAreAssertedInDebugBuilds) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    EXPECT_DEATH((void)Ref(abc)[3], "");
    EXPECT_DEATH((void)Ref().front(), "");
    EXPECT_DEATH((void)Ref().back(), "");
    EXPECT_DEATH(Ref(abc).remove_prefix(4), "");
    EXPECT_DEATH(Ref(abc).remove_suffix(4), "");
}
#endif

} // namespace
