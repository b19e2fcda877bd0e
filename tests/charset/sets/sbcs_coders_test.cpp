// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The single-byte coders: what each form maps and refuses, in which order, and how far it
/// reads.
#include "orv/liborvxx/charset/sets/sbcs_encoder.h"
#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/charset/sets/single_byte_shapes.h"
#include "tests/support/coder_harness.h"
#include "tests/support/one_step.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

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

Charset& named(std::u16string_view name) {
    return *Charset::forName(orv::as_ustring_ref(name));
}

TEST(SbcsDecoder, JudgesAnUnmappedByteBeforeTheRoom) {
    for (const std::size_t room : {0U, 1U}) {
        const auto step = decodeStep(named(u"ISO-8859-3"), "\xA5", room);
        EXPECT_EQ(step.result, CoderResult::unmappable(1));
        EXPECT_EQ(step.inPosition, 0U);
        EXPECT_EQ(step.text, u"");
    }
    const auto full = decodeStep(named(u"ISO-8859-3"), "\xA6\xA5", 1);
    EXPECT_EQ(full.result, CoderResult::unmappable(1));
    EXPECT_EQ(full.inPosition, 1U);
    EXPECT_EQ(full.text, u"\u0124");
    EXPECT_EQ(decodeStep(named(u"ISO-8859-3"), "\xA6", 0).result, CoderResult::overflow());
    EXPECT_EQ(decodeStep(named(u"ISO-8859-3"), "", 0).result, CoderResult::underflow());
}

TEST(SbcsDecoder, LeavesUndefinedBytesOfACodePageUnmapped) {
    Charset& set = named(u"windows-1252");
    EXPECT_EQ(decodeStep(set, "\x81", 1).result, CoderResult::unmappable(1));
    EXPECT_EQ(decodeStep(set, "\x80", 1).text, u"\u20AC");
    EXPECT_EQ(encodeStep(set, u"\u20AC", 1).text, "\x80");
    EXPECT_EQ(encodeStep(set, u"\u0081", 1).result, CoderResult::unmappable(1));
}

TEST(SbcsDecoder, FillsTheRoomFromATotalTable) {
    const auto decoder = named(u"windows-1256").newDecoder();
    const unsigned char bytes[] = {'a', 0x81, 0x98, 0xFF, 'b'};
    char16 text[5] = {};
    orv::Buffer<const unsigned char> in(bytes, 5);
    orv::Buffer<char16> out(text, 0, 3, 5);
    EXPECT_EQ(decoder->decode(in, out, false), CoderResult::overflow());
    EXPECT_EQ(in.position(), 3U);
    EXPECT_EQ(out.position(), 3U);
    EXPECT_EQ(text[3], u'\0');
    out.limit(5);
    EXPECT_EQ(decoder->decode(in, out, false), CoderResult::underflow());
    EXPECT_EQ(std::u16string(orv::as_char16_t(text), 5), u"a\u067E\u06A9\u06D2"
                                                         u"b");
}

TEST(SbcsDecoder, OfATotalTableAgreesInEveryWayOfRunningIt) {
    for (const char16_t* const name : {u"windows-1256", u"KOI8-R"}) {
        EXPECT_TRUE(checkDecoder(named(name), DecodeVector()));
    }
    EXPECT_TRUE(checkDecoder(named(u"windows-1256"), DecodeVector()
                                                         .maps({"\0", 1}, {u"\0", 1})
                                                         .maps("\x80", u"\u20AC")
                                                         .maps("\x7F", u"\x7F")
                                                         .maps("\xFF", u"\u06D2")));
    EXPECT_TRUE(checkDecoder(named(u"KOI8-R"),
                             DecodeVector().maps("\xC1", u"\u0430").maps("\x94", u"\u25A0")));
}

TEST(SbcsDecoder, OfATableWithGapsAgreesInEveryWayOfRunningIt) {
    EXPECT_TRUE(checkDecoder(named(u"windows-1252"), DecodeVector()));
    EXPECT_TRUE(checkDecoder(named(u"windows-1252"), DecodeVector()
                                                         .unmappable("\x81")
                                                         .maps("\x80", u"\u20AC")
                                                         .maps({"\0", 1}, {u"\0", 1})
                                                         .unmappable("\x9D")
                                                         .unmappable("\x90")
                                                         .maps("\xFF", u"\u00FF")));
    EXPECT_TRUE(checkDecoder(named(u"ISO-8859-6"),
                             DecodeVector().maps("\xC7", u"\u0627").unmappable("\xFF")));
}

