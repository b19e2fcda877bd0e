// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Binary floating point to decimal: digits that a person would read.
#include "orv/liborvxx/decimal/binary_to_decimal.h"

#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/shown_decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace {

using namespace orv::decimal;
using orv::binary16;
using orvtest::shown;

// What a value is as a decimal of each width.
struct Shown {
    std::string as32;
    std::string as64;
    std::string as128;

    bool operator==(const Shown&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Shown& value) {
        return out << value.as32 << ", " << value.as64 << ", " << value.as128;
    }
};

template <class Float>
Shown converted(const Float& value) {
    return {shown(binary_to_decimal32(value)), shown(binary_to_decimal64(value)),
            shown(binary_to_decimal128(value))};
}

Shown all(const std::string& text) {
    return {text, text, text};
}

const Shown ZERO{"0E-101", "0E-398", "0E-6176"};
const Shown NEGATIVE_ZERO{"-0E-101", "-0E-398", "-0E-6176"};

TEST(BinaryToDecimal, HasTheDigitsThatAPersonReads) {
    EXPECT_EQ(converted(0.1), all("1E-1"));
    EXPECT_EQ(converted(0.1F), all("1E-1"));
    EXPECT_EQ(converted(0.1L), all("1E-1"));
    EXPECT_EQ(converted(binary16(0.1)), all("1E-1"));
    EXPECT_EQ(converted(-2.5), all("-25E-1"));
    EXPECT_EQ(converted(19.9F), all("199E-1"));
    EXPECT_EQ(converted(1.0), all("1E0"));
}

TEST(BinaryToDecimal, HasNoZerosBehindTheLastDigit) {
    EXPECT_EQ(converted(100.0), all("1E2"));
    EXPECT_EQ(converted(100.0F), all("1E2"));
    EXPECT_EQ(converted(binary16(100.0)), all("1E2"));
    EXPECT_EQ(converted(1e22), all("1E22"));
    EXPECT_EQ(converted(1e16), all("1E16"));
    EXPECT_EQ(converted(120000.0), all("12E4"));
    EXPECT_EQ(converted(-1e15), all("-1E15"));
}

TEST(BinaryToDecimal, RoundsTheValueToTheDigitsThatFit) {
    EXPECT_EQ(converted(0.1 + 0.2), (Shown{"3E-1", "3E-1", "30000000000000004E-17"}));
    EXPECT_EQ(converted(1.0 / 3),
              (Shown{"3333333E-7", "3333333333333333E-16", "3333333333333333E-16"}));
    EXPECT_EQ(converted(2.0 / 3),
              (Shown{"6666667E-7", "6666666666666666E-16", "6666666666666666E-16"}));
    EXPECT_EQ(converted(16777217.0), (Shown{"1677722E1", "16777217E0", "16777217E0"}));
    EXPECT_EQ(converted(16777216.0F), (Shown{"1677722E1", "16777216E0", "16777216E0"}));
    EXPECT_EQ(converted(3.4028235e38F), (Shown{"3402823E32", "34028235E31", "34028235E31"}));
    EXPECT_EQ(converted(9007199254740993.0),
              (Shown{"9007199E9", "9007199254740992E0", "9007199254740992E0"}));
    EXPECT_EQ(converted(2.2250738585072014e-308),
              (Shown{"0E-101", "2225073858507201E-323", "22250738585072014E-324"}));
}

TEST(BinaryToDecimal, RoundsTiesToTheEvenDigit) {
    EXPECT_EQ(converted(1234567.5).as32, "1234568E0");
    EXPECT_EQ(converted(1234566.5).as32, "1234566E0");
    EXPECT_EQ(converted(12345665.0F).as32, "1234566E1");
    EXPECT_EQ(converted(12345675.0).as32, "1234568E1");
    EXPECT_EQ(converted(0x1p-24F).as32, "5960464E-14") << "5960464477539063E-23 as a float";
}

TEST(BinaryToDecimal, CarriesNinesIntoANewDigit) {
    EXPECT_EQ(converted(9999999.6).as32, "1E7");
    EXPECT_EQ(converted(999999.96).as32, "1E6");
    EXPECT_EQ(converted(0.99999999).as32, "1E0");
    EXPECT_EQ(converted(9999999.4).as32, "9999999E0");
}

TEST(BinaryToDecimal, LooksAtTwoDigitsAtLeast) {
    EXPECT_EQ(converted(5e-324), (Shown{"0E-101", "49E-325", "49E-325"}));
    EXPECT_EQ(converted(1e-323), (Shown{"0E-101", "99E-325", "99E-325"}));
    EXPECT_EQ(converted(1e-45F), all("14E-46"));
    EXPECT_EQ(converted(binary16::from_bits(1)), all("6E-8"));
}

