// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Parsing references: every rule, every place where one ends, every failure.
#include "orv/liborvxx/net/uri_parser.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/net/parse_outcome.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::Charset;
using orv::ustring_ref;
using orv::net::URIParser;
using orvtest::Entry;
using orvtest::outcome;
using orvtest::shown;
using orvtest::thrownMessage;

static_assert(!std::is_polymorphic_v<URIParser>);

struct Case {
    std::string_view text;
    std::string_view expected;
};

void expectOutcomes(const std::vector<Case>& cases, Entry entry = Entry::REFERENCE) {
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(outcome(text, entry), expected) << text;
    }
}

TEST(URIParser, FindsTheComponents) {
    expectOutcomes({
        {"https://me:pw@host:8080/a/b?q=1#top",
         "s:https a:me:pw@host:8080 u:me:pw h:host p:8080 /:/a/b ?:q=1 #:top @35"},
        {"a:b", "s:a /:b @3"},
        {"a+-.9:", "s:a+-.9 /: @6"},
        {"urn:a:b", "s:urn /:a:b @7"},
        {"s:/", "s:s /:/ @3"},
        {"s:/a//b/", "s:s /:/a//b/ @8"},
        {"s:%41/", "s:s /:%41/ @6"},
        {"s:?", "s:s /: ?: @3"},
        {"s:#", "s:s /: #: @3"},
        {"s://h/?", "s:s a:h h:h /:/ ?: @7"},
        {"s://h#?/:@%0a", "s:s a:h h:h /: #:?/:@%0a @13"},
        {"s://h?#", "s:s a:h h:h /: ?: #: @7"},
        {"//h//a", "a:h h:h /://a @6"},
        {"///", "a: h: /:/ @3"},
        {"//", "a: h: /: @2"},
        {"/", "/:/ @1"},
        {"/a:b", "/:/a:b @4"},
        {"", "/: @0"},
        {"?", "/: ?: @1"},
        {"#", "/: #: @1"},
        {"a", "/:a @1"},
        {"a/b:c", "/:a/b:c @5"},
        {"./a:b", "/:./a:b @5"},
        {"a@b", "/:a@b @3"},
        {"%41b/c", "/:%41b/c @6"},
        {"a?b?c/#d", "/:a ?:b?c/ #:d @8"},
        {"-a", "/:-a @2"},
        {"a_b", "/:a_b @3"},
    });
}

TEST(URIParser, SplitsTheAuthority) {
    expectOutcomes({
        {"s://u@/", "s:s a:u@ u:u h: /:/ @7"},
        {"s://host:/", "s:s a:host: h:host p: /:/ @10"},
        {"//:", "a:: h: p: /: @3"},
        {"//@", "a:@ u: h: /: @3"},
        {"//@:", "a:@: u: h: p: /: @4"},
        {"//::@h", "a:::@h u::: h:h /: @6"},
        {"//a:b:c@h:1", "a:a:b:c@h:1 u:a:b:c h:h p:1 /: @11"},
        {"//1@2:3", "a:1@2:3 u:1 h:2 p:3 /: @7"},
        {"//%41:%42@%43", "a:%41:%42@%43 u:%41:%42 h:%43 /: @13"},
        {"//a!$&'()*+,;=-._~", "a:a!$&'()*+,;=-._~ h:a!$&'()*+,;=-._~ /: @18"},
        {"//h:00", "a:h:00 h:h p:00 /: @6"},
        {"//h?@", "a:h h:h /: ?:@ @5"},
        {"//h:1#@", "a:h:1 h:h p:1 /: #:@ @7"},
        {"//h/@:", "a:h h:h /:/@: @6"},
    });
}

TEST(URIParser, StopsBeforeWhatMayFollowAURI) {
    expectOutcomes({
        {"s://a b", "s:s a:a h:a /: @5"},
        {"s://a/b c", "s:s a:a h:a /:/b @7"},
        {"s:a\"", "s:s /:a @3"},
        {"s:?a<", "s:s /: ?:a @4"},
        {"s:#a>", "s:s /: #:a @4"},
        {"//u:p b", "unexpected character at end of URI at 4"},
        {"//h:1\\", "a:h:1 h:h p:1 /: @5"},
        {" ", "/: @0"},
        {"\x7F", "/: @0"},
        {std::string_view("a\0b", 3), "/:a @1"},
    });
    EXPECT_EQ(outcome("s://a b", Entry::URI, true), "s:s a:a h:a /: @5");
}

