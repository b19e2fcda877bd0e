// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Compares every code point's answers with the files of the Unicode Character Database.

#include "orv/liborv/unicode/unichar.h"
#include "tests/liborv/unicode/ucd_files.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using orv::test::codePointCount;
using orv::test::UcdCharacter;

const std::string directory = ORV_UCD_DIR;

const std::vector<UcdCharacter>& characters() {
    static const std::vector<UcdCharacter> all = orv::test::readUnicodeData(directory);
    return all;
}

const std::map<std::string, int>& classNumbers() {
    static const std::map<std::string, int> numbers = {
        {"Cn", 0},  {"Lu", 8},  {"Ll", 9},  {"Lt", 10}, {"Lm", 11}, {"Lo", 12},
        {"Mn", 16}, {"Mc", 17}, {"Me", 18}, {"Nd", 24}, {"Nl", 25}, {"No", 26},
        {"Pc", 32}, {"Pd", 33}, {"Ps", 34}, {"Pe", 35}, {"Pi", 36}, {"Pf", 37},
        {"Po", 38}, {"Sm", 40}, {"Sc", 41}, {"Sk", 42}, {"So", 43}, {"Zs", 48},
        {"Zl", 49}, {"Zp", 50}, {"Cc", 57}, {"Cf", 58}, {"Cs", 60}, {"Co", 61}};
    return numbers;
}

/// Checks a question with an answer of 0 or 1 against a listed property.
void compareProperty(const std::string& file, const std::string& property,
                     std::int32_t (*question)(std::uint32_t)) {
    const std::vector<bool> expected = orv::test::readProperty(directory, file, property);
    std::uint32_t count = 0;
    for (std::uint32_t c = 0; c < codePointCount; ++c) {
        ASSERT_EQ(question(c), expected[c] ? 1 : 0) << property << " of " << std::hex << c;
        count += expected[c] ? 1U : 0U;
    }
    EXPECT_GT(count, 0U) << file << " has no " << property;
}

TEST(UniCharUcd, TheDataAreOfTheVersionThatTheLibraryNames) {
    EXPECT_EQ(orv::test::readVersion(directory, "PropList.txt"), orvUnicodeVersion());
    EXPECT_EQ(orv::test::readVersion(directory, "DerivedCoreProperties.txt"), orvUnicodeVersion());
}

TEST(UniCharUcd, EveryClassIsTheGeneralCategory) {
    for (std::uint32_t c = 0; c < codePointCount; ++c)
        ASSERT_EQ(orvUniCharClass(c), classNumbers().at(characters()[c].category)) << std::hex << c;
}

TEST(UniCharUcd, EveryCategoryQuestionFollowsTheCategory) {
    for (std::uint32_t c = 0; c < codePointCount; ++c) {
        const std::string& category = characters()[c].category;
        const bool letter = category[0] == 'L';
        ASSERT_EQ(orvUniCharIsDefined(c), category != "Cn") << std::hex << c;
        ASSERT_EQ(orvUniCharIsLetter(c), letter) << std::hex << c;
        ASSERT_EQ(orvUniCharIsDecimalDigit(c), category == "Nd") << std::hex << c;
        ASSERT_EQ(orvUniCharIsLetterOrDecimalDigit(c), letter || category == "Nd") << std::hex << c;
        ASSERT_EQ(orvUniCharIsTitle(c), category == "Lt") << std::hex << c;
        ASSERT_EQ(orvUniCharIsControl(c), category == "Cc") << std::hex << c;
    }
}

TEST(UniCharUcd, EveryDigitValueIsTheDecimalValue) {
    for (std::uint32_t c = 0; c < codePointCount; ++c)
        ASSERT_EQ(orvUniCharDigitValue(c), characters()[c].digit) << std::hex << c;
}

TEST(UniCharUcd, EveryCaseMappingIsTheSimpleOne) {
    for (std::uint32_t c = 0; c < codePointCount; ++c) {
        ASSERT_EQ(orvUniCharToLower(c), characters()[c].lower) << std::hex << c;
        ASSERT_EQ(orvUniCharToUpper(c), characters()[c].upper) << std::hex << c;
        ASSERT_EQ(orvUniCharToTitle(c), characters()[c].title) << std::hex << c;
    }
}

TEST(UniCharUcd, EveryListedPropertyIsAnsweredAsListed) {
    const std::string core = "DerivedCoreProperties.txt";
    compareProperty(core, "Alphabetic", [](std::uint32_t c) { return orvUniCharIsAlphabetic(c); });
    compareProperty(core, "Lowercase", [](std::uint32_t c) { return orvUniCharIsLower(c); });
    compareProperty(core, "Uppercase", [](std::uint32_t c) { return orvUniCharIsUpper(c); });
    compareProperty(core, "ID_Start",
                    [](std::uint32_t c) { return (orvUniCharProperties(c) >> 14) & 1; });
    compareProperty(core, "ID_Continue",
                    [](std::uint32_t c) { return (orvUniCharProperties(c) >> 15) & 1; });
    compareProperty("PropList.txt", "White_Space",
                    [](std::uint32_t c) { return (orvUniCharProperties(c) >> 18) & 1; });
}

TEST(UniCharUcd, EveryPropertyBitAgreesWithItsFunction) {
    constexpr std::int32_t named = ORV_UNI_DEFINED | ORV_UNI_LETTER | ORV_UNI_ALPHABETIC |
                                   ORV_UNI_LOWERCASE | ORV_UNI_UPPERCASE | ORV_UNI_TITLECASE |
                                   ORV_UNI_DECIMAL_DIGIT | ORV_UNI_CONTROL | ORV_UNI_ID_START |
                                   ORV_UNI_ID_CONTINUE | ORV_UNI_WHITE_SPACE;
    for (std::uint32_t c = 0; c < codePointCount; ++c) {
        const std::int32_t bits = orvUniCharProperties(c);
        ASSERT_EQ(bits & ~named, 0) << std::hex << c;
        ASSERT_EQ((bits & ORV_UNI_DEFINED) != 0, orvUniCharIsDefined(c) != 0) << std::hex << c;
        ASSERT_EQ((bits & ORV_UNI_LETTER) != 0, orvUniCharIsLetter(c) != 0) << std::hex << c;
        ASSERT_EQ((bits & ORV_UNI_ALPHABETIC) != 0, orvUniCharIsAlphabetic(c) != 0)
            << std::hex << c;
        ASSERT_EQ((bits & ORV_UNI_LOWERCASE) != 0, orvUniCharIsLower(c) != 0) << std::hex << c;
        ASSERT_EQ((bits & ORV_UNI_UPPERCASE) != 0, orvUniCharIsUpper(c) != 0) << std::hex << c;
        ASSERT_EQ((bits & ORV_UNI_TITLECASE) != 0, orvUniCharIsTitle(c) != 0) << std::hex << c;
        ASSERT_EQ((bits & ORV_UNI_DECIMAL_DIGIT) != 0, orvUniCharIsDecimalDigit(c) != 0)
            << std::hex << c;
        ASSERT_EQ((bits & ORV_UNI_CONTROL) != 0, orvUniCharIsControl(c) != 0) << std::hex << c;
    }
}

} // namespace
