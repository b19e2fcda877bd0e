// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URISyntaxError`: its texts, its index, its copies.
#include "orv/liborvxx/net/uri_syntax_error.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using namespace orv::literals;
using orv::ustring;
using orv::net::URISyntaxError;

TEST(URISyntaxError, TellsReasonIndexAndInput) {
    const URISyntaxError error(u"a b"_u, u"unexpected character"_u, 1);
    EXPECT_STREQ(error.what(), "unexpected character at index 1: a b");
    EXPECT_EQ(error.getInput(), u"a b"_u);
    EXPECT_EQ(error.getReason(), u"unexpected character"_u);
    EXPECT_EQ(error.getIndex(), 1);
}

TEST(URISyntaxError, TellsTheIndicesAtTheEdges) {
    EXPECT_STREQ(URISyntaxError(u""_u, u"r"_u, 0).what(), "r at index 0: ");
    EXPECT_STREQ(URISyntaxError(u"i"_u, u""_u, std::numeric_limits<int>::max()).what(),
                 " at index 2147483647: i");
}

TEST(URISyntaxError, LeavesTheIndexOutWhereThereIsNone) {
    const URISyntaxError error(u"80a"_u, u"invalid port"_u);
    EXPECT_STREQ(error.what(), "invalid port: 80a");
    EXPECT_EQ(error.getIndex(), -1);
    EXPECT_STREQ(URISyntaxError(u"80a"_u, u"invalid port"_u, -1).what(), "invalid port: 80a");
    EXPECT_STREQ(URISyntaxError(u""_u, u""_u).what(), ": ");
}

TEST(URISyntaxError, RefusesAnIndexBelowMinusOne) {
    for (const int index : {-2, -3, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(orvtest::thrownMessage<std::invalid_argument>(
                      [index] { URISyntaxError(u"i"_u, u"r"_u, index); }),
                  "index: out of range");
    }
}

TEST(URISyntaxError, WritesItsMessageInTheDefaultCharset) {
    const ustring input = u"caf\u00E9 \u20AC\U0001F600"_u;
    const ustring reason = u"\u00C4"_u;
    EXPECT_EQ(
        URISyntaxError(input, reason, 12).what(),
        orv::Charset::defaultCharset()->encode(reason + ustring(u" at index 12: "_u) + input));
}

TEST(URISyntaxError, KeepsTextsBehindANulInItsInput) {
    const URISyntaxError error(u"a\0b"_u, u"r"_u);
    EXPECT_STREQ(error.what(), "r: a");
    EXPECT_EQ(error.getInput(), u"a\0b"_u);
}

TEST(URISyntaxError, IsARuntimeErrorOfTheLibraryAndOfTheStandard) {
    static_assert(std::is_base_of_v<orv::RuntimeError, URISyntaxError>);
    try {
        throw URISyntaxError(u"i"_u, u"r"_u, 3);
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "r at index 3: i");
    }
}

// Copying must not fail: it happens while an exception is on its way.
TEST(URISyntaxError, SharesItsTextsWithItsCopies) {
    static_assert(std::is_nothrow_copy_constructible_v<URISyntaxError>);
    static_assert(std::is_nothrow_copy_assignable_v<URISyntaxError>);
    static_assert(std::is_nothrow_move_constructible_v<URISyntaxError>);
    URISyntaxError first(u"first"_u, u"one"_u, 1);
    const URISyntaxError copy(first);
    EXPECT_EQ(&copy.getInput(), &first.getInput());
    EXPECT_EQ(&copy.getReason(), &first.getReason());
    EXPECT_EQ(copy.what(), first.what());
    EXPECT_EQ(copy.getIndex(), 1);
    // A move is a copy, so that no error is without its texts.
    const URISyntaxError moved(std::move(first));
    EXPECT_EQ(&first.getInput(), &moved.getInput()); // NOLINT(bugprone-use-after-move)
    first = URISyntaxError(u"second"_u, u"two"_u);
    EXPECT_STREQ(first.what(), "two: second");
    EXPECT_EQ(first.getIndex(), -1);
    EXPECT_STREQ(copy.what(), "one at index 1: first");
}

} // namespace
