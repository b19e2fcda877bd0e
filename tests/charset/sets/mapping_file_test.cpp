// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The reader of mapping files: what it understands, and what it refuses.
#include "tests/support/mapping_file.h"

#include "tests/support/thrown_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using orvtest::CharCode;
using orvtest::Mapping;
using orvtest::NO_MAPPING;
using orvtest::parseMapping;
using testing::ElementsAre;

const std::string SINGLE = "set x-test\nclass Test\n";
const std::string DOUBLE = SINGLE + "lead 81-9F E0-FC\ntrail 40-7E 80-FC\n";
const std::string LONG = "set GB18030\nclass GB18030\nlead 81-FE\ntrail 40-7E 80-FE\n";

// Why the lines are refused behind the given heading.
std::string refusal(const std::string& heading, const std::string& lines) {
    return orvtest::thrownMessage<std::runtime_error>([&] { parseMapping(heading + lines); });
}

TEST(MappingFile, TellsTheNames) {
    const Mapping mapping = parseMapping("# Comment\n\nset ISO-8859-2 # behind\n class ISO_8859_2");
    EXPECT_EQ(mapping.name(), "ISO-8859-2");
    EXPECT_EQ(mapping.className(), "ISO_8859_2");
    EXPECT_TRUE(mapping.leads().empty());
    EXPECT_TRUE(mapping.trails().empty());
    EXPECT_TRUE(mapping.codes().empty());
}

TEST(MappingFile, GivesRowsToConsecutivePositions) {
    const Mapping mapping = parseMapping(SINGLE + "80: 20AC . 201A\nA0: 00A0\n");
    EXPECT_THAT(mapping.codes(), ElementsAre(0x80U, 0x82U, 0xA0U));
    EXPECT_EQ(mapping.decode(0x80), 0x20ACU);
    EXPECT_EQ(mapping.decode(0x81), NO_MAPPING);
    EXPECT_EQ(mapping.decode(0x82), 0x201AU);
    EXPECT_EQ(mapping.decode(0xA0), 0x00A0U);
    EXPECT_EQ(mapping.encode(0x201A), 0x82U);
    EXPECT_EQ(mapping.encode(0x201B), NO_MAPPING);
    EXPECT_EQ(mapping.encode(0x110000), NO_MAPPING);
}

TEST(MappingFile, StepsOverBytesThatNoPairHas) {
    const Mapping mapping = parseMapping(DOUBLE + "817D: 3000 3001 3002\nE040: 20000\n");
    EXPECT_EQ(mapping.decode(0x817D), 0x3000U);
    EXPECT_EQ(mapping.decode(0x817E), 0x3001U);
    EXPECT_EQ(mapping.decode(0x817F), NO_MAPPING);
    EXPECT_EQ(mapping.decode(0x8180), 0x3002U);
    EXPECT_EQ(mapping.encode(0x20000), 0xE040U);
    EXPECT_TRUE(mapping.leads().has(0x9F));
    EXPECT_FALSE(mapping.leads().has(0xA0));
    EXPECT_TRUE(mapping.trails().has(0xFC));
    EXPECT_FALSE(mapping.trails().has(0x7F));
}

TEST(MappingFile, RunsGoFromLeadToLead) {
    const Mapping mapping = parseMapping(DOUBLE + "run 00-7F 0000\nrun 9FFB-E041 E000\n");
    EXPECT_EQ(mapping.decode(0x7F), 0x7FU);
    EXPECT_EQ(mapping.decode(0x9FFB), 0xE000U);
    EXPECT_EQ(mapping.decode(0x9FFC), 0xE001U);
    EXPECT_EQ(mapping.decode(0xE040), 0xE002U);
    EXPECT_EQ(mapping.decode(0xE041), 0xE003U);
    EXPECT_EQ(mapping.codes().size(), 0x84U);
}

