// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief URI text in normal form: case, escapes, ports, paths.
#include "orv/liborvxx/net/uri_parser.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/reference/uri_path_model.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::Charset;
using orv::Flags;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URIParser;
using orvtest::shown;
using orvtest::textIn;
using orvtest::thrownMessage;

constexpr auto CASE = URIParser::NORM_CASE;
constexpr auto PERCENT = URIParser::NORM_PERCENT;
constexpr auto PATH = URIParser::NORM_PATH;
constexpr Flags<URIParser::NormFlag> NONE;

std::unique_ptr<URIParser> parsed(ustring_ref text, Charset* charset = Charset::UTF_8) {
    orv::BasicCharIterator<char16> it(text);
    return URIParser::parseURIReference(it, false, charset);
}

std::string normal(ustring_ref text, Flags<URIParser::NormFlag> flags,
                   Charset* charset = Charset::UTF_8) {
    return shown(URIParser::normalize(text, parsed(text, charset).get(), flags));
}

std::string normal(ustring_ref text) {
    return shown(URIParser::normalize(text));
}

std::string normalPath(std::string_view path) {
    return shown(URIParser::normalizePath(textIn<char16>(path)));
}

TEST(URIParserNormalize, TakesCaseAndEscapesByDefault) {
    const ustring_ref text = u"S://HOST:080/%7e%3f/../."_u;
    EXPECT_EQ(normal(text), "s://host:80/~%3F/../.");
    EXPECT_EQ(shown(URIParser::normalize(text, parsed(text).get())), normal(text));
    EXPECT_EQ(normal(text, CASE | PERCENT), normal(text));
}

TEST(URIParserNormalize, ObeysEveryCombinationOfFlags) {
    const ustring_ref text =
        u"S://U%7e%3f@H%5aX%c3:007/a/./%7e%3f\u00E9/..//b?%7E%3F\u00E9#%7e%fF"_u;
    const char* const expected[] = {
        "S://U%7e%3f@H%5aX%c3:7/a/./%7e%3f<00E9>/..//b?%7E%3F<00E9>#%7e%fF",
        "s://U%7E%3F@h%5Ax%C3:7/a/./%7E%3F<00E9>/..//b?%7E%3F<00E9>#%7E%FF",
        "S://U~%3f@HZX%c3:7/a/./~%3f%C3%A9/..//b?~%3F%C3%A9#~%fF",
        "s://U~%3F@hZx%C3:7/a/./~%3F%C3%A9/..//b?~%3F%C3%A9#~%FF",
        "S://U%7e%3f@H%5aX%c3:7/a/b?%7E%3F<00E9>#%7e%fF",
        "s://U%7E%3F@h%5Ax%C3:7/a/b?%7E%3F<00E9>#%7E%FF",
        "S://U~%3f@HZX%c3:7/a/b?~%3F%C3%A9#~%fF",
        "s://U~%3F@hZx%C3:7/a/b?~%3F%C3%A9#~%FF"};
    for (unsigned int mask = 0; mask < 8; ++mask) {
        EXPECT_EQ(normal(text, Flags<URIParser::NormFlag>::fromMask(mask)), expected[mask]) << mask;
    }
}

TEST(URIParserNormalize, KeepsDefinedEmptyComponentsAndAddsNone) {
    for (const ustring_ref text :
         {u""_u, u"s:"_u, u"//"_u, u"//@"_u, u"//:"_u, u"s://@:/?#"_u, u"?"_u, u"#"_u, u"?#"_u,
          u"s:a?"_u, u"s:#"_u, u"/"_u, u"a/b"_u}) {
        EXPECT_EQ(normal(text), shown(text));
        EXPECT_EQ(normal(text, NONE), shown(text));
    }
}

TEST(URIParserNormalize, StripsLeadingZerosOfAPortWhateverTheFlags) {
    EXPECT_EQ(normal(u"//h:000"_u, NONE), "//h:0");
    EXPECT_EQ(normal(u"//h:0"_u, NONE), "//h:0");
    EXPECT_EQ(normal(u"//h:"_u, NONE), "//h:");
    EXPECT_EQ(normal(u"//h:0010"_u, PATH), "//h:10.");
}

