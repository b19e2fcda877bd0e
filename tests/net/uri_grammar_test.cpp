// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random sentences of the grammar parse into their components, and broken ones fail at the
/// place where they are broken.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/net/uri_parser.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/case_count.h"
#include "tests/support/uri_near_miss.h"
#include "tests/support/uri_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <typeinfo>

namespace {

using orv::BasicCharIterator;
using orv::char16;
using orv::ParseError;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URI;
using orv::net::URIParser;
using orv::net::URIResult;
using orv::net::URISyntaxError;
using orvtest::AddressTrap;
using orvtest::caseCount;
using orvtest::nearMissOf;
using orvtest::stopIfEndedAt;
using orvtest::trapAt;
using orvtest::UNEXPECTED;
using orvtest::UNEXPECTED_AT_END;
using orvtest::UriNearMiss;
using orvtest::UriRange;
using orvtest::UriSentence;
using orvtest::UriSource;

using namespace orv::literals;

constexpr const char* ABSENT = "absent";

// The units, those beyond ASCII as \uXXXX.
std::string shown(ustring_ref text) {
    std::string result;
    for (const char16 unit : text) {
        const auto value = static_cast<unsigned>(unit);
        if (value < 128) {
            result.push_back(static_cast<char>(value));
        } else {
            constexpr const char* DIGITS = "0123456789ABCDEF";
            result += "\\u";
            for (unsigned shift = 16; shift > 0; shift -= 4) {
                result.push_back(DIGITS[value >> (shift - 4) & 15U]);
            }
        }
    }
    return result;
}

// A component as it was made, and as it is read: by place, not by content.
::testing::AssertionResult isPart(const char* name, const ustring& text, ustring_ref part,
                                  std::optional<UriRange> expected) {
    if (part.data() == nullptr && !expected) {
        return ::testing::AssertionSuccess();
    }
    if (part.data() != nullptr && expected && part.data() == text.data() + expected->begin &&
        part.size() == expected->end - expected->begin) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << name << " of " << shown(text) << " is "
           << (part.data() == nullptr ? ABSENT : shown(part)) << " instead of "
           << (expected ? shown(ustring_ref(text).substr(expected->begin,
                                                         expected->end - expected->begin))
                        : ABSENT);
}

// The same accessors, but for the text that those of a parser take.
struct OfParser {
    const URIParser& parsed;
    ustring_ref text;

    ustring_ref getScheme() const { return parsed.getScheme(text); }
    ustring_ref getRawSchemeSpecificPart() const { return parsed.getRawSchemeSpecificPart(text); }
    ustring_ref getRawAuthority() const { return parsed.getRawAuthority(text); }
    ustring_ref getRawUserInfo() const { return parsed.getRawUserInfo(text); }
    ustring_ref getRawHost() const { return parsed.getRawHost(text); }
    ustring_ref getRawPort() const { return parsed.getPort(text); }
    ustring_ref getRawPath() const { return parsed.getRawPath(text); }
    ustring_ref getRawQuery() const { return parsed.getRawQuery(text); }
    ustring_ref getRawFragment() const { return parsed.getRawFragment(text); }
    bool isRelativePathReference() const { return parsed.isRelativePathReference(); }
    bool isAbsolutePathReference() const { return parsed.isAbsolutePathReference(); }
    bool isNetworkPathReference() const { return parsed.isNetworkPathReference(); }
    bool isAbsoluteURI() const { return parsed.isAbsoluteURI(); }
};

template <class Uri>
void expectParts(const Uri& uri, const ustring& text, const UriSentence& s) {
    EXPECT_TRUE(isPart("scheme", text, uri.getScheme(), s.scheme));
    EXPECT_TRUE(
        isPart("scheme-specific part", text, uri.getRawSchemeSpecificPart(), s.schemeSpecificPart));
    EXPECT_TRUE(isPart("authority", text, uri.getRawAuthority(), s.authority));
    EXPECT_TRUE(isPart("user info", text, uri.getRawUserInfo(), s.userInfo));
    EXPECT_TRUE(isPart("host", text, uri.getRawHost(), s.host));
    EXPECT_TRUE(isPart("port", text, uri.getRawPort(), s.port));
    EXPECT_TRUE(isPart("path", text, uri.getRawPath(), s.path));
    EXPECT_TRUE(isPart("query", text, uri.getRawQuery(), s.query));
    EXPECT_TRUE(isPart("fragment", text, uri.getRawFragment(), s.fragment));

    EXPECT_EQ(uri.isRelativePathReference(), !s.scheme && !s.hierarchical) << shown(text);
    EXPECT_EQ(uri.isAbsolutePathReference(), !s.scheme && s.hierarchical && !s.authority)
        << shown(text);
    EXPECT_EQ(uri.isNetworkPathReference(), !s.scheme && s.authority) << shown(text);
    EXPECT_EQ(uri.isAbsoluteURI(), s.scheme && !s.fragment) << shown(text);
}

void expectParsed(const URIParser& parsed, const UriSentence& sentence) {
    expectParts(OfParser{parsed, sentence.text}, sentence.text, sentence);
    EXPECT_EQ(parsed.isOpaque(), sentence.scheme && !sentence.hierarchical) << shown(sentence.text);
}

// What a call of the parser comes to: the position where it stopped, or the reason it threw with.
struct Outcome {
    std::size_t position = 0;
    std::string reason; // empty: it stopped
    bool outOfRange = false;

