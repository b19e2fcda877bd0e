// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Output of views to streams: padding, width, short writes and failing sinks.
#include "orv/liborvxx/text/string_ref.h"

#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/uostream.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <locale>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace {

using namespace orv::literals;
using orv::basic_string_ref;
using orv::char16;
using orvtest::textOf;

// A sink that takes a given number of units and no more.
template <typename CharT>
class LimitedSink : public std::basic_streambuf<CharT> {
public:
    using Traits = std::char_traits<CharT>;
    explicit LimitedSink(std::size_t capacity = 1000) : capacity_(capacity) {}

    std::basic_string<CharT> taken;
    int syncs = 0;

protected:
    typename Traits::int_type overflow(typename Traits::int_type unit) override {
        if (taken.size() == capacity_) {
            return Traits::eof();
        }
        taken.push_back(Traits::to_char_type(unit));
        return unit;
    }
    int sync() override {
        ++syncs;
        return 0;
    }

private:
    std::size_t capacity_;
};

template <typename CharT>
class ThrowingSink : public std::basic_streambuf<CharT> {
protected:
    using Traits = std::char_traits<CharT>;
    typename Traits::int_type overflow(typename Traits::int_type) override {
        throw std::domain_error("the sink is broken");
    }
};

// What "abc" becomes in a stream that has been set up.
template <typename CharT, typename SetUp>
std::basic_string<CharT> written(SetUp setUp) {
    std::basic_ostringstream<CharT> stream;
    setUp(stream);
    const auto abc = textOf<CharT>("abc");
    stream << basic_string_ref<CharT>(abc);
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.width(), 0);
    return stream.str();
}

template <typename CharT>
class StringRefOutput : public testing::Test {};

using StreamCharacterTypes = testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(StringRefOutput, StreamCharacterTypes);

TYPED_TEST(StringRefOutput, WritesTheUnitsZerosIncluded) {
    std::basic_ostringstream<TypeParam> stream;
    const auto text = textOf<TypeParam>("a") + TypeParam() + textOf<TypeParam>("b");
    const basic_string_ref<TypeParam> view = text;
    EXPECT_EQ(&(stream << view), &stream);
    stream << basic_string_ref<TypeParam>() << view.substr(2);
    EXPECT_EQ(stream.str(), text + textOf<TypeParam>("b"));
}

TYPED_TEST(StringRefOutput, PadsToTheWidthOnTheSideThatAdjustfieldSays) {
    const auto fill = textOf<TypeParam>("*")[0];
    const auto text = [](const char* ascii) { return textOf<TypeParam>(ascii); };
    EXPECT_EQ(written<TypeParam>([&](auto& s) { s << std::setw(6) << std::setfill(fill); }),
              text("***abc"))
        << "right is what no flag means";
    EXPECT_EQ(
        written<TypeParam>([&](auto& s) { s << std::setw(6) << std::setfill(fill) << std::right; }),
        text("***abc"));
    EXPECT_EQ(written<TypeParam>(
                  [&](auto& s) { s << std::setw(6) << std::setfill(fill) << std::internal; }),
              text("***abc"))
        << "internal counts as right";
    EXPECT_EQ(
        written<TypeParam>([&](auto& s) { s << std::setw(6) << std::setfill(fill) << std::left; }),
        text("abc***"));
    EXPECT_EQ(written<TypeParam>([](auto& s) { s << std::setw(5); }), text("  abc"))
        << "a space is the fill of a new stream";
    EXPECT_EQ(written<TypeParam>([&](auto& s) {
                  s << std::setw(6) << std::setfill(fill);
                  s.setf(std::ios_base::left | std::ios_base::right);
              }),
              text("***abc"))
        << "both flags at once are not left";
}

TYPED_TEST(StringRefOutput, DoesNotPadATextThatFillsTheWidth) {
    for (const int width : {0, 1, 2, 3, -5}) {
        EXPECT_EQ(written<TypeParam>([&](auto& s) { s.width(width); }), textOf<TypeParam>("abc"))
            << width;
    }
    EXPECT_EQ(written<TypeParam>([](auto& s) { s.width(4); }), textOf<TypeParam>(" abc"));
}

