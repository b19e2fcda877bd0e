// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The packers when something has been cut off before: every value of the rounding
/// information.
#include "orv/liborvxx/number/detail/pack_internal.h"

#include "orv/liborvxx/number/detail/rounding.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using orv::big_uint;
using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using namespace orv::detail;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double TINY = std::numeric_limits<double>::denorm_min();

double pack(int exponent, const big_uint& coefficient, unsigned rounding) {
    return packBinary<double>(false, exponent, coefficient, coefficient.bit_length(), rounding);
}
float packF(int exponent, const big_uint& coefficient, unsigned rounding) {
    return packBinary<float>(false, exponent, coefficient, coefficient.bit_length(), rounding);
}
double make(int exponent, const big_uint& coefficient, unsigned rounding) {
    return makeBinary<double>(false, exponent, coefficient, rounding);
}
float makeF(int exponent, const big_uint& coefficient, unsigned rounding) {
    return makeBinary<float>(false, exponent, coefficient, rounding);
}

TEST(Rounding, GoesUpAboveHalfAndFromOddHalves) {
    static_assert(!roundsUp(ROUNDING_EXACT, false) && !roundsUp(ROUNDING_EXACT, true));
    static_assert(!roundsUp(ROUNDING_BELOW_HALF, false) && !roundsUp(ROUNDING_BELOW_HALF, true));
    static_assert(!roundsUp(ROUNDING_HALF, false) && roundsUp(ROUNDING_HALF, true));
    static_assert(roundsUp(ROUNDING_ABOVE_HALF, false) && roundsUp(ROUNDING_ABOVE_HALF, true));
    EXPECT_EQ(big_uint(8U).compute_rounding_info(4), ROUNDING_HALF);
    EXPECT_EQ(big_uint(9U).compute_rounding_info(4), ROUNDING_ABOVE_HALF);
    EXPECT_EQ(big_uint(7U).compute_rounding_info(4), ROUNDING_BELOW_HALF);
    EXPECT_EQ(big_uint(16U).compute_rounding_info(4), ROUNDING_EXACT);
}

TEST(Rounding, WhatLiesBelowACutLiftsItAboveExactAndAboveHalf) {
    for (const unsigned before : {1U, 2U, 3U}) {
        EXPECT_EQ(combineRounding(ROUNDING_EXACT, before), ROUNDING_BELOW_HALF);
        EXPECT_EQ(combineRounding(ROUNDING_BELOW_HALF, before), ROUNDING_BELOW_HALF);
        EXPECT_EQ(combineRounding(ROUNDING_HALF, before), ROUNDING_ABOVE_HALF);
        EXPECT_EQ(combineRounding(ROUNDING_ABOVE_HALF, before), ROUNDING_ABOVE_HALF);
    }
    for (const unsigned cut : {0U, 1U, 2U, 3U}) {
        EXPECT_EQ(combineRounding(cut, ROUNDING_EXACT), cut);
    }
}

TEST(Rounding, ComparesARemainderWithHalfOfTheDivisor) {
    const auto of = [](big_uint remainder, const big_uint& divisor) {
        remainder.set_size(divisor.size());
        return roundingOfRemainder(remainder, divisor);
    };
    EXPECT_EQ(of(big_uint(0U), big_uint(10U)), ROUNDING_EXACT);
    EXPECT_EQ(of(big_uint(4U), big_uint(10U)), ROUNDING_BELOW_HALF);
    EXPECT_EQ(of(big_uint(5U), big_uint(10U)), ROUNDING_HALF);
    EXPECT_EQ(of(big_uint(6U), big_uint(10U)), ROUNDING_ABOVE_HALF);
    EXPECT_EQ(of(big_uint{0, 0x80000000U}, big_uint{0, 0, 1}), ROUNDING_HALF);
    EXPECT_EQ(of(big_uint{1, 0x80000000U}, big_uint{0, 0, 1}), ROUNDING_ABOVE_HALF);
    EXPECT_EQ(of(big_uint{0xFFFFFFFFU, 0x7FFFFFFFU}, big_uint{0, 0, 1}), ROUNDING_BELOW_HALF);
    EXPECT_EQ(of(big_uint(0x80000000U), big_uint(0xFFFFFFFFU)), ROUNDING_ABOVE_HALF);
    EXPECT_EQ(of(big_uint(0x7FFFFFFFU), big_uint(0xFFFFFFFFU)), ROUNDING_BELOW_HALF);
    EXPECT_EQ(of(big_uint(0x7FFFFFFFU), big_uint(0xFFFFFFFEU)), ROUNDING_HALF);
    static_assert(roundingOfRemainder(0U, 10U) == ROUNDING_EXACT);
    static_assert(roundingOfRemainder(1U, 10U) == ROUNDING_BELOW_HALF);
    static_assert(roundingOfRemainder(5U, 10U) == ROUNDING_HALF);
    static_assert(roundingOfRemainder(9U, 10U) == ROUNDING_ABOVE_HALF);
    static_assert(roundingOfRemainder(0xFFFFFFFEU, 0xFFFFFFFFU) == ROUNDING_ABOVE_HALF);
}

