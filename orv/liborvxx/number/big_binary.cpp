// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_binary`: rounding, comparison, multiplication, division; fixed-point helpers.
#include "orv/liborvxx/number/big_binary.h"

#include "orv/liborvxx/number/detail/rounding.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <limits>
#include <stdexcept>
#include <utility>

namespace orv {

namespace {

// Words for that many bits; one at least.
unsigned wordsFor(unsigned bits) {
    return std::max(bits / 32 + (bits % 32 != 0 ? 1U : 0U), 1U);
}

std::int32_t toExponent(std::int64_t exponent) {
    assert(exponent >= std::numeric_limits<std::int32_t>::min() &&
           exponent <= std::numeric_limits<std::int32_t>::max());
    return static_cast<std::int32_t>(exponent);
}

// Adds 1 to a coefficient of at most `precision` bits; if it then has one bit more, the last, a 0,
// goes.
// \return what that adds to the exponent
int roundUp(big_uint& coefficient, unsigned precision) {
    coefficient.increment();
    if (coefficient.bit_length() <= precision) {
        return 0;
    }
    coefficient.shift_right();
    return 1;
}

// The number, shifted left to have `bits` bits if it has less; no wider than that.
big_uint widened(const big_uint& number, std::uint64_t bits) {
    const unsigned length = number.bit_length();
    const std::uint64_t words = (std::max<std::uint64_t>(bits, length) + 31) / 32;
    big_uint result = big_uint::make_uninitialized(
        static_cast<unsigned>(std::min<std::uint64_t>(words, big_uint::max_size() + 1)));
    result.shift_left(number, bits > length ? static_cast<unsigned>(bits - length) : 0);
    return result;
}

} // namespace

big_binary::big_binary(int power, big_uint&& number, unsigned int bits) {
    assert(bits > 0);
    const unsigned length = number.bit_length();
    if (length <= bits) {
        exponent = length == 0 ? 0 : power;
        coefficient = std::move(number);
        return;
    }
    const unsigned cut = length - bits;
    const bool up = detail::round_up_half_even(number, cut);
    const unsigned words = (bits + 32) / 32; // with room for a carry
    if (number.size() <= words + 1) {
        number.shift_right(cut);
        coefficient = std::move(number);
    } else {
        coefficient.set_size(words);
        coefficient.shift_right(number, cut);
    }
    exponent = toExponent(std::int64_t{power} + cut + (up ? roundUp(coefficient, bits) : 0));
}

big_uint big_binary::get_coefficient(unsigned int bits) const {
    const unsigned words = wordsFor(bits);
    const unsigned significant = wordsFor(coefficient.bit_length());
    if (significant > words) {
        throw std::logic_error("big_binary::get_coefficient(unsigned) would discard leading bits");
    }
    big_uint result = big_uint::make_uninitialized(bits == 0 ? 0 : words);
    std::copy_n(coefficient.data(), significant, result.data());
    std::fill(result.data() + significant, result.data() + words, 0U);
    return result;
}

int big_binary::compare(const big_binary& a, const big_binary& b) {
    const int topA = a.coefficient.highest_set_bit();
    const int topB = b.coefficient.highest_set_bit();
    if (topA < 0 || topB < 0) {
        return (topA >= 0 ? 1 : 0) - (topB >= 0 ? 1 : 0);
    }
    const std::int64_t positionA = std::int64_t{a.exponent} + topA;
    const std::int64_t positionB = std::int64_t{b.exponent} + topB;
    if (positionA != positionB) {
        return positionA < positionB ? -1 : 1;
    }
    if (a.exponent == b.exponent) {
        return a.coefficient.compare(b.coefficient);
    }
    if (a.exponent < b.exponent) {
        return -compare(b, a);
    }
    // Both begin at the same position: the shifted coefficient is as long as the other.
    big_uint shifted;
    shifted.set_size(wordsFor(b.coefficient.bit_length()));
    shifted.shift_left(a.coefficient, static_cast<unsigned>(topB - topA));
    return shifted.compare(b.coefficient);
}

big_binary big_binary::multiply(const big_binary& a, const big_binary& b, unsigned int precision) {
    big_uint product =
        big_uint::make_uninitialized(unsigned{a.coefficient.size()} + b.coefficient.size());
    product.multiply(a.coefficient, b.coefficient);
    return {toExponent(std::int64_t{a.exponent} + b.exponent), std::move(product), precision};
}

big_binary big_binary::divide(const big_binary& a, const big_binary& b, unsigned int precision) {
    assert(precision > 0);
    const unsigned bitsA = a.coefficient.bit_length();
    const unsigned bitsB = b.coefficient.bit_length();
    if (bitsB == 0) {
        throw std::overflow_error("divide by zero");
    }
    if (bitsA == 0) {
        return {};
    }
    // So many bits in the dividend give a quotient of `precision` bits, or one more.
    const big_uint dividend = widened(a.coefficient, std::uint64_t{precision} + bitsB);
    const unsigned shift = dividend.bit_length() - bitsA;

    big_binary result;
    big_uint& quotient = result.coefficient;
    quotient.set_size(dividend.size() - wordsFor(bitsB) + 1);
    big_uint remainder = big_uint::make_uninitialized(b.coefficient.size());
    quotient.divide(dividend, b.coefficient, remainder);

    const unsigned cut = quotient.bit_length() - precision;
    const unsigned below = detail::roundingOfRemainder(remainder, b.coefficient);
    const unsigned rounding =
        cut == 0 ? below : detail::combineRounding(quotient.compute_rounding_info(cut), below);
    quotient.shift_right(cut);
    const int carry = detail::roundsUp(rounding, quotient.lsb()) ? roundUp(quotient, precision) : 0;
    result.exponent = toExponent(std::int64_t{a.exponent} - b.exponent - shift + cut + carry);
    return result;
}

namespace detail {

bool round_up_half_even(const big_uint& c, unsigned int bits) noexcept {
    const bool odd = bits / 32 < c.size() && c.test_bit(bits);
    return roundsUp(c.compute_rounding_info(bits), odd);
}

int compare_within(const big_uint& a, const big_uint& b, int tolerance) noexcept {
    assert(a.size() == b.size());
    unsigned n = a.size();
    while (n > 0 && a[n - 1] == b[n - 1]) {
        --n;
    }
    if (n == 0) {
        return 0;
    }
    const bool isGreater = a[n - 1] > b[n - 1];
    const int sign = isGreater ? 1 : -1;
    if (tolerance < 0) {
        return sign;
    }
    const big_uint& greater = isGreater ? a : b;
    const big_uint& less = isGreater ? b : a;
    int top = -1;
    std::uint64_t borrow = 0;
    for (unsigned i = 0; i < n; ++i) {
        const std::uint64_t difference = std::uint64_t{greater[i]} - less[i] - borrow;
        borrow = difference >> 63U;
        const auto word = static_cast<std::uint32_t>(difference);
        if (word != 0) {
            top = static_cast<int>(32 * i + std::bit_width(word) - 1);
        }
    }
    return top > tolerance ? sign : 0;
}

void rescale(big_uint& c, int from_fraction, int to_fraction, unsigned int words) {
    const std::int64_t drop = std::int64_t{from_fraction} - to_fraction;
    const auto shift = [drop](big_uint& result, const big_uint& source) {
        if (drop >= 0) {
            result.shift_right(source, static_cast<unsigned>(drop));
        } else {
            result.shift_left(source, static_cast<unsigned>(-drop));
        }
    };
    if (c.size() == words) {
        shift(c, c);
        return;
    }
    big_uint result = big_uint::make_uninitialized(words);
    shift(result, c);
    c = std::move(result);
}

} // namespace detail

} // namespace orv
