// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from text: the grammar, the rounding, and any text against the model and
/// against Intel's reader.
#include "orv/liborv/decimal/parse.h"

#include "tests/liborv/decimal/decimal_reading.h"
#include "tests/liborv/decimal/decimal_texts.h"
#include "tests/reference/decimal_text_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <bid_conf.h>

extern "C" {
#include <bid_functions.h>
}

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using orvtest::digitsOf;
using orvtest::feed;
using orvtest::ModelReading;
using orvtest::Reading;

std::string results(std::string_view text, const ModelReading& reading = {}) {
    return feed(text, 16, reading).results;
}

std::uint64_t bits64(std::string_view text, const ModelReading& reading = {}) {
    const Reading fed = feed(text, 16, reading);
    return orvDec64ParseGetValue(&fed.state).bits;
}

std::uint32_t bits32(std::string_view text) {
    const Reading fed = feed(text, 7);
    return orvDec32ParseGetValue(&fed.state).bits;
}

// The number coefficient * 10^exponent of a coefficient that leaves the exponent where it is.
std::uint64_t number64(std::uint64_t coefficient, int exponent) {
    return static_cast<std::uint64_t>(exponent + 398) << 53U | coefficient;
}

const std::uint64_t NAN_64 = 0x7C00000000000000;
const std::uint64_t INFINITY_64 = 0x7800000000000000;
const std::uint64_t SIGN_64 = 0x8000000000000000;
const ModelReading COMMAS{'.', ',', false};
const ModelReading SPACES{'.', '\0', true};

TEST(DecimalParse, RefusesWhatItCannotBeginWith) {
    DecimalParseState state;
    EXPECT_EQ(orvDecParseInit(nullptr, 16, '.', ',', 0), -1);
    for (int digits = -1; digits < 40; ++digits) {
        const bool known = digits == 7 || digits == 16 || digits == 34;
        EXPECT_EQ(orvDecParseInit(&state, digits, '.', ',', 0), known ? 0 : -1) << digits;
    }
    EXPECT_EQ(orvDecParseInit(&state, 16, '\0', ',', 0), -1);
    EXPECT_EQ(orvDecParseInit(&state, 16, '\0', '\0', 0), -1);
}

TEST(DecimalParse, RefusesPunctuationThatIsPartOfNumbers) {
    DecimalParseState state;
    const std::string_view taken("0123456789+-aefintyAEFINTY");
    for (int code = 1; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool free = taken.find(c) == std::string_view::npos;
        EXPECT_EQ(orvDecParseInit(&state, 16, c, '_', 0), free && c != '_' ? 0 : -1) << code;
        EXPECT_EQ(orvDecParseInit(&state, 16, '.', c, 1), free && c != '.' ? 0 : -1) << code;
        const bool isSpace = c == ' ' || (c >= '\t' && c <= '\r');
        EXPECT_EQ(orvDecParseInit(&state, 16, c, '\0', 1), free && !isSpace ? 0 : -1) << code;
    }
}

TEST(DecimalParse, LeavesTheStateOfARefusedBegin) {
    Reading reading = feed("1.5");
    EXPECT_EQ(orvDecParseInit(&reading.state, 8, '.', ',', 0), -1);
    EXPECT_EQ(orvDec64ParseGetValue(&reading.state).bits, number64(15, -1));
}

TEST(DecimalParse, TellsAfterEachCharacterWhereItStands) {
    EXPECT_EQ(results("1.50;"), "CCCCS");
    EXPECT_EQ(results("+1"), ".C");
    EXPECT_EQ(results("-.5"), "..C");
    EXPECT_EQ(results(".x"), ".S");
    EXPECT_EQ(results("1..5"), "CCS");
    EXPECT_EQ(results(".5."), ".CS");
    EXPECT_EQ(results("1e+5 "), "C..CS");
    EXPECT_EQ(results("1.E-05e"), "CC..CCS");
    EXPECT_EQ(results("1e++"), "C..S");
    EXPECT_EQ(results("1ex"), "C.S");
    EXPECT_EQ(results("1e5."), "C.CS");
    EXPECT_EQ(results("e5"), "S");
    EXPECT_EQ(results(".e5"), ".S");
    EXPECT_EQ(results("--1"), ".S");
    EXPECT_EQ(results(std::string_view("1\0", 2)), "CS");
}

