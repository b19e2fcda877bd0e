// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `binary16`: a half-precision floating-point value, and its way from and to float and
/// double.
#ifndef ORV_LIBORVXX_NUMBER_BINARY16_H
#define ORV_LIBORVXX_NUMBER_BINARY16_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/float_class.h"

#include <algorithm>
#include <bit>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>

#include "orv/liborvxx/base/macros_push.h"

namespace orv {

class binary16;

/// \name Conversions
/// Upwards every value keeps its value, its sign, and a NaN its payload, signalling or not: bit for
/// bit the fraction moves up.
///
/// Downwards the result is the nearest value, ties to even. Magnitudes of 65520 and more become
/// infinite; magnitudes up to 2^-25 become 0; the sign stays. Every NaN becomes the one with the
/// bits 0x7E00, whatever its sign and payload.
///
/// All work on integers: the rounding mode and the floating-point environment play no part and
/// are not touched.
/// @{
ORVXX_API double _binary16_to_double(binary16 value) noexcept;
ORVXX_API float _binary16_to_float(binary16 value) noexcept;
ORVXX_API binary16 _double_to_binary16(double value) noexcept;
ORVXX_API binary16 _float_to_binary16(float value) noexcept;
/// @}

namespace detail {

/// 1 bit of sign, 5 of exponent, 10 of fraction.
using HalfBits = FloatLayout<std::uint16_t, 10>;

/// The lowest bit of a subnormal number stands for 2^-24.
inline constexpr int HALF_LOWEST_EXPONENT = 1 - HalfBits::BIAS - int{HalfBits::FRACTION_BITS};

/// n / 2^shift, rounded to the nearest integer, ties to even.
/// \pre \p shift is at least 1, and n + 2^(shift - 1) fits
template <class Bits>
constexpr Bits shiftRounded(Bits n, unsigned shift) noexcept {
    const Bits justBelowHalf = (Bits{1} << (shift - 1U)) - 1U;
    return (n + justBelowHalf + (n >> shift & 1U)) >> shift;
}

/// The bits of the half-precision number nearest to one of format \p From.
template <class From>
constexpr std::uint16_t narrowToHalf(typename From::Bits bits) noexcept {
    using Bits = typename From::Bits;
    constexpr unsigned CUT = From::FRACTION_BITS - HalfBits::FRACTION_BITS;
    constexpr auto powerOfTwo = [](int exponent) { // the bits of 2^exponent
        return static_cast<Bits>(exponent + From::BIAS) << From::FRACTION_BITS;
    };
    const auto withSign = [bits](Bits magnitude) {
        return static_cast<std::uint16_t>((bits >> (From::WIDTH - 16U) & HalfBits::SIGN) |
                                          magnitude);
    };
    const Bits magnitude = bits & From::MAGNITUDE;
    if (magnitude >= powerOfTwo(HalfBits::BIAS + 1)) {
        return From::isNan(bits) ? 0x7E00 : withSign(HalfBits::EXPONENT);
    }
    if (magnitude >= powerOfTwo(1 - HalfBits::BIAS)) {
        // A carry out of the fraction moves on into the exponent, and at the top to infinity.
        const Bits rebased = magnitude - powerOfTwo(-HalfBits::BIAS);
        return withSign(shiftRounded(rebased, CUT));
    }
    // Subnormal: the result counts steps of 2^-24. What is cut of the very small is more than twice
    // the significand, so that nothing stays; that serves the subnormals of From too.
    const Bits significand = (magnitude & From::FRACTION) | From::IMPLIED;
    constexpr auto LOWEST_UNIT =
        static_cast<unsigned>(int{From::FRACTION_BITS} + HALF_LOWEST_EXPONENT + From::BIAS);
    const Bits cut =
        std::min<Bits>(LOWEST_UNIT - (magnitude >> From::FRACTION_BITS), From::FRACTION_BITS + 2U);
    return withSign(shiftRounded(significand, static_cast<unsigned>(cut)));
}

/// The bits in format \p To of a half-precision number.
template <class To>
constexpr typename To::Bits widenHalf(std::uint16_t half) noexcept {
    using Bits = typename To::Bits;
    constexpr unsigned RAISE = To::FRACTION_BITS - HalfBits::FRACTION_BITS;
    constexpr auto exponentField = [](int field) {
        return static_cast<Bits>(field) << To::FRACTION_BITS;
    };
    const Bits sign = static_cast<Bits>(half & HalfBits::SIGN) << (To::WIDTH - 16U);
    const Bits magnitude = half & HalfBits::MAGNITUDE;
    if (HalfBits::isNormal(half)) {
        return sign | ((magnitude << RAISE) + exponentField(To::BIAS - HalfBits::BIAS));
    }
    if (!HalfBits::isFinite(half)) {
        return sign | To::EXPONENT | magnitude << RAISE;
    }
    if (magnitude == 0) {
        return sign;
    }
    // Subnormal: the top bit becomes the leading 1, which adds 1 to the exponent field.
    const int topBit = static_cast<int>(std::bit_width(magnitude)) - 1;
    return sign | ((magnitude << (int{To::FRACTION_BITS} - topBit)) +
                   exponentField(To::BIAS + HALF_LOWEST_EXPONENT + topBit - 1));
}

} // namespace detail

/// A value of IEEE 754 binary16: 11 bits of precision, magnitudes from 2^-24 to 65504, zeros,
/// infinities and NaNs. It is for storing and exchanging: to compute, convert to float.
/// \code
/// const orv::binary16 third(1.0 / 3);        // nearest
/// const float wide = static_cast<float>(third); // 0.333251953125, exact
/// \endcode
class binary16 {
public:
    /// +0
    constexpr binary16() noexcept = default;

