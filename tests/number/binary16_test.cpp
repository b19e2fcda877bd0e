// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief binary16: every value upwards, every boundary downwards, and the type itself.
#include "orv/liborvxx/number/binary16.h"

#include "tests/reference/binary16_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <unordered_set>

namespace {

using orv::binary16;

constexpr double INF = std::numeric_limits<double>::infinity();

unsigned fromDouble(double value) {
    return orv::_double_to_binary16(value).bits();
}
unsigned fromFloat(float value) {
    return orv::_float_to_binary16(value).bits();
}
double toDouble(unsigned bits) {
    return orv::_binary16_to_double(binary16::from_bits(static_cast<std::uint16_t>(bits)));
}
float toFloat(unsigned bits) {
    return orv::_binary16_to_float(binary16::from_bits(static_cast<std::uint16_t>(bits)));
}
binary16 half(double value) {
    return binary16(value);
}

TEST(Binary16, IsItsTwoBytesAndBeginsAsPlusZero) {
    static_assert(sizeof(binary16) == 2 && std::is_trivially_copyable_v<binary16>);
    static_assert(std::is_standard_layout_v<binary16>);
    static_assert(!std::is_convertible_v<float, binary16> &&
                  !std::is_convertible_v<binary16, float>);
    static_assert(!std::is_convertible_v<double, binary16> &&
                  !std::is_convertible_v<binary16, double>);
    EXPECT_EQ(binary16().bits(), 0U);
    EXPECT_EQ(std::bit_cast<binary16>(std::uint16_t{0xABCD}).bits(), 0xABCDU);
}

TEST(Binary16, ConvertsAtCompileTimeAsItDoesAtRunTime) {
    static_assert(binary16(1.0).bits() == 0x3C00 && binary16(-2.5F).bits() == 0xC100);
    static_assert(static_cast<double>(binary16::from_bits(0x0001)) == 0x1p-24);
    static_assert(static_cast<float>(binary16::from_bits(0x7BFF)) == 65504.0F);
    EXPECT_EQ(fromDouble(1.0), 0x3C00U);
    EXPECT_EQ(fromFloat(-2.5F), 0xC100U);
}

// Every bit pattern, against the formula of the format.
TEST(Binary16ToWider, KeepsEveryFiniteValueAndSign) {
    for (unsigned bits = 0; bits < 0x7C00; ++bits) {
        const double expected = orvtest::binary16Magnitude(bits);
        const unsigned negative = bits | 0x8000U;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(toDouble(bits)),
                  std::bit_cast<std::uint64_t>(expected))
            << bits;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(toDouble(negative)),
                  std::bit_cast<std::uint64_t>(-expected))
            << bits;
        ASSERT_EQ(std::bit_cast<std::uint32_t>(toFloat(bits)),
                  std::bit_cast<std::uint32_t>(static_cast<float>(expected)))
            << bits;
        ASSERT_EQ(std::bit_cast<std::uint32_t>(toFloat(negative)),
                  std::bit_cast<std::uint32_t>(-static_cast<float>(expected)))
            << bits;
    }
}

TEST(Binary16ToWider, KeepsInfinitiesAndMovesNanPayloadsUp) {
    for (unsigned sign = 0; sign < 2; ++sign) {
        for (unsigned fraction = 0; fraction < 0x400; ++fraction) {
            const unsigned bits = sign << 15U | 0x7C00U | fraction;
            ASSERT_EQ(std::bit_cast<std::uint64_t>(toDouble(bits)),
                      std::uint64_t{sign} << 63U | 0x7FFULL << 52U |
                          std::uint64_t{fraction} << 42U);
            ASSERT_EQ(std::bit_cast<std::uint32_t>(toFloat(bits)),
                      sign << 31U | 0xFFU << 23U | fraction << 13U);
        }
    }
    EXPECT_EQ(toDouble(0x7C00), INF);
    EXPECT_EQ(toDouble(0xFC00), -INF);
    EXPECT_TRUE(std::isnan(toDouble(0xFE00)) && std::signbit(toDouble(0xFE00)));
}

TEST(Binary16ToWider, GivesTheSmallestSubnormalExactly) {
    EXPECT_EQ(toFloat(0x0001), 0x1p-24F);
    EXPECT_EQ(fromFloat(0x1p-24F), 0x0001U);
    EXPECT_EQ(toDouble(0x0001), 0x1p-24);
}

TEST(Binary16, ComesBackFromFloatAndDoubleUnchanged) {
    for (unsigned bits = 0; bits <= 0xFFFF; ++bits) {
        const bool nan = (bits & 0x7FFFU) > 0x7C00;
        ASSERT_EQ(fromDouble(toDouble(bits)), nan ? 0x7E00 : bits);
        ASSERT_EQ(fromFloat(toFloat(bits)), nan ? 0x7E00 : bits);
    }
}

