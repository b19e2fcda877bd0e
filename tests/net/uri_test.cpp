// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI` from finished text: components, failures, long texts.
#include "orv/liborvxx/net/uri.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/uri_parser.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::gref;
using orv::make_gref;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URI;
using orv::net::URIResult;
using orv::net::URISyntaxError;
using orvtest::shown;

constexpr const char* NONE = "(null)";

gref<URI> uriOf(std::string_view text) {
    return URI::create(orvtest::textIn<char16>(text));
}

// What the raw getters give, each on its own: absent components are "(null)", empty ones "".
struct Raw {
    std::string scheme, ssp, authority, userInfo, host, port, path, query, fragment;

    friend bool operator==(const Raw&, const Raw&) = default;
    friend void PrintTo(const Raw& raw, std::ostream* out) {
        *out << raw.scheme << " | " << raw.ssp << " | " << raw.authority << " | " << raw.userInfo
             << " | " << raw.host << " | " << raw.port << " | " << raw.path << " | " << raw.query
             << " | " << raw.fragment;
    }
};

Raw rawOf(const URI& uri) {
    return {shown(uri.getScheme()),       shown(uri.getRawSchemeSpecificPart()),
            shown(uri.getRawAuthority()), shown(uri.getRawUserInfo()),
            shown(uri.getRawHost()),      shown(uri.getRawPort()),
            shown(uri.getRawPath()),      shown(uri.getRawQuery()),
            shown(uri.getRawFragment())};
}

TEST(URI, GivesEachComponentAsItStands) {
    EXPECT_EQ(rawOf(*uriOf("https://me%40@ex.org:8080/a%20b/c?q=%26#t%6Fp")),
              (Raw{"https", "//me%40@ex.org:8080/a%20b/c?q=%26", "me%40@ex.org:8080", "me%40",
                   "ex.org", "8080", "/a%20b/c", "q=%26", "t%6Fp"}));
    EXPECT_EQ(rawOf(*uriOf("mailto:me@example.org?subject=x#y")),
              (Raw{"mailto", "me@example.org?subject=x", NONE, NONE, NONE, NONE, "me@example.org",
                   "subject=x", "y"}));
    EXPECT_EQ(rawOf(*uriOf("//[::1]/x")),
              (Raw{NONE, "//[::1]/x", "[::1]", NONE, "[::1]", NONE, "/x", NONE, NONE}));
    EXPECT_EQ(rawOf(*uriOf("../a:b")),
              (Raw{NONE, "../a:b", NONE, NONE, NONE, NONE, "../a:b", NONE, NONE}));
}

TEST(URI, IsValidWhenEmpty) {
    const gref<URI> uri = URI::create(u""_u);
    EXPECT_EQ(rawOf(*uri), (Raw{NONE, "", NONE, NONE, NONE, NONE, "", NONE, NONE}));
    EXPECT_EQ(URI::create(ustring_ref())->toString(), u""_u);
    EXPECT_EQ(rawOf(*URI::create(ustring_ref())), rawOf(*uri));
}

TEST(URI, TellsEmptyComponentsFromAbsentOnes) {
    EXPECT_EQ(rawOf(*uriOf("s:")), (Raw{"s", "", NONE, NONE, NONE, NONE, "", NONE, NONE}));
    EXPECT_EQ(rawOf(*uriOf("//")), (Raw{NONE, "//", "", NONE, "", NONE, "", NONE, NONE}));
    EXPECT_EQ(rawOf(*uriOf("//@")), (Raw{NONE, "//@", "@", "", "", NONE, "", NONE, NONE}));
    EXPECT_EQ(rawOf(*uriOf("//:")), (Raw{NONE, "//:", ":", NONE, "", "", "", NONE, NONE}));
    EXPECT_EQ(rawOf(*uriOf("?")), (Raw{NONE, "?", NONE, NONE, NONE, NONE, "", "", NONE}));
    EXPECT_EQ(rawOf(*uriOf("#")), (Raw{NONE, "", NONE, NONE, NONE, NONE, "", NONE, ""}));
    EXPECT_EQ(rawOf(*uriOf("s://@:?#")), (Raw{"s", "//@:?", "@:", "", "", "", "", "", ""}));
}

