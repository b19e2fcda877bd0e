// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief ISO-8859-1: names, every byte and unit, runs across blocks.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/charset_facts.h"
#include "tests/support/coder_harness.h"
#include "tests/support/one_step.h"

#include <gtest/gtest.h>

namespace {

using namespace orv::literals;
using orv::Charset;
using orv::CoderResult;
using orvtest::checkDecoder;
using orvtest::checkEncoder;
using orvtest::decodeStep;
using orvtest::DecodeVector;
using orvtest::encodeStep;
using orvtest::EncodeVector;
using orvtest::units;

TEST(Iso8859_1, IsAsTheCatalogueSays) {
    orvtest::checkCharsetFacts(
        *Charset::ISO_8859_1,
        {u"ISO-8859-1",
         4,
         {u"ISO_8859-1:1987", u"iso-ir-100", u"ISO_8859-1", u"latin1", u"l1", u"IBM819", u"CP819",
          u"csISOLatin1", u"819", u"ISO8859-1", u"8859_1", u"ISO8859_1", u"ISO_8859_1", u"IBM-819"},
         1.0F,
         1,
         1.0F,
         1});
    EXPECT_EQ(Charset::forName(u"L1"_u), Charset::ISO_8859_1);
    EXPECT_EQ(Charset::forName(u"iso8859_1"_u), Charset::ISO_8859_1);
}

TEST(Iso8859_1Decoder, TakesEveryByteForTheUnitOfItsValue) {
    std::string bytes;
    std::u16string text;
    for (unsigned int value = 0; value < 0x100; ++value) {
        bytes += static_cast<char>(value);
        text += static_cast<char16_t>(value);
    }
    const auto step = decodeStep(*Charset::ISO_8859_1, bytes, 256);
    EXPECT_EQ(step.result, CoderResult::underflow());
    EXPECT_EQ(step.text, text);
}

TEST(Iso8859_1Decoder, FillsTheRoomAndGoesOn) {
    const auto decoder = Charset::ISO_8859_1->newDecoder();
    const unsigned char bytes[] = {'a', 0x80, 0x9F, 0xFF, 'b'};
    orv::char16 text[5] = {};
    orv::Buffer<const unsigned char> in(bytes, 5);
    orv::Buffer<orv::char16> out(text, 0, 3, 5);
    EXPECT_EQ(decoder->decode(in, out, false), CoderResult::overflow());
    EXPECT_EQ(in.position(), 3U);
    EXPECT_EQ(out.position(), 3U);
    EXPECT_EQ(text[3], u'\0');
    out.limit(5);
    EXPECT_EQ(decoder->decode(in, out, false), CoderResult::underflow());
    EXPECT_EQ(orv::ustring(text, 5), u"a\u0080\u009F\u00FF"
                                     u"b"_u);
}

TEST(Iso8859_1Decoder, AgreesInEveryWayOfRunningIt) {
    checkDecoder(*Charset::ISO_8859_1, DecodeVector());
    checkDecoder(*Charset::ISO_8859_1, DecodeVector()
                                           .maps({"\0", 1}, {u"\0", 1})
                                           .maps("\x7F", u"\x7F")
                                           .maps("\x80", u"\u0080")
                                           .maps("\xFF", u"\u00FF")
                                           .maps("z", u"z"));
}

TEST(Iso8859_1Decoder, WidensRunsOfAnyLength) {
    for (std::size_t size = 0; size <= 200; ++size) {
        std::string bytes;
        std::u16string text;
        for (std::size_t i = 0; i < size; ++i) {
            bytes += static_cast<char>(i * 37 + size);
            text += static_cast<unsigned char>(bytes.back());
        }
        ASSERT_EQ(decodeStep(*Charset::ISO_8859_1, bytes, size).text, text);
        const auto cut = decodeStep(*Charset::ISO_8859_1, bytes, size / 2);
        ASSERT_EQ(cut.text, text.substr(0, size / 2));
        ASSERT_EQ(cut.inPosition, size / 2);
        ASSERT_EQ(cut.result, size == 0 ? CoderResult::underflow() : CoderResult::overflow());
    }
}

TEST(Iso8859_1Encoder, TakesEveryUnit) {
    for (unsigned int value = 0; value < 0x10000; ++value) {
        const char16_t unit = static_cast<char16_t>(value);
        const auto step = encodeStep(*Charset::ISO_8859_1, {&unit, 1}, 1);
        if (value < 0x100) {
            ASSERT_EQ(step.result, CoderResult::underflow());
            ASSERT_EQ(step.text, std::string(1, static_cast<char>(value)));
            continue;
        }
        ASSERT_EQ(step.text, "");
        const bool waits = step.result == CoderResult::underflow() && step.inPosition == 0;
        ASSERT_EQ(waits, value >= 0xD800 && value < 0xDC00) << value;
        ASSERT_EQ(step.result == CoderResult::malformed(1), value >= 0xDC00 && value < 0xE000);
    }
    EXPECT_EQ(encodeStep(*Charset::ISO_8859_1, u"\u0100", 1).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(*Charset::ISO_8859_1, u"\uFFFF", 1).result, CoderResult::unmappable(1));
}

TEST(Iso8859_1Encoder, JudgesTheUnitBeforeTheRoom) {
    EXPECT_EQ(encodeStep(*Charset::ISO_8859_1, u"\u0100", 0).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(*Charset::ISO_8859_1, u"\u00FF", 0).result, CoderResult::overflow());
    EXPECT_EQ(encodeStep(*Charset::ISO_8859_1, u"\U0001F600", 0).result,
              CoderResult::unmappable(2));
    EXPECT_EQ(encodeStep(*Charset::ISO_8859_1, units({0xDC00}), 1).result,
              CoderResult::malformed(1));
    const auto high = encodeStep(*Charset::ISO_8859_1, units({u'a', 0xD800}), 9);
    EXPECT_EQ(high.result, CoderResult::underflow());
    EXPECT_EQ(high.inPosition, 1U);
}

TEST(Iso8859_1Encoder, AgreesInEveryWayOfRunningIt) {
    checkEncoder(*Charset::ISO_8859_1, EncodeVector()
                                           .maps(u"\u00FF", "\xFF")
                                           .unmappable(u"\u0100")
                                           .unmappable(u"\U0001F600")
                                           .maps(u"\u00AD", "\xAD")
                                           .maps(u"\u200B", "")
                                           .malformed(units({0xDC00})));
    checkEncoder(*Charset::ISO_8859_1,
                 EncodeVector().malformed(units({0xD800}), 2).maps(u"\u0080", "\x80"));
    checkEncoder(*Charset::ISO_8859_1, EncodeVector().maps(u"a", "a").incomplete(units({0xD800})));
}

TEST(Iso8859_1Encoder, StopsAtTheRightUnitOfALongRun) {
    for (std::size_t size = 0; size <= 140; ++size) {
        const std::u16string text(size, u'\xE9');
        ASSERT_EQ(encodeStep(*Charset::ISO_8859_1, text, size).text, std::string(size, '\xE9'));
        for (std::size_t bad = 0; bad < size; ++bad) {
            for (const char16_t unit : {u'\x100', u'\x8000', u'\xFFFF'}) {
                std::u16string broken = text;
                broken[bad] = unit;
                const auto step = encodeStep(*Charset::ISO_8859_1, broken, size);
                ASSERT_EQ(step.result, CoderResult::unmappable(1));
                ASSERT_EQ(step.inPosition, bad);
            }
            const auto cut = encodeStep(*Charset::ISO_8859_1, text, bad);
            ASSERT_EQ(cut.result, CoderResult::overflow());
            ASSERT_EQ(cut.inPosition, bad);
        }
    }
}

} // namespace
