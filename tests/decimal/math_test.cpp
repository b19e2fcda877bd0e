// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Mathematical functions of decimals.
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

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orvtest::bitsOf;
using orvtest::madeOf;
using namespace orv::literals;

template <class T>
class DecimalMath : public orvtest::WithoutErrno<T> {};
TYPED_TEST_SUITE(DecimalMath, orvtest::DecimalClasses);

TYPED_TEST(DecimalMath, SplitsOffAPowerOfTen) {
    using T = TypeParam;
    const auto expectSplit = [](const T& x, const T& fraction, int exponent) {
        int n = 77;
        EXPECT_EQ(bitsOf(frexp(x, &n)), bitsOf(fraction));
        EXPECT_EQ(n, exponent);
    };
    expectSplit(1234_d32, 0.1234_d32, 4);
    expectSplit(-0.00120_d32, -0.120_d32, -2);
    expectSplit(1_d32, 0.1_d32, 1);
    expectSplit(0.1_d32, 0.1_d32, 0);
    expectSplit(0.999_d32, 0.999_d32, 0);
    expectSplit(0_d32, 0_d32, 0);
    expectSplit(-0.00_d32, -0.00_d32, 0);
    expectSplit(0e5_d32, 0e5_d32, 0);
    expectSplit(this->INF, this->INF, 0);
    expectSplit(-this->INF, -this->INF, 0);
    expectSplit(this->NOT_A_NUMBER, this->NOT_A_NUMBER, 0);
    expectSplit(-this->NOT_A_NUMBER, -this->NOT_A_NUMBER, 0);
    expectSplit(this->TINY, 0.1_d32,
                std::numeric_limits<T>::min_exponent - std::numeric_limits<T>::digits + 1);
    int n = 0;
    const T nines = frexp(this->MAX, &n);
    EXPECT_EQ(n, std::numeric_limits<T>::max_exponent);
    EXPECT_TRUE(nines < T(1) && next_up(nines) == T(1));
}

TYPED_TEST(DecimalMath, FindsTheRemainderOfATruncatedQuotient) {
    using T = TypeParam;
    const auto expectFmod = [](const T& x, const T& y, const T& r) {
        EXPECT_EQ(bitsOf(fmod(x, y)), bitsOf(r));
    };
    expectFmod(-7_d32, 3_d32, -1_d32);
    expectFmod(7_d32, -3_d32, 1_d32);
    expectFmod(8_d32, 3_d32, 2_d32); // the IEEE remainder is -1
    expectFmod(-8_d32, -3_d32, -2_d32);
    expectFmod(6_d32, 3_d32, 0_d32);
    expectFmod(-6_d32, 3_d32, -0_d32);
    expectFmod(4.5_d32, 3_d32, 1.5_d32);
    expectFmod(1.5_d32, 3_d32, 1.5_d32);
    expectFmod(2_d32, 3_d32, 2_d32);
    expectFmod(9.999999_d32, 0.001_d32, 0.000999_d32);
    expectFmod(5_d32, this->INF, 5_d32);
    expectFmod(-5_d32, -this->INF, -5_d32);
    EXPECT_TRUE(isnan(fmod(T(5), T(0))) && isnan(fmod(this->INF, T(3))));
    EXPECT_TRUE(isnan(fmod(this->NOT_A_NUMBER, T(3))) && isnan(fmod(T(3), this->NOT_A_NUMBER)));
    // The sign is that of the dividend, also for a NaN.
    EXPECT_TRUE(signbit(fmod(-this->INF, T(3))) && !signbit(fmod(T(5), -this->NOT_A_NUMBER)));
    EXPECT_TRUE(fmod(this->MAX, this->TINY) == T(0));
}

TYPED_TEST(DecimalMath, AgreesWithTheIntegerRemainder) {
    using T = TypeParam;
    orvtest::NumberSource source(63);
    for (std::size_t i = orvtest::caseCount(30000); i > 0; --i) {
        const int least = -40;
        const T x = madeOf(source.between(-9999999, 9999999) >> source.below(20),
                           source.between(least, 30));
        const T y =
            madeOf(1 + source.between(0, 9999998 >> source.below(20)), source.between(least, 30));
        const mpz_class dividend = orvtest::scaled(x, least);
        mpz_class expected;
        mpz_tdiv_r(expected.get_mpz_t(), dividend.get_mpz_t(),
                   orvtest::scaled(y, least).get_mpz_t());
        const T r = fmod(x, y);
        ASSERT_EQ(orvtest::scaled(r, least), expected) << bitsOf(x) << ' ' << bitsOf(y);
        ASSERT_EQ(signbit(r), signbit(x));
    }
}

