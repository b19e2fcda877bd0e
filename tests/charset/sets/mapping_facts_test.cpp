// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What is known of the mappings of multi-byte sets beside their files: how many rows there
/// are, and which of several codes of a character is written.
#include "tests/charset/sets/mapping_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace std::literals;

using orvtest::CharCode;
using orvtest::MappedSet;
using orvtest::Mapping;
using orvtest::NO_MAPPING;

const Mapping& mappingOf(const std::string& className) {
    const auto& sets = orvtest::mappedSets();
    return std::find_if(sets.begin(), sets.end(),
                        [&](const MappedSet& set) { return className == set.className; })
        ->mapping();
}

std::size_t countCodes(const Mapping& mapping, unsigned int length) {
    const std::vector<CharCode> codes = mapping.codes();
    return static_cast<std::size_t>(std::count_if(codes.begin(), codes.end(), [&](CharCode code) {
        return code >= 0x80 && orvtest::codeLength(code) == length;
    }));
}

// The characters that more than one code decodes to.
std::size_t countRepeatedCharacters(const Mapping& mapping) {
    std::map<char32_t, int> codes;
    for (const CharCode code : mapping.codes()) {
        ++codes[mapping.decode(code)];
    }
    return static_cast<std::size_t>(std::count_if(
        codes.begin(), codes.end(), [](const auto& entry) { return entry.second > 1; }));
}

// The characters that are written as a code which decodes to something else.
std::vector<char32_t> oneWayCharacters(const Mapping& mapping) {
    std::vector<char32_t> characters;
    for (char32_t c = 0; c < 0x110000; ++c) {
        const CharCode code = mapping.encode(c);
        if (code != NO_MAPPING && mapping.decode(code) != c) {
            characters.push_back(c);
        }
    }
    return characters;
}

using Rows = std::vector<std::pair<CharCode, char32_t>>;

void expectDecoding(const std::string& className, const Rows& rows) {
    for (const auto& [code, character] : rows) {
        EXPECT_EQ(mappingOf(className).decode(code), character)
            << className << " " << std::hex << code;
    }
}

// Characters with several codes, and the one that is written.
void expectEncoding(const std::string& className, const Rows& rows) {
    for (const auto& [code, character] : rows) {
        EXPECT_EQ(mappingOf(className).encode(character), code)
            << className << " " << std::hex << static_cast<std::uint32_t>(character);
    }
}

TEST(MappingFacts, NumbersOfMappedBytesAndPairs) {
    const std::map<std::string, std::size_t> expected = {
        {"Shift_JIS", 6942},   {"Micsft_932", 9667}, {"GBK", 23940},        {"Micsft_936", 23941},
        {"Micsft_949", 17236}, {"Big5", 13708},      {"Micsft_950", 19720}, {"Big5_HKSCS", 18470},
    };
    for (const auto& [name, count] : expected) {
        EXPECT_EQ(countCodes(mappingOf(name), 1) + countCodes(mappingOf(name), 2), count) << name;
    }
}

TEST(MappingFacts, CharactersOfSeveralCodes) {
    EXPECT_EQ(countRepeatedCharacters(mappingOf("Shift_JIS")), 0U);
    EXPECT_EQ(countRepeatedCharacters(mappingOf("Micsft_932")), 396U);
    EXPECT_EQ(countRepeatedCharacters(mappingOf("GBK")), 0U);
    EXPECT_EQ(countRepeatedCharacters(mappingOf("Micsft_936")), 0U);
    EXPECT_EQ(countRepeatedCharacters(mappingOf("Micsft_949")), 0U);
    EXPECT_EQ(countRepeatedCharacters(mappingOf("Micsft_950")), 10U);
    EXPECT_EQ(countRepeatedCharacters(mappingOf("Big5")), 5U);
    EXPECT_EQ(countRepeatedCharacters(mappingOf("Big5_HKSCS")), 19U);
    EXPECT_EQ(countRepeatedCharacters(mappingOf("GB18030")), 0U);
}

