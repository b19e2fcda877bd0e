// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What kind of value a floating-point number is, read from its bits.
///
/// No arithmetic and no comparison of floating-point values takes part. So the answers hold for
/// signalling NaNs too, raise no floating-point exception, and stay right where the compiler may
/// assume that there are no NaNs and no infinities (-ffast-math).
#ifndef ORV_LIBORVXX_NUMBER_FLOAT_CLASS_H
#define ORV_LIBORVXX_NUMBER_FLOAT_CLASS_H

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>

namespace orv {

namespace detail {

/// A binary format of IEEE 754 in an unsigned integer: sign, exponent field, fraction, from the
/// top.
template <class Integer, unsigned FRACTION_WIDTH>
struct FloatLayout {
    using Bits = Integer;

    static constexpr unsigned WIDTH = std::numeric_limits<Bits>::digits;
    static constexpr unsigned FRACTION_BITS = FRACTION_WIDTH;
    static constexpr unsigned EXPONENT_BITS = WIDTH - 1 - FRACTION_BITS;
    static constexpr int BIAS = (1 << (EXPONENT_BITS - 1)) - 1;

    static constexpr Bits SIGN = static_cast<Bits>(Bits{1} << (WIDTH - 1));
    static constexpr Bits MAGNITUDE = SIGN - 1;
    /// The lowest bit of the exponent field, where the leading 1 of a normal number belongs.
    static constexpr Bits IMPLIED = static_cast<Bits>(Bits{1} << FRACTION_BITS);
    static constexpr Bits FRACTION = IMPLIED - 1;
    /// The exponent field, all ones: infinity.
    static constexpr Bits EXPONENT = MAGNITUDE - FRACTION;

    static constexpr bool isFinite(Bits bits) noexcept { return (bits & EXPONENT) != EXPONENT; }
    static constexpr bool isInf(Bits bits) noexcept { return (bits & MAGNITUDE) == EXPONENT; }
    static constexpr bool isNan(Bits bits) noexcept { return (bits & MAGNITUDE) > EXPONENT; }
    static constexpr bool isNormal(Bits bits) noexcept {
        return isFinite(bits) && (bits & EXPONENT) != 0;
    }
    static constexpr bool isZero(Bits bits) noexcept { return (bits & MAGNITUDE) == 0; }
    static constexpr bool signBit(Bits bits) noexcept { return (bits & SIGN) != 0; }
};

static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<float>::digits == 24);
static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53);

using FloatBits = FloatLayout<std::uint32_t, 23>;
using DoubleBits = FloatLayout<std::uint64_t, 52>;

constexpr std::uint32_t bitsOf(float value) noexcept {
    return std::bit_cast<std::uint32_t>(value);
}
constexpr std::uint64_t bitsOf(double value) noexcept {
    return std::bit_cast<std::uint64_t>(value);
}

/// The fields of a long double, as far as the classes ask.
struct LongDoubleFields {
    bool sign;
    bool exponentIsZero;
    bool exponentIsOnes;
    bool fractionIsZero;
    /// The leading 1 in front of the fraction, in the format that stores it.
    bool integerBit;
};

/// The fields of the extended format of 80 bits: 16 bits of sign and exponent above 64 bits of
/// integer bit and fraction.
inline LongDoubleFields extendedFields(const void* value) noexcept {
    static_assert(std::endian::native == std::endian::little ||
                  std::numeric_limits<long double>::digits != 64);
    std::uint64_t significand = 0;
    std::uint16_t top = 0;
    std::memcpy(&significand, value, sizeof significand);
    std::memcpy(&top, static_cast<const char*>(value) + sizeof significand, sizeof top);
    const unsigned exponent = top & 0x7FFFU;
    return {(top & 0x8000U) != 0, exponent == 0, exponent == 0x7FFF, significand << 1U == 0,
            significand >> 63U != 0};
}

/// The fields of IEEE 754 binary128: the sign, 15 bits of exponent, 112 bits of fraction.
inline LongDoubleFields quadrupleFields(const void* value) noexcept {
    using HighBits = FloatLayout<std::uint64_t, 48>;
    std::uint64_t halves[2];
    std::memcpy(halves, value, sizeof halves);
    const bool highFirst = std::endian::native == std::endian::big;
    const std::uint64_t high = halves[highFirst ? 0 : 1];
    const std::uint64_t low = halves[highFirst ? 1 : 0];
    return {HighBits::signBit(high), (high & HighBits::EXPONENT) == 0, !HighBits::isFinite(high),
            (high & HighBits::FRACTION) == 0 && low == 0, false};
}

