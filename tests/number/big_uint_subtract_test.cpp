// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: subtraction.
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

// The result and the words that a subtraction leaves in a destination of the given width.
testing::AssertionResult subtracts(unsigned size, const big_uint& a, const big_uint& b, int told,
                                   const std::vector<unsigned>& words) {
    big_uint dst = numberOf(size, [](unsigned) { return 0xDEADBEEFU; });
    const int result = dst.subtract(a, b);
    if (result == told && wordsOf(dst) == words) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "tells " << result << ", leaves " << testing::PrintToString(wordsOf(dst));
}

TEST(BigUintSubtract, BorrowsFromWordToWord) {
    EXPECT_TRUE(subtracts(3, {0, 0, 1}, {1, 0, 0}, 0, {ONES, ONES, 0}));
    EXPECT_TRUE(subtracts(3, {0, 0, 1}, {1}, 0, {ONES, ONES, 0}));
    EXPECT_TRUE(subtracts(2, {5, 7}, {5, 7}, 0, {0, 0}));
}

TEST(BigUintSubtract, LeavesTheTwosComplementOfANegativeDifference) {
    EXPECT_TRUE(subtracts(1, {1}, {2}, -1, {ONES}));
    EXPECT_TRUE(subtracts(2, {1, 0}, {2, 0}, -1, {ONES, ONES}));
    EXPECT_TRUE(subtracts(3, {1}, {2}, -1, {ONES, ONES, ONES}));
    EXPECT_TRUE(subtracts(4, {0}, {0, 1}, -1, {0, ONES, ONES, ONES}));
    EXPECT_TRUE(subtracts(3, {0, 0, 5}, {0, 0, 7}, -1, {0, 0, 0xFFFFFFFE}));
}

