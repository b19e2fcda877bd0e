// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Quotients and remainders beside those of GMP.
#include "orv/liborvxx/number/big_uint.h"
#include "tests/differential/number/limbs.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orvtest {

namespace {

using orv::big_uint;

unsigned significantWords(const big_uint& n, unsigned size) {
    while (size > 1 && n[size - 1] == 0) {
        --size;
    }
    return size;
}

void dropZeroLimbs(Limbs& limbs) {
    while (limbs.size() > 1 && limbs.back() == 0) {
        limbs.pop_back();
    }
}

class BigUintDivideGmp : public testing::Test {
protected:
    /// Divides the low words of the operands, with and without remainder, into results of the least
    /// allowed width or somewhat more.
    void check(const big_uint& a, unsigned an, const big_uint& b, unsigned bn) {
        toLimbs(b_, b, bn);
        dropZeroLimbs(b_);
        if (b_.back() == 0) {
            return;
        }
        divideWithGmp(a, an);
        const unsigned m = significantWords(a, an);
        const unsigned n = significantWords(b, bn);
        const unsigned qn = std::max(m + 1, n + 1) - n + source_.below(3);
        const unsigned rn = std::max(m < n ? m : 0, n) + source_.below(3);
        fillWithRubbish(quotient_, qn);
        fillWithRubbish(remainder_, rn);
        quotient_.divide(a, an, b, bn, remainder_);
        ASSERT_EQ(quotient_.size(), qn);
        ASSERT_EQ(remainder_.size(), rn);
        ASSERT_TRUE(sameWords(quotient_, q_)) << an << " by " << bn << " words";
        ASSERT_TRUE(sameWords(remainder_, r_)) << an << " by " << bn << " words";
        fillWithRubbish(quotient_, qn);
        quotient_.divide(a, an, b, bn);
        ASSERT_TRUE(sameWords(quotient_, q_)) << an << " by " << bn << " words";
    }

    void check(const big_uint& a, const big_uint& b) { check(a, a.size(), b, b.size()); }

    /// A number of whole limbs with a top limb that makes estimates worst, or any.
    big_uint hardDivisor(unsigned limbs) {
        big_uint b = source_.number(limbs * 2);
        const unsigned top = limbs * 2 - 1;
        switch (source_.below(6)) {
        case 0:
            b[top] = 0x80000000U;
            b[top - 1] = source_.below(2);
            break;
        case 1:
            b[top] = b[top - 1] = 0xFFFFFFFFU;
            break;
        case 2: // the second limb decides
            b[top] = 0x80000000U;
            b[top - 1] = 0;
            b[top - 2] = b[top - 3] = source_.coin() ? 0xFFFFFFFFU : 0;
            break;
        case 3:
            b[top] = 1;
            break;
        default:
            b[top] |= 1;
            break;
        }
        return b;
    }

    NumberSource source_{0x646976696465};

private:
    void divideWithGmp(const big_uint& a, unsigned an) {
        toLimbs(a_, a, an);
        a_.resize(std::max(a_.size(), b_.size()), 0);
        q_.resize(a_.size() - b_.size() + 1);
        r_.resize(b_.size());
        mpn_tdiv_qr(q_.data(), r_.data(), 0, a_.data(), static_cast<mp_size_t>(a_.size()),
                    b_.data(), static_cast<mp_size_t>(b_.size()));
    }

    Limbs a_, b_, q_, r_;
    big_uint quotient_, remainder_;
};

} // namespace

