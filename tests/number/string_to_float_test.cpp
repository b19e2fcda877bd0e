// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `stod_c` and its kin: the grammar, messages, and what each shape leaves behind.
#include "orv/liborvxx/number/string_to_float.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/number/float_readers.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace orv::literals;

const std::string NO_DIGIT = "decimal digit expected";
const std::string NO_INFINITY = "'infinity' expected";
const std::string NO_NAN = "'nan' expected";

template <class Name>
class StringToFloat : public testing::Test {
public:
    using T = typename Name::Type;
    using Outcome = orvtest::FloatOutcome<T>;

    static Outcome read(std::string_view text) { return orvtest::readFloatEverywhere<Name>(text); }
    static Outcome number(double value, std::size_t length) {
        return {static_cast<T>(value), length, ""};
    }
    static Outcome noNumber(const std::string& message) { return {0, 0, message}; }
    static Outcome tooLarge(double infinity, std::size_t length) {
        return {static_cast<T>(infinity), length, Name::TOO_LARGE};
    }
};
struct NameOfReader {
    template <class Name>
    static const char* GetName(int /*index*/) {
        return std::is_same_v<Name, orvtest::Stof>   ? "Stof"
               : std::is_same_v<Name, orvtest::Stod> ? "Stod"
                                                     : "Stold";
    }
};
TYPED_TEST_SUITE(StringToFloat, orvtest::FloatNames, NameOfReader);

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

#define READ(text) TestFixture::read(text)
#define NUMBER(value, length) TestFixture::number(value, length)

TYPED_TEST(StringToFloat, NeedsADigit) {
    for (const char* text : {"",  "   ", ".",  "-",   "+.e5", "+",  " +", "+ 1", "--1", "e5",
                             "x", "- .", ".e", "..1", ",5",   "\v", "#1", "$",   "/",   ":"}) {
        EXPECT_EQ(READ(text), TestFixture::noNumber(NO_DIGIT)) << '"' << text << '"';
    }
}

TYPED_TEST(StringToFloat, TakesAPointAnywhereAmongTheDigits) {
    EXPECT_EQ(READ("5."), NUMBER(5, 2));
    EXPECT_EQ(READ(".5"), NUMBER(0.5, 2));
    EXPECT_EQ(READ("-.5e1"), NUMBER(-5, 5));
    EXPECT_EQ(READ("5.e1"), NUMBER(50, 4));
    EXPECT_EQ(READ("1.5.3"), NUMBER(1.5, 3));
    EXPECT_EQ(READ("5.."), NUMBER(5, 2));
    EXPECT_EQ(READ("0"), NUMBER(0, 1));
    EXPECT_EQ(READ("-0"), NUMBER(-0.0, 2));
    EXPECT_EQ(READ("-.0"), NUMBER(-0.0, 3));
}

TYPED_TEST(StringToFloat, LeavesAnExponentWithoutDigits) {
    EXPECT_EQ(READ("1e"), NUMBER(1, 1));
    EXPECT_EQ(READ("1e+"), NUMBER(1, 1));
    EXPECT_EQ(READ("1E-"), NUMBER(1, 1));
    EXPECT_EQ(READ("1e+-5"), NUMBER(1, 1));
    EXPECT_EQ(READ("1e.5"), NUMBER(1, 1));
    EXPECT_EQ(READ("1.e+x"), NUMBER(1, 2));
    EXPECT_EQ(READ("1e5x"), NUMBER(100000, 3));
    EXPECT_EQ(READ("1E+05"), NUMBER(100000, 5));
    EXPECT_EQ(READ("5e-1.5"), NUMBER(0.5, 4));
    EXPECT_EQ(READ("1p5"), NUMBER(1, 1));
    EXPECT_EQ(READ("1 e5"), NUMBER(1, 1));
}

TYPED_TEST(StringToFloat, SkipsWhiteSpaceInFront) {
    EXPECT_EQ(READ("  +1"), NUMBER(1, 4));
    EXPECT_EQ(READ("\t\n\v\f\r 1 "), NUMBER(1, 7));
    EXPECT_EQ(READ(" -inf"), NUMBER(-INF, 5));
    EXPECT_EQ(READ("\b1"), TestFixture::noNumber(NO_DIGIT));
    EXPECT_EQ(READ("\x0E"
                   "1"),
              TestFixture::noNumber(NO_DIGIT));
}

