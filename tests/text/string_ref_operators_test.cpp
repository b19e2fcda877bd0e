// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison operators between views and whatever converts to one, in both orders.
#include "orv/liborvxx/text/string_ref.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <compare>
#include <string>
#include <string_view>

namespace {

using namespace orv::literals;
using orv::basic_string_ref;
using orv::char16;
using orv::ustring_ref;
using orvtest::textOf;
using orvtest::unitsOf;

template <typename A, typename B>
concept Comparable = requires(const A& a, const B& b) {
    a == b;
    a != b;
    a < b;
    a <= b;
    a > b;
    a >= b;
    a <=> b;
};
template <typename A, typename B>
concept Equatable = requires(const A& a, const B& b) {
    a == b;
};

// Texts over different units do not compare.
static_assert(!Equatable<orv::string_ref, ustring_ref> &&
              !Equatable<ustring_ref, orv::u16string_ref> &&
              !Equatable<ustring_ref, std::u16string> && !Equatable<orv::string_ref, int> &&
              !Equatable<orv::wstring_ref, const char*>);

// All seven operators compile, whichever operand is the view.
template <typename CharT, typename T, typename Ref = basic_string_ref<CharT>>
constexpr bool bothOrders = Comparable<Ref, T>&& Comparable<T, Ref>;

template <typename CharT>
class StringRefOperators : public testing::Test {
    static_assert(bothOrders<CharT, basic_string_ref<CharT>> &&
                  bothOrders<CharT, std::basic_string<CharT>> &&
                  bothOrders<CharT, std::basic_string_view<CharT>> &&
                  bothOrders<CharT, const CharT*> && bothOrders<CharT, CharT*> &&
                  bothOrders<CharT, CharT[4]>);
    static_assert(std::totally_ordered<basic_string_ref<CharT>> &&
                  std::three_way_comparable<basic_string_ref<CharT>, std::strong_ordering>);
};

// All seven operators tell this order.
template <typename A, typename B>
void expectOrder(const A& a, const B& b, std::strong_ordering order) {
    EXPECT_EQ(a <=> b, order);
    EXPECT_EQ(a == b, order == 0);
    EXPECT_EQ(a != b, order != 0);
    EXPECT_EQ(a < b, order < 0);
    EXPECT_EQ(a <= b, order <= 0);
    EXPECT_EQ(a > b, order > 0);
    EXPECT_EQ(a >= b, order >= 0);
}

using CharacterTypes = testing::Types<char, char16, char16_t, wchar_t>;
TYPED_TEST_SUITE(StringRefOperators, CharacterTypes);

TYPED_TEST(StringRefOperators, AgreeWithTheOrderOfTheTextsWhateverHoldsThem) {
    using Ref = basic_string_ref<TypeParam>;
    using View = std::basic_string_view<TypeParam>;
    static constexpr std::string_view TEXTS[] = {"", "a", "ab", "abc", "abd", "b", "\x7F"};
    for (const std::string_view left : TEXTS) {
        for (const std::string_view right : TEXTS) {
            SCOPED_TRACE(std::string(left) + " and " + std::string(right));
            const auto a = textOf<TypeParam>(left);
            const auto b = textOf<TypeParam>(right);
            const std::strong_ordering order = left.compare(right) <=> 0;
            expectOrder(Ref(a), Ref(b), order);
            expectOrder(Ref(a), b, order);
            expectOrder(a, Ref(b), order);
            expectOrder(Ref(a), View(b), order);
            expectOrder(View(a), Ref(b), order);
            expectOrder(Ref(a), b.c_str(), order);
            expectOrder(a.c_str(), Ref(b), order);
        }
    }
}

TYPED_TEST(StringRefOperators, TakeAnArrayForTheTextBeforeItsFirstZero) {
    using Ref = basic_string_ref<TypeParam>;
    const auto c = textOf<TypeParam>("abz");
    const TypeParam array[4] = {c[0], c[1], TypeParam(), c[2]};
    const auto ab = textOf<TypeParam>("ab");
    EXPECT_TRUE(Ref(ab) == array);
    EXPECT_TRUE(array == Ref(ab));
    EXPECT_TRUE(Ref(c) > array);
}

TYPED_TEST(StringRefOperators, CompareZeroUnitsInsideLikeAnyOther) {
    using Ref = basic_string_ref<TypeParam>;
    const auto a = textOf<TypeParam>("a") + TypeParam() + textOf<TypeParam>("a");
    const auto b = textOf<TypeParam>("a") + TypeParam() + textOf<TypeParam>("b");
    expectOrder(Ref(a), Ref(b), std::strong_ordering::less);
    expectOrder(Ref(a), b, std::strong_ordering::less);
    expectOrder(Ref(a), a, std::strong_ordering::equal);
    expectOrder(Ref(a), a.c_str(), std::strong_ordering::greater);
}

TYPED_TEST(StringRefOperators, ANullViewEqualsAnEmptyText) {
    using Ref = basic_string_ref<TypeParam>;
    const std::basic_string<TypeParam> empty;
    expectOrder(Ref(), Ref(empty), std::strong_ordering::equal);
    expectOrder(Ref(), empty, std::strong_ordering::equal);
    expectOrder(empty.c_str(), Ref(), std::strong_ordering::equal);
}

TEST(StringRefOperatorsOnUnits, FollowTheUnsignedOrderOfTheUnits) {
    EXPECT_LT(orv::string_ref("a"), "\x80");
    EXPECT_LT(u"\x7FFF"_u, u"\x8000"_u);
    EXPECT_LT(unitsOf({0xD800, 0xDC00}), u"\uFFFD"_u) << "units, not code points";
}

} // namespace
