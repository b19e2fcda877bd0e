// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Products of word arrays: the methods agree, and none touches what lies beside its arrays.
#include "orv/liborvxx/number/words/multiply.h"

#include "orv/liborvxx/number/words/karatsuba.h"
#include "tests/number/guarded_words.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using orv::big_uint;
using orv::words::Limb;
using orv::words::Word;
using orvtest::GuardedWords;
using Words = std::vector<Word>;

// The definition, in steps of 32 bits.
Words product(const big_uint& a, const big_uint& b) {
    Words result(a.size() + b.size());
    for (unsigned j = 0; j < b.size(); ++j) {
        Limb carry = 0;
        for (unsigned i = 0; i < a.size(); ++i) {
            carry += Limb{a[i]} * b[j] + result[i + j];
            result[i + j] = static_cast<Word>(carry);
            carry >>= 32U;
        }
        result[j + a.size()] = static_cast<Word>(carry);
    }
    return result;
}

void check(const big_uint& a, const big_uint& b) {
    const Words expected = product(a, b);
    GuardedWords rows(expected.size());
    orv::words::multiplySchoolbook(rows.data(), a.data(), a.size(), b.data(), b.size());
    ASSERT_TRUE(rows.intact()) << a.size() << " by " << b.size();
    ASSERT_TRUE(rows.startsWith(expected.data(), expected.size()))
        << a.size() << " by " << b.size();
    GuardedWords halves(expected.size());
    GuardedWords scratch(orv::words::karatsubaScratch(a.size(), b.size()));
    orv::words::multiplyKaratsuba(halves.data(), a.data(), a.size(), b.data(), b.size(),
                                  scratch.data());
    ASSERT_TRUE(scratch.intact()) << a.size() << " by " << b.size();
    ASSERT_TRUE(halves.intact()) << a.size() << " by " << b.size();
    ASSERT_TRUE(halves.startsWith(expected.data(), expected.size()))
        << a.size() << " by " << b.size();
}

TEST(WordsMultiply, MethodsAgreeOnEveryPairOfSmallSizes) {
    orvtest::NumberSource source(1);
    for (unsigned an = 1; an <= 20; ++an) {
        for (unsigned bn = 1; bn <= an; ++bn) {
            for (unsigned i = 0; i < 20; ++i) {
                const big_uint a = source.number(an);
                check(a, source.number(bn));
                ASSERT_FALSE(testing::Test::HasFatalFailure());
            }
        }
    }
}

// From where halves begin to where halves are halved twice, and every unbalance.
TEST(WordsMultiply, MethodsAgreeAroundTheSizesWhereHalvesBegin) {
    constexpr unsigned MIN = orv::words::KARATSUBA_MIN;
    orvtest::NumberSource source(2);
    const unsigned step = orvtest::caseCount(100) == 100 ? 1 : 5;
    for (unsigned an = MIN - 2; an <= 4 * MIN + 9; an += 1 + source.below(step)) {
        for (unsigned bn = MIN - 2; bn <= an; bn += 1 + source.below(2 * step)) {
            const big_uint a = source.number(an);
            check(a, source.number(bn));
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
    }
}

TEST(WordsMultiply, MethodsAgreeOnLongOperands) {
    orvtest::NumberSource source(3);
    for (std::size_t i = 0; i < orvtest::caseCount(100); ++i) {
        const big_uint a = source.number(500 + source.below(1000));
        check(a, source.numberUpTo(500));
        check(a, source.number(a.size()));
        check(a, a);
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

// Middle products with both signs and of zero: halves that are equal, greater and less.
TEST(WordsMultiply, HalvesMayBeEqual) {
    constexpr unsigned MIN = orv::words::KARATSUBA_MIN;
    orvtest::NumberSource source(4);
    for (unsigned i = 0; i < 16; ++i) {
        big_uint a = source.number(2 * MIN);
        big_uint b = source.number(2 * MIN);
        for (unsigned k = 0; k < MIN; ++k) {
            a[MIN + k] = a[k];
            b[MIN + k] = b[k];
        }
        a[2 * MIN - 1] += i % 4 == 1 ? 1U : 0U;
        a[MIN - 1] += i % 4 == 2 ? 1U : 0U;
        b[2 * MIN - 1] += i / 4 == 1 ? 1U : 0U;
        b[MIN - 1] += i / 4 == 2 ? 1U : 0U;
        check(a, b);
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << i;
    }
}

TEST(WordsMultiply, StaysWithinTheArrayInPlace) {
    for (unsigned n = 0; n <= 9; ++n) {
        GuardedWords words(n);
        for (unsigned i = 0; i < n; ++i) {
            words.data()[i] = 0xFFFFFFFFU;
        }
        EXPECT_EQ(orv::words::multiply(words.data(), n, 0xFFFFFFFFU), n == 0 ? 0 : 0xFFFFFFFEU);
        EXPECT_TRUE(words.intact()) << n;
    }
}

} // namespace
