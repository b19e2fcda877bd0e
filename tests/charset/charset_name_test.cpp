// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The loose comparison of names: by example, against a second statement of its rules, and
/// as a strict weak order.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::ustring_ref;
using NameLess = orv::Charset::NameLess<ustring_ref>;

bool equivalent(ustring_ref a, ustring_ref b) {
    return !NameLess()(a, b) && !NameLess()(b, a);
}

TEST(CharsetNameLess, TakesSpellingsOfOneNameForEqual) {
    const std::pair<ustring_ref, ustring_ref> rows[] = {
        {u"utf8"_u, u"UTF-8"_u},
        {u"UTF-8"_u, u"utf_8"_u},
        {u"ISO-8859-01"_u, u"ISO-8859-1"_u},
        {u"x"_u, u"x-"_u},
        {u"-x"_u, u"x"_u},
        {u"0"_u, u"00"_u},
        {u"0"_u, u"000"_u},
        {u"a0"_u, u"a00"_u},
        {u""_u, u"-"_u},
        {u""_u, u"\u20AC\U0001F600"_u},
        {u"a"_u, u"\u00E9"
                 "A\u00E9"_u},
        {u"cp0437"_u, u"CP437"_u},
        {u"cp-0437"_u, u"cp437"_u},
        {u"1-01"_u, u"1-1"_u},
        {u"10"_u, u"10-"_u},
        {u"x007"_u, u"X7"_u},
        {u"1-1"_u, u"11"_u},
    };
    for (const auto& [a, b] : rows) {
        EXPECT_TRUE(equivalent(a, b)) << testing::PrintToString(a) << testing::PrintToString(b);
    }
}

TEST(CharsetNameLess, TellsNamesApart) {
    const std::pair<ustring_ref, ustring_ref> rows[] = {
        {u"ISO-8859-1"_u, u"ISO-8859-10"_u},
        {u"ISO-8859-1"_u, u"ISO-8859-2"_u},
        {u"utf8"_u, u"utf88"_u},
        {u"x"_u, u"x1"_u},
        {u"100"_u, u"1-00"_u},
        {u""_u, u"0"_u},
        // A zero that is neither in a number nor at the end gives way to the unit behind it.
        {u"0a"_u, u"a"_u},
        {u"0-"_u, u"0"_u},
        {u"0-a"_u, u"a"_u},
        {u"0A"_u, u"0a"_u},
    };
    for (const auto& [a, b] : rows) {
        EXPECT_FALSE(equivalent(a, b)) << testing::PrintToString(a) << testing::PrintToString(b);
        EXPECT_NE(NameLess()(a, b), NameLess()(b, a));
    }
}

TEST(CharsetNameLess, OrdersByTheSignificantCharacters) {
    EXPECT_TRUE(NameLess()(u"a"_u, u"b"_u));
    EXPECT_TRUE(NameLess()(u"A"_u, u"b"_u));
    EXPECT_TRUE(NameLess()(u"a"_u, u"B"_u));
    EXPECT_TRUE(NameLess()(u"-z"_u, u"zz"_u)) << "a shorter one comes first";
    EXPECT_TRUE(NameLess()(u"x10"_u, u"x9"_u)) << "digits are compared one by one";
    EXPECT_TRUE(NameLess()(u"9"_u, u"a"_u));
    EXPECT_FALSE(NameLess()(u"a"_u, u"A"_u));
}

TEST(CharsetNameLess, AUnitAfterALeadingZeroIsTakenAsItIs) {
    // "0a" gives the small letter, which sorts behind all capitals, and then the letter again.
    EXPECT_TRUE(NameLess()(u"Z"_u, u"0a"_u));
    EXPECT_TRUE(NameLess()(u"0Z"_u, u"0a"_u));
    EXPECT_TRUE(equivalent(u"0Ab"_u, u"aaB"_u)) << "a capital behind it is read twice";
    // A zero unit in that place ends the comparison like the end of a name.
    const std::u16string zero(u"0\0b", 3);
    EXPECT_TRUE(equivalent(orv::as_ustring_ref(zero), u""_u));
    // Half of a pair is one unit.
    EXPECT_TRUE(NameLess()(u"0\U0001F600"_u, u"0\uFFFD"_u));
    EXPECT_FALSE(equivalent(u"0\U0001F600"_u, u"0\U00020000"_u));
    EXPECT_TRUE(equivalent(u"0\U0001F600"_u, u"0\U0001F601"_u)) << "the same high half";
}

// The rules once more, as a function from a name to the whole sequence of its significant
// characters.
std::u32string key(std::u16string_view name) {
    const auto digit = [](char32_t c) { return U'0' <= c && c <= U'9'; };
    std::u32string characters;
    char32_t last = 0;
    for (std::size_t at = 0; at < name.size();) {
        char32_t c = name[at++];
        if (c >= 0xD800 && c < 0xDC00 && at < name.size() && name[at] >= 0xDC00 &&
            name[at] < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10) + (name[at++] - 0xDC00U);
        }
        const bool letter = (U'a' <= c && c <= U'z') || (U'A' <= c && c <= U'Z');
        if (letter) {
            last = c >= U'a' ? c - U'a' + U'A' : c;
            characters += last;
        } else if (!digit(c)) {
            last = c;
        } else if (c != U'0' || digit(last) || at == name.size()) {
            characters += last = c;
        } else {
            // Leading zeros: what follows them stands here.
            while (at + 1 < name.size() && name[at] == u'0') {
                ++at;
            }
            last = name[at];
            if (digit(last)) {
                ++at;
            }
            if (last == 0) {
                return characters;
            }
            characters += last;
        }
    }
    return characters;
}

std::u16string randomName(std::mt19937& random) {
    static constexpr char16_t ALPHABET[] = {u'0', u'0', u'0', u'1', u'9',      u'a',   u'A',   u'b',
                                            u'z', u'Z', u'-', u'_', u'\x20AC', 0xD83D, 0xDE00, 0};
    std::u16string name;
    for (std::size_t length = random() % 8; length > 0; --length) {
        name += ALPHABET[random() % std::size(ALPHABET)];
    }
    return name;
}

TEST(CharsetNameLess, AgreesWithASecondStatementOfItsRules) {
    std::mt19937 random(20240601);
    for (int i = 0; i < 200000; ++i) {
        const std::u16string a = randomName(random);
        const std::u16string b = randomName(random);
        ASSERT_EQ(NameLess()(orv::as_ustring_ref(a), orv::as_ustring_ref(b)), key(a) < key(b))
            << testing::PrintToString(a) << testing::PrintToString(b);
    }
}

TEST(CharsetNameLess, IsAStrictWeakOrder) {
    std::mt19937 random(7);
    std::vector<std::u16string> names;
    for (int i = 0; i < 90; ++i) {
        names.push_back(randomName(random));
    }
    const auto less = [](const std::u16string& a, const std::u16string& b) {
        return NameLess()(orv::as_ustring_ref(a), orv::as_ustring_ref(b));
    };
    for (const auto& a : names) {
        EXPECT_FALSE(less(a, a));
        for (const auto& b : names) {
            EXPECT_FALSE(less(a, b) && less(b, a));
            const bool same = !less(a, b) && !less(b, a);
            for (const auto& c : names) {
                if (less(a, b) && less(b, c)) {
                    ASSERT_TRUE(less(a, c));
                }
                if (same) {
                    ASSERT_EQ(less(a, c), less(b, c));
                    ASSERT_EQ(less(c, a), less(c, b));
                }
            }
        }
    }
}

} // namespace
