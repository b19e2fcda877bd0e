// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Constants made on first use, while memory runs out: what fails leaves the place as it
/// was, nothing leaks, and the next one who asks gets the value.
///
/// A process has each constant's first use only once: every test has entries of its own.
#include "orv/liborvxx/number/big_binary.h"
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/detail/publish_once.h"

#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <future>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

using orv::big_binary;
using orv::big_uint;
using orv::detail::PublishOnce;

class Counted {
public:
    explicit Counted(int value) : value_(value) { ++live; }
    ~Counted() { --live; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    int value() const { return value_; }

    static inline int live = 0;

private:
    int value_;
};

TEST(PublishOnceFailure, LeavesTheSlotEmptyAndUsable) {
    PublishOnce<Counted> slot;
    const std::size_t before = orvtest::liveBlocks();
    const auto fail = []() -> std::unique_ptr<Counted> { throw std::bad_alloc(); };
    EXPECT_THROW(slot.get(fail), std::bad_alloc);
    EXPECT_THROW(slot.get(fail), std::bad_alloc);
    EXPECT_EQ(orvtest::liveBlocks(), before);
    const Counted& object = slot.get([] { return std::make_unique<Counted>(1); });
    EXPECT_EQ(object.value(), 1);
    EXPECT_EQ(&slot.get(fail), &object); // not asked any more
    EXPECT_EQ(Counted::live, 1);
    delete &object;
}

TEST(PublishOnceFailure, AllocationOfTheObjectItselfMayFail) {
    PublishOnce<Counted> slot;
    const auto make = [] { return std::make_unique<Counted>(2); };
    const std::size_t before = orvtest::liveBlocks();
    orvtest::failAllocation(1);
    EXPECT_THROW(slot.get(make), std::bad_alloc);
    orvtest::failAllocation(0);
    EXPECT_EQ(orvtest::liveBlocks(), before);
    const Counted& object = slot.get(make);
    EXPECT_EQ(object.value(), 2);
    delete &object;
    EXPECT_EQ(orvtest::liveBlocks(), before);
}

// One that comes first and fails while another is at work has no effect on it.
TEST(PublishOnceFailure, OfTheFirstLeavesThePlaceToTheSecond) {
    PublishOnce<Counted> slot;
    std::promise<void> firstIsMaking;
    std::promise<void> firstMayFail;
    std::thread first([&] {
        EXPECT_THROW(slot.get([&]() -> std::unique_ptr<Counted> {
            firstIsMaking.set_value();
            firstMayFail.get_future().wait();
            throw std::bad_alloc();
        }),
                     std::bad_alloc);
    });
    firstIsMaking.get_future().wait();
    const Counted& object = slot.get([&] {
        firstMayFail.set_value();
        first.join();
        return std::make_unique<Counted>(3);
    });
    EXPECT_EQ(object.value(), 3);
    EXPECT_EQ(Counted::live, 1);
    delete &object;
}

// Who fails after another has published keeps that one's object.
TEST(PublishOnceFailure, OfALoserLeavesTheWinnerInPlace) {
    PublishOnce<Counted> slot;
    std::promise<void> loserIsMaking;
    std::promise<void> winnerHasPublished;
    std::thread loser([&] {
        EXPECT_THROW(slot.get([&]() -> std::unique_ptr<Counted> {
            const auto half = std::make_unique<Counted>(0);
            loserIsMaking.set_value();
            winnerHasPublished.get_future().wait();
            throw std::bad_alloc();
        }),
                     std::bad_alloc);
    });
    loserIsMaking.get_future().wait();
    const Counted& object = slot.get([] { return std::make_unique<Counted>(4); });
    winnerHasPublished.set_value();
    loser.join();
    EXPECT_EQ(Counted::live, 1);
    EXPECT_EQ(&slot.get([] { return std::make_unique<Counted>(5); }), &object);
    EXPECT_EQ(object.value(), 4);
    delete &object;
}

// Who comes too late without failing gets the winner's object, and its own goes.
TEST(PublishOnce, TheLoserGetsTheWinnersObject) {
    PublishOnce<Counted> slot;
    const Counted& object = slot.get([&slot] {
        auto late = std::make_unique<Counted>(6);
        slot.get([] { return std::make_unique<Counted>(7); }); // another comes in between
        return late;
    });
    EXPECT_EQ(object.value(), 7);
    EXPECT_EQ(Counted::live, 1);
    delete &object;
}

// Calls with the first allocation failing, then with the second, until the call succeeds.
// \return how many calls have failed
template <class Call>
std::size_t failEachAllocation(Call call) {
    for (std::size_t n = 1; n < 1000; ++n) {
        const std::size_t before = orvtest::liveBlocks();
        orvtest::failAllocation(n);
        try {
            call();
            orvtest::failAllocation(0);
            return n - 1;
        } catch (const std::bad_alloc&) {
            // What was published before the failure stays; a test says how much that may be.
            EXPECT_GE(orvtest::liveBlocks(), before);
        }
    }
    throw std::logic_error("fails for ever");
}

TEST(CachedPow10Failure, GivesTheRightPowerAfterEveryFailure) {
    for (const unsigned precision : {64U, 128U, 256U}) {
        for (const int n : {-100, -99, -78, -28, -1, 2, 28, 77, 78, 99, 100}) {
            const big_binary expected = big_binary::binary_pow10(n, precision);
            const std::size_t before = orvtest::liveBlocks();
            std::size_t whileEmpty = before;
            {
                big_binary power;
                const std::size_t failures = failEachAllocation([&] {
                    whileEmpty = orvtest::liveBlocks();
                    power = big_binary::cached_pow10(n, precision);
                });
                EXPECT_GE(failures, 1U); // that of the entry at least
                EXPECT_EQ(whileEmpty, before) << n;
                EXPECT_EQ(power.exponent, expected.exponent);
                EXPECT_TRUE(power.coefficient == expected.coefficient) << n << ' ' << precision;
            }
            EXPECT_EQ(orvtest::liveBlocks(), before + 1)
                << n; // the entry, without a block of its own
            // Now it is there, and needs no memory.
            const std::size_t allocations = orvtest::allocations();
            EXPECT_EQ(big_binary::cached_pow10(n, precision).exponent, expected.exponent);
            EXPECT_EQ(orvtest::allocations(), allocations);
        }
    }
}

TEST(Pow5Failure, GivesTheRightPowerAfterEveryFailure) {
    big_uint expected(1U);
    expected.reserve(2400);
    for (unsigned i = 0; i < 32767; ++i) {
        if (const unsigned carry = expected.multiply(5)) {
            expected.prepend(carry);
        }
    }
    const std::size_t before = orvtest::liveBlocks();
    {
        big_uint power;
        const std::size_t failures =
            failEachAllocation([&power] { big_uint::pow5(32767, &power); });
        EXPECT_GE(failures, 10U); // for the larger squares alone
        EXPECT_TRUE(power == expected);
    }
    // The squares 5^(2^k) for k from 4 or 5 to 14 stay: each an object, most with a block.
    const std::size_t kept = orvtest::liveBlocks() - before;
    EXPECT_GE(kept, 10U);
    EXPECT_LE(kept, 30U);
    // Once all are there, nothing of a call stays.
    {
        big_uint again;
        big_uint::pow5(32767, &again);
        EXPECT_TRUE(again == expected);
    }
    EXPECT_EQ(orvtest::liveBlocks(), before + kept);
}

} // namespace
