// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers as text: the three conversions, the punctuation, buffers of any size, and
/// any number in any form against the model, back into the number, and into Intel's reader.
#include "orv/liborv/decimal/format.h"

#include "tests/liborv/decimal/decimal_texts.h"
#include "tests/liborv/decimal/decimal_writing.h"
#include "tests/reference/decimal_text_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <bid_conf.h>

extern "C" {
#include <bid_functions.h>
}

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>

namespace {

using orvtest::form;
using orvtest::ModelDecimal;
using orvtest::read64;
using orvtest::record128;
using orvtest::record32;
using orvtest::record64;
using orvtest::write;

std::string write(char conversion, int precision, const std::string& number) {
    return write(form(conversion, precision), number);
}

std::string grouped(const std::string& number, const char* grouping,
                    std::uint32_t separator = ',') {
    DecimalFormat format = form('F', -1);
    format.thousandsSeparator = separator;
    format.grouping = grouping;
    return write(format, number);
}

TEST(DecimalFormat, HasTheLayoutThatCallersFill) {
    EXPECT_EQ(offsetof(DecimalFormat, plusSign), 1U);
    EXPECT_EQ(offsetof(DecimalFormat, showPoint), 2U);
    EXPECT_EQ(offsetof(DecimalFormat, precision), 4U);
    EXPECT_EQ(offsetof(DecimalFormat, decimalPoint), 8U);
    EXPECT_EQ(offsetof(DecimalFormat, thousandsSeparator), 12U);
    EXPECT_EQ(offsetof(DecimalFormat, grouping), 16U);
}

TEST(DecimalFormat, WritesTheDocumentedExamples) {
    struct Row {
        const char* number;
        const char *f, *f2, *e, *e2, *g, *g3;
    };
    const Row rows[] = {
        {"1.50", "1.50", "1.50", "1.50E+00", "1.50E+00", "1.50", "1.50"},
        {"15E+1", "150", "150.00", "1.5E+02", "1.50E+02", "1.5E+02", "1.5E+02"},
        {"2E+2", "200", "200.00", "2E+02", "2.00E+02", "2E+02", "2E+02"},
        {"1234.565", "1234.565", "1234.56", "1.234565E+03", "1.23E+03", "1234.565", "1.23E+03"},
        {"9.999", "9.999", "10.00", "9.999E+00", "1.00E+01", "9.999", "10.0"},
        {"0.000012", "0.000012", "0.00", "1.2E-05", "1.20E-05", "0.000012", "0.000012"},
        {"0.0000001", "0.0000001", "0.00", "1E-07", "1.00E-07", "1E-07", "1E-07"},
        {"0.00", "0.00", "0.00", "0E-02", "0.00E-02", "0.00", "0.00"},
        {"0E+3", "0", "0.00", "0E+03", "0.00E+03", "0E+03", "0E+03"},
        {"-1E+300", nullptr, nullptr, "-1E+300", "-1.00E+300", "-1E+300", "-1E+300"},
    };
    for (const Row& row : rows) {
        if (row.f != nullptr) {
            EXPECT_EQ(write('F', -1, row.number), row.f);
            EXPECT_EQ(write('F', 2, row.number), row.f2);
        }
        EXPECT_EQ(write('E', -1, row.number), row.e);
        EXPECT_EQ(write('E', 2, row.number), row.e2);
        EXPECT_EQ(write('G', -1, row.number), row.g);
        EXPECT_EQ(write('G', 3, row.number), row.g3);
    }
}

TEST(DecimalFormat, RoundsHalfToEven) {
    EXPECT_EQ(write('F', 0, "0.5"), "0");
    EXPECT_EQ(write('F', 0, "1.5"), "2");
    EXPECT_EQ(write('F', 0, "2.5"), "2");
    EXPECT_EQ(write('F', 0, "0.50001"), "1");
    EXPECT_EQ(write('F', 0, "0.05"), "0");
    EXPECT_EQ(write('F', 0, "0.95"), "1");
    EXPECT_EQ(write('F', 1, "0.05"), "0.0");
    EXPECT_EQ(write('F', 1, "0.15"), "0.2");
    EXPECT_EQ(write('F', 1, "99.96"), "100.0");
    EXPECT_EQ(write('F', 0, "-0.4"), "-0");
    EXPECT_EQ(write('E', 0, "25"), "2E+01");
    EXPECT_EQ(write('E', 0, "35"), "4E+01");
    EXPECT_EQ(write('E', 0, "95"), "1E+02");
    EXPECT_EQ(write('E', 1, "9.951"), "1.0E+01");
    EXPECT_EQ(write('G', 2, "99.5"), "1.0E+02");
}

TEST(DecimalFormat, GKeepsTheZerosAndAtMostThePrecision) {
    EXPECT_EQ(write('G', 6, "1.50"), "1.50");
    EXPECT_EQ(write('G', 6, "3.14159265"), "3.14159");
    EXPECT_EQ(write('G', 0, "37"), "4E+01");
    EXPECT_EQ(write('G', 1, "37"), "4E+01");
    EXPECT_EQ(write('G', 6, "123456"), "123456");
    EXPECT_EQ(write('G', 6, "1234567"), "1.23457E+06");
    EXPECT_EQ(write('G', -7, "1234567"), "1234567");
    EXPECT_EQ(write('G', -1, "0.0000012"), "0.0000012");
    EXPECT_EQ(write('G', -1, "0.00000012"), "1.2E-07");
    EXPECT_EQ(write('G', -1, "0.000000"), "0.000000");
    EXPECT_EQ(write('G', -1, "0.0000000"), "0E-07");
}

TEST(DecimalFormat, SmallConversionsWriteSmallLetters) {
    EXPECT_EQ(write('e', 1, "15"), "1.5e+01");
    EXPECT_EQ(write('g', -1, "1e9"), "1e+09");
    EXPECT_EQ(write('f', 1, "1e3"), "1000.0");
    for (const char conversion : {'e', 'f', 'g'}) {
        EXPECT_EQ(write(conversion, 3, "inf"), "inf");
        EXPECT_EQ(write(conversion, 3, "nan"), "nan");
    }
    for (const char conversion : {'E', 'F', 'G'}) {
        EXPECT_EQ(write(conversion, 3, "inf"), "INF");
        EXPECT_EQ(write(conversion, 3, "-inf"), "-INF");
        EXPECT_EQ(write(conversion, 3, "nan"), "NAN");
    }
}

TEST(DecimalFormat, OtherConversionsCountAsG) {
    EXPECT_EQ(write('\0', -1, "1e9"), "1E+09");
    EXPECT_EQ(write('X', 2, "1.234"), "1.2");
    EXPECT_EQ(write('\xE5', 2, "1.234"), "1.2");
    EXPECT_EQ(write('x', -1, "1e9"), "1e+09");
}

TEST(DecimalFormat, WritesSigns) {
    DecimalFormat format = form('F', -1);
    format.plusSign = '+';
    EXPECT_EQ(write(format, "1.5"), "+1.5");
    EXPECT_EQ(write(format, "0"), "+0");
    EXPECT_EQ(write(format, "-0.0"), "-0.0");
    EXPECT_EQ(write(format, "-1.5"), "-1.5");
    EXPECT_EQ(write(format, "inf"), "+INF");
    EXPECT_EQ(write(format, "-inf"), "-INF");
    EXPECT_EQ(write(format, "nan"), "NAN");
    EXPECT_EQ(write(&orvDec64FormatString, format, ODecimal64{0xFE00000000000123}), "NAN");
    EXPECT_EQ(write(&orvDec32FormatString, format, ODecimal32{0xFC000001}), "NAN");
    EXPECT_EQ(write(&orvDec128FormatString, format, ODecimal128{5, 0xFE00000000000000}), "NAN");
}

TEST(DecimalFormat, ShowsThePointIfAsked) {
    DecimalFormat format = form('F', 0);
    format.showPoint = 1;
    EXPECT_EQ(write(format, "15"), "15.");
    format.conversion = 'E';
    EXPECT_EQ(write(format, "2"), "2.E+00");
    format.conversion = 'G';
    format.precision = -1;
    EXPECT_EQ(write(format, "15"), "15.");
    EXPECT_EQ(write(format, "2E+7"), "2.E+07");
    EXPECT_EQ(write(format, "1.5"), "1.5");
    EXPECT_EQ(write(format, "inf"), "INF");
    EXPECT_EQ(write(format, "nan"), "NAN");
}

TEST(DecimalFormat, WritesThePointGiven) {
    DecimalFormat format = form('F', 1);
    const std::pair<std::uint32_t, std::string> points[] = {
        {0, "."},
        {',', ","},
        {0x7F, "\x7F"},
        {0xB7, "\xB7"},
        {0xFF, "\xFF"},
        {0x100, "\xC4\x80"},
        {0x66B, "\xD9\xAB"},
        {0x7FF, "\xDF\xBF"},
        {0x800, "\xE0\xA0\x80"},
        {0xFFFF, "\xEF\xBF\xBF"},
        {0x10000, "\xF0\x90\x80\x80"},
        {0x10FFFF, "\xF4\x8F\xBF\xBF"},
        {0x110000, "\xEF\xBF\xBD"},
        {0xFFFFFFFF, "\xEF\xBF\xBD"},
        {0xD7FF, "\xED\x9F\xBF"},
        {0xD800, "\xEF\xBF\xBD"},
        {0xDFFF, "\xEF\xBF\xBD"},
        {0xE000, "\xEE\x80\x80"},
    };
    for (const auto& [point, text] : points) {
        format.decimalPoint = point;
        EXPECT_EQ(write(format, "1.5"), "1" + text + "5") << point;
        EXPECT_EQ(grouped("1234", "\3", point), point == 0 ? "1234" : "1" + text + "234") << point;
    }
}

TEST(DecimalFormat, GroupsTheDigitsBeforeThePoint) {
    EXPECT_EQ(grouped("123", "\3"), "123");
    EXPECT_EQ(grouped("1234", "\3"), "1,234");
    EXPECT_EQ(grouped("1234567.1234567", "\3"), "1,234,567.1234567");
    EXPECT_EQ(grouped("-123456", "\3"), "-123,456");
    EXPECT_EQ(grouped("123456E+4", "\3"), "1,234,560,000");
    EXPECT_EQ(grouped("12345678", "\3\2"), "1,23,45,678");
    EXPECT_EQ(grouped("1234567890", "\1\2\3"), "1,234,567,89,0");
    EXPECT_EQ(grouped("12345678", "\3\177"), "12345,678");
    EXPECT_EQ(grouped("12345678", "\177"), "12345678");
    EXPECT_EQ(grouped("12345678", "\3\377"), "12345,678");
    EXPECT_EQ(grouped("12345678", "\3\200\2"), "12345,678");
    EXPECT_EQ(grouped("123", "\1"), "1,2,3");
    EXPECT_EQ(grouped("1234", ""), "1234");
    EXPECT_EQ(grouped("1234", nullptr), "1234");
    EXPECT_EQ(grouped("1234", "\3", 0), "1234");
    EXPECT_EQ(grouped("0.1234", "\3"), "0.1234");
    EXPECT_EQ(grouped("1E+200", "\144"),
              "1," + std::string(100, '0') + "," + std::string(100, '0'));
}

TEST(DecimalFormat, GroupsInFAndGOnly) {
    DecimalFormat format = form('G', -1);
    format.thousandsSeparator = ',';
    format.grouping = "\3";
    EXPECT_EQ(write(format, "1234.5"), "1,234.5");
    format.conversion = 'E';
    EXPECT_EQ(write(format, "1234.5"), "1.2345E+03");
}

TEST(DecimalFormat, CountsCoefficientsAboveTheLargestAsZero) {
    const DecimalFormat format = form('G', -1);
    // 9999999 is the largest of 7 digits, 10000000 the first that has no digits.
    EXPECT_EQ(write(&orvDec32FormatString, format, ODecimal32{0x6CB8967F}), "9999999");
    EXPECT_EQ(write(&orvDec32FormatString, format, ODecimal32{0x6CB89680}), "0");
    EXPECT_EQ(write(&orvDec64FormatString, format, ODecimal64{0x6C7386F26FC0FFFF}),
              "9999999999999999");
    EXPECT_EQ(write(&orvDec64FormatString, format, ODecimal64{0xEC7386F26FC10000}), "-0");
    EXPECT_EQ(
        write(&orvDec128FormatString, format, ODecimal128{0x378D8E63FFFFFFFF, 0x3041ED09BEAD87C0}),
        std::string(34, '9'));
    EXPECT_EQ(
        write(&orvDec128FormatString, format, ODecimal128{0x378D8E6400000000, 0x3041ED09BEAD87C0}),
        "0");
    EXPECT_EQ(write(&orvDec128FormatString, format, ODecimal128{0, 0x3041ED09BEAD87C1}), "0");
    EXPECT_EQ(write(&orvDec128FormatString, format, ODecimal128{7, 0x6C11000000000000}), "0E+02");
}

TEST(DecimalFormat, WritesTheWholeRangeInF) {
    const DecimalFormat format = form('F', -1);
    const ODecimal128 large{1, std::uint64_t{6111 + 6176} << 49U};
    EXPECT_EQ(write(&orvDec128FormatString, format, large), "1" + std::string(6111, '0'));
    const ODecimal128 largest{0x378D8E63FFFFFFFF,
                              std::uint64_t{6111 + 6176} << 49U | 0x0001ED09BEAD87C0};
    EXPECT_EQ(write(&orvDec128FormatString, format, largest),
              std::string(34, '9') + std::string(6111, '0'));
    EXPECT_EQ(write(&orvDec128FormatString, format, ODecimal128{1, 0}),
              "0." + std::string(6175, '0') + "1");
    EXPECT_EQ(write(&orvDec128FormatString, form('F', 0), ODecimal128{1, 0}), "0");
}

TEST(DecimalFormat, CountsHugePrecisionsAndWritesWhatFits) {
    char buffer[16] = {};
    const std::size_t most = INT32_MAX;
    std::fill(std::begin(buffer), std::end(buffer), '#');
    const DecimalFormat fixed = form('F', INT32_MAX);
    EXPECT_EQ(orvDec64FormatString(&fixed, read64("-12.5"), buffer, 8), most + 4);
    EXPECT_EQ(std::string(buffer, 16), std::string("-12.500\0########", 16));
    const DecimalFormat scientific = form('E', INT32_MAX);
    EXPECT_EQ(orvDec64FormatString(&scientific, read64("12.5"), buffer, 8), most + 6);
    EXPECT_STREQ(buffer, "1.25000");
    const DecimalFormat general = form('G', INT32_MAX);
    EXPECT_EQ(write(general, "12.50"), "12.50");
    EXPECT_EQ(write('G', INT32_MIN, "12.50"), "12.50");
    EXPECT_EQ(write('F', INT32_MIN, "12.50"), "12.50");
    EXPECT_EQ(write('E', INT32_MIN, "12.50"), "1.250E+01");
}

TEST(DecimalFormat, WritesCoefficientsOfAnyCountOfDigits) {
    const DecimalFormat format = form('F', -1);
    ModelDecimal number{orvtest::ModelKind::FINITE, false, 0, 0};
    for (unsigned digits = 0; digits < 34; ++digits) {
        for (const int step : {-1, 0, 1}) {
            number.coefficient = orvtest::modelPowerOfTen(digits) + step;
            const mpz_class bits = modelEncode(number, orvtest::MODEL_128);
            EXPECT_EQ(write(&orvDec128FormatString, format, record128(bits)),
                      number.coefficient.get_str());
        }
    }
}

DecimalFormat anyForm(orvtest::NumberSource& source) {
    static const char* const groupings[] = {nullptr, "",       "\3",   "\3\2", "\1",
                                            "\177",  "\2\177", "\5\1", "\40"};
    const std::uint32_t marks[] = {'.', ',', ' ', 0xA0, 0x202F, 0x1F600, 0xD800};
    DecimalFormat format = form("GEFgef"[source.below(6)], source.between(-1, 40));
    format.plusSign = source.coin() ? '+' : '\0';
    format.showPoint = source.coin() ? 1 : 0;
    format.decimalPoint = marks[source.below(7)];
    format.thousandsSeparator = source.coin() ? marks[source.below(7)] : 0;
    format.grouping = groupings[source.below(9)];
    if (source.below(3) == 0) {
        format.precision = -1;
    }
    return format;
}

// Every size of the buffer gives the front of the text and touches nothing beyond.
template <class Function, class Value>
void checkSizes(Function function, const DecimalFormat& format, Value value,
                const std::string& text) {
    char buffer[400];
    for (std::size_t size = 0; size < std::min<std::size_t>(text.size() + 60, 300); ++size) {
        std::fill(std::begin(buffer), std::end(buffer), '#');
        ASSERT_EQ(function(&format, value, buffer, size), text.size());
        const std::size_t shown = size == 0 ? 0 : std::min(text.size(), size - 1);
        ASSERT_EQ(std::string(buffer, shown), text.substr(0, shown));
        ASSERT_TRUE(size == 0 || buffer[shown] == '\0') << text << ' ' << size;
        ASSERT_TRUE(std::all_of(buffer + size, std::end(buffer), [](char c) { return c == '#'; }))
            << text << ' ' << size;
    }
}

TEST(DecimalFormat, FitsBuffersOfAnySize) {
    orvtest::NumberSource source(1);
    for (std::size_t i = orvtest::caseCount(1000); i > 0 && !HasFatalFailure(); --i) {
        const ModelDecimal number = anyDecimal(source, orvtest::MODEL_128);
        const DecimalFormat format = anyForm(source);
        checkSizes(&orvDec128FormatString, format,
                   record128(modelEncode(number, orvtest::MODEL_128)), modelText(format, number));
    }
}

template <class Record, class Function>
void compareWithModel(const orvtest::ModelFormat& width, Record record, Function function,
                      std::uint64_t seed) {
    orvtest::NumberSource source(seed);
    for (std::size_t i = orvtest::caseCount(15000); i > 0; --i) {
        const ModelDecimal number = anyDecimal(source, width);
        const DecimalFormat format = anyForm(source);
        const mpz_class bits = modelEncode(number, width);
        ASSERT_EQ(write(function, format, record(bits)), modelText(format, number))
            << bits << ' ' << format.conversion << format.precision;
        const mpz_class any = orvtest::anyBits(source, width);
        ASSERT_EQ(write(function, format, record(any)), modelText(format, modelDecode(any, width)))
            << any << ' ' << format.conversion << format.precision;
    }
}

TEST(DecimalFormat, AgreesWithTheModel) {
    compareWithModel(orvtest::MODEL_32, record32, &orvDec32FormatString, 2);
    compareWithModel(orvtest::MODEL_64, record64, &orvDec64FormatString, 3);
    compareWithModel(orvtest::MODEL_128, record128, &orvDec128FormatString, 4);
}

} // namespace
