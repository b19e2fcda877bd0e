// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Tests of `URI::compareTo` and `URI::equals`.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/detail/uri_fold.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/reference/uri_model.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"
#include "tests/support/uri_of.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace orv::literals;
using orv::AssertionError;
using orv::char16;
using orv::gref;
using orv::ustring;
using orv::net::URI;
using orvtest::textIn;
using orvtest::thrownMessage;
using orvtest::uriOf;

const char* const NO_HEX_DIGIT = "toHexDigit[801]: assertion failed";

bool equal(std::string_view a, std::string_view b) {
    return uriOf(a)->equals(uriOf(b));
}

int compared(std::string_view a, std::string_view b) {
    return uriOf(a)->compareTo(uriOf(b));
}

TEST(URIEquals, TakesSchemesAndHostsWithoutRegardToCase) {
    EXPECT_TRUE(equal("S://a/", "s://a/"));
    EXPECT_TRUE(equal("s://A/", "s://a/"));
    EXPECT_TRUE(equal("s://[::A]/", "S://[::a]/"));
    EXPECT_FALSE(equal("s://a/", "t://a/"));
    EXPECT_FALSE(equal("s://a/", "ss://a/"));
    EXPECT_FALSE(equal("s://a/", "s://b/"));
    EXPECT_FALSE(equal("s://a/", "s://aa/"));
    EXPECT_FALSE(equal("s:/a", "/a"));
}

TEST(URIEquals, TakesAllElseByTheUnit) {
    EXPECT_FALSE(equal("s://a/B", "s://a/b"));
    EXPECT_FALSE(equal("s://U@a/", "s://u@a/"));
    EXPECT_FALSE(equal("s://a/?Q", "s://a/?q"));
    EXPECT_FALSE(equal("s://a/#F", "s://a/#f"));
    EXPECT_FALSE(equal("s://a/x", "s://a/xy"));
    EXPECT_TRUE(equal("s://u@a:1/p?q#f", "s://u@a:1/p?q#f"));
}

TEST(URIEquals, TellsAbsentFromEmpty) {
    EXPECT_FALSE(equal("s://a/?", "s://a/"));
    EXPECT_FALSE(equal("s://a/#", "s://a/"));
    EXPECT_FALSE(equal("s://@a/", "s://a/"));
    EXPECT_FALSE(equal("///p", "/p"));
}

TEST(URIEquals, TakesDigitsOfEscapesWithoutRegardToCase) {
    EXPECT_TRUE(equal("s://a/%7e", "s://a/%7E"));
    EXPECT_TRUE(equal("s://%c3%a9@a/?%aa#%bb", "s://%C3%A9@a/?%AA#%BB"));
    EXPECT_FALSE(equal("s://a/%7e", "s://a/~"));
    EXPECT_FALSE(equal("s://a/%7eA", "s://a/%7Ea"));
    EXPECT_FALSE(equal("s://a/%7e", "s://a/%7D"));
}

TEST(URIEquals, TakesPortsAsNumbers) {
    EXPECT_TRUE(equal("s://a:080/", "s://a:80/"));
    EXPECT_TRUE(equal("s://a:/", "s://a/"));
    EXPECT_TRUE(equal("s://a:0/", "s://a:000/"));
    EXPECT_FALSE(equal("s://a:0/", "s://a:/"));
    EXPECT_FALSE(equal("s://a:0/", "s://a/"));
    EXPECT_FALSE(equal("s://a:80/", "s://a:81/"));
    EXPECT_FALSE(equal("s://a:80/", "s://a:800/"));
    EXPECT_TRUE(
        equal("s://a:00123456789012345678901234567890/", "s://a:123456789012345678901234567890/"));
}

TEST(URIEquals, DecodesHostsFromTheFirstEscapeOn) {
    EXPECT_TRUE(equal("s://%41/", "s://a/"));
    EXPECT_TRUE(equal("s://a/", "s://%41/"));
    EXPECT_TRUE(equal("s://x%41%42/", "s://X%61%62/"));
    EXPECT_TRUE(equal("s://a%42/", "s://a%62/"));
    EXPECT_FALSE(equal("s://a%42/", "s://a%63/"));
    EXPECT_FALSE(equal("s://b%42/", "s://a%42/"));
    EXPECT_FALSE(equal("s://a%42/", "s://a/"));
    EXPECT_FALSE(equal("s://a/", "s://a%42/"));
    EXPECT_TRUE(equal("s://x%C3%89/", "s://X%C3%A9/"));
    EXPECT_TRUE(URI::create(u"s://\u00E9/"_u)->equals(URI::create(u"s://\u00C9/"_u)));
    // Bytes that are no UTF-8 are all the same.
    EXPECT_TRUE(equal("s://%FF/", "s://%FE/"));
}

