// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief String streams: modes, their text, positions, moves and swaps.
#include "orv/liborvxx/locale/ustringstream.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/shown_text.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

using orv::char16;
using orv::char16_int;
using orv::uistringstream;
using orv::ulocale;
using orv::uostringstream;
using orv::ustring;
using orv::ustringstream;
using orvtest::shown;
using namespace orv::literals;
using Base = std::basic_ios<char16>;

constexpr int IN = std::ios_base::in;
constexpr int OUT = std::ios_base::out;
constexpr int APP = std::ios_base::app;
constexpr int ATE = std::ios_base::ate;

static_assert(!std::is_convertible_v<int, uistringstream>);
static_assert(!std::is_convertible_v<ustring, uistringstream>);
static_assert(!std::is_copy_constructible_v<ustringstream>);
static_assert(!std::is_constructible_v<orv::uostream, orv::uostream>);

TEST(UIStringStream, ReadsWithNoImbue) {
    uistringstream is(u"12 34"_u);
    int first = 0;
    int second = 0;
    is >> first >> second;
    EXPECT_EQ(first, 12);
    EXPECT_EQ(second, 34);
    EXPECT_TRUE(is.eof());
    EXPECT_FALSE(is.fail());
}

TEST(UIStringStream, ModeAlwaysHasIn) {
    for (const int mode : {0, OUT, IN, OUT | ATE}) {
        uistringstream is(u"7"_u, mode);
        int number = 0;
        is >> number;
        EXPECT_EQ(number, 7) << mode;
    }
    uistringstream is(OUT);
    is.str(u"8"_u);
    int number = 0;
    is >> number;
    EXPECT_EQ(number, 8);
}

TEST(UOStringStream, ModeAlwaysHasOut) {
    for (const int mode : {0, IN, OUT}) {
        uostringstream os(mode);
        os << 7;
        EXPECT_EQ(shown(os.str()), "7") << mode;
        uostringstream over(u"abc"_u, mode);
        over << 7;
        EXPECT_EQ(shown(over.str()), "7bc") << mode;
    }
    for (const int mode : {APP, ATE, OUT | APP, OUT | ATE}) {
        uostringstream os(u"abc"_u, mode);
        os << 7;
        EXPECT_EQ(shown(os.str()), "abc7") << mode;
    }
}

TEST(UStringStream, HasJustTheModeItIsGiven) {
    ustringstream none(0);
    EXPECT_TRUE(none.good());
    none << 1;
    EXPECT_TRUE(none.bad());
    none.clear();
    int number = 5;
    none >> number;
    EXPECT_TRUE(none.fail());
    none.clear();
    EXPECT_EQ(shown(none.str()), "");
    ustringstream noneWithText(u"12"_u, 0);
    EXPECT_TRUE((noneWithText >> number).fail());
    EXPECT_FALSE((ustringstream(u"12"_u, IN) << 1).good());
    EXPECT_FALSE((ustringstream(u"12"_u, OUT) >> number).good());
    ustringstream both(u"12 34"_u);
    both >> number;
    both << 5;
    EXPECT_EQ(number, 12);
    EXPECT_EQ(shown(both.str()), "52 34");
}

template <class Stream>
class StringStream : public testing::Test {};
using AllStringStreams = testing::Types<uistringstream, uostringstream, ustringstream>;
TYPED_TEST_SUITE(StringStream, AllStringStreams);

TYPED_TEST(StringStream, IsOnABufferOfItsOwn) {
    TypeParam stream;
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.rdbuf(), stream.Base::rdbuf());
    EXPECT_EQ(shown(stream.str()), "");
    EXPECT_TRUE(stream.rdbuf()->getloc() == stream.getloc());
    EXPECT_TRUE(stream.getloc() == std::locale(ulocale::classic()));
    EXPECT_EQ(stream.fill(), u' ');
    EXPECT_EQ(stream.tie(), nullptr);
    static_assert(
        std::is_same_v<decltype(std::as_const(stream).rdbuf()), std::basic_stringbuf<char16>*>);
}

