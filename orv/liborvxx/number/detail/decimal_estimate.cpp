// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Products of 128-bit estimates, with their bounds.
///
/// All estimates are lower bounds. With w, p and l for what W, P and L estimate:
///
/// 1. 5^(27k) is C <= c < C + 1, and the factor F = 5^r, r < 27, is exact, both with the top bit
///    set. P is the floor of C * F / 2^64, so p < (C + 1) * F / 2^64 < P + 1 + 1.
/// 2. The coefficient's top 128 bits W are w < W + 1. The exact product is below
///    W * P + 2W + P + 2, that is, w * p / 2^128 < W * P / 2^128 + 3. L leaves out fractions of
///    three partial products, each less than 1, so l < L + 6.
///
/// L has at least 125 bits, so a double leaves 72 bits of it: where these lie 6 or more below one
/// half, or above it, every number from L to L + 6 rounds alike. (One that carries into the bits
/// that are kept is rounded up on both sides of the carry.)
#include "orv/liborvxx/number/detail/decimal_estimate.h"

#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/bit_window.h"

#include <array>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace orv::detail {

namespace {

using words::Limb;
using words::Wide;
using words::Word;

constexpr Limb ALL_ONES = std::numeric_limits<Limb>::max();

// 5^27 is the highest power of 5 in 64 bits.
constexpr int STEP = 27;
constexpr std::size_t BELOW_ONE = 13;
constexpr std::size_t ABOVE_ONE = 12;
static_assert(MIN_ESTIMATED_EXPONENT == -STEP * 13);
static_assert(MAX_ESTIMATED_EXPONENT == STEP * 13 - 1);

// Bounds what a product of estimates leaves out: see above.
constexpr Limb SLACK = 6;

// A number of 1024 bits for the compiler, to make the table with: 5^351 has 816 bits, so that
// 2^1023 divided by it still has more than 128.
class Scratch {
public:
    constexpr explicit Scratch(unsigned bit) { words_[bit / 32] = Word{1} << bit % 32; }

    constexpr void multiply(Word factor) {
        Limb carry = 0;
        for (Word& word : words_) {
            carry += Limb{word} * factor;
            word = static_cast<Word>(carry);
            carry >>= 32U;
        }
    }

    constexpr void divide(Word divisor) {
        Limb rest = 0;
        for (std::size_t i = words_.size(); i-- > 0;) {
            rest = rest << 32U | words_[i];
            words_[i] = static_cast<Word>(rest / divisor);
            rest %= divisor;
        }
    }

    // The top 128 bits from the highest set bit down.
    constexpr Wide leading() const {
        std::size_t top = words_.size();
        while (words_[top - 1] == 0) {
            --top;
        }
        const auto shift = static_cast<unsigned>(std::countl_zero(words_[top - 1]));
        const auto word = [&](std::size_t i) {
            const Limb pair = Limb{at(top, i)} << 32U | at(top, i + 1);
            return pair << shift >> 32U;
        };
        return {word(3) | word(2) << 32U, word(1) | word(0) << 32U};
    }

private:
    constexpr Word at(std::size_t top, std::size_t i) const {
        return i < top ? words_[top - 1 - i] : 0;
    }

