// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Powers of 5 and 10 and decimal logarithms: tables, bounds, errors.
#include "orv/liborvxx/number/big_uint.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

namespace {

using orv::big_uint;
using orvtest::thrownMessage;

// 10^n by the plainest of ways.
big_uint tenTo(unsigned n) {
    big_uint power(1U);
    for (unsigned i = 0; i < n; ++i) {
        if (const unsigned carry = power.multiply_by_10()) {
            power.prepend(carry);
        }
    }
    return power;
}

big_uint lessOne(big_uint n) {
    n.decrement();
    return n;
}

// Only bit \p bit is set.
big_uint bitAlone(unsigned bit) {
    big_uint n;
    n.set_size(bit / 32 + 1);
    n.set_bit(bit);
    return n;
}

TEST(BigUintTables, HoldThePowersOfFiveThatFit64Bits) {
    std::size_t power = 1;
    for (const std::size_t entry : big_uint::pow5_table) {
        EXPECT_EQ(entry, power);
        power *= 5;
    }
    EXPECT_EQ(big_uint::pow5_table.size(), 28U);
    EXPECT_EQ(big_uint::pow5_table[27], 7450580596923828125U);
}

TEST(BigUintTables, HoldThePowersOfTenThatFit64Bits) {
    std::size_t power = 1;
    for (const std::size_t entry : big_uint::pow10_table) {
        EXPECT_EQ(entry, power);
        power *= 10;
    }
    EXPECT_EQ(big_uint::pow10_table.size(), 20U);
    EXPECT_EQ(big_uint::pow10_table[19], 10000000000000000000U);
}

TEST(BigUintTables, ArePartOfConstantExpressions) {
    static_assert(big_uint::pow5_table[3] == 125 && big_uint::pow10_table[3] == 1000);
}

TEST(BigUintPow10, OfUpTo256BitsIsAConstantInItsMinimalWidth) {
    for (unsigned n = 0; n < 78; ++n) {
        const big_uint* const power = big_uint::precomputed_pow10(n);
        ASSERT_NE(power, nullptr) << n;
        EXPECT_EQ(*power, tenTo(n)) << n;
        EXPECT_NE(power->msw(), 0U) << n;
        EXPECT_EQ(power->reserved(), 8U);
        EXPECT_EQ(&big_uint::pow10(n, nullptr), power) << n;
    }
    EXPECT_EQ(big_uint::precomputed_pow10(77)->bit_length(), 256U);
}

TEST(BigUintPow10, Of78AndAboveIsNotPrecomputed) {
    EXPECT_EQ(big_uint::precomputed_pow10(78), nullptr);
    EXPECT_EQ(big_uint::precomputed_pow10(std::numeric_limits<unsigned>::max()), nullptr);
}

TEST(BigUintPow10, LeavesTheCacheAloneWhereThereIsAConstant) {
    big_uint cache({7, 8, 9});
    EXPECT_NE(&big_uint::pow10(77, &cache), &cache);
    EXPECT_EQ(cache, big_uint({7, 8, 9}));
}

TEST(BigUintPow10, IsMadeInTheCacheBeyondTheConstants) {
    for (const unsigned n : {78U, 127U, 128U, 192U, 255U, 300U}) {
        big_uint cache({7, 8, 9});
        EXPECT_EQ(&big_uint::pow10(n, &cache), &cache) << n;
        EXPECT_EQ(cache, tenTo(n)) << n;
        EXPECT_NE(cache.msw(), 0U) << n;
    }
}

TEST(BigUintPow10, EndsAt8191) {
    big_uint cache;
    EXPECT_EQ(big_uint::pow10(8191, &cache), tenTo(8191));
    EXPECT_EQ(thrownMessage<std::out_of_range>([&] { big_uint::pow10(8192, &cache); }),
              "big_uint::pow10");
    EXPECT_EQ(thrownMessage<std::out_of_range>([&] { big_uint::pow10(0xFFFFFFFF, &cache); }),
              "big_uint::pow10");
}

TEST(BigUintPow10, ThatIsOutOfRangeLeavesTheCacheAlone) {
    big_uint cache({7, 8, 9});
    EXPECT_THROW(big_uint::pow10(8192, &cache), std::out_of_range);
    EXPECT_EQ(cache, big_uint({7, 8, 9}));
}

TEST(BigUintPow5, IsAlwaysMadeInTheCache) {
    big_uint expected(1U);
    for (unsigned n = 0; n < 600; ++n) {
        big_uint cache({7, 8, 9});
        EXPECT_EQ(&big_uint::pow5(n, &cache), &cache) << n;
        ASSERT_EQ(cache, expected) << n;
        EXPECT_TRUE(n < 28 || cache.msw() != 0) << n;
        if (const unsigned carry = expected.multiply(5)) {
            expected.prepend(carry);
        }
    }
}

TEST(BigUintPow5, Of27IsATableEntryInTwoWords) {
    big_uint cache;
    EXPECT_EQ(big_uint::pow5(27, &cache).size(), 2U);
    EXPECT_EQ(cache.to_uint64(), 7450580596923828125U);
    EXPECT_EQ(big_uint::pow5(13, &cache).size(), 1U);
    EXPECT_EQ(big_uint::pow5(28, &cache).size(), 3U);
}

TEST(BigUintPow5, EndsAt32767) {
    big_uint five;
    big_uint ten;
    big_uint::pow5(8191, &five);
    big_uint::pow10(8191, &ten);
    big_uint scaled;
    scaled.set_size(ten.size());
    scaled.shift_left(five, 8191);
    EXPECT_EQ(scaled, ten);
    big_uint highest;
    EXPECT_EQ(big_uint::pow5(32767, &highest).bit_length(), 76083U); // 32767 * log2(5) = 76082.6
    EXPECT_EQ(thrownMessage<std::length_error>([&] { big_uint::pow5(32768, &five); }),
              "big_uint::pow5: exponent out of range");
}

TEST(BigUintLogarithm, OfSmallNumbers) {
    EXPECT_EQ(big_uint(0U).ilog10(), -1);
    EXPECT_EQ(big_uint({0, 0, 0}).ilog10(), -1);
    EXPECT_EQ(big_uint(1U).ilog10(), 0);
    EXPECT_EQ(big_uint(7U).ilog10(), 0);
    EXPECT_EQ(big_uint(9U).ilog10(), 0);
    EXPECT_EQ(big_uint(10U).ilog10(), 1);
    EXPECT_EQ(big_uint(99U).ilog10(), 1);
    EXPECT_EQ(big_uint(100U).ilog10(), 2);
}

TEST(BigUintLogarithm, IsRightOnBothSidesOfEveryPowerOfTheTable) {
    for (unsigned n = 1; n < 78; ++n) {
        const big_uint power = tenTo(n);
        EXPECT_EQ(power.ilog10(), static_cast<int>(n));
        EXPECT_EQ(lessOne(power).ilog10(), static_cast<int>(n) - 1);
    }
}

TEST(BigUintLogarithm, TakesTheRoadThroughPow10Above256Bits) {
    EXPECT_EQ(tenTo(78).highest_set_bit(), 259);
    EXPECT_EQ(tenTo(78).ilog10(), 78);
    EXPECT_EQ(lessOne(tenTo(78)).ilog10(), 77);
    EXPECT_EQ(bitAlone(256).ilog10(), 77);
}

TEST(BigUintLogarithm, AcceptsZeroWordsAtTheTop) {
    big_uint n = tenTo(100);
    n.set_size(40);
    EXPECT_EQ(n.ilog10(), 100);
    EXPECT_EQ(big_uint({99, 0, 0, 0}).ilog10(), 1);
}

TEST(BigUintLogarithm, TakesTheBitLengthFromACallerWhoKnowsIt) {
    EXPECT_EQ(big_uint(0U).ilog10(0), -1);
    EXPECT_EQ(big_uint(1000U).ilog10(10), 3);
    EXPECT_EQ(tenTo(200).ilog10(tenTo(200).bit_length()), 200);
}

// The estimate from the highest bit ends where it exceeds the greatest power that there is.
TEST(BigUintLogarithm, EndsWithThePowersOfTen) {
    EXPECT_EQ(bitAlone(27210).ilog10(), 8191);
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { (void)bitAlone(27211).ilog10(); }),
              "big_uint::pow10");
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { (void)bitAlone(217709).ilog10(); }),
              "big_uint::pow10");
}

