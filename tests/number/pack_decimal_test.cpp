// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 10^exponent as decimal numbers: encodings, rounding, the ends of the range.
#include "orv/liborvxx/number/pack_decimal.h"

#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <type_traits>

// Beside the records, where tests look for them.
static bool operator==(const ODecimal128& a, const ODecimal128& b) {
    return a.low == b.low && a.high == b.high;
}
static void PrintTo(const ODecimal128& n, std::ostream* out) {
    *out << std::hex << n.high << '\'' << n.low;
}

namespace {

using orv::big_uint;
using orv::pack_decimal128;
using orv::pack_decimal32;
using orv::pack_decimal64;
using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;

constexpr int INT_LEAST = std::numeric_limits<int>::min();
constexpr int INT_MOST = std::numeric_limits<int>::max();

constexpr std::uint32_t INF32 = 0x78000000U;
constexpr std::uint32_t MINUS32 = 0x80000000U;
constexpr std::uint64_t INF64 = 0x7800000000000000U;
constexpr std::uint64_t MINUS64 = 0x8000000000000000U;

// The encodings of coefficients that leave the marker bits clear.
std::uint32_t plain32(std::uint32_t coefficient, int exponent) {
    return static_cast<std::uint32_t>(exponent + 101) << 23U | coefficient;
}
std::uint64_t plain64(std::uint64_t coefficient, int exponent) {
    return static_cast<std::uint64_t>(exponent + 398) << 53U | coefficient;
}
ODecimal128 plain128(const big_uint& coefficient, int exponent) {
    big_uint words(coefficient);
    words.set_size(4);
    return {words.to_uint64(), static_cast<std::uint64_t>(exponent + 6176) << 49U |
                                   std::uint64_t{words[3]} << 32U | words[2]};
}

std::uint32_t pack32(int exponent, const big_uint& coefficient) {
    return pack_decimal32(false, exponent, coefficient).record().bits;
}
std::uint64_t pack64(int exponent, const big_uint& coefficient) {
    return pack_decimal64(false, exponent, coefficient).record().bits;
}
ODecimal128 pack128(int exponent, const big_uint& coefficient) {
    return pack_decimal128(false, exponent, coefficient).record();
}

const big_uint& power10(unsigned n) {
    return *big_uint::precomputed_pow10(n);
}

// 10^n - 1
big_uint nines(unsigned n) {
    big_uint number(power10(n));
    number.decrement();
    return number;
}

TEST(DecimalClasses, HoldTheirRecordsAndStartAtZeroWithAnExponentOfZero) {
    static_assert(std::is_trivially_copyable_v<decimal32> &&
                  std::is_trivially_copyable_v<decimal64> &&
                  std::is_trivially_copyable_v<decimal128>);
    static_assert(std::is_standard_layout_v<decimal32> && std::is_standard_layout_v<decimal64> &&
                  std::is_standard_layout_v<decimal128>);
    static_assert(decimal32().record().bits == 0x32800000U);
    static_assert(decimal64().record().bits == 0x31C0000000000000U);
    static_assert(decimal128().record().low == 0 &&
                  decimal128().record().high == 0x3040000000000000U);
    static_assert(decimal32(ODecimal32{7}).record().bits == 7);
    static_assert(decimal64(ODecimal64{7}).record().bits == 7);
    static_assert(decimal128(ODecimal128{7, 8}).record().low == 7 &&
                  decimal128(ODecimal128{7, 8}).record().high == 8);
    static_assert(offsetof(ODecimal128, low) == 0 && offsetof(ODecimal128, high) == 8);
    EXPECT_EQ(pack32(0, big_uint(0U)), decimal32().record().bits);
    EXPECT_EQ(pack64(0, big_uint(0U)), decimal64().record().bits);
    EXPECT_EQ(pack128(0, big_uint(0U)), decimal128().record());
}

TEST(PackDecimal32, EncodesCoefficientsInBothForms) {
    EXPECT_EQ(pack32(0, big_uint(1U)), 0x32800001U);
    EXPECT_EQ(pack32(-101, big_uint(1U)), 1U);
    EXPECT_EQ(pack32(0, big_uint(0x7FFFFFU)), plain32(0x7FFFFFU, 0));
    EXPECT_EQ(pack32(0, big_uint(0x800000U)), (101U | 0x300U) << 21U);
    EXPECT_EQ(pack32(0, big_uint(9999999U)), (101U | 0x300U) << 21U | (9999999U & 0x1FFFFFU));
    EXPECT_EQ(pack32(90, big_uint(9999999U)), 0x77F8967FU);
    EXPECT_EQ(pack_decimal32(true, 0, big_uint(1U)).record().bits, MINUS32 | 0x32800001U);
    EXPECT_EQ(pack_decimal32(true, 0, big_uint(9999999U)).record().bits, 0xECB8967FU);
}

TEST(PackDecimal64, EncodesCoefficientsInBothForms) {
    EXPECT_EQ(pack64(0, big_uint(1U)), 0x31C0000000000001U);
    EXPECT_EQ(pack64(0, big_uint(0x1FFFFFFFFFFFFFULL)), plain64(0x1FFFFFFFFFFFFFU, 0));
    EXPECT_EQ(pack64(0, big_uint(0x20000000000000ULL)), 0x6000000000000000U | 398ULL << 51U);
    EXPECT_EQ(pack64(369, nines(16)), 0x77FB86F26FC0FFFFU);
    EXPECT_EQ(pack_decimal64(true, 0, big_uint(1U)).record().bits, MINUS64 | 0x31C0000000000001U);
    EXPECT_EQ(pack_decimal64(true, 369, nines(16)).record().bits, 0xF7FB86F26FC0FFFFU);
}

TEST(PackDecimal128, EncodesCoefficientsInTwoWords) {
    EXPECT_EQ(pack128(0, big_uint(1U)), (ODecimal128{1, 0x3040000000000000U}));
    EXPECT_EQ(pack128(6111, nines(34)), (ODecimal128{0x378D8E63FFFFFFFFU, 0x5FFFED09BEAD87C0U}));
    EXPECT_EQ(pack_decimal128(true, -6176, big_uint{1, 2, 3}).record(),
              (ODecimal128{0x200000001U, MINUS64 | 3U}));
}

TEST(PackDecimal32, DropsDigitsBeyondTheSeventh) {
    EXPECT_EQ(pack32(0, big_uint(12345678U)), plain32(1234568, 1));
    EXPECT_EQ(pack32(0, big_uint(12345674U)), plain32(1234567, 1));
    EXPECT_EQ(pack32(0, big_uint(12345675U)), plain32(1234568, 1)) << "a tie below an odd digit";
    EXPECT_EQ(pack32(0, big_uint(12345665U)), plain32(1234566, 1)) << "a tie below an even digit";
    EXPECT_EQ(pack32(0, big_uint(99999995U)), plain32(1000000, 2)) << "a carry through all digits";
    EXPECT_EQ(pack32(-5, big_uint(10000000U)), plain32(1000000, -4));
}

TEST(PackDecimal32, DropsAnyNumberOfDigits) {
    for (const unsigned dropped : {1U, 8U, 9U, 10U, 11U, 30U, 70U, 71U, 200U, 3000U}) {
        big_uint cache;
        const big_uint& power = big_uint::pow10(dropped, &cache);
        big_uint half(power);
        EXPECT_EQ(half.divide(2), 0U);
        big_uint exact;
        exact.set_size(power.size() + 2);
        exact.multiply(power, big_uint(1234567U));
        const int exponent = -static_cast<int>(dropped);
        EXPECT_EQ(pack32(exponent, exact), plain32(1234567, 0)) << dropped;
        big_uint tie(exact);
        tie.add(tie, half);
        EXPECT_EQ(pack32(exponent, tie), plain32(1234568, 0)) << dropped;
        tie.decrement();
        EXPECT_EQ(pack32(exponent, tie), plain32(1234567, 0)) << dropped;
        exact.subtract(power);
        exact.add(exact, half);
        EXPECT_EQ(pack32(exponent, exact), plain32(1234566, 0)) << dropped;
        exact.increment();
        EXPECT_EQ(pack32(exponent, exact), plain32(1234567, 0)) << dropped;
    }
}

TEST(PackDecimal64, DropsDigitsBeyondTheSixteenth) {
    EXPECT_EQ(pack64(0, nines(16)),
              0x6000000000000000U | 398ULL << 51U | (9999999999999999U & 0x7FFFFFFFFFFFFU));
    EXPECT_EQ(pack64(0, nines(17)), plain64(1000000000000000U, 2));
    EXPECT_EQ(pack64(0, big_uint(12345678901234565ULL)), plain64(1234567890123456U, 1));
    EXPECT_EQ(pack64(0, big_uint(12345678901234575ULL)), plain64(1234567890123458U, 1));
}

TEST(PackDecimal128, DropsDigitsBeyondTheThirtyFourth) {
    EXPECT_EQ(pack128(0, nines(34)), plain128(nines(34), 0));
    EXPECT_EQ(pack128(0, nines(35)), plain128(power10(33), 2));
    big_uint tie(power10(34));
    tie.add(5U);
    EXPECT_EQ(pack128(0, tie), plain128(power10(33), 1));
    tie.increment();
    big_uint above(power10(33));
    above.increment();
    EXPECT_EQ(pack128(0, tie), plain128(above, 1));
}

TEST(PackDecimal32, LowersAnExponentBeyondTheGreatestWithZeros) {
    EXPECT_EQ(pack32(90, big_uint(12U)), plain32(12, 90));
    EXPECT_EQ(pack32(92, big_uint(12U)), plain32(1200, 90));
    EXPECT_EQ(pack32(96, big_uint(1U)), plain32(1000000, 90));
    EXPECT_EQ(pack32(97, big_uint(1U)), INF32);
    EXPECT_EQ(pack32(95, big_uint(12U)), plain32(1200000, 90));
    EXPECT_EQ(pack32(96, big_uint(10U)), INF32);
    EXPECT_EQ(pack32(91, big_uint(999999U)), (191U | 0x300U) << 21U | (9999990U & 0x1FFFFFU));
    EXPECT_EQ(pack32(91, big_uint(1000000U)), INF32);
    EXPECT_EQ(pack_decimal32(true, 97, big_uint(1U)).record().bits, MINUS32 | INF32);
    EXPECT_EQ(pack32(90, big_uint(99999995U)), INF32) << "rounding carries beyond the range";
    EXPECT_EQ(pack32(89, big_uint(99999994U)), pack32(90, big_uint(9999999U)));
}

TEST(PackDecimal64And128, LowerAnExponentBeyondTheGreatestWithZeros) {
    EXPECT_EQ(pack64(384, big_uint(1U)), plain64(1000000000000000U, 369));
    EXPECT_EQ(pack64(385, big_uint(1U)), INF64);
    EXPECT_EQ(pack128(6144, big_uint(1U)), plain128(power10(33), 6111));
    EXPECT_EQ(pack128(6145, big_uint(1U)), (ODecimal128{0, INF64}));
    EXPECT_EQ(pack_decimal128(true, 6145, big_uint(1U)).record(),
              (ODecimal128{0, MINUS64 | INF64}));
}

TEST(PackDecimal, RaisesAnExponentBelowTheLeastAndRounds) {
    EXPECT_EQ(pack64(-399, big_uint(15U)), plain64(2, -398));
    EXPECT_EQ(pack64(-399, big_uint(25U)), plain64(2, -398));
    EXPECT_EQ(pack64(-399, big_uint(26U)), plain64(3, -398));
    EXPECT_EQ(pack32(-102, big_uint(5U)), 0U) << "a tie goes to zero";
    EXPECT_EQ(pack32(-102, big_uint(6U)), 1U);
    EXPECT_EQ(pack32(-103, big_uint(51U)), 1U);
    EXPECT_EQ(pack32(-103, big_uint(9U)), 0U);
    EXPECT_EQ(pack32(-108, big_uint(9999999U)), 1U);
    EXPECT_EQ(pack32(-108, big_uint(5000000U)), 0U);
    EXPECT_EQ(pack32(-108, big_uint(5000001U)), 1U);
    EXPECT_EQ(pack32(-109, big_uint(9999999U)), 0U);
    EXPECT_EQ(pack_decimal32(true, -109, big_uint(9999999U)).record().bits, MINUS32);
    EXPECT_EQ(pack128(-6176 - 34, nines(34)), (ODecimal128{1, 0}));
    EXPECT_EQ(pack128(-6176 - 35, nines(34)), (ODecimal128{0, 0}));
    EXPECT_EQ(pack128(-6176 - 12, power10(13)), (ODecimal128{10, 0}));
}

TEST(PackDecimal, BothCutsRoundOnce) {
    // 7 digits stay first, 6 after the raise: the digit dropped first tells a tie from more.
    EXPECT_EQ(pack32(-103, big_uint(12345651U)), plain32(123457, -101));
    EXPECT_EQ(pack32(-103, big_uint(12345650U)), plain32(123456, -101));
    EXPECT_EQ(pack32(-103, big_uint(12345550U)), plain32(123456, -101));
    EXPECT_EQ(pack32(-103, big_uint(12345449U)), plain32(123454, -101));
}

TEST(PackDecimal, AZeroKeepsItsSignAndItsExponentAsFarAsItCan) {
    EXPECT_EQ(pack32(5, big_uint(0U)), plain32(0, 5));
    EXPECT_EQ(pack_decimal32(true, 5, big_uint{0, 0}).record().bits, MINUS32 | plain32(0, 5));
    EXPECT_EQ(pack32(1000, big_uint(0U)), plain32(0, 90));
    EXPECT_EQ(pack32(-1000, big_uint(0U)), plain32(0, -101));
    EXPECT_EQ(pack64(INT_MOST, big_uint(0U)), plain64(0, 369));
    EXPECT_EQ(pack64(INT_LEAST, big_uint(0U)), plain64(0, -398));
    EXPECT_EQ(pack128(INT_MOST, big_uint(0U)), plain128(big_uint(0U), 6111));
    EXPECT_EQ(pack128(INT_LEAST, big_uint(0U)), plain128(big_uint(0U), -6176));
}

TEST(PackDecimal, ExtremeExponentsGiveInfinityOrZero) {
    EXPECT_EQ(pack32(INT_MOST, big_uint(1U)), INF32);
    EXPECT_EQ(pack32(INT_MOST, power10(60)), INF32);
    EXPECT_EQ(pack32(INT_LEAST, power10(60)), 0U);
    EXPECT_EQ(pack64(INT_MOST, nines(70)), INF64);
    EXPECT_EQ(pack_decimal64(true, INT_LEAST, nines(70)).record().bits, MINUS64);
    EXPECT_EQ(pack128(INT_LEAST, nines(70)), (ODecimal128{0, 0}));
}

TEST(PackDecimal, ZeroWordsAtTheTopChangeNothing) {
    EXPECT_EQ(pack32(3, big_uint{12, 0, 0, 0, 0, 0, 0, 0, 0, 0}), plain32(12, 3));
    EXPECT_EQ(pack64(-399, big_uint{15, 0, 0, 0}), plain64(2, -398));
    EXPECT_EQ(pack128(6112, big_uint{12, 0, 0, 0, 0, 0}), plain128(big_uint(120U), 6111));
    big_uint wide(nines(50));
    wide.set_size(20);
    EXPECT_EQ(pack32(0, wide), plain32(1000000, 44));
}

TEST(PackDecimal, CoefficientsWithoutALogarithmFail) {
    big_uint wide;
    wide.set_size(1000);
    wide.set_bit(30'000);
    EXPECT_EQ(orvtest::thrownMessage<std::out_of_range>([&] { pack32(-8000, wide); }),
              "big_uint::pow10");
    EXPECT_EQ(orvtest::thrownMessage<std::out_of_range>([&] { pack64(-8000, wide); }),
              "big_uint::pow10");
    EXPECT_EQ(orvtest::thrownMessage<std::out_of_range>([&] { pack128(-8000, wide); }),
              "big_uint::pow10");
}

} // namespace
