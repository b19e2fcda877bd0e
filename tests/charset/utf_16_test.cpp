// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16BE and UTF-16LE: names, every unit, every kind of pair, in every way of running
/// them.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/reference/utf16_model.h"
#include "tests/support/charset_facts.h"
#include "tests/support/coder_harness.h"
#include "tests/support/one_step.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::Charset;
using orv::CoderResult;
using orvtest::ByteOrder;
using orvtest::checkDecoder;
using orvtest::checkEncoder;
using orvtest::decodeStep;
using orvtest::DecodeVector;
using orvtest::encodeStep;
using orvtest::EncodeVector;
using orvtest::units;

std::string bytesOf(ByteOrder order, const std::u16string& text) {
    const auto bytes = orvtest::bytesOf(order, {text.begin(), text.end()});
    return {bytes.begin(), bytes.end()};
}

// A letter, a character of two bytes that differ, and now and then a pair.
std::u16string paddingAt(std::size_t place) {
    if (place % 7 == 5) {
        return u"\U0001F600";
    }
    const std::size_t value = place % 3 == 1 ? 0x4E00 + place : u'a' + place;
    return units({static_cast<char16_t>(value)});
}

template <ByteOrder order>
DecodeVector decodePadding(std::size_t place) {
    return DecodeVector().maps(bytesOf(order, paddingAt(place)), paddingAt(place));
}
template <ByteOrder order>
EncodeVector encodePadding(std::size_t place) {
    return EncodeVector().maps(paddingAt(place), bytesOf(order, paddingAt(place)));
}

TEST(Utf16Sets, IsAsTheCatalogueSays) {
    orvtest::checkCharsetFacts(
        *Charset::UTF_16BE,
        {u"UTF-16BE",
         1013,
         {u"csUTF16BE", u"ISO-10646-UCS-2", u"UnicodeBigUnmarked", u"UTF_16BE", u"X-UTF-16BE"},
         0.5F,
         1,
         2.0F,
         2,
         "\xFF\xFD"});
    orvtest::checkCharsetFacts(
        *Charset::UTF_16LE, {u"UTF-16LE",
                             1014,
                             {u"csUTF16LE", u"UnicodeLittleUnmarked", u"UTF_16LE", u"X-UTF-16LE"},
                             0.5F,
                             1,
                             2.0F,
                             2,
                             "\xFD\xFF"});
}

TEST(Utf16Sets, ThereIsNoSetThatWouldLookForAMark) {
    EXPECT_FALSE(Charset::isSupported(orv::ustring(u"UTF-16"_u)));
}

// What holds in both orders.
class Utf16 : public testing::TestWithParam<ByteOrder> {
protected:
    static ByteOrder order() { return GetParam(); }
    static Charset& set() {
        return *(order() == ByteOrder::BIG ? Charset::UTF_16BE : Charset::UTF_16LE);
    }
    static std::string bytes(const std::u16string& text) { return bytesOf(order(), text); }

    static bool checkDecoding(const DecodeVector& vector) {
        return checkDecoder(set(), vector,
                            order() == ByteOrder::BIG ? decodePadding<ByteOrder::BIG>
                                                      : decodePadding<ByteOrder::LITTLE>);
    }
    static bool checkEncoding(const EncodeVector& vector) {
        return checkEncoder(set(), vector,
                            order() == ByteOrder::BIG ? encodePadding<ByteOrder::BIG>
                                                      : encodePadding<ByteOrder::LITTLE>);
    }
};

INSTANTIATE_TEST_SUITE_P(Orders, Utf16, testing::Values(ByteOrder::BIG, ByteOrder::LITTLE),
                         [](const testing::TestParamInfo<ByteOrder>& order) {
                             return order.param == ByteOrder::BIG ? "BigEndian" : "LittleEndian";
                         });

