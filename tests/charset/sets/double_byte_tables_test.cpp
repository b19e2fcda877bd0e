// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The tables of the double-byte sets: every count, what is stored for nothing, and
/// characters with two codes.
#include "tests/charset/sets/double_byte_shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using orvtest::DoubleByteShape;
using orvtest::TableCounts;
using orvtest::TwoLevelTable;

constexpr std::uint32_t NONE = DoubleByteShape::NONE;
constexpr std::uint32_t UNMAPPED_ID = 0xDFFF;
constexpr std::uint32_t UNMAPPED_KEY = 0xFFFF;

class DoubleByteTables : public testing::TestWithParam<DoubleByteShape> {
protected:
    const DoubleByteShape& shape() const { return GetParam(); }
};

void checkCounts(const TwoLevelTable& table, const TableCounts& counts) {
    EXPECT_EQ(table.shift, counts.shift);
    EXPECT_EQ(table.index.size(), counts.indexEntries);
    EXPECT_EQ(table.pages(), counts.pages);
    EXPECT_EQ(table.data.size(), counts.dataEntries);
}

// Every page is stored once, in ascending order, and holds something.
void checkPages(const TwoLevelTable& table, std::uint32_t unmapped) {
    std::size_t next = 0;
    for (const std::uint16_t begin : table.index) {
        if (begin == 0xFFFF) {
            continue;
        }
        ASSERT_EQ(begin, next);
        next += table.pageSize();
        const auto* const first = table.data.data() + begin;
        const auto* const last = table.data.data() + std::min(next, table.data.size());
        ASSERT_TRUE(std::any_of(first, last, [&](std::uint32_t e) { return e != unmapped; }));
    }
    ASSERT_LE(table.data.size(), next);
    ASSERT_GT(table.data.size() + table.pageSize(), next);
}

TEST_P(DoubleByteTables, HaveTheCountsOfTheCatalogue) {
    checkCounts(shape().decodeTable, shape().decode);
    checkCounts(shape().encodeTable, shape().encode);
    EXPECT_EQ(shape().mappedCodes().size(), shape().mappedIds);
    EXPECT_EQ(shape().maxKey, shape().highestKey);
    EXPECT_NE(shape().encoded(shape().highestKey), NONE);
    EXPECT_EQ(shape().encodeTable.index.size(),
              (shape().highestKey >> shape().encodeTable.shift) + 1);
}

TEST_P(DoubleByteTables, StorePagesInOrderEachOnce) {
    checkPages(shape().decodeTable, UNMAPPED_ID);
    checkPages(shape().encodeTable, UNMAPPED_KEY);
}

// The fast loops look up more than the rules need; see the comments of the coders.
TEST_P(DoubleByteTables, HaveAnEntryForAllThatTheFastLoopsLookUp) {
    for (unsigned int value = 0; value < 0x80; ++value) {
        EXPECT_EQ(shape().decodeTable.at(value, NONE), value);
        EXPECT_EQ(shape().encodeTable.at(value, NONE), value);
    }
    for (unsigned int lead = 0x80; lead < 0x100; ++lead) {
        if (!shape().isLead(lead)) {
            continue;
        }
        for (unsigned int trail = 0x40; trail < 0x100; ++trail) {
            const unsigned int id = (lead - 0x80) * 192 + trail;
            const std::uint32_t entry = shape().decodeTable.at(id, UNMAPPED_ID);
            ASSERT_TRUE(shape().isTrail(trail) || entry == UNMAPPED_ID) << lead << ' ' << trail;
        }
    }
    for (std::uint32_t key = 0; key <= shape().highestKey; ++key) {
        const std::uint32_t entry = shape().encodeTable.at(key, UNMAPPED_KEY);
        ASSERT_TRUE((key & 0xFFFFF800) != 0xD800 || entry == UNMAPPED_KEY) << key;
    }
}

// Nothing stands in a table that no code and no character reaches.
TEST_P(DoubleByteTables, DecodeNoIdButThoseOfCodes) {
    std::size_t stored = 0;
    for (std::size_t id = 0x80;
         id < shape().decodeTable.index.size() * shape().decodeTable.pageSize(); ++id) {
        const auto& table = shape().decodeTable;
        const std::uint16_t begin = table.index[id >> table.shift];
        if (begin == 0xFFFF || begin + id % table.pageSize() >= table.data.size()) {
            continue;
        }
        const std::uint32_t entry = table.at(id, UNMAPPED_ID);
        stored += entry != UNMAPPED_ID ? 1U : 0U;
        ASSERT_TRUE(entry == UNMAPPED_ID || (entry & 0xFFFFF800) != 0xD800);
        ASSERT_LT(entry, 0x30000U);
    }
    EXPECT_EQ(stored, shape().mappedIds);
}

