// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: construction, assignment, swap and limits.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"
#include "tests/support/thrown_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace {

using orv::big_uint;
using orvtest::counting;
using orvtest::thrownMessage;
using orvtest::wordsOf;
using testing::ElementsAre;

bool ownsItsWords(const big_uint& n) {
    const auto* const object = reinterpret_cast<const char*>(&n);
    const auto* const words = reinterpret_cast<const char*>(n.data());
    return words >= object && words < object + sizeof n;
}

TEST(BigUintLimits, AreEightWordsInPlaceAnd65535InAll) {
    EXPECT_EQ(big_uint::MIN_RESERVED, 8U);
    EXPECT_EQ(big_uint::min_reserved(), 8U);
    EXPECT_EQ(big_uint::max_size(), 65535U);
}

TEST(BigUintLimits, MovesAndSwapsCannotThrow) {
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<big_uint>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<big_uint>);
    EXPECT_TRUE(std::is_nothrow_swappable_v<big_uint>);
    EXPECT_TRUE(std::is_nothrow_default_constructible_v<big_uint>);
}

TEST(BigUintConstruction, IsZeroInOneWordByDefault) {
    const big_uint zero;
    EXPECT_THAT(wordsOf(zero), ElementsAre(0U));
    EXPECT_EQ(zero.reserved(), 8U);
    EXPECT_TRUE(zero.is_local());
}

TEST(BigUintConstruction, TakesOneWordForValuesBelow2To32) {
    EXPECT_THAT(wordsOf(big_uint(0U)), ElementsAre(0U));
    EXPECT_THAT(wordsOf(big_uint(0xFFFFFFFFU)), ElementsAre(0xFFFFFFFFU));
    EXPECT_THAT(wordsOf(big_uint(std::size_t{0})), ElementsAre(0U));
    EXPECT_THAT(wordsOf(big_uint(std::size_t{0xFFFFFFFF})), ElementsAre(0xFFFFFFFFU));
    EXPECT_THAT(wordsOf(big_uint(0xFFFFFFFFULL)), ElementsAre(0xFFFFFFFFU));
    EXPECT_THAT(wordsOf(big_uint(7)), ElementsAre(7U));
    EXPECT_THAT(wordsOf(big_uint(7L)), ElementsAre(7U));
    EXPECT_THAT(wordsOf(big_uint(7LL)), ElementsAre(7U));
}

TEST(BigUintConstruction, TakesTwoWordsForWhatIsMore) {
    EXPECT_THAT(wordsOf(big_uint(std::size_t{0x100000000})), ElementsAre(0U, 1U));
    EXPECT_THAT(wordsOf(big_uint(0x1234567890ABCDEFULL)), ElementsAre(0x90ABCDEFU, 0x12345678U));
    EXPECT_THAT(wordsOf(big_uint(0x1234567890ABCDEFL)), ElementsAre(0x90ABCDEFU, 0x12345678U));
    EXPECT_THAT(wordsOf(big_uint(~0ULL)), ElementsAre(0xFFFFFFFFU, 0xFFFFFFFFU));
    EXPECT_THAT(wordsOf(big_uint(std::numeric_limits<long long>::max())),
                ElementsAre(0xFFFFFFFFU, 0x7FFFFFFFU));
}

