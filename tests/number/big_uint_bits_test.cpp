// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: bit queries and bit operations.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orv::big_uint;
using orvtest::numberOf;
using orvtest::wordsOf;
using testing::ElementsAre;

big_uint zeroOf(unsigned size) {
    return numberOf(size, [](unsigned) { return 0U; });
}

big_uint onesOf(unsigned size) {
    return numberOf(size, [](unsigned) { return 0xFFFFFFFFU; });
}

TEST(BigUintBits, HaveNoTopAndNoBottomInZero) {
    for (unsigned size = 1; size <= 10; ++size) {
        const big_uint zero = zeroOf(size);
        EXPECT_EQ(zero.highest_set_bit(), -1);
        EXPECT_EQ(zero.bit_length(), 0U);
        EXPECT_EQ(zero.lowest_set_bit(), -1);
        EXPECT_EQ(zero.bit_count(), 0U);
        EXPECT_TRUE(zero.is_zero());
        EXPECT_TRUE(zero.is_power_of_two());
    }
}

TEST(BigUintBits, AreFoundInEveryPlace) {
    for (unsigned size = 1; size <= 10; ++size) {
        for (unsigned bit = 0; bit < size * 32; ++bit) {
            big_uint n = zeroOf(size);
            n.set_bit(bit);
            ASSERT_EQ(n.highest_set_bit(), static_cast<int>(bit));
            ASSERT_EQ(n.bit_length(), bit + 1);
            ASSERT_EQ(n.lowest_set_bit(), static_cast<int>(bit));
            ASSERT_EQ(n.bit_count(), 1U);
            ASSERT_FALSE(n.is_zero());
            ASSERT_TRUE(n.is_power_of_two());
            ASSERT_TRUE(n.test_bit(bit));
            n.clear_bit(bit);
            ASSERT_TRUE(n.is_zero());
            ASSERT_FALSE(n.test_bit(bit));
        }
    }
}

TEST(BigUintBits, MakeNoPowerOfTwoInPairs) {
    for (unsigned low = 0; low < 160; low += 3) {
        for (unsigned high = low + 1; high < 160; high += 7) {
            big_uint n = zeroOf(5);
            n.set_bit(low);
            n.set_bit(high);
            ASSERT_FALSE(n.is_power_of_two());
            ASSERT_EQ(n.highest_set_bit(), static_cast<int>(high));
            ASSERT_EQ(n.lowest_set_bit(), static_cast<int>(low));
            ASSERT_EQ(n.bit_count(), 2U);
        }
    }
}

TEST(BigUintBits, AreSetAndClearedOneByOne) {
    big_uint n{0, 0xFFFFFFFF};
    n.set_bit(4);
    n.set_bit(31);
    n.clear_bit(32);
    n.clear_bit(63);
    EXPECT_THAT(wordsOf(n), ElementsAre(0x80000010U, 0x7FFFFFFEU));
    EXPECT_TRUE(n.test_bit(31));
    EXPECT_FALSE(n.test_bit(32));
    EXPECT_TRUE(n.test_bit(33));
}

TEST(BigUintBits, AreCountedInEveryWidth) {
    for (unsigned size = 1; size <= 200; ++size) {
        ASSERT_EQ(onesOf(size).bit_count(), size * 32);
    }
    EXPECT_EQ(onesOf(65535).bit_count(), 2097120U);
    EXPECT_EQ(onesOf(65535).highest_set_bit(), 2097119);
    EXPECT_EQ((big_uint{0x12345678, 0x9ABCDEF0, 0x0F0F0F0F}.bit_count()), 13U + 19U + 16U);
}

TEST(BigUintBits, AreCountedInSingleWords) {
    EXPECT_EQ(big_uint::bit_count(0U), 0U);
    EXPECT_EQ(big_uint::bit_count(0xFFFFFFFFU), 32U);
    EXPECT_EQ(big_uint::bit_count(0x12345678U), 13U);
    EXPECT_EQ(big_uint::bit_count(std::size_t{0}), 0U);
    EXPECT_EQ(big_uint::bit_count(~std::size_t{0}), 64U);
    EXPECT_EQ(big_uint::bit_count(std::size_t{0x8000000000000001}), 2U);
}

TEST(BigUintBits, AreCountedFromBothEndsOfSingleWords) {
    EXPECT_EQ(big_uint::lzcnt32(0U), 32U);
    EXPECT_EQ(big_uint::lzcnt64(std::size_t{0}), 64U);
    EXPECT_EQ(big_uint::tzcnt(0U), 32U);
    EXPECT_EQ(big_uint::tzcnt(std::size_t{0}), 64U);
    for (unsigned bit = 0; bit < 32; ++bit) {
        EXPECT_EQ(big_uint::lzcnt32(1U << bit | 1U), 31 - bit);
        EXPECT_EQ(big_uint::tzcnt(0xFFFFFFFFU << bit), bit);
    }
    for (unsigned bit = 0; bit < 64; ++bit) {
        EXPECT_EQ(big_uint::lzcnt64(std::size_t{1} << bit | 1U), 63 - bit);
        EXPECT_EQ(big_uint::tzcnt(~std::size_t{0} << bit), bit);
    }
}

