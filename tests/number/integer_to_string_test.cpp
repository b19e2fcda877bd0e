// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `to_string_c` and `to_ustring_c` for integers.
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace {

using namespace orv::literals;

template <class T>
class IntegerToString : public testing::Test {};
using Types = testing::Types<int, long, long long, unsigned, unsigned long, unsigned long long>;
TYPED_TEST_SUITE(IntegerToString, Types);

template <class T>
void expectText(T value, const std::string& text) {
    EXPECT_EQ(orv::to_string_c(value), text);
    EXPECT_EQ(orv::to_ustring_c(value), orvtest::textIn<orv::char16>(text)) << text;
}

TYPED_TEST(IntegerToString, WritesEveryShortNumber) {
    for (int i = 0; i < 70000; ++i) {
        const auto value = static_cast<TypeParam>(i);
        ASSERT_EQ(orv::to_string_c(value), std::to_string(i));
    }
    expectText(TypeParam{0}, "0");
    expectText(TypeParam{1234567}, "1234567");
}

TYPED_TEST(IntegerToString, WritesTheLimits) {
    using Limits = std::numeric_limits<TypeParam>;
    expectText(Limits::max(), std::to_string(Limits::max()));
    expectText(Limits::min(), std::to_string(Limits::min()));
    expectText(static_cast<TypeParam>(Limits::max() - 1), std::to_string(Limits::max() - 1));
    expectText(static_cast<TypeParam>(Limits::min() + 1), std::to_string(Limits::min() + 1));
}

TYPED_TEST(IntegerToString, WritesEachPowerOfTenAndItsNeighbours) {
    std::string text = "1";
    for (TypeParam power = 1;; power = static_cast<TypeParam>(power * 10)) {
        expectText(power, text);
        expectText(static_cast<TypeParam>(power + 1), std::to_string(power + 1));
        expectText(static_cast<TypeParam>(power - 1), std::to_string(power - 1));
        if (std::numeric_limits<TypeParam>::min() < 0) {
            expectText(static_cast<TypeParam>(0 - power), "-" + text);
        }
        if (power > std::numeric_limits<TypeParam>::max() / 10) {
            break;
        }
        text += '0';
    }
}

TYPED_TEST(IntegerToString, WritesEachPowerOfTwoAndItsNeighbours) {
    for (int bit = 0; bit < std::numeric_limits<TypeParam>::digits; ++bit) {
        const auto power = static_cast<TypeParam>(TypeParam{1} << bit);
        expectText(power, std::to_string(power));
        expectText(static_cast<TypeParam>(power - 1), std::to_string(power - 1));
    }
}

TEST(IntegerToStringLimits, StandAsEveryoneKnowsThem) {
    expectText(0, "0");
    expectText(std::numeric_limits<std::int32_t>::min(), "-2147483648");
    expectText(std::numeric_limits<std::int64_t>::min(), "-9223372036854775808");
    expectText(std::numeric_limits<std::uint32_t>::max(), "4294967295");
    expectText(std::numeric_limits<std::uint64_t>::max(), "18446744073709551615");
    expectText(std::size_t{10}, "10");
    EXPECT_EQ(orv::to_ustring_c(-42), u"-42"_u);
}

TEST(IntegerToStringTypes, SmallOnesAreWrittenAsInt) {
    EXPECT_EQ(orv::to_string_c(short{-5}), "-5");
    EXPECT_EQ(orv::to_string_c(static_cast<unsigned char>(200)), "200");
}

} // namespace