TEST(URI, DecodesEscapesAsUtf8) {
    const gref<URI> uri = uriOf("s://%C3%A9%40@%E2%82%AC:1/%F0%9F%98%80%2F?%41%26%42#%ff%00");
    EXPECT_EQ(shown(uri->getUserInfo()), "<00E9>@");
    EXPECT_EQ(shown(uri->getHost()), "<20AC>");
    EXPECT_EQ(shown(uri->getAuthority()), "<00E9>@@<20AC>:1");
    EXPECT_EQ(shown(uri->getPath()), "/<D83D><DE00>/");
    EXPECT_EQ(shown(uri->getQuery()), "A&B");
    EXPECT_EQ(uri->getFragment(), ustring(u"\uFFFD\0"_u)); // a byte that is none of UTF-8
    EXPECT_EQ(shown(uri->getSchemeSpecificPart()), "//<00E9>@@<20AC>:1/<D83D><DE00>/?A&B");
}

TEST(URI, DecodesAbsentComponentsAsEmpty) {
    const gref<URI> uri = uriOf("x");
    EXPECT_EQ(uri->getUserInfo(), u""_u);
    EXPECT_EQ(uri->getHost(), u""_u);
    EXPECT_EQ(uri->getAuthority(), u""_u);
    EXPECT_EQ(uri->getQuery(), u""_u);
    EXPECT_EQ(uri->getFragment(), u""_u);
}

TEST(URI, ReadsThePortAsANumber) {
    EXPECT_EQ(uriOf("//h:8080")->getPort(), 8080);
    EXPECT_EQ(uriOf("//h:0080")->getPort(), 80);
    EXPECT_EQ(uriOf("//h:2147483647")->getPort(), 2147483647);
    EXPECT_EQ(uriOf("//h:")->getPort(), -1);
    EXPECT_EQ(uriOf("//h")->getPort(), -1);
    EXPECT_EQ(uriOf("x")->getPort(), -1);
    EXPECT_EQ(orvtest::thrownMessage<std::out_of_range>(
                  [] { static_cast<void>(uriOf("//h:2147483648")->getPort()); }),
              "number out of range");
}

// The kinds, as letters.
std::string kindsOf(const URI& uri) {
    std::string kinds;
    kinds += uri.isAbsolute() ? "A" : "";
    kinds += uri.isAbsoluteURI() ? "U" : "";
    kinds += uri.isOpaque() ? "O" : "";
    kinds += uri.isRelativeReference() ? "R" : "";
    kinds += uri.isNetworkPathReference() ? "n" : "";
    kinds += uri.isAbsolutePathReference() ? "a" : "";
    kinds += uri.isRelativePathReference() ? "r" : "";
    return kinds;
}

TEST(URI, KnowsItsKind) {
    EXPECT_EQ(kindsOf(*uriOf("s://h/")), "AU");
    EXPECT_EQ(kindsOf(*uriOf("s://h/#")), "A");
    EXPECT_EQ(kindsOf(*uriOf("s:/p")), "AU");
    EXPECT_EQ(kindsOf(*uriOf("s:p")), "AUO");
    EXPECT_EQ(kindsOf(*uriOf("s:#f")), "AO");
    EXPECT_EQ(kindsOf(*uriOf("//h")), "Rn");
    EXPECT_EQ(kindsOf(*uriOf("/p")), "Ra");
    EXPECT_EQ(kindsOf(*uriOf("p")), "Rr");
    EXPECT_EQ(kindsOf(*uriOf("")), "Rr");
}

TEST(URI, ListsPathSegmentsAndQueryParameters) {
    const gref<URI> uri = uriOf("s://h/a/b%20c?x=1&y=%32");
    std::string segments;
    for (const orv::net::EncodedText segment : uri->pathSegments()) {
        segments += shown(segment.decoded()) + ';';
    }
    EXPECT_EQ(segments, "a;b c;");
    EXPECT_EQ(shown(uri->queryParameters().find(u"y"_u).decoded()), "2");
}

