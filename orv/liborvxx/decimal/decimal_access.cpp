// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a decimal number is made of.
#include "orv/liborvxx/decimal/decimal_access.h"

#include <cerrno>
#include <climits>
#include <cstddef>

namespace orv::decimal {

namespace {

template <class T>
detail::DecimalCoefficient coefficientOf(const T& x) noexcept {
    return isfinite(x) ? detail::LayoutOf<T>::coefficient(x.record())
                       : detail::DecimalCoefficient{0, 0};
}

template <class T>
int quantexpOf(const T& x) noexcept {
    using Layout = detail::LayoutOf<T>;
    if (!isfinite(x)) {
        errno = EDOM;
        return INT_MIN;
    }
    return Layout::exponent(Layout::topWord(x.record()));
}

template <class T>
int classOf(const T& x) noexcept {
    switch (T::Functions::classOf(x.record())) {
    case ORV_DEC_NEGATIVE_INFINITY:
    case ORV_DEC_POSITIVE_INFINITY:
        return fp_class_infinite;
    case ORV_DEC_NEGATIVE_NORMAL:
    case ORV_DEC_POSITIVE_NORMAL:
        return fp_class_normal;
    case ORV_DEC_NEGATIVE_SUBNORMAL:
    case ORV_DEC_POSITIVE_SUBNORMAL:
        return fp_class_subnormal;
    case ORV_DEC_NEGATIVE_ZERO:
    case ORV_DEC_POSITIVE_ZERO:
        return fp_class_zero;
    default:
        return fp_class_nan;
    }
}

} // namespace

std::size_t coefficient(const decimal32& x) noexcept {
    return coefficientOf(x).low;
}

std::size_t coefficient(const decimal64& x) noexcept {
    return coefficientOf(x).low;
}

big_uint coefficient(const decimal128& x) noexcept {
    const auto [low, high] = coefficientOf(x);
    big_uint n = {static_cast<unsigned>(low), static_cast<unsigned>(low >> 32U),
                  static_cast<unsigned>(high), static_cast<unsigned>(high >> 32U)};
    n.trim();
    return n;
}

int quantexp(const decimal32& x) noexcept {
    return quantexpOf(x);
}

int quantexp(const decimal64& x) noexcept {
    return quantexpOf(x);
}

int quantexp(const decimal128& x) noexcept {
    return quantexpOf(x);
}

int fp_classify(const decimal32& x) noexcept {
    return classOf(x);
}

int fp_classify(const decimal64& x) noexcept {
    return classOf(x);
}

int fp_classify(const decimal128& x) noexcept {
    return classOf(x);
}

} // namespace orv::decimal
