// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reading beside strtod and std::from_chars, where the result is the correctly rounded one.
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "tests/differential/number/float_cases.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>

namespace {

using orvtest::floatBits;
using orvtest::NumberSource;

// A text of fixed size: these tests are about millions of numbers.
class Text {
public:
    [[gnu::format(printf, 2, 3)]] void print(const char* format, ...) {
        std::va_list arguments;
        va_start(arguments, format);
        const int n = std::vsnprintf(chars_.data(), chars_.size(), format, arguments);
        va_end(arguments);
        size_ = static_cast<std::size_t>(n);
        ASSERT_LT(size_, chars_.size());
    }
    const char* begin() const { return chars_.data(); }
    const char* end() const { return chars_.data() + size_; }
    std::size_t size() const { return size_; }
    orv::string_ref narrow() const { return {chars_.data(), size_}; }
    orv::ustring_ref wide() const {
        for (std::size_t i = 0; i < size_; ++i) {
            units_[i] = static_cast<orv::char16>(chars_[i]);
        }
        return {units_.data(), size_};
    }

private:
    std::array<char, 1100> chars_{};
    mutable std::array<orv::char16, 1100> units_{};
    std::size_t size_ = 0;
};

template <class Float>
Float byCLibrary(const char* text) {
    if constexpr (sizeof(Float) == 4) {
        return std::strtof(text, nullptr);
    } else {
        return std::strtod(text, nullptr);
    }
}

template <class Float>
void expectSame(const Text& text, Float expected) {
    const auto read = orv::from_chars_c<Float>(text.narrow());
    ASSERT_EQ(floatBits(read.value), floatBits(expected)) << text.begin();
    ASSERT_EQ(read.length, text.size()) << text.begin();
    const auto wide = orv::from_chars_c<Float>(text.wide());
    ASSERT_EQ(floatBits(wide.value), floatBits(expected)) << text.begin();
    ASSERT_EQ(wide.length, text.size()) << text.begin();
}

// As both peers read it.
template <class Float>
void expectLikePeers(const Text& text) {
    const auto expected = byCLibrary<Float>(text.begin());
#if defined(__cpp_lib_to_chars) // libc++ 14 reads no floats
    Float other = expected;
    const auto result = std::from_chars(text.begin(), text.end(), other);
    if (result.ec != std::errc::result_out_of_range) { // which says nothing about the value
        ASSERT_EQ(floatBits(other), floatBits(expected)) << text.begin();
    }
#endif
    ASSERT_NO_FATAL_FAILURE(expectSame<Float>(text, expected));
}

double randomDouble(NumberSource& source) {
    for (;;) {
        const auto value = std::bit_cast<double>(source.bits());
        if (std::isfinite(value)) {
            return value;
        }
    }
}

float randomFloat(NumberSource& source) {
    for (;;) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(source.bits()));
        if (std::isfinite(value)) {
            return value;
        }
    }
}

