// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 10^exponent as float and double: rounding, the ends of the range, failures.
#include "orv/liborvxx/number/make_binary.h"

#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace {

using orv::big_uint;
using orv::make_double;
using orv::make_float;
using orv::make_long_double;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr float INF_F = std::numeric_limits<float>::infinity();
constexpr double TINY = std::numeric_limits<double>::denorm_min();
constexpr float TINY_F = std::numeric_limits<float>::denorm_min();
constexpr int CERTAIN_OVERFLOW = std::numeric_limits<int>::max();
constexpr int CERTAIN_UNDERFLOW = std::numeric_limits<int>::min();

std::uint64_t bitsOf(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

std::uint32_t bitsOf(float value) {
    return std::bit_cast<std::uint32_t>(value);
}

// 2^n
big_uint power2(unsigned n) {
    big_uint number;
    number.set_size(n / 32 + 1);
    number.set_bit(n);
    return number;
}

TEST(MakeDouble, SmallCoefficientsWithSmallExponents) {
    EXPECT_EQ(make_double(false, 0, big_uint(1U)), 1.0);
    EXPECT_EQ(make_double(false, -1, big_uint(1U)), 0.1);
    EXPECT_EQ(make_double(true, -2, big_uint(314U)), -3.14);
    EXPECT_EQ(make_double(false, 22, big_uint(1U)), 1e22);
    EXPECT_EQ(make_double(false, -22, big_uint(1U)), 1e-22);
    EXPECT_EQ(make_double(false, 22, big_uint(9007199254740991ULL)), 9007199254740991e22);
    EXPECT_EQ(make_double(false, -22, big_uint(9007199254740991ULL)), 9007199254740991e-22);
}

TEST(MakeDouble, IsCorrectlyRoundedBeyondThem) {
    EXPECT_EQ(make_double(false, 23, big_uint(1U)), 1e23);
    EXPECT_EQ(make_double(false, -23, big_uint(1U)), 1e-23);
    EXPECT_EQ(make_double(true, 280, big_uint(1234567890123456789ULL)), -1234567890123456789e280);
    EXPECT_EQ(make_double(false, 200, big_uint(1234567890123456789ULL)), 1234567890123456789e200);
    EXPECT_EQ(make_double(false, -300, big_uint(1234567890123456789ULL)), 1234567890123456789e-300);
    EXPECT_EQ(make_double(true, -20, big_uint(1234567890123456789ULL)), -1234567890123456789e-20);
    EXPECT_EQ(make_double(false, -330, big_uint(17976931348623157ULL)), 17976931348623157e-330);
}

// The known hard cases of reading decimals: each lies very near to the middle of two doubles.
TEST(MakeDouble, DecidesNumbersNextToATie) {
    EXPECT_EQ(make_double(false, -16, big_uint(10000000000000001110ULL)), 1000.0000000000001110);
    EXPECT_EQ(make_double(false, -324, big_uint(22250738585072011ULL)), 2.2250738585072011e-308);
    EXPECT_EQ(make_double(false, 0, big_uint(9007199254740993ULL)), 9007199254740992.0);
    EXPECT_EQ(make_double(false, 1, big_uint(9007199254740993ULL)), 9007199254740993e1);
    EXPECT_EQ(make_double(false, 126, big_uint(5ULL)), 5e126);
    EXPECT_EQ(make_double(false, 27, big_uint(8735ULL)), 8735e27);
    EXPECT_EQ(make_double(false, -27, big_uint(6138601ULL)), 6138601e-27);
    EXPECT_EQ(make_double(false, 281, big_uint(7120190517612959703ULL)), 7120190517612959703e281);
    EXPECT_EQ(make_double(false, -342, big_uint(7975789780160409ULL)), 0.0);
}

TEST(MakeDouble, ExactTiesGoToEven) {
    EXPECT_EQ(make_double(false, -1, big_uint(90071992547409930ULL)), 9007199254740992.0);
    EXPECT_EQ(make_double(false, -1, big_uint(90071992547409950ULL)), 9007199254740996.0);
    EXPECT_EQ(make_double(false, -1, big_uint(90071992547409931ULL)), 9007199254740994.0);
    EXPECT_EQ(make_double(false, -1, big_uint(90071992547409929ULL)), 9007199254740992.0);
}

TEST(MakeDouble, OverflowIsInfinity) {
    EXPECT_EQ(make_double(false, 308, big_uint(2U)), INF);
    EXPECT_EQ(make_double(false, 308, big_uint(1U)), 1e308);
    EXPECT_EQ(make_double(false, 309, big_uint(1U)), INF);
    EXPECT_EQ(make_double(true, 309, big_uint(1U)), -INF);
    EXPECT_EQ(make_double(false, 292, big_uint(17976931348623157ULL)),
              std::numeric_limits<double>::max());
    EXPECT_EQ(make_double(false, 291, big_uint(179769313486231580ULL)),
              std::numeric_limits<double>::max());
    EXPECT_EQ(make_double(false, 291, big_uint(179769313486231581ULL)), INF);
    EXPECT_EQ(make_double(false, 1'000'000'000, big_uint(1U)), INF);
    EXPECT_EQ(make_double(true, CERTAIN_OVERFLOW - 1, big_uint(1U)), -INF);
    EXPECT_EQ(make_double(false, 0, power2(1024)), INF);
    EXPECT_EQ(make_double(false, 0, power2(20'000)), INF);
}

TEST(MakeDouble, UnderflowIsZero) {
    EXPECT_EQ(bitsOf(make_double(false, -400, big_uint(1U))), 0U);
    EXPECT_EQ(bitsOf(make_double(true, -400, big_uint(1U))), bitsOf(-0.0));
    EXPECT_EQ(bitsOf(make_double(false, -324, big_uint(1U))), 0U);
    EXPECT_EQ(bitsOf(make_double(false, -324, big_uint(2U))), 0U);
    EXPECT_EQ(make_double(false, -324, big_uint(3U)), TINY);
    EXPECT_EQ(bitsOf(make_double(false, -325, big_uint(24U))), 0U);
    EXPECT_EQ(make_double(false, -325, big_uint(25U)), TINY);
    EXPECT_EQ(bitsOf(make_double(false, -342, big_uint(2470328229206232720ULL))), 0U);
    EXPECT_EQ(make_double(false, -342, big_uint(2470328229206232721ULL)), TINY);
    EXPECT_EQ(bitsOf(make_double(false, CERTAIN_UNDERFLOW + 1, big_uint(1U))), 0U);
    EXPECT_EQ(bitsOf(make_double(true, -1'000'000'000, power2(2000))), bitsOf(-0.0));
}

TEST(MakeDouble, SubnormalResults) {
    EXPECT_EQ(make_double(false, -324, big_uint(5U)), TINY);
    EXPECT_EQ(make_double(false, -323, big_uint(1U)), 2 * TINY);
    EXPECT_EQ(make_double(false, -310, big_uint(123456789U)), 123456789e-310);
    EXPECT_EQ(make_double(false, -330, big_uint(1234567890123456789ULL)), 1234567890123456789e-330);
    EXPECT_EQ(make_double(false, -324, big_uint(22250738585072014ULL)),
              std::numeric_limits<double>::min());
}

TEST(MakeDouble, AWideCoefficientCancelsASmallExponent) {
    big_uint cache;
    const big_uint& power = big_uint::pow10(7000, &cache);
    EXPECT_EQ(make_double(false, -7000, power), 1.0);
    EXPECT_EQ(make_double(false, -7001, power), 0.1);
    EXPECT_EQ(make_double(false, -7324, power), 0.0);
    EXPECT_EQ(make_double(false, -7323, power), 2 * TINY);
    EXPECT_EQ(make_double(false, -6692, power), 1e308);
    EXPECT_EQ(make_double(false, -6691, power), INF);
}

TEST(MakeDouble, ZeroIsZeroAtAnyExponentButCertainOverflow) {
    for (const int exponent : {0, 1, 22, 23, 308, 309, 9000, CERTAIN_OVERFLOW - 1, -1, -22, -23,
                               -324, -400, -9000, CERTAIN_UNDERFLOW + 1, CERTAIN_UNDERFLOW}) {
        EXPECT_EQ(bitsOf(make_double(false, exponent, big_uint(0U))), 0U) << exponent;
        EXPECT_EQ(bitsOf(make_double(true, exponent, big_uint{0, 0})), bitsOf(-0.0)) << exponent;
    }
    EXPECT_EQ(make_double(false, CERTAIN_OVERFLOW, big_uint(0U)), INF);
    EXPECT_EQ(make_double(true, CERTAIN_OVERFLOW, big_uint(0U)), -INF);
}

TEST(MakeDouble, TheExtremeExponentsDecideForAnyCoefficient) {
    EXPECT_EQ(make_double(false, CERTAIN_OVERFLOW, big_uint(1U)), INF);
    EXPECT_EQ(bitsOf(make_double(true, CERTAIN_UNDERFLOW, big_uint(1U))), bitsOf(-0.0));
    EXPECT_EQ(make_double(true, CERTAIN_OVERFLOW, power2(100'000)), -INF);
    EXPECT_EQ(bitsOf(make_double(false, CERTAIN_UNDERFLOW, power2(100'000))), 0U);
}

// This is meant: (2^54 + 2) * 1000 + 1 has 64 bits, of which 63 count in a division by 10^3.
// Without the last one the quotient is the tie 2^54 + 2, which goes to even, where correct rounding
// goes up.
TEST(MakeDouble, BitsOfALongCoefficientBeyondWhatTheDivisionTakesAreDropped) {
    const big_uint coefficient(18014398509481986001ULL);
    EXPECT_EQ(coefficient.bit_length(), 64U);
    EXPECT_EQ(make_double(false, -3, coefficient), 18014398509481984.0);
    const double nearest = 18014398509481986.001;
    EXPECT_EQ(nearest, 18014398509481988.0) << "what correct rounding would give";
}

TEST(MakeDouble, CoefficientsWithoutALogarithmFail) {
    const big_uint wide = power2(30'000);
    const auto fails = [&wide](int exponent) {
        return orvtest::thrownMessage<std::out_of_range>(
            [&] { make_double(false, exponent, wide); });
    };
    EXPECT_EQ(fails(0), "big_uint::pow10");
    EXPECT_EQ(fails(-9000), "big_uint::pow10");
    EXPECT_EQ(fails(5), "big_uint::pow10");
}

TEST(MakeDouble, ExponentsBelowThePowersOfTenFailWhereTheyMatter) {
    const big_uint wide = power2(27'000); // some 10^8127
    EXPECT_EQ(orvtest::thrownMessage<std::out_of_range>([&] { make_double(false, -8192, wide); }),
              "big_uint::pow10");
    EXPECT_EQ(make_double(false, -8191, wide), 6.454802038613481e-64);
    EXPECT_EQ(bitsOf(make_double(false, -9000, wide)), 0U);
}

TEST(MakeDouble, LeavesTheCoefficientAlone) {
    const big_uint coefficient{1, 2, 3, 4};
    static_cast<void>(make_double(false, -40, coefficient));
    static_cast<void>(make_double(false, 40, coefficient));
    EXPECT_EQ(coefficient, (big_uint{1, 2, 3, 4}));
    EXPECT_EQ(coefficient.size(), 4U);
}

TEST(MakeFloat, SmallCoefficientsWithSmallExponents) {
    EXPECT_EQ(make_float(false, 10, big_uint(1U)), 1e10F);
    EXPECT_EQ(make_float(false, 10, big_uint(16777215U)), 16777215e10F);
    EXPECT_EQ(make_float(true, -10, big_uint(16777215U)), -16777215e-10F);
    EXPECT_EQ(make_float(false, 11, big_uint(1U)), 1e11F);
    EXPECT_EQ(make_float(false, -11, big_uint(1U)), 1e-11F);
    EXPECT_EQ(make_float(false, -1, big_uint(1U)), 0.1F);
}

TEST(MakeFloat, HasTheRangeOfAFloat) {
    EXPECT_EQ(make_float(false, 38, big_uint(3U)), 3e38F);
    EXPECT_EQ(make_float(false, 38, big_uint(4U)), INF_F);
    EXPECT_EQ(make_float(true, 39, big_uint(1U)), -INF_F);
    EXPECT_EQ(make_float(false, -45, big_uint(1U)), TINY_F);
    EXPECT_EQ(make_float(false, -46, big_uint(8U)), TINY_F);
    EXPECT_EQ(bitsOf(make_float(false, -46, big_uint(7U))), 0U);
    EXPECT_EQ(bitsOf(make_float(true, -47, big_uint(9U))), bitsOf(-0.0F));
    EXPECT_EQ(make_float(false, CERTAIN_OVERFLOW, big_uint(0U)), INF_F);
    EXPECT_EQ(bitsOf(make_float(true, CERTAIN_UNDERFLOW, big_uint(1U))), bitsOf(-0.0F));
    EXPECT_EQ(bitsOf(make_float(true, 5000, big_uint(0U))), bitsOf(-0.0F));
}

TEST(MakeFloat, DecidesNumbersNextToHalfOfTheSmallest) {
    big_uint half; // * 10^-150 is 2^-150
    big_uint::pow5(150, &half);
    EXPECT_EQ(bitsOf(make_float(false, -150, half)), 0U);
    half.increment();
    EXPECT_EQ(make_float(false, -150, half), TINY_F);
    half.subtract(big_uint(2U));
    EXPECT_EQ(bitsOf(make_float(false, -150, half)), 0U);
}

TEST(MakeFloat, RoundsOnce) {
    // Through a double this would become the tie 16777217, and then 16777216.
    EXPECT_EQ(make_float(false, -9, big_uint(16777217000000001ULL)), 16777218.0F);
    EXPECT_EQ(make_float(false, -1, big_uint(167772170U)), 16777216.0F);
    EXPECT_EQ(make_float(false, -1, big_uint(167772190U)), 16777220.0F);
}

TEST(MakeLongDouble, IsMakeDouble) {
    EXPECT_EQ(make_long_double(false, -1, big_uint(1U)), static_cast<long double>(0.1));
    EXPECT_EQ(make_long_double(true, 309, big_uint(1U)),
              -std::numeric_limits<long double>::infinity());
    EXPECT_EQ(make_long_double(false, -400, big_uint(1U)), 0.0L);
}

} // namespace