TEST(BigUintConstruction, TakesTheWordsOfAListAndTrimsNothing) {
    const big_uint n{1, 2, 3, 0, 0};
    EXPECT_THAT(wordsOf(n), ElementsAre(1U, 2U, 3U, 0U, 0U));
    EXPECT_TRUE(n.is_local());
    const big_uint wide{1, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_THAT(wordsOf(wide), ElementsAre(1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U));
    EXPECT_EQ(wide.reserved(), 9U);
    EXPECT_FALSE(wide.is_local());
}

TEST(BigUintConstruction, MakesAnObjectOfNoWordsOfAnEmptyList) {
    big_uint n(std::initializer_list<unsigned>{});
    EXPECT_EQ(n.size(), 0U);
    EXPECT_TRUE(n.is_local());
    big_uint copy(n);
    EXPECT_EQ(copy.size(), 0U);
    copy = 5U;
    copy.swap(n);
    EXPECT_EQ(copy.size(), 0U);
    EXPECT_THAT(wordsOf(n), ElementsAre(5U));
    copy.set_size(2);
    EXPECT_THAT(wordsOf(copy), ElementsAre(0U, 0U));
}

TEST(BigUintConstruction, CopiesIntoACapacityOfTheSize) {
    big_uint source = counting(20);
    source.reserve(100);
    const big_uint copy(source);
    EXPECT_EQ(copy, source);
    EXPECT_EQ(copy.size(), 20U);
    EXPECT_EQ(copy.reserved(), 20U);

    source.set_size(3);
    const big_uint small(source);
    EXPECT_THAT(wordsOf(small), ElementsAre(1U, 2U, 3U));
    EXPECT_TRUE(small.is_local());
}

TEST(BigUintConstruction, RefusesWidthsBeyondTheLimit) {
    EXPECT_EQ(thrownMessage<std::length_error>([] { big_uint::make_uninitialized(65536); }),
              "big_uint: size > max_size()");
    EXPECT_EQ(thrownMessage<std::length_error>([] { big_uint::make_uninitialized(1, 65536); }),
              "big_uint: size > max_size()");
    EXPECT_EQ(thrownMessage<std::length_error>([] { big_uint::make_uninitialized(~0U); }),
              "big_uint: size > max_size()");
    EXPECT_EQ(big_uint::make_uninitialized(65535).reserved(), 65535U);
}

TEST(BigUintMakeUninitialized, GivesTheSizeAndCapacityAskedFor) {
    EXPECT_EQ(big_uint::make_uninitialized(3).size(), 3U);
    EXPECT_TRUE(big_uint::make_uninitialized(8).is_local());
    EXPECT_EQ(big_uint::make_uninitialized(9).reserved(), 9U);
    EXPECT_EQ(big_uint::make_uninitialized(2, 7).reserved(), 8U);
    const big_uint n = big_uint::make_uninitialized(2, 30);
    EXPECT_EQ(n.size(), 2U);
    EXPECT_EQ(n.reserved(), 30U);
}

TEST(BigUintMakeUninitialized, RefusesNoWordsBeforeItLooksAtTheCapacity) {
    const auto make = [](unsigned size, unsigned capacity) {
        return thrownMessage<std::invalid_argument>(
            [=] { big_uint::make_uninitialized(size, capacity); });
    };
    EXPECT_EQ(thrownMessage<std::invalid_argument>([] { big_uint::make_uninitialized(0); }),
              "big_uint::make_uninitialized: size == 0");
    EXPECT_EQ(make(0, 0), "big_uint::make_uninitialized: size == 0");
    EXPECT_EQ(make(0, 65536), "big_uint::make_uninitialized: size == 0");
    EXPECT_EQ(make(2, 1), "big_uint::make_uninitialized: capacity < size");
    EXPECT_EQ(make(65536, 65535), "big_uint::make_uninitialized: capacity < size");
}

TEST(BigUintMoveConstruction, LeavesASourceWithoutABlockAsItWas) {
    big_uint source{1, 2, 3};
    const big_uint target(std::move(source));
    EXPECT_THAT(wordsOf(target), ElementsAre(1U, 2U, 3U));
    EXPECT_THAT(wordsOf(source), ElementsAre(1U, 2U, 3U)); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(ownsItsWords(target));
    EXPECT_TRUE(ownsItsWords(source));
}

TEST(BigUintMoveConstruction, TakesTheBlockOfItsSource) {
    big_uint source = counting(20);
    source.reserve(30);
    const unsigned* const block = source.data();
    const big_uint target(std::move(source));
    EXPECT_EQ(target.data(), block);
    EXPECT_EQ(target.size(), 20U);
    EXPECT_EQ(target.reserved(), 30U);
    EXPECT_EQ(target, counting(20));
    EXPECT_EQ(source.size(), 1U); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(source.reserved(), 8U);
    EXPECT_TRUE(ownsItsWords(source));
    source = 9U;
    EXPECT_THAT(wordsOf(source), ElementsAre(9U));
}

TEST(BigUintMoveAssignment, CopiesASourceWithoutABlock) {
    big_uint source{1, 2, 3};
    big_uint target = counting(100);
    const unsigned* const block = target.data();
    target = std::move(source);
    EXPECT_THAT(wordsOf(target), ElementsAre(1U, 2U, 3U));
    EXPECT_EQ(target.data(), block);
    EXPECT_EQ(target.reserved(), 100U);
    EXPECT_THAT(wordsOf(source), ElementsAre(1U, 2U, 3U)); // NOLINT(bugprone-use-after-move)
}

TEST(BigUintMoveAssignment, TakesTheBlockIfItHasNone) {
    big_uint source = counting(20);
    const unsigned* const block = source.data();
    big_uint target(5U);
    target = std::move(source);
    EXPECT_EQ(target.data(), block);
    EXPECT_EQ(target.reserved(), 20U);
    EXPECT_EQ(target, counting(20));
    EXPECT_EQ(source.size(), 1U); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(source.is_local());
    EXPECT_TRUE(ownsItsWords(source));
}

TEST(BigUintMoveAssignment, ExchangesTwoBlocks) {
    big_uint source = counting(20);
    big_uint target = counting(30, 100);
    const unsigned* const block = source.data();
    target = std::move(source);
    EXPECT_EQ(target.data(), block);
    EXPECT_EQ(target, counting(20));
    EXPECT_EQ(target.reserved(), 20U);
    EXPECT_EQ(source, counting(30, 100)); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(source.reserved(), 30U);
}

TEST(BigUintAssignment, DoesNothingForTheObjectItself) {
    for (const unsigned size : {3U, 20U}) {
        big_uint n = counting(size);
        big_uint& same = n;
        const unsigned* const words = n.data();
        n = same;
        n = std::move(same);
        n.swap(same);
        EXPECT_EQ(n.data(), words);
        EXPECT_EQ(n, counting(size));
    }
}

TEST(BigUintAssignment, ReallocatesOnlyForMoreThanItsCapacity) {
    big_uint target(1U);
    target = counting(8);
    EXPECT_TRUE(target.is_local());
    const big_uint wide = counting(9);
    target = wide;
    EXPECT_EQ(target, wide);
    EXPECT_EQ(target.reserved(), 9U);
    const big_uint wider = counting(12);
    target = wider;
    EXPECT_EQ(target, wider);
    EXPECT_EQ(target.reserved(), 12U);
}

TEST(BigUintAssignment, NeverGivesCapacityBack) {
    big_uint target = counting(100);
    const unsigned* const block = target.data();
    const big_uint source{1, 2};
    target = source;
    EXPECT_THAT(wordsOf(target), ElementsAre(1U, 2U));
    EXPECT_EQ(target.reserved(), 100U);
    EXPECT_EQ(target.data(), block);
}

TEST(BigUintSwap, ExchangesTwoValuesInPlace) {
    big_uint a{1, 2, 3};
    big_uint b{4};
    swap(a, b);
    EXPECT_THAT(wordsOf(a), ElementsAre(4U));
    EXPECT_THAT(wordsOf(b), ElementsAre(1U, 2U, 3U));
    EXPECT_TRUE(ownsItsWords(a) && ownsItsWords(b));
}

TEST(BigUintSwap, ExchangesTwoBlocks) {
    big_uint a = counting(10);
    big_uint b = counting(20, 50);
    const unsigned* const words = a.data();
    a.swap(b);
    EXPECT_EQ(b.data(), words);
    EXPECT_EQ(a, counting(20, 50));
    EXPECT_EQ(b, counting(10));
    EXPECT_EQ(a.reserved(), 20U);
    EXPECT_EQ(b.reserved(), 10U);
}

TEST(BigUintSwap, HandsABlockOverForAValueInPlace) {
    for (const bool blockFirst : {false, true}) {
        big_uint inside{1, 2, 3};
        big_uint outside = counting(20);
        const unsigned* const block = outside.data();
        blockFirst ? outside.swap(inside) : inside.swap(outside);
        EXPECT_EQ(inside.data(), block);
        EXPECT_EQ(inside, counting(20));
        EXPECT_EQ(inside.reserved(), 20U);
        EXPECT_THAT(wordsOf(outside), ElementsAre(1U, 2U, 3U));
        EXPECT_TRUE(outside.is_local() && ownsItsWords(outside));
    }
}

} // namespace
