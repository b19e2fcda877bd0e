// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `1.50_d64`: decimal literals, exact to the last digit.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_LITERALS_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_LITERALS_H

#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/decimal/decimal_literal_value.h"

namespace orv {

inline namespace literals {

/// \name Decimal literals
/// The number as it is written: 1.50 is 150 * 10^-2, and 1e3 is 1 * 10^3. Nothing is computed at
/// run time. Separators between digits are skipped.
///
/// The program does not compile if the number does not fit exactly, nor for a literal that is
/// hexadecimal, binary, or octal by the looks of it (010). Zeros at the end and the exponent make
/// up for each other where one of them is too large: 1e370 is 10 * 10^369 as a decimal64.
/// \code
/// using namespace orv::literals;
/// constexpr auto price = 19.90_d64;
/// constexpr auto loss = -1'000.00_d64;
/// \endcode
/// @{
// Not consteval: within templates Clang 14 takes such an operator for a function to be called.
template <char... TEXT>
constexpr decimal::decimal32 operator""_d32() noexcept {
    return decimal::detail::LiteralOf<ODecimal32, TEXT...>::value();
}

template <char... TEXT>
constexpr decimal::decimal64 operator""_d64() noexcept {
    return decimal::detail::LiteralOf<ODecimal64, TEXT...>::value();
}

template <char... TEXT>
constexpr decimal::decimal128 operator""_d128() noexcept {
    return decimal::detail::LiteralOf<ODecimal128, TEXT...>::value();
}
/// @}

} // namespace literals

} // namespace orv

#endif