TEST(PackBinaryInternal, ACoefficientOfFullLengthRoundsByTheInformationAlone) {
    const big_uint even(0x10000000000000ULL);
    const big_uint odd(0x10000000000001ULL);
    EXPECT_EQ(pack(0, even, 0), 0x1.0p52);
    EXPECT_EQ(pack(0, even, 1), 0x1.0p52);
    EXPECT_EQ(pack(0, even, 2), 0x1.0p52);
    EXPECT_EQ(pack(0, even, 3), 0x1.0000000000001p52);
    EXPECT_EQ(pack(0, odd, 0), 0x1.0000000000001p52);
    EXPECT_EQ(pack(0, odd, 1), 0x1.0000000000001p52);
    EXPECT_EQ(pack(0, odd, 2), 0x1.0000000000002p52);
    EXPECT_EQ(pack(0, odd, 3), 0x1.0000000000002p52);
}

TEST(PackBinaryInternal, BelowACutAnyInformationButExactBreaksATie) {
    const big_uint tie(0x20000000000001ULL); // even, and one half
    const big_uint quarter(0x40000000000001ULL);
    EXPECT_EQ(pack(0, tie, 0), 0x1.0p53);
    for (const unsigned rounding : {1U, 2U, 3U}) {
        EXPECT_EQ(pack(0, tie, rounding), 0x1.0000000000001p53) << rounding;
        EXPECT_EQ(pack(0, quarter, rounding), 0x1.0p54) << rounding;
    }
}

TEST(PackBinaryInternal, AShortCoefficientRoundsAtTheLowestBitOfTheResult) {
    EXPECT_EQ(pack(0, big_uint(1U), 1), 1.0);
    EXPECT_EQ(pack(0, big_uint(1U), 2), 1.0);
    EXPECT_EQ(pack(0, big_uint(1U), 3), 1.0 + std::numeric_limits<double>::epsilon());
    EXPECT_EQ(packF(0, big_uint(1U), 3), 1.0F + std::numeric_limits<float>::epsilon());
    EXPECT_EQ(packF(0, big_uint(3U), 2), 3.0F);
}

TEST(PackBinaryInternal, SubnormalResultsUseTheInformationOnce) {
    EXPECT_EQ(pack(-1074, big_uint(1U), 2), 2 * TINY);
    EXPECT_EQ(pack(-1074, big_uint(2U), 2), 2 * TINY);
    EXPECT_EQ(pack(-1074, big_uint(2U), 3), 3 * TINY);
    EXPECT_EQ(pack(-1075, big_uint(1U), 0), 0.0);
    EXPECT_EQ(pack(-1075, big_uint(1U), 1), TINY);
    EXPECT_EQ(pack(-1076, big_uint(1U), 3), 0.0);
    EXPECT_EQ(pack(-1074, big_uint(0xFFFFFFFFFFFFFULL), 3), std::numeric_limits<double>::min());
}

