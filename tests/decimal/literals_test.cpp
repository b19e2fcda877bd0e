// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal literals: exact, constant, and refused where they do not fit.
#include "orv/liborvxx/decimal/decimal_literals.h"

#include "orv/liborvxx/decimal/make_decimal.h"

#include "tests/decimal/decimal_bits.h"

#include <gtest/gtest.h>

#include <string_view>
#include <type_traits>

namespace {

using orv::decimal::_make_decimal128;
using orv::decimal::_make_decimal32;
using orv::decimal::_make_decimal64;
using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orv::decimal::detail::LiteralStatus;
using orv::decimal::detail::literalValue;
using orvtest::bitsOf;
using namespace orv::literals;

// Usable as constants.
constexpr decimal64 PRICE = 19.90_d64;
static_assert(PRICE.record().bits == _make_decimal64(1990, -2).bits);
constexpr decimal64 LOSS = -1'000.00_d64;
static_assert(LOSS.record().bits == _make_decimal64(-100000, -2).bits);
static_assert(std::is_same_v<decltype(1_d32), decimal32> &&
              std::is_same_v<decltype(1_d64), decimal64> &&
              std::is_same_v<decltype(1_d128), decimal128>);

// Within a template.
template <class T>
constexpr T half() {
    return T(0.5_d32);
}

TEST(DecimalLiterals, KeepZerosAndExponent) {
    EXPECT_EQ(bitsOf(1.50_d64), bitsOf(_make_decimal64(150, -2)));
    EXPECT_EQ(bitsOf(1e3_d64), bitsOf(_make_decimal64(1, 3)));
    EXPECT_EQ(bitsOf(1E+3_d64), bitsOf(_make_decimal64(1, 3)));
    EXPECT_EQ(bitsOf(1.50e-3_d64), bitsOf(_make_decimal64(150, -5)));
    EXPECT_EQ(bitsOf(100_d64), bitsOf(_make_decimal64(100, 0)));
    EXPECT_EQ(bitsOf(0_d64), bitsOf(_make_decimal64(0, 0)));
    EXPECT_EQ(bitsOf(0.00_d64), bitsOf(_make_decimal64(0, -2)));
    EXPECT_EQ(bitsOf(0e7_d64), bitsOf(_make_decimal64(0, 7)));
    EXPECT_EQ(bitsOf(.5_d64), bitsOf(_make_decimal64(5, -1)));
    EXPECT_EQ(bitsOf(5._d64), bitsOf(_make_decimal64(5, 0)));
    EXPECT_EQ(bitsOf(007.50_d64), bitsOf(_make_decimal64(750, -2)));
    EXPECT_EQ(bitsOf(0.00100_d32), bitsOf(_make_decimal32(100, -5)));
    EXPECT_EQ(bitsOf(10.01_d128), bitsOf(_make_decimal128(1001, -2)));
    EXPECT_EQ(half<decimal64>(), 0.50_d64);
}

TEST(DecimalLiterals, SkipSeparators) {
    EXPECT_EQ(bitsOf(1'234'567.8'9_d64), bitsOf(_make_decimal64(123456789, -2)));
    EXPECT_EQ(bitsOf(1e1'0_d64), bitsOf(_make_decimal64(1, 10)));
}

TEST(DecimalLiterals, HaveAllDigitsOfTheFormat) {
    EXPECT_EQ(bitsOf(9999999_d32), bitsOf(_make_decimal32(9999999, 0)));
    EXPECT_EQ(bitsOf(9.999999999999999_d64), bitsOf(_make_decimal64(9999999999999999, -15)));
    EXPECT_EQ(bitsOf(9999999999999999999999999999999999_d128), "3041ED09BEAD87C0'378D8E63FFFFFFFF");
    EXPECT_EQ(bitsOf(18446744073709551616_d128), "3040000000000001'0000000000000000");
    EXPECT_EQ(bitsOf(12345678901234567890123456789012.34_d128),
              "303C3CDE6FFF9732'DE825CD07E96AFF2");
}

TEST(DecimalLiterals, MoveZerosThatAreTooManyIntoTheExponent) {
    EXPECT_EQ(bitsOf(1.0000000_d32), bitsOf(_make_decimal32(1000000, -6)));
    EXPECT_EQ(bitsOf(100000000_d32), bitsOf(_make_decimal32(1000000, 2)));
    EXPECT_EQ(bitsOf(99999990_d32), bitsOf(_make_decimal32(9999999, 1)));
    EXPECT_EQ(bitsOf(1.00000000000000000000000000000000000000000_d64),
              bitsOf(_make_decimal64(1000000000000000, -15)));
    EXPECT_EQ(bitsOf(10e-399_d64), bitsOf(_make_decimal64(1, -398)));
    EXPECT_EQ(bitsOf(1000e-400_d64), bitsOf(_make_decimal64(10, -398)));
}

TEST(DecimalLiterals, MoveAnExponentThatIsTooLargeIntoZeros) {
    EXPECT_EQ(bitsOf(1e370_d64), bitsOf(_make_decimal64(10, 369)));
    EXPECT_EQ(bitsOf(1e384_d64), bitsOf(_make_decimal64(1000000000000000, 369)));
    EXPECT_EQ(bitsOf(12.50e369_d64), bitsOf(_make_decimal64(1250, 367)));
    EXPECT_EQ(bitsOf(1e96_d32), bitsOf(_make_decimal32(1000000, 90)));
    EXPECT_EQ(bitsOf(1e6144_d128), "5FFE314DC6448D93'38C15B0A00000000");
}

TEST(DecimalLiterals, MoveTheExponentOfZeroIntoTheRange) {
    EXPECT_EQ(bitsOf(0e999_d64), bitsOf(_make_decimal64(0, 369)));
    EXPECT_EQ(bitsOf(0e-99999999999999999999_d64), bitsOf(_make_decimal64(0, -398)));
    EXPECT_EQ(bitsOf(0.0000000000000000000000e9_d64), bitsOf(_make_decimal64(0, -13)));
}

template <class Record>
constexpr LiteralStatus statusOf(std::string_view text) {
    return literalValue<Record>(text).status;
}

TEST(DecimalLiterals, AreRefusedWhereTheyDoNotFit) {
    for (const char* const text :
         {"12345678", "1.2345678", "1e97", "1e-102", "15e-102", "1000001e91", "1e4000000000",
          "1e-4000000000", "1e99999999999999999999999",
          "12345678901234567890123456789012345678901"}) {
        EXPECT_EQ(statusOf<ODecimal32>(text), LiteralStatus::DOES_NOT_FIT) << text;
    }
    for (const char* const text : {"12345678901234567", "1.0000000000000001", "1e385", "1e-399",
                                   "9999999999999999e370", "10.5e-398"}) {
        EXPECT_EQ(statusOf<ODecimal64>(text), LiteralStatus::DOES_NOT_FIT) << text;
    }
    for (const char* const text : {"12345678901234567890123456789012345", "1e6145", "1e-6177",
                                   "10000000000000000000000000000000001"}) {
        EXPECT_EQ(statusOf<ODecimal128>(text), LiteralStatus::DOES_NOT_FIT) << text;
    }
}

TEST(DecimalLiterals, AreRefusedToOtherBases) {
    for (const char* const text :
         {"0x10", "0X1F", "0x1.8p3", "0xE", "0x1e5", "0b101", "0B1", "010", "00", "0'7", "007"}) {
        EXPECT_EQ(statusOf<ODecimal64>(text), LiteralStatus::NOT_DECIMAL) << text;
    }
    for (const char* const text : {"0", "0.", "00.5", "0e0", "01e1", "010.", ".0", "10"}) {
        EXPECT_EQ(statusOf<ODecimal64>(text), LiteralStatus::FITS) << text;
    }
}

} // namespace
