// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Digits of binary numbers one by one, and values taken apart into digits.
#include "orv/liborvxx/number/detail/decimal_format.h"
#include "orv/liborvxx/number/detail/float_digits.h"

#include "orv/liborvxx/number/pack_decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <string>

namespace {

using orv::big_binary;
using orv::big_uint;
using orv::binary16;
using namespace orv::detail;

// The digits, 'e' and the exponent of the first.
std::string digitText(const float_digits& number) {
    std::string text;
    for (unsigned i = 0; i < number.count; ++i) {
        text += static_cast<char>('0' + number.digits[i]);
    }
    return text + "e" + std::to_string(number.exponent);
}

std::string generated(std::uint64_t coefficient, int exponent, int precision, int lowest,
                      unsigned maxDigits) {
    float_digits number;
    const auto bits = static_cast<unsigned>(precision);
    generate_digits(number, big_binary(exponent, big_uint(coefficient), bits), precision, lowest,
                    maxDigits);
    return digitText(number);
}

std::string doubleDigits(std::uint64_t coefficient, int exponent, unsigned maxDigits = 17) {
    return generated(coefficient, exponent, 53, -1022, maxDigits);
}

template <class Float>
std::string digits(Float value, unsigned maxDigits) {
    float_digits number;
    digits_of(number, value, maxDigits);
    return digitText(number);
}

constexpr std::uint64_t TOP = std::uint64_t{1} << 52U;

TEST(GenerateDigits, TakesTheShortestThatReadsBack) {
    EXPECT_EQ(doubleDigits(0x1999999999999A, -56), "1e-1");                 // 0.1
    EXPECT_EQ(doubleDigits(0x13333333333333, -54), "3e-1");                 // 0.3
    EXPECT_EQ(doubleDigits(0x13333333333334, -54), "30000000000000004e-1"); // 0.1 + 0.2
    EXPECT_EQ(doubleDigits(0x1FFFFFFFFFFFFF, 971), "17976931348623157e308");
    EXPECT_EQ(generated(0xCCCCCD, -27, 24, -126, 9), "1e-1");
    EXPECT_EQ(generated(0xFFFFFF, 104, 24, -126, 9), "34028235e38");
}

TEST(GenerateDigits, NeverStopsAtTheFirstDigit) {
    EXPECT_EQ(doubleDigits(1, -1074), "49e-324");
    EXPECT_EQ(doubleDigits(2, -1074), "99e-324");
    EXPECT_EQ(generated(1, -149, 24, -126, 9), "14e-45");
    EXPECT_EQ(generated(1, -24, 11, -14, 5), "6e-8"); // 5.96 is nearest to 6.0
    EXPECT_EQ(doubleDigits(3, -1074), "15e-323");
}

TEST(GenerateDigits, TakesCoefficientsWithOrWithoutZerosBehind) {
    EXPECT_EQ(doubleDigits(1, 0), "1e0");
    EXPECT_EQ(doubleDigits(TOP, -52), "1e0");
    EXPECT_EQ(doubleDigits(5, -1), "25e0");
    EXPECT_EQ(doubleDigits(5 * (TOP >> 2U), -51), "25e0");
}

TEST(GenerateDigits, GoesOnAtPowersOfTwoUntilTheNearestIsInside) {
    // The number below is half as far: 5.684341886080802E-14 would read back, but a nearer number
    // of 16 digits does not.
    EXPECT_EQ(doubleDigits(TOP, -44 - 52), "56843418860808015e-14");
    // Nor is the least normal number uneven, whose neighbours are equally far.
    EXPECT_EQ(doubleDigits(TOP, -1074), "22250738585072014e-308");
    EXPECT_EQ(doubleDigits(TOP, -20 - 52), "95367431640625e-7");
}

TEST(GenerateDigits, RoundsAtTheMostDigits) {
    EXPECT_EQ(digits(1.0 / 3, 7), "3333333e-1");
    EXPECT_EQ(digits(2.0 / 3, 7), "6666667e-1");
    EXPECT_EQ(digits(2.0 / 3, 2), "67e-1");
    EXPECT_EQ(digits(0.99999996, 7), "1e0"); // nines that carry go
    EXPECT_EQ(digits(0.0001999999995, 7), "2e-4");
    EXPECT_EQ(digits(123456.75, 7), "1234568e5"); // a tie, to the even digit above
    EXPECT_EQ(digits(123456.25, 7), "1234562e5"); // and below
    EXPECT_EQ(digits(100000.04, 7), "1e5");       // zeros that are left go
    EXPECT_EQ(digits(1.0F / 3, 5), "33333e-1");
    EXPECT_EQ(digits(binary16(1.0 / 3), 4), "3333e-1");
}

TEST(GenerateDigits, CapsTheDigitsAtTheTypesMost) {
    EXPECT_EQ(digits(0.1, 34), "1e-1");
    EXPECT_EQ(digits(0.1F, 34), "1e-1");
    EXPECT_EQ(digits(binary16(0.1), 34), digits(binary16(0.1), 5));
}

TEST(GenerateDigits, WorksBeyondTheCacheOfPowers) {
    EXPECT_EQ(generated(1, 1000, 53, -1022, 17), "10715086071862673e301");
    EXPECT_EQ(generated(1, 20000, 113, -16382, 34).substr(0, 10), "3980276840");
}

TEST(DigitsOfBinary, TellsSignsAndValuesWithoutDigits) {
    float_digits number;
    digits_of(number, -1.5);
    EXPECT_EQ(number.sign, -1);
    EXPECT_EQ(number.radix, 2);
    EXPECT_EQ(digitText(number), "15e0");
    const auto marker = [&number](auto value) {
        digits_of(number, value);
        EXPECT_EQ(number.digits, nullptr);
        EXPECT_EQ(number.count, 0U);
        EXPECT_EQ(number.radix, 2);
        return std::pair(number.sign, number.exponent);
    };
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    EXPECT_EQ(marker(INFINITE), std::pair(1, INFINITY_MARKER));
    EXPECT_EQ(marker(-INFINITE), std::pair(-1, INFINITY_MARKER));
    EXPECT_EQ(marker(std::bit_cast<double>(0xFFF8000000000001)), std::pair(0, NAN_MARKER));
    EXPECT_EQ(marker(std::bit_cast<double>(0x7FF0000000000001)), std::pair(0, NAN_MARKER));
    EXPECT_EQ(marker(0.0), std::pair(1, ZERO_MARKER));
    EXPECT_EQ(marker(-0.0), std::pair(-1, ZERO_MARKER));
    EXPECT_EQ(marker(0.0F), std::pair(1, ZERO_MARKER));
    EXPECT_EQ(marker(std::numeric_limits<float>::quiet_NaN()), std::pair(0, NAN_MARKER));
    EXPECT_EQ(marker(-std::numeric_limits<float>::infinity()), std::pair(-1, INFINITY_MARKER));
    EXPECT_EQ(marker(binary16::from_bits(0x8000)), std::pair(-1, ZERO_MARKER));
    EXPECT_EQ(marker(binary16::from_bits(0x7C00)), std::pair(1, INFINITY_MARKER));
    EXPECT_EQ(marker(binary16::from_bits(0xFC01)), std::pair(0, NAN_MARKER));
}

TEST(DigitsOfBinary, MarkersAreThoseThatLaterStagesKnow) {
    EXPECT_EQ(INFINITY_MARKER, 0x7FFFFFFE);
    EXPECT_EQ(NAN_MARKER, 0x7FFFFFFF);
    EXPECT_EQ(ZERO_MARKER, std::numeric_limits<std::int32_t>::min());
}

template <class Decimal>
std::string decimalDigits(const Decimal& value, int sign = 1) {
    float_digits number;
    digits_of(number, value);
    EXPECT_EQ(number.sign, sign);
    EXPECT_EQ(number.radix, 10);
    return digitText(number);
}

orv::decimal::decimal32 decimal32Of(std::uint32_t bits) {
    return ODecimal32{bits};
}
orv::decimal::decimal64 decimal64Of(std::uint64_t bits) {
    return ODecimal64{bits};
}
orv::decimal::decimal128 decimal128Of(std::uint64_t high, std::uint64_t low) {
    return ODecimal128{low, high};
}

TEST(DigitsOfDecimal, KeepsAllDigitsOfTheCoefficient) {
    EXPECT_EQ(decimalDigits(orv::pack_decimal32(false, -2, big_uint(150U))), "150e0");
    EXPECT_EQ(decimalDigits(orv::pack_decimal32(true, 90, big_uint(9999999U)), -1), "9999999e96");
    EXPECT_EQ(decimalDigits(orv::pack_decimal64(false, 0, big_uint(100U))), "100e2");
    EXPECT_EQ(decimalDigits(orv::pack_decimal64(false, -398, big_uint(9999999999999999UL))),
              "9999999999999999e-383");
    EXPECT_EQ(decimalDigits(orv::pack_decimal64(false, 3, big_uint(1000000000UL))),
              "1000000000e12");
    const std::string most(34, '9');
    EXPECT_EQ(decimalDigits(decimal128Of(0x0001ED09BEAD87C0 | std::uint64_t{12287} << 49U,
                                         0x378D8E63FFFFFFFF)),
              most + "e6144");
    EXPECT_EQ(decimalDigits(orv::pack_decimal128(true, -6176, big_uint(1000000001UL)), -1),
              "1000000001e-6167");
}

TEST(DigitsOfDecimal, GivesZerosTheirExponent) {
    EXPECT_EQ(decimalDigits(orv::pack_decimal32(false, 5, big_uint(0U))), "0e5");
    EXPECT_EQ(decimalDigits(orv::pack_decimal64(true, -2, big_uint(0U)), -1), "0e-2");
    EXPECT_EQ(decimalDigits(orv::pack_decimal128(false, -6176, big_uint(0U))), "0e-6176");
}

TEST(DigitsOfDecimal, TakesTooLargeCoefficientsForZero) {
    EXPECT_EQ(decimalDigits(decimal32Of(0x6CB89680)), "0e0"); // 10^7
    EXPECT_EQ(decimalDigits(decimal32Of(0x6CB8967F)), "9999999e6");
    EXPECT_EQ(decimalDigits(decimal64Of(0x6C7386F26FC10000)), "0e0"); // 10^16
    EXPECT_EQ(decimalDigits(decimal64Of(0x6C7386F26FC0FFFF)), "9999999999999999e15");
    constexpr std::uint64_t BIAS = std::uint64_t{6176} << 49U;
    EXPECT_EQ(decimalDigits(decimal128Of(BIAS | 0x0001ED09BEAD87C0, 0x378D8E6400000000)), "0e0");
    EXPECT_EQ(decimalDigits(decimal128Of(BIAS | 0x0001ED09BEAD87C1, 0)), "0e0");
    EXPECT_EQ(decimalDigits(decimal128Of(0x6000000000000000 | std::uint64_t{6176} << 47U, 1)),
              "0e0");
}

TEST(DigitsOfDecimal, TellsInfinitiesAndNansByTheTopBits) {
    float_digits number;
    const auto marker = [&number](const auto& value) {
        digits_of(number, value);
        EXPECT_EQ(number.digits, nullptr);
        EXPECT_EQ(number.radix, 10);
        return std::pair(number.sign, number.exponent);
    };
    EXPECT_EQ(marker(decimal32Of(0x78000000)), std::pair(1, INFINITY_MARKER));
    EXPECT_EQ(marker(decimal32Of(0xF8123456)), std::pair(-1, INFINITY_MARKER));
    EXPECT_EQ(marker(decimal32Of(0x7C000000)), std::pair(0, NAN_MARKER));
    EXPECT_EQ(marker(decimal32Of(0xFE000001)), std::pair(0, NAN_MARKER));
    EXPECT_EQ(marker(decimal64Of(0xF800000000000000)), std::pair(-1, INFINITY_MARKER));
    EXPECT_EQ(marker(decimal64Of(0x7C00000000000000)), std::pair(0, NAN_MARKER));
    EXPECT_EQ(marker(decimal128Of(0x7800000000000000, 0)), std::pair(1, INFINITY_MARKER));
    EXPECT_EQ(marker(decimal128Of(0xFC00000000000000, 5)), std::pair(0, NAN_MARKER));
}

#ifndef NDEBUG
TEST(GenerateDigitsDeathTest, AssertsItsPreconditions) {
    float_digits number;
    EXPECT_DEATH(generate_digits(number, big_binary(), 53, -1022, 17), "is_zero");
    EXPECT_DEATH(generate_digits(number, big_binary(0, 1U, 1), 53, -1022, 1), "max_digits");
    EXPECT_DEATH(generate_digits(number, big_binary(0, 1U, 1), 53, -1022, 37), "max_digits");
    EXPECT_DEATH(generate_digits(number, big_binary(0, 4U, 3), 2, -1022, 17), "bit_length");
    EXPECT_DEATH(digits_of(number, 0.1, 1), "maxDigits");
}
#endif

} // namespace