TEST(ReadDouble, RandomBitsInUpToTwentyDigits) {
    NumberSource source(61);
    Text text;
    for (std::size_t i = orvtest::caseCount(700'000); i > 0; --i) {
        text.print("%.*e", static_cast<int>(source.below(20)), randomDouble(source));
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
    }
}

// Seventeen digits come back as the same number.
TEST(ReadDouble, ComesBackFromSeventeenDigits) {
    NumberSource source(62);
    Text text;
    for (std::size_t i = orvtest::caseCount(400'000); i > 0; --i) {
        const double value = randomDouble(source);
        text.print("%.17g", value);
        ASSERT_NO_FATAL_FAILURE(expectSame<double>(text, value));
    }
}

TEST(ReadDouble, OrdinaryNumbers) {
    NumberSource source(63);
    Text text;
    for (std::size_t i = orvtest::caseCount(400'000); i > 0; --i) {
        const double value = std::ldexp(static_cast<double>(source.bits() >> 11U), -53);
        text.print("%.*f", static_cast<int>(source.below(18)), source.coin() ? value : value * 180);
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
        text.print("%u.%02u", source.below(1000000), source.below(100));
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
    }
}

TEST(ReadDouble, Integers) {
    NumberSource source(64);
    Text text;
    for (std::size_t i = orvtest::caseCount(300'000); i > 0; --i) {
        text.print("%lu", source.bits() >> source.below(64));
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
    }
}

// All ones and single bits around, in 17 digits and in 20.
TEST(ReadDouble, PowersOfTwoAndTheirNeighbours) {
    Text text;
    for (std::uint64_t exponent = 0; exponent < 2047; ++exponent) {
        for (const int step : {-2, -1, 0, 1, 2}) {
            const std::uint64_t bits = (exponent << 52U) + static_cast<std::uint64_t>(step);
            const auto value = std::bit_cast<double>(bits & ~(std::uint64_t{1} << 63U));
            if (!std::isfinite(value)) {
                continue;
            }
            for (const int digits : {16, 17, 18, 19}) {
                text.print("%.*e", digits, value);
                ASSERT_NO_FATAL_FAILURE(expectSame<double>(text, value));
            }
        }
    }
}

TEST(ReadDouble, PowersOfTenAndTheirNeighbours) {
    Text text;
    for (int exponent = -345; exponent <= 310; ++exponent) {
        for (const unsigned long coefficient :
             {1UL, 2UL, 5UL, 9UL, 10UL, 99999999UL, 100000000UL, 9007199254740991UL,
              9007199254740992UL, 9007199254740993UL, 18014398509481983UL, 999999999999999999UL,
              1000000000000000001UL, 9999999999999999999UL, 18446744073709551615UL}) {
            text.print("%lue%d", coefficient, exponent);
            if (exponent < -3 || exponent >= 0) { // else its last bits may be dropped
                ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
            }
        }
    }
}

TEST(ReadDouble, SubnormalNumbers) {
    NumberSource source(65);
    Text text;
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const auto value = std::bit_cast<double>(source.bits() >> (12 + source.below(52)));
        text.print("%.*e", source.between(0, 19), value);
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
    }
}

// Of texts with more than 20 digits 20 are kept, with which only texts next to a middle differ.
TEST(ReadDouble, LongTails) {
    NumberSource source(66);
    Text text;
    for (std::size_t i = orvtest::caseCount(50'000); i > 0; --i) {
        const double value = randomDouble(source);
        text.print("%.*e", source.between(20, 900), value);
        ASSERT_NO_FATAL_FAILURE(expectSame<double>(text, value));
    }
}

// Middles that 20 digits hold: n + 1/2 units of the last place, with few binary places.
TEST(ReadDouble, MiddlesOfNeighbours) {
    NumberSource source(67);
    Text text;
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const std::uint64_t odd = source.bits() >> 10U | 1U | std::uint64_t{1} << 53U; // 54 bits
        text.print("%lu", odd << source.below(10));
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
        text.print("%lu.%s", odd >> 1U, "5");
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
        text.print("%lu.%s", odd >> 2U, (odd & 2U) != 0 ? "75" : "25");
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
        text.print("%lu.%03u", odd >> 3U, static_cast<unsigned>(odd & 7U) * 125);
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<double>(text));
    }
}

TEST(ReadFloat, RandomBitsInUpToTwentyDigits) {
    NumberSource source(68);
    Text text;
    for (std::size_t i = orvtest::caseCount(400'000); i > 0; --i) {
        const float value = randomFloat(source);
        text.print("%.*e", static_cast<int>(source.below(20)), static_cast<double>(value));
        ASSERT_NO_FATAL_FAILURE(expectLikePeers<float>(text));
        text.print("%.9g", static_cast<double>(value));
        ASSERT_NO_FATAL_FAILURE(expectSame<float>(text, value));
    }
}

// What a double prints is no float, and may lie anywhere between two of them. Divisions by less
// than 10^10 would drop bits of so many digits.
TEST(ReadFloat, DoublesOfSeventeenDigits) {
    NumberSource source(69);
    Text text;
    for (std::size_t i = orvtest::caseCount(200'000); i > 0; --i) {
        const double value =
            static_cast<double>(randomFloat(source)) * (1 + 1e-9 * source.below(99));
        if (std::abs(value) < 1e6 || std::abs(value) >= 1e16) {
            text.print("%.16e", value);
            ASSERT_NO_FATAL_FAILURE(expectLikePeers<float>(text));
        }
    }
}

TEST(ReadHexadecimal, WhatPrintfWrites) {
    NumberSource source(70);
    Text text;
    for (std::size_t i = orvtest::caseCount(200'000); i > 0; --i) {
        const double value = randomDouble(source);
        text.print("%a", value);
        ASSERT_NO_FATAL_FAILURE(expectSame<double>(text, value));
        text.print("%.*A", source.between(0, 13), value);
        ASSERT_NO_FATAL_FAILURE(expectSame<double>(text, std::strtod(text.begin(), nullptr)));
        const float single = randomFloat(source);
        if (std::isnormal(single)) {
            text.print("%.5a", static_cast<double>(single)); // six digits
            ASSERT_NO_FATAL_FAILURE(expectSame<float>(text, std::strtof(text.begin(), nullptr)));
        }
    }
}

// Digits of any length. A first digit of 8 and more has all the bits of a double in 14.
TEST(ReadHexadecimal, AsStrtodDoesWithFourteenFullDigits) {
    NumberSource source(71);
    Text text;
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const std::uint64_t first = source.bits() | std::uint64_t{1} << 63U;
        const char* const sign = source.coin() ? "-" : "";
        text.print("%s0x%lx.%lxp%d", sign, first, source.below(4) == 0 ? 0 : source.bits(),
                   source.between(-1140, 955));
        ASSERT_NO_FATAL_FAILURE(expectSame<double>(text, std::strtod(text.begin(), nullptr)));
        text.print("%s0x%lxp%d", sign, first, source.between(-214, 60));
        ASSERT_NO_FATAL_FAILURE(expectSame<float>(text, std::strtof(text.begin(), nullptr)));
    }
}

} // namespace
