// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient, exponent and class of decimals, whatever their encoding.
#include "orv/liborvxx/decimal/decimal_access.h"

#include "orv/liborvxx/decimal/decimal_literals.h"
#include "orv/liborvxx/number/big_uint.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <concepts>
#include <cstddef>
#include <cstdint>

namespace {

using orv::big_uint;
using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using namespace orv::literals;

static_assert(std::same_as<decltype(coefficient(decimal64())), std::size_t> &&
              std::same_as<decltype(coefficient(decimal128())), big_uint> &&
              std::same_as<decltype(quantexp(decimal64())), int> &&
              std::same_as<decltype(fp_classify(decimal128())), int>);

constexpr std::uint64_t INFINITY_BITS = 0x7800000000000000;
constexpr std::uint64_t NAN_BITS = 0x7C00000000000000;
constexpr std::uint64_t SIGN = 0x8000000000000000;

decimal32 of32(std::uint32_t bits) {
    return ODecimal32{bits};
}
decimal64 of64(std::uint64_t bits) {
    return ODecimal64{bits};
}
decimal128 of128(std::uint64_t high, std::uint64_t low) {
    return ODecimal128{low, high};
}

TEST(DecimalCoefficient, IsTheDigitsInEitherForm) {
    EXPECT_EQ(coefficient(-1.50_d32), 150U);
    EXPECT_EQ(coefficient(1.50_d64), 150U);
    EXPECT_EQ(coefficient(-0.00_d64), 0U);
    EXPECT_EQ(coefficient(8388607_d32), 8388607U);
    EXPECT_EQ(coefficient(8388608_d32), 8388608U);
    EXPECT_EQ(coefficient(9999999e90_d32), 9999999U);
    EXPECT_EQ(coefficient(9007199254740991_d64), 9007199254740991U);
    EXPECT_EQ(coefficient(9007199254740992_d64), 9007199254740992U);
    EXPECT_EQ(coefficient(-9999999999999999e369_d64), 9999999999999999U);
    EXPECT_EQ(coefficient(-9.999999999999999999999999999999999_d128).to_string(),
              "9999999999999999999999999999999999");
    EXPECT_EQ(coefficient(18446744073709551616e-6176_d128).to_string(), "18446744073709551616");
    EXPECT_EQ(coefficient(0e6111_d128).to_string(), "0");
}

TEST(DecimalCoefficient, IsReturnedAsItIsWhereItIsTooLarge) {
    EXPECT_EQ(coefficient(of32(0x6CB89680)), 10000000U);
    EXPECT_EQ(coefficient(of32(0x6CBFFFFF)), (1U << 23U) + 0x1FFFFF);
    EXPECT_EQ(coefficient(of64(0x6C7386F26FC10000)), 10000000000000000U);
    EXPECT_EQ(coefficient(of64(0x6C77FFFFFFFFFFFF)), (std::uint64_t{1} << 53U) + 0x7FFFFFFFFFFFF);
    EXPECT_EQ(coefficient(of128(0x3041ED09BEAD87C0, 0x378D8E6400000000)).to_string(),
              "10000000000000000000000000000000000");
    EXPECT_EQ(coefficient(of128(0x3041FFFFFFFFFFFF, ~std::uint64_t{0})).to_string(),
              "10384593717069655257060992658440191"); // 2^113 - 1
}

TEST(DecimalCoefficient, IsZeroInTheLargeFormOf128Bits) {
    EXPECT_EQ(coefficient(of128(0x6C10000000000000, 5)).to_string(), "0");
    EXPECT_EQ(coefficient(of128(0x6000000000000000, 1)).to_string(), "0");
    EXPECT_EQ(coefficient(of128(0xEFFFFFFFFFFFFFFF, ~std::uint64_t{0})).to_string(), "0");
}

TEST(DecimalCoefficient, IsZeroForSpecials) {
    for (const std::uint64_t top :
         {INFINITY_BITS, SIGN | INFINITY_BITS, INFINITY_BITS | 12345, NAN_BITS, SIGN | NAN_BITS,
          NAN_BITS | 7, NAN_BITS | std::uint64_t{1} << 57U, ~std::uint64_t{0}}) {
        EXPECT_EQ(coefficient(of64(top)), 0U);
        EXPECT_EQ(coefficient(of128(top, 99)).to_string(), "0");
        EXPECT_EQ(coefficient(of32(static_cast<std::uint32_t>(top >> 32U))), 0U);
    }
}

TEST(DecimalCoefficient, NeedsNoMoreWordsThanItsBits) {
    EXPECT_EQ(coefficient(0_d128).size(), 1U);
    EXPECT_EQ(coefficient(4294967295_d128).size(), 1U);
    EXPECT_EQ(coefficient(4294967296_d128).size(), 2U);
    EXPECT_EQ(coefficient(18446744073709551616_d128).size(), 3U);
    EXPECT_EQ(coefficient(9999999999999999999999999999999999_d128).size(), 4U);
    EXPECT_TRUE(coefficient(9999999999999999999999999999999999_d128).is_local());
}

TEST(DecimalQuantexp, IsTheExponentOfTheLowestDigitInEitherForm) {
    errno = ERANGE;
    EXPECT_EQ(quantexp(1.50_d32), -2);
    EXPECT_EQ(quantexp(1.50_d64), -2);
    EXPECT_EQ(quantexp(-1.50_d128), -2);
    EXPECT_EQ(quantexp(0e-101_d32), -101);
    EXPECT_EQ(quantexp(1e90_d32), 90);
    EXPECT_EQ(quantexp(9999999e-101_d32), -101);
    EXPECT_EQ(quantexp(9999999e90_d32), 90);
    EXPECT_EQ(quantexp(1e-398_d64), -398);
    EXPECT_EQ(quantexp(1e369_d64), 369);
    EXPECT_EQ(quantexp(9999999999999999e-398_d64), -398);
    EXPECT_EQ(quantexp(-9999999999999999e369_d64), 369);
    EXPECT_EQ(quantexp(1e-6176_d128), -6176);
    EXPECT_EQ(quantexp(-9999999999999999999999999999999999e6111_d128), 6111);
    EXPECT_EQ(errno, ERANGE);
    errno = 0;
}

TEST(DecimalQuantexp, IsReadFromTheFieldOfNumbersThatAreNotCanonical) {
    EXPECT_EQ(quantexp(of32(0x6CB89680)), 0);
    EXPECT_EQ(quantexp(of64(0x6C7386F26FC10000)), 0);
    EXPECT_EQ(quantexp(of128(0x3041ED09BEAD87C0, 0x378D8E6400000000)), 0);
    EXPECT_EQ(quantexp(of128(0x6C10000000000000, 5)), 0);
    EXPECT_EQ(quantexp(of128(0x6000000000000000, 1)), -6176);
}

TEST(DecimalQuantexp, FailsForSpecials) {
    for (const std::uint64_t top :
         {INFINITY_BITS, SIGN | INFINITY_BITS, NAN_BITS, SIGN | NAN_BITS, ~std::uint64_t{0}}) {
        errno = 0;
        EXPECT_EQ(quantexp(of64(top)), INT_MIN);
        EXPECT_EQ(errno, EDOM);
        errno = 0;
        EXPECT_EQ(quantexp(of128(top, 0)), INT_MIN);
        EXPECT_EQ(errno, EDOM);
        errno = 0;
        EXPECT_EQ(quantexp(of32(static_cast<std::uint32_t>(top >> 32U))), INT_MIN);
        EXPECT_EQ(errno, EDOM);
    }
    errno = 0;
}

// The numbers are an interface of their own.
static_assert(orv::decimal::fp_class_zero == 0 && orv::decimal::fp_class_subnormal == 1 &&
              orv::decimal::fp_class_normal == 2 && orv::decimal::fp_class_infinite == 3 &&
              orv::decimal::fp_class_nan == 4);

TEST(DecimalFpClassify, TellsTheFiveClassesOfEitherSign) {
    const auto expectClass = [](int expected, const auto& x) {
        EXPECT_EQ(fp_classify(x), expected);
        EXPECT_EQ(fp_classify(-x), expected);
        EXPECT_EQ(isnormal(x), expected == 2);
    };
    expectClass(0, 0_d32);
    expectClass(0, 0e369_d64);
    expectClass(0, 0.00_d128);
    expectClass(1, 1e-101_d32);
    expectClass(1, 999999e-101_d32);
    expectClass(2, 1000000e-101_d32);
    expectClass(2, 9999999e90_d32);
    expectClass(1, 1e-398_d64);
    expectClass(1, 999999999999999e-398_d64);
    expectClass(2, 1e-383_d64);
    expectClass(2, 1_d64);
    expectClass(1, 999999999999999999999999999999999e-6176_d128);
    expectClass(2, 1e-6143_d128);
    expectClass(3, of32(0x78000000));
    expectClass(3, of64(INFINITY_BITS));
    expectClass(3, of64(INFINITY_BITS | 1));
    expectClass(3, of128(INFINITY_BITS, 1));
    expectClass(4, of32(0x7C000000));
    expectClass(4, of32(0x7E000001));
    expectClass(4, of64(NAN_BITS));
    expectClass(4, of64(0x7E00000000000000));
    expectClass(4, of128(NAN_BITS, 1));
    expectClass(4, of128(0x7E00000000000000, 0));
}

TEST(DecimalFpClassify, TakesACoefficientAboveTheLargestForZero) {
    EXPECT_EQ(fp_classify(of32(0x6CB89680)), 0);
    EXPECT_EQ(fp_classify(of64(0x6C7386F26FC10000)), 0);
    EXPECT_EQ(fp_classify(of128(0x3041ED09BEAD87C0, 0x378D8E6400000000)), 0);
    EXPECT_EQ(fp_classify(of128(0x6C10000000000000, 5)), 0);
}

// The questions are answered from the bits, also by the compiler.
static_assert(isnan(decimal64(ODecimal64{NAN_BITS})) &&
              !isnan(decimal64(ODecimal64{INFINITY_BITS})));
static_assert(isinf(decimal32(ODecimal32{0xF8000000})) && !isinf(decimal32(1)));
static_assert(isfinite(decimal128(1)) && !isfinite(decimal128(ODecimal128{0, NAN_BITS})));
static_assert(signbit(-decimal128(0)) && !signbit(decimal32(0)));

TEST(DecimalQuestions, AgreeWithTheCLibraryForEveryTopByte) {
    for (std::uint64_t byte = 0; byte < 256; ++byte) {
        for (const std::uint64_t rest : {std::uint64_t{0}, std::uint64_t{0xFFFFFFFFFFFFFF}}) {
            const std::uint64_t top = byte << 56U | rest;
            const decimal64 x = of64(top);
            EXPECT_EQ(isnan(x), orvDec64IsNaN(x.record()) != 0) << top;
            EXPECT_EQ(isinf(x), orvDec64IsInfinite(x.record()) != 0) << top;
            EXPECT_EQ(isfinite(x), orvDec64IsFinite(x.record()) != 0) << top;
            EXPECT_EQ(isnormal(x), orvDec64IsNormal(x.record()) != 0) << top;
            EXPECT_EQ(signbit(x), orvDec64IsSigned(x.record()) != 0) << top;
            const decimal128 y = of128(top, rest);
            EXPECT_EQ(isnan(y), orvDec128IsNaN(y.record()) != 0) << top;
            EXPECT_EQ(isinf(y), orvDec128IsInfinite(y.record()) != 0) << top;
            EXPECT_EQ(isfinite(y), orvDec128IsFinite(y.record()) != 0) << top;
            const decimal32 z = of32(static_cast<std::uint32_t>(top >> 32U));
            EXPECT_EQ(isnan(z), orvDec32IsNaN(z.record()) != 0) << top;
            EXPECT_EQ(isinf(z), orvDec32IsInfinite(z.record()) != 0) << top;
            EXPECT_EQ(isfinite(z), orvDec32IsFinite(z.record()) != 0) << top;
            EXPECT_EQ(signbit(z), orvDec32IsSigned(z.record()) != 0) << top;
        }
    }
}

TEST(DecimalOrder, KnowsExponentsApart) {
    EXPECT_TRUE(same_quantum(1.5_d64, 2.0_d64) && same_quantum(1.5_d32, 2.0_d128));
    EXPECT_FALSE(same_quantum(1.5_d64, 1.50_d64) || same_quantum(1_d64, of64(INFINITY_BITS)));
    EXPECT_TRUE(same_quantum(of64(INFINITY_BITS), -of64(INFINITY_BITS)));
    EXPECT_TRUE(same_quantum(of64(NAN_BITS), -of64(NAN_BITS | 1)));
    EXPECT_TRUE(same_quantum(15_d64, 3));
    EXPECT_TRUE(total_order(1.50_d64, 1.5_d64) && !total_order(1.5_d64, 1.50_d64));
    EXPECT_TRUE(total_order(-0_d64, 0_d64) && !total_order(0_d64, -0_d64));
    EXPECT_TRUE(total_order(of64(INFINITY_BITS), of64(NAN_BITS)));
    EXPECT_TRUE(total_order(-of64(NAN_BITS), -of64(INFINITY_BITS)));
    EXPECT_TRUE(total_order(1, 1.5_d64) && !total_order(2_d32, 1.5_d64));
}

} // namespace
