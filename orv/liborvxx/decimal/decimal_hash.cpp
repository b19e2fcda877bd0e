// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Hashes of decimal numbers.
#include "orv/liborvxx/decimal/decimal_hash.h"

#include "orv/liborvxx/decimal/decimal_math.h"

#include <cstddef>
#include <cstdint>

namespace orv::decimal {

namespace {

// The finalising step of SplitMix64.
std::uint64_t mixed(std::uint64_t bits) noexcept {
    bits = (bits ^ bits >> 30U) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ bits >> 27U) * 0x94D049BB133111EBU;
    return bits ^ bits >> 31U;
}

// Drops all trailing zeros of n, which is not 0, and tells how many.
int dropZeros(std::uint64_t& n) noexcept {
    struct Step {
        std::uint64_t power;
        int zeros;
    };
    int dropped = 0;
    for (const auto& [power, zeros] : {Step{10000000000000000, 16}, Step{100000000, 8},
                                       Step{10000, 4}, Step{100, 2}, Step{10, 1}}) {
        if (n % power == 0) {
            n /= power;
            dropped += zeros;
        }
    }
    return dropped;
}

// Of a finite number other than 0, by the coefficient without trailing zeros and its exponent. One
// that needs more than 64 bits keeps those that `reduce` leaves, which no narrower number has.
template <class T>
std::uint64_t hashOfNumber(const T& x, detail::DecimalCoefficient coefficient) noexcept {
    using Layout = detail::LayoutOf<T>;
    int exponent = Layout::exponent(Layout::topWord(x.record()));
    if (coefficient.high == 0) {
        exponent += dropZeros(coefficient.low);
    }
    const std::uint64_t tail = static_cast<std::uint64_t>(exponent) << 1U | (signbit(x) ? 1U : 0U);
    return mixed(mixed(coefficient.low) ^ tail) ^ mixed(coefficient.high);
}

template <class T>
std::size_t hashOf(const T& x) noexcept {
    const std::size_t ofNan = 1;
    const std::size_t ofInfinity = 2; // 3 is that of -infinity
    if (isnan(x)) {
        return ofNan;
    }
    if (isinf(x)) {
        return ofInfinity + (signbit(x) ? 1 : 0);
    }
    if (T::Functions::isZero(x.record())) {
        return 0;
    }
    using Layout = detail::LayoutOf<T>;
    const auto coefficient = Layout::coefficient(x.record());
    if (coefficient.high == 0) {
        return hashOfNumber(x, coefficient);
    }
    const T reduced = reduce(x);
    return hashOfNumber(reduced, Layout::coefficient(reduced.record()));
}

} // namespace

std::size_t hash_value(const decimal32& x) noexcept {
    return hashOf(x);
}

std::size_t hash_value(const decimal64& x) noexcept {
    return hashOf(x);
}

std::size_t hash_value(const decimal128& x) noexcept {
    return hashOf(x);
}

} // namespace orv::decimal
