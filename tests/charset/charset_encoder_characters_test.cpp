// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief How all encoders judge characters: those that vanish, surrogates, units without a
/// counterpart.
#include "orv/liborvxx/charset/charset_encoder.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/coder_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::CoderResult;
using orvtest::scriptedCharset;
using orvtest::ScriptedEncoder;
using Bench = orvtest::EncoderBench;
using Units = orv::Buffer<const char16>;
using Bytes = orv::Buffer<unsigned char>;

// Characters that vanish.

struct Range {
    char32_t first;
    char32_t last;
    std::size_t count;
};
constexpr Range IGNORABLE[] = {
    {0x00AD, 0x00AD, 1},  {0x034F, 0x034F, 1},   {0x061C, 0x061C, 1},   {0x115F, 0x1160, 2},
    {0x17B4, 0x17B5, 2},  {0x180B, 0x180E, 4},   {0x200B, 0x200F, 5},   {0x202A, 0x202E, 5},
    {0x2060, 0x206F, 16}, {0x3164, 0x3164, 1},   {0xFE00, 0xFEFF, 256}, {0xFFA0, 0xFFA0, 1},
    {0xFFF0, 0xFFF8, 9},  {0x1BCA0, 0x1BCA3, 4}, {0x1D173, 0x1D17A, 8}, {0xE0000, 0xE0FFF, 4096},
};

TEST(CharsetEncoderIgnorables, AreExactlyTheListed) {
    std::size_t count = 0;
    const auto encoder = orv::Charset::US_ASCII->newEncoder();
    for (char32_t cp = 0x80; cp <= orv::Char16::MAX_CODE_POINT; ++cp) {
        if (cp >= 0xD800 && cp <= 0xDFFF) {
            continue;
        }
        char16 units[2];
        std::size_t size = 1;
        if (cp > 0xFFFF) {
            units[0] = orv::Char16::highSurrogate(cp);
            units[1] = orv::Char16::lowSurrogate(cp);
            size = 2;
        } else {
            units[0] = char16(cp);
        }
        Units in(units, size);
        Bytes none(nullptr, 0);
        const CoderResult result = encoder->encode(in, none, true);
        const bool listed =
            std::any_of(std::begin(IGNORABLE), std::end(IGNORABLE),
                        [cp](const Range& r) { return cp >= r.first && cp <= r.last; });
        count += listed ? 1 : 0;
        ASSERT_EQ(result, listed ? CoderResult::underflow()
                                 : CoderResult::unmappable(static_cast<unsigned int>(size)))
            << std::hex << static_cast<std::uint32_t>(cp);
        ASSERT_EQ(in.hasRemaining(), !listed);
    }
    std::size_t expected = 0;
    for (const Range& range : IGNORABLE) {
        EXPECT_EQ(range.last - range.first + 1, range.count);
        expected += range.count;
    }
    EXPECT_EQ(count, expected);
}

TEST(CharsetEncoderIgnorables, VanishUnderEveryAction) {
    const orv::ustring_ref text = u"a\u00ADb\uFE80c\U000E0FFFd"_u;
    for (const auto action : {orv::REPORT, orv::REPLACE, orv::IGNORE}) {
        ScriptedEncoder encoder(&scriptedCharset());
        encoder.onUnmappableCharacter(action);
        EXPECT_EQ(encoder.encode(text), "abcd");
        EXPECT_TRUE(encoder.canEncode(text) && encoder.canEncode(char16(u'\x00AD')));
    }
    EXPECT_EQ(ScriptedEncoder(&scriptedCharset()).encode(orv::ustring(20, u'\x00AD')), "");
    EXPECT_THROW(ScriptedEncoder(&scriptedCharset()).encode(u"\U000E1000"_u),
                 orv::UnmappableCharacterError);
}

TEST(CharsetEncoderIgnorables, StayWhereTheSetHasThem) {
    EXPECT_EQ(orv::Charset::ISO_8859_1->newEncoder()->encode(u"\u00AD"_u), "\xAD");
    EXPECT_EQ(orv::Charset::UTF_8->newEncoder()->encode(u"\uFEFF"_u), "\xEF\xBB\xBF");
}

