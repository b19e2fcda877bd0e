// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Shortest digits and the table of powers of ten beside exact integers.
#include "orv/liborvxx/number/detail/pow10_table.h"
#include "orv/liborvxx/number/detail/shortest_digits.h"

#include "orv/liborvxx/number/detail/format_digits.h"
#include "tests/reference/shortest_digits_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using orvtest::decimalOf;
using orvtest::NumberSource;
using orvtest::shortestModel;
using namespace orv::detail;

mpz_class pow10(int n) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned long>(n));
    return power;
}

// The floor of 10^n / 2^shift, for shifts of either sign.
mpz_class scaledPow10(int n, int shift) {
    mpz_class top = n >= 0 ? pow10(n) : mpz_class(1);
    mpz_class bottom = n < 0 ? pow10(-n) : mpz_class(1);
    if (shift >= 0) {
        bottom <<= static_cast<unsigned>(shift);
    } else {
        top <<= static_cast<unsigned>(-shift);
    }
    return top / bottom;
}

TEST(Pow10Table, HoldsTheTopBitsOfEveryPower) {
    for (int n = MIN_TABLE_POW10; n <= MAX_TABLE_POW10; ++n) {
        const orv::words::Wide& entry = pow10Significand(n);
        ASSERT_EQ(entry.high >> 63U, 1U) << n;
        const mpz_class value = (mpz_class(entry.high) << 64U) + mpz_class(entry.low);
        ASSERT_EQ(value, scaledPow10(n, floorLog2Pow10(n) - 127)) << n;
    }
}

TEST(Pow10Table, KnowsLogarithmsInTheRangeThatIsNamed) {
    for (int n = -1233; n <= 1233; ++n) {
        ASSERT_EQ(scaledPow10(n, floorLog2Pow10(n)), 1) << n;
    }
    for (int n = 0; n <= 1650; ++n) {
        const mpz_class power = mpz_class(1) << static_cast<unsigned>(n);
        const int up = floorLog10Pow2(n);
        ASSERT_TRUE(pow10(up) <= power && power < pow10(up + 1)) << n;
        const int down = -floorLog10Pow2(-n); // 10^-down <= 2^-n < 10^(1 - down)
        ASSERT_TRUE(power <= pow10(down) && (n == 0 || pow10(down - 1) < power)) << n;
    }
}

std::string textOf(const DecimalNumber& number) {
    return std::to_string(number.coefficient) + "e" + std::to_string(number.exponent);
}

template <class Layout>
void checkBits(typename Layout::Bits magnitude) {
    const BinaryNumber number = binaryNumber<Layout>(magnitude);
    const auto expected =
        shortestModel(number.coefficient, number.exponent, number.uneven, MOST_DIGITS<Layout>);
    ASSERT_EQ(decimalOf(textOf(shortestDecimal<Layout>(magnitude))), expected);
    ASSERT_EQ(decimalOf(textOf(shortestByDigits(number, MOST_DIGITS<Layout>))), expected);
    constexpr int PRECISION = int{Layout::FRACTION_BITS} + 1;
    float_digits slow;
    generate_digits(slow,
                    orv::big_binary(number.exponent, orv::big_uint(number.coefficient), PRECISION),
                    PRECISION, 1 - Layout::BIAS, MOST_DIGITS<Layout>);
    ASSERT_EQ(decimalOf(format_digits(slow)), expected);
}

TEST(ShortestDigitsModel, GivesTheDigitsOfEveryHalf) {
    for (std::uint16_t bits = 1; bits < HalfBits::EXPONENT; ++bits) {
        checkBits<HalfBits>(bits);
    }
}

TEST(ShortestDigitsModel, GivesTheDigitsOfEveryPowerOfTwo) {
    for (std::uint32_t field = 1; field < 255; ++field) {
        checkBits<FloatBits>(field << 23U);
    }
    for (std::uint64_t field = 1; field < 2047; ++field) {
        checkBits<DoubleBits>(field << 52U);
    }
}

TEST(ShortestDigitsModel, GivesTheDigitsOfRandomNumbers) {
    NumberSource source(3);
    for (std::size_t i = orvtest::caseCount(40000); i > 0; --i) {
        const std::uint64_t bits = source.bits() >> 1U;
        if (DoubleBits::isFinite(bits)) {
            checkBits<DoubleBits>(bits);
        }
        const auto narrow = static_cast<std::uint32_t>(source.bits() >> 33U);
        if (FloatBits::isFinite(narrow) && narrow != 0) {
            checkBits<FloatBits>(narrow);
        }
    }
}

TEST(ShortestDigitsModel, GivesTheDigitsOfTheSmallest) {
    for (std::uint32_t bits = 1; bits < 500; ++bits) {
        checkBits<FloatBits>(bits);
        checkBits<DoubleBits>(bits);
    }
}

// The closest that are not ties, from tools/numbers/closest_decisions.py: numbers next to the
// middle of two decimals, and middles to neighbours next to a decimal, given as the sum of both.
TEST(ShortestDigitsModel, GivesTheDigitsOfTheHardest) {
    struct Hard {
        std::uint64_t coefficient;
        int exponent;
    };
    const auto check = [](const Hard& number) {
        const auto field = static_cast<std::uint64_t>(number.exponent + 1075);
        checkBits<DoubleBits>(field << 52U | (number.coefficient & DoubleBits::FRACTION));
    };
    for (const Hard& number :
         {Hard{5592117679628511, 164}, Hard{6685530990800801, -866}, Hard{5789867926332032, 479},
          Hard{4523334317446900, 486}, Hard{7237334907915040, 482}, Hard{5654167896808625, 489},
          Hard{6080469016670379, -381}, Hard{8684801889498048, 480}, Hard{6785001476170350, 487},
          Hard{5018617364841838, -804}, Hard{8571084786099026, 403}, Hard{5106185698912191, 917},
          Hard{5115933961988509, -823}, Hard{5657214278064574, -917},
          Hard{5224462102115360, -242}}) {
        check(number);
    }
    for (const Hard& sum : {Hard{13797173063548401, -549}, Hard{11079507728788885, 706},
                            Hard{9324754620109615, -702}}) {
        check({sum.coefficient / 2, sum.exponent});
        check({sum.coefficient / 2 + 1, sum.exponent});
    }
    for (const Hard& number : {Hard{8667859, 56}, Hard{16226928, -138}, Hard{22841339 / 2, -107},
                               Hard{22841339 / 2 + 1, -107}}) {
        const auto field = static_cast<std::uint32_t>(number.exponent + 150);
        checkBits<FloatBits>(
            field << 23U | (static_cast<std::uint32_t>(number.coefficient) & FloatBits::FRACTION));
    }
}

// With fewer digits than the type's own, which have only the slow way.
TEST(ShortestDigitsModel, GivesTheDigitsThatAreCutShort) {
    NumberSource source(4);
    for (std::size_t i = orvtest::caseCount(20000); i > 0; --i) {
        const std::uint64_t bits = source.bits() >> 1U;
        if (!DoubleBits::isFinite(bits)) {
            continue;
        }
        const BinaryNumber number = binaryNumber<DoubleBits>(bits);
        const unsigned most = 2 + source.below(15);
        float_digits digits;
        digits_of(digits, std::bit_cast<double>(bits), most);
        ASSERT_EQ(decimalOf(format_digits(digits)),
                  shortestModel(number.coefficient, number.exponent, number.uneven, most));
    }
}

} // namespace
