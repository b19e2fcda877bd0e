// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers of 64 bits by their parts, and the special ones.
#ifndef ORV_TESTS_LIBORV_DECIMAL_DECIMAL_NUMBERS_H
#define ORV_TESTS_LIBORV_DECIMAL_DECIMAL_NUMBERS_H

#include "orv/liborv/decimal/decimal.h"

#include <cstdint>

namespace orvtest {

/// A number with a coefficient of less than 2^53.
constexpr ODecimal64 number(std::int64_t coefficient, int exponent) {
    const std::uint64_t sign = coefficient < 0 ? std::uint64_t{1} << 63U : 0;
    const auto magnitude = static_cast<std::uint64_t>(coefficient < 0 ? -coefficient : coefficient);
    return {sign | static_cast<std::uint64_t>(exponent + 398) << 53U | magnitude};
}

constexpr ODecimal64 ZERO = number(0, 0);
constexpr ODecimal64 MINUS_ZERO{0xB1C0000000000000};
constexpr ODecimal64 ONE = number(1, 0);
constexpr ODecimal64 LARGEST{0x77FB86F26FC0FFFF};
constexpr ODecimal64 INFINITE{0x7800000000000000};
constexpr ODecimal64 MINUS_INFINITE{0xF800000000000000};
constexpr ODecimal64 QUIET{0x7C00000000000123};      ///< a NaN with a payload
constexpr ODecimal64 SIGNALLING{0x7E00000000000789}; ///< likewise
constexpr ODecimal64 TOO_LARGE{0x6C77FFFFFFFFFFFF};  ///< a coefficient above the largest
constexpr ODecimal64 NAN_RESULT{0x7C00000000000000};

} // namespace orvtest

inline bool operator==(ODecimal32 a, ODecimal32 b) {
    return a.bits == b.bits;
}

inline bool operator==(ODecimal64 a, ODecimal64 b) {
    return a.bits == b.bits;
}

inline bool operator==(ODecimal128 a, ODecimal128 b) {
    return a.low == b.low && a.high == b.high;
}

#endif