TEST(DecimalParse, ReadsTheWordsInEitherCase) {
    EXPECT_EQ(results("infinity!"), "..C....CS");
    EXPECT_EQ(results("INFinITYy"), "..C....CS");
    EXPECT_EQ(results("infx"), "..CS");
    EXPECT_EQ(results("inx"), "..S");
    EXPECT_EQ(results("nAn("), "..CS");
    EXPECT_EQ(results("nin"), ".S");
    EXPECT_EQ(bits64("inf"), INFINITY_64);
    EXPECT_EQ(bits64("-Infinity"), INFINITY_64 | SIGN_64);
    EXPECT_EQ(bits64("+infin"), INFINITY_64);
    EXPECT_EQ(bits64("in"), NAN_64);
    EXPECT_EQ(bits64("nan"), NAN_64);
    EXPECT_EQ(bits64("-NaN"), NAN_64);
}

TEST(DecimalParse, SkipsWhiteSpaceInFrontIfAsked) {
    EXPECT_EQ(results(" \t\n\v\f\r-1", SPACES), ".......C");
    EXPECT_EQ(results("1 ", SPACES), "CS");
    EXPECT_EQ(results("- 1", SPACES), ".S");
    EXPECT_EQ(results("\x0E", SPACES), "S");
    EXPECT_EQ(results("\x08", SPACES), "S");
    for (const char c : {' ', '\t', '\n', '\v', '\f', '\r'}) {
        EXPECT_EQ(results(std::string(1, c)), "S");
    }
}

TEST(DecimalParse, TakesSeparatorsBetweenDigitsBeforeThePoint) {
    EXPECT_EQ(results("1,2,34.5,", COMMAS), "C.C.CCCCS");
    EXPECT_EQ(results("1,,", COMMAS), "C.S");
    EXPECT_EQ(results(",1", COMMAS), "S");
    EXPECT_EQ(results("1,.5", COMMAS), "C.S");
    EXPECT_EQ(results("1,e5", COMMAS), "C.S");
    EXPECT_EQ(results("1,2"), "CS");
    EXPECT_EQ(bits64("1,23,", COMMAS), number64(123, 0));
    EXPECT_EQ(bits64("0,0,1.5", COMMAS), number64(15, -1));
    const ModelReading blanks{',', ' ', true};
    EXPECT_EQ(results("  1 234,5 ", blanks), "..C.CCCCCS");
}

TEST(DecimalParse, GivesTheLongestNumberThatTheTextBeginsWith) {
    EXPECT_EQ(bits64("1e+"), number64(1, 0));
    EXPECT_EQ(bits64("1e-x"), number64(1, 0));
    EXPECT_EQ(bits64("2.5e"), number64(25, -1));
    EXPECT_EQ(bits64("1."), number64(1, 0));
    EXPECT_EQ(bits64("1x5"), number64(1, 0));
    EXPECT_EQ(bits64("1,,", COMMAS), number64(1, 0));
    for (const char* nothing : {"", "+", "-", ".", "-.", "x", "i", "na", "."}) {
        EXPECT_EQ(bits64(nothing), NAN_64) << nothing;
    }
}

TEST(DecimalParse, StaysStopped) {
    Reading reading = feed("12x");
    for (const char c : std::string_view("3.e,ix")) {
        EXPECT_EQ(orvDecParseNextChar(&reading.state, c), ORV_DEC_PARSE_STOP);
    }
    std::size_t complete = 7;
    EXPECT_EQ(orvDecParseText(&reading.state, "34", 2, &complete), 0U);
    EXPECT_EQ(complete, 0U);
    EXPECT_EQ(orvDec64ParseGetValue(&reading.state).bits, number64(12, 0));
}

TEST(DecimalParse, KeepsZeros) {
    EXPECT_EQ(bits64("1.50"), number64(150, -2));
    EXPECT_EQ(bits64("150"), number64(150, 0));
    EXPECT_EQ(bits64("0.00"), number64(0, -2));
    EXPECT_EQ(bits64("-0"), number64(0, 0) | SIGN_64);
    EXPECT_EQ(bits64("00012"), number64(12, 0));
    EXPECT_EQ(bits64("0.0012e2"), number64(12, -2));
    EXPECT_EQ(bits64(std::string(1000, '0') + "." + std::string(300, '0') + "1"),
              number64(1, -301));
}

