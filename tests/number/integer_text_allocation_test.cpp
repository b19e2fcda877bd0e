// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What integers and their text allocate: one string at most.
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_int.h"
#include "orv/liborvxx/number/to_chars.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <new>
#include <string>

namespace {

using namespace orv::literals;

template <class Call>
std::size_t allocationsOf(const Call& call) {
    const std::size_t before = orvtest::allocations();
    call();
    return orvtest::allocations() - before;
}

const std::string LONG(100000, '7');

TEST(IntegerTextAllocation, ReadingNeedsNone) {
    EXPECT_EQ(allocationsOf([] {
                  for (const int radix : {0, 2, 8, 10, 16, 36}) {
                      EXPECT_TRUE(orv::from_chars_c<int>("1", radix));
                      EXPECT_TRUE(orv::from_chars_c<unsigned long long>(u"1"_u, radix));
                      EXPECT_FALSE(orv::from_chars_c<int>("", radix));
                      EXPECT_FALSE(orv::from_chars_c<int>(LONG, radix == 2 ? 8 : radix));
                      EXPECT_EQ(orv::strtoi_c("!", nullptr, radix), 0);
                  }
                  EXPECT_EQ(orv::stoi_c("-12"), -12);
                  EXPECT_EQ(orv::strtoll_c(LONG.c_str(), nullptr),
                            std::numeric_limits<std::int64_t>::max());
              }),
              0U);
}

TEST(IntegerTextAllocation, WritingIntoTheCallersMemoryNeedsNone) {
    EXPECT_EQ(allocationsOf([] {
                  char narrow[70];
                  orv::char16 wide[70];
                  for (int radix = 2; radix <= 36; ++radix) {
                      EXPECT_TRUE(orv::to_chars_c(narrow, narrow + 70, ~0ULL, radix));
                      EXPECT_TRUE(orv::to_chars_c(wide, wide + 70, ~0ULL, radix));
                  }
              }),
              0U);
}

TEST(IntegerTextAllocation, AStringIsAllocatedOnce) {
    EXPECT_EQ(allocationsOf([] { EXPECT_EQ(orv::to_string_c(~0ULL).size(), 20U); }), 1U);
    EXPECT_EQ(allocationsOf([] { EXPECT_EQ(orv::to_ustring_c(~0ULL).size(), 20U); }), 1U);
    EXPECT_EQ(allocationsOf([] { EXPECT_EQ(orv::to_string_c(-5).size(), 2U); }), 0U);
    EXPECT_EQ(allocationsOf([] { EXPECT_EQ(orv::to_ustring_c(-5).size(), 2U); }), 0U);
}

TEST(IntegerTextAllocation, MemoryThatRunsOutIsTold) {
    orvtest::failAllocation(1);
    EXPECT_THROW(orv::to_string_c(~0ULL), std::bad_alloc);
    orvtest::failAllocation(1);
    EXPECT_THROW(orv::to_ustring_c(~0ULL), std::bad_alloc);
    orvtest::failAllocation(0);
}

} // namespace
