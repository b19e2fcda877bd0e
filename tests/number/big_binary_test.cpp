// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief big_binary: rounding, comparison, multiplication, division; the fixed-point helpers.
#include "orv/liborvxx/number/big_binary.h"

#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <utility>

namespace orv {

// Equal forms: numbers that are equal in value may differ.
static bool operator==(const big_binary& a, const big_binary& b) {
    return a.exponent == b.exponent && a.coefficient == b.coefficient;
}
static std::ostream& operator<<(std::ostream& out, const big_binary& number) {
    return out << number.coefficient.to_string() << " * 2^" << number.exponent;
}

} // namespace orv

namespace {

using orv::big_binary;
using orv::big_uint;

constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int MOST = std::numeric_limits<int>::max();

// A number in the form given, not rounded.
big_binary number(std::uint64_t coefficient, int exponent) {
    return {exponent, big_uint(coefficient), 64};
}

TEST(BigBinary, BeginsAsZero) {
    EXPECT_EQ(big_binary().exponent, 0);
    EXPECT_TRUE(big_binary().coefficient.is_zero());
}

TEST(BigBinary, HasExponentZeroForAZeroCoefficient) {
    EXPECT_EQ(big_binary(77, big_uint(0U), 5).exponent, 0);
    EXPECT_EQ(big_binary(-77, big_uint{0, 0, 0}, 5).exponent, 0);
}

TEST(BigBinaryRounding, LeavesWhatFits) {
    EXPECT_EQ(big_binary(3, big_uint(0xFFU), 8), number(0xFF, 3));
    EXPECT_EQ(big_binary(3, big_uint(0x80U), 9), number(0x80, 3));
    EXPECT_EQ(big_binary(3, big_uint{0xFF, 0, 0, 0}, 8).coefficient.size(), 4U);
}

TEST(BigBinaryRounding, CutsTheLowBitsAndCountsThem) {
    EXPECT_EQ(big_binary(0, big_uint(0b1'0001U), 4), number(0b1000, 1));    // tie, even below
    EXPECT_EQ(big_binary(0, big_uint(0b1'0011U), 4), number(0b1010, 1));    // tie, odd below
    EXPECT_EQ(big_binary(0, big_uint(0b10'0010U), 4), number(0b1000, 2));   // tie, even below
    EXPECT_EQ(big_binary(0, big_uint(0b10'0011U), 4), number(0b1001, 2));   // above
    EXPECT_EQ(big_binary(-9, big_uint(0b10'0101U), 4), number(0b1001, -7)); // below
}

TEST(BigBinaryRounding, ShiftsOnceMoreIfRoundingUpMakesOneBitMore) {
    EXPECT_EQ(big_binary(0, big_uint(0b1'1111U), 4), number(0b1000, 2));
    EXPECT_EQ(big_binary(0, big_uint(0x1FFFFFFFFU), 32), number(0x80000000, 2));
    EXPECT_EQ(big_binary(0, big_uint{0xFFFFFFFF, 0xFFFFFFFF, 1}, 64),
              number(0x8000000000000000, 2));
}

TEST(BigBinaryRounding, ToOneBitGivesAPowerOfTwo) {
    EXPECT_EQ(big_binary(0, big_uint(0b101U), 1), number(1, 2));
    EXPECT_EQ(big_binary(0, big_uint(0b110U), 1), number(1, 3));
}

TEST(BigBinaryRounding, KeepsAWidthOfAWordMoreThanNeededAndLessensALargerOne) {
    const big_uint wide{1, 2, 3, 4, 5};
    EXPECT_EQ(big_binary(0, big_uint(wide), 96).coefficient.size(), 5U); // (96 + 32) / 32 + 1
    EXPECT_EQ(big_binary(0, big_uint(wide), 95).coefficient.size(), 3U); // (95 + 32) / 32
    EXPECT_EQ(big_binary(0, big_uint(wide), 64).coefficient.size(), 3U);
}

TEST(BigBinaryRounding, WorksAtTheEndsOfTheExponents) {
    EXPECT_EQ(big_binary(LEAST, big_uint(0b11U), 1), number(1, LEAST + 2));
    EXPECT_EQ(big_binary(MOST - 2, big_uint(0b11U), 1), number(1, MOST));
    EXPECT_EQ(number(1, MOST).exponent, MOST);
}

#ifndef NDEBUG
TEST(BigBinaryDeathTest, AssertsItsDuties) {
    EXPECT_DEATH(big_binary(0, big_uint(1U), 0), "bits > 0");
    EXPECT_DEATH(big_binary(MOST, big_uint(0b11U), 1), "exponent");
    EXPECT_DEATH(big_binary::multiply(number(1, MOST), number(1, 1), 9), "exponent");
    EXPECT_DEATH(big_binary::divide(number(1, 0), number(1, 0), 0), "precision > 0");
    EXPECT_DEATH(big_binary::binary_pow10(3, 0), "precision > 0");
    EXPECT_DEATH(orv::detail::compare_within(big_uint(1U), big_uint{1, 2}, 0), "size");
}
#endif

TEST(BigBinaryRoundUpHalfEven, AsksForTheFirstBitCutThenForTheOthersThenForTheLastKept) {
    const auto up = [](unsigned n, unsigned bits) {
        return orv::detail::round_up_half_even(big_uint(n), bits);
    };
    EXPECT_FALSE(up(0b1'0111, 4));
    EXPECT_TRUE(up(0b0'1001, 4));
    EXPECT_FALSE(up(0b0'1000, 4));
    EXPECT_TRUE(up(0b1'1000, 4));
    EXPECT_FALSE(up(0b11, 0));
    EXPECT_FALSE(up(0x80000000, 32));
    EXPECT_TRUE(up(0x80000001, 32));
    EXPECT_FALSE(up(0xFFFFFFFF, 33));
    EXPECT_FALSE(up(0xFFFFFFFF, 1000));
    EXPECT_FALSE(up(0, 1));
}

TEST(BigBinaryGetCoefficient, GivesTheWidthAskedFor) {
    big_binary n = number(0x123456789, 5);
    const big_uint exact = n.get_coefficient(64);
    EXPECT_EQ(exact.size(), 2U);
    EXPECT_TRUE(exact == n.coefficient);
    const big_uint wide = n.get_coefficient(65);
    EXPECT_EQ(wide.size(), 3U);
    EXPECT_TRUE(wide == n.coefficient);
    n.coefficient = big_uint{7, 0, 0, 0};
    EXPECT_EQ(n.get_coefficient(1).size(), 1U);
    EXPECT_EQ(n.get_coefficient(1)[0], 7U);
    EXPECT_EQ(big_binary().get_coefficient(33).size(), 2U);
    EXPECT_TRUE(big_binary().get_coefficient(33).is_zero());
    EXPECT_EQ(n.get_coefficient(32 * big_uint::max_size()).size(), big_uint::max_size());
}

TEST(BigBinaryGetCoefficient, RefusesToDropSignificantWords) {
    const big_binary n = number(0x123456789, 5);
    const char* const text = "big_binary::get_coefficient(unsigned) would discard leading bits";
    EXPECT_EQ(orvtest::thrownMessage<std::logic_error>([&] { n.get_coefficient(32); }), text);
    EXPECT_EQ(orvtest::thrownMessage<std::logic_error>([&] { n.get_coefficient(0); }), text);
    // 35 bits are asked for, but words are counted: 33 give two of them.
    EXPECT_NO_THROW(n.get_coefficient(33));
}

TEST(BigBinaryGetCoefficient, HasNoNumberOfNoWordsOrTooMany) {
    EXPECT_EQ(
        orvtest::thrownMessage<std::invalid_argument>([] { number(1, 0).get_coefficient(0); }),
        "big_uint::make_uninitialized: size == 0");
    EXPECT_EQ(orvtest::thrownMessage<std::length_error>(
                  [] { number(1, 0).get_coefficient(std::numeric_limits<unsigned>::max()); }),
              "big_uint: size > max_size()");
}

TEST(BigBinaryCompare, GoesByThePositionOfTheTopBit) {
    EXPECT_EQ(big_binary::compare(number(1, 10), number(0x1FF, 1)), 1);
    EXPECT_EQ(big_binary::compare(number(0x1FF, 1), number(1, 10)), -1);
    EXPECT_EQ(big_binary::compare(number(1, LEAST), number(1, MOST)), -1);
    EXPECT_EQ(big_binary::compare(number(3, MOST), number(1, MOST)), 1);
}

TEST(BigBinaryCompare, SeesTheSameNumberInAllItsForms) {
    EXPECT_EQ(big_binary::compare(number(5, 3), number(40, 0)), 0);
    EXPECT_EQ(big_binary::compare(number(40, 0), number(5, 3)), 0);
    EXPECT_EQ(big_binary::compare(number(5, 3), number(41, 0)), -1);
    EXPECT_EQ(big_binary::compare(number(5, 3), number(39, 0)), 1);
    EXPECT_EQ(big_binary::compare(number(39, 0), number(5, 3)), -1);
    EXPECT_EQ(big_binary::compare(number(5, 3), number(5, 3)), 0);
    const big_binary wide(-64, big_uint{0, 0, 5, 0, 0}, 256);
    EXPECT_EQ(big_binary::compare(number(5, 0), wide), 0);
}

TEST(BigBinaryCompare, HasZeroBelowEverything) {
    EXPECT_EQ(big_binary::compare(big_binary(), big_binary()), 0);
    EXPECT_EQ(big_binary::compare(big_binary(), number(1, LEAST)), -1);
    EXPECT_EQ(big_binary::compare(number(1, LEAST), big_binary()), 1);
}

TEST(BigBinaryCompareWithin, TellsWhichIsGreaterIfTheDifferenceIsLargeEnough) {
    const auto compare = [](unsigned a, unsigned b, int tolerance) {
        return orv::detail::compare_within(big_uint(a), big_uint(b), tolerance);
    };
    EXPECT_EQ(compare(100, 100, -1), 0);
    EXPECT_EQ(compare(100, 101, -1), -1);
    EXPECT_EQ(compare(101, 100, -5), 1);
    EXPECT_EQ(compare(101, 100, 0), 0); // the difference has bit 0
    EXPECT_EQ(compare(102, 100, 0), 1);
    EXPECT_EQ(compare(100, 107, 2), 0);
    EXPECT_EQ(compare(100, 108, 2), -1);
    EXPECT_EQ(compare(0x80000000, 0x7FFFFFFF, 0), 0); // bits differ far above the difference
    EXPECT_EQ(compare(0xFFFFFFFF, 0, 31), 0);
    EXPECT_EQ(compare(0xFFFFFFFF, 0, 30), 1);
    EXPECT_EQ(compare(0xFFFFFFFF, 0, MOST), 0);
    EXPECT_EQ(compare(1, 0, LEAST), 1);
}

TEST(BigBinaryCompareWithin, BorrowsAcrossWords) {
    const big_uint a{0, 0, 1};
    const big_uint b{0xFFFFFFFF, 0xFFFFFFFF, 0};
    EXPECT_EQ(orv::detail::compare_within(a, b, 0), 0);
    EXPECT_EQ(orv::detail::compare_within(a, b, -1), 1);
    EXPECT_EQ(orv::detail::compare_within(big_uint{5, 1}, big_uint{6, 0}, 31), 0);
    EXPECT_EQ(orv::detail::compare_within(big_uint{6, 0}, big_uint{6, 1}, 31), -1);
    EXPECT_EQ(orv::detail::compare_within(big_uint{6, 0}, big_uint{6, 1}, 32), 0);
}

TEST(BigBinaryMultiply, RoundsTheFullProduct) {
    EXPECT_EQ(big_binary::multiply(number(15, 3), number(17, -10), 8), number(255, -7));
    EXPECT_EQ(big_binary::multiply(number(15, 3), number(17, -10), 7), number(64, -5));
    EXPECT_EQ(big_binary::multiply(number(15, 3), big_binary(), 7), big_binary());
    EXPECT_EQ(big_binary::multiply(number(15, -3), big_binary(), 7).exponent, 0);
    const big_binary all(0, big_uint(0xFFFFFFFFFFFFFFFFU), 64);
    EXPECT_EQ(big_binary::multiply(all, all, 64), number(0xFFFFFFFFFFFFFFFE, 64));
}

TEST(BigBinaryMultiply, RefusesAProductWiderThanANumber) {
    big_binary wide;
    wide.coefficient.set_size(big_uint::max_size());
    EXPECT_EQ(orvtest::thrownMessage<std::length_error>(
                  [&] { big_binary::multiply(wide, number(1, 0), 64); }),
              "big_uint: size > max_size()");
}

TEST(BigBinaryDivide, GivesExactlyThePrecision) {
    EXPECT_EQ(big_binary::divide(number(1, 0), number(1, 0), 8), number(0x80, -7));
    EXPECT_EQ(big_binary::divide(number(6, 4), number(3, 1), 4), number(8, 1));
    EXPECT_EQ(big_binary::divide(number(1, 0), number(3, 0), 8), number(0xAB, -9));  // 0xAA.AA
    EXPECT_EQ(big_binary::divide(number(1, 0), number(5, 0), 8), number(0xCD, -10)); // 0xCC.CC
    EXPECT_EQ(big_binary::divide(number(1, 0), number(10, 0), 64), number(0xCCCCCCCCCCCCCCCD, -67));
}

TEST(BigBinaryDivide, RoundsTiesToEven) {
    EXPECT_EQ(big_binary::divide(number(0b1'0001, 0), number(1, 0), 4), number(0b1000, 1));
    EXPECT_EQ(big_binary::divide(number(0b1'0011, 0), number(1, 0), 4), number(0b1010, 1));
    // With quotients that have the precision and a remainder of half the divisor.
    EXPECT_EQ(big_binary::divide(number(0b1'0001, 0), number(6, 0), 1), number(1, 1));
    EXPECT_EQ(big_binary::divide(number(0b1001 * 6 + 3, 0), number(6, 0), 4), number(0b1010, 0));
    EXPECT_EQ(big_binary::divide(number(0b1000 * 6 + 3, 0), number(6, 0), 4), number(0b1000, 0));
    EXPECT_EQ(big_binary::divide(number(0b1000 * 6 + 4, 0), number(6, 0), 4), number(0b1001, 0));
}

TEST(BigBinaryDivide, ShiftsOnceMoreIfRoundingUpMakesOneBitMore) {
    EXPECT_EQ(big_binary::divide(number(0b1'1111, 0), number(1, 0), 4), number(0b1000, 2));
    EXPECT_EQ(big_binary::divide(number(15 * 6 + 3, 0), number(6, 0), 4), number(0b1000, 1));
    EXPECT_EQ(big_binary::divide(number(0xFFFFFFFFFFFFFFFF, 0), number(1, 0), 32),
              number(0x80000000, 33));
}

// The dividend is far longer than precision and divisor ask for.
TEST(BigBinaryDivide, RoundsLongQuotientsOnce) {
    EXPECT_EQ(big_binary::divide(number(0x123456789ABCDEF0, 0), number(1, 0), 8), number(0x92, 53));
    EXPECT_EQ(big_binary::divide(number(0x8080000000000001, 0), number(1, 0), 8), number(0x81, 56));
    EXPECT_EQ(big_binary::divide(number(0x8080000000000000, 0), number(1, 0), 8), number(0x80, 56));
    // 3 * 0x8080000000000000 + 1: the remainder makes it more than a tie.
    const big_binary dividend(0, big_uint{1, 0x81800000, 1}, 128);
    EXPECT_EQ(big_binary::divide(dividend, number(3, 0), 8), number(0x81, 56));
}

TEST(BigBinaryDivide, GivesZeroForZero) {
    EXPECT_EQ(big_binary::divide(big_binary(), number(3, 7), 64), big_binary());
}

TEST(BigBinaryDivide, RefusesZero) {
    const auto divide = [](const big_binary& a) {
        return orvtest::thrownMessage<std::overflow_error>(
            [&] { big_binary::divide(a, big_binary(), 64); });
    };
    EXPECT_EQ(divide(number(1, 0)), "divide by zero");
    EXPECT_EQ(divide(big_binary()), "divide by zero");
    big_binary wide;
    wide.coefficient = big_uint{0, 0, 0};
    EXPECT_EQ(orvtest::thrownMessage<std::overflow_error>(
                  [&] { big_binary::divide(number(1, 0), wide, 64); }),
              "divide by zero");
}

TEST(BigBinaryDivide, RefusesPrecisionsBeyondTheWidestNumber) {
    for (const unsigned precision :
         {32 * big_uint::max_size(), std::numeric_limits<unsigned>::max()}) {
        EXPECT_EQ(orvtest::thrownMessage<std::length_error>(
                      [&] { big_binary::divide(number(1, 0), number(3, 0), precision); }),
                  "big_uint: size > max_size()");
    }
}

TEST(BigBinaryRescale, ShiftsInPlaceInTheSameWidth) {
    big_uint n{0x12345678, 0x9ABCDEF0};
    const unsigned* const words = n.data();
    orv::detail::rescale(n, 40, 36, 2);
    EXPECT_TRUE(n == big_uint(0x09ABCDEF01234567U));
    orv::detail::rescale(n, 0, 8, 2); // the top bits go
    EXPECT_TRUE(n == big_uint(0xABCDEF0123456700U));
    orv::detail::rescale(n, 5, 5, 2);
    EXPECT_TRUE(n == big_uint(0xABCDEF0123456700U));
    EXPECT_EQ(n.data(), words);
    EXPECT_EQ(n.size(), 2U);
}

TEST(BigBinaryRescale, MovesIntoAnotherWidth) {
    big_uint n{0x12345678, 0x9ABCDEF0};
    orv::detail::rescale(n, 0, 16, 3);
    EXPECT_TRUE((n == big_uint{0x56780000, 0xDEF01234, 0x9ABC}));
    EXPECT_EQ(n.size(), 3U);
    orv::detail::rescale(n, 0, -32, 1);
    EXPECT_TRUE(n == big_uint(0xDEF01234U));
    EXPECT_EQ(n.size(), 1U);
    orv::detail::rescale(n, 9, 9, 2);
    EXPECT_TRUE((n == big_uint{0xDEF01234, 0}));
    EXPECT_EQ(n.size(), 2U);
    orv::detail::rescale(n, 9, 9, 1);
    EXPECT_EQ(n[0], 0xDEF01234U);
}

TEST(BigBinaryRescale, LosesEverythingAtTheFarthestShifts) {
    for (const unsigned words : {1U, 2U}) {
        big_uint n(0xFFFFFFFFU);
        orv::detail::rescale(n, MOST, LEAST, words);
        EXPECT_TRUE(n.is_zero());
        n = 0xFFFFFFFFU;
        orv::detail::rescale(n, LEAST, MOST, words);
        EXPECT_TRUE(n.is_zero());
    }
}

TEST(BigBinaryRescale, RefusesNoWordsAndTooMany) {
    big_uint n(1U);
    EXPECT_EQ(
        orvtest::thrownMessage<std::invalid_argument>([&] { orv::detail::rescale(n, 0, 0, 0); }),
        "big_uint::make_uninitialized: size == 0");
    EXPECT_EQ(orvtest::thrownMessage<std::length_error>(
                  [&] { orv::detail::rescale(n, 0, 0, big_uint::max_size() + 1); }),
              "big_uint: size > max_size()");
    EXPECT_TRUE(n.is_equal(1));
}

} // namespace
