// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Tests of `URI::hashCode`.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/reference/uri_model.h"
#include "tests/support/case_count.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"
#include "tests/support/uri_of.h"
#include "tests/support/uri_source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace {

using namespace orv::literals;
using orv::AssertionError;
using orv::char16;
using orv::ustring;
using orv::net::URI;
using orvtest::textIn;
using orvtest::thrownMessage;
using orvtest::uriOf;

// Mixed from these values, one after the other.
std::size_t mixed(std::initializer_list<unsigned> values) {
    std::size_t hash = 0;
    for (const unsigned value : values) {
        hash = hash * 31 + value;
    }
    return hash;
}

std::size_t hashOf(std::string_view text) {
    return uriOf(text)->hashCode();
}

TEST(URIHash, MixesEachComponent) {
    EXPECT_EQ(hashOf(""), 0U);
    EXPECT_EQ(hashOf("Sx:p"), mixed({58, 's', 'x', 'p'}));
    EXPECT_EQ(hashOf("/pQ"), mixed({'/', 'p', 'Q'}));
    EXPECT_EQ(hashOf("?"), mixed({63}));
    EXPECT_EQ(hashOf("#"), mixed({35}));
    EXPECT_EQ(hashOf("?aB#cD"), mixed({63, 'a', 'B', 35, 'c', 'D'}));
    EXPECT_EQ(hashOf("/a%2fB%c3x"), mixed({'/', 'a', '%', '2', 'F', 'B', '%', 'C', '3', 'x'}));
    EXPECT_EQ(URI::create(u"S:\u00C9"_u)->hashCode(), mixed({58, 's', 0xC9}));
}

TEST(URIHash, MixesPortsWithoutTheirZeros) {
    EXPECT_EQ(hashOf("s://a:80/"), mixed({58, 's', 58, '8', '0', '/'}));
    EXPECT_EQ(hashOf("s://a:0080/"), hashOf("s://a:80/"));
    EXPECT_EQ(hashOf("s://a:000/"), mixed({58, 's', 58, 48, '/'}));
    EXPECT_EQ(hashOf("s://a:0/"), hashOf("s://a:000/"));
    EXPECT_EQ(hashOf("s://a:/"), hashOf("s://a/"));
    EXPECT_EQ(hashOf("s://a:1234567890/"),
              mixed({58, 's', 58, '1', '2', '3', '4', '5', '6', '7', '8', '9', '0', '/'}));
}

TEST(URIHash, LeavesTheHostOutAsMeant) {
    EXPECT_EQ(hashOf("s://a/"), hashOf("s://b/"));
    EXPECT_EQ(hashOf("s://a/"), hashOf("s:/"));
    EXPECT_EQ(hashOf("s://[::1]:8/x"), hashOf("s://%41%FF:8/x"));
    EXPECT_EQ(hashOf("s://host.example/"), mixed({58, 's', '/'}));
}

TEST(URIHash, MixesUserInfoTwiceAsMeant) {
    EXPECT_EQ(hashOf("//U@h"), mixed({64, 'U', 47, 'u'}));
    EXPECT_EQ(hashOf("//u@h"), mixed({64, 'u', 47, 'u'}));
    EXPECT_NE(hashOf("s://U@a/"), hashOf("s://u@a/"));
    EXPECT_EQ(hashOf("//@h"), mixed({64, 47}));
    // The second time decoded from the first escape on.
    EXPECT_EQ(hashOf("//X%c3%89Y@h"),
              mixed({64, 'X', '%', 'C', '3', '%', '8', '9', 'Y', 47, 'x', 0xE9, 'y'}));
    EXPECT_EQ(hashOf("//%41%42@h"), mixed({64, '%', '4', '1', '%', '4', '2', 47, 'a', 'b'}));
    EXPECT_EQ(hashOf("//A%FFB%43@h"),
              mixed({64, 'A', '%', 'F', 'F', 'B', '%', '4', '3', 47, 'a', 0xFFFD, 'b', 'c'}));
}

TEST(URIHash, IsTheSameWhenAskedAgain) {
    for (const char* const text : {"", "s://u@h:1/p?q#f"}) {
        const auto uri = uriOf(text);
        const std::size_t first = uri->hashCode();
        EXPECT_EQ(uri->hashCode(), first) << text;
        EXPECT_EQ(hashOf(text), first) << text;
    }
}

TEST(URIHash, IsThePlainPolynomialOfRandomURIs) {
    for (const bool wide : {false, true}) {
        orvtest::UriSource source(11, wide);
        for (std::size_t i = orvtest::caseCount(60000); i > 0; --i) {
            const auto uri = URI::create(source.uriReference().text);
            ASSERT_EQ(uri->hashCode(), orvtest::uriHash(*uri)) << orvtest::narrowText(uri);
        }
    }
}

TEST(URIHash, IsThePlainPolynomialOfPathsOfAllShortLengths) {
    // Runs between escapes, of each length modulo the step in which they are mixed.
    for (std::size_t before = 0; before < 12; ++before) {
        for (std::size_t after = 0; after < 12; ++after) {
            ustring text = textIn<char16>("/");
            text.append(before, u'\u00FF').append(textIn<char16>("%e9"));
            text.append(after, u'z');
            const auto uri = URI::create(text);
            ASSERT_EQ(uri->hashCode(), orvtest::uriHash(*uri)) << before << " " << after;
        }
    }
}

// The text, filled up so that the last component ends behind `size` units of it.
ustring wrapped(std::string_view front, std::size_t size) {
    ustring text = textIn<char16>(front);
    text.append(65536 + size - text.size(), u'a');
    return text;
}

TEST(URIHash, MixesFFFFForUnitsBehindAWrappedComponent) {
    const auto twoMissing = URI::create(wrapped("?x%41", 3));
    ASSERT_EQ(twoMissing->getRawQuery(), u"x%"_u);
    EXPECT_EQ(twoMissing->hashCode(), mixed({63, 'x', '%', 0xFFFF, 0xFFFF}));
    const auto oneMissing = URI::create(wrapped("?x%fe", 4));
    ASSERT_EQ(oneMissing->getRawQuery(), u"x%f"_u);
    EXPECT_EQ(oneMissing->hashCode(), mixed({63, 'x', '%', 'F', 0xFFFF}));
}

TEST(URIHash, MeetsTheEndOfWrappedUserInfoFirst) {
    ustring text = wrapped("//%41", 4);
    text += textIn<char16>("@h");
    const auto uri = URI::create(text);
    ASSERT_EQ(uri->getRawUserInfo(), u"%4"_u);
    EXPECT_EQ(thrownMessage<AssertionError>([&] { uri->hashCode(); }),
              "toHexDigit[801]: assertion failed");
    EXPECT_EQ(thrownMessage<AssertionError>([&] { uri->hashCode(); }),
              "toHexDigit[801]: assertion failed");
}

TEST(URIHash, ReadsLongTextsWithinTheirBounds) {
    for (const std::size_t size : {65535U, 65536U, 65537U, 131072U, 10000000U}) {
        for (const char* const front : {"s://h/%41", "s://h?%41", "/%41", "s:", "?", "#"}) {
            ustring text = textIn<char16>(front);
            text.append(size - text.size(), u'a');
            const auto uri = URI::create(text);
            EXPECT_EQ(uri->hashCode(), orvtest::uriHash(*uri)) << size << front;
            EXPECT_TRUE(uri->equals(uri)) << size << front;
            EXPECT_EQ(uri->compareTo(uri), 0) << size << front;
        }
    }
}

} // namespace