TEST(URI, EscapesWhatIsBeyondAsciiOnRequest) {
    EXPECT_EQ(URI::create(u"s://h/caf\u00E9"_u)->toASCIIString(), u"s://h/caf%C3%A9"_u);
    EXPECT_EQ(URI::create(u"\U0001F600"_u)->toASCIIString(), u"%F0%9F%98%80"_u);
    EXPECT_EQ(URI::create(u"\u00E9a%41b\u20AC\U0001F600c"_u)->toASCIIString(),
              u"%C3%A9a%41b%E2%82%AC%F0%9F%98%80c"_u);
    EXPECT_EQ(URI::create(u"s:a%c3#b"_u)->toASCIIString(), u"s:a%c3#b"_u);
    EXPECT_EQ(URI::create(u""_u)->toASCIIString(), u""_u);
}

TEST(URI, EscapesASurrogateWithoutItsPartnerAsTheReplacement) {
    const auto ascii = [](std::initializer_list<char16_t> units) {
        ustring text;
        for (const char16_t unit : units) {
            text += unit;
        }
        return shown(URI::create(text)->toASCIIString());
    };
    EXPECT_EQ(ascii({0xD83D}), "%3F");
    EXPECT_EQ(ascii({0xDE00, u'a'}), "%3Fa");
    EXPECT_EQ(ascii({0xD83D, 0xD83D, 0xDE00}), "%3F%F0%9F%98%80");
    EXPECT_EQ(ascii({0xD83D, u'a', 0xDE00, 0xD83D}), "%3Fa%3F%3F");
}

TEST(URI, TakesAStringOverAndKeepsItsText) {
    ustring text = orvtest::textIn<char16>("http://example.org/a/path/of/some/length");
    const char16* const units = text.data();
    const gref<URI> uri = URI::create(std::move(text));
    EXPECT_EQ(uri->toString().data(), units);
    ustring again = orvtest::textIn<char16>("http://example.org/another/path/of/some/length");
    const char16* const others = again.data();
    const URIResult result = URI::tryCreate(std::move(again));
    ASSERT_TRUE(result);
    EXPECT_EQ(result.uri->toString().data(), others);
    EXPECT_EQ(shown(result.uri->getRawHost()), "example.org");
    // A short text moves from one object into the other, and its views with it.
    EXPECT_EQ(shown(URI::create(ustring(u"s:p"_u))->getRawPath()), "p");
}

TEST(URI, IsSharedByCount) {
    gref<URI> uri = uriOf("s:p");
    EXPECT_EQ(uri.useCount(), 1U);
    const gref<URI> other = uri;
    EXPECT_EQ(uri.useCount(), 2U);
    uri.reset();
    EXPECT_EQ(shown(other->toString()), "s:p");
    EXPECT_EQ(other.useCount(), 1U);
    EXPECT_EQ(make_gref<URI>(u"s:p"_u).useCount(), 1U);
    EXPECT_EQ(make_gref<URI>(ustring(u"s:p"_u))->toString(), u"s:p"_u);
    static_assert(!std::is_copy_constructible_v<URI> && !std::is_destructible_v<URI>);
}

struct BadText {
    const char* text;
    const char* reason;
    std::size_t index;
};

const std::vector<BadText> BAD_TEXTS = {
    {"s://[::1/", "']' expected", 8},
    {"s://[v/]", "<HEXDIG> expected", 6},
    {"s://[v", "<HEXDIG> expected", 6},
    {"s://[v1]", "'.' expected", 7},
    {"s://[v1.]", "<unreserved>, <sub-delims> or ':' expected", 8},
    {"s://[V1.x]", "IPv6 address field or double colon expected", 5},
    {"s://[::1.x]", "digit expected", 9},
    {"s://[::1.2]", "'.' expected", 10},
    {"s://[::1.2.3.4.]", "letter, digit and '.' not allowed here", 14},
    {"s://[1:/", "IPv6 address field expected", 7},
    {"s://[::g]/", "IPv6 address field or end of address expected", 7},
    {"s://[g]", "IPv6 address field or double colon expected", 5},
    {"s://[1]", "single or double colon expected", 6},
    {"s://[1.2.3.4]", "single or double colon expected", 6},
    {"s://[1:2:3:4:5:6:7:8:9]/", "end of IPv6 address expected", 20},
    {"s://[::1g]", "single colon or end of IPv6 address expected", 8},
    {"1a:b", "unexpected character at end of URI", 2},
    {"s://a/b%", "unexpected character at end of URI", 7},
    {"s://h/[", "unexpected character at end of URI", 6},
    {"s:a#b#c", "unexpected character at end of URI", 5},
    {"s://h:8a", "unexpected character at end of URI", 7},
    {"s://a b", "unexpected character", 5},
    {"http://a b", "unexpected character", 8},
    {" ", "unexpected character", 0},
    {"s:a\"", "unexpected character", 3},
};

