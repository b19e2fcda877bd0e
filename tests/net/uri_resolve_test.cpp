// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Tests of `URI::normalize` and `URI::resolve`.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/detail/uri_path.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/reference/uri_model.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"
#include "tests/support/uri_of.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::gref;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URI;
using orvtest::narrowText;
using orvtest::textIn;
using orvtest::thrownMessage;
using orvtest::uriOf;

std::string normalized(std::string_view text) {
    return narrowText(uriOf(text)->normalize());
}

// Resolved as text and as an object, which must agree.
std::string resolved(std::string_view base, std::string_view text) {
    const auto fromText = uriOf(base)->resolve(textIn<char16>(text));
    const auto fromObject = uriOf(base)->resolve(uriOf(text));
    EXPECT_TRUE(fromText == fromObject) << base << " and " << text;
    EXPECT_EQ(fromText->toString(), fromObject->toString()) << base << " and " << text;
    return narrowText(fromText);
}

TEST(URINormalize, DropsDotSegmentsAndDoubleSlashes) {
    const std::pair<const char*, const char*> cases[] = {
        {"a/b/../c", "a/c"},
        {"/a/./b", "/a/b"},
        {"a//b", "a/b"},
        {"a/..", ""},
        {"a/b/..", "a/"}, // the slash stays
        {"a/b/../", "a/"},
        {"a/../..", ".."},
        {"a/../../b", "../b"},
        {"/a/..", "/"},
        {"/a/../..", "/.."},
        {"../a/..", "../"},
        {"/../a/../b", "/../b"},
        {".", ""},
        {"./", ""},
        {"./a", "a"},
        {"/.", "/"},
        {"a/.", "a/"},
        {"a/./", "a/"},
        {"a/.//./b", "a/b"},
        {"a/..//b", "b"},
        {"/a//../b", "/b"},
        {"s://h//", "s://h/"},
        {"s://u@h:1/a/../b?q/../r#f/./g", "s://u@h:1/b?q/../r#f/./g"},
        {"s://h/..//..", "s://h/../.."},
        {"//h/./?", "//h/?"},
        {"a/...", "a/..."},
        {"a/.../..", "a/"},
        {"x/%2E%2E/y//", "x/%2E%2E/y/"}, // escaped dots are names
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(normalized(text), expected) << text;
        EXPECT_EQ(normalized(expected), expected) << text;
    }
}

TEST(URINormalize, GivesANormalObjectItself) {
    for (const char* const text :
         {"", "/", "a", "a/", "/a/b/", "../a", "/..", "../../a", "s://h", "s://h/a", "...",
          "a/..b/.c", "urn:a/../b", "urn:.", "mailto:a//b", "?a/../b", "s://h/..", "a:b"}) {
        const auto uri = uriOf(text);
        EXPECT_EQ(uri->normalize().get(), uri.get()) << text;
        EXPECT_EQ(uri->normalize().get(), uri.get()) << text;
    }
}

TEST(URINormalize, KeepsAColonFromEndingAScheme) {
    EXPECT_EQ(normalized("x/../a:b"), "./a:b");
    EXPECT_EQ(normalized("x/../:"), "./:");
    EXPECT_EQ(normalized("x/../a:b/c"), "./a:b/c");
    EXPECT_EQ(normalized("x/../a/b:c"), "a/b:c");
    EXPECT_EQ(normalized("/x/../a:b"), "/a:b");
    EXPECT_EQ(normalized("x/.././/./a:b"), "./a:b");
}

TEST(URINormalize, RewritesAPathThatMustBeginWithADotToTheSameTextAsMeant) {
    const auto uri = uriOf("./a:b");
    const auto normal = uri->normalize();
    EXPECT_EQ(narrowText(normal), "./a:b");
    EXPECT_NE(normal.get(), uri.get());
    EXPECT_EQ(normal->normalize().get(), normal.get());
}

TEST(URINormalize, KnowsThatItsResultIsNormal) {
    const auto normal = uriOf("a//b")->normalize();
    EXPECT_EQ(normal->normalize().get(), normal.get());
}