// From bit 217710 on the estimate wraps and is far too low. The answer is right for all that:
// 217710 * log10(2) is 65537.2, and 217800 * log10(2) is 65564.3.
TEST(BigUintLogarithm, IsRightAgainWhereTheEstimateWraps) {
    EXPECT_EQ(bitAlone(217710).ilog10(), 65537);
    EXPECT_EQ(bitAlone(217800).ilog10(), 65564);
}

TEST(BigUintLogarithm, EstimateTellsTheDecadesOfAHighestBit) {
    for (unsigned bit = 0; bit < 256; ++bit) {
        const int lowest = bitAlone(bit).ilog10();
        const int highest =
            bit == 255 ? lessOne(bitAlone(256)).ilog10() : lessOne(bitAlone(bit + 1)).ilog10();
        const int estimate = static_cast<int>(big_uint::log10est(bit));
        EXPECT_EQ(estimate, lowest == highest ? lowest : -highest) << bit;
    }
}

TEST(BigUintLogarithm, EstimateHasTheWrittenValues) {
    EXPECT_EQ(big_uint::log10est(0), 0U);
    EXPECT_EQ(big_uint::log10est(1), 0U);
    EXPECT_EQ(big_uint::log10est(2), 0U);
    EXPECT_EQ(big_uint::log10est(3), static_cast<unsigned>(-1));
    EXPECT_EQ(big_uint::log10est(4), 1U);
    EXPECT_EQ(big_uint::log10est(6), static_cast<unsigned>(-2));
    EXPECT_EQ(big_uint::log10est(255), static_cast<unsigned>(-77));
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { (void)big_uint::log10est(256); }),
              "invalid array<T, N> subscript");
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { (void)big_uint::log10est(0xFFFFFFFF); }),
              "invalid array<T, N> subscript");
}

#ifndef NDEBUG
TEST(BigUintPowersDeathTest, AssertThatThereIsACacheToMakeThemIn) {
    EXPECT_DEATH(big_uint::pow10(78, nullptr), "cache");
    EXPECT_DEATH(big_uint::pow5(0, nullptr), "cache");
}

TEST(BigUintPowersDeathTest, AssertThatTheBitLengthIsTheNumbersOwn) {
    EXPECT_DEATH((void)big_uint(1000U).ilog10(9), "bit_length");
}
#endif

} // namespace
