// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimals from integers and powers of ten, at every border.
#include "orv/liborvxx/decimal/make_decimal.h"

#include "orv/liborv/decimal/arithmetic.h"
#include "orv/liborv/decimal/convert.h"

#include "tests/decimal/decimal_bits.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace {

using orv::decimal::_make_decimal128;
using orv::decimal::_make_decimal32;
using orv::decimal::_make_decimal64;
using orvtest::bitsOf;

// What is in range is a constant.
static_assert(_make_decimal64(0, 0).bits == 0x31C0000000000000);
static_assert(_make_decimal64(-1, 0).bits == 0xB1C0000000000001);
static_assert(_make_decimal64(9007199254740991, -398).bits == 0x001FFFFFFFFFFFFF);
static_assert(_make_decimal64(9007199254740992, -398).bits == 0x6000000000000000);
static_assert(_make_decimal64(-9999999999999999, 369).bits == 0xF7FB86F26FC0FFFF);
static_assert(_make_decimal32(8388607, 0).bits == 0x32FFFFFF);
static_assert(_make_decimal32(9999999, 0).bits == 0x6CB8967F);
static_assert(_make_decimal32(-9999999, 90).bits == 0xF7F8967F);
static_assert(_make_decimal128(1, 6111).high == 0x5FFE000000000000);
static_assert(_make_decimal128(std::numeric_limits<std::int64_t>::min(), -6176).low == 1ULL << 63U);
static_assert(_make_decimal128(std::numeric_limits<std::int64_t>::min(), -6176).high == 1ULL
                                                                                            << 63U);

// Results are the plain records, of every integer type.
template <class T>
constexpr bool givesRecords() {
    return std::same_as<decltype(_make_decimal32(T(), 0)), ODecimal32> &&
           std::same_as<decltype(_make_decimal64(T(), 0)), ODecimal64> &&
           std::same_as<decltype(_make_decimal128(T(), 0)), ODecimal128>&& noexcept(
               _make_decimal64(T(), 0));
}
static_assert(givesRecords<int>() && givesRecords<unsigned>() && givesRecords<long>() &&
              givesRecords<unsigned long>() && givesRecords<long long>() &&
              givesRecords<unsigned long long>() && givesRecords<short>() &&
              givesRecords<std::size_t>() && givesRecords<std::int64_t>());
template <class T>
concept Makes = requires(T n) {
    _make_decimal64(n, 0);
};
static_assert(Makes<int> && Makes<std::size_t> && !Makes<double> && !Makes<std::nullptr_t>);

// The same by way of arithmetic, for any coefficient and exponent.
template <class T>
ODecimal64 calculated64(T c, int e) {
    return orvDec64ScaleB(std::is_signed_v<T> ? orvDec64FromInt64(static_cast<std::int64_t>(c))
                                              : orvDec64FromUInt64(static_cast<std::uint64_t>(c)),
                          e);
}
template <class T>
ODecimal32 calculated32(T c, int e) {
    return orvDec64ToDec32(calculated64(c, e));
}
template <class T>
ODecimal128 calculated128(T c, int e) {
    return orvDec128ScaleB(std::is_signed_v<T> ? orvDec128FromInt64(static_cast<std::int64_t>(c))
                                               : orvDec128FromUInt64(static_cast<std::uint64_t>(c)),
                           e);
}

std::string infinityOf(const ODecimal32& x) {
    return (x.bits >> 31U) != 0 ? "F8000000" : "78000000";
}
std::string infinityOf(const ODecimal64& x) {
    return (x.bits >> 63U) != 0 ? "F800000000000000" : "7800000000000000";
}
std::string infinityOf(const ODecimal128& x) {
    return (x.high >> 63U) != 0 ? "F800000000000000'0000000000000000"
                                : "7800000000000000'0000000000000000";
}

