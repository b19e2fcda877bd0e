// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The Chinese and Korean double-byte sets: where their coders stop, and every way of
/// running them.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/coder_harness.h"
#include "tests/support/one_step.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

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

Charset& set(orv::ustring_ref name) {
    return *Charset::forName(name);
}
Charset& hkscs() {
    return set(u"Big5-HKSCS"_u);
}

TEST(Big5HkscsDecoder, HasFewerTrailBytesThanBig5) {
    EXPECT_EQ(decodeStep(hkscs(), "\x81\x80", 4).result, CoderResult::malformed(1));
    EXPECT_EQ(decodeStep(set(u"Big5"_u), "\x81\x80", 4).result, CoderResult::unmappable(2));
    EXPECT_EQ(decodeStep(hkscs(), "\x81\x7F", 4).result, CoderResult::malformed(1));
    EXPECT_EQ(decodeStep(hkscs(), "\x81\xA0", 4).result, CoderResult::malformed(1));
    EXPECT_EQ(decodeStep(hkscs(), "\x81\xFF", 4).result, CoderResult::malformed(1));
    EXPECT_EQ(decodeStep(hkscs(), "\x81\xA1", 4).result, CoderResult::unmappable(2));
    EXPECT_EQ(decodeStep(set(u"Big5"_u), "\x81\x7F", 4).result, CoderResult::malformed(1));
}

TEST(Big5HkscsDecoder, HasNoCharacterForALetterWithACombiningMark) {
    for (const char* const code : {"\x88\x62", "\x88\x64", "\x88\xA3", "\x88\xA5"}) {
        EXPECT_EQ(decodeStep(hkscs(), code, 4).result, CoderResult::unmappable(2));
    }
    EXPECT_EQ(decodeStep(hkscs(), "\x88\x62", 0).result, CoderResult::unmappable(2));
}

TEST(Big5HkscsDecoder, WritesBothHalvesOfAPairOrNone) {
    const auto full = decodeStep(hkscs(), "\xFE\xFD", 1);
    EXPECT_EQ(full.result, CoderResult::overflow());
    EXPECT_EQ(full.inPosition, 0U);
    EXPECT_EQ(full.text, u"");
    EXPECT_EQ(decodeStep(hkscs(), "\xFE\xFD", 2).text, u"\U0002910D");
    EXPECT_EQ(decodeStep(hkscs(), "A\xFE\xFD", 2).text, u"A");
    EXPECT_EQ(decodeStep(hkscs(), "\xFE\xFD\xFE\xFD", 3).text, u"\U0002910D");
}

TEST(Big5HkscsEncoder, TakesFormerPrivateCodesThatDoNotComeBack) {
    EXPECT_EQ(encodeStep(hkscs(), u"\uE000", 2).text, "\xFA\x40");
    const auto back = decodeStep(hkscs(), "\xFA\x40", 2);
    EXPECT_EQ(back.result, CoderResult::underflow());
    EXPECT_NE(back.text, u"\uE000");
    EXPECT_NE(back.text, u"");
    EXPECT_EQ(encodeStep(hkscs(), u"\uFFFD", 2).text, "\xFE\xFD");
    EXPECT_EQ(encodeStep(hkscs(), u"\U0002FFFD", 2).text, "\xFE\xFE");
}

TEST(Big5HkscsEncoder, HasNoCodeForOtherSupplementaryCharacters) {
    EXPECT_EQ(encodeStep(hkscs(), u"\U0001F600", 0).result, CoderResult::unmappable(2));
    EXPECT_EQ(encodeStep(hkscs(), u"\U00020000", 9).result, CoderResult::unmappable(2));
    EXPECT_EQ(encodeStep(hkscs(), u"\U0002FFFE", 9).result, CoderResult::unmappable(2));
    EXPECT_EQ(encodeStep(hkscs(), u"\U00030000", 9).result, CoderResult::unmappable(2));
    EXPECT_EQ(encodeStep(hkscs(), u"\U0010FFFF", 9).result, CoderResult::unmappable(2));
}

