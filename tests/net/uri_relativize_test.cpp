// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Tests of `URI::relativize`.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/uri.h"
#include "tests/support/thrown_message.h"
#include "tests/support/uri_of.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using orv::net::URI;
using orvtest::narrowText;
using orvtest::uriOf;

// The relative URI, or "(other)" if it is the other itself.
std::string way(std::string_view base, std::string_view text) {
    const auto other = uriOf(text);
    const auto result = uriOf(base)->relativize(other);
    return result.get() == other.get() ? "(other)" : narrowText(result);
}

TEST(URIRelativize, GivesTheRestOfThePath) {
    EXPECT_EQ(way("s://a/b/", "s://a/b/c/d"), "c/d");
    EXPECT_EQ(way("s://a/b", "s://a/b/c"), "c");
    EXPECT_EQ(way("s://a", "s://a/b"), "b");
    EXPECT_EQ(way("s://a/", "s://a/b"), "b");
    EXPECT_EQ(way("s://a", "s://a/"), "");
    EXPECT_EQ(way("s://a/b", "s://a/b/"), "");
    EXPECT_EQ(way("/b", "/b/c/"), "c/");
    EXPECT_EQ(way("b", "b/c"), "c");
    EXPECT_EQ(way("", "/c"), "c");
    EXPECT_EQ(way("/..", "/../a"), "a");
    EXPECT_EQ(way("/", "/../a"), "../a");
}

TEST(URIRelativize, GivesTheOtherWhereItDoesNotLieBelow) {
    EXPECT_EQ(way("s://a/b", "s://a/bc"), "(other)");
    EXPECT_EQ(way("s://a/b/", "s://a/b"), "(other)");
    EXPECT_EQ(way("s://a/b/", "s://a/c"), "(other)");
    EXPECT_EQ(way("s://a/b/c", "s://a/b/d"), "(other)");
    EXPECT_EQ(way("s://a/b", "s://a/B/c"), "(other)");
    EXPECT_EQ(way("s://a/%7e", "s://a/%7E/c"), "(other)"); // the start must be exactly the same
    EXPECT_EQ(way("", "c"), "(other)");
    EXPECT_EQ(way("b", "/b/c"), "(other)");
}

TEST(URIRelativize, GivesTheOtherOfAnotherAuthority) {
    EXPECT_EQ(way("s://a/", "t://a/b"), "(other)");
    EXPECT_EQ(way("s://a/", "//a/b"), "(other)");
    EXPECT_EQ(way("s://a/", "s://b/b"), "(other)");
    EXPECT_EQ(way("s://a/", "s:/b"), "(other)");
    EXPECT_EQ(way("s://u@a/", "s://v@a/b"), "(other)");
    EXPECT_EQ(way("s://u@a/", "s://a/b"), "(other)");
    EXPECT_EQ(way("s://a:1/", "s://a:2/b"), "(other)");
    EXPECT_EQ(way("s://a:1/", "s://a/b"), "(other)");
}

TEST(URIRelativize, TakesOtherSpellingsOfTheAuthority) {
    EXPECT_EQ(way("S://A:080/", "s://a:80/b"), "b");
    EXPECT_EQ(way("s://a:/", "s://%41/b"), "b");
    EXPECT_EQ(way("s://%4e@a/", "s://%4E@a/b"), "b");
}

TEST(URIRelativize, GivesTheOtherIfEitherIsOpaque) {
    EXPECT_EQ(way("urn:a", "urn:a"), "(other)");
    EXPECT_EQ(way("urn:a/", "urn:a/b"), "(other)");
    EXPECT_EQ(way("s:/", "s:b"), "(other)");
    EXPECT_EQ(way("s:b", "s:/"), "(other)");
}

TEST(URIRelativize, GivesAnEmptyPathForEqualOnes) {
    EXPECT_EQ(way("s://a/b", "s://a/b"), "");
    EXPECT_EQ(way("s://a/b?x#y", "s://a/b?q#f"), "?q#f");
    EXPECT_EQ(way("s://a/b?x#y", "s://a/b"), "");
    EXPECT_EQ(way("", ""), "");
    EXPECT_EQ(way("/", "/?"), "?");
    EXPECT_EQ(way("/", "/#"), "#");
}

TEST(URIRelativize, NormalisesBothPaths) {
    EXPECT_EQ(way("s://a/x/../b/", "s://a/b/c"), "c");
    EXPECT_EQ(way("s://a/b/", "s://a//b/./c/../d"), "d");
    EXPECT_EQ(way("s://a/b/..", "s://a/c"), "c");
    EXPECT_EQ(way("s://a/b/", "s://a/b/../c"), "(other)");
    EXPECT_EQ(way("a/../", "/c"), "c");
}

TEST(URIRelativize, GivesTheOtherAsItStands) {
    // Not its normal form.
    const auto other = uriOf("s://a/c//d");
    EXPECT_EQ(uriOf("s://a/b")->relativize(other).get(), other.get());
}

TEST(URIRelativize, MakesANormalReference) {
    const auto result = uriOf("s://a//b/")->relativize(uriOf("s://a/b//c/./d?q#f"));
    EXPECT_EQ(narrowText(result), "c/d?q#f");
    EXPECT_TRUE(result->isRelativePathReference());
    EXPECT_EQ(result->getRawHost().data(), nullptr);
    EXPECT_EQ(result->getRawPort().data(), nullptr);
    EXPECT_EQ(result->getRawUserInfo().data(), nullptr);
    EXPECT_EQ(result->normalize().get(), result.get());
}

TEST(URIRelativize, LeavesAColonInTheFirstSegmentAsMeant) {
    // As an object it is a relative path; its text would read as another URI.
    const auto base = uriOf("s://h/");
    const auto result = base->relativize(uriOf("s://h/b:c"));
    EXPECT_EQ(narrowText(result), "b:c");
    EXPECT_TRUE(result->isRelativePathReference());
    EXPECT_EQ(narrowText(result->getRawPath()), "b:c");
    EXPECT_EQ(narrowText(base->resolve(result)), "s://h/b:c");
    EXPECT_EQ(narrowText(base->resolve(result->toString())), "b:c");
}

TEST(URIRelativize, ComparesHostsAsEqualsDoes) {
    EXPECT_EQ(way("s://%42/", "s://-42/x"), "x"); // "-" is read for "%", as meant
    EXPECT_EQ(orvtest::thrownMessage<orv::AssertionError>([] { way("s://%61xyz/", "s://axyz/"); }),
              "toHexDigit[801]: assertion failed");
}

} // namespace
