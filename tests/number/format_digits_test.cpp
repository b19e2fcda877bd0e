// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Digits as text, of binary and of decimal types.
#include "orv/liborvxx/number/detail/format_digits.h"

#include "orv/liborvxx/number/pack_decimal.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using orv::big_uint;
using orv::decimal::decimal64;
using namespace orv::detail;

// The text in both units, which must agree.
std::string format(const float_digits& number) {
    std::string text = format_digits(number);
    const orv::ustring wide = format_udigits(number);
    EXPECT_TRUE(std::equal(text.begin(), text.end(), wide.begin(), wide.end(), [](char a, auto b) {
        return static_cast<char16_t>(a) == static_cast<char16_t>(b);
    })) << text;
    return text;
}

std::string formatted(std::string_view digits, int exponent, int radix, int sign = 1) {
    float_digits number;
    number.sign = sign;
    number.exponent = exponent;
    number.radix = radix;
    number.digits = number.buffer;
    for (const char c : digits) {
        number.buffer[number.count++] = static_cast<std::uint8_t>(c - '0');
    }
    return format(number);
}

std::string binary(std::string_view digits, int exponent) {
    return formatted(digits, exponent, 2);
}
std::string decimal(std::string_view digits, int exponent) {
    return formatted(digits, exponent, 10);
}

TEST(FormatDigits, WritesPlainTextFromAThousandthToBelowTenMillion) {
    EXPECT_EQ(binary("1", -3), "0.001");
    EXPECT_EQ(binary("123", -3), "0.00123");
    EXPECT_EQ(binary("123", -2), "0.0123");
    EXPECT_EQ(binary("123", -1), "0.123");
    EXPECT_EQ(binary("1", 0), "1.0");
    EXPECT_EQ(binary("123", 0), "1.23");
    EXPECT_EQ(binary("123", 1), "12.3");
    EXPECT_EQ(binary("123", 2), "123.0");
    EXPECT_EQ(binary("123", 6), "1230000.0");
    EXPECT_EQ(binary("12345678", 6), "1234567.8");
}

TEST(FormatDigits, WritesScientificTextBeyond) {
    EXPECT_EQ(binary("1", -4), "1.0E-4");
    EXPECT_EQ(binary("123", -4), "1.23E-4");
    EXPECT_EQ(binary("1", 7), "1.0E7");
    EXPECT_EQ(binary("12345678", 7), "1.2345678E7");
    EXPECT_EQ(binary("49", -324), "4.9E-324");
    EXPECT_EQ(binary("12", 10), "1.2E10");
    EXPECT_EQ(binary("12", 6144), "1.2E6144");
    EXPECT_EQ(binary("1", 0x7FFFFFFD), "1.0E2147483645");
    EXPECT_EQ(binary("1", std::numeric_limits<int>::min()), "1.0E-2147483648");
}

TEST(FormatDigits, EndsDecimalsThatHaveNoFractionWithThePoint) {
    EXPECT_EQ(decimal("123", 2), "123.");
    EXPECT_EQ(decimal("1", 0), "1.");
    EXPECT_EQ(decimal("123", 1), "12.3");
    EXPECT_EQ(decimal("150", 0), "1.50");
    EXPECT_EQ(decimal("0", -2), "0.00");
    EXPECT_EQ(decimal("123", -3), "0.00123");
}

TEST(FormatDigits, WritesDecimalsWithoutDigitsBeforeThePointScientifically) {
    EXPECT_EQ(decimal("1", 2), "1.E2");
    EXPECT_EQ(decimal("123", 3), "1.23E3");
    EXPECT_EQ(decimal("1234", 3), "1234.");
    EXPECT_EQ(decimal("1234567", 6), "1234567.");
    EXPECT_EQ(decimal("123456", 6), "1.23456E6");
    EXPECT_EQ(decimal("12345678", 7), "1.2345678E7");
    EXPECT_EQ(decimal("1", -4), "1.E-4");
}

TEST(FormatDigits, LeadsNegativeValuesWithASign) {
    EXPECT_EQ(formatted("15", 0, 2, -1), "-1.5");
    EXPECT_EQ(formatted("15", -3, 2, -1), "-0.0015");
    EXPECT_EQ(formatted("15", 9, 10, -1), "-1.5E9");
    EXPECT_EQ(formatted("0", 0, 10, -1), "-0.");
    EXPECT_EQ(formatted("15", 0, 2, 0), "1.5");
}

TEST(FormatDigits, HoldsTheLongestText) {
    const std::string nines(34, '9');
    const std::string text = formatted(nines, std::numeric_limits<int>::min(), 10, -1);
    EXPECT_EQ(text, "-9." + nines.substr(1) + "E-2147483648");
    EXPECT_EQ(text.size(), MAX_FORMATTED_LENGTH);
}

std::string marked(int exponent, int sign) {
    float_digits number;
    number.sign = sign;
    number.exponent = exponent;
    return format(number);
}

TEST(FormatDigits, HasFixedTextsForValuesWithoutDigits) {
    EXPECT_EQ(marked(ZERO_MARKER, 1), "0.0");
    EXPECT_EQ(marked(ZERO_MARKER, -1), "-0.0");
    EXPECT_EQ(marked(ZERO_MARKER, 0), "-0.0");
    EXPECT_EQ(marked(INFINITY_MARKER, 1), "Infinity");
    EXPECT_EQ(marked(INFINITY_MARKER, -1), "-Infinity");
    EXPECT_EQ(marked(NAN_MARKER, 0), "NaN");
    EXPECT_EQ(marked(NAN_MARKER, -1), "NaN");
}

TEST(FormatDigits, RefusesOtherValuesWithoutDigits) {
    float_digits number;
    for (const int exponent : {0, 7, -1, 0x7FFFFFFD}) {
        number.exponent = exponent;
        EXPECT_EQ(orvtest::thrownMessage<std::logic_error>([&] { format_digits(number); }),
                  "no digits for non-special exponent");
        EXPECT_EQ(orvtest::thrownMessage<std::logic_error>([&] { format_udigits(number); }),
                  "no digits for non-special exponent");
    }
}

std::string textOf(const decimal64& value) {
    float_digits number;
    digits_of(number, value);
    return format(number);
}

TEST(FormatDigits, WritesDecimals) {
    EXPECT_EQ(textOf(orv::pack_decimal64(false, -2, big_uint(150U))), "1.50");
    EXPECT_EQ(textOf(orv::pack_decimal64(false, 0, big_uint(100U))), "100.");
    EXPECT_EQ(textOf(orv::pack_decimal64(false, 2, big_uint(1U))), "1.E2");
    EXPECT_EQ(textOf(orv::pack_decimal64(false, 0, big_uint(0U))), "0.");
    EXPECT_EQ(textOf(orv::pack_decimal64(false, -2, big_uint(0U))), "0.00");
    EXPECT_EQ(textOf(orv::pack_decimal64(true, 0, big_uint(0U))), "-0.");
    EXPECT_EQ(textOf(orv::pack_decimal64(true, -1, big_uint(15U))), "-1.5");
    EXPECT_EQ(textOf(ODecimal64{0x7800000000000000}), "Infinity");
    EXPECT_EQ(textOf(ODecimal64{0xF800000000000000}), "-Infinity");
    EXPECT_EQ(textOf(ODecimal64{0xFC00000000000000}), "NaN");
}

} // namespace
