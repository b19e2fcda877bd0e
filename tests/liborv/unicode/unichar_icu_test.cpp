// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Compares every code point's answers with those of ICU.
///
/// Where ICU carries another version of Unicode, only characters that both know are compared, and a
/// few differences are allowed: new versions correct the properties of old characters here and
/// there. With the same version nothing may differ.

#include "orv/liborv/unicode/unichar.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <array>
#include <sstream>
#include <string>

namespace {

constexpr std::uint32_t codePointCount = 0x110000;

bool versionsAgree() {
    UVersionInfo version;
    u_getUnicodeVersion(version);
    std::ostringstream text;
    text << int{version[0]} << '.' << int{version[1]} << '.' << int{version[2]};
    return text.str() == orvUnicodeVersion();
}

/// Runs a question over all code points; the two sides are functions of a code point.
template <typename Ours, typename Theirs>
void compareAll(Ours ours, Theirs theirs) {
    const bool sameVersion = versionsAgree();
    const int allowed = sameVersion ? 0 : 100;
    int differences = 0;
    std::ostringstream where;
    for (std::uint32_t c = 0; c < codePointCount; ++c) {
        const UChar32 theirPoint = static_cast<UChar32>(c);
        if (!sameVersion && (orvUniCharIsDefined(c) == 0 || !u_isdefined(theirPoint)))
            continue;
        if (static_cast<std::int64_t>(ours(c)) == static_cast<std::int64_t>(theirs(theirPoint)))
            continue;
        if (++differences <= 10)
            where << " U+" << std::hex << c;
    }
    EXPECT_LE(differences, allowed) << "first differences:" << where.str();
}

TEST(UniCharIcu, ClassesAgree) {
    // By ICU's numbers of the general categories.
    static constexpr std::array<std::int32_t, U_CHAR_CATEGORY_COUNT> classes = {
        0,  // U_UNASSIGNED
        8,  // U_UPPERCASE_LETTER
        9,  // U_LOWERCASE_LETTER
        10, // U_TITLECASE_LETTER
        11, // U_MODIFIER_LETTER
        12, // U_OTHER_LETTER
        16, // U_NON_SPACING_MARK
        18, // U_ENCLOSING_MARK
        17, // U_COMBINING_SPACING_MARK
        24, // U_DECIMAL_DIGIT_NUMBER
        25, // U_LETTER_NUMBER
        26, // U_OTHER_NUMBER
        48, // U_SPACE_SEPARATOR
        49, // U_LINE_SEPARATOR
        50, // U_PARAGRAPH_SEPARATOR
        57, // U_CONTROL_CHAR
        58, // U_FORMAT_CHAR
        61, // U_PRIVATE_USE_CHAR
        60, // U_SURROGATE
        33, // U_DASH_PUNCTUATION
        34, // U_START_PUNCTUATION
        35, // U_END_PUNCTUATION
        32, // U_CONNECTOR_PUNCTUATION
        38, // U_OTHER_PUNCTUATION
        40, // U_MATH_SYMBOL
        41, // U_CURRENCY_SYMBOL
        42, // U_MODIFIER_SYMBOL
        43, // U_OTHER_SYMBOL
        36, // U_INITIAL_PUNCTUATION
        37, // U_FINAL_PUNCTUATION
    };
    compareAll(orvUniCharClass,
               [](UChar32 c) { return classes[static_cast<std::size_t>(u_charType(c))]; });
}

TEST(UniCharIcu, DigitValuesAgree) {
    compareAll(orvUniCharDigitValue, u_charDigitValue);
}

TEST(UniCharIcu, CategoryQuestionsAgree) {
    compareAll(orvUniCharIsDefined, [](UChar32 c) { return u_isdefined(c); });
    compareAll(orvUniCharIsLetter, [](UChar32 c) { return u_isalpha(c); });
    compareAll(orvUniCharIsDecimalDigit, [](UChar32 c) { return u_isdigit(c); });
    compareAll(orvUniCharIsLetterOrDecimalDigit, [](UChar32 c) { return u_isalnum(c); });
    compareAll(orvUniCharIsTitle, [](UChar32 c) { return u_istitle(c); });
    compareAll(orvUniCharIsControl, [](UChar32 c) { return u_charType(c) == U_CONTROL_CHAR; });
}

TEST(UniCharIcu, DerivedPropertiesAgree) {
    compareAll(orvUniCharIsAlphabetic, [](UChar32 c) { return u_isUAlphabetic(c); });
    compareAll(orvUniCharIsLower, [](UChar32 c) { return u_isULowercase(c); });
    compareAll(orvUniCharIsUpper, [](UChar32 c) { return u_isUUppercase(c); });
    compareAll([](std::uint32_t c) { return (orvUniCharProperties(c) >> 14) & 1; },
               [](UChar32 c) { return u_hasBinaryProperty(c, UCHAR_ID_START); });
    compareAll([](std::uint32_t c) { return (orvUniCharProperties(c) >> 15) & 1; },
               [](UChar32 c) { return u_hasBinaryProperty(c, UCHAR_ID_CONTINUE); });
    compareAll([](std::uint32_t c) { return (orvUniCharProperties(c) >> 18) & 1; },
               [](UChar32 c) { return u_isUWhiteSpace(c); });
}

TEST(UniCharIcu, CaseMappingsAgree) {
    compareAll(orvUniCharToLower, u_tolower);
    compareAll(orvUniCharToUpper, u_toupper);
    compareAll(orvUniCharToTitle, u_totitle);
}

} // namespace
