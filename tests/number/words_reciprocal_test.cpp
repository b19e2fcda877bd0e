// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Division through reciprocals: what they are, and quotients at every limit.
#include "orv/liborvxx/number/words/reciprocal.h"

#include "orv/liborvxx/number/words/decimal_powers.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

namespace {

using orv::words::Limb;
using orv::words::multiplyAdd;
using orv::words::reciprocal;
using orv::words::TwoLimbs;
using orv::words::Wide;

constexpr Limb TOP = Limb{1} << 63U;
constexpr Limb ONES = ~Limb{0};

// Limbs at and near the limits, and any.
Limb someLimb(orvtest::NumberSource& source) {
    switch (source.below(6)) {
    case 0:
        return source.below(4);
    case 1:
        return ONES - source.below(4);
    case 2:
        return (Limb{1} << source.below(64)) - source.below(2);
    default:
        return source.bits();
    }
}

// By definition (B + v) * d is at most B^2 - 1, and B^2 - d or more.
void checkReciprocal(Limb d) {
    const Limb v = reciprocal(d);
    // v * d + B * d = B^2 - 1 - rest, with rest below d
    const Wide product = multiplyAdd(v, d, 0, 0);
    const Limb high = product.high + d;
    ASSERT_GE(high, d) << "overflow for " << d;
    ASSERT_EQ(high, ONES) << d;
    ASSERT_LT(ONES - product.low, d) << d;
}

TEST(Reciprocal, IsTheGreatestThatFits) {
    orvtest::NumberSource source(1);
    for (std::size_t i = 0; i < orvtest::caseCount(1000000); ++i) {
        checkReciprocal(someLimb(source) | TOP);
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

// Each entry of the table of first approximations, at both ends of its range.
TEST(Reciprocal, HoldsForEveryStart) {
    for (Limb i = 256; i < 512; ++i) {
        for (const Limb near : {Limb{0}, Limb{1}, Limb{2}, (Limb{1} << 24U) - 1, Limb{1} << 54U}) {
            checkReciprocal((i << 55U) + near);
            checkReciprocal((i << 55U) + ((Limb{1} << 55U) - 1 - near));
        }
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << i;
    }
}

TEST(Reciprocal, OfADecimalGroupIsTheConstant) {
    EXPECT_EQ(orv::words::DECIMAL_GROUP_RECIPROCAL, reciprocal(orv::words::DECIMAL_GROUP));
}

TEST(DivideTwoByOne, GivesBackQuotientAndRemainder) {
    orvtest::NumberSource source(2);
    for (std::size_t i = 0; i < orvtest::caseCount(1000000); ++i) {
        const Limb d = someLimb(source) | TOP;
        const Limb q = someLimb(source);
        const Limb r = source.coin() ? someLimb(source) % d : source.coin() ? d - 1 : 0;
        const Wide numerator = multiplyAdd(q, d, r, 0);
        Limb high = numerator.high;
        ASSERT_EQ(orv::words::divideTwoByOne(high, numerator.low, d, reciprocal(d)), q)
            << d << " " << r;
        ASSERT_EQ(high, r) << d << " " << q;
    }
}

TEST(DivideThreeByTwo, GivesBackQuotientAndRemainder) {
    orvtest::NumberSource source(3);
    for (std::size_t i = 0; i < orvtest::caseCount(1000000); ++i) {
        const Limb d1 = someLimb(source) | TOP;
        const Limb d0 = someLimb(source);
        const Limb q = someLimb(source);
        // A remainder below d1 * B + d0: anything below d1, one less than the divisor, or 0.
        const bool last = source.coin();
        const Limb r1 = last ? d1 - (d0 == 0 ? 1 : 0) : source.coin() ? someLimb(source) % d1 : 0;
        const Limb r0 = last ? d0 - 1 : someLimb(source);
        const Wide low = multiplyAdd(q, d0, r0, 0);
        const Wide high = multiplyAdd(q, d1, r1, low.high);
        Limb n2 = high.high;
        Limb n1 = high.low;
        const TwoLimbs divisor = orv::words::withReciprocal(d1, d0);
        ASSERT_EQ(orv::words::divideThreeByTwo(n2, n1, low.low, divisor), q) << d1 << " " << d0;
        ASSERT_EQ(n2, r1) << d1 << " " << d0;
        ASSERT_EQ(n1, r0) << d1 << " " << d0;
    }
}

} // namespace
