// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Tests of equality, order, hash and output of references to URIs.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/locale/uostream.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/text_in.h"
#include "tests/support/uri_of.h"
#include "tests/support/uri_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <functional>
#include <iomanip>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::gref;
using orv::ustring;
using orv::net::URI;
using orvtest::textIn;
using orvtest::uriOf;

using URIRef = gref<URI>;
const std::hash<URIRef> hashOf;

void expectEquivalent(const URIRef& a, const URIRef& b) {
    EXPECT_TRUE(a == b && b == a);
    EXPECT_FALSE(a != b);
    EXPECT_TRUE(a <=> b == 0 && b <=> a == 0);
    EXPECT_FALSE(a < b || b < a);
    EXPECT_EQ(hashOf(a), hashOf(b));
}

void expectLess(const URIRef& a, const URIRef& b) {
    EXPECT_FALSE(a == b || b == a);
    EXPECT_TRUE(a < b && b > a && a <= b);
    EXPECT_FALSE(b < a || a > b || b <= a);
}

TEST(URIOrder, TakesDifferentSpellingsForOne) {
    const std::pair<const char*, const char*> pairs[] = {
        {"S://A/", "s://a/"},        {"s://a/%7e", "s://a/%7E"},   {"s://%41/", "s://a/"},
        {"s://%61bc/", "s://ABC/"},  {"s://%61xyz/", "s://axyz/"}, {"s://x%2dy/", "s://X-Y/"},
        {"s://a:080/", "s://a:80/"}, {"s://a:/", "s://a/"},        {"//%C3%89", "//%c3%a9"},
        {"//%FF", "//%FE"},          {"//%4e@h", "//%4E@h"},       {"?%aa#%bb", "?%AA#%BB"}};
    for (const auto& [a, b] : pairs) {
        SCOPED_TRACE(std::string(a) + " and " + b);
        expectEquivalent(uriOf(a), uriOf(b));
    }
    expectEquivalent(uriOf("//%C3%A9"), URI::create(u"//\u00C9"_u));
    expectEquivalent(uriOf("//x%E2%84%AA"), uriOf("//XK"));
}

TEST(URIOrder, TellsApartWhatURIEqualsMayNot) {
    // There "-" is read for "%".
    const auto a = uriOf("s://%42/");
    const auto b = uriOf("s://-42/");
    EXPECT_TRUE(a->equals(b));
    EXPECT_FALSE(a == b);
}

TEST(URIOrder, OrdersByComponentAndHost) {
    const char* const ascending[] = {
        "",         "#",    "#a",    "?",    "?#",   "?a",    "/",     "/?",      "/b",    "/b%2Ea",
        "/b%2F",    "//",   "///",   "//a",  "//a/", "//A/b", "//a:0", "//a:01",  "//a:2", "//a:10",
        "//%41:11", "//aa", "//%62", "//B/", "//ba", "//@a",  "//u@a", "//u@A:1", "//u@b", "//v@a",
        "a:",       "a:/",  "a:b",   "A:c",  "aa:",  "b://h", "B://i"};
    std::vector<URIRef> uris = {nullptr};
    for (const char* const text : ascending) {
        uris.push_back(uriOf(text));
    }
    for (std::size_t i = 0; i < uris.size(); ++i) {
        for (std::size_t j = i + 1; j < uris.size(); ++j) {
            SCOPED_TRACE(std::to_string(i) + " and " + std::to_string(j));
            expectLess(uris[i], uris[j]);
        }
    }
}

TEST(URIOrder, PutsNullFirst) {
    const URIRef null;
    expectEquivalent(null, URIRef());
    expectLess(null, uriOf(""));
    EXPECT_TRUE(null == nullptr);
    EXPECT_FALSE(uriOf("") == nullptr);
}

TEST(URIOrder, HashesTheHost) {
    EXPECT_NE(hashOf(uriOf("s://a/")), hashOf(uriOf("s://b/")));
    EXPECT_NE(hashOf(uriOf("s://u@a/")), hashOf(uriOf("s://U@a/")));
    EXPECT_NE(hashOf(uriOf("s:/")), hashOf(uriOf("s:///")));
    EXPECT_NE(hashOf(uriOf("?")), hashOf(uriOf("#")));
    EXPECT_EQ(hashOf(URIRef()), hashOf(URIRef()));
}

TEST(URIOrder, ReadsWrappedHostsWithoutAFailure) {
    ustring text = textIn<char16>("//%41");
    text.append(65535, u'a');
    const auto a = URI::create(text);
    const auto b = URI::create(text + textIn<char16>("?q"));
    ASSERT_EQ(a->getRawHost(), u"%4"_u);
    expectEquivalent(a, a);
    expectEquivalent(a, URI::create(text));
    expectLess(a, uriOf("//A"));
    EXPECT_FALSE(a == b);
}