TYPED_TEST(DecimalMath, TakesRemaindersOfTheNearestQuotient) {
    using T = TypeParam;
    EXPECT_EQ(bitsOf(remainder(T(8), T(3))), bitsOf(T(-1)));
    EXPECT_EQ(bitsOf(remainder(T(-7), T(3))), bitsOf(T(-1)));
    EXPECT_EQ(bitsOf(remainder(T(3), T(2))), bitsOf(T(-1)));
    EXPECT_EQ(bitsOf(remainder(T(1), T(2))), bitsOf(T(1)));
    EXPECT_TRUE(isnan(remainder(T(1), T(0))));
}

TYPED_TEST(DecimalMath, ChangesSignsAndNothingElse) {
    using T = TypeParam;
    EXPECT_EQ(bitsOf(abs(T(-1.50_d32))), bitsOf(T(1.50_d32)));
    EXPECT_EQ(bitsOf(fabs(T(-0.0_d32))), bitsOf(T(0.0_d32)));
    EXPECT_EQ(bitsOf(abs(T(7))), bitsOf(T(7)));
    EXPECT_EQ(bitsOf(abs(-this->NOT_A_NUMBER)), bitsOf(this->NOT_A_NUMBER));
    EXPECT_EQ(bitsOf(copysign(T(2), T(-0.0_d32))), bitsOf(T(-2)));
    EXPECT_EQ(bitsOf(copysign(T(-2), T(5))), bitsOf(T(2)));
    EXPECT_EQ(bitsOf(copysign(this->INF, -this->NOT_A_NUMBER)), bitsOf(-this->INF));
    constexpr T MINUS_TWO = copysign(T(2), T(-1));
    static_assert(signbit(MINUS_TWO) && !signbit(abs(MINUS_TWO)));
}

TYPED_TEST(DecimalMath, ExtractsRootsAndFuses) {
    using T = TypeParam;
    EXPECT_EQ(bitsOf(sqrt(T(2.25_d32))), bitsOf(T(1.5_d32)));
    EXPECT_EQ(bitsOf(sqrt(T(-0.0_d32))), bitsOf(-sqrt(T(0.0_d32))));
    EXPECT_TRUE(isnan(sqrt(T(-1))) && isinf(sqrt(this->INF)));
    EXPECT_EQ(bitsOf(fma(T(1.5_d32), T(2), T(0.25_d32))), bitsOf(T(3.25_d32)));
    const T eps = std::numeric_limits<T>::epsilon();
    EXPECT_EQ(fma(T(1) + eps, T(1) - eps, T(-1)), -eps * eps);
}

TYPED_TEST(DecimalMath, TellsAndMovesExponents) {
    using T = TypeParam;
    EXPECT_EQ(ilogb(T(0.5_d32)), -1);
    EXPECT_EQ(ilogb(T(-1234_d32)), 3);
    EXPECT_EQ(ilogb(T(0)), INT_MIN);
    EXPECT_EQ(ilogb(this->INF), INT_MAX);
    EXPECT_EQ(ilogb(this->NOT_A_NUMBER), INT_MIN);
    EXPECT_EQ(bitsOf(logb(T(1234_d32))), bitsOf(T(3)));
    EXPECT_EQ(bitsOf(logb(T(-0.01_d32))), bitsOf(T(-2)));
    EXPECT_EQ(bitsOf(logb(T(0))), bitsOf(-this->INF));
    EXPECT_EQ(bitsOf(logb(-this->INF)), bitsOf(this->INF));
    EXPECT_TRUE(isnan(logb(this->NOT_A_NUMBER)));
    EXPECT_EQ(bitsOf(scalbn(T(1.50_d32), 3)), bitsOf(T(150e1_d32)));
    EXPECT_EQ(bitsOf(scalbn(T(-15_d32), -2)), bitsOf(T(-0.15_d32)));
    EXPECT_EQ(bitsOf(scalbn(T(1), 100000)), bitsOf(this->INF));
    EXPECT_EQ(scalbn(T(1), -100000), T(0));
}