TEST(BigUintRoundingInfo, IsNothingForAShiftByNoBits) {
    EXPECT_EQ(big_uint(0U).compute_rounding_info(0), 0U);
    EXPECT_EQ(big_uint(0xFFFFFFFFU).compute_rounding_info(0), 0U);
    EXPECT_EQ(onesOf(20).compute_rounding_info(0), 0U);
}

TEST(BigUintRoundingInfo, TellsTheHalfFromWhatIsLessAndMore) {
    EXPECT_EQ(big_uint(0b1000U).compute_rounding_info(3), 0U);
    EXPECT_EQ(big_uint(0b1000U).compute_rounding_info(4), 2U);
    EXPECT_EQ(big_uint(0b1000U).compute_rounding_info(5), 1U);
    EXPECT_EQ(big_uint(0b1100U).compute_rounding_info(4), 3U);
    EXPECT_EQ(big_uint(0b1100U).compute_rounding_info(3), 2U);
    EXPECT_EQ(big_uint(0b0111U).compute_rounding_info(4), 1U);
    EXPECT_EQ(big_uint(1U).compute_rounding_info(1), 2U);
    EXPECT_EQ(big_uint(0x80000000U).compute_rounding_info(32), 2U);
    EXPECT_EQ(big_uint(0x80000001U).compute_rounding_info(32), 3U);
}

TEST(BigUintRoundingInfo, LooksThroughAllWordsBelow) {
    for (unsigned bits = 1; bits <= 320; ++bits) {
        big_uint half = zeroOf(10);
        half.set_bit(bits - 1);
        ASSERT_EQ(half.compute_rounding_info(bits), 2U) << bits;
        ASSERT_EQ(half.compute_rounding_info(bits - 1), 0U) << bits;
        ASSERT_EQ(half.compute_rounding_info(bits + 1), 1U) << bits;
        for (unsigned below = 0; below + 1 < bits; below += 5) {
            big_uint more = half;
            more.set_bit(below);
            ASSERT_EQ(more.compute_rounding_info(bits), 3U) << bits << ' ' << below;
            more.clear_bit(bits - 1);
            ASSERT_EQ(more.compute_rounding_info(bits), 1U) << bits << ' ' << below;
        }
        const unsigned all = onesOf(10).compute_rounding_info(bits);
        ASSERT_EQ(all, bits == 1 ? 2U : 3U);
    }
}

TEST(BigUintRoundingInfo, TellsWhetherThereIsAnythingWhereTheShiftGoesBeyondTheWidth) {
    for (const unsigned size : {1U, 2U, 9U}) {
        for (const unsigned bits : {size * 32 + 1, size * 32 + 32, 0x80000000U, 0xFFFFFFFFU}) {
            EXPECT_EQ(onesOf(size).compute_rounding_info(bits), 1U);
            EXPECT_EQ(zeroOf(size).compute_rounding_info(bits), 0U);
            big_uint top = zeroOf(size);
            top[size - 1] = 0x80000000U;
            EXPECT_EQ(top.compute_rounding_info(bits), 1U);
        }
    }
}

TEST(BigUintBitOperations, WorkOnTheWordsOfTheDestination) {
    big_uint dst = onesOf(2);
    dst.bit_and({0xFF00FF00, 0x0FF00FF0, 1}, {0x12345678, 0x9ABCDEF0, 1, 1});
    EXPECT_THAT(wordsOf(dst), ElementsAre(0x12005600U, 0x0AB00EF0U));
    dst.bit_not({0xFF00FF00, 0, 5});
    EXPECT_THAT(wordsOf(dst), ElementsAre(0x00FF00FFU, 0xFFFFFFFFU));
}

TEST(BigUintBitOperations, TakeTheDestinationAsOperand) {
    for (unsigned size = 1; size <= 20; ++size) {
        const big_uint a = numberOf(size, [](unsigned i) { return (i + 1) * 0x9E3779B9U; });
        big_uint n = a;
        n.bit_not(n);
        big_uint none = n;
        none.bit_and(none, a);
        EXPECT_TRUE(none.is_zero());
        n.bit_and(n, n);
        n.bit_not(n);
        EXPECT_EQ(wordsOf(n), wordsOf(a));
    }
}

#ifndef NDEBUG
TEST(BigUintBitsDeathTest, AssertsThatOperandsHaveTheWordsOfTheDestination) {
    big_uint n{1, 2};
    EXPECT_DEATH(n.bit_and(n, {1}), "");
    EXPECT_DEATH(n.bit_and({1}, n), "");
    EXPECT_DEATH(n.bit_not({1}), "");
}
#endif

} // namespace
