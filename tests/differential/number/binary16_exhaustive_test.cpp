// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief binary16 of every float there is.
///
/// In optimised builds without sanitizers these are all 2^32; elsewhere every 1009th or 10007th, a
/// prime step, so that all low bits are met. The test's output says how many.
#include "orv/liborvxx/number/binary16.h"

#include "tests/reference/binary16_model.h"
#include "tests/support/case_count.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr std::uint64_t FLOATS = std::uint64_t{1} << 32U;
constexpr std::uint32_t FLOAT_INFINITY = 0x7F800000;

std::uint64_t stepOfThisBuild() {
    const std::size_t share = orvtest::caseCount(100);
    return share >= 100 ? 1 : share >= 10 ? 1009 : 10007;
}

unsigned converted(std::uint64_t bits) {
    return orv::_float_to_binary16(std::bit_cast<float>(static_cast<std::uint32_t>(bits))).bits();
}

// What a run of float patterns gives, and the first one that is wrong.
struct Walk {
    std::uint64_t count = 0;
    std::string error;

    void expect(std::uint64_t bits, unsigned expected) {
        const unsigned result = converted(bits);
        ++count;
        if (result != expected && error.empty()) {
            error = "float " + std::to_string(bits) + ": " + std::to_string(result) + " for " +
                    std::to_string(expected);
        }
    }
};

// All patterns of one sign from begin to end, in steps. Within a sign the values grow with the
// patterns, so the results only ever move up: the model is asked when they have to.
Walk walk(const orvtest::Binary16Rounding& model, std::uint64_t begin, std::uint64_t end,
          std::uint64_t step) {
    const auto magnitude = [](std::uint64_t bits) {
        return double{std::bit_cast<float>(static_cast<std::uint32_t>(bits) & 0x7FFFFFFFU)};
    };
    Walk result;
    const unsigned sign = (begin >> 16U) & 0x8000U;
    unsigned nearest = 0;
    for (std::uint64_t bits = begin; bits < end; bits += step) {
        if ((bits & 0x7FFFFFFFU) > FLOAT_INFINITY) {
            result.expect(bits, 0x7E00);
            continue;
        }
        while (model.isAbove(magnitude(bits), nearest)) {
            ++nearest;
        }
        result.expect(bits, sign | nearest);
    }
    return result;
}

TEST(Binary16Exhaustive, EveryFloatGivesTheNearest) {
    const orvtest::Binary16Rounding model;
    const std::uint64_t step = stepOfThisBuild();
    Walk negative;
    std::thread other([&] { negative = walk(model, FLOATS / 2, FLOATS, step); });
    const Walk positive = walk(model, 0, FLOATS / 2, step);
    other.join();
    EXPECT_EQ(positive.error, "");
    EXPECT_EQ(negative.error, "");
    EXPECT_EQ(positive.count + negative.count, (FLOATS / 2 + step - 1) / step * 2);
    std::cout << positive.count + negative.count << " floats\n";
}

#if ORV_HAS_FLOAT16
// A type of the compiler's own: the model is no more alone.
__extension__ typedef _Float16 CompilerHalf;

unsigned compilerBits(CompilerHalf value) {
    return std::bit_cast<std::uint16_t>(value);
}

TEST(Binary16Model, IsWhatTheCompilerDoes) {
    const orvtest::Binary16Rounding model;
    for (unsigned bits = 0; bits < 0x7C00; ++bits) {
        const double value = orvtest::binary16Magnitude(bits);
        const double next = orvtest::binary16Magnitude(bits + 1);
        ASSERT_EQ(compilerBits(static_cast<CompilerHalf>(value)), bits);
        ASSERT_EQ(
            static_cast<double>(std::bit_cast<CompilerHalf>(static_cast<std::uint16_t>(bits))),
            value);
        for (unsigned sixteenth = 0; sixteenth <= 16; ++sixteenth) {
            const double between = value + (next - value) * sixteenth / 16;
            ASSERT_EQ(compilerBits(static_cast<CompilerHalf>(between)), model.nearest(between));
            ASSERT_EQ(compilerBits(static_cast<CompilerHalf>(-between)), model.nearest(-between));
        }
    }
}
#endif

} // namespace
