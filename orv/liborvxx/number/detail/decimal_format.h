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
#include <limits>

namespace orv::detail {

/// For each format: digits; the least and greatest exponent of the lowest digit, where the bias is
/// -MIN_EXPONENT; the 32-bit words that hold a coefficient; and
///
/// - `encode`: a finite number, the coefficient given as two halves.
/// - `infinity`
template <class Decimal>
struct DecimalFormat;

/// What the two formats of one integer share. The coefficient's field has FIELD bits; one that
/// needs a bit more is marked by two set bits behind the sign, and leaves out its own top three,
/// 100.
template <class Decimal, class Record, int FIELD_BITS, int LEAST_EXPONENT>
struct OneIntegerFormat {
    using Bits = decltype(Record::bits);
    static constexpr int FIELD = FIELD_BITS;
    static constexpr int WIDTH = std::numeric_limits<Bits>::digits;
    static constexpr int MIN_EXPONENT = LEAST_EXPONENT;
    static constexpr unsigned WORDS = WIDTH / 32;

    static constexpr Decimal encode(bool negative, int exponent, std::uint64_t low,
                                    std::uint64_t /*high*/) noexcept {
        const auto coefficient = static_cast<Bits>(low);
        const auto field = static_cast<Bits>(exponent - MIN_EXPONENT);
        if (coefficient >> FIELD == 0) {
            return withSign(negative, field << FIELD | coefficient);
        }
        constexpr Bits LOW_BITS = (Bits{1} << (FIELD - 2)) - 1;
        return withSign(negative,
                        Bits{3} << (WIDTH - 3) | field << (FIELD - 2) | (coefficient & LOW_BITS));
    }

    static constexpr Decimal infinity(bool negative) noexcept {
        return withSign(negative, Bits{0x78} << (WIDTH - 8));
    }

private:
    static constexpr Decimal withSign(bool negative, Bits magnitude) noexcept {
        return Record{Bits{negative} << (WIDTH - 1) | magnitude};
    }
};

template <>
struct DecimalFormat<decimal::decimal32>
    : OneIntegerFormat<decimal::decimal32, ODecimal32, 23, -101> {
    static constexpr int DIGITS = 7;
    static constexpr int MAX_EXPONENT = 90;
};

template <>
struct DecimalFormat<decimal::decimal64>
    : OneIntegerFormat<decimal::decimal64, ODecimal64, 53, -398> {
    static constexpr int DIGITS = 16;
    static constexpr int MAX_EXPONENT = 369;
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