TEST(SbcsEncoder, RefusesWhatLiesBeyondItsTable) {
    const auto step = encodeStep(named(u"ISO-8859-2"), u"\u02DD\u2122", 2);
    EXPECT_EQ(step.result, CoderResult::unmappable(1));
    EXPECT_EQ(step.inPosition, 1U);
    EXPECT_EQ(step.text, "\xBD");
    EXPECT_EQ(encodeStep(named(u"ISO-8859-2"), u"\u02DE", 1).result, CoderResult::unmappable(1));
    EXPECT_EQ(encodeStep(named(u"ISO-8859-2"), u"\u2122", 0).result, CoderResult::unmappable(1));
}

TEST(SbcsSparseEncoder, RefusesWhatLiesBeyondTheStoredPartOfItsLastPage) {
    Charset& set = named(u"KOI8-R");
    EXPECT_EQ(encodeStep(set, u"\u25A0", 1).text, "\x94");
    for (const std::size_t room : {0U, 1U}) {
        const auto step = encodeStep(set, u"\u25A1", room);
        EXPECT_EQ(step.result, CoderResult::unmappable(1));
        EXPECT_EQ(step.inPosition, 0U);
    }
    EXPECT_EQ(encodeStep(set, u"\u25A0", 0).result, CoderResult::overflow());
    EXPECT_EQ(encodeStep(set, u"", 0).result, CoderResult::underflow());
}

TEST(SbcsEncoder, AgreesInEveryWayOfRunningIt) {
    Charset& set = named(u"ISO-8859-9");
    EXPECT_TRUE(checkEncoder(set, EncodeVector()));
    EXPECT_TRUE(checkEncoder(set, EncodeVector()
                                      .maps(u"\u015F", "\xFE")
                                      .unmappable(u"\u0160")
                                      .unmappable(u"\u0100")
                                      .unmappable(u"\U0001F600")
                                      .maps(u"\u200B", "")
                                      .malformed(units({0xDC00}))
                                      .unmappable(u"\uFFFF")
                                      .maps(u"\u00AD", "\xAD")));
    EXPECT_TRUE(
        checkEncoder(set, EncodeVector().malformed(units({0xD800}), 2).maps(u"\u011E", "\xD0")));
    EXPECT_TRUE(checkEncoder(set, EncodeVector().maps(u"a", "a").incomplete(units({0xDBFF}))));
}

// A unit with a byte far out, and units without: beyond the highest, in a page that is not there,
// without an entry in a page that is, and in the last page.
struct PagedSample {
    const char16_t* name;
    const char16_t* mapped;
    const char* byte;
    const char16_t* beyond;
    const char16_t* noPage;
    const char16_t* noEntry;
};

TEST(SbcsSparseEncoder, AgreesInEveryWayOfRunningIt) {
    const PagedSample samples[] = {
        {u"windows-1252", u"\u2122", "\x99", u"\u2123", u"\u1000", u"\u0081"},
        {u"ISO-8859-7", u"\u20AF", "\xA5", u"\u20B0", u"\u0500", u"\u03CF"},
        {u"KOI8-R", u"\u25A0", "\x94", u"\u25A1", u"\u0500", u"\u0452"}};
    for (const PagedSample& sample : samples) {
        Charset& set = named(sample.name);
        EXPECT_TRUE(checkEncoder(set, EncodeVector()));
        EXPECT_TRUE(checkEncoder(set, EncodeVector()
                                          .maps(sample.mapped, sample.byte)
                                          .unmappable(sample.beyond)
                                          .unmappable(sample.noPage)
                                          .unmappable(u"\U0001F600")
                                          .maps(u"\u200B", "")
                                          .unmappable(sample.noEntry)
                                          .malformed(units({0xDC00}))
                                          .maps(sample.mapped, sample.byte)));
        EXPECT_TRUE(checkEncoder(
            set, EncodeVector().malformed(units({0xD800}), 2).maps(sample.mapped, sample.byte)));
        EXPECT_TRUE(checkEncoder(set, EncodeVector().maps(u"a", "a").incomplete(units({0xDBFF}))));
    }
}