// Calls `check` with each text of up to `size` units of the alphabet.
template <typename Check>
void forEachPath(std::size_t size, Check check) {
    const ustring alphabet = textIn<char16>("/.a:");
    ustring path;
    const auto extend = [&](const auto& self) -> void {
        check(std::as_const(path));
        if (path.size() < size && !testing::Test::HasFatalFailure()) {
            for (const char16 c : alphabet) {
                path.push_back(c);
                self(self);
                path.pop_back();
            }
        }
    };
    extend(extend);
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t LONGEST_PATH = 6;
#else
constexpr std::size_t LONGEST_PATH = 9;
#endif

TEST(URINormalize, AgreesWithTheModelOnAllShortPaths) {
    forEachPath(LONGEST_PATH, [](const ustring& path) {
        ASSERT_EQ(orv::net::detail::isNormalizedPath(path), orvtest::isNormalPath(path))
            << narrowText(path);
        orv::net::detail::PathText text(path.size());
        text.append(path);
        text.normalize();
        ASSERT_EQ(text.view(), orvtest::normalPath(path)) << narrowText(path);
    });
}

TEST(URINormalize, AgreesWithTheModelOnLongPaths) {
    // On both sides of the size to which a path is kept without an allocation.
    for (std::size_t size = 240; size < 270; ++size) {
        ustring path = textIn<char16>("x/../a:b/");
        while (path.size() < size) {
            path += textIn<char16>(path.size() % 7 == 0   ? "./"
                                   : path.size() % 5 == 0 ? "../"
                                                          : "n/");
        }
        path.resize(size);
        ASSERT_EQ(URI::create(path)->normalize()->toString(), orvtest::normalPath(path)) << size;
    }
}

TEST(URIResolve, ResolvesAgainstAHierarchy) {
    const char* const base = "s://a/b/c";
    EXPECT_EQ(resolved(base, "d"), "s://a/b/d");
    EXPECT_EQ(resolved(base, "../d"), "s://a/d");
    EXPECT_EQ(resolved(base, "#f"), "s://a/b/c#f");
    EXPECT_EQ(resolved(base, ""), "s://a/b/");
    EXPECT_EQ(resolved(base, "?q"), "s://a/b/?q");
    EXPECT_EQ(resolved("s://a/b/c?q", ""), "s://a/b/");
    EXPECT_EQ(resolved("s://a", "d"), "s://a/d");
    EXPECT_EQ(resolved("s://a", ""), "s://a/");
    EXPECT_EQ(resolved("s://a", "./b:c"), "s://a/b:c");
}

TEST(URIResolve, ResolvesAgainstRelativeReferences) {
    EXPECT_EQ(resolved("a/b", "c"), "a/c");
    EXPECT_EQ(resolved("a", "b"), "b");
    EXPECT_EQ(resolved("a", "./b:c"), "./b:c");
    EXPECT_EQ(resolved("", "b"), "b");
    EXPECT_EQ(resolved("", ""), "");
    EXPECT_EQ(resolved("a/b", "../../c"), "../c");
    EXPECT_EQ(resolved("?x", "b?y"), "b?y");
    EXPECT_EQ(resolved("/a/b", "c"), "/a/c");
}

TEST(URIResolve, ChangesTheFragmentAlone) {
    EXPECT_EQ(resolved("s://a/b?q#old", "#new"), "s://a/b?q#new");
    EXPECT_EQ(resolved("s://a/b?q#old", "#"), "s://a/b?q#");
    EXPECT_EQ(resolved("s://a/b/../c//d", "#f"), "s://a/b/../c//d#f"); // and keeps the path
    EXPECT_EQ(resolved("s://a/b?q", "?#f"), "s://a/?#f");
    EXPECT_EQ(resolved("s://u@a:1/b?q", "//h#f"), "s://h#f");
}

TEST(URIResolve, NormalisesWhatIsLeftToNormalise) {
    // What is known of a path follows it from object to object.
    const auto base = uriOf("s://a/b/../c");
    EXPECT_EQ(narrowText(base->resolve(u"#f"_u)->normalize()), "s://a/c#f");
    EXPECT_EQ(narrowText(base->normalize()), "s://a/c");
    EXPECT_EQ(narrowText(base->resolve(u"#f"_u)->normalize()), "s://a/c#f");
    const auto normal = base->normalize()->resolve(u"#f"_u);
    EXPECT_EQ(normal->normalize().get(), normal.get());
    const auto ref = uriOf("/x/../y");
    EXPECT_EQ(narrowText(ref->normalize()), "/y");
    EXPECT_EQ(narrowText(base->resolve(ref)->normalize()), "s://a/y");
    EXPECT_EQ(narrowText(base->resolve(u"//h/./z"_u)->normalize()), "s://h/z");
}

TEST(URIResolve, TakesTheAuthorityOfTheReferenceWhole) {
    EXPECT_EQ(resolved("s://u@a:1/b?q#f", "//h"), "s://h");
    EXPECT_EQ(resolved("s://u@a:1/b?q#f", "//v@h:2/c/../d?r"), "s://v@h:2/c/../d?r");
    EXPECT_EQ(resolved("s://u@a:1/b?q#f", "/c"), "s://u@a:1/c");
    EXPECT_EQ(resolved("s://u@a:1/b?q#f", "//"), "s://");
    EXPECT_EQ(resolved("/b", "//h"), "//h");
}

TEST(URIResolve, KeepsDotSegmentsOfAbsolutePathsAsMeant) {
    EXPECT_EQ(resolved("s://a/b/c", "/d/../e/./f"), "s://a/d/../e/./f");
    EXPECT_EQ(resolved("s://a/b/c", "//h/../x//y"), "s://h/../x//y");
}

TEST(URIResolve, GivesAbsoluteReferencesThemselves) {
    const auto base = uriOf("s://a/b");
    const auto absolute = uriOf("t:x/../y");
    EXPECT_EQ(base->resolve(absolute).get(), absolute.get());
    EXPECT_EQ(resolved("s://a/b", "s:c"), "s:c");
    EXPECT_EQ(resolved("s://a/b", "T://h/./x"), "T://h/./x");
}

TEST(URIResolve, GivesReferencesThemselvesBehindAnOpaqueBase) {
    const auto base = uriOf("urn:x");
    const auto ref = uriOf("y");
    EXPECT_EQ(base->resolve(ref).get(), ref.get());
    EXPECT_EQ(resolved("urn:x", "y"), "y");
    EXPECT_EQ(resolved("urn:x", "s://z"), "s://z");
    EXPECT_EQ(resolved("urn:x", "#f"), "#f");
    EXPECT_EQ(resolved("urn:x", ""), "");
}

TEST(URIResolve, RefusesNull) {
    EXPECT_EQ(thrownMessage<orv::AssertionError>([] { uriOf("s://a")->resolve(gref<URI>()); }),
              "resolve[1350]: assertion failed");
    EXPECT_EQ(thrownMessage<orv::AssertionError>([] { uriOf("urn:a")->resolve(gref<URI>()); }),
              "resolve[1350]: assertion failed");
}

TEST(URIResolve, RefusesTextThatIsNoReference) {
    const auto base = uriOf("s://a/b");
    const auto messageOf = [&](std::string_view text, auto error) {
        return thrownMessage<decltype(error)>(
            [&] { base->resolve(ustring_ref(textIn<char16>(text))); });
    };
    EXPECT_EQ(messageOf("s://a b", std::invalid_argument("")), "unexpected character");
    EXPECT_EQ(messageOf("a b", std::invalid_argument("")), "unexpected character");
    EXPECT_EQ(messageOf("a[", orv::ParseError("", 0)), "unexpected character at end of URI");
    EXPECT_EQ(base->resolve(u"c"_u)->toString(), u"s://a/c"_u);
    // As text for a new URI the same are syntax errors.
    for (const char* const text : {"s://a b", "a b", "a[", "//[::1.2.3.256]", "//[::g]"}) {
        EXPECT_THROW(uriOf(text), orv::net::URISyntaxError) << text;
    }
}

TEST(URIResolve, PassesErrorsOfTheParserOnAsTheyAre) {
    const auto base = uriOf("s://a/b");
    try {
        base->resolve(u"//[::g]/"_u);
        ADD_FAILURE();
    } catch (const orv::ParseError& e) {
        const auto same = URI::tryCreate(u"//[::g]/"_u);
        EXPECT_EQ(typeid(e), typeid(orv::ParseError));
        EXPECT_EQ(e.what(), same.reason.to_string());
        EXPECT_EQ(e.getErrorOffset(), same.index);
    }
    try {
        base->resolve(u"//[::1.2.3.256]/"_u);
        ADD_FAILURE();
    } catch (const orv::OutOfRangeError& e) {
        EXPECT_EQ(e.what(), URI::tryCreate(u"//[::1.2.3.256]/"_u).reason.to_string());
    }
}

TEST(URIResolve, TakesARealFFFFForAnUnexpectedCharacter) {
    const auto base = uriOf("s://a/b");
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { base->resolve(u"c\uFFFF"_u); }),
              "unexpected character");
}