TEST(URIParserNormalize, LowersTheCaseOfSchemeAndHostBeyondAsciiToo) {
    EXPECT_EQ(normal(u"AbZ+-.9:X"_u, CASE), "abz+-.9:X");
    // U+212A, the Kelvin sign, has a lower case of ASCII; U+00DF has none.
    EXPECT_EQ(normal(u"//\u00C9\u212A\u0416\u00DF"_u, CASE), "//<00E9>k<0436><00DF>");
    EXPECT_EQ(normal(u"//\u00C9"_u, CASE | PERCENT), "//%C3%A9");
    EXPECT_EQ(normal(u"//U@V"_u, CASE), "//U@v");
    EXPECT_EQ(normal(u"//[FE80::1]"_u, CASE), "//[fe80::1]");
}

TEST(URIParserNormalize, LeavesCapitalsThatComeOutOfEscapesOfAHostAsIsMeant) {
    EXPECT_EQ(normal(u"//%41B"_u), "//Ab");
    EXPECT_EQ(normal(u"//Ab"_u), "//ab");
}

TEST(URIParserNormalize, PutsADotInPlaceOfAnEmptyPathAsIsMeant) {
    EXPECT_EQ(normal(u"s://h?q"_u, PATH), "s://h.?q");
    EXPECT_EQ(normal(u""_u, PATH), ".");
    EXPECT_EQ(normal(u"s://h/a/.."_u, PATH), "s://h");
}

TEST(URIParserNormalize, NormalizesThePathWhenItsEscapesAreDone) {
    EXPECT_EQ(normal(u"/a/%2E%2e/b"_u, PERCENT | PATH), "/b");
    EXPECT_EQ(normal(u"/a/%2E%2e/b"_u, PATH), "/a/%2E%2e/b");
    EXPECT_EQ(normal(u"/a%2f../b"_u, CASE | PERCENT | PATH), "/a%2F../b");
}

TEST(URIParserNormalize, DecodesEscapesOfUnreservedAsciiAlone) {
    for (unsigned int byte = 0; byte < 256; ++byte) {
        const char* const digits = "0123456789ABCDEF";
        const std::string escape = {'%', digits[byte >> 4], digits[byte & 15]};
        const bool plain =
            byte < 128 && std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijkl"
                                           "mnopqrstuvwxyz0123456789-._~")
                                  .find(static_cast<char>(byte)) != std::string_view::npos;
        const std::string expected = plain ? std::string(1, static_cast<char>(byte)) : escape;
        EXPECT_EQ(normal(textIn<char16>("x" + escape + "y")), "x" + expected + "y");
    }
}

TEST(URIParserNormalize, EscapesTextInTheCharsetOfTheParser) {
    EXPECT_EQ(normal(u"\u00E9\u20AC"_u, PERCENT), "%C3%A9%E2%82%AC");
    EXPECT_EQ(normal(u"\u00E9\u00FF"_u, PERCENT, Charset::ISO_8859_1), "%E9%FF");
    EXPECT_EQ(normal(u"\u00E9"_u, PERCENT, Charset::US_ASCII), "%3F"); // its replacement is "?"
    EXPECT_EQ(normal(u"\U0001F600"_u, PERCENT), "%F0%9F%98%80");
}

TEST(URIParserNormalize, EscapesLoneSurrogatesOneByOne) {
    const ustring pairAndMore = {u'\xD83D', u'\xDE00', u'\xDE00', u'\xD83D', u'a', u'\xD83D'};
    const ustring lone(1, u'\xD83D');
    const std::string one = normal(lone, PERCENT);
    EXPECT_TRUE(one.starts_with('%'));
    EXPECT_EQ(normal(pairAndMore, PERCENT), "%F0%9F%98%80" + one + one + 'a' + one);
}

