// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decimal classes as values: what converts to what, operators, order, containers.
#include "orv/liborvxx/decimal/decimal.h"

#include "tests/decimal/decimal_bits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <numeric>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orvtest::bitsOf;
using namespace orv::literals;

// Objects are their records.

template <class T, class Record>
constexpr bool isPlainValue() {
    return std::is_trivially_copyable_v<T> && std::is_standard_layout_v<T> &&
           std::is_trivially_destructible_v<T> && std::is_nothrow_default_constructible_v<T> &&
           std::is_nothrow_constructible_v<T, Record> && std::is_nothrow_constructible_v<T, int> &&
           std::is_nothrow_swappable_v<T> && std::totally_ordered<T> && std::regular<T> &&
           std::three_way_comparable<T, std::partial_ordering> && sizeof(T) == sizeof(Record) &&
           alignof(T) == alignof(Record);
}
static_assert(isPlainValue<decimal32, ODecimal32>() && isPlainValue<decimal64, ODecimal64>() &&
              isPlainValue<decimal128, ODecimal128>());

template <class T>
concept ThrowsNothing = requires(T x, const T& y) {
    { x + y }
    noexcept;
    { x - y }
    noexcept;
    { x / y }
    noexcept;
    { -x }
    noexcept;
    { x += y }
    noexcept;
    { ++x }
    noexcept;
    { x-- }
    noexcept;
    { x == y }
    noexcept;
    { x < y }
    noexcept;
    { x <=> y }
    noexcept;
    {
        x + short {
            1
        }
    }
    noexcept;
    { static_cast<int>(x) }
    noexcept;
    { static_cast<double>(x) }
    noexcept;
};
static_assert(ThrowsNothing<decimal32> && ThrowsNothing<decimal64> && ThrowsNothing<decimal128>);

// What is exact converts by itself, what may round if told to, and what is no number not at all.

template <class From, class To>
constexpr bool IMPLICIT = std::is_convertible_v<From, To>;
template <class From, class To>
constexpr bool EXPLICIT = std::is_constructible_v<To, From> && !IMPLICIT<From, To>;
template <class From, class To>
constexpr bool NONE = !std::is_constructible_v<To, From>;

static_assert(IMPLICIT<short, decimal32> && IMPLICIT<unsigned short, decimal32> &&
              IMPLICIT<std::int8_t, decimal32> && IMPLICIT<std::uint8_t, decimal32>);
static_assert(EXPLICIT<int, decimal32> && EXPLICIT<unsigned, decimal32> &&
              EXPLICIT<std::int64_t, decimal32> && EXPLICIT<std::size_t, decimal32>);
static_assert(IMPLICIT<int, decimal64> && IMPLICIT<unsigned, decimal64> &&
              EXPLICIT<std::int64_t, decimal64> && EXPLICIT<std::size_t, decimal64> &&
              EXPLICIT<long long, decimal64> && EXPLICIT<unsigned long long, decimal64>);
static_assert(IMPLICIT<int, decimal128> && IMPLICIT<std::int64_t, decimal128> &&
              IMPLICIT<std::size_t, decimal128> && IMPLICIT<unsigned long long, decimal128>);
static_assert(IMPLICIT<decimal32, decimal64> && IMPLICIT<decimal32, decimal128> &&
              IMPLICIT<decimal64, decimal128>);
static_assert(EXPLICIT<decimal64, decimal32> && EXPLICIT<decimal128, decimal32> &&
              EXPLICIT<decimal128, decimal64>);

template <class T>
constexpr bool convertsWithCare() {
    return EXPLICIT<float, T> && EXPLICIT<double, T> && EXPLICIT<long double, T> &&
           EXPLICIT<const char*, T> && EXPLICIT<std::string, T> && NONE<bool, T> && NONE<char, T> &&
           NONE<wchar_t, T> && NONE<char8_t, T> && NONE<char16_t, T> && NONE<char32_t, T> &&
           NONE<const void*, T> && EXPLICIT<T, int> && EXPLICIT<T, std::size_t> &&
           EXPLICIT<T, std::int8_t> && EXPLICIT<T, float> && EXPLICIT<T, double> &&
           EXPLICIT<T, long double> && NONE<T, bool> && NONE<T, char> && NONE<T, char16_t> &&
           NONE<T, std::string>;
}
static_assert(convertsWithCare<decimal32>() && convertsWithCare<decimal64>() &&
              convertsWithCare<decimal128>());

