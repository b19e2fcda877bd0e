// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rounding of decimals to an exponent: by example, at the ends of the range, and beside
/// exact arithmetic.
#include "orv/liborvxx/decimal/decimal_math.h"

#include "orv/liborvxx/decimal/decimal_limits.h"
#include "orv/liborvxx/decimal/decimal_literals.h"
#include "orv/liborvxx/decimal/make_decimal.h"

#include "tests/decimal/decimal_bits.h"
#include "tests/decimal/decimal_fixture.h"
#include "tests/decimal/exact_decimal.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <limits>

namespace {

using orvtest::bitsOf;
using orvtest::madeOf;
using namespace orv::literals;

template <class T>
class DecimalRounding : public orvtest::WithoutErrno<T> {};
TYPED_TEST_SUITE(DecimalRounding, orvtest::DecimalClasses);

TYPED_TEST(DecimalRounding, GivesANumberTheExponentOfAnother) {
    using T = TypeParam;
    using orv::decimal::rounding;
    const auto expectQuantum = [](const T& x, const T& y, const T& expected, rounding mode) {
        EXPECT_EQ(bitsOf(quantize(x, y, mode)), bitsOf(expected));
    };
    EXPECT_EQ(bitsOf(quantize(T(2.345_d32), T(0.01_d32))), bitsOf(T(2.34_d32)));
    expectQuantum(2.345_d32, 0.01_d32, 2.35_d32, rounding::half_away);
    expectQuantum(2.341_d32, 0.01_d32, 2.35_d32, rounding::ceiling);
    expectQuantum(-2.341_d32, 0.01_d32, -2.34_d32, rounding::ceiling);
    expectQuantum(-2.341_d32, 0.01_d32, -2.35_d32, rounding::floor);
    expectQuantum(2.349_d32, 0.01_d32, 2.34_d32, rounding::floor);
    expectQuantum(-2.349_d32, 0.01_d32, -2.34_d32, rounding::toward_zero);
    expectQuantum(2_d32, 0.01_d32, 2.00_d32, rounding::half_even);
    expectQuantum(2_d32, -7e1_d32, 0e1_d32, rounding::half_even);
    EXPECT_TRUE(isnan(quantize(this->MAX, T(1))) && isnan(quantize(T(1), this->INF)));
    EXPECT_EQ(bitsOf(quantize(this->INF, this->INF)), bitsOf(this->INF));
}

TYPED_TEST(DecimalRounding, RoundsToDigitsBehindThePoint) {
    using T = TypeParam;
    using orv::decimal::rounding;
    const auto expectRound = [](const T& x, int scale, const T& expected) {
        EXPECT_EQ(bitsOf(round(x, scale)), bitsOf(expected));
    };
    expectRound(2.345_d32, 2, 2.34_d32);
    expectRound(2.355_d32, 2, 2.36_d32);
    expectRound(-2.345_d32, 1, -2.3_d32);
    expectRound(2.5_d32, 0, 2_d32);
    expectRound(1250_d32, -2, 12e2_d32);
    expectRound(1350_d32, -2, 14e2_d32);
    expectRound(49_d32, -2, 0e2_d32);
    expectRound(-0.004_d32, 2, -0.00_d32);
    expectRound(1.5_d32, 4, 1.5000_d32);
    expectRound(0_d32, 3, 0.000_d32);
    EXPECT_EQ(bitsOf(round(T(2.345_d32), 2, rounding::half_away)), bitsOf(T(2.35_d32)));
    EXPECT_EQ(bitsOf(round(T(-2.341_d32), 2, rounding::floor)), bitsOf(T(-2.35_d32)));
    EXPECT_EQ(bitsOf(round(T(0.1_d32), 0, rounding::ceiling)), bitsOf(T(1)));
    EXPECT_EQ(bitsOf(round(T(99_d32), -1, rounding::toward_zero)), bitsOf(T(9e1_d32)));
}

TYPED_TEST(DecimalRounding, RoundsNothingThatHasNoDigitToLose) {
    using T = TypeParam;
    const int least = std::numeric_limits<T>::min_exponent - std::numeric_limits<T>::digits;
    EXPECT_EQ(quantexp(round(T(0), -least)), least);
    EXPECT_EQ(quantexp(round(T(0), 1 - least)), 0);
    for (const T& x : {this->MAX, T(1e30_d32), T(123456e20_d32), this->INF, -this->INF}) {
        for (const int scale : {60, 400, 7000, INT_MAX}) {
            EXPECT_EQ(bitsOf(round(x, scale)), bitsOf(x));
        }
    }
    EXPECT_EQ(bitsOf(round(this->TINY, INT_MAX)), bitsOf(this->TINY));
    EXPECT_EQ(bitsOf(round(T(1.5_d32), 7000)), bitsOf(T(1.5_d32)));
    EXPECT_TRUE(isnan(round(this->NOT_A_NUMBER, 2)));
    EXPECT_EQ(bitsOf(round(std::numeric_limits<T>::signaling_NaN(), 2)),
              bitsOf(this->NOT_A_NUMBER));
}

TYPED_TEST(DecimalRounding, RoundsToPowersOfTenBeyondTheGreatestExponent) {
    using T = TypeParam;
    using L = std::numeric_limits<T>;
    using orv::decimal::rounding;
    const int greatest = L::max_exponent - L::digits;
    const auto power = [](int exponent) { return scalbn(T(1), exponent); };
    EXPECT_EQ(round(this->MAX, -greatest - 1), this->INF);
    EXPECT_EQ(round(this->MAX, -greatest - 1, rounding::floor), this->MAX - T(9) * power(greatest));
    EXPECT_EQ(bitsOf(round(power(greatest) * T(35), -greatest - 1)),
              bitsOf(power(greatest) * T(40)));
    EXPECT_EQ(bitsOf(round(power(greatest) * T(25), -greatest - 1)),
              bitsOf(power(greatest) * T(20)));
    EXPECT_EQ(bitsOf(round(power(greatest) * T(5), -greatest - 1)), bitsOf(T(0) * power(greatest)));
    EXPECT_EQ(round(power(greatest) * T(6), -greatest - 1), power(greatest + 1));
    EXPECT_EQ(round(this->TINY, -greatest - 1, rounding::ceiling), power(greatest + 1));
    EXPECT_EQ(round(this->TINY, 1 - L::max_exponent, rounding::ceiling), power(L::max_exponent10));
    EXPECT_EQ(round(-this->TINY, 1 - L::max_exponent, rounding::floor), -power(L::max_exponent10));
    EXPECT_EQ(round(this->TINY, -L::max_exponent, rounding::ceiling), this->INF);
    EXPECT_EQ(round(this->MAX, INT_MIN), T(0));
    EXPECT_EQ(round(this->MAX, INT_MIN, rounding::ceiling), this->INF);
    EXPECT_EQ(round(T(0), INT_MIN, rounding::ceiling), T(0));
}

// n / 10^digits, rounded.
mpz_class roundedQuotient(const mpz_class& n, int digits, orv::decimal::rounding mode) {
    using orv::decimal::rounding;
    const mpz_class divisor = orvtest::power10(digits);
    mpz_class floor;
    mpz_class rest;
    mpz_fdiv_qr(floor.get_mpz_t(), rest.get_mpz_t(), n.get_mpz_t(), divisor.get_mpz_t());
    const int half = cmp(mpz_class(rest * 2), divisor);
    const bool negative = n < 0;
    bool up = false;
    switch (mode) {
    case rounding::half_even:
        up = half > 0 || (half == 0 && mpz_odd_p(floor.get_mpz_t()) != 0);
        break;
    case rounding::floor:
        break;
    case rounding::ceiling:
        up = rest != 0;
        break;
    case rounding::toward_zero:
        up = negative && rest != 0;
        break;
    case rounding::half_away:
        up = half > 0 || (half == 0 && !negative);
        break;
    }
    return up ? mpz_class(floor + 1) : floor;
}

TYPED_TEST(DecimalRounding, RoundsLikeExactArithmetic) {
    using T = TypeParam;
    orvtest::NumberSource source(64);
    for (std::size_t i = orvtest::caseCount(30000); i > 0; --i) {
        const int least = -30;
        T x = madeOf(source.between(-9999999, 9999999) >> source.below(20),
                     source.between(least + 10, 12));
        if (source.coin()) { // often a tie
            x = T(madeOf(source.between(-2000, 2000) * 5, source.between(least + 10, 12)));
        }
        const auto mode = static_cast<orv::decimal::rounding>(source.below(5));
        const int scale = source.between(-20, 22);
        const T rounded = round(x, scale, mode);
        ASSERT_EQ(signbit(rounded), signbit(x));
        if (quantexp(x) >= -scale) {
            ASSERT_EQ(rounded, x) << bitsOf(x) << ' ' << scale;
            ASSERT_TRUE(quantexp(rounded) == -scale || bitsOf(rounded) == bitsOf(x));
        } else {
            ASSERT_EQ(quantexp(rounded), -scale);
            ASSERT_EQ(orvtest::scaled(rounded, -scale),
                      roundedQuotient(orvtest::scaled(x, quantexp(x)), -scale - quantexp(x), mode))
                << bitsOf(x) << ' ' << scale << ' ' << static_cast<int>(mode);
        }
    }
}

} // namespace
