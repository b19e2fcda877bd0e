// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Products beside those of GMP.
#include "orv/liborvxx/number/big_uint.h"
#include "tests/differential/number/limbs.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

namespace orvtest {

namespace {

using orv::big_uint;

class BigUintMultiplyGmp : public testing::Test {
protected:
    /// Multiplies, both ways round, into a destination with \p extra words above the product.
    void check(const big_uint& a, const big_uint& b, unsigned extra) {
        multiplyWithGmp(a, b);
        fillWithRubbish(product_, a.size() + b.size() + extra);
        product_.multiply(a, b);
        ASSERT_TRUE(sameWords(product_, expected_)) << a.size() << " by " << b.size() << " words";
        fillWithRubbish(product_, a.size() + b.size() + extra);
        product_.multiply(b, a);
        ASSERT_TRUE(sameWords(product_, expected_)) << b.size() << " by " << a.size() << " words";
    }

    NumberSource source_{0x6d756c7469706c79};

private:
    void multiplyWithGmp(const big_uint& a, const big_uint& b) {
        toLimbs(a_, a, a.size());
        toLimbs(b_, b, b.size());
        const Limbs& longer = a_.size() < b_.size() ? b_ : a_;
        const Limbs& shorter = a_.size() < b_.size() ? a_ : b_;
        expected_.resize(a_.size() + b_.size());
        mpn_mul(expected_.data(), longer.data(), static_cast<mp_size_t>(longer.size()),
                shorter.data(), static_cast<mp_size_t>(shorter.size()));
    }

    Limbs a_, b_, expected_;
    big_uint product_;
};

} // namespace

TEST_F(BigUintMultiplyGmp, AgreesOnFewWords) {
    for (std::size_t i = 0; i < caseCount(600000); ++i) {
        const big_uint a = source_.numberUpTo(9);
        check(a, source_.numberUpTo(9), source_.below(4));
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(BigUintMultiplyGmp, AgreesOnUpTo70Words) {
    for (std::size_t i = 0; i < caseCount(100000); ++i) {
        const big_uint a = source_.numberUpTo(70);
        check(a, source_.numberUpTo(70), source_.below(4));
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(BigUintMultiplyGmp, AgreesOnEveryPairOfSizes) {
    const unsigned step = caseCount(100) == 100 ? 1 : 7;
    for (unsigned an = 1; an <= 260; an += 1 + source_.below(step)) {
        for (unsigned bn = 1; bn <= an; bn += 1 + source_.below(step)) {
            const big_uint a = source_.number(an);
            check(a, source_.number(bn), 0);
            ASSERT_FALSE(HasFatalFailure());
        }
    }
}

TEST_F(BigUintMultiplyGmp, AgreesOnThousandsOfWords) {
    for (std::size_t i = 0; i < caseCount(300); ++i) {
        const big_uint a = source_.numberUpTo(5000);
        check(a, source_.numberUpTo(source_.coin() ? 5000 : 600), source_.below(2));
        ASSERT_FALSE(HasFatalFailure());
    }
    big_uint a = source_.number(30000);
    check(a, source_.number(35535), 0);
    a.set_size(65000);
    check(a, source_.number(535), 0);
}

TEST_F(BigUintMultiplyGmp, SquaresAgree) {
    for (std::size_t i = 0; i < caseCount(30000); ++i) {
        const big_uint a = source_.numberUpTo(source_.below(50) == 0 ? 700 : 40);
        check(a, a, 0);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(BigUintMultiplyGmp, AgreesOnOneWordInPlace) {
    Limbs expected;
    for (std::size_t i = 0; i < caseCount(800000); ++i) {
        big_uint n = source_.numberUpTo(source_.below(16) == 0 ? 70 : 9);
        const unsigned factor = source_.number(1)[0];
        const unsigned size = n.size();
        toLimbs(expected, n, size);
        expected.push_back(0);
        expected.back() = mpn_mul_1(expected.data(), expected.data(),
                                    static_cast<mp_size_t>(expected.size() - 1), factor);
        const unsigned carry = n.multiply(factor);
        ASSERT_EQ(n.size(), size);
        n.prepend(carry);
        ASSERT_TRUE(sameWords(n, expected)) << size << " words by " << factor;
    }
}

} // namespace orvtest