TEST(MappingFile, CountsSequencesOfFourInTheirOrder) {
    const Mapping mapping = parseMapping(
        LONG + "run 81308139-81308231 0080\n81318139: 1234\nrun 90308130-E3329A35 10000\n");
    EXPECT_EQ(mapping.decode(0x81308139), 0x80U);
    EXPECT_EQ(mapping.decode(0x81308230), 0x81U);
    EXPECT_EQ(mapping.decode(0x81308231), 0x82U);
    EXPECT_EQ(mapping.decode(0x81318139), 0x1234U);
    EXPECT_EQ(mapping.decode(0xE3329A35), 0x10FFFFU);
    EXPECT_EQ(mapping.encode(0x10FFFF), 0xE3329A35U);
    EXPECT_EQ(mapping.decode(0xE3329A36), NO_MAPPING);
    EXPECT_EQ(mapping.decode(0x8130813A), NO_MAPPING) << "no sequence of four";
    EXPECT_EQ(mapping.decode(0xFF308130), NO_MAPPING);
    for (const std::size_t place :
         {std::size_t{0}, std::size_t{9}, std::size_t{10}, std::size_t{1260}, std::size_t{12600}}) {
        const Mapping one = parseMapping(LONG + "81308130: 0080\n");
        EXPECT_EQ(one.decode(orvtest::fourByteCode(place)), place == 0 ? 0x80U : NO_MAPPING);
    }
    EXPECT_EQ(orvtest::fourByteCode(orvtest::FOUR_BYTE_CODES - 1), 0xFE39FE39U);
}

TEST(MappingFile, TakesRowsOfOneDirection) {
    const Mapping mapping = parseMapping(DOUBLE + "8191: FFE0 FFE0\ndecode-only 8192\n"
                                                  "encode 00A2: 8191 . 5C\n");
    EXPECT_EQ(mapping.decode(0x8192), 0xFFE0U);
    EXPECT_EQ(mapping.encode(0xFFE0), 0x8191U);
    EXPECT_TRUE(mapping.isDecodeOnly(0x8192));
    EXPECT_FALSE(mapping.isDecodeOnly(0x8191));
    EXPECT_EQ(mapping.encode(0x00A2), 0x8191U);
    EXPECT_EQ(mapping.encode(0x00A3), NO_MAPPING);
    EXPECT_EQ(mapping.encode(0x00A4), 0x5CU);
    EXPECT_EQ(mapping.decode(0x5C), NO_MAPPING);
}

TEST(MappingFile, RefusesWhatItDoesNotKnow) {
    EXPECT_EQ(refusal(SINGLE, "leads 81-9F\n"), "line 3: unknown line \"leads\"");
    EXPECT_EQ(refusal(SINGLE, "80 20AC\n"), "line 3: unknown line \"80\"");
    EXPECT_EQ(refusal(SINGLE, "set x\n"), "line 3: a second name");
    EXPECT_EQ(refusal(SINGLE, "class x\n"), "line 3: a second name");
    EXPECT_EQ(refusal("", "set a b\n"), "line 1: one name expected");
    EXPECT_EQ(refusal("", "set\n"), "line 1: one name expected");
    EXPECT_EQ(refusal("class x\n", ""), "line 0: no line \"set\"");
    EXPECT_EQ(refusal("set x\n", ""), "line 0: no line \"class\"");
}

TEST(MappingFile, RefusesBadByteLists) {
    EXPECT_EQ(refusal(SINGLE, "lead\n"), "line 3: ranges of bytes expected");
    EXPECT_EQ(refusal(SINGLE, "lead 81\n"), "line 3: a range of bytes is written 81-9F");
    EXPECT_EQ(refusal(SINGLE, "lead 9F-81\n"), "line 3: a range that runs backwards");
    EXPECT_EQ(refusal(SINGLE, "lead 8x-9F\n"), "line 3: a hexadecimal number expected");
    EXPECT_EQ(refusal(SINGLE, "lead 81-9F\n"), "line 0: lead or trail bytes alone");
    EXPECT_EQ(refusal(SINGLE, "trail 81-9F\n"), "line 0: lead or trail bytes alone");
    EXPECT_EQ(refusal(DOUBLE, "lead 81-9F\n"), "line 5: a second list of bytes");
}

