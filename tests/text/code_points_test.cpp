// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Char16` on single units and code points: every one of them, against the C library's
/// properties and against definitions written out here.
#include "orv/liborvxx/text/code_points.h"

#include "orv/liborv/unicode/unichar.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>

namespace {

using orv::Char16;
using orv::char16;

// Bounds.
static_assert(Char16::MIN_VALUE == u'\0' && Char16::MAX_VALUE == u'\xFFFF');
static_assert(Char16::MIN_HIGH_SURROGATE == u'\xD800' && Char16::MAX_HIGH_SURROGATE == u'\xDBFF');
static_assert(Char16::MIN_LOW_SURROGATE == u'\xDC00' && Char16::MAX_LOW_SURROGATE == u'\xDFFF');
static_assert(Char16::MIN_SURROGATE == u'\xD800' && Char16::MAX_SURROGATE == u'\xDFFF');
static_assert(Char16::MIN_SUPPLEMENTARY_CODE_POINT == 0x10000);
static_assert(Char16::MIN_CODE_POINT == 0 && Char16::MAX_CODE_POINT == 0x10FFFF);
static_assert(Char16::MIN_RADIX == 2 && Char16::MAX_RADIX == 36);
static_assert(std::is_same_v<decltype(Char16::MIN_VALUE), const char16> &&
              std::is_same_v<decltype(Char16::MAX_SURROGATE), const char16> &&
              std::is_same_v<decltype(Char16::MIN_SUPPLEMENTARY_CODE_POINT), const char32_t> &&
              std::is_same_v<decltype(Char16::MAX_CODE_POINT), const char32_t> &&
              std::is_same_v<decltype(Char16::MAX_RADIX), const unsigned int>);
static_assert(!std::is_default_constructible_v<Char16>);

// What must not compile.
template <typename T>
concept HasSurrogateTests = requires(T c) {
    Char16::isSurrogate(c);
}
|| requires(T c) {
    Char16::isHighSurrogate(c);
}
|| requires(T c) {
    Char16::isLowSurrogate(c);
};
template <typename T, typename U>
concept HasPairTest = requires(T high, U low) {
    Char16::isSurrogatePair(high, low);
};
template <typename T>
concept HasClassification = requires(T c) {
    Char16::isAlphabetic(c);
}
|| requires(T c) {
    Char16::isWhitespace(c);
}
|| requires(T c) {
    Char16::toLowerCase(c);
}
|| requires(T c) {
    Char16::digit(c, 10);
};

static_assert(HasSurrogateTests<char16>);
static_assert(!HasSurrogateTests<char32_t> && !HasSurrogateTests<char16_t> &&
              !HasSurrogateTests<int> && !HasSurrogateTests<wchar_t> && !HasSurrogateTests<char>);
static_assert(HasPairTest<char16, char16> && !HasPairTest<char16, char16_t> &&
              !HasPairTest<char32_t, char16> && !HasPairTest<char16_t, char16_t>);
static_assert(HasClassification<char16> && HasClassification<char16_t> &&
              HasClassification<char32_t>);
// A byte or a plain number does not say what it stands for.
static_assert(!HasClassification<char> && !HasClassification<unsigned char> &&
              !HasClassification<int> && !HasClassification<unsigned int> &&
              !HasClassification<wchar_t>);

// Surrogate and code-point arithmetic serves at compile time.
static_assert(Char16::isHighSurrogate(char16(0xD800)) && Char16::isLowSurrogate(char16(0xDC00)));
static_assert(Char16::toCodePoint(char16(0xD83D), char16(0xDE00)) == 0x1F600);
static_assert(Char16::highSurrogate(0x1F600) == u'\xD83D' &&
              Char16::lowSurrogate(0x1F600) == u'\xDE00');
static_assert(Char16::charCount(0xFFFF) == 1 && Char16::charCount(0x10000) == 2);
static_assert(Char16::toCodeUnit(char16(0xABCD)) == 0xABCD);
static_assert(std::is_same_v<decltype(Char16::charCount(0)), std::size_t> &&
              std::is_same_v<decltype(Char16::toCodeUnit(char16())), char16_t> &&
              std::is_same_v<decltype(Char16::highSurrogate(0)), char16> &&
              std::is_same_v<decltype(Char16::toCodePoint(char16(), char16())), char32_t>);

constexpr std::int32_t BIT_ID_START = 1 << 14;
constexpr std::int32_t BIT_ID_PART = 1 << 15;
constexpr std::int32_t BIT_WHITESPACE = 1 << 18;

bool ignorable(char32_t c) {
    switch (orvUniCharClass(c)) {
    case 57:
        return (orvUniCharProperties(c) & BIT_WHITESPACE) == 0;
    case 58:
        return true;
    default:
        return false;
    }
}

// Every classification of one code point, in the order of the documentation, as a text of 0 and 1.
std::string expectedClasses(char32_t c) {
    const std::int32_t bits = orvUniCharProperties(c);
    std::string answers;
    for (const bool answer :
         {orvUniCharIsAlphabetic(c) != 0, orvUniCharIsDefined(c) != 0,
          orvUniCharIsDecimalDigit(c) != 0, orvUniCharIsControl(c) != 0, orvUniCharIsLetter(c) != 0,
          orvUniCharIsLetterOrDecimalDigit(c) != 0, orvUniCharIsLower(c) != 0,
          orvUniCharIsUpper(c) != 0, orvUniCharIsTitle(c) != 0, (orvUniCharClass(c) & 0x38) == 0x30,
          (bits & BIT_WHITESPACE) != 0, (bits & BIT_ID_START) != 0, (bits & BIT_ID_PART) != 0,
          ignorable(c)}) {
        answers += answer ? '1' : '0';
    }
    return answers;
}

template <typename T>
std::string classes(T c) {
    std::string answers;
    for (const bool answer :
         {Char16::isAlphabetic(c), Char16::isDefined(c), Char16::isDigit(c),
          Char16::isISOControl(c), Char16::isLetter(c), Char16::isLetterOrDigit(c),
          Char16::isLowerCase(c), Char16::isUpperCase(c), Char16::isTitleCase(c),
          Char16::isSpaceChar(c), Char16::isWhitespace(c), Char16::isIdentifierStart(c),
          Char16::isIdentifierPart(c), Char16::isIdentifierIgnorable(c)}) {
        answers += answer ? '1' : '0';
    }
    return answers;
}

TEST(Char16Classes, AreWhatTheCLibrarySaysOfEveryCodePoint) {
    for (char32_t c = 0; c < 0x110010; ++c) {
        ASSERT_EQ(classes(c), expectedClasses(c)) << std::hex << static_cast<unsigned int>(c);
    }
    EXPECT_EQ(classes(char32_t{0xFFFFFFFF}), std::string(14, '0'));
}

TEST(Char16Classes, OfAUnitAreThoseOfTheCodePointOfTheSameNumber) {
    for (char32_t c = 0; c <= 0xFFFF; ++c) {
        const std::string expected = classes(c);
        ASSERT_EQ(classes(static_cast<char16_t>(c)), expected) << static_cast<unsigned int>(c);
        ASSERT_EQ(classes(char16(c)), expected) << static_cast<unsigned int>(c);
    }
}

TEST(Char16Classes, OfWellKnownCharacters) {
    EXPECT_TRUE(Char16::isAlphabetic(u'a'));
    EXPECT_TRUE(Char16::isLowerCase(u'\u00E9'));
    EXPECT_TRUE(Char16::isUpperCase(U'\u0416'));
    EXPECT_TRUE(Char16::isTitleCase(u'\u01C5'));
    EXPECT_FALSE(Char16::isTitleCase(u'A'));
    EXPECT_TRUE(Char16::isDigit(u'\u0665'));
    EXPECT_FALSE(Char16::isDigit(u'\u00B2')) << "superscript two";
    EXPECT_TRUE(Char16::isLetterOrDigit(u'7'));
    EXPECT_TRUE(Char16::isLetter(U'\U00020000'));
    EXPECT_TRUE(Char16::isISOControl(u'\x7F'));
    EXPECT_TRUE(Char16::isDefined(char16(0xD800))) << "a surrogate";
    EXPECT_FALSE(Char16::isDefined(char32_t{0xFFFF})) << "a noncharacter";
    EXPECT_TRUE(Char16::isIdentifierStart(u'x'));
    EXPECT_FALSE(Char16::isIdentifierStart(u'7'));
    EXPECT_TRUE(Char16::isIdentifierPart(u'7'));
}

TEST(Char16Classes, SeparatorsAndWhiteSpaceAreTwoQuestions) {
    EXPECT_TRUE(Char16::isSpaceChar(u' ') && Char16::isWhitespace(u' '));
    EXPECT_FALSE(Char16::isSpaceChar(u'\t'));
    EXPECT_TRUE(Char16::isWhitespace(u'\t'));
    EXPECT_TRUE(Char16::isSpaceChar(u'\u00A0')) << "NO-BREAK SPACE is a separator";
    EXPECT_TRUE(Char16::isSpaceChar(u'\u2028') && Char16::isSpaceChar(u'\u2029'));
    EXPECT_FALSE(Char16::isSpaceChar(u'\u200B')) << "ZERO WIDTH SPACE is a format character";
}

TEST(Char16Classes, IgnorableAreFormatsAndControlsThatAreNoWhiteSpace) {
    EXPECT_TRUE(Char16::isIdentifierIgnorable(u'\0'));
    EXPECT_TRUE(Char16::isIdentifierIgnorable(u'\x7F'));
    EXPECT_FALSE(Char16::isIdentifierIgnorable(u'\n'));
    EXPECT_TRUE(Char16::isIdentifierIgnorable(u'\u200D'));
    EXPECT_TRUE(Char16::isIdentifierIgnorable(u'\u00AD')) << "SOFT HYPHEN";
    EXPECT_FALSE(Char16::isIdentifierIgnorable(u'a'));
    EXPECT_TRUE(Char16::isIdentifierIgnorable(U'\U000E0001'));
}

TEST(Char16Case, MappingsAreThoseOfTheCLibraryForEveryCodePoint) {
    for (char32_t c = 0; c < 0x110010; ++c) {
        ASSERT_EQ(Char16::toLowerCase(c), orvUniCharToLower(c));
        ASSERT_EQ(Char16::toUpperCase(c), orvUniCharToUpper(c));
        ASSERT_EQ(Char16::toTitleCase(c), orvUniCharToTitle(c));
    }
    EXPECT_EQ(Char16::toUpperCase(char32_t{0xFFFFFFFF}), 0xFFFFFFFF);
}

TEST(Char16Case, OfAUnitKeepsTheLowSixteenBits) {
    for (std::uint32_t c = 0; c <= 0xFFFF; ++c) {
        const auto t = static_cast<char16_t>(c);
        const auto lower = static_cast<char16_t>(orvUniCharToLower(c));
        const auto upper = static_cast<char16_t>(orvUniCharToUpper(c));
        const auto title = static_cast<char16_t>(orvUniCharToTitle(c));
        ASSERT_EQ(Char16::toLowerCase(t), lower);
        ASSERT_EQ(Char16::toUpperCase(t), upper);
        ASSERT_EQ(Char16::toTitleCase(t), title);
        ASSERT_EQ(Char16::toLowerCase(char16(t)), lower);
        ASSERT_EQ(Char16::toUpperCase(char16(t)), upper);
        ASSERT_EQ(Char16::toTitleCase(char16(t)), title);
    }
}

TEST(Char16Case, OfWellKnownCharacters) {
    EXPECT_EQ(Char16::toUpperCase(u'\u00FF'), u'\u0178');
    EXPECT_EQ(Char16::toLowerCase(u'\u212A'), u'k') << "KELVIN SIGN";
    EXPECT_EQ(Char16::toTitleCase(u'\u01C6'), u'\u01C5');
    EXPECT_EQ(Char16::toUpperCase(u'\u01C6'), u'\u01C4');
    EXPECT_EQ(Char16::toUpperCase(U'\U00010428'), U'\U00010400');
    EXPECT_EQ(Char16::toUpperCase(u'\u00DF'), u'\u00DF') << "no mapping lengthens a text";
    EXPECT_EQ(Char16::toLowerCase(char16(0xD801)), char16(0xD801));
}

TEST(Char16Surrogates, AreToldApartOverAllUnits) {
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        const char16 u(value);
        const bool high = value >= 0xD800 && value <= 0xDBFF;
        const bool low = value >= 0xDC00 && value <= 0xDFFF;
        ASSERT_EQ(Char16::isHighSurrogate(u), high) << value;
        ASSERT_EQ(Char16::isLowSurrogate(u), low) << value;
        ASSERT_EQ(Char16::isSurrogate(u), high || low) << value;
        ASSERT_EQ(Char16::isSurrogatePair(u, char16(0xDC00)), high) << value;
        ASSERT_EQ(Char16::isSurrogatePair(char16(0xD800), u), low) << value;
        ASSERT_FALSE(Char16::isSurrogatePair(char16(0xDC00), u)) << value;
        ASSERT_FALSE(Char16::isSurrogatePair(u, char16(0xD800))) << value;
        ASSERT_EQ(static_cast<unsigned int>(Char16::toCodeUnit(u)), value);
    }
}

