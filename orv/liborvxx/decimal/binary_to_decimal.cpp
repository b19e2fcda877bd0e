// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Binary floating point to decimal, by its shortest digits.
#include "orv/liborvxx/decimal/binary_to_decimal.h"

#include "orv/liborvxx/number/detail/decimal_format.h"
#include "orv/liborvxx/number/detail/quick_pack.h"
#include "orv/liborvxx/number/detail/shortest_digits.h"
#include "orv/liborvxx/number/float_class.h"
#include "orv/liborvxx/number/words/decimal_digits.h"

#include <algorithm>
#include <cstdint>

namespace orv::decimal {

namespace {

using orv::detail::DecimalNumber;
using orv::detail::DoubleBits;
using orv::detail::FloatBits;
using orv::detail::HalfBits;

// Drops the zeros at the end of the coefficient, which is not 0.
ORVXX_ALWAYS_INLINE void dropZeros(DecimalNumber& number) noexcept {
    const auto dropIf = [&number](std::uint64_t power, int zeros) {
        const bool isMultiple = number.coefficient % power == 0;
        if (isMultiple) {
            number.coefficient /= power;
            number.exponent += zeros;
        }
        return isMultiple;
    };
    if (!dropIf(10, 1)) {
        return; // so it is nearly always
    }
    dropIf(100000000, 8);
    dropIf(10000, 4);
    dropIf(100, 2);
    dropIf(10, 1);
}

// Digits of a positive number, at most `maxDigits`, the last of which is not 0.
template <class Layout>
ORVXX_ALWAYS_INLINE DecimalNumber digitsOf(typename Layout::Bits magnitude,
                                           unsigned maxDigits) noexcept {
    DecimalNumber number = orv::detail::shortestDecimal<Layout>(magnitude);
    dropZeros(number);
    if (words::countDigits(number.coefficient) > maxDigits) {
        // Not these digits cut, which would round twice.
        number =
            orv::detail::shortestByDigits(orv::detail::binaryNumber<Layout>(magnitude), maxDigits);
        dropZeros(number);
    }
    return number;
}

template <class Decimal, class Layout>
Decimal toDecimal(typename Layout::Bits bits) noexcept {
    using Format = orv::detail::DecimalFormat<Decimal>;
    constexpr unsigned MAX_DIGITS =
        std::min(orv::detail::MOST_DIGITS<Layout>, unsigned{Format::DIGITS});
    const bool negative = Layout::signBit(bits);
    if (!Layout::isFinite(bits)) {
        return Layout::isNan(bits) ? Format::quietNan() : Format::infinity(negative);
    }
    if (Layout::isZero(bits)) {
        return Format::encode(negative, Format::MIN_EXPONENT, 0);
    }
    const DecimalNumber number = digitsOf<Layout>(bits & Layout::MAGNITUDE, MAX_DIGITS);
    return orv::detail::quickPack<Decimal>(negative, number.exponent, number.coefficient);
}

} // namespace

decimal32 binary_to_decimal32(float value) noexcept {
    return toDecimal<decimal32, FloatBits>(orv::detail::bitsOf(value));
}

decimal32 binary_to_decimal32(double value) noexcept {
    return toDecimal<decimal32, DoubleBits>(orv::detail::bitsOf(value));
}

decimal32 binary_to_decimal32(long double value) noexcept {
    return binary_to_decimal32(static_cast<double>(value));
}

decimal32 binary_to_decimal32(const binary16& value) noexcept {
    return toDecimal<decimal32, HalfBits>(value.bits());
}

decimal64 binary_to_decimal64(float value) noexcept {
    return toDecimal<decimal64, FloatBits>(orv::detail::bitsOf(value));
}

decimal64 binary_to_decimal64(double value) noexcept {
    return toDecimal<decimal64, DoubleBits>(orv::detail::bitsOf(value));
}

decimal64 binary_to_decimal64(long double value) noexcept {
    return binary_to_decimal64(static_cast<double>(value));
}

decimal64 binary_to_decimal64(const binary16& value) noexcept {
    return toDecimal<decimal64, HalfBits>(value.bits());
}

decimal128 binary_to_decimal128(float value) noexcept {
    return toDecimal<decimal128, FloatBits>(orv::detail::bitsOf(value));
}

decimal128 binary_to_decimal128(double value) noexcept {
    return toDecimal<decimal128, DoubleBits>(orv::detail::bitsOf(value));
}

decimal128 binary_to_decimal128(long double value) noexcept {
    return binary_to_decimal128(static_cast<double>(value));
}

decimal128 binary_to_decimal128(const binary16& value) noexcept {
    return toDecimal<decimal128, HalfBits>(value.bits());
}

} // namespace orv::decimal