inline LongDoubleFields fieldsOf(long double value) noexcept {
    constexpr int DIGITS = std::numeric_limits<long double>::digits;
    static_assert(DIGITS == 53 || DIGITS == 64 || DIGITS == 113, "another format of long double");
    if constexpr (DIGITS == 64) {
        return extendedFields(&value);
    } else if constexpr (DIGITS == 113) {
        return quadrupleFields(&value);
    } else {
        const std::uint64_t bits = bitsOf(static_cast<double>(value));
        return {DoubleBits::signBit(bits), (bits & DoubleBits::EXPONENT) == 0,
                !DoubleBits::isFinite(bits), (bits & DoubleBits::FRACTION) == 0, false};
    }
}

} // namespace detail

/// Whether the value is neither infinite nor a NaN: the exponent field is not all ones.
/// @{
constexpr bool is_finite(float value) noexcept {
    return detail::FloatBits::isFinite(detail::bitsOf(value));
}
constexpr bool is_finite(double value) noexcept {
    return detail::DoubleBits::isFinite(detail::bitsOf(value));
}
inline bool is_finite(long double value) noexcept {
    return !detail::fieldsOf(value).exponentIsOnes;
}
/// @}

/// Whether the value is infinite, of either sign: the exponent field is all ones, the fraction 0.
/// @{
constexpr bool is_inf(float value) noexcept {
    return detail::FloatBits::isInf(detail::bitsOf(value));
}
constexpr bool is_inf(double value) noexcept {
    return detail::DoubleBits::isInf(detail::bitsOf(value));
}
inline bool is_inf(long double value) noexcept {
    const detail::LongDoubleFields fields = detail::fieldsOf(value);
    return fields.exponentIsOnes && fields.fractionIsZero;
}
/// @}

/// Whether the value is a NaN, quiet or signalling: the exponent field is all ones, the fraction
/// not 0.
/// @{
constexpr bool is_nan(float value) noexcept {
    return detail::FloatBits::isNan(detail::bitsOf(value));
}
constexpr bool is_nan(double value) noexcept {
    return detail::DoubleBits::isNan(detail::bitsOf(value));
}
inline bool is_nan(long double value) noexcept {
    const detail::LongDoubleFields fields = detail::fieldsOf(value);
    return fields.exponentIsOnes && !fields.fractionIsZero;
}
/// @}

/// Whether the value is none of zero, subnormal, infinite and NaN: the exponent field is neither 0
/// nor all ones.
/// @{
constexpr bool is_normal(float value) noexcept {
    return detail::FloatBits::isNormal(detail::bitsOf(value));
}
constexpr bool is_normal(double value) noexcept {
    return detail::DoubleBits::isNormal(detail::bitsOf(value));
}
inline bool is_normal(long double value) noexcept {
    const detail::LongDoubleFields fields = detail::fieldsOf(value);
    return !fields.exponentIsZero && !fields.exponentIsOnes;
}
/// @}

/// Whether the value is +0 or -0: all bits except the sign are 0.
/// @{
constexpr bool is_zero(float value) noexcept {
    return detail::FloatBits::isZero(detail::bitsOf(value));
}
constexpr bool is_zero(double value) noexcept {
    return detail::DoubleBits::isZero(detail::bitsOf(value));
}
inline bool is_zero(long double value) noexcept {
    const detail::LongDoubleFields fields = detail::fieldsOf(value);
    return fields.exponentIsZero && fields.fractionIsZero && !fields.integerBit;
}
/// @}

/// Whether the sign bit is set: true also for -0 and for a NaN that has it.
/// @{
constexpr bool sign_bit(float value) noexcept {
    return detail::FloatBits::signBit(detail::bitsOf(value));
}
constexpr bool sign_bit(double value) noexcept {
    return detail::DoubleBits::signBit(detail::bitsOf(value));
}
inline bool sign_bit(long double value) noexcept {
    return detail::fieldsOf(value).sign;
}
/// @}

} // namespace orv

#endif