TEST(Char16Surrogates, EverySupplementaryCodePointSplitsAndJoins) {
    for (char32_t cp = 0x10000; cp <= 0x10FFFF; ++cp) {
        const char16 high = Char16::highSurrogate(cp);
        const char16 low = Char16::lowSurrogate(cp);
        ASSERT_TRUE(Char16::isSurrogatePair(high, low));
        ASSERT_EQ(Char16::toCodePoint(high, low), cp);
    }
}

TEST(Char16Surrogates, ArgumentsOutOfRangeAreMaskedAndNeverChecked) {
    EXPECT_EQ(Char16::highSurrogate(0), u'\xDBC0');
    EXPECT_EQ(Char16::highSurrogate(0xFFFF), u'\xDBFF');
    EXPECT_EQ(Char16::highSurrogate(0x110000), u'\xD800');
    EXPECT_EQ(Char16::lowSurrogate(0x3FF), u'\xDFFF');
    EXPECT_EQ(Char16::lowSurrogate(0xFFFFFFFF), u'\xDFFF');
    EXPECT_EQ(Char16::toCodePoint(u'\0', u'\0'), 0x10000U);
    EXPECT_EQ(Char16::toCodePoint(u'a', u'b'), 0x10000U + (0x61U << 10) + 0x62U);
    EXPECT_EQ(Char16::toCodePoint(char16(0xFFFF), char16(0xFFFF)), 0x10FFFFU);
}

TEST(Char16CodePoints, RangesEndWhereTheyShould) {
    struct Row {
        char32_t cp;
        bool bmp, valid, supplementary;
        std::size_t count;
    };
    for (const Row& row :
         {Row{0, true, true, false, 1}, Row{0xD800, true, true, false, 1},
          Row{0xFFFF, true, true, false, 1}, Row{0x10000, false, true, true, 2},
          Row{0x10FFFF, false, true, true, 2}, Row{0x110000, false, false, false, 2},
          Row{0xFFFFFFFF, false, false, false, 2}}) {
        SCOPED_TRACE(static_cast<unsigned int>(row.cp));
        EXPECT_EQ(Char16::isBmpCodePoint(row.cp), row.bmp);
        EXPECT_EQ(Char16::isValidCodePoint(row.cp), row.valid);
        EXPECT_EQ(Char16::isSupplementaryCodePoint(row.cp), row.supplementary);
        EXPECT_EQ(Char16::charCount(row.cp), row.count);
    }
}

} // namespace
