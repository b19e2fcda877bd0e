// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Shifts, bit queries and bit operations of `big_uint` beside GMP.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/differential/number/gmp_view.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

using orv::big_uint;
using orvtest::caseCount;
using orvtest::GmpView;
using orvtest::NumberSource;
using orvtest::ResultCheck;

// A bit number within the width, near a word boundary, or somewhat beyond the width.
unsigned someBit(unsigned size, NumberSource& source) {
    if (source.below(4) == 0) {
        return static_cast<unsigned>(
            std::max(0, static_cast<int>(source.below(size + 2) * 32) + source.between(-1, 1)));
    }
    return source.below((size + 1) * 32);
}

struct ShiftCheck {
    GmpView a;
    mpz_class expected;
    ResultCheck result;
    big_uint x;

    // Into a destination of its own and in place.
    void operator()(const big_uint& operand, const big_uint& dst, unsigned bits) {
        a.set(operand);
        mpz_mul_2exp(expected.get_mpz_t(), a.get(), bits);
        x = dst;
        x.shift_left(operand, bits);
        ASSERT_TRUE(result.hasWordsOf(x, expected)) << bits << ' ' << x.size();
        x = operand;
        x.shift_left(bits);
        ASSERT_TRUE(result.hasWordsOf(x, expected)) << bits << ' ' << x.size();

        mpz_fdiv_q_2exp(expected.get_mpz_t(), a.get(), bits);
        x = dst;
        x.shift_right(operand, bits);
        ASSERT_TRUE(result.hasWordsOf(x, expected)) << bits << ' ' << x.size();
        x = operand;
        x.shift_right(x, bits);
        ASSERT_TRUE(result.hasWordsOf(x, expected)) << bits << ' ' << x.size();
    }
};

TEST(BigUintShiftBesideGmp, ShiftsByEveryCountFromEveryWidthIntoEveryWidth) {
    NumberSource source(1);
    ShiftCheck check;
    const unsigned most = caseCount(100) == 100 ? 13 : 10;
    for (unsigned an = 1; an <= most; ++an) {
        for (unsigned dn = 1; dn <= most; ++dn) {
            for (unsigned bits = 0; bits <= 32 * std::max(an, dn) + 65; ++bits) {
                big_uint a = source.number(an);
                a[an - 1] |= 0x80000000U;
                a[0] |= 1U;
                ASSERT_NO_FATAL_FAILURE(check(a, source.number(dn), bits));
            }
        }
    }
}

TEST(BigUintShiftBesideGmp, ShiftsRandomNumbers) {
    NumberSource source(2);
    ShiftCheck check;
    for (std::size_t i = caseCount(250'000); i > 0; --i) {
        const big_uint a = source.number(source.size());
        const big_uint dst =
            source.number(source.coin() ? source.size() : a.size() + source.below(2));
        ASSERT_NO_FATAL_FAILURE(check(a, dst, someBit(std::max(a.size(), dst.size()), source)));
    }
}

TEST(BigUintShiftBesideGmp, ShiftsNumbersOfThousandsOfWords) {
    NumberSource source(3);
    ShiftCheck check;
    for (std::size_t i = caseCount(1000); i > 0; --i) {
        const big_uint a = source.number(1000 + source.below(3000));
        ASSERT_NO_FATAL_FAILURE(
            check(a, source.number(1000 + source.below(3000)), someBit(a.size(), source)));
    }
}

TEST(BigUintShiftBesideGmp, ShiftsByOneBit) {
    NumberSource source(4);
    GmpView a;
    ResultCheck result;
    mpz_class expected;
    for (std::size_t i = caseCount(100'000); i > 0; --i) {
        const big_uint before = source.number(source.size());
        a.set(before);
        big_uint x = before;
        x.shift_left();
        mpz_mul_2exp(expected.get_mpz_t(), a.get(), 1);
        ASSERT_TRUE(result.hasWordsOf(x, expected));
        x = before;
        x.shift_right();
        mpz_fdiv_q_2exp(expected.get_mpz_t(), a.get(), 1);
        ASSERT_TRUE(result.hasWordsOf(x, expected));
    }
}

struct QueryCheck {
    GmpView view;

    void operator()(const big_uint& a) {
        view.set(a);
        const bool zero = mpz_sgn(view.get()) == 0;
        const int top = zero ? -1 : static_cast<int>(mpz_sizeinbase(view.get(), 2)) - 1;
        const int lowest = zero ? -1 : static_cast<int>(mpz_scan1(view.get(), 0));
        ASSERT_EQ(a.is_zero(), zero);
        ASSERT_EQ(a.highest_set_bit(), top);
        ASSERT_EQ(a.bit_length(), static_cast<unsigned>(top + 1));
        ASSERT_EQ(a.lowest_set_bit(), lowest);
        ASSERT_EQ(a.bit_count(), mpz_popcount(view.get()));
        ASSERT_EQ(a.is_power_of_two(), top == lowest);
    }

    unsigned roundingInfo(unsigned bits) const {
        if (bits == 0) {
            return 0;
        }
        const bool half = mpz_tstbit(view.get(), bits - 1) != 0;
        const bool below = mpz_sgn(view.get()) != 0 && mpz_scan1(view.get(), 0) < bits - 1;
        return (half ? 2U : 0U) + (below ? 1U : 0U);
    }
};

TEST(BigUintBitsBesideGmp, FindsAndCountsBits) {
    NumberSource source(5);
    QueryCheck check;
    for (std::size_t i = caseCount(600'000); i > 0; --i) {
        ASSERT_NO_FATAL_FAILURE(check(source.number(source.size())));
    }
    for (std::size_t i = caseCount(2000); i > 0; --i) {
        ASSERT_NO_FATAL_FAILURE(check(source.numberUpTo(5000)));
    }
}

TEST(BigUintBitsBesideGmp, TellsWhatARightShiftThrowsAway) {
    NumberSource source(6);
    QueryCheck check;
    std::array<std::size_t, 4> seen{};
    const std::size_t count = caseCount(600'000);
    for (std::size_t i = 0; i < count; ++i) {
        const big_uint a = source.number(source.size());
        check.view.set(a);
        const int lowest = a.lowest_set_bit();
        const unsigned bits = source.coin()
                                  ? static_cast<unsigned>(std::max(0, lowest)) + source.below(3)
                                  : someBit(a.size(), source);
        const unsigned info = a.compute_rounding_info(bits);
        ASSERT_EQ(info, check.roundingInfo(bits)) << bits;
        ++seen.at(info);
    }
    for (const std::size_t times : seen) {
        EXPECT_GT(times, count / 50);
    }
}

TEST(BigUintBitsBesideGmp, AndsAndInvertsTheWordsOfTheDestination) {
    NumberSource source(7);
    GmpView x, y;
    ResultCheck result;
    mpz_class expected;
    for (std::size_t i = caseCount(200'000); i > 0; --i) {
        const unsigned size = source.size();
        const big_uint a = source.number(size + source.below(3));
        const big_uint b = source.number(size + source.below(3));
        big_uint dst = source.number(size);
        x.set(a);
        y.set(b);
        dst.bit_and(a, b);
        mpz_and(expected.get_mpz_t(), x.get(), y.get());
        ASSERT_TRUE(result.hasWordsOf(dst, expected));
        dst.bit_not(a);
        mpz_com(expected.get_mpz_t(), x.get());
        ASSERT_TRUE(result.hasWordsOf(dst, expected));
        dst.bit_not(dst);
        ASSERT_TRUE(result.hasWordsOf(dst, mpz_class(mpz_srcptr(x.get()))));
    }
}

} // namespace
