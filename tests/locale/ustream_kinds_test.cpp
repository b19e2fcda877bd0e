// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the stream classes over a borrowed buffer have in common: construction, locales,
/// moves and swaps.
#include "orv/liborvxx/locale/uiostream.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/locale/counting_buffer.h"
#include "tests/support/shown_text.h"

#include <gtest/gtest.h>

#include <array>
#include <ios>
#include <locale>
#include <sstream>
#include <utility>

namespace {

using orv::char16;
using orv::uiostream;
using orv::uistream;
using orv::ulocale;
using orv::uostream;
using orvtest::CountingBuffer;
using orvtest::shown;
using namespace orv::literals;

using Buffer = std::basic_stringbuf<char16>;

// Makes what is protected callable.
template <class Stream>
struct Open : Stream {
    explicit Open(std::basic_streambuf<char16>* buffer) : Stream(buffer) {}
    Open(Open&& other) : Stream(static_cast<Stream&&>(other)) {}
    Open& operator=(Open&& other) {
        Stream::operator=(static_cast<Stream&&>(other));
        return *this;
    }
    using Stream::set_rdbuf;
    using Stream::swap;
};

template <class Stream>
class UStreamOfAnyKind : public testing::Test {};
using AllKinds = testing::Types<Open<uistream>, Open<uostream>, Open<uiostream>>;
TYPED_TEST_SUITE(UStreamOfAnyKind, AllKinds);

TYPED_TEST(UStreamOfAnyKind, StartsOnTheClassicLocale) {
    CountingBuffer buffer;
    TypeParam stream(&buffer);
    EXPECT_EQ(stream.rdbuf(), &buffer);
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.tie(), nullptr);
    EXPECT_EQ(stream.fill(), u' ');
    EXPECT_EQ(stream.precision(), 6);
    EXPECT_EQ(stream.width(), 0);
    EXPECT_EQ(stream.exceptions(), std::ios_base::goodbit);
    EXPECT_EQ(stream.flags(), std::ios_base::skipws | std::ios_base::dec);
    EXPECT_TRUE(stream.getloc() == std::locale(ulocale::classic()));
    ASSERT_FALSE(buffer.locales.empty());
    EXPECT_TRUE(buffer.locales.back() == stream.getloc());
}

TYPED_TEST(UStreamOfAnyKind, IsNotOnTheGlobalLocale) {
    ulocale::global(ulocale(u"de_DE"_u));
    Buffer buffer;
    TypeParam stream(&buffer);
    ulocale::global(ulocale::classic());
    EXPECT_EQ(std::use_facet<std::numpunct<char16>>(stream.getloc()).decimal_point(), u'.');
}

TYPED_TEST(UStreamOfAnyKind, OnNoBufferIsBadWithoutAnException) {
    TypeParam stream(nullptr);
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(stream.rdstate(), std::ios_base::badbit);
    EXPECT_EQ(stream.rdbuf(), nullptr);
    EXPECT_TRUE(std::has_facet<std::ctype<char16>>(stream.getloc()));
    EXPECT_EQ(stream.fill(), u' ');
}

TYPED_TEST(UStreamOfAnyKind, FillIsASpaceWhateverTheLaterLocaleSays) {
    Buffer buffer;
    TypeParam stream(&buffer);
    stream.imbue(std::locale::classic()); // no facets for char16
    EXPECT_EQ(stream.fill(), u' ');
}

TYPED_TEST(UStreamOfAnyKind, ImbueReturnsTheLocaleBeforeAndReachesTheBuffer) {
    CountingBuffer buffer;
    TypeParam stream(&buffer);
    const ulocale german(u"de_DE"_u);
    const std::locale classic = stream.imbue(german);
    EXPECT_TRUE(classic == std::locale(ulocale::classic()));
    EXPECT_TRUE(stream.getloc() == std::locale(german));
    EXPECT_TRUE(buffer.locales.back() == std::locale(german));
    EXPECT_TRUE(stream.imbue(ulocale::classic()) == std::locale(german));
    EXPECT_TRUE(stream.getloc() == classic);
}

TYPED_TEST(UStreamOfAnyKind, MovesStateButNoBuffer) {
    Buffer buffer;
    TypeParam source(&buffer);
    const ulocale german(u"de_DE"_u);
    source.imbue(german);
    source.width(3);
    source.precision(4);
    source.fill(u'*');
    source.setf(std::ios_base::hex, std::ios_base::basefield);
    source.setstate(std::ios_base::eofbit);
    TypeParam target(std::move(source));
    EXPECT_EQ(target.rdbuf(), nullptr);
    EXPECT_EQ(target.rdstate(), std::ios_base::eofbit);
    EXPECT_EQ(target.width(), 3);
    EXPECT_EQ(target.precision(), 4);
    EXPECT_EQ(target.fill(), u'*');
    EXPECT_TRUE((target.flags() & std::ios_base::hex) != 0);
    EXPECT_TRUE(target.getloc() == std::locale(german));
    // NOLINTBEGIN(bugprone-use-after-move)
    EXPECT_EQ(source.rdbuf(), &buffer);
    EXPECT_TRUE(source.getloc() == std::locale(german));
    EXPECT_TRUE(buffer.getloc() == std::locale(german));
    // NOLINTEND(bugprone-use-after-move)
}

TYPED_TEST(UStreamOfAnyKind, AssignmentAndSwapExchangeStateButNoBuffers) {
    Buffer a;
    Buffer b;
    TypeParam first(&a);
    TypeParam second(&b);
    first.width(1);
    second.width(2);
    second.setstate(std::ios_base::failbit);
    first.swap(second);
    EXPECT_EQ(first.width(), 2);
    EXPECT_TRUE(first.fail());
    EXPECT_TRUE(second.good());
    first = std::move(second);
    EXPECT_EQ(first.width(), 1);
    EXPECT_TRUE(first.good());
    EXPECT_EQ(first.rdbuf(), &a);
    EXPECT_EQ(second.rdbuf(), &b); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(second.width(), 2);
}

TEST(UIStream, MoveTakesTheCount) {
    Buffer buffer(u"abc"_u);
    Open<uistream> source(&buffer);
    std::array<char16, 2> text;
    source.read(text.data(), 2);
    const Open<uistream> target(std::move(source));
    EXPECT_EQ(target.gcount(), 2);
    EXPECT_EQ(source.gcount(), 0); // NOLINT(bugprone-use-after-move)
}

TEST(UIOStream, MoveTakesTheCountAndLeavesAGoodSource) {
    Buffer buffer(u"abc"_u);
    Open<uiostream> source(&buffer);
    std::array<char16, 8> text;
    source.read(text.data(), 8);
    EXPECT_TRUE(source.fail());
    Open<uiostream> target(std::move(source));
    EXPECT_EQ(target.gcount(), 3);
    EXPECT_TRUE(target.fail());
    target.clear(); // no buffer
    EXPECT_TRUE(target.bad());
    target.set_rdbuf(&buffer);
    target.clear();
    target << 1;
    EXPECT_TRUE(target.good());
    // NOLINTBEGIN(bugprone-use-after-move)
    EXPECT_EQ(source.gcount(), 0);
    EXPECT_TRUE(source.good());
    source << 2;
    // NOLINTEND(bugprone-use-after-move)
    EXPECT_EQ(shown(buffer.str()), "12c");
}

} // namespace
