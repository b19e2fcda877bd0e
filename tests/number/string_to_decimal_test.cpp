// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `stod64_c` and its kin: the grammar, exponents, rounding, messages, and what each shape
/// leaves behind.
#include "orv/liborvxx/number/string_to_decimal.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/number/decimal_readers.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <string>

namespace {

using namespace orv::literals;
using orvtest::shown;

const std::string NO_DIGIT = "decimal digit expected";
const std::string NO_INFINITY = "'infinity' expected";
const std::string NO_NAN = "'nan' expected";

template <class Name>
class StringToDecimal : public testing::Test {
public:
    using Outcome = orvtest::DecimalOutcome;

    static Outcome read(std::string_view text) {
        return orvtest::readDecimalEverywhere<Name>(text);
    }
    // All bits 0, with the least exponent.
    static Outcome noNumber(const std::string& message) {
        return {"0E" + std::to_string(Name::LEAST), 0, message};
    }
    // The value that all of a text has.
    static std::string valueOf(const std::string& text) {
        const Outcome outcome = read(text);
        EXPECT_EQ(outcome.length, text.size()) << text;
        return outcome.value;
    }
    static std::string withExponent(const std::string& digits, int exponent) {
        return digits + 'E' + std::to_string(exponent);
    }
};
TYPED_TEST_SUITE(StringToDecimal, orvtest::DecimalNames, orvtest::NameOfDecimalReader);

orvtest::DecimalOutcome number(const std::string& value, std::size_t length) {
    return {value, length, ""};
}

#define READ(text) TestFixture::read(text)
#define VALUE(text) TestFixture::valueOf(text)

TYPED_TEST(StringToDecimal, NeedsADigit) {
    for (const char* text : {"",  "   ", ".",  "-",   "+.e5", "+",  " +", "+ 1", "--1", "e5",
                             "x", "- .", ".e", "..1", ",5",   "\v", "#1", "$",   "/",   ":"}) {
        EXPECT_EQ(READ(text), TestFixture::noNumber(NO_DIGIT)) << '"' << text << '"';
    }
}

TYPED_TEST(StringToDecimal, KeepsTheExponentThatTheTextHas) {
    EXPECT_EQ(READ("5."), number("5E0", 2));
    EXPECT_EQ(READ(".5"), number("5E-1", 2));
    EXPECT_EQ(READ("-.5e1"), number("-5E0", 5));
    EXPECT_EQ(READ("1.50"), number("150E-2", 4));
    EXPECT_EQ(READ("1.5.3"), number("15E-1", 3));
    EXPECT_EQ(READ("100"), number("100E0", 3));
    EXPECT_EQ(READ("1E2"), number("1E2", 3));
    EXPECT_EQ(READ("1.E+02"), number("1E2", 6));
    EXPECT_EQ(READ("0"), number("0E0", 1));
    EXPECT_EQ(READ("0.00"), number("0E-2", 4));
    EXPECT_EQ(READ("-0"), number("-0E0", 2));
    EXPECT_EQ(READ("-.0e5"), number("-0E4", 5));
    EXPECT_EQ(READ("000.0100"), number("100E-4", 8));
    EXPECT_EQ(READ("00000000000000000000000001"), number("1E0", 26));
    EXPECT_EQ(READ("0.00000000000000000000000000000001"), number("1E-32", 34));
}

TYPED_TEST(StringToDecimal, LeavesAnExponentWithoutDigits) {
    EXPECT_EQ(READ("1e"), number("1E0", 1));
    EXPECT_EQ(READ("1e+"), number("1E0", 1));
    EXPECT_EQ(READ("1E-"), number("1E0", 1));
    EXPECT_EQ(READ("1e+-5"), number("1E0", 1));
    EXPECT_EQ(READ("1e.5"), number("1E0", 1));
    EXPECT_EQ(READ("1.e+x"), number("1E0", 2));
    EXPECT_EQ(READ("1e5x"), number("1E5", 3));
    EXPECT_EQ(READ("5e-1.5"), number("5E-1", 4));
    EXPECT_EQ(READ("1 e5"), number("1E0", 1));
    EXPECT_EQ(READ("1,5"), number("1E0", 1));
    EXPECT_EQ(READ("1'000"), number("1E0", 1));
}

TYPED_TEST(StringToDecimal, HasNoHexadecimalNumbers) {
    EXPECT_EQ(READ("0x10"), number("0E0", 1));
    EXPECT_EQ(READ("0X1p3"), number("0E0", 1));
    EXPECT_EQ(READ("-0x1"), number("-0E0", 2));
    EXPECT_EQ(READ("0x"), number("0E0", 1));
    EXPECT_EQ(READ("1p5"), number("1E0", 1));
}

TYPED_TEST(StringToDecimal, SkipsWhiteSpaceInFront) {
    EXPECT_EQ(READ("  +1"), number("1E0", 4));
    EXPECT_EQ(READ("+1.5"), number("15E-1", 4));
    EXPECT_EQ(READ("\t\n\v\f\r 1 "), number("1E0", 7));
    EXPECT_EQ(READ(" -inf"), number("-inf", 5));
    EXPECT_EQ(READ("\b1"), TestFixture::noNumber(NO_DIGIT));
}

TYPED_TEST(StringToDecimal, ReadsWords) {
    EXPECT_EQ(READ("inf"), number("inf", 3));
    EXPECT_EQ(READ("INF"), number("inf", 3));
    EXPECT_EQ(READ("Infinity"), number("inf", 8));
    EXPECT_EQ(READ("-iNfInItY"), number("-inf", 9));
    EXPECT_EQ(READ("+inf "), number("inf", 4));
    EXPECT_EQ(READ("inf-"), number("inf", 3));
    EXPECT_EQ(READ("nan"), number("NaN", 3));
    EXPECT_EQ(READ("NaN"), number("NaN", 3));
    EXPECT_EQ(READ("-nan"), number("NaN", 4));
    EXPECT_EQ(READ("nan(1)"), number("NaN", 3));
    for (const char* text : {"i", "in", "infi", "infin", "infinit", "infx", "inf_", "inf1",
                             "infinityx", "infinity_", "infinity0", "in f"}) {
        EXPECT_EQ(READ(text), TestFixture::noNumber(NO_INFINITY)) << text;
    }
    for (const char* text : {"n", "na", "nanx", "nan_", "nan0", "nil", "snan", "-n"}) {
        EXPECT_EQ(READ(text), TestFixture::noNumber(*text == 's' ? NO_DIGIT : NO_NAN)) << text;
    }
}

TYPED_TEST(StringToDecimal, EndsAtANulWithinAView) {
    EXPECT_EQ(orvtest::readDecimalInShapes<TypeParam>(std::string("12")), number("12E0", 2));
    const std::string text("12\0"
                           "34",
                           5);
    const auto read = orv::from_chars_c<typename TypeParam::Type>(orv::string_ref(text));
    EXPECT_EQ(shown(read.value), "12E0");
    EXPECT_EQ(read.length, 2U);
}

TYPED_TEST(StringToDecimal, RoundsToTheDigitsOfTheTypeTiesToEven) {
    const std::string nines(TypeParam::DIGITS, '9');
    const std::string ones(TypeParam::DIGITS, '1');
    const std::string twos(TypeParam::DIGITS, '2');
    const std::string ten = '1' + std::string(TypeParam::DIGITS - 1, '0');
    const std::string onesUp = ones.substr(1) + '2';
    EXPECT_EQ(VALUE(nines), nines + "E0");
    EXPECT_EQ(VALUE(nines + "0"), nines + "E1");
    EXPECT_EQ(VALUE(nines + "4"), nines + "E1");
    EXPECT_EQ(VALUE(nines + "5"), ten + "E2");
    EXPECT_EQ(VALUE("9." + nines), ten + "E" + std::to_string(2 - TypeParam::DIGITS));
    EXPECT_EQ(VALUE(ones + "5"), onesUp + "E1");
    EXPECT_EQ(VALUE(ones + "4999"), ones + "E4");
    EXPECT_EQ(VALUE(twos + "5"), twos + "E1");
    EXPECT_EQ(VALUE(twos + "50000"), twos + "E5");
    EXPECT_EQ(VALUE(twos + "5" + std::string(500, '0') + "e-500"), twos + "E1");
    EXPECT_EQ(VALUE("-" + twos.substr(1) + ".25" + std::string(50, '0') + "e0"),
              "-" + twos + "E-1");
    // All digits count, however many they are.
    const std::string above = twos.substr(1) + "3";
    EXPECT_EQ(VALUE(twos + "5" + std::string(500, '0') + "1e-501"), above + "E1");
    EXPECT_EQ(VALUE(twos + ".50001"), above + "E0");
    for (std::size_t zeros = 0; zeros < 40; ++zeros) {
        EXPECT_EQ(VALUE(twos + ".5" + std::string(zeros, '0')), twos + "E0") << zeros;
        EXPECT_EQ(VALUE(twos + ".5" + std::string(zeros, '0') + "7"), above + "E0") << zeros;
        EXPECT_EQ(VALUE(twos + ".4" + std::string(zeros, '9')), twos + "E0") << zeros;
    }
    EXPECT_EQ(VALUE("0000000000000000000000000000" + twos + ".5"), twos + "E0");
}

TYPED_TEST(StringToDecimal, RoundsOnceWhereItIsSubnormal) {
    const int least = TypeParam::LEAST;
    const auto text = [](const std::string& digits, int exponent) {
        return TestFixture::withExponent(digits, exponent);
    };
    EXPECT_EQ(VALUE(text("1", least)), text("1", least));
    EXPECT_EQ(VALUE(text("15", least - 1)), text("2", least));
    EXPECT_EQ(VALUE(text("25", least - 1)), text("2", least));
    EXPECT_EQ(VALUE(text("251", least - 2)), text("3", least));
    EXPECT_EQ(VALUE(text("5", least - 1)), text("0", least));
    EXPECT_EQ(VALUE(text("51", least - 2)), text("1", least));
    EXPECT_EQ(VALUE(text("-4", least - 1)), text("-0", least));
    // Rounded to the digits of the type first, these would be ties.
    const std::string zeros(TypeParam::DIGITS, '0');
    EXPECT_EQ(VALUE(text("25" + zeros + "1", least - 2 - TypeParam::DIGITS)), text("3", least));
    const std::string nines(TypeParam::DIGITS, '9');
    EXPECT_EQ(VALUE(text("24" + nines + "9", least - 2 - TypeParam::DIGITS)), text("2", least));
    EXPECT_EQ(VALUE(text(nines, least - TypeParam::DIGITS)), text("1", least));
    EXPECT_EQ(VALUE(text(nines, least - TypeParam::DIGITS - 1)), text("0", least));
    EXPECT_EQ(VALUE(text("0." + nines, least)), text("1", least));
}

TYPED_TEST(StringToDecimal, FillsWithZerosOrIsInfiniteAboveTheGreatestExponent) {
    const int greatest = TypeParam::GREATEST;
    const int room = TypeParam::DIGITS - 1;
    const auto text = [](const std::string& digits, int exponent) {
        return TestFixture::withExponent(digits, exponent);
    };
    EXPECT_EQ(VALUE(text("1", greatest)), text("1", greatest));
    EXPECT_EQ(VALUE(text("12", greatest + 1)), text("120", greatest));
    EXPECT_EQ(VALUE(text("9", greatest + room)), text("9" + std::string(room, '0'), greatest));
    EXPECT_EQ(VALUE(text("-10", greatest + room)), "-inf");
    EXPECT_EQ(VALUE(text("1", greatest + room + 1)), "inf");
    const std::string nines(TypeParam::DIGITS, '9');
    EXPECT_EQ(VALUE(text(nines, greatest)), text(nines, greatest));
    EXPECT_EQ(VALUE(text(nines + ".4", greatest)), text(nines, greatest));
    EXPECT_EQ(VALUE(text(nines + ".5", greatest)), "inf");
    EXPECT_EQ(VALUE("1e999999999"), "inf");
    EXPECT_EQ(VALUE("-1e999999999"), "-inf");
}

TYPED_TEST(StringToDecimal, KeepsTheExponentOfAZeroWithinTheRange) {
    EXPECT_EQ(VALUE("0e99999"), "0E" + std::to_string(TypeParam::GREATEST));
    EXPECT_EQ(VALUE("-0e-99999"), "-0E" + std::to_string(TypeParam::LEAST));
    EXPECT_EQ(VALUE("0." + std::string(50, '0')),
              "0E" + std::to_string(std::max(-50, TypeParam::LEAST)));
}

TYPED_TEST(StringToDecimal, TakesTenDigitsOfAnExponentForTooMany) {
    EXPECT_EQ(READ("1e0000000001"), number("inf", 12));
    EXPECT_EQ(READ("-1e+9999999999"), number("-inf", 14));
    EXPECT_EQ(READ("1e-0000000001"), number("0E" + std::to_string(TypeParam::LEAST), 13));
    EXPECT_EQ(READ("-1e-9999999999x"), number("-0E" + std::to_string(TypeParam::LEAST), 14));
    EXPECT_EQ(READ("0e9999999999"), number("0E" + std::to_string(TypeParam::GREATEST), 12));
    EXPECT_EQ(READ("0e-9999999999"), number("0E" + std::to_string(TypeParam::LEAST), 13));
    EXPECT_EQ(READ("1e000000001"), number("1E1", 11));
    EXPECT_EQ(READ("1" + std::string(40, '0') + "e0000000000").value, "inf");
}

TYPED_TEST(StringToDecimal, CancelsAPointFarAwayAgainstTheExponent) {
    const std::string zeros(20000, '0');
    EXPECT_EQ(VALUE("0." + zeros + "15e20000"), "15E-2");
    EXPECT_EQ(VALUE("1" + zeros + "e-20000").substr(0, 4), "1000");
}

TYPED_TEST(StringToDecimal, TakesDigitsOfEveryScriptInUtf16) {
    const auto read = [](orv::ustring_ref view) {
        const orv::ustring text(view.begin(), view.end());
        return orvtest::readDecimalInShapes<TypeParam>(text);
    };
    // Arabic-Indic, Devanagari and fullwidth digits.
    EXPECT_EQ(read(u"\u0661\u0662.\u096B\uFF10e\u0661"_u), number("1250E-1", 7));
    EXPECT_EQ(read(u"1\u00B2"_u), number("1E0", 1)) << "a superscript is no digit";
    EXPECT_EQ(read(u"\u00A01"_u).message, read(u"\u00A0\u00A01"_u).message);
    EXPECT_EQ(read(u"\u20031.5"_u), number("15E-1", 4)) << "a wide blank";
    EXPECT_EQ(read(u"\u22121"_u), TestFixture::noNumber(NO_DIGIT)) << "a minus sign beyond ASCII";
    EXPECT_EQ(read(u"inf\u00E9"_u), TestFixture::noNumber(NO_INFINITY));
    EXPECT_EQ(read(u"nan\u0661"_u), TestFixture::noNumber(NO_NAN));
    std::string digits;
    orv::ustring wide;
    for (int i = 0; i < 40; ++i) {
        digits += static_cast<char>('1' + i % 9);
        wide += static_cast<orv::char16>(static_cast<char16_t>(0x0661 + i % 9));
    }
    EXPECT_EQ(read(wide), READ(digits));
}

TYPED_TEST(StringToDecimal, ReadsTheSameByEveryRoad) {
    // Zeros in front and blanks send the digits another way.
    const std::string digits = "1234567890123456789012345678901234567890";
    for (std::size_t count = 1; count <= digits.size(); ++count) {
        for (std::size_t point = 0; point <= count; ++point) {
            std::string text = digits.substr(0, count);
            text.insert(point, 1, '.');
            const auto quick = READ(text);
            EXPECT_EQ(READ(' ' + text).value, quick.value) << text;
            EXPECT_EQ(READ('+' + text).value, quick.value) << text;
            EXPECT_EQ(READ(std::string(40, '0') + text).value, quick.value) << text;
            EXPECT_EQ(READ('-' + text).value, '-' + quick.value) << text;
        }
    }
}

TEST(Stod32, KeepsSevenDigitsAndRoundsByTheOthers) {
    EXPECT_EQ(orv::stod32_c("1.2345678").record().bits, 0x2F800000U + 1234568U);
    EXPECT_EQ(shown(orv::stod32_c("9.9999999")), "1000000E-5");
}

TEST(Stod64, HasTheEncodingOfTheStandard) {
    EXPECT_EQ(orv::stod64_c("1").record().bits, 0x31C0000000000001U);
    EXPECT_EQ(orv::stod64_c("-9999999999999999").record().bits, 0xEC7386F26FC0FFFFU);
    EXPECT_EQ(orv::stod64_c("nan").record().bits, 0x7C00000000000000U);
    EXPECT_EQ(orv::stod64_c("-inf").record().bits, 0xF800000000000000U);
    EXPECT_EQ(orv::strtod64_c("x", nullptr).record().bits, 0U);
}

TEST(Stod128, HasTheEncodingOfTheStandard) {
    const ODecimal128 one = orv::stod128_c("1").record();
    EXPECT_EQ(one.high, 0x3040000000000000U);
    EXPECT_EQ(one.low, 1U);
    EXPECT_EQ(orv::stod128_c("-inf").record().high, 0xF800000000000000U);
    EXPECT_EQ(orv::stod128_c("-inf").record().low, 0U);
    EXPECT_EQ(orv::strtod128_c("x", nullptr).record().high, 0U);
}

TEST(Stod64, TakesACursorBeyondItsView) {
    const std::string text = "1.5";
    orv::BasicCharIterator<char> it{orv::string_ref(text)};
    it.setPosition(3);
    EXPECT_EQ(orvtest::thrownMessage<std::invalid_argument>([&] { orv::stod64_c(it); }), NO_DIGIT);
    EXPECT_EQ(it.position(), 3U);
}

TEST(Strtod64, KeepsErrnoWhereTheValueIsInfinite) {
    errno = 7;
    const char* const text = "1e999x";
    char* end = nullptr;
    EXPECT_EQ(shown(orv::strtod64_c(text, &end)), "inf");
    EXPECT_EQ(end, text + 5);
    EXPECT_EQ(errno, 7);
}

template <class Decimal>
void expectConstructsFromTheWholeText() {
    const auto made = [](const char* text) { return shown(Decimal(orv::string_ref(text))); };
    EXPECT_EQ(made("1.50"), "150E-2");
    EXPECT_EQ(made("  -1e3"), "-1E3");
    EXPECT_EQ(made("inf"), "inf");
    EXPECT_EQ(shown(Decimal(u"\u0661.5"_u)), "15E-1");
    const auto message = [](orv::string_ref text) {
        return orvtest::thrownMessage<std::invalid_argument>([text] { Decimal(text).record(); });
    };
    EXPECT_EQ(message(""), NO_DIGIT);
    EXPECT_EQ(message("infi"), NO_INFINITY);
    EXPECT_EQ(message("nano"), NO_NAN);
    EXPECT_EQ(message("1.5x"), "end of number expected");
    EXPECT_EQ(message("1.5 "), "end of number expected");
    EXPECT_EQ(message("1.5e"), "end of number expected");
    EXPECT_EQ(message(orv::string_ref("1\0", 2)), "end of number expected");
    EXPECT_EQ(orvtest::thrownMessage<std::invalid_argument>([] { Decimal(u"1,5"_u).record(); }),
              "end of number expected");
}

TEST(DecimalFromText, IsTheWholeText) {
    expectConstructsFromTheWholeText<orv::decimal::decimal32>();
    expectConstructsFromTheWholeText<orv::decimal::decimal64>();
    expectConstructsFromTheWholeText<orv::decimal::decimal128>();
}

} // namespace
