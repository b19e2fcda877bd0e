// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rows of the double-byte sets by which the editions of a mapping differ.
#include "tests/charset/sets/double_byte_shapes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using orvtest::DoubleByteShape;

constexpr std::uint32_t NONE = DoubleByteShape::NONE;

struct Row {
    unsigned int code;
    std::uint32_t character;
};

void checkRows(std::string_view set, const std::vector<Row>& rows) {
    const DoubleByteShape& shape = orvtest::shapeOf(set);
    for (const Row& row : rows) {
        EXPECT_EQ(shape.decoded(row.code), row.character) << set << ' ' << std::hex << row.code;
        // As a caller sees it.
        const auto step = orvtest::decodeStep(shape.charset(), orvtest::bytesOf(row.code), 2);
        if (row.character == NONE) {
            EXPECT_EQ(step.result, orv::CoderResult::unmappable(row.code < 0x100 ? 1U : 2U))
                << set << ' ' << std::hex << row.code;
        } else {
            EXPECT_EQ(step.text, orvtest::unitsOf(row.character))
                << set << ' ' << std::hex << row.code;
        }
    }
}

void checkEncoderRows(std::string_view set, const std::vector<Row>& rows) {
    const DoubleByteShape& shape = orvtest::shapeOf(set);
    for (const Row& row : rows) {
        const auto step = orvtest::encodeStep(shape.charset(), orvtest::unitsOf(row.character), 2);
        EXPECT_EQ(step.text, orvtest::bytesOf(row.code)) << set << ' ' << std::hex << row.character;
    }
}

// Positions in byte order are characters that count up by one. Of the trail bytes of code page 950
// only those of Big5 have positions.
void checkRun(std::string_view set, unsigned int from, unsigned int to, std::uint32_t first,
              std::uint32_t last) {
    const DoubleByteShape& shape = orvtest::shapeOf(set);
    const auto hasPosition = [&](unsigned int trail) {
        return shape.isTrail(trail) && (set != "Micsft_950" || trail < 0x80 || trail > 0xA0);
    };
    std::uint32_t character = first;
    for (unsigned int code = from; code <= to; ++code) {
        if (hasPosition(code & 0xFF)) {
            ASSERT_EQ(shape.decoded(code), character) << set << ' ' << std::hex << code;
            ASSERT_EQ(shape.encoded(character), code) << set << ' ' << std::hex << character;
            ++character;
        }
    }
    EXPECT_EQ(character, last + 1) << set << ' ' << std::hex << from;
}

TEST(DoubleByteRows, OfShiftJis) {
    checkRows("Shift_JIS", {{0x815C, 0x2014},
                            {0x815F, 0xFF3C},
                            {0x8160, 0x301C},
                            {0x8161, 0x2016},
                            {0x817C, 0x2212},
                            {0x8191, 0xA2},
                            {0x8192, 0xA3},
                            {0x81CA, 0xAC},
                            {0x80, NONE},
                            {0xA0, NONE},
                            {0xFD, NONE},
                            {0xFE, NONE},
                            {0xFF, NONE},
                            {0x5C, 0x5C},
                            {0x7E, 0x7E}});
    checkEncoderRows("Shift_JIS", {{0x5C, 0xA5}, {0x7E, 0x203E}, {0x5C, 0x5C}, {0x7E, 0x7E}});
    for (const char* const set : {"Shift_JIS", "Micsft_932"}) {
        const DoubleByteShape& shape = orvtest::shapeOf(set);
        for (unsigned int byte = 0xA1; byte <= 0xDF; ++byte) {
            EXPECT_EQ(shape.decoded(byte), 0xFF61U + byte - 0xA1U) << set;
            EXPECT_EQ(shape.encoded(0xFF61U + byte - 0xA1U), byte) << set;
        }
    }
}