TEST(Big5HkscsEncoder, ResolvesSurrogatesByItself) {
    EXPECT_EQ(encodeStep(hkscs(), u"\U0002910D", 2).text, "\xFE\xFD");
    const auto full = encodeStep(hkscs(), u"\U0002910D", 1);
    EXPECT_EQ(full.result, CoderResult::overflow());
    EXPECT_EQ(full.inPosition, 0U);
    EXPECT_EQ(encodeStep(hkscs(), units({0xDC00}), 9).result, CoderResult::malformed(1));
    EXPECT_EQ(encodeStep(hkscs(), units({0xD800, 0xD800}), 9).result, CoderResult::malformed(1));
    EXPECT_EQ(encodeStep(hkscs(), units({0xD800, 0x41}), 9).result, CoderResult::malformed(1));
    const auto high = encodeStep(hkscs(), units({0x41, 0xD840}), 9);
    EXPECT_EQ(high.result, CoderResult::underflow());
    EXPECT_EQ(high.inPosition, 1U);
}

TEST(Big5HkscsEncoder, TakesTheDecodersReplacementForTheCharacterOfItsRow) {
    // The row of U+FFFD makes a replaced error legal text of this set.
    EXPECT_EQ(hkscs().encode(hkscs().decode("\x88\x62")), "\xFE\xFD");
}

TEST(EuroSign, IsOneByteInCodePage936AndTwoInGbk) {
    EXPECT_EQ(encodeStep(set(u"x-mswin-936"_u), u"\u20AC", 1).text, "\x80");
    EXPECT_EQ(encodeStep(set(u"x-mswin-936"_u), u"\u20AC", 0).result, CoderResult::overflow());
    EXPECT_EQ(encodeStep(set(u"GBK"_u), u"\u20AC", 2).text, "\xA2\xE3");
    EXPECT_EQ(encodeStep(set(u"GBK"_u), u"\u20AC", 1).result, CoderResult::overflow());
    EXPECT_EQ(decodeStep(set(u"x-mswin-936"_u), "\x80", 1).text, u"\u20AC");
    EXPECT_EQ(decodeStep(set(u"GBK"_u), "\x80", 1).result, CoderResult::unmappable(1));
    // Beside other bytes 0x80 is no lead byte.
    EXPECT_EQ(decodeStep(set(u"x-mswin-936"_u), "\x80\x80\x80@", 4).text, u"\u20AC\u20AC\u20AC@");
}

TEST(DoubleByteCoders, StopBeforeTwoBytesWithRoomForOne) {
    for (const auto name : {u"GBK"_u, u"x-mswin-936"_u, u"Big5"_u, u"x-windows-950"_u,
                            u"Big5-HKSCS"_u, u"Windows-31J"_u}) {
        const auto step = encodeStep(set(name), u"\u4E00", 1);
        EXPECT_EQ(step.result, CoderResult::overflow());
        EXPECT_EQ(step.inPosition, 0U);
        EXPECT_EQ(step.text, "");
    }
}

struct SetVectors {
    const char* name;
    orv::ustring_ref charset;
    std::vector<DecodeVector> decode;
    std::vector<EncodeVector> encode;
};

void PrintTo(const SetVectors& vectors, std::ostream* out) {
    *out << vectors.name;
}

struct NameOf {
    template <typename Info>
    std::string operator()(const Info& info) const {
        return info.param.name;
    }
};

class DoubleByteVectors : public testing::TestWithParam<SetVectors> {};

TEST_P(DoubleByteVectors, AgreeInEveryWayOfRunningTheDecoder) {
    for (const DecodeVector& vector : GetParam().decode) {
        checkDecoder(set(GetParam().charset), vector);
    }
}

TEST_P(DoubleByteVectors, AgreeInEveryWayOfRunningTheEncoder) {
    for (const EncodeVector& vector : GetParam().encode) {
        checkEncoder(set(GetParam().charset), vector);
    }
}

// What no set of these maps.
EncodeVector encodeErrors() {
    return EncodeVector()
        .unmappable(u"\u0E01")
        .malformed(units({0xDC00}))
        .unmappable(u"\U0001F600")
        .maps(u"\u2060", "")
        .malformed(units({0xD800}), 2)
        .maps(u"z", "z");
}

EncodeVector cutPair() {
    return EncodeVector().maps(u"-", "-").incomplete(units({0xD840}));
}

