// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `strtod64` and `strtod128`, which have a short road for everyday numbers, beside the
/// parser fed character by character.
#include "orv/liborvxx/decimal/decimal_io.h"

#include "orv/liborv/decimal/parse.h"

#include "tests/decimal/decimal_bits.h"
#include "tests/liborv/decimal/decimal_texts.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal64;
using orvtest::bitsOf;

// What the characters of a text say, up to its NUL.
struct Scan {
    DecimalParseState state;
    std::size_t complete = 0; // length of the longest number
    std::size_t stop = 0;     // where the scan ended
};

Scan scan(const char* text, int digits) {
    Scan scan;
    orvDecParseInit(&scan.state, digits, '.', '\0', ORV_DEC_PARSE_SKIP_SPACE);
    for (; text[scan.stop] != '\0'; ++scan.stop) {
        const int result = orvDecParseNextChar(&scan.state, text[scan.stop]);
        if (result == ORV_DEC_PARSE_STOP) {
            break;
        }
        scan.complete = result == ORV_DEC_PARSE_COMPLETE ? scan.stop + 1 : scan.complete;
    }
    return scan;
}

template <class Decimal, class Record>
void expectAsScanned(const char* text, int digits, Decimal (*read)(const char*, const char**),
                     Record (*value)(const DecimalParseState*)) {
    const Scan scanned = scan(text, digits);
    const Decimal number = value(&scanned.state);
    const char* end = nullptr;
    ASSERT_EQ(bitsOf(read(text, &end)), bitsOf(number)) << text;
    ASSERT_EQ(static_cast<std::size_t>(end - text), scanned.complete) << text;
    const bool isWhole = scanned.complete != 0 &&
                         text[scanned.stop + std::strspn(text + scanned.stop, " \t\n")] == 0;
    const Decimal none = orv::decimal::detail::DecimalLayout<Record>::quietNan();
    ASSERT_EQ(bitsOf(read(text, nullptr)), bitsOf(isWhole ? number : none)) << text;
}

void expectAsScanned(const std::string& text) {
    expectAsScanned<decimal64>(text.c_str(), 16, orv::decimal::strtod64, orvDec64ParseGetValue);
    expectAsScanned<decimal128>(text.c_str(), 34, orv::decimal::strtod128, orvDec128ParseGetValue);
}

TEST(StrtodScan, ReadsWhatTheCharactersSay) {
    orvtest::NumberSource source(11);
    for (std::size_t i = orvtest::caseCount(100000); i > 0 && !testing::Test::HasFatalFailure();
         --i) {
        expectAsScanned(orvtest::anyText(source, '.', '\0'));
        expectAsScanned(orvtest::numberText(source) + (source.coin() ? "" : " \t"));
    }
}

TEST(StrtodScan, TakesNoShortRoadWhereItLeadsElsewhere) {
    for (const char* text :
         {"1e0000000001", "1e-0000000001", "0e9999999999", "1e+",     "1e",   "1E- ",
          "infin",        "infinity",      "nan(1)",       "nan_",    "inf_", "0x10",
          "-0.00",        "1e99999",       "1e-99999",     "",        "  ",   ".",
          "5.",           ".5e1",          "+-1",          "1,234.5", "1 e5"}) {
        expectAsScanned(text);
    }
}

} // namespace