TEST(MappingFile, RefusesBadRows) {
    EXPECT_EQ(refusal(SINGLE, "80:\n"), "line 3: characters expected");
    EXPECT_EQ(refusal(SINGLE, "80: 20aC\n"), "line 3: a hexadecimal number expected");
    EXPECT_EQ(refusal(SINGLE, "80: AC\n"), "line 3: a character has four digits or more");
    EXPECT_EQ(refusal(SINGLE, "80: D800\n"), "line 3: not a character");
    EXPECT_EQ(refusal(SINGLE, "80: 110000\n"), "line 3: not a character");
    EXPECT_EQ(refusal(SINGLE, "80: 000020AC1\n"),
              "line 3: a number of one to eight digits expected");
    EXPECT_EQ(refusal(SINGLE, ": 20AC\n"), "line 3: a number of one to eight digits expected");
    EXPECT_EQ(refusal(SINGLE, "0080: 20AC\n"), "line 3: a code has two, four or eight digits");
    EXPECT_EQ(refusal(SINGLE, "8: 20AC\n"), "line 3: a code has two, four or eight digits");
    EXPECT_EQ(refusal(SINGLE, "8140: 20AC\n"), "line 3: a code that the set cannot have");
    EXPECT_EQ(refusal(SINGLE, "FF: 20AC 20AD\n"), "line 3: rows beyond the last byte");
    EXPECT_EQ(refusal(SINGLE, "80: 20AC\n80: 20AD\n"), "line 4: a second character for a code");
    EXPECT_EQ(refusal(DOUBLE, "81: 20AC\n"), "line 5: a code that the set cannot have");
    EXPECT_EQ(refusal(DOUBLE, "A040: 20AC\n"), "line 5: a code that the set cannot have");
    EXPECT_EQ(refusal(DOUBLE, "817F: 20AC\n"), "line 5: a code that the set cannot have");
    EXPECT_EQ(refusal(DOUBLE, "81FC: 3000 3001\n"), "line 5: rows beyond the last byte");
    EXPECT_EQ(refusal(DOUBLE, "81308130: 3000\n"), "line 5: a code that the set cannot have");
    EXPECT_EQ(refusal(SINGLE, "81: 3000\nlead 81-82\ntrail 40-7E\n"),
              "line 0: rows before the bytes of pairs are known");
    EXPECT_EQ(refusal(LONG, "8130813A: 3000\n"), "line 5: a code that the set cannot have");
}

TEST(MappingFile, RefusesBadRuns) {
    EXPECT_EQ(refusal(SINGLE, "run 00-7F\n"), "line 3: a range of codes and a character expected");
    EXPECT_EQ(refusal(SINGLE, "run 00 0000\n"), "line 3: a range of codes expected");
    EXPECT_EQ(refusal(SINGLE, "run 7F-00 0000\n"), "line 3: a range that runs backwards");
    EXPECT_EQ(refusal(SINGLE, "run 80-81 D7FF\n"), "line 3: the run goes beyond the characters");
    EXPECT_EQ(refusal(SINGLE, "run 80-81 DFFF\n"), "line 3: not a character");
    EXPECT_EQ(refusal(SINGLE, "run 80-81 10FFFF\n"), "line 3: the run goes beyond the characters");
    EXPECT_EQ(refusal(SINGLE, "run 80-82 0080\nrun 82-83 0090\n"),
              "line 4: a second character for a code");
    EXPECT_EQ(refusal(DOUBLE, "run FD-8140 0080\n"),
              "line 5: a range between codes of two lengths");
}

TEST(MappingFile, RefusesAmbiguousEncoders) {
    EXPECT_EQ(refusal(SINGLE, "80: 20AC 20AC\n"), "line 0: two codes to write for character 20AC");
    EXPECT_EQ(refusal(SINGLE, "80: 20AC\nencode 20AC: 81\n"),
              "line 0: two codes to write for character 20AC");
    EXPECT_EQ(refusal(SINGLE, "encode 20AC: 80\nencode 20AB: . 81\n"),
              "line 4: two codes to write for character 20AC");
    EXPECT_EQ(refusal(SINGLE, "80: 20AC\ndecode-only 80\n"),
              "line 0: a character without a code to write");
    EXPECT_EQ(refusal(SINGLE, "80: 20AC 20AC\ndecode-only 81 81\n"),
              "line 0: a code twice for decoding only");
    EXPECT_EQ(refusal(SINGLE, "80: 20AC\ndecode-only 81\n"),
              "line 0: an unmapped code for decoding only");
    EXPECT_EQ(refusal(SINGLE, "decode-only\n"), "line 3: codes expected");
    EXPECT_EQ(refusal(SINGLE, "encode 20AC:\n"), "line 3: a character and codes expected");
    EXPECT_EQ(refusal(SINGLE, "encode 20AC 80\n"), "line 3: a character and codes expected");
    EXPECT_EQ(refusal(SINGLE, "encode 20AC: 8140\n"), "line 3: a code that the set cannot have");
    EXPECT_EQ(refusal(SINGLE, "encode 10FFFF: . .\n"), "line 3: the rows go beyond the characters");
}

TEST(MappingFile, ThatIsNotThereIsAnError) {
    EXPECT_EQ(orvtest::thrownMessage<std::runtime_error>(
                  [] { orvtest::readMappingFile("no-such-file.map"); }),
              "no-such-file.map: cannot be read");
}

} // namespace
