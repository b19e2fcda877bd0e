// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The requirements of the standard for input and output, performed on streams over `char`,
/// `wchar_t` and `char16` side by side: results, counts, states, positions and exceptions.
///
/// The streams over `char16` must agree with those over `wchar_t` in all rows, and with those over
/// `char` wherever the buffers work. What differs stands in `DIFFERENCES` and in the tests at the
/// end, and nowhere else.
#include "tests/locale/stream_conformance_input.h"
#include "tests/locale/stream_conformance_output.h"
#include "tests/locale/stream_conformance_rows.h"
#include "tests/locale/stream_conformance_trace.h"
#include "tests/support/case_count.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using orv::char16;
using orvtest::Fault;
using orvtest::FaultyBuffer;
using orvtest::InputRow;
using orvtest::inputTrace;
using orvtest::outputTrace;

/// Operations, separated by "; ".
std::vector<std::string> operations(std::string_view script) {
    std::vector<std::string> list;
    while (!script.empty()) {
        const std::size_t end = std::min(script.find("; "), script.size());
        list.emplace_back(script.substr(0, end));
        script.remove_prefix(std::min(end + 2, script.size()));
    }
    return list;
}

/// The first lines in which two traces differ; empty if they are equal.
std::string difference(const std::string& expected, const std::string& actual) {
    std::istringstream expectedLines(expected);
    std::istringstream actualLines(actual);
    std::string expectedLine;
    std::string actualLine;
    while (std::getline(expectedLines, expectedLine)) {
        std::getline(actualLines, actualLine);
        if (expectedLine != actualLine) {
            return "expected " + expectedLine + "\nbut got  " + actualLine;
        }
    }
    return expected.size() == actual.size() ? "" : "expected an end\nbut got " + actual;
}

/// Operations for which the GNU library has code of its own for `char` and `wchar_t`, so that a
/// buffer that fails is met at another unit or told otherwise. Over `char16` they are what the
/// standard spells out.
constexpr std::string_view DIFFERENCES[] = {
    "getline", // the unit before the fault is counted
    "ignore",  // the unit behind a single one is not looked at
    ">>buffer" // nothing is taken from a block that is not taken whole
};

/// The script up to the first operation that differs.
std::vector<std::string> withoutDifferences(std::vector<std::string> script) {
    const auto differs = [](const std::string& operation) {
        const std::string_view name = std::string_view(operation).substr(0, operation.find(' '));
        return std::find(std::begin(DIFFERENCES), std::end(DIFFERENCES), name) !=
               std::end(DIFFERENCES);
    };
    script.erase(std::find_if(script.begin(), script.end(), differs), script.end());
    return script;
}

void expectEqualInput(const InputRow& row) {
    const auto script = operations(row.script);
    const std::string wide = inputTrace<wchar_t>(row.text, script);
    EXPECT_EQ("", difference(wide, inputTrace<char16>(row.text, script))) << row.script;
    EXPECT_EQ("", difference(wide, inputTrace<char>(row.text, script))) << row.script;
}

/// The same with buffers that end, or throw, before each unit.
void expectEqualFaultyInput(const InputRow& row) {
    const auto script = operations(row.script);
    const auto comparable = withoutDifferences(script);
    for (std::size_t good = 0; good <= row.text.size(); ++good) {
        EXPECT_EQ("", difference(inputTrace<wchar_t>(row.text, script, {good, false}),
                                 inputTrace<char16>(row.text, script, {good, false})))
            << row.script << ", ends at " << good;
        EXPECT_EQ("", difference(inputTrace<wchar_t>(row.text, comparable, {good, true}),
                                 inputTrace<char16>(row.text, comparable, {good, true})))
            << row.script << ", throws at " << good;
    }
}

TEST(StreamConformance, UnformattedInput) {
    for (const InputRow& row : orvtest::UNFORMATTED_INPUT) {
        expectEqualInput(row);
        expectEqualFaultyInput(row);
    }
}

TEST(StreamConformance, FormattedInput) {
    for (const InputRow& row : orvtest::FORMATTED_INPUT) {
        expectEqualInput(row);
        expectEqualFaultyInput(row);
    }
}

// A name that is followed by something: the unit behind it is looked at here, and not there.
TEST(StreamConformance, InputOfNames) {
    for (const InputRow& row : orvtest::NAME_INPUT) {
        expectEqualInput(row);
    }
}

TEST(StreamConformance, InputOfNumbers) {
    for (const InputRow& row : orvtest::NUMBER_INPUT) {
        expectEqualInput(row);
        expectEqualFaultyInput(row);
    }
}

