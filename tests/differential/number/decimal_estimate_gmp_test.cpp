// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Where estimates place numbers between floats, and exact comparison with what lies in
/// the middle, worked out by GMP.
#include "orv/liborvxx/number/detail/decimal_estimate.h"

#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/exact_tie.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "tests/differential/number/float_cases.h"
#include "tests/reference/binary_float_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <compare>
#include <cstddef>

namespace {

using orv::big_uint;
using orv::words::Limb;
using orv::words::Wide;
using orvtest::NumberSource;
using namespace orv::detail;

Wide limbs(unsigned long long low, unsigned long long high) {
    return {low, high};
}

// A number of \p bits bits with its top bit at the top of 128.
Wide normalised(NumberSource& source, int bits) {
    const auto drop = static_cast<unsigned>(128 - bits);
    Limb high = source.bits() | Limb{1} << 63U;
    Limb low = source.bits();
    if (source.below(8) == 0) { // long runs
        high = ~Limb{0} << source.below(64);
        low = source.coin() ? 0 : ~Limb{0};
    }
    return drop >= 64 ? limbs(0, high >> (drop - 64) << (drop - 64))
                      : limbs(low >> drop << drop, high);
}

mpz_class toGmp(const Wide& n) {
    return (mpz_class(n.high) << 64U) + mpz_class(n.low);
}

mpz_class power10(int n) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned>(n));
    return power;
}

// The sign of number * 2^scale * 10^exponent - middle * 2^middleScale.
int modelOrder(mpz_class number, int scale, int exponent, mpz_class middle, int middleScale) {
    if (exponent >= 0) {
        number *= power10(exponent);
    } else {
        middle *= power10(-exponent);
    }
    const int shift = scale - middleScale;
    if (shift >= 0) {
        number <<= static_cast<unsigned>(shift);
    } else {
        middle <<= static_cast<unsigned>(-shift);
    }
    return sgn(mpz_class(number - middle));
}

int sign(std::strong_ordering order) {
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

template <class Float>
int middleScale(const FloatBelow& below) {
    using Format = BinaryFormat<Float>;
    return std::max(below.exponent, Format::MIN_EXPONENT) - Format::PRECISION;
}

// The float is below the number, the next one is not, and the place is the right one.
template <class Float>
void expectPlace(const Wide& w, int top, int exponent) {
    const FloatBelow below = placeProduct<Float>(w, top, exponent);
    const mpz_class number = toGmp(w);
    const auto order = [&](Limb twice) {
        return modelOrder(number, top - 127, exponent, mpz_class(twice), middleScale<Float>(below));
    };
    if (below.exponent > BinaryFormat<Float>::MAX_EXPONENT) {
        ASSERT_EQ(below.v, 0U);
        ASSERT_EQ(below.place, Place::BELOW_MIDDLE);
        ASSERT_GE(modelOrder(number, top - 127, exponent, 1, BinaryFormat<Float>::MAX_EXPONENT + 1),
                  0);
        return;
    }
    ASSERT_GE(order(below.v << 1U), 0) << number << ' ' << top << ' ' << exponent;
    const int toMiddle = order(below.v << 1U | 1U);
    if (below.place == Place::UNKNOWN) {
        ASSERT_EQ(sign(compareWithMiddle(w, top - 127, exponent, below.v << 1U | 1U,
                                         middleScale<Float>(below))),
                  toMiddle)
            << number << ' ' << top << ' ' << exponent;
        ASSERT_LT(order((below.v << 1U) + 2), 0);
    } else if (below.place == Place::BELOW_MIDDLE) {
        ASSERT_LT(toMiddle, 0) << number << ' ' << top << ' ' << exponent;
    } else {
        ASSERT_GT(toMiddle, 0) << number << ' ' << top << ' ' << exponent;
        // What is estimated may carry into the next float, to which it rounds.
        ASSERT_LT(order((below.v << 1U) + 3), 0);
    }
}

TEST(DecimalEstimate, PlacesEveryNumberRight) {
    NumberSource source(30);
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const int bits = source.between(1, 128);
        const int exponent = source.between(MIN_TABLE_POW10, MAX_TABLE_POW10);
        const Wide w = normalised(source, bits);
        const int top =
            source.coin() ? bits - 1 : source.between(-1100, 1100) - floorLog2Pow10(exponent);
        ASSERT_NO_FATAL_FAILURE(expectPlace<double>(w, top, exponent));
        ASSERT_NO_FATAL_FAILURE(expectPlace<float>(w, top, exponent));
    }
}