// Random changes of spelling that leave a URI what it is, and some that do not.
ustring respelled(ustring text, orvtest::NumberSource& numbers) {
    const auto at = text.find(char16(u'%'));
    if (at != ustring::npos && numbers.coin()) {
        for (std::size_t i = at + 1; i < at + 3; ++i) {
            const auto value = static_cast<unsigned>(text[i]);
            text[i] = char16(value >= 'A' && value <= 'F' ? value + 32 : value);
        }
    }
    if (!text.empty() && numbers.below(4) == 0) {
        const std::size_t i = numbers.below(static_cast<unsigned>(text.size()));
        const auto value = static_cast<unsigned>(text[i]);
        if ((value | 32) >= 'a' && (value | 32) <= 'z') {
            text[i] = char16(value ^ 32);
        }
    }
    return text;
}

std::vector<URIRef> randomURIs(std::uint64_t seed, std::size_t count) {
    orvtest::UriSource source(seed, seed % 2 != 0);
    std::vector<URIRef> uris;
    while (uris.size() < count) {
        const ustring text = source.uriReference().text;
        uris.push_back(URI::create(text));
        for (int i = 0; i < 2; ++i) {
            if (const auto other = URI::tryCreate(respelled(text, source.numbers()))) {
                uris.push_back(other.uri);
            }
        }
    }
    // Hosts that are easily taken for each other.
    for (const char* const host :
         {"a", "A", "%41", "%61", "aa", "%61a", "a%41", "-41", "%2D41", "%2541", "%25", "%FF",
          "%FE", "%EF%BF%BD", "", "%C3", "%C3%A9"}) {
        uris.push_back(uriOf(std::string("//") + host));
        uris.push_back(uriOf(std::string("//") + host + ":00/%7e"));
        uris.push_back(uriOf(std::string("//") + host + ":0/%7E"));
    }
    return uris;
}

TEST(URIOrder, IsAWeakOrderThatGoesWithEqualityAndHash) {
    const auto uris = randomURIs(1, 90);
    for (const URIRef& a : uris) {
        ASSERT_TRUE(a == a && a <=> a == 0);
        for (const URIRef& b : uris) {
            const auto order = a <=> b;
            ASSERT_TRUE(0 <=> order == b <=> a);
            ASSERT_EQ(a == b, order == 0);
            if (order == 0) {
                ASSERT_EQ(hashOf(a), hashOf(b));
            }
        }
    }
    // Each class of equals in a row, so that three in order are in order.
    auto sorted = uris;
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        for (std::size_t j = i; j < sorted.size(); ++j) {
            ASSERT_TRUE(sorted[i] <= sorted[j]);
        }
    }
}

TEST(URIOrder, AgreesWithEqualsWhereNoHostIsMisread) {
    for (const std::uint64_t seed : {2U, 3U}) {
        const auto uris = randomURIs(seed, orvtest::caseCount(3000) / 10);
        for (const URIRef& a : uris) {
            for (const URIRef& b : uris) {
                const bool escaped = a->getRawHost().find(char16(u'%')) != orv::ustring_ref::npos ||
                                     b->getRawHost().find(char16(u'%')) != orv::ustring_ref::npos;
                if (!escaped) {
                    ASSERT_EQ(a == b, a->equals(b))
                        << orvtest::narrowText(a) << " and " << orvtest::narrowText(b);
                }
            }
        }
    }
}

TEST(URIOrder, ServesContainers) {
    const std::set<URIRef> ordered = {uriOf("s://a/x"), uriOf("S://A/x"), uriOf("s://b/y"),
                                      uriOf("s://b/x")};
    EXPECT_EQ(ordered.size(), 3U);
    EXPECT_TRUE(ordered.contains(uriOf("s://%42/x")));
    std::map<URIRef, int> numbers;
    ++numbers[uriOf("s://a:80/")];
    ++numbers[uriOf("s://A:080/")];
    ++numbers[uriOf("s://a/")];
    EXPECT_EQ(numbers[uriOf("s://a:80/")], 2);
    const std::unordered_set<URIRef> hashed(ordered.begin(), ordered.end());
    EXPECT_EQ(hashed.size(), 3U);
    EXPECT_TRUE(hashed.contains(uriOf("s://%61/x")));
    EXPECT_FALSE(hashed.contains(uriOf("s://a/y")));
}

TEST(URIOutput, WritesTheText) {
    std::basic_ostringstream<char16> os;
    os << URI::create(u"s:\u20AC"_u) << URIRef();
    EXPECT_EQ(os.str(), u"s:\u20AC"_u);
}

TEST(URIOutput, WritesNarrowTextInTheDefaultCharset) {
    std::ostringstream os;
    os << URI::create(u"s:\u20AC"_u) << URIRef();
    EXPECT_EQ(os.str(), orv::Charset::defaultCharset()->encode(u"s:\u20AC"_u));
}

TEST(URIOutput, PadsOnceAsFormattedOutput) {
    std::ostringstream os;
    os << std::setfill('.') << std::setw(5) << uriOf("s:x") << uriOf("s:y");
    EXPECT_EQ(os.str(), "..s:xs:y");
    os.str("");
    os << std::left << std::setw(5) << uriOf("s:x") << '|';
    EXPECT_EQ(os.str(), "s:x..|");
}

TEST(URIOutput, WritesNothingForNull) {
    std::ostringstream os;
    os << std::setw(5) << URIRef() << 'x';
    EXPECT_EQ(os.str(), "x");
    EXPECT_TRUE(os.good());
}

} // namespace