TEST(URIParser, RefusesMoreThatLooksLikeTheURI) {
    expectOutcomes({
        {"s://a/b%", "unexpected character at end of URI at 7"},
        {"s://a/b%4", "unexpected character at end of URI at 7"},
        {"s://a/b%4g", "unexpected character at end of URI at 7"},
        {"s://a/b%g4", "unexpected character at end of URI at 7"},
        {"s:%", "unexpected character at end of URI at 2"},
        {"%", "unexpected character at end of URI at 0"},
        {"%4", "unexpected character at end of URI at 0"},
        {"/[", "unexpected character at end of URI at 1"},
        {"s:a]", "unexpected character at end of URI at 3"},
        {"s:?[", "unexpected character at end of URI at 3"},
        {"s:#a#", "unexpected character at end of URI at 4"},
        {"1a:b", "unexpected character at end of URI at 2"},
        {":", "unexpected character at end of URI at 0"},
        {"%41:", "unexpected character at end of URI at 3"},
        {"a_b:c", "unexpected character at end of URI at 3"},
        {"//h:1a", "unexpected character at end of URI at 5"},
        {"//h:1:2", "unexpected character at end of URI at 5"},
        {"//a@b@c", "unexpected character at end of URI at 5"},
        {"//h%", "unexpected character at end of URI at 3"},
        {"//u%@h", "unexpected character at end of URI at 3"},
    });
}

TEST(URIParser, NeedsASchemeWhereOneIsAskedFor) {
    expectOutcomes({{"a:b", "s:a /:b @3"},
                    {"", "<ALPHA> expected at 0"},
                    {"1a:b", "<ALPHA> expected at 0"},
                    {"//h", "<ALPHA> expected at 0"},
                    {"%41:", "<ALPHA> expected at 0"},
                    {"a", "':' expected at 1"},
                    {"a/b:c", "':' expected at 1"},
                    {"a_:c", "':' expected at 1"},
                    {"ab1+-. ", "':' expected at 6"}},
                   Entry::URI);
    EXPECT_EQ(outcome(u"\u00E9:"_u, Entry::URI), "<ALPHA> expected at 0");
    EXPECT_EQ(outcome(u"a\u00E9:"_u, Entry::URI), "':' expected at 1");
}

TEST(URIParser, KeepsTheFirstFailure) {
    expectOutcomes({{"//[::1%", "']' expected at 6"},
                    {"//[v1]/%", "'.' expected at 5"},
                    {"//[::1.2.3.400:%", "too big: value greater than 255 at 13"}});
    expectOutcomes({{"1:%", "<ALPHA> expected at 0"}}, Entry::URI);
}

TEST(URIParser, BeginsWhereTheCursorStands) {
    const std::string_view text = "see s://u@h:1/p?q#f for more";
    EXPECT_EQ(outcome(text, Entry::URI, true, 4), "s:s a:u@h:1 u:u h:h p:1 /:/p ?:q #:f @19");
    EXPECT_EQ(outcome(text, Entry::REFERENCE, true, 3), "/: @3");
    EXPECT_EQ(outcome(text, Entry::REFERENCE, true, text.size()), "/: @28");
    EXPECT_EQ(outcome(text, Entry::URI, true, text.size()), "<ALPHA> expected at 28");
    EXPECT_EQ(outcome("xx//[", Entry::REFERENCE, true, 2),
              "IPv6 address field or double colon expected at 5");
}

TEST(URIParser, FillsTheSchemeSpecificPart) {
    const auto part = [](ustring_ref text, std::size_t start = 0) {
        orv::BasicCharIterator<char16> it(text);
        it.setPosition(start);
        const auto uri = URIParser::parseURIReference(it);
        return shown(uri->getRawSchemeSpecificPart(text));
    };
    EXPECT_EQ(part(u"s://h/p?q#f"_u), "//h/p?q");
    EXPECT_EQ(part(u"s:"_u), "");
    EXPECT_EQ(part(u"s:?#"_u), "?");
    EXPECT_EQ(part(u"a?b#c"_u), "a?b");
    EXPECT_EQ(part(u"  a?b c"_u, 2), "a?b");
    EXPECT_EQ(part(u"#f"_u), "");
}

