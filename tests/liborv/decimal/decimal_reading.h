// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal text read character by character, with what came of each.
#ifndef ORV_TESTS_LIBORV_DECIMAL_DECIMAL_READING_H
#define ORV_TESTS_LIBORV_DECIMAL_DECIMAL_READING_H

#include "orv/liborv/decimal/parse.h"

#include "tests/reference/decimal_text_model.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace orvtest {

/// What came of feeding a text, character by character.
struct Reading {
    DecimalParseState state;
    std::size_t complete = 0; // length of the longest complete number
    std::size_t taken = 0;    // characters before the stop
    std::string results;      // one of "C" (complete), "." (more) and "S" (stop) for each call
};

inline Reading begin(int maxDigits, const ModelReading& reading) {
    Reading begun;
    EXPECT_EQ(orvDecParseInit(&begun.state, maxDigits, reading.point, reading.separator,
                              reading.skipsSpace ? ORV_DEC_PARSE_SKIP_SPACE : 0),
              0);
    return begun;
}

/// Feeds a text up to the character that stops.
inline Reading feed(std::string_view text, int maxDigits = 16, const ModelReading& reading = {}) {
    Reading fed = begin(maxDigits, reading);
    for (const char c : text) {
        const int result = orvDecParseNextChar(&fed.state, c);
        fed.results += result == ORV_DEC_PARSE_COMPLETE ? 'C'
                       : result == ORV_DEC_PARSE_STOP   ? 'S'
                       : result == 0                    ? '.'
                                                        : '?';
        if (result == ORV_DEC_PARSE_STOP) {
            break;
        }
        ++fed.taken;
        fed.complete = result == ORV_DEC_PARSE_COMPLETE ? fed.taken : fed.complete;
    }
    return fed;
}

/// The digits of one of the formats.
inline int digitsOf(orvtest::NumberSource& source) {
    const int digits[] = {7, 16, 34};
    return digits[source.below(3)];
}

} // namespace orvtest

#endif
