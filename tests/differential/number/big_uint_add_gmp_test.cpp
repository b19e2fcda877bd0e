// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison, addition and subtraction of `big_uint` beside GMP.
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

// A size that is the given one or near it, or just any.
unsigned sizeNear(unsigned size, NumberSource& source) {
    if (source.below(4) == 0) {
        return source.size();
    }
    return static_cast<unsigned>(std::max(1, static_cast<int>(size) + source.between(-2, 2)));
}

// Makes b much like a: the same words but for one that differs by at most 2, and for the low words.
void makeAlike(big_uint& b, const big_uint& a, NumberSource& source) {
    const unsigned shared = std::min(a.size(), b.size());
    const unsigned from = source.coin() ? 0 : source.below(shared);
    std::copy(a.data() + from, a.data() + shared, b.data() + from);
    std::fill(b.data() + shared, b.data() + b.size(), 0U);
    b[source.below(b.size())] += static_cast<unsigned>(source.between(-2, 2));
}

// Two operands and a destination.
struct Operands {
    big_uint dst, a, b;

    // Where dst stands for an operand, it is one, and its words are those of the operand.
    enum class Alias { NONE, A, B, BOTH } alias;

    explicit Operands(NumberSource& source, unsigned size) {
        a = source.number(size);
        b = source.number(sizeNear(size, source));
        if (source.below(3) == 0) {
            makeAlike(b, a, source);
        }
        dst = source.number(sizeNear(size, source));
        const unsigned choice = source.below(8);
        alias = choice > 2 ? Alias::NONE : static_cast<Alias>(choice + 1);
        if (alias == Alias::BOTH) {
            b = a;
        }
        if (alias != Alias::NONE) {
            dst = alias == Alias::B ? b : a;
        }
    }

    const big_uint& first() const { return alias == Alias::A || alias == Alias::BOTH ? dst : a; }
    const big_uint& second() const { return alias == Alias::B || alias == Alias::BOTH ? dst : b; }
};

struct AddCheck {
    GmpView a, b;
    mpz_class sum, above;
    ResultCheck result;
    std::size_t fits = 0, lost = 0;

    void operator()(Operands operands) {
        a.set(operands.a);
        b.set(operands.b);
        mpz_add(sum.get_mpz_t(), a.get(), b.get());
        const bool told = operands.dst.add(operands.first(), operands.second());
        mpz_fdiv_q_2exp(above.get_mpz_t(), sum.get_mpz_t(), std::size_t{operands.dst.size()} * 32);
        ++(told ? lost : fits);
        ASSERT_EQ(told, above != 0);
        ASSERT_TRUE(result.hasWordsOf(operands.dst, sum)) << sum;
    }
};

struct SubtractCheck {
    GmpView a, b;
    mpz_class difference, aAbove, bAbove, aBelow, bBelow;
    ResultCheck result;
    std::array<std::size_t, 5> seen{};

    int expected(unsigned size) {
        const std::size_t bits = std::size_t{size} * 32;
        mpz_fdiv_q_2exp(aAbove.get_mpz_t(), a.get(), bits);
        mpz_fdiv_q_2exp(bAbove.get_mpz_t(), b.get(), bits);
        mpz_fdiv_r_2exp(aBelow.get_mpz_t(), a.get(), bits);
        mpz_fdiv_r_2exp(bBelow.get_mpz_t(), b.get(), bits);
        aAbove -= bAbove;
        const int above = aAbove < 0 ? -1 : aAbove > 1 ? 2 : static_cast<int>(aAbove.get_si());
        return aBelow < bBelow ? above - 1 : above;
    }

    void operator()(Operands operands) {
        a.set(operands.a);
        b.set(operands.b);
        mpz_sub(difference.get_mpz_t(), a.get(), b.get());
        const int told = operands.dst.subtract(operands.first(), operands.second());
        ASSERT_EQ(told, expected(operands.dst.size())) << operands.dst.size();
        ASSERT_TRUE(result.hasWordsOf(operands.dst, difference)) << difference;
        ++seen.at(static_cast<std::size_t>(told + 2));
    }
};

TEST(BigUintAddBesideGmp, GivesTheSumInAnyWidthAndTellsWhetherItFits) {
    NumberSource source(1);
    AddCheck check;
    const std::size_t count = caseCount(1'200'000);
    for (std::size_t i = 0; i < count; ++i) {
        ASSERT_NO_FATAL_FAILURE(check(Operands(source, source.size())));
    }
    EXPECT_GT(check.fits, count / 10);
    EXPECT_GT(check.lost, count / 10);
}

TEST(BigUintAddBesideGmp, AddsNumbersOfThousandsOfWords) {
    NumberSource source(2);
    AddCheck check;
    for (std::size_t i = caseCount(2000); i > 0; --i) {
        ASSERT_NO_FATAL_FAILURE(check(Operands(source, 1000 + source.below(3000))));
    }
}

