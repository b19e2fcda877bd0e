// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Addition and subtraction with a carry: one limb or word, and four limbs.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_CARRY_H
#define ORV_LIBORVXX_NUMBER_WORDS_CARRY_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// a + b + \p carry; \p carry becomes what does not fit.
/// @{
ORVXX_ALWAYS_INLINE Limb addCarry(Limb a, Limb b, bool& carry) noexcept {
#if ORVXX_HAS_CARRY_BUILTINS
    unsigned long long carryOut = 0;
    const Limb sum = __builtin_addcll(a, b, carry ? 1U : 0U, &carryOut);
    carry = carryOut != 0;
    return sum;
#else
    const Limb part = a + b;
    const Limb sum = part + (carry ? 1U : 0U);
    carry = (part < a) != (sum < part);
    return sum;
#endif
}
ORVXX_ALWAYS_INLINE Word addCarry(Word a, Word b, bool& carry) noexcept {
    const Limb sum = Limb{a} + b + (carry ? 1U : 0U);
    carry = sum >> 32U != 0;
    return static_cast<Word>(sum);
}
/// @}

/// a - b - \p borrow; \p borrow becomes what is missing.
/// @{
ORVXX_ALWAYS_INLINE Limb subtractBorrow(Limb a, Limb b, bool& borrow) noexcept {
#if ORVXX_HAS_CARRY_BUILTINS
    unsigned long long borrowOut = 0;
    const Limb difference = __builtin_subcll(a, b, borrow ? 1U : 0U, &borrowOut);
    borrow = borrowOut != 0;
    return difference;
#else
    const Limb part = a - b;
    const Limb difference = part - (borrow ? 1U : 0U);
    borrow = (a < b) != (part < difference);
    return difference;
#endif
}
ORVXX_ALWAYS_INLINE Word subtractBorrow(Word a, Word b, bool& borrow) noexcept {
    const Limb difference = Limb{a} - b - (borrow ? 1U : 0U);
    borrow = difference >> 32U != 0;
    return static_cast<Word>(difference);
}
/// @}

namespace detail {

template <bool SUBTRACT>
ORVXX_ALWAYS_INLINE void stepFourLimbs(Word* dst, const Word* a, const Word* b,
                                       bool& carry) noexcept {
    Limb x0 = load(a), x1 = load(a + 2), x2 = load(a + 4), x3 = load(a + 6);
    const Limb y0 = load(b), y1 = load(b + 2), y2 = load(b + 4), y3 = load(b + 6);
#if defined(ORVXX_CARRY_STEPS)
    if constexpr (SUBTRACT) {
        ORVXX_CARRY_STEPS("sbbq", x0, x1, x2, x3, y0, y1, y2, y3, carry);
    } else {
        ORVXX_CARRY_STEPS("adcq", x0, x1, x2, x3, y0, y1, y2, y3, carry);
    }
#else
    const auto step = [&carry](Limb x, Limb y) {
        return SUBTRACT ? subtractBorrow(x, y, carry) : addCarry(x, y, carry);
    };
    x0 = step(x0, y0);
    x1 = step(x1, y1);
    x2 = step(x2, y2);
    x3 = step(x3, y3);
#endif
    store(dst, x0);
    store(dst + 2, x1);
    store(dst + 4, x2);
    store(dst + 6, x3);
}

} // namespace detail

/// dst = a + b + \p carry, in eight words; \p carry becomes what does not fit.
ORVXX_ALWAYS_INLINE void addFourLimbs(Word* dst, const Word* a, const Word* b,
                                      bool& carry) noexcept {
    detail::stepFourLimbs<false>(dst, a, b, carry);
}

/// dst = a - b - \p borrow, in eight words; \p borrow becomes what is missing.
ORVXX_ALWAYS_INLINE void subtractFourLimbs(Word* dst, const Word* a, const Word* b,
                                           bool& borrow) noexcept {
    detail::stepFourLimbs<true>(dst, a, b, borrow);
}

} // namespace orv::words

#endif