TEST(URIParser, TellsTheKindsOfReferencesApart) {
    struct Kind {
        ustring_ref text;
        bool absolute, opaque, network, absolutePath, relativePath;
    };
    for (const Kind& kind : {Kind{u"s:a"_u, true, true, false, false, false},
                             Kind{u"s:"_u, true, true, false, false, false},
                             Kind{u"s:/a"_u, true, false, false, false, false},
                             Kind{u"s://h"_u, true, false, false, false, false},
                             Kind{u"s:a#f"_u, false, true, false, false, false},
                             Kind{u"//h"_u, false, false, true, false, false},
                             Kind{u"/a"_u, false, false, false, true, false},
                             Kind{u"a"_u, false, false, false, false, true},
                             Kind{u""_u, false, false, false, false, true}}) {
        orv::BasicCharIterator<char16> it(kind.text);
        const auto uri = URIParser::parseURIReference(it);
        EXPECT_EQ(uri->isAbsoluteURI(), kind.absolute) << shown(kind.text);
        EXPECT_EQ(uri->isOpaque(), kind.opaque) << shown(kind.text);
        EXPECT_EQ(uri->isNetworkPathReference(), kind.network) << shown(kind.text);
        EXPECT_EQ(uri->isAbsolutePathReference(), kind.absolutePath) << shown(kind.text);
        EXPECT_EQ(uri->isRelativePathReference(), kind.relativePath) << shown(kind.text);
    }
}

TEST(URIParser, TakesTextBeyondAsciiUnlessTextIsAsciiAlone) {
    EXPECT_EQ(outcome(u"s://\u00E9@\u0416:1/\u20AC?\xD83D\xDE00#\u00DF"_u),
              "s:s a:<00E9>@<0416>:1 u:<00E9> h:<0416> p:1 /:/<20AC> ?:<D83D><DE00> #:<00DF> @16");
    EXPECT_EQ(outcome(u"\u00E9:"_u), "unexpected character at end of URI at 1");
    EXPECT_EQ(outcome(u"a\u00E9"_u, Entry::REFERENCE, true), "/:a @1");
    EXPECT_EQ(outcome(u"//h\u00E9"_u, Entry::REFERENCE, true), "a:h h:h /: @3");
    for (const ustring_ref text : {u"a\u00A0"_u, u"a\u2028"_u, u"a\xE000"_u, u"a\x85"_u}) {
        EXPECT_EQ(outcome(text), "/:a @1");
    }
}

TEST(URIParser, TellsTheUnitOfTheEndMarkFromTheEnd) {
    EXPECT_EQ(outcome(u"a\uFFFFb"_u), "/:a @1");
    EXPECT_EQ(outcome(u"s:%4\uFFFF"_u), "unexpected character at end of URI at 2");
}

TEST(URIParser, ReadsNothingBehindTheEndOfAView) {
    const ustring_ref text = u"//h/%41:"_u;
    EXPECT_EQ(outcome(text.substr(0, 6)), "unexpected character at end of URI at 4");
    EXPECT_EQ(outcome(text.substr(0, 5)), "unexpected character at end of URI at 4");
    EXPECT_EQ(outcome((u"ab:"_u).substr(0, 2)), "/:ab @2");
    EXPECT_EQ(outcome((u"//h:12"_u).substr(0, 5)), "a:h:1 h:h p:1 /: @5");
    EXPECT_EQ(outcome((u"//[::1]"_u).substr(0, 6)), "']' expected at 6");
}

TEST(URIParser, TakesANullText) {
    EXPECT_EQ(outcome(ustring_ref()), "/: @0");
    EXPECT_EQ(outcome(ustring_ref(), Entry::URI), "<ALPHA> expected at 0");
}