TEST(DecimalParse, RoundsOnceToTheDigitsOfTheFormat) {
    EXPECT_EQ(bits64("12345678901234565"), number64(1234567890123456, 1));
    EXPECT_EQ(bits64("12345678901234575"), number64(1234567890123458, 1));
    EXPECT_EQ(bits64("1234567890123456500000"), number64(1234567890123456, 6));
    EXPECT_EQ(bits64("123456789012345650000.0000001"), number64(1234567890123457, 5));
    EXPECT_EQ(bits64("12345678901234564" + std::string(1000, '9') + "e-1000"),
              number64(1234567890123456, 1));
    EXPECT_EQ(bits64("9999999999999999.4"), 0x6C7386F26FC0FFFFU);
    EXPECT_EQ(bits64("9999999999999999.5"), number64(1000000000000000, 1));
    const Reading nines = feed(std::string(34, '9') + ".5", 34);
    EXPECT_EQ(orvDec128ParseGetValue(&nines.state).high, 0x3042314DC6448D93U);
    EXPECT_EQ(orvDec128ParseGetValue(&nines.state).low, 0x38C15B0A00000000U);
    EXPECT_EQ(bits32("1234567.5"), (101U << 23U | 1234568U));
    EXPECT_EQ(bits32("1234568.5"), (101U << 23U | 1234568U));
}

TEST(DecimalParse, RoundsSubnormalNumbersOnce) {
    EXPECT_EQ(bits64("1e-398"), 1U);
    EXPECT_EQ(bits64("0.5e-398"), 0U);
    EXPECT_EQ(bits64("0.50000000000000000000000001e-398"), 1U);
    EXPECT_EQ(bits64("1.5e-398"), 2U);
    EXPECT_EQ(bits64("2.5e-398"), 2U);
    EXPECT_EQ(bits64("0.09e-398"), 0U);
    EXPECT_EQ(bits64("9e-399"), 1U);
    EXPECT_EQ(bits64("-9e-400"), SIGN_64);
    // 1.4999999999999999 and a half would be 1.5 if it were rounded to the digits first.
    EXPECT_EQ(bits64("1.49999999999999995e-398"), 1U);
    EXPECT_EQ(bits64("999999999999999.95e-398"), 1000000000000000U);
}

TEST(DecimalParse, RoundsCoefficientsAcross64Bits) {
    const Reading appended = feed("184467440737095516190e-6177", 34); // 2^64 + 3, and a zero
    EXPECT_EQ(orvDec128ParseGetValue(&appended.state).high, 1U);
    EXPECT_EQ(orvDec128ParseGetValue(&appended.state).low, 3U);
    const Reading raised = feed("184467440737095516156e-6177", 34); // 2^64 - 1, and a six
    EXPECT_EQ(orvDec128ParseGetValue(&raised.state).high, 1U);
    EXPECT_EQ(orvDec128ParseGetValue(&raised.state).low, 0U);
}

TEST(DecimalParse, MovesLargeCoefficientsBehindTwoBits) {
    EXPECT_EQ(bits32("8388607"), 101U << 23U | 0x7FFFFFU);
    EXPECT_EQ(bits32("8388608"), 0x60000000U | 101U << 21U);
    EXPECT_EQ(bits64("9007199254740991"), number64(0x1FFFFFFFFFFFFF, 0));
    EXPECT_EQ(bits64("9007199254740992"), 0x6000000000000000U | std::uint64_t{398} << 51U);
}

TEST(DecimalParse, MovesExponentsIntoTheRange) {
    EXPECT_EQ(bits64("1e384"), number64(1000000000000000, 369));
    EXPECT_EQ(bits64("1e385"), INFINITY_64);
    EXPECT_EQ(bits64("-10e384"), INFINITY_64 | SIGN_64);
    EXPECT_EQ(bits64("9.999999999999999e384"), 0x77FB86F26FC0FFFFU);
    EXPECT_EQ(bits64("9.9999999999999995e384"), INFINITY_64);
    EXPECT_EQ(bits64("0e999"), number64(0, 369));
    EXPECT_EQ(bits64("-0e-999"), SIGN_64);
}

TEST(DecimalParse, ReadsExponentsOfAnyLength) {
    const std::string nines(5000, '9');
    EXPECT_EQ(bits64("1e" + nines), INFINITY_64);
    EXPECT_EQ(bits64("1e-" + nines), 0U);
    EXPECT_EQ(bits64("0e" + nines), number64(0, 369));
    EXPECT_EQ(bits64("1e" + std::string(5000, '0') + "2"), number64(1, 2));
    EXPECT_EQ(bits64("1" + std::string(5000, '0') + "e-5000"), number64(1000000000000000, -15));
    EXPECT_EQ(bits64("." + std::string(4999, '0') + "1e5000"), number64(1, 0));
}

