// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: changes of the width, and access to words.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"
#include "tests/support/thrown_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace {

using orv::big_uint;
using orvtest::counting;
using orvtest::thrownMessage;
using orvtest::wordsOf;
using testing::Each;
using testing::ElementsAre;

TEST(BigUintWidth, GrowsWithZerosAtTheTop) {
    big_uint n{1, 2};
    const unsigned* words = n.set_size(4);
    EXPECT_EQ(words, n.data());
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 2U, 0U, 0U));
    words = n.set_size(9);
    EXPECT_EQ(words, n.data());
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 2U, 0U, 0U, 0U, 0U, 0U, 0U, 0U));
    EXPECT_EQ(n.reserved(), 9U);
}

TEST(BigUintWidth, DoesNotBringOldWordsBack) {
    for (const unsigned size : {8U, 40U}) {
        big_uint n = counting(size);
        n.set_size(1);
        n.set_size(size);
        const std::vector<unsigned> words = wordsOf(n);
        EXPECT_EQ(words[0], 1U);
        EXPECT_THAT(std::vector<unsigned>(words.begin() + 1, words.end()), Each(0U));
        EXPECT_EQ(n.reserved(), size);
    }
}

TEST(BigUintWidth, StaysInItsBlockWhenItShrinks) {
    big_uint n = counting(40);
    const unsigned* const block = n.data();
    n.set_size(2);
    EXPECT_EQ(n.data(), block);
    EXPECT_EQ(n.reserved(), 40U);
    EXPECT_FALSE(n.is_local());
}

TEST(BigUintWidth, RefusesNoWordsAndTooMany) {
    for (const unsigned size : {3U, 40U}) {
        big_uint n = counting(size);
        const unsigned* const words = n.data();
        EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { n.set_size(0); }),
                  "big_uint::set_size: new size must not be zero");
        EXPECT_EQ(thrownMessage<std::length_error>([&] { n.set_size(65536); }),
                  "big_uint::max_size() exceeded");
        EXPECT_EQ(thrownMessage<std::length_error>([&] { n.reserve(65536); }),
                  "big_uint::max_size() exceeded");
        EXPECT_EQ(n.data(), words);
        EXPECT_EQ(n, counting(size));
        EXPECT_EQ(n.reserved(), std::max(size, 8U));
    }
}

TEST(BigUintWidth, ReservesExactlyWhatIsAskedFor) {
    big_uint n{1, 2, 3};
    n.reserve(0);
    n.reserve(8);
    EXPECT_TRUE(n.is_local());
    n.reserve(9);
    EXPECT_EQ(n.reserved(), 9U);
    n.reserve(30);
    EXPECT_EQ(n.reserved(), 30U);
    n.reserve(20);
    EXPECT_EQ(n.reserved(), 30U);
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 2U, 3U));
}

TEST(BigUintWidth, PrependsTheMostSignificantWord) {
    big_uint n{1, 2};
    n.prepend(3);
    n.prepend(0);
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 2U, 3U, 0U));
    big_uint grown(1U);
    for (unsigned i = 2; i <= 30; ++i) {
        grown.prepend(i);
        EXPECT_EQ(grown.reserved(), std::max(i, 8U));
    }
    EXPECT_EQ(grown, counting(30));
}

TEST(BigUintWidth, CannotPrependToTheWidestNumber) {
    big_uint n(1U);
    n.set_size(65535);
    EXPECT_EQ(thrownMessage<std::length_error>([&] { n.prepend(1); }),
              "big_uint::max_size() exceeded");
    EXPECT_EQ(n.size(), 65535U);
    EXPECT_TRUE(n.is_equal(1));
}

TEST(BigUintWidth, TrimsZerosAtTheTopButKeepsAWordAndTheMemory) {
    big_uint n{0, 1, 0, 2, 0, 0};
    n.trim();
    EXPECT_THAT(wordsOf(n), ElementsAre(0U, 1U, 0U, 2U));
    n.trim();
    EXPECT_EQ(n.size(), 4U);
    big_uint zero;
    zero.set_size(50);
    zero.trim();
    EXPECT_THAT(wordsOf(zero), ElementsAre(0U));
    EXPECT_EQ(zero.reserved(), 50U);
}

TEST(BigUintWords, AreReadAndWrittenInPlace) {
    big_uint n{1, 2, 3};
    n[1] = 7;
    n.data()[2] = 9;
    const big_uint& same = n;
    EXPECT_EQ(same[0], 1U);
    EXPECT_EQ(same[1], 7U);
    EXPECT_EQ(same.data()[2], 9U);
}

TEST(BigUintWords, TellTheEndsOfTheNumber) {
    const big_uint high{2, 0x80000000};
    EXPECT_EQ(high.msw(), 0x80000000U);
    EXPECT_TRUE(high.msb());
    EXPECT_EQ(high.msbx(), 0xFFFFFFFFU);
    EXPECT_FALSE(high.lsb());
    const big_uint low{0xFFFFFFFF, 0x7FFFFFFF};
    EXPECT_FALSE(low.msb());
    EXPECT_EQ(low.msbx(), 0U);
    EXPECT_TRUE(low.lsb());
    EXPECT_EQ((big_uint{5, 0}.msw()), 0U);
}

TEST(BigUintWords, GiveTheLow32And64Bits) {
    EXPECT_EQ((big_uint{5, 6, 7}.to_uint32()), 5U);
    EXPECT_EQ((big_uint{5, 6, 7}.to_uint64()), 0x600000005U);
    EXPECT_EQ(big_uint(0xFFFFFFFFU).to_uint64(), 0xFFFFFFFFU);
    big_uint narrow{5, 6};
    narrow.set_size(1);
    EXPECT_EQ(narrow.to_uint64(), 5U);
}

#ifndef NDEBUG
TEST(BigUintWordsDeathTest, AssertsThatIndexesAreWithinTheWidth) {
    big_uint n{1, 2};
    EXPECT_DEATH(n[2] = 0, "");
    EXPECT_DEATH(n.set_bit(64), "");
    EXPECT_DEATH(n.clear_bit(64), "");
    EXPECT_DEATH(static_cast<void>(n.test_bit(64)), "");
    EXPECT_DEATH(static_cast<void>(big_uint(-1)), "");
}
#endif

} // namespace