TEST(BigUintSubtract, NegatesTheWordsOfALongerSubtrahend) {
    EXPECT_TRUE(subtracts(3, {7}, {5, 1, 2}, -1, {2, ONES, 0xFFFFFFFD}));
    EXPECT_TRUE(subtracts(3, {7}, {5, 0, 2}, -1, {2, 0, 0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(3, {5}, {7, 0, 2}, -1, {0xFFFFFFFE, ONES, 0xFFFFFFFD}));
    EXPECT_TRUE(subtracts(4, {5}, {5, 0, 2}, -1, {0, 0, 0xFFFFFFFE, ONES}));
}

TEST(BigUintSubtract, CarriesTheWordsOfALongerMinuendOver) {
    EXPECT_TRUE(subtracts(4, {7, 8, 9}, {5}, 0, {2, 8, 9, 0}));
    EXPECT_TRUE(subtracts(4, {5, 0, 9}, {7}, 0, {0xFFFFFFFE, ONES, 8, 0}));
}

TEST(BigUintSubtract, LooksOnlyAtTheWordsOfTheWidthWhereAllWidthsAreEqual) {
    EXPECT_TRUE(subtracts(2, {0, 0}, {1, 0}, -1, {ONES, ONES}));
    EXPECT_TRUE(subtracts(2, {ONES, ONES}, {0, 0}, 0, {ONES, ONES}));
}

TEST(BigUintSubtract, IgnoresZeroWordsAboveTheWidth) {
    EXPECT_TRUE(subtracts(1, {3, 0}, {2, 0, 0}, 0, {1}));
    EXPECT_TRUE(subtracts(1, {2, 0, 0}, {3, 0}, -1, {ONES}));
}

TEST(BigUintSubtract, FitsWhereTheBorrowTakesTheOneAboveTheWidth) {
    EXPECT_TRUE(subtracts(1, {3, 1}, {5}, 0, {0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(2, {0, 0, 1}, {1}, 0, {ONES, ONES}));
}

TEST(BigUintSubtract, TellsADifferenceTooWideForTheDestination) {
    EXPECT_TRUE(subtracts(1, {5, 1}, {3}, 1, {2}));             // 1 above the width
    EXPECT_TRUE(subtracts(1, {3, 2}, {5}, 1, {0xFFFFFFFE}));    // 2, less a borrow
    EXPECT_TRUE(subtracts(1, {5, 2}, {3}, 2, {2}));             // 2
    EXPECT_TRUE(subtracts(1, {5, ONES}, {3}, 2, {2}));          // more
    EXPECT_TRUE(subtracts(1, {5, 0, 1}, {3}, 2, {2}));          // far more
    EXPECT_TRUE(subtracts(1, {3, 0, 1}, {5}, 1, {0xFFFFFFFE})); // which a borrow makes 1
    EXPECT_TRUE(subtracts(1, {5, 1, 1}, {3}, 2, {2}));
}

TEST(BigUintSubtract, TellsASubtrahendThatIsAboveTheWidthAlone) {
    EXPECT_TRUE(subtracts(1, {5}, {3, 1}, -1, {2}));
    EXPECT_TRUE(subtracts(1, {3}, {5, 1}, -2, {0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(1, {5}, {3, 9, 9}, -1, {2}));
}

TEST(BigUintSubtract, ComparesWhatStandsAboveTheWidth) {
    EXPECT_TRUE(subtracts(1, {5, 7}, {3, 7}, 0, {2}));
    EXPECT_TRUE(subtracts(1, {3, 7}, {5, 7}, -1, {0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(1, {3, 8}, {5, 7}, 0, {0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(1, {5, 8}, {3, 7}, 1, {2}));
    EXPECT_TRUE(subtracts(1, {3, 9}, {5, 7}, 1, {0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(1, {5, 9}, {3, 7}, 2, {2}));
    EXPECT_TRUE(subtracts(1, {5, 7}, {3, 8}, -1, {2}));
    EXPECT_TRUE(subtracts(1, {3, 7}, {5, 8}, -2, {0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(1, {5, 7}, {3, 7, 1}, -1, {2}));   // the subtrahend is longer
    EXPECT_TRUE(subtracts(1, {5, 7, 0, 1}, {3, 7}, 2, {2})); // longer by two words
    EXPECT_TRUE(subtracts(1, {3, 7, 0, 1}, {5, 7}, 1, {0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(1, {5, 0, 1}, {3, ONES}, 1, {2})); // borrows within the upper part
    EXPECT_TRUE(subtracts(1, {3, 0, 1}, {5, ONES}, 0, {0xFFFFFFFE}));
    EXPECT_TRUE(subtracts(1, {5, 1, 1}, {3, ONES}, 2, {2}));
    EXPECT_TRUE(subtracts(1, {5, 7, 1}, {3, 7}, 2, {2})); // 0 in the first word, 1 above it
    EXPECT_TRUE(subtracts(1, {5, 7, 3}, {3, 7, 4}, -1, {2}));
    EXPECT_TRUE(subtracts(1, {5, 6, 4}, {3, 7, 3}, 2, {2}));
}

TEST(BigUintSubtract, TakesItsOwnWordsAsOperands) {
    big_uint n{5, 6, 7};
    EXPECT_EQ(n.subtract(n, {6}), 0);
    EXPECT_THAT(wordsOf(n), ElementsAre(ONES, 5U, 7U));
    EXPECT_EQ(n.subtract({0, 0, 0, 1}, n), 0);
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 0xFFFFFFFAU, 0xFFFFFFF8U));
    EXPECT_EQ(n.subtract({1}, n), -1);
    EXPECT_THAT(wordsOf(n), ElementsAre(0U, 6U, 7U));
    EXPECT_EQ(n.subtract(n, n), 0);
    EXPECT_TRUE(n.is_zero());
}

TEST(BigUintSubtractInPlace, LetsTheBorrowRunOnAboveTheSubtrahend) {
    big_uint n{0, 0, 0, 2};
    EXPECT_EQ(n.subtract({1}), 0);
    EXPECT_THAT(wordsOf(n), ElementsAre(ONES, ONES, ONES, 1U));
    EXPECT_EQ(n.subtract({0, 0, 0, 2}), -1);
    EXPECT_THAT(wordsOf(n), ElementsAre(ONES, ONES, ONES, ONES));
    EXPECT_EQ(n.subtract(n), 0);
    EXPECT_TRUE(n.is_zero());
    EXPECT_EQ(n.subtract({0, 1}), -1);
    EXPECT_THAT(wordsOf(n), ElementsAre(0U, ONES, ONES, ONES));
}

TEST(BigUintSubtractInPlace, BorrowsThroughEveryWidth) {
    for (unsigned size = 1; size <= 40; ++size) {
        big_uint zero;
        zero.set_size(size);
        for (unsigned width = 1; width <= size; ++width) {
            big_uint n = zero;
            big_uint one(1U);
            one.set_size(width);
            EXPECT_EQ(n.subtract(one), -1);
            EXPECT_EQ(n.bit_count(), size * 32);
        }
    }
}

TEST(BigUintDecrement, WrapsFromZeroToAllOnes) {
    big_uint n{0, 0};
    EXPECT_TRUE(n.decrement());
    EXPECT_THAT(wordsOf(n), ElementsAre(ONES, ONES));
    EXPECT_FALSE(n.decrement());
    EXPECT_THAT(wordsOf(n), ElementsAre(0xFFFFFFFEU, ONES));
    big_uint borrowing{0, 0, 3};
    EXPECT_FALSE(borrowing.decrement());
    EXPECT_THAT(wordsOf(borrowing), ElementsAre(ONES, ONES, 2U));
}

TEST(BigUintDecrement, WrapsInNoWords) {
    big_uint none(std::initializer_list<unsigned>{});
    EXPECT_TRUE(none.decrement());
}

#ifndef NDEBUG
TEST(BigUintSubtractDeathTest, AssertsThatTheOperandSubtractedInPlaceIsNoLonger) {
    big_uint n{1};
    EXPECT_DEATH(n.subtract({1, 0}), "");
    const big_uint none(std::initializer_list<unsigned>{});
    EXPECT_DEATH(n.subtract(none), "");
    EXPECT_DEATH(n.subtract(none, n), "");
}
#endif

} // namespace