TEST(URIParser, ReadsEscapesInTheCharsetOfItsEntry) {
    const ustring_ref text = u"s:%C3%A9"_u;
    const auto path = [text](auto parse) {
        orv::BasicCharIterator<char16> it(text);
        return shown(parse(it)->getPath(text));
    };
    EXPECT_EQ(path([](auto& it) { return URIParser::parseURI(it); }), "<FFFD><FFFD>");
    EXPECT_EQ(path([](auto& it) { return URIParser::parseURI(it, true); }), "<FFFD><FFFD>");
    EXPECT_EQ(path([](auto& it) { return URIParser::parseURI(it, false); }), "<00E9>");
    EXPECT_EQ(path([](auto& it) { return URIParser::parseURI(it, true, Charset::UTF_8); }),
              "<00E9>");
    EXPECT_EQ(path([](auto& it) { return URIParser::parseURIReference(it); }), "<FFFD><FFFD>");
    EXPECT_EQ(path([](auto& it) { return URIParser::parseURIReference(it, false); }), "<00E9>");
    EXPECT_EQ(
        path([](auto& it) { return URIParser::parseURIReference(it, false, Charset::ISO_8859_1); }),
        "<00C3><00A9>");
}

TEST(URIParser, TakesAsciiAloneByDefault) {
    const ustring_ref text = u"s:\u00E9"_u;
    orv::BasicCharIterator<char16> it(text);
    URIParser::parseURI(it);
    EXPECT_EQ(it.position(), 2U);
    it.setPosition(0);
    URIParser::parseURIReference(it);
    EXPECT_EQ(it.position(), 2U);
    it.setPosition(0);
    URIParser::parseURI(it, false, Charset::US_ASCII);
    EXPECT_EQ(it.position(), 3U);
}

TEST(URIParser, RefusesANullCharsetBeforeItReads) {
    orv::BasicCharIterator<char16> it(u"%"_u);
    EXPECT_EQ(thrownMessage<orv::AssertionError>([&] { URIParser::parseURI(it, true, nullptr); }),
              "parseURI[2974]: assertion failed");
    EXPECT_EQ(thrownMessage<orv::AssertionError>(
                  [&] { URIParser::parseURIReference(it, false, nullptr); }),
              "parseURIReference[3111]: assertion failed");
    EXPECT_EQ(it.position(), 0U);
}

TEST(URIParser, IsTheStoreItFills) {
    orv::BasicCharIterator<char16> it(u"s:"_u);
    const auto uri = URIParser::parseURI(it);
    EXPECT_EQ(&uri->getURIData(), uri.get());
}

// Every unit in every place: whether it belongs, ends the reference, or is an error.
TEST(URIParser, ClassifiesEveryAsciiUnitInEveryComponent) {
    struct Place {
        std::string_view before;
        std::string_view allowed; // beside letters, digits and "-._~"
    };
    for (const Place& place : {Place{"s:", "!$&'()*+,;=:@/"}, Place{"/", "!$&'()*+,;=:@/"},
                               Place{"a/", "!$&'()*+,;=:@/"}, Place{"//@h", "!$&'()*+,;="},
                               Place{"//h/", "!$&'()*+,;=:@/"}, Place{"?", "!$&'()*+,;=:@/?"},
                               Place{"#", "!$&'()*+,;=:@/?"}}) {
        for (int value = 0; value < 128; ++value) {
            const char c = static_cast<char>(value);
            const bool alnum =
                (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
            const bool unreserved = alnum || std::string_view("-._~").find(c) < 4;
            const bool belongs = unreserved || place.allowed.find(c) != std::string_view::npos;
            const bool startsOther = (c == '?' && place.before != "#") ||
                                     (c == '#' && place.before != "#") ||
                                     (place.before == "//@h" && (c == ':' || c == '/'));
            const bool uriUnit = unreserved || std::string_view(":/?#[]@!$&'()*+,;=%").find(c) <
                                                   std::string_view::npos;
            const std::string text = std::string(place.before) + c + ' ';
            const std::string end = '@' + std::to_string(text.size() - 1);
            const std::string before = std::to_string(place.before.size());
            const std::string result = outcome(text);
            if (belongs || startsOther) {
                ASSERT_TRUE(result.ends_with(' ' + end)) << text << result;
            } else if (uriUnit) {
                ASSERT_EQ(result, "unexpected character at end of URI at " + before) << text;
            } else {
                ASSERT_TRUE(result.ends_with(" @" + before)) << text << result;
            }
        }
    }
}

} // namespace
