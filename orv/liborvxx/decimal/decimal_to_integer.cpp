// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers rounded to integers, in the manner of the C library.
#include "orv/liborvxx/decimal/decimal_math.h"

#include <cerrno>
#include <cstdint>
#include <limits>

namespace orv::decimal {

namespace {

template <class T>
T halfEven(const T& x) noexcept {
    return T::Functions::roundExact(x.record(), ORV_DEC_HALF_EVEN);
}

template <class T>
T halfAway(const T& x) noexcept {
    return T::Functions::roundHalfUp(x.record());
}

std::int32_t converted(const decimal64& x, std::int32_t /*type*/) noexcept {
    return orvDec64ToInt32(x.record());
}
std::int32_t converted(const decimal128& x, std::int32_t /*type*/) noexcept {
    return orvDec128ToInt32(x.record());
}
std::int64_t converted(const decimal64& x, std::int64_t /*type*/) noexcept {
    return orvDec64ToInt64(x.record());
}
std::int64_t converted(const decimal128& x, std::int64_t /*type*/) noexcept {
    return orvDec128ToInt64(x.record());
}

// Whether x is exactly the least Integer, as far as a T can be.
template <class Integer, class T>
bool isLeast(const T& x) noexcept {
    if constexpr (detail::HOLDS_ALL_OF<typename T::Functions::Record, Integer>) {
        return x == T(std::numeric_limits<Integer>::min());
    } else {
        return false;
    }
}

template <class Integer, class T>
Integer toInteger(const T& x) noexcept {
    using Limits = std::numeric_limits<Integer>;
    const Integer n = converted(x, Integer{});
    if (n != Limits::min()) {
        return n;
    }
    if (isnan(x)) {
        errno = EDOM;
        return 0;
    }
    if (!signbit(x)) {
        errno = ERANGE;
        return Limits::max();
    }
    if (!isLeast<Integer>(x)) {
        errno = ERANGE;
    }
    return n;
}

} // namespace

std::int64_t llrint(const decimal64& x) noexcept {
    return toInteger<std::int64_t>(halfEven(x));
}

std::int64_t llrint(const decimal128& x) noexcept {
    return toInteger<std::int64_t>(halfEven(x));
}

std::int64_t llround(const decimal64& x) noexcept {
    return toInteger<std::int64_t>(halfAway(x));
}

std::int64_t llround(const decimal128& x) noexcept {
    return toInteger<std::int64_t>(halfAway(x));
}

std::int64_t lltrunc(const decimal64& x) noexcept {
    return toInteger<std::int64_t>(x);
}

std::int64_t lltrunc(const decimal128& x) noexcept {
    return toInteger<std::int64_t>(x);
}

std::int32_t lrint(const decimal64& x) noexcept {
    return toInteger<std::int32_t>(halfEven(x));
}

std::int32_t lrint(const decimal128& x) noexcept {
    return toInteger<std::int32_t>(halfEven(x));
}

std::int32_t lround(const decimal64& x) noexcept {
    return toInteger<std::int32_t>(halfAway(x));
}

std::int32_t lround(const decimal128& x) noexcept {
    return toInteger<std::int32_t>(halfAway(x));
}

std::int32_t ltrunc(const decimal64& x) noexcept {
    return toInteger<std::int32_t>(x);
}

std::int32_t ltrunc(const decimal128& x) noexcept {
    return toInteger<std::int32_t>(x);
}

} // namespace orv::decimal