TEST(Binary16, ConversionsOfTheClassAreTheFunctions) {
    for (unsigned bits = 0; bits <= 0xFFFF; ++bits) {
        const auto value = binary16::from_bits(static_cast<std::uint16_t>(bits));
        const auto wide = static_cast<double>(value);
        const auto single = static_cast<float>(value);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(wide), std::bit_cast<std::uint64_t>(toDouble(bits)));
        ASSERT_EQ(std::bit_cast<std::uint32_t>(single),
                  std::bit_cast<std::uint32_t>(toFloat(bits)));
        ASSERT_EQ(binary16(wide).bits(), fromDouble(wide));
        ASSERT_EQ(binary16(single).bits(), fromFloat(single));
    }
}

// At each boundary between two neighbours: the tie goes to even, and one step of the wider type to
// either side of it is enough to decide.
TEST(Binary16FromWider, RoundsTiesToEvenAndDecidesNextToEachTie) {
    for (unsigned bits = 0; bits < 0x7C00; ++bits) {
        const double tie =
            (orvtest::binary16Magnitude(bits) + orvtest::binary16Magnitude(bits + 1)) / 2;
        const unsigned even = bits % 2 == 0 ? bits : bits + 1;
        ASSERT_EQ(fromDouble(tie), even) << bits;
        ASSERT_EQ(fromDouble(std::nextafter(tie, 0.0)), bits);
        ASSERT_EQ(fromDouble(std::nextafter(tie, INF)), bits + 1);
        ASSERT_EQ(fromDouble(-tie), even | 0x8000U);
        ASSERT_EQ(fromDouble(-std::nextafter(tie, 0.0)), bits | 0x8000U);
        ASSERT_EQ(fromDouble(-std::nextafter(tie, INF)), (bits + 1) | 0x8000U);
        const auto single = static_cast<float>(tie);
        ASSERT_EQ(fromFloat(single), even) << bits;
        ASSERT_EQ(fromFloat(std::nextafter(single, 0.0F)), bits);
        ASSERT_EQ(fromFloat(std::nextafter(single, 1e9F)), bits + 1);
        ASSERT_EQ(fromFloat(-std::nextafter(single, 1e9F)), (bits + 1) | 0x8000U);
    }
}

TEST(Binary16FromWider, OverflowsToInfinityFromHalfwayBeyondTheLargest) {
    EXPECT_EQ(fromDouble(65504.0), 0x7BFFU);
    EXPECT_EQ(fromDouble(std::nextafter(65520.0, 0.0)), 0x7BFFU);
    EXPECT_EQ(fromDouble(65520.0), 0x7C00U);
    EXPECT_EQ(fromDouble(std::nextafter(65536.0, 0.0)), 0x7C00U);
    EXPECT_EQ(fromDouble(65536.0), 0x7C00U);
    EXPECT_EQ(fromDouble(-65536.0), 0xFC00U);
    EXPECT_EQ(fromDouble(std::numeric_limits<double>::max()), 0x7C00U);
    EXPECT_EQ(fromDouble(std::numeric_limits<double>::lowest()), 0xFC00U);
    EXPECT_EQ(fromDouble(INF), 0x7C00U);
    EXPECT_EQ(fromDouble(-INF), 0xFC00U);
    EXPECT_EQ(fromFloat(65519.996F), 0x7BFFU);
    EXPECT_EQ(fromFloat(65520.0F), 0x7C00U);
    EXPECT_EQ(fromFloat(-std::numeric_limits<float>::max()), 0xFC00U);
    EXPECT_EQ(fromFloat(std::numeric_limits<float>::infinity()), 0x7C00U);
}

TEST(Binary16FromWider, UnderflowsToZeroFromHalfTheSmallestDownwards) {
    EXPECT_EQ(fromDouble(5.9604644775390625e-8), 0x0001U);
    EXPECT_EQ(fromDouble(2.98023223876953125e-8), 0x0000U);
    EXPECT_EQ(fromDouble(std::nextafter(2.98023223876953125e-8, 1.0)), 0x0001U);
    EXPECT_EQ(fromDouble(-0x1p-25), 0x8000U);
    EXPECT_EQ(fromDouble(0x1.fffffffffffffp-26), 0x0000U);
    EXPECT_EQ(fromDouble(std::numeric_limits<double>::min()), 0x0000U);
    EXPECT_EQ(fromDouble(-std::numeric_limits<double>::denorm_min()), 0x8000U);
    EXPECT_EQ(fromDouble(0.0), 0x0000U);
    EXPECT_EQ(fromDouble(-0.0), 0x8000U);
    EXPECT_EQ(fromFloat(0x1p-25F), 0x0000U);
    EXPECT_EQ(fromFloat(0x1.000002p-25F), 0x0001U);
    EXPECT_EQ(fromFloat(-std::numeric_limits<float>::denorm_min()), 0x8000U);
    EXPECT_EQ(fromFloat(-0.0F), 0x8000U);
}