struct RFCCase {
    const char* reference;
    const char* inRFC; ///< RFC 3986, sections 5.4.1 and 5.4.2
    const char* here;  ///< null: the same
};

// Where the result differs, it is meant to. An empty path is merged like any other, where the RFC
// keeps the base's path; ".." segments above the root stay; dot segments stay in paths that begin
// with "/".
const RFCCase RFC_CASES[] = {
    // 5.4.1
    {"g:h", "g:h", nullptr},
    {"g", "http://a/b/c/g", nullptr},
    {"./g", "http://a/b/c/g", nullptr},
    {"g/", "http://a/b/c/g/", nullptr},
    {"/g", "http://a/g", nullptr},
    {"//g", "http://g", nullptr},
    {"?y", "http://a/b/c/d;p?y", "http://a/b/c/?y"}, // differs: empty path
    {"g?y", "http://a/b/c/g?y", nullptr},
    {"#s", "http://a/b/c/d;p?q#s", nullptr},
    {"g#s", "http://a/b/c/g#s", nullptr},
    {"g?y#s", "http://a/b/c/g?y#s", nullptr},
    {";x", "http://a/b/c/;x", nullptr},
    {"g;x", "http://a/b/c/g;x", nullptr},
    {"g;x?y#s", "http://a/b/c/g;x?y#s", nullptr},
    {"", "http://a/b/c/d;p?q", "http://a/b/c/"}, // differs: empty path
    {".", "http://a/b/c/", nullptr},
    {"./", "http://a/b/c/", nullptr},
    {"..", "http://a/b/", nullptr},
    {"../", "http://a/b/", nullptr},
    {"../g", "http://a/b/g", nullptr},
    {"../..", "http://a/", nullptr},
    {"../../", "http://a/", nullptr},
    {"../../g", "http://a/g", nullptr},
    // 5.4.2
    {"../../../g", "http://a/g", "http://a/../g"},       // differs: above the root
    {"../../../../g", "http://a/g", "http://a/../../g"}, // differs: above the root
    {"/./g", "http://a/g", "http://a/./g"},              // differs: begins with "/"
    {"/../g", "http://a/g", "http://a/../g"},            // differs: begins with "/"
    {"g.", "http://a/b/c/g.", nullptr},
    {".g", "http://a/b/c/.g", nullptr},
    {"g..", "http://a/b/c/g..", nullptr},
    {"..g", "http://a/b/c/..g", nullptr},
    {"./../g", "http://a/b/g", nullptr},
    {"./g/.", "http://a/b/c/g/", nullptr},
    {"g/./h", "http://a/b/c/g/h", nullptr},
    {"g/../h", "http://a/b/c/h", nullptr},
    {"g;x=1/./y", "http://a/b/c/g;x=1/y", nullptr},
    {"g;x=1/../y", "http://a/b/c/y", nullptr},
    {"g?y/./x", "http://a/b/c/g?y/./x", nullptr},
    {"g?y/../x", "http://a/b/c/g?y/../x", nullptr},
    {"g#s/./x", "http://a/b/c/g#s/./x", nullptr},
    {"g#s/../x", "http://a/b/c/g#s/../x", nullptr},
    {"http:g", "http:g", nullptr},
};

