// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The fast ways to the shortest digits beside the slow one.
#include "orv/liborvxx/number/detail/shortest_digits.h"

#include "orv/liborvxx/number/detail/float_digits.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using orv::big_binary;
using orv::big_uint;
using orvtest::NumberSource;
using namespace orv::detail;

std::string text(DecimalNumber number) {
    while (number.coefficient % 10 == 0) {
        number.coefficient /= 10;
        ++number.exponent;
    }
    return std::to_string(number.coefficient) + "e" + std::to_string(number.exponent);
}

template <class Layout>
std::string slowText(typename Layout::Bits magnitude, unsigned maxDigits = MOST_DIGITS<Layout>) {
    constexpr int PRECISION = int{Layout::FRACTION_BITS} + 1;
    const BinaryNumber number = binaryNumber<Layout>(magnitude);
    float_digits digits;
    generate_digits(digits, big_binary(number.exponent, big_uint(number.coefficient), PRECISION),
                    PRECISION, 1 - Layout::BIAS, maxDigits);
    EXPECT_LE(digits.count, maxDigits);
    std::string result;
    for (unsigned i = 0; i < digits.count; ++i) {
        result += static_cast<char>('0' + digits.digits[i]);
    }
    return result + "e" + std::to_string(digits.exponent - static_cast<int>(digits.count) + 1);
}

// All ways to the digits of one number agree.
template <class Layout>
void check(typename Layout::Bits magnitude) {
    const std::string expected = slowText<Layout>(magnitude);
    const BinaryNumber number = binaryNumber<Layout>(magnitude);
    ASSERT_EQ(text(shortestDecimal<Layout>(magnitude)), expected) << std::hex << magnitude;
    ASSERT_EQ(text(shortestByDigits(number, MOST_DIGITS<Layout>)), expected)
        << std::hex << magnitude;
    if (number.coefficient >= 100 && !number.uneven) {
        ASSERT_EQ(text(shortestByProduct(number, MOST_DIGITS<Layout>)), expected)
            << std::hex << magnitude;
    }
    for (const unsigned maxDigits : {7U, 16U}) { // those of a decimal32 and of a decimal64
        const bool isSpecial = number.uneven || number.coefficient < 100;
        if (maxDigits < MOST_DIGITS<Layout> && (isSpecial || magnitude % 8 == 0)) { // it is slow
            ASSERT_EQ(text(shortestByDigits(number, maxDigits)),
                      slowText<Layout>(magnitude, maxDigits))
                << std::hex << magnitude << " in " << std::dec << maxDigits;
        }
    }
}

TEST(ShortestDigits, AreTheSlowOnesForEveryHalf) {
    for (std::uint16_t bits = 1; bits < HalfBits::EXPONENT; ++bits) {
        check<HalfBits>(bits);
    }
}

template <class Layout>
void checkPowersOfTwo() {
    using Bits = typename Layout::Bits;
    for (Bits field = 1; field << Layout::FRACTION_BITS < Layout::EXPONENT; ++field) {
        const Bits power = static_cast<Bits>(field << Layout::FRACTION_BITS);
        for (const Bits bits :
             {power, static_cast<Bits>(power - 1), static_cast<Bits>(power + 1)}) {
            check<Layout>(bits);
        }
    }
    for (Bits bits = 1; bits < Layout::IMPLIED; bits = static_cast<Bits>(bits * 2)) {
        check<Layout>(bits);
    }
}

TEST(ShortestDigits, AreTheSlowOnesForEveryPowerOfTwo) {
    checkPowersOfTwo<HalfBits>();
    checkPowersOfTwo<FloatBits>();
    checkPowersOfTwo<DoubleBits>();
}

TEST(ShortestDigits, AreTheSlowOnesForTheSmallest) {
    for (std::uint32_t bits = 1; bits < 3000; ++bits) {
        check<FloatBits>(bits);
        check<DoubleBits>(bits);
    }
}

TEST(ShortestDigits, AreTheSlowOnesForTheLargest) {
    for (std::uint32_t below = 1; below < 1000; ++below) {
        check<FloatBits>(FloatBits::EXPONENT - below);
        check<DoubleBits>(DoubleBits::EXPONENT - below);
    }
}

TEST(ShortestDigits, AreTheSlowOnesForRandomFloats) {
    NumberSource source(55);
    for (std::size_t i = orvtest::caseCount(400000); i > 0; --i) {
        const auto bits = static_cast<std::uint32_t>(source.bits() >> 33U);
        if (FloatBits::isFinite(bits) && bits != 0) {
            check<FloatBits>(bits);
        }
    }
}

TEST(ShortestDigits, AreTheSlowOnesForRandomDoubles) {
    NumberSource source(56);
    for (std::size_t i = orvtest::caseCount(400000); i > 0; --i) {
        std::uint64_t bits = source.bits() >> 1U;
        if (i % 4 == 0) { // few bits
            bits &= ~std::uint64_t{0} << source.below(52);
        }
        if (DoubleBits::isFinite(bits) && bits != 0) {
            check<DoubleBits>(bits);
        }
    }
}

// Short decimals, and integers with zeros behind, where texts are shortest and ties are.
TEST(ShortestDigits, AreTheSlowOnesForShortDecimals) {
    NumberSource source(57);
    for (std::size_t i = orvtest::caseCount(200000); i > 0; --i) {
        const auto digits = static_cast<double>((source.bits() >> 1U >> source.below(63)) | 1U);
        const auto power = static_cast<double>(orv::words::POW10_IN_LIMBS[source.below(20)]);
        check<DoubleBits>(bitsOf(digits / power));
        check<DoubleBits>(bitsOf(digits * power));
        check<FloatBits>(bitsOf(static_cast<float>(digits / power)));
        check<FloatBits>(bitsOf(static_cast<float>(digits * power)));
    }
}

TEST(ShortestDigits, AcceptTheMiddleToTheNeighbourOfEvenNumbersOnly) {
    // 2^56 steps by 16: ...7936 + 24 has middles at multiples of 10 on both sides at times.
    constexpr std::uint64_t BASE = std::uint64_t{1} << 56U;
    for (std::uint64_t step = 1; step < 4000; ++step) {
        check<DoubleBits>(bitsOf(static_cast<double>(BASE + 16 * step)));
    }
    EXPECT_EQ(text(shortestDecimal<DoubleBits>(bitsOf(9007199254740994.0))), "9007199254740994e0");
    EXPECT_EQ(text(shortestDecimal<DoubleBits>(bitsOf(9.5e22))), "95e21");
    EXPECT_EQ(text(shortestDecimal<DoubleBits>(bitsOf(1e23))), "1e23"); // on the middle, even
    EXPECT_EQ(text(shortestDecimal<DoubleBits>(bitsOf(9e22))), "9e22");
}

#ifndef NDEBUG
TEST(ShortestDigitsDeathTest, AssertTheirPreconditions) {
    EXPECT_DEATH(shortestByDigits({0, 0, false}, 17), "coefficient");
    EXPECT_DEATH(shortestByDigits({1, 0, false}, 1), "maxDigits");
    EXPECT_DEATH(shortestByDigits({1, 0, false}, 18), "maxDigits");
    EXPECT_DEATH(shortestByProduct({99, 0, false}, 17), "coefficient");
    EXPECT_DEATH(shortestByProduct({128, 0, true}, 17), "uneven");
    EXPECT_DEATH(pow10Significand(351), "MAX_TABLE_POW10");
    EXPECT_DEATH(pow10Significand(-352), "MIN_TABLE_POW10");
}
#endif

} // namespace