TEST(CharsetEncoderIgnorables, TheCodePointIsThatAtTheInputPosition) {
    // A loop that calls two units unmappable: they are combined, whatever they are.
    Bench b([](Units& in, Bytes&) {
        return in.hasRemaining() ? CoderResult::unmappable(2) : CoderResult::underflow();
    });
    EXPECT_EQ(b.encode(u"\U000E0001\U000E1000"_u, true), CoderResult::unmappable(2));
    EXPECT_EQ(b.in.position(), 2U);
    // U+00AD twice combines to U+3B4AD, which is not ignorable; each alone would be.
    EXPECT_EQ(b.encode(u"\u00AD\u00AD"_u, true), CoderResult::unmappable(2));
    EXPECT_EQ(b.in.position(), 0U);
}

// Helpers of concrete encoders.

TEST(FetchSurrogatePair, CombinesAPairAndMovesBehindIt) {
    const std::array<char16, 2> units = {u'\xDBFF', u'\xDFFF'};
    const char16* pos = units.data() + 1;
    CoderResult result = CoderResult::unmappable(9);
    EXPECT_EQ(ScriptedEncoder::fetchSurrogatePair(units[0], pos, units.data() + 2, &result),
              char32_t{0x10FFFF});
    EXPECT_EQ(pos, units.data() + 2);
    EXPECT_EQ(result, CoderResult::unmappable(9)) << "is left alone";
}

TEST(FetchSurrogatePair, AHighOneAtTheEndMayStillFindItsPartner) {
    const std::array<char16, 1> units = {u'\xD800'};
    const char16* pos = units.data() + 1;
    CoderResult result = CoderResult::unmappable(9);
    EXPECT_EQ(ScriptedEncoder::fetchSurrogatePair(units[0], pos, pos, &result), char32_t{0});
    EXPECT_EQ(pos, units.data() + 1);
    EXPECT_EQ(result, CoderResult::unmappable(9));
}

TEST(FetchSurrogatePair, AnythingElseIsMalformed) {
    const std::array<char16, 2> units = {u'\xD800', u'A'};
    const char16* pos = units.data() + 1;
    CoderResult result;
    EXPECT_EQ(ScriptedEncoder::fetchSurrogatePair(units[0], pos, units.data() + 2, &result),
              char32_t{0});
    EXPECT_EQ(result, CoderResult::malformed(1));
    EXPECT_EQ(pos, units.data() + 2) << "the second unit was taken";

    for (const char16 first : {char16(u'\xDC00'), char16(u'A')}) {
        pos = units.data();
        result = CoderResult();
        EXPECT_EQ(ScriptedEncoder::fetchSurrogatePair(first, pos, units.data() + 2, &result),
                  char32_t{0});
        EXPECT_EQ(result, CoderResult::malformed(1));
        EXPECT_EQ(pos, units.data()) << "nothing was taken";
    }
}

TEST(UnmappableCodeUnit, ClassifiesTheUnit) {
    const auto classify = [](const orv::ustring& units) {
        return ScriptedEncoder::unmappableCodeUnit(units.data(), units.data() + units.size());
    };
    EXPECT_EQ(classify({u'\xE9'}), CoderResult::unmappable(1));
    EXPECT_EQ(classify({u'\xE9', u'\xDC00'}), CoderResult::unmappable(1));
    EXPECT_EQ(classify({u'\xD7FF'}), CoderResult::unmappable(1));
    EXPECT_EQ(classify({u'\xE000'}), CoderResult::unmappable(1));
    EXPECT_EQ(classify({u'\xD800'}), CoderResult::underflow());
    EXPECT_EQ(classify({u'\xDBFF'}), CoderResult::underflow());
    EXPECT_EQ(classify({u'\xD800', u'\xDC00'}), CoderResult::unmappable(2));
    EXPECT_EQ(classify({u'\xDBFF', u'\xDFFF', u'A'}), CoderResult::unmappable(2));
    EXPECT_EQ(classify({u'\xD800', u'A'}), CoderResult::malformed(1));
    EXPECT_EQ(classify({u'\xD800', u'\xD800'}), CoderResult::malformed(1));
    EXPECT_EQ(classify({u'\xDC00'}), CoderResult::malformed(1));
    EXPECT_EQ(classify({u'\xDFFF', u'\xDC00'}), CoderResult::malformed(1));
}

} // namespace