template <class X, class Y>
concept Mixes = requires(const X& x, const Y& y) {
    x + y;
    x - y;
    x - y;
    x / y;
    x == y;
    y == x;
    x < y;
    y >= x;
    x <=> y;
};
template <class X, class Y>
concept Mixable = Mixes<X, Y> || Mixes<Y, X> || requires(X x, const Y& y) {
    x += y;
} || requires(const X& x, const Y& y) {
    x == y;
};

static_assert(Mixes<decimal64, int> && Mixes<int, decimal64> && Mixes<unsigned, decimal64>);
static_assert(Mixes<decimal64, decimal32> && Mixes<decimal32, decimal64> &&
              Mixes<decimal128, decimal32> && Mixes<decimal64, decimal128>);
static_assert(Mixes<decimal128, std::size_t> && Mixes<long long, decimal128> &&
              Mixes<decimal32, short>);
static_assert(!Mixable<decimal32, int> && !Mixable<decimal64, std::int64_t> &&
              !Mixable<decimal64, std::size_t>);
static_assert(!Mixable<decimal64, double> && !Mixable<decimal64, float> &&
              !Mixable<decimal64, bool> && !Mixable<decimal64, char> &&
              !Mixable<decimal64, const char*> && !Mixable<decimal128, long double>);
static_assert(
    std::same_as<decltype(decimal32() + decimal64()), decimal64> &&
    std::same_as<decltype(1 - decimal128()), decimal128> &&
    std::same_as<decltype(std::declval<bool>() ? decimal32() : decimal128()), decimal128> &&
    std::same_as<std::common_type_t<decimal32, decimal64>, decimal64>);
// An assignment must not round.
template <class X, class Y>
concept Adds = requires(X x, const Y& y) {
    x += y;
};
static_assert(!Adds<decimal32, decimal64> && !Adds<decimal64, decimal128> &&
              !Adds<decimal32, int> && !Adds<int, decimal64>);
static_assert(Adds<decimal64, decimal32> && Adds<decimal64, int> && Adds<decimal128, std::size_t>);
static_assert(!std::is_assignable_v<decimal64&, decimal128> &&
              !std::is_assignable_v<decimal64&, double> &&
              std::is_assignable_v<decimal64&, decimal32>);

// Constants.
constexpr decimal64 ZERO;
static_assert(ZERO.record().bits == 0x31C0000000000000);
constexpr decimal64 MINUS_SEVEN = -decimal64(7);
static_assert(MINUS_SEVEN.record().bits == 0xB1C0000000000007);
constexpr decimal32 FROM_RECORD = ODecimal32{0x32800001};
static_assert((+FROM_RECORD).record().bits == 0x32800001);
constexpr decimal128 GREATEST = std::numeric_limits<std::uint64_t>::max();
static_assert(GREATEST.record().low == ~std::uint64_t{0} &&
              GREATEST.record().high == 0x3040000000000000);
static_assert(decimal64(std::int64_t{-9999999999999999}).record().bits == 0xEC7386F26FC0FFFF);

template <class T>
class DecimalClass : public testing::Test {};
using Classes = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalClass, Classes);

TYPED_TEST(DecimalClass, IsZeroWithExponentZeroByDefault) {
    EXPECT_EQ(bitsOf(TypeParam()), bitsOf(TypeParam(0)));
    EXPECT_EQ(quantexp(TypeParam{}), 0);
    EXPECT_FALSE(signbit(TypeParam{}));
}

TYPED_TEST(DecimalClass, ComputesWithTheExponentThatTheStandardPrefers) {
    using T = TypeParam;
    const T x = 1.50_d32;
    const T y = 1.5_d32;
    EXPECT_EQ(bitsOf(x + y), bitsOf(T(3.00_d32)));
    EXPECT_EQ(bitsOf(x - y), bitsOf(T(0.00_d32)));
    EXPECT_EQ(bitsOf(x * y), bitsOf(T(2.250_d32)));
    EXPECT_EQ(bitsOf(T(1) / T(8)), bitsOf(T(0.125_d32)));
    EXPECT_EQ(bitsOf(-x), bitsOf(x * T(-1)));
    EXPECT_EQ(bitsOf(+x), bitsOf(x));
    EXPECT_EQ(bitsOf(-T(0)), bitsOf(T(0) * T(-1)));
}

