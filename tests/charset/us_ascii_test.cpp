// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief US-ASCII: names, every byte and unit, order of judgement, runs across blocks.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/charset_facts.h"
#include "tests/support/coder_harness.h"
#include "tests/support/one_step.h"

#include <gtest/gtest.h>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::Charset;
using orv::CoderResult;
using orvtest::checkDecoder;
using orvtest::checkEncoder;
using orvtest::decodeStep;
using orvtest::DecodeVector;
using orvtest::encodeStep;
using orvtest::EncodeVector;
using orvtest::units;

TEST(UsAscii, IsAsTheCatalogueSays) {
    orvtest::checkCharsetFacts(
        *Charset::US_ASCII,
        {u"US-ASCII",
         3,
         {u"iso-ir-6", u"ANSI_X3.4-1968", u"ANSI_X3.4-1986", u"ISO_646.irv:1991", u"ISO646-US",
          u"us", u"IBM367", u"cp367", u"csASCII", u"ASCII", u"iso_646.irv:1983", u"ascii7",
          u"default", u"646"},
         1.0F,
         1,
         1.0F,
         1});
    EXPECT_EQ(Charset::forName(u"ASCII7"_u), Charset::US_ASCII);
    EXPECT_EQ(Charset::forName(u"DEFAULT"_u), Charset::US_ASCII);
    EXPECT_EQ(Charset::forName(u"CP-367"_u), Charset::US_ASCII);
}

TEST(UsAsciiDecoder, TakesEveryByte) {
    for (unsigned int value = 0; value < 0x100; ++value) {
        const char byte = static_cast<char>(value);
        const char16_t unit = static_cast<char16_t>(value);
        const bool ascii = value < 0x80;
        const auto step = decodeStep(*Charset::US_ASCII, {&byte, 1}, 1);
        EXPECT_EQ(step.result, ascii ? CoderResult::underflow() : CoderResult::malformed(1));
        EXPECT_EQ(step.inPosition, ascii ? 1U : 0U);
        EXPECT_EQ(step.text, ascii ? std::u16string(1, unit) : u"");
    }
}

TEST(UsAsciiDecoder, JudgesTheByteBeforeTheRoom) {
    auto step = decodeStep(*Charset::US_ASCII, "A\x80", 1);
    EXPECT_EQ(step.result, CoderResult::malformed(1));
    EXPECT_EQ(step.inPosition, 1U);
    EXPECT_EQ(step.text, u"A");
    step = decodeStep(*Charset::US_ASCII, "\x80", 0);
    EXPECT_EQ(step.result, CoderResult::malformed(1));
    step = decodeStep(*Charset::US_ASCII, "A", 0);
    EXPECT_EQ(step.result, CoderResult::overflow());
    EXPECT_EQ(step.inPosition, 0U);
    step = decodeStep(*Charset::US_ASCII, "", 0);
    EXPECT_EQ(step.result, CoderResult::underflow());
}

TEST(UsAsciiDecoder, AgreesInEveryWayOfRunningIt) {
    checkDecoder(*Charset::US_ASCII, DecodeVector());
    checkDecoder(*Charset::US_ASCII, DecodeVector().maps("A", u"A").malformed("\x80"));
    checkDecoder(*Charset::US_ASCII, DecodeVector()
                                         .malformed("\xFF")
                                         .maps({"\0", 1}, {u"\0", 1})
                                         .malformed("\x80")
                                         .malformed("\xC3")
                                         .maps("\x7F", u"\x7F"));
}

TEST(UsAsciiDecoder, StopsAtTheRightByteOfALongRun) {
    for (std::size_t size = 0; size <= 140; ++size) {
        std::string bytes(size, 'a');
        std::u16string text(size, u'a');
        for (std::size_t i = 0; i < size; ++i) {
            bytes[i] = static_cast<char>('!' + i % 90);
            text[i] = static_cast<char16_t>('!' + i % 90);
        }
        ASSERT_EQ(decodeStep(*Charset::US_ASCII, bytes, size).text, text);
        for (std::size_t bad = 0; bad < size; ++bad) {
            std::string broken = bytes;
            broken[bad] = '\x80';
            const auto step = decodeStep(*Charset::US_ASCII, broken, size);
            ASSERT_EQ(step.result, CoderResult::malformed(1));
            ASSERT_EQ(step.inPosition, bad);
            ASSERT_EQ(step.text, text.substr(0, bad));
            const auto cut = decodeStep(*Charset::US_ASCII, bytes, bad);
            ASSERT_EQ(cut.result, CoderResult::overflow());
            ASSERT_EQ(cut.inPosition, bad);
            ASSERT_EQ(cut.text, text.substr(0, bad));
        }
    }
}

