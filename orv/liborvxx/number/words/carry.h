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

/// dst = a + b + \p carry, in eight words; \p carry becomes what does not fit.
ORVXX_ALWAYS_INLINE void addFourLimbs(Word* dst, const Word* a, const Word* b,
                                      bool& carry) noexcept {
    Limb x0 = load(a), x1 = load(a + 2), x2 = load(a + 4), x3 = load(a + 6);
#if defined(ORVXX_CARRY_STEPS)
    ORVXX_CARRY_STEPS("adcq", x0, x1, x2, x3, load(b), load(b + 2), load(b + 4), load(b + 6),
                      carry);
#else
    x0 = addCarry(x0, load(b), carry);
    x1 = addCarry(x1, load(b + 2), carry);
    x2 = addCarry(x2, load(b + 4), carry);
    x3 = addCarry(x3, load(b + 6), carry);
#endif
    store(dst, x0);
    store(dst + 2, x1);
    store(dst + 4, x2);
    store(dst + 6, x3);
}

/// dst = a - b - \p borrow, in eight words; \p borrow becomes what is missing.
ORVXX_ALWAYS_INLINE void subtractFourLimbs(Word* dst, const Word* a, const Word* b,
                                           bool& borrow) noexcept {
    Limb x0 = load(a), x1 = load(a + 2), x2 = load(a + 4), x3 = load(a + 6);
#if defined(ORVXX_CARRY_STEPS)
    ORVXX_CARRY_STEPS("sbbq", x0, x1, x2, x3, load(b), load(b + 2), load(b + 4), load(b + 6),
                      borrow);
#else
    x0 = subtractBorrow(x0, load(b), borrow);
    x1 = subtractBorrow(x1, load(b + 2), borrow);
    x2 = subtractBorrow(x2, load(b + 4), borrow);
    x3 = subtractBorrow(x3, load(b + 6), borrow);
#endif
    store(dst, x0);
    store(dst + 2, x1);
    store(dst + 4, x2);
    store(dst + 6, x3);
}

} // namespace orv::words

#endif
