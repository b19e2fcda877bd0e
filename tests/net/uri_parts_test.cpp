// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `EncodedText`, `PathSegments` and `QueryParameters`.
#include "orv/liborvxx/net/uri_parts.h"

#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/ustring.h"
#include "tests/support/case_count.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <random>
#include <ranges>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace orv::literals;
using orv::ustring;
using orv::ustring_ref;
using orv::net::EncodedText;
using orv::net::PathSegments;
using orv::net::PlusSign;
using orv::net::QueryParameter;
using orv::net::QueryParameters;
using testing::ElementsAre;
using testing::IsEmpty;

template <typename Range>
constexpr bool isAViewToWalkAgain =
    std::ranges::forward_range<Range>&& std::ranges::common_range<Range>&& std::ranges::view<
        Range>&& std::ranges::borrowed_range<Range>&& std::is_trivially_copyable_v<Range>;
static_assert(isAViewToWalkAgain<PathSegments> && isAViewToWalkAgain<QueryParameters>);
static_assert(!std::ranges::sized_range<PathSegments> &&
              !std::ranges::sized_range<QueryParameters>);
static_assert(std::is_same_v<std::ranges::range_value_t<PathSegments>, EncodedText> &&
              std::is_same_v<std::ranges::range_value_t<QueryParameters>, QueryParameter>);
// References are values, so older algorithms must not take the iterators for more than they are.
static_assert(std::is_same_v<std::iterator_traits<PathSegments::iterator>::iterator_category,
                             std::input_iterator_tag> &&
              std::is_same_v<std::iterator_traits<QueryParameters::iterator>::iterator_category,
                             std::input_iterator_tag>);
static_assert(!std::is_convertible_v<ustring_ref, PathSegments> &&
              !std::is_convertible_v<ustring_ref, QueryParameters> &&
              !std::is_convertible_v<ustring_ref, EncodedText>);

// Decoding.

ustring decoded(ustring_ref text, PlusSign plus = PlusSign::LITERAL) {
    return EncodedText(text).decoded(plus);
}

TEST(EncodedTextTest, KeepsTheTextAsItStands) {
    const ustring_ref text = u"a%20b"_u;
    EXPECT_EQ(EncodedText(text).raw().data(), text.data());
    EXPECT_EQ(EncodedText(text).raw(), text);
    EXPECT_TRUE(EncodedText().isNull());
    EXPECT_FALSE(EncodedText(u""_u).isNull());
    EXPECT_EQ(EncodedText(u"a"_u), EncodedText(ustring_ref(ustring(u"a"_u))));
    EXPECT_NE(EncodedText(u"%41"_u), EncodedText(u"A"_u));
    EXPECT_EQ(EncodedText(), EncodedText(u""_u));
}

TEST(EncodedTextTest, DecodesEscapesAsUTF8) {
    EXPECT_EQ(EncodedText().decoded(), u""_u);
    EXPECT_EQ(decoded(u""_u), u""_u);
    EXPECT_EQ(decoded(u"plain \u20AC"_u), u"plain \u20AC"_u);
    EXPECT_EQ(decoded(u"a%20b"_u), u"a b"_u);
    EXPECT_EQ(decoded(u"%41%42C%44"_u), u"ABCD"_u);
    EXPECT_EQ(decoded(u"%c3%A9%E2%82%ac"_u), u"\u00E9\u20AC"_u);
    EXPECT_EQ(decoded(u"%F0%9F%98%80"_u), u"\U0001F600"_u);
    EXPECT_EQ(decoded(u"%00"_u), ustring(1, u'\0'));
    EXPECT_EQ(decoded(u"%7F%25%2525"_u), u"\x7F%%25"_u) << "once, not twice";
}

TEST(EncodedTextTest, BytesThatAreNoUTF8BecomeReplacements) {
    EXPECT_EQ(decoded(u"%FF"_u), u"\uFFFD"_u);
    EXPECT_EQ(decoded(u"a%80b"_u), u"a\uFFFDb"_u);
    EXPECT_EQ(decoded(u"%C3x%A9"_u), u"\uFFFDx\uFFFD"_u) << "a character within one run only";
    EXPECT_EQ(decoded(u"%41%C3"_u), u"A\uFFFD"_u);
}