TYPED_TEST(StringStream, RdbufIsTheMemberWhereTheStreamIsOnAnotherBuffer) {
    std::basic_stringbuf<char16> other(u"other"_u);
    TypeParam stream(u"own"_u);
    auto* const own = stream.rdbuf();
    stream.Base::rdbuf(&other);
    EXPECT_EQ(stream.rdbuf(), own);
    EXPECT_EQ(stream.Base::rdbuf(), &other);
    EXPECT_EQ(shown(stream.str()), "own");
}

TYPED_TEST(StringStream, StrSetsTheText) {
    TypeParam stream(u"before"_u);
    EXPECT_EQ(shown(stream.str()), "before");
    const ustring text = u"a\u20AC"_u;
    stream.str(text);
    EXPECT_EQ(shown(stream.str()), "a<20AC>");
    EXPECT_EQ(shown(text), "a<20AC>");
    stream.str(u"view"_u);
    EXPECT_EQ(shown(stream.str()), "view");
    stream.str({});
    EXPECT_EQ(shown(stream.str()), "");
    const ustring zero(3, char16(u'\0'));
    stream.str(zero);
    EXPECT_EQ(stream.str(), zero);
}

TYPED_TEST(StringStream, ImbueReachesTheBuffer) {
    TypeParam stream;
    const ulocale german(u"de_DE"_u);
    stream.imbue(german);
    EXPECT_TRUE(stream.rdbuf()->getloc() == std::locale(german));
}

// What holds for a stream that text, state and locale were moved to.
template <class Stream>
void expectMoved(Stream& stream, const ustring& text) {
    EXPECT_EQ(stream.rdstate(), std::ios_base::eofbit);
    EXPECT_EQ(stream.width(), 7);
    EXPECT_EQ(stream.str(), text);
    EXPECT_EQ(stream.Base::rdbuf(), stream.rdbuf());
    EXPECT_EQ(std::use_facet<std::numpunct<char16>>(stream.getloc()).decimal_point(), u',');
    EXPECT_TRUE(stream.rdbuf()->getloc() == stream.getloc());
}

// What holds for a stream that was moved from.
template <class Stream>
void expectEmptyAndUsable(Stream& stream) {
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(shown(stream.str()), "");
    EXPECT_EQ(stream.Base::rdbuf(), stream.rdbuf());
    EXPECT_TRUE(std::has_facet<std::num_put<char16>>(stream.getloc()));
    EXPECT_TRUE(stream.rdbuf()->getloc() == stream.getloc());
    stream.str(u"next"_u);
    EXPECT_EQ(shown(stream.str()), "next");
    stream.width(0);
    if constexpr (requires { stream << 1; }) {
        stream << 1.5;
        EXPECT_TRUE(stream.good());
        EXPECT_EQ(stream.str().substr(3), u"t"_u);
    } else {
        ustring word;
        stream >> word;
        EXPECT_EQ(shown(word), "next");
    }
}

// Text beyond the room of a short string, and within it.
const ustring TEXTS[] = {u"12 34"_u, ustring(1000, u'x')};

template <class Stream>
void prepare(Stream& stream) {
    stream.imbue(ulocale(u"de_DE"_u));
    stream.width(7);
    stream.setstate(std::ios_base::eofbit);
}

TYPED_TEST(StringStream, MoveConstructionLeavesAnEmptyUsableSource) {
    for (const ustring& text : TEXTS) {
        TypeParam source(text);
        prepare(source);
        auto* const buffer = source.rdbuf();
        TypeParam target(std::move(source));
        expectMoved(target, text);
        EXPECT_EQ(source.rdbuf(), buffer); // NOLINT(bugprone-use-after-move)
        EXPECT_NE(target.rdbuf(), buffer);
        expectEmptyAndUsable(source);
        EXPECT_EQ(target.str(), text);
    }
}

TYPED_TEST(StringStream, MoveAssignmentLeavesAnEmptyUsableSource) {
    for (const ustring& text : TEXTS) {
        TypeParam source(text);
        prepare(source);
        TypeParam target(u"old text of the target"_u);
        target.setstate(std::ios_base::failbit);
        auto* const own = target.rdbuf();
        TypeParam& assigned = target = std::move(source);
        EXPECT_EQ(&assigned, &target);
        EXPECT_EQ(target.rdbuf(), own);
        expectMoved(target, text);
        expectEmptyAndUsable(source); // NOLINT(bugprone-use-after-move)
        EXPECT_EQ(target.str(), text);
    }
}

