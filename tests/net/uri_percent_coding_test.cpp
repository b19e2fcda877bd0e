// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Percent-coding: every code point in every component, and components there and back.
#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/net/plain_components.h"
#include "tests/support/case_count.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"
#include "tests/support/uri_source.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::gref;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URI;
using orvtest::built;
using orvtest::Part;
using orvtest::Plain;
using orvtest::shown;

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

TEST(URIPercentCoding, TakesEveryCodePointThereAndBack) {
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
TEST(URIPercentCoding, OfAParsedUriMakesItAnew) {
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
