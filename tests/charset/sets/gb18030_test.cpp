// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief GB18030: forms of one, two and four bytes, where the coders stop, and every way of
/// running them.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
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

Charset& gb18030() {
    return *Charset::forName(u"GB18030"_u);
}

struct StopRow {
    std::string bytes;
    CoderResult result;
};

TEST(Gb18030Decoder, StopsAsTheTableSays) {
    const StopRow rows[] = {
        {"\x81", CoderResult::underflow()},
        {"\x81\x30", CoderResult::underflow()},
        {"\x81\x30\x81", CoderResult::underflow()},
        {"\x80", CoderResult::malformed(1)},
        {"\xFF", CoderResult::malformed(1)},
        {"\x81\x7F", CoderResult::malformed(2)},
        {"\x81\xFF", CoderResult::malformed(2)},
        {"\x81\x20", CoderResult::malformed(2)},
        {"\x81\x2F", CoderResult::malformed(2)},
        {"\x81\x3A", CoderResult::malformed(2)},
        {"\x81\x30\x20", CoderResult::malformed(3)},
        {"\x81\x30\x80", CoderResult::malformed(3)},
        {"\x81\x30\xFF", CoderResult::malformed(3)},
        {"\x81\x30\x81\x20", CoderResult::malformed(4)},
        {"\x81\x30\x81\x2F", CoderResult::malformed(4)},
        {"\x81\x30\x81\x3A", CoderResult::malformed(4)},
        {"\x84\x32\x81\x30", CoderResult::unmappable(4)},
        {"\x84\x31\xA5\x30", CoderResult::unmappable(4)},
        {"\x8F\x39\xFE\x39", CoderResult::unmappable(4)},
        {"\xE3\x32\x9A\x36", CoderResult::unmappable(4)},
        {"\xFE\x39\xFE\x39", CoderResult::unmappable(4)},
    };
    for (const StopRow& row : rows) {
        // A stop comes before any look at the room, and whatever follows.
        for (const std::size_t room : {0U, 9U}) {
            const auto step = decodeStep(gb18030(), row.bytes, room);
            EXPECT_EQ(step.result, row.result) << testing::PrintToString(row.bytes);
            EXPECT_EQ(step.inPosition, 0U) << testing::PrintToString(row.bytes);
            EXPECT_EQ(step.text, u"") << testing::PrintToString(row.bytes);
        }
        if (row.result.isError()) {
            const auto step = decodeStep(gb18030(), row.bytes + "0000000000", 20);
            EXPECT_EQ(step.result, row.result) << testing::PrintToString(row.bytes);
        }
    }
}

TEST(Gb18030Decoder, DecodesTheEndsOfEachStretch) {
    const struct {
        std::string bytes;
        std::u16string text;
    } rows[] = {
        {{"\0", 1}, {u"\0", 1}},
        {"\x7F", u"\x7F"},
        {"\x81\x40", u"\u4E02"},
        {"\xFE\xFE", u"\uE4C5"},
        {"\x81\x30\x81\x30", u"\u0080"},
        {"\x84\x31\xA4\x37", u"\uFFFD"},
        {"\x84\x31\xA4\x39", u"\uFFFF"},
        {"\x90\x30\x81\x30", u"\U00010000"},
        {"\xE3\x32\x9A\x35", u"\U0010FFFF"},
        {"\xA2\xE3", u"\u20AC"},
    };
    for (const auto& row : rows) {
        const auto decoded = decodeStep(gb18030(), row.bytes, 2);
        EXPECT_EQ(decoded.text, row.text) << testing::PrintToString(row.bytes);
        EXPECT_EQ(decoded.inPosition, row.bytes.size()) << testing::PrintToString(row.bytes);
        EXPECT_EQ(encodeStep(gb18030(), row.text, 4).text, row.bytes);
    }
}

TEST(Gb18030Decoder, WritesBothHalvesOfAPairOrNone) {
    const auto full = decodeStep(gb18030(), "\x90\x30\x81\x30", 1);
    EXPECT_EQ(full.result, CoderResult::overflow());
    EXPECT_EQ(full.inPosition, 0U);
    EXPECT_EQ(full.text, u"");
    EXPECT_EQ(decodeStep(gb18030(), "\x90\x30\x81\x30", 2).text, u"\U00010000");
    EXPECT_EQ(decodeStep(gb18030(), "\x81\x30\x81\x30", 0).result, CoderResult::overflow());
    EXPECT_EQ(decodeStep(gb18030(), "\x81\x40", 0).result, CoderResult::overflow());
    EXPECT_EQ(decodeStep(gb18030(), "A", 0).result, CoderResult::overflow());
    EXPECT_EQ(decodeStep(gb18030(), "", 0).result, CoderResult::underflow());
}

TEST(Gb18030Encoder, StopsBeforeAFormThatHasNoRoom) {
    for (std::size_t room = 0; room < 4; ++room) {
        for (const std::u16string_view text : {u"\u0080", u"\U00010000"}) {
            const auto step = encodeStep(gb18030(), text, room);
            EXPECT_EQ(step.result, CoderResult::overflow()) << room;
            EXPECT_EQ(step.inPosition, 0U) << room;
            EXPECT_EQ(step.text, "") << room;
        }
    }
    EXPECT_EQ(encodeStep(gb18030(), u"\u4E00", 1).result, CoderResult::overflow());
    EXPECT_EQ(encodeStep(gb18030(), u"\u4E00", 2).text, "\xD2\xBB");
    EXPECT_EQ(encodeStep(gb18030(), u"A", 0).result, CoderResult::overflow());
}

