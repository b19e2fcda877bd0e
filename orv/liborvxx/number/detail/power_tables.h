// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The powers of ten and of five that are at hand, and what highest bits tell of logarithms.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_POWER_TABLES_H
#define ORV_LIBORVXX_NUMBER_DETAIL_POWER_TABLES_H

#include "orv/liborvxx/number/big_uint.h"

#include <array>
#include <cstdint>

namespace orv {

/// Constants of `big_uint`. Those of powers of ten are made by the compiler: they cost nothing at
/// load, and are never torn down.
class big_uint_tables {
public:
    /// How many powers of ten there are: all of up to 256 bits.
    static constexpr unsigned int POW10_COUNT = 78;
    /// How many numbers 10^(2^k) there are.
    static constexpr unsigned int POW10_SQUARE_COUNT = 13;
    /// How many numbers 5^(2^k) there are.
    static constexpr unsigned int POW5_SQUARE_COUNT = 15;

    /// 10^i in its minimal width.
    /// \pre \p i is below `POW10_COUNT`
    static const big_uint& pow10(unsigned int i) noexcept;

    /// 10^(2^k) in its minimal width.
    /// \pre \p k is below `POW10_SQUARE_COUNT`
    static const big_uint& pow10Square(unsigned int k) noexcept;

    /// 5^(2^k) in its minimal width: made on first use, by however many threads, and kept for the
    /// life of the process.
    /// \exception std::out_of_range "invalid array<T, N> subscript" for a \p k that has no entry
    static const big_uint& pow5Square(unsigned int k);

    /// For each highest set bit: if all numbers that have it lie within one decade, the floor of
    /// their log10. Else -e, where 10^e has that highest bit too: numbers below 10^e have e - 1,
    /// the others e.
    static const std::array<std::int32_t, 256> log10Table;

private:
    union Powers;
    union Squares;
    static const Powers powers;
    static const Squares squares;
};

} // namespace orv

#endif