TYPED_TEST(StringStream, MovesPutBothStreamsOnTheirOwnBuffers) {
    std::basic_stringbuf<char16> other;
    TypeParam source(u"text"_u);
    source.Base::rdbuf(&other);
    TypeParam target(std::move(source));
    EXPECT_EQ(target.Base::rdbuf(), target.rdbuf());
    EXPECT_EQ(shown(target.str()), "text");
    expectEmptyAndUsable(source); // NOLINT(bugprone-use-after-move)
    source.Base::rdbuf(&other);
    target.Base::rdbuf(&other);
    source = std::move(target);
    EXPECT_EQ(source.Base::rdbuf(), source.rdbuf());
    expectEmptyAndUsable(target); // NOLINT(bugprone-use-after-move)
}

TYPED_TEST(StringStream, SelfMoveChangesNothing) {
    TypeParam stream(u"text"_u);
    prepare(stream);
    TypeParam& alias = stream;
    stream = std::move(alias);
    expectMoved(stream, u"text"_u);
}

TYPED_TEST(StringStream, SwapExchangesAllButTheAddresses) {
    TypeParam a(TEXTS[0]);
    TypeParam b(TEXTS[1]);
    prepare(a);
    b.width(3);
    auto* const bufferOfA = a.rdbuf();
    a.swap(b);
    expectMoved(b, TEXTS[0]);
    EXPECT_EQ(a.str(), TEXTS[1]);
    EXPECT_EQ(a.width(), 3);
    EXPECT_TRUE(a.good());
    EXPECT_EQ(a.rdbuf(), bufferOfA);
    EXPECT_EQ(a.Base::rdbuf(), bufferOfA);
    EXPECT_TRUE(a.rdbuf()->getloc() == a.getloc());
    using std::swap;
    swap(a, b);
    expectMoved(a, TEXTS[0]);
    EXPECT_EQ(b.str(), TEXTS[1]);
    a.swap(a);
    expectMoved(a, TEXTS[0]);
}

TEST(StringStreamPositions, AreKeptByMoves) {
    ustringstream source(u"0123456789"_u);
    source.seekg(3);
    source.seekp(5);
    EXPECT_EQ(source.get(), char16_int(u'3'));
    ustringstream target(std::move(source));
    EXPECT_EQ(target.tellg(), 4);
    EXPECT_EQ(target.tellp(), 5);
    target << u"x"_u;
    EXPECT_EQ(target.get(), char16_int(u'4'));
    EXPECT_EQ(target.get(), char16_int(u'x'));
    EXPECT_EQ(target.gcount(), 1);
    ustringstream assigned;
    assigned = std::move(target);
    EXPECT_EQ(assigned.tellg(), 6);
    EXPECT_EQ(assigned.tellp(), 6);
    EXPECT_EQ(assigned.gcount(), 1);
    EXPECT_EQ(shown(assigned.str()), "01234x6789");
}

TEST(StringStreamPositions, SeekAndTell) {
    ustringstream stream(u"abc"_u);
    EXPECT_EQ(stream.seekg(0, std::ios_base::end).tellg(), 3);
    EXPECT_EQ(stream.seekg(-2, std::ios_base::cur).tellg(), 1);
    EXPECT_EQ(stream.get(), char16_int(u'b'));
    EXPECT_TRUE(stream.seekg(4, std::ios_base::beg).fail());
    stream.clear();
    EXPECT_EQ(stream.tellg(), 2);
    EXPECT_TRUE(stream.seekp(-1, std::ios_base::beg).fail());
    stream.clear();
    stream.ignore(9);
    EXPECT_TRUE(stream.eof());
    EXPECT_TRUE(stream.seekg(0).good()); // takes the mark of the end away
}

TEST(StringStreamPositions, GrowthKeepsThePlaceOfReading) {
    ustringstream stream;
    for (int i = 0; i < 1000; ++i) {
        stream << i << ' ';
        int number = -1;
        stream >> number;
        ASSERT_EQ(number, i);
    }
}

} // namespace
