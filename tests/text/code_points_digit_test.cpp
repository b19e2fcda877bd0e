// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Char16`: radix digits, and narrow text.
#include "orv/liborvxx/text/code_points.h"

#include "orv/liborv/unicode/unichar.h"

#include <gtest/gtest.h>

namespace {

using orv::Char16;
using orv::char16;

static_assert(std::is_same_v<decltype(Char16::digit(u'0', 10)), int> &&
              std::is_same_v<decltype(Char16::forDigit(0, 10)), char16> &&
              std::is_same_v<decltype(Char16::narrow(u'0', ' ')), char> &&
              std::is_same_v<decltype(Char16::widen('0')), char16>);

// The rules of a digit, one after the other.
int expectedDigit(char32_t c, unsigned int radix) {
    if (radix < 2 || radix > 36) {
        return -1;
    }
    int value = -1;
    if (c >= '0' && c <= '9') {
        value = static_cast<int>(c) - 0x30;
    } else if (c >= 'A' && c <= 'Z') {
        value = static_cast<int>(c) - 0x37;
    } else if (c >= 'a' && c <= 'z') {
        value = static_cast<int>(c) - 0x57;
    } else if (orvUniCharDigitValue(c) >= 0) {
        value = orvUniCharDigitValue(c);
    } else if (c >= 0xFF21 && c <= 0xFF3A) {
        value = static_cast<int>(c) - 0xFF21 + 10;
    } else if (c >= 0xFF41 && c <= 0xFF5A) {
        value = static_cast<int>(c) - 0xFF41 + 10;
    }
    return value < static_cast<int>(radix) ? value : -1;
}

TEST(Char16Digit, EveryCodePointInEveryRadix) {
    for (char32_t c = 0; c < 0x110010; ++c) {
        for (unsigned int radix = 0; radix <= 40; ++radix) {
            if (Char16::digit(c, radix) != expectedDigit(c, radix)) {
                FAIL() << std::hex << static_cast<unsigned int>(c) << std::dec << " radix " << radix
                       << ": " << Char16::digit(c, radix);
            }
        }
    }
}

TEST(Char16Digit, OfAUnitIsThatOfTheCodePointOfTheSameNumber) {
    for (char32_t c = 0; c <= 0xFFFF; ++c) {
        for (unsigned int radix = 0; radix <= 40; ++radix) {
            const int expected = Char16::digit(c, radix);
            if (Char16::digit(static_cast<char16_t>(c), radix) != expected ||
                Char16::digit(char16(c), radix) != expected) {
                FAIL() << std::hex << static_cast<unsigned int>(c) << std::dec << " radix "
                       << radix;
            }
        }
    }
}

TEST(Char16Digit, ARadixOutsideTwoToThirtySixHoldsNoDigit) {
    for (const unsigned int radix : {0U, 1U, 37U, 38U, 100U, 0x80000000U, 0xFFFFFFFFU}) {
        for (char32_t c = 0; c <= 0xFFFF; ++c) {
            ASSERT_EQ(Char16::digit(c, radix), -1) << radix;
        }
    }
}

TEST(Char16Digit, OfWellKnownCharacters) {
    EXPECT_EQ(Char16::digit(u'Z', 36), 35);
    EXPECT_EQ(Char16::digit(u'Z', 35), -1);
    EXPECT_EQ(Char16::digit(u'z', 36), 35);
    EXPECT_EQ(Char16::digit(u'0', 37), -1);
    EXPECT_EQ(Char16::digit(u'0', 1), -1);
    EXPECT_EQ(Char16::digit(u'1', 2), 1);
    EXPECT_EQ(Char16::digit(u'2', 2), -1);
    EXPECT_EQ(Char16::digit(u'@', 36), -1);
    EXPECT_EQ(Char16::digit(u'[', 36), -1);
    EXPECT_EQ(Char16::digit(u'`', 36), -1);
    EXPECT_EQ(Char16::digit(u'{', 36), -1);
}

TEST(Char16Digit, FullWidthLettersCountFromTen) {
    EXPECT_EQ(Char16::digit(u'\uFF21', 11), 10);
    EXPECT_EQ(Char16::digit(u'\uFF22', 11), -1);
    EXPECT_EQ(Char16::digit(u'\uFF21', 10), -1);
    EXPECT_EQ(Char16::digit(u'\uFF3A', 36), 35);
    EXPECT_EQ(Char16::digit(u'\uFF41', 11), 10);
    EXPECT_EQ(Char16::digit(u'\uFF5A', 36), 35);
    EXPECT_EQ(Char16::digit(u'\uFF5A', 35), -1);
    EXPECT_EQ(Char16::digit(u'\uFF20', 36), -1);
    EXPECT_EQ(Char16::digit(u'\uFF3B', 36), -1);
    EXPECT_EQ(Char16::digit(u'\uFF5B', 36), -1);
    EXPECT_EQ(Char16::digit(u'\uFF17', 8), 7) << "full-width 7 is a decimal digit";
}

TEST(Char16Digit, DecimalDigitsOfEveryScriptCount) {
    EXPECT_EQ(Char16::digit(u'\u0667', 8), 7);
    EXPECT_EQ(Char16::digit(u'\u0667', 7), -1);
    EXPECT_EQ(Char16::digit(u'\u0667', 36), 7);
    EXPECT_EQ(Char16::digit(U'\U0001D7FF', 10), 9) << "MATHEMATICAL MONOSPACE DIGIT NINE";
    EXPECT_EQ(Char16::digit(u'\u00B2', 10), -1) << "SUPERSCRIPT TWO has no decimal value";
    EXPECT_EQ(Char16::digit(u'\u4E94', 10), -1) << "nor has the ideograph five";
}

TEST(Char16ForDigit, GivesLowerCaseAsciiOrZero) {
    static constexpr char DIGITS[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    for (unsigned int radix = 0; radix <= 40; ++radix) {
        for (unsigned int digit = 0; digit <= 40; ++digit) {
            const bool fits = radix >= 2 && radix <= 36 && digit < radix;
            ASSERT_EQ(Char16::forDigit(digit, radix), fits ? char16(DIGITS[digit]) : char16(0))
                << digit << " radix " << radix;
            if (fits) {
                ASSERT_EQ(Char16::digit(Char16::forDigit(digit, radix), radix),
                          static_cast<int>(digit));
            }
        }
    }
    EXPECT_EQ(Char16::forDigit(35, 36), u'z');
    EXPECT_EQ(Char16::forDigit(10, 10), u'\0');
    EXPECT_EQ(Char16::forDigit(0, 37), u'\0');
    EXPECT_EQ(Char16::forDigit(0, 0xFFFFFFFF), u'\0');
    EXPECT_EQ(Char16::forDigit(0xFFFFFFFF, 36), u'\0');
}

TEST(Char16Narrow, KeepsAsciiFoldsDigitsAndGivesTheDefaultForTheRest) {
    int folded = 0;
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        const std::int32_t digit = orvUniCharDigitValue(value);
        folded += value >= 0x80 && digit >= 0 ? 1 : 0;
        for (const char dflt : {'?', '\0', '\xFF'}) {
            const char expected = value < 0x80 ? static_cast<char>(value)
                                  : digit >= 0 ? static_cast<char>('0' + digit)
                                               : dflt;
            ASSERT_EQ(Char16::narrow(char16(value), dflt), expected) << value;
        }
    }
    EXPECT_GT(folded, 300) << "the digits of many scripts";
    EXPECT_EQ(Char16::narrow(u'\u0665', '?'), '5');
    EXPECT_EQ(Char16::narrow(u'\u00E9', '?'), '?');
    EXPECT_EQ(Char16::narrow(u'\x80', '-'), '-');
}

TEST(Char16Widen, KnowsAsciiOnly) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        EXPECT_EQ(Char16::widen(static_cast<char>(byte)), char16(byte < 0x80 ? byte : 0xFFFD));
    }
    EXPECT_EQ(Char16::widen('\xE4'), u'\uFFFD');
}

} // namespace
