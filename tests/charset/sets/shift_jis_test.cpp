// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Shift_JIS and code page 932: where their coders stop, and how the two differ.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
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

Charset& shiftJis() {
    return *Charset::forName(u"Shift_JIS"_u);
}
Charset& codePage932() {
    return *Charset::forName(u"Windows-31J"_u);
}

TEST(ShiftJisDecoder, WaitsForTheByteBehindALead) {
    const auto step = decodeStep(shiftJis(), "\x81", 4);
    EXPECT_EQ(step.result, CoderResult::underflow());
    EXPECT_EQ(step.inPosition, 0U);
    EXPECT_EQ(step.text, u"");
    // Also where the output is full: the character is not known yet.
    EXPECT_EQ(decodeStep(shiftJis(), "A\x81", 1).result, CoderResult::underflow());
}

TEST(ShiftJisDecoder, CountsOnlyTheLeadBeforeABadTrail) {
    const auto step = decodeStep(shiftJis(), "\x81\x20", 4);
    EXPECT_EQ(step.result, CoderResult::malformed(1));
    EXPECT_EQ(step.inPosition, 0U);
    EXPECT_EQ(shiftJis().decode("\x81\x20"), u"\uFFFD "_u);
    EXPECT_EQ(shiftJis().decode("\x81\x81\x40"), u"\uFF1D@"_u) << "a lead byte may trail";
    EXPECT_EQ(shiftJis().decode("\x81\x7F"), u"\uFFFD\x7F"_u);
    EXPECT_EQ(shiftJis().decode("\x81\xFD\x41"), u"\uFFFD\uFFFD\x41"_u);
}

TEST(ShiftJisDecoder, HasTheIdentityOnAscii) {
    for (char16_t value = 0; value < 0x80; ++value) {
        const char byte = static_cast<char>(value);
        for (Charset* const charset : {&shiftJis(), &codePage932()}) {
            EXPECT_EQ(decodeStep(*charset, {&byte, 1}, 1).text, std::u16string(1, value));
            EXPECT_EQ(encodeStep(*charset, {&value, 1}, 1).text, std::string(1, byte));
        }
    }
}

TEST(ShiftJisDecoder, JudgesTheCharacterBeforeTheRoom) {
    EXPECT_EQ(decodeStep(shiftJis(), "\x80", 0).result, CoderResult::unmappable(1));
    EXPECT_EQ(decodeStep(shiftJis(), "\x81\x20", 0).result, CoderResult::malformed(1));
    EXPECT_EQ(decodeStep(shiftJis(), "\x85\x40", 0).result, CoderResult::unmappable(2));
    EXPECT_EQ(decodeStep(shiftJis(), "\x82\xA0", 0).result, CoderResult::overflow());
    EXPECT_EQ(decodeStep(shiftJis(), "\xB1", 0).result, CoderResult::overflow());
    EXPECT_EQ(decodeStep(shiftJis(), "", 0).result, CoderResult::underflow());
}

TEST(CodePage932Decoder, StopsAtBytesWithoutACharacter) {
    EXPECT_EQ(decodeStep(codePage932(), "\xFD", 4).result, CoderResult::unmappable(1));
    EXPECT_EQ(decodeStep(codePage932(), "\x81\xFF", 4).result, CoderResult::malformed(1));
    EXPECT_EQ(decodeStep(codePage932(), "\x85\x40", 4).result, CoderResult::unmappable(2));
    for (const char* const byte : {"\x80", "\xA0", "\xFD", "\xFE", "\xFF"}) {
        EXPECT_EQ(decodeStep(codePage932(), byte, 4).result, CoderResult::unmappable(1));
        EXPECT_EQ(decodeStep(shiftJis(), byte, 4).result, CoderResult::unmappable(1));
    }
}

TEST(ShiftJisEncoder, HasTheDashThatCodePage932HasNot) {
    EXPECT_EQ(encodeStep(shiftJis(), u"\u2015", 4).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(shiftJis(), u"\u2014", 4).text, "\x81\x5C");
    EXPECT_EQ(encodeStep(codePage932(), u"\u2014", 4).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(codePage932(), u"\u2015", 4).text, "\x81\x5C");
}

TEST(ShiftJisEncoder, StopsBeforeAPairWithRoomForOneByte) {
    const auto step = encodeStep(shiftJis(), u"\u3042", 1);
    EXPECT_EQ(step.result, CoderResult::overflow());
    EXPECT_EQ(step.inPosition, 0U);
    EXPECT_EQ(step.text, "");
    EXPECT_EQ(encodeStep(shiftJis(), u"\uFF71", 0).result, CoderResult::overflow());
    EXPECT_EQ(encodeStep(shiftJis(), u"\uFF71", 1).text, "\xB1");
    EXPECT_EQ(encodeStep(shiftJis(), u"A", 0).result, CoderResult::overflow());
}

