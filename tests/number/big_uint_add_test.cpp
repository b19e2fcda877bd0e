// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: addition.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orv::big_uint;
using orvtest::numberOf;
using orvtest::wordsOf;
using testing::ElementsAre;

constexpr unsigned ONES = 0xFFFFFFFFU;

// A number of the given width, full of what must not show in any result.
big_uint filled(unsigned size) {
    return numberOf(size, [](unsigned) { return 0xDEADBEEFU; });
}

TEST(BigUintAdd, CarriesFromWordToWord) {
    big_uint sum = filled(3);
    EXPECT_FALSE(sum.add({ONES, ONES, 1}, {1, 0, 2}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(0U, 0U, 4U));
}

TEST(BigUintAdd, TellsThatTheSumDoesNotFit) {
    big_uint sum = filled(2);
    EXPECT_TRUE(sum.add({ONES, ONES}, {2, 0}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(1U, 0U));
}

TEST(BigUintAdd, TellsThatAnOperandDoesNotFitEvenIfTheLowSumDoes) {
    big_uint sum = filled(1);
    EXPECT_TRUE(sum.add({1, 1}, {2}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(3U));
    EXPECT_TRUE(sum.add({1}, {2, 0, 5}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(3U));
    EXPECT_TRUE(sum.add({ONES, 1}, {2}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(1U));
}

TEST(BigUintAdd, IgnoresZeroWordsAboveTheWidth) {
    big_uint sum = filled(1);
    EXPECT_FALSE(sum.add({1, 0}, {2, 0, 0}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(3U));
    EXPECT_TRUE(sum.add({ONES, 0}, {2}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(1U));
}

TEST(BigUintAdd, PutsTheCarryAboveTheOperandsAndZerosAboveThat) {
    big_uint sum = filled(5);
    EXPECT_FALSE(sum.add({ONES, ONES}, {1}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(0U, 0U, 1U, 0U, 0U));
    EXPECT_FALSE(sum.add({1}, {2, 3}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(3U, 3U, 0U, 0U, 0U));
    EXPECT_FALSE(sum.add({0, 0, 0}, {0}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(0U, 0U, 0U, 0U, 0U));
}

TEST(BigUintAdd, RunsTheCarryThroughTheLongerOperand) {
    big_uint sum = filled(4);
    EXPECT_FALSE(sum.add({ONES, ONES, ONES, 6}, {1}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(0U, 0U, 0U, 7U));
    EXPECT_TRUE(sum.add({1}, {ONES, ONES, ONES, ONES}));
    EXPECT_THAT(wordsOf(sum), ElementsAre(0U, 0U, 0U, 0U));
}

TEST(BigUintAdd, CarriesThroughEveryWidth) {
    for (unsigned size = 1; size <= 40; ++size) {
        const big_uint ones = numberOf(size, [](unsigned) { return ONES; });
        big_uint one(1U);
        one.set_size(size);
        big_uint sum = filled(size);
        EXPECT_TRUE(sum.add(ones, one));
        EXPECT_TRUE(sum.is_zero());
        big_uint wider = filled(size + 1);
        EXPECT_FALSE(wider.add(ones, one));
        EXPECT_EQ(wider.highest_set_bit(), static_cast<int>(size * 32));
        EXPECT_TRUE(wider.is_power_of_two());
    }
}

TEST(BigUintAdd, TakesItsOwnWordsAsOperands) {
    big_uint n{0x80000001, 0x80000000, 3};
    EXPECT_FALSE(n.add(n, n));
    EXPECT_THAT(wordsOf(n), ElementsAre(2U, 1U, 7U));
    EXPECT_FALSE(n.add(n, {ONES}));
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 2U, 7U));
    EXPECT_TRUE(n.add({0, 0, 0, 1}, n));
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 2U, 7U));
}

TEST(BigUintAddInPlace, AddsAsManyWordsAsTheDestinationHas) {
    big_uint n{1, 2};
    EXPECT_FALSE(n.add({3, 4, 5}));
    EXPECT_THAT(wordsOf(n), ElementsAre(4U, 6U));
    EXPECT_TRUE(n.add({0, ONES}));
    EXPECT_THAT(wordsOf(n), ElementsAre(4U, 5U));
    EXPECT_FALSE(n.add(n));
    EXPECT_THAT(wordsOf(n), ElementsAre(8U, 10U));
}

TEST(BigUintAddInPlace, AddsAWord) {
    big_uint n{0xFFFFFFF0, ONES, 1};
    EXPECT_FALSE(n.add(0U));
    EXPECT_THAT(wordsOf(n), ElementsAre(0xFFFFFFF0U, ONES, 1U));
    EXPECT_FALSE(n.add(0x20U));
    EXPECT_THAT(wordsOf(n), ElementsAre(0x10U, 0U, 2U));
    EXPECT_FALSE(n.add(ONES));
    EXPECT_THAT(wordsOf(n), ElementsAre(0xFU, 1U, 2U));
    big_uint ones{ONES, ONES};
    EXPECT_TRUE(ones.add(ONES));
    EXPECT_THAT(wordsOf(ones), ElementsAre(0xFFFFFFFEU, 0U));
}

TEST(BigUintIncrement, WrapsFromAllOnesToZero) {
    big_uint n{ONES, ONES, ONES};
    EXPECT_TRUE(n.increment());
    EXPECT_THAT(wordsOf(n), ElementsAre(0U, 0U, 0U));
    EXPECT_FALSE(n.increment());
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 0U, 0U));
    big_uint carrying{ONES, 5};
    EXPECT_FALSE(carrying.increment());
    EXPECT_THAT(wordsOf(carrying), ElementsAre(0U, 6U));
}

TEST(BigUintIncrement, WrapsInNoWords) {
    big_uint none(std::initializer_list<unsigned>{});
    EXPECT_TRUE(none.increment());
    EXPECT_EQ(none.size(), 0U);
}

#ifndef NDEBUG
TEST(BigUintAddDeathTest, AssertsThatTheOperandAddedInPlaceIsNoShorter) {
    big_uint n{1, 2};
    EXPECT_DEATH(n.add(big_uint(1U)), "");
    big_uint none(std::initializer_list<unsigned>{});
    EXPECT_DEATH(none.add(1U), "");
    EXPECT_DEATH(n.add(none, n), "");
}
#endif

} // namespace
