// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimals rounded to integers: values, limits, errno.
#include "orv/liborvxx/decimal/decimal_math.h"

#include "orv/liborvxx/decimal/decimal_limits.h"
#include "orv/liborvxx/decimal/decimal_literals.h"
#include "orv/liborvxx/decimal/make_decimal.h"

#include "tests/decimal/exact_decimal.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using namespace orv::literals;

constexpr std::int32_t MIN32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t MAX32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t MIN64 = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t MAX64 = std::numeric_limits<std::int64_t>::max();

static_assert(std::same_as<decltype(lrint(decimal32())), std::int32_t> &&
              std::same_as<decltype(lround(decimal64())), std::int32_t> &&
              std::same_as<decltype(ltrunc(decimal128())), std::int32_t> &&
              std::same_as<decltype(llrint(decimal32())), std::int64_t> &&
              std::same_as<decltype(llround(decimal64())), std::int64_t> &&
              std::same_as<decltype(lltrunc(decimal128())), std::int64_t>);

// A result and what errno became; 0 for untouched.
struct Outcome {
    std::int64_t n;
    int error;
    bool operator==(const Outcome&) const = default;
    friend void PrintTo(const Outcome& outcome, std::ostream* out) {
        *out << outcome.n << " with errno " << outcome.error;
    }
};

template <class Call>
Outcome outcomeOf(Call call) {
    errno = EILSEQ;
    const std::int64_t n = call();
    const int error = errno;
    errno = 0;
    return {n, error == EILSEQ ? 0 : error};
}

/// The three functions of one width, in the order rint, round, trunc.
template <class T>
void expect32(const T& x, const Outcome& rint, const Outcome& round, const Outcome& trunc) {
    EXPECT_EQ(outcomeOf([&] { return lrint(x); }), rint);
    EXPECT_EQ(outcomeOf([&] { return lround(x); }), round);
    EXPECT_EQ(outcomeOf([&] { return ltrunc(x); }), trunc);
}
template <class T>
void expect64(const T& x, const Outcome& rint, const Outcome& round, const Outcome& trunc) {
    EXPECT_EQ(outcomeOf([&] { return llrint(x); }), rint);
    EXPECT_EQ(outcomeOf([&] { return llround(x); }), round);
    EXPECT_EQ(outcomeOf([&] { return lltrunc(x); }), trunc);
}
template <class T>
void expectAll32(const T& x, const Outcome& outcome) {
    expect32(x, outcome, outcome, outcome);
}
template <class T>
void expectAll64(const T& x, const Outcome& outcome) {
    expect64(x, outcome, outcome, outcome);
}

template <class T>
class DecimalToInteger : public testing::Test {};
using Classes = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalToInteger, Classes);

TYPED_TEST(DecimalToInteger, RoundsInThreeWays) {
    using T = TypeParam;
    const auto expectBoth = [](const T& x, int rint, int round, int trunc) {
        expect32(x, {rint, 0}, {round, 0}, {trunc, 0});
        expect64(x, {rint, 0}, {round, 0}, {trunc, 0});
    };
    expectBoth(2.5_d32, 2, 3, 2);
    expectBoth(-2.5_d32, -2, -3, -2);
    expectBoth(3.5_d32, 4, 4, 3);
    expectBoth(-0.5_d32, 0, -1, 0);
    expectBoth(0.5_d32, 0, 1, 0);
    expectBoth(0.51_d32, 1, 1, 0);
    expectBoth(-7.9_d32, -8, -8, -7);
    expectBoth(1e3_d32, 1000, 1000, 1000);
    expectBoth(0e20_d32, 0, 0, 0);
    expectBoth(-0.00_d32, 0, 0, 0);
    expectBoth(1e-90_d32, 0, 0, 0);
}

TYPED_TEST(DecimalToInteger, TellsWhatIsNoNumberAndWhatIsOutOfRange) {
    using L = std::numeric_limits<TypeParam>;
    for (const TypeParam& nan : {L::quiet_NaN(), -L::quiet_NaN(), L::signaling_NaN()}) {
        expectAll32(nan, {0, EDOM});
        expectAll64(nan, {0, EDOM});
    }
    for (const TypeParam& large : {L::infinity(), L::max(), TypeParam(1e19_d32)}) {
        expectAll32(large, {MAX32, ERANGE});
        expectAll64(large, {MAX64, ERANGE});
        expectAll32(-large, {MIN32, ERANGE});
        expectAll64(-large, {MIN64, ERANGE});
    }
}

template <class T>
class DecimalToIntegerLimits : public testing::Test {};
using WideClasses = testing::Types<decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalToIntegerLimits, WideClasses);