// The bits as calculated, and ERANGE exactly for infinity.
template <class Make, class Record>
void expectLike(Make make, const Record& calculated) {
    errno = 0;
    const Record made = make();
    const int error = errno;
    EXPECT_EQ(bitsOf(made), bitsOf(calculated));
    EXPECT_EQ(error, bitsOf(calculated) == infinityOf(calculated) ? ERANGE : 0);
}

template <class T>
void expectAllLike(T c, int e) {
    SCOPED_TRACE(std::to_string(c) + " * 10^" + std::to_string(e));
    expectLike([&] { return _make_decimal32(c, e); }, calculated32(c, e));
    expectLike([&] { return _make_decimal64(c, e); }, calculated64(c, e));
    expectLike([&] { return _make_decimal128(c, e); }, calculated128(c, e));
}

void expectAllTypesLike(std::uint64_t magnitude, int e) {
    const auto n = static_cast<std::int64_t>(magnitude);
    const auto negative = static_cast<std::int64_t>(0 - magnitude);
    expectAllLike(static_cast<unsigned long>(magnitude), e);
    expectAllLike(static_cast<unsigned long long>(magnitude), e);
    expectAllLike(static_cast<long>(n), e);
    expectAllLike(static_cast<long long>(n), e);
    expectAllLike(static_cast<long>(negative), e);
    expectAllLike(static_cast<long long>(negative), e);
    expectAllLike(static_cast<unsigned>(magnitude), e);
    expectAllLike(static_cast<int>(n), e);
    expectAllLike(static_cast<int>(negative), e);
}

TEST(MakeDecimal, RoundsTheFirstCoefficientOfEightDigits) {
    EXPECT_EQ(bitsOf(_make_decimal32(10000000, 0)), bitsOf(_make_decimal32(1000000, 1)));
    EXPECT_EQ(bitsOf(_make_decimal32(-10000015, 0)), bitsOf(_make_decimal32(-1000002, 1)));
    EXPECT_EQ(bitsOf(_make_decimal32(10000000U, 0)), bitsOf(_make_decimal32(1000000, 1)));
}

TEST(MakeDecimal, RoundsTwiceWhereADecimal32IsMadeOfMoreThanSixteenDigits) {
    // 12345665.00000000001 is a tie once it has 16 digits.
    EXPECT_EQ(bitsOf(_make_decimal32(1234566500000000001, 0)),
              bitsOf(_make_decimal32(1234566, 12)));
}

TEST(MakeDecimal, MovesAnExponentThatIsTooLarge) {
    errno = 0;
    EXPECT_EQ(bitsOf(_make_decimal32(1, 91)), bitsOf(_make_decimal32(10, 90)));
    EXPECT_EQ(bitsOf(_make_decimal32(1, 96)), bitsOf(_make_decimal32(1000000, 90)));
    EXPECT_EQ(bitsOf(_make_decimal64(-12, 371)), bitsOf(_make_decimal64(-1200, 369)));
    EXPECT_EQ(bitsOf(_make_decimal128(1, 6112)), bitsOf(_make_decimal128(10, 6111)));
    EXPECT_EQ(errno, 0);
}

TEST(MakeDecimal, AppendsZerosAsLongAsTheyFit) {
    errno = 0;
    EXPECT_EQ(bitsOf(_make_decimal32(999, 94)), bitsOf(_make_decimal32(9990000, 90)));
    EXPECT_EQ(bitsOf(_make_decimal32(999999, 91)), bitsOf(_make_decimal32(9999990, 90)));
    EXPECT_EQ(bitsOf(_make_decimal64(999999999999999, 370)),
              bitsOf(_make_decimal64(9999999999999990, 369)));
    EXPECT_EQ(bitsOf(_make_decimal64(99, 383)), bitsOf(_make_decimal64(9900000000000000, 369)));
    // 9999999999999999999 and 15 zeros
    EXPECT_EQ(bitsOf(_make_decimal128(9999999999999999999U, 6126)),
              "5FFFED09BEAD87C0'378A00E55B398000");
    EXPECT_EQ(errno, 0);
}