TYPED_TEST(StringRefOutput, PadsAnEmptyTextToo) {
    std::basic_ostringstream<TypeParam> stream;
    stream << std::setw(3) << basic_string_ref<TypeParam>();
    EXPECT_EQ(stream.str(), textOf<TypeParam>("   "));
    EXPECT_EQ(stream.width(), 0);
}

TYPED_TEST(StringRefOutput, TheWidthServesOneTextOnly) {
    std::basic_ostringstream<TypeParam> stream;
    const auto a = textOf<TypeParam>("a");
    stream << std::setw(3) << basic_string_ref<TypeParam>(a) << basic_string_ref<TypeParam>(a);
    EXPECT_EQ(stream.str(), textOf<TypeParam>("  aa"));
}

TYPED_TEST(StringRefOutput, AShortWriteAnywhereSetsBadbit) {
    const auto abc = textOf<TypeParam>("abc");
    for (const bool left : {false, true}) {
        const auto whole = textOf<TypeParam>(left ? "abc  " : "  abc");
        for (std::size_t capacity = 0; capacity <= 5; ++capacity) {
            LimitedSink<TypeParam> sink(capacity);
            std::basic_ostream<TypeParam> stream(&sink);
            stream.width(5);
            if (left) {
                stream << std::left;
            }
            stream << basic_string_ref<TypeParam>(abc);
            EXPECT_EQ(stream.bad(), capacity < 5) << capacity;
            EXPECT_EQ(sink.taken, whole.substr(0, capacity));
            EXPECT_EQ(stream.width(), 0);
        }
    }
}

TYPED_TEST(StringRefOutput, AShortWriteThrowsIfTheExceptionMaskSaysSo) {
    LimitedSink<TypeParam> sink(2);
    std::basic_ostream<TypeParam> stream(&sink);
    stream.exceptions(std::ios_base::badbit);
    stream.width(5);
    const auto abc = textOf<TypeParam>("abc");
    EXPECT_THROW(stream << basic_string_ref<TypeParam>(abc), std::ios_base::failure);
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(stream.width(), 0);
}

TYPED_TEST(StringRefOutput, AThrowingSinkSetsBadbitAndIsHeardOnlyOnRequest) {
    const auto abc = textOf<TypeParam>("abc");
    ThrowingSink<TypeParam> sink;
    std::basic_ostream<TypeParam> quiet(&sink);
    quiet.width(2);
    EXPECT_NO_THROW(quiet << basic_string_ref<TypeParam>(abc));
    EXPECT_TRUE(quiet.bad());
    EXPECT_EQ(quiet.width(), 0);

    std::basic_ostream<TypeParam> loud(&sink);
    loud.exceptions(std::ios_base::badbit);
    loud.width(2);
    EXPECT_THROW(loud << basic_string_ref<TypeParam>(abc), std::domain_error)
        << "the cause itself, not ios_base::failure";
    EXPECT_TRUE(loud.bad());
    EXPECT_EQ(loud.width(), 0);
}

TYPED_TEST(StringRefOutput, AStreamThatHasFailedTakesNothing) {
    const auto abc = textOf<TypeParam>("abc");
    LimitedSink<TypeParam> sink;
    std::basic_ostream<TypeParam> stream(&sink);
    stream.setstate(std::ios_base::failbit);
    stream << basic_string_ref<TypeParam>(abc);
    EXPECT_TRUE(sink.taken.empty());
    std::basic_ostream<TypeParam> without(nullptr);
    without << basic_string_ref<TypeParam>(abc);
    EXPECT_TRUE(without.bad());
}

TYPED_TEST(StringRefOutput, TheSentryFlushesTheTiedStreamAndUnitbuf) {
    const auto abc = textOf<TypeParam>("abc");
    LimitedSink<TypeParam> tiedSink;
    std::basic_ostream<TypeParam> tied(&tiedSink);
    LimitedSink<TypeParam> sink;
    std::basic_ostream<TypeParam> stream(&sink);
    stream.tie(&tied);
    stream << basic_string_ref<TypeParam>(abc);
    EXPECT_EQ(tiedSink.syncs, 1);
    EXPECT_EQ(sink.syncs, 0);
    stream << std::unitbuf << basic_string_ref<TypeParam>(abc);
    EXPECT_EQ(sink.syncs, 1);
    EXPECT_EQ(sink.taken, abc + abc);
}