    /// The nearest value, as `_float_to_binary16` and `_double_to_binary16` give it.
    /// @{
    explicit constexpr binary16(float value) noexcept
        : bits_(detail::narrowToHalf<detail::FloatBits>(detail::bitsOf(value))) {}
    explicit constexpr binary16(double value) noexcept
        : bits_(detail::narrowToHalf<detail::DoubleBits>(detail::bitsOf(value))) {}
    /// @}

    /// The value with these bits: bit 15 the sign, bits 10 to 14 the exponent with a bias of 15,
    /// bits 0 to 9 the fraction.
    static constexpr binary16 from_bits(std::uint16_t bits) noexcept {
        binary16 value;
        value.bits_ = bits;
        return value;
    }
    constexpr std::uint16_t bits() const noexcept { return bits_; }

    /// The same value, as `_binary16_to_float` and `_binary16_to_double` give it.
    /// @{
    explicit constexpr operator float() const noexcept {
        return std::bit_cast<float>(detail::widenHalf<detail::FloatBits>(bits_));
    }
    explicit constexpr operator double() const noexcept {
        return std::bit_cast<double>(detail::widenHalf<detail::DoubleBits>(bits_));
    }
    /// @}

    /// \name Comparison, as numbers: -0 equals +0, and a NaN is unordered to everything
    /// @{
    friend constexpr bool operator==(binary16 a, binary16 b) noexcept { return (a <=> b) == 0; }
    friend constexpr std::partial_ordering operator<=>(binary16 a, binary16 b) noexcept {
        if (detail::HalfBits::isNan(a.bits_) || detail::HalfBits::isNan(b.bits_)) {
            return std::partial_ordering::unordered;
        }
        return a.rank() <=> b.rank();
    }
    /// @}

private:
    friend struct std::hash<binary16>;

    // Increases with the number: 0 for both zeros.
    constexpr int rank() const noexcept {
        const int magnitude = bits_ & detail::HalfBits::MAGNITUDE;
        return detail::HalfBits::signBit(bits_) ? -magnitude : magnitude;
    }

    std::uint16_t bits_ = 0;
};

static_assert(sizeof(binary16) == 2);

/// \name Classes, as for float (float_class.h)
/// @{
constexpr bool is_finite(binary16 value) noexcept {
    return detail::HalfBits::isFinite(value.bits());
}
constexpr bool is_inf(binary16 value) noexcept {
    return detail::HalfBits::isInf(value.bits());
}
constexpr bool is_nan(binary16 value) noexcept {
    return detail::HalfBits::isNan(value.bits());
}
constexpr bool is_normal(binary16 value) noexcept {
    return detail::HalfBits::isNormal(value.bits());
}
constexpr bool is_zero(binary16 value) noexcept {
    return detail::HalfBits::isZero(value.bits());
}
constexpr bool sign_bit(binary16 value) noexcept {
    return detail::HalfBits::signBit(value.bits());
}
/// @}

} // namespace orv

/// What the standard asks of every floating-point type.
template <>
class std::numeric_limits<orv::binary16> {
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
    static constexpr int digits = 11;
    static constexpr int digits10 = 3;
    static constexpr int max_digits10 = 5;
    static constexpr int radix = 2;
    static constexpr int min_exponent = -13;
    static constexpr int min_exponent10 = -4;
    static constexpr int max_exponent = 16;
    static constexpr int max_exponent10 = 4;
    static constexpr bool traps = false;
    static constexpr bool tinyness_before = false;

    /// 2^-14
    static constexpr orv::binary16 min() noexcept { return orv::binary16::from_bits(0x0400); }
    /// -65504
    static constexpr orv::binary16 lowest() noexcept { return orv::binary16::from_bits(0xFBFF); }
    /// 65504
    static constexpr orv::binary16 max() noexcept { return orv::binary16::from_bits(0x7BFF); }
    /// 2^-10
    static constexpr orv::binary16 epsilon() noexcept { return orv::binary16::from_bits(0x1400); }
    /// 0.5
    static constexpr orv::binary16 round_error() noexcept {
        return orv::binary16::from_bits(0x3800);
    }
    static constexpr orv::binary16 infinity() noexcept { return orv::binary16::from_bits(0x7C00); }
    static constexpr orv::binary16 quiet_NaN() noexcept { return orv::binary16::from_bits(0x7E00); }
    static constexpr orv::binary16 signaling_NaN() noexcept {
        return orv::binary16::from_bits(0x7D00);
    }
    /// 2^-24
    static constexpr orv::binary16 denorm_min() noexcept {
        return orv::binary16::from_bits(0x0001);
    }
};

/// Equal numbers, among them the two zeros, have equal hashes.
template <>
struct std::hash<orv::binary16> {
    std::size_t operator()(orv::binary16 value) const noexcept {
        return std::hash<int>()(value.rank());
    }
};

#include "orv/liborvxx/base/macros_pop.h"

#endif