TEST(MakeDecimal, TellsOverflowByErrno) {
    errno = 0;
    EXPECT_EQ(bitsOf(_make_decimal32(1, 97)), "78000000");
    EXPECT_EQ(errno, ERANGE);
    errno = 0;
    EXPECT_EQ(bitsOf(_make_decimal64(-1, 385)), "F800000000000000");
    EXPECT_EQ(errno, ERANGE);
    errno = 0;
    EXPECT_EQ(bitsOf(_make_decimal128(1U, 6145)), "7800000000000000'0000000000000000");
    EXPECT_EQ(errno, ERANGE);
}

TEST(MakeDecimal, LeavesErrnoAloneWhereNothingOverflows) {
    errno = EDOM;
    static_cast<void>(_make_decimal64(1, 0));
    static_cast<void>(_make_decimal64(1, 370));
    static_cast<void>(_make_decimal64(1, -500));
    static_cast<void>(_make_decimal32(1, 91));
    static_cast<void>(_make_decimal128(1, 6112));
    EXPECT_EQ(errno, EDOM);
    errno = 0;
}

TEST(MakeDecimal, UnderflowsToZeroWithoutAnError) {
    errno = 0;
    EXPECT_EQ(bitsOf(_make_decimal32(-1, -102)), "80000000");
    EXPECT_EQ(bitsOf(_make_decimal64(1, -399)), "0000000000000000");
    EXPECT_EQ(bitsOf(_make_decimal128(1, -6177)), "0000000000000000'0000000000000000");
    EXPECT_EQ(errno, 0);
}

TEST(MakeDecimal, AgreesWithArithmeticAtEveryBorder) {
    for (const std::uint64_t border :
         {std::uint64_t{0}, std::uint64_t{1} << 23U, std::uint64_t{9999999},
          std::uint64_t{1} << 31U, std::uint64_t{1} << 32U, std::uint64_t{1} << 53U,
          std::uint64_t{9999999999999999}, std::uint64_t{1} << 63U,
          std::numeric_limits<std::uint64_t>::max()}) {
        for (const int exponent : {-6176, -398, -101, 0, 90, 369, 6111, 97, 385, 6145}) {
            for (std::uint64_t offset = 0; offset < 5; ++offset) {
                for (int step = -2; step <= 2; ++step) {
                    expectAllTypesLike(border + offset - 2, exponent + step);
                }
            }
        }
    }
}

TEST(MakeDecimal, AgreesWithArithmeticForEveryExponent) {
    const int step = orvtest::caseCount(100) == 100 ? 1 : 13;
    for (int exponent = -6250; exponent <= 6250; exponent += step) {
        expectAllLike(-7, exponent);
        expectAllLike(std::uint64_t{9999999}, exponent);
        expectAllLike(std::int64_t{9999999999999999}, exponent);
    }
}

TEST(MakeDecimal, AcceptsAnyExponent) {
    for (const int exponent : {INT_MIN, INT_MIN + 1, INT_MIN + 6176, INT_MAX, INT_MAX - 6176}) {
        expectAllLike(0, exponent);
        expectAllLike(-1, exponent);
        expectAllLike(std::numeric_limits<std::uint64_t>::max(), exponent);
        expectAllLike(std::numeric_limits<std::int64_t>::min(), exponent);
    }
}

TEST(MakeDecimal, AgreesWithArithmeticForRandomNumbers) {
    orvtest::NumberSource source(61);
    for (std::size_t i = orvtest::caseCount(100000); i > 0; --i) {
        const std::uint64_t bits = source.bits() >> source.below(64);
        const int exponent = source.between(-420, 400);
        expectAllLike(bits, exponent);
        expectAllLike(static_cast<std::int64_t>(bits), exponent);
        expectAllLike(-static_cast<std::int64_t>(bits >> 1U), exponent);
    }
}

} // namespace