TEST(MappingFacts, CodesThatAreWrittenForThem) {
    expectEncoding("Micsft_950", {{0xA2A4, 0x2550},
                                  {0xA2A5, 0x255E},
                                  {0xA2A7, 0x2561},
                                  {0xA2A6, 0x256A},
                                  {0xA27E, 0x256D},
                                  {0xA2A1, 0x256E},
                                  {0xA2A3, 0x256F},
                                  {0xA2A2, 0x2570},
                                  {0xA451, 0x5341},
                                  {0xA4CA, 0x5345}});
    expectEncoding(
        "Big5",
        {{0xA2AC, 0x2571}, {0xA2AD, 0x2572}, {0xA451, 0x5341}, {0xA4CA, 0x5345}, {0xA1C4, 0xFF3F}});
    expectEncoding("Big5_HKSCS", {{0xA2AC, 0x2571},
                                  {0xA2AD, 0x2572},
                                  {0xA451, 0x5341},
                                  {0xA4CA, 0x5345},
                                  {0xA1C4, 0xFF3F},
                                  {0xF9F9, 0x2550},
                                  {0xF9E9, 0x255E},
                                  {0xF9EB, 0x2561},
                                  {0xF9EA, 0x256A},
                                  {0xF9FA, 0x256D},
                                  {0xF9FB, 0x256E},
                                  {0xF9FD, 0x256F},
                                  {0xF9FC, 0x2570}});
    for (const char32_t kana : U"\u306B\u306F\u3071\u3073\u307A\u307B"sv) {
        EXPECT_EQ(mappingOf("Big5_HKSCS").encode(kana) >> 8, 0xC7U);
    }
}

TEST(MappingFacts, CodePage932PrefersTheStandardRows) {
    // JIS X 0208 first, then NEC row 13, then the IBM rows, then the NEC selected ones.
    const auto rank = [](CharCode code) {
        const CharCode lead = code >> 8;
        return lead == 0x87 ? 1 : lead >= 0xFA ? 2 : lead == 0xED || lead == 0xEE ? 3 : 0;
    };
    const Mapping& mapping = mappingOf("Micsft_932");
    for (const CharCode code : mapping.codes()) {
        const CharCode written = mapping.encode(mapping.decode(code));
        if (written != code) {
            EXPECT_TRUE(mapping.isDecodeOnly(code)) << std::hex << code;
            EXPECT_LT(rank(written), rank(code)) << std::hex << code;
        }
    }
}

TEST(MappingFacts, CharactersThatAreOnlyEncoded) {
    const auto none = std::vector<char32_t>();
    EXPECT_EQ(oneWayCharacters(mappingOf("Shift_JIS")), (std::vector<char32_t>{0xA5, 0x203E}));
    expectEncoding("Shift_JIS", {{0x5C, 0xA5}, {0x7E, 0x203E}});
    EXPECT_EQ(oneWayCharacters(mappingOf("Micsft_932")),
              (std::vector<char32_t>{0xA2, 0xA3, 0xA5, 0xAB, 0xAC, 0xAF, 0xB5, 0xB7, 0xB8, 0xBB,
                                     0x203E, 0x3094}));
    expectEncoding("Micsft_932", {{0x8191, 0xA2},
                                  {0x8192, 0xA3},
                                  {0x5C, 0xA5},
                                  {0x81E1, 0xAB},
                                  {0x81CA, 0xAC},
                                  {0x8150, 0xAF},
                                  {0x83CA, 0xB5},
                                  {0x8145, 0xB7},
                                  {0x8143, 0xB8},
                                  {0x81E2, 0xBB},
                                  {0x7E, 0x203E},
                                  {0x8394, 0x3094}});
    for (const char* name : {"GBK", "Micsft_936", "Micsft_949", "Micsft_950", "Big5", "GB18030"}) {
        EXPECT_EQ(oneWayCharacters(mappingOf(name)), none) << name;
    }
    const std::vector<char32_t> hkscs = oneWayCharacters(mappingOf("Big5_HKSCS"));
    EXPECT_EQ(hkscs.size(), 4970U);
    EXPECT_EQ(std::count_if(hkscs.begin(), hkscs.end(),
                            [](char32_t c) { return c >= 0xE000 && c <= 0xF848; }),
              4968);
    expectEncoding("Big5_HKSCS", {{0xFA40, 0xE000},
                                  {0x8F40, 0xE3AE},
                                  {0xC8F5, 0xF83F},
                                  {0xFEFD, 0xFFFD},
                                  {0xFEFE, 0x2FFFD}});
    expectDecoding("Big5_HKSCS", {{0xFEFD, 0x2910D}, {0xFEFE, 0x79D4}});
}