TYPED_TEST(StringToFloat, ReadsHexadecimalNumbers) {
    EXPECT_EQ(READ("0x1p3"), NUMBER(8, 5));
    EXPECT_EQ(READ("0X.8P1"), NUMBER(1, 6));
    EXPECT_EQ(READ("0x1"), NUMBER(1, 3));
    EXPECT_EQ(READ("0x10"), NUMBER(16, 4));
    EXPECT_EQ(READ("-0x1.8"), NUMBER(-1.5, 6));
    EXPECT_EQ(READ("0xAbC.dEf"), NUMBER(0xABC.DEFp0, 9));
    EXPECT_EQ(READ("0x1.p-1"), NUMBER(0.5, 7));
    EXPECT_EQ(READ("0x1p"), NUMBER(1, 3));
    EXPECT_EQ(READ("0x1p+"), NUMBER(1, 3));
    EXPECT_EQ(READ("0x1pA"), NUMBER(1, 3));
    EXPECT_EQ(READ("0x1e5"), NUMBER(0x1E5, 5));
    EXPECT_EQ(READ("0x1e+5"), NUMBER(0x1E, 4));
    EXPECT_EQ(READ("0x1g"), NUMBER(1, 3));
    EXPECT_EQ(READ("0x0p9999999999"), NUMBER(0, 14));
    EXPECT_EQ(READ("0x1p-9999999999"), NUMBER(0, 15));
    EXPECT_EQ(READ("-0x0.0p5"), NUMBER(-0.0, 8));
    for (const char* text : {"0x", "0xg", "0x.", "0x.p1", "0X-1", "0x 1", "-0x"}) {
        EXPECT_EQ(READ(text), TestFixture::noNumber(NO_DIGIT)) << text;
    }
    EXPECT_EQ(READ("00x1"), NUMBER(0, 2));
    EXPECT_EQ(READ("1x1"), NUMBER(1, 1));
    EXPECT_EQ(READ("0.x"), NUMBER(0, 2));
}

TYPED_TEST(StringToFloat, ReadsWords) {
    EXPECT_EQ(READ("inf"), NUMBER(INF, 3));
    EXPECT_EQ(READ("INF"), NUMBER(INF, 3));
    EXPECT_EQ(READ("Infinity"), NUMBER(INF, 8));
    EXPECT_EQ(READ("-iNfInItY"), NUMBER(-INF, 9));
    EXPECT_EQ(READ("+inf "), NUMBER(INF, 4));
    EXPECT_EQ(READ("inf-"), NUMBER(INF, 3));
    EXPECT_EQ(READ("infinity."), NUMBER(INF, 8));
    EXPECT_EQ(READ("nan"), NUMBER(NOT_A_NUMBER, 3));
    EXPECT_EQ(READ("NaN"), NUMBER(NOT_A_NUMBER, 3));
    EXPECT_EQ(READ("-nan"), NUMBER(NOT_A_NUMBER, 4));
    EXPECT_EQ(READ("nan(1)"), NUMBER(NOT_A_NUMBER, 3));
    for (const char* text :
         {"i", "in", "infi", "infin", "infini", "infinit", "infx", "inf_", "inf1", "info",
          "infinityx", "infinity_", "infinity0", "infINITE", "in f"}) {
        EXPECT_EQ(READ(text), TestFixture::noNumber(NO_INFINITY)) << text;
        EXPECT_EQ(READ('-' + std::string(text)), TestFixture::noNumber(NO_INFINITY)) << text;
    }
    for (const char* text : {"n", "na", "nanx", "nan_", "nan0", "nil", "nanA", "Nano"}) {
        EXPECT_EQ(READ(text), TestFixture::noNumber(NO_NAN)) << text;
    }
}