TYPED_TEST(DecimalMath, ReducesToTheFewestDigits) {
    using T = TypeParam;
    const auto expectReduced = [](const T& x, const T& expected) {
        EXPECT_EQ(bitsOf(reduce(x)), bitsOf(expected));
        EXPECT_EQ(bitsOf(reduce(-x)), bitsOf(-expected));
    };
    expectReduced(1.500_d32, 1.5_d32);
    expectReduced(1000000_d32, 1e6_d32);
    expectReduced(1234567_d32, 1234567_d32);
    expectReduced(1010_d32, 101e1_d32);
    expectReduced(0.00_d32, 0_d32);
    expectReduced(0e20_d32, 0_d32);
    expectReduced(this->MAX, this->MAX);
    expectReduced(this->TINY, this->TINY);
    expectReduced(this->TINY * T(1000), scalbn(this->TINY, 3));
    expectReduced(this->INF, this->INF);
    using L = std::numeric_limits<T>;
    const T greatestPower = scalbn(T(1), L::max_exponent - L::digits);
    expectReduced(greatestPower, greatestPower);
    EXPECT_EQ(bitsOf(reduce(greatestPower * T(10))), bitsOf(greatestPower * T(10)));
    EXPECT_EQ(quantexp(reduce(scalbn(T(1), L::max_exponent10))), L::max_exponent - L::digits);
    EXPECT_TRUE(isnan(reduce(this->NOT_A_NUMBER)));
    EXPECT_EQ(bitsOf(reduce(std::numeric_limits<T>::signaling_NaN())), bitsOf(this->NOT_A_NUMBER));
}

TYPED_TEST(DecimalMath, ReducesAllNumbersOfZerosInEveryPlace) {
    using T = TypeParam;
    using L = std::numeric_limits<T>;
    for (int digits = 1; digits <= L::digits; ++digits) {
        for (int exponent = L::min_exponent - L::digits; exponent <= L::max_exponent - L::digits;
             exponent += 7) {
            // 7 * 10^exponent with some zeros behind it
            const int low = std::max(exponent - digits + 1, L::min_exponent - L::digits);
            const T x = quantize(scalbn(T(7), exponent), scalbn(T(1), low));
            ASSERT_EQ(quantexp(x), low);
            ASSERT_EQ(bitsOf(reduce(x)), bitsOf(scalbn(T(7), exponent)));
        }
    }
}

TYPED_TEST(DecimalMath, RoundsToIntegralValues) {
    using T = TypeParam;
    EXPECT_EQ(bitsOf(floor(T(-1.5_d32))), bitsOf(T(-2)));
    EXPECT_EQ(bitsOf(ceil(T(-1.5_d32))), bitsOf(T(-1)));
    EXPECT_EQ(bitsOf(ceil(T(1.01_d32))), bitsOf(T(2)));
    EXPECT_EQ(bitsOf(trunc(T(-1.9_d32))), bitsOf(T(-1)));
    EXPECT_EQ(bitsOf(rint(T(2.5_d32))), bitsOf(T(2)));
    EXPECT_EQ(bitsOf(nearbyint(T(3.5_d32))), bitsOf(T(4)));
    EXPECT_EQ(bitsOf(rint(T(-0.5_d32))), bitsOf(-T(0)));
    EXPECT_EQ(bitsOf(floor(T(15e2_d32))), bitsOf(T(15e2_d32)));
    EXPECT_EQ(bitsOf(trunc(this->INF)), bitsOf(this->INF));
    EXPECT_TRUE(isnan(ceil(this->NOT_A_NUMBER)));
}

