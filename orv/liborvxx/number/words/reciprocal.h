// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Division of two or three limbs by one or two, through a reciprocal of the divisor: N.
/// Möller and T. Granlund, "Improved division by invariant integers", IEEE Transactions on
/// Computers 60 (2011).
///
/// Divisors are normalised: their top bit is set. B is 2^64.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_RECIPROCAL_H
#define ORV_LIBORVXX_NUMBER_WORDS_RECIPROCAL_H

#include "orv/liborvxx/number/words/limb.h"

#include <array>
#include <cassert>

namespace orv::words {

/// floor((2^19 - 3 * 2^8) / d) for d from 256 to 511: the first 11 bits of a reciprocal.
inline constexpr std::array<std::uint16_t, 256> RECIPROCAL_START = [] {
    std::array<std::uint16_t, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        table[i] = static_cast<std::uint16_t>(((1U << 19U) - (3U << 8U)) / (256 + i));
    }
    return table;
}();

/// floor((B^2 - 1) / d) - B, by three Newton steps (the paper's algorithm 2; its section 3 bounds
/// the error of each).
/// \pre \p d is normalised
inline Limb reciprocal(Limb d) noexcept {
    assert(d >> 63U == 1);
    const Limb d40 = (d >> 24U) + 1;
    const Limb half = (d >> 1U) + (d & 1U);
    const Limb v0 = RECIPROCAL_START[(d >> 55U) - 256];
    const Limb v1 = (v0 << 11U) - (v0 * v0 * d40 >> 40U) - 1;
    const Limb v2 = (v1 << 13U) + (v1 * ((Limb{1} << 60U) - v1 * d40) >> 47U);
    const Limb e = ((d & 1U) != 0 ? v2 >> 1U : 0) - v2 * half;
    const Limb v3 = (v2 << 31U) + (multiplyLimbs(v2, e).high >> 1U);
    return v3 - (multiplyAdd(v3, d, d, 0).high + d);
}

/// A quotient limb; the remainder goes where the numerator came from.
///
/// \p high and \p low are divided by \p d, whose reciprocal is \p v (the paper's algorithm 4); the
/// remainder replaces \p high.
/// \pre \p high is below \p d
ORVXX_ALWAYS_INLINE Limb divideTwoByOne(Limb& high, Limb low, Limb d, Limb v) noexcept {
    assert(high < d);
    const Wide t = multiplyAdd(v, high, low, 0);
    Limb q = t.high + high + 1;
    Limb r = low - q * d;
    if (r > t.low) {
        --q;
        r += d;
    }
    if (r >= d) { // rare
        ++q;
        r -= d;
    }
    high = r;
    return q;
}

/// A divisor of two limbs with floor((B^3 - 1) / (d1 * B + d0)) - B.
struct TwoLimbs {
    Limb d1;
    Limb d0;
    Limb v;
};

/// The paper's algorithm 6.
/// \pre \p d1 is normalised
inline TwoLimbs withReciprocal(Limb d1, Limb d0) noexcept {
    Limb v = reciprocal(d1);
    Limb p = d1 * v + d0;
    if (p < d0) {
        --v;
        if (p >= d1) {
            --v;
            p -= d1;
        }
        p -= d1;
    }
    const Wide t = multiplyLimbs(v, d0);
    p += t.high;
    if (p < t.high) {
        --v;
        if (p > d1 || (p == d1 && t.low >= d0)) {
            --v;
        }
    }
    return {d1, d0, v};
}

/// Divides \p n2, \p n1, \p n0 by \p d; the remainder replaces \p n2 and \p n1 (the paper's
/// algorithm 5).
/// \pre \p n2 and \p n1 together are below the divisor
/// \return the quotient
ORVXX_ALWAYS_INLINE Limb divideThreeByTwo(Limb& n2, Limb& n1, Limb n0, const TwoLimbs& d) noexcept {
    assert(n2 < d.d1 || (n2 == d.d1 && n1 < d.d0));
    const Wide t = multiplyAdd(d.v, n2, n1, 0);
    Limb q = t.high + n2;
    const Wide s = multiplyLimbs(d.d0, q);
    // n - (q + 1) * d, modulo B^2
    Limb r1 = n1 - q * d.d1 - d.d1;
    Limb r0 = n0 - d.d0;
    r1 -= n0 < d.d0 ? 1U : 0U;
    r1 -= s.high + (r0 < s.low ? 1U : 0U);
    r0 -= s.low;
    ++q;
    if (r1 >= t.low) {
        --q;
        r0 += d.d0;
        r1 += d.d1 + (r0 < d.d0 ? 1U : 0U);
    }
    if (r1 > d.d1 || (r1 == d.d1 && r0 >= d.d0)) { // rare
        ++q;
        r1 -= d.d1 + (r0 < d.d0 ? 1U : 0U);
        r0 -= d.d0;
    }
    n2 = r1;
    n1 = r0;
    return q;
}

} // namespace orv::words

#endif