TEST(UsAsciiEncoder, TakesEveryUnit) {
    for (unsigned int value = 0; value < 0x10000; ++value) {
        const char16_t unit = static_cast<char16_t>(value);
        const auto step = encodeStep(*Charset::US_ASCII, {&unit, 1}, 1);
        if (value < 0x80) {
            ASSERT_EQ(step.result, CoderResult::underflow());
            ASSERT_EQ(step.text, std::string(1, static_cast<char>(value)));
            continue;
        }
        ASSERT_EQ(step.text, "");
        const bool ignored = step.result == CoderResult::underflow() && step.inPosition == 1;
        const bool waits = step.result == CoderResult::underflow() && step.inPosition == 0;
        ASSERT_EQ(waits, value >= 0xD800 && value < 0xDC00) << value;
        if (value >= 0xDC00 && value < 0xE000) {
            ASSERT_EQ(step.result, CoderResult::malformed(1));
        } else if (!ignored && !waits) {
            ASSERT_EQ(step.result, CoderResult::unmappable(1)) << value;
        }
    }
}

TEST(UsAsciiEncoder, JudgesTheUnitBeforeTheRoom) {
    EXPECT_EQ(encodeStep(*Charset::US_ASCII, u"\u00E9", 1).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(*Charset::US_ASCII, u"\u00E9", 0).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(*Charset::US_ASCII, u"A", 0).result, CoderResult::overflow());
    EXPECT_EQ(encodeStep(*Charset::US_ASCII, u"\U0001F600", 0).result, CoderResult::unmappable(2));
    EXPECT_EQ(encodeStep(*Charset::US_ASCII, units({0xDC00}), 0).result, CoderResult::malformed(1));
    const auto high = encodeStep(*Charset::US_ASCII, units({0xD800}), 0);
    EXPECT_EQ(high.result, CoderResult::underflow());
    EXPECT_EQ(high.inPosition, 0U) << "its partner may still come";
}

TEST(UsAsciiEncoder, AgreesInEveryWayOfRunningIt) {
    checkEncoder(*Charset::US_ASCII, EncodeVector());
    checkEncoder(*Charset::US_ASCII, EncodeVector()
                                         .maps(u"a", "a")
                                         .unmappable(u"\u00E9")
                                         .unmappable(u"\U0001F600")
                                         .maps(u"\u00AD", "")
                                         .malformed(units({0xDC00}))
                                         .maps(u"\x7F", "\x7F"));
    checkEncoder(*Charset::US_ASCII, EncodeVector().malformed(units({0xD800}), 2).maps(u"b", "b"));
    checkEncoder(*Charset::US_ASCII, EncodeVector().maps(u"a", "a").incomplete(units({0xDBFF})));
    checkEncoder(*Charset::US_ASCII, EncodeVector().maps(u"\U000E0001", "").maps(u"a", "a"));
}

TEST(UsAsciiEncoder, StopsAtTheRightUnitOfALongRun) {
    for (std::size_t size = 0; size <= 140; ++size) {
        const std::u16string text(size, u'z');
        ASSERT_EQ(encodeStep(*Charset::US_ASCII, text, size).text, std::string(size, 'z'));
        for (std::size_t bad = 0; bad < size; ++bad) {
            // High byte or low byte alone tells that the unit is none.
            for (const char16_t unit : {u'\x80', u'\x100', u'\xFF00', u'\x147A'}) {
                std::u16string broken = text;
                broken[bad] = unit;
                const auto step = encodeStep(*Charset::US_ASCII, broken, size);
                ASSERT_EQ(step.result, CoderResult::unmappable(1));
                ASSERT_EQ(step.inPosition, bad);
                ASSERT_EQ(step.text, std::string(bad, 'z'));
            }
            const auto cut = encodeStep(*Charset::US_ASCII, text, bad);
            ASSERT_EQ(cut.result, CoderResult::overflow());
            ASSERT_EQ(cut.inPosition, bad);
        }
    }
}

} // namespace
