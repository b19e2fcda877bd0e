// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point text beside `std::to_chars`: the same digits, but where the reason is
/// known and counted.
#include "tests/support/case_count.h"
#include "tests/support/float_texts.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace {

using orvtest::Comparison;
using orvtest::NumberSource;

template <class Float>
using Bits = orvtest::FloatBitsOf<Float>;

template <class Float>
constexpr int FRACTION = std::numeric_limits<Float>::digits - 1;

template <class Float>
constexpr Bits<Float> INFINITE = std::bit_cast<Bits<Float>>(std::numeric_limits<Float>::infinity());

// How often each comparison came out.
struct Counts {
    std::size_t of(Comparison comparison) const {
        return counts[static_cast<std::size_t>(comparison)];
    }

    template <class Float>
    void add(Float value) {
        const std::string text = orvtest::textOf(value);
        const Comparison comparison = orvtest::compareWithStandard(value, text);
        ++counts[static_cast<std::size_t>(comparison)];
        ASSERT_NE(comparison, Comparison::DIFFERENT) << text << orvtest::standardTextOf(value);
        ASSERT_TRUE(orvtest::readsBackAs(text, value)) << text;
    }

    std::array<std::size_t, 4> counts{};
};

template <class Float>
Counts countSmallest(Bits<Float> limit) {
    Counts counts;
    for (Bits<Float> bits = 1; bits < limit; ++bits) {
        counts.add(std::bit_cast<Float>(bits));
    }
    return counts;
}

TEST(FloatWritingStd, HasTwoDigitsForOneAmongTheSmallestAlone) {
    const Counts doubles = countSmallest<double>(100000);
    EXPECT_EQ(doubles.of(Comparison::TWO_DIGITS), 8U);
    EXPECT_EQ(doubles.of(Comparison::SAME), 99999U - 8U);
    const Counts floats = countSmallest<float>(100000);
    EXPECT_EQ(floats.of(Comparison::TWO_DIGITS), 9U);
    EXPECT_EQ(floats.of(Comparison::SAME), 99999U - 9U);
}

template <class Float>
Counts countPowersOfTwo() {
    Counts counts;
    for (Bits<Float> bits = Bits<Float>{1} << FRACTION<Float>; bits < INFINITE<Float>;
         bits += Bits<Float>{1} << FRACTION<Float>) {
        counts.add(std::bit_cast<Float>(bits));
    }
    return counts;
}

TEST(FloatWritingStd, HasMoreDigitsForSomePowersOfTwoAlone) {
    const Counts doubles = countPowersOfTwo<double>();
    EXPECT_EQ(doubles.of(Comparison::POWER_OF_TWO), 46U);
    EXPECT_EQ(doubles.of(Comparison::SAME), 2046U - 46U);
    const Counts floats = countPowersOfTwo<float>();
    EXPECT_EQ(floats.of(Comparison::POWER_OF_TWO), 3U);
    EXPECT_EQ(floats.of(Comparison::SAME), 254U - 3U);
}

TEST(FloatWritingStd, HasTheSameDigitsForRandomDoubles) {
    NumberSource source(1);
    Counts counts;
    for (std::size_t i = orvtest::caseCount(2000000); i > 0; --i) {
        const std::uint64_t bits = source.bits();
        if ((bits & INFINITE<double>) != INFINITE<double>) {
            counts.add(std::bit_cast<double>(bits));
        }
    }
    EXPECT_EQ(counts.of(Comparison::TWO_DIGITS) + counts.of(Comparison::POWER_OF_TWO), 0U);
}

TEST(FloatWritingStd, HasTheSameDigitsForShortDecimals) {
    NumberSource source(2);
    Counts counts;
    for (std::size_t i = orvtest::caseCount(500000); i > 0; --i) {
        double power = 1;
        for (unsigned n = source.below(23); n > 0; --n) {
            power *= 10;
        }
        const auto digits = static_cast<double>((source.bits() >> source.below(64)) | 1U);
        counts.add(digits / power);
        counts.add(digits * power);
        counts.add(static_cast<float>(digits / power));
        counts.add(static_cast<float>(digits * power));
    }
    EXPECT_EQ(counts.of(Comparison::TWO_DIGITS), 0U);
}

// An odd stride of all floats; `float_writing_exhaustive` goes through all of them.
TEST(FloatWritingStd, HasTheSameDigitsForFloatsAtAStride) {
    const auto stride =
        static_cast<std::uint32_t>(INFINITE<float> / orvtest::caseCount(2000000)) | 1U;
    Counts counts;
    for (std::uint32_t bits = 1; bits < INFINITE<float>; bits += stride) {
        counts.add(std::bit_cast<float>(bits));
    }
    EXPECT_GT(counts.of(Comparison::SAME), 10000U);
}

} // namespace