TEST_P(Utf16, EveryUnitDecodesByItself) {
    for (unsigned int value = 0; value < 0x10000; ++value) {
        const std::u16string unit(1, static_cast<char16_t>(value));
        const bool high = value >= 0xD800 && value <= 0xDBFF;
        const bool refused = (value >= 0xDC00 && value <= 0xDFFF) || value == 0xFFFE;
        const auto step = decodeStep(set(), bytes(unit), 1);
        ASSERT_EQ(step.result, refused ? CoderResult::malformed(2) : CoderResult::underflow())
            << value;
        ASSERT_EQ(step.inPosition, refused || high ? 0U : 2U) << value;
        ASSERT_EQ(step.text, refused || high ? u"" : unit) << value;
        // Without room an error is still one.
        const auto full = decodeStep(set(), bytes(unit), 0);
        ASSERT_EQ(full.result, refused ? CoderResult::malformed(2)
                               : high  ? CoderResult::underflow()
                                       : CoderResult::overflow())
            << value;
        ASSERT_EQ(full.inPosition, 0U) << value;
    }
}

TEST_P(Utf16, EveryUnitEncodesByItself) {
    for (unsigned int value = 0; value < 0x10000; ++value) {
        const std::u16string unit(1, static_cast<char16_t>(value));
        const bool high = value >= 0xD800 && value <= 0xDBFF;
        const bool refused = value >= 0xDC00 && value <= 0xDFFF;
        const auto step = encodeStep(set(), unit, 2);
        ASSERT_EQ(step.result, refused ? CoderResult::malformed(1) : CoderResult::underflow())
            << value;
        ASSERT_EQ(step.inPosition, refused || high ? 0U : 1U) << value;
        ASSERT_EQ(step.text, refused || high ? "" : bytes(unit)) << value;
        const auto full = encodeStep(set(), unit, 1);
        ASSERT_EQ(full.result, refused ? CoderResult::malformed(1)
                               : high  ? CoderResult::underflow()
                                       : CoderResult::overflow())
            << value;
        ASSERT_EQ(full.inPosition, 0U) << value;
    }
}

TEST_P(Utf16, EveryUnitBehindAHighSurrogateIsItsPartnerOrNone) {
    for (const char16_t first : {u'\xD800', u'\xDA12', u'\xDBFF'}) {
        for (unsigned int value = 0; value < 0x10000; ++value) {
            const bool low = value >= 0xDC00 && value <= 0xDFFF;
            const std::u16string text = units({first, static_cast<char16_t>(value)});
            const auto decoded = decodeStep(set(), bytes(text), 2);
            ASSERT_EQ(decoded.result, low ? CoderResult::underflow() : CoderResult::malformed(2));
            ASSERT_EQ(decoded.inPosition, low ? 4U : 0U);
            ASSERT_EQ(decoded.text, low ? text : u"");
            const auto encoded = encodeStep(set(), text, 4);
            ASSERT_EQ(encoded.result, low ? CoderResult::underflow() : CoderResult::malformed(1));
            ASSERT_EQ(encoded.inPosition, low ? 2U : 0U);
            ASSERT_EQ(encoded.text, low ? bytes(text) : "");
        }
    }
}

TEST_P(Utf16, EveryHighSurrogateTakesAPartner) {
    for (unsigned int high = 0xD800; high <= 0xDBFF; ++high) {
        for (const char16_t low : {u'\xDC00', u'\xDEAD', u'\xDFFF'}) {
            const std::u16string text = units({static_cast<char16_t>(high), low});
            ASSERT_EQ(decodeStep(set(), bytes(text), 2).text, text);
            ASSERT_EQ(encodeStep(set(), text, 4).text, bytes(text));
        }
    }
}

TEST_P(Utf16, APairIsWrittenWholeOrNotAtAll) {
    const std::u16string pair = u"\U00010000";
    for (std::size_t room = 0; room < 2; ++room) {
        const auto step = decodeStep(set(), bytes(pair), room);
        EXPECT_EQ(step.result, CoderResult::overflow());
        EXPECT_EQ(step.inPosition, 0U);
        EXPECT_EQ(step.text, u"");
    }
    for (std::size_t room = 0; room < 4; ++room) {
        const auto step = encodeStep(set(), pair, room);
        EXPECT_EQ(step.result, CoderResult::overflow());
        EXPECT_EQ(step.inPosition, 0U);
        EXPECT_EQ(step.text, "");
    }
}

TEST_P(Utf16, AnErrorComesBeforeTheLackOfRoom) {
    EXPECT_EQ(decodeStep(set(), bytes(units({0xD800, u'A'})), 0).result, CoderResult::malformed(2));
    EXPECT_EQ(encodeStep(set(), units({0xD800, u'A'}), 0).result, CoderResult::malformed(1));
}