TEST(EncodedTextTest, APercentSignWithoutTwoDigitsStays) {
    EXPECT_EQ(decoded(u"%"_u), u"%"_u);
    EXPECT_EQ(decoded(u"%4"_u), u"%4"_u);
    EXPECT_EQ(decoded(u"100%"_u), u"100%"_u);
    EXPECT_EQ(decoded(u"%zz%41"_u), u"%zzA"_u);
    EXPECT_EQ(decoded(u"%4g%4G%g4"_u), u"%4g%4G%g4"_u);
    EXPECT_EQ(decoded(u"%%41"_u), u"%A"_u);
    EXPECT_EQ(decoded(u"%41%"_u), u"A%"_u);
    EXPECT_EQ(decoded(u"%41%4"_u), u"A%4"_u);
    EXPECT_EQ(decoded(u"%C3%zz%A9"_u), u"\uFFFD%zz\uFFFD"_u);
    EXPECT_EQ(decoded(u"%\uFF11\uFF11"_u), u"%\uFF11\uFF11"_u) << "digits of ASCII alone";
    EXPECT_EQ(decoded(u"%/0%:0%@0%G0%`0%g0"_u), u"%/0%:0%@0%G0%`0%g0"_u);
}

TEST(EncodedTextTest, DecodesEveryByteOfASCII) {
    for (unsigned int value = 0; value < 0x80; ++value) {
        for (const std::u16string_view digits : {u"0123456789ABCDEF", u"0123456789abcdef"}) {
            const ustring text = {u'<', u'%', digits[value >> 4], digits[value & 15], u'>'};
            EXPECT_EQ(decoded(text), ustring({u'<', orv::char16(value), u'>'})) << value;
        }
    }
}

TEST(EncodedTextTest, APlusSignIsASpaceOnlyIfAskedFor) {
    EXPECT_EQ(decoded(u"a+b"_u), u"a+b"_u);
    EXPECT_EQ(decoded(u"a+b"_u, PlusSign::SPACE), u"a b"_u);
    EXPECT_EQ(decoded(u"+%2B+%20+"_u, PlusSign::SPACE), u" +   "_u) << "an escaped one is one";
    EXPECT_EQ(decoded(u"%2B"_u, PlusSign::SPACE), u"+"_u);
    EXPECT_EQ(decoded(u"%+"_u, PlusSign::SPACE), u"% "_u);
    EXPECT_EQ(EncodedText().decoded(PlusSign::SPACE), u""_u);
}

// Paths.

std::vector<ustring> segmentsOf(ustring_ref path) {
    std::vector<ustring> segments;
    for (const EncodedText segment : PathSegments(path)) {
        EXPECT_FALSE(segment.isNull());
        segments.push_back(segment.raw());
    }
    EXPECT_EQ(PathSegments(path).count(), segments.size());
    EXPECT_EQ(PathSegments(path).empty(), segments.empty());
    return segments;
}

const ustring EMPTY;
const ustring A = {u'a'};
const ustring B = {u'b'};

TEST(PathSegmentsTest, AreWhatStandsBetweenTheSlashes) {
    EXPECT_THAT(segmentsOf(ustring_ref()), IsEmpty());
    EXPECT_THAT(segmentsOf(u""_u), IsEmpty());
    EXPECT_THAT(segmentsOf(u"/"_u), ElementsAre(EMPTY));
    EXPECT_THAT(segmentsOf(u"a"_u), ElementsAre(A));
    EXPECT_THAT(segmentsOf(u"/a"_u), ElementsAre(A));
    EXPECT_THAT(segmentsOf(u"a/"_u), ElementsAre(A, EMPTY));
    EXPECT_THAT(segmentsOf(u"//"_u), ElementsAre(EMPTY, EMPTY));
    EXPECT_THAT(segmentsOf(u"/a//b/"_u), ElementsAre(A, EMPTY, B, EMPTY));
    EXPECT_THAT(segmentsOf(u"a//b/"_u), ElementsAre(A, EMPTY, B, EMPTY));
    EXPECT_THAT(segmentsOf(u"//a"_u), ElementsAre(EMPTY, A));
    EXPECT_TRUE(PathSegments().empty());
    EXPECT_EQ(PathSegments().count(), 0U);
}

