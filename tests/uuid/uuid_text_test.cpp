// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UUIDs as text: printing, parsing, and what the parser refuses.
#include "orv/liborvxx/uuid/uuid.h"

#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace orv::literals;
using orv::Char16;
using orv::char16;
using orv::ustring;
using orv::ustring_ref;
using orv::UUID;
using orvtest::thrownMessage;

constexpr std::size_t MSB = 0x0123456789ABCDEF;
constexpr std::size_t LSB = 0xFEDCBA9876543210;
constexpr char PREFIX[] = "invalid UUID string: ";

ustring widened(const std::string& text) {
    ustring result;
    for (const char c : text) {
        result.push_back(Char16::widen(c));
    }
    return result;
}

std::string refusal(const std::string& text) {
    return thrownMessage<std::invalid_argument>([&] { (void)UUID::fromString(text); });
}
std::string refusal(const ustring& text) {
    return thrownMessage<std::invalid_argument>([&] { (void)UUID::fromString(text); });
}

// The text is refused in both forms, and the message quotes it.
void expectRefused(const std::string& ascii) {
    EXPECT_EQ(refusal(ascii), PREFIX + ascii);
    EXPECT_EQ(refusal(widened(ascii)), PREFIX + ascii);
}

void expectParsed(const std::string& ascii, const UUID& id) {
    EXPECT_EQ(UUID::fromString(ascii), id) << ascii;
    EXPECT_EQ(UUID::fromString(widened(ascii)), id) << ascii;
}

TEST(UUIDText, HasThirtySixUnitsInFiveGroupsOfLowerCaseDigits) {
    EXPECT_EQ(UUID().toString(), "00000000-0000-0000-0000-000000000000");
    EXPECT_EQ(UUID(MSB, LSB).toString(), "01234567-89ab-cdef-fedc-ba9876543210");
    EXPECT_EQ(UUID(MSB, LSB).toUString(), u"01234567-89ab-cdef-fedc-ba9876543210"_u);
    EXPECT_EQ(UUID(~std::size_t{0}, ~std::size_t{0}).toString(),
              "ffffffff-ffff-ffff-ffff-ffffffffffff");
    EXPECT_EQ(UUID(0x0000000100020003, 0x0004000000000005).toUString(),
              u"00000001-0002-0003-0004-000000000005"_u);
}

TEST(UUIDText, RandomValuesGoOutAndComeBackInEveryCase) {
    std::mt19937_64 random(1611);
    for (int i = 0; i < 20'000; ++i) {
        const UUID id(random(), random());
        const std::string text = id.toString();
        ASSERT_EQ(text.size(), 36U);
        ASSERT_EQ(id.toUString(), widened(text));
        std::string upper = text;
        for (char& c : upper) {
            c = static_cast<char>(random() % 2 == 0 ? std::toupper(c) : c);
        }
        ASSERT_EQ(UUID::fromString(text), id);
        ASSERT_EQ(UUID::fromString(upper), id);
        ASSERT_EQ(UUID::fromString(id.toUString()), id);
        ASSERT_EQ(UUID::fromString(widened(upper)), id);
    }
}

TEST(UUIDParse, ShortGroupsAreNumbers) {
    expectParsed("1-2-3-4-5", UUID(0x0000000100020003, 0x0004000000000005));
    EXPECT_EQ(UUID::fromString("1-2-3-4-5").toString(), "00000001-0002-0003-0004-000000000005");
    expectParsed("0-0-0-0-0", UUID());
    expectParsed("Ab-cD-0eF-fFFF-0", UUID(0x000000AB00CD00EF, 0xFFFF000000000000));
    expectParsed("ffffffff-ffff-ffff-ffff-ffffffffffff", UUID(~std::size_t{0}, ~std::size_t{0}));
}

TEST(UUIDParse, EveryLengthOfEveryGroupUpToItsMaximumAndNotOneMore) {
    static constexpr std::array<std::size_t, 5> MAXIMA = {8, 4, 4, 4, 12};
    for (std::size_t group = 0; group < MAXIMA.size(); ++group) {
        for (std::size_t length = 0; length <= MAXIMA[group] + 20; ++length) {
            std::array<std::size_t, 5> values{};
            std::string text;
            for (std::size_t g = 0; g < MAXIMA.size(); ++g) {
                text += g == 0 ? "" : "-";
                if (g != group) {
                    text += '1';
                    values[g] = 1;
                    continue;
                }
                for (std::size_t i = 0; i < length; ++i) {
                    text += 'f';
                    values[g] = values[g] << 4 | 0xF;
                }
            }
            if (length >= 1 && length <= MAXIMA[group]) {
                expectParsed(text, UUID(values[0] << 32 | values[1] << 16 | values[2],
                                        values[3] << 48 | values[4]));
            } else {
                expectRefused(text);
            }
        }
    }
}

TEST(UUIDParse, TooManyDigitsAreRefusedAlsoWhenTheyAreZeros) {
    expectRefused("000000001-0-0-0-0");
    expectRefused("123456789-0-0-0-0");
    expectRefused("0-00001-0-0-0");
    expectRefused("0-0-0-0-0000000000001");
    expectRefused("10000000000000001-0-0-0-0"); // more than a 64-bit number holds
}

TEST(UUIDParse, AMissingGroupOrHyphenIsRefused) {
    for (const char* const text :
         {"", "-", "----", "1", "1-2", "1-2-3", "1-2-3-4", "1-2-3-4-", "-1-2-3-4-5", "1--2-3-4-5",
          "1-2-3--4-5", "-2-3-4-5", "1-2-3-4-5-", "1-2-3-4-5-6", "1 2-3-4-5", "1_2_3_4_5",
          "0123456789abcdeffedcba9876543210"}) {
        expectRefused(text);
    }
}

