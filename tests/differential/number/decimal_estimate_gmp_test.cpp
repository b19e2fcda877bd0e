// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The bounds that estimates promise, worked out by GMP for every power of ten.
#include "orv/liborvxx/number/detail/decimal_estimate.h"

#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "tests/differential/number/float_cases.h"
#include "tests/reference/binary_float_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>

namespace {

using orv::big_uint;
using namespace orv::detail;

// n * 2^shift, rounded down
mpz_class shifted(const mpz_class& n, int shift) {
    return shift >= 0 ? mpz_class(n << static_cast<unsigned>(shift))
                      : mpz_class(n >> static_cast<unsigned>(-shift));
}

TEST(DecimalEstimate, EveryPowerOfTenIsWithinItsBounds) {
    for (int n = MIN_ESTIMATED_EXPONENT; n <= MAX_ESTIMATED_EXPONENT; ++n) {
        const Estimate estimate = estimatePow10(n);
        mpz_class power;
        mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned>(n < 0 ? -n : n));
        const mpz_class significand =
            (mpz_class(estimate.significand.high) << 64U) + mpz_class(estimate.significand.low);
        ASSERT_GE(mpz_sizeinbase(significand.get_mpz_t(), 2), 127U) << n;
        // Both sides times 2^1300, which makes them integers.
        const mpz_class low = shifted(significand, estimate.exponent + 1300);
        const mpz_class high = shifted(significand + 2, estimate.exponent + 1300);
        const mpz_class one = mpz_class(1) << 1300U;
        const mpz_class exact = n < 0 ? mpz_class(one / power) : mpz_class(one * power);
        ASSERT_LE(low, exact) << n;
        ASSERT_GT(high, exact) << n;
    }
}

TEST(DecimalEstimate, KnowsTheHighestBitOfEveryPowerOfTen) {
    mpz_class power = 1;
    for (int n = 0; n <= 400; ++n) {
        ASSERT_EQ(floorLog2OfPow10(n), static_cast<int>(mpz_sizeinbase(power.get_mpz_t(), 2)) - 1)
            << n;
        if (n > 0) { // no power but 1 is a power of two
            ASSERT_EQ(floorLog2OfPow10(-n), -static_cast<int>(mpz_sizeinbase(power.get_mpz_t(), 2)))
                << n;
        }
        power *= 10;
    }
}

template <class Float>
std::optional<Float> estimate(int exponent, const big_uint& coefficient) {
    const unsigned bits = coefficient.bit_length();
    return roundEstimate<Float>(false, exponent, coefficient, bits, bits);
}

TEST(DecimalEstimate, LeavesTiesOpen) {
    EXPECT_FALSE(estimate<double>(1, big_uint(9007199254740995ULL / 5)).has_value());
    EXPECT_TRUE(estimate<double>(1, big_uint(9007199254741000ULL / 5)).has_value());
    EXPECT_FALSE(estimate<double>(-1, big_uint(90071992547409930ULL)).has_value());
    EXPECT_FALSE(estimate<float>(1, big_uint(16777225U / 5)).has_value());
    EXPECT_TRUE(estimate<double>(-1, big_uint(90071992547409931ULL)).has_value());
}

TEST(DecimalEstimate, DecidesNearlyAllNumbers) {
    orvtest::NumberSource source(31);
    std::size_t open = 0;
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const big_uint coefficient(static_cast<unsigned long long>(source.bits() | 1U));
        const int exponent = source.between(-330, 300);
        const int small = source.between(-60, 30);
        open += estimate<double>(exponent, coefficient).has_value() ? 0U : 1U;
        open += estimate<float>(small, coefficient).has_value() ? 0U : 1U;
    }
    EXPECT_LE(open, orvtest::caseCount(100'000) / 10'000);
}

// The long division and the multiplication alone, which estimates otherwise keep from random
// numbers: coefficients beyond 8192 bits have none.
TEST(MakeBinaryExactly, AgreesWithTheStepsForNumbersWithoutAnEstimate) {
    orvtest::NumberSource source(32);
    mpz_class scratch;
    for (std::size_t i = orvtest::caseCount(20'000); i > 0; --i) {
        big_uint coefficient = source.number(257 + source.below(40));
        coefficient[256] |= 1U << source.below(32);
        const int magnitude = (coefficient.highest_set_bit() * 1233) >> 12U;
        const int exponent = source.between(-330, 312) - magnitude;
        orvtest::assign(scratch, coefficient);
        ASSERT_EQ(orvtest::floatBits(makeBinary<double>(false, exponent, coefficient, 0)),
                  orvtest::floatBits(orvtest::modelMakeDouble(false, exponent, scratch, 0)))
            << scratch << " * 10^" << exponent;
    }
}

} // namespace