TEST(PathSegmentsTest, AnEscapedSlashSeparatesNothing) {
    const PathSegments path(u"/a%2Fb/c"_u);
    EXPECT_EQ(path.count(), 2U);
    EXPECT_EQ((*path.begin()).decoded(), u"a/b"_u);
}

TEST(PathSegmentsTest, AreViewsOfThePath) {
    const ustring_ref path = u"/ab/c"_u;
    PathSegments::iterator it = PathSegments(path).begin();
    EXPECT_EQ((*it).raw().data(), path.data() + 1);
    EXPECT_EQ(it->raw().size(), 2U);
    const PathSegments::iterator old = it++;
    EXPECT_EQ(old->raw(), u"ab"_u);
    EXPECT_EQ(it->raw().data(), path.data() + 4);
    EXPECT_NE(old, it);
    EXPECT_EQ(++it, PathSegments(path).end());
    EXPECT_EQ(it, PathSegments::iterator());
}

TEST(PathSegmentsTest, ServeAlgorithms) {
    const PathSegments path(u"/a/./b/../c"_u);
    EXPECT_EQ(std::count(path.begin(), path.end(), EncodedText(u".."_u)), 1);
    const auto isLong = [](EncodedText segment) { return segment.raw().size() > 1; };
    EXPECT_EQ(std::count_if(path.begin(), path.end(), isLong), 1);
}

#if defined(__cpp_lib_ranges)
TEST(PathSegmentsTest, AreARangeForAlgorithms) {
    const PathSegments path(u"/a/./b/../c"_u);
    EXPECT_EQ(std::ranges::count(path, EncodedText(u".."_u)), 1);
    const auto found = std::ranges::find(path, EncodedText(u"b"_u));
    ASSERT_NE(found, path.end());
    EXPECT_EQ(std::next(found)->raw(), u".."_u);
    EXPECT_EQ(found->raw(), u"b"_u) << "still there";
    EXPECT_TRUE(std::ranges::equal(path, PathSegments(u"a/./b/../c"_u)));
}
#endif

// Queries.

using Parts = std::vector<std::pair<ustring, ustring>>;
// Stands for an absent value.
const ustring NONE = {u'-', u'-'};

Parts parametersOf(ustring_ref query) {
    Parts parts;
    for (const QueryParameter parameter : QueryParameters(query)) {
        EXPECT_FALSE(parameter.name.isNull());
        parts.emplace_back(parameter.name.raw(),
                           parameter.value.isNull() ? NONE : parameter.value.raw().to_string());
    }
    EXPECT_EQ(QueryParameters(query).empty(), parts.empty());
    return parts;
}

TEST(QueryParametersTest, AreCutAtTheirFirstEqualsSign) {
    EXPECT_EQ(parametersOf(ustring_ref()), Parts());
    EXPECT_EQ(parametersOf(u""_u), Parts());
    EXPECT_EQ(parametersOf(u"a"_u), Parts({{A, NONE}}));
    EXPECT_EQ(parametersOf(u"a="_u), Parts({{A, EMPTY}}));
    EXPECT_EQ(parametersOf(u"=b"_u), Parts({{EMPTY, B}}));
    EXPECT_EQ(parametersOf(u"="_u), Parts({{EMPTY, EMPTY}}));
    EXPECT_EQ(parametersOf(u"a=b"_u), Parts({{A, B}}));
    EXPECT_EQ(parametersOf(u"a=b=c"_u), Parts({{A, u"b=c"_u}}));
    EXPECT_EQ(parametersOf(u"a=b&b&a="_u), Parts({{A, B}, {B, NONE}, {A, EMPTY}}));
    EXPECT_TRUE(QueryParameters().empty());
}

