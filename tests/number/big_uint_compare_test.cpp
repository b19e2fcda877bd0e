// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: comparison.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"

#include <gtest/gtest.h>

#include <compare>

namespace {

using orv::big_uint;
using orvtest::numberOf;

// All ways of asking, both ways round.
void expectLess(const big_uint& a, const big_uint& b) {
    EXPECT_EQ(a.compare(b), -1);
    EXPECT_EQ(b.compare(a), 1);
    EXPECT_FALSE(a.equals(b) || b.equals(a) || a == b || b == a);
    EXPECT_TRUE(a != b && b != a);
    EXPECT_TRUE(a < b && a <= b && b > a && b >= a);
    EXPECT_FALSE(b < a || b <= a || a > b || a >= b);
    EXPECT_TRUE((a <=> b) == std::weak_ordering::less);
    EXPECT_TRUE((b <=> a) == std::weak_ordering::greater);
}

void expectEqual(const big_uint& a, const big_uint& b) {
    EXPECT_EQ(a.compare(b), 0);
    EXPECT_EQ(b.compare(a), 0);
    EXPECT_TRUE(a.equals(b) && b.equals(a) && a == b && b == a);
    EXPECT_FALSE(a != b || b != a || a < b || b < a || a > b || b > a);
    EXPECT_TRUE(a <= b && b <= a && a >= b && b >= a);
    EXPECT_TRUE((a <=> b) == std::weak_ordering::equivalent);
}

TEST(BigUintCompare, IgnoresZeroWordsAtTheTop) {
    expectEqual(big_uint(5U), {5, 0, 0});
    expectEqual({0, 0, 0}, big_uint());
    expectEqual({1, 2, 3, 0, 0, 0, 0, 0, 0, 0}, {1, 2, 3});
}

TEST(BigUintCompare, FindsTheLongerNumberGreater) {
    expectLess({9, 9}, {1, 1, 1});
    expectLess({0xFFFFFFFF}, {0, 1});
    expectLess({0xFFFFFFFF}, {0, 0, 1, 0});
    expectLess({0xFFFFFFFF}, {0, 0, 0, 1});
}

TEST(BigUintCompare, DecidesByTheTopmostDifference) {
    expectLess({9, 9, 1}, {1, 1, 2});
    expectLess({9, 1, 2}, {1, 2, 2});
    expectLess({1, 2, 2}, {2, 2, 2});
    expectLess({0x7FFFFFFF}, {0x80000000});
    expectLess({0, 0x7FFFFFFF}, {0, 0x80000000});
}

TEST(BigUintCompare, SeesADifferenceInAnyWord) {
    for (unsigned size = 1; size <= 20; ++size) {
        const big_uint a = numberOf(size, [](unsigned i) { return i * 77 + 5; });
        expectEqual(a, big_uint(a));
        for (unsigned i = 0; i < size; ++i) {
            big_uint b = a;
            ++b[i];
            expectLess(a, b);
            b.prepend(0);
            expectLess(a, b);
        }
    }
}

TEST(BigUintCompare, SeesAnyWordAboveTheShorterNumber) {
    for (unsigned size = 2; size <= 20; ++size) {
        for (unsigned i = 1; i < size; ++i) {
            big_uint b;
            b.set_size(size);
            b[i] = 1;
            expectLess(big_uint(0xFFFFFFFFU), b);
        }
    }
}

TEST(BigUintCompareWithWord, LooksAtTheWordsAbove) {
    const big_uint n{3, 1};
    EXPECT_TRUE(n.is_greater(7));
    EXPECT_TRUE(n.is_greater_equal(7));
    EXPECT_FALSE(n.is_less(7));
    EXPECT_FALSE(n.is_less_equal(7));
    EXPECT_FALSE(n.is_equal(3));
    EXPECT_TRUE(n.is_not_equal(3));
    EXPECT_TRUE((big_uint{3, 0, 0, 1}.is_greater(7)));
}

TEST(BigUintCompareWithWord, ComparesOneWord) {
    for (const big_uint& n : {big_uint(7U), big_uint{7, 0}, big_uint{7, 0, 0, 0}}) {
        EXPECT_TRUE(n.is_equal(7) && n.is_less_equal(7) && n.is_greater_equal(7));
        EXPECT_FALSE(n.is_not_equal(7) || n.is_less(7) || n.is_greater(7));
        EXPECT_TRUE(n.is_less(8) && n.is_less_equal(8) && n.is_not_equal(8));
        EXPECT_FALSE(n.is_equal(8) || n.is_greater(8) || n.is_greater_equal(8));
        EXPECT_TRUE(n.is_greater(6) && n.is_greater_equal(6) && n.is_not_equal(6));
        EXPECT_FALSE(n.is_equal(6) || n.is_less(6) || n.is_less_equal(6));
    }
}

TEST(BigUintCompareWithWord, ComparesWithZero) {
    EXPECT_TRUE((big_uint{0, 0}.is_equal(0)));
    EXPECT_FALSE((big_uint{0, 0}.is_less(0)));
    EXPECT_TRUE((big_uint{0, 1}.is_greater(0)));
    EXPECT_FALSE((big_uint{0, 1}.is_equal(0)));
}

#ifndef NDEBUG
TEST(BigUintCompareDeathTest, AssertsThatThereAreWords) {
    const big_uint none(std::initializer_list<unsigned>{});
    EXPECT_DEATH(static_cast<void>(none == big_uint()), "");
    EXPECT_DEATH(static_cast<void>(big_uint().compare(none)), "");
    EXPECT_DEATH(static_cast<void>(none.is_equal(0)), "");
}
#endif

} // namespace