TEST(DoubleByteRows, OfCodePage932) {
    checkRows("Micsft_932", {{0x815C, 0x2015},
                             {0x815F, 0xFF3C},
                             {0x8160, 0xFF5E},
                             {0x8161, 0x2225},
                             {0x817C, 0xFF0D},
                             {0x8191, 0xFFE0},
                             {0x8192, 0xFFE1},
                             {0x81CA, 0xFFE2},
                             {0x80, NONE},
                             {0xA0, NONE},
                             {0xFD, NONE},
                             {0xFE, NONE},
                             {0xFF, NONE},
                             {0x8740, 0x2460},
                             {0xED40, 0x7E8A},
                             {0xFA5C, 0x7E8A}});
    checkRun("Micsft_932", 0xF040, 0xF9FC, 0xE000, 0xE757);
    // No other code of the standard differs from Shift_JIS than those seven.
    const DoubleByteShape& plain = orvtest::shapeOf("Shift_JIS");
    const DoubleByteShape& wide = orvtest::shapeOf("Micsft_932");
    std::vector<unsigned int> different;
    for (const unsigned int code : plain.mappedCodes()) {
        if (plain.decoded(code) != wide.decoded(code)) {
            different.push_back(code);
        }
    }
    EXPECT_EQ(different,
              (std::vector<unsigned int>{0x815C, 0x8160, 0x8161, 0x817C, 0x8191, 0x8192, 0x81CA}));
    for (const unsigned int code : wide.mappedCodes()) {
        const unsigned int lead = code >> 8;
        EXPECT_TRUE(plain.decoded(code) != NONE || lead == 0x87 || lead == 0xED || lead == 0xEE ||
                    (lead >= 0xF0 && lead <= 0xFC))
            << std::hex << code;
    }
}

TEST(DoubleByteRows, OfCodePage936) {
    checkRows("Micsft_936", {{0x80, 0x20AC}, {0xFF, NONE}, {0xA2E3, 0xE76C}, {0xA892, 0x2295}});
    checkEncoderRows("Micsft_936", {{0x80, 0x20AC}});
    const struct {
        unsigned int from;
        unsigned int to;
        std::uint32_t first;
        std::uint32_t last;
    } runs[] = {{0xA140, 0xA2A0, 0xE4C6, 0xE585}, {0xA2AB, 0xA2FE, 0xE766, 0xE771},
                {0xA340, 0xA4A0, 0xE586, 0xE645}, {0xA4F4, 0xA4FE, 0xE772, 0xE77C},
                {0xA540, 0xA5A0, 0xE646, 0xE6A5}, {0xA5F7, 0xA5FE, 0xE77D, 0xE784},
                {0xA640, 0xA6A0, 0xE6A6, 0xE705}, {0xA6B9, 0xA6FE, 0xE785, 0xE79F},
                {0xA740, 0xA7A0, 0xE706, 0xE765}, {0xA7C2, 0xA9FE, 0xE7A0, 0xE80F},
                {0xAAA1, 0xAFFE, 0xE000, 0xE233}, {0xD7FA, 0xD7FE, 0xE810, 0xE814},
                {0xF8A1, 0xFDFE, 0xE234, 0xE467}, {0xFE50, 0xFEA0, 0xE815, 0xE864},
                {0xFEA1, 0xFEFE, 0xE468, 0xE4C5}};
    const DoubleByteShape& shape = orvtest::shapeOf("Micsft_936");
    // A run holds the positions among its ends that have no published character.
    std::size_t privateCodes = 0;
    for (const auto& run : runs) {
        EXPECT_EQ(shape.decoded(run.from), run.first) << std::hex << run.from;
        EXPECT_EQ(shape.decoded(run.to), run.last) << std::hex << run.to;
        std::uint32_t next = run.first;
        for (unsigned int code = run.from; code <= run.to; ++code) {
            const std::uint32_t character = shape.isTrail(code & 0xFF) ? shape.decoded(code) : NONE;
            if (character >= 0xE000 && character <= 0xF8FF && character >= run.first &&
                character <= run.last) {
                ASSERT_EQ(character, next) << std::hex << code;
                ASSERT_EQ(shape.encoded(character), code);
                ++next;
            }
        }
        EXPECT_EQ(next, run.last + 1) << std::hex << run.from;
        privateCodes += next - run.first;
    }
    std::size_t allPrivate = 0;
    for (const unsigned int code : shape.mappedCodes()) {
        const std::uint32_t character = shape.decoded(code);
        allPrivate += character >= 0xE000 && character <= 0xF8FF ? 1U : 0U;
    }
    EXPECT_EQ(allPrivate, privateCodes);
}