TYPED_TEST(DecimalToIntegerLimits, Of32BitsAreResults) {
    using T = TypeParam;
    expectAll32(T(2147483647_d64), {MAX32, 0});
    expectAll32(T(2147483647.0_d64), {MAX32, 0});
    expectAll32(T(2147483648_d64), {MAX32, ERANGE});
    expectAll32(T(-2147483647_d64), {-MAX32, 0});
    expectAll32(T(-2147483648_d64), {MIN32, 0});
    expectAll32(T(-2147483648.00_d64), {MIN32, 0});
    expectAll32(T(-2147483649_d64), {MIN32, ERANGE});
}

TYPED_TEST(DecimalToIntegerLimits, Of32BitsAreCheckedAfterRoundingAndTruncationRoundsNothing) {
    using T = TypeParam;
    expect32(T(2147483647.4_d64), {MAX32, 0}, {MAX32, 0}, {MAX32, 0});
    expect32(T(2147483647.5_d64), {MAX32, ERANGE}, {MAX32, ERANGE}, {MAX32, 0});
    expect32(T(-2147483648.4_d64), {MIN32, 0}, {MIN32, 0}, {MIN32, ERANGE});
    expect32(T(-2147483648.5_d64), {MIN32, 0}, {MIN32, ERANGE}, {MIN32, ERANGE});
    expect32(T(-2147483647.5_d64), {MIN32, 0}, {MIN32, 0}, {-MAX32, 0});
    expect32(T(-2147483648.9_d64), {MIN32, ERANGE}, {MIN32, ERANGE}, {MIN32, ERANGE});
}

TEST(DecimalToInteger128, HoldsTheLimitsOf64Bits) {
    expectAll64(9223372036854775807_d128, {MAX64, 0});
    expectAll64(9223372036854775808_d128, {MAX64, ERANGE});
    expectAll64(-9223372036854775808_d128, {MIN64, 0});
    expectAll64(-9223372036854775808.000_d128, {MIN64, 0});
    expectAll64(-9223372036854775809_d128, {MIN64, ERANGE});
    expect64(9223372036854775807.5_d128, {MAX64, ERANGE}, {MAX64, ERANGE}, {MAX64, 0});
    expect64(-9223372036854775808.4_d128, {MIN64, 0}, {MIN64, 0}, {MIN64, ERANGE});
    expect64(-9223372036854775808.5_d128, {MIN64, 0}, {MIN64, ERANGE}, {MIN64, ERANGE});
}

TEST(DecimalToInteger64, HoldsNoLimitOf64Bits) {
    expectAll64(9223372036854775e3_d64, {9223372036854775000, 0});
    expectAll64(9223372036854776e3_d64, {MAX64, ERANGE});
    expectAll64(-9223372036854775e3_d64, {-9223372036854775000, 0});
    expectAll64(-9223372036854776e3_d64, {MIN64, ERANGE});
    expectAll64(9999999999999999_d64, {9999999999999999, 0});
}

TEST(DecimalToInteger64, AgreesWithExactRounding) {
    orvtest::NumberSource source(65);
    for (std::size_t i = orvtest::caseCount(50000); i > 0; --i) {
        const int exponent = -source.between(1, 15);
        const std::int64_t n = static_cast<std::int64_t>(source.bits() >> source.between(11, 63)) *
                               (source.coin() ? 5 : 1);
        const decimal64 x = orv::decimal::_make_decimal64(source.coin() ? n : -n, exponent);
        if (coefficient(x) > 9999999999999999 || quantexp(x) != exponent) {
            continue; // was rounded
        }
        const mpz_class magnitude = orvtest::coefficientOf(x);
        const mpz_class power = orvtest::power10(-exponent);
        const mpz_class truncated = magnitude / power;
        const mpz_class twice = 2 * (magnitude % power);
        const bool odd = mpz_odd_p(truncated.get_mpz_t()) != 0;
        const mpz_class nearest = truncated + (twice > power || (twice == power && odd) ? 1 : 0);
        const mpz_class away = truncated + (twice >= power ? 1 : 0);
        const std::int64_t sign = signbit(x) ? -1 : 1;
        ASSERT_EQ(lltrunc(x), sign * truncated.get_si());
        ASSERT_EQ(llrint(x), sign * nearest.get_si());
        ASSERT_EQ(llround(x), sign * away.get_si());
        ASSERT_EQ(llrint(decimal128(x)), sign * nearest.get_si());
        ASSERT_EQ(llround(decimal128(x)), sign * away.get_si());
        ASSERT_EQ(lltrunc(decimal128(x)), sign * truncated.get_si());
    }
}

} // namespace
