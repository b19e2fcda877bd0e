// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a decimal number is made of, and what kind of value it is.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_ACCESS_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_ACCESS_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/decimal/decimal_traits.h"
#include "orv/liborvxx/number/big_uint.h"

#include <cstddef>

namespace orv::decimal {

/// \name Coefficient
/// The digits as an integer, without sign and exponent: 150 of 1.50. Of an infinity or a NaN: 0.
///
/// The bits as they are: a coefficient above the largest of the format, which counts as 0 in
/// arithmetic, is returned unchanged. But that of a decimal128 in the form with the mark, where
/// none is valid, is 0. A big_uint of at most 4 words: nothing is allocated.
/// @{
ORVXX_API std::size_t coefficient(const decimal32& x) noexcept;
ORVXX_API std::size_t coefficient(const decimal64& x) noexcept;
ORVXX_API big_uint coefficient(const decimal128& x) noexcept;
/// @}

/// \name Exponent of the lowest digit
/// -2 of 1.50. Of an infinity or a NaN: `INT_MIN`, and `errno` is `EDOM`.
/// @{
ORVXX_API int quantexp(const decimal32& x) noexcept;
ORVXX_API int quantexp(const decimal64& x) noexcept;
ORVXX_API int quantexp(const decimal128& x) noexcept;
/// @}

/// What `fp_classify` returns. The numbers are fixed, and not those of the macros `FP_ZERO` and so
/// on, which differ between platforms.
enum fp_class : int {
    fp_class_zero = 0,
    fp_class_subnormal = 1, ///< less than the least power of ten with all digits behind it
    fp_class_normal = 2,
    fp_class_infinite = 3,
    fp_class_nan = 4 ///< quiet or signalling
};

/// \name Kind of value
/// A number of `fp_class`.
/// @{
ORVXX_API int fp_classify(const decimal32& x) noexcept;
ORVXX_API int fp_classify(const decimal64& x) noexcept;
ORVXX_API int fp_classify(const decimal128& x) noexcept;
/// @}

/// Whether \p x is a NaN, quiet or signalling.
template <detail::DecimalClass T>
constexpr bool isnan(const T& x) noexcept {
    using Layout = detail::LayoutOf<T>;
    return Layout::isNan(Layout::topWord(x.record()));
}

/// Whether \p x is infinite, of either sign.
template <detail::DecimalClass T>
constexpr bool isinf(const T& x) noexcept {
    using Layout = detail::LayoutOf<T>;
    return Layout::isInfinite(Layout::topWord(x.record()));
}

/// Whether \p x is neither infinite nor a NaN.
template <detail::DecimalClass T>
constexpr bool isfinite(const T& x) noexcept {
    using Layout = detail::LayoutOf<T>;
    return Layout::isFinite(Layout::topWord(x.record()));
}

/// Whether \p x is none of zero, subnormal, infinite and NaN.
template <detail::DecimalClass T>
bool isnormal(const T& x) noexcept {
    return fp_classify(x) == fp_class_normal;
}

/// Whether the sign bit is set: true also for -0 and for a NaN that has it.
template <detail::DecimalClass T>
constexpr bool signbit(const T& x) noexcept {
    using Layout = detail::LayoutOf<T>;
    return Layout::isNegative(Layout::topWord(x.record()));
}

/// Whether both have one exponent, or both are infinite, or both are NaNs (IEEE 754-2008, 5.7.3).
/// Of different widths, the narrower number is widened first.
template <class X, detail::DecimalOperandWith<X> Y>
bool same_quantum(const X& x, const Y& y) noexcept {
    using Decimal = detail::CommonDecimal<X, Y>;
    return Decimal::Functions::sameQuantum(Decimal(x).record(), Decimal(y).record()) != 0;
}

/// Whether \p x is not behind \p y in the order of all values (IEEE 754-2008, 5.10): by value; -0
/// before 0, 1.00 before 1.0, NaNs at the ends.
template <class X, detail::DecimalOperandWith<X> Y>
bool total_order(const X& x, const Y& y) noexcept {
    using Decimal = detail::CommonDecimal<X, Y>;
    return Decimal::Functions::totalOrder(Decimal(x).record(), Decimal(y).record()) != 0;
}

} // namespace orv::decimal

#endif