TEST_P(DoubleByteTables, DecodeAsLeadAndTrailBytesOfTheCatalogueOnly) {
    const auto decoder = shape().charset().newDecoder();
    for (unsigned int first = 0; first < 0x100; ++first) {
        const auto alone = orvtest::decodeStep(shape().charset(), orvtest::bytesOf(first), 2);
        ASSERT_EQ(alone.result == orv::CoderResult::underflow() && alone.inPosition == 0,
                  shape().isLead(first))
            << first;
        if (!shape().isLead(first)) {
            continue;
        }
        for (unsigned int second = 0; second < 0x100; ++second) {
            const std::string bytes = orvtest::bytesOf(first << 8 | second);
            const auto pair = orvtest::decodeStep(shape().charset(), bytes, 2);
            ASSERT_EQ(pair.result == orv::CoderResult::malformed(1), !shape().isTrail(second))
                << first << ' ' << second;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, DoubleByteTables, testing::ValuesIn(orvtest::doubleByteShapes()),
                         orvtest::DoubleByteName());

// Characters of several codes, with the codes in order.
std::map<std::uint32_t, std::vector<unsigned int>> charactersOfSeveralCodes(std::string_view set) {
    const DoubleByteShape& shape = orvtest::shapeOf(set);
    std::map<std::uint32_t, std::vector<unsigned int>> codes;
    for (const unsigned int code : shape.mappedCodes()) {
        codes[shape.decoded(code)].push_back(code);
    }
    std::erase_if(codes, [](const auto& entry) { return entry.second.size() < 2; });
    return codes;
}

// Rows that encode to a code that is another's, or nobody's.
std::map<std::uint32_t, unsigned int> oneWayRows(std::string_view set) {
    const DoubleByteShape& shape = orvtest::shapeOf(set);
    std::map<std::uint32_t, unsigned int> rows;
    for (std::uint32_t key = 0x80; key <= shape.highestKey; ++key) {
        const std::uint32_t code = shape.encoded(key);
        if (code != NONE && shape.decoded(code) != key) {
            rows.emplace(key, code);
        }
    }
    return rows;
}

using Rows = std::map<std::uint32_t, unsigned int>;

Rows chosenCodes(std::string_view set) {
    Rows rows;
    for (const auto& [character, codes] : charactersOfSeveralCodes(set)) {
        rows.emplace(character, orvtest::shapeOf(set).encoded(character));
    }
    return rows;
}

TEST(OneWayRows, OfShiftJisAreTheYenSignAndTheOverline) {
    EXPECT_EQ(oneWayRows("Shift_JIS"), (Rows{{0xA5, 0x5C}, {0x203E, 0x7E}}));
    EXPECT_EQ(chosenCodes("Shift_JIS"), Rows());
}

TEST(OneWayRows, OfCodePage932AreTwelve) {
    EXPECT_EQ(oneWayRows("Micsft_932"), (Rows{{0xA2, 0x8191},
                                              {0xA3, 0x8192},
                                              {0xA5, 0x5C},
                                              {0xAB, 0x81E1},
                                              {0xAC, 0x81CA},
                                              {0xAF, 0x8150},
                                              {0xB5, 0x83CA},
                                              {0xB7, 0x8145},
                                              {0xB8, 0x8143},
                                              {0xBB, 0x81E2},
                                              {0x203E, 0x7E},
                                              {0x3094, 0x8394}}));
}

TEST(OneWayRows, AreNoneInTheChineseAndKoreanSetsButHongKongs) {
    for (const char* const set : {"GBK", "Micsft_936", "Micsft_949"}) {
        EXPECT_EQ(oneWayRows(set), Rows()) << set;
        EXPECT_EQ(chosenCodes(set), Rows()) << set;
    }
    EXPECT_EQ(oneWayRows("Big5"), Rows());
    EXPECT_EQ(oneWayRows("Micsft_950"), Rows());
}

TEST(OneWayRows, OfHongKongAreTheFormerPrivateCodesAndTwoMore) {
    Rows rows = oneWayRows("Big5_HKSCS");
    EXPECT_EQ(rows.size(), 4'970U);
    EXPECT_EQ(rows[0xE000], 0xFA40U);
    EXPECT_EQ(rows[0xE3AE], 0x8F40U);
    EXPECT_EQ(rows[0xF83F], 0xC8F5U);
    EXPECT_EQ(rows[0xFFFD], 0xFEFDU);
    EXPECT_EQ(rows[0x2FFFD], 0xFEFEU);
    rows.erase(0xFFFD);
    rows.erase(0x2FFFD);
    EXPECT_EQ(rows.size(), 4'968U);
    EXPECT_EQ(rows.begin()->first, 0xE000U);
    EXPECT_LE(rows.rbegin()->first, 0xF848U);
    const DoubleByteShape& shape = orvtest::shapeOf("Big5_HKSCS");
    EXPECT_EQ(shape.decoded(0xFEFD), 0x2910DU);
    EXPECT_EQ(shape.decoded(0xFEFE), 0x79D4U);
    // A code that stands for a letter with a combining mark has no character of its own.
    std::set<unsigned int> without;
    for (const auto& [key, code] : rows) {
        if (shape.decoded(code) == NONE) {
            without.insert(code);
        }
    }
    EXPECT_EQ(without, (std::set<unsigned int>{0x8862, 0x8864, 0x88A3, 0x88A5}));
}

TEST(TwoCodes, OfCodePage932ChooseTheStandardRowThenNecsThenIbms) {
    const auto several = charactersOfSeveralCodes("Micsft_932");
    EXPECT_EQ(several.size(), 396U);
    std::size_t three = 0;
    for (const auto& [character, codes] : several) {
        ASSERT_LE(codes.size(), 3U);
        three += codes.size() == 3 ? 1U : 0U;
        // 0 the standard, 1 NEC's row 13, 2 IBM's, 3 those that NEC selected.
        const auto rank = [](unsigned int code) {
            const unsigned int lead = code >> 8;
            return lead == 0x87 ? 1 : lead >= 0xFA ? 2 : lead == 0xED || lead == 0xEE ? 3 : 0;
        };
        const unsigned int chosen = orvtest::shapeOf("Micsft_932").encoded(character);
        const auto best = std::min_element(codes.begin(), codes.end(),
                                           [&](auto a, auto b) { return rank(a) < rank(b); });
        ASSERT_EQ(chosen, *best) << std::hex << character;
    }
    EXPECT_GT(three, 0U);
}

TEST(TwoCodes, OfCodePage950AreTen) {
    EXPECT_EQ(chosenCodes("Micsft_950"), (Rows{{0x2550, 0xA2A4},
                                               {0x255E, 0xA2A5},
                                               {0x2561, 0xA2A7},
                                               {0x256A, 0xA2A6},
                                               {0x256D, 0xA27E},
                                               {0x256E, 0xA2A1},
                                               {0x256F, 0xA2A3},
                                               {0x2570, 0xA2A2},
                                               {0x5341, 0xA451},
                                               {0x5345, 0xA4CA}}));
}

TEST(TwoCodes, OfBig5AreFive) {
    EXPECT_EQ(chosenCodes("Big5"), (Rows{{0x2571, 0xA2AC},
                                         {0x2572, 0xA2AD},
                                         {0x5341, 0xA451},
                                         {0x5345, 0xA4CA},
                                         {0xFF3F, 0xA1C4}}));
}

TEST(TwoCodes, OfHongKongAreNineteen) {
    const Rows chosen = chosenCodes("Big5_HKSCS");
    Rows expected = {{0x2550, 0xF9F9}, {0x255E, 0xF9E9}, {0x2561, 0xF9EB}, {0x256A, 0xF9EA},
                     {0x256D, 0xF9FA}, {0x256E, 0xF9FB}, {0x256F, 0xF9FD}, {0x2570, 0xF9FC}};
    const Rows big5 = chosenCodes("Big5");
    expected.insert(big5.begin(), big5.end());
    for (const std::uint32_t kana : {0x306BU, 0x306FU, 0x3071U, 0x3073U, 0x307AU, 0x307BU}) {
        ASSERT_TRUE(chosen.contains(kana)) << std::hex << kana;
        EXPECT_EQ(chosen.at(kana) >> 8, 0xC7U) << std::hex << kana;
        expected.emplace(kana, chosen.at(kana));
    }
    EXPECT_EQ(expected.size(), 19U);
    EXPECT_EQ(chosen, expected);
}

} // namespace
