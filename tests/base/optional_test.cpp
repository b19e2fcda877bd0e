// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Optional`: what makes one, what reads it, and its exception.
#include "orv/liborvxx/base/optional.h"

#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using namespace orv::literals;
using orv::BadOptionalAccess;
using orv::Optional;
using orv::ustring;
using orv::ustring_ref;

// What makes one, and what does not.
template <typename From, typename T>
constexpr bool makes = std::is_convertible_v<From, Optional<T>>;

static_assert(makes<ustring_ref, ustring_ref> && makes<const ustring&, ustring_ref> &&
              makes<const orv::char16*, ustring_ref> && makes<ustring_ref, ustring> &&
              makes<bool, bool> && makes<short, int> && makes<std::nullptr_t, int*>);
static_assert(!makes<std::nullptr_t, ustring_ref> && !makes<std::nullptr_t, ustring> &&
              !makes<std::nullptr_t, bool> && !std::is_constructible_v<Optional<bool>, int*> &&
              !std::is_constructible_v<Optional<bool>, const char (&)[4]> &&
              !std::is_constructible_v<Optional<bool>, const char*&>);
static_assert(!makes<int, ustring_ref> && !makes<const char16_t*, ustring_ref> &&
              !makes<const char*, ustring> && !makes<ustring_ref, bool>);
static_assert(makes<std::nullopt_t, bool> && makes<std::nullopt_t, ustring_ref>);
// One of another type is taken for no value.
static_assert(!makes<Optional<ustring>, ustring_ref> && !makes<Optional<int>, bool> &&
              !std::is_constructible_v<Optional<bool>, Optional<int>> &&
              !std::is_constructible_v<Optional<ustring_ref>, std::nullptr_t>);
static_assert(makes<std::optional<ustring>, ustring> &&
              std::is_convertible_v<Optional<ustring>, std::optional<ustring>>);

// Whether it has a value must not be taken for the value.
static_assert(!std::is_convertible_v<Optional<int>, bool> &&
              !std::is_constructible_v<int, Optional<int>> &&
              std::is_constructible_v<bool, Optional<int>> &&
              !std::is_constructible_v<bool, Optional<bool>>);

static_assert(std::is_trivially_copyable_v<Optional<bool>> &&
              std::is_trivially_copyable_v<Optional<ustring_ref>> &&
              std::is_trivially_destructible_v<Optional<ustring_ref>> &&
              sizeof(Optional<ustring_ref>) == sizeof(std::optional<ustring_ref>));
static_assert(std::is_nothrow_move_constructible_v<Optional<ustring>> &&
              std::is_nothrow_move_assignable_v<Optional<ustring>> &&
              std::is_nothrow_swappable_v<Optional<ustring>> &&
              std::is_nothrow_constructible_v<Optional<ustring>, ustring> &&
              std::is_nothrow_constructible_v<Optional<ustring>, std::optional<ustring>> &&
              !std::is_nothrow_constructible_v<Optional<ustring>, const ustring&>);
static_assert(!std::is_copy_constructible_v<Optional<std::unique_ptr<int>>> &&
              std::is_move_constructible_v<Optional<std::unique_ptr<int>>>);

static_assert(std::is_same_v<decltype(std::declval<Optional<ustring>>().value()), ustring&&> &&
              std::is_same_v<decltype(*std::declval<Optional<ustring>>()), ustring&&> &&
              std::is_same_v<decltype(*std::declval<Optional<ustring>&>()), ustring&> &&
              std::is_same_v<decltype(*std::declval<const Optional<ustring>&>()), const ustring&>);

// All at compile time too.
constexpr int sumOfParts() {
    Optional<int> a;
    Optional<int> b = 2;
    swap(a, b);
    b.emplace(40);
    const int sum = *a + b.value() + Optional<int>().valueOr(100) + (b ? 1000 : 0);
    b.reset();
    return b.hasValue() || !a.hasValue() || a == b ? 0 : sum;
}
static_assert(sumOfParts() == 1142);
static_assert(Optional<int>(3) == 3 && Optional<int>() != 0 && Optional<int>() == std::nullopt);

static_assert(std::is_base_of_v<std::exception, BadOptionalAccess> &&
              !std::is_base_of_v<std::bad_optional_access, BadOptionalAccess> &&
              std::is_nothrow_default_constructible_v<BadOptionalAccess> &&
              std::is_nothrow_copy_constructible_v<BadOptionalAccess> &&
              std::is_nothrow_copy_assignable_v<BadOptionalAccess>);

TEST(BadOptionalAccessTest, SaysWhatItIs) {
    EXPECT_STREQ(BadOptionalAccess().what(), "bad optional access");
    const BadOptionalAccess original;
    BadOptionalAccess copy = original;
    copy = original;
    EXPECT_STREQ(copy.what(), "bad optional access");
}

template <typename Call>
std::string badAccess(Call call) {
    return orvtest::thrownMessage<BadOptionalAccess>(call);
}

