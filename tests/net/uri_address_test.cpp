// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief IP addresses in the host of a URI: what is one, and where one that is none goes wrong.
#include "orv/liborvxx/text/literals.h"
#include "tests/net/parse_outcome.h"
#include "tests/support/case_count.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orv::literals;
using orvtest::outcome;

struct Case {
    std::string_view address; // begins at index 3
    std::string_view failure;
};

// What comes of the literal as a host before the path "/".
std::string good(const std::string& literal) {
    return "a:" + literal + " h:" + literal + " /:/ @" + std::to_string(literal.size() + 3);
}

void expectFailures(const std::vector<Case>& cases) {
    for (const auto& [address, failure] : cases) {
        EXPECT_EQ(outcome("//[" + std::string(address)), failure) << address;
    }
}

TEST(URIAddress, TakesAddressesOfEveryKind) {
    for (const char* const literal :
         {"[::]", "[::1]", "[1::]", "[1:2:3:4:5:6:7:8]", "[::2:3:4:5:6:7:8]", "[1:2:3:4:5:6:7::]",
          "[1:2:3::5:6:7:8]", "[FEDC:ba98:7654:3210::]", "[0:00:000:0000::]", "[::ffff:1.2.3.4]",
          "[1:2:3:4:5:6:1.2.3.4]", "[::1.2.3.4]", "[1:2:3:4:5::1.2.3.4]", "[::255.255.255.255]",
          "[::0.0.0.0]", "[v1.x]", "[vFf09.a:b!-._~$&'()*+,;=]"}) {
        EXPECT_EQ(outcome("//" + std::string(literal) + "/"), good(literal));
    }
    EXPECT_EQ(outcome("s://[::1]:80/"), "s:s a:[::1]:80 h:[::1] p:80 /:/ @13");
    EXPECT_EQ(outcome("//u:p@[::1]:"), "a:u:p@[::1]: u:u:p h:[::1] p: /: @12");
}

TEST(URIAddress, TellsWhatIsExpectedInPlaceOfAnIPv6Address) {
    expectFailures({
        {"", "IPv6 address field or double colon expected at 3"},
        {"]", "IPv6 address field or double colon expected at 3"},
        {":1]", "IPv6 address field or double colon expected at 4"},
        {":", "IPv6 address field or double colon expected at 4"},
        {"g]", "IPv6 address field or double colon expected at 3"},
        {"1.2.3.4]", "single or double colon expected at 4"},
        {"1]", "single or double colon expected at 4"},
        {"12345::]", "single or double colon expected at 7"},
        {"1:2:3:4:5:6:7]", "single or double colon expected at 16"},
        {"1:]", "IPv6 address field expected at 5"},
        {"1:g", "IPv6 address field expected at 5"},
        {"1:2:3:4:5:6:7:]", "IPv6 address field expected at 17"},
        {"1:2:3:4:5:6:7:1.2.3.4]", "end of IPv6 address expected at 18"},
        {"1:2:3:4:5:6:7:8:9]", "end of IPv6 address expected at 18"},
        {"1:2:3:4:5:6:7:8::]", "end of IPv6 address expected at 18"},
        {"1:2:3:4:5:6:7::8]", "end of IPv6 address expected at 18"},
        {"1:2:3:4:5:6:7:88888]", "end of IPv6 address expected at 21"},
        {"::1.2.3.4:5]", "end of IPv6 address expected at 12"},
        {"::g]", "IPv6 address field or end of address expected at 5"},
        {":::]", "IPv6 address field or end of address expected at 5"},
        {"::.", "IPv6 address field or end of address expected at 5"},
        {"1:2::3::4]", "single colon or end of IPv6 address expected at 10"},
        {"::1g]", "single colon or end of IPv6 address expected at 6"},
        {"::12345]", "single colon or end of IPv6 address expected at 9"},
        {"1:2:3:4:5:6::1.2.3.4]", "end of IPv6 address expected at 17"},
        {"::1:2:3:4:5:6:1.2.3.4]", "end of IPv6 address expected at 18"},
    });
    EXPECT_EQ(outcome("s://[1:2:3:4:5:6:7:8:9]/"), "end of IPv6 address expected at 20");
    EXPECT_EQ(outcome(u"//[::1\u00E9]"_u), "single colon or end of IPv6 address expected at 6");
}