    std::array<Word, 32> words_{};
};

constexpr Word POW5_13 = 1220703125; // 5^27 is 5^13 * 5^13 * 5

// 5^(27 * (i - 13)), its top 128 bits.
constexpr std::array<Wide, BELOW_ONE + 1 + ABOVE_ONE> POW5_STEPS = [] {
    std::array<Wide, BELOW_ONE + 1 + ABOVE_ONE> steps{};
    Scratch power(0);
    for (std::size_t i = BELOW_ONE; i < steps.size(); ++i) {
        steps[i] = power.leading();
        power.multiply(POW5_13);
        power.multiply(POW5_13);
        power.multiply(5);
    }
    Scratch fraction(1023);
    for (std::size_t i = BELOW_ONE; i-- > 0;) {
        fraction.divide(POW5_13);
        fraction.divide(POW5_13);
        fraction.divide(5);
        steps[i] = fraction.leading();
    }
    return steps;
}();

// The floor of a * b / 2^64.
Wide multiplyHigh(const Wide& a, Limb b) noexcept {
    return words::multiplyAdd(a.high, b, words::multiplyLimbs(a.low, b).high, 0);
}

// The coefficient's top 128 bits from the highest set bit down, those behind the first \p kept
// cleared.
Wide leadingBits(const big_uint& coefficient, unsigned bits, unsigned kept) noexcept {
    Wide top{0, 0};
    if (bits <= 64) {
        top.high = coefficient.to_uint64() << (64 - bits);
    } else {
        top.high = bitWindow(coefficient, bits - 64);
        top.low = bits < 128 ? coefficient.to_uint64() << (128 - bits)
                             : bitWindow(coefficient, bits - 128);
    }
    if (kept <= 64) {
        top.high &= ALL_ONES << (64 - kept);
        top.low = 0;
    } else if (kept < 128) {
        top.low &= ALL_ONES << (128 - kept);
    }
    return top;
}

} // namespace

Estimate estimatePow10(int n) noexcept {
    assert(n >= MIN_ESTIMATED_EXPONENT && n <= MAX_ESTIMATED_EXPONENT);
    const auto index = static_cast<unsigned>(n - MIN_ESTIMATED_EXPONENT);
    const Limb factor = big_uint::pow5_table[index % STEP];
    const int shift = std::countl_zero(factor);
    const int base = n - static_cast<int>(index % STEP);
    // 5^base is 10^base / 2^base, its significand has 128 bits and P lacks 64 of those of C * F.
    const int exponent = floorLog2OfPow10(base) - base - 127 - shift + 64 + n;
    return {multiplyHigh(POW5_STEPS[index / STEP], factor << static_cast<unsigned>(shift)),
            exponent};
}

template <class Float>
std::optional<Float> roundEstimate(bool negative, int exponent, const big_uint& coefficient,
                                   unsigned bits, unsigned kept) noexcept {
    using Format = BinaryFormat<Float>;
    assert(bits > 0 && bits <= 1U << 24U && kept > 0);
    const Estimate power = estimatePow10(exponent);
    const Wide w = leadingBits(coefficient, bits, kept);
    const Limb low = words::multiplyLimbs(w.low, power.significand.high).high;
    const Limb middle = words::multiplyLimbs(w.high, power.significand.low).high;
    const Wide l = words::multiplyAdd(w.high, power.significand.high, low, middle);

    const int lead = 127 - std::countl_zero(l.high);
    int top = lead + power.exponent + static_cast<int>(bits);
    if (top > Format::MAX_EXPONENT) {
        return signedInfinity<Float>(negative);
    }
    if (top < Format::MIN_EXPONENT - Format::PRECISION - 1) { // less than half of the smallest
        return signedZero<Float>(negative);
    }
    int cut = lead + 1 - Format::PRECISION;
    if (top < Format::MIN_EXPONENT) {
        cut += Format::MIN_EXPONENT - top;
        top = Format::MIN_EXPONENT - 1;
    }
    if (cut >= 128) {
        return std::nullopt;
    }
    const unsigned shift = static_cast<unsigned>(cut) % 64; // as cut is from 64 to 127
    const Limb rest = l.high & ((Limb{1} << shift) - 1);
    const Limb half = Limb{1} << (shift - 1);
    if ((rest == half && l.low == 0) || (rest == half - 1 && l.low > ALL_ONES - SLACK)) {
        return std::nullopt;
    }
    return assemble<Float>(negative, top, l.high >> shift, rest >= half);
}

template std::optional<float> roundEstimate<float>(bool, int, const big_uint&, unsigned,
                                                   unsigned) noexcept;
template std::optional<double> roundEstimate<double>(bool, int, const big_uint&, unsigned,
                                                     unsigned) noexcept;

} // namespace orv::detail
