// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::numeric_limits` of the decimal types.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_LIMITS_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_LIMITS_H

#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/decimal/decimal_traits.h"

#include <limits>

#include "orv/liborvxx/base/macros_push.h"

namespace orv::decimal::detail {

/// What the limits of the three types have in common. Digits count to the base 10, and exponents as
/// those of the binary types do: the least for which 10^(exponent - 1) is normal, and the greatest
/// for which it is finite.
template <class T>
class DecimalLimits {
    using Layout = LayoutOf<T>;

public:
    static constexpr bool is_specialized = true;
    static constexpr bool is_signed = true;
    static constexpr bool is_integer = false;
    static constexpr bool is_exact = false;
    static constexpr bool has_infinity = true;
    static constexpr bool has_quiet_NaN = true;
    static constexpr bool has_signaling_NaN = true;
    static constexpr std::float_denorm_style has_denorm = std::denorm_present;
    static constexpr bool has_denorm_loss = false;
    static constexpr std::float_round_style round_style = std::round_to_nearest;
    static constexpr bool is_iec559 = true;
    static constexpr bool is_bounded = true;
    static constexpr bool is_modulo = false;
    static constexpr int digits = Layout::DIGITS;
    static constexpr int digits10 = Layout::DIGITS;
    static constexpr int max_digits10 = Layout::DIGITS;
    static constexpr int radix = 10;
    static constexpr int min_exponent = Layout::MIN_EXPONENT + Layout::DIGITS;
    static constexpr int min_exponent10 = min_exponent - 1;
    static constexpr int max_exponent = Layout::MAX_EXPONENT + Layout::DIGITS;
    static constexpr int max_exponent10 = max_exponent - 1;
    static constexpr bool traps = false;
    static constexpr bool tinyness_before = true;

    /// The least positive normal number.
    static constexpr T min() noexcept { return decimalOf<T>({1, 0}, min_exponent10); }
    static constexpr T max() noexcept {
        return decimalOf<T>(Layout::LARGEST, Layout::MAX_EXPONENT);
    }
    static constexpr T lowest() noexcept { return -max(); }
    /// From 1 to the next number.
    static constexpr T epsilon() noexcept { return decimalOf<T>({1, 0}, 1 - Layout::DIGITS); }
    static constexpr T round_error() noexcept { return decimalOf<T>({5, 0}, -1); }
    static constexpr T infinity() noexcept { return Layout::infinity(false); }
    static constexpr T quiet_NaN() noexcept { return Layout::quietNan(); }
    static constexpr T signaling_NaN() noexcept { return Layout::signallingNan(); }
    /// The least positive number.
    static constexpr T denorm_min() noexcept { return decimalOf<T>({1, 0}, Layout::MIN_EXPONENT); }
};

} // namespace orv::decimal::detail

/// \cond the members are documented above
template <>
class std::numeric_limits<orv::decimal::decimal32>
    : public orv::decimal::detail::DecimalLimits<orv::decimal::decimal32> {};

template <>
class std::numeric_limits<orv::decimal::decimal64>
    : public orv::decimal::detail::DecimalLimits<orv::decimal::decimal64> {};

template <>
class std::numeric_limits<orv::decimal::decimal128>
    : public orv::decimal::detail::DecimalLimits<orv::decimal::decimal128> {};
/// \endcond

#include "orv/liborvxx/base/macros_pop.h"

#endif