TEST(URIAddress, NeedsTheClosingBracket) {
    expectFailures({{"::1 ]", "']' expected at 6"},
                    {"::1", "']' expected at 6"},
                    {"::", "']' expected at 5"},
                    {"::%41]", "']' expected at 5"},
                    {"1:2:3:4:5:6:7:8/]", "']' expected at 18"},
                    {"::1.2.3.4", "']' expected at 12"},
                    {"v1.a/]", "']' expected at 7"},
                    {"v1.a", "']' expected at 7"}});
    EXPECT_EQ(outcome(u"//[::1\uFFFF]"_u), "']' expected at 6");
    EXPECT_EQ(outcome(u"//[::1\xD83D\xDE00]"_u), "']' expected at 6");
}

TEST(URIAddress, TellsWhatIsExpectedInPlaceOfAnIPv4Address) {
    expectFailures({{"::1.]", "digit expected at 7"},
                    {"::1.2.3.]", "digit expected at 11"},
                    {"::1.2.3.", "digit expected at 11"},
                    {"::1..3.4]", "digit expected at 7"},
                    {"::abcd.1.1.1]", "digit expected at 5"},
                    {"::1.2.3]", "'.' expected at 10"},
                    {"::1.2", "'.' expected at 8"},
                    {"::01.2.3.4]", "'.' expected at 6"},
                    {"::1.2f.3.4]", "'.' expected at 8"},
                    {"::1.2.3.4.5]", "letter, digit and '.' not allowed here at 12"},
                    {"::1.2.3.4a]", "letter, digit and '.' not allowed here at 12"},
                    {"::1.2.3.04]", "letter, digit and '.' not allowed here at 12"}});
    EXPECT_EQ(outcome(u"//[::1.2.3.4\u00E9]"_u), "letter, digit and '.' not allowed here at 12");
    EXPECT_EQ(outcome(u"//[::1.2.3.4\u0663]"_u), // a digit of another script
              "letter, digit and '.' not allowed here at 12");
}

TEST(URIAddress, RefusesAnOctetAbove255AtTheDigitThatMakesItSo) {
    expectFailures({{"::256.1.1.1]", "too big: value greater than 255 at 7"},
                    {"::1.999.1.1]", "too big: value greater than 255 at 9"},
                    {"::1.2555.1.1]", "too big: value greater than 255 at 10"},
                    {"::1.2.3.300]", "too big: value greater than 255 at 13"},
                    {"::1.2.3.99999999999999999999", "too big: value greater than 255 at 13"}});
}

TEST(URIAddress, TakesEveryOctetUpTo255WithoutLeadingZeros) {
    for (int value = 0; value < 1000; ++value) {
        const std::string octet = std::to_string(value);
        for (const std::string& literal : {"[::" + octet + ".0.0.0]", "[::1.1.1." + octet + "]"}) {
            const std::string result = outcome("//" + literal + "/");
            if (value <= 255) {
                ASSERT_EQ(result, good(literal));
            } else {
                ASSERT_TRUE(result.starts_with("too big: value greater than 255 at ")) << result;
            }
        }
    }
}

TEST(URIAddress, TellsWhatIsExpectedInPlaceOfAFutureAddress) {
    expectFailures({{"v.x]", "<HEXDIG> expected at 4"},
                    {"v", "<HEXDIG> expected at 4"},
                    {"vg.x]", "<HEXDIG> expected at 4"},
                    {"v1x]", "'.' expected at 5"},
                    {"v1", "'.' expected at 5"},
                    {"v1fz.x]", "'.' expected at 6"},
                    {"v1.]", "<unreserved>, <sub-delims> or ':' expected at 6"},
                    {"v1.", "<unreserved>, <sub-delims> or ':' expected at 6"},
                    {"v1.%41]", "<unreserved>, <sub-delims> or ':' expected at 6"},
                    {"v1.@]", "<unreserved>, <sub-delims> or ':' expected at 6"},
                    {"v1.a%41]", "']' expected at 7"}});
}

TEST(URIAddress, TakesTheLowerCaseMarkOfAFutureAddressAloneAsIsMeant) {
    expectFailures({{"V1.x]", "IPv6 address field or double colon expected at 3"}});
}

TEST(URIAddress, TakesTextBeyondAsciiInAFutureAddressUnlessTextIsAsciiAlone) {
    EXPECT_EQ(outcome(u"//[v1.\u00E9]"_u), "a:[v1.<00E9>] h:[v1.<00E9>] /: @8");
    EXPECT_EQ(outcome(u"//[v1.\u00E9]"_u, orvtest::Entry::REFERENCE, true),
              "<unreserved>, <sub-delims> or ':' expected at 6");
}