void expectEqualOutput(std::string_view text) {
    const auto script = operations(text);
    const std::string wide = outputTrace<wchar_t>(script);
    EXPECT_EQ("", difference(wide, outputTrace<char16>(script))) << text;
    EXPECT_EQ("", difference(wide, outputTrace<char>(script))) << text;
    for (std::size_t good = 0; good < 12; ++good) {
        for (const bool throws : {false, true}) {
            // The sentry of the standard libraries ends the program if the flush that it owes to
            // unitbuf throws.
            if (throws && text.find("unitbuf") != std::string_view::npos) {
                continue;
            }
            SCOPED_TRACE(std::to_string(good) + (throws ? " throws" : " refuses"));
            EXPECT_EQ("", difference(outputTrace<wchar_t>(script, {good, throws}),
                                     outputTrace<char16>(script, {good, throws})))
                << text;
        }
    }
}

TEST(StreamConformance, UnformattedOutputAndText) {
    for (const std::string_view script : orvtest::OUTPUT) {
        expectEqualOutput(script);
    }
}

TEST(StreamConformance, OutputOfNumbers) {
    for (const std::string_view script : orvtest::NUMBER_OUTPUT) {
        expectEqualOutput(script);
    }
}

/// An operation in which "#" stands for a small number and "@" for a unit.
std::string randomOperation(std::string_view pattern, std::mt19937& random) {
    std::string operation;
    for (const char c : pattern) {
        if (c == '#') {
            operation += std::to_string(random() % 12);
        } else if (c == '@') {
            operation += "ab1.0-_|x,"[random() % 10];
        } else {
            operation += c;
        }
    }
    return operation;
}

template <std::size_t N>
std::vector<std::string> randomScript(const std::string_view (&patterns)[N], std::mt19937& random) {
    std::vector<std::string> script(1 + random() % 8);
    for (std::string& operation : script) {
        operation = randomOperation(patterns[random() % N], random);
        // Most sequences would stop at their first failure.
        if (random() % 4 == 0) {
            operation = "clear";
        }
    }
    return script;
}

std::string joined(const std::vector<std::string>& script) {
    std::string text;
    for (const std::string& operation : script) {
        text += operation + "; ";
    }
    return text;
}

constexpr std::string_view INPUT_PATTERNS[] = {
    "get",           "getunit",        "getarray #",    "getarray # @",
    "getbuffer",     "getbuffer # @",  "getline #",     "getline # @",
    "ignore",        "ignore #",       "ignore # @",    "ignore -1 @",
    "peek",          "read #",         "readsome #",    "putback @",
    "unget",         "sync",           "tellg",         "seekg #",
    "seekgby # beg", "seekgby -# end", "seekgby # cur", "seekgby -# cur",
    ">>unit",        ">>string",       ">>array",       ">>ws",
    ">>buffer",      ">>buffer #",     "getlinestring", "getlinestring @",
    "width #",       "skipws",         "noskipws",      "setstate e",
    "setstate f",    "exceptions f",   "exceptions e",  "exceptions b",
    "exceptions",    ">>short",        ">>ushort",      ">>int",
    ">>uint",        ">>long",         ">>ulong",       ">>longlong",
    ">>ulonglong",   ">>float",        ">>double",      ">>longdouble",
    ">>bool",        ">>pointer",      "hex",           "oct",
    "dec",           "anybase",        "boolalpha",     "noboolalpha"};

// Without narrow text, for which the GNU library loses exceptions that the state asks for.
constexpr std::string_view OUTPUT_PATTERNS[] = {"put @",
                                                "write @@@",
                                                "flush",
                                                "tellp",
                                                "seekp #",
                                                "seekpby -# end",
                                                "seekpby -# cur",
                                                "<<unit @",
                                                "<<narrow @",
                                                "<<text @@",
                                                "<<string @@@",
                                                "<<buffer # @@@",
                                                "<<endl",
                                                "<<ends",
                                                "<<null",
                                                "<<bool 1",
                                                "<<bool 0",
                                                "<<pointer #",
                                                "<<short -#",
                                                "<<int #",
                                                "<<int -#",
                                                "<<uint #",
                                                "<<long min",
                                                "<<ulong max",
                                                "<<double #.#",
                                                "<<double -#e#",
                                                "<<double #e-#",
                                                "<<float 0.#",
                                                "<<longdouble #.#",
                                                "<<double infinity",
                                                "width #",
                                                "width 1#",
                                                "precision #",
                                                "precision -#",
                                                "fill @",
                                                "left",
                                                "right",
                                                "internal",
                                                "dec",
                                                "hex",
                                                "oct",
                                                "fixed",
                                                "scientific",
                                                "hexfloat",
                                                "defaultfloat",
                                                "boolalpha",
                                                "noboolalpha",
                                                "showbase",
                                                "noshowbase",
                                                "showpos",
                                                "noshowpos",
                                                "showpoint",
                                                "uppercase",
                                                "nouppercase",
                                                "setstate f",
                                                "exceptions f",
                                                "exceptions b",
                                                "exceptions"};

