// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Where numbers are made without memory from the heap, and what happens if there is none.
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/make_binary.h"
#include "orv/liborvxx/number/pack_binary.h"
#include "orv/liborvxx/number/pack_decimal.h"
#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

namespace {

using orv::big_uint;

// What a call allocates.
template <class Call>
std::size_t blocksOf(Call call) {
    const std::size_t before = orvtest::allocations();
    static_cast<void>(call());
    return orvtest::allocations() - before;
}

// A number of n words, all bits set.
big_uint ones(unsigned n) {
    big_uint number;
    number.set_size(n);
    number.bit_not(number);
    return number;
}

TEST(PackBinaryAllocation, TakesNoMemoryForAnyWidth) {
    for (const unsigned width : {1U, 2U, 3U, 8U, 9U, 100U}) {
        const big_uint n = ones(width);
        for (const int exponent : {0, -1100, 900, -3300}) {
            EXPECT_EQ(blocksOf([&] { return orv::pack_double(false, exponent, n); }), 0U);
            EXPECT_EQ(blocksOf([&] { return orv::pack_float(false, exponent, n); }), 0U);
        }
    }
}

TEST(MakeBinaryAllocation, TakesNoMemoryForWhatAnEstimateDecides) {
    const big_uint n(12345678901234567890ULL);
    for (const int exponent : {-340, -300, -100, -20, -1, 0, 1, 20, 100, 300}) {
        EXPECT_EQ(blocksOf([&] { return orv::make_double(false, exponent, n); }), 0U) << exponent;
        EXPECT_EQ(blocksOf([&] { return orv::make_float(false, exponent, n); }), 0U) << exponent;
    }
}

TEST(PackDecimalAllocation, TakesNoMemoryForEightWords) {
    for (const unsigned width : {1U, 2U, 4U, 8U}) {
        const big_uint n = ones(width);
        for (const int exponent : {0, -120, 85, -410, -6200, 6100}) {
            EXPECT_EQ(blocksOf([&] { return orv::pack_decimal32(false, exponent, n); }), 0U);
            EXPECT_EQ(blocksOf([&] { return orv::pack_decimal64(false, exponent, n); }), 0U);
            EXPECT_EQ(blocksOf([&] { return orv::pack_decimal128(false, exponent, n); }), 0U);
        }
    }
}

// An exact tie, which only the long division tells.
TEST(MakeBinaryAllocation, LacksOfMemoryPassThroughAndNothingLeaks) {
    big_uint power5;
    const big_uint odd(9007199254740993ULL);
    const big_uint& power = big_uint::pow5(200, &power5);
    big_uint tie;
    tie.set_size(power.size() + odd.size());
    tie.multiply(power, odd);
    const double expected = orv::make_double(false, -200, tie);
    const std::size_t blocks = blocksOf([&] { return orv::make_double(false, -200, tie); });
    ASSERT_GT(blocks, 0U) << "the case must need memory";
    const std::size_t live = orvtest::liveBlocks();
    for (std::size_t i = 1; i <= blocks; ++i) {
        orvtest::failAllocation(i);
        EXPECT_THROW(static_cast<void>(orv::make_double(false, -200, tie)), std::bad_alloc) << i;
        orvtest::failAllocation(0);
        EXPECT_EQ(orvtest::liveBlocks(), live) << i;
    }
    EXPECT_EQ(orv::make_double(false, -200, tie), expected);
}

} // namespace
