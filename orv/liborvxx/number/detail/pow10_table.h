// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The top 128 bits of powers of ten, for reading and writing floating-point numbers.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_POW10_TABLE_H
#define ORV_LIBORVXX_NUMBER_DETAIL_POW10_TABLE_H

#include "orv/liborvxx/number/words/limb.h"

#include <cassert>
#include <cstddef>

namespace orv::detail {

/// \name The exponents in the table
/// Reading a double of up to 19 digits asks for -343 to 308, writing one for -292 to 324.
/// @{
inline constexpr int MIN_TABLE_POW10 = -351;
inline constexpr int MAX_TABLE_POW10 = 350;
/// @}

/// 10^MIN_TABLE_POW10 and so on upwards.
extern const words::Wide POW10_SIGNIFICANDS[MAX_TABLE_POW10 - MIN_TABLE_POW10 + 1];

/// The floor of log2(10^n), for \p n from -1233 to 1233: 1741647 / 2^19 is near enough to log2(10).
constexpr int floorLog2Pow10(int n) noexcept {
    return n * 1741647 >> 19;
}

/// The floor of log10(2^n), for \p n from -1650 to 1650: 315653 / 2^20 is near enough to log10(2).
constexpr int floorLog10Pow2(int n) noexcept {
    return n * 315653 >> 20;
}

/// The floor of 10^n / 2^(floorLog2Pow10(n) - 127), whose top bit is set: 10^n cut to 128 bits.
/// Exact for \p n from 0 to 55, the others are less than 1 too small.
/// \pre \p n is from MIN_TABLE_POW10 to MAX_TABLE_POW10
inline const words::Wide& pow10Significand(int n) noexcept {
    assert(n >= MIN_TABLE_POW10 && n <= MAX_TABLE_POW10);
    return POW10_SIGNIFICANDS[static_cast<std::size_t>(n - MIN_TABLE_POW10)];
}

} // namespace orv::detail

#endif