TYPED_TEST(StringToFloat, RefusesWhatWouldBeInfinite) {
    EXPECT_EQ(READ("1e309"), TestFixture::tooLarge(INF, 5));
    EXPECT_EQ(READ("-1e999x"), TestFixture::tooLarge(-INF, 6));
    EXPECT_EQ(READ("0x1p1024"), TestFixture::tooLarge(INF, 8));
    EXPECT_EQ(READ("-0x1p99999"), TestFixture::tooLarge(-INF, 10));
    EXPECT_EQ(READ(std::string(400, '9')), TestFixture::tooLarge(INF, 400));
}

TYPED_TEST(StringToFloat, TakesExponentsOfTenDigitsForTooLongOnes) {
    EXPECT_EQ(READ("1e000000001"), NUMBER(10, 11));
    EXPECT_EQ(READ("1e0000000001"), TestFixture::tooLarge(INF, 12));
    EXPECT_EQ(READ("0e9999999999"), TestFixture::tooLarge(INF, 12));
    EXPECT_EQ(READ("-0e+0000000000"), TestFixture::tooLarge(-INF, 14));
    EXPECT_EQ(READ("0e999999999"), NUMBER(0, 11));
    EXPECT_EQ(READ("0e-9999999999"), NUMBER(0, 13));
    EXPECT_EQ(READ("1e-9999999999"), NUMBER(0, 13));
    EXPECT_EQ(READ("-1e-9999999999"), NUMBER(-0.0, 14));
    EXPECT_EQ(READ("1e-0000000000"), NUMBER(0, 13));
    EXPECT_EQ(READ("0x1p0000000001"), TestFixture::tooLarge(INF, 14));
    EXPECT_EQ(READ("1e" + std::string(100, '1') + "x"), TestFixture::tooLarge(INF, 102));
}

TYPED_TEST(StringToFloat, GivesZeroForWhatIsTooSmall) {
    EXPECT_EQ(READ("1e-400"), NUMBER(0, 6));
    EXPECT_EQ(READ("-1e-400"), NUMBER(-0.0, 7));
    EXPECT_EQ(READ("0x1p-2000"), NUMBER(0, 9));
    EXPECT_EQ(READ("0." + std::string(500, '0') + "1"), NUMBER(0, 503));
}

TYPED_TEST(StringToFloat, KnowsNoLimitOfLength) {
    const std::string zeros(1000, '0');
    EXPECT_EQ(READ(zeros + "1"), NUMBER(1, 1001));
    EXPECT_EQ(READ(zeros + "." + zeros + "1e1001"), NUMBER(1, 2007));
    EXPECT_EQ(READ("1" + zeros + "e-1000"), NUMBER(1, 1007));
    EXPECT_EQ(READ("1." + zeros + "x"), NUMBER(1, 1002));
    EXPECT_EQ(READ("1." + zeros + "1"), NUMBER(1, 1003));
    EXPECT_EQ(READ("0x" + zeros + "1" + zeros + "p-4000"), NUMBER(1, 2009));
    EXPECT_EQ(READ("00000000000000000000000001"), NUMBER(1, 26));
    EXPECT_EQ(READ("0.25000000000000000000000000000000000000"), NUMBER(0.25, 40));
}

// The terminator of a pointer is also the end of a view.
TYPED_TEST(StringToFloat, EndsAtANul) {
    using namespace std::string_literals;
    EXPECT_EQ(READ("12\0"
                   "34"s),
              NUMBER(12, 2));
    EXPECT_EQ(READ("1.\0"
                   "5"s),
              NUMBER(1, 2));
    EXPECT_EQ(READ("1e\0"
                   "5"s),
              NUMBER(1, 1));
    EXPECT_EQ(READ("1e5\0"
                   "5"s),
              NUMBER(1e5, 3));
    EXPECT_EQ(READ("0x\0"
                   "5"s),
              TestFixture::noNumber(NO_DIGIT));
    EXPECT_EQ(READ("\0"
                   "5"s),
              TestFixture::noNumber(NO_DIGIT));
    EXPECT_EQ(READ("inf\0"
                   "x"s),
              NUMBER(INF, 3));
}

#undef READ
#undef NUMBER

