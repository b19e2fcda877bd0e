// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI` from plain components: what is refused, what is escaped, what is read back.
#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/case_count.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"
#include "tests/support/uri_source.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::gref;
using orv::make_gref;
using orv::Optional;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URI;
using orv::net::URISyntaxError;
using orvtest::shown;

using Part = Optional<ustring_ref>;
constexpr std::nullopt_t NONE = std::nullopt;

struct Plain {
    Part scheme{};
    Part userInfo{};
    Part host{};
    Part port{};
    ustring_ref path{};
    Part query{};
    Part fragment{};
};

gref<URI> built(const Plain& p) {
    return make_gref<URI>(p.scheme, p.userInfo, p.host, p.port, p.path, p.query, p.fragment);
}

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

// What stands in a component as it is, told anew.
bool isPlain(char16 c, std::string_view marks, bool asciiOnly) {
    const auto value = static_cast<unsigned int>(c);
    if (value < 0x80) {
        const char narrow = static_cast<char>(value);
        return (narrow >= '0' && narrow <= '9') || (narrow >= 'A' && narrow <= 'Z') ||
               (narrow >= 'a' && narrow <= 'z') ||
               (value != 0 && marks.find(narrow) != std::string_view::npos);
    }
    const auto category = orvUniCharClass(value);
    return !asciiOnly && category != 0 && category != 57 && category != 61 &&
           !(category >= 48 && category <= 55);
}

void appendEscaped(std::string& out, unsigned int byte) {
    constexpr std::string_view DIGITS = "0123456789ABCDEF";
    out += {'%', DIGITS[byte / 16], DIGITS[byte % 16]};
}

// UTF-8 by its definition.
void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        appendEscaped(out, c);
    } else if (c < 0x800) {
        appendEscaped(out, 0xC0 + c / 0x40);
        appendEscaped(out, 0x80 + c % 0x40);
    } else if (c < 0x10000) {
        appendEscaped(out, 0xE0 + c / 0x1000);
        appendEscaped(out, 0x80 + c / 0x40 % 0x40);
        appendEscaped(out, 0x80 + c % 0x40);
    } else {
        appendEscaped(out, 0xF0 + c / 0x40000);
        appendEscaped(out, 0x80 + c / 0x1000 % 0x40);
        appendEscaped(out, 0x80 + c / 0x40 % 0x40);
        appendEscaped(out, 0x80 + c % 0x40);
    }
}

constexpr std::string_view SUB_DELIMS = "-._~!$&'()*+,;=";
constexpr std::string_view USER_INFO_MARKS = "-._~!$&'()*+,;=:";
constexpr std::string_view PATH_MARKS = "-._~!$&'()*+,;=:@/";
constexpr std::string_view QUERY_MARKS = "-._~!$&'()*+,;=:@/?";

// 256 code points: as plain text, and what is to come of them.
struct Block {
    explicit Block(char32_t first) {
        for (char32_t c = first; c < first + 256; ++c) {
            const bool isSurrogate = c >= 0xD800 && c <= 0xDFFF;
            std::array<char16, 2> units = {char16(c), char16(c)};
            std::size_t count = 1;
            if (c > 0xFFFF) {
                units = {char16(0xD7C0 + (c >> 10)), char16(0xDC00 + (c & 0x3FF))};
                count = 2;
            }
            plain.append(units.data(), count);
            // A surrogate without its partner becomes the replacement.
            const char32_t written = isSurrogate ? U'?' : c;
            if (!isSurrogate) {
                decodedHost.append(units.data(), count);
            } else {
                decodedHost += u'?';
            }
            const auto append = [&](std::string& out, std::string_view marks, bool asciiOnly) {
                if (isPlain(units[0], marks, asciiOnly)) {
                    out += shown(ustring_ref(units.data(), count));
                } else {
                    appendUtf8(out, written);
                }
            };
            append(host, SUB_DELIMS, true);
            append(userInfo, USER_INFO_MARKS, false);
            append(path, PATH_MARKS, false);
            append(query, QUERY_MARKS, false);
        }
    }

    ustring plain;
    ustring decodedHost;
    std::string host, userInfo, path, query;
};

