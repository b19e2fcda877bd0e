// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What functions over all widths ask of their operands.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_TRAITS_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_TRAITS_H

#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/decimal/decimal_layout.h"

#include <concepts>
#include <type_traits>

namespace orv::decimal::detail {

/// One of the three classes.
template <class T>
concept DecimalClass =
    std::same_as<T, decimal32> || std::same_as<T, decimal64> || std::same_as<T, decimal128>;

/// The layout of the record of a class.
template <DecimalClass T>
using LayoutOf = DecimalLayout<typename T::Functions::Record>;

/// \p coefficient * 10^exponent, which are in range.
template <DecimalClass T>
constexpr T decimalOf(const DecimalCoefficient& coefficient, int exponent) noexcept {
    return LayoutOf<T>::encode(false, exponent, coefficient.low, coefficient.high);
}

template <class... T>
struct CommonDecimalOf {
    template <class Decimal>
    static constexpr bool HAS = (std::same_as<Decimal, T> || ...);
    using Widest =
        std::conditional_t<HAS<decimal128>, decimal128,
                           std::conditional_t<HAS<decimal64>, decimal64,
                                              std::conditional_t<HAS<decimal32>, decimal32, void>>>;
    static constexpr bool EXISTS =
        !std::is_void_v<Widest> && (std::is_convertible_v<T, Widest> && ...);
};

/// Operands of which one is of a class that all others convert to without loss: what the operators
/// accept too.
template <class... T>
concept DecimalOperands = CommonDecimalOf<T...>::EXISTS;

/// The same, said of the last of them.
template <class T, class... Others>
concept DecimalOperandWith = DecimalOperands<Others..., T>;

/// That class.
template <class... T>
requires DecimalOperands<T...>
using CommonDecimal = typename CommonDecimalOf<T...>::Widest;

} // namespace orv::decimal::detail

#endif
