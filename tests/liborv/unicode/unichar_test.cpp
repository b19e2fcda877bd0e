// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Unicode properties by example, and the rules that hold for ranges of code points.

#include "orv/liborv/unicode/unichar.h"

#include <gtest/gtest.h>

#include <regex>
#include <vector>

namespace {

TEST(UniChar, VersionIsThreeNumbers) {
    EXPECT_TRUE(std::regex_match(orvUnicodeVersion(), std::regex("[0-9]+\\.[0-9]+\\.[0-9]+")));
}

TEST(UniChar, ClassNumbersAreTheDocumentedOnes) {
    struct Row {
        std::uint32_t codePoint;
        std::int32_t number;
    };
    const std::vector<Row> rows = {
        {0x0378, 0},   // unassigned
        {0x0041, 8},   // LATIN CAPITAL LETTER A
        {0x0061, 9},   // LATIN SMALL LETTER A
        {0x01C5, 10},  // LATIN CAPITAL LETTER D WITH SMALL LETTER Z WITH CARON
        {0x02B0, 11},  // MODIFIER LETTER SMALL H
        {0x05D0, 12},  // HEBREW LETTER ALEF
        {0x4E00, 12},  // first of a range that the database gives by its ends
        {0x9FFF, 12},  // last of it
        {0xAC00, 12},  // HANGUL SYLLABLE GA
        {0x0301, 16},  // COMBINING ACUTE ACCENT
        {0x0903, 17},  // DEVANAGARI SIGN VISARGA
        {0x20DD, 18},  // COMBINING ENCLOSING CIRCLE
        {0x0030, 24},  // DIGIT ZERO
        {0x2160, 25},  // ROMAN NUMERAL ONE
        {0x00BD, 26},  // VULGAR FRACTION ONE HALF
        {0x005F, 32},  // LOW LINE
        {0x002D, 33},  // HYPHEN-MINUS
        {0x0028, 34},  // LEFT PARENTHESIS
        {0x0029, 35},  // RIGHT PARENTHESIS
        {0x00AB, 36},  // LEFT-POINTING DOUBLE ANGLE QUOTATION MARK
        {0x00BB, 37},  // RIGHT-POINTING DOUBLE ANGLE QUOTATION MARK
        {0x0021, 38},  // EXCLAMATION MARK
        {0x002B, 40},  // PLUS SIGN
        {0x20AC, 41},  // EURO SIGN
        {0x005E, 42},  // CIRCUMFLEX ACCENT
        {0x00A9, 43},  // COPYRIGHT SIGN
        {0x0020, 48},  // SPACE
        {0x00A0, 48},  // NO-BREAK SPACE
        {0x2028, 49},  // LINE SEPARATOR
        {0x2029, 50},  // PARAGRAPH SEPARATOR
        {0x0009, 57},  // TAB
        {0x007F, 57},  // DELETE
        {0x00AD, 58},  // SOFT HYPHEN
        {0xFEFF, 58},  // ZERO WIDTH NO-BREAK SPACE
        {0xD800, 60},  // first surrogate
        {0xDFFF, 60},  // last surrogate
        {0xE000, 61},  // first private-use code point
        {0xF8FF, 61},  // last of the basic plane
        {0x10FFFD, 61} // last of all
    };
    for (const Row& row : rows)
        EXPECT_EQ(orvUniCharClass(row.codePoint), row.number) << std::hex << row.codePoint;
}

TEST(UniChar, GroupMaskGivesTheFirstNumberOfTheGroup) {
    EXPECT_EQ(orvUniCharClass('a') & ORV_UNI_GROUP_MASK, ORV_UNI_GROUP_LETTER);
    EXPECT_EQ(orvUniCharClass(0x20DD) & ORV_UNI_GROUP_MASK, ORV_UNI_GROUP_MARK);
    EXPECT_EQ(orvUniCharClass(0xBD) & ORV_UNI_GROUP_MASK, ORV_UNI_GROUP_NUMBER);
    EXPECT_EQ(orvUniCharClass('!') & ORV_UNI_GROUP_MASK, ORV_UNI_GROUP_PUNCTUATION);
    EXPECT_EQ(orvUniCharClass('+') & ORV_UNI_GROUP_MASK, ORV_UNI_GROUP_SYMBOL);
    EXPECT_EQ(orvUniCharClass(0x2029) & ORV_UNI_GROUP_MASK, ORV_UNI_GROUP_SEPARATOR);
    EXPECT_EQ(orvUniCharClass(0xE000) & ORV_UNI_GROUP_MASK, ORV_UNI_GROUP_OTHER);
}

TEST(UniChar, NoncharactersAreUnassigned) {
    std::vector<std::uint32_t> noncharacters;
    for (std::uint32_t c = 0xFDD0; c <= 0xFDEF; ++c)
        noncharacters.push_back(c);
    for (std::uint32_t plane = 0; plane <= 0x10; ++plane) {
        noncharacters.push_back(plane << 16 | 0xFFFE);
        noncharacters.push_back(plane << 16 | 0xFFFF);
    }
    for (std::uint32_t c : noncharacters) {
        EXPECT_EQ(orvUniCharClass(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsDefined(c), 0) << std::hex << c;
    }
}

TEST(UniChar, SurrogatesAndPrivateUseAreDefinedAndNothingElse) {
    for (std::uint32_t c : {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU, 0xE000U, 0xF8FFU, 0xF0000U}) {
        EXPECT_EQ(orvUniCharIsDefined(c), 1) << std::hex << c;
        EXPECT_EQ(orvUniCharProperties(c), ORV_UNI_DEFINED) << std::hex << c;
        EXPECT_EQ(orvUniCharToLower(c), c);
        EXPECT_EQ(orvUniCharToUpper(c), c);
        EXPECT_EQ(orvUniCharToTitle(c), c);
    }
}

TEST(UniChar, ValuesAboveTheLastCodePointAreUnassigned) {
    for (std::uint32_t c :
         {0x110000U, 0x110041U, 0x1FFFFFU, 0x7FFFFFFFU, 0x80000000U, 0x80000041U, 0xFFFFFFFFU}) {
        EXPECT_EQ(orvUniCharClass(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharProperties(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharDigitValue(c), -1) << std::hex << c;
        EXPECT_EQ(orvUniCharIsAlphabetic(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsDefined(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsDecimalDigit(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsControl(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsLetter(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsLetterOrDecimalDigit(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsLower(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsUpper(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharIsTitle(c), 0) << std::hex << c;
        EXPECT_EQ(orvUniCharToLower(c), c) << std::hex << c;
        EXPECT_EQ(orvUniCharToUpper(c), c) << std::hex << c;
        EXPECT_EQ(orvUniCharToTitle(c), c) << std::hex << c;
    }
}

TEST(UniChar, DigitsOfEveryScriptHaveTheirValue) {
    for (std::uint32_t zero : {0x30U, 0x660U, 0x966U, 0xFF10U, 0x1D7CEU, 0x1FBF0U}) {
        for (std::uint32_t i = 0; i < 10; ++i) {
            EXPECT_EQ(orvUniCharDigitValue(zero + i), static_cast<std::int32_t>(i));
            EXPECT_EQ(orvUniCharIsDecimalDigit(zero + i), 1);
        }
    }
}

TEST(UniChar, NumbersThatAreNoDecimalDigitsHaveNoDigitValue) {
    // SUPERSCRIPT TWO, CIRCLED DIGIT ONE, ROMAN NUMERAL ONE, ONE HALF, CJK ONE, LETTER A.
    for (std::uint32_t c : {0xB2U, 0x2460U, 0x2160U, 0xBDU, 0x4E00U, 0x41U, 0xFF21U})
        EXPECT_EQ(orvUniCharDigitValue(c), -1) << std::hex << c;
}

TEST(UniChar, WhiteSpaceAndSeparatorsAreTwoQuestions) {
    const auto whiteSpace = [](std::uint32_t c) {
        return (orvUniCharProperties(c) & ORV_UNI_WHITE_SPACE) != 0;
    };
    EXPECT_TRUE(whiteSpace('\t'));
    EXPECT_TRUE(whiteSpace(' '));
    EXPECT_TRUE(whiteSpace(0x85));
    EXPECT_TRUE(whiteSpace(0xA0));
    EXPECT_TRUE(whiteSpace(0x3000));
    EXPECT_FALSE(whiteSpace(0x1F)) << "an information separator is a control, not white space";
    EXPECT_FALSE(whiteSpace(0x180E));
    EXPECT_FALSE(whiteSpace(0x200B));
    EXPECT_EQ(orvUniCharClass('\t'), ORV_UNI_CLASS_CONTROL);
}

TEST(UniChar, IdentifierBitsAreThoseOfTheStandard) {
    const auto start = [](std::uint32_t c) { return (orvUniCharProperties(c) >> 14 & 1) != 0; };
    const auto part = [](std::uint32_t c) { return (orvUniCharProperties(c) >> 15 & 1) != 0; };
    EXPECT_TRUE(start('a') && part('a'));
    EXPECT_TRUE(start(0x2160) && part(0x2160)); // ROMAN NUMERAL ONE
    EXPECT_TRUE(!start('5') && part('5'));
    EXPECT_TRUE(!start('_') && part('_'));
    EXPECT_TRUE(!start(0x301) && part(0x301)); // COMBINING ACUTE ACCENT
    EXPECT_TRUE(!start('$') && !part('$'));
    EXPECT_TRUE(!start('-') && !part('-'));
    EXPECT_TRUE(!start(0xAD) && !part(0xAD)); // SOFT HYPHEN
}

TEST(UniChar, LowerAndUpperCaseReachBeyondLetters) {
    EXPECT_EQ(orvUniCharIsUpper(0x2160), 1); // ROMAN NUMERAL ONE, Nl
    EXPECT_EQ(orvUniCharIsLower(0x24D0), 1); // CIRCLED LATIN SMALL LETTER A, So
    EXPECT_EQ(orvUniCharIsLetter(0x2160), 0);
    EXPECT_EQ(orvUniCharIsLetter(0x24D0), 0);
    EXPECT_EQ(orvUniCharIsAlphabetic(0x24D0), 1);
    EXPECT_EQ(orvUniCharIsTitle(0x01C5), 1);
    EXPECT_EQ(orvUniCharIsUpper(0x01C5), 0);
    EXPECT_EQ(orvUniCharIsLower(0x01C5), 0);
}

TEST(UniChar, CaseMappings) {
    struct Row {
        std::uint32_t codePoint, lower, upper, title;
    };
    const std::vector<Row> rows = {
        {'A', 'a', 'A', 'A'},
        {'z', 'z', 'Z', 'Z'},
        {'[', '[', '[', '['},
        {0xDF, 0xDF, 0xDF, 0xDF},             // sharp s has no single upper case
        {0x1E9E, 0xDF, 0x1E9E, 0x1E9E},       // but the capital one has a lower case
        {0xFF, 0xFF, 0x178, 0x178},           // y with diaeresis leaves Latin-1
        {0xB5, 0xB5, 0x39C, 0x39C},           // micro sign
        {0x130, 'i', 0x130, 0x130},           // I with dot above
        {0x131, 0x131, 'I', 'I'},             // dotless i
        {0x17F, 0x17F, 'S', 'S'},             // long s
        {0x1C4, 0x1C6, 0x1C4, 0x1C5},         // three forms of one digraph
        {0x1C5, 0x1C6, 0x1C4, 0x1C5},         //
        {0x1C6, 0x1C6, 0x1C4, 0x1C5},         //
        {0x3C2, 0x3C2, 0x3A3, 0x3A3},         // final sigma
        {0x10D0, 0x10D0, 0x1C90, 0x10D0},     // Georgian has an upper case but no title case
        {0x212A, 'k', 0x212A, 0x212A},        // Kelvin sign
        {0xAB70, 0xAB70, 0x13A0, 0x13A0},     // Cherokee, the farthest step down
        {0x10400, 0x10428, 0x10400, 0x10400}, // Deseret
        {0x1E943, 0x1E943, 0x1E921, 0x1E921}, // Adlam
    };
    for (const Row& row : rows) {
        EXPECT_EQ(orvUniCharToLower(row.codePoint), row.lower) << std::hex << row.codePoint;
        EXPECT_EQ(orvUniCharToUpper(row.codePoint), row.upper) << std::hex << row.codePoint;
        EXPECT_EQ(orvUniCharToTitle(row.codePoint), row.title) << std::hex << row.codePoint;
    }
}

} // namespace
