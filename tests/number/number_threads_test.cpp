// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Constants made on first use, asked for by many threads at once.
#include "orv/liborvxx/number/big_binary.h"
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/detail/publish_once.h"

#include "tests/support/case_count.h"
#include "tests/support/in_all_threads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <barrier>
#include <cstddef>
#include <memory>
#include <set>
#include <vector>

namespace {

using orv::big_binary;
using orv::big_uint;
using orvtest::inAllThreads;
using orvtest::THREADS;

// An object that counts itself, and shows whether it is whole.
class Counted {
public:
    Counted() {
        ++live;
        ++made;
        values_.fill(42);
    }
    ~Counted() { --live; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    bool isWhole() const {
        return std::all_of(values_.begin(), values_.end(), [](int value) { return value == 42; });
    }

    static inline std::atomic<int> live = 0;
    static inline std::atomic<int> made = 0;

private:
    std::array<int, 16> values_;
};

TEST(PublishOnceThreads, AllSeeTheOneObjectThatHoldsAndTheLosersGo) {
    const std::size_t rounds = orvtest::caseCount(200000);
    std::vector<orv::detail::PublishOnce<Counted>> slots(rounds);
    std::vector<std::array<const Counted*, THREADS>> seen(rounds);
    std::barrier round(static_cast<std::ptrdiff_t>(THREADS));
    std::atomic<std::size_t> torn = 0;
    inAllThreads([&](std::size_t thread) {
        for (std::size_t i = 0; i < rounds; ++i) {
            if (i % 64 == 0) {
                round.arrive_and_wait(); // close together again
            }
            const Counted& object = slots[i].get([] { return std::make_unique<Counted>(); });
            torn += object.isWhole() ? 0 : 1;
            seen[i][thread] = &object;
        }
    });
    EXPECT_EQ(torn, 0U);
    EXPECT_EQ(Counted::live, static_cast<int>(rounds));
    std::set<const Counted*> different;
    for (const auto& objects : seen) {
        ASSERT_EQ(std::count(objects.begin(), objects.end(), objects[0]),
                  static_cast<std::ptrdiff_t>(THREADS));
        different.insert(objects[0]);
    }
    EXPECT_EQ(different.size(), rounds);
    // A slot never gives its object back; with the slots gone, they are the test's.
    for (const Counted* const object : different) {
        delete object;
    }
    EXPECT_EQ(Counted::live, 0);
}

// Where the threads hardly ever meet on their own: all of them make an object before one publishes.
TEST(PublishOnceThreads, OfAllThatWereMadeAtOnceOneIsLeft) {
    for (std::size_t i = orvtest::caseCount(300); i > 0; --i) {
        orv::detail::PublishOnce<Counted> slot;
        std::barrier allMade(static_cast<std::ptrdiff_t>(THREADS));
        std::array<const Counted*, THREADS> seen{};
        Counted::made = 0;
        inAllThreads([&](std::size_t thread) {
            seen[thread] = &slot.get([&allMade] {
                auto object = std::make_unique<Counted>();
                allMade.arrive_and_wait();
                return object;
            });
        });
        ASSERT_EQ(Counted::made, static_cast<int>(THREADS));
        ASSERT_EQ(Counted::live, 1);
        ASSERT_EQ(std::count(seen.begin(), seen.end(), seen[0]),
                  static_cast<std::ptrdiff_t>(THREADS));
        ASSERT_TRUE(seen[0]->isWhole());
        delete seen[0];
    }
}

// A power of the cache, as `index` counts them: all precisions, all exponents.
constexpr unsigned CACHED_POWERS = 3 * 201;

int exponentOf(unsigned index) {
    return static_cast<int>(index / 3) - 100;
}
unsigned precisionOf(unsigned index) {
    return 64U << index % 3;
}

// Must be the first test of the process that asks for these powers: there is only one first time.
TEST(CachedPow10Threads, AllGetTheSamePowersOnFirstUse) {
    std::vector<std::array<big_binary, THREADS>> powers(CACHED_POWERS);
    inAllThreads([&](std::size_t thread) {
        for (unsigned i = 0; i < CACHED_POWERS; ++i) {
            powers[i][thread] = big_binary::cached_pow10(exponentOf(i), precisionOf(i));
        }
    });
    for (unsigned i = 0; i < CACHED_POWERS; ++i) {
        const big_binary alone = big_binary::binary_pow10(exponentOf(i), precisionOf(i));
        for (const big_binary& power : powers[i]) {
            ASSERT_EQ(power.exponent, alone.exponent);
            ASSERT_TRUE(power.coefficient == alone.coefficient) << exponentOf(i);
        }
    }
}

big_uint powerOfFiveByMultiplying(unsigned n) {
    big_uint power(1U);
    for (; n > 0; --n) {
        if (const unsigned carry = power.multiply(5)) {
            power.prepend(carry);
        }
    }
    return power;
}

// The same: the squares behind pow5 are made once in a process.
TEST(Pow5Threads, AllGetTheSamePowersOnFirstUse) {
    const std::array<unsigned, 4> exponents = {32767, 16384, 1234, 28};
    std::array<std::array<big_uint, exponents.size()>, THREADS> powers;
    inAllThreads([&](std::size_t thread) {
        for (std::size_t i = 0; i < exponents.size(); ++i) {
            // Half of the threads begin with the small ones.
            const std::size_t which = thread % 2 == 0 ? i : exponents.size() - 1 - i;
            big_uint::pow5(exponents[which], &powers[thread][which]);
        }
    });
    for (std::size_t i = 0; i < exponents.size(); ++i) {
        const big_uint alone = powerOfFiveByMultiplying(exponents[i]);
        for (const auto& ofThread : powers) {
            ASSERT_TRUE(ofThread[i] == alone) << exponents[i];
        }
    }
}

TEST(Pow10Threads, AllGetTheSamePowers) {
    std::array<big_uint, THREADS> powers;
    inAllThreads([&](std::size_t thread) { big_uint::pow10(8191, &powers[thread]); });
    big_uint alone;
    big_uint::pow10(8191, &alone);
    for (const big_uint& power : powers) {
        ASSERT_TRUE(power == alone);
        ASSERT_EQ(power.ilog10(), 8191);
    }
}

} // namespace
