// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Multiplication, division and text while memory runs out, and where they need none.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"
#include "tests/support/counting_allocator.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace {

using orv::big_uint;
using orvtest::allocations;
using orvtest::failAllocation;
using orvtest::liveBlocks;
using orvtest::wordsOf;

// Makes the first allocation of a call fail, then the second, and so on, until the call needs no
// more. Returns how many it made.
template <class Call>
std::size_t failEach(Call call) {
    for (std::size_t n = 1;; ++n) {
        const std::size_t before = allocations();
        failAllocation(n);
        call();
        failAllocation(0);
        if (allocations() - before < n) {
            return n - 1;
        }
    }
}

TEST(BigUintMemory, ProductsAreTheSameWithoutScratch) {
    orvtest::NumberSource source(1);
    for (const unsigned bn : {30U, 60U, 100U, 400U, 700U}) {
        for (const unsigned an : {bn, bn + 1, bn + bn / 2, 3 * bn + 5}) {
            const big_uint a = source.number(an);
            const big_uint b = source.number(bn);
            big_uint expected = big_uint::make_uninitialized(an + bn);
            expected.multiply(a, b);
            big_uint product = big_uint::make_uninitialized(an + bn);
            const std::size_t blocks = liveBlocks();
            const std::size_t failures = failEach([&] {
                product.set_bit(0);
                product.multiply(a, b);
            });
            EXPECT_EQ(liveBlocks(), blocks);
            EXPECT_EQ(wordsOf(product), wordsOf(expected)) << an << " by " << bn;
            EXPECT_LE(failures, 1U);
            EXPECT_EQ(failures != 0, bn >= 400) << an << " by " << bn;
        }
    }
}

TEST(BigUintMemory, AnUnscratchedProductIsTheSame) {
    orvtest::NumberSource source(2);
    const big_uint a = source.number(900);
    const big_uint b = source.number(800);
    big_uint expected = big_uint::make_uninitialized(1700);
    expected.multiply(a, b);
    big_uint product = big_uint::make_uninitialized(1700);
    const std::size_t before = allocations();
    failAllocation(1);
    product.multiply(a, b);
    EXPECT_EQ(allocations(), before + 1);
    EXPECT_EQ(wordsOf(product), wordsOf(expected));
}

TEST(BigUintMemory, AFailedDivisionChangesNothing) {
    orvtest::NumberSource source(3);
    for (const unsigned bn : {3U, 60U, 300U}) {
        const unsigned an = 3 * bn + 700;
        const big_uint a = orvtest::counting(an);
        const big_uint b = orvtest::counting(bn);
        big_uint q = source.number(an);
        big_uint r = source.number(an);
        const auto quotientBefore = wordsOf(q);
        const auto remainderBefore = wordsOf(r);
        const std::size_t blocks = liveBlocks();
        bool failed = false;
        const std::size_t failures = failEach([&] {
            failed = false;
            try {
                q.divide(a, b, r);
            } catch (const std::bad_alloc&) {
                failed = true;
            }
            if (failed) {
                failAllocation(0);
                EXPECT_EQ(liveBlocks(), blocks);
                EXPECT_TRUE(wordsOf(q) == quotientBefore);
                EXPECT_TRUE(wordsOf(r) == remainderBefore);
            }
        });
        EXPECT_GE(failures, 1U);
        EXPECT_FALSE(failed);
        EXPECT_EQ(liveBlocks(), blocks);
    }
}

TEST(BigUintMemory, FailedTextLeaksNothing) {
    for (const unsigned size : {3U, 8U, 200U, 1000U}) {
        const big_uint n = orvtest::counting(size);
        const std::string expected = n.to_string();
        const auto before = wordsOf(n);
        const std::size_t blocks = liveBlocks();
        std::string text;
        const std::size_t failures = failEach([&] {
            std::string().swap(text);
            try {
                text = n.to_string();
            } catch (const std::bad_alloc&) {
                failAllocation(0);
                EXPECT_EQ(liveBlocks(), blocks);
            }
        });
        EXPECT_GE(failures, 1U);
        EXPECT_EQ(text, expected);
        EXPECT_TRUE(wordsOf(n) == before);
        EXPECT_THROW(
            {
                failAllocation(1);
                n.to_ustring();
            },
            std::bad_alloc);
    }
}

TEST(BigUintMemory, UpToEightWordsNothingAllocatesButTheString) {
    orvtest::NumberSource source(5);
    for (unsigned i = 0; i < 200; ++i) {
        const big_uint a = source.numberUpTo(8);
        const big_uint b({3, source.below(100), 5});
        big_uint q({0, 0, 0, 0, 0, 0, 0, 0});
        big_uint r({0, 0, 0, 0, 0, 0, 0, 0});
        big_uint product({0, 0, 0, 0, 0, 0, 0, 0});
        const big_uint low({a[0], 1, 2, 3});
        std::size_t before = allocations();
        q.divide(a, b, r);
        product.multiply(b, low);
        product.multiply(7);
        product.divide(7);
        EXPECT_EQ(allocations(), before);
        const std::string text = a.to_string();
        EXPECT_LE(allocations(), before + 1);
        before = allocations();
        const orv::ustring wide = a.to_ustring();
        EXPECT_LE(allocations(), before + 1);
        EXPECT_EQ(wide.size(), text.size());
    }
}

} // namespace
