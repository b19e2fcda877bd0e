// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Products of 64 bits and a power of ten, rounded where 128 bits of the power decide.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_SCALED_PRODUCT_H
#define ORV_LIBORVXX_LOCALE_DETAIL_SCALED_PRODUCT_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/detail/pow10_table.h"
#include "orv/liborvxx/number/words/limb.h"

#include <cassert>
#include <optional>

namespace orv::detail {

/// coefficient * pow10Significand(scale), in three limbs.
struct ScaledProduct {
    /// \param scale one of pow10_table.h
    ScaledProduct(words::Limb coefficient, int scale) noexcept
        : isExact(scale >= 0 && scale <= MOST_EXACT) {
        const words::Wide& power = pow10Significand(scale);
        const words::Wide lower = words::multiplyLimbs(coefficient, power.low);
        const words::Wide upper = words::multiplyAdd(coefficient, power.high, lower.high, 0);
        high = upper.high;
        middle = upper.low;
        low = lower.low;
    }

    /// Doubles the product.
    /// \pre its top bit is not set
    void shiftLeft() noexcept {
        assert(high >> 63U == 0);
        high = high << 1U | middle >> 63U;
        middle = middle << 1U | low >> 63U;
        low <<= 1U;
    }

    /// The last power of ten that the table has exactly.
    static constexpr int MOST_EXACT = 55;

    words::Limb high;
    words::Limb middle;
    words::Limb low;
    bool isExact;
};

/// The product in units of 2^(128 + \p fractionBits), cut to an integer, and whether the nearest
/// one, of two the even one, is the next.
///
/// A power that is not exact is less than 1 too small, so the product is less than 2^64 too small,
/// and 2^65 if it was doubled. With what is cut below, that is less than 3 in the last place of the
/// fraction. Within so much of one half nothing is known of such a product.
/// \pre \p fractionBits is from 0 to 64
ORVXX_ALWAYS_INLINE std::optional<bool>
cutProduct(const ScaledProduct& product, unsigned fractionBits, words::Limb& integer) noexcept {
    assert(fractionBits <= 64);
    constexpr words::Limb HALF = words::Limb{1} << 63U;
    words::Limb fraction = product.middle;
    words::Limb rest = product.low;
    integer = product.high;
    if (fractionBits == 64) {
        integer = 0;
        fraction = product.high;
        rest |= product.middle;
    } else if (fractionBits > 0) {
        integer = product.high >> fractionBits;
        fraction = product.high << (64 - fractionBits) | product.middle >> fractionBits;
        rest |= product.middle << (64 - fractionBits);
    }
    if (fraction > HALF) {
        return true;
    }
    if (product.isExact) {
        return fraction == HALF && (rest != 0 || (integer & 1U) != 0);
    }
    if (fraction < HALF - 3) {
        return false;
    }
    return std::nullopt;
}

} // namespace orv::detail

#endif
