// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What walking a path and a query allocates: nothing.
#include "orv/liborvxx/net/uri_parts.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace {

using namespace orv::literals;
using orv::net::EncodedText;
using orv::net::PathSegments;
using orv::net::PlusSign;
using orv::net::QueryParameter;
using orv::net::QueryParameters;

TEST(URIPartsAllocation, WalkingAPathNeedsNone) {
    const std::size_t before = orvtest::allocations();
    std::size_t units = 0;
    const PathSegments path(u"/a/long%20path/with/more/segments/than/any/string/holds/in/place/"_u);
    for (const EncodedText segment : path) {
        units += segment.raw().size();
    }
    const std::size_t count = path.count();
    EXPECT_EQ(orvtest::allocations(), before);
    EXPECT_EQ(count, 12U);
    EXPECT_EQ(units, 53U);
}

TEST(URIPartsAllocation, WalkingAQueryNeedsNone) {
    const std::size_t before = orvtest::allocations();
    std::size_t units = 0;
    for (const QueryParameter parameter :
         QueryParameters(u"first=a%20long%20value&second=another+long+value&third"_u)) {
        units += parameter.name.raw().size() + parameter.value.raw().size();
    }
    EXPECT_EQ(orvtest::allocations(), before);
    EXPECT_EQ(units, 50U);
}

TEST(URIPartsAllocation, FindingANameNeedsNone) {
    const QueryParameters query(u"another-very-long%20name=0&a-long-plain-name=1&a+name=2"_u);
    const std::size_t before = orvtest::allocations();
    const EncodedText plain = query.find(u"a-long-plain-name"_u);
    const EncodedText spaced = query.find(u"a name"_u, PlusSign::SPACE);
    const EncodedText missing = query.find(u""_u);
    EXPECT_EQ(orvtest::allocations(), before);
    EXPECT_EQ(plain.raw(), u"1"_u);
    EXPECT_EQ(spaced.raw(), u"2"_u);
    EXPECT_TRUE(missing.isNull());
}

} // namespace
