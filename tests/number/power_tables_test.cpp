// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The tables behind the powers: widths, squares, kept powers of five.
#include "orv/liborvxx/number/detail/power_tables.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using orv::big_uint;
using Tables = orv::big_uint_tables;

TEST(PowerTables, TenSquaredAgainAndAgainIsInItsMinimalWidth) {
    EXPECT_TRUE(Tables::pow10Square(0).is_equal(10));
    for (unsigned k = 1; k < Tables::POW10_SQUARE_COUNT; ++k) {
        const big_uint& root = Tables::pow10Square(k - 1);
        big_uint square;
        square.set_size(2 * root.size());
        square.multiply(root, root);
        EXPECT_EQ(Tables::pow10Square(k), square) << k;
        EXPECT_NE(Tables::pow10Square(k).msw(), 0U) << k;
    }
    EXPECT_EQ(Tables::pow10Square(12).size(), 426U);
}

TEST(PowerTables, CopiesOfConstantsAreNumbersOfTheirOwn) {
    big_uint copy = Tables::pow10Square(12);
    EXPECT_NE(copy.data(), Tables::pow10Square(12).data());
    EXPECT_EQ(copy.multiply_by_10(), 0U);
    EXPECT_NE(copy, Tables::pow10Square(12));
    big_uint small = Tables::pow10(77);
    EXPECT_TRUE(small.is_local());
    small.clear_bit(255);
    EXPECT_NE(small, Tables::pow10(77));
}

TEST(PowerTables, FiveSquaredAgainAndAgainIsMadeOnce) {
    for (unsigned k = Tables::POW5_SQUARE_COUNT; k-- > 0;) {
        const big_uint& square = Tables::pow5Square(k);
        EXPECT_EQ(&Tables::pow5Square(k), &square) << k;
        big_uint expected;
        EXPECT_EQ(square, big_uint::pow5(1U << k, &expected)) << k;
        EXPECT_NE(square.msw(), 0U) << k;
    }
}

TEST(PowerTables, EndAtTheFourteenthSquareOfFive) {
    EXPECT_EQ(orvtest::thrownMessage<std::out_of_range>([] { (void)Tables::pow5Square(15); }),
              "invalid array<T, N> subscript");
}

#ifndef NDEBUG
TEST(PowerTablesDeathTest, AssertThatAPowerOfTenIsThere) {
    EXPECT_DEATH((void)Tables::pow10(78), "POW10_COUNT");
    EXPECT_DEATH((void)Tables::pow10Square(13), "POW10_SQUARE_COUNT");
}
#endif

} // namespace
