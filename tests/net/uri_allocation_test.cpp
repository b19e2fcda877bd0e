// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief How much memory `URI` takes from the heap, and what happens if there is none.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <new>
#include <optional>
#include <utility>

namespace {

using namespace orv::literals;
using orv::gref;
using orv::make_gref;
using orv::Optional;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URI;
using orv::net::URISyntaxError;

using Part = Optional<ustring_ref>;
constexpr std::nullopt_t NONE = std::nullopt;

const ustring_ref LONG = u"http://me@example.org:8080/a/path/of/some/length?and=a&query=b#top"_u;

// What a call allocates. What it gives lives until the count is taken.
template <class Call>
std::size_t blocksOf(Call call) {
    const std::size_t before = orvtest::allocations();
    const auto result = call();
    static_cast<void>(result);
    return orvtest::allocations() - before;
}

TEST(URIAllocation, TakesOneBlockForTheTextAndOneForTheObject) {
    EXPECT_EQ(blocksOf([] { return URI::create(LONG); }), 2U);
    EXPECT_EQ(blocksOf([] { return make_gref<URI>(LONG); }), 2U);
    EXPECT_EQ(blocksOf([] { return URI::tryCreate(LONG); }), 2U);
    // A text that the string holds in itself.
    EXPECT_EQ(blocksOf([] { return URI::create(u"a:b?c#d"_u); }), 1U);
}

TEST(URIAllocation, TakesAStringOverWithoutABlock) {
    ustring first(LONG);
    EXPECT_EQ(blocksOf([&] { return URI::create(std::move(first)); }), 1U);
    ustring second(LONG);
    EXPECT_EQ(blocksOf([&] { return URI::tryCreate(std::move(second)); }), 1U);
    ustring third(LONG);
    EXPECT_EQ(blocksOf([&] { return make_gref<URI>(std::move(third)); }), 1U);
}

TEST(URIAllocation, TellsWhatIsWrongWithoutABlock) {
    const ustring bad(u"http://example.org/a/path with/a/space"_u);
    EXPECT_EQ(blocksOf([&] { return URI::tryCreate(ustring_ref(bad)).index; }), 0U);
    EXPECT_EQ(blocksOf([&] { return URI::tryCreate(u"s://[::300.1.1.1]"_u).index; }), 0U);
}

TEST(URIAllocation, GivesViewsAndKindsWithoutABlock) {
    const gref<URI> uri = URI::create(LONG);
    EXPECT_EQ(blocksOf([&] {
                  std::size_t units = uri->getScheme().size() + uri->getRawAuthority().size() +
                                      uri->getRawUserInfo().size() + uri->getRawHost().size() +
                                      uri->getRawPort().size() + uri->getRawPath().size() +
                                      uri->getRawQuery().size() + uri->getRawFragment().size() +
                                      uri->getRawSchemeSpecificPart().size() +
                                      uri->toString().size();
                  for (const orv::net::EncodedText segment : uri->pathSegments()) {
                      units += segment.raw().size();
                  }
                  units += uri->isAbsolute() || uri->isOpaque() ? 1U : 0U;
                  return units + static_cast<std::size_t>(uri->getPort());
              }),
              0U);
}

TEST(URIAllocation, DecodesPlainTextIntoOneBlock) {
    const gref<URI> uri = URI::create(LONG);
    EXPECT_EQ(blocksOf([&] { return uri->getPath(); }), 1U);
    EXPECT_EQ(blocksOf([&] { return uri->toASCIIString(); }), 1U);
    EXPECT_EQ(blocksOf([&] { return uri->getFragment(); }), 0U);
}

TEST(URIAllocation, AssemblesPlainComponentsInOneBlock) {
    const auto make = [] {
        return make_gref<URI>(Part(u"http"_u), Part(u"user"_u), Part(u"::1"_u), Part(u"80"_u),
                              u"/a/path/of/some/length"_u, Part(u"query"_u), Part(u"fragment"_u));
    };
    EXPECT_EQ(blocksOf(make), 2U);
    EXPECT_EQ(blocksOf([] {
                  return make_gref<URI>(u"mailto"_u, u"someone@example.org"_u, Part(u"fragment"_u));
              }),
              2U);
}

// Runs the call with each of its allocations failing in turn, until it needs no more. Nothing may
// stay behind, and the call must work afterwards.
void failEach(const std::function<void()>& call) {
    call();
    const std::size_t live = orvtest::liveBlocks();
    std::size_t failures = 0;
    for (std::size_t n = 1;; ++n) {
        orvtest::failAllocation(n);
        try {
            call();
            orvtest::failAllocation(0);
            break;
        } catch (const std::bad_alloc&) {
            orvtest::failAllocation(0);
            ++failures;
        }
        // Coders that the character set keeps for the next call may be gone, and are made again.
        call();
        EXPECT_EQ(orvtest::liveBlocks(), live) << "allocation " << n;
    }
    EXPECT_GT(failures, 0U) << "the case must need memory";
}

TEST(URIOutOfMemory, LeavesNothingBehindWhenTextIsParsed) {
    failEach([] { EXPECT_EQ(URI::create(LONG)->toString(), LONG); });
    failEach([] { EXPECT_EQ(make_gref<URI>(LONG)->toString(), LONG); });
    failEach([] { EXPECT_EQ(URI::create(ustring(LONG))->toString(), LONG); });
    failEach([] { EXPECT_EQ(URI::tryCreate(LONG).uri->toString(), LONG); });
    failEach([] { EXPECT_TRUE(URI::tryCreate(ustring(LONG))); });
}

// Lets nothing but memory that runs out through.
template <class Call>
void refuse(Call call) {
    try {
        call();
    } catch (const URISyntaxError&) {
        return;
    }
    ADD_FAILURE() << "nothing thrown";
}

TEST(URIOutOfMemory, LeavesNothingBehindWhenAFailureIsTold) {
    failEach([] { refuse([] { URI::create(u"http://example.org/a b"_u); }); });
    failEach([] { refuse([] { URI::create(u"s://[::300.1.1.1]"_u); }); });
    failEach(
        [] { refuse([] { make_gref<URI>(NONE, NONE, NONE, Part(u"80"_u), u""_u, NONE, NONE); }); });
}

TEST(URIOutOfMemory, LeavesNothingBehindWhenComponentsAreAssembled) {
    failEach([] {
        const gref<URI> uri = make_gref<URI>(
            Part(u"http"_u), Part(u"\u00A0 \u00A0"_u), Part(u"b\u00FCcher.example"_u), 8080,
            u"/a path/with/many spaces and others"_u, Part(u"%%%%%%%%%%%%%%%%"_u), Part(u" "_u));
        EXPECT_EQ(uri->toString().back(), u'0');
    });
    failEach([] {
        EXPECT_TRUE(make_gref<URI>(u"mailto"_u, u"a b c d e f g h i j"_u, NONE)->isOpaque());
    });
}

TEST(URIOutOfMemory, LeavesTheObjectAsItWasWhenOthersAreMadeFromIt) {
    const gref<URI> base = URI::create(u"http://example.org/a/./b/../c/d%41?query#fragment"_u);
    const gref<URI> other = URI::create(u"../../x/y/z/../a?other#end"_u);
    const gref<URI> below = URI::create(u"http://example.org/a/c/d%41/e/f/g?other#end"_u);
    const gref<URI> folder = URI::create(u"http://example.org/a/c/d%41/"_u);
    const ustring before = base->toString();
    failEach([&] { EXPECT_NE(base->normalize(), nullptr); });
    failEach([&] { EXPECT_NE(base->resolve(other), nullptr); });
    failEach([&] { EXPECT_NE(base->resolve(u"../../x/y/z/../a?other#end"_u), nullptr); });
    failEach([&] { EXPECT_NE(folder->relativize(below), nullptr); });
    failEach([&] { EXPECT_EQ(base->getPath().size(), 14U); });
    failEach([&] { EXPECT_FALSE(base->toASCIIString().empty()); });
    EXPECT_EQ(base->toString(), before);
    EXPECT_EQ(base->getRawQuery(), u"query"_u);
    EXPECT_EQ(base->getRawFragment(), u"fragment"_u);
    EXPECT_EQ(base.useCount() + other.useCount() + below.useCount(), 3U);
}

TEST(URIOutOfMemory, LeavesNothingBehindWhenTextIsEscapedOrDecoded) {
    const gref<URI> uri = URI::create(
        u"//h/\u00E9\u00E9\u00E9\u00E9\u4E2D\u4E2D\u4E2D\u4E2D%C3%A9%E4%B8%AD%F0%9F%98%80"_u);
    failEach([&] { EXPECT_EQ(uri->toASCIIString().size(), 4U + 4 * 6 + 4 * 9 + 27); });
    failEach([&] { EXPECT_EQ(uri->getPath().size(), 13U); });
}

} // namespace