// Quotients and products of middles: as near to these as 128 bits get.
TEST(DecimalEstimate, PlacesNumbersNextToMiddlesRight) {
    NumberSource source(33);
    std::size_t unknown = 0;
    for (std::size_t i = orvtest::caseCount(50'000); i > 0; --i) {
        const int exponent = source.between(MIN_TABLE_POW10, MAX_TABLE_POW10);
        const unsigned precision = source.coin() ? 24 : 53;
        mpz_class n = mpz_class(source.bits() >> (63 - precision) | Limb{1} << precision | 1U)
                      << 2000U;
        n = exponent < 0 ? mpz_class(n * power10(-exponent)) : mpz_class(n / power10(exponent));
        const std::size_t length = mpz_sizeinbase(n.get_mpz_t(), 2);
        n >>= length - 128;
        n += source.between(-2, 2);
        const Wide w{static_cast<Limb>(mpz_class(n & mpz_class("0xFFFFFFFFFFFFFFFF")).get_ui()),
                     static_cast<Limb>(mpz_class(n >> 64U).get_ui())};
        if (w.high >> 63U == 0) {
            continue;
        }
        const int top = source.between(-1030, 1000) - floorLog2Pow10(exponent);
        unknown += placeProduct<double>(w, top, exponent).place == Place::UNKNOWN ? 1U : 0U;
        ASSERT_NO_FATAL_FAILURE(expectPlace<double>(w, top, exponent));
        const int floatTop = source.between(-130, 120) - floorLog2Pow10(exponent);
        ASSERT_NO_FATAL_FAILURE(expectPlace<float>(w, floatTop, exponent));
    }
    EXPECT_GT(unknown, orvtest::caseCount(50'000) / 10) << "the cases must be hard";
}

// A coefficient of up to 64 bits.
template <class Float>
bool decides(int exponent, Limb coefficient) {
    const int zeros = std::countl_zero(coefficient);
    return placeProduct<Float>({0, coefficient << static_cast<unsigned>(zeros)}, 63 - zeros,
                               exponent)
               .place != Place::UNKNOWN;
}

TEST(DecimalEstimate, LeavesTiesOpen) {
    EXPECT_FALSE(decides<double>(1, 9007199254740995ULL / 5));
    EXPECT_TRUE(decides<double>(1, 9007199254741000ULL / 5));
    EXPECT_FALSE(decides<double>(-1, 90071992547409930ULL));
    EXPECT_FALSE(decides<float>(1, 16777225U / 5));
    EXPECT_TRUE(decides<double>(-1, 90071992547409931ULL));
}

TEST(DecimalEstimate, DecidesNearlyAllNumbers) {
    NumberSource source(31);
    std::size_t open = 0;
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const Limb coefficient = source.bits() | 1U;
        open += decides<double>(source.between(-320, 280), coefficient) ? 0U : 1U;
        open += decides<float>(source.between(-60, 30), coefficient) ? 0U : 1U;
    }
    EXPECT_LE(open, orvtest::caseCount(100'000) / 10'000);
}

// The long division and the multiplication alone, which estimates otherwise keep from random
// numbers: coefficients beyond 8192 bits have none.
TEST(MakeBinaryExactly, AgreesWithTheStepsForNumbersWithoutAnEstimate) {
    NumberSource source(32);
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
