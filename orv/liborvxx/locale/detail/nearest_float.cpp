// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Implementation: what most texts hold is decided in 64 bits, all else by whole numbers.
#include "orv/liborvxx/locale/detail/nearest_float.h"

#include "orv/liborvxx/locale/detail/scaled_product.h"
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/detail/decimal_to_binary.h"
#include "orv/liborvxx/number/words/decimal_digits.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

namespace orv::detail {

namespace {

using words::Limb;
using words::Wide;

// An exponent that decides alone, and leaves room for sums.
constexpr int FAR = 100000;

int narrowExponent(std::int64_t exponent) noexcept {
    return static_cast<int>(std::clamp<std::int64_t>(exponent, -FAR, FAR));
}

template <class Float>
Float withSignOf(bool negative, Float magnitude) noexcept {
    return negative ? -magnitude : magnitude;
}

template <class Float>
constexpr int LOWEST_BIT =
    std::numeric_limits<Float>::min_exponent - std::numeric_limits<Float>::digits;

// bits * 2^unit, which is a Float, or too large for one.
template <class Float>
Float makeFloat(const Wide& bits, int unit) noexcept {
    using Limits = std::numeric_limits<Float>;
    const int width =
        bits.high != 0 ? 128 - std::countl_zero(bits.high) : 64 - std::countl_zero(bits.low);
    if (width + unit > Limits::max_exponent) {
        return Limits::infinity();
    }
    // Each part is exact, and so is the sum.
    const Float low = std::ldexp(static_cast<Float>(bits.low), unit);
    return bits.high == 0 ? low : low + std::ldexp(static_cast<Float>(bits.high), unit + 64);
}

// The Float nearest to coefficient * 2^exponent, or to what is a little more than that.
// \pre if hasRest, the coefficient has 2 bits more than a Float
template <class Float>
Float roundToFloat(const big_uint& coefficient, int exponent, bool hasRest) noexcept {
    using Limits = std::numeric_limits<Float>;
    if (coefficient.is_zero()) {
        return 0;
    }
    const int top = coefficient.highest_set_bit() + exponent;
    if (top >= Limits::max_exponent) {
        return Limits::infinity();
    }
    const int unit = std::max(top + 1 - Limits::digits, LOWEST_BIT<Float>);
    const auto cut = static_cast<unsigned>(std::max(unit - exponent, 0));
    const unsigned rest = coefficient.compute_rounding_info(cut) | (hasRest ? 1U : 0U);
    big_uint kept;
    kept.set_size(4);
    kept.shift_right(coefficient, cut);
    if (rest == 3 || (rest == 2 && kept.lsb())) {
        kept.increment();
    }
    return makeFloat<Float>({words::load(kept.data()), words::load(kept.data() + 2)},
                            exponent + static_cast<int>(cut));
}

// A number of many limbs that grows from the front.
class LongInteger {
public:
    explicit LongInteger(unsigned digits) {
        // 10 is less than 2^(10/3); a word more makes whole limbs of an odd number of words.
        number_.set_size((digits * 10 / 3 / 32 + 4) / 2 * 2);
    }

    void multiplyAdd(Limb factor, Limb addend) noexcept {
        Limb carry = addend;
        for (unsigned i = 0; i < used_; i += 2) {
            const Wide sum = words::multiplyAdd(words::load(number_.data() + i), factor, carry, 0);
            words::store(number_.data() + i, sum.low);
            carry = sum.high;
        }
        if (carry != 0) {
            words::store(number_.data() + used_, carry);
            used_ += 2;
        }
    }