TEST(BigUintAddBesideGmp, AddsInPlaceAsManyWordsAsTheDestinationHas) {
    NumberSource source(3);
    ResultCheck result;
    GmpView a, b;
    mpz_class sum;
    for (std::size_t i = caseCount(300'000); i > 0; --i) {
        big_uint x = source.number(source.size());
        const big_uint y = source.number(x.size() + source.below(3));
        big_uint low = y;
        low.set_size(x.size());
        a.set(x);
        b.set(low);
        mpz_add(sum.get_mpz_t(), a.get(), b.get());
        const bool carry = x.add(y);
        ASSERT_EQ(carry, mpz_sizeinbase(sum.get_mpz_t(), 2) > std::size_t{x.size()} * 32);
        ASSERT_TRUE(result.hasWordsOf(x, sum)) << sum;
    }
}

TEST(BigUintAddBesideGmp, AddsAndSubtractsSingleWords) {
    NumberSource source(4);
    ResultCheck result;
    GmpView view;
    mpz_class expected;
    for (std::size_t i = caseCount(200'000); i > 0; --i) {
        const big_uint before = source.number(source.size());
        const std::size_t bits = std::size_t{before.size()} * 32;
        view.set(before);

        const unsigned word = source.number(1)[0];
        big_uint x = before;
        const bool carry = x.add(word);
        mpz_add_ui(expected.get_mpz_t(), view.get(), word);
        ASSERT_EQ(carry, mpz_sizeinbase(expected.get_mpz_t(), 2) > bits);
        ASSERT_TRUE(result.hasWordsOf(x, expected)) << expected;

        x = before;
        const bool wrapped = x.increment();
        mpz_add_ui(expected.get_mpz_t(), view.get(), 1);
        ASSERT_EQ(wrapped, mpz_sizeinbase(expected.get_mpz_t(), 2) > bits);
        ASSERT_TRUE(result.hasWordsOf(x, expected)) << expected;

        x = before;
        const bool borrow = x.decrement();
        mpz_sub_ui(expected.get_mpz_t(), view.get(), 1);
        ASSERT_EQ(borrow, expected < 0);
        ASSERT_TRUE(result.hasWordsOf(x, expected)) << expected;
    }
}

TEST(BigUintSubtractBesideGmp, TellsWhereTheDifferenceStandsInAnyWidth) {
    NumberSource source(5);
    SubtractCheck check;
    const std::size_t count = caseCount(1'200'000);
    for (std::size_t i = 0; i < count; ++i) {
        ASSERT_NO_FATAL_FAILURE(check(Operands(source, source.size())));
    }
    for (const std::size_t seen : check.seen) {
        EXPECT_GT(seen, count / 100);
    }
}

TEST(BigUintSubtractBesideGmp, SubtractsNumbersOfThousandsOfWords) {
    NumberSource source(6);
    SubtractCheck check;
    for (std::size_t i = caseCount(2000); i > 0; --i) {
        ASSERT_NO_FATAL_FAILURE(check(Operands(source, 1000 + source.below(3000))));
    }
}

TEST(BigUintSubtractBesideGmp, SubtractsInPlaceAndLetsTheBorrowRunOn) {
    NumberSource source(7);
    ResultCheck result;
    GmpView a, b;
    mpz_class difference;
    for (std::size_t i = caseCount(300'000); i > 0; --i) {
        big_uint x = source.number(source.size());
        big_uint y = source.number(1 + source.below(x.size()));
        if (source.coin()) {
            makeAlike(y, x, source);
        }
        a.set(x);
        b.set(y);
        mpz_sub(difference.get_mpz_t(), a.get(), b.get());
        ASSERT_EQ(x.subtract(y), difference < 0 ? -1 : 0);
        ASSERT_TRUE(result.hasWordsOf(x, difference)) << difference;
    }
}

TEST(BigUintCompareBesideGmp, ComparesByValueInAnyWidths) {
    NumberSource source(8);
    GmpView x, y;
    std::array<std::size_t, 3> seen{};
    const std::size_t count = caseCount(600'000);
    for (std::size_t i = 0; i < count; ++i) {
        const Operands operands(source, source.size());
        const big_uint& a = operands.a;
        const big_uint& b = operands.b;
        x.set(a);
        y.set(b);
        const int order = mpz_cmp(x.get(), y.get());
        const int sign = order < 0 ? -1 : order > 0 ? 1 : 0;
        ++seen.at(static_cast<std::size_t>(sign + 1));
        ASSERT_EQ(a.compare(b), sign);
        ASSERT_EQ(b.compare(a), -sign);
        ASSERT_EQ(a.equals(b), sign == 0);
        ASSERT_EQ(b.equals(a), sign == 0);
    }
    for (const std::size_t times : seen) {
        EXPECT_GT(times, count / 50);
    }
}

TEST(BigUintCompareBesideGmp, ComparesWithSingleWords) {
    NumberSource source(9);
    GmpView view;
    for (std::size_t i = caseCount(200'000); i > 0; --i) {
        big_uint a = source.number(1 + source.below(4));
        const unsigned word = source.coin() ? a[0] + source.below(2) : source.number(1)[0];
        if (source.coin()) {
            std::fill(a.data() + 1, a.data() + a.size(), 0U);
        }
        view.set(a);
        const int order = mpz_cmp_ui(view.get(), word);
        ASSERT_EQ(a.is_equal(word), order == 0);
        ASSERT_EQ(a.is_not_equal(word), order != 0);
        ASSERT_EQ(a.is_less(word), order < 0);
        ASSERT_EQ(a.is_less_equal(word), order <= 0);
        ASSERT_EQ(a.is_greater(word), order > 0);
        ASSERT_EQ(a.is_greater_equal(word), order >= 0);
    }
}

} // namespace
