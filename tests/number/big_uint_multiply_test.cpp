// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: multiplication.
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

big_uint allOnes(unsigned size) {
    return numberOf(size, [](unsigned) { return ONES; });
}

TEST(BigUintMultiplyByWord, ReturnsTheWordThatDoesNotFit) {
    for (unsigned size = 1; size <= 9; ++size) {
        big_uint n = allOnes(size);
        EXPECT_EQ(n.multiply(ONES), ONES - 1); // (X - 1) * (W - 1) = X * (W - 2) + X - W + 1
        EXPECT_EQ(n[0], 1U);
        for (unsigned i = 1; i < size; ++i) {
            EXPECT_EQ(n[i], ONES) << size << " words, word " << i;
        }
        EXPECT_EQ(n.size(), size);
    }
}

TEST(BigUintMultiplyByWord, ReturnsZeroIfTheProductFits) {
    big_uint n({3, 4, 0});
    EXPECT_EQ(n.multiply(0x80000000U), 0U);
    EXPECT_THAT(wordsOf(n), ElementsAre(0x80000000U, 1U, 2U));
}

TEST(BigUintMultiplyByWord, GivesZeroForZero) {
    big_uint n({3, 4, 5});
    EXPECT_EQ(n.multiply(0), 0U);
    EXPECT_THAT(wordsOf(n), ElementsAre(0U, 0U, 0U));
}

TEST(BigUintMultiplyByTen, MultipliesByTheConstant) {
    big_uint n({7, ONES});
    EXPECT_EQ(n.multiply_by_10(), 9U);
    EXPECT_THAT(wordsOf(n), ElementsAre(70U, 0xFFFFFFF6U));
    EXPECT_EQ(n.multiply_by_100(), 99U);
    EXPECT_THAT(wordsOf(n), ElementsAre(7000U, 0xFFFFFC18U));
}

TEST(BigUintMultiplyByTen, GivesZeroForNoWords) {
    big_uint none({});
    EXPECT_EQ(none.multiply_by_10(), 0U);
    EXPECT_EQ(none.multiply_by_100(), 0U);
    EXPECT_EQ(none.size(), 0U);
}

TEST(BigUintMultiply, MultipliesWordByWord) {
    big_uint product = filled(2);
    product.multiply({ONES}, {ONES});
    EXPECT_THAT(wordsOf(product), ElementsAre(1U, ONES - 1));
}

// (X - 1) * (Y - 1) = X * Y - X - Y + 1, with X and Y powers of 2^32: every carry there is.
TEST(BigUintMultiply, CarriesThroughOperandsOfAllOnes) {
    for (unsigned an = 1; an <= 100; ++an) {
        for (unsigned bn = 1; bn <= an; ++bn) {
            big_uint product = filled(an + bn);
            product.multiply(allOnes(an), allOnes(bn));
            const big_uint expected = numberOf(an + bn, [an, bn](unsigned i) {
                return i == 0 ? 1 : i < bn ? 0 : i == an ? ONES - 1 : ONES;
            });
            ASSERT_EQ(wordsOf(product), wordsOf(expected)) << an << " by " << bn;
            big_uint other = filled(an + bn);
            other.multiply(allOnes(bn), allOnes(an));
            ASSERT_EQ(wordsOf(other), wordsOf(expected)) << bn << " by " << an;
        }
    }
}

TEST(BigUintMultiply, ClearsWordsAboveTheProduct) {
    big_uint product = filled(6);
    product.multiply({2, 3}, {5});
    EXPECT_THAT(wordsOf(product), ElementsAre(10U, 15U, 0U, 0U, 0U, 0U));
}

TEST(BigUintMultiply, CountsZeroWordsAtTheTopAsWidth) {
    big_uint product = filled(5);
    product.multiply({2, 0}, {5, 7, 0});
    EXPECT_THAT(wordsOf(product), ElementsAre(10U, 14U, 0U, 0U, 0U));
}

TEST(BigUintMultiply, Squares) {
    const big_uint n({0, 1, 2});
    big_uint square = filled(6);
    square.multiply(n, n);
    EXPECT_THAT(wordsOf(square), ElementsAre(0U, 0U, 1U, 4U, 4U, 0U));
}

TEST(BigUintMultiply, KeepsOperands) {
    const big_uint a = orvtest::counting(90);
    const big_uint b = orvtest::counting(80, 1000);
    const big_uint a2 = a;
    const big_uint b2 = b;
    big_uint product = filled(170);
    product.multiply(a, b);
    EXPECT_EQ(a, a2);
    EXPECT_EQ(b, b2);
}

#ifndef NDEBUG
TEST(BigUintMultiplyDeathTest, ADestinationTooNarrow) {
    big_uint product = filled(3);
    EXPECT_DEATH(product.multiply({1, 2}, {3, 4}), "dn >= an \\+ bn");
}

TEST(BigUintMultiplyDeathTest, ADestinationThatIsAnOperand) {
    big_uint n = filled(4);
    EXPECT_DEATH(n.multiply(n, {1}), "dn >= an");
    EXPECT_DEATH(n.multiply({1}, n), "dn >= an");
}

TEST(BigUintMultiplyDeathTest, AnOperandWithoutWords) {
    big_uint product = filled(4);
    const big_uint none({});
    EXPECT_DEATH(product.multiply(none, {1}), "an > 0");
}
#endif

} // namespace
