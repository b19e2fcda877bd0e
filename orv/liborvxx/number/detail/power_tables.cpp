// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The tables of powers, worked out by the compiler, and the powers of five that are kept.
#include "orv/liborvxx/number/detail/power_tables.h"

#include "orv/liborvxx/number/detail/publish_once.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <utility>

namespace orv {

namespace {

template <std::size_t N>
using Words = std::array<unsigned int, N>;

using PowerWords = std::array<Words<big_uint::MIN_RESERVED>, big_uint_tables::POW10_COUNT>;

constexpr PowerWords POWER_WORDS = [] {
    PowerWords words{};
    words[0][0] = 1;
    for (std::size_t i = 1; i < words.size(); ++i) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < words[i].size(); ++j) {
            carry += std::uint64_t{words[i - 1][j]} * 10;
            words[i][j] = static_cast<unsigned int>(carry);
            carry >>= 32U;
        }
        // What fits 256 bits is in the table.
        if (carry != 0) {
            throw std::logic_error("a power is too wide");
        }
    }
    return words;
}();

// Words without the zeros at the top.
template <std::size_t N>
constexpr std::uint16_t significant(const Words<N>& words) {
    std::size_t n = N;
    while (n > 1 && words[n - 1] == 0) {
        --n;
    }
    return static_cast<std::uint16_t>(n);
}

constexpr std::size_t highestBit(const Words<big_uint::MIN_RESERVED>& words) {
    const std::size_t top = significant(words) - std::size_t{1};
    return top * 32 + static_cast<std::size_t>(std::bit_width(words[top])) - 1;
}

template <std::size_t N>
constexpr Words<2 * N> squareOf(const Words<N>& a) {
    Words<2 * N> product{};
    const unsigned int* const words = a.data(); // compilers count steps: an array's operator is two
    for (std::size_t i = 0; i < N; ++i) {
        const std::uint64_t factor = words[i];
        unsigned int* const row = product.data() + i;
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < N; ++j) {
            carry += factor * words[j] + row[j];
            row[j] = static_cast<unsigned int>(carry);
            carry >>= 32U;
        }
        row[N] = static_cast<unsigned int>(carry);
    }
    return product;
}

// 10^(2^k) in as many words as it needs.
template <unsigned int K>
constexpr auto SQUARE_WORDS = [] {
    constexpr auto product = squareOf(SQUARE_WORDS<K - 1>);
    Words<significant(product)> words{};
    std::copy_n(product.begin(), words.size(), words.begin());
    return words;
}();

template <>
constexpr Words<1> SQUARE_WORDS<0> = {10};

} // namespace

// Unions, since nobody destroys what they hold.
union big_uint_tables::Powers {
    big_uint entries[POW10_COUNT];

    template <std::size_t... I>
    constexpr explicit Powers(std::index_sequence<I...> /*indices*/) noexcept
        : entries{big_uint(POWER_WORDS[I], significant(POWER_WORDS[I]))...} {}

    constexpr ~Powers() {}
};

union big_uint_tables::Squares {
    big_uint entries[POW10_SQUARE_COUNT];

    template <std::size_t... K>
    constexpr explicit Squares(std::index_sequence<K...> /*indices*/) noexcept
        : entries{big_uint(held<K>(), std::uint16_t{SQUARE_WORDS<K>.size()})...} {}

    constexpr ~Squares() {}

private:
    // What is held in the object if it has room, else the words where they are. Nobody writes to a
    // constant.
    template <std::size_t K>
    static constexpr auto held() noexcept {
        if constexpr (SQUARE_WORDS<K>.size() <= big_uint::MIN_RESERVED) {
            return POWER_WORDS[1U << K];
        } else {
            return const_cast<unsigned int*>(SQUARE_WORDS<K>.data());
        }
    }
};

constexpr big_uint_tables::Powers big_uint_tables::powers(std::make_index_sequence<POW10_COUNT>{});
constexpr big_uint_tables::Squares
    big_uint_tables::squares(std::make_index_sequence<POW10_SQUARE_COUNT>{});

constexpr std::array<std::int32_t, 256> big_uint_tables::log10Table = [] {
    std::array<std::int32_t, 256> table{};
    // No two powers have the same highest bit: each is more than three bits above the one before.
    for (std::size_t i = 1; i < POWER_WORDS.size(); ++i) {
        table[highestBit(POWER_WORDS[i])] = -static_cast<std::int32_t>(i);
    }
    std::int32_t decade = 0;
    for (std::int32_t& entry : table) {
        if (entry < 0) {
            decade = -entry;
        } else {
            entry = decade;
        }
    }
    return table;
}();

const big_uint& big_uint_tables::pow10(unsigned int i) noexcept {
    assert(i < POW10_COUNT);
    return powers.entries[i];
}

const big_uint& big_uint_tables::pow10Square(unsigned int k) noexcept {
    assert(k < POW10_SQUARE_COUNT);
    return squares.entries[k];
}

const big_uint& big_uint_tables::pow5Square(unsigned int k) {
    static constinit std::array<detail::PublishOnce<big_uint>, POW5_SQUARE_COUNT> kept;
    if (k >= kept.size()) {
        throw std::out_of_range("invalid array<T, N> subscript");
    }
    return kept[k].get([k] {
        const std::size_t exponent = std::size_t{1} << k;
        if (exponent < big_uint::pow5_table.size()) {
            return std::make_unique<const big_uint>(big_uint::pow5_table[exponent]);
        }
        const big_uint& root = pow5Square(k - 1);
        auto square = std::make_unique<big_uint>(big_uint::make_uninitialized(2 * root.size()));
        square->multiply(root, root);
        square->trim();
        return std::unique_ptr<const big_uint>(std::move(square));
    });
}

} // namespace orv