TEST(PackBinaryInternal, TheInformationAloneCanCarryIntoInfinity) {
    const big_uint largest(0x1FFFFFFFFFFFFFULL);
    EXPECT_EQ(pack(971, largest, 1), std::numeric_limits<double>::max());
    EXPECT_EQ(pack(971, largest, 2), INF);
    EXPECT_EQ(pack(971, largest, 3), INF);
    EXPECT_EQ(packF(104, big_uint(0xFFFFFFU), 2), std::numeric_limits<float>::infinity());
}

TEST(MakeBinaryInternal, TheInformationIsNotLookedAtWhereOneOperationDoes) {
    for (const unsigned rounding : {0U, 1U, 2U, 3U}) {
        EXPECT_EQ(make(0, big_uint(7U), rounding), 7.0);
        EXPECT_EQ(make(22, big_uint(7U), rounding), 7e22);
        EXPECT_EQ(make(-22, big_uint(9007199254740991ULL), rounding), 9007199254740991e-22);
        EXPECT_EQ(makeF(-10, big_uint(16777215U), rounding), 16777215e-10F);
        EXPECT_EQ(makeF(10, big_uint(16777215U), rounding), 16777215e10F);
    }
}

TEST(MakeBinaryInternal, WithoutAScaleTheInformationIsThatOfPacking) {
    const big_uint tie(0x20000000000001ULL);
    EXPECT_EQ(make(0, tie, 0), 0x1.0p53);
    EXPECT_EQ(make(0, tie, 1), 0x1.0000000000001p53);
    EXPECT_EQ(makeF(0, big_uint(0x1000001U), 0), 0x1.0p24F);
    EXPECT_EQ(makeF(0, big_uint(0x1000001U), 1), 0x1.000002p24F);
}

TEST(MakeBinaryInternal, WithAScaleTheInformationRoundsTheCoefficientFirst) {
    EXPECT_EQ(make(23, big_uint(7U), 0), 7e23);
    EXPECT_EQ(make(23, big_uint(7U), 1), 7e23);
    EXPECT_EQ(make(23, big_uint(7U), 2), 8e23);
    EXPECT_EQ(make(23, big_uint(8U), 2), 8e23);
    EXPECT_EQ(make(23, big_uint(8U), 3), 9e23);
    EXPECT_EQ(make(-23, big_uint(7U), 2), 8e-23);
    EXPECT_EQ(make(-23, big_uint(8U), 3), 9e-23);
    EXPECT_EQ(make(-400, big_uint(8U), 3), 0.0);
    EXPECT_EQ(makeF(11, big_uint(7U), 3), 8e11F);
    EXPECT_EQ(makeF(-11, big_uint(7U), 3), 8e-11F);
}

TEST(MakeBinaryInternal, LessThanOneHalfIsDroppedEvenBelowATie) {
    const big_uint tie(90071992547409930ULL); // 2^53 + 1, ten times
    EXPECT_EQ(make(-1, tie, 1), 0x1.0p53);
    EXPECT_EQ(make(-1, tie, 3), 0x1.0000000000001p53);
}

TEST(MakeBinaryInternal, RoundingTheCoefficientMayCarryIntoANewWord) {
    const big_uint ones(0xFFFFFFFFFFFFFFFFULL);
    for (int exponent = -350; exponent <= 300; ++exponent) {
        if (exponent != 0) { // 2^64 itself, of 65 bits
            ASSERT_EQ(make(exponent, ones, 3), make(exponent, big_uint{0, 0, 1}, 0)) << exponent;
            ASSERT_EQ(make(exponent, ones, 2), make(exponent, big_uint{0, 0, 1}, 0)) << exponent;
            ASSERT_EQ(makeF(exponent, ones, 3), makeF(exponent, big_uint{0, 0, 1}, 0)) << exponent;
        }
    }
    EXPECT_EQ(make(-32, ones, 3), 18446744073709551616e-32);
}

TEST(MakeBinaryInternal, TheExtremeExponentsDecideAlone) {
    for (const unsigned rounding : {0U, 1U, 2U, 3U}) {
        EXPECT_EQ(make(EXPONENT_OVERFLOW, big_uint(0U), rounding), INF);
        EXPECT_EQ(make(EXPONENT_UNDERFLOW, big_uint(5U), rounding), 0.0);
        EXPECT_EQ(makeBinary<float>(true, EXPONENT_OVERFLOW, big_uint(0U), rounding),
                  -std::numeric_limits<float>::infinity());
    }
}