    friend bool operator==(const Outcome&, const Outcome&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Outcome& outcome) {
        return os << '"' << outcome.reason << "\" at " << outcome.position;
    }
};

template <class Parse>
Outcome outcomeOf(const ustring& text, Parse parse) {
    BasicCharIterator<char16> it{ustring_ref(text)};
    try {
        parse(it);
        return {it.position(), "", false};
    } catch (const ParseError& e) {
        EXPECT_EQ(it.position(), e.getErrorOffset()) << shown(text);
        return {e.getErrorOffset(), e.what(), typeid(e) == typeid(orv::OutOfRangeError)};
    }
}

Outcome outcomeOfReference(const ustring& text, bool asciiOnly) {
    return outcomeOf(text, [asciiOnly](BasicCharIterator<char16>& it) {
        URIParser::parseURIReference(it, asciiOnly);
    });
}

Outcome outcomeOfUri(const ustring& text, bool asciiOnly) {
    return outcomeOf(
        text, [asciiOnly](BasicCharIterator<char16>& it) { URIParser::parseURI(it, asciiOnly); });
}

bool isBeyondAscii(char16 unit) {
    return static_cast<unsigned>(unit) > 127;
}

TEST(URIGrammar, EverySentenceParsesIntoItsComponents) {
    UriSource source(1, true);
    for (std::size_t i = caseCount(120'000); i > 0 && !HasFailure(); --i) {
        const UriSentence sentence = source.uriReference();
        const URIResult result = URI::tryCreate(ustring_ref(sentence.text));
        ASSERT_TRUE(result) << shown(sentence.text) << ": " << result.reason << " at "
                            << result.index;
        const URI& uri = *result.uri;
        ASSERT_EQ(uri.toString(), sentence.text);
        expectParts(uri, uri.toString(), sentence);
    }
}

TEST(URIGrammar, EverySentenceParsesOutOfALongerText) {
    UriSource source(2, true);
    for (std::size_t i = caseCount(60'000); i > 0 && !HasFailure(); --i) {
        UriSentence sentence = source.uriReference();
        const std::size_t length = sentence.text.size();
        if (source.numbers().coin()) {
            sentence.text += u" and so on"_u;
        }
        BasicCharIterator<char16> it{ustring_ref(sentence.text)};
        expectParsed(*URIParser::parseURIReference(it, false), sentence);
        EXPECT_EQ(it.position(), length) << shown(sentence.text);
        if (sentence.scheme) {
            it.setPosition(0);
            expectParsed(*URIParser::parseURI(it, false), sentence);
            EXPECT_EQ(it.position(), length) << shown(sentence.text);
        }
    }
}

TEST(URIGrammar, EverySentenceInAsciiParsesAsAscii) {
    UriSource source(3, false);
    for (std::size_t i = caseCount(60'000); i > 0 && !HasFailure(); --i) {
        const UriSentence sentence = source.uriReference();
        BasicCharIterator<char16> it{ustring_ref(sentence.text)};
        expectParsed(*URIParser::parseURIReference(it), sentence);
        EXPECT_TRUE(it.atEnd()) << shown(sentence.text);
        if (sentence.scheme) {
            it.setPosition(0);
            expectParsed(*URIParser::parseURI(it), sentence);
            EXPECT_TRUE(it.atEnd()) << shown(sentence.text);
        }
    }
}

TEST(URIGrammar, SentencesBeyondAsciiEndOrFailAtTheFirstSuchUnitWhereOnlyAsciiIsAllowed) {
    UriSource source(4, true);
    for (std::size_t i = caseCount(60'000); i > 0 && !HasFailure(); --i) {
        const UriSentence sentence = source.uriReference();
        const auto beyond = std::find_if(sentence.text.begin(), sentence.text.end(), isBeyondAscii);
        if (beyond == sentence.text.end()) {
            continue;
        }
        const auto at = static_cast<std::size_t>(beyond - sentence.text.begin());
        Outcome expected{at, "", false};
        if (const AddressTrap* const trap = trapAt(sentence, at)) {
            expected.reason = trap->soft;
        } else if (const std::size_t stop = stopIfEndedAt(sentence, at); stop != at) {
            expected = {stop, UNEXPECTED_AT_END, false};
        }
        EXPECT_EQ(outcomeOfReference(sentence.text, true), expected) << shown(sentence.text);
    }
}

TEST(URIGrammar, EveryBrokenSentenceFailsAtTheBreakForItsReason) {
    UriSource source(5, true);
    for (std::size_t i = caseCount(200'000); i > 0 && !HasFailure(); --i) {
        const UriNearMiss miss = nearMissOf(source);
        const URIResult result = URI::tryCreate(ustring_ref(miss.text));
        ASSERT_FALSE(result) << shown(miss.text) << " is to fail: " << miss.reason << " at "
                             << miss.index;
        EXPECT_EQ(std::string(result.reason.data(), result.reason.size()), miss.reason)
            << shown(miss.text) << " at " << result.index << ", is to be " << miss.index;
        EXPECT_EQ(result.index, miss.index) << shown(miss.text) << ": " << miss.reason;
    }
}

TEST(URIGrammar, ABrokenSentenceIsThrownWithItsBreakAndReason) {
    UriSource source(6, true);
    for (std::size_t i = caseCount(10'000); i > 0 && !HasFailure(); --i) {
        const UriNearMiss miss = nearMissOf(source);
        try {
            URI::create(ustring_ref(miss.text));
            ADD_FAILURE() << shown(miss.text) << " is to fail";
        } catch (const URISyntaxError& e) {
            EXPECT_EQ(shown(e.getReason()), miss.reason) << shown(miss.text);
            EXPECT_EQ(e.getIndex(), static_cast<int>(miss.index)) << shown(miss.text);
            EXPECT_EQ(e.getInput(), miss.text);
        }
    }
}

// Of a parser that needs a scheme, where there is none.
std::optional<Outcome> missingScheme(const ustring& text) {
    const auto isSchemeUnit = [](char16 unit) {
        const std::string units =
            "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.";
        return static_cast<unsigned>(unit) < 128 &&
               units.find(static_cast<char>(unit)) != std::string::npos;
    };
    const auto end = std::find_if_not(text.begin(), text.end(), isSchemeUnit);
    if (end == text.begin() || (text[0] < u'A')) {
        return Outcome{0, "<ALPHA> expected", false};
    }
    if (end == text.end() || *end != u':') {
        return Outcome{static_cast<std::size_t>(end - text.begin()), "':' expected", false};
    }
    return std::nullopt;
}

TEST(URIGrammar, TheParserEndsBeforeUnitsThatMayFollowAndFailsAtThoseThatMayNot) {
    UriSource source(7, true);
    for (std::size_t i = caseCount(20'000); i > 0 && !HasFailure(); --i) {
        const UriNearMiss miss = nearMissOf(source);
        const bool mayFollow = std::string(miss.reason) == UNEXPECTED;
        const Outcome expected{miss.index, mayFollow ? "" : miss.reason, miss.outOfRange};
        EXPECT_EQ(outcomeOfReference(miss.text, false), expected) << shown(miss.text);
        EXPECT_EQ(outcomeOfUri(miss.text, false), missingScheme(miss.text).value_or(expected))
            << shown(miss.text);
    }
}

} // namespace
