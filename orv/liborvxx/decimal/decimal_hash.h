// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Hashes of decimal numbers, for `std::unordered_map` and its kin.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_HASH_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_HASH_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"

#include <cstddef>
#include <functional>

namespace orv::decimal {

/// \name Hash of a value
/// Equal numbers have one hash: 1.5 and 1.50, 0 and -0, also numbers of different widths. All NaNs
/// have one. Hashes may change with the version of the library.
/// @{
ORVXX_API std::size_t hash_value(const decimal32& x) noexcept;
ORVXX_API std::size_t hash_value(const decimal64& x) noexcept;
ORVXX_API std::size_t hash_value(const decimal128& x) noexcept;
/// @}

} // namespace orv::decimal

/// `hash_value`.
template <>
struct std::hash<orv::decimal::decimal32> {
    std::size_t operator()(const orv::decimal::decimal32& x) const noexcept {
        return orv::decimal::hash_value(x);
    }
};

/// `hash_value`.
template <>
struct std::hash<orv::decimal::decimal64> {
    std::size_t operator()(const orv::decimal::decimal64& x) const noexcept {
        return orv::decimal::hash_value(x);
    }
};

/// `hash_value`.
template <>
struct std::hash<orv::decimal::decimal128> {
    std::size_t operator()(const orv::decimal::decimal128& x) const noexcept {
        return orv::decimal::hash_value(x);
    }
};

#endif