TEST(URI, SaysWhatIsWrongAndWhere) {
    for (const BadText& bad : BAD_TEXTS) {
        const ustring text = orvtest::textIn<char16>(bad.text);
        try {
            static_cast<void>(URI::create(text));
            ADD_FAILURE() << bad.text << " is valid";
        } catch (const URISyntaxError& e) {
            EXPECT_EQ(shown(e.getReason()), bad.reason) << bad.text;
            EXPECT_EQ(e.getIndex(), static_cast<int>(bad.index)) << bad.text;
            EXPECT_EQ(e.getInput(), text) << bad.text;
        }
    }
}

TEST(URI, SaysItInOneMessage) {
    EXPECT_EQ(orvtest::thrownMessage<URISyntaxError>([] { uriOf("s://a b"); }),
              "unexpected character at index 5: s://a b");
    EXPECT_EQ(orvtest::thrownMessage<URISyntaxError>([] { uriOf("http://a b"); }),
              "unexpected character at index 8: http://a b");
}

// Also what the parser throws as another class.
TEST(URI, ThrowsOneClassForEveryFailure) {
    for (const char* text : {"s://[::g]/", "s://[::256.1.1.1]/", "s://[::1.2.3.999999999999]"}) {
        EXPECT_THROW(uriOf(text), URISyntaxError) << text;
        EXPECT_THROW(make_gref<URI>(orvtest::textIn<char16>(text)), URISyntaxError) << text;
        const ustring owned = orvtest::textIn<char16>(text);
        EXPECT_THROW(make_gref<URI>(ustring_ref(owned)), URISyntaxError) << text;
    }
}

TEST(URITryCreate, GivesTheReasonAndTheIndexThatCreateThrows) {
    std::vector<std::string> texts = {"s://[::256.1.1.1]", "s://[:1]", "s://[::1::]"};
    for (const BadText& bad : BAD_TEXTS) {
        texts.emplace_back(bad.text);
    }
    for (const std::string& narrow : texts) {
        const ustring text = orvtest::textIn<char16>(narrow);
        for (const URIResult& result : {URI::tryCreate(ustring_ref(text)), URI::tryCreate(text)}) {
            EXPECT_FALSE(result) << narrow;
            EXPECT_EQ(result.uri.get(), nullptr) << narrow;
            EXPECT_FALSE(result.reason.empty()) << narrow;
            try {
                static_cast<void>(URI::create(text));
                ADD_FAILURE() << narrow << " is valid";
            } catch (const URISyntaxError& e) {
                EXPECT_EQ(shown(e.getReason()), result.reason) << narrow;
                EXPECT_EQ(e.getIndex(), static_cast<int>(result.index)) << narrow;
            }
        }
    }
}

TEST(URITryCreate, GivesTheSameUriAsCreate) {
    for (const char* narrow : {"", "s:", "//h:/a?b#c", "s://u@h:1/a%20b?c#d", "a/b:c"}) {
        const ustring text = orvtest::textIn<char16>(narrow);
        const URIResult viewed = URI::tryCreate(ustring_ref(text));
        const URIResult moved = URI::tryCreate(ustring(text));
        ASSERT_TRUE(viewed && moved) << narrow;
        EXPECT_TRUE(viewed.reason.empty() && moved.reason.empty());
        EXPECT_EQ(viewed.index + moved.index, 0U);
        EXPECT_EQ(rawOf(*viewed.uri), rawOf(*URI::create(text)));
        EXPECT_EQ(rawOf(*moved.uri), rawOf(*URI::create(text)));
        EXPECT_EQ(viewed.uri.useCount(), 1U);
    }
}