TEST(Binary16FromWider, CarriesFromTheSubnormalsIntoTheNormals) {
    EXPECT_EQ(fromDouble(0x1.ff8p-15), 0x03FFU);
    EXPECT_EQ(fromDouble(0x1.ffcp-15), 0x0400U);
    EXPECT_EQ(fromFloat(0x1.ffcp-15F), 0x0400U);
    EXPECT_EQ(fromDouble(0x1.ffep+0), 0x4000U);
}

TEST(Binary16FromWider, MakesEveryNanThePositiveQuietOne) {
    const std::uint64_t doubles[] = {0x7FF8000000000000U, 0xFFF8000000000000U, 0x7FF0000000000001U,
                                     0xFFF0000000000001U, 0x7FFFFFFFFFFFFFFFU, 0xFFFFFFFFFFFFFFFFU,
                                     0x7FF4000000000000U};
    for (const std::uint64_t bits : doubles) {
        EXPECT_EQ(fromDouble(std::bit_cast<double>(bits)), 0x7E00U) << std::hex << bits;
    }
    const std::uint32_t floats[] = {0x7FC00000U, 0xFFC00000U, 0x7F800001U, 0xFF800001U,
                                    0xFFFFFFFFU};
    for (const std::uint32_t bits : floats) {
        EXPECT_EQ(fromFloat(std::bit_cast<float>(bits)), 0x7E00U) << std::hex << bits;
    }
}

TEST(Binary16FromWider, GivesTheNearestOfRandomDoubles) {
    const orvtest::Binary16Rounding model;
    orvtest::NumberSource source(16);
    for (std::size_t i = orvtest::caseCount(3000000); i > 0; --i) {
        // Mostly around the exponents that matter; some of them with few bits set.
        std::uint64_t bits = source.bits();
        if (source.below(8) != 0) {
            const auto field = static_cast<std::uint64_t>(source.between(1023 - 28, 1023 + 18));
            bits = (bits & 0x800FFFFFFFFFFFFFU) | field << 52U;
        }
        if (source.coin()) {
            bits &= ~std::uint64_t{0} << (38U + source.below(10));
            bits += source.below(3) - std::uint64_t{1};
        }
        const auto value = std::bit_cast<double>(bits);
        ASSERT_EQ(fromDouble(value), model.nearest(value)) << std::hexfloat << value;
        const auto single = static_cast<float>(value);
        ASSERT_EQ(fromFloat(single), model.nearest(single)) << std::hexfloat << single;
    }
}

TEST(Binary16FromWider, TakesNoNoticeOfTheRoundingMode) {
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(mode), 0);
        const unsigned up = fromDouble(1.0 + 0x1.8p-11);
        const unsigned down = fromDouble(1.0 + 0x1p-12);
        const unsigned subnormal = fromFloat(0x1.8p-24F);
        const float widened = toFloat(0x0003);
        std::fesetround(FE_TONEAREST);
        EXPECT_EQ(up, 0x3C01U);
        EXPECT_EQ(down, 0x3C00U);
        EXPECT_EQ(subnormal, 0x0002U);
        EXPECT_EQ(widened, 0x1.8p-23F);
    }
}

TEST(Binary16, RaisesNoFloatingPointException) {
    std::feclearexcept(FE_ALL_EXCEPT);
    const unsigned inexact = fromDouble(1.0 / 1024 / 1024 / 1024);
    const unsigned overflow = fromFloat(1e9F);
    const unsigned signalling = fromDouble(std::bit_cast<double>(0x7FF0000000000001U));
    const int raised = std::fetestexcept(FE_ALL_EXCEPT);
    EXPECT_EQ(raised, 0);
    EXPECT_EQ(inexact, 0U);
    EXPECT_EQ(overflow, 0x7C00U);
    EXPECT_EQ(signalling, 0x7E00U);
}

TEST(Binary16Order, IsThatOfTheNumbers) {
    const double values[] = {-INF, -65504,  -1.5, -1,  -0x1p-24, -0.0,
                             0.0,  0x1p-24, 1,    1.5, 65504,    INF};
    for (const double a : values) {
        for (const double b : values) {
            EXPECT_EQ(half(a) == half(b), a == b) << a << ' ' << b;
            EXPECT_EQ(half(a) != half(b), a != b) << a << ' ' << b;
            EXPECT_EQ(half(a) < half(b), a < b) << a << ' ' << b;
            EXPECT_EQ(half(a) >= half(b), a >= b) << a << ' ' << b;
            EXPECT_TRUE((half(a) <=> half(b)) == (a <=> b)) << a << ' ' << b;
        }
    }
}

