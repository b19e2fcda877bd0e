// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Division of word arrays: long division against multiplication, the powers for decimal
/// text, and that nothing beside the arrays is touched.
#include "orv/liborvxx/number/words/divide.h"

#include "orv/liborvxx/number/words/decimal_powers.h"
#include "orv/liborvxx/number/words/long_division.h"
#include "orv/liborvxx/number/words/text.h"
#include "tests/number/guarded_words.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using orv::big_uint;
using orv::words::DecimalPower;
using orv::words::DecimalPowers;
using orv::words::LongDivisor;
using orv::words::roundUp;
using orvtest::GuardedWords;

// A divisor of dn words, an even number, with the top bit set.
big_uint divisorOf(orvtest::NumberSource& source, unsigned dn) {
    big_uint d = source.number(dn);
    switch (source.below(4)) {
    case 0: // the lower half decides whether an estimate is right
        for (unsigned i = dn / 2; i < dn; ++i) {
            d[i] = 0;
        }
        break;
    case 1:
        for (unsigned i = dn / 2; i < dn; ++i) {
            d[i] = 0xFFFFFFFFU;
        }
        break;
    default:
        break;
    }
    d[dn - 1] |= 0x80000000U;
    return d;
}

// Divides q * d + r and compares.
void check(const big_uint& q, const big_uint& d, const big_uint& r) {
    const unsigned qn = q.size();
    const unsigned un = d.size() + roundUp(qn);
    big_uint dividend = big_uint::make_uninitialized(un);
    dividend.multiply(q, d);
    big_uint sum = big_uint::make_uninitialized(un);
    ASSERT_FALSE(sum.add(dividend, r));
    GuardedWords u(sum.data(), un);
    GuardedWords quotient(qn);
    GuardedWords scratch(orv::words::longDivisionScratch(qn, d.size()));
    orv::words::divideNormalised(quotient.data(), qn, u.data(), LongDivisor(d.data(), d.size()),
                                 scratch.data());
    ASSERT_TRUE(quotient.startsWith(q.data(), qn)) << qn << " by " << d.size() << " words";
    ASSERT_TRUE(u.startsWith(r.data(), d.size())) << qn << " by " << d.size() << " words";
    ASSERT_TRUE(u.intact() && quotient.intact() && scratch.intact())
        << qn << " by " << d.size() << " words";
}

void checkRemainders(orvtest::NumberSource& source, unsigned qn, unsigned dn) {
    const big_uint d = divisorOf(source, dn);
    const big_uint q = source.number(qn);
    big_uint r = d;
    r.decrement();
    check(q, d, r);
    r.shift_right();
    check(q, d, r);
    r.shift_right(dn * 32);
    check(q, d, r);
}

