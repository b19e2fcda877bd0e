// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: shifts.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

using orv::big_uint;
using orvtest::counting;
using orvtest::numberOf;
using orvtest::wordsOf;
using testing::ElementsAre;

// Bit by bit, in the width of size words. Bit i of the result is bit i - up of the number.
big_uint shiftedBitByBit(const big_uint& a, unsigned size, long up) {
    big_uint result;
    result.set_size(size);
    for (long i = 0; i < long{size} * 32; ++i) {
        const long from = i - up;
        if (from >= 0 && from < long{a.size()} * 32 && a.test_bit(static_cast<unsigned>(from))) {
            result.set_bit(static_cast<unsigned>(i));
        }
    }
    return result;
}

big_uint filled(unsigned size) {
    return numberOf(size, [](unsigned) { return 0xDEADBEEFU; });
}

TEST(BigUintShift, AgreesWithAShiftBitByBit) {
    for (unsigned an = 1; an <= 11; ++an) {
        const big_uint a = numberOf(an, [](unsigned i) { return (i + 1) * 0x9E3779B9U | 1U; });
        for (unsigned dn = 1; dn <= 11; ++dn) {
            for (const unsigned bits :
                 {0U,   1U,   7U,   31U,  32U,  33U,  63U,  64U,  65U,  95U, 96U,
                  127U, 128U, 161U, 319U, 320U, 321U, 351U, 352U, 353U, 400U}) {
                big_uint dst = filled(dn);
                dst.shift_left(a, bits);
                ASSERT_EQ(wordsOf(dst), wordsOf(shiftedBitByBit(a, dn, long{bits})))
                    << an << ' ' << dn << ' ' << bits;
                dst = filled(dn);
                dst.shift_right(a, bits);
                ASSERT_EQ(wordsOf(dst), wordsOf(shiftedBitByBit(a, dn, -long{bits})))
                    << an << ' ' << dn << ' ' << bits;
            }
        }
    }
}

TEST(BigUintShift, ShiftsInPlace) {
    for (unsigned size = 1; size <= 20; ++size) {
        const big_uint a = counting(size, 0x80000001U);
        for (unsigned bits = 0; bits <= size * 32 + 33; bits += size < 4 ? 1 : 13) {
            big_uint n = a;
            n.shift_left(bits);
            ASSERT_EQ(wordsOf(n), wordsOf(shiftedBitByBit(a, size, long{bits}))) << bits;
            n = a;
            n.shift_left(n, bits);
            ASSERT_EQ(wordsOf(n), wordsOf(shiftedBitByBit(a, size, long{bits}))) << bits;
            n = a;
            n.shift_right(bits);
            ASSERT_EQ(wordsOf(n), wordsOf(shiftedBitByBit(a, size, -long{bits}))) << bits;
            n = a;
            n.shift_right(n, bits);
            ASSERT_EQ(wordsOf(n), wordsOf(shiftedBitByBit(a, size, -long{bits}))) << bits;
        }
    }
}

TEST(BigUintShift, ShiftsByOneBit) {
    big_uint n{0x80000001, 0x80000000, 1};
    n.shift_left();
    EXPECT_THAT(wordsOf(n), ElementsAre(2U, 1U, 3U));
    n.shift_right();
    EXPECT_THAT(wordsOf(n), ElementsAre(0x80000001U, 0x80000000U, 1U));
    big_uint top{1, 0x80000000};
    top.shift_left();
    EXPECT_THAT(wordsOf(top), ElementsAre(2U, 0U));
    top.shift_right();
    top.shift_right();
    EXPECT_THAT(wordsOf(top), ElementsAre(0U, 0U));
}

TEST(BigUintShift, LosesAllBitsByAShiftOfTheWidthOrMore) {
    for (const unsigned size : {1U, 2U, 8U, 9U, 40U}) {
        for (const unsigned bits : {size * 32, size * 32 + 1, size * 32 + 32, 0x7FFFFFFFU,
                                    0x80000000U, 0xFFFFFFE0U, 0xFFFFFFFFU}) {
            big_uint n = filled(size);
            n.shift_left(bits);
            EXPECT_TRUE(n.is_zero()) << bits;
            n = filled(size);
            n.shift_right(bits);
            EXPECT_TRUE(n.is_zero()) << bits;
        }
    }
    big_uint n{0xFFFFFFFF};
    n.shift_left(33);
    EXPECT_THAT(wordsOf(n), ElementsAre(0U));
}

TEST(BigUintShift, TakesTheTopBitsIntoAWiderDestination) {
    big_uint dst = filled(5);
    dst.shift_left({0xFFFFFFFF, 0xFFFFFFFF}, 4);
    EXPECT_THAT(wordsOf(dst), ElementsAre(0xFFFFFFF0U, 0xFFFFFFFFU, 0xFU, 0U, 0U));
    dst = filled(5);
    dst.shift_left({0xFFFFFFFF, 0xFFFFFFFF}, 68);
    EXPECT_THAT(wordsOf(dst), ElementsAre(0U, 0U, 0xFFFFFFF0U, 0xFFFFFFFFU, 0xFU));
    dst = filled(5);
    dst.shift_left({0xFFFFFFFF, 0xFFFFFFFF}, 100);
    EXPECT_THAT(wordsOf(dst), ElementsAre(0U, 0U, 0U, 0xFFFFFFF0U, 0xFFFFFFFFU));
}

TEST(BigUintShift, TakesTheLowBitsOfALongerNumberIntoANarrowerDestination) {
    big_uint dst = filled(2);
    dst.shift_right({1, 2, 3, 4, 5}, 32);
    EXPECT_THAT(wordsOf(dst), ElementsAre(2U, 3U));
    dst.shift_right({0, 0x10, 0x20, 0x30}, 36);
    EXPECT_THAT(wordsOf(dst), ElementsAre(1U, 2U));
    dst.shift_right({0, 0, 0x12, 0x34}, 68);
    EXPECT_THAT(wordsOf(dst), ElementsAre(0x40000001U, 3U));
    dst.shift_left({1, 2, 3, 4, 5}, 0);
    EXPECT_THAT(wordsOf(dst), ElementsAre(1U, 2U));
}

TEST(BigUintShift, MovesTheWidestNumber) {
    big_uint n(1U);
    n.set_size(65535);
    n.shift_left(2097119);
    EXPECT_EQ(n.highest_set_bit(), 2097119);
    EXPECT_TRUE(n.is_power_of_two());
    n.shift_right(2097118);
    EXPECT_TRUE(n.is_equal(2));
}

#ifndef NDEBUG
TEST(BigUintShiftDeathTest, AssertsThatThereAreWords) {
    big_uint n(1U);
    const big_uint none(std::initializer_list<unsigned>{});
    EXPECT_DEATH(n.shift_left(none, 1), "");
    EXPECT_DEATH(n.shift_right(none, 1), "");
}
#endif

} // namespace
