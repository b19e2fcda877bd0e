// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 10^exponent as `float` and `double` for coefficients of up to 128 bits,
/// without memory from the heap; what most texts hold is decided inline.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_TO_BINARY_H
#define ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_TO_BINARY_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/decimal_estimate.h"
#include "orv/liborvxx/number/words/limb.h"

#include <bit>
#include <cstddef>

namespace orv::detail {

/// Whether coefficient and power of ten are Floats, so that a single operation on them rounds
/// correctly.
template <class Float>
constexpr bool isNative(int exponent, words::Limb coefficient) noexcept {
    using Format = BinaryFormat<Float>;
    return coefficient >> static_cast<unsigned>(Format::PRECISION) == 0 &&
           exponent >= -Format::MAX_EXACT_POW10 && exponent <= Format::MAX_EXACT_POW10;
}

/// \pre isNative<Float>(exponent, coefficient)
template <class Float>
ORVXX_ALWAYS_INLINE Float makeNatively(bool negative, int exponent,
                                       words::Limb coefficient) noexcept {
    const auto magnitude = static_cast<Float>(coefficient);
    const Float value = negative ? -magnitude : magnitude;
    return exponent >= 0
               ? value * BinaryFormat<Float>::EXACT_POW10[static_cast<std::size_t>(exponent)]
               : value / BinaryFormat<Float>::EXACT_POW10[static_cast<std::size_t>(-exponent)];
}

/// `packBinary` of pack_internal.h.
template <class Float>
Float packBinary(bool negative, int exponent, const words::Wide& coefficient,
                 unsigned rounding) noexcept;

extern template float packBinary<float>(bool, int, const words::Wide&, unsigned) noexcept;
extern template double packBinary<double>(bool, int, const words::Wide&, unsigned) noexcept;

/// The Float that `makeBinary` of pack_internal.h gives for the same arguments.
/// \pre the coefficient is not 2^128 - 1; one of more than 90 bits has an exponent of
///      MIN_TABLE_POW10 at least
template <class Float>
Float makeBinary(bool negative, int exponent, const words::Wide& coefficient,
                 unsigned rounding) noexcept;

extern template float makeBinary<float>(bool, int, const words::Wide&, unsigned) noexcept;
extern template double makeBinary<double>(bool, int, const words::Wide&, unsigned) noexcept;

/// The Float that `makeBinary` of pack_internal.h gives for the same arguments and an exact
/// coefficient.
///
/// One product of 64 bits decides nearly always. With the coefficient W, exact, and the upper limb
/// of the power P <= p < P + 1, W * p is less than 2^64 above W * P: the upper limb of the product
/// is right, or 1 too small. So only one half of what is cut off, and 1 less, decide nothing.
template <class Float>
ORVXX_ALWAYS_INLINE Float makeBinary(bool negative, int exponent,
                                     words::Limb coefficient) noexcept {
    using Format = BinaryFormat<Float>;
    if (isNative<Float>(exponent, coefficient)) {
        return makeNatively<Float>(negative, exponent, coefficient);
    }
    // From the least to the greatest number of up to 64 bits that can be a normal Float.
    if (coefficient != 0 && exponent >= MIN_TABLE_POW10 && exponent <= Format::MAX_DECIMAL) {
        const int zeros = std::countl_zero(coefficient);
        const words::Limb w =
            cutBits(coefficient << static_cast<unsigned>(zeros), countedBits<Float>(exponent));
        const words::Limb l = words::multiplyLimbs(w, pow10Significand(exponent).high).high;
        const int carry = static_cast<int>(l >> 63U);
        const int top = 63 - zeros + floorLog2Pow10(exponent) + carry;
        const auto shift = static_cast<unsigned>(63 + carry - Format::PRECISION);
        const words::Limb rest = l & ((words::Limb{1} << shift) - 1);
        const words::Limb half = words::Limb{1} << (shift - 1);
        if (half - rest > 1 && top >= Format::MIN_EXPONENT && top <= Format::MAX_EXPONENT) {
            return assemble<Float>(negative, top, l >> shift, rest > half);
        }
    }
    return makeBinary<Float>(negative, exponent, words::Wide{coefficient, 0}, 0);
}

} // namespace orv::detail

#endif