INSTANTIATE_TEST_SUITE_P(
    Sets, DoubleByteVectors,
    testing::Values(
        SetVectors{"GBK",
                   u"GBK"_u,
                   {DecodeVector()
                        .maps("\xD2\xBB", u"\u4E00")
                        .unmappable("\x80")
                        .maps("\xA2\xE3", u"\u20AC")
                        .malformed("\x81", 2)
                        .unmappable("\xFF")
                        .maps("\x81\x40", u"\u4E02"),
                    DecodeVector().malformed("\xFE", 2).maps("\x3F", u"?").incomplete("\x81")},
                   {EncodeVector()
                        .maps(u"\u4E00", "\xD2\xBB")
                        .maps(u"\u20AC", "\xA2\xE3")
                        .maps(u"a", "a")
                        .append(encodeErrors()),
                    cutPair()}},
        SetVectors{"CodePage936",
                   u"x-mswin-936"_u,
                   {DecodeVector()
                        .maps("\x80", u"\u20AC")
                        .maps("\xA2\xE3", u"\uE76C")
                        .malformed("\x81", 2)
                        .maps("\x7F", u"\x7F")
                        .incomplete("\xFE")},
                   {EncodeVector().maps(u"\u20AC", "\x80").append(encodeErrors()), cutPair()}},
        SetVectors{"CodePage949",
                   u"x-windows-949"_u,
                   {DecodeVector()
                        .maps("\xB0\xA1", u"\uAC00")
                        .maps("\x81\x41", u"\uAC02")
                        .unmappable("\x80")
                        .unmappable("\x81\x40")
                        .malformed("\xB0", 2)
                        .maps(" ", u" ")
                        .incomplete("\xB0")},
                   {EncodeVector()
                        .maps(u"\uAC00", "\xB0\xA1")
                        .maps(u" ", " ")
                        .maps(u"\uE0BB", "\xFE\xFE")
                        .append(encodeErrors()),
                    cutPair()}},
        SetVectors{"Big5",
                   u"Big5"_u,
                   {DecodeVector()
                        .maps("\xA4\x40", u"\u4E00")
                        .unmappable("\x81\x80")
                        .unmappable("\xA1\xC3")
                        .malformed("\xA4", 2)
                        .maps("\x30", u"0")
                        .unmappable("\xFF")
                        .incomplete("\xA4")},
                   {EncodeVector().maps(u"\u4E00", "\xA4\x40").append(encodeErrors()),
                    EncodeVector().unmappable(u"\uFF65").unmappable(u"\uFFFF"), cutPair()}},
        SetVectors{"CodePage950",
                   u"x-windows-950"_u,
                   {DecodeVector()
                        .maps("\xA4\x40", u"\u4E00")
                        .maps("\xFA\x40", u"\uE000")
                        .unmappable("\xA4\x80")
                        .malformed("\xA4", 2)
                        .maps("\n", u"\n")
                        .incomplete("\xFE")},
                   {EncodeVector()
                        .maps(u"\u4E00", "\xA4\x40")
                        .maps(u"\uE310", "\xFE\xFE")
                        .append(encodeErrors()),
                    cutPair()}},
        SetVectors{"Big5Hkscs",
                   u"Big5-HKSCS"_u,
                   {DecodeVector()
                        .maps("\xA4\x40", u"\u4E00")
                        .maps("\xFE\xFD", u"\U0002910D")
                        .unmappable("\x88\x62")
                        .malformed("\x81", 2)
                        .unmappable("\x80")
                        .maps("a", u"a"),
                    DecodeVector().maps("\xFE\xFD", u"\U0002910D").incomplete("\x81"),
                    DecodeVector().malformed("\xFE", 2).unmappable("\xFF").unmappable("\xFF")},
                   {EncodeVector()
                        .maps(u"\u4E00", "\xA4\x40")
                        .maps(u"\U0002910D", "\xFE\xFD")
                        .maps(u"\uE000", "\xFA\x40")
                        .append(encodeErrors()),
                    EncodeVector()
                        .maps(u"\U0002FFFD", "\xFE\xFE")
                        .unmappable(u"\U0002FFFE")
                        .maps(u"\U000E0001", "")
                        .unmappable(u"\U00030000"),
                    cutPair()}}),
    NameOf());

} // namespace
