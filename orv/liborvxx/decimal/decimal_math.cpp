// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Mathematical functions of decimals.
#include "orv/liborvxx/decimal/decimal_math.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace orv::decimal {

namespace {

template <class T>
T splitExponent(const T& x, int* exponent) noexcept {
    const int n = T::Functions::logB(x.record());
    if (n == INT_MAX || n == INT_MIN) {
        *exponent = 0;
        return x;
    }
    *exponent = n + 1;
    return T::Functions::scaleB(x.record(), -(n + 1));
}

// The remainder by the nearest quotient is less than 0 where that quotient was rounded up. The sum
// is exact: it is a multiple of the lower of the two quanta, and no more than either operand.
template <class T>
T truncatedRemainder(const T& x, const T& y) noexcept {
    const T divisor = abs(y);
    T r = T::Functions::remainder(abs(x).record(), divisor.record());
    if (signbit(r)) {
        r += divisor;
    }
    return copysign(r, x);
}

template <class T>
T quantizeTo(const T& x, int exponent, rounding mode) noexcept {
    const T quantum = detail::LayoutOf<T>::encode(false, exponent, 1);
    return quantize(x, quantum, mode);
}

// To an exponent that is above the greatest by `excess`: the number is moved down, rounded there,
// and moved up again. If it cannot move as far it is so small that its digits do not matter, but
// whether it is 0 may.
template <class T>
T roundBeyond(const T& x, std::int64_t excess, rounding mode) noexcept {
    using Layout = detail::LayoutOf<T>;
    const std::int64_t room = Layout::exponent(Layout::topWord(x.record())) - Layout::MIN_EXPONENT;
    const T moved = scalbn(x, -static_cast<int>(std::min(excess, room)));
    const T rounded = quantizeTo(moved, Layout::MAX_EXPONENT, mode);
    return scalbn(rounded, static_cast<int>(std::min<std::int64_t>(excess, INT_MAX)));
}

template <class T>
T roundToScale(const T& x, int scale, rounding mode) noexcept {
    using Layout = detail::LayoutOf<T>;
    if (isinf(x)) {
        return x;
    }
    if (isnan(x)) {
        return x + x; // quiet
    }
    const std::int64_t exponent = -std::int64_t{scale};
    if (exponent < Layout::MIN_EXPONENT) {
        return x;
    }
    if (exponent > Layout::MAX_EXPONENT) {
        return roundBeyond(x, exponent - Layout::MAX_EXPONENT, mode);
    }
    const T rounded = quantizeTo(x, static_cast<int>(exponent), mode);
    return isnan(rounded) ? x : rounded;
}

} // namespace

decimal32 frexp(const decimal32& x, int* exponent) noexcept {
    return splitExponent(x, exponent);
}

decimal64 frexp(const decimal64& x, int* exponent) noexcept {
    return splitExponent(x, exponent);
}

decimal128 frexp(const decimal128& x, int* exponent) noexcept {
    return splitExponent(x, exponent);
}

decimal32 fmod(const decimal32& x, const decimal32& y) noexcept {
    return truncatedRemainder(x, y);
}

decimal64 fmod(const decimal64& x, const decimal64& y) noexcept {
    return truncatedRemainder(x, y);
}

decimal128 fmod(const decimal128& x, const decimal128& y) noexcept {
    return truncatedRemainder(x, y);
}

decimal32 round(const decimal32& x, int scale, rounding mode) noexcept {
    return roundToScale(x, scale, mode);
}

decimal64 round(const decimal64& x, int scale, rounding mode) noexcept {
    return roundToScale(x, scale, mode);
}

decimal128 round(const decimal128& x, int scale, rounding mode) noexcept {
    return roundToScale(x, scale, mode);
}

} // namespace orv::decimal
