// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI` from plain components: what is refused, and what becomes of each component.
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/net/plain_components.h"
#include "tests/support/shown_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace {

using namespace orv::literals;
using orv::gref;
using orv::make_gref;
using orv::ustring_ref;
using orv::net::URI;
using orv::net::URISyntaxError;
using orvtest::built;
using orvtest::Part;
using orvtest::Plain;
using orvtest::shown;

constexpr std::nullopt_t NONE = std::nullopt;

std::string textOf(const Plain& p) {
    return shown(built(p)->toString());
}

// "reason: input" of a call that fails.
template <typename Call>
std::string failureOf(Call call) {
    try {
        call();
    } catch (const URISyntaxError& e) {
        EXPECT_EQ(e.getIndex(), -1);
        return shown(e.getReason()) + ": " + shown(e.getInput());
    }
    return "none";
}

std::string failureOf(const Plain& p) {
    return failureOf([&p] { built(p); });
}

std::string hostText(ustring_ref host) {
    return textOf({.host = host});
}

TEST(URIComponents, AreJoinedByTheirDelimiters) {
    EXPECT_EQ(textOf({u"s"_u, u"u"_u, u"h"_u, u"1"_u, u"/p"_u, u"q"_u, u"f"_u}), "s://u@h:1/p?q#f");
    EXPECT_EQ(textOf({u"s"_u, u""_u, u""_u, u""_u, u""_u, u""_u, u""_u}), "s://@:?#");
    EXPECT_EQ(textOf({}), "");
    EXPECT_EQ(textOf({.path = u"p"_u}), "p");
    EXPECT_EQ(textOf({.scheme = u"a+b-c.9"_u}), "a+b-c.9:");
    EXPECT_EQ(textOf({.host = u"h"_u, .query = u"q"_u}), "//h?q");
    EXPECT_EQ(textOf({.fragment = u""_u}), "#");
}

TEST(URIComponents, RefuseABadScheme) {
    EXPECT_EQ(failureOf({.scheme = u""_u}), "empty scheme: ");
    EXPECT_EQ(failureOf({.scheme = u"1a"_u}),
              "scheme does not start with alphabetic character: 1a");
    EXPECT_EQ(failureOf({.scheme = u"\u00E9"_u}),
              "scheme does not start with alphabetic character: <00E9>");
    EXPECT_EQ(failureOf({.scheme = u"+a"_u}),
              "scheme does not start with alphabetic character: +a");
    for (const ustring_ref scheme :
         {u"a:"_u, u"a b"_u, u"a_"_u, u"a%41"_u, u"a\u00E9"_u, u"a/"_u, u"ab\uFFFF"_u}) {
        EXPECT_EQ(failureOf({.scheme = scheme}),
                  "scheme contains invalid character: " + shown(scheme));
    }
}

TEST(URIComponents, RefuseAnAuthorityWithoutHost) {
    EXPECT_EQ(failureOf({.userInfo = u"u"_u}), "user info without host: u");
    EXPECT_EQ(failureOf({.userInfo = u""_u, .port = u"1"_u}), "user info without host: ");
    EXPECT_EQ(failureOf({.port = u"1"_u}), "port without host: 1");
    EXPECT_EQ(failureOf({.port = u""_u}), "port without host: ");
}

TEST(URIComponents, RefuseAPortThatIsNotAllDigits) {
    for (const ustring_ref port : {u"80a"_u, u"-1"_u, u"+1"_u, u" 1"_u, u"1 "_u, u"0x1"_u,
                                   u"\uFF11"_u, u"%31"_u, u"1\uFFFF"_u}) {
        EXPECT_EQ(failureOf({.host = u"h"_u, .port = port}), "invalid port: " + shown(port));
    }
    EXPECT_EQ(textOf({.host = u"h"_u, .port = u"00123456789012345678901234567890"_u}),
              "//h:00123456789012345678901234567890");
}

TEST(URIComponents, RefuseAPathThatWouldBeReadOtherwise) {
    EXPECT_EQ(failureOf({.host = u"h"_u, .path = u"x"_u}), "non-empty path must start with '/': x");
    EXPECT_EQ(failureOf({.scheme = u"s"_u, .host = u""_u, .path = u":/"_u}),
              "non-empty path must start with '/': :/");
    EXPECT_EQ(failureOf({.path = u"//x"_u}), "path must not start with '//': //x");
    EXPECT_EQ(failureOf({.scheme = u"s"_u, .path = u"//"_u}), "path must not start with '//': //");
    EXPECT_EQ(textOf({.host = u"host"_u, .path = u"//x"_u}), "//host//x");
    EXPECT_EQ(textOf({.path = u"/x//"_u}), "/x//");
}

TEST(URIComponents, AreCheckedInTheOrderOfTheText) {
    const Plain bad = {u""_u, u"u"_u, {}, u"x"_u, u"//"_u, {}, {}};
    EXPECT_EQ(failureOf(bad), "empty scheme: ");
    EXPECT_EQ(failureOf({.userInfo = u"u"_u, .port = u"x"_u, .path = u"//"_u}),
              "user info without host: u");
    EXPECT_EQ(failureOf({.port = u"x"_u, .path = u"//"_u}), "port without host: x");
    EXPECT_EQ(failureOf({.host = u"h"_u, .port = u"x"_u, .path = u"p"_u}), "invalid port: x");
}

