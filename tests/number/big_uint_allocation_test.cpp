// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief When `big_uint` allocates, and what happens when it cannot.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"
#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <utility>

namespace {

using orv::big_uint;
using orvtest::allocations;
using orvtest::counting;
using orvtest::failAllocation;
using orvtest::liveBlocks;

// Blocks that a call takes from the allocator.
template <typename Call>
std::size_t allocationsOf(Call call) {
    const std::size_t before = allocations();
    call();
    return allocations() - before;
}

// Whether the call throws for lack of memory at its first allocation, and keeps no block.
template <typename Call>
bool runsOutOfMemory(Call call) {
    const std::size_t before = liveBlocks();
    failAllocation(1);
    try {
        call();
    } catch (const std::bad_alloc&) {
        return liveBlocks() == before;
    }
    failAllocation(0);
    return false;
}

TEST(BigUintAllocation, HappensForNothingUpTo256Bits) {
    const auto run = [] {
        big_uint a{1, 2, 3, 4, 5, 6, 7, 8};
        big_uint b(a);
        big_uint c(std::move(b));
        big_uint dst = big_uint::make_uninitialized(3, 8);
        dst = c;
        dst = std::move(c);
        dst.set_size(1);
        dst.set_size(8);
        dst.reserve(8);
        dst.trim();
        dst.set_size(7);
        dst.prepend(9);
        dst.swap(a);
        static_cast<void>(a < dst || a == dst || a.is_greater(3));
        dst.add(5U);
        dst.add(a);
        dst.add(a, dst);
        dst.subtract(a);
        dst.subtract(a, dst);
        dst.increment();
        dst.decrement();
        dst.shift_left();
        dst.shift_right();
        dst.shift_left(37);
        dst.shift_right(a, 41);
        dst.bit_and(a, dst);
        dst.bit_not(a);
        return dst.highest_set_bit() + dst.lowest_set_bit() +
               static_cast<int>(dst.bit_count() + dst.compute_rounding_info(100)) +
               static_cast<int>(dst.is_zero()) + static_cast<int>(dst.is_power_of_two());
    };
    EXPECT_EQ(allocationsOf(run), 0U);
}

TEST(BigUintAllocation, HappensForNoArithmeticOfAnyWidth) {
    big_uint a = counting(100);
    big_uint b = counting(80, 7);
    big_uint dst = counting(90);
    const auto run = [&] {
        dst.add(a, b);
        dst.add(a);
        dst.add(7U);
        dst.subtract(a, b);
        dst.subtract(b);
        dst.increment();
        dst.decrement();
        dst.shift_left(a, 100);
        dst.shift_right(200);
        dst.bit_and(a, dst);
        dst.bit_not(a);
        dst.set_size(20);
        dst.set_size(90);
        dst.swap(a);
        dst = std::move(b);
        return dst == a;
    };
    EXPECT_EQ(allocationsOf(run), 0U);
}

TEST(BigUintAllocation, HappensOnceForEachGrowth) {
    const std::size_t before = liveBlocks();
    {
        big_uint n(1U);
        EXPECT_EQ(allocationsOf([&] { n.set_size(9); }), 1U);
        EXPECT_EQ(allocationsOf([&] { n.prepend(1); }), 1U);
        EXPECT_EQ(allocationsOf([&] { n.reserve(20); }), 1U);
        EXPECT_EQ(allocationsOf([&] { n.set_size(20); }), 0U);
        EXPECT_EQ(allocationsOf([&] { const big_uint copy(n); }), 1U);
        EXPECT_EQ(allocationsOf([&] { const big_uint taken(std::move(n)); }), 0U);
        EXPECT_EQ(liveBlocks(), before);
    }
    EXPECT_EQ(liveBlocks(), before);
}

TEST(BigUintAllocation, IsUndoneByEveryEndOfABlock) {
    const std::size_t before = liveBlocks();
    {
        big_uint a = counting(20);
        big_uint b = counting(30);
        big_uint small(5U);
        a = counting(40);
        b = a;
        a = std::move(small);
        small = std::move(b);
        small.swap(b);
        a = counting(20);
        a.reserve(500);
        EXPECT_EQ(liveBlocks(), before + 2);
    }
    EXPECT_EQ(liveBlocks(), before);
}

TEST(BigUintOutOfMemory, LeavesTheNumberAsItWas) {
    const big_uint wide = counting(200);
    for (const unsigned size : {3U, 8U, 20U}) {
        const big_uint before = counting(size);
        big_uint n(before);
        const unsigned* const words = n.data();
        const std::function<void()> calls[] = {
            [&] { n.set_size(100); },
            [&] { n.reserve(100); },
            [&] { n = wide; },
            [&] {
                n.set_size(n.reserved());
                n.prepend(1);
            },
        };
        for (const auto& call : calls) {
            EXPECT_TRUE(runsOutOfMemory(call));
            EXPECT_EQ(n, before);
            EXPECT_EQ(n.data(), words);
            EXPECT_EQ(n.reserved(), before.reserved());
        }
    }
}

TEST(BigUintOutOfMemory, KeepsNoBlockOfANumberThatIsNotMade) {
    const big_uint wide = counting(200);
    EXPECT_TRUE(runsOutOfMemory([&] { const big_uint copy(wide); }));
    EXPECT_TRUE(runsOutOfMemory([] { const big_uint list{1, 2, 3, 4, 5, 6, 7, 8, 9}; }));
    EXPECT_TRUE(runsOutOfMemory([] { big_uint::make_uninitialized(9); }));
    EXPECT_TRUE(runsOutOfMemory([] { big_uint::make_uninitialized(1, 9); }));
}

} // namespace
