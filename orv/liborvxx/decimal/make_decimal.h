// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from an integer and a power of ten.
///
/// What is in range is put together with a few shifts; where the exponent is a constant, not even a
/// test remains for `int` and `unsigned`.
///
/// \code
/// const orv::decimal::decimal64 price = orv::decimal::_make_decimal64(1990, -2); // 19.90
/// \endcode
#ifndef ORV_LIBORVXX_DECIMAL_MAKE_DECIMAL_H
#define ORV_LIBORVXX_DECIMAL_MAKE_DECIMAL_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal_layout.h"

#include <cstdint>
#include <limits>
#include <type_traits>

#include "orv/liborvxx/base/macros_push.h"

namespace orv::decimal {

namespace detail {

/// What is not in range: \p coefficient is rounded to the digits of the format (for a decimal32
/// first to 16, then to 7), and its exponent moved. `errno` is `ERANGE` if the result is infinite.
/// @{
ORVXX_API ODecimal32 makeDecimal32OutOfRange(std::int64_t coefficient, int exponent) noexcept;
ORVXX_API ODecimal32 makeDecimal32OutOfRange(std::uint64_t coefficient, int exponent) noexcept;
ORVXX_API ODecimal64 makeDecimal64OutOfRange(std::int64_t coefficient, int exponent) noexcept;
ORVXX_API ODecimal64 makeDecimal64OutOfRange(std::uint64_t coefficient, int exponent) noexcept;
ORVXX_API ODecimal128 makeDecimal128OutOfRange(std::int64_t coefficient, int exponent) noexcept;
ORVXX_API ODecimal128 makeDecimal128OutOfRange(std::uint64_t coefficient, int exponent) noexcept;
/// @}

/// \p n in 64 bits, with its sign.
template <class T>
constexpr auto widened(T n) noexcept {
    return static_cast<std::conditional_t<std::is_signed_v<T>, std::int64_t, std::uint64_t>>(n);
}

/// Whether both fit as they are.
template <class Record, class T>
constexpr bool isInRange(T coefficient, int exponent) noexcept {
    using Layout = DecimalLayout<Record>;
    constexpr std::uint64_t MAX = Layout::MAX_COEFFICIENT;
    constexpr auto EXPONENTS =
        static_cast<unsigned>(Layout::MAX_EXPONENT) - static_cast<unsigned>(Layout::MIN_EXPONENT);
    const unsigned biased =
        static_cast<unsigned>(exponent) - static_cast<unsigned>(Layout::MIN_EXPONENT);
    if (biased > EXPONENTS) {
        return false;
    }
    constexpr std::uint64_t GREATEST =
        std::uint64_t{std::numeric_limits<T>::max()} + (std::is_signed_v<T> ? 1 : 0);
    if constexpr (GREATEST <= MAX) {
        return true;
    } else if constexpr (std::is_signed_v<T>) {
        // One comparison: -MAX to MAX becomes 0 to 2 * MAX.
        return static_cast<std::uint64_t>(widened(coefficient)) + MAX <= 2 * MAX;
    } else {
        return coefficient <= MAX;
    }
}

/// The record, both being in range. The magnitude has the width of its type, so that the compiler
/// sees which coefficients never need the large form, and takes no branch.
template <class Record, class T>
constexpr Record makeInRange(T coefficient, int exponent) noexcept {
    using Unsigned = std::make_unsigned_t<T>;
    const bool negative = coefficient < T{};
    const auto mask = static_cast<Unsigned>(Unsigned{0} - Unsigned{negative});
    const auto magnitude =
        static_cast<Unsigned>((static_cast<Unsigned>(coefficient) ^ mask) - mask);
    return DecimalLayout<Record>::encode(negative, exponent, magnitude);
}

template <class T>
constexpr ODecimal32 makeDecimal32(T coefficient, int exponent) noexcept {
    return isInRange<ODecimal32>(coefficient, exponent)
               ? makeInRange<ODecimal32>(coefficient, exponent)
               : makeDecimal32OutOfRange(widened(coefficient), exponent);
}

template <class T>
constexpr ODecimal64 makeDecimal64(T coefficient, int exponent) noexcept {
    return isInRange<ODecimal64>(coefficient, exponent)
               ? makeInRange<ODecimal64>(coefficient, exponent)
               : makeDecimal64OutOfRange(widened(coefficient), exponent);
}

template <class T>
constexpr ODecimal128 makeDecimal128(T coefficient, int exponent) noexcept {
    return isInRange<ODecimal128>(coefficient, exponent)
               ? makeInRange<ODecimal128>(coefficient, exponent)
               : makeDecimal128OutOfRange(widened(coefficient), exponent);
}

} // namespace detail

/// \name coefficient * 10^exponent with 7 digits
/// As it is if the coefficient is from -9999999 to 9999999 and the exponent from -101 to 90.
/// Otherwise the coefficient is rounded to 16 digits, its exponent moved, and the result rounded to
/// 7 digits, each time half to even: 1 and 91 give 10 * 10^90. On overflow infinity, and `errno` is
/// `ERANGE`.
/// @{
constexpr ODecimal32 _make_decimal32(int coefficient, int exponent) noexcept {
    return detail::makeDecimal32(coefficient, exponent);
}
constexpr ODecimal32 _make_decimal32(unsigned coefficient, int exponent) noexcept {
    return detail::makeDecimal32(coefficient, exponent);
}
constexpr ODecimal32 _make_decimal32(long coefficient, int exponent) noexcept {
    return detail::makeDecimal32(coefficient, exponent);
}
constexpr ODecimal32 _make_decimal32(unsigned long coefficient, int exponent) noexcept {
    return detail::makeDecimal32(coefficient, exponent);
}
constexpr ODecimal32 _make_decimal32(long long coefficient, int exponent) noexcept {
    return detail::makeDecimal32(coefficient, exponent);
}
constexpr ODecimal32 _make_decimal32(unsigned long long coefficient, int exponent) noexcept {
    return detail::makeDecimal32(coefficient, exponent);
}
/// @}

/// \name coefficient * 10^exponent with 16 digits
/// As it is if the coefficient has at most 16 digits and the exponent is from -398 to 369.
/// Otherwise the coefficient is rounded to 16 digits, half to even, and its exponent moved as
/// `orvDec64ScaleB` does. On overflow infinity, and `errno` is `ERANGE`.
/// @{
constexpr ODecimal64 _make_decimal64(int coefficient, int exponent) noexcept {
    return detail::makeDecimal64(coefficient, exponent);
}
constexpr ODecimal64 _make_decimal64(unsigned coefficient, int exponent) noexcept {
    return detail::makeDecimal64(coefficient, exponent);
}
constexpr ODecimal64 _make_decimal64(long coefficient, int exponent) noexcept {
    return detail::makeDecimal64(coefficient, exponent);
}
constexpr ODecimal64 _make_decimal64(unsigned long coefficient, int exponent) noexcept {
    return detail::makeDecimal64(coefficient, exponent);
}
constexpr ODecimal64 _make_decimal64(long long coefficient, int exponent) noexcept {
    return detail::makeDecimal64(coefficient, exponent);
}
constexpr ODecimal64 _make_decimal64(unsigned long long coefficient, int exponent) noexcept {
    return detail::makeDecimal64(coefficient, exponent);
}
/// @}

/// \name coefficient * 10^exponent with 34 digits
/// As it is if the exponent is from -6176 to 6111: every coefficient fits. Otherwise the exponent
/// is moved as `orvDec128ScaleB` does. On overflow infinity, and `errno` is `ERANGE`.
/// @{
constexpr ODecimal128 _make_decimal128(int coefficient, int exponent) noexcept {
    return detail::makeDecimal128(coefficient, exponent);
}
constexpr ODecimal128 _make_decimal128(unsigned coefficient, int exponent) noexcept {
    return detail::makeDecimal128(coefficient, exponent);
}
constexpr ODecimal128 _make_decimal128(long coefficient, int exponent) noexcept {
    return detail::makeDecimal128(coefficient, exponent);
}
constexpr ODecimal128 _make_decimal128(unsigned long coefficient, int exponent) noexcept {
    return detail::makeDecimal128(coefficient, exponent);
}
constexpr ODecimal128 _make_decimal128(long long coefficient, int exponent) noexcept {
    return detail::makeDecimal128(coefficient, exponent);
}
constexpr ODecimal128 _make_decimal128(unsigned long long coefficient, int exponent) noexcept {
    return detail::makeDecimal128(coefficient, exponent);
}
/// @}

} // namespace orv::decimal

#include "orv/liborvxx/base/macros_pop.h"

#endif