TYPED_TEST(DecimalMath, PrefersNumbersToNan) {
    using T = TypeParam;
    using orv::decimal::max;
    using orv::decimal::min;
    EXPECT_EQ(bitsOf(min(T(1), T(2))), bitsOf(T(1)));
    EXPECT_EQ(bitsOf(max(T(1), T(2))), bitsOf(T(2)));
    EXPECT_EQ(bitsOf(min(T(1), this->NOT_A_NUMBER)), bitsOf(T(1)));
    EXPECT_EQ(bitsOf(max(this->NOT_A_NUMBER, T(1))), bitsOf(T(1)));
    EXPECT_EQ(bitsOf(fmin(T(-3), -this->INF)), bitsOf(-this->INF));
    EXPECT_EQ(bitsOf(fmax(T(-3), T(4))), bitsOf(T(4)));
    EXPECT_TRUE(isnan(min(this->NOT_A_NUMBER, this->NOT_A_NUMBER)));
}

TYPED_TEST(DecimalMath, FindsNeighbours) {
    using T = TypeParam;
    const T eps = std::numeric_limits<T>::epsilon();
    EXPECT_EQ(next_up(T(1)), T(1) + eps);
    EXPECT_EQ(next_down(T(1)), T(1) - eps / T(10));
    EXPECT_EQ(next_up(T(0)), this->TINY);
    EXPECT_EQ(next_down(T(0)), -this->TINY);
    EXPECT_EQ(next_down(this->INF), this->MAX);
    EXPECT_EQ(nextafter(T(1), T(2)), next_up(T(1)));
    EXPECT_EQ(nextafter(T(1), T(-2)), next_down(T(1)));
    EXPECT_EQ(bitsOf(nextafter(T(1), T(1.0_d32))), bitsOf(T(1.0_d32)));
    EXPECT_EQ(bitsOf(nextafter(T(0), -T(0))), bitsOf(-T(0)));
    EXPECT_TRUE(isnan(nextafter(T(1), this->NOT_A_NUMBER)));
    EXPECT_TRUE(isnan(nextafter(this->NOT_A_NUMBER, T(1))));
}

// Operands mix as those of operators do, and do not where something might be rounded.
template <class X, class Y>
concept Combines = requires(const X& x, const Y& y) {
    fmod(x, y);
    remainder(x, y);
    quantize(x, y);
    fma(x, y, x);
    orv::decimal::min(x, y);
    fmax(x, y);
    copysign(x, y);
    nextafter(x, y);
    same_quantum(x, y);
    total_order(x, y);
};
static_assert(Combines<decimal64, int> && Combines<int, decimal64> &&
              Combines<decimal32, decimal128> && Combines<decimal128, std::size_t>);
template <class X, class Y>
concept Quantizes = requires(const X& x, const Y& y) {
    quantize(x, y);
};
static_assert(!Quantizes<decimal64, double> && !Quantizes<decimal64, std::size_t> &&
              !Quantizes<decimal32, int> && !Quantizes<decimal64, bool>);
static_assert(std::same_as<decltype(quantize(decimal32(), decimal64())), decimal64> &&
              std::same_as<decltype(fma(decimal32(), 1, decimal128())), decimal128> &&
              std::same_as<decltype(fmod(decimal32(), decimal32())), decimal32> &&
              std::same_as<decltype(fmod(decimal32(), decimal64())), decimal64> &&
              std::same_as<decltype(orv::decimal::max(1, decimal64())), decimal64>);

// Templates over number types find these functions beside those of std.
template <class T>
bool computesWithStd(const T& x) {
    using namespace std;
    int n = 0;
    return abs(x) == fabs(x) && sqrt(x) > x - x && floor(x) <= ceil(x) && trunc(x) <= rint(x) &&
           fmin(x, x) == fmax(x, x) && min(x, x) == max(x, x) && copysign(x, x) == x &&
           fmod(x, x) == remainder(x, x) && !isnan(x) && !isinf(x) && isfinite(x) && !signbit(x) &&
           isnormal(x) && nextafter(x, x) == x && scalbn(x, 0) == x && frexp(x, &n) < x &&
           fma(x, x, x) > x && ilogb(x) == 0 && logb(x) == x - x && nearbyint(x) <= x &&
           lrint(x) == lround(x) && llrint(x) == llround(x);
}
TEST(DecimalMathTest, StandsBesideTheFunctionsOfStd) {
    EXPECT_TRUE(computesWithStd(2_d32) && computesWithStd(2_d64) && computesWithStd(2_d128));
    EXPECT_TRUE(computesWithStd(1.0));
}

} // namespace