TEST(StreamConformance, RandomInput) {
    std::mt19937 random(8);
    for (std::size_t i = 0; i < orvtest::caseCount(40000); ++i) {
        std::string text;
        for (std::size_t size = random() % 24; size > 0; --size) {
            text += "ab 10.\n-+xeft,9"[random() % 15];
        }
        const auto script = randomScript(INPUT_PATTERNS, random);
        ASSERT_EQ("",
                  difference(inputTrace<wchar_t>(text, script), inputTrace<char16>(text, script)))
            << text << ": " << joined(script);
        const Fault fault = {random() % 24, i % 2 == 0};
        const auto comparable = withoutDifferences(script);
        ASSERT_EQ("", difference(inputTrace<wchar_t>(text, comparable, fault),
                                 inputTrace<char16>(text, comparable, fault)))
            << text << ": " << joined(comparable) << fault.good << ' ' << fault.throws;
    }
}

TEST(StreamConformance, RandomOutput) {
    std::mt19937 random(9);
    for (std::size_t i = 0; i < orvtest::caseCount(40000); ++i) {
        const auto script = randomScript(OUTPUT_PATTERNS, random);
        ASSERT_EQ("", difference(outputTrace<wchar_t>(script), outputTrace<char16>(script)))
            << joined(script);
        const Fault fault = {random() % 24, i % 2 == 0};
        const auto comparable = withoutDifferences(script);
        ASSERT_EQ("", difference(outputTrace<wchar_t>(comparable, fault),
                                 outputTrace<char16>(comparable, fault)))
            << joined(comparable) << fault.good << ' ' << fault.throws;
    }
}

// What differs, and is not compared above.

TEST(StreamConformanceDifferences, UnitsBeforeAFaultAreCountedOnce) {
    EXPECT_EQ("getline 9: ab<0>QQQQQQQQQ count 1 state b-- width 0 at -1\n",
              inputTrace<char16>("abc", {"getline 9"}, {2, true}));
}

TEST(StreamConformanceDifferences, ABufferTakesUnitByUnit) {
    EXPECT_EQ(">>buffer 1001: a count 0 state --f width 0 at 1\n",
              inputTrace<char16>("abc", {">>buffer 1001"}));
}

TEST(StreamConformanceDifferences, NarrowTextThrowsIfAsked) {
    EXPECT_EQ(
        "exceptions f:  state ---\n  \n<<narrowtext a:  state b--\n  \n"
        "<<narrowtext b:  throws failure state b-f\n  \n",
        outputTrace<char16>({"exceptions f", "<<narrowtext a", "<<narrowtext b"}, {0, false}));
}

TEST(StreamConformanceDifferences, TheWidthOfTextIsUsedUpThoughTheBufferFails) {
    FaultyBuffer<char16> buffer({}, 1, true);
    orv::uostream out(&buffer);
    out.width(5);
    out << u"ab";
    EXPECT_TRUE(out.bad());
    EXPECT_EQ(0, out.width());
}

TEST(StreamConformanceDifferences, ASingleUnitIsIgnoredWithoutALookBehindIt) {
    for (const char* const operation : {"ignore", "ignore 1"}) {
        EXPECT_EQ(std::string(operation) + ":  count 1 state --- width 0 at -1\n",
                  inputTrace<char16>("ab", {operation}, {1, true}));
    }
    EXPECT_EQ("ignore 1 c:  count 1 state b-- width 0 at -1\n",
              inputTrace<char16>("ab", {"ignore 1 c"}, {1, true}));
}

TEST(StreamConformanceDifferences, TheEndBehindTheNameOfATruthValueIsSeen) {
    const auto lastLine = [](std::string trace) {
        trace.pop_back();
        return trace.substr(trace.rfind('\n') + 1);
    };
    const std::vector<std::string> script = {"boolalpha", ">>bool"};
    EXPECT_EQ(">>bool: 1 count 0 state -e- width 0 at 4",
              lastLine(inputTrace<char16>("true", script)));
    EXPECT_EQ(">>bool: 1 count 0 state --- width 0 at 4",
              lastLine(inputTrace<wchar_t>("true", script)));
    EXPECT_EQ(">>bool: 0 count 0 state b-- width 0 at -1",
              lastLine(inputTrace<char16>("false ", script, {5, true})));
}

TEST(StreamConformanceDifferences, TheLastCodeUnitIsTheEndMark) {
    const orv::ustring text(2, char16(0xFFFF));
    orv::uistringstream in(text);
    EXPECT_EQ("end", orvtest::shownInt<char16>(in.get()));
    EXPECT_TRUE(in.eof() && in.fail());
    in.clear();
    char16 unit;
    EXPECT_EQ(1, in.read(&unit, 1).gcount());
    EXPECT_TRUE(in.good());
    EXPECT_EQ(text[0], unit);
}

} // namespace