TYPED_TEST(DecimalClass, AssignsTheResultsOfItsOperators) {
    using T = TypeParam;
    T x = 10.0_d32;
    EXPECT_EQ(&(x += T(2)), &x);
    EXPECT_EQ(bitsOf(x), bitsOf(T(12.0_d32)));
    EXPECT_EQ(&(x -= T(3)), &x);
    EXPECT_EQ(bitsOf(x), bitsOf(T(9.0_d32)));
    EXPECT_EQ(&(x *= T(4)), &x);
    EXPECT_EQ(bitsOf(x), bitsOf(T(36.0_d32)));
    EXPECT_EQ(&(x /= T(8)), &x);
    EXPECT_EQ(bitsOf(x), bitsOf(T(4.5_d32)));
    EXPECT_EQ(&++x, &x);
    EXPECT_EQ(bitsOf(x++), bitsOf(T(5.5_d32)));
    EXPECT_EQ(bitsOf(x--), bitsOf(T(6.5_d32)));
    EXPECT_EQ(&--x, &x);
    EXPECT_EQ(bitsOf(x), bitsOf(T(4.5_d32)));
    x += x;
    EXPECT_EQ(bitsOf(x), bitsOf(T(9.0_d32)));
}

TYPED_TEST(DecimalClass, ComparesValuesAndNotExponents) {
    using T = TypeParam;
    const T x = 1.5_d32;
    const T y = 1.50_d32;
    EXPECT_TRUE(x == y && !(x != y) && x <= y && x >= y && !(x < y) && !(x > y));
    EXPECT_TRUE((x <=> y) == std::partial_ordering::equivalent);
    EXPECT_EQ(T(0), -T(0));
    EXPECT_TRUE((T(1) <=> T(2)) == std::partial_ordering::less);
    EXPECT_TRUE((T(2) <=> T(1)) == std::partial_ordering::greater);
    EXPECT_TRUE(T(1) < T(2) && T(1) <= T(2) && !(T(1) > T(2)) && !(T(1) >= T(2)));
    EXPECT_TRUE(T(2) > T(1) && T(2) >= T(1) && !(T(2) < T(1)) && !(T(2) <= T(1)));
}

TYPED_TEST(DecimalClass, HasNoOrderForNan) {
    using T = TypeParam;
    const T nan = std::numeric_limits<T>::quiet_NaN();
    for (const T& x : {T(1), nan, std::numeric_limits<T>::infinity()}) {
        EXPECT_TRUE(x != nan && nan != x);
        EXPECT_FALSE(x == nan || x < nan || x <= nan || x > nan || x >= nan || nan < x || nan > x);
        EXPECT_TRUE((x <=> nan) == std::partial_ordering::unordered);
        EXPECT_TRUE((nan <=> x) == std::partial_ordering::unordered);
    }
}

