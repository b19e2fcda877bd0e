// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Implementation: few digits by one product of 192 bits, all others by whole numbers.
#include "orv/liborvxx/locale/detail/decimal_expansion.h"

#include "orv/liborvxx/locale/detail/scaled_product.h"
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/detail/pow10_table.h"
#include "orv/liborvxx/number/words/decimal_digits.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>
#include <optional>

namespace orv::detail {

namespace {

using words::Limb;

// The digits of a quick number, and the exponents of two that are quick: whatever the digits, their
// scale is a power of ten of the table.
constexpr std::int64_t MOST_QUICK_DIGITS = 18;
constexpr int MOST_QUICK_EXPONENT = 1100;
static_assert(MOST_QUICK_DIGITS - floorLog10Pow2(-MOST_QUICK_EXPONENT - 1) <= MAX_TABLE_POW10);
static_assert(-floorLog10Pow2(MOST_QUICK_EXPONENT - 1) >= MIN_TABLE_POW10);

// No number has so many.
constexpr std::int64_t ENOUGH_DIGITS = 1000000;

// number * 10^scale, rounded, if it is below 2^63 and 128 bits decide.
std::optional<Limb> scaleQuickly(const BinaryFraction& number, int scale) noexcept {
    const int fractionBits = 63 - number.exponent - floorLog2Pow10(scale);
    if (fractionBits < 1 || number.rest != 0) {
        return std::nullopt;
    }
    if (fractionBits > 64) {
        return 0; // less than one half
    }
    Limb integer = 0;
    const auto up = cutProduct(ScaledProduct(number.coefficient, scale),
                               static_cast<unsigned>(fractionBits), integer);
    if (!up) {
        return std::nullopt;
    }
    return integer + (*up ? 1U : 0U);
}

template <class Float>
BinaryFraction makeFraction(Float magnitude) noexcept {
    using Limits = std::numeric_limits<Float>;
    static_assert(Limits::digits <= 128);
    int exponent = 0;
    const Float fraction = std::frexp(magnitude, &exponent);
    const Float scaled = std::ldexp(fraction, 64);
    const auto coefficient = static_cast<Limb>(scaled);
    Limb rest = 0;
    if constexpr (Limits::digits > 64) {
        rest = static_cast<Limb>(std::ldexp(scaled - static_cast<Float>(coefficient), 64));
    }
    return {coefficient, rest, exponent};
}

} // namespace

BinaryFraction fractionOf(double magnitude) noexcept {
    return makeFraction(magnitude);
}

BinaryFraction fractionOf(long double magnitude) noexcept {
    return makeFraction(magnitude);
}

void DecimalExpansion::roundToDigits(const BinaryFraction& number, std::int64_t count) {
    assert(count >= 1);
    if (number.coefficient == 0) {
        return setZero();
    }
    if (!roundDigitsQuickly(number, count)) {
        expand(number);
        cutTo(std::min(count, ENOUGH_DIGITS));
    }
}

void DecimalExpansion::roundToPlaces(const BinaryFraction& number, std::int64_t places) {
    assert(places >= 0);
    if (number.coefficient == 0) {
        return setZero();
    }
    // Not below the logarithm, and less than 2 above it, for all exponents of `long double`.
    const std::int64_t log = std::int64_t{number.exponent} * 315653 / (1 << 20) + 1;
    if (log + 2 < -places) {
        return setZero();
    }
    if (!roundPlacesQuickly(number, places)) {
        expand(number);
        cutTo(exponent_ + 1 + std::min(places, ENOUGH_DIGITS));
    }
}

bool DecimalExpansion::roundDigitsQuickly(const BinaryFraction& number, std::int64_t count) {
    if (count > MOST_QUICK_DIGITS || std::abs(number.exponent) > MOST_QUICK_EXPONENT) {
        return false;
    }
    const int digits = static_cast<int>(count);
    const Limb end = words::POW10_IN_LIMBS[static_cast<std::size_t>(count)];
    int scale = digits - 1 - floorLog10Pow2(number.exponent - 1);
    auto integer = scaleQuickly(number, scale);
    if (integer && *integer >= end) {
        // The estimate was one too small, or all digits were nines.
        integer = scaleQuickly(number, --scale);
    }
    if (!integer) {
        return false;
    }
    setFew(*integer, scale);
    return true;
}

bool DecimalExpansion::roundPlacesQuickly(const BinaryFraction& number, std::int64_t places) {
    if (places > MOST_QUICK_DIGITS || std::abs(number.exponent) > MOST_QUICK_EXPONENT) {
        return false;
    }
    const auto integer = scaleQuickly(number, static_cast<int>(places));
    if (!integer) {
        return false;
    }
    if (*integer == 0) {
        setZero();
    } else {
        setFew(*integer, static_cast<int>(places));
    }
    return true;
}

// integer / 10^scale
void DecimalExpansion::setFew(Limb integer, int scale) noexcept {
    const unsigned count = words::countDigits(integer);
    words::writeDigits(few_, count, integer);
    digits_ = {few_, count};
    exponent_ = static_cast<int>(count) - 1 - scale;
}

// All digits: c * 2^-n is c * 5^n / 10^n.
void DecimalExpansion::expand(const BinaryFraction& number) {
    big_uint coefficient;
    coefficient.set_size(4);
    words::store(coefficient.data(), number.rest);
    words::store(coefficient.data() + 2, number.coefficient);
    const auto zeros = static_cast<unsigned>(coefficient.lowest_set_bit());
    coefficient.shift_right(zeros);
    coefficient.trim();
    const int unit = number.exponent - 128 + static_cast<int>(zeros);
    if (unit >= 0) {
        const auto bits = static_cast<unsigned>(unit);
        coefficient.set_size(coefficient.size() + bits / 32 + 1);
        coefficient.shift_left(bits);
        many_ = coefficient.to_string();
        exponent_ = static_cast<std::int64_t>(many_.size()) - 1;
    } else {
        big_uint cache;
        const big_uint& power = big_uint::pow5(static_cast<unsigned>(-unit), &cache);
        big_uint product = big_uint::make_uninitialized(coefficient.size() + power.size());
        product.multiply(coefficient, power);
        many_ = product.to_string();
        exponent_ = static_cast<std::int64_t>(many_.size()) - 1 + unit;
    }
    digits_ = many_;
}

// Rounds what `expand` made to its first digits.
void DecimalExpansion::cutTo(std::int64_t count) {
    if (count < 0) {
        return setZero();
    }
    const auto size = static_cast<std::size_t>(count);
    if (size >= many_.size()) {
        return;
    }
    const bool isOdd = size > 0 && (static_cast<unsigned>(many_[size - 1]) & 1U) != 0;
    const bool hasRest = many_.find_first_not_of('0', size + 1) != std::string::npos;
    const bool up = many_[size] > '5' || (many_[size] == '5' && (hasRest || isOdd));
    many_.resize(size);
    if (up) {
        // Nines become zeros, which may be missing.
        many_.resize(many_.find_last_not_of('9') + 1);
        if (many_.empty()) {
            many_ = "0";
            ++exponent_;
        }
        ++many_.back();
    }
    digits_ = many_;
    if (digits_.empty()) {
        setZero();
    }
}

void DecimalExpansion::setZero() noexcept {
    digits_ = {};
    exponent_ = 0;
}

} // namespace orv::detail