TEST(BinaryToDecimal, KeepsTheSignOfAZero) {
    EXPECT_EQ(converted(0.0), ZERO);
    EXPECT_EQ(converted(-0.0), NEGATIVE_ZERO);
    EXPECT_EQ(converted(-0.0F), NEGATIVE_ZERO);
    EXPECT_EQ(converted(-0.0L), NEGATIVE_ZERO);
    EXPECT_EQ(converted(binary16::from_bits(0)), ZERO);
    EXPECT_EQ(converted(binary16::from_bits(0x8000)), NEGATIVE_ZERO);
    EXPECT_EQ(binary_to_decimal64(-0.0).record().bits, 0x8000000000000000U);
    EXPECT_EQ(binary_to_decimal32(0.0).record().bits, 0U);
}

template <class Float>
void expectSpecial() {
    constexpr Float INFINITE = std::numeric_limits<Float>::infinity();
    constexpr Float NOT_A_NUMBER = std::numeric_limits<Float>::quiet_NaN();
    EXPECT_EQ(converted(INFINITE), all("inf"));
    EXPECT_EQ(converted(-INFINITE), all("-inf"));
    EXPECT_EQ(converted(NOT_A_NUMBER), all("NaN"));
    EXPECT_EQ(converted(std::copysign(NOT_A_NUMBER, Float{-1})), all("NaN"));
}

TEST(BinaryToDecimal, KeepsInfinitiesAndDropsWhatANanCarries) {
    expectSpecial<float>();
    expectSpecial<double>();
    expectSpecial<long double>();
    EXPECT_EQ(converted(binary16::from_bits(0x7C00)), all("inf"));
    EXPECT_EQ(converted(binary16::from_bits(0xFC00)), all("-inf"));
    EXPECT_EQ(converted(binary16::from_bits(0xFE01)), all("NaN"));
    EXPECT_EQ(converted(std::bit_cast<double>(0xFFF0000000000001U)), all("NaN"));
    const ODecimal128 infinity =
        binary_to_decimal128(std::numeric_limits<double>::infinity()).record();
    EXPECT_EQ(infinity.high, 0x7800000000000000U);
    EXPECT_EQ(infinity.low, 0U);
}

TEST(BinaryToDecimal, LeavesTheRangeOfADecimal32) {
    const auto as32 = [](double value) { return shown(binary_to_decimal32(value)); };
    EXPECT_EQ(as32(9.999999e96), "9999999E90");
    EXPECT_EQ(as32(-1e97), "-inf");
    EXPECT_EQ(as32(9.9999999e96), "inf") << "by rounding to the digits";
    EXPECT_EQ(as32(1e96), "1000000E90");
    EXPECT_EQ(as32(std::numeric_limits<double>::max()), "inf");
    EXPECT_EQ(as32(1e-101), "1E-101");
    EXPECT_EQ(as32(1.5e-101), "2E-101");
    EXPECT_EQ(as32(2.5e-101), "2E-101") << "a tie of the digits read";
    EXPECT_EQ(as32(-6e-102), "-1E-101");
    EXPECT_EQ(as32(5e-102), "0E-101");
    EXPECT_EQ(as32(-1e-300), "-0E-101");
    EXPECT_EQ(as32(1.234567e-96), "123457E-101");
    EXPECT_EQ(as32(1.234567e-95), "1234567E-101");
}

TEST(BinaryToDecimal, TakesALongDoubleForADouble) {
    orvtest::NumberSource source(3);
    for (std::size_t i = orvtest::caseCount(20'000); i > 0; --i) {
        const auto value = std::bit_cast<double>(source.bits());
        ASSERT_EQ(converted(static_cast<long double>(value)), converted(value)) << value;
    }
    EXPECT_EQ(converted(0.1L + 1e-19L), converted(static_cast<double>(0.1L + 1e-19L)));
}

TEST(BinaryToDecimal, IsWhatTheConstructorsDo) {
    EXPECT_EQ(shown(decimal32(0.25F)), "25E-2");
    EXPECT_EQ(shown(decimal64(0.1)), "1E-1");
    EXPECT_EQ(shown(decimal128(0.1L)), "1E-1");
    EXPECT_EQ(shown(decimal64(binary16(0.5))), "5E-1");
}

static_assert(noexcept(binary_to_decimal64(0.1)));

} // namespace