TEST(URIAddress, TakesAnIPv4AddressOfAnyShapeAsAName) {
    EXPECT_EQ(outcome("//1.2.3.4"), "a:1.2.3.4 h:1.2.3.4 /: @9");
    EXPECT_EQ(outcome("//999.01"), "a:999.01 h:999.01 /: @8");
}

TEST(URIAddress, AllowsBehindTheBracketWhatMayFollowAHost) {
    EXPECT_EQ(outcome("//[::1]x"), "unexpected character at end of URI at 7");
    EXPECT_EQ(outcome("//[::1]@h"), "unexpected character at end of URI at 7");
    EXPECT_EQ(outcome("//[::1]:80@h"), "unexpected character at end of URI at 10");
    EXPECT_EQ(outcome("//a[::1]"), "unexpected character at end of URI at 3");
    EXPECT_EQ(outcome("//[::1] "), "a:[::1] h:[::1] /: @7");
}

// Fields in a list with colons between them, where "f" stands for a field and "4" for an IPv4
// address, which counts as two and may only be the last; 100 if it is no such list.
std::size_t fieldCount(const std::string& list) {
    if (list.empty()) {
        return 0;
    }
    std::size_t count = 0;
    for (std::size_t i = 0; i < list.size(); i += 2) {
        const bool last = i + 1 == list.size();
        if (list[i] == ':' || (list[i] == '4' && !last) || (!last && list[i + 1] != ':')) {
            return 100;
        }
        count += list[i] == '4' ? 2U : 1U;
    }
    return list.back() == ':' ? 100 : count;
}

// By the productions of IPv6address: eight fields, or up to seven around "::" with an IPv4 address
// behind it alone.
bool isAddress(const std::string& shape) {
    const auto gap = shape.find("::");
    if (gap == std::string::npos) {
        return fieldCount(shape) == 8;
    }
    const std::string left = shape.substr(0, gap);
    return left.find('4') == std::string::npos &&
           fieldCount(left) + fieldCount(shape.substr(gap + 2)) <= 7;
}

std::string spelled(const std::string& shape) {
    const std::array<const char*, 5> fields = {"0", "aB", "1f3", "ffff", "0010"};
    std::string address;
    for (std::size_t i = 0; i != shape.size(); ++i) {
        address += shape[i] == 'f' ? fields[i % 5] : shape[i] == '4' ? "1.2.3.4" : ":";
    }
    return address;
}

TEST(URIAddress, TakesExactlyTheAddressesOfTheGrammar) {
    EXPECT_TRUE(isAddress("::") && isAddress("f::f") && isAddress("f:f:f:f:f:f:4"));
    EXPECT_FALSE(isAddress("") || isAddress(":") || isAddress(":::") || isAddress("f:") ||
                 isAddress(":f") || isAddress("4::") || isAddress("4") || isAddress("f::f::f"));
    std::size_t taken = 0;
    std::size_t refused = 0;
    // All lists of up to 10 groups with colons between them, empty ones, fields, IPv4 addresses.
    const std::size_t total = 88'572; // (3 to the 11th - 3) / 2
    const std::size_t step = total / std::max<std::size_t>(orvtest::caseCount(total), 1);
    for (std::size_t length = 1, count = 3; length <= 10; ++length, count *= 3) {
        for (std::size_t code = 0; code != count; ++code) {
            std::string shape;
            for (std::size_t i = 0, rest = code; i != length; ++i, rest /= 3) {
                shape += i == 0 ? "" : ":";
                shape += rest % 3 == 0 ? "" : rest % 3 == 1 ? "f" : "4";
            }
            const bool expected = isAddress(shape);
            taken += expected ? 1U : 0U;
            if (!expected && refused++ % step != 0) {
                continue; // errors are slow where they are watched
            }
            const std::string literal = '[' + spelled(shape) + ']';
            const std::string result = outcome("//" + literal + "/");
            ASSERT_EQ(result == good(literal), expected) << literal << ": " << result;
        }
    }
    // Around "::" up to 7 fields on either side, 36 ways, or up to 5 and an IPv4 address, 21 ways;
    // without it one of each.
    EXPECT_EQ(taken, 36U + 21 + 1 + 1);
}

} // namespace