TEST(QueryParametersTest, EmptyPartsAreLeftOut) {
    EXPECT_EQ(parametersOf(u"&"_u), Parts());
    EXPECT_EQ(parametersOf(u"&&"_u), Parts());
    EXPECT_EQ(parametersOf(u"a&&b=1"_u), Parts({{A, NONE}, {B, u"1"_u}}));
    EXPECT_EQ(parametersOf(u"&&a&"_u), Parts({{A, NONE}}));
}

TEST(QueryParametersTest, AreViewsOfTheQuery) {
    const ustring_ref query = u"a=1&b=2"_u;
    QueryParameters::iterator it = QueryParameters(query).begin();
    const QueryParameters::iterator old = it++;
    EXPECT_EQ(old->value.raw().data(), query.data() + 2);
    EXPECT_EQ(it->name.raw().data(), query.data() + 4);
    EXPECT_EQ((*it).value.raw(), u"2"_u);
    EXPECT_NE(old, it);
    EXPECT_EQ(++it, QueryParameters(query).end());
}

TEST(QueryParametersTest, ServeAlgorithms) {
    const QueryParameters query(u"a=1&b&c=3"_u);
    EXPECT_EQ(std::distance(query.begin(), query.end()), 3);
    const auto hasNoValue = [](const QueryParameter& p) { return p.value.isNull(); };
    EXPECT_EQ(std::count_if(query.begin(), query.end(), hasNoValue), 1);
}

#if defined(__cpp_lib_ranges)
TEST(QueryParametersTest, AreARangeForAlgorithms) {
    const QueryParameters query(u"a=1&b&c=3"_u);
    EXPECT_EQ(std::ranges::distance(query), 3);
    const auto hasNoValue = [](const QueryParameter& p) { return p.value.isNull(); };
    const auto found = std::ranges::find_if(query, hasNoValue);
    ASSERT_NE(found, query.end());
    EXPECT_EQ(found->name.raw(), u"b"_u);
    EXPECT_EQ(std::ranges::count(query, EncodedText(u"c"_u), &QueryParameter::name), 1);
}
#endif

TEST(QueryParametersTest, FindsTheFirstOfAName) {
    const QueryParameters query(u"a=1&b=2&a=3&c&=empty"_u);
    EXPECT_EQ(query.find(u"a"_u).raw(), u"1"_u);
    EXPECT_EQ(query.find(u"b"_u).raw(), u"2"_u);
    EXPECT_TRUE(query.find(u"c"_u).isNull()) << "it has no value";
    EXPECT_TRUE(query.find(u"d"_u).isNull());
    EXPECT_TRUE(query.find(u"A"_u).isNull());
    EXPECT_EQ(query.find(u""_u).raw(), u"empty"_u);
    EXPECT_EQ(query.find(ustring_ref()).raw(), u"empty"_u);
    EXPECT_TRUE(QueryParameters().find(u""_u).isNull());
    EXPECT_TRUE(QueryParameters(u"ab=1"_u).find(u"a"_u).isNull());
    EXPECT_TRUE(QueryParameters(u"a=1"_u).find(u"ab"_u).isNull());
    EXPECT_TRUE(QueryParameters(u"a&a=1"_u).find(u"a"_u).isNull()) << "the first has no value";
}

TEST(QueryParametersTest, FindsNamesThatAreEscaped) {
    const QueryParameters query(u"%61=1&caf%C3%A9=2&x%3Dy=3&100%=4&a%26b%=5&+=6"_u);
    EXPECT_EQ(query.find(u"a"_u).raw(), u"1"_u);
    EXPECT_EQ(query.find(u"caf\u00E9"_u).raw(), u"2"_u);
    EXPECT_EQ(query.find(u"x=y"_u).raw(), u"3"_u);
    EXPECT_EQ(query.find(u"100%"_u).raw(), u"4"_u);
    EXPECT_EQ(query.find(u"a&b%"_u).raw(), u"5"_u);
    EXPECT_TRUE(query.find(u"%61"_u).isNull());
    EXPECT_TRUE(query.find(u"caf"_u).isNull());
    EXPECT_TRUE(query.find(u"caf\u00E9s"_u).isNull());
}

