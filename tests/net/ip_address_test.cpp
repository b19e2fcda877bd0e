// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The recognisers of IP addresses, against rules that take a text apart at its separators.
#include "orv/liborvxx/net/detail/ip_address.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::ustring;
using orv::ustring_ref;
using orv::net::detail::is_IP_literal;
using orv::net::detail::is_IPv4_address;
using orv::net::detail::is_IPv6_address;
using orv::net::detail::is_IPvFuture;

// The parts between separators; of an empty text one empty part.
std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t at = text.find(separator);
        parts.push_back(text.substr(0, at));
        if (at == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(at + 1);
    }
}

bool consistsOf(std::string_view text, std::string_view set) {
    return !text.empty() && text.find_first_not_of(set) == std::string_view::npos;
}

constexpr std::string_view HEX = "0123456789ABCDEFabcdef";

bool isOctet(std::string_view text) {
    return consistsOf(text, "0123456789") && text.size() <= 3 &&
           (text.size() == 1 || text[0] != '0') && std::stoi(std::string(text)) <= 255;
}

bool v4Rule(std::string_view text) {
    const auto parts = split(text, '.');
    return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), isOctet);
}

// How many groups of 16 bits, an IPv4 address at the end taken for two; -1 for anything else.
int groupsIn(std::string_view text, bool isEnd) {
    if (text.empty()) {
        return 0;
    }
    int count = 0;
    const auto parts = split(text, ':');
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (isEnd && i + 1 == parts.size() && v4Rule(parts[i])) {
            count += 2;
        } else if (consistsOf(parts[i], HEX) && parts[i].size() <= 4) {
            ++count;
        } else {
            return -1;
        }
    }
    return count;
}

bool v6Rule(std::string_view text) {
    const std::size_t gap = text.find("::");
    if (gap == std::string_view::npos) {
        return groupsIn(text, true) == 8;
    }
    const int before = groupsIn(text.substr(0, gap), false);
    const int after = groupsIn(text.substr(gap + 2), true);
    return before >= 0 && after >= 0 && before + after <= 7;
}

bool futureRule(std::string_view text) {
    const std::size_t dot = text.find('.');
    return dot != std::string_view::npos && (text[0] == 'v' || text[0] == 'V') &&
           consistsOf(text.substr(1, dot - 1), HEX) &&
           consistsOf(text.substr(dot + 1),
                      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                      "-._~!$&'()*+,;=:");
}

// Calls with each text of up to `longest` units of the alphabet.
template <typename Call>
void forEachText(std::string_view alphabet, std::size_t longest, Call call) {
    std::string text;
    std::vector<std::size_t> letters;
    for (;;) {
        call(text);
        // The next one, counted in the alphabet, after all of this length one unit more.
        std::size_t i = 0;
        while (i < letters.size() && letters[i] + 1 == alphabet.size()) {
            letters[i] = 0;
            text[i++] = alphabet[0];
        }
        if (i < letters.size()) {
            text[i] = alphabet[++letters[i]];
        } else if (letters.size() == longest) {
            return;
        } else {
            letters.push_back(0);
            text.push_back(alphabet[0]);
        }
    }
}

// Compares and counts the texts that are addresses, so that a rule that refuses all is seen.
template <typename Recogniser, typename Rule>
std::size_t countAgreed(std::string_view alphabet, std::size_t longest, std::string_view behind,
                        Recogniser recogniser, Rule rule) {
    std::size_t count = 0;
    forEachText(alphabet, longest, [&](std::string text) {
        text += behind;
        const bool expected = rule(text);
        count += expected ? 1 : 0;
        // EXPECT_EQ takes its time, hundreds of thousands of times.
        if (recogniser(orvtest::textIn<char16>(text)) != expected) {
            ADD_FAILURE() << text << " is " << (expected ? "one" : "none");
        }
    });
    return count;
}

TEST(IPv4Address, AgreesWithTheRuleOnEveryOctetInEveryPlace) {
    for (int number = 0; number < 2000; ++number) {
        for (const char* zeros : {"", "0", "00"}) {
            const std::string octet = zeros + std::to_string(number);
            for (const std::string& text : {octet + ".2.3.4", "1." + octet + ".3.4",
                                            "1.2." + octet + ".4", "1.2.3." + octet}) {
                EXPECT_EQ(is_IPv4_address(orvtest::textIn<char16>(text)), v4Rule(text)) << text;
            }
        }
    }
}

TEST(IPv4Address, AgreesWithTheRuleOnEveryShortText) {
    EXPECT_EQ(countAgreed("025.x", 7, "", is_IPv4_address, v4Rule), 81U);
    EXPECT_GT(countAgreed("06.", 9, "", is_IPv4_address, v4Rule), 81U);
}

