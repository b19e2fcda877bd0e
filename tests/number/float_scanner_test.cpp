// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a scan leaves in its state, for all limits of digits, and how states are converted.
#include "orv/liborvxx/number/detail/float_scanner.h"

#include "orv/liborvxx/number/detail/convert_scan.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/text_source.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

using namespace orv::detail;
using orv::char16;
using orv::number_status;

// The fields that a scan sets, and how far it went.
struct Found {
    number_status status = number_status::ok;
    std::size_t length = 0;
    bool negative = false;
    int radix = 0;
    std::uint64_t low = 0;
    unsigned rounding = 0;
    std::int32_t exponent = 0;
    std::uint64_t high = 0;

    bool operator==(const Found&) const = default;

    friend std::ostream& operator<<(std::ostream& out, const Found& f) {
        return out << static_cast<int>(f.status) << " length " << f.length << " negative "
                   << f.negative << " radix " << f.radix << " coefficient " << f.high << ':'
                   << f.low << " rounding " << f.rounding << " exponent " << f.exponent;
    }
};

template <class Source>
Found scan(Source source, int digits, int hexDigits, bool skipSpace) {
    const auto* const start = source.position();
    float_scanner state{digits, hexDigits};
    const number_status status = scan_float(state, source, skipSpace);
    if (status != number_status::ok) {
        return {status};
    }
    EXPECT_EQ(state.max_digits, digits);
    EXPECT_EQ(state.max_hex_digits, hexDigits);
    return {status,
            static_cast<std::size_t>(source.position() - start),
            state.negative,
            state.radix,
            state.coefficient.low,
            state.rounding,
            state.exponent,
            state.coefficient.high};
}

// From all four sources, which must agree.
Found scanned(const std::string& text, int digits = 20, int hexDigits = 14, bool skipSpace = true) {
    const orv::ustring units = orvtest::textIn<char16>(text);
    const Found found = scan(RangeSource<char>(text), digits, hexDigits, skipSpace);
    EXPECT_EQ(scan(RangeSource<char16>(orv::ustring_ref(units)), digits, hexDigits, skipSpace),
              found);
    EXPECT_EQ(scan(NulTerminatedSource<char>(text.c_str()), digits, hexDigits, skipSpace), found);
    EXPECT_EQ(scan(NulTerminatedSource<char16>(units.c_str()), digits, hexDigits, skipSpace),
              found);
    return found;
}

Found decimal(std::size_t length, std::uint64_t coefficient, unsigned rounding, int exponent,
              std::uint64_t high = 0) {
    return {number_status::ok, length, false, 10, coefficient, rounding, exponent, high};
}

Found hexadecimal(std::size_t length, std::uint64_t coefficient, unsigned rounding, int exponent) {
    return {number_status::ok, length, false, 2, coefficient, rounding, exponent};
}

Found word(std::size_t length, bool negative, int exponent) {
    return {number_status::ok, length, negative, 0, 0, 0, exponent};
}

constexpr int INFINITE = std::numeric_limits<std::int32_t>::max();

TEST(FloatScanner, KeepsCoefficientAndScale) {
    EXPECT_EQ(scanned("5."), decimal(2, 5, 0, 0));
    EXPECT_EQ(scanned(".5"), decimal(2, 5, 0, -1));
    EXPECT_EQ(scanned("12.50e3x"), decimal(7, 1250, 0, 1));
    EXPECT_EQ(scanned("0"), decimal(1, 0, 0, 0));
    EXPECT_EQ(scanned("0.000"), decimal(5, 0, 0, -3));
    EXPECT_EQ(scanned("00000000000000000000000001"), decimal(26, 1, 0, 0));
    EXPECT_EQ(scanned("0.00000000000000000000000000000001"), decimal(34, 1, 0, -32));
    EXPECT_EQ(scanned("12345678901234567890"), decimal(20, 12345678901234567890U, 0, 0));
    EXPECT_EQ(scanned("99999999999999999999"), decimal(20, 7766279631452241919U, 0, 0, 5));
    EXPECT_EQ(scanned("123456789012345678901234567890"), decimal(30, 12345678901234567890U, 1, 10));
}

TEST(FloatScanner, TellsWhatTheDroppedDigitsWere) {
    const std::string twenty = "12345678901234567890";
    EXPECT_EQ(scanned(twenty + "0").rounding, 0U);
    EXPECT_EQ(scanned(twenty + "1").rounding, 1U);
    EXPECT_EQ(scanned(twenty + "4").rounding, 1U);
    EXPECT_EQ(scanned(twenty + "5").rounding, 2U);
    EXPECT_EQ(scanned(twenty + "6").rounding, 3U);
    EXPECT_EQ(scanned(twenty + "9").rounding, 3U);
    EXPECT_EQ(scanned(twenty + "000").rounding, 0U);
    EXPECT_EQ(scanned(twenty + "001").rounding, 1U);
    EXPECT_EQ(scanned(twenty + "401").rounding, 1U);
    EXPECT_EQ(scanned(twenty + "500").rounding, 2U);
    EXPECT_EQ(scanned(twenty + "5001").rounding, 3U);
    EXPECT_EQ(scanned(twenty + ".5"), decimal(22, 12345678901234567890U, 2, 0));
    EXPECT_EQ(scanned(twenty + "5.01e5"), decimal(26, 12345678901234567890U, 3, 6));
    EXPECT_EQ(scanned("0." + twenty + "5"), decimal(23, 12345678901234567890U, 2, -20));
}

