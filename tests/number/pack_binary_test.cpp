// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 2^exponent as float and double: rounding, the ends of the range.
#include "orv/liborvxx/number/pack_binary.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using orv::big_uint;
using orv::pack_double;
using orv::pack_float;
using orv::pack_long_double;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr float INF_F = std::numeric_limits<float>::infinity();
constexpr double TINY = std::numeric_limits<double>::denorm_min();
constexpr float TINY_F = std::numeric_limits<float>::denorm_min();
constexpr int INT_LEAST = std::numeric_limits<int>::min();
constexpr int INT_MOST = std::numeric_limits<int>::max();

std::uint64_t bitsOf(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

std::uint32_t bitsOf(float value) {
    return std::bit_cast<std::uint32_t>(value);
}

// 2^n - 1
big_uint ones(unsigned n) {
    big_uint number;
    number.set_size(n / 32 + 1);
    number.set_bit(n);
    number.decrement();
    return number;
}

// 2^n + low
big_uint bitAnd(unsigned n, unsigned low) {
    big_uint number(low);
    number.set_size(n / 32 + 1);
    number.set_bit(n);
    return number;
}

TEST(PackDouble, TakesIntegersAsTheyAre) {
    EXPECT_EQ(pack_double(false, 0, big_uint(1U)), 1.0);
    EXPECT_EQ(pack_double(true, 0, big_uint(1U)), -1.0);
    EXPECT_EQ(pack_double(false, 0, big_uint(123456789012345ULL)), 123456789012345.0);
    EXPECT_EQ(pack_double(false, -3, big_uint(5U)), 0.625);
    EXPECT_EQ(pack_double(false, 0, ones(53)), 9007199254740991.0);
}

TEST(PackDouble, ZeroKeepsItsSignAtAnyExponent) {
    EXPECT_EQ(bitsOf(pack_double(false, 0, big_uint())), 0U);
    EXPECT_EQ(bitsOf(pack_double(true, 0, big_uint(0U))), bitsOf(-0.0));
    EXPECT_EQ(bitsOf(pack_double(true, 5000, big_uint{0, 0, 0})), bitsOf(-0.0));
    EXPECT_EQ(bitsOf(pack_double(false, INT_MOST, big_uint(0U))), 0U);
    EXPECT_EQ(bitsOf(pack_double(true, INT_LEAST, big_uint(0U))), bitsOf(-0.0));
}

TEST(PackDouble, RoundsToNearestTiesToEven) {
    EXPECT_EQ(pack_double(false, 0, bitAnd(53, 1)), 9007199254740992.0);
    EXPECT_EQ(pack_double(false, 0, bitAnd(53, 3)), 9007199254740996.0);
    EXPECT_EQ(pack_double(false, 0, bitAnd(54, 2)), 18014398509481984.0);
    EXPECT_EQ(pack_double(false, 0, bitAnd(54, 3)), 18014398509481988.0);
    EXPECT_EQ(pack_double(false, 0, bitAnd(54, 1)), 18014398509481984.0);
}

TEST(PackDouble, OneBitFarBelowDecidesATie) {
    for (const unsigned n : {60U, 64U, 65U, 96U, 128U, 500U, 3000U}) {
        big_uint tie = bitAnd(n, 0); // 1 * 2^52 + 1/2 units
        tie.set_bit(n - 53);
        const int exponent = -static_cast<int>(n);
        EXPECT_EQ(pack_double(false, exponent, tie), 1.0) << n;
        big_uint above(tie);
        above.set_bit(0);
        EXPECT_EQ(pack_double(false, exponent, above), std::nextafter(1.0, 2.0)) << n;
        tie.decrement();
        EXPECT_EQ(pack_double(false, exponent, tie), 1.0) << n;
    }
}

TEST(PackDouble, RoundingUpCarriesIntoTheExponent) {
    EXPECT_EQ(pack_double(false, 0, ones(54)), 18014398509481984.0);
    EXPECT_EQ(pack_double(false, -200, ones(200)), 1.0);
    EXPECT_EQ(pack_double(true, -200, ones(200)), -1.0);
}

TEST(PackDouble, SubnormalResultsAreRoundedOnceAtTheSmallestStep) {
    EXPECT_EQ(pack_double(false, -1074, big_uint(1U)), TINY);
    EXPECT_EQ(bitsOf(pack_double(false, -1075, big_uint(1U))), 0U);
    EXPECT_EQ(pack_double(false, -1075, big_uint(3U)), 2 * TINY);
    EXPECT_EQ(pack_double(false, -1076, big_uint(3U)), TINY);
    EXPECT_EQ(bitsOf(pack_double(true, -1076, big_uint(2U))), bitsOf(-0.0));
    EXPECT_EQ(pack_double(false, -1077, big_uint(5U)), TINY);
    EXPECT_EQ(pack_double(false, -1074, big_uint(5U)), 5 * TINY);
    EXPECT_EQ(pack_double(false, -1074, ones(52)),
              std::nextafter(std::numeric_limits<double>::min(), 0.0));
}

TEST(PackDouble, TheLargestSubnormalRoundsUpToTheSmallestNormal) {
    EXPECT_EQ(pack_double(false, -1075, ones(53)), std::numeric_limits<double>::min());
    EXPECT_EQ(pack_double(false, -1022, big_uint(1U)), std::numeric_limits<double>::min());
}

TEST(PackDouble, TheLargestFiniteNumberRoundsUpToInfinity) {
    EXPECT_EQ(pack_double(false, 971, ones(53)), std::numeric_limits<double>::max());
    EXPECT_EQ(pack_double(false, 970, ones(54)), INF);
    EXPECT_EQ(pack_double(true, 970, ones(54)), -INF);
    big_uint below = ones(64);
    below.clear_bit(10);
    EXPECT_EQ(pack_double(false, 960, below), std::numeric_limits<double>::max());
    EXPECT_EQ(pack_double(false, 971, bitAnd(53, 0)), INF);
}

TEST(PackDouble, ExtremeExponentsGiveInfinityOrZero) {
    EXPECT_EQ(pack_double(true, 5000, big_uint(1U)), -INF);
    EXPECT_EQ(pack_double(false, INT_MOST, ones(3000)), INF);
    EXPECT_EQ(pack_double(false, INT_MOST, big_uint(1U)), INF);
    EXPECT_EQ(bitsOf(pack_double(false, INT_LEAST, ones(3000))), 0U);
    EXPECT_EQ(bitsOf(pack_double(true, INT_LEAST, big_uint(1U))), bitsOf(-0.0));
    EXPECT_EQ(bitsOf(pack_double(false, -1076, big_uint(1U))), 0U);
}

TEST(PackDouble, AWideCoefficientCancelsASmallExponent) {
    EXPECT_EQ(pack_double(false, -2'000'000, bitAnd(2'000'000, 1)), 1.0);
    EXPECT_EQ(pack_double(false, -1074 - 40'000, bitAnd(40'000, 0)), TINY);
    EXPECT_EQ(pack_double(false, -1075 - 40'000, bitAnd(40'000, 1)), TINY);
    EXPECT_EQ(bitsOf(pack_double(false, -1075 - 40'000, bitAnd(40'000, 0))), 0U);
}

