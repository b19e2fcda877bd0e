// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal text read as a whole does what reading it by characters does.
#include "orv/liborv/decimal/parse.h"

#include "tests/liborv/decimal/decimal_reading.h"
#include "tests/liborv/decimal/decimal_texts.h"
#include "tests/reference/decimal_text_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

using orvtest::begin;
using orvtest::digitsOf;
using orvtest::feed;
using orvtest::ModelReading;
using orvtest::Reading;

bool isSame(const DecimalParseState& a, const DecimalParseState& b) {
    const ODecimal128 x = orvDec128ParseGetValue(&a);
    const ODecimal128 y = orvDec128ParseGetValue(&b);
    return x.low == y.low && x.high == y.high &&
           orvDec64ParseGetValue(&a).bits == orvDec64ParseGetValue(&b).bits &&
           orvDec32ParseGetValue(&a).bits == orvDec32ParseGetValue(&b).bits;
}

TEST(DecimalParseText, ReadsAsTheCharactersOneByOne) {
    orvtest::NumberSource source(4);
    const ModelReading reading{'.', ',', true};
    for (std::size_t i = orvtest::caseCount(150000); i > 0; --i) {
        const bool any = source.coin();
        const std::string text =
            any ? orvtest::anyText(source, '.', ',') : orvtest::numberText(source);
        const int digits = digitsOf(source);
        const Reading fed = feed(text, digits, reading);
        DecimalParseState sized = begin(digits, reading).state;
        DecimalParseState ended = sized;
        std::size_t complete = 0;
        ASSERT_EQ(orvDecParseText(&sized, text.data(), text.size(), &complete), fed.taken) << text;
        ASSERT_EQ(complete, fed.complete) << text;
        ASSERT_TRUE(isSame(sized, fed.state)) << text;
        const std::size_t length = std::strlen(text.c_str());
        ASSERT_EQ(orvDecParseText(&ended, text.c_str(), SIZE_MAX, nullptr),
                  std::min(fed.taken, length));
        ASSERT_TRUE(isSame(ended, fed.state)) << text;
    }
}

TEST(DecimalParseText, EndsRunsOfDigitsAtAnyOtherCharacter) {
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        if ((c >= '0' && c <= '9') || c == '.' || c == 'e' || c == 'E') {
            continue;
        }
        for (std::size_t at = 1; at < 12; ++at) {
            std::string text(20, '7');
            text[at] = c;
            DecimalParseState state = begin(34, {}).state;
            std::size_t complete = 0;
            ASSERT_EQ(orvDecParseText(&state, text.data(), text.size(), &complete), at) << code;
            ASSERT_EQ(complete, at);
            ASSERT_TRUE(isSame(state, feed(text.substr(0, at), 34).state)) << code << ' ' << at;
        }
    }
}

TEST(DecimalParseText, ReadsOnAcrossPieces) {
    orvtest::NumberSource source(5);
    const ModelReading reading{'.', ',', true};
    for (std::size_t i = orvtest::caseCount(100000); i > 0; --i) {
        const std::string text = orvtest::numberText(source) + "x";
        const std::size_t cut = source.below(static_cast<unsigned>(text.size()) + 1);
        const Reading fed = feed(text, 34, reading);
        DecimalParseState first = begin(34, reading).state;
        std::size_t before = 0;
        std::size_t after = 0;
        const std::size_t taken = orvDecParseText(&first, text.data(), cut, &before);
        DecimalParseState second = first;
        orvDecParseText(&first, "9", 1, nullptr); // does nothing to the copy
        std::size_t rest = 0;
        if (taken == cut) {
            rest = orvDecParseText(&second, text.data() + cut, text.size() - cut, &after);
        }
        ASSERT_EQ(taken + rest, fed.taken) << text << " cut at " << cut;
        ASSERT_EQ(after == 0 ? before : cut + after, fed.complete) << text << " cut at " << cut;
        ASSERT_TRUE(isSame(second, fed.state)) << text << " cut at " << cut;
    }
}

TEST(DecimalParseText, TakesNothingOfAnEmptyText) {
    DecimalParseState state = begin(16, {}).state;
    std::size_t complete = 7;
    EXPECT_EQ(orvDecParseText(&state, nullptr, 0, &complete), 0U);
    EXPECT_EQ(complete, 0U);
    EXPECT_EQ(orvDecParseText(&state, "", SIZE_MAX, &complete), 0U);
    EXPECT_EQ(orvDec64ParseGetValue(&state).bits, 0x7C00000000000000U);
}

} // namespace
