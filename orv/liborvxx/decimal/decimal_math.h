// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Mathematical functions of decimals, named as those of the C library.
///
/// Results are the exact ones, rounded once; half to even where no mode is given. NaN among the
/// operands gives a quiet NaN unless a function says otherwise. Operands may be of different
/// widths, or integers, as those of the operators; the result is of the widest.
///
/// `errno` is set by the functions that say so, cleared by none. Nothing is thrown or allocated.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_MATH_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_MATH_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/decimal/decimal_access.h"
#include "orv/liborvxx/decimal/decimal_traits.h"

#include <climits>
#include <cstdint>

#include "orv/liborvxx/base/macros_push.h"

namespace orv::decimal {

/// Where a result goes that lies between two numbers (IEEE 754-2008, 4.3).
enum class rounding : int {
    half_even = ORV_DEC_HALF_EVEN,     ///< the nearest, a tie to the even digit
    floor = ORV_DEC_FLOOR,             ///< downward
    ceiling = ORV_DEC_CEILING,         ///< upward
    toward_zero = ORV_DEC_TOWARD_ZERO, ///< the digits behind are dropped
    half_away = ORV_DEC_HALF_AWAY      ///< the nearest, a tie away from zero: commercial rounding
};

/// \name Arithmetic
/// @{

/// The square root; a NaN of a negative number, -0 of -0.
template <detail::DecimalClass T>
T sqrt(const T& x) noexcept {
    return T::Functions::squareRoot(x.record());
}

/// x * y + z, rounded once.
template <class X, class Y, detail::DecimalOperandWith<X, Y> Z>
detail::CommonDecimal<X, Y, Z> fma(const X& x, const Y& y, const Z& z) noexcept {
    using Decimal = detail::CommonDecimal<X, Y, Z>;
    return Decimal::Functions::fusedMultiplyAdd(Decimal(x).record(), Decimal(y).record(),
                                                Decimal(z).record());
}

/// x - y * n, n being x / y rounded toward zero: exact, with the sign of \p x. NaN if \p x is
/// infinite or \p y is 0.
/// @{
ORVXX_API decimal32 fmod(const decimal32& x, const decimal32& y) noexcept;
ORVXX_API decimal64 fmod(const decimal64& x, const decimal64& y) noexcept;
ORVXX_API decimal128 fmod(const decimal128& x, const decimal128& y) noexcept;
/// @}

/// x - y * n, n being the integer nearest to x / y, ties to even: exact, and in magnitude at most
/// half of \p y. NaN if \p x is infinite or \p y is 0.
template <class X, detail::DecimalOperandWith<X> Y>
detail::CommonDecimal<X, Y> remainder(const X& x, const Y& y) noexcept {
    using Decimal = detail::CommonDecimal<X, Y>;
    return Decimal::Functions::remainder(Decimal(x).record(), Decimal(y).record());
}
/// @}

/// \name Sign
/// @{

/// The magnitude: the sign bit cleared, of a NaN too.
template <detail::DecimalClass T>
constexpr T abs(const T& x) noexcept {
    using Layout = detail::LayoutOf<T>;
    return Layout::withTopWord(x.record(), Layout::topWord(x.record()) & ~Layout::SIGN);
}

/// The same.
template <detail::DecimalClass T>
constexpr T fabs(const T& x) noexcept {
    return abs(x);
}

/// \p x with the sign of \p sign.
template <class X, detail::DecimalOperandWith<X> Y>
constexpr detail::CommonDecimal<X, Y> copysign(const X& x, const Y& sign) noexcept {
    using Decimal = detail::CommonDecimal<X, Y>;
    const Decimal magnitude = abs(Decimal(x));
    return signbit(Decimal(sign)) ? -magnitude : magnitude;
}
/// @}

/// \name Exponent
/// @{

/// \p x as a number with a magnitude from 0.1 to below 1, and a power of ten, which goes to
/// \p exponent: 1234 gives 0.1234 and 4. Zero, infinity and NaN are returned as they are, with an
/// exponent of 0.
/// @{
ORVXX_API decimal32 frexp(const decimal32& x, int* exponent) noexcept;
ORVXX_API decimal64 frexp(const decimal64& x, int* exponent) noexcept;
ORVXX_API decimal128 frexp(const decimal128& x, int* exponent) noexcept;
/// @}

/// The exponent of the first significant digit: -1 of 0.5, 3 of 1234. `INT_MIN` of zero and NaN,
/// `INT_MAX` of infinity.
template <detail::DecimalClass T>
int ilogb(const T& x) noexcept {
    return T::Functions::logB(x.record());
}

/// The same as a decimal. -infinity of zero, infinity of infinity, NaN of NaN.
template <detail::DecimalClass T>
T logb(const T& x) noexcept {
    const int n = ilogb(x);
    if (isnan(x)) {
        return x + x; // quiet
    }
    return n == INT_MAX || n == INT_MIN ? T(detail::LayoutOf<T>::infinity(n == INT_MIN)) : T(n);
}

/// x * 10^n. Infinity on overflow.
template <detail::DecimalClass T>
T scalbn(const T& x, int n) noexcept {
    return T::Functions::scaleB(x.record(), n);
}

/// \p x with the exponent of \p y: digits are rounded away, or zeros appended. A NaN if \p x has
/// too many digits for that, or if just one of the two is infinite (IEEE 754-2008, 5.3.2).
template <class X, detail::DecimalOperandWith<X> Y>
detail::CommonDecimal<X, Y> quantize(const X& x, const Y& y,
                                     rounding mode = rounding::half_even) noexcept {
    using Decimal = detail::CommonDecimal<X, Y>;
    return Decimal::Functions::quantize(Decimal(x).record(), Decimal(y).record(),
                                        static_cast<int>(mode));
}

/// \p x with \p scale digits behind the point: 2.345 and 2 give 2.34; a negative scale rounds to
/// tens, hundreds and so on: 1250 and -2 give 12 * 10^2.
///
/// Unlike with `quantize` no number fails: one without digits to lose, to which not so many zeros
/// can be appended, is returned as it is, and so is infinity. A power of ten beyond the greatest
/// exponent is made with zeros, or is infinite if it overflows.
/// @{
ORVXX_API decimal32 round(const decimal32& x, int scale,
                          rounding mode = rounding::half_even) noexcept;
ORVXX_API decimal64 round(const decimal64& x, int scale,
                          rounding mode = rounding::half_even) noexcept;
ORVXX_API decimal128 round(const decimal128& x, int scale,
                           rounding mode = rounding::half_even) noexcept;
/// @}

/// The same number with the fewest digits: without trailing zeros, but for those that the greatest
/// exponent calls for. 0 and -0 have an exponent of 0.
template <detail::DecimalClass T>
T reduce(const T& x) noexcept {
    using Layout = detail::LayoutOf<T>;
    if (T::Functions::isZero(x.record())) {
        return Layout::encode(signbit(x), 0, 0);
    }
    // An exact quotient has the exponent nearest to the difference of the operands' exponents: 1
    // with all its zeros asks for more than there are to drop.
    constexpr T ONE = detail::decimalOf<T>(Layout::LEAST_FULL, 1 - Layout::DIGITS);
    return T::Functions::divide(x.record(), ONE.record());
}
/// @}

/// \name Rounding to an integral value
/// To exponent 0, or unchanged where the exponent is above it. With ties away from zero:
/// `round(x, 0, rounding::half_away)`.
/// @{

/// Downward.
template <detail::DecimalClass T>
T floor(const T& x) noexcept {
    return T::Functions::roundExact(x.record(), ORV_DEC_FLOOR);
}

/// Upward.
template <detail::DecimalClass T>
T ceil(const T& x) noexcept {
    return T::Functions::roundExact(x.record(), ORV_DEC_CEILING);
}

/// Toward zero.
template <detail::DecimalClass T>
T trunc(const T& x) noexcept {
    return T::Functions::roundExact(x.record(), ORV_DEC_TOWARD_ZERO);
}

/// To the nearest, ties to even.
template <detail::DecimalClass T>
T rint(const T& x) noexcept {
    return T::Functions::roundExact(x.record(), ORV_DEC_HALF_EVEN);
}

/// The same.
template <detail::DecimalClass T>
T nearbyint(const T& x) noexcept {
    return rint(x);
}
/// @}

/// \name Least and greatest
/// A number wins over a quiet NaN.
/// @{
template <class X, detail::DecimalOperandWith<X> Y>
detail::CommonDecimal<X, Y> min(const X& x, const Y& y) noexcept {
    using Decimal = detail::CommonDecimal<X, Y>;
    return Decimal::Functions::min(Decimal(x).record(), Decimal(y).record());
}

template <class X, detail::DecimalOperandWith<X> Y>
detail::CommonDecimal<X, Y> max(const X& x, const Y& y) noexcept {
    using Decimal = detail::CommonDecimal<X, Y>;
    return Decimal::Functions::max(Decimal(x).record(), Decimal(y).record());
}

template <class X, detail::DecimalOperandWith<X> Y>
detail::CommonDecimal<X, Y> fmin(const X& x, const Y& y) noexcept {
    return decimal::min(x, y);
}

template <class X, detail::DecimalOperandWith<X> Y>
detail::CommonDecimal<X, Y> fmax(const X& x, const Y& y) noexcept {
    return decimal::max(x, y);
}
/// @}

/// \name Neighbours
/// @{

/// The least number above \p x.
template <detail::DecimalClass T>
T next_up(const T& x) noexcept {
    return T::Functions::nextUp(x.record());
}

/// The greatest number below \p x.
template <detail::DecimalClass T>
T next_down(const T& x) noexcept {
    return T::Functions::nextDown(x.record());
}

/// The neighbour of \p x on the side of \p y; \p y if they are equal.
template <class X, detail::DecimalOperandWith<X> Y>
detail::CommonDecimal<X, Y> nextafter(const X& x, const Y& y) noexcept {
    using Decimal = detail::CommonDecimal<X, Y>;
    const Decimal from(x);
    const Decimal to(y);
    if (isnan(from) || isnan(to)) {
        return from + to;
    }
    return from < to ? next_up(from) : to < from ? next_down(from) : to;
}
/// @}

/// \name To integers of 64 bits
/// Half to even, half away from zero, or toward zero. What is out of range gives the nearest limit,
/// and `errno` is `ERANGE`; a NaN gives 0, and `errno` is `EDOM`. The least integer as a result
/// sets `ERANGE` too unless the number, rounded in the way of the function, is just that; with a
/// decimal64 in any case, which does not hold it exactly.
/// @{
ORVXX_API std::int64_t llrint(const decimal64& x) noexcept;
ORVXX_API std::int64_t llrint(const decimal128& x) noexcept;
ORVXX_API std::int64_t llround(const decimal64& x) noexcept;
ORVXX_API std::int64_t llround(const decimal128& x) noexcept;
ORVXX_API std::int64_t lltrunc(const decimal64& x) noexcept;
ORVXX_API std::int64_t lltrunc(const decimal128& x) noexcept;
inline std::int64_t llrint(const decimal32& x) noexcept {
    return llrint(decimal64(x));
}
inline std::int64_t llround(const decimal32& x) noexcept {
    return llround(decimal64(x));
}
inline std::int64_t lltrunc(const decimal32& x) noexcept {
    return lltrunc(decimal64(x));
}
/// @}

/// \name To integers of 32 bits
/// In the same way; of 32 bits wherever, whatever the width of `long`. Truncation rounds nothing:
/// `ltrunc` of -2147483648.5 is the limit, with `ERANGE`.
/// @{
ORVXX_API std::int32_t lrint(const decimal64& x) noexcept;
ORVXX_API std::int32_t lrint(const decimal128& x) noexcept;
ORVXX_API std::int32_t lround(const decimal64& x) noexcept;
ORVXX_API std::int32_t lround(const decimal128& x) noexcept;
ORVXX_API std::int32_t ltrunc(const decimal64& x) noexcept;
ORVXX_API std::int32_t ltrunc(const decimal128& x) noexcept;
inline std::int32_t lrint(const decimal32& x) noexcept {
    return lrint(decimal64(x));
}
inline std::int32_t lround(const decimal32& x) noexcept {
    return lround(decimal64(x));
}
inline std::int32_t ltrunc(const decimal32& x) noexcept {
    return ltrunc(decimal64(x));
}
/// @}

} // namespace orv::decimal

#include "orv/liborvxx/base/macros_pop.h"

#endif