TEST(URIEquals, TakesTheFirstUnitOfTheOtherHostForAPercentSignAsMeant) {
    // "-42" is read as "%42", though nothing in it is escaped.
    EXPECT_TRUE(equal("s://%42/", "s://-42/"));
    EXPECT_TRUE(equal("s://-42/", "s://%42/"));
    EXPECT_TRUE(equal("s://a%42c/", "s://a~62C/"));
    // So a host may differ from its own escaped form,
    EXPECT_FALSE(equal("s://%61bc/", "s://abc/"));
    // and comparing it may fail.
    EXPECT_EQ(thrownMessage<AssertionError>([] { equal("s://%61xyz/", "s://axyz/"); }),
              NO_HEX_DIGIT);
    EXPECT_EQ(thrownMessage<AssertionError>([] { equal("s://axyz/", "s://%61xyz/"); }),
              NO_HEX_DIGIT);
    EXPECT_EQ(thrownMessage<AssertionError>([] { compared("s://%61xyz/", "s://axyz/"); }),
              NO_HEX_DIGIT);
    // Two units are too few to be taken for an escape.
    EXPECT_TRUE(equal("s://%61%62/", "s://ab/"));
}

TEST(URIEquals, FindsADifferenceBeforeTheHostFirst) {
    EXPECT_FALSE(equal("s://%61xyz/", "t://axyz/"));
    EXPECT_FALSE(equal("s://u@%61xyz/", "s://axyz/"));
    // But not one behind it.
    EXPECT_EQ(thrownMessage<AssertionError>([] { equal("s://%61xyz/p", "s://axyz/"); }),
              NO_HEX_DIGIT);
}

TEST(URIEquals, IsFalseForNull) {
    EXPECT_FALSE(uriOf("s://a/")->equals(nullptr));
    EXPECT_FALSE(uriOf("")->equals(gref<URI>()));
}

TEST(URIEquals, IsTrueForTheObjectItself) {
    for (const char* const text : {"", "s://u@%41:1/%7e?q#f", "urn:x", "//%FF"}) {
        const auto uri = uriOf(text);
        EXPECT_TRUE(uri->equals(uri)) << text;
        EXPECT_EQ(uri->compareTo(uri), 0) << text;
    }
}

TEST(URIEquals, GoesByComponentsWhereTheTextIsTheSame) {
    // A path that begins like a scheme comes out of `relativize` alone.
    const auto path = uriOf("s://h/")->relativize(uriOf("s://h/b:c"));
    const auto opaque = uriOf("b:c");
    ASSERT_EQ(path->toString(), opaque->toString());
    EXPECT_FALSE(path->equals(opaque));
    EXPECT_FALSE(opaque->equals(path));
    EXPECT_LT(path->compareTo(opaque), 0);
    EXPECT_GT(opaque->compareTo(path), 0);
}

// Each text is less than the next.
void expectAscending(const std::vector<std::string>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = 0; j < texts.size(); ++j) {
            const int order = compared(texts[i], texts[j]);
            EXPECT_EQ(order < 0, i < j) << texts[i] << " and " << texts[j];
            EXPECT_EQ(order > 0, i > j) << texts[i] << " and " << texts[j];
        }
    }
}

TEST(URICompareTo, ComparesComponentsInTheirOrder) {
    expectAscending({"",   "#",      "#a",    "?",   "?#",  "?#a", "?a",  "/",   "/#",  "/?",
                     "/b", "/b%2Ea", "/b%2F", "/b/", "/bb", "a:",  "a:b", "A:c", "aa:", "b:"});
    expectAscending({"//h", "//h#", "//h?", "//h/", "//h/p", "//h:0", "//h:1", "//h:02", "//h:9",
                     "//h:10", "//h:0011", "//@h", "//@h:7", "//u@h", "//u@h:7", "//u@h:7/p",
                     "//v@h", "s://h", "t://h"});
}

TEST(URICompareTo, GivesTheDifferenceOfUnits) {
    EXPECT_EQ(compared("s://a/x", "s://a/b"), 'x' - 'b');
    EXPECT_EQ(compared("s://a/b", "s://a/x"), 'b' - 'x');
    EXPECT_EQ(compared("S:x", "a:x"), 's' - 'a');
    EXPECT_EQ(compared("//h:12", "//h:19"), '2' - '9');
    EXPECT_EQ(compared("//h:12", "//h:123"), -1);
    EXPECT_EQ(compared("//h:123", "//h:12"), 1);
    EXPECT_EQ(compared("//h:1", "//h"), 1);
    EXPECT_EQ(compared("//h:1", "//h:"), 1);
    EXPECT_EQ(compared("//h", "//h:"), 0);
    EXPECT_EQ(compared("/a", "/abc"), -1);
    EXPECT_EQ(compared("/abc", "/a"), 1);
    EXPECT_EQ(compared("?", ""), 1);
    EXPECT_EQ(compared("#", ""), 1);
    EXPECT_EQ(compared("/%7e", "/%7E"), 0);
    EXPECT_EQ(compared("/%7e", "/%7C"), 'e' - 'c');
    EXPECT_EQ(compared("/%7e", "/~"), '%' - '~');
    EXPECT_EQ(compared("s:", "ss:"), -1);
}