TEST(DecimalParse, ReadsOtherFormatsThanTheOneAnnounced) {
    const Reading wide = feed("1.2345674999999999999999999999999999", 34);
    EXPECT_EQ(orvDec32ParseGetValue(&wide.state).bits, (95U << 23U | 1234567U));
    const Reading tie = feed("1234567.50000000000000000000000000000000000000001", 34);
    EXPECT_EQ(orvDec32ParseGetValue(&tie.state).bits, (101U << 23U | 1234568U));
    const Reading narrow = feed("99999995", 7);
    EXPECT_EQ(orvDec64ParseGetValue(&narrow.state).bits, number64(1000000, 2));
    EXPECT_EQ(orvDec128ParseGetValue(&narrow.state).low, 1000000U);
}

TEST(DecimalParse, StateFits64Bytes) {
    EXPECT_LE(sizeof(DecimalParseState), 64U);
}

// Any text against the model: what is said of each character, the length, and all values.
void compareWithModel(const std::string& text, int maxDigits, const ModelReading& reading) {
    const Reading fed = feed(text, maxDigits, reading);
    std::string expected;
    std::size_t complete = 0;
    for (std::size_t n = 1; n <= text.size() && (n == 1 || expected.back() != 'S'); ++n) {
        const std::string_view prefix(text.data(), n);
        const bool isNumber = modelIsNumber(prefix, reading);
        expected += isNumber ? 'C' : modelBeginsNumber(prefix, reading) ? '.' : 'S';
        complete = isNumber ? n : complete;
    }
    ASSERT_EQ(fed.results, expected) << text;
    ASSERT_EQ(fed.complete, complete) << text;
    const auto value =
        complete == 0 ? orvtest::ModelDecimal{} : modelParse({text.data(), complete}, reading);
    const auto fit = [&](const orvtest::ModelFormat& format) {
        const unsigned digits = std::min(format.digits, static_cast<unsigned>(maxDigits));
        return modelEncode(modelFit(value, format, digits), format);
    };
    ASSERT_EQ(orvtest::modelBits(orvDec32ParseGetValue(&fed.state)), fit(orvtest::MODEL_32))
        << text;
    ASSERT_EQ(orvtest::modelBits(orvDec64ParseGetValue(&fed.state)), fit(orvtest::MODEL_64))
        << text;
    ASSERT_EQ(orvtest::modelBits(orvDec128ParseGetValue(&fed.state)), fit(orvtest::MODEL_128))
        << text;
}

TEST(DecimalParse, AgreesWithTheModelOnAnyText) {
    orvtest::NumberSource source(1);
    const ModelReading readings[] = {{'.', ',', true},
                                     {',', '.', false},
                                     {'.', '\0', false},
                                     {',', ' ', true},
                                     {'\xA0', '\xFF', true}};
    for (std::size_t i = orvtest::caseCount(30000); i > 0 && !HasFatalFailure(); --i) {
        const ModelReading& reading = readings[source.below(5)];
        compareWithModel(orvtest::anyText(source, reading.point, reading.separator),
                         digitsOf(source), reading);
    }
}

TEST(DecimalParse, AgreesWithTheModelOnNumbers) {
    orvtest::NumberSource source(2);
    for (std::size_t i = orvtest::caseCount(30000); i > 0 && !HasFatalFailure(); --i) {
        compareWithModel(orvtest::numberText(source), digitsOf(source), {});
    }
}

TEST(DecimalParse, AgreesWithIntelOnNumbers) {
    orvtest::NumberSource source(3);
    for (std::size_t i = orvtest::caseCount(150000); i > 0; --i) {
        std::string text = orvtest::numberText(source);
        _IDEC_flags flags = 0;
        ASSERT_EQ(bits32(text), bid32_from_string(text.data(), 0, &flags)) << text;
        ASSERT_EQ(bits64(text), bid64_from_string(text.data(), 0, &flags)) << text;
        const BID_UINT128 wide = bid128_from_string(text.data(), 0, &flags);
        const Reading fed = feed(text, 34);
        const ODecimal128 value = orvDec128ParseGetValue(&fed.state);
        ASSERT_EQ(value.low, wide.w[0]) << text;
        ASSERT_EQ(value.high, wide.w[1]) << text;
    }
}

} // namespace