TEST(URIResolve, ResolvesTheExamplesOfTheRFCButForWhatIsMeantToDiffer) {
    for (const RFCCase& c : RFC_CASES) {
        EXPECT_EQ(resolved("http://a/b/c/d;p?q", c.reference), c.here == nullptr ? c.inRFC : c.here)
            << c.reference;
        EXPECT_TRUE(c.here == nullptr || std::string_view(c.here) != c.inRFC) << c.reference;
    }
}

TEST(URIResolve, ReadsLongTextsWithinTheirBounds) {
    for (const std::size_t size : {65535U, 65536U, 65537U, 131072U, 10000000U}) {
        ustring text = textIn<char16>("s://h/a/../");
        text.append(size - text.size(), u'b');
        const auto uri = URI::create(text);
        const auto resolvedURI = uri->resolve(u"c/./d"_u);
        EXPECT_LE(resolvedURI->toString().size(), size + 16);
        EXPECT_LE(uri->normalize()->toString().size(), size + 16);
        EXPECT_NO_THROW(uri->relativize(resolvedURI));
        EXPECT_NO_THROW(resolvedURI->resolve(text.substr(7)));
    }
    // Up to 16 bits all is kept.
    ustring text = textIn<char16>("s://h/a/../");
    text.append(65535 - text.size(), u'b');
    EXPECT_EQ(URI::create(text)->normalize()->toString().size(), 65535U - 5);
}

} // namespace
