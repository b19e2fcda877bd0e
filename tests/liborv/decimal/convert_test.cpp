// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Conversions of decimal numbers by example.
#include "orv/liborv/decimal/convert.h"

#include "tests/liborv/decimal/decimal_numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

namespace {

using namespace orvtest;

TEST(DecimalConvert, IntegersHaveExponent0UnlessRounded) {
    EXPECT_EQ(number(-100, 0), orvDec64FromInt64(-100));
    EXPECT_EQ((ODecimal64{0xEC88C49BA5E353F8}), orvDec64FromInt64(INT64_MIN))
        << "-9223372036854776E3";
    EXPECT_EQ(number(1'844'674'407'370'955, 4), orvDec64FromUInt64(UINT64_MAX));
    EXPECT_EQ((ODecimal128{UINT64_MAX, 0x3040000000000000}), orvDec128FromUInt64(UINT64_MAX));
    EXPECT_EQ((ODecimal32{0x330F4240}), orvDec32FromInt64(10'000'000)) << "1000000E1";
}

TEST(DecimalConvert, IntegersAreTruncated) {
    EXPECT_EQ(2, orvDec64ToInt64(number(29, -1)));
    EXPECT_EQ(-2, orvDec64ToInt32(number(-29, -1)));
    EXPECT_EQ(0U, orvDec64ToUInt64(number(-9, -1)));
    EXPECT_EQ(700, orvDec64ToInt64(number(7, 2)));
    EXPECT_EQ(0, orvDec64ToInt64(TOO_LARGE));
    EXPECT_EQ(INT32_MIN, orvDec64ToInt32(number(-21'474'836'489, -1)));
    EXPECT_EQ(INT32_MAX, orvDec64ToInt32(number(21'474'836'479, -1)));
}

TEST(DecimalConvert, WhatIsNoIntegerOrOutOfRangeGivesTheSentinel) {
    for (const ODecimal64 x : {QUIET, SIGNALLING, INFINITE, MINUS_INFINITE, number(1, 30)}) {
        EXPECT_EQ(INT32_MIN, orvDec64ToInt32(x));
        EXPECT_EQ(INT64_MIN, orvDec64ToInt64(x));
        EXPECT_EQ(0x8000000000000000U, orvDec64ToUInt64(x));
    }
    EXPECT_EQ(INT32_MIN, orvDec64ToInt32(number(2'147'483'648, 0)));
    EXPECT_EQ(INT32_MIN, orvDec64ToInt32(number(-2'147'483'649, 0)));
    EXPECT_EQ(0x8000000000000000U, orvDec64ToUInt64(number(-1, 0)));
}

TEST(DecimalConvert, WiderNumbersKeepTheExponent) {
    EXPECT_EQ(number(150, -2), orvDec32ToDec64({0x31800096}));
    EXPECT_EQ((ODecimal128{150, 0x303C000000000000}), orvDec64ToDec128(number(150, -2)));
    EXPECT_EQ((ODecimal128{150, 0x303C000000000000}), orvDec32ToDec128({0x31800096}));
}

TEST(DecimalConvert, NarrowerNumbersAreRounded) {
    EXPECT_EQ((ODecimal32{0x31800096}), orvDec64ToDec32(number(150, -2)));
    EXPECT_EQ((ODecimal32{0x78000000}), orvDec64ToDec32(number(1, 97)));
    EXPECT_EQ((ODecimal32{0x00000000}), orvDec64ToDec32(number(1, -150)));
    EXPECT_EQ(number(150, -2), orvDec128ToDec64({150, 0x303C000000000000}));
    EXPECT_EQ((ODecimal32{0x31800096}), orvDec128ToDec32({150, 0x303C000000000000}));
}

TEST(DecimalConvert, NaNsComeOutQuiet) {
    EXPECT_EQ((ODecimal64{0xFC000043C0F39E00}), orvDec32ToDec64({0xFE000123}))
        << "with the payload's first digits first";
    EXPECT_EQ((ODecimal32{0x7C000000}), orvDec64ToDec32(SIGNALLING));
    EXPECT_TRUE(std::isnan(orvDec64ToDouble(SIGNALLING)));
    EXPECT_TRUE(std::isnan(orvDec64ToFloat(QUIET)));
}

TEST(DecimalConvert, BinaryNumbersAreTheNearest) {
    EXPECT_EQ(0.1, orvDec64ToDouble(number(1, -1)));
    EXPECT_EQ(0.1F, orvDec64ToFloat(number(1, -1)));
    EXPECT_EQ(-1.5, orvDec64ToDouble(number(-150, -2)));
    EXPECT_TRUE(std::signbit(orvDec64ToDouble(MINUS_ZERO)));
    EXPECT_TRUE(std::isinf(orvDec64ToDouble(number(1, 309))));
    EXPECT_TRUE(std::isinf(orvDec64ToFloat(number(1, 39))));
    EXPECT_TRUE(std::isinf(orvDec64ToFloat(MINUS_INFINITE)));
}

} // namespace
