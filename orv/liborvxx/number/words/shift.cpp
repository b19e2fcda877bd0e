// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Shifts of numbers in word arrays.
#include "orv/liborvxx/number/words/shift.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace orv::words {

namespace {

// A word of the result: the low bits of a[1], and below them, `up` in number, the top bits of a[0].
ORVXX_ALWAYS_INLINE Word joinWord(const Word* a, unsigned up) {
    return a[1] << up | a[0] >> (32 - up);
}

// The same for words a[1] and a[2].
ORVXX_ALWAYS_INLINE Limb joinLimb(const Word* a, unsigned up) {
    return load(a + 1) << up | a[0] >> (32 - up);
}

// The same for words a[1] to a[4]. All is read before anything is written.
ORVXX_ALWAYS_INLINE void joinFour(Word* dst, const Word* a, unsigned up) {
#if ORVXX_HAS_VECTORS
    uint32x4 low;
    uint32x4 high;
    std::memcpy(&low, a, sizeof low);
    std::memcpy(&high, a + 1, sizeof high);
    high = high << up | low >> (32 - up);
    std::memcpy(dst, &high, sizeof high);
#else
    const Limb low = joinLimb(a, up);
    const Limb high = joinLimb(a + 2, up);
    store(dst, low);
    store(dst + 2, high);
#endif
}

// dst[i] = word i + 1 of a, and below it the top `up` bits of word i; from the top down.
void joinDown(Word* dst, const Word* a, unsigned n, unsigned up) {
    for (; n >= 4; n -= 4) {
        joinFour(dst + n - 4, a + n - 4, up);
    }
    if (n >= 2) {
        n -= 2;
        store(dst + n, joinLimb(a + n, up));
    }
    if (n != 0) {
        *dst = joinWord(a, up);
    }
}

// The same from the bottom up.
void joinUp(Word* dst, const Word* a, unsigned n, unsigned up) {
    unsigned i = 0;
    for (; n - i >= 4; i += 4) {
        joinFour(dst + i, a + i, up);
    }
    if (n - i >= 2) {
        store(dst + i, joinLimb(a + i, up));
        i += 2;
    }
    if (i != n) {
        dst[i] = joinWord(a + i, up);
    }
}

} // namespace

void shiftLeft(Word* dst, unsigned dn, const Word* a, unsigned an, unsigned bits) noexcept {
    assert(dn > 0 && an > 0);
    const unsigned zeros = std::min(bits / 32, dn);
    const unsigned up = bits % 32;
    // Words of a that fall into the width, and the word above them.
    const unsigned used = std::min(dn - zeros, an);
    const unsigned end = zeros + used;
    if (up == 0) {
        std::copy_backward(a, a + used, dst + end);
        std::fill(dst + end, dst + dn, 0U);
    } else if (used != 0) {
        if (end < dn) {
            std::fill(dst + end + 1, dst + dn, 0U);
            dst[end] = a[used - 1] >> (32 - up);
        }
        joinDown(dst + zeros + 1, a, used - 1, up);
        dst[zeros] = a[0] << up;
    }
    std::fill(dst, dst + zeros, 0U);
}

void shiftRight(Word* dst, unsigned dn, const Word* a, unsigned an, unsigned bits) noexcept {
    assert(dn > 0 && an > 0);
    const unsigned skipped = std::min(bits / 32, an);
    const unsigned down = bits % 32;
    a += skipped;
    an -= skipped;
    const unsigned used = std::min(dn, an);
    if (down == 0) {
        std::copy(a, a + used, dst);
    } else if (used != 0) {
        // The top word of a has nothing above it.
        const unsigned joined = std::min(dn, an - 1);
        joinUp(dst, a, joined, 32 - down);
        if (joined < used) {
            dst[joined] = a[joined] >> down;
        }
    }
    std::fill(dst + used, dst + dn, 0U);
}

} // namespace orv::words