TEST(QueryParametersTest, FindsNamesWithPlusSigns) {
    const QueryParameters query(u"a+b=1&a%2Bb=2&a%20c=3"_u);
    EXPECT_EQ(query.find(u"a+b"_u).raw(), u"1"_u);
    EXPECT_TRUE(query.find(u"a b"_u).isNull());
    EXPECT_EQ(query.find(u"a b"_u, PlusSign::SPACE).raw(), u"1"_u);
    EXPECT_EQ(query.find(u"a+b"_u, PlusSign::SPACE).raw(), u"2"_u);
    EXPECT_EQ(query.find(u"a c"_u, PlusSign::SPACE).raw(), u"3"_u);
}

// Random texts: what is cut apart joins to the same again, and `find` agrees with decoding all.

ustring randomText(std::mt19937& random, std::u16string_view alphabet) {
    ustring text(random() % 12, u'\0');
    for (orv::char16& unit : text) {
        unit = alphabet[random() % alphabet.size()];
    }
    return text;
}

TEST(PathSegmentsTest, JoinToThePathAgain) {
    std::mt19937 random(1);
    for (std::size_t i = 0; i < orvtest::caseCount(100000); ++i) {
        const ustring path = randomText(random, u"/a%");
        ustring joined;
        for (const EncodedText segment : PathSegments(path)) {
            ASSERT_EQ(segment.raw().find(u'/'), ustring_ref::npos);
            joined += u'/';
            joined += segment.raw().to_string();
        }
        const bool isRooted = path.empty() || path.front() == u'/';
        ASSERT_EQ(joined.substr(isRooted ? 0 : 1), path);
    }
}

TEST(QueryParametersTest, JoinToTheQueryAgain) {
    std::mt19937 random(2);
    for (std::size_t i = 0; i < orvtest::caseCount(100000); ++i) {
        const ustring query = randomText(random, u"&=a");
        ustring joined;
        for (const QueryParameter parameter : QueryParameters(query)) {
            ASSERT_EQ(parameter.name.raw().find(u'='), ustring_ref::npos);
            joined += joined.empty() ? u""_u.to_string() : u"&"_u.to_string();
            joined += parameter.name.raw().to_string();
            if (!parameter.value.isNull()) {
                joined += u'=';
                joined += parameter.value.raw().to_string();
            }
        }
        ustring expected;
        std::unique_copy(query.begin(), query.end(), std::back_inserter(expected),
                         [](auto a, auto b) { return a == u'&' && b == u'&'; });
        const std::size_t first = expected.starts_with(u'&') ? 1 : 0;
        const std::size_t last = expected.ends_with(u'&') ? 1 : 0;
        ASSERT_EQ(joined, expected.size() < 2 && first != 0
                              ? ustring()
                              : expected.substr(first, expected.size() - first - last));
    }
}

TEST(QueryParametersTest, FindAgreesWithDecodingEveryName) {
    std::mt19937 random(3);
    for (std::size_t i = 0; i < orvtest::caseCount(100000); ++i) {
        const ustring query = randomText(random, u"&=a%6124B+C39");
        const ustring name = EncodedText(randomText(random, u"a%6124B+C39")).decoded();
        for (const PlusSign plus : {PlusSign::LITERAL, PlusSign::SPACE}) {
            EncodedText expected;
            for (const QueryParameter parameter : QueryParameters(query)) {
                if (parameter.name.decoded(plus) == name) {
                    expected = parameter.value;
                    break;
                }
            }
            ASSERT_EQ(QueryParameters(query).find(name, plus).raw().data(), expected.raw().data());
        }
    }
}

} // namespace
