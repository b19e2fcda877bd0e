// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What holds between the operations of `URI`, on random URIs.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/reference/uri_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/text_in.h"
#include "tests/support/uri_of.h"
#include "tests/support/uri_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::gref;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URI;
using orvtest::caseCount;
using orvtest::narrowText;
using orvtest::NumberSource;
using orvtest::textIn;
using orvtest::uriOf;

// URIs from few pieces, so that two of them have much in common.
class AlikeURIs {
public:
    explicit AlikeURIs(std::uint64_t seed) : numbers_(seed) {}

    gref<URI> next() {
        text_.clear();
        std::string authority =
            oneOf({"", "", "//a", "//A", "//u@a:80", "//u@A:080", "//b", "//%41"});
        put(oneOf({"", "", "s:", "S:", "t:"}));
        put(authority);
        path(!authority.empty());
        put(oneOf({"", "", "", "?", "?q", "?%7e", "?%7E"}));
        put(oneOf({"", "", "", "#", "#f", "#%7e", "#%7E"}));
        const auto result = URI::tryCreate(textIn<char16>(text_));
        // An empty segment at the front of a path may read as an authority.
        const bool good =
            result && (result.uri->getRawHost().data() == nullptr) == authority.empty();
        return good ? result.uri : next();
    }

    NumberSource& numbers() { return numbers_; }

private:
    const char* oneOf(const std::vector<const char*>& texts) {
        return texts[numbers_.below(static_cast<unsigned>(texts.size()))];
    }

    void put(std::string_view part) { text_ += part; }

    void path(bool behindAuthority) {
        if (behindAuthority || numbers_.coin()) {
            put(oneOf({"/", "/", "/a/", behindAuthority ? "" : "/"}));
        }
        if (text_.empty() || text_.back() == '/' || !behindAuthority) {
            for (unsigned i = numbers_.below(5); i > 0; --i) {
                put(oneOf({"a", "a", "b", "..", "..", ".", "", "%41", "b:c", "..."}));
                put(oneOf({"/", "/", ""}));
            }
        }
    }

    std::string text_;
    NumberSource numbers_;
};

TEST(URILaws, EqualURIsHashAlike) {
    AlikeURIs source(1);
    std::size_t equalPairs = 0;
    std::vector<gref<URI>> uris;
    for (std::size_t i = 0; i < 40 + caseCount(1000); ++i) {
        uris.push_back(source.next());
    }
    for (const auto& a : uris) {
        for (const auto& b : uris) {
            if (a->equals(b)) {
                ASSERT_EQ(a->hashCode(), b->hashCode()) << narrowText(a) << " " << narrowText(b);
                ASSERT_EQ(a->compareTo(b), 0) << narrowText(a) << " " << narrowText(b);
                equalPairs += a->toString() == b->toString() ? 0U : 1U;
            }
        }
    }
    EXPECT_GT(equalPairs, 0U);
}

TEST(URILaws, CompareToIsAntisymmetric) {
    AlikeURIs source(2);
    for (std::size_t i = caseCount(200000); i > 0; --i) {
        const auto a = source.next();
        const auto b = source.next();
        const int order = a->compareTo(b);
        const int reverse = b->compareTo(a);
        ASSERT_TRUE(order == -reverse) << narrowText(a) << " " << narrowText(b);
        ASSERT_EQ(a->equals(b), b->equals(a)) << narrowText(a) << " " << narrowText(b);
    }
}

TEST(URILaws, CompareToIsAntisymmetricWhereHostsMayFail) {
    orvtest::UriSource source(3, true);
    const auto orError = [](const auto& call) {
        try {
            return call();
        } catch (const orv::AssertionError&) {
            return 12345678;
        }
    };
    for (std::size_t i = caseCount(50000); i > 0; --i) {
        const auto a = URI::create(source.uriReference().text);
        const auto b = URI::create(source.uriReference().text);
        const int order = orError([&] { return a->compareTo(b); });
        const int reverse = orError([&] { return b->compareTo(a); });
        ASSERT_TRUE(order == -reverse || (order == reverse && order == 12345678));
    }
}