TEST(PackDouble, ZeroWordsAtTheTopChangeNothing) {
    EXPECT_EQ(pack_double(false, 1, big_uint{3, 0, 0, 0}), 6.0);
    EXPECT_EQ(pack_double(false, -1075, big_uint{3, 0, 0, 0}), 2 * TINY);
    EXPECT_EQ(pack_double(false, 0, big_uint{1, 0x400000, 0, 0, 0, 0, 0, 0, 0, 0}),
              18014398509481984.0);
}

TEST(PackDouble, LeavesTheCoefficientAlone) {
    const big_uint coefficient{1, 2, 3, 4};
    static_cast<void>(pack_double(false, -1100, coefficient));
    EXPECT_EQ(coefficient, (big_uint{1, 2, 3, 4}));
    EXPECT_EQ(coefficient.size(), 4U);
}

TEST(PackFloat, RoundsLikeADoubleAt24Bits) {
    EXPECT_EQ(pack_float(false, 0, big_uint(1U)), 1.0F);
    EXPECT_EQ(pack_float(true, -1, big_uint(3U)), -1.5F);
    EXPECT_EQ(pack_float(false, 0, big_uint(0x1000001U)), 16777216.0F);
    EXPECT_EQ(pack_float(false, 0, big_uint(0x1000003U)), 16777220.0F);
    EXPECT_EQ(pack_float(false, 0, big_uint(0x1FFFFFFU)), 33554432.0F);
    EXPECT_EQ(pack_float(false, -100, bitAnd(100, 1)), 1.0F);
    EXPECT_EQ(pack_float(false, 0, big_uint(0x1000001000000001ULL)), 0x1.000002p60F);
    EXPECT_EQ(pack_float(false, 0, big_uint(0x1000001000000000ULL)), 0x1.0p60F);
    EXPECT_EQ(pack_float(false, 0, big_uint(0x1000000FFFFFFFFFULL)), 0x1.0p60F);
}

TEST(PackFloat, HasTheRangeOfAFloat) {
    EXPECT_EQ(pack_float(false, -149, big_uint(1U)), TINY_F);
    EXPECT_EQ(bitsOf(pack_float(false, -150, big_uint(1U))), 0U);
    EXPECT_EQ(pack_float(false, -150, big_uint(3U)), 2 * TINY_F);
    EXPECT_EQ(pack_float(false, -150, big_uint(0xFFFFFFU)), std::numeric_limits<float>::min());
    EXPECT_EQ(pack_float(false, 104, big_uint(0xFFFFFFU)), std::numeric_limits<float>::max());
    EXPECT_EQ(pack_float(false, 103, big_uint(0x1FFFFFFU)), INF_F);
    EXPECT_EQ(pack_float(false, 102, big_uint(0x3FFFFFDU)), std::numeric_limits<float>::max());
    EXPECT_EQ(pack_float(false, 128, big_uint(1U)), INF_F);
    EXPECT_EQ(pack_float(true, INT_MOST, big_uint(1U)), -INF_F);
    EXPECT_EQ(bitsOf(pack_float(true, INT_LEAST, big_uint(1U))), bitsOf(-0.0F));
    EXPECT_EQ(bitsOf(pack_float(true, 7, big_uint(0U))), bitsOf(-0.0F));
}

TEST(PackLongDouble, HasThePrecisionAndTheRangeOfADouble) {
    EXPECT_EQ(pack_long_double(false, 0, bitAnd(53, 1)), 9007199254740992.0L);
    EXPECT_EQ(pack_long_double(true, 1024, big_uint(1U)),
              -std::numeric_limits<long double>::infinity());
    EXPECT_EQ(pack_long_double(false, -1075, big_uint(1U)), 0.0L);
    EXPECT_EQ(pack_long_double(false, -1074, big_uint(1U)), static_cast<long double>(TINY));
}

} // namespace