TEST(Binary16Order, HasNanBesideEverything) {
    const binary16 nan = std::numeric_limits<binary16>::quiet_NaN();
    for (const binary16 other :
         {half(0), half(INF), half(-INF), nan, binary16::from_bits(0xFC01)}) {
        EXPECT_FALSE(nan == other);
        EXPECT_TRUE(nan != other);
        EXPECT_FALSE(nan < other);
        EXPECT_FALSE(nan >= other);
        EXPECT_FALSE(other > nan);
        EXPECT_TRUE((nan <=> other) == std::partial_ordering::unordered);
        EXPECT_TRUE((other <=> nan) == std::partial_ordering::unordered);
    }
}

TEST(Binary16Hash, IsTheSameForEqualNumbers) {
    const std::hash<binary16> hash;
    EXPECT_EQ(hash(half(0.0)), hash(half(-0.0)));
    std::unordered_set<binary16> seen;
    for (unsigned bits = 0; bits <= 0xFFFF; ++bits) {
        const auto value = binary16::from_bits(static_cast<std::uint16_t>(bits));
        if (!is_nan(value)) {
            seen.insert(value);
        }
    }
    EXPECT_EQ(seen.size(), 2U * 0x7C01 - 1);
}

TEST(Binary16Classes, AreThoseOfTheBits) {
    for (unsigned bits = 0; bits <= 0xFFFF; ++bits) {
        const auto value = binary16::from_bits(static_cast<std::uint16_t>(bits));
        const unsigned field = bits >> 10U & 31U;
        const unsigned fraction = bits & 0x3FFU;
        ASSERT_EQ(is_finite(value), field != 31);
        ASSERT_EQ(is_inf(value), field == 31 && fraction == 0);
        ASSERT_EQ(is_nan(value), field == 31 && fraction != 0);
        ASSERT_EQ(is_normal(value), field != 31 && field != 0);
        ASSERT_EQ(is_zero(value), field == 0 && fraction == 0);
        ASSERT_EQ(sign_bit(value), bits >= 0x8000);
    }
}

TEST(Binary16Limits, AreThoseOfTheFormat) {
    using Limits = std::numeric_limits<binary16>;
    static_assert(Limits::is_specialized && Limits::is_signed && !Limits::is_integer &&
                  !Limits::is_exact && Limits::is_iec559 && Limits::is_bounded &&
                  !Limits::is_modulo && Limits::radix == 2);
    static_assert(Limits::round_style == std::round_to_nearest &&
                  Limits::has_denorm == std::denorm_present);
    const auto value = [](binary16 h) { return static_cast<double>(h); };
    EXPECT_EQ(value(Limits::max()), 65504.0);
    EXPECT_EQ(value(Limits::lowest()), -65504.0);
    EXPECT_EQ(value(Limits::min()), std::ldexp(1.0, Limits::min_exponent - 1));
    EXPECT_EQ(value(Limits::epsilon()), std::ldexp(1.0, 1 - Limits::digits));
    EXPECT_EQ(value(Limits::round_error()), 0.5);
    EXPECT_EQ(value(Limits::denorm_min()), 0x1p-24);
    EXPECT_EQ(value(Limits::infinity()), INF);
    EXPECT_TRUE(is_nan(Limits::quiet_NaN()) && is_nan(Limits::signaling_NaN()));
    EXPECT_EQ(Limits::quiet_NaN().bits(), 0x7E00);
    EXPECT_EQ(Limits::signaling_NaN().bits() & 0x200U, 0U);
    // 2^max_exponent is the first power of two that is not finite.
    EXPECT_TRUE(is_inf(half(std::ldexp(1.0, Limits::max_exponent))));
    EXPECT_TRUE(is_finite(half(std::ldexp(1.0, Limits::max_exponent - 1))));
    EXPECT_TRUE(is_normal(half(std::pow(10.0, Limits::min_exponent10))));
    EXPECT_FALSE(is_normal(half(std::pow(10.0, Limits::min_exponent10 - 1))));
    EXPECT_TRUE(is_finite(half(std::pow(10.0, Limits::max_exponent10))));
    EXPECT_FALSE(is_finite(half(std::pow(10.0, Limits::max_exponent10 + 1))));
    EXPECT_EQ(Limits::digits, 11);
    EXPECT_EQ(Limits::digits10, static_cast<int>((Limits::digits - 1) * std::log10(2.0)));
    EXPECT_EQ(Limits::max_digits10,
              static_cast<int>(std::ceil(1 + Limits::digits * std::log10(2.0))));
}

} // namespace
