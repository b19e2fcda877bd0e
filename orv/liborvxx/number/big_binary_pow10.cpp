// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_binary`: powers of ten, and their cache.
#include "orv/liborvxx/number/big_binary.h"

#include "orv/liborvxx/number/detail/publish_once.h"

#include <algorithm>
#include <cassert>
#include <memory>
#include <utility>

namespace orv {

namespace {

// Magnitudes of exponents from here on give 0.
constexpr unsigned NO_POWER = 8192;

// Of 10^8191. More precision asks for nothing more.
constexpr unsigned MOST_BITS = 27211;

// target = the top `bits` bits of the number. Rounding up may give one bit more, which stays.
// \return how many bits were cut
unsigned cut(const big_uint& number, unsigned bits, big_uint& target) {
    const unsigned length = number.bit_length();
    const unsigned dropped = length > bits ? length - bits : 0;
    target.shift_right(number, dropped);
    if (dropped > 0 && detail::round_up_half_even(number, dropped)) {
        target.increment();
    }
    return dropped;
}

// A power of ten without its trailing zero bits if it then has at most `bits` bits, else rounded to
// these. There is room for one bit more.
big_binary startingPower(const big_uint& power, unsigned bits) {
    const auto zeros = static_cast<unsigned>(power.lowest_set_bit());
    big_binary result;
    result.coefficient.set_size((bits + 32) / 32);
    if (power.bit_length() - zeros <= bits) {
        result.coefficient.shift_right(power, zeros);
        result.exponent = static_cast<int>(zeros);
    } else {
        result.exponent = static_cast<int>(cut(power, bits, result.coefficient));
    }
    return result;
}

// power = power^2, or 10 * power^2, cut to `bits` bits. The square is worked out in `scratch`.
void squarePower(big_binary& power, bool timesTen, unsigned bits, big_uint& scratch) {
    scratch.multiply(power.coefficient, power.coefficient);
    if (timesTen) {
        [[maybe_unused]] const unsigned carry = scratch.multiply_by_10();
        assert(carry == 0);
    }
    power.exponent = 2 * power.exponent + static_cast<int>(cut(scratch, bits, power.coefficient));
}

// 10^n approximately, from the top bits of n downwards (Knuth, 4.6.3, the left-to-right method):
// the exponents that a table knows at once, the others by squaring.
big_binary approximatePower(unsigned n, unsigned precision) {
    unsigned squarings = 0;
    const big_uint* known = big_uint::precomputed_pow10(n);
    while (known == nullptr) {
        known = big_uint::precomputed_pow10(n >> ++squarings);
    }
    big_binary result;
    if (squarings == 0 && known->bit_length() <= precision) {
        result.coefficient = *known;
        return result;
    }
    const unsigned bits = std::min(precision, MOST_BITS) + 7 + 4 * squarings;
    result = startingPower(*known, bits);
    // Ten squares of numbers of `bits` bits have at most 2 * bits + 4 bits, and as many if rounding
    // up has made 2^bits of the number.
    big_uint scratch =
        big_uint::make_uninitialized(std::max((2 * bits + 34) / 32, 2 * result.coefficient.size()));
    while (squarings > 0) {
        --squarings;
        squarePower(result, (n >> squarings & 1U) != 0, bits, scratch);
    }
    return result;
}

constexpr int CACHED_MAGNITUDE = 100;
using CachedPowers = detail::PublishOnce<big_binary>[2 * CACHED_MAGNITUDE + 1];

constinit CachedPowers powers64;
constinit CachedPowers powers128;
constinit CachedPowers powers256;

CachedPowers* cacheFor(unsigned precision) {
    switch (precision) {
    case 64:
        return &powers64;
    case 128:
        return &powers128;
    case 256:
        return &powers256;
    default:
        return nullptr;
    }
}

} // namespace

big_binary big_binary::binary_pow10(int n, unsigned int precision) {
    assert(precision > 0);
    const unsigned magnitude = n < 0 ? 0U - static_cast<unsigned>(n) : static_cast<unsigned>(n);
    if (magnitude >= NO_POWER) {
        return {};
    }
    big_binary power = approximatePower(magnitude, precision);
    if (n < 0) {
        return divide(big_binary(0, 1U, 1), power, precision);
    }
    return {power.exponent, std::move(power.coefficient), precision};
}

big_binary big_binary::cached_pow10(int n, unsigned int precision) {
    if (n == 0 || n == 1) {
        return {0, n == 0 ? 1U : 10U, 4};
    }
    CachedPowers* const cache = cacheFor(precision);
    if (cache == nullptr || n < -CACHED_MAGNITUDE || n > CACHED_MAGNITUDE) {
        return binary_pow10(n, precision);
    }
    return (*cache)[n + CACHED_MAGNITUDE].get([n, precision] {
        big_binary power = binary_pow10(n, precision);
        power.coefficient.trim(); // copies of up to 256 bits then need no memory
        return std::make_unique<const big_binary>(power);
    });
}

} // namespace orv