TEST(URICompareTo, PutsAnAbsentSchemeFirst) {
    EXPECT_GT(compared("a:", "/b"), 0);
    EXPECT_LT(compared("/b", "a:"), 0);
}

TEST(URICompareTo, IsZeroForDifferentHostsAsMeant) {
    EXPECT_EQ(compared("s://a/x", "s://b/y"), 0);
    EXPECT_FALSE(equal("s://a/x", "s://b/y"));
    EXPECT_EQ(compared("s://a/x", "s:/y"), 0);
    EXPECT_EQ(compared("/b", "//h/a"), 0);
    // What comes before the host decides.
    EXPECT_LT(compared("s://u@a/x", "s://v@b/y"), 0);
    EXPECT_GT(compared("t://a/x", "s://b/y"), 0);
    // Hosts that match are passed over.
    EXPECT_LT(compared("s://a/x", "s://A/y"), 0);
}

TEST(URICompareTo, RefusesNull) {
    EXPECT_EQ(thrownMessage<AssertionError>([] { uriOf("s:x")->compareTo(nullptr); }),
              "compareTo[1244]: assertion failed");
}

TEST(URIFold, GoesThroughUpperToLowerCase) {
    for (unsigned value = 0; value <= 0xFFFF; ++value) {
        ASSERT_EQ(static_cast<unsigned>(orv::net::detail::foldUnit(char16(value))),
                  orvtest::foldedUnit(value))
            << value;
    }
}

TEST(URIFold, JoinsUnitsThatShareEitherForm) {
    // Units are equal if their upper-case forms are, or the lower-case forms of those.
    const auto host = [](unsigned value) {
        ustring text = textIn<char16>("//");
        text.push_back(char16(value));
        return URI::create(text);
    };
    const std::pair<unsigned, unsigned> pairs[] = {{0x212A, 'k'}, {0x212A, 'K'},  {0x131, 'i'},
                                                   {0x17F, 's'},  {0x3C2, 0x3C3}, {0xB5, 0x3BC},
                                                   {0x1C5, 0x1C4}};
    for (const auto& [a, b] : pairs) {
        EXPECT_TRUE(host(a)->equals(host(b))) << a << " " << b;
    }
    EXPECT_FALSE(host(0xE9)->equals(host(0xE8)));
}

// A host of which the wrapped range keeps "%4" alone.
ustring hostCutInAnEscape() {
    ustring text = textIn<char16>("//%41");
    text.append(65535, u'a');
    return text;
}

TEST(URIEquals, MeetsTheEndOfAWrappedHostFirst) {
    const auto uri = URI::create(hostCutInAnEscape());
    ASSERT_EQ(uri->getRawHost(), u"%4"_u);
    EXPECT_EQ(thrownMessage<AssertionError>([&] { uri->equals(uri); }), NO_HEX_DIGIT);
    EXPECT_EQ(thrownMessage<AssertionError>([&] { uri->compareTo(uri); }), NO_HEX_DIGIT);
    EXPECT_EQ(thrownMessage<AssertionError>([&] { uri->equals(URI::create(hostCutInAnEscape())); }),
              NO_HEX_DIGIT);
    EXPECT_FALSE(uri->equals(uriOf("s:")));
}

TEST(URIEquals, StopsAtTheEndOfAWrappedComponent) {
    const auto query = [](const char* front, std::size_t size) {
        ustring text = textIn<char16>(front);
        text.append(size - text.size(), u'a');
        return URI::create(text);
    };
    const auto cut = query("?%41", 65536 + 3); // "%4"
    const auto other = query("?%42", 65536 + 3);
    ASSERT_EQ(cut->getRawQuery(), u"%4"_u);
    EXPECT_TRUE(cut->equals(cut));
    EXPECT_EQ(cut->compareTo(uriOf("?%41")), -1);
    EXPECT_EQ(uriOf("?%41")->compareTo(cut), 1);
    EXPECT_EQ(cut->compareTo(other), 0);
    EXPECT_TRUE(cut->equals(other));
}

} // namespace