TEST_P(Utf16, AnOddByteWaitsForItsPartner) {
    const std::string text = bytes(u"A\U0001F600");
    for (std::size_t size = 0; size <= text.size(); ++size) {
        const auto step = decodeStep(set(), text.substr(0, size), 8);
        EXPECT_EQ(step.result, CoderResult::underflow());
        EXPECT_EQ(step.inPosition, size < 2 ? 0U : size < 6 ? 2U : 6U);
    }
}

TEST_P(Utf16, AMarkIsACharacterAndIsNotWritten) {
    EXPECT_EQ(encodeStep(set(), u"", 8).text, "");
    EXPECT_EQ(set().encode(u""_u), "");
    EXPECT_EQ(decodeStep(set(), bytes(u"\uFEFFA\uFEFF"), 8).text, u"\uFEFFA\uFEFF");
    EXPECT_EQ(encodeStep(set(), u"\uFEFFA", 8).text, bytes(u"\uFEFFA"));
}

TEST_P(Utf16, TheEncoderWritesWhatTheDecoderRefuses) {
    EXPECT_EQ(set().encode(u"\uFFFE\uFFFF"_u), bytes(u"\uFFFE\uFFFF"));
    EXPECT_EQ(set().decode(bytes(u"\uFFFE\uFFFF")), u"\uFFFD\uFFFF"_u);
}

TEST_P(Utf16, ALoneSurrogateIsReplaced) {
    EXPECT_EQ(set().encode(orv::ustring(1, char16(u'\xDC00'))), bytes(u"\uFFFD"));
    EXPECT_EQ(set().encode(orv::ustring(1, char16(u'\xD800'))), bytes(u"\uFFFD"));
    EXPECT_EQ(set().decode(bytes(units({0xD800, u'A'}))), u"\uFFFDA"_u);
}

TEST_P(Utf16, AReplacementIsWholeUnits) {
    const auto encoder = set().newEncoder();
    EXPECT_TRUE(encoder->isLegalReplacement(bytes(u"?")));
    EXPECT_FALSE(encoder->isLegalReplacement("?"));
    EXPECT_FALSE(encoder->isLegalReplacement(bytes(units({0xDC00}))));
    EXPECT_FALSE(encoder->isLegalReplacement(bytes(u"\uFFFE")));
    encoder->replaceWith(bytes(u"?")).onMalformedInput(orv::REPLACE);
    EXPECT_EQ(encoder->encode(orv::ustring(1, char16(u'\xDC00'))), bytes(u"?"));
    EXPECT_THROW(encoder->replaceWith("?"), std::invalid_argument);
    EXPECT_THROW(encoder->replaceWith(bytes(u"??")), std::invalid_argument);
}

TEST_P(Utf16, GoodTextAgreesInEveryWayOfRunningIt) {
    checkDecoding(DecodeVector());
    checkEncoding(EncodeVector());
    DecodeVector decoding;
    EncodeVector encoding;
    for (const char16_t* const text : {u"A", u"\U0001F600", u"\uFEFF", u"\uFFFF", u"\uD7FF",
                                       u"\U00010000", u"\U0010FFFF", u"\uE000"}) {
        decoding.maps(bytes(text), text);
        encoding.maps(text, bytes(text));
    }
    checkDecoding(decoding);
    checkEncoding(encoding.maps(u"\uFFFE", bytes(u"\uFFFE")));
}

TEST_P(Utf16, BadTextAgreesInEveryWayOfRunningIt) {
    const std::string low = bytes(units({0xDC00}));
    const std::string high = bytes(units({0xDBFF}));
    const std::string refused = bytes(u"\uFFFE");
    const std::string a = bytes(u"a");
    checkDecoding(DecodeVector().malformed(low).maps(a, u"a").malformed(refused));
    checkDecoding(DecodeVector().malformed(high, 4).malformed(high, 4).maps(a, u"a"));
    checkDecoding(DecodeVector()
                      .malformed(high, 4)
                      .malformed(refused)
                      .maps(bytes(u"\U0010FFFF"), u"\U0010FFFF")
                      .malformed(low));
    checkEncoding(EncodeVector().malformed(units({0xDC00})).maps(u"a", a).maps(u"\uFFFE", refused));
    checkEncoding(EncodeVector()
                      .malformed(units({0xDBFF}), 2)
                      .malformed(units({0xD800}), 2)
                      .maps(u"a", a)
                      .maps(u"\U00010000", bytes(u"\U00010000"))
                      .malformed(units({0xDFFF})));
}

