// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Steps of 64 bits for loops over arrays of 32-bit words.
///
/// A limb is two neighbouring words, the lower one first, wherever they lie in the array. What does
/// not make a whole limb is the loops' own business.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_LIMB_H
#define ORV_LIBORVXX_NUMBER_WORDS_LIMB_H

#include "orv/liborvxx/base/platform.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace orv::words {

using Word = std::uint32_t;
using Limb = std::uint64_t;

/// Words \p p[0] and \p p[1] as one number.
ORVXX_ALWAYS_INLINE Limb load(const Word* p) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
        Limb limb;
        std::memcpy(&limb, p, sizeof limb);
        return limb;
    } else {
        return p[0] | Limb{p[1]} << 32U;
    }
}

/// Stores a number in words \p p[0] and \p p[1].
ORVXX_ALWAYS_INLINE void store(Word* p, Limb limb) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(p, &limb, sizeof limb);
    } else {
        p[0] = static_cast<Word>(limb);
        p[1] = static_cast<Word>(limb >> 32U);
    }
}

/// A product of two limbs.
struct Wide {
    Limb low;
    Limb high;
};

/// a * b
ORVXX_ALWAYS_INLINE Wide multiplyLimbs(Limb a, Limb b) noexcept {
#if ORVXX_HAS_UINT128
    const uint128 product = uint128{a} * b;
    return {static_cast<Limb>(product), static_cast<Limb>(product >> 64U)};
#else
    const Limb aLow = a & 0xFFFFFFFFU, aHigh = a >> 32U;
    const Limb bLow = b & 0xFFFFFFFFU, bHigh = b >> 32U;
    const Limb low = aLow * bLow;
    // Cannot overflow: (2^32 - 1)^2 + 2 * (2^32 - 1) is 2^64 - 1.
    const Limb cross = aHigh * bLow + (low >> 32U);
    const Limb middle = aLow * bHigh + (cross & 0xFFFFFFFFU);
    return {middle << 32U | (low & 0xFFFFFFFFU), aHigh * bHigh + (cross >> 32U) + (middle >> 32U)};
#endif
}

/// a * b + c + d, which always fits
ORVXX_ALWAYS_INLINE Wide multiplyAdd(Limb a, Limb b, Limb c, Limb d) noexcept {
#if ORVXX_HAS_UINT128
    const uint128 sum = uint128{a} * b + c + d;
    return {static_cast<Limb>(sum), static_cast<Limb>(sum >> 64U)};
#else
    Wide sum = multiplyLimbs(a, b);
    sum.low += c;
    sum.high += sum.low < c ? 1U : 0U;
    sum.low += d;
    sum.high += sum.low < d ? 1U : 0U;
    return sum;
#endif
}

} // namespace orv::words

#endif
