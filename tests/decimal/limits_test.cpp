// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::numeric_limits` of the decimal types.
#include "orv/liborvxx/decimal/decimal_limits.h"

#include "orv/liborvxx/decimal/decimal_access.h"
#include "orv/liborvxx/decimal/decimal_literals.h"
#include "orv/liborvxx/decimal/decimal_math.h"

#include "tests/decimal/decimal_bits.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orvtest::bitsOf;
using namespace orv::literals;

template <class T>
constexpr bool hasCommonLimits() {
    using L = std::numeric_limits<T>;
    return L::is_specialized && L::is_signed && !L::is_integer && !L::is_exact && L::has_infinity &&
           L::has_quiet_NaN && L::has_signaling_NaN && L::has_denorm == std::denorm_present &&
           !L::has_denorm_loss && L::round_style == std::round_to_nearest && L::is_iec559 &&
           L::is_bounded && !L::is_modulo && L::radix == 10 && !L::traps && L::tinyness_before &&
           L::digits10 == L::digits && L::max_digits10 == L::digits &&
           L::min_exponent10 == L::min_exponent - 1 && L::max_exponent10 == L::max_exponent - 1;
}
static_assert(hasCommonLimits<decimal32>() && hasCommonLimits<decimal64>() &&
              hasCommonLimits<decimal128>() && hasCommonLimits<const decimal64>());

template <class T>
constexpr bool hasLimits(int digits, int minExponent, int maxExponent) {
    using L = std::numeric_limits<T>;
    return L::digits == digits && L::min_exponent == minExponent && L::max_exponent == maxExponent;
}
static_assert(hasLimits<decimal32>(7, -94, 97) && hasLimits<decimal64>(16, -382, 385) &&
              hasLimits<decimal128>(34, -6142, 6145));

template <class T>
constexpr bool NAN_AS_CONSTANT = isnan(std::numeric_limits<T>::quiet_NaN()) &&
                                 isnan(std::numeric_limits<T>::signaling_NaN()) &&
                                 isinf(std::numeric_limits<T>::infinity());
static_assert(NAN_AS_CONSTANT<decimal32> && NAN_AS_CONSTANT<decimal64> &&
              NAN_AS_CONSTANT<decimal128>);

TEST(DecimalLimits, AreTheNumbersOfTheStandard) {
    using L32 = std::numeric_limits<decimal32>;
    using L64 = std::numeric_limits<decimal64>;
    using L128 = std::numeric_limits<decimal128>;
    EXPECT_EQ(bitsOf(L32::max()), bitsOf(9.999999e96_d32));
    EXPECT_EQ(bitsOf(L64::max()), bitsOf(9.999999999999999e384_d64));
    EXPECT_EQ(bitsOf(L128::max()), bitsOf(9.999999999999999999999999999999999e6144_d128));
    EXPECT_EQ(bitsOf(L32::lowest()), bitsOf(-9.999999e96_d32));
    EXPECT_EQ(bitsOf(L64::lowest()), bitsOf(-9.999999999999999e384_d64));
    EXPECT_EQ(L32::min(), 1e-95_d32);
    EXPECT_EQ(L64::min(), 1e-383_d64);
    EXPECT_EQ(L128::min(), 1e-6143_d128);
    EXPECT_EQ(bitsOf(L32::denorm_min()), bitsOf(1e-101_d32));
    EXPECT_EQ(bitsOf(L64::denorm_min()), bitsOf(1e-398_d64));
    EXPECT_EQ(bitsOf(L128::denorm_min()), bitsOf(1e-6176_d128));
    EXPECT_EQ(bitsOf(L32::infinity()), "78000000");
    EXPECT_EQ(bitsOf(L64::infinity()), "7800000000000000");
    EXPECT_EQ(bitsOf(L128::infinity()), "7800000000000000'0000000000000000");
    EXPECT_EQ(bitsOf(L32::quiet_NaN()), "7C000000");
    EXPECT_EQ(bitsOf(L64::quiet_NaN()), "7C00000000000000");
    EXPECT_EQ(bitsOf(L128::quiet_NaN()), "7C00000000000000'0000000000000000");
    EXPECT_EQ(bitsOf(L32::signaling_NaN()), "7E000000");
    EXPECT_EQ(bitsOf(L64::signaling_NaN()), "7E00000000000000");
    EXPECT_EQ(bitsOf(L128::signaling_NaN()), "7E00000000000000'0000000000000000");
}

template <class T>
class DecimalLimitsOf : public testing::Test {};
using Classes = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalLimitsOf, Classes);

TYPED_TEST(DecimalLimitsOf, AreWhereArithmeticSaysTheyAre) {
    using T = TypeParam;
    using L = std::numeric_limits<T>;
    EXPECT_EQ(next_up(L::max()), L::infinity());
    EXPECT_EQ(next_up(T(0)), L::denorm_min());
    EXPECT_EQ(next_up(T(1)) - T(1), L::epsilon());
    EXPECT_TRUE(isnormal(L::min()) && !isnormal(next_down(L::min())));
    EXPECT_EQ(scalbn(T(1), L::min_exponent10), L::min());
    EXPECT_TRUE(isfinite(scalbn(T(1), L::max_exponent10)));
    EXPECT_TRUE(isinf(scalbn(T(1), L::max_exponent10 + 1)));
    EXPECT_EQ(L::round_error(), T(1) / T(2));
}

} // namespace