TEST(MappingFacts, RowsThatTellTheJapaneseSetsApart) {
    expectDecoding("Shift_JIS", {{0x815C, 0x2014},
                                 {0x815F, 0xFF3C},
                                 {0x8160, 0x301C},
                                 {0x8161, 0x2016},
                                 {0x817C, 0x2212},
                                 {0x8191, 0x00A2},
                                 {0x8192, 0x00A3},
                                 {0x81CA, 0x00AC},
                                 {0xA1, 0xFF61},
                                 {0xDF, 0xFF9F},
                                 {0x80, NO_MAPPING},
                                 {0xA0, NO_MAPPING},
                                 {0xFD, NO_MAPPING},
                                 {0xFE, NO_MAPPING},
                                 {0xFF, NO_MAPPING}});
    expectDecoding("Micsft_932", {{0x815C, 0x2015},
                                  {0x815F, 0xFF3C},
                                  {0x8160, 0xFF5E},
                                  {0x8161, 0x2225},
                                  {0x817C, 0xFF0D},
                                  {0x8191, 0xFFE0},
                                  {0x8192, 0xFFE1},
                                  {0x81CA, 0xFFE2},
                                  {0xF040, 0xE000},
                                  {0xF9FC, 0xE757},
                                  {0x80, NO_MAPPING},
                                  {0xA0, NO_MAPPING},
                                  {0xFD, NO_MAPPING},
                                  {0xFE, NO_MAPPING},
                                  {0xFF, NO_MAPPING},
                                  {0x8540, NO_MAPPING}});
    // They share the rows of JIS X 0208, but for these seven.
    int different = 0;
    const Mapping jis = mappingOf("Shift_JIS");
    const Mapping& page = mappingOf("Micsft_932");
    for (const CharCode code : jis.codes()) {
        different += page.decode(code) == jis.decode(code) ? 0 : 1;
    }
    EXPECT_EQ(different, 7);
}

TEST(MappingFacts, RowsThatTellTheChineseSetsApart) {
    expectDecoding("Micsft_936",
                   {{0x80, 0x20AC}, {0xFF, NO_MAPPING}, {0xA2E3, 0xE76C}, {0xA892, 0x2295}});
    const Mapping page = mappingOf("Micsft_936");
    const Mapping& gbk = mappingOf("GBK");
    Rows different;
    for (CharCode code = 0; code < 0x10000; ++code) {
        if (gbk.decode(code) != page.decode(code)) {
            different.emplace_back(code, gbk.decode(code));
        }
    }
    EXPECT_EQ(different, (Rows{{0x80, NO_MAPPING}, {0xA2E3, 0x20AC}, {0xA892, 0x2641}}));
}

TEST(MappingFacts, UserDefinedRunsOfCodePage936) {
    struct Run {
        CharCode from;
        CharCode to;
        char32_t first;
        char32_t last;
    };
    const Mapping& mapping = mappingOf("Micsft_936");
    std::size_t members = 0;
    for (const Run& run : std::initializer_list<Run>{{0xA140, 0xA2A0, 0xE4C6, 0xE585},
                                                     {0xA2AB, 0xA2FE, 0xE766, 0xE771},
                                                     {0xA340, 0xA4A0, 0xE586, 0xE645},
                                                     {0xA4F4, 0xA4FE, 0xE772, 0xE77C},
                                                     {0xA540, 0xA5A0, 0xE646, 0xE6A5},
                                                     {0xA5F7, 0xA5FE, 0xE77D, 0xE784},
                                                     {0xA640, 0xA6A0, 0xE6A6, 0xE705},
                                                     {0xA6B9, 0xA6FE, 0xE785, 0xE79F},
                                                     {0xA740, 0xA7A0, 0xE706, 0xE765},
                                                     {0xA7C2, 0xA9FE, 0xE7A0, 0xE80F},
                                                     {0xAAA1, 0xAFFE, 0xE000, 0xE233},
                                                     {0xD7FA, 0xD7FE, 0xE810, 0xE814},
                                                     {0xF8A1, 0xFDFE, 0xE234, 0xE467},
                                                     {0xFE50, 0xFEA0, 0xE815, 0xE864},
                                                     {0xFEA1, 0xFEFE, 0xE468, 0xE4C5}}) {
        // The private characters between the ends, in order and without a gap.
        char32_t next = run.first;
        for (CharCode code = run.from; code <= run.to; ++code) {
            const char32_t character = mapping.decode(code);
            if (character >= run.first && character <= run.last) {
                EXPECT_EQ(character, next) << std::hex << code;
                ++next;
                ++members;
            }
        }
        EXPECT_EQ(next, run.last + 1) << std::hex << run.from;
        EXPECT_EQ(mapping.decode(run.from), run.first) << std::hex << run.from;
        EXPECT_EQ(mapping.decode(run.to), run.last) << std::hex << run.to;
    }
    EXPECT_EQ(members, std::size_t{0xE864 - 0xE000 + 1});
}