TEST(FloatScanner, KeepsHexadecimalDigits) {
    EXPECT_EQ(scanned("0x1p3"), hexadecimal(5, 1, 0, 3));
    EXPECT_EQ(scanned("0X.8P1"), hexadecimal(6, 8, 0, -3));
    EXPECT_EQ(scanned("0x10"), hexadecimal(4, 16, 0, 0));
    EXPECT_EQ(scanned("0x000.001"), hexadecimal(9, 1, 0, -12));
    EXPECT_EQ(scanned("0x123456789abcdef"), hexadecimal(17, 0x123456789ABCDE, 3, 4));
    EXPECT_EQ(scanned("0x1.234567", 20, 6), hexadecimal(10, 0x123456, 1, -20));
    EXPECT_EQ(scanned("0x1.234568", 20, 6).rounding, 2U);
    EXPECT_EQ(scanned("0x1.234569", 20, 6).rounding, 3U);
    EXPECT_EQ(scanned("0x1.234560", 20, 6).rounding, 0U);
    EXPECT_EQ(scanned("0x1.2345600A", 20, 6).rounding, 1U);
    EXPECT_EQ(scanned("0x1.23456801", 20, 6).rounding, 3U);
    EXPECT_EQ(scanned("0x1.23456800", 20, 6).rounding, 2U);
    EXPECT_EQ(scanned("0xg").status, number_status::digit_expected);
}

TEST(FloatScanner, KeepsAsManyDigitsAsADecimalHas) {
    EXPECT_EQ(scanned("1.2345678", 7, 0), decimal(9, 1234567, 3, -6));
    EXPECT_EQ(scanned("9.9999999", 7, 0), decimal(9, 9999999, 3, -6));
    EXPECT_EQ(scanned("0001.234567", 7, 0), decimal(11, 1234567, 0, -6));
    EXPECT_EQ(scanned("12345678901234565", 16, 0), decimal(17, 1234567890123456U, 2, 1));
    EXPECT_EQ(scanned("9999999999999999999999999999999999", 34, 0),
              decimal(34, 0x378D8E63FFFFFFFFU, 0, 0, 0x1ED09BEAD87C0U));
    EXPECT_EQ(scanned("9999999999999999999999999999999999.51", 34, 0),
              decimal(37, 0x378D8E63FFFFFFFFU, 3, 0, 0x1ED09BEAD87C0U));
    EXPECT_EQ(scanned("0x10", 34, 0), decimal(1, 0, 0, 0)) << "hexadecimal numbers are not known";
}

TEST(FloatScanner, KnowsExponentsThatAreTooLong) {
    EXPECT_EQ(scanned("1e999999999").exponent, 999999999);
    EXPECT_EQ(scanned("1.5e-999999999").exponent, -1000000000);
    EXPECT_EQ(scanned("1e1000000000").exponent, EXPONENT_OVERFLOW);
    EXPECT_EQ(scanned("1.5e+0000000000").exponent, EXPONENT_OVERFLOW);
    EXPECT_EQ(scanned("1.5e-0000000000").exponent, EXPONENT_UNDERFLOW);
    EXPECT_EQ(scanned("0x1p-1234567890").exponent, EXPONENT_UNDERFLOW);
}

TEST(FloatScanner, MarksWords) {
    EXPECT_EQ(scanned("inf"), word(3, false, INFINITE));
    EXPECT_EQ(scanned("-Infinity"), word(9, true, INFINITE));
    EXPECT_EQ(scanned("-nan(1)"), word(4, true, 0));
    EXPECT_EQ(scanned("infin").status, number_status::infinity_expected);
    EXPECT_EQ(scanned("nanx").status, number_status::nan_expected);
}

TEST(FloatScanner, SkipsWhiteSpaceIfTold) {
    EXPECT_EQ(scanned(" 1"), decimal(2, 1, 0, 0));
    EXPECT_EQ(scanned(" 1", 20, 14, false).status, number_status::digit_expected);
    EXPECT_EQ(scanned("1", 20, 14, false), decimal(1, 1, 0, 0));
}

TEST(ConvertScan, MakesTheFloatOfEachRadix) {
    float_scanner state{20, 14};
    state.negative = true;
    state.coefficient = {5, 0};
    state.exponent = 1;
    state.radix = 10;
    EXPECT_EQ(convertScan<double>(state), -50.0);
    EXPECT_EQ(convertScan<float>(state), -50.0F);
    state.radix = 2;
    EXPECT_EQ(convertScan<double>(state), -10.0);
    EXPECT_EQ(convertScan<float>(state), -10.0F);
    state.radix = 0;
    EXPECT_EQ(convertScan<double>(state), -std::numeric_limits<double>::infinity());
    state.exponent = 0;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(convertScan<double>(state)), 0x7FF8000000000000U);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(convertScan<float>(state)), 0x7FC00000U);
}

TEST(ConvertScan, RefusesARadixThatNoScanSets) {
    for (const int radix : {1, 3, 8, 16, -10}) {
        float_scanner state{20, 14};
        state.radix = radix;
        EXPECT_EQ(orvtest::thrownMessage<std::logic_error>(
                      [&] { static_cast<void>(convertScan<double>(state)); }),
                  "string_to_float");
        EXPECT_EQ(orvtest::thrownMessage<std::logic_error>(
                      [&] { static_cast<void>(convertScan<float>(state)); }),
                  "string_to_float");
    }
}

#ifndef NDEBUG
TEST(FloatScannerDeath, LimitsOfDigitsMustFitTheCoefficient) {
    EXPECT_DEATH(scanned("1", 39), "max_digits");
    EXPECT_DEATH(scanned("1", 0), "max_digits");
    EXPECT_DEATH(scanned("1", 20, 33), "max_hex_digits");
}
#endif

} // namespace