TEST_F(BigUintDivideGmp, AgreesOnFewWords) {
    for (std::size_t i = 0; i < caseCount(800000); ++i) {
        const big_uint a = source_.numberUpTo(14);
        check(a, source_.numberUpTo(8));
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(BigUintDivideGmp, AgreesOnUpTo140Words) {
    for (std::size_t i = 0; i < caseCount(200000); ++i) {
        const big_uint a = source_.numberUpTo(140);
        check(a, source_.numberUpTo(70));
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(BigUintDivideGmp, AgreesOnLowWordsOfLongerOperands) {
    for (std::size_t i = 0; i < caseCount(200000); ++i) {
        const big_uint a = source_.numberUpTo(20);
        const big_uint b = source_.numberUpTo(12);
        check(a, 1 + source_.below(a.size()), b, 1 + source_.below(b.size()));
        ASSERT_FALSE(HasFatalFailure());
    }
}

// q * b + r with r of 0, b - 1 or less, and q of all ones and the like: every estimate of a digit
// is at one of its limits.
TEST_F(BigUintDivideGmp, AgreesWhereDigitsAreHardToEstimate) {
    for (std::size_t i = 0; i < caseCount(400000); ++i) {
        const big_uint b = hardDivisor(2 + source_.below(source_.below(16) == 0 ? 40 : 5));
        const big_uint q = source_.numberUpTo(source_.below(16) == 0 ? 80 : 10);
        big_uint a = big_uint::make_uninitialized(b.size() + q.size());
        a.multiply(q, b);
        check(a, b);
        big_uint r = b;
        r.decrement();
        a.add(a, r);
        check(a, b);
        ASSERT_FALSE(HasFatalFailure());
    }
}

// The digit q is estimated from the top of the divisor alone, with nothing left over; what the
// divisor has below then makes q one too large.
TEST_F(BigUintDivideGmp, AgreesWhereTheDivisorMustBeAddedBack) {
    for (std::size_t i = 0; i < caseCount(400000); ++i) {
        const unsigned low = 2 * (1 + source_.below(6));
        big_uint top = hardDivisor(2);
        const big_uint q = source_.numberUpTo(6);
        big_uint product = big_uint::make_uninitialized(top.size() + q.size());
        product.multiply(top, q);
        big_uint a = big_uint::make_uninitialized(product.size() + low);
        a.shift_left(product, low * 32);
        big_uint b = big_uint::make_uninitialized(top.size() + low);
        b.shift_left(top, low * 32);
        b[source_.below(low)] = source_.number(1)[0];
        a[source_.below(low)] = source_.coin() ? 0 : source_.number(1)[0];
        check(a, b);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(BigUintDivideGmp, AgreesOnEveryPairOfSizes) {
    const unsigned step = caseCount(100) == 100 ? 1 : 7;
    for (unsigned an = 1; an <= 240; an += 1 + source_.below(step)) {
        for (unsigned bn = 1; bn <= an; bn += 1 + source_.below(step)) {
            big_uint b = source_.number(bn);
            b[bn - 1] |= 1;
            check(source_.number(an), b);
            ASSERT_FALSE(HasFatalFailure());
        }
    }
}

TEST_F(BigUintDivideGmp, AgreesOnThousandsOfWords) {
    for (std::size_t i = 0; i < caseCount(300); ++i) {
        const big_uint b = hardDivisor(2 + source_.below(1500));
        const big_uint q = source_.numberUpTo(2000);
        big_uint a = big_uint::make_uninitialized(b.size() + q.size());
        a.multiply(q, b);
        check(a, b);
        a.decrement();
        check(a, b);
        check(source_.numberUpTo(5000), b);
        ASSERT_FALSE(HasFatalFailure());
    }
    check(source_.number(65535), hardDivisor(16000));
    check(source_.number(65535), source_.number(101));
}

TEST_F(BigUintDivideGmp, AgreesOnOneWordInPlace) {
    Limbs expected;
    for (std::size_t i = 0; i < caseCount(800000); ++i) {
        big_uint n = source_.numberUpTo(source_.below(16) == 0 ? 70 : 9);
        const unsigned divisor = std::max(1U, source_.number(1)[0]);
        toLimbs(expected, n, n.size());
        const auto limbs = static_cast<mp_size_t>(expected.size());
        const auto rest = mpn_divrem_1(expected.data(), 0, expected.data(), limbs, divisor);
        ASSERT_EQ(n.divide(divisor), rest) << divisor;
        ASSERT_TRUE(sameWords(n, expected)) << n.size() << " words by " << divisor;
        const auto digit = mpn_divrem_1(expected.data(), 0, expected.data(), limbs, 10);
        ASSERT_EQ(n.divide_by_10(), digit);
        ASSERT_TRUE(sameWords(n, expected)) << n.size() << " words by 10";
    }
}

} // namespace orvtest