TEST(URIComponents, SayWhatIsWrongWithoutAnIndex) {
    try {
        built({.host = u"h"_u, .port = u"80a"_u});
        ADD_FAILURE();
    } catch (const URISyntaxError& e) {
        EXPECT_STREQ(e.what(), "invalid port: 80a");
    }
}

TEST(URIComponents, EscapeAColonInTheFirstSegmentOfARelativePathAlone) {
    EXPECT_EQ(textOf({.scheme = u"a"_u, .path = u"b:c"_u}), "a:b:c");
    EXPECT_EQ(textOf({.path = u"b:c"_u}), "b%3Ac");
    EXPECT_EQ(textOf({.path = u":"_u}), "%3A");
    EXPECT_EQ(textOf({.path = u"b:c/d:e"_u}), "b%3Ac/d:e");
    EXPECT_EQ(textOf({.path = u"/b:c"_u}), "/b:c");
    EXPECT_EQ(textOf({.path = u"./b:c"_u}), "./b:c");
}

TEST(URIComponents, EscapeEveryPercentSign) {
    EXPECT_EQ(textOf({.userInfo = u"a%b"_u,
                      .host = u"%41"_u,
                      .path = u"/%2F"_u,
                      .query = u"%"_u,
                      .fragment = u"%25"_u}),
              "//a%25b@%2541/%252F?%25#%2525");
}

TEST(URIComponents, EscapeDelimitersWhereTheyWouldEndTheComponent) {
    EXPECT_EQ(textOf({.userInfo = u":/?#[]@!$&'()*+,;="_u, .host = u":/?#[]@!$&'()*+,;="_u}),
              "//:%2F%3F%23%5B%5D%40!$&'()*+,;=@%3A%2F%3F%23%5B%5D%40!$&'()*+,;=");
    EXPECT_EQ(textOf({.path = u"/:/?#[]@!$&'()*+,;="_u,
                      .query = u":/?#[]@!$&'()*+,;="_u,
                      .fragment = u":/?#[]@!$&'()*+,;="_u}),
              "/:/%3F%23%5B%5D@!$&'()*+,;=?:/?%23%5B%5D@!$&'()*+,;=#:/?%23%5B%5D@!$&'()*+,;=");
}

TEST(URIHost, KeepsAddresses) {
    EXPECT_EQ(hostText(u"1.2.3.4"_u), "//1.2.3.4");
    EXPECT_EQ(hostText(u"[::1]"_u), "//[::1]");
    EXPECT_EQ(hostText(u"[v1.x:y]"_u), "//[v1.x:y]");
}

TEST(URIHost, PutsABareIPv6AddressInBrackets) {
    EXPECT_EQ(hostText(u"::1"_u), "//[::1]");
    EXPECT_EQ(hostText(u"1:2:3:4:5:6:1.2.3.4"_u), "//[1:2:3:4:5:6:1.2.3.4]");
    const gref<URI> uri = built({.userInfo = u"u"_u, .host = u"::"_u, .port = u"1"_u});
    EXPECT_EQ(shown(uri->getRawHost()), "[::]");
    EXPECT_EQ(shown(uri->getRawAuthority()), "u@[::]:1");
}

TEST(URIHost, EscapesWhatIsAlmostAnAddress) {
    EXPECT_EQ(hostText(u"[::1"_u), "//%5B%3A%3A1");
    EXPECT_EQ(hostText(u"[1.2.3.4]"_u), "//%5B1.2.3.4%5D");
    EXPECT_EQ(hostText(u"1:2"_u), "//1%3A2");
    EXPECT_EQ(hostText(u"v1.x"_u), "//v1.x");
    EXPECT_EQ(hostText(u"256.1.1.1"_u), "//256.1.1.1");
    EXPECT_EQ(hostText(u"fe80::1%25en0"_u), "//fe80%3A%3A1%2525en0");
}

TEST(URIHost, EscapesAllThatIsBeyondAscii) {
    EXPECT_EQ(hostText(u"\u00E9"_u), "//%C3%A9");
    EXPECT_EQ(hostText(u"b\u00FCcher\u4E2D\U0001F600.example"_u),
              "//b%C3%BCcher%E4%B8%AD%F0%9F%98%80.example");
    EXPECT_EQ(hostText(u""_u), "//");
    EXPECT_EQ(hostText(u"a b"_u), "//a%20b");
}

// The recogniser takes "V" for "v", the grammar does not.
TEST(URIHost, KeepsAnUpperCaseVThatTheParserRefusesAsIsMeant) {
    const gref<URI> uri = built({.host = u"[V1.x]"_u});
    EXPECT_EQ(shown(uri->toString()), "//[V1.x]");
    EXPECT_FALSE(URI::tryCreate(uri->toString()));
}