    big_uint& number() noexcept {
        number_.trim();
        return number_;
    }

private:
    big_uint number_;
    unsigned used_ = 0; // words
};

LongInteger joinDigits(const DecimalDigits& digits) {
    LongInteger joined(digits.count() + 1);
    for (unsigned i = 0; i < digits.fullCount(); ++i) {
        joined.multiplyAdd(words::POW10_IN_LIMBS[DecimalDigits::IN_LIMB], digits.fullLimbs()[i]);
    }
    joined.multiplyAdd(words::POW10_IN_LIMBS[digits.inLast()], digits.last());
    if (digits.hasRest()) {
        joined.multiplyAdd(10, 1); // as good as what it stands for
    }
    return joined;
}

template <class Float>
Float multiplyExactly(const big_uint& coefficient, int exponent) {
    big_uint cache;
    const big_uint& power = big_uint::pow5(static_cast<unsigned>(exponent), &cache);
    big_uint product = big_uint::make_uninitialized(coefficient.size() + power.size());
    product.multiply(coefficient, power);
    return roundToFloat<Float>(product, exponent, false);
}

template <class Float>
Float divideExactly(const big_uint& coefficient, int exponent) {
    constexpr int BITS = std::numeric_limits<Float>::digits + 2;
    big_uint cache;
    const big_uint& power = big_uint::pow5(static_cast<unsigned>(exponent), &cache);
    const auto lacking =
        BITS + static_cast<int>(power.bit_length()) - static_cast<int>(coefficient.bit_length());
    const auto shift = static_cast<unsigned>(std::max(lacking, 0));
    big_uint dividend;
    dividend.set_size((coefficient.bit_length() + shift) / 32 + 1);
    dividend.shift_left(coefficient, shift);
    big_uint quotient = big_uint::make_uninitialized(dividend.size());
    big_uint rest = big_uint::make_uninitialized(std::max(power.size(), dividend.size()));
    quotient.divide(dividend, power, rest);
    return roundToFloat<Float>(quotient, -exponent - static_cast<int>(shift), !rest.is_zero());
}

// Whatever the digits are.
template <class Float>
Float nearestExactly(const DecimalDigits& digits, int exponent) {
    using Limits = std::numeric_limits<Float>;
    const int top = static_cast<int>(digits.count()) + exponent; // less than 10^top
    if (top > Limits::max_exponent10 + 1) {
        return Limits::infinity();
    }
    if (top < Limits::min_exponent10 - Limits::digits10 - 5) {
        return 0;
    }
    LongInteger joined = joinDigits(digits);
    const int power = exponent - (digits.hasRest() ? 1 : 0);
    return power >= 0 ? multiplyExactly<Float>(joined.number(), power)
                      : divideExactly<Float>(joined.number(), -power);
}

// The Float nearest to coefficient * 10^exponent, if 128 bits of the power of ten decide.
template <class Float>
std::optional<Float> nearestQuickly(Limb coefficient, int exponent) noexcept {
    using Limits = std::numeric_limits<Float>;
    if (exponent < MIN_TABLE_POW10 || exponent > MAX_TABLE_POW10 || Limits::digits > 64) {
        return std::nullopt;
    }
    const int zeros = std::countl_zero(coefficient);
    ScaledProduct product(coefficient << static_cast<unsigned>(zeros), exponent);
    int top = 64 - zeros + floorLog2Pow10(exponent); // of the product's top bit
    if (product.high >> 63U == 0) {
        product.shiftLeft();
        --top;
    }
    const int unit = std::max(top + 1 - Limits::digits, LOWEST_BIT<Float>);
    const int fractionBits = unit + 63 - top;
    if (fractionBits > 64) {
        return Float{0}; // less than one half of the least number
    }
    Limb integer = 0;
    const auto up = cutProduct(product, static_cast<unsigned>(fractionBits), integer);
    if (!up) {
        return std::nullopt;
    }
    return makeFloat<Float>({integer + (*up ? 1U : 0U), *up && integer + 1 == 0 ? 1U : 0U}, unit);
}

// The product or quotient of two Floats, if they are such numbers.
template <class Float>
std::optional<Float> nearestNatively(Limb coefficient, int exponent) noexcept {
    if constexpr (!std::is_same_v<Float, long double>) {
        if (isNative<Float>(exponent, coefficient)) {
            return makeNatively<Float>(false, exponent, coefficient);
        }
    }
    return std::nullopt;
}

template <class Float>
Float nearestOf(const DecimalDigits& digits, int exponent) {
    if (digits.count() == 0) {
        return 0;
    }
    if (digits.fullCount() == 0) {
        const auto native = nearestNatively<Float>(digits.last(), exponent);
        const auto quick = native ? native : nearestQuickly<Float>(digits.last(), exponent);
        return quick ? *quick : nearestExactly<Float>(digits, exponent);
    }
    // Between the first digits, and these with a 1 added.
    const int scale = exponent + static_cast<int>(digits.count() - DecimalDigits::IN_LIMB);
    const Limb first = digits.fullLimbs()[0];
    const auto below = nearestQuickly<Float>(first, scale);
    if (below && below == nearestQuickly<Float>(first + 1, scale)) {
        return *below;
    }
    return nearestExactly<Float>(digits, exponent);
}

} // namespace

template <class Float>
Float nearestFloat(bool negative, const DecimalDigitsFor<Float>& digits, std::int64_t exponent) {
    return withSignOf(negative, nearestOf<Float>(digits, narrowExponent(exponent)));
}

template <class Float>
Float nearestFloat(bool negative, const HexDigits& digits, std::int64_t exponent) {
    big_uint coefficient;
    coefficient.set_size(5); // a word for the digit that stands for those not kept
    words::store(coefficient.data(), digits.value().low);
    words::store(coefficient.data() + 2, digits.value().high);
    int power = narrowExponent(exponent);
    if (digits.hasRest()) {
        coefficient.shift_left(1);
        coefficient.set_bit(0);
        --power;
    }
    return withSignOf(negative, roundToFloat<Float>(coefficient, power, false));
}

template float nearestFloat(bool, const DecimalDigitsFor<float>&, std::int64_t);
template double nearestFloat(bool, const DecimalDigitsFor<double>&, std::int64_t);
template long double nearestFloat(bool, const DecimalDigitsFor<long double>&, std::int64_t);
template float nearestFloat<float>(bool, const HexDigits&, std::int64_t);
template double nearestFloat<double>(bool, const HexDigits&, std::int64_t);
template long double nearestFloat<long double>(bool, const HexDigits&, std::int64_t);

} // namespace orv::detail
