// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: division.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"
#include "tests/support/thrown_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using orv::big_uint;
using orvtest::numberOf;
using orvtest::thrownMessage;
using orvtest::wordsOf;
using testing::ElementsAre;

constexpr unsigned ONES = 0xFFFFFFFFU;

// A number of the given width, full of what must not show in any result.
big_uint filled(unsigned size) {
    return numberOf(size, [](unsigned) { return 0xDEADBEEFU; });
}

template <class Call>
std::string overflowMessage(Call call) {
    return thrownMessage<std::overflow_error>(call);
}

TEST(BigUintDivideByWord, ReturnsTheRemainder) {
    big_uint n({7, 0, 5});
    EXPECT_EQ(n.divide(2), 1U);
    EXPECT_THAT(wordsOf(n), ElementsAre(3U, 0x80000000U, 2U));
    EXPECT_EQ(n.divide(ONES), 0x80000005U);
    EXPECT_THAT(wordsOf(n), ElementsAre(0x80000002U, 2U, 0U));
}

TEST(BigUintDivideByWord, DividesByOne) {
    for (unsigned size = 1; size <= 12; ++size) {
        big_uint n = orvtest::counting(size, 0xFFFFFFF0U);
        const big_uint before = n;
        EXPECT_EQ(n.divide(1), 0U);
        EXPECT_EQ(wordsOf(n), wordsOf(before));
    }
}

// (W^n - 1) / (W - 1) = 1 + W + W^2 + ...
TEST(BigUintDivideByWord, DividesAllOnes) {
    for (unsigned size = 1; size <= 12; ++size) {
        big_uint n = numberOf(size, [](unsigned) { return ONES; });
        EXPECT_EQ(n.divide(ONES), 0U);
        EXPECT_EQ(wordsOf(n), wordsOf(numberOf(size, [](unsigned) { return 1U; })));
    }
}

TEST(BigUintDivideByWord, RefusesZeroAndChangesNothing) {
    big_uint n({7, 0, 5});
    EXPECT_EQ(overflowMessage([&] { n.divide(0U); }), "divide by zero");
    EXPECT_THAT(wordsOf(n), ElementsAre(7U, 0U, 5U));
}

TEST(BigUintDivideByTen, ReturnsTheLastDigit) {
    big_uint n({0, 1}); // 4294967296
    EXPECT_EQ(n.divide_by_10(), 6U);
    EXPECT_THAT(wordsOf(n), ElementsAre(429496729U, 0U));
    EXPECT_EQ(n.divide_by_10(), 9U);
}

TEST(BigUintDivideByTen, GivesZeroForNoWords) {
    big_uint none({});
    EXPECT_EQ(none.divide_by_10(), 0U);
    EXPECT_EQ(none.size(), 0U);
}

TEST(BigUintDivideByTen, UndoesMultiplication) {
    for (unsigned size = 1; size <= 20; ++size) {
        big_uint n = orvtest::counting(size, 0xFFFFFFFAU);
        const big_uint before = n;
        n.prepend(0);
        n.multiply_by_10();
        n.add(9);
        EXPECT_EQ(n.divide_by_10(), 9U);
        EXPECT_EQ(n, before);
    }
}

TEST(BigUintDivide, GivesQuotientAndRemainder) {
    big_uint q = filled(3);
    big_uint r = filled(3);
    q.divide({5, 0, 7}, {2, 1}, r); // 7 W^2 + 5 = (7 W - 14) * (W + 2) + 33
    EXPECT_THAT(wordsOf(q), ElementsAre(0xFFFFFFF2U, 6U, 0U));
    EXPECT_THAT(wordsOf(r), ElementsAre(33U, 0U, 0U));
    big_uint alone = filled(2);
    alone.divide({5, 0, 7}, {2, 1});
    EXPECT_THAT(wordsOf(alone), ElementsAre(0xFFFFFFF2U, 6U));
}

TEST(BigUintDivide, AddsTheDivisorBack) {
    big_uint q = filled(1);
    big_uint r = filled(3);
    q.divide({0, 0, 0x80000000U}, {1, 0, 0x80000000U}, r);
    EXPECT_THAT(wordsOf(q), ElementsAre(0U));
    EXPECT_THAT(wordsOf(r), ElementsAre(0U, 0U, 0x80000000U));
    // The same with limbs and a quotient digit: 2^191 = (2^64 - 1) * (2^127 + 1) + 2^127 - 2^64 + 1
    big_uint q2 = filled(3);
    big_uint r2 = filled(4);
    q2.divide({0, 0, 0, 0, 0, 0x80000000U}, {1, 0, 0, 0x80000000U}, r2);
    EXPECT_THAT(wordsOf(q2), ElementsAre(ONES, ONES, 0U));
    EXPECT_THAT(wordsOf(r2), ElementsAre(1U, 0U, ONES, 0x7FFFFFFFU));
}

TEST(BigUintDivide, LeavesALongerDivisorsDividendAsRemainder) {
    big_uint q = filled(3);
    big_uint r = filled(4);
    q.divide({5, 6}, {0, 0, 1}, r);
    EXPECT_THAT(wordsOf(q), ElementsAre(0U, 0U, 0U));
    EXPECT_THAT(wordsOf(r), ElementsAre(5U, 6U, 0U, 0U));
    big_uint least = filled(2);
    q.divide({5, 6}, {0, 0, 1}, least);
    EXPECT_THAT(wordsOf(least), ElementsAre(5U, 6U));
}