TEST(URILaws, NormaliseIsIdempotent) {
    AlikeURIs source(4);
    for (std::size_t i = caseCount(200000); i > 0; --i) {
        const auto uri = source.next();
        const auto once = uri->normalize();
        ASSERT_EQ(once->normalize().get(), once.get());
        // As text it is normal too, or is rewritten to itself.
        ASSERT_EQ(URI::create(once->toString())->normalize()->toString(), once->toString());
        if (!uri->isOpaque()) {
            ASSERT_EQ(once->getRawPath(), orvtest::normalPath(uri->getRawPath()));
        }
    }
}

TEST(URILaws, ResolvingTextIsResolvingTheObject) {
    AlikeURIs source(5);
    for (std::size_t i = caseCount(100000); i > 0; --i) {
        const auto base = source.next();
        const auto ref = source.next();
        const auto result = base->resolve(ref);
        ASSERT_EQ(base->resolve(ref->toString())->toString(), result->toString());
        ASSERT_EQ(result->isAbsolute(),
                  ref->isAbsolute() || (base->isAbsolute() && !base->isOpaque()));
        const ustring_ref path = ref->getRawPath();
        const bool merged = result.get() != ref.get() && ref->getRawHost().data() == nullptr &&
                            (path.empty() || path.front() != u'/');
        const bool fragmentAlone = path.empty() && ref->getRawFragment().data() != nullptr &&
                                   ref->getRawQuery().data() == nullptr;
        if (merged && !fragmentAlone) {
            ustring expected = base->getRawPath();
            if (expected.empty() && base->getRawHost().data() != nullptr) {
                expected = textIn<char16>("/");
            }
            expected.resize(expected.rfind(char16(u'/')) + 1);
            expected += path.to_string();
            ASSERT_EQ(result->getRawPath(), orvtest::normalPath(expected));
        }
    }
}

bool startsWith(ustring_ref text, ustring_ref front) {
    return text.size() >= front.size() && text.substr(0, front.size()) == front;
}

TEST(URILaws, ResolvingARelativizedURIGivesItBack) {
    AlikeURIs source(6);
    std::size_t ways = 0;
    for (std::size_t i = caseCount(300000); i > 0; --i) {
        const auto base = source.next();
        const auto other = source.next();
        const auto way = base->relativize(other);
        const ustring_ref path = way->getRawPath();
        const ustring_ref basePath = base->getRawPath();
        const ustring normalPath = orvtest::normalPath(basePath);
        if (way.get() == other.get() || path.empty() || startsWith(path, u"./"_u) ||
            startsWith(path, u"../"_u) || basePath.empty() || basePath.back() != u'/' ||
            normalPath.empty()) {
            continue;
        }
        ++ways;
        ASSERT_TRUE(base->resolve(way)->equals(other->normalize()))
            << narrowText(base) << " " << narrowText(other) << " " << narrowText(way);
    }
    EXPECT_GT(ways, 0U);
}

TEST(URILaws, ResolvingARelativizedURIGivesAnotherInTheseCasesAsMeant) {
    struct Case {
        const char* base;
        const char* other;
        const char* way;
        const char* back;
    };
    const Case cases[] = {
        // The base is a file: what is below it comes to stand beside it.
        {"s://a/b", "s://a/b/c", "c", "s://a/c"},
        {"s://a/b", "s://a/b", "", "s://a/"},
        {"s://a/b", "s://a/b?q", "?q", "s://a/?q"},
        // The base ends in "..", which does not count as a folder when paths are merged.
        {"s://a/b/..", "s://a/c", "c", "s://a/b/c"},
        // A fragment alone keeps the query of the base.
        {"s://a/b/?q", "s://a/b/#f", "#f", "s://a/b/?q#f"},
        // The path below a path that comes to nothing loses its root.
        {"", "/c", "c", "c"},
        {"a/../", "/c", "c", "c"},
        // The base's spelling of the authority stays.
        {"S://A:080/", "s://a:80/b", "b", "S://A:080/b"},
        // And the other one is normal.
        {"s://a/", "s://a/b//c", "b/c", "s://a/b/c"},
    };
    for (const Case& c : cases) {
        const auto base = uriOf(c.base);
        const auto way = base->relativize(uriOf(c.other));
        EXPECT_EQ(narrowText(way), c.way) << c.base << " " << c.other;
        EXPECT_EQ(narrowText(base->resolve(way)), c.back) << c.base << " " << c.other;
    }
}