TEST(StringToDouble, IsExact) {
    EXPECT_EQ(orv::stod_c("0.1"), 0.1);
    EXPECT_EQ(orv::stod_c("1e308"), 1e308);
    EXPECT_EQ(orv::stod_c("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(orv::stod_c("1.7976931348623158e308"), std::numeric_limits<double>::max());
    EXPECT_THROW(orv::stod_c("1.7976931348623159e308"), std::out_of_range);
    EXPECT_EQ(orv::stod_c("4.9406564584124654e-324"), 0x1p-1074);
    EXPECT_EQ(orv::stod_c("2.4703282292062328e-324"), 0x1p-1074);
    EXPECT_EQ(orv::stod_c("2.4703282292062327e-324"), 0.0);
    EXPECT_EQ(orv::stod_c("2.2250738585072014e-308"), 0x1p-1022);
    EXPECT_EQ(orv::stod_c("2.2250738585072011e-308"), 0x0.FFFFFFFFFFFFFp-1022);
    EXPECT_EQ(orv::stod_c("123456789012345678901234567890"), 123456789012345678901234567890.0);
    EXPECT_EQ(orv::stod_c("9007199254740993"), 9007199254740992.0) << "a tie";
    EXPECT_EQ(orv::stod_c("9007199254740995"), 9007199254740996.0) << "a tie";
    EXPECT_EQ(orv::stod_c("9007199254740993.0000000000000000000001"), 9007199254740992.0)
        << "of which the last digit does not count";
    EXPECT_EQ(orv::stold_c("0.1"), static_cast<long double>(0.1)) << "no more than a double";
}

TEST(StringToFloatOnly, IsExact) {
    EXPECT_EQ(orv::stof_c("0.1"), 0.1F);
    EXPECT_EQ(orv::stof_c("3.4028235e38"), std::numeric_limits<float>::max());
    EXPECT_EQ(orv::stof_c("3.4028235677973366e38"), std::numeric_limits<float>::max());
    EXPECT_THROW(orv::stof_c("3.4028235677973367e38"), std::out_of_range);
    EXPECT_EQ(orv::stof_c("1.4e-45"), 0x1p-149F);
    EXPECT_EQ(orv::stof_c("16777217"), 16777216.0F) << "a tie";
    EXPECT_EQ(orv::stof_c("16777219"), 16777220.0F) << "a tie";
}

// Each text lies a little above the middle of two numbers, and the correctly rounded one is above.
TEST(StringToFloatDeviations, DigitsBeyondTwentyRoundTheTwentieth) {
    const char* const text = "9007199254740993.0000000000000000000001";
    EXPECT_EQ(orv::stod_c(text), 9007199254740992.0);
    EXPECT_EQ(std::strtod(text, nullptr), 9007199254740994.0);
    const char* const shorter = "16777217.0000000000001";
    EXPECT_EQ(orv::stof_c(shorter), 16777216.0F);
    EXPECT_EQ(std::strtof(shorter, nullptr), 16777218.0F);
}

TEST(StringToFloatDeviations, ADivisionDropsTheLastBitsOfALongCoefficient) {
    const char* const text = "4611686018427388416.5"; // 66 bits, of which 57 are divided by ten
    EXPECT_EQ(orv::stod_c(text), 0x1p62);
    EXPECT_EQ(std::strtod(text, nullptr), 0x1.0000000000001p62);
    const char* const shorter = "268435472.5"; // 32 bits, of which 28 count
    EXPECT_EQ(orv::stof_c(shorter), 0x1p28F);
    EXPECT_EQ(std::strtof(shorter, nullptr), 0x1.000002p28F);
}

TEST(HexadecimalDigits, AreKeptForADoubleInFourteen) {
    EXPECT_EQ(orv::stod_c("0x1.fffffffffffff7"), 0x1.FFFFFFFFFFFFFp0) << "below the middle";
    EXPECT_EQ(orv::stod_c("0x1.fffffffffffff8"), 2.0) << "a tie";
    EXPECT_EQ(orv::stod_c("0x1.ffffffffffffe8"), 0x1.FFFFFFFFFFFFEp0) << "a tie";
    EXPECT_EQ(orv::stod_c("0x1.ffffffffffffe80000001"), 0x1.FFFFFFFFFFFFFp0);
    EXPECT_EQ(orv::stod_c("0x1.fffffffffffffp1023"), std::numeric_limits<double>::max());
    EXPECT_THROW(orv::stod_c("0x1.fffffffffffff8p1023"), std::out_of_range);
    EXPECT_EQ(orv::stod_c("0x0.0000000000001p-1022"), 0x1p-1074);
    EXPECT_EQ(orv::stod_c("0x1p-1075"), 0.0) << "a tie";
    EXPECT_EQ(orv::stod_c("0x1.0000000000000000001p-1075"), 0x1p-1074);
}

// Six digits are 21 to 24 bits. Padded with zeros these have up to three bits more, and what is
// below the digits rounds the lowest of them.
TEST(HexadecimalDigits, AreKeptForAFloatInSix) {
    EXPECT_EQ(orv::stof_c("0x1.8"), 1.5F);
    EXPECT_EQ(orv::stof_c("0xFFFFFF7"), 0xFFFFFFp4F);
    EXPECT_EQ(orv::stof_c("0xFFFFFF8"), 0x1p28F) << "a tie";
    EXPECT_EQ(orv::stof_c("0xFFFFFE8"), 0xFFFFFEp4F) << "a tie";
    EXPECT_EQ(orv::stof_c("0xFFFFFE80001"), 0xFFFFFFp20F);
    // Both are floats. Of the seven digits six are kept, and the seventh makes the six with their
    // padding grow by the last bit of a float, or not.
    EXPECT_EQ(orv::stof_c("0x1.00000E"), 0x1.000002p0F);
    EXPECT_EQ(std::strtof("0x1.00000E", nullptr), 0x1.00000Ep0F);
    EXPECT_EQ(orv::stof_c("0x1.000006"), 1.0F);
    EXPECT_EQ(std::strtof("0x1.000006", nullptr), 0x1.000006p0F);
}

TEST(StringToFloatInC, LooksNoFurtherThanTheNumber) {
    char* end = nullptr;
    errno = 0;
    EXPECT_EQ(orv::strtod_c("abc", &end), 0.0);
    EXPECT_EQ(errno, 0);
    const char* const text = "1e999x";
    EXPECT_EQ(orv::strtod_c(text, &end), HUGE_VAL);
    EXPECT_EQ(errno, 34);
    EXPECT_EQ(end, text + 5);
    const char* const spaces = "  ";
    EXPECT_EQ(orv::strtod_c(spaces, &end), 0.0);
    EXPECT_EQ(end, spaces);
    const char* const list = "1 2.5 -3e2";
    EXPECT_EQ(orv::strtod_c(list, &end), 1.0);
    EXPECT_EQ(orv::strtod_c(end, &end), 2.5);
    EXPECT_EQ(orv::strtod_c(end, &end), -300.0);
    EXPECT_EQ(*end, '\0');
}

TEST(StringToFloatOfUnits, TakesDigitsOfEveryScript) {
    EXPECT_EQ(orv::stod_c(u"\u0661\u0662.\u0665"_u), 12.5);
    EXPECT_EQ(orv::stod_c(u"\uFF11\u0966e\u0662"_u), 1000.0);
    std::size_t length = 0;
    EXPECT_EQ(orv::stod_c(u"1\u0662\u0663 4"_u, &length), 123.0);
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(orv::stod_c(u"\u06600x1"_u, &length), 0.0);
    EXPECT_EQ(length, 2U) << "the prefix must be at the front";
    EXPECT_EQ(orv::stod_c(u"\u0660x1\u0660"_u), 16.0) << "a zero of any script begins a prefix";
    EXPECT_EQ(orv::stod_c(u"0x\uFF11\uFF26"_u, &length), 1.0) << "letters must be ASCII";
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(orv::stod_c(u"1\u00B2"_u, &length), 1.0) << "a superscript is no digit";
    EXPECT_EQ(length, 1U);
    EXPECT_EQ(orv::stod_c(u"12345678901234567\u0668\u0669\u0660\u0661e-21"_u),
              orv::stod_c("123456789012345678901e-21"));
    const std::u16string digits = u"\u0661234567\u06689012345678901234567890";
    EXPECT_EQ(orv::stod_c(orv::ustring(digits.begin(), digits.end())),
              orv::stod_c("123456789012345678901234567890"));
}

TEST(StringToFloatOfUnits, SkipsTheWhiteSpaceOfUnits) {
    std::size_t length = 0;
    EXPECT_EQ(orv::stod_c(u"\u00A0\u2028\u3000\u2003\u0085 7"_u, &length), 7.0);
    EXPECT_EQ(length, 7U);
    EXPECT_THROW(orv::stod_c(u"\u200B7"_u), std::invalid_argument);
    EXPECT_THROW(orv::stod_c("\xA0"
                             "7"),
                 std::invalid_argument)
        << "a byte is none";
    EXPECT_THROW(orv::stod_c("\x85"
                             "7"),
                 std::invalid_argument);
}

// A word is compared in lower case, and a capital I with a dot is an 'i' then. It does not begin a
// word, though.
TEST(StringToFloatOfUnits, MatchesWordsInLowerCase) {
    EXPECT_EQ(orv::stod_c(u"INF\u0130NITY"_u), INF);
    EXPECT_THROW(orv::stod_c(u"\u0130NF"_u), std::invalid_argument);
    EXPECT_THROW(orv::stod_c(u"inf\u0663"_u), std::invalid_argument);
    EXPECT_THROW(orv::stod_c(u"inf\u00E9"_u), std::invalid_argument);
    EXPECT_THROW(orv::stod_c(u"nan\u4E00"_u), std::invalid_argument);
    EXPECT_TRUE(std::isnan(orv::stod_c(u"nan\u2014"_u)));
    EXPECT_EQ(orv::stod_c("inf\xE9"), INF) << "no letter as a byte";
}

TEST(StringToFloatOfUnits, KnowsTheEndFromANoncharacter) {
    std::size_t length = 0;
    EXPECT_EQ(orv::stod_c(u"12\uFFFF"_u, &length), 12.0);
    EXPECT_EQ(length, 2U);
    orv::BasicCharIterator<orv::char16> it(u"7\uFFFF8"_u);
    EXPECT_EQ(orv::stod_c(it), 7.0);
    EXPECT_EQ(it.position(), 1U);
}

TEST(StringToFloatAtACursor, WalksThroughAText) {
    orv::BasicCharIterator<char> it("1.5 -2e1 inf");
    EXPECT_EQ(orv::stod_c(it), 1.5);
    EXPECT_EQ(it.position(), 3U);
    EXPECT_EQ(orv::stof_c(it), -20.0F);
    EXPECT_EQ(orv::stold_c(it), std::numeric_limits<long double>::infinity());
    EXPECT_TRUE(it.atEnd());
    EXPECT_THROW(orv::stod_c(it), std::invalid_argument);
    EXPECT_TRUE(it.atEnd());
}

// Every unit that can follow a number ends it, or belongs to it for a reason told here.
TEST(WhatFollowsANumber, EndsItUnlessItBelongsToIt) {
    for (unsigned value = 0; value < 0x10000; ++value) {
        const auto unit = static_cast<char16_t>(value);
        const std::u16string units = std::u16string(u"2.5") + unit + u'7';
        const orv::ustring text(units.begin(), units.end());
        const auto read = orv::from_chars_c<double>(orv::ustring_ref(text));
        const bool digit = orvUniCharDigitValue(value) >= 0;
        const bool mark = unit == u'e' || unit == u'E';
        ASSERT_EQ(read.length, digit || mark ? 5U : 3U) << value;
        if (value < 0x100) {
            const std::string bytes = std::string("2.5") + static_cast<char>(value) + '7';
            ASSERT_EQ(orv::from_chars_c<double>(orv::string_ref(bytes)).length,
                      (digit || mark) ? 5U : 3U)
                << value;
        }
    }
}

} // namespace
