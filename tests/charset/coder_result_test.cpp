// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What stops a coder: values, layout and comparison.
#include "orv/liborvxx/charset/coder_result.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

namespace {

using orv::CoderResult;

static_assert(CoderResult::UNDERFLOW == 0);
static_assert(CoderResult::OVERFLOW == 1);
static_assert(CoderResult::MALFORMED == 2);
static_assert(CoderResult::UNMAPPABLE == 3);
static_assert(orv::IGNORE == 0 && orv::REPLACE == 1 && orv::REPORT == 2);

// A small value of two 32-bit fields.
static_assert(sizeof(CoderResult) == 8 && std::is_trivially_copyable_v<CoderResult>);
static_assert(std::is_same_v<decltype(CoderResult::kind), int>);
static_assert(std::is_same_v<decltype(CoderResult::length), unsigned int>);
static_assert(offsetof(CoderResult, kind) == 0 && offsetof(CoderResult, length) == 4);

TEST(CoderResult, EachResultHasItsKindAndLength) {
    EXPECT_EQ(CoderResult::underflow(), (CoderResult{0, 0}));
    EXPECT_EQ(CoderResult::overflow(), (CoderResult{1, 0}));
    EXPECT_EQ(CoderResult::malformed(3), (CoderResult{2, 3}));
    EXPECT_EQ(CoderResult::unmappable(2), (CoderResult{3, 2}));
    EXPECT_EQ(CoderResult(), CoderResult::underflow());
}

TEST(CoderResult, ComparesKindAndLength) {
    EXPECT_NE(CoderResult::malformed(1), CoderResult::malformed(2));
    EXPECT_NE(CoderResult::malformed(1), CoderResult::unmappable(1));
}

TEST(CoderResult, OnlyTwoKindsAreErrors) {
    EXPECT_FALSE(CoderResult::underflow().isError());
    EXPECT_FALSE(CoderResult::overflow().isError());
    EXPECT_TRUE(CoderResult::malformed(1).isError());
    EXPECT_TRUE(CoderResult::unmappable(1).isError());
}

} // namespace
