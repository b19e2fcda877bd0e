// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decimal formats in numbers, and records made of their fields: IEEE 754 with binary
/// integer encoding.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_FORMAT_H
#define ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_FORMAT_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"

#include <cstdint>

namespace orv::detail {

/// For each format: digits; the least and greatest exponent of the lowest digit, where the bias is
/// -MIN_EXPONENT; the 32-bit words that hold a coefficient; and
///
/// - `encode`: a finite number, the coefficient given as two halves. A coefficient that needs one
///   bit more than its field has is marked by two set bits behind the sign.
/// - `infinity`
template <class Decimal>
struct DecimalFormat;

template <>
struct DecimalFormat<decimal::decimal32> {
    static constexpr int DIGITS = 7;
    static constexpr int MIN_EXPONENT = -101;
    static constexpr int MAX_EXPONENT = 90;
    static constexpr unsigned WORDS = 1;

    static constexpr decimal::decimal32 encode(bool negative, int exponent, std::uint64_t low,
                                               std::uint64_t /*high*/) noexcept {
        const auto coefficient = static_cast<std::uint32_t>(low);
        const auto field = static_cast<std::uint32_t>(exponent - MIN_EXPONENT);
        const std::uint32_t magnitude = coefficient <= 0x7FFFFFU
                                            ? field << 23U | coefficient
                                            : (field | 0x300U) << 21U | (coefficient & 0x1FFFFFU);
        return ODecimal32{std::uint32_t{negative} << 31U | magnitude};
    }

    static constexpr decimal::decimal32 infinity(bool negative) noexcept {
        return ODecimal32{std::uint32_t{negative} << 31U | 0x78000000U};
    }
};

template <>
struct DecimalFormat<decimal::decimal64> {
    static constexpr int DIGITS = 16;
    static constexpr int MIN_EXPONENT = -398;
    static constexpr int MAX_EXPONENT = 369;
    static constexpr unsigned WORDS = 2;

    static constexpr decimal::decimal64 encode(bool negative, int exponent, std::uint64_t low,
                                               std::uint64_t /*high*/) noexcept {
        const auto field = static_cast<std::uint64_t>(exponent - MIN_EXPONENT);
        const std::uint64_t magnitude =
            low <= 0x1FFFFFFFFFFFFFU
                ? field << 53U | low
                : 0x6000000000000000U | field << 51U | (low & 0x7FFFFFFFFFFFFU);
        return ODecimal64{std::uint64_t{negative} << 63U | magnitude};
    }

    static constexpr decimal::decimal64 infinity(bool negative) noexcept {
        return ODecimal64{std::uint64_t{negative} << 63U | 0x7800000000000000U};
    }
};

template <>
struct DecimalFormat<decimal::decimal128> {
    static constexpr int DIGITS = 34;
    static constexpr int MIN_EXPONENT = -6176;
    static constexpr int MAX_EXPONENT = 6111;
    static constexpr unsigned WORDS = 4;

    static constexpr decimal::decimal128 encode(bool negative, int exponent, std::uint64_t low,
                                                std::uint64_t high) noexcept {
        const auto field = static_cast<std::uint64_t>(exponent - MIN_EXPONENT);
        return ODecimal128{low, std::uint64_t{negative} << 63U | field << 49U | high};
    }

    static constexpr decimal::decimal128 infinity(bool negative) noexcept {
        return ODecimal128{0, std::uint64_t{negative} << 63U | 0x7800000000000000U};
    }
};

} // namespace orv::detail

#endif
