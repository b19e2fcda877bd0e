// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point numbers from text over char16.
#include "orv/liborvxx/locale/num_get.h"

#include "tests/locale/number_facets.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <limits>
#include <string>

namespace {

using orvtest::expectRow;
using orvtest::GROUPED;
using orvtest::PLAIN;
using orvtest::ReadingRow;
using orvtest::readNumber;
using Ios = std::ios_base;

constexpr auto GOOD = Ios::goodbit;
constexpr auto FAIL = Ios::failbit;
constexpr auto END = Ios::eofbit;
constexpr auto HEX_FLOAT = Ios::fixed | Ios::scientific;

TEST(NumGet, ReadsFloats) {
    const ReadingRow<double> rows[] = {
        {u"1.5", 1.5, END, 0},
        {u"-1.5e3;", -1500, GOOD, 1},
        {u"+.5", 0.5, END, 0},
        {u"5.", 5, END, 0},
        {u"5.e-1", 0.5, END, 0},
        {u"1,5", 1, GOOD, 2},
        {u"1e5e", 1e5, GOOD, 1},
        {u"1E+05.5", 1e5, GOOD, 2},
        {u"1.2.3", 1.2, GOOD, 2},
        {u"0.1", 0.1, END, 0},
        {u"0x1p3", 0, GOOD, 4},
        {u"", 0, FAIL | END, 0},
        {u".", 0, FAIL | END, 0},
        {u"-", 0, FAIL | END, 0},
        {u"e5", 0, FAIL, 2},
        {u".e5", 0, FAIL, 2},
        {u"1e", 0, FAIL | END, 0},
        {u"1e+", 0, FAIL | END, 0},
        {u"1e-;", 0, FAIL, 1},
        {u"1ex", 0, FAIL, 1},
        {u"inf", 0, FAIL, 3},
        {u"nan", 0, FAIL, 3},
        {u"1e309", std::numeric_limits<double>::max(), FAIL | END, 0},
        {u"-1e309", std::numeric_limits<double>::lowest(), FAIL | END, 0},
        {u"1e99999999999999999999999", std::numeric_limits<double>::max(), FAIL | END, 0},
        {u"1e-99999999999999999999999", 0, END, 0},
        {u"0e99999999999999999999999", 0, END, 0},
        {u"1.7976931348623157e308", std::numeric_limits<double>::max(), END, 0},
        {u"1.797693134862315807e308", std::numeric_limits<double>::max(), END, 0},
        {u"1.797693134862315808e308", std::numeric_limits<double>::max(), FAIL | END, 0},
        {u"4.9e-324", std::numeric_limits<double>::denorm_min(), END, 0},
        {u"2.4703282292062327e-324", 0, END, 0},
        {u"2.4703282292062328e-324", std::numeric_limits<double>::denorm_min(), END, 0},
        {u"2.2250738585072011e-308", 2.2250738585072011e-308, END, 0},
    };
    for (const auto& row : rows) {
        expectRow(row);
    }
    EXPECT_TRUE(std::signbit(readNumber<double>(u"-0").value));
    EXPECT_TRUE(std::signbit(readNumber<long double>(u"-0.0e5").value));
    EXPECT_TRUE(std::signbit(readNumber<float>(u"-1e-99").value));
    EXPECT_FALSE(std::signbit(readNumber<double>(u"-").value));
}

TEST(NumGet, ReadsFloatsWithTheLocalesPunctuation) {
    expectRow<double>({u"1,5", 1.5, END, 0}, GROUPED);
    expectRow<double>({u"1.234.567,25e1", 12345672.5, END, 0}, GROUPED);
    expectRow<double>({u"1.5", 0, FAIL | END, 0}, GROUPED);
    expectRow<double>({u"1,234.5", 1.234, GOOD, 2}, GROUPED);
    expectRow<double>({u"1.234e2", 123400, END, 0}, GROUPED);
    expectRow<double>({u"1.23e2", 0, FAIL | END, 0}, GROUPED);
    expectRow<double>({u".5", 0, FAIL, 2}, GROUPED);
    expectRow<float>({u"1.000,5", 1000.5F, END, 0}, GROUPED);
    expectRow<long double>({u"1.000,5", 1000.5L, END, 0}, GROUPED);
}

TEST(NumGet, RoundsAFloatOnce) {
    // Just above the middle of two floats, and nearest to it as a double.
    expectRow<float>({u"1.00000005960464477540", 1.00000012F, END, 0});
    expectRow<float>({u"1.000000059604644775390625", 1.0F, END, 0});
    expectRow<float>({u"3.4028235677973367e38", std::numeric_limits<float>::max(), FAIL | END, 0});
    expectRow<float>({u"3.4028235677973366e38", std::numeric_limits<float>::max(), END, 0});
    // Found where a division by a power of ten cut too much of the coefficient.
    expectRow<double>({u"326924540687478048.3841966465564853410", 326924540687478080.0, END, 0});
}

TEST(NumGet, ReadsEveryDigitThatCounts) {
    // One and a half of the least number: 752 digits.
    constexpr double LEAST = std::numeric_limits<double>::denorm_min();
    std::u16string text = orvtest::writeNumber(LEAST, {Ios::fixed, 1074, 0, PLAIN});
    // 1.5 times it is three times one half of it.
    std::u16string half;
    unsigned carry = 0;
    for (const char16_t c : text) {
        if (c == u'.') {
            half += c;
            continue;
        }
        const unsigned part = carry * 10 + static_cast<unsigned>(c - u'0');
        half += static_cast<char16_t>(u'0' + part / 2);
        carry = part % 2;
    }
    half += u'5';
    expectRow<double>({half, 0, END, 0});
    expectRow<double>({half + std::u16string(5000, u'0'), 0, END, 0});
    expectRow<double>({half + std::u16string(5000, u'0') + u"1", LEAST, END, 0});
    expectRow<double>({half + std::u16string(5000, u'0') + u"10", LEAST, END, 0});
    // A middle of 53 digits, and 100,000 zeros behind it.
    const std::u16string middle = u"1.00000000000000011102230246251565404236316680908203125";
    expectRow<double>({middle, 1.0, END, 0});
    expectRow<double>({middle + std::u16string(100000, u'0') + u"1", 1.0 + 0x1p-52, END, 0});
    expectRow<double>({std::u16string(100000, u'0') + middle, 1.0, END, 0});
    expectRow<double>({std::u16string(100000, u'9') + u"e-100000", 1.0, END, 0});
    expectRow<double>({u"0." + std::u16string(100000, u'0') + u"1e100001", 1.0, END, 0});
}

TEST(NumGet, ReadsHexadecimalFloats) {
    const ReadingRow<double> rows[] = {
        {u"0x1.8p+1", 3, END, 0},
        {u"1.8p1", 3, END, 0},
        {u"-0XA.8", -10.5, END, 0},
        {u"1e5", 0x1E5, END, 0},
        {u"fF;", 255, GOOD, 1},
        {u"0x.8", 0.5, END, 0},
        {u"0xp1", 0, FAIL, 2},
        {u"0", 0, END, 0},
        {u"0x", 0, FAIL | END, 0},
        {u"0xg", 0, FAIL, 1},
        {u"00x1", 0, GOOD, 2},
        {u"1p", 0, FAIL | END, 0},
        {u"1p-x", 0, FAIL, 1},
        {u".", 0, FAIL | END, 0},
        {u"p5", 0, FAIL, 2},
        {u"0x1.fffffffffffffp1023", std::numeric_limits<double>::max(), END, 0},
        {u"0x1.fffffffffffff7ffp1023", std::numeric_limits<double>::max(), END, 0},
        {u"0x1.fffffffffffff8p1023", std::numeric_limits<double>::max(), FAIL | END, 0},
        {u"-1p99999999999999999999", std::numeric_limits<double>::lowest(), FAIL | END, 0},
        {u"1p-1074", std::numeric_limits<double>::denorm_min(), END, 0},
        {u"1p-1075", 0, END, 0},
        {u"0x0.03001aF005D00D3p-1016", 0x0.c006bc0174035p-1022, END, 0},
        {u"1.00000000000000000000000000000000000001p-1075",
         std::numeric_limits<double>::denorm_min(), END, 0},
        {u"1.00000000000008", 1.0, END, 0},
        {u"1.00000000000018", 0x1.0000000000002p0, END, 0},
        {u"1.0000000000000800000000000000000000000000000001", 0x1.0000000000001p0, END, 0},
        {u"1.00000000000008000000000000000000000000000000010", 0x1.0000000000001p0, END, 0},
        {u"0p99999999999999999999", 0, END, 0},
    };
    for (const auto& row : rows) {
        expectRow(row, PLAIN, HEX_FLOAT);
    }
    expectRow<double>({u"0x1.234,8", 0x1234 + 0.5, END, 0}, GROUPED, HEX_FLOAT);
    expectRow<double>({u"0x12.34", 0, FAIL | END, 0}, GROUPED, HEX_FLOAT);
    // A zero that is no part of a prefix is a digit of its group.
    expectRow<double>({u"0.234,8", 0x234 + 0.5, END, 0}, GROUPED, HEX_FLOAT);
    expectRow<double>({u"01.234", 0x1234, END, 0}, GROUPED, HEX_FLOAT);
    expectRow<double>({u"0001.234", 0, FAIL | END, 0}, GROUPED, HEX_FLOAT);
    expectRow<float>({u"1.000001p0", 1.0F, END, 0}, PLAIN, HEX_FLOAT);
    expectRow<float>({u"1.0000010001p0", 0x1.000002p0F, END, 0}, PLAIN, HEX_FLOAT);
}

TEST(NumGet, LeavesErrnoAlone) {
    errno = EDOM;
    readNumber<double>(u"1e309");
    readNumber<double>(u"1.797693134862315808e308");
    readNumber<double>(u"1e-400");
    readNumber<double>(u"1p-1075", PLAIN, HEX_FLOAT);
    readNumber<float>(u"-3.4028235677973367e38");
    readNumber<long double>(u"1e99999");
    readNumber<long>(u"9223372036854775808");
    EXPECT_EQ(errno, EDOM);
}

TEST(NumGet, ReadsLongDoublesVeryNearTheMiddleOfTwo) {
    if (std::numeric_limits<long double>::digits != 64) {
        return;
    }
    // Above the middle, by less than 128 bits of the power of ten can tell.
    expectRow<long double>({u"5764975427643885191e-348", 0x9c9c7483aabadab2p-1157L, END, 0});
    expectRow<long double>({u"5274596296392239975e-331", 0xc6daaaa2fcf29abep-1101L, END, 0});
    expectRow<long double>({u"6181814131551105982e-241", 0xe4d1bf90fd43bac8p-802L, END, 0});
    expectRow<long double>({u"6948548115745859800e165", 0xd1516bd67061a9d2p547L, END, 0});
}

TEST(NumGet, ReadsLongDoubles) {
    using Limits = std::numeric_limits<long double>;
    expectRow<long double>({u"0.1", 0.1L, END, 0});
    expectRow<long double>(
        {u"123456789012345678901234567890", 123456789012345678901234567890.0L, END, 0});
    expectRow<long double>({u"1e99999", Limits::max(), FAIL | END, 0});
    expectRow<long double>({u"-1e99999", Limits::lowest(), FAIL | END, 0});
    expectRow<long double>({u"1e-99999", 0, END, 0});
    for (const long double value : {Limits::max(), Limits::min(), Limits::denorm_min(), 1.0L / 3}) {
        const auto text =
            orvtest::writeNumber(value, {Ios::scientific, Limits::max_digits10 - 1, 0, PLAIN});
        expectRow<long double>({text, value, END, 0});
        const auto hex = orvtest::writeNumber(value, {HEX_FLOAT, 6, 0, PLAIN});
        expectRow<long double>({hex, value, END, 0}, PLAIN, HEX_FLOAT);
    }
}

} // namespace
