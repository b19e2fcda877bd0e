// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point values as strings of both units.
#include "orv/liborvxx/number/number_to_string.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <string>

namespace {

using orv::binary16;

// The text in both units, which must agree.
template <class Float>
std::string text(Float value) {
    const std::string narrow = orv::to_string_c(value);
    const orv::ustring wide = orv::to_ustring_c(value);
    EXPECT_TRUE(std::equal(
        narrow.begin(), narrow.end(), wide.begin(), wide.end(),
        [](char a, orv::char16 b) { return static_cast<char16_t>(a) == static_cast<char16_t>(b); }))
        << narrow;
    return narrow;
}

template <class Float>
void expectTextsWithoutDigits() {
    using Limits = std::numeric_limits<Float>;
    const auto zero = static_cast<Float>(0.0);
    const auto negativeZero = static_cast<Float>(-0.0);
    EXPECT_EQ(text(zero), "0.0");
    EXPECT_EQ(text(negativeZero), "-0.0");
    EXPECT_EQ(text(Limits::infinity()), "Infinity");
    EXPECT_EQ(text(Limits::quiet_NaN()), "NaN");
}

TEST(FloatToString, HasFixedTextsForValuesWithoutDigits) {
    expectTextsWithoutDigits<float>();
    expectTextsWithoutDigits<double>();
    expectTextsWithoutDigits<long double>();
    expectTextsWithoutDigits<binary16>();
    EXPECT_EQ(text(-std::numeric_limits<float>::infinity()), "-Infinity");
    EXPECT_EQ(text(-std::numeric_limits<double>::infinity()), "-Infinity");
    EXPECT_EQ(text(-std::numeric_limits<long double>::infinity()), "-Infinity");
    EXPECT_EQ(text(binary16::from_bits(0xFC00)), "-Infinity");
}

TEST(FloatToString, WritesEveryNanAlike) {
    for (const std::uint64_t bits : {0x7FF8000000000000U, 0xFFF8000000000000U, 0x7FF0000000000001U,
                                     0xFFFFFFFFFFFFFFFFU, 0x7FF8000000012345U}) {
        EXPECT_EQ(text(std::bit_cast<double>(bits)), "NaN");
    }
    EXPECT_EQ(text(std::bit_cast<float>(0xFFC00001U)), "NaN");
    EXPECT_EQ(text(std::bit_cast<float>(0x7F800001U)), "NaN");
    EXPECT_EQ(text(binary16::from_bits(0xFE01)), "NaN");
}

TEST(FloatToString, WritesPlainTextBelowTenMillion) {
    EXPECT_EQ(text(1.0), "1.0");
    EXPECT_EQ(text(10.0), "10.0");
    EXPECT_EQ(text(100.0), "100.0");
    EXPECT_EQ(text(1234567.0), "1234567.0");
    EXPECT_EQ(text(9999999.0), "9999999.0");
    EXPECT_EQ(text(1234567.8), "1234567.8");
    EXPECT_EQ(text(12.34), "12.34");
    EXPECT_EQ(text(123456.789), "123456.789");
    EXPECT_EQ(text(0.1), "0.1");
    EXPECT_EQ(text(0.3), "0.3");
    EXPECT_EQ(text(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(text(9999999.999999998), "9999999.999999998");
}

TEST(FloatToString, WritesScientificTextFromTenMillionOn) {
    EXPECT_EQ(text(1.0E7), "1.0E7");
    EXPECT_EQ(text(12345678.0), "1.2345678E7");
    EXPECT_EQ(text(1.0E10), "1.0E10");
    EXPECT_EQ(text(1e100), "1.0E100");
    EXPECT_EQ(text(1e23), "1.0E23");
    EXPECT_EQ(text(std::numeric_limits<double>::max()), "1.7976931348623157E308");
}

TEST(FloatToString, WritesScientificTextBelowAThousandth) {
    EXPECT_EQ(text(0.001), "0.001");
    EXPECT_EQ(text(0.00123), "0.00123");
    EXPECT_EQ(text(0.0012345678901234567), "0.0012345678901234567");
    EXPECT_EQ(text(0.01), "0.01");
    EXPECT_EQ(text(0.0009999999999999998), "9.999999999999998E-4");
    EXPECT_EQ(text(0.0001), "1.0E-4");
    EXPECT_EQ(text(1.5e-10), "1.5E-10");
    EXPECT_EQ(text(2.2250738585072014e-308), "2.2250738585072014E-308");
}

TEST(FloatToString, WritesTwoDigitsWhereTheySayMore) {
    EXPECT_EQ(text(5e-324), "4.9E-324");
    EXPECT_EQ(text(1e-323), "9.9E-324");
    EXPECT_EQ(text(1.5e-323), "1.5E-323");
    EXPECT_EQ(text(2e-323), "2.0E-323");
    EXPECT_EQ(text(std::numeric_limits<float>::denorm_min()), "1.4E-45");
    EXPECT_EQ(text(2 * std::numeric_limits<float>::denorm_min()), "2.8E-45");
    EXPECT_EQ(text(std::numeric_limits<binary16>::denorm_min()), "6.0E-8");
    EXPECT_EQ(text(binary16::from_bits(2)), "1.2E-7");
}

TEST(FloatToString, WritesPowersOfTwo) {
    EXPECT_EQ(text(9.5367431640625E-7), "9.5367431640625E-7"); // 2^-20
    EXPECT_EQ(text(0x1p-44), "5.6843418860808015E-14");
    EXPECT_EQ(text(0x1p60), "1.152921504606847E18");
    EXPECT_EQ(text(0x1p-1022), "2.2250738585072014E-308");
    EXPECT_EQ(text(0.5), "0.5");
    EXPECT_EQ(text(1048576.0), "1048576.0");
}

TEST(FloatToString, WritesFloatsWithTheirOwnDigits) {
    EXPECT_EQ(text(16777216.0F), "1.6777216E7");
    EXPECT_EQ(text(0.1F), "0.1");
    EXPECT_EQ(text(3.4028235E38F), "3.4028235E38");
    EXPECT_EQ(text(0.3F), "0.3");
    EXPECT_EQ(text(1.17549435E-38F), "1.1754944E-38");
    EXPECT_EQ(text(1234567.9F), "1234567.9");
    EXPECT_EQ(text(-0.00123F), "-0.00123");
}

TEST(FloatToString, WritesHalvesWithTheirOwnDigits) {
    EXPECT_EQ(text(binary16(1.0)), "1.0");
    EXPECT_EQ(text(binary16(0.1)), "0.1");
    EXPECT_EQ(text(binary16(1.0 / 3)), "0.3333");
    EXPECT_EQ(text(std::numeric_limits<binary16>::max()), "65500.0");
    EXPECT_EQ(text(std::numeric_limits<binary16>::min()), "6.104E-5");
    EXPECT_EQ(text(binary16(-2049.0)), "-2048.0");
}

TEST(FloatToString, LeadsNegativeValuesWithASign) {
    EXPECT_EQ(text(-1.5), "-1.5");
    EXPECT_EQ(text(-0.001), "-0.001");
    EXPECT_EQ(text(-1e-7), "-1.0E-7");
    EXPECT_EQ(text(-1.2345678E7), "-1.2345678E7");
    EXPECT_EQ(text(-1.7976931348623157E308), "-1.7976931348623157E308");
}

TEST(FloatToString, TakesTheNearestDoubleOfALongDouble) {
    EXPECT_EQ(text(0.1L), "0.1");
    EXPECT_EQ(text(1.0L / 3), "0.3333333333333333");
    EXPECT_EQ(text(static_cast<long double>(5e-324)), "4.9E-324");
    EXPECT_EQ(text(-1e7L), "-1.0E7");
    if (std::numeric_limits<long double>::max_exponent > 1024) {
        EXPECT_EQ(text(std::numeric_limits<long double>::max()), "Infinity");
        EXPECT_EQ(text(-std::numeric_limits<long double>::denorm_min()), "-0.0");
    }
}

} // namespace
