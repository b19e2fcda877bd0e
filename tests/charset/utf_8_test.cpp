// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8: names, hand-written vectors of every kind of sequence, in every way of running
/// them.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/charset_facts.h"
#include "tests/support/coder_harness.h"
#include "tests/support/one_step.h"

#include <gtest/gtest.h>

#include <string>

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

TEST(Utf8, IsAsTheCatalogueSays) {
    orvtest::checkCharsetFacts(
        *Charset::UTF_8, {u"UTF-8", 106, {u"csUTF8unicode-1-1-utf-8", u"UTF8"}, 1.0F, 1, 1.1F, 3});
}

TEST(Utf8, ItsFirstAliasIsOneString) {
    EXPECT_FALSE(Charset::isSupported(orv::ustring(u"csUTF8"_u)));
    EXPECT_FALSE(Charset::isSupported(orv::ustring(u"unicode-1-1-utf-8"_u)));
    EXPECT_EQ(Charset::forName(u"csUTF8unicode-1-1-utf-8"_u), Charset::UTF_8);
}

// One sequence, with room enough, and what the decoder says of it.
struct Row {
    std::string bytes;
    CoderResult result;
    std::size_t inPosition;
    std::u16string text;
};

TEST(Utf8Decoder, StopsAsTheTableSays) {
    const Row rows[] = {
        {"A\xC3", CoderResult::underflow(), 1, u"A"},
        {"\xC3\x41", CoderResult::malformed(2), 0, u""},
        {"\xC0\x80", CoderResult::malformed(2), 0, u""},
        {"\xC1\x41", CoderResult::malformed(2), 0, u""},
        {"\xC1\xBF", CoderResult::malformed(2), 0, u""},
        {"\xE2\x82", CoderResult::underflow(), 0, u""},
        {"\xE0\x41", CoderResult::underflow(), 0, u""},
        {"\xE2\x28\xA1", CoderResult::malformed(2), 0, u""},
        {"\xE2\x82\x41", CoderResult::malformed(3), 0, u""},
        {"\xE0\x80\x80", CoderResult::malformed(3), 0, u""},
        {"\xE0\x9F\xBF", CoderResult::malformed(3), 0, u""},
        {"\xE0\xA0\x80", CoderResult::underflow(), 3, u"\u0800"},
        {"\xED\x9F\xBF", CoderResult::underflow(), 3, u"\uD7FF"},
        {"\xED\xA0\x80", CoderResult::malformed(3), 0, u""},
        {"\xED\xBF\xBF", CoderResult::malformed(3), 0, u""},
        {"\xEE\x80\x80", CoderResult::underflow(), 3, u"\uE000"},
        {"\xEF\xBF\xBE\xEF\xBF\xBF", CoderResult::underflow(), 6, u"\uFFFE\uFFFF"},
        {"\xEF\xBB\xBF", CoderResult::underflow(), 3, u"\uFEFF"},
        {"\xF0\x90\x80\x80", CoderResult::underflow(), 4, units({0xD800, 0xDC00})},
        {"\xF4\x8F\xBF\xBF", CoderResult::underflow(), 4, units({0xDBFF, 0xDFFF})},
        {"\xF0\x80\x80\x80", CoderResult::malformed(4), 0, u""},
        {"\xF0\x8F\xBF\xBF", CoderResult::malformed(4), 0, u""},
        {"\xF4\x90\x80\x80", CoderResult::malformed(4), 0, u""},
        {"\xF5\x80\x80\x80", CoderResult::malformed(4), 0, u""},
        {"\xF7\xBF\xBF\xBF", CoderResult::malformed(4), 0, u""},
        {"\xF0\x90\x80", CoderResult::underflow(), 0, u""},
        {"\xF0\x41\x41", CoderResult::underflow(), 0, u""},
        {"\xF0\x41\x80\x80", CoderResult::malformed(2), 0, u""},
        {"\xF0\x90\x41\x80", CoderResult::malformed(3), 0, u""},
        {"\xF0\x90\x80\x41", CoderResult::malformed(4), 0, u""},
        {"\xF8", CoderResult::malformed(1), 0, u""},
        {"\xFF", CoderResult::malformed(1), 0, u""},
        {"\x80", CoderResult::malformed(1), 0, u""},
        {"\xBF", CoderResult::malformed(1), 0, u""},
        {"\xC2\x80\xDF\xBF", CoderResult::underflow(), 4, u"\u0080\u07FF"},
    };
    for (const Row& row : rows) {
        const auto step = decodeStep(*Charset::UTF_8, row.bytes, 8);
        EXPECT_EQ(step.result, row.result) << testing::PrintToString(row.bytes);
        EXPECT_EQ(step.inPosition, row.inPosition) << testing::PrintToString(row.bytes);
        EXPECT_EQ(step.text, row.text) << testing::PrintToString(row.bytes);
    }
}

