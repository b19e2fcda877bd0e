// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rows: an array of words times one limb. Products and long division are made of them.
///
/// Where an array has an odd number of words its last step takes 32 bits, so that nothing beyond
/// the array is touched. What a row returns stands above its last word: 64 bits, or 32 if the
/// factor has no more.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_ROWS_H
#define ORV_LIBORVXX_NUMBER_WORDS_ROWS_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// dst = x * factor, over \p n words. \p dst may be \p x.
/// \return what did not fit
ORVXX_ALWAYS_INLINE Limb multiplyRow(Word* dst, const Word* x, unsigned n, Limb factor) noexcept {
    Limb carry = 0;
    unsigned i = 0;
    for (; i + 2 <= n; i += 2) {
        const Wide t = multiplyAdd(load(x + i), factor, carry, 0);
        store(dst + i, t.low);
        carry = t.high;
    }
    if (i < n) { // at most 96 bits
        const Wide t = multiplyAdd(x[i], factor, carry, 0);
        dst[i] = static_cast<Word>(t.low);
        carry = t.low >> 32U | t.high << 32U;
    }
    return carry;
}

/// dst += x * factor, over \p n words.
/// \return what did not fit
ORVXX_ALWAYS_INLINE Limb addMultipliedRow(Word* dst, const Word* x, unsigned n,
                                          Limb factor) noexcept {
    Limb carry = 0;
    unsigned i = 0;
    for (; i + 2 <= n; i += 2) {
        const Wide t = multiplyAdd(load(x + i), factor, load(dst + i), carry);
        store(dst + i, t.low);
        carry = t.high;
    }
    if (i < n) { // at most 96 bits
        const Wide t = multiplyAdd(x[i], factor, dst[i], carry);
        dst[i] = static_cast<Word>(t.low);
        carry = t.low >> 32U | t.high << 32U;
    }
    return carry;
}

/// dst = x * factor or, with \p Add, dst += x * factor, over \p n words, for a factor of two limbs.
/// What stands above is stored in the four words from dst + n on. It reads and writes \p dst once
/// for two rows, and so takes two thirds of their time.
template <bool Add>
ORVXX_ALWAYS_INLINE void multiplyTwoRows(Word* dst, const Word* x, unsigned n, Limb low,
                                         Limb high) noexcept {
    Wide carry{0, 0};
    unsigned i = 0;
    for (; i + 2 <= n; i += 2) {
        const Limb limb = load(x + i);
        const Wide t = multiplyAdd(limb, low, carry.low, Add ? load(dst + i) : 0);
        store(dst + i, t.low);
        carry = multiplyAdd(limb, high, carry.high, t.high);
    }
    if (i < n) { // t and s have at most 96 bits, and s is worth B
        const Wide t = multiplyAdd(x[i], low, carry.low, Add ? dst[i] : 0);
        const Wide s = multiplyAdd(x[i], high, carry.high, 0);
        dst[i] = static_cast<Word>(t.low);
        carry.low = (t.low >> 32U | t.high << 32U) + (s.low << 32U);
        carry.high = (s.low >> 32U | s.high << 32U) + (carry.low < s.low << 32U ? 1U : 0U);
    }
    store(dst + n, carry.low);
    store(dst + n + 2, carry.high);
}

/// dst -= x * factor, over \p n words.
/// \pre \p n is even
/// \return what is still to be subtracted above
ORVXX_ALWAYS_INLINE Limb subtractMultipliedRow(Word* dst, const Word* x, unsigned n,
                                               Limb factor) noexcept {
    Limb borrow = 0;
    for (unsigned i = 0; i < n; i += 2) {
        // The high limb is at most 2^64 - 2 where the low one is not 0, so it can take one more.
        const Wide t = multiplyAdd(load(x + i), factor, borrow, 0);
        const Limb minuend = load(dst + i);
        store(dst + i, minuend - t.low);
        borrow = t.high + (minuend < t.low ? 1U : 0U);
    }
    return borrow;
}

} // namespace orv::words

#endif