class SingleByteCoders : public testing::TestWithParam<orvtest::SingleByteShape> {};

TEST_P(SingleByteCoders, SortSurrogates) {
    Charset& set = GetParam().charset();
    for (const std::size_t room : {0U, 4U}) {
        EXPECT_EQ(encodeStep(set, u"\U0001F600", room).result, CoderResult::unmappable(2));
        EXPECT_EQ(encodeStep(set, units({0xDC00}), room).result, CoderResult::malformed(1));
        EXPECT_EQ(encodeStep(set, units({0xDFFF, u'a'}), room).result, CoderResult::malformed(1));
        EXPECT_EQ(encodeStep(set, units({0xD800, u'a'}), room).result, CoderResult::malformed(1));
        EXPECT_EQ(encodeStep(set, units({0xD800, 0xDBFF}), room).result, CoderResult::malformed(1));
        const auto high = encodeStep(set, units({0xDBFF}), room);
        EXPECT_EQ(high.result, CoderResult::underflow());
        EXPECT_EQ(high.inPosition, 0U) << "its partner may still come";
    }
}

TEST_P(SingleByteCoders, TakeEveryByteAndGiveItBack) {
    Charset& set = GetParam().charset();
    for (std::size_t value = 0; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        const auto unit = static_cast<char16_t>(GetParam().decodeTable[value]);
        const auto decoded = decodeStep(set, byte, 1);
        if (unit == 0xDFFF) {
            EXPECT_EQ(decoded.result, CoderResult::unmappable(1)) << value;
            continue;
        }
        EXPECT_EQ(decoded.result, CoderResult::underflow()) << value;
        EXPECT_EQ(decoded.text, std::u16string(1, unit));
        EXPECT_EQ(encodeStep(set, decoded.text, 1).text, byte);
    }
}

// A copy that ends where the table ends, for the eyes of a sanitizer.
std::unique_ptr<std::uint16_t[]> copyOf(std::span<const std::uint16_t> table) {
    std::unique_ptr<std::uint16_t[]> copy(new std::uint16_t[table.size()]);
    std::copy(table.begin(), table.end(), copy.get());
    return copy;
}

TEST_P(SingleByteCoders, ReadNothingBeyondTheirTablesForAnyUnit) {
    const orvtest::SingleByteShape& shape = GetParam();
    Charset* const set = &shape.charset();
    const auto index = copyOf(shape.index);
    const auto data = copyOf(shape.data);
    std::unique_ptr<orv::CharsetEncoder> encoder;
    const auto makePaged = [&]<unsigned int SHIFT>() {
        encoder = std::make_unique<orv::SBCSSparseEncoder<SHIFT>>(set, shape.maxChar, index.get(),
                                                                  data.get());
    };
    switch (shape.shift) {
    case 0:
        encoder = std::make_unique<orv::SBCSEncoder>(set, shape.maxChar, data.get());
        break;
    case 5:
        makePaged.operator()<5>();
        break;
    case 6:
        makePaged.operator()<6>();
        break;
    default:
        makePaged.operator()<7>();
        break;
    }
    encoder->onMalformedInput(orv::IGNORE).onUnmappableCharacter(orv::IGNORE);
    // Every unit, alone and behind as many letters as make up a block.
    std::vector<bool> mapped(0x10000);
    for (const char16 unit : shape.decodeTable) {
        mapped[static_cast<std::size_t>(unit)] = unit != u'\xDFFF';
    }
    const std::string letters(31, 'a');
    for (std::size_t unit = 0; unit < 0x10000; ++unit) {
        const auto c = static_cast<char16_t>(unit);
        const std::size_t size = mapped[unit] ? 1 : 0;
        ASSERT_EQ(encoder->encode(orv::as_ustring_ref({&c, 1})).size(), size) << unit;
        const std::u16string text = std::u16string(31, u'a') + c;
        const std::string bytes = encoder->encode(orv::as_ustring_ref(text));
        ASSERT_EQ(bytes.size(), 31 + size) << unit;
        ASSERT_EQ(bytes.substr(0, 31), letters) << unit;
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, SingleByteCoders, testing::ValuesIn(orvtest::singleByteShapes()),
                         orvtest::ShapeName());

} // namespace