TEST(OptionalTest, EveryAccessorThrowsWhereThereIsNoValue) {
    Optional<ustring> none;
    const Optional<ustring>& constNone = none;
    const std::string message = "bad optional access";
    EXPECT_EQ(badAccess([&] { static_cast<void>(none.value()); }), message);
    EXPECT_EQ(badAccess([&] { static_cast<void>(constNone.value()); }), message);
    EXPECT_EQ(badAccess([&] { static_cast<void>(std::move(none).value()); }), message);
    EXPECT_EQ(badAccess([&] { static_cast<void>(*none); }), message);
    EXPECT_EQ(badAccess([&] { static_cast<void>(*constNone); }), message);
    EXPECT_EQ(badAccess([&] { static_cast<void>(*std::move(none)); }), message);
    EXPECT_EQ(badAccess([&] { static_cast<void>(none->size()); }), message);
    EXPECT_EQ(badAccess([&] { static_cast<void>(constNone->size()); }), message);
    EXPECT_FALSE(none.hasValue());
}

TEST(OptionalTest, HoldsAValueOrNone) {
    Optional<ustring> text;
    EXPECT_FALSE(text.hasValue());
    EXPECT_FALSE(static_cast<bool>(text));
    text = u"one"_u;
    EXPECT_TRUE(text.hasValue());
    EXPECT_TRUE(static_cast<bool>(text));
    EXPECT_EQ(text.value(), u"one"_u);
    EXPECT_EQ(text->size(), 3U);
    text->push_back(u'!');
    EXPECT_EQ(*text, u"one!"_u);
    EXPECT_EQ(text.emplace(2, u'x'), u"xx"_u);
    EXPECT_EQ(*text, u"xx"_u);
    text.reset();
    EXPECT_FALSE(text.hasValue());
    text = ustring(u"two"_u);
    text = std::nullopt;
    EXPECT_FALSE(text.hasValue());
    text = ustring(u"two"_u);
    text = {};
    EXPECT_FALSE(text.hasValue());
}

TEST(OptionalTest, AnEmptyTextAndAFalseAreValues) {
    EXPECT_TRUE(Optional<ustring_ref>(u""_u).hasValue());
    EXPECT_TRUE(Optional<ustring_ref>(ustring_ref()).hasValue());
    EXPECT_TRUE(Optional<bool>(false).hasValue());
    EXPECT_FALSE(Optional<bool>(false).value());
    EXPECT_NE(Optional<bool>(false), Optional<bool>());
    EXPECT_NE(Optional<ustring_ref>(ustring_ref()), Optional<ustring_ref>());
}

TEST(OptionalTest, CopiesAndMovesAsItsValue) {
    const ustring longText(100, u'x');
    Optional<ustring> original = longText;
    const Optional<ustring> copy = original;
    EXPECT_EQ(*copy, longText);
    EXPECT_EQ(*original, longText);
    const orv::char16* const units = original->data();
    Optional<ustring> moved = std::move(original);
    EXPECT_EQ(moved->data(), units);
    const ustring taken = std::move(moved).value();
    EXPECT_EQ(taken.data(), units);
    Optional<ustring> fallback;
    EXPECT_EQ(fallback.valueOr(u"or"_u), u"or"_u);
    EXPECT_EQ(copy.valueOr(u"or"_u), longText);
    fallback = longText;
    const orv::char16* const kept = fallback->data();
    EXPECT_EQ(std::move(fallback).valueOr(u"or"_u).data(), kept);
}

TEST(OptionalTest, AssignmentToItselfKeepsTheValue) {
    Optional<ustring> text = ustring(100, u'x');
    Optional<ustring>& same = text;
    text = same;
    EXPECT_EQ(*text, ustring(100, u'x'));
    text = *same;
    EXPECT_EQ(*text, ustring(100, u'x'));
    swap(text, same);
    EXPECT_EQ(*text, ustring(100, u'x'));
}

TEST(OptionalTest, ConvertsFromAndToTheStandardForm) {
    Optional<ustring> text = std::optional<ustring>(u"a"_u);
    EXPECT_EQ(*text, u"a"_u);
    const std::optional<ustring>& same = text;
    EXPECT_EQ(&*same, &*text) << "no copy";
    EXPECT_FALSE(Optional<ustring>(std::optional<ustring>()).hasValue());
    EXPECT_FALSE(std::optional<ustring>(Optional<ustring>()).has_value());
}

TEST(OptionalTest, AFalseStaysFalseInTheStandardForm) {
    const Optional<bool> no = false;
    const std::optional<bool> copied = no;
    const std::optional<bool> constructed(no);
    EXPECT_EQ(copied, std::optional<bool>(false));
    EXPECT_EQ(constructed, std::optional<bool>(false));
    EXPECT_FALSE(std::optional<bool>(Optional<bool>()).has_value());
}

TEST(OptionalTest, ComparesWithValuesWithNoneAndWithTheStandardForm) {
    const Optional<int> none;
    const Optional<int> three = 3;
    EXPECT_TRUE(three == 3 && 3 == three && three != 4 && 4 != three);
    EXPECT_TRUE(none != 3 && 3 != none && none != 0);
    EXPECT_TRUE(none == std::nullopt && std::nullopt == none && three != std::nullopt);
    EXPECT_TRUE(three == std::optional<int>(3) && std::optional<int>(3) == three);
    EXPECT_TRUE(none == std::optional<int>() && std::optional<int>() == none);
    EXPECT_TRUE(none != std::optional<int>(3) && std::optional<int>() != three);
    EXPECT_TRUE(none == Optional<int>() && none != three);
}

} // namespace