TEST(MappingFacts, UserDefinedRowsOfTheOtherCodePages) {
    expectDecoding("Micsft_949", {{0xC9A1, 0xE000},
                                  {0xC9FE, 0xE05D},
                                  {0xFEA1, 0xE05E},
                                  {0xFEFE, 0xE0BB},
                                  {0x80, NO_MAPPING},
                                  {0xFF, NO_MAPPING}});
    expectDecoding("Micsft_950", {{0x8140, 0xEEB8},
                                  {0x8DFE, 0xF6B0},
                                  {0x8E40, 0xE311},
                                  {0xA0FE, 0xEEB7},
                                  {0xC6A1, 0xF6B1},
                                  {0xC8FE, 0xF848},
                                  {0xFA40, 0xE000},
                                  {0xFEFE, 0xE310},
                                  {0x80, NO_MAPPING}});
}

TEST(MappingFacts, RowsOfBig5) {
    expectDecoding("Big5", {{0xC6A1, 0x30FE},
                            {0xA145, 0x2022},
                            {0xA14E, 0xFF64},
                            {0xA15A, 0xFF3F},
                            {0xA1C2, 0x203E},
                            {0xA1E3, 0x223C},
                            {0xA1F2, 0x2641},
                            {0xA1F3, 0x2609},
                            {0xA1FE, 0x2571},
                            {0xA240, 0x2572},
                            {0xA241, 0xFF0F},
                            {0xA242, 0xFF3C},
                            {0xA244, 0x00A5},
                            {0xA246, 0x00A2},
                            {0xA247, 0x00A3},
                            {0xA1C3, NO_MAPPING},
                            {0xA1C5, NO_MAPPING}});
    expectDecoding("Big5_HKSCS", {{0xC6A1, 0x2460},
                                  {0x8862, NO_MAPPING},
                                  {0x8864, NO_MAPPING},
                                  {0x88A3, NO_MAPPING},
                                  {0x88A5, NO_MAPPING}});
    const Mapping hkscs = mappingOf("Big5_HKSCS");
    const Mapping& big5 = mappingOf("Big5");
    std::size_t different = 0;
    for (const CharCode code : big5.codes()) {
        if (big5.decode(code) != hkscs.decode(code)) {
            EXPECT_GE(code, 0xC6A1U) << std::hex << code;
            ++different;
        }
    }
    EXPECT_EQ(different, 243U);
    std::size_t supplementary = 0;
    for (const CharCode code : hkscs.codes()) {
        supplementary += hkscs.decode(code) >> 16 == 2 ? 1U : 0U;
        EXPECT_TRUE(code < 0x100 || code >= 0x8740) << std::hex << code;
    }
    EXPECT_EQ(supplementary, 1713U);
    EXPECT_NE(hkscs.decode(0x87DF), NO_MAPPING);
    EXPECT_EQ(hkscs.decode(0x87E0), NO_MAPPING);
}

TEST(MappingFacts, Gb18030CoversAllOfUnicodeInTheEditionOf2000) {
    const Mapping& mapping = mappingOf("GB18030");
    EXPECT_EQ(countCodes(mapping, 1), 0U);
    EXPECT_EQ(countCodes(mapping, 2), 23940U);
    EXPECT_EQ(countCodes(mapping, 4), 39420U + 0x100000U);
    expectDecoding("GB18030", {{0xA2E3, 0x20AC},
                               {0xA8BC, 0xE7C7},
                               {0xA6D9, 0xE78D},
                               {0x81308130, 0x0080},
                               {0x8431A439, 0xFFFF},
                               {0x84328130, NO_MAPPING},
                               {0x90308130, 0x10000},
                               {0xE3329A35, 0x10FFFF},
                               {0xFE39FE39, NO_MAPPING}});
    for (char32_t c = 0; c < 0x110000; ++c) {
        ASSERT_EQ(mapping.encode(c) == NO_MAPPING, c >= 0xD800 && c <= 0xDFFF);
    }
}

} // namespace
