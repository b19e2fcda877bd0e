// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief big_binary: powers of ten and their cache.
#include "orv/liborvxx/number/big_binary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using orv::big_binary;
using orv::big_uint;

void expectForm(const big_binary& number, std::uint64_t coefficient, int exponent) {
    EXPECT_TRUE(number.coefficient == big_uint(coefficient)) << number.coefficient.to_string();
    EXPECT_EQ(number.exponent, exponent);
}

// No more bits than `precision`, and the logarithm that 10^n has.
void expectNearPower(int n, unsigned precision) {
    const big_binary number = big_binary::binary_pow10(n, precision);
    ASSERT_LE(number.coefficient.bit_length(), precision);
    const double logarithm =
        std::log2(static_cast<double>(number.coefficient.to_uint64())) + number.exponent;
    ASSERT_NEAR(logarithm, n * std::log2(10.0), 1e-9) << n;
}

TEST(BigBinaryPow10, IsExactWhileThePowerFits) {
    std::uint64_t power = 1;
    for (int n = 0; n <= 19; ++n, power *= 10) {
        expectForm(big_binary::binary_pow10(n, 64), power, 0);
    }
    expectForm(big_binary::binary_pow10(20, 64), 95367431640625, 20); // 67 bits: 5^20 is left
}

TEST(BigBinaryPow10, RoundsToThePrecision) {
    expectForm(big_binary::binary_pow10(2, 3), 6, 4);  // 25 / 4 is 6.25
    expectForm(big_binary::binary_pow10(2, 4), 12, 3); // 25 / 2: a tie, to even
    expectForm(big_binary::binary_pow10(2, 5), 25, 2); // exact, without its zeros
    expectForm(big_binary::binary_pow10(3, 5), 31, 5); // 125 / 4 is 31.25
    expectForm(big_binary::binary_pow10(28, 64), 0x813F3978F8940984U, 30); // 5^28 has 66 bits
    expectForm(big_binary::binary_pow10(100, 64), 0x924D692CA61BE758U, 269);
}

TEST(BigBinaryPow10, DividesForNegativeExponents) {
    expectForm(big_binary::binary_pow10(-1, 64), 0xCCCCCCCCCCCCCCCDU, -67);
    expectForm(big_binary::binary_pow10(-2, 64), 0xA3D70A3D70A3D70AU, -70);
    expectForm(big_binary::binary_pow10(-1, 1), 1, -3);
}

TEST(BigBinaryPow10, IsZeroFromTheFarthestPowersOn) {
    for (const int n : {8192, 10000, std::numeric_limits<int>::max()}) {
        for (const int sign : {1, -1}) {
            const big_binary zero = big_binary::binary_pow10(sign * n, 64);
            EXPECT_TRUE(zero.coefficient.is_zero()) << n;
            EXPECT_EQ(zero.exponent, 0);
        }
    }
    EXPECT_TRUE(
        big_binary::binary_pow10(std::numeric_limits<int>::min(), 64).coefficient.is_zero());
    EXPECT_FALSE(big_binary::binary_pow10(8191, 64).coefficient.is_zero());
    EXPECT_FALSE(big_binary::binary_pow10(-8191, 64).coefficient.is_zero());
}

TEST(BigBinaryPow10, StaysNearThePowerEverywhere) {
    for (int n = -8191; n <= 8191; n += 13) {
        expectNearPower(n, 64);
    }
}

TEST(BigBinaryPow10, NeedsNoMorePrecisionThanThereAreBits) {
    big_uint cache;
    const big_binary all = big_binary::binary_pow10(500, std::numeric_limits<unsigned>::max());
    const auto zeros = static_cast<unsigned>(all.exponent);
    big_uint power;
    power.set_size(all.coefficient.size() + zeros / 32 + 1);
    power.shift_left(all.coefficient, zeros);
    EXPECT_TRUE(power == big_uint::pow10(500, &cache));
}

TEST(BigBinaryCachedPow10, IsBinaryPow10InEveryEntryAtEveryReading) {
    for (const unsigned precision : {64U, 128U, 256U}) {
        for (int round = 0; round < 2; ++round) {
            for (int n = -101; n <= 101; ++n) {
                const big_binary cached = big_binary::cached_pow10(n, precision);
                const big_binary made = big_binary::binary_pow10(n, precision);
                ASSERT_EQ(cached.exponent, made.exponent) << n << ' ' << precision;
                ASSERT_TRUE(cached.coefficient == made.coefficient) << n << ' ' << precision;
                ASSERT_TRUE(cached.coefficient.is_local() || n < -100 || n > 100);
            }
        }
    }
}

TEST(BigBinaryCachedPow10, IsComputedForOtherPrecisionsAndExponents) {
    for (const unsigned precision : {1U, 24U, 63U, 65U, 127U, 255U, 512U}) {
        for (const int n : {-200, -1, 2, 28, 100, 300}) {
            const big_binary cached = big_binary::cached_pow10(n, precision);
            const big_binary made = big_binary::binary_pow10(n, precision);
            ASSERT_EQ(cached.exponent, made.exponent);
            ASSERT_TRUE(cached.coefficient == made.coefficient);
        }
    }
    EXPECT_TRUE(big_binary::cached_pow10(8192, 64).coefficient.is_zero());
    EXPECT_TRUE(
        big_binary::cached_pow10(std::numeric_limits<int>::min(), 64).coefficient.is_zero());
}

TEST(BigBinaryCachedPow10, GivesOneAndTenAtAnyPrecision) {
    for (const unsigned precision : {1U, 3U, 64U, 128U, 256U, 1000U}) {
        expectForm(big_binary::cached_pow10(0, precision), 1, 0);
        expectForm(big_binary::cached_pow10(1, precision), 10, 0);
    }
}

TEST(BigBinaryCachedPow10, GivesACopy) {
    big_binary copy = big_binary::cached_pow10(7, 64);
    copy.coefficient.increment();
    copy.exponent = 99;
    expectForm(big_binary::cached_pow10(7, 64), 10000000, 0);
}

} // namespace