template <typename Port>
std::string portText(Port port) {
    return shown(make_gref<URI>(NONE, NONE, Part(u"h"_u), port, u""_u, NONE, NONE)->toString());
}

TEST(URIPort, IsWrittenInFullAndLeftOutIfNegative) {
    EXPECT_EQ(portText(-1), "//h");
    EXPECT_EQ(portText(std::numeric_limits<long long>::min()), "//h");
    EXPECT_EQ(portText(0), "//h:0");
    EXPECT_EQ(portText(65535), "//h:65535");
    EXPECT_EQ(portText(std::numeric_limits<int>::max()), "//h:2147483647");
    EXPECT_EQ(portText(2147483648), "//h:2147483648");
    EXPECT_EQ(portText(std::numeric_limits<std::uint64_t>::max()), "//h:18446744073709551615");
    EXPECT_EQ(portText(std::uint16_t{8080}), "//h:8080");
    EXPECT_EQ(portText(static_cast<signed char>(-1)), "//h");
    EXPECT_EQ(portText(static_cast<unsigned char>(200)), "//h:200");
}

TEST(URIPort, MayBeEmptyAsText) {
    const gref<URI> uri = built({.host = u"host"_u, .port = u""_u});
    EXPECT_EQ(shown(uri->toString()), "//host:");
    EXPECT_EQ(uri->getPort(), -1);
    EXPECT_EQ(shown(uri->getRawPort()), "");
}

TEST(URIPort, WithoutHostIsRefusedAsANumberToo) {
    EXPECT_EQ(failureOf([] { make_gref<URI>(NONE, NONE, NONE, 80, u""_u, NONE, NONE); }),
              "port without host: 80");
    EXPECT_EQ(shown(make_gref<URI>(NONE, NONE, NONE, -80, u"p"_u, NONE, NONE)->toString()), "p");
}

TEST(URIPort, IsNoUnitOfTextAndNoTruthValue) {
    static_assert(orv::net::detail::PortNumber<int> && orv::net::detail::PortNumber<unsigned long>);
    static_assert(!orv::net::detail::PortNumber<bool> && !orv::net::detail::PortNumber<char> &&
                  !orv::net::detail::PortNumber<char16_t>);
}

TEST(URIComponents, HaveAShorterFormWithoutUserInfoPortAndQuery) {
    EXPECT_EQ(
        shown(make_gref<URI>(Part(u"s"_u), Part(u"::1"_u), u"/p q"_u, Part(u"f"_u))->toString()),
        "s://[::1]/p%20q#f");
    EXPECT_EQ(shown(make_gref<URI>(NONE, NONE, u"a:b"_u, NONE)->toString()), "a%3Ab");
}

TEST(URIOpaque, IsMadeFromSchemeAndSchemeSpecificPart) {
    const gref<URI> uri = make_gref<URI>(u"mailto"_u, u"a b@c?x=%?\u00E9"_u, Part(u"f#"_u));
    EXPECT_EQ(shown(uri->toString()), "mailto:a%20b@c?x=%25?<00E9>#f%23");
    EXPECT_EQ(shown(uri->getRawSchemeSpecificPart()), "a%20b@c?x=%25?<00E9>");
    EXPECT_EQ(shown(uri->getRawPath()), "a%20b@c");
    EXPECT_EQ(shown(uri->getRawQuery()), "x=%25?<00E9>");
    EXPECT_EQ(shown(uri->getRawFragment()), "f%23");
    EXPECT_TRUE(uri->isOpaque());
    EXPECT_EQ(shown(make_gref<URI>(u"s"_u, u"a:b/c"_u, NONE)->toString()), "s:a:b/c");
}

TEST(URIOpaque, MayBeEmptyOrAQueryAlone) {
    const gref<URI> empty = make_gref<URI>(u"s"_u, u""_u, NONE);
    EXPECT_EQ(shown(empty->toString()), "s:");
    EXPECT_EQ(shown(empty->getRawPath()), "");
    EXPECT_EQ(shown(empty->getRawSchemeSpecificPart()), "");
    EXPECT_TRUE(empty->isOpaque());
    const gref<URI> query = make_gref<URI>(u"s"_u, u"?"_u, NONE);
    EXPECT_EQ(shown(query->toString()), "s:?");
    EXPECT_EQ(shown(query->getRawPath()), "");
    EXPECT_EQ(shown(query->getRawQuery()), "");
}

TEST(URIOpaque, DoesNotBeginWithASlash) {
    const auto make = [](ustring_ref scheme, ustring_ref ssp) {
        return failureOf([&] { make_gref<URI>(scheme, ssp, NONE); });
    };
    EXPECT_EQ(make(u"s"_u, u"/a"_u),
              "scheme-specific part of opaque URI must not start with '/': /a");
    EXPECT_EQ(make(u""_u, u"/a"_u), "empty scheme: ");
    EXPECT_EQ(make(u"9"_u, u"a"_u), "scheme does not start with alphabetic character: 9");
}

} // namespace
