// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers read from text and written to text by the facets for char16, with any
/// punctuation.
#ifndef ORV_TESTS_LOCALE_NUMBER_FACETS_H
#define ORV_TESTS_LOCALE_NUMBER_FACETS_H

#include "tests/support/both_widths.h"

#include <gtest/gtest.h>

namespace orvtest {

using orv::char16;

inline const Punctuation PLAIN{u'.', u',', ""};
inline const Punctuation GROUPED{u',', u'.', "\3"};

/// What a facet reads, with the flags \p flags.
template <class Value>
Reading<Value> readNumber(const std::u16string& text, const Punctuation& punctuation = PLAIN,
                          std::ios_base::fmtflags flags = std::ios_base::dec) {
    std::wios stream(nullptr);
    stream.imbue(localeOf(punctuation));
    stream.flags(flags);
    return read<char16, Value>(stream, text);
}

/// How a number is to look.
struct Look {
    std::ios_base::fmtflags flags = std::ios_base::dec;
    std::streamsize precision = 6;
    std::streamsize width = 0;
    Punctuation punctuation = PLAIN;
};

/// What a facet writes; the fill is '*'.
template <class Value>
std::u16string writeNumber(Value value, const Look& look = {}) {
    std::wios stream(nullptr);
    stream.imbue(localeOf(look.punctuation));
    stream.flags(look.flags);
    stream.precision(look.precision);
    return write<char16>(stream, look.width, u'*', value);
}

/// What reading a text is to give.
template <class Value>
struct ReadingRow {
    std::u16string text;
    Value value;
    std::ios_base::iostate state;
    std::size_t rest;
};

template <class Value>
void expectRow(const ReadingRow<Value>& row, const Punctuation& punctuation = PLAIN,
               std::ios_base::fmtflags flags = std::ios_base::dec) {
    const auto reading = readNumber<Value>(row.text, punctuation, flags);
    const auto text = convertText<char>(row.text);
    EXPECT_EQ(reading.value, row.value) << text;
    EXPECT_EQ(reading.state, row.state) << text;
    EXPECT_EQ(reading.rest, row.rest) << text;
}

} // namespace orvtest

#endif