TEST_P(Utf16, TextCutShortAgreesInEveryWayOfRunningIt) {
    const std::string pair = bytes(u"\U0001F600");
    const std::string a = bytes(u"a");
    checkDecoding(DecodeVector().incomplete(a.substr(0, 1)));
    checkDecoding(DecodeVector().maps(a, u"a").incomplete(pair.substr(0, 1)));
    // Of a high surrogate and nothing behind it, the rest is judged as a whole.
    const auto trace = [](const std::string& text) {
        return orvtest::utf16DecodeTrace(order(), {text.begin(), text.end()});
    };
    checkDecoding(trace(a + pair.substr(0, 2)));
    checkDecoding(trace(pair + pair.substr(0, 3)));
    checkDecoding(DecodeVector().maps(pair, u"\U0001F600").incomplete(pair.substr(0, 3)));
    checkEncoding(EncodeVector().maps(u"a", a).incomplete(units({0xD83D})));
}

// The bytes themselves, written down.
TEST(Utf16Bytes, ComeInTheOrderOfTheSet) {
    EXPECT_EQ(encodeStep(*Charset::UTF_16LE, u"\U00010000", 4).text,
              std::string("\x00\xD8\x00\xDC", 4));
    EXPECT_EQ(encodeStep(*Charset::UTF_16BE, u"\U00010000", 4).text,
              std::string("\xD8\x00\xDC\x00", 4));
    EXPECT_EQ(decodeStep(*Charset::UTF_16BE, "\xFE\xFF", 1).text, u"\uFEFF");
    EXPECT_EQ(decodeStep(*Charset::UTF_16LE, "\xFF\xFE", 1).text, u"\uFEFF");
    EXPECT_EQ(decodeStep(*Charset::UTF_16BE, "\xFE\xFF\x12\x34", 2).text, u"\uFEFF\u1234");
    EXPECT_EQ(decodeStep(*Charset::UTF_16LE, "\xFF\xFE\x34\x12", 2).text, u"\uFEFF\u1234");
    EXPECT_EQ(decodeStep(*Charset::UTF_16BE, "\xFF\xFE", 1).result, CoderResult::malformed(2));
    EXPECT_EQ(decodeStep(*Charset::UTF_16LE, "\xFE\xFF", 1).result, CoderResult::malformed(2));
    const auto odd = decodeStep(*Charset::UTF_16BE, {"\x00\x41\x00", 3}, 4);
    EXPECT_EQ(odd.text, u"A");
    EXPECT_EQ(odd.result, CoderResult::underflow());
    EXPECT_EQ(odd.inPosition, 2U);
    const auto open = decodeStep(*Charset::UTF_16BE, {"\xD8\x00", 2}, 4);
    EXPECT_EQ(open.result, CoderResult::underflow());
    EXPECT_EQ(open.inPosition, 0U);
    const auto unpaired = decodeStep(*Charset::UTF_16BE, {"\xD8\x00\x00\x41", 4}, 4);
    EXPECT_EQ(unpaired.result, CoderResult::malformed(2));
    EXPECT_EQ(unpaired.inPosition, 0U);
    EXPECT_EQ(decodeStep(*Charset::UTF_16BE, {"\xDC\x00", 2}, 4).result, CoderResult::malformed(2));
    EXPECT_EQ(Charset::UTF_16LE->encode(orv::ustring(1, char16(u'\xDC00'))), "\xFD\xFF");
    EXPECT_EQ(Charset::UTF_16BE->encode(orv::ustring(1, char16(u'\xDC00'))), "\xFF\xFD");
    EXPECT_EQ(Charset::forName(u"iso-10646-ucs-2"_u)->decode({"\xD8\x00\xDC\x00", 4}),
              u"\U00010000"_u);
}

} // namespace