TYPED_TEST(DecimalClass, BecomesTheNearestIntegerTowardZeroWithinTheLimits) {
    using T = TypeParam;
    using Limits = std::numeric_limits<T>;
    EXPECT_EQ(static_cast<int>(T(-7.9_d32)), -7);
    EXPECT_EQ(static_cast<unsigned>(T(7.9_d32)), 7U);
    EXPECT_EQ(static_cast<unsigned>(T(-7.9_d32)), 0U);
    EXPECT_EQ(static_cast<std::int8_t>(T(200)), 127);
    EXPECT_EQ(static_cast<std::int8_t>(T(-200)), -128);
    EXPECT_EQ(static_cast<std::uint8_t>(T(300)), 255);
    EXPECT_EQ(static_cast<int>(T(1e30_d32)), std::numeric_limits<int>::max());
    EXPECT_EQ(static_cast<int>(T(-1e30_d32)), std::numeric_limits<int>::min());
    EXPECT_EQ(static_cast<std::int64_t>(Limits::infinity()),
              std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(static_cast<std::int64_t>(-Limits::max()), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(static_cast<std::size_t>(Limits::max()), ~std::size_t{0});
    EXPECT_EQ(static_cast<std::uint16_t>(Limits::max()), 65535);
    EXPECT_EQ(static_cast<std::size_t>(-Limits::infinity()), 0U);
    EXPECT_EQ(static_cast<int>(Limits::quiet_NaN()), 0);
    EXPECT_EQ(static_cast<std::size_t>(Limits::quiet_NaN()), 0U);
    EXPECT_EQ(static_cast<double>(T(0.5_d32)), 0.5);
    EXPECT_EQ(static_cast<float>(T(-0.25_d32)), -0.25F);
    EXPECT_EQ(static_cast<long double>(T(1e3_d32)), 1000.0L);
}

TYPED_TEST(DecimalClass, IsSortedSummedAndAKey) {
    using T = TypeParam;
    std::vector<T> numbers = {T(3), T(1.5_d32), T(-2), T(0)};
    std::sort(numbers.begin(), numbers.end());
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    EXPECT_EQ(numbers.front(), T(-2));
    EXPECT_EQ(std::accumulate(numbers.begin(), numbers.end(), T()), T(2.5_d32));
    EXPECT_EQ(std::max(T(1), T(2)), T(2));
    EXPECT_EQ(std::min({T(3), T(1), T(2)}), T(1));
    EXPECT_EQ(std::clamp(T(9), T(1), T(5)), T(5));
    std::map<T, int> ordered = {{T(1.0_d32), 1}};
    EXPECT_EQ(ordered.count(T(1.00_d32)), 1U);
    std::unordered_map<T, int> hashed = {{T(1.0_d32), 1}};
    EXPECT_EQ(hashed.count(T(1.00_d32)), 1U);
    EXPECT_EQ(hashed.count(T(2)), 0U);
}

TEST(DecimalClassTest, MixesWidthsAndIntegersWithoutLoss) {
    EXPECT_EQ(bitsOf(1.5_d64 + 1), bitsOf(2.5_d64));
    EXPECT_EQ(bitsOf(1 - 1.5_d64), bitsOf(-0.5_d64));
    EXPECT_EQ(bitsOf(1.5_d64 * 2.0_d32), bitsOf(3.00_d64));
    EXPECT_EQ(bitsOf(1.5_d32 * 2.0_d64), bitsOf(3.00_d64));
    EXPECT_TRUE(1 < 1.5_d64 && 1.5_d64 > 1 && 2 == 2.0_d64 && 2.0_d64 == 2U && 1 != 2.0_d64);
    EXPECT_TRUE(1.5_d64 == 1.50_d32 && 1.5_d32 == 1.50_d64 && 1.5_d128 == 1.5_d32);
    EXPECT_TRUE((1.5_d32 <=> 2.5_d128) == std::partial_ordering::less);
    EXPECT_EQ(bitsOf(1.0_d128 + ~std::size_t{0}), bitsOf(18446744073709551616.0_d128));
    decimal64 x = 1.5_d32;
    x *= 3;
    x += 0.5_d32;
    EXPECT_EQ(bitsOf(x), bitsOf(5.0_d64));
}

TEST(DecimalClassTest, RoundsHalfToEvenWhereItIsNarrowed) {
    EXPECT_EQ(bitsOf(static_cast<decimal32>(1234567.5_d64)), bitsOf(1234568_d32));
    EXPECT_EQ(bitsOf(static_cast<decimal32>(1234566.5_d128)), bitsOf(1234566_d32));
    EXPECT_EQ(bitsOf(decimal64(1234567890123456.5_d128)), bitsOf(1234567890123456_d64));
    EXPECT_EQ(decimal32(1e97_d64), std::numeric_limits<decimal32>::infinity());
    EXPECT_EQ(bitsOf(decimal64(9.999999e96_d32)), bitsOf(9.999999e96_d64));
    EXPECT_EQ(bitsOf(decimal128(-1e-398_d64)), bitsOf(-1e-398_d128));
}

TEST(DecimalClassTest, RoundsIntegersThatHaveTooManyDigits) {
    EXPECT_EQ(bitsOf(decimal32(12345675)), bitsOf(1234568e1_d32));
    EXPECT_EQ(bitsOf(decimal32(-12345665)), bitsOf(-1234566e1_d32));
    EXPECT_EQ(bitsOf(decimal32(9999999)), "6CB8967F");
    EXPECT_EQ(bitsOf(decimal64(std::numeric_limits<std::int64_t>::min())),
              bitsOf(-9223372036854776e3_d64));
    EXPECT_EQ(bitsOf(decimal64(~std::uint64_t{0})), bitsOf(1844674407370955e4_d64));
    EXPECT_EQ(bitsOf(decimal128(std::numeric_limits<std::int64_t>::min())),
              bitsOf(-9223372036854775808_d128));
}

TEST(DecimalClassTest, KeepsEveryIntegerOf64BitsAsADecimal128) {
    for (const std::uint64_t n :
         {std::uint64_t{0}, std::uint64_t{1} << 63U, (std::uint64_t{1} << 63U) + 1,
          (std::uint64_t{1} << 63U) - 1, ~std::uint64_t{0}}) {
        EXPECT_EQ(static_cast<std::uint64_t>(decimal128(n)), n);
    }
    EXPECT_EQ(static_cast<std::uint64_t>(9223372036854775808.9_d128), std::uint64_t{1} << 63U);
    EXPECT_EQ(static_cast<std::uint32_t>(9223372036854775808_d128), 0xFFFFFFFFU);
    EXPECT_EQ(static_cast<std::uint64_t>(18446744073709551616_d128), ~std::uint64_t{0});
    for (const std::int64_t n : {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1},
                                 std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_EQ(static_cast<std::int64_t>(decimal128(n)), n);
    }
}

} // namespace