TEST(LongDivision, GivesBackQuotientAndRemainder) {
    orvtest::NumberSource source(1);
    for (std::size_t i = 0; i < orvtest::caseCount(100000); ++i) {
        const unsigned qn = 1 + source.below(12);
        checkRemainders(source, qn, 4 + 2 * source.below(4));
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

// By rows, by halves, in blocks; with first blocks of all sizes.
TEST(LongDivision, GivesBackQuotientAndRemainderWithHalves) {
    orvtest::NumberSource source(2);
    for (std::size_t i = 0; i < orvtest::caseCount(4000); ++i) {
        const unsigned qn = 40 + source.below(400);
        checkRemainders(source, qn, 40 + 2 * source.below(150));
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

// The top of the dividend is that of the divisor, so that the quotient is all ones and no estimate
// from fewer words would fit.
TEST(LongDivision, TakesDividendsJustBelowTheDivisor) {
    orvtest::NumberSource source(3);
    for (unsigned dn = 4; dn <= 400; dn += 2 + 2 * source.below(20)) {
        for (unsigned qn = 2; qn <= dn; qn += 2 + source.below(20)) {
            const big_uint d = divisorOf(source, dn);
            big_uint q = big_uint::make_uninitialized(qn);
            std::fill_n(q.data(), qn, 0xFFFFFFFFU);
            big_uint r = d;
            r.decrement();
            check(q, d, r);
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
    }
}

// divisor * 2^(32 * zeros - shift) is 10^digits.
void checkPower(const DecimalPower& power) {
    ASSERT_EQ(power.zeros % 2, 0U);
    ASSERT_LT(power.shift, 64U);
    ASSERT_NE(power.divisor.words[power.divisor.n - 1] >> 31U, 0U);
    big_uint expected(1U);
    expected.reserve(power.zeros + power.divisor.n + 3);
    for (std::size_t i = 0; i < power.digits; i += 19) { // 10^19 = 10^9 * 10^9 * 10
        for (const unsigned factor : {1000000000U, 1000000000U, 10U}) {
            if (const unsigned carry = expected.multiply(factor)) {
                expected.prepend(carry);
            }
        }
    }
    big_uint value = big_uint::make_uninitialized(power.zeros + power.divisor.n);
    std::fill_n(value.data(), power.zeros, 0U);
    std::copy_n(power.divisor.words, power.divisor.n, value.data() + power.zeros);
    value.shift_right(power.shift);
    ASSERT_EQ(value, expected) << power.digits;
}

TEST(DecimalPowersTest, AreTheHalvesOfTheDigits) {
    for (std::size_t digits = 552; digits < 4000;
         digits += orvtest::caseCount(100) == 100 ? 19U : 95U) {
        const DecimalPowers powers(digits);
        std::size_t groups = (digits + 18) / 19;
        for (unsigned level = 0; level < powers.count(); ++level) {
            groups = (groups + 1) / 2;
            ASSERT_EQ(powers[level].digits, groups * 19);
            checkPower(powers[level]);
            ASSERT_FALSE(testing::Test::HasFatalFailure()) << digits << " digits, " << level;
        }
        ASSERT_LE(groups, DecimalPowers::MAX_LAST_GROUPS);
    }
}

TEST(DecimalPowersTest, ReachTheWidestNumber) {
    const DecimalPowers powers(orv::words::maxDecimalDigits(65535 * 32));
    EXPECT_EQ(powers.count(), 11U);
    checkPower(powers[4]);
    checkPower(powers[10]);
}

TEST(MaxDecimalDigits, AreThoseOfAllOnes) {
    EXPECT_EQ(orv::words::maxDecimalDigits(1), 1U);
    EXPECT_EQ(orv::words::maxDecimalDigits(3), 1U);
    EXPECT_EQ(orv::words::maxDecimalDigits(4), 2U);
    EXPECT_EQ(orv::words::maxDecimalDigits(32), 10U);
    EXPECT_EQ(orv::words::maxDecimalDigits(64), 20U);
    EXPECT_EQ(orv::words::maxDecimalDigits(65535 * 32), 631297U);
    // 10^k has one digit more than all ones of as many bits less one.
    big_uint power(1U);
    power.reserve(80);
    for (unsigned k = 1; k <= 700; ++k) {
        if (const unsigned carry = power.multiply_by_10()) {
            power.prepend(carry);
        }
        ASSERT_EQ(orv::words::maxDecimalDigits(power.bit_length()), k + 1);
        ASSERT_EQ(orv::words::maxDecimalDigits(power.bit_length() - 1), k);
    }
}

TEST(WordsDivide, StaysWithinTheArrays) {
    orvtest::NumberSource source(4);
    for (std::size_t i = 0; i < orvtest::caseCount(200000); ++i) {
        const unsigned bn = 1 + source.below(6);
        const unsigned an = bn + source.below(8);
        const big_uint a = source.number(an);
        big_uint b = source.number(bn);
        b[bn - 1] |= 1;
        GuardedWords q(an - bn + 1);
        GuardedWords r(bn);
        orv::words::divide(q.data(), an - bn + 1, r.data(), bn, a.data(), an, b.data(), bn);
        ASSERT_TRUE(q.intact() && r.intact()) << an << " by " << bn << " words";
        GuardedWords p(a.data(), an);
        orv::words::divide(p.data(), an, b[0] | 1U);
        ASSERT_TRUE(p.intact()) << an << " words";
        orv::words::divideBy10(p.data(), an);
        ASSERT_TRUE(p.intact()) << an << " words";
    }
}

} // namespace
