// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Hashes of decimals: one for each value.
#include "orv/liborvxx/decimal/decimal_hash.h"

#include "orv/liborvxx/decimal/decimal_limits.h"
#include "orv/liborvxx/decimal/decimal_literals.h"
#include "orv/liborvxx/decimal/make_decimal.h"

#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <unordered_set>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using namespace orv::literals;

template <class T>
std::size_t hashOf(const T& x) {
    return std::hash<T>()(x);
}

static_assert(noexcept(std::hash<decimal64>()(decimal64())));

TEST(DecimalHash, IsTheSameForAllEncodingsOfANumber) {
    EXPECT_EQ(hashOf(1.5_d32), hashOf(1.500000_d32));
    EXPECT_EQ(hashOf(1e3_d64), hashOf(1000.000000000000_d64));
    EXPECT_EQ(hashOf(1e369_d64), hashOf(1000000000000000e354_d64));
    EXPECT_EQ(hashOf(1e-383_d64), hashOf(1000000000000000e-398_d64));
    EXPECT_EQ(hashOf(7e20_d128), hashOf(7000000000000000000000000000000000e-13_d128));
    EXPECT_EQ(hashOf(10e6111_d128), hashOf(1000000000000000000000000000000000e6079_d128));
    EXPECT_EQ(hashOf(20000000000000000000e6111_d128),
              hashOf(2000000000000000000000000000000000e6097_d128));
    EXPECT_EQ(hashOf(123456789012345678901234567.8_d128),
              hashOf(123456789012345678901234567.8000000_d128));
}

TEST(DecimalHash, IsTheSameForAllZeros) {
    for (const decimal64& x :
         {-0_d64, 0e369_d64, -0e-398_d64, decimal64(ODecimal64{0x6C7386F26FC10000}),
          decimal64(ODecimal64{0xEC77FFFFFFFFFFFF})}) {
        EXPECT_EQ(hashOf(x), hashOf(0_d64));
    }
    EXPECT_EQ(hashOf(decimal32(ODecimal32{0x6CB89680})), hashOf(0_d32));
    EXPECT_EQ(hashOf(decimal128(ODecimal128{0x378D8E6400000000, 0x3041ED09BEAD87C0})),
              hashOf(0_d128));
    EXPECT_EQ(hashOf(decimal128(ODecimal128{5, 0x6C10000000000000})), hashOf(-0e9_d128));
    EXPECT_EQ(hashOf(0_d32), hashOf(0_d128));
}

TEST(DecimalHash, IsTheSameForAllNansAndForAllEncodingsOfInfinity) {
    using L = std::numeric_limits<decimal64>;
    EXPECT_EQ(hashOf(L::quiet_NaN()), hashOf(-L::signaling_NaN()));
    EXPECT_EQ(hashOf(L::quiet_NaN()), hashOf(decimal64(ODecimal64{0x7C00000000000123})));
    EXPECT_EQ(hashOf(L::infinity()), hashOf(decimal64(ODecimal64{0x7800000000000123})));
    EXPECT_EQ(hashOf(-L::infinity()), hashOf(-std::numeric_limits<decimal32>::infinity()));
    EXPECT_NE(hashOf(L::infinity()), hashOf(-L::infinity()));
}

template <class T>
bool hashesAlike(const T& x, const T& y) {
    return x == y && hashOf(x) == hashOf(y);
}

TEST(DecimalHash, IsTheSameForEqualNumbersOfAllWidths) {
    orvtest::NumberSource source(62);
    for (std::size_t i = orvtest::caseCount(100000); i > 0; --i) {
        const int zeros = source.between(0, 6);
        int power = 1;
        for (int k = 0; k < zeros; ++k) {
            power *= 10;
        }
        const int n = source.between(-9999999, 9999999) / power;
        const int exponent = source.between(-101, 84);
        const decimal32 x = orv::decimal::_make_decimal32(n, exponent + zeros);
        const decimal32 y = orv::decimal::_make_decimal32(n * power, exponent);
        ASSERT_TRUE(hashesAlike(x, y)) << n << ' ' << exponent << ' ' << zeros;
        ASSERT_EQ(hashOf(x), hashOf(decimal64(y)));
        ASSERT_EQ(hashOf(x), hashOf(decimal128(y)));
        const decimal128 wide = decimal128(x) * decimal128(1.000000000000000000000000000_d128);
        ASSERT_EQ(wide, decimal128(x));
        ASSERT_EQ(hashOf(x), hashOf(wide));
    }
}

TEST(DecimalHash, DiffersBetweenSmallNumbers) {
    std::unordered_set<std::size_t> hashes;
    for (int n = -5000; n < 5000; ++n) {
        hashes.insert(hashOf(decimal64(orv::decimal::_make_decimal64(n, -2))));
    }
    EXPECT_EQ(hashes.size(), 10000U);
    EXPECT_NE(hashOf(1_d64), hashOf(-1_d64));
    EXPECT_NE(hashOf(1_d64), hashOf(10_d64));
    EXPECT_NE(hashOf(18446744073709551617_d128), hashOf(1_d128));
}

} // namespace
