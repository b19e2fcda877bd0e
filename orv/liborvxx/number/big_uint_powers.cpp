// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: powers of 5 and 10, and decimal logarithms.
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/detail/power_tables.h"

#include <cassert>
#include <stdexcept>

namespace orv {

namespace {

constexpr unsigned int POW10_LIMIT = 1U << big_uint_tables::POW10_SQUARE_COUNT;
constexpr unsigned int POW5_LIMIT = 1U << big_uint_tables::POW5_SQUARE_COUNT;

void multiplyBy(big_uint& value, const big_uint& factor) {
    big_uint product = big_uint::make_uninitialized(value.size() + factor.size());
    product.multiply(value, factor);
    product.trim();
    product.swap(value);
}

} // namespace

const big_uint& big_uint::pow10(unsigned int n, big_uint* cache) {
    if (n < big_uint_tables::POW10_COUNT) {
        return big_uint_tables::pow10(n);
    }
    if (n >= POW10_LIMIT) {
        throw std::out_of_range("big_uint::pow10");
    }
    assert(cache != nullptr);
    *cache = big_uint_tables::pow10(n % 64);
    for (unsigned int k = 6; k < big_uint_tables::POW10_SQUARE_COUNT; ++k) {
        if ((n >> k & 1U) != 0) {
            multiplyBy(*cache, big_uint_tables::pow10Square(k));
        }
    }
    return *cache;
}

const big_uint* big_uint::precomputed_pow10(unsigned int n) noexcept {
    return n < big_uint_tables::POW10_COUNT ? &big_uint_tables::pow10(n) : nullptr;
}

const big_uint& big_uint::pow5(unsigned int n, big_uint* cache) {
    if (n >= POW5_LIMIT) {
        throw std::length_error("big_uint::pow5: exponent out of range");
    }
    assert(cache != nullptr);
    // As many low bits as one entry of the table covers: five, unless these make 28 or more.
    const unsigned int low = n % 32 < pow5_table.size() ? 5 : 4;
    *cache = big_uint(pow5_table[n & ((1U << low) - 1)]);
    for (unsigned int k = low; n >> k != 0; ++k) {
        if ((n >> k & 1U) != 0) {
            multiplyBy(*cache, big_uint_tables::pow5Square(k));
        }
    }
    return *cache;
}

unsigned int big_uint::log10est(unsigned int bit) {
    if (bit >= big_uint_tables::log10Table.size()) {
        throw std::out_of_range("invalid array<T, N> subscript");
    }
    return static_cast<unsigned int>(big_uint_tables::log10Table[bit]);
}

int big_uint::ilog10() const {
    return ilog10(bit_length());
}

int big_uint::ilog10(unsigned int bit_length) const {
    assert(bit_length == this->bit_length());
    return bit_length == 0 ? -1 : _ilog10(bit_length - 1);
}

int big_uint::_ilog10(unsigned int bit) const {
    if (bit < big_uint_tables::log10Table.size()) {
        const int known = big_uint_tables::log10Table[bit];
        if (known >= 0) {
            return known;
        }
        const auto exponent = static_cast<unsigned int>(-known);
        return compare(big_uint_tables::pow10(exponent)) < 0 ? -known - 1 : -known;
    }
    // 0x4D10 / 65536 = 0.301025390625 is just below log10 2 = 0.30102999..., so that 10^(k - 1) is
    // not above the value. Beyond bit 217709 the product wraps, and the estimate is still not too
    // high, but far too low.
    unsigned int k = (bit * 0x4D10U >> 16U) + 1;
    big_uint power;
    const big_uint& estimated = pow10(k, &power);
    int order = compare(estimated);
    if (order > 0 && &estimated != &power) {
        power = estimated;
    }
    for (; order > 0; order = compare(power)) {
        if (const unsigned int carry = power.multiply_by_10()) {
            power.prepend(carry);
        }
        ++k;
    }
    return static_cast<int>(order < 0 ? k - 1 : k);
}

} // namespace orv