TEST(URILaws, ASCIITextParsesAndIsEqualIfTheURIWasASCII) {
    orvtest::UriSource source(7, false);
    for (std::size_t i = caseCount(50000); i > 0; --i) {
        const auto uri = URI::create(source.uriReference().text);
        ASSERT_EQ(uri->toASCIIString(), uri->toString());
        ASSERT_TRUE(URI::create(uri->toASCIIString())->equals(uri));
    }
}

// Whether all that lies above 127 lies in the host.
bool isAsciiButForTheHost(const gref<URI>& uri) {
    const auto isAscii = [](ustring_ref text) {
        return std::all_of(text.begin(), text.end(), [](char16 c) { return c < u'\x80'; });
    };
    return isAscii(uri->getRawUserInfo()) && isAscii(uri->getRawPath()) &&
           isAscii(uri->getRawQuery()) && isAscii(uri->getRawFragment());
}

// Whether each surrogate has its partner; one alone is escaped as the replacement.
bool isWellFormed(ustring_ref text) {
    return orv::Charset::UTF_8->decode(orv::Charset::UTF_8->encode(text)) == text;
}

TEST(URILaws, ASCIITextBeyondASCIIParsesAndIsTheSameURIAsFarAsEscapesAreDecoded) {
    orvtest::UriSource source(8, true);
    std::size_t sameHosts = 0;
    for (std::size_t i = caseCount(50000); i > 0; --i) {
        const auto uri = URI::create(source.uriReference().text);
        const auto result = URI::tryCreate(uri->toASCIIString());
        if (!result) {
            // No escape may stand in an IP literal of a future version.
            ASSERT_EQ(uri->getRawHost().front(), u'[') << narrowText(uri);
            continue;
        }
        const gref<URI>& ascii = result.uri;
        ASSERT_EQ(ascii->toASCIIString(), ascii->toString());
        ASSERT_EQ(ascii->getScheme(), uri->getScheme());
        ASSERT_EQ(ascii->getRawPort(), uri->getRawPort());
        // Hosts are compared decoded, but all else by the unit.
        // Escaped bytes that are no UTF-8 may take those of the next unit with them.
        if (uri->getHost().find(char16(u'\uFFFD')) != ustring::npos) {
            continue;
        }
        const bool same = isAsciiButForTheHost(uri) && isWellFormed(uri->getRawHost());
        ASSERT_EQ(ascii == uri, same) << narrowText(uri);
        sameHosts += ascii == uri && ascii->toString() != uri->toString() ? 1U : 0U;
    }
    EXPECT_GT(sameHosts, 0U);
}

TEST(URILaws, EqualsTakesNoTextBeyondASCIIForItsEscapedFormAsMeant) {
    const auto check = [](ustring_ref text, const char* ascii) {
        const auto uri = URI::create(text);
        EXPECT_EQ(narrowText(uri->toASCIIString()), ascii);
        return uri->equals(uriOf(ascii));
    };
    EXPECT_FALSE(check(u"/\u00E9"_u, "/%C3%A9"));
    EXPECT_FALSE(check(u"?\u00E9"_u, "?%C3%A9"));
    // Hosts that are long enough are misread; a lone unit at the end is not.
    EXPECT_TRUE(check(u"//x\u00E9"_u, "//x%C3%A9"));
    EXPECT_FALSE(check(u"//\u00E9aa"_u, "//%C3%A9aa"));
    EXPECT_THROW(check(u"//\u00E9xy"_u, "//%C3%A9xy"), orv::AssertionError);
}

} // namespace
