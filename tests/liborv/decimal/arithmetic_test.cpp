// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal arithmetic by example: preferred exponents, zeros, infinities and NaNs.
#include "orv/liborv/decimal/arithmetic.h"

#include "orv/liborv/decimal/compare.h"

#include "tests/liborv/decimal/decimal_numbers.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>

namespace {

using namespace orvtest;

TEST(DecimalArithmetic, KeepsThePreferredExponent) {
    EXPECT_EQ(number(300, -2), orvDec64Add(number(150, -2), number(15, -1)));
    EXPECT_EQ(number(0, -2), orvDec64Subtract(number(150, -2), number(15, -1)));
    EXPECT_EQ(number(2250, -3), orvDec64Multiply(number(150, -2), number(15, -1)));
    EXPECT_EQ(number(3, 0), orvDec64Divide(number(6, 0), number(2, 0)));
    EXPECT_EQ(number(5, -1), orvDec64Divide(number(1, 0), number(2, 0)));
    EXPECT_EQ(number(30, -1), orvDec64SquareRoot(number(900, -2)));
    EXPECT_EQ(number(0, -2), orvDec64Add(number(0, -2), number(0, 7)));
    EXPECT_EQ(number(100, -2), orvDec64Add(number(0, -2), number(1, 0)));
}

TEST(DecimalArithmetic, RoundsOnceHalfToEven) {
    const ODecimal64 long1 = number(1'000'000'000'000'000, 0);
    EXPECT_EQ(long1, orvDec64Add(long1, number(5, -1)));
    EXPECT_EQ(number(1'000'000'000'000'002, 0),
              orvDec64Add(number(1'000'000'000'000'001, 0), number(5, -1)));
    EXPECT_EQ(number(3'333'333'333'333'333, -16), orvDec64Divide(ONE, number(3, 0)));
    EXPECT_EQ((ODecimal32{0x2F32DCD5}), orvDec32Divide({0x32800001}, {0x32800003}));
}

TEST(DecimalArithmetic, ASumThatIsZeroIsNegativeOnlyIfBothAre) {
    EXPECT_EQ(ZERO, orvDec64Add(ONE, number(-1, 0)));
    EXPECT_EQ(ZERO, orvDec64Add(number(-1, 0), ONE));
    EXPECT_EQ(ZERO, orvDec64Add(ZERO, MINUS_ZERO));
    EXPECT_EQ(ZERO, orvDec64Subtract(ZERO, ZERO));
    EXPECT_EQ(MINUS_ZERO, orvDec64Add(MINUS_ZERO, MINUS_ZERO));
    EXPECT_EQ(MINUS_ZERO, orvDec64Subtract(MINUS_ZERO, ZERO));
}

TEST(DecimalArithmetic, ZerosOfProductsAndQuotientsHaveTheirSigns) {
    EXPECT_EQ(MINUS_ZERO, orvDec64Multiply(ZERO, number(-1, 0)));
    EXPECT_EQ(ZERO, orvDec64Multiply(MINUS_ZERO, number(-1, 0)));
    EXPECT_EQ(MINUS_ZERO, orvDec64Divide(ZERO, number(-1, 0)));
    EXPECT_EQ(MINUS_ZERO, orvDec64SquareRoot(MINUS_ZERO));
}

TEST(DecimalArithmetic, DivisionByZeroIsInfinite) {
    EXPECT_EQ(INFINITE, orvDec64Divide(ONE, ZERO));
    EXPECT_EQ(MINUS_INFINITE, orvDec64Divide(ONE, MINUS_ZERO));
    EXPECT_EQ((ODecimal64{0}), orvDec64Divide(ONE, INFINITE));
}

TEST(DecimalArithmetic, WhatHasNoValueIsAQuietNaN) {
    EXPECT_EQ(NAN_RESULT, orvDec64Divide(ZERO, ZERO));
    EXPECT_EQ(NAN_RESULT, orvDec64Subtract(INFINITE, INFINITE));
    EXPECT_EQ(NAN_RESULT, orvDec64Multiply(ZERO, INFINITE));
    EXPECT_EQ(NAN_RESULT, orvDec64SquareRoot(number(-1, 0)));
    EXPECT_EQ(NAN_RESULT, orvDec64Remainder(INFINITE, ONE));
    EXPECT_EQ(NAN_RESULT, orvDec64Remainder(ONE, ZERO));
}

TEST(DecimalArithmetic, OverflowIsInfinite) {
    EXPECT_EQ(INFINITE, orvDec64Add(LARGEST, LARGEST));
    EXPECT_EQ(MINUS_INFINITE, orvDec64Multiply(LARGEST, number(-10, 0)));
    EXPECT_EQ(INFINITE, orvDec64ScaleB(ONE, 385));
    EXPECT_EQ(number(1'000'000'000'000'000, 369), orvDec64ScaleB(ONE, 384));
}

TEST(DecimalArithmetic, TheFirstNaNGoesThroughQuiet) {
    EXPECT_EQ(QUIET, orvDec64Add(QUIET, ONE));
    EXPECT_EQ(QUIET, orvDec64Add(ONE, QUIET));
    EXPECT_EQ(QUIET, orvDec64Multiply(QUIET, SIGNALLING));
    EXPECT_EQ((ODecimal64{0x7C00000000000789}), orvDec64Divide(SIGNALLING, QUIET));
    EXPECT_EQ(QUIET, orvDec64Subtract(ONE, QUIET)); // its sign stays
    EXPECT_EQ(NAN_RESULT, orvDec64Add(ONE, {0x7C03FFFFFFFFFFFF})) << "a payload too long is 0";
}

TEST(DecimalArithmetic, ACoefficientAboveTheLargestCountsAsZero) {
    EXPECT_EQ(ONE, orvDec64Add(TOO_LARGE, ONE));
    EXPECT_EQ(ZERO, orvDec64Multiply(TOO_LARGE, ONE));
    EXPECT_EQ(ZERO, orvDec64RoundExact(TOO_LARGE, ORV_DEC_HALF_EVEN));
    EXPECT_EQ(INFINITE, orvDec64Add(ONE, {0x780000000000DEAD})) << "an infinity is canonical";
}

TEST(DecimalArithmetic, FusedMultiplyAddRoundsOnce) {
    const ODecimal64 x = number(1'000'000'000'000'001, 0);
    EXPECT_EQ(ONE, orvDec64FusedMultiplyAdd(x, x, number(-1'000'000'000'000'002, 15)));
    // The product is 1.973824999999999605235E-390, the sum -3.94765E-406: rounded twice it is +0.
    EXPECT_EQ((ODecimal64{0x8000000000000000}),
              orvDec64FusedMultiplyAdd(number(-3'947'650'000'000'000, -114),
                                       number(-4'999'999'999'999'999, -307),
                                       number(-197'382'500, -398)));
}

// The first 16 digits of the product are 2500000000000000 and 1234567890123445; those behind
// decide.
TEST(DecimalArithmetic, FusedMultiplyAddSeesDigitsBehindATie) {
    const ODecimal64 x = number(3'333'333'333'333'333, -214);
    EXPECT_EQ(number(3, -398),
              orvDec64FusedMultiplyAdd(x, number(7'500'000'000'000'001, -215), ZERO));
    EXPECT_EQ(number(5, -398),
              orvDec64FusedMultiplyAdd(x, number(7'500'000'000'000'001, -215), number(2, -398)));
    EXPECT_EQ(number(123'456'789'012'345, -398),
              orvDec64FusedMultiplyAdd(x, number(3'703'703'670'370'336, -201), ZERO));
}

TEST(DecimalArithmetic, TheIeeeRemainderMayBeNegative) {
    EXPECT_EQ(number(-1, 0), orvDec64Remainder(number(8, 0), number(3, 0)));
    EXPECT_EQ(number(1, 0), orvDec64Remainder(number(-8, 0), number(3, 0)));
    EXPECT_EQ(number(2, 0), orvDec64Remainder(number(10, 0), number(4, 0))) << "the tie is even";
    EXPECT_EQ(MINUS_ZERO, orvDec64Remainder(number(-9, 0), number(3, 0)));
    EXPECT_EQ(ONE, orvDec64Remainder(ONE, INFINITE));
}

TEST(DecimalArithmetic, QuantizesByEveryMode) {
    const ODecimal64 cents = number(0, -2);
    const int halves[] = {2, 2, 3, 2, 3};
    const int minusHalves[] = {-2, -3, -2, -2, -3};
    for (int mode = ORV_DEC_HALF_EVEN; mode <= ORV_DEC_HALF_AWAY; ++mode) {
        EXPECT_EQ(number(halves[mode], 0), orvDec64Quantize(number(25, -1), ONE, mode)) << mode;
        EXPECT_EQ(number(minusHalves[mode], 0), orvDec64Quantize(number(-25, -1), ONE, mode))
            << mode;
    }
    EXPECT_EQ(number(700, -2), orvDec64Quantize(number(7, 0), cents, ORV_DEC_HALF_EVEN));
    EXPECT_EQ(number(0, 5), orvDec64Quantize(number(7, 0), number(1, 5), ORV_DEC_HALF_EVEN));
}

TEST(DecimalArithmetic, QuantizeGivesNaNForWhatDoesNotFit) {
    EXPECT_EQ(NAN_RESULT, orvDec64Quantize(ONE, number(1, -16), ORV_DEC_HALF_EVEN));
    EXPECT_EQ(number(1'000'000'000'000'000, -15),
              orvDec64Quantize(ONE, number(1, -15), ORV_DEC_HALF_EVEN));
    EXPECT_EQ(NAN_RESULT, orvDec64Quantize(INFINITE, ONE, ORV_DEC_HALF_EVEN));
    EXPECT_EQ(NAN_RESULT, orvDec64Quantize(ONE, INFINITE, ORV_DEC_HALF_EVEN));
    EXPECT_EQ(INFINITE, orvDec64Quantize(INFINITE, MINUS_INFINITE, ORV_DEC_HALF_EVEN));
    EXPECT_EQ(number(0, -16), orvDec64Quantize(ZERO, number(1, -16), ORV_DEC_HALF_EVEN));
}

TEST(DecimalArithmetic, ScalesByAnyInt) {
    EXPECT_EQ(number(15, 1), orvDec64ScaleB(number(15, -1), 2));
    EXPECT_EQ(INFINITE, orvDec64ScaleB(ONE, INT_MAX));
    EXPECT_EQ((ODecimal64{0}), orvDec64ScaleB(ONE, INT_MIN));
    EXPECT_EQ(number(0, 369), orvDec64ScaleB(ZERO, INT_MAX));
    EXPECT_EQ(MINUS_INFINITE, orvDec64ScaleB(MINUS_INFINITE, INT_MIN));
    EXPECT_EQ(number(2, -398), orvDec64ScaleB(number(15, -398), -1)) << "a tie";
}

// Intel's function takes numbers just below 10^33 for full, and gives infinity here.
TEST(DecimalArithmetic, ScalesUpAsLongAsZerosFit) {
    const auto at = [](std::uint64_t coefficient, int exponent) {
        return ODecimal128{coefficient, static_cast<std::uint64_t>(exponent + 6176) << 49U};
    };
    const ODecimal128 nineteenNines = at(9'999'999'999'999'999'999U, 6100);
    const ODecimal128 zeros =
        orvDec128Multiply(at(9'999'999'999'999'999'999U, 0), at(1'000'000'000'000'000, 6111));
    EXPECT_EQ(zeros, orvDec128ScaleB(nineteenNines, 26));
    EXPECT_EQ(orvDec128Negate(zeros), orvDec128ScaleB(orvDec128Negate(nineteenNines), 26));
    EXPECT_TRUE(orvDec128IsInfinite(orvDec128ScaleB(nineteenNines, 27)));
    EXPECT_TRUE(orvDec128IsInfinite(orvDec128ScaleB(nineteenNines, INT_MAX)));
    EXPECT_EQ(at(5'789'604'461'865'809'771U, 6111),
              orvDec128ScaleB(at(5'789'604'461'865'809'771U, 6111), 0));
}

TEST(DecimalArithmetic, TellsTheExponentOfTheFirstDigit) {
    EXPECT_EQ(-1, orvDec64LogB(number(5, -1)));
    EXPECT_EQ(3, orvDec64LogB(number(1234, 0)));
    EXPECT_EQ(-398, orvDec64LogB({1}));
    EXPECT_EQ(INT_MIN, orvDec64LogB(ZERO));
    EXPECT_EQ(INT_MIN, orvDec64LogB(TOO_LARGE));
    EXPECT_EQ(INT_MIN, orvDec64LogB(QUIET));
    EXPECT_EQ(INT_MAX, orvDec64LogB(MINUS_INFINITE));
}

TEST(DecimalArithmetic, RoundsToIntegers) {
    EXPECT_EQ(number(2, 0), orvDec64RoundExact(number(25, -1), ORV_DEC_HALF_EVEN));
    EXPECT_EQ(number(3, 0), orvDec64RoundHalfUp(number(25, -1)));
    EXPECT_EQ(number(-3, 0), orvDec64RoundHalfUp(number(-25, -1)));
    EXPECT_EQ(MINUS_ZERO, orvDec64RoundExact(number(-4, -1), ORV_DEC_HALF_EVEN));
    EXPECT_EQ(number(7, 3), orvDec64RoundExact(number(7, 3), ORV_DEC_HALF_EVEN));
    EXPECT_EQ(INFINITE, orvDec64RoundExact(INFINITE, ORV_DEC_HALF_EVEN));
}

TEST(DecimalArithmetic, SignsChangeNoOtherBit) {
    for (const ODecimal64 x : {ONE, ZERO, INFINITE, QUIET, SIGNALLING, TOO_LARGE}) {
        const ODecimal64 minus{x.bits | 0x8000000000000000};
        EXPECT_EQ(minus, orvDec64Negate(x));
        EXPECT_EQ(x, orvDec64Negate(minus));
        EXPECT_EQ(x, orvDec64Abs(minus));
        EXPECT_EQ(x, orvDec64Abs(x));
        EXPECT_EQ(minus, orvDec64CopySign(x, MINUS_ZERO));
        EXPECT_EQ(x, orvDec64CopySign(minus, ZERO));
    }
}

TEST(DecimalArithmetic, ANumberWinsOverAQuietNaNOnly) {
    EXPECT_EQ(ONE, orvDec64Min(QUIET, ONE));
    EXPECT_EQ(ONE, orvDec64Max(ONE, QUIET));
    EXPECT_EQ((ODecimal64{0x7C00000000000789}), orvDec64Min(ONE, SIGNALLING));
    EXPECT_EQ((ODecimal64{0x7C00000000000789}), orvDec64Max(SIGNALLING, ONE));
    EXPECT_EQ(QUIET, orvDec64Max(QUIET, QUIET));
}

TEST(DecimalArithmetic, OfEqualNumbersTheSecondIsLeastAndGreatest) {
    EXPECT_EQ(number(1, 1), orvDec64Min(number(10, 0), number(1, 1)));
    EXPECT_EQ(number(10, 0), orvDec64Max(number(1, 1), number(10, 0)));
    EXPECT_EQ(MINUS_ZERO, orvDec64Max(ZERO, MINUS_ZERO));
    EXPECT_EQ(number(-2, 0), orvDec64Min(ONE, number(-2, 0)));
    EXPECT_EQ(ONE, orvDec64Max(ONE, number(-2, 0)));
}

TEST(DecimalArithmetic, NeighboursAreOneStepAway) {
    EXPECT_EQ(number(1'000'000'000'000'001, -15), orvDec64NextUp(ONE));
    EXPECT_EQ((ODecimal64{0x6BF386F26FC0FFFF}), orvDec64NextDown(ONE));
    EXPECT_EQ((ODecimal64{1}), orvDec64NextUp(MINUS_ZERO));
    EXPECT_EQ((ODecimal64{0x8000000000000000}), orvDec64NextUp({0x8000000000000001}));
    EXPECT_EQ(INFINITE, orvDec64NextUp(LARGEST));
    EXPECT_EQ(LARGEST, orvDec64NextDown(INFINITE));
    EXPECT_EQ(INFINITE, orvDec64NextUp(INFINITE));
}

TEST(DecimalArithmetic, LeavesErrnoAlone) {
    errno = 77;
    orvDec64Divide(ONE, ZERO);
    orvDec64Add(LARGEST, LARGEST);
    orvDec64SquareRoot(number(-1, 0));
    EXPECT_EQ(77, errno);
}

} // namespace