TEST(ShiftJisEncoder, JudgesTheUnitBeforeTheRoom) {
    EXPECT_EQ(encodeStep(shiftJis(), u"\u0E01", 0).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(shiftJis(), u"\uFFE6", 0).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(shiftJis(), u"\U0001F600", 0).result, CoderResult::unmappable(2));
    EXPECT_EQ(encodeStep(shiftJis(), units({0xDC00}), 0).result, CoderResult::malformed(1));
    EXPECT_EQ(encodeStep(shiftJis(), units({0xD800, 0x41}), 0).result, CoderResult::malformed(1));
    const auto high = encodeStep(shiftJis(), units({0xD800}), 0);
    EXPECT_EQ(high.result, CoderResult::underflow());
    EXPECT_EQ(high.inPosition, 0U);
}

TEST(ShiftJisEncoder, RefusesALoneLeadByteAsReplacement) {
    const auto encoder = shiftJis().newEncoder();
    EXPECT_FALSE(encoder->isLegalReplacement("\x81"));
    EXPECT_TRUE(encoder->isLegalReplacement("\x81\xAC"));
    EXPECT_THROW(encoder->replaceWith("\x81"), std::invalid_argument);
    encoder->replaceWith("\x81\xAC").onUnmappableCharacter(orv::REPLACE);
    EXPECT_EQ(encoder->encode(u"a\u0E01b"_u), "a\x81\xAC"
                                              "b");
}

// Pairs, single katakana and ASCII in turn.
DecodeVector mixedDecodePadding(std::size_t place) {
    switch (place % 4) {
    case 0:
    case 1:
        return DecodeVector().maps("\x82\xA0", u"\u3042");
    case 2:
        return DecodeVector().maps("\xB1", u"\uFF71");
    default:
        return DecodeVector().maps("x", u"x");
    }
}

EncodeVector mixedEncodePadding(std::size_t place) {
    switch (place % 4) {
    case 0:
    case 1:
        return EncodeVector().maps(u"\u3042", "\x82\xA0");
    case 2:
        return EncodeVector().maps(u"\uFF71", "\xB1");
    default:
        return EncodeVector().maps(u"x", "x");
    }
}

void checkBothPaddings(Charset& charset, const DecodeVector& vector) {
    checkDecoder(charset, vector);
    checkDecoder(charset, vector, mixedDecodePadding);
}

void checkBothPaddings(Charset& charset, const EncodeVector& vector) {
    checkEncoder(charset, vector);
    checkEncoder(charset, vector, mixedEncodePadding);
}

TEST(ShiftJisDecoder, AgreesInEveryWayOfRunningIt) {
    checkBothPaddings(shiftJis(), DecodeVector()
                                      .maps("\x82\xA0", u"\u3042")
                                      .maps("\xB1", u"\uFF71")
                                      .maps("\x5C", u"\\")
                                      .malformed("\x81", 2)
                                      .maps(" ", u" ")
                                      .unmappable("\x85\x40")
                                      .maps("\x81\x5C", u"\u2014"));
    checkBothPaddings(shiftJis(),
                      DecodeVector().unmappable("\x80").unmappable("\xA0").maps("~", u"~"));
    checkBothPaddings(shiftJis(),
                      DecodeVector().unmappable("\xFD").malformed("\xFC", 2).maps("0", u"0"));
    checkBothPaddings(shiftJis(), DecodeVector().malformed("\x81", 2).unmappable("\xFF"));
    checkBothPaddings(shiftJis(), DecodeVector().maps("\xDF", u"\uFF9F").incomplete("\x81"));
    checkBothPaddings(codePage932(), DecodeVector()
                                         .maps("\x87\x40", u"\u2460")
                                         .maps("\xF0\x40", u"\uE000")
                                         .malformed("\x81", 2)
                                         .maps("\x7F", u"\x7F")
                                         .incomplete("\xFC"));
}

TEST(ShiftJisEncoder, AgreesInEveryWayOfRunningIt) {
    checkBothPaddings(shiftJis(), EncodeVector()
                                      .maps(u"\u3042", "\x82\xA0")
                                      .maps(u"\uFF71", "\xB1")
                                      .maps(u"\u00A5", "\x5C")
                                      .unmappable(u"\u2015")
                                      .maps(u"\u00AD", "")
                                      .maps(u"\u203E", "\x7E"));
    checkBothPaddings(shiftJis(),
                      EncodeVector().unmappable(u"\U00020000").maps(u"\u4E9C", "\x88\x9F"));
    checkBothPaddings(shiftJis(), EncodeVector().malformed(units({0xDC00})).unmappable(u"\uFFFF"));
    checkBothPaddings(shiftJis(),
                      EncodeVector().malformed(units({0xD800}), 2).maps(u"\uFF61", "\xA1"));
    checkBothPaddings(shiftJis(),
                      EncodeVector().maps(u"\u3042", "\x82\xA0").incomplete(units({0xDBFF})));
    checkBothPaddings(codePage932(), EncodeVector()
                                         .maps(u"\uE757", "\xF9\xFC")
                                         .maps(u"\u2252", "\x81\xE0")
                                         .unmappable(u"\u2014")
                                         .maps(u"\u00B5", "\x83\xCA"));
}

} // namespace
