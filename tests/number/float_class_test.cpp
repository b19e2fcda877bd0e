// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The classes of float, double and long double. Compiled twice, the second time with the
/// compiler's leave to assume that there are no NaNs and infinities.
#include "orv/liborvxx/number/float_class.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace {

// The answers to all the questions, in one word that reads well in a message.
template <class Float>
std::string describe(Float value) {
    std::string text;
    text += orv::is_finite(value) ? " finite" : "";
    text += orv::is_inf(value) ? " inf" : "";
    text += orv::is_nan(value) ? " nan" : "";
    text += orv::is_normal(value) ? " normal" : "";
    text += orv::is_zero(value) ? " zero" : "";
    text += orv::sign_bit(value) ? " sign" : "";
    return text;
}

// What the table of classes says for fields, put down from the fields alone.
std::string expected(bool sign, unsigned exponent, unsigned ones, std::uint64_t fraction) {
    std::string text;
    text += exponent != ones ? " finite" : "";
    text += exponent == ones && fraction == 0 ? " inf" : "";
    text += exponent == ones && fraction != 0 ? " nan" : "";
    text += exponent != 0 && exponent != ones ? " normal" : "";
    text += exponent == 0 && fraction == 0 ? " zero" : "";
    text += sign ? " sign" : "";
    return text;
}

// No fraction, each single bit of it, and all of it.
std::vector<std::uint64_t> fractions(unsigned bits) {
    std::vector<std::uint64_t> all = {0, (std::uint64_t{1} << bits) - 1};
    for (unsigned i = 0; i < bits; ++i) {
        all.push_back(std::uint64_t{1} << i);
    }
    return all;
}

TEST(FloatClass, OfFloatFollowsItsFields) {
    for (std::uint32_t high = 0; high < 512; ++high) {
        for (const std::uint64_t fraction : fractions(23)) {
            const std::uint32_t bits = high << 23U | static_cast<std::uint32_t>(fraction);
            ASSERT_EQ(describe(std::bit_cast<float>(bits)),
                      expected(high >= 256, high % 256, 255, fraction))
                << std::hex << bits;
        }
    }
}

TEST(FloatClass, OfDoubleFollowsItsFields) {
    for (std::uint64_t high = 0; high < 4096; ++high) {
        for (const std::uint64_t fraction : fractions(52)) {
            const std::uint64_t bits = high << 52U | fraction;
            ASSERT_EQ(describe(std::bit_cast<double>(bits)),
                      expected(high >= 2048, static_cast<unsigned>(high % 2048), 2047, fraction))
                << std::hex << bits;
        }
    }
}

TEST(FloatClass, IsKnownAtCompileTime) {
    static_assert(orv::is_finite(1.0) && !orv::is_inf(1.0F) && !orv::is_nan(0.0));
    static_assert(orv::is_normal(1.0F) && orv::is_zero(-0.0) && orv::sign_bit(-0.0F));
    static_assert(!orv::is_normal(std::numeric_limits<double>::denorm_min()));
    static_assert(orv::is_inf(std::numeric_limits<float>::infinity()));
    static_assert(orv::is_nan(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ(describe(1.0F), " finite normal");
}

TEST(FloatClass, OfLongDoubleIsThatOfTheValue) {
    using Limits = std::numeric_limits<long double>;
    EXPECT_EQ(describe(1.0L), " finite normal");
    EXPECT_EQ(describe(-1.0L), " finite normal sign");
    EXPECT_EQ(describe(0.0L), " finite zero");
    EXPECT_EQ(describe(Limits::min()), " finite normal");
    EXPECT_EQ(describe(Limits::max()), " finite normal");
    EXPECT_EQ(describe(Limits::lowest()), " finite normal sign");
    EXPECT_EQ(describe(Limits::denorm_min()), " finite");
    EXPECT_EQ(describe(Limits::infinity()), " inf");
    EXPECT_EQ(describe(-Limits::infinity()), " inf sign");
    EXPECT_EQ(describe(Limits::quiet_NaN()), " nan");
    EXPECT_EQ(describe(-Limits::quiet_NaN()), " nan sign");
    EXPECT_EQ(describe(Limits::signaling_NaN()), " nan");
}

// Values that double has under another class, or not at all.
TEST(FloatClass, OfLongDoubleIsOfItsOwnFormatAndNotOfDouble) {
    const long double smallest = std::numeric_limits<double>::denorm_min();
    const long double largest = std::numeric_limits<double>::max();
    const bool isDouble =
        std::numeric_limits<long double>::max_exponent == std::numeric_limits<double>::max_exponent;
    EXPECT_EQ(describe(smallest), isDouble ? " finite" : " finite normal");
    EXPECT_EQ(describe(smallest / 2), isDouble ? " finite zero" : " finite normal");
    EXPECT_EQ(describe(largest * 2), isDouble ? " inf" : " finite normal");
}

// All classes, and -0 in particular: where compilers need not tell zeros apart, they may make 0 of
// the constant -0.0L. In the extended format of 80 bits a NaN may lack the bits that double has.
#if LDBL_MANT_DIG == 64
TEST(FloatClass, OfExtendedLongDoubleFollowsItsFields) {
    const unsigned exponents[] = {0, 1, 2, 0x3FFF, 0x7FFE, 0x7FFF};
    for (const unsigned exponent : exponents) {
        for (const bool sign : {false, true}) {
            for (const std::uint64_t fraction : fractions(63)) {
                const std::uint64_t significand = fraction | std::uint64_t{exponent == 0 ? 0U : 1U}
                                                                 << 63U;
                const auto top = static_cast<std::uint16_t>(exponent | (sign ? 0x8000U : 0U));
                long double value = 0;
                std::memcpy(&value, &significand, sizeof significand);
                std::memcpy(reinterpret_cast<char*>(&value) + 8, &top, sizeof top);
                ASSERT_EQ(describe(value), expected(sign, exponent, 0x7FFF, fraction))
                    << std::hex << top << ' ' << significand;
            }
        }
    }
    // Not zero, though the exponent field and the fraction are. On its way into a function the
    // processor may give such a number its regular form.
    const std::uint64_t integerBit = std::uint64_t{1} << 63U;
    long double value = 0;
    std::memcpy(&value, &integerBit, sizeof integerBit);
    EXPECT_TRUE(orv::is_finite(value));
    EXPECT_FALSE(orv::is_zero(value));
}
#elif LDBL_MANT_DIG == 113
TEST(FloatClass, OfQuadrupleLongDoubleFollowsItsFields) {
    const bool highFirst = std::endian::native == std::endian::big;
    const unsigned exponents[] = {0, 1, 2, 0x3FFF, 0x7FFE, 0x7FFF};
    for (const unsigned exponent : exponents) {
        for (const bool sign : {false, true}) {
            const auto check = [=](std::uint64_t high, std::uint64_t low) {
                const std::uint64_t top = std::uint64_t{exponent | (sign ? 0x8000U : 0U)} << 48U;
                const std::uint64_t halves[2] = {highFirst ? top | high : low,
                                                 highFirst ? low : top | high};
                long double value = 0;
                std::memcpy(&value, halves, sizeof value);
                EXPECT_EQ(describe(value), expected(sign, exponent, 0x7FFF, high | low))
                    << std::hex << (top | high) << ' ' << low;
            };
            for (const std::uint64_t fraction : fractions(48)) {
                check(fraction, 0);
            }
            for (const std::uint64_t fraction : fractions(63)) {
                check(0, fraction);
            }
            check(0, std::uint64_t{1} << 63U);
        }
    }
}
#endif

} // namespace