TEST(Gb18030Encoder, JudgesSurrogatesBeforeTheRoom) {
    EXPECT_EQ(encodeStep(gb18030(), units({0xDC00}), 0).result, CoderResult::malformed(1));
    EXPECT_EQ(encodeStep(gb18030(), units({0xDFFF, 0xDFFF}), 9).result, CoderResult::malformed(1));
    EXPECT_EQ(encodeStep(gb18030(), units({0xD800, 0x41}), 0).result, CoderResult::malformed(1));
    EXPECT_EQ(encodeStep(gb18030(), units({0xD800, 0xDBFF}), 9).result, CoderResult::malformed(1));
    const auto high = encodeStep(gb18030(), units({0x41, 0xDBFF}), 9);
    EXPECT_EQ(high.result, CoderResult::underflow());
    EXPECT_EQ(high.inPosition, 1U);
}

TEST(Gb18030, TakesEveryCodePointThereAndBack) {
    const auto decoder = gb18030().newDecoder();
    const auto encoder = gb18030().newEncoder();
    orv::ustring text;
    for (char32_t value = 0; value < 0x110000; ++value) {
        if (value >= 0xD800 && value < 0xE000) {
            continue;
        }
        if (value < 0x10000) {
            text.push_back(orv::char16(value));
        } else {
            text.push_back(orv::char16(0xD7C0 + (value >> 10)));
            text.push_back(orv::char16(0xDC00 | (value & 0x3FF)));
        }
    }
    const std::string bytes = encoder->encode(text);
    // 23,940 pairs, and all that is not ASCII or a pair in four bytes.
    EXPECT_EQ(bytes.size(), 128U + 23'940U * 2 + (0x110000U - 0x800U - 128U - 23'940U) * 4);
    EXPECT_EQ(decoder->decode(bytes), text);
}

// Forms of every length in turn.
DecodeVector mixedDecodePadding(std::size_t place) {
    switch (place % 5) {
    case 0:
    case 1:
        return DecodeVector().maps("\xD2\xBB", u"\u4E00");
    case 2:
        return DecodeVector().maps("x", u"x");
    case 3:
        return DecodeVector().maps("\x81\x30\x81\x30", u"\u0080");
    default:
        return DecodeVector().maps("\x90\x30\x81\x30", u"\U00010000");
    }
}

EncodeVector mixedEncodePadding(std::size_t place) {
    switch (place % 5) {
    case 0:
    case 1:
        return EncodeVector().maps(u"\u4E00", "\xD2\xBB");
    case 2:
        return EncodeVector().maps(u"x", "x");
    case 3:
        return EncodeVector().maps(u"\u0080", "\x81\x30\x81\x30");
    default:
        return EncodeVector().maps(u"\U00010000", "\x90\x30\x81\x30");
    }
}

class Gb18030DecoderVectors : public testing::TestWithParam<DecodeVector> {};

TEST_P(Gb18030DecoderVectors, AgreeInEveryWay) {
    checkDecoder(gb18030(), GetParam());
    checkDecoder(gb18030(), GetParam(), mixedDecodePadding);
}

INSTANTIATE_TEST_SUITE_P(
    All, Gb18030DecoderVectors,
    testing::Values(DecodeVector(),
                    DecodeVector()
                        .maps("a", u"a")
                        .maps("\xD2\xBB", u"\u4E00")
                        .maps("\x81\x30\x81\x30", u"\u0080")
                        .maps("\x90\x30\x81\x30", u"\U00010000"),
                    DecodeVector().malformed("\x80").malformed("\xFF").maps("a", u"a"),
                    DecodeVector().malformed("\x81\x7F").malformed("\x81\xFF").maps("b", u"b"),
                    DecodeVector().malformed("\x81\x20").malformed("\x81\x30\x20"),
                    DecodeVector().malformed("\x81\x30\x81\x20").maps("\x30", u"0"),
                    DecodeVector().malformed("\x81\x30\xFF").unmappable("\x84\x32\x81\x30"),
                    DecodeVector().unmappable("\xFE\x39\xFE\x39").maps("\xFE\xFE", u"\uE4C5"),
                    DecodeVector().maps("\xFE\xFE", u"\uE4C5").incomplete("\x81"),
                    DecodeVector().maps("0", u"0").incomplete("\x81\x30"),
                    DecodeVector().incomplete("\x81\x30\x81")));

class Gb18030EncoderVectors : public testing::TestWithParam<EncodeVector> {};

TEST_P(Gb18030EncoderVectors, AgreeInEveryWay) {
    checkEncoder(gb18030(), GetParam());
    checkEncoder(gb18030(), GetParam(), mixedEncodePadding);
}

INSTANTIATE_TEST_SUITE_P(
    All, Gb18030EncoderVectors,
    testing::Values(
        EncodeVector(),
        EncodeVector()
            .maps(u"a", "a")
            .maps(u"\u4E00", "\xD2\xBB")
            .maps(u"\u00AD", "\x81\x30\x85\x32")
            .maps(u"\U0010FFFF", "\xE3\x32\x9A\x35"),
        EncodeVector().malformed(units({0xDC00})).maps(u"\uFFFF", "\x84\x31\xA4\x39"),
        EncodeVector().malformed(units({0xD800}), 2).maps(u"\uE000", "\xAA\xA1"),
        EncodeVector().malformed(units({0xD800}), 2).maps(u"\U00010000", "\x90\x30\x81\x30"),
        EncodeVector().maps(u"\U00010000", "\x90\x30\x81\x30").incomplete(units({0xDBFF}))));

} // namespace
