// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the three decimal classes have in common: operators, and conversions from and to
/// integers and binary floating point.
///
/// Everything is inlined down to the calls of the C library (liborv/decimal/arithmetic.h, which
/// tells how results are rounded and which exponent they have).
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_OPERATORS_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_OPERATORS_H

#include "orv/liborvxx/decimal/decimal_functions.h"
#include "orv/liborvxx/decimal/decimal_layout.h"

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "orv/liborvxx/base/macros_push.h"

namespace orv::decimal::detail {

/// Integers that are numbers: neither truth values nor characters.
template <class T>
concept DecimalInteger = std::integral<T> && sizeof(T) <= sizeof(std::uint64_t) &&
                         !std::same_as<std::remove_cv_t<T>, bool> &&
                         !std::same_as<std::remove_cv_t<T>, char> &&
                         !std::same_as<std::remove_cv_t<T>, wchar_t> &&
                         !std::same_as<std::remove_cv_t<T>, char8_t> &&
                         !std::same_as<std::remove_cv_t<T>, char16_t> &&
                         !std::same_as<std::remove_cv_t<T>, char32_t>;

/// Whether a Record holds every value of an integer type exactly.
template <class Record, DecimalInteger T>
inline constexpr bool HOLDS_ALL_OF =
    std::uint64_t{std::numeric_limits<T>::max()} <= DecimalLayout<Record>::MAX_COEFFICIENT;

/// \p n with exponent 0; rounded where it has more digits than a Record, which is no matter for
/// the compiler to compute.
template <class Record, DecimalInteger T>
constexpr Record recordOf(T n) noexcept {
    using Layout = DecimalLayout<Record>;
    const bool negative = n < T{};
    const auto bits = static_cast<std::uint64_t>(n);
    const std::uint64_t magnitude = negative ? 0 - bits : bits;
    if (magnitude <= Layout::MAX_COEFFICIENT) {
        return Layout::encode(negative, 0, magnitude);
    }
    if constexpr (std::is_signed_v<T>) {
        return DecimalFunctions<Record>::fromInt64(n);
    } else {
        return DecimalFunctions<Record>::fromUint64(n);
    }
}

/// \p x without the digits behind the point; the nearest limit if that is out of range, 0 for a
/// NaN.
template <DecimalInteger T, class Record>
T integerOf(const Record& x) noexcept {
    using Functions = DecimalFunctions<Record>;
    using Limits = std::numeric_limits<T>;
    if (Functions::isNan(x)) {
        return 0;
    }
    if constexpr (std::is_signed_v<T>) {
        const std::int64_t n = Functions::toInt64(x);
        if (n == std::numeric_limits<std::int64_t>::min()) { // may stand for all that is too large
            return Functions::isSigned(x) ? Limits::min() : Limits::max();
        }
        return n < Limits::min()   ? Limits::min()
               : n > Limits::max() ? Limits::max()
                                   : static_cast<T>(n);
    } else {
        constexpr std::uint64_t FAILURE = std::uint64_t{1} << 63U;
        if (Functions::isSigned(x)) {
            return 0;
        }
        const std::uint64_t n = Functions::toUint64(x);
        if (n == FAILURE) { // a value of its own, if only of the widest type
            const Record value = Functions::roundExact(x, ORV_DEC_TOWARD_ZERO);
            return Functions::quietEqual(value, recordOf<Record>(FAILURE)) != 0 &&
                           FAILURE <= Limits::max()
                       ? static_cast<T>(FAILURE)
                       : Limits::max();
        }
        return n > Limits::max() ? Limits::max() : static_cast<T>(n);
    }
}

/// The base of the decimal classes: their operators, found by the type of the operands. Operands
/// may be mixed where one converts to the other without loss.
template <class Decimal>
class DecimalOperators {
public:
    /// \name Arithmetic
    /// Rounded once, half to even (IEEE 754-2008, 5.4.1).
    /// @{
    friend Decimal operator+(const Decimal& x, const Decimal& y) noexcept {
        return Decimal::Functions::add(x.record(), y.record());
    }
    friend Decimal operator-(const Decimal& x, const Decimal& y) noexcept {
        return Decimal::Functions::subtract(x.record(), y.record());
    }
    friend Decimal operator*(const Decimal& x, const Decimal& y) noexcept {
        return Decimal::Functions::multiply(x.record(), y.record());
    }
    friend Decimal operator/(const Decimal& x, const Decimal& y) noexcept {
        return Decimal::Functions::divide(x.record(), y.record());
    }
    friend Decimal& operator+=(Decimal& x, const Decimal& y) noexcept { return x = x + y; }
    friend Decimal& operator-=(Decimal& x, const Decimal& y) noexcept { return x = x - y; }
    friend Decimal& operator*=(Decimal& x, const Decimal& y) noexcept { return x = x * y; }
    friend Decimal& operator/=(Decimal& x, const Decimal& y) noexcept { return x = x / y; }
    friend Decimal& operator++(Decimal& x) noexcept { return x = x + Decimal(1); }
    friend Decimal& operator--(Decimal& x) noexcept { return x = x - Decimal(1); }
    friend Decimal operator++(Decimal& x, int) noexcept {
        const Decimal before = x;
        ++x;
        return before;
    }
    friend Decimal operator--(Decimal& x, int) noexcept {
        const Decimal before = x;
        --x;
        return before;
    }
    /// @}
    /// \name Sign
    /// A change of the sign bit and of nothing else: -0 has the sign that 0 - 0 has not.
    /// @{
    friend constexpr Decimal operator+(const Decimal& x) noexcept { return x; }
    friend constexpr Decimal operator-(const Decimal& x) noexcept {
        using Layout = DecimalLayout<typename Decimal::Functions::Record>;
        return Layout::withTopWord(x.record(), Layout::topWord(x.record()) ^ Layout::SIGN);
    }
    /// @}
    /// \name Comparison
    /// By value: 1.0 equals 1.00, and 0 equals -0. A NaN is equal to nothing and unordered.
    /// @{
    friend bool operator==(const Decimal& x, const Decimal& y) noexcept {
        return Decimal::Functions::quietEqual(x.record(), y.record()) != 0;
    }
    friend std::partial_ordering operator<=>(const Decimal& x, const Decimal& y) noexcept {
        const int order = Decimal::Functions::compare(x.record(), y.record());
        return order == ORV_DEC_UNORDERED ? std::partial_ordering::unordered : order <=> 0;
    }
    // One call each, where <=> may need three.
    friend bool operator<(const Decimal& x, const Decimal& y) noexcept {
        return Decimal::Functions::quietLess(x.record(), y.record()) != 0;
    }
    friend bool operator<=(const Decimal& x, const Decimal& y) noexcept {
        return Decimal::Functions::quietLessEqual(x.record(), y.record()) != 0;
    }
    friend bool operator>(const Decimal& x, const Decimal& y) noexcept { return y < x; }
    friend bool operator>=(const Decimal& x, const Decimal& y) noexcept { return y <= x; }
    /// @}
};

} // namespace orv::decimal::detail

#include "orv/liborvxx/base/macros_pop.h"

#endif
