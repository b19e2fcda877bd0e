// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `from_chars_c` of decimal numbers: statuses and lengths.
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/shown_decimal.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <string>

namespace {

using namespace orv::literals;
using orv::from_chars_c;
using orv::number_status;
using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orvtest::shown;

static_assert(noexcept(from_chars_c<decimal64>(orv::string_ref())));

template <class Decimal>
class FromCharsDecimal : public testing::Test {};
using DecimalTypes = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(FromCharsDecimal, DecimalTypes);

TYPED_TEST(FromCharsDecimal, TellsWhatItFound) {
    const auto read = from_chars_c<TypeParam>("2.50 EUR");
    EXPECT_TRUE(read);
    EXPECT_EQ(shown(read.value), "250E-2");
    EXPECT_EQ(read.length, 4U);
    EXPECT_EQ(read.status, number_status::ok);
    EXPECT_EQ(shown(from_chars_c<TypeParam>(u"-2.50 \u20AC"_u).value), "-250E-2");
}

TYPED_TEST(FromCharsDecimal, HasAStatusForEachFailure) {
    const auto expectFailure = [](orv::string_ref text, number_status status) {
        const auto read = from_chars_c<TypeParam>(text);
        EXPECT_FALSE(read);
        EXPECT_EQ(read.status, status);
        EXPECT_EQ(read.length, 0U);
        EXPECT_EQ(shown(read.value).substr(0, 3), "0E-") << "all bits 0";
    };
    expectFailure("", number_status::digit_expected);
    expectFailure(" x", number_status::digit_expected);
    expectFailure("infi", number_status::infinity_expected);
    expectFailure("nano", number_status::nan_expected);
}

TYPED_TEST(FromCharsDecimal, TakesInfinityForANumberThatFits) {
    errno = 9;
    const auto read = from_chars_c<TypeParam>("-1e99999");
    EXPECT_EQ(read.status, number_status::ok);
    EXPECT_EQ(shown(read.value), "-inf");
    EXPECT_EQ(read.length, 8U);
    EXPECT_EQ(errno, 9);
}

} // namespace