// A stream over char16 whose locale has no facets for it: output without padding needs none.

TEST(StringRefOutputUtf16, WritesTheUnits) {
    LimitedSink<char16> sink;
    std::basic_ostream<char16> stream(&sink);
    EXPECT_EQ(&(stream << u"a\U0001F600"_u << u""_u << u"\0z"_u), &stream);
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(sink.taken, u"a\U0001F600\0z"_u);
}

TEST(StringRefOutputUtf16, AWidthThatTheTextFillsNeedsNoPadding) {
    LimitedSink<char16> sink;
    std::basic_ostream<char16> stream(&sink);
    stream.width(3);
    stream << u"abc"_u;
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.width(), 0);
    EXPECT_EQ(sink.taken, u"abc"_u);
}

TEST(StringRefOutputUtf16, PaddingWithoutAFillCharacterSetsBadbitAndWritesNothing) {
    LimitedSink<char16> sink;
    std::basic_ostream<char16> stream(&sink);
    stream.width(4);
    stream << u"abc"_u;
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(stream.width(), 0);
    EXPECT_TRUE(sink.taken.empty());
}

// With the facet the stream has what it needs to pad.

const std::locale& localeOfChar16() {
    static const std::locale made(std::locale::classic(), new std::ctype<char16>);
    return made;
}

TEST(StringRefOutputUtf16, PadsWithSpacesWhereTheLocaleHasTheFacet) {
    const auto padded = [](std::ios_base::fmtflags adjustment) {
        LimitedSink<char16> sink;
        std::basic_ostream<char16> stream(&sink);
        stream.imbue(localeOfChar16());
        stream.setf(adjustment, std::ios_base::adjustfield);
        stream.width(5);
        stream << u"abc"_u << u"d"_u;
        EXPECT_TRUE(stream.good());
        EXPECT_EQ(stream.width(), 0);
        EXPECT_EQ(stream.fill(), u' ');
        return sink.taken;
    };
    EXPECT_EQ(padded({}), u"  abcd"_u);
    EXPECT_EQ(padded(std::ios_base::right), u"  abcd"_u);
    EXPECT_EQ(padded(std::ios_base::internal), u"  abcd"_u);
    EXPECT_EQ(padded(std::ios_base::left), u"abc  d"_u);
}

TEST(StringRefOutputUtf16, PadsWithTheFillCharacterThatWasSet) {
    LimitedSink<char16> sink;
    std::basic_ostream<char16> stream(&sink);
    stream.imbue(localeOfChar16());
    EXPECT_EQ(stream.fill(), u' ');
    stream.fill(u'\u2022');
    stream.width(4);
    stream << u"ab"_u;
    EXPECT_EQ(sink.taken, u"\u2022\u2022ab"_u);
    EXPECT_EQ(stream.widen('\n'), u'\n');
    EXPECT_EQ(stream.narrow(u'\u0663', '?'), '3');
}

TEST(StringRefOutputUtf16, AStreamStringPadsUnderAGlobalLocaleWithTheFacet) {
    const std::locale before = std::locale::global(localeOfChar16());
    std::basic_ostringstream<char16> stream;
    std::locale::global(before);
    stream.width(3);
    stream << u"a"_u;
    EXPECT_EQ(stream.str(), u"  a"_u);
}

TEST(StringRefOutputUtf16, AShortWriteSetsBadbit) {
    for (std::size_t capacity = 0; capacity <= 3; ++capacity) {
        LimitedSink<char16> sink(capacity);
        std::basic_ostream<char16> stream(&sink);
        stream << u"abc"_u;
        EXPECT_EQ(stream.bad(), capacity < 3) << capacity;
        EXPECT_EQ(sink.taken, u"abc"_u.substr(0, capacity));
    }
}

TEST(StringRefOutputUtf16, AThrowingSinkIsHeardOnlyOnRequest) {
    ThrowingSink<char16> sink;
    std::basic_ostream<char16> quiet(&sink);
    EXPECT_NO_THROW(quiet << u"abc"_u);
    EXPECT_TRUE(quiet.bad());
    std::basic_ostream<char16> loud(&sink);
    loud.exceptions(std::ios_base::badbit);
    EXPECT_THROW(loud << u"abc"_u, std::domain_error);
}

} // namespace