TEST(UUIDParse, AnythingAroundTheGroupsIsRefused) {
    for (const char* const text :
         {" 1-2-3-4-5", "1-2-3-4-5 ", "{1-2-3-4-5}", "1-2-3-4-5g", "1-2-3-4-5\n", "0x1-2-3-4-5",
          "+1-2-3-4-5", "1-2-3-4-0x5", "1-2-g-4-5", "1-2-3- 4-5", "urn:uuid:1-2-3-4-5"}) {
        expectRefused(text);
    }
}

TEST(UUIDParse, EveryPrefixOfAFullTextLacksSomething) {
    const std::string text = UUID(MSB, LSB).toString();
    for (std::size_t length = 0; length < text.size(); ++length) {
        const std::string prefix = text.substr(0, length);
        if (length <= 24) {
            expectRefused(prefix);
        } else { // a short last group
            expectParsed(prefix, UUID(MSB, (LSB & 0xFFFF000000000000) |
                                               (LSB & 0xFFFFFFFFFFFF) >> 4 * (36 - length)));
        }
    }
}

TEST(UUIDParse, EveryByteIsADigitOrRefused) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const char c = static_cast<char>(byte);
        const std::string text = std::string("1-2-3-4-") + c;
        const int digit = byte >= '0' && byte <= '9'   ? byte - '0'
                          : byte >= 'a' && byte <= 'f' ? byte - 'a' + 10
                          : byte >= 'A' && byte <= 'F' ? byte - 'A' + 10
                                                       : -1;
        if (digit >= 0) {
            EXPECT_EQ(UUID::fromString(text).getLeastSignificantBits(),
                      0x0004000000000000U + static_cast<std::size_t>(digit));
        } else if (byte != 0) {
            EXPECT_EQ(refusal(text), PREFIX + text) << "the bytes are quoted as they are";
        } else {
            EXPECT_EQ(refusal(text), std::string(PREFIX) + "1-2-3-4-");
        }
    }
}

TEST(UUIDParse, EveryUnitIsADigitInRadixSixteenOrRefused) {
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        ustring text = u"1-2-3-4-"_u;
        text.push_back(char16(value));
        const int digit = Char16::digit(char16(value), 16);
        if (digit >= 0) {
            ASSERT_EQ(UUID::fromString(text).getLeastSignificantBits(),
                      0x0004000000000000U + static_cast<std::size_t>(digit))
                << value;
        } else {
            ASSERT_THROW((void)UUID::fromString(text), std::invalid_argument) << value;
        }
    }
}

TEST(UUIDParse, Utf16TextMayUseTheDigitsOfOtherScripts) {
    EXPECT_EQ(UUID::fromString(u"\u0661-\u0662-\uFF13-\uFF26-\uFF41\u096B"_u),
              UUID(0x0000000100020003, 0x000F0000000000A5));
    EXPECT_EQ(UUID::fromString(u"\uFF10\uFF11-\u0669-\u0967-\uFF22-\uFF46"_u),
              UUID(0x0000000100090001, 0x000B00000000000F));
}

TEST(UUIDParse, OnlyTheAsciiHyphenSeparates) {
    EXPECT_EQ(refusal(u"1\u20102-3-4-5"_u.to_string()), std::string(PREFIX) + "1?2-3-4-5");
    EXPECT_EQ(refusal(u"1\uFF0D2-3-4-5"_u.to_string()), std::string(PREFIX) + "1?2-3-4-5");
}

TEST(UUIDParse, TheMessageNarrowsUtf16TextUnitByUnit) {
    EXPECT_EQ(refusal(u"\u0661\u0662-\uFF13"_u.to_string()), std::string(PREFIX) + "12-3");
    EXPECT_EQ(refusal(u"caf\u00E9"_u.to_string()), std::string(PREFIX) + "caf?");
    EXPECT_EQ(refusal(u"\U0001F600"_u.to_string()), std::string(PREFIX) + "??");
    EXPECT_EQ(refusal(u"\U0001D7D9"_u.to_string()), std::string(PREFIX) + "??")
        << "a digit outside the BMP is two units";
    EXPECT_EQ(refusal(u"\uFF21\uFF26"_u.to_string()), std::string(PREFIX) + "??")
        << "full-width letters have no decimal value";
    EXPECT_EQ(refusal(u"\x7F\x80"_u.to_string()), std::string(PREFIX) + "\x7F?");
}

TEST(UUIDParse, TheWholeInputIsQuoted) {
    const std::string text(10'000, 'x');
    EXPECT_EQ(refusal(text), PREFIX + text);
    EXPECT_EQ(refusal(widened(text)), PREFIX + text);
    EXPECT_EQ(refusal(std::string("gr\xFC\xDF")), std::string(PREFIX) + "gr\xFC\xDF");
}

TEST(UUIDParse, TakesAnyTextThatIsAView) {
    const std::string owner = "[1-2-3-4-5]";
    EXPECT_EQ(UUID::fromString(orv::string_ref(owner).substr(1, 9)), UUID::fromString("1-2-3-4-5"));
    EXPECT_EQ(UUID::fromString(std::string_view("1-2-3-4-5")), UUID::fromString(u"1-2-3-4-5"_u));
    EXPECT_EQ(refusal(std::string()), PREFIX);
    EXPECT_EQ(refusal(ustring()), PREFIX);
}

} // namespace