std::uint32_t decimal(std::int64_t exponent, unsigned coefficient, unsigned rounding) {
    return packDecimal<decimal32>(false, exponent, big_uint(coefficient), rounding).record().bits;
}

std::uint32_t plain(unsigned coefficient, int exponent) {
    return static_cast<std::uint32_t>(exponent + 101) << 23U | coefficient;
}

TEST(PackDecimalInternal, RoundsByTheInformation) {
    EXPECT_EQ(decimal(3, 1234567, 0), plain(1234567, 3));
    EXPECT_EQ(decimal(3, 1234567, 1), plain(1234567, 3));
    EXPECT_EQ(decimal(3, 1234567, 2), plain(1234568, 3));
    EXPECT_EQ(decimal(3, 1234566, 2), plain(1234566, 3));
    EXPECT_EQ(decimal(3, 1234566, 3), plain(1234567, 3));
    EXPECT_EQ(decimal(3, 9999999, 2), plain(1000000, 4));
    EXPECT_EQ(decimal(90, 9999999, 3), 0x78000000U);
    EXPECT_EQ(decimal(90, 9999999, 1), 0x77F8967FU);
}

TEST(PackDecimalInternal, RoundsOnceBelowTheRange) {
    for (const unsigned rounding : {1U, 2U, 3U}) {
        EXPECT_EQ(decimal(-102, 1234565, rounding), 123457U) << rounding;
        EXPECT_EQ(decimal(-102, 1234564, rounding), 123456U) << rounding;
        EXPECT_EQ(decimal(-102, 1234560, rounding), 123456U) << rounding;
        EXPECT_EQ(decimal(-108, 5000000, rounding), 1U) << rounding;
    }
    EXPECT_EQ(decimal(-102, 1234565, 0), 123456U);
    EXPECT_EQ(decimal(-102, 9999999, 0), 1000000U);
}

TEST(PackDecimalInternal, AZeroIsExactWhateverTheInformation) {
    EXPECT_EQ(decimal(3, 0, 3), plain(0, 3));
    EXPECT_EQ(decimal(-500, 0, 3), 0U);
}

TEST(PackDecimalInternal, TakesExponentsBeyondAnInt) {
    EXPECT_EQ(decimal(std::numeric_limits<std::int64_t>::max() / 2, 1, 0), 0x78000000U);
    EXPECT_EQ(decimal(std::numeric_limits<std::int64_t>::min() / 2, 1, 0), 0U);
    EXPECT_EQ(decimal(std::int64_t{1} << 32U, 0, 0), plain(0, 90));
}

TEST(PackDecimalInternal, TheWiderFormatsRoundAtTheirLengths) {
    const auto nines = [](unsigned n) {
        big_uint number(*big_uint::precomputed_pow10(n));
        number.decrement();
        return number;
    };
    EXPECT_EQ(packDecimal<decimal64>(false, 0, nines(16), 3).record().bits,
              std::uint64_t{399} << 53U | 1000000000000000U);
    EXPECT_EQ(packDecimal<decimal64>(true, 0, nines(15), 3).record().bits,
              std::uint64_t{1} << 63U | std::uint64_t{398} << 53U | 1000000000000000U);
    const auto wide = packDecimal<decimal128>(false, 0, nines(34), 2).record();
    EXPECT_EQ(wide.low, 0x38C15B0A00000000U);
    EXPECT_EQ(wide.high, std::uint64_t{6177} << 49U | 0x314DC6448D93U);
}

#ifndef NDEBUG
TEST(PackInternalDeathTest, RefusesWhatItsCallersMustNotPass) {
    EXPECT_DEATH(packBinary<double>(false, 0, big_uint(5U), 2, 0), "bit_length");
    EXPECT_DEATH(packDecimal<decimal32>(false, 0, big_uint(10000000U), 0), "DIGITS");
    EXPECT_DEATH(static_cast<void>(roundsUp(4, false)), "rounding");
}
#endif

} // namespace
