// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Binary floating point to decimal beside the shortest digits of the standard library, and
/// beside the exact value where digits are cut.
#include "orv/liborvxx/decimal/binary_to_decimal.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "tests/differential/number/decimal_exact_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/shown_decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

namespace {

using namespace orv::decimal;
using orv::binary16;
using orvtest::ExactDecimal;
using orvtest::NumberSource;
using orvtest::shown;

// The exact value of a finite number.
ExactDecimal exactOf(double value) {
    int exponent = 0;
    const auto significand =
        static_cast<std::uint64_t>(std::ldexp(std::frexp(std::fabs(value), &exponent), 53));
    exponent -= 53;
    ExactDecimal exact;
    exact.negative = std::signbit(value);
    mpz_import(exact.coefficient.get_mpz_t(), 1, -1, sizeof significand, 0, 0, &significand);
    if (exponent >= 0) {
        exact.coefficient <<= static_cast<unsigned>(exponent);
    } else {
        mpz_class power;
        mpz_ui_pow_ui(power.get_mpz_t(), 5, static_cast<unsigned long>(-exponent));
        exact.coefficient *= power;
        exact.exponent = exponent;
    }
    return exact;
}

// The number with at most so many digits: the shortest ones, or else the value rounded.
ExactDecimal digitsOf(const std::string& shortest, double value, int maxDigits) {
    ExactDecimal number = withoutZeros(orvtest::exactDecimal(shortest));
    if (orvtest::countDigits(number.coefficient) > maxDigits) {
        number = exactOf(value);
        dropDigits(number, orvtest::countDigits(number.coefficient) - maxDigits);
    }
    return withoutZeros(number);
}

// What the library writes is compared with the standard library's digits elsewhere; two kinds of
// numbers may differ, since the library looks at two digits at least, and looks for the nearest of
// the shortest numbers at a power of two.
template <class Float>
bool mayDiffer(const std::string& standard, Float value) {
    int exponent = 0;
    return standard.find('.') == std::string::npos ||
           std::frexp(std::fabs(value), &exponent) == Float{0.5};
}

template <class Float>
void check(Float value, int maxDigits) {
    if (!std::isfinite(value) || value == 0) {
        return;
    }
    const std::string shortest = orv::to_string_c(value);
    char text[64];
    const auto written = std::to_chars(text, text + 64, value, std::chars_format::scientific);
    const std::string standard(text, written.ptr);
    const auto expected = [&](const orvtest::DecimalRange& range) {
        return shownIn(range, digitsOf(shortest, value, std::min(range.digits, maxDigits)));
    };
    ASSERT_EQ(shown(binary_to_decimal32(value)), expected(orvtest::RANGE_32)) << shortest;
    ASSERT_EQ(shown(binary_to_decimal64(value)), expected(orvtest::RANGE_64)) << shortest;
    ASSERT_EQ(shown(binary_to_decimal128(value)), expected(orvtest::RANGE_128)) << shortest;
    if (!mayDiffer(standard, value)) {
        ASSERT_EQ(shown(binary_to_decimal128(value)),
                  shownIn(orvtest::RANGE_128, digitsOf(standard, value, maxDigits)))
            << standard;
    }
}

TEST(BinaryToDecimalExact, HoldsForEveryBinary16) {
    const auto step = static_cast<unsigned>(65536 / orvtest::caseCount(65536));
    for (unsigned bits = 0; bits < 0x10000; bits += step) {
        const auto value = binary16::from_bits(static_cast<std::uint16_t>(bits));
        const auto wide = static_cast<double>(static_cast<float>(value));
        if (!std::isfinite(wide) || wide == 0) {
            continue;
        }
        const ExactDecimal digits = digitsOf(orv::to_string_c(value), wide, 5);
        ASSERT_EQ(shown(binary_to_decimal32(value)), shownIn(orvtest::RANGE_32, digits)) << wide;
        ASSERT_EQ(shown(binary_to_decimal64(value)), shownIn(orvtest::RANGE_64, digits)) << wide;
        ASSERT_EQ(shown(binary_to_decimal128(value)), shownIn(orvtest::RANGE_128, digits)) << wide;
    }
}

TEST(BinaryToDecimalExact, HoldsForFloats) {
    const auto step = static_cast<std::uint32_t>(0x80000000U / orvtest::caseCount(100'000)) | 1U;
    for (std::uint64_t bits = 0; bits < 0x80000000U; bits += step) {
        check(std::bit_cast<float>(static_cast<std::uint32_t>(bits)), 9);
    }
    for (std::uint32_t field = 0; field < 255; ++field) {
        check(std::bit_cast<float>(field << 23U), 9);
        check(std::bit_cast<float>((field << 23U) + 1), 9);
        check(std::bit_cast<float>((field << 23U) + 0x7FFFFF), 9);
    }
}

TEST(BinaryToDecimalExact, HoldsForDoubles) {
    NumberSource source(9);
    for (std::size_t i = orvtest::caseCount(25'000); i > 0; --i) {
        check(std::bit_cast<double>(source.bits()), 17);
        // Those that a decimal32 holds, and numbers of a few digits.
        check(std::bit_cast<double>((source.bits() & 0x800FFFFFFFFFFFFFU) |
                                    static_cast<std::uint64_t>(source.between(680, 1350)) << 52U),
              17);
        check(source.between(-1'000'000'000, 1'000'000'000) / std::pow(10.0, source.between(0, 12)),
              17);
        check(std::ldexp(source.between(1, 100'000'000), source.between(-40, 40)), 17);
    }
}

TEST(BinaryToDecimalExact, HoldsForDoublesBesideThePowersOfTwo) {
    for (std::uint64_t field = 0; field < 2047; ++field) {
        check(std::bit_cast<double>(field << 52U), 17);
        check(std::bit_cast<double>((field << 52U) + 1), 17);
        check(std::bit_cast<double>((field << 52U) + 0xFFFFFFFFFFFFF), 17);
    }
    for (std::uint64_t bits = 1; bits < 200; ++bits) {
        check(std::bit_cast<double>(bits), 17);
    }
}

TEST(BinaryToDecimalExact, RoundsTiesToTheEvenDigit) {
    // A half behind 7 and behind 16 digits.
    NumberSource source(10);
    for (std::size_t i = orvtest::caseCount(20'000); i > 0; --i) {
        check(source.between(1'000'000, 9'999'999) + 0.5, 17);
        check(static_cast<double>(source.between(1'000'000, 9'999'999)) * 10 + 5, 17);
        check(static_cast<float>(source.between(100'000, 1'677'721)) * 10 + 5, 9);
        check(static_cast<double>(1'000'000'000'000'000 + source.bits() % 1'000'000'000'000'000) +
                  0.5,
              17);
    }
}

} // namespace