TEST(Utf8Decoder, WritesAPairWholeOrNotAtAll) {
    const auto step = decodeStep(*Charset::UTF_8, "\xF0\x90\x80\x80", 1);
    EXPECT_EQ(step.result, CoderResult::overflow());
    EXPECT_EQ(step.inPosition, 0U);
    EXPECT_EQ(step.text, u"");
}

TEST(Utf8Decoder, SwallowsTheByteThatBreaksASequence) {
    EXPECT_EQ(Charset::UTF_8->decode("\xC3\x41"
                                     "B"),
              u"\uFFFDB"_u);
    const auto decoder = Charset::UTF_8->newDecoder();
    decoder->onMalformedInput(orv::IGNORE);
    EXPECT_EQ(decoder->decode("\xC3\x41"
                              "B"),
              u"B"_u);
}

// Every kind of sequence by itself, in every way of running it.
class Utf8DecoderVectors : public testing::TestWithParam<DecodeVector> {};

TEST_P(Utf8DecoderVectors, AgreeInEveryWay) {
    checkDecoder(*Charset::UTF_8, GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Good, Utf8DecoderVectors,
    testing::Values(DecodeVector(), DecodeVector().maps({"\0", 1}, {u"\0", 1}),
                    DecodeVector().maps("\xC2\x80", u"\u0080").maps("\xDF\xBF", u"\u07FF"),
                    DecodeVector().maps("\xE0\xA0\x80", u"\u0800").maps("\xEF\xBF\xBF", u"\uFFFF"),
                    DecodeVector()
                        .maps("\xF0\x90\x80\x80", u"\U00010000")
                        .maps("\xF4\x8F\xBF\xBF", u"\U0010FFFF"),
                    DecodeVector()
                        .maps("\xF0\x9F\x98\x80", u"\U0001F600")
                        .maps("a", u"a")
                        .maps("\xE2\x82\xAC", u"\u20AC")
                        .maps("\xC3\xA9", u"\u00E9")
                        .maps("\x7F", u"\x7F")));

INSTANTIATE_TEST_SUITE_P(
    Bad, Utf8DecoderVectors,
    testing::Values(DecodeVector().malformed("\x80").maps("a", u"a"),
                    DecodeVector().malformed("\xF8").malformed("\xBF").malformed("\xFF"),
                    DecodeVector().malformed("\xC3\x41").maps("\xC3\xA9", u"\u00E9"),
                    DecodeVector().malformed("\xC0\x80").malformed("\xC1\xBF"),
                    DecodeVector().malformed("\xE2\x28", 3).malformed("\xA1").maps("a", u"a"),
                    DecodeVector().malformed("\xE2\x82\x41").maps("b", u"b"),
                    DecodeVector().malformed("\xE0\x9F\xBF").maps("\xE2\x82\xAC", u"\u20AC"),
                    DecodeVector().malformed("\xED\xA0\x80").malformed("\xED\xB0\x80"),
                    DecodeVector().malformed("\xF0\x41", 4).maps("b", u"b").maps("c", u"c"),
                    DecodeVector().malformed("\xF0\x90\x41", 4).malformed("\x80"),
                    DecodeVector().malformed("\xF0\x90\x80\x41").maps("z", u"z"),
                    DecodeVector().malformed("\xF0\x8F\xBF\xBF").maps("z", u"z"),
                    DecodeVector().malformed("\xF4\x90\x80\x80").malformed("\xF7\xBF\xBF\xBF")));

INSTANTIATE_TEST_SUITE_P(
    CutShort, Utf8DecoderVectors,
    testing::Values(DecodeVector().maps("A", u"A").incomplete("\xC3"),
                    DecodeVector().incomplete("\xE2"), DecodeVector().incomplete("\xE2\x82"),
                    DecodeVector().incomplete("\xE0\x41"), DecodeVector().incomplete("\xF0\x90"),
                    DecodeVector().maps("\xC3\xA9", u"\u00E9").incomplete("\xF0\x90\x80"),
                    DecodeVector().incomplete("\xF4\x41\xC3")));

struct EncodeRow {
    std::u16string text;
    std::size_t room;
    CoderResult result;
    std::size_t inPosition;
    std::string bytes;
};

TEST(Utf8Encoder, StopsAsTheTableSays) {
    const EncodeRow rows[] = {
        {u"\x7F\u0080\u07FF\u0800\uFFFF", 12, CoderResult::underflow(), 5,
         "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"},
        {u"\uD7FF\uE000", 6, CoderResult::underflow(), 2, "\xED\x9F\xBF\xEE\x80\x80"},
        {u"\U00010000", 4, CoderResult::underflow(), 2, "\xF0\x90\x80\x80"},
        {u"\U0010FFFF", 4, CoderResult::underflow(), 2, "\xF4\x8F\xBF\xBF"},
        {u"\U00010000", 3, CoderResult::overflow(), 0, ""},
        {u"\u20AC", 2, CoderResult::overflow(), 0, ""},
        {u"\u00E9", 1, CoderResult::overflow(), 0, ""},
        {u"A", 0, CoderResult::overflow(), 0, ""},
        {units({0xDC00}), 9, CoderResult::malformed(1), 0, ""},
        {units({0xDC00}), 0, CoderResult::malformed(1), 0, ""},
        {units({0xD800, 0x41}), 9, CoderResult::malformed(1), 0, ""},
        {units({0xD800, 0xD800}), 9, CoderResult::malformed(1), 0, ""},
        {units({0xD800, 0x41}), 0, CoderResult::malformed(1), 0, ""},
        {units({u'A', 0xD800}), 9, CoderResult::underflow(), 1, "A"},
        {units({0xDBFF}), 0, CoderResult::underflow(), 0, ""},
    };
    for (const EncodeRow& row : rows) {
        const auto step = encodeStep(*Charset::UTF_8, row.text, row.room);
        EXPECT_EQ(step.result, row.result) << testing::PrintToString(row.text);
        EXPECT_EQ(step.inPosition, row.inPosition) << testing::PrintToString(row.text);
        EXPECT_EQ(step.text, row.bytes) << testing::PrintToString(row.text);
    }
}

class Utf8EncoderVectors : public testing::TestWithParam<EncodeVector> {};

TEST_P(Utf8EncoderVectors, AgreeInEveryWay) {
    checkEncoder(*Charset::UTF_8, GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    All, Utf8EncoderVectors,
    testing::Values(
        EncodeVector(), EncodeVector().maps({u"\0", 1}, {"\0", 1}),
        EncodeVector().maps(u"\u0080", "\xC2\x80").maps(u"\u07FF", "\xDF\xBF"),
        EncodeVector().maps(u"\u0800", "\xE0\xA0\x80").maps(u"\uFFFF", "\xEF\xBF\xBF"),
        EncodeVector()
            .maps(u"\U00010000", "\xF0\x90\x80\x80")
            .maps(u"\U0010FFFF", "\xF4\x8F\xBF\xBF"),
        EncodeVector()
            .maps(u"\U0001F600", "\xF0\x9F\x98\x80")
            .maps(u"a", "a")
            .maps(u"\u20AC", "\xE2\x82\xAC")
            .maps(u"\u00E9", "\xC3\xA9"),
        EncodeVector().malformed(units({0xDC00})).maps(u"a", "a").malformed(units({0xDFFF})),
        EncodeVector().malformed(units({0xD800}), 2).maps(u"A", "A"),
        EncodeVector()
            .malformed(units({0xD800}), 2)
            .maps(u"\U00010000", "\xF0\x90\x80\x80")
            .malformed(units({0xDC00})),
        EncodeVector().maps(u"\u20AC", "\xE2\x82\xAC").incomplete(units({0xD800})),
        EncodeVector().malformed(units({0xDBFF}), 2).incomplete(units({0xDBFF}))));

} // namespace
