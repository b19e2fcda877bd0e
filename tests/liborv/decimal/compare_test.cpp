// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison and classification of decimal numbers by example.
#include "orv/liborv/decimal/compare.h"

#include "tests/liborv/decimal/decimal_numbers.h"

#include <gtest/gtest.h>

namespace {

using namespace orvtest;

constexpr ODecimal64 negated(ODecimal64 x) {
    return {x.bits | 0x8000000000000000};
}

TEST(DecimalCompare, ComparesByValue) {
    EXPECT_EQ(0, orvDec64Compare(number(10, -1), number(100, -2)));
    EXPECT_EQ(0, orvDec64Compare(ZERO, MINUS_ZERO));
    EXPECT_EQ(0, orvDec64Compare(number(0, 5), TOO_LARGE));
    EXPECT_EQ(-1, orvDec64Compare(number(-1, 0), ZERO));
    EXPECT_EQ(1, orvDec64Compare(number(1, 300), number(9, -300)));
    EXPECT_EQ(-1, orvDec64Compare(MINUS_INFINITE, number(-1, 300)));
    EXPECT_EQ(0, orvDec64Compare(INFINITE, INFINITE));
    EXPECT_EQ(1, orvDec64Compare(number(-1, -300), number(-1, 300)));
}

TEST(DecimalCompare, RelationsFollowTheOrder) {
    EXPECT_TRUE(orvDec64QuietEqual(number(10, -1), ONE));
    EXPECT_FALSE(orvDec64QuietNotEqual(number(10, -1), ONE));
    EXPECT_FALSE(orvDec64QuietLess(number(10, -1), ONE));
    EXPECT_TRUE(orvDec64QuietLessEqual(number(10, -1), ONE));
    EXPECT_TRUE(orvDec64QuietLess(ZERO, ONE));
    EXPECT_FALSE(orvDec64QuietLessEqual(ONE, ZERO));
}

TEST(DecimalCompare, ANaNIsUnordered) {
    for (const ODecimal64 nan : {QUIET, SIGNALLING}) {
        EXPECT_EQ(ORV_DEC_UNORDERED, orvDec64Compare(nan, ONE));
        EXPECT_EQ(ORV_DEC_UNORDERED, orvDec64Compare(ONE, nan));
        EXPECT_FALSE(orvDec64QuietEqual(nan, nan));
        EXPECT_TRUE(orvDec64QuietNotEqual(nan, nan));
        EXPECT_FALSE(orvDec64QuietLess(nan, ONE));
        EXPECT_FALSE(orvDec64QuietLessEqual(ONE, nan));
    }
}

TEST(DecimalCompare, SameQuantumLooksAtExponentsAlone) {
    EXPECT_TRUE(orvDec64SameQuantum(number(7, 2), number(0, 2)));
    EXPECT_FALSE(orvDec64SameQuantum(number(7, 2), number(7, 1)));
    EXPECT_TRUE(orvDec64SameQuantum(INFINITE, MINUS_INFINITE));
    EXPECT_TRUE(orvDec64SameQuantum(QUIET, SIGNALLING));
    EXPECT_FALSE(orvDec64SameQuantum(QUIET, INFINITE));
    EXPECT_TRUE(orvDec64SameQuantum(TOO_LARGE, ONE));
}

// From the first to the last, each before all that follow.
TEST(DecimalCompare, TotalOrderTellsAllValuesApart) {
    const ODecimal64 values[] = {negated(QUIET),
                                 negated(SIGNALLING),
                                 MINUS_INFINITE,
                                 number(-2, 0),
                                 number(-1, 0),
                                 number(-10, -1),
                                 negated(number(0, 1)),
                                 MINUS_ZERO,
                                 number(0, -1),
                                 ZERO,
                                 number(10, -1),
                                 ONE,
                                 number(2, 0),
                                 INFINITE,
                                 SIGNALLING,
                                 QUIET};
    for (const ODecimal64& x : values) {
        for (const ODecimal64& y : values) {
            EXPECT_EQ(&x <= &y, orvDec64TotalOrder(x, y) != 0)
                << &x - values << " and " << &y - values;
        }
    }
}

TEST(DecimalCompare, ClassIsTheNumberOfTheList) {
    EXPECT_EQ(ORV_DEC_SIGNALLING_NAN, orvDec64Class(SIGNALLING));
    EXPECT_EQ(ORV_DEC_QUIET_NAN, orvDec64Class(QUIET));
    EXPECT_EQ(ORV_DEC_NEGATIVE_INFINITY, orvDec64Class(MINUS_INFINITE));
    EXPECT_EQ(ORV_DEC_NEGATIVE_NORMAL, orvDec64Class(number(-1, 0)));
    EXPECT_EQ(ORV_DEC_NEGATIVE_SUBNORMAL, orvDec64Class(number(-1, -398)));
    EXPECT_EQ(ORV_DEC_NEGATIVE_ZERO, orvDec64Class(MINUS_ZERO));
    EXPECT_EQ(ORV_DEC_POSITIVE_ZERO, orvDec64Class(ZERO));
    EXPECT_EQ(ORV_DEC_POSITIVE_ZERO, orvDec64Class(TOO_LARGE));
    EXPECT_EQ(ORV_DEC_POSITIVE_SUBNORMAL, orvDec64Class(number(999'999'999'999'999, -398)));
    EXPECT_EQ(ORV_DEC_POSITIVE_NORMAL, orvDec64Class(number(1'000'000'000'000'000, -398)));
    EXPECT_EQ(ORV_DEC_POSITIVE_INFINITY, orvDec64Class(INFINITE));
}

TEST(DecimalCompare, QuestionsAgreeWithTheClass) {
    for (const ODecimal64 x :
         {SIGNALLING, QUIET, MINUS_INFINITE, INFINITE, number(-1, 0), ONE, number(-1, -398),
          number(1, -398), MINUS_ZERO, ZERO, TOO_LARGE, LARGEST}) {
        const int what = orvDec64Class(x);
        EXPECT_EQ(what == 0, orvDec64IsSignalling(x) != 0) << std::hex << x.bits;
        EXPECT_EQ(what <= 1, orvDec64IsNaN(x) != 0) << std::hex << x.bits;
        EXPECT_EQ(what == 2 || what == 9, orvDec64IsInfinite(x) != 0) << std::hex << x.bits;
        EXPECT_EQ(what > 2 && what < 9, orvDec64IsFinite(x) != 0) << std::hex << x.bits;
        EXPECT_EQ(what == 3 || what == 8, orvDec64IsNormal(x) != 0) << std::hex << x.bits;
        EXPECT_EQ(what == 5 || what == 6, orvDec64IsZero(x) != 0) << std::hex << x.bits;
        EXPECT_EQ(x.bits >> 63U != 0, orvDec64IsSigned(x) != 0) << std::hex << x.bits;
    }
}

TEST(DecimalCompare, CanonicalEncodingsHaveNothingToSpare) {
    EXPECT_TRUE(orvDec64IsCanonical(ONE));
    EXPECT_TRUE(orvDec64IsCanonical(LARGEST));
    EXPECT_TRUE(orvDec64IsCanonical(INFINITE));
    EXPECT_TRUE(orvDec64IsCanonical(QUIET));
    EXPECT_FALSE(orvDec64IsCanonical(TOO_LARGE));
    EXPECT_FALSE(orvDec64IsCanonical({0x780000000000DEAD}));
    EXPECT_FALSE(orvDec64IsCanonical({0x7C03FFFFFFFFFFFF}));
}

} // namespace