TEST(URIParserNormalize, RefusesWhatIsNoReferenceAndWhatFollowsOne) {
    const auto message = [](ustring_ref text) {
        std::size_t offset = 0;
        const std::string what = thrownMessage<orv::ParseError>([&] {
            try {
                URIParser::normalize(text);
            } catch (const orv::ParseError& error) {
                offset = error.getErrorOffset();
                throw;
            }
        });
        return what + " at " + std::to_string(offset);
    };
    EXPECT_EQ(message(u"s://a b"_u), "extra character(s) following valid URI reference at 5");
    EXPECT_EQ(message(u"a\uFFFF"_u), "extra character(s) following valid URI reference at 1");
    EXPECT_EQ(message(u"a%"_u), "unexpected character at end of URI at 1");
}

TEST(URIParserNormalize, RaisesForAnEscapeThatTheEndOfTheTextCutsOff) {
    const ustring_ref whole = u"//h/%7E"_u;
    const auto uri = parsed(whole);
    for (const auto flags : {CASE | CASE, PERCENT | PERCENT, CASE | PERCENT}) {
        for (const std::size_t size : {5U, 6U}) {
            const ustring cut = whole.substr(0, size).to_string();
            EXPECT_EQ(thrownMessage<orv::AssertionError>(
                          [&] { URIParser::normalize(cut, uri.get(), flags); }),
                      "toHexDigit[801]: assertion failed");
        }
        EXPECT_EQ(shown(URIParser::normalize(whole.substr(0, 4), uri.get(), flags)), "//h/");
    }
    EXPECT_EQ(shown(URIParser::normalize(whole.substr(0, 5), uri.get(), NONE)), "//h/%");
}

#if GTEST_HAS_DEATH_TEST && !defined(NDEBUG)
TEST(URIParserNormalizeDeathTest, AssertsAParser) {
    EXPECT_DEATH(URIParser::normalize(u"a"_u, nullptr), "parser != nullptr");
}
#endif

TEST(URIParserNormalizePath, GivesTheseForms) {
    const char* const cases[][2] = {{"", "."},
                                    {".", "."},
                                    {"./", "./"},
                                    {"/", "/"},
                                    {"//", "/"},
                                    {"a/./b//c", "a/b/c"},
                                    {"./a", "a"},
                                    {".//a", "a"},
                                    {"a/b/..", "a"},
                                    {"../a", "../a"},
                                    {"/..", "/.."},
                                    {"a/..", "."},
                                    {"/a/..", ""},
                                    {"../..", "../.."},
                                    {"a/.", "a"},
                                    {"/.", "/."},
                                    {"/./", "/"},
                                    {"a/../b", "b"},
                                    {"a/../", "./"},
                                    {"/a/../", "/"},
                                    {"/a/../.", "/."},
                                    {"a/../../b", "../b"},
                                    {"/../a/..", "/.."},
                                    {"a/b/../..", "."},
                                    {"a.b/..c/.d/...", "a.b/..c/.d/..."},
                                    {"a/b/", "a/b/"},
                                    {"a/b/../", "a/"}};
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(normalPath(path), expected) << path;
        EXPECT_EQ(orvtest::parserNormalPath(path), expected) << path;
    }
}

TEST(URIParserNormalizePath, AgreesWithTheModelOnEveryShortPath) {
    const std::string alphabet = "/.a";
    std::string path;
    std::size_t count = 0;
    const auto visit = [&](const auto& self, std::size_t room) -> void {
        ASSERT_EQ(normalPath(path), orvtest::parserNormalPath(path)) << '"' << path << '"';
        ++count;
        for (std::size_t i = 0; room != 0 && i != alphabet.size(); ++i) {
            path.push_back(alphabet[i]);
            self(self, room - 1);
            path.pop_back();
        }
    };
    visit(visit, 9);
    EXPECT_EQ(count, 29'524U); // (3 to the 10th - 1) / 2
}

// The string goes in, is changed in place, and comes out.
TEST(URIParserNormalizePath, WorksInTheStringItWasGiven) {
    for (const char* const path : {"/a/b/c/../d/e/f.g/h/i", "/a/b/c/d/e/f.g/h/i"}) {
        ustring text = textIn<char16>(path);
        const char16* const units = text.data();
        const ustring result = URIParser::normalizePath(std::move(text));
        EXPECT_EQ(result.data(), units);
    }
}

} // namespace
