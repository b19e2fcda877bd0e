// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the comparison of two libraries finds, and how it folds that into rows: by
/// converters of a few rows.
#include "tests/differential/mapping_differences.h"

#include "tests/differential/page_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace {

using orvtest::CharsetPeer;
using orvtest::CodeForm;
using orvtest::DifferenceRow;
using orvtest::MappingDifference;
using testing::ElementsAre;
using testing::IsEmpty;

/// Rows as they are given.
class SmallPeer : public CharsetPeer {
public:
    explicit SmallPeer(std::map<std::string, char32_t> rows) : decode_(std::move(rows)) {
        for (const auto& [bytes, character] : decode_) {
            encode_.emplace(character, bytes);
        }
    }

    SmallPeer& oneWay(char32_t character, const std::string& bytes) {
        encode_[character] = bytes;
        return *this;
    }

    std::u32string decode(std::string_view bytes) override {
        const auto found = decode_.find(std::string(bytes));
        return found == decode_.end() ? std::u32string() : std::u32string(1, found->second);
    }
    std::string encode(char32_t character) override {
        const auto found = encode_.find(character);
        return found == encode_.end() ? std::string() : found->second;
    }
    bool encodesAny(std::u32string_view text) override {
        return std::any_of(text.begin(), text.end(),
                           [&](char32_t c) { return encode_.contains(c); });
    }

private:
    std::map<std::string, char32_t> decode_;
    std::map<char32_t, std::string> encode_;
};

std::vector<std::string> linesOf(const std::vector<DifferenceRow>& rows) {
    std::vector<std::string> lines;
    for (const DifferenceRow& row : rows) {
        lines.push_back(row.key + " | " + row.ours + " | " + row.theirs);
    }
    return lines;
}

std::vector<std::string> codes(CharsetPeer& ours, CharsetPeer& theirs, CodeForm form) {
    return linesOf(orvtest::foldedCodes(orvtest::differencesOfCodes(ours, theirs, form)));
}

std::vector<std::string> characters(CharsetPeer& ours, CharsetPeer& theirs, CodeForm form) {
    return linesOf(orvtest::foldedCharacters(orvtest::differencesOfCharacters(ours, theirs), form));
}

TEST(MappingDifferences, OfTheSameTablesAreNone) {
    SmallPeer ours({{"a", U'a'}, {"\x81\x40", 0x3000}});
    EXPECT_THAT(codes(ours, ours, CodeForm::PAIRS), IsEmpty());
    EXPECT_THAT(characters(ours, ours, CodeForm::PAIRS), IsEmpty());
}

TEST(MappingDifferences, AreFoundInBothDirectionsAndAtTheEnds) {
    SmallPeer ours({{std::string(1, '\0'), 0x10FFFF}, {"\x80", 0x20AC}});
    SmallPeer theirs({{"\xFF", 0xFF}, {"\x80", 0x80}});
    EXPECT_THAT(codes(ours, theirs, CodeForm::SINGLE_BYTE),
                ElementsAre("00 | U+10FFFF | none", "80 | U+20AC | U+0080", "FF | none | U+00FF"));
    EXPECT_THAT(characters(ours, theirs, CodeForm::SINGLE_BYTE),
                ElementsAre("U+0080 | none | 80", "U+00FF | none | FF", "U+20AC | 80 | none",
                            "U+10FFFF | 00 | none"));
}

TEST(MappingDifferences, OfPairsCountWhereTheFirstByteIsNoCode) {
    SmallPeer ours({{"\x80", 0x20AC}, {"\x80\x40", 0x1234}, {"\x81\x40", 0x3000}});
    SmallPeer theirs({{"\x80\x40", 0x4E00}, {"\x81\x40", 0x3000}});
    EXPECT_THAT(codes(ours, theirs, CodeForm::PAIRS),
                ElementsAre("80 | U+20AC | none", "8040 | none | U+4E00"));
    EXPECT_THAT(codes(ours, theirs, CodeForm::SINGLE_BYTE), ElementsAre("80 | U+20AC | none"));
}

TEST(MappingDifferences, OfFourBytesCountForThatForm) {
    SmallPeer ours({{"\x81\x30\x81\x30", 0x80}, {"\x81\x30\x81\x39", 0x89}});
    SmallPeer theirs({{"\x81\x30\x82\x30", 0x8A}});
    EXPECT_THAT(codes(ours, theirs, CodeForm::PAIRS), IsEmpty());
    EXPECT_THAT(codes(ours, theirs, CodeForm::FOUR_BYTES),
                ElementsAre("81308130 | U+0080 | none", "81308139 | U+0089 | none",
                            "81308230 | none | U+008A"));
}