TEST(DoubleByteRows, OfGbkDifferFromCodePage936InThree) {
    checkRows("GBK", {{0x80, NONE}, {0xFF, NONE}, {0xA2E3, 0x20AC}, {0xA892, 0x2641}});
    checkEncoderRows("GBK", {{0xA2E3, 0x20AC}});
    std::vector<unsigned int> different;
    for (const unsigned int code : orvtest::shapeOf("Micsft_936").mappedCodes()) {
        if (orvtest::shapeOf("GBK").decoded(code) != orvtest::shapeOf("Micsft_936").decoded(code)) {
            different.push_back(code);
        }
    }
    EXPECT_EQ(different, (std::vector<unsigned int>{0x80, 0xA2E3, 0xA892}));
}

TEST(DoubleByteRows, OfCodePage949HaveThePrivateAreaInTwoRows) {
    checkRun("Micsft_949", 0xC9A1, 0xC9FE, 0xE000, 0xE05D);
    checkRun("Micsft_949", 0xFEA1, 0xFEFE, 0xE05E, 0xE0BB);
    checkRows("Micsft_949", {{0xB0A1, 0xAC00}, {0x8141, 0xAC02}, {0xC8FE, 0xD79D}});
}

TEST(DoubleByteRows, OfCodePage950) {
    checkRun("Micsft_950", 0x8140, 0x8DFE, 0xEEB8, 0xF6B0);
    checkRun("Micsft_950", 0x8E40, 0xA0FE, 0xE311, 0xEEB7);
    checkRun("Micsft_950", 0xC6A1, 0xC8FE, 0xF6B1, 0xF848);
    checkRun("Micsft_950", 0xFA40, 0xFEFE, 0xE000, 0xE310);
}

const std::vector<Row> BIG5_ROWS = {
    {0xA145, 0x2022}, {0xA14E, 0xFF64}, {0xA15A, 0xFF3F}, {0xA1C2, 0x203E},
    {0xA1E3, 0x223C}, {0xA1F2, 0x2641}, {0xA1F3, 0x2609}, {0xA1FE, 0x2571},
    {0xA240, 0x2572}, {0xA241, 0xFF0F}, {0xA242, 0xFF3C}, {0xA244, 0xA5},
    {0xA246, 0xA2},   {0xA247, 0xA3},   {0xA1C3, NONE},   {0xA1C5, NONE}};

TEST(DoubleByteRows, OfBig5) {
    checkRows("Big5", BIG5_ROWS);
    checkRows("Big5", {{0xC6A1, 0x30FE}});
    for (const Row& row : BIG5_ROWS) {
        EXPECT_NE(orvtest::shapeOf("Micsft_950").decoded(row.code), row.character)
            << std::hex << row.code;
    }
}

TEST(DoubleByteRows, OfHongKong) {
    checkRows("Big5_HKSCS", BIG5_ROWS);
    checkRows("Big5_HKSCS", {{0xC6A1, 0x2460},
                             {0x8862, NONE},
                             {0x8864, NONE},
                             {0x88A3, NONE},
                             {0x88A5, NONE},
                             {0xFEFD, 0x2910D},
                             {0xFEFE, 0x79D4}});
    const DoubleByteShape& hkscs = orvtest::shapeOf("Big5_HKSCS");
    const DoubleByteShape& big5 = orvtest::shapeOf("Big5");
    EXPECT_NE(hkscs.decoded(0x87DF), NONE);
    for (unsigned int trail = 0xE0; trail <= 0xFE; ++trail) {
        EXPECT_EQ(hkscs.decoded(0x8700 | trail), NONE);
    }
    std::vector<unsigned int> different;
    for (const unsigned int code : big5.mappedCodes()) {
        // Trail bytes from 0x80 to 0xA0 have no rows in either set.
        ASSERT_TRUE(hkscs.isTrail(code & 0xFF)) << std::hex << code;
        if (big5.decoded(code) != hkscs.decoded(code)) {
            different.push_back(code);
        }
    }
    EXPECT_EQ(different.size(), 243U);
    EXPECT_EQ(different.front(), 0xC6A1U);
    std::size_t supplementary = 0;
    for (const unsigned int code : hkscs.mappedCodes()) {
        const std::uint32_t character = hkscs.decoded(code);
        supplementary += character >= 0x20000 && character < 0x30000 ? 1U : 0U;
        ASSERT_TRUE(character < 0x10000 || character >= 0x20000);
    }
    EXPECT_EQ(supplementary, 1'713U);
}

} // namespace