// Of a block of code points as text of every component: the text, its parse, and what it decodes
// to.
void checkBlock(char32_t first) {
    const Block block(first);
    ustring path(1, u'/');
    path += block.plain;
    const gref<URI> uri = built({u"s"_u, ustring_ref(block.plain), ustring_ref(block.plain), u"1"_u,
                                 path, ustring_ref(block.plain), ustring_ref(block.plain)});
    ASSERT_EQ(shown(uri->toString()), "s://" + block.userInfo + '@' + block.host + ":1/" +
                                          block.path + '?' + block.query + '#' + block.query);
    const gref<URI> parsed = URI::create(uri->toString());
    ASSERT_EQ(parsed->getRawUserInfo(), uri->getRawUserInfo());
    ASSERT_EQ(parsed->getRawHost(), uri->getRawHost());
    ASSERT_EQ(parsed->getRawAuthority(), uri->getRawAuthority());
    ASSERT_EQ(parsed->getRawPath(), uri->getRawPath());
    ASSERT_EQ(parsed->getRawQuery(), uri->getRawQuery());
    ASSERT_EQ(parsed->getRawFragment(), uri->getRawFragment());
    ASSERT_EQ(parsed->getRawSchemeSpecificPart(), uri->getRawSchemeSpecificPart());
    ASSERT_EQ(parsed->getUserInfo(), block.plain);
    ASSERT_EQ(parsed->getHost(), block.decodedHost);
    ASSERT_EQ(parsed->getPath(), path);
    ASSERT_EQ(parsed->getQuery(), block.plain);
    ASSERT_EQ(parsed->getFragment(), block.plain);
}

TEST(URIComponents, OfAnyCodePointAreEscapedParsedAndDecoded) {
    // All of the first plane; of the others each block, or some in slow builds.
    for (char32_t first = 0; first < 0x10000; first += 256) {
        ASSERT_NO_FATAL_FAILURE(checkBlock(first)) << static_cast<unsigned int>(first);
    }
    const auto step = static_cast<char32_t>(256 * (4096 / orvtest::caseCount(4096)));
    for (char32_t first = 0x10000; first < 0x110000; first += step) {
        ASSERT_NO_FATAL_FAILURE(checkBlock(first)) << static_cast<unsigned int>(first);
    }
}

// The decoded components of a URI make a URI with the same decoded components.
TEST(URIComponents, OfAParsedUriMakeItAnew) {
    orvtest::UriSource source(20'261'121, true);
    orv::Charset& utf8 = *orv::Charset::UTF_8;
    std::size_t made = 0;
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const ustring text = source.uriReference().text;
        const gref<URI> first = URI::create(text);
        ASSERT_EQ(first->toString(), text);
        const ustring scheme = first->getScheme();
        const ustring port = first->getRawPort();
        const ustring userInfo = first->getUserInfo();
        const ustring host = first->getHost();
        const ustring path = first->getPath();
        const ustring query = first->getQuery();
        const ustring fragment = first->getFragment();
        const auto part = [](ustring_ref raw, const ustring& decoded) {
            return raw.data() == nullptr ? Part() : Part(ustring_ref(decoded));
        };
        const Part hostPart = part(first->getRawHost(), host);
        // "%2F" is read as "/", of which two would begin an authority; a host may read as a bare
        // address.
        if ((!hostPart.hasValue() && path.starts_with(ustring(2, u'/'))) ||
            (host.find(char16(u':')) != ustring::npos && host.front() != u'[')) {
            continue;
        }
        const gref<URI> again =
            built({part(first->getScheme(), scheme), part(first->getRawUserInfo(), userInfo),
                   hostPart, part(first->getRawPort(), port), path,
                   part(first->getRawQuery(), query), part(first->getRawFragment(), fragment)});
        const gref<URI> parsed = URI::create(again->toString());
        for (const URI* uri : {again.get(), parsed.get()}) {
            ASSERT_EQ(uri->getScheme(), first->getScheme()) << shown(text);
            ASSERT_EQ(uri->getUserInfo(), userInfo) << shown(text);
            // Hosts have their units beyond ASCII escaped, which mends half pairs.
            ASSERT_EQ(uri->getHost(), utf8.decode(utf8.encode(host))) << shown(text);
            ASSERT_EQ(uri->getRawPort(), first->getRawPort()) << shown(text);
            ASSERT_EQ(uri->getPath(), path) << shown(text);
            ASSERT_EQ(uri->getQuery(), query) << shown(text);
            ASSERT_EQ(uri->getFragment(), fragment) << shown(text);
        }
        ++made;
    }
    EXPECT_GT(made, orvtest::caseCount(50'000));
}

} // namespace