TEST(IPv4Address, DoesNotOverflowOnManyDigits) {
    EXPECT_FALSE(is_IPv4_address(u"4294967297.0.0.1"_u));
    EXPECT_FALSE(is_IPv4_address(u"1.2.3.18446744073709551617"_u));
    EXPECT_FALSE(is_IPv4_address(ustring(10'000, u'9')));
}

TEST(IPv4Address, TakesDigitsOfAsciiAlone) {
    EXPECT_TRUE(is_IPv4_address(u"255.255.255.255"_u));
    EXPECT_FALSE(is_IPv4_address(u"255.255.255.25\uFF15"_u));
    EXPECT_FALSE(is_IPv4_address(u"\u0661.2.3.4"_u));
    EXPECT_FALSE(is_IPv4_address(u"1.2.3.4\uFFFF"_u));
    EXPECT_FALSE(is_IPv4_address(u"1.2.3.4\0"_u));
    EXPECT_FALSE(is_IPv4_address(ustring_ref()));
}

// Colons and groups in every order there is: nine groups need 17 units.
TEST(IPv6Address, AgreesWithTheRuleOnEveryOrderOfColonsAndGroups) {
    EXPECT_GT(countAgreed(":a", 17, "", is_IPv6_address, v6Rule), 1000U);
    EXPECT_GT(countAgreed(":a", 15, "1.2.3.4", is_IPv6_address, v6Rule), 100U);
}

TEST(IPv6Address, AgreesWithTheRuleOnEveryShortText) {
    EXPECT_GT(countAgreed(":a1.", 8, "", is_IPv6_address, v6Rule), 100U);
    EXPECT_GT(countAgreed(":F0.g", 6, ".0.0.1", is_IPv6_address, v6Rule), 10U);
    EXPECT_GT(countAgreed(":1.", 7, "::", is_IPv6_address, v6Rule), 10U);
}

TEST(IPv6Address, TakesTheFormsOfRFC4291) {
    for (const ustring_ref text :
         {u"::"_u, u"::1"_u, u"1::"_u, u"2001:DB8:0:0:8:800:200C:417A"_u, u"FF01::101"_u,
          u"0:0:0:0:0:0:13.1.68.3"_u, u"::FFFF:129.144.52.38"_u, u"1:2:3:4:5:6:1.2.3.4"_u,
          u"1:2:3:4:5:6:7::"_u, u"::2:3:4:5:6:7:8"_u, u"1:2:3:4:5::1.2.3.4"_u}) {
        EXPECT_TRUE(is_IPv6_address(text)) << orvtest::shown(text);
    }
}

TEST(IPv6Address, RefusesTooManyGroupsAndTooLongOnes) {
    for (const ustring_ref text :
         {u"1:2:3:4:5:6:7:8:9"_u, u"1:2:3:4:5:6:7"_u, u"1:2:3:4:5:6:7::8"_u,
          u"1:2:3:4:5:6:7:1.2.3.4"_u, u"1:2:3:4:5:6::1.2.3.4"_u, u"1:2:3:4:5:1.2.3.4"_u,
          u"12345::"_u, u"::12345"_u, u"::00001"_u, u"::1.2.3.4:5"_u, u"::256.0.0.1"_u,
          u"::01.2.3.4"_u, u"1::2::3"_u, u":::"_u, u"1:::2"_u, u"fe80::1%25en0"_u, u"::1\uFFFF"_u,
          u"::\uFF11"_u, u"[::1]"_u}) {
        EXPECT_FALSE(is_IPv6_address(text)) << orvtest::shown(text);
    }
}

TEST(IPvFuture, AgreesWithTheRuleOnEveryShortText) {
    EXPECT_GT(countAgreed("vV1g.:@[%", 5, "", is_IPvFuture, futureRule), 50U);
    EXPECT_GT(countAgreed("vaF.~", 6, "", is_IPvFuture, futureRule), 50U);
}

TEST(IPvFuture, TakesEveryUnitThatItsTextMayHoldAndNoOther) {
    for (unsigned int unit = 0; unit <= 0xFFFF; ++unit) {
        ustring text = u"v1.a"_u;
        text.push_back(char16(unit));
        const bool expected =
            unit < 0x80 && futureRule({"v1.a" + std::string(1, static_cast<char>(unit))});
        EXPECT_EQ(is_IPvFuture(text), expected) << unit;
    }
}

// The grammar's rule takes "v" alone.
TEST(IPvFuture, TakesAnUpperCaseVAsIsMeant) {
    EXPECT_TRUE(is_IPvFuture(u"V1.x"_u));
    EXPECT_TRUE(is_IPvFuture(u"v1.x"_u));
}

TEST(IPLiteral, IsAnAddressBetweenBrackets) {
    EXPECT_TRUE(is_IP_literal(u"[::1]"_u));
    EXPECT_TRUE(is_IP_literal(u"[v1F.a:b]"_u));
    EXPECT_TRUE(is_IP_literal(u"[V1.x]"_u));
    for (const ustring_ref text :
         {u""_u, u"["_u, u"]"_u, u"[]"_u, u"[::1"_u, u"::1]"_u, u"::1"_u, u"[1.2.3.4]"_u, u"[x]"_u,
          u"[[::1]]"_u, u"[::1]]"_u, u"]::1["_u}) {
        EXPECT_FALSE(is_IP_literal(text)) << orvtest::shown(text);
    }
    EXPECT_FALSE(is_IP_literal(ustring_ref()));
}

} // namespace
