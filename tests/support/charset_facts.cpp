// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the catalogue says about a character set, compared with the set and its coders.
#include "tests/support/charset_facts.h"

#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace orvtest {

void checkCharsetFacts(orv::Charset& charset, const CharsetFacts& facts) {
    using namespace orv::literals;
    EXPECT_EQ(orv::to_u16string(charset.name()), facts.name);
    EXPECT_EQ(charset.MIBenum(), facts.mibEnum);
    EXPECT_EQ(orv::Charset::forName(orv::as_ustring_ref(facts.name)), &charset);

    std::multiset<std::u16string> expected(facts.aliases.begin(), facts.aliases.end());
    std::multiset<std::u16string> actual;
    for (const orv::ustring_ref& alias : charset.aliases()) {
        actual.insert(orv::to_u16string(alias));
    }
    EXPECT_EQ(actual, expected);
    for (const std::u16string_view alias : facts.aliases) {
        EXPECT_EQ(orv::Charset::forName(orv::as_ustring_ref(alias)), &charset)
            << testing::PrintToString(alias);
    }

    const auto decoder = charset.newDecoder();
    EXPECT_EQ(decoder->charset(), &charset);
    EXPECT_EQ(decoder->averageCharsPerByte(), facts.averageCharsPerByte);
    EXPECT_EQ(decoder->maxCharsPerByte(), facts.maxCharsPerByte);
    EXPECT_EQ(decoder->replacement(), u"\uFFFD"_u);
    EXPECT_EQ(decoder->malformedInputAction(), orv::REPORT);
    EXPECT_EQ(decoder->unmappableCharacterAction(), orv::REPORT);
    EXPECT_FALSE(decoder->isAutoDetecting());

    const auto encoder = charset.newEncoder();
    EXPECT_EQ(encoder->charset(), &charset);
    EXPECT_EQ(encoder->averageBytesPerChar(), facts.averageBytesPerChar);
    EXPECT_EQ(encoder->maxBytesPerChar(), facts.maxBytesPerChar);
    EXPECT_EQ(encoder->replacement(), facts.encoderReplacement);
    EXPECT_EQ(encoder->malformedInputAction(), orv::REPORT);
    EXPECT_EQ(encoder->unmappableCharacterAction(), orv::REPORT);
    EXPECT_NE(charset.newDecoder(), nullptr);
}

} // namespace orvtest