// U+FFFF has the value of the cursor's end mark, but ends no text.
TEST(URI, RefusesTheUnitFFFFWhereverItStands) {
    for (const ustring_ref text :
         {u"\uFFFF"_u, u"s:\uFFFF"_u, u"s://h\uFFFF"_u, u"s://[::1\uFFFF]"_u, u"s:?\uFFFFa"_u,
          u"s:#\uFFFF"_u, u"//h:1\uFFFF"_u, u"s:a\uFFFF\uFFFF"_u}) {
        const URIResult result = URI::tryCreate(text);
        EXPECT_FALSE(result) << shown(text);
        EXPECT_EQ(result.index, text.find(char16(u'\uFFFF'))) << shown(text);
    }
    EXPECT_EQ(URI::tryCreate(u"s:a\uFFFF"_u).reason, "unexpected character");
}

TEST(URI, AdmitsAssignedUnitsBeyondAsciiAndNoOthers) {
    EXPECT_TRUE(URI::tryCreate(u"s://\u00E9@\u4E2D/\u0416?\u05D0#\U0001F600"_u));
    for (const ustring_ref text : {u"s:\u00A0"_u, u"s:\u0085"_u, u"s:\u2028"_u, u"s:\u3000"_u,
                                   u"s:\uE000"_u, u"s:\u0378"_u, u"\u00E9:a"_u}) {
        EXPECT_FALSE(URI::tryCreate(text)) << shown(text);
    }
}

// Ranges keep the low 16 bits of their ends: the units that then lie between them are given, or
// none.
class LongText : public testing::TestWithParam<std::size_t> {
protected:
    // "s://u@h:1/", units of a path, "?q#f".
    static ustring textOf(std::size_t size, std::string_view piece) {
        ustring text = orvtest::textIn<char16>("s://u@h:1/");
        text.reserve(size);
        while (text.size() < size - 4) {
            text.push_back(char16(piece[(text.size() - 10) % piece.size()]));
        }
        return text += u"?q#f"_u;
    }

    static std::string wrapped(const ustring& text, std::size_t begin, std::size_t end) {
        const std::size_t low = begin & 0xFFFF;
        const std::size_t high = std::min<std::size_t>(end & 0xFFFF, text.size());
        return low > high ? NONE : shown(ustring_ref(text.data() + low, high - low));
    }
};

TEST_P(LongText, KeepsItWholeAndGivesWrappedRangesAsIsMeant) {
    const std::size_t size = GetParam();
    const ustring text = textOf(size, "abc/");
    const gref<URI> uri = URI::create(ustring_ref(text));
    EXPECT_TRUE(uri->toString() == text);
    EXPECT_EQ(rawOf(*uri), (Raw{"s", wrapped(text, 2, size - 2), "u@h:1", "u", "h", "1",
                                wrapped(text, 9, size - 4), wrapped(text, size - 3, size - 2),
                                wrapped(text, size - 1, size)}));
    EXPECT_EQ(uri->getPort(), 1);
    EXPECT_EQ(shown(uri->getPath()),
              uri->getRawPath().data() == nullptr ? "" : wrapped(text, 9, size - 4));
    EXPECT_TRUE(uri->toASCIIString() == text);
}

TEST_P(LongText, RaisesForAnEscapeThatAWrappedRangeCuts) {
    const std::size_t size = GetParam();
    const gref<URI> uri = URI::create(textOf(size / 3 * 3 + 2, "%41")); // whole escapes
    const std::size_t units = uri->getRawPath().size();
    if (units == 0 || units % 3 == 1) { // the "/", and whole escapes
        EXPECT_EQ(uri->getPath(),
                  units == 0 ? ustring() : ustring(u"/"_u) + ustring(units / 3, u'A'));
    } else {
        EXPECT_EQ(
            orvtest::thrownMessage<orv::AssertionError>([&] { static_cast<void>(uri->getPath()); }),
            "toHexDigit[801]: assertion failed");
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, LongText,
                         testing::Values(65'535, 65'536, 65'537, 65'540, 65'600, 131'072,
                                         10'000'000));

TEST(URI, ReadsNoNumberFromAPortThatIsElsewhere) {
    // The port lies from 65,536 on: its range names units of the user info.
    ustring text = orvtest::textIn<char16>("//");
    text.append(65'532, u'u');
    text += u"@h:80"_u;
    const gref<URI> uri = URI::create(text);
    EXPECT_EQ(shown(uri->getRawPort()), "/u");
    EXPECT_EQ(
        orvtest::thrownMessage<std::invalid_argument>([&] { static_cast<void>(uri->getPort()); }),
        "decimal number expected");
}

} // namespace
