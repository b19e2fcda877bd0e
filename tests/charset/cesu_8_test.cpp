// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief CESU-8: names, and every kind of sequence in every way of running it.
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

TEST(Cesu8, IsAsTheCatalogueSays) {
    orvtest::checkCharsetFacts(
        *Charset::CESU_8, {u"CESU-8", 1016, {u"csCESU8", u"csCESU-8", u"CESU8"}, 1.0F, 1, 1.1F, 3});
}

struct Row {
    std::string bytes;
    CoderResult result;
    std::size_t inPosition;
    std::u16string text;
};

TEST(Cesu8Decoder, StopsAsTheTableSays) {
    const Row rows[] = {
        {"\xED\xA0\x80", CoderResult::underflow(), 3, units({0xD800})},
        {"\xED\xBF\xBF", CoderResult::underflow(), 3, units({0xDFFF})},
        {"\xED\xA0\x80\xED\xB0\x80", CoderResult::underflow(), 6, u"\U00010000"},
        {"\xED\xB0\x80\xED\xA0\x80", CoderResult::underflow(), 6, units({0xDC00, 0xD800})},
        {"\xF0\x90\x80\x80", CoderResult::malformed(1), 0, u""},
        {"\xF0", CoderResult::malformed(1), 0, u""},
        {"\xF7\xBF\xBF\xBF", CoderResult::malformed(1), 0, u""},
        {"\xF8", CoderResult::malformed(1), 0, u""},
        {"\xFF", CoderResult::malformed(1), 0, u""},
        {"\x80", CoderResult::malformed(1), 0, u""},
        {"\xC0\x80", CoderResult::malformed(2), 0, u""},
        {"\xC1\x41", CoderResult::malformed(2), 0, u""},
        {"\xC3\x41", CoderResult::malformed(2), 0, u""},
        {"\xE0\x9F\xBF", CoderResult::malformed(3), 0, u""},
        {"\xE2\x28\xA1", CoderResult::malformed(2), 0, u""},
        {"\xE2\x82\x41", CoderResult::malformed(3), 0, u""},
        {"A\xE0\x41", CoderResult::underflow(), 1, u"A"},
        {"\xED\xA0", CoderResult::underflow(), 0, u""},
    };
    for (const Row& row : rows) {
        const auto step = decodeStep(*Charset::CESU_8, row.bytes, 8);
        EXPECT_EQ(step.result, row.result) << testing::PrintToString(row.bytes);
        EXPECT_EQ(step.inPosition, row.inPosition) << testing::PrintToString(row.bytes);
        EXPECT_EQ(step.text, row.text) << testing::PrintToString(row.bytes);
    }
}

TEST(Cesu8Decoder, TheOutputMayFillBetweenTheHalvesOfAPair) {
    const auto step = decodeStep(*Charset::CESU_8, "\xED\xA0\x80\xED\xB0\x80", 1);
    EXPECT_EQ(step.result, CoderResult::overflow());
    EXPECT_EQ(step.inPosition, 3U);
    EXPECT_EQ(step.text, units({0xD800}));
}

class Cesu8DecoderVectors : public testing::TestWithParam<DecodeVector> {};

TEST_P(Cesu8DecoderVectors, AgreeInEveryWay) {
    checkDecoder(*Charset::CESU_8, GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    All, Cesu8DecoderVectors,
    testing::Values(
        DecodeVector()
            .maps("\xED\xA0\x80", units({0xD800}))
            .maps("\xED\xB0\x80", units({0xDC00}))
            .maps("a", u"a"),
        DecodeVector().maps("\xED\xBF\xBF", units({0xDFFF})).maps("\xC2\x80", u"\u0080"),
        DecodeVector().maps("\xEF\xBF\xBF", u"\uFFFF").maps("\xE0\xA0\x80", u"\u0800"),
        DecodeVector().malformed("\xF0").malformed("\x90").malformed("\x80").malformed("\x80"),
        DecodeVector().malformed("\xF7").maps("a", u"a").malformed("\xF8"),
        DecodeVector().malformed("\xC0\x80").malformed("\xC3\x41").malformed("\xBF"),
        DecodeVector().malformed("\xE2\x28", 3).malformed("\xA1").maps("a", u"a"),
        DecodeVector().malformed("\xE0\x9F\xBF").malformed("\xE2\x82\x41"),
        DecodeVector().maps("\xED\xA0\x80", units({0xD800})).incomplete("\xED\xB0"),
        DecodeVector().incomplete("\xE0\x41"), DecodeVector().incomplete("\xC3")));

TEST(Cesu8Encoder, WritesEachHalfOfAPairInThreeBytes) {
    EXPECT_EQ(encodeStep(*Charset::CESU_8, u"\U00010000", 6).text, "\xED\xA0\x80\xED\xB0\x80");
    EXPECT_EQ(encodeStep(*Charset::CESU_8, u"\U0010FFFF", 6).text, "\xED\xAF\xBF\xED\xBF\xBF");
    EXPECT_EQ(encodeStep(*Charset::CESU_8, u"\U0001F600", 6).text, "\xED\xA0\xBD\xED\xB8\x80");
    const auto step = encodeStep(*Charset::CESU_8, u"\U00010000", 5);
    EXPECT_EQ(step.result, CoderResult::overflow());
    EXPECT_EQ(step.inPosition, 0U);
    EXPECT_EQ(step.text, "") << "the halves stay together";
}

TEST(Cesu8Encoder, RefusesLoneSurrogatesThatTheDecoderPasses) {
    const orv::ustring lone = Charset::CESU_8->decode("\xED\xA0\x80");
    EXPECT_EQ(lone, orv::ustring(1, u'\xD800'));
    EXPECT_THROW(Charset::CESU_8->newEncoder()->encode(lone), orv::MalformedInputError);
    EXPECT_EQ(encodeStep(*Charset::CESU_8, units({0xDC00}), 9).result, CoderResult::malformed(1));
    const auto high = encodeStep(*Charset::CESU_8, units({0xD800, 0x41}), 9);
    EXPECT_EQ(high.result, CoderResult::malformed(1));
    EXPECT_EQ(high.inPosition, 0U);
    EXPECT_EQ(encodeStep(*Charset::CESU_8, units({0xD800}), 9).result, CoderResult::underflow());
    EXPECT_EQ(encodeStep(*Charset::CESU_8, u"\u20AC", 2).result, CoderResult::overflow());
}

class Cesu8EncoderVectors : public testing::TestWithParam<EncodeVector> {};

TEST_P(Cesu8EncoderVectors, AgreeInEveryWay) {
    checkEncoder(*Charset::CESU_8, GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    All, Cesu8EncoderVectors,
    testing::Values(
        EncodeVector()
            .maps(u"\U0001F600", "\xED\xA0\xBD\xED\xB8\x80")
            .maps(u"a", "a")
            .maps(u"\u20AC", "\xE2\x82\xAC")
            .maps(u"\u00E9", "\xC3\xA9"),
        EncodeVector()
            .maps(u"\U00010000", "\xED\xA0\x80\xED\xB0\x80")
            .maps(u"\U0010FFFF", "\xED\xAF\xBF\xED\xBF\xBF"),
        EncodeVector().malformed(units({0xDC00})).malformed(units({0xD800}), 2).maps(u"A", "A"),
        EncodeVector().maps(u"\uFFFF", "\xEF\xBF\xBF").incomplete(units({0xD800}))));

} // namespace