TEST(BigUintDivide, TakesZeroAsDividend) {
    big_uint q = filled(2);
    big_uint r = filled(3);
    q.divide({0, 0, 0}, {1, 2}, r);
    EXPECT_THAT(wordsOf(q), ElementsAre(0U, 0U));
    EXPECT_THAT(wordsOf(r), ElementsAre(0U, 0U, 0U));
    q.divide({0, 0}, {7}, r);
    EXPECT_THAT(wordsOf(q), ElementsAre(0U, 0U));
    EXPECT_THAT(wordsOf(r), ElementsAre(0U, 0U, 0U));
}

TEST(BigUintDivide, IgnoresZeroWordsAtTheTop) {
    big_uint q = filled(1);
    big_uint r = filled(1);
    q.divide({17, 0, 0, 0}, {5, 0, 0, 0, 0, 0}, r);
    EXPECT_THAT(wordsOf(q), ElementsAre(3U));
    EXPECT_THAT(wordsOf(r), ElementsAre(2U));
}

TEST(BigUintDivide, DividesByItself) {
    for (unsigned size = 1; size <= 12; ++size) {
        const big_uint n = orvtest::counting(size, 0xFFFFFFFDU);
        big_uint q = filled(1);
        big_uint r = filled(size);
        q.divide(n, n, r);
        EXPECT_TRUE(q.is_equal(1)) << size;
        EXPECT_TRUE(r.is_zero()) << size;
    }
}

TEST(BigUintDivide, CountsOnlyTheLowWords) {
    const big_uint a({17, 1, 99});
    const big_uint b({5, 77, 99});
    big_uint q = filled(2);
    big_uint r = filled(1);
    q.divide(a, 1, b, 1, r);
    EXPECT_THAT(wordsOf(q), ElementsAre(3U, 0U));
    EXPECT_THAT(wordsOf(r), ElementsAre(2U));
    q.divide(a, 2, b, 1);
    EXPECT_THAT(wordsOf(q), ElementsAre(0x33333336U, 0U)); // (2^32 + 17) / 5
    // All of a by two words of b.
    big_uint all = filled(3);
    big_uint expected = filled(3);
    all.divide(a, 3, b, 2);
    expected.divide(a, {5, 77});
    EXPECT_EQ(wordsOf(all), wordsOf(expected));
}

TEST(BigUintDivide, RefusesZeroAndChangesNothing) {
    for (unsigned size = 1; size <= 12; ++size) {
        const big_uint zero = numberOf(size, [](unsigned) { return 0U; });
        for (unsigned an = 1; an <= 12; ++an) {
            const big_uint a = orvtest::counting(an);
            big_uint q = filled(12);
            big_uint r = filled(12);
            EXPECT_EQ(overflowMessage([&] { q.divide(a, zero); }), "divide by zero");
            EXPECT_EQ(overflowMessage([&] { q.divide(a, zero, r); }), "divide by zero");
            EXPECT_EQ(wordsOf(q), wordsOf(filled(12)));
            EXPECT_EQ(wordsOf(r), wordsOf(filled(12)));
        }
    }
    // Zero in the words that count.
    big_uint q = filled(2);
    const big_uint b({0, 1});
    EXPECT_EQ(overflowMessage([&] { q.divide({1, 2}, 2, b, 1); }), "divide by zero");
    EXPECT_THAT(wordsOf(q), ElementsAre(0xDEADBEEFU, 0xDEADBEEFU));
}

TEST(BigUintDivide, KeepsOperands) {
    const big_uint a = orvtest::counting(300);
    const big_uint b = orvtest::counting(120, 1000);
    const big_uint a2 = a;
    const big_uint b2 = b;
    big_uint q = filled(181);
    big_uint r = filled(120);
    q.divide(a, b, r);
    EXPECT_EQ(a, a2);
    EXPECT_EQ(b, b2);
}

#ifndef NDEBUG
TEST(BigUintDivideDeathTest, AQuotientTooNarrow) {
    big_uint q = filled(1);
    EXPECT_DEATH(q.divide({1, 2, 3}, {1, 2}), "qn >= an - bn \\+ 1");
}

TEST(BigUintDivideDeathTest, ARemainderTooNarrow) {
    big_uint q = filled(3);
    big_uint r = filled(1);
    EXPECT_DEATH(q.divide({1, 2, 3}, {1, 2}, r), "rn >= bn");
    EXPECT_DEATH(q.divide({1, 2}, {1, 2, 3}, r), "rn >= an");
}

TEST(BigUintDivideDeathTest, AResultThatIsAnOperandOrTheOtherResult) {
    big_uint n = filled(4);
    big_uint q = filled(4);
    EXPECT_DEATH(n.divide(n, {1, 2}), "apart");
    EXPECT_DEATH(n.divide({1, 2}, n), "apart");
    EXPECT_DEATH(q.divide(n, {1, 2}, n), "apart");
    EXPECT_DEATH(q.divide({1, 2}, n, n), "apart");
    EXPECT_DEATH(q.divide({1, 2}, {1, 2}, q), "apart");
}

TEST(BigUintDivideDeathTest, CountsBeyondTheOperands) {
    const big_uint a({1, 2});
    const big_uint b({3});
    big_uint q = filled(4);
    EXPECT_DEATH(q.divide(a, 3, b, 1), "an <= a.size_");
    EXPECT_DEATH(q.divide(a, 2, b, 2), "bn <= b.size_");
    EXPECT_DEATH(q.divide(a, 0, b, 1), "an > 0");
}
#endif

} // namespace