TEST(MappingDifferences, OfNeighboursThatCountUpAreOneRow) {
    // The last trail byte of a lead and the first of the next are neighbours.
    SmallPeer ours({});
    SmallPeer theirs({{"\x81\x7E", 0xE000},
                      {"\x81\x80", 0xE001},
                      {"\x81\xFE", 0xE100},
                      {"\x82\x40", 0xE101},
                      {"\x82\x42", 0xE102}});
    EXPECT_THAT(codes(ours, theirs, CodeForm::PAIRS),
                ElementsAre("817E to 8180 | none | U+E000 to U+E001",
                            "81FE to 8240 | none | U+E100 to U+E101", "8242 | none | U+E102"));
    EXPECT_THAT(characters(ours, theirs, CodeForm::PAIRS),
                ElementsAre("U+E000 to U+E001 | none | 817E to 8180",
                            "U+E100 to U+E101 | none | 81FE to 8240", "U+E102 | none | 8242"));
    EXPECT_THAT(codes(theirs, ours, CodeForm::PAIRS_OF_HKSCS).front(), "817E | U+E000 | none");
}

TEST(MappingDifferences, OfManyNeighboursWithoutAnotherValueAreOneRow) {
    SmallPeer ours({});
    SmallPeer theirs({{"\x81", 0x3005}, {"\x82", 0x3001}, {"\x83", 0x3003}});
    EXPECT_THAT(codes(ours, theirs, CodeForm::SINGLE_BYTE),
                ElementsAre("81 to 83 | none | 3 values, U+3005 ... U+3003"));
    SmallPeer other({{"\x81", 0x4E00}, {"\x82", 0x4E10}, {"\x83", 0x4E20}});
    EXPECT_THAT(
        codes(other, theirs, CodeForm::SINGLE_BYTE),
        ElementsAre("81 | U+4E00 | U+3005", "82 | U+4E10 | U+3001", "83 | U+4E20 | U+3003"));
}

TEST(MappingDifferences, InALongListAreFoldedAlsoWithGaps) {
    SmallPeer ours({});
    SmallPeer theirs({});
    SmallPeer shortList({});
    for (char32_t i = 0; i < 101; ++i) {
        theirs.oneWay(0xE000 + 2 * i, "?");
        if (i < 100) {
            shortList.oneWay(0xE000 + 2 * i, "?");
        }
    }
    EXPECT_THAT(characters(ours, theirs, CodeForm::SINGLE_BYTE),
                ElementsAre("101 of U+E000 to U+E0C8 | none | 101 values, 3F ... 3F"));
    EXPECT_EQ(characters(ours, shortList, CodeForm::SINGLE_BYTE).size(), 100U);
}

TEST(MappingDifferences, ThatFollowFromCodesAreLeftOut) {
    SmallPeer ours({{"\x80", 0x20AC}, {"\x82", 0x201A}});
    SmallPeer theirs({{"\x80", 0x80}, {"\x82", 0x201A}});
    ours.oneWay(0xA5, "\\");
    theirs.oneWay(0x201A, "x");
    const auto byCode = orvtest::differencesOfCodes(ours, theirs, CodeForm::SINGLE_BYTE);
    const auto byCharacter = orvtest::differencesOfCharacters(ours, theirs);
    EXPECT_EQ(byCode.size(), 1U);
    EXPECT_EQ(byCharacter.size(), 4U);
    EXPECT_THAT(linesOf(orvtest::foldedCharacters(
                    orvtest::independentDifferences(byCharacter, byCode), CodeForm::SINGLE_BYTE)),
                ElementsAre("U+00A5 | 5C | none", "U+201A | 82 | 78"));
}

TEST(PageDifference, IsTheFirstLineThatDiffers) {
    const std::string page = "a\nfree 1\nb\n";
    EXPECT_EQ(orvtest::pageDifference(page, page, "free"), "");
    EXPECT_EQ(orvtest::pageDifference(page, "a\nfree 2\nb\n", "free"), "");
    EXPECT_EQ(orvtest::pageDifference(page, "a\nfree 2\nb\n", "Free"),
              "line 2: free 1\nand not: free 2");
    EXPECT_EQ(orvtest::pageDifference(page, "a\nfree 1\nc\n", "free"), "line 3: b\nand not: c");
    EXPECT_EQ(orvtest::pageDifference(page, "a\nfree 1\n", "free"), "line 3: b\nand not: the end");
    EXPECT_EQ(orvtest::pageDifference("", page, "free"), "line 1: the end\nand not: a");
}

} // namespace
