// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Division of word arrays by one word or limb, and by long division.
#include "orv/liborvxx/number/words/divide.h"

#include "orv/liborvxx/number/words/bits.h"
#include "orv/liborvxx/number/words/compare.h"
#include "orv/liborvxx/number/words/long_division.h"
#include "orv/liborvxx/number/words/overlap.h"
#include "orv/liborvxx/number/words/scratch.h"
#include "orv/liborvxx/number/words/shift.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <stdexcept>

namespace orv::words {

namespace {

// Up to this size a step of the processor's own division for each word beats a reciprocal.
constexpr unsigned MAX_PLAIN = 4;

// Words of scratch on the stack.
constexpr unsigned INLINE_SCRATCH = 320;

constexpr unsigned LIMB_BITS = 64;

// A divisor of one limb, normalised.
struct OneLimb {
    constexpr OneLimb(unsigned bits, Limb normalised, Limb itsReciprocal) noexcept
        : shift(bits), d(normalised), v(itsReciprocal) {}

    explicit OneLimb(Limb divisor) noexcept
        : shift(static_cast<unsigned>(std::countl_zero(divisor))), d(divisor << shift),
          v(reciprocal(d)) {}

    unsigned shift;
    Limb d;
    Limb v;
};

// 10 * 2^60, and floor((B^2 - 1) / (10 * 2^60)) - B, which is 3/5 of B.
constexpr OneLimb TEN(60, 0xA000000000000000U, 0x9999999999999999U);

Word dividePlain(Word* q, const Word* a, unsigned n, Word divisor) noexcept {
    Limb r = 0;
    for (unsigned i = n; i-- > 0;) {
        const Limb numerator = r << 32U | a[i];
        const Limb digit = numerator / divisor;
        q[i] = static_cast<Word>(digit);
        r = numerator - digit * divisor;
    }
    return static_cast<Word>(r);
}

// Divides by a limb with the shift applied on the way, and stores the low qn words of the quotient:
// n, or n - 1 where the divisor exceeds one word. The remainder is kept shifted: its low bits are 0
// and take in the top bits of the next limb.
Limb divideByLimb(Word* q, unsigned qn, const Word* a, unsigned n,
                  const OneLimb& divisor) noexcept {
    Limb r = 0;
    const auto step = [&](Limb limb) {
        r |= limb >> 1U >> (LIMB_BITS - 1 - divisor.shift);
        return divideTwoByOne(r, limb << divisor.shift, divisor.d, divisor.v);
    };
    unsigned i = n;
    if (n % 2 != 0) {
        --i;
        const auto digit = static_cast<Word>(step(a[i]));
        if (i < qn) {
            q[i] = digit;
        }
    } else if (qn < n) {
        i -= 2;
        q[i] = static_cast<Word>(step(load(a + i)));
    }
    while (i > 0) {
        i -= 2;
        store(q + i, step(load(a + i)));
    }
    return r >> divisor.shift;
}

// Long division with bn of at least 3 and an of at least bn. Stores an - bn + 1 words of quotient
// and bn words of remainder.
void divideLong(Word* q, Word* r, const Word* a, unsigned an, const Word* b, unsigned bn) {
    const unsigned dn = roundUp(bn);
    const unsigned shift = dn * 32 - 1 - static_cast<unsigned>(highestSetBit(b, bn)); // 0 to 63
    // With its top bit 0, so that the first step finds less than B times the divisor.
    const unsigned un = (an * 32 + shift) / LIMB_BITS * 2 + 2;
    const unsigned qn = an - bn + 1;
    Scratch<INLINE_SCRATCH> scratch(un + dn + longDivisionScratch(qn, dn));
    Word* const u = scratch.data();
    Word* const d = u + un;
    shiftLeft(u, un, a, an, shift);
    shiftLeft(d, dn, b, bn, shift);
    divideNormalised(q, qn, u, LongDivisor(d, dn), d + dn);
    if (r != nullptr) {
        shiftRight(r, bn, u, dn, shift);
    }
}

// Division with bn of 1 or 2 and an of at least bn. Stores an - bn + 1 words of quotient.
Limb divideShort(Word* q, const Word* a, unsigned an, const Word* b, unsigned bn) noexcept {
    if (bn == 1) {
        return an <= MAX_PLAIN ? dividePlain(q, a, an, b[0])
                               : divideByLimb(q, an, a, an, OneLimb(b[0]));
    }
    const Limb divisor = load(b);
    if (an == 2) {
        q[0] = static_cast<Word>(load(a) / divisor);
        return load(a) % divisor;
    }
    return divideByLimb(q, an - 1, a, an, OneLimb(divisor));
}

void storeRemainder(Word* r, unsigned bn, Limb remainder) noexcept {
    r[0] = static_cast<Word>(remainder);
    if (bn == 2) {
        r[1] = static_cast<Word>(remainder >> 32U);
    }
}

} // namespace

Word divide(Word* p, unsigned n, Word divisor) {
    if (divisor == 0) {
        throw std::overflow_error("divide by zero");
    }
    return n <= MAX_PLAIN ? dividePlain(p, p, n, divisor)
                          : static_cast<Word>(divideByLimb(p, n, p, n, OneLimb(divisor)));
}

Word divideBy10(Word* p, unsigned n) noexcept {
    return static_cast<Word>(divideByLimb(p, n, p, n, TEN));
}

void divide(Word* q, unsigned qn, Word* r, unsigned rn, const Word* a, unsigned an, const Word* b,
            unsigned bn) {
    assert(an > 0 && bn > 0 && qn > 0);
    assert(apart(q, qn, a, an) && apart(q, qn, b, bn));
    assert(r == nullptr || (apart(r, rn, a, an) && apart(r, rn, b, bn) && apart(q, qn, r, rn)));
    an = trimmedSize(a, an);
    bn = trimmedSize(b, bn);
    if (b[bn - 1] == 0) {
        throw std::overflow_error("divide by zero");
    }
    if (an < bn) {
        assert(r == nullptr || rn >= an);
        std::fill(q, q + qn, 0U);
        if (r != nullptr) {
            std::fill(std::copy(a, a + an, r), r + rn, 0U);
        }
        return;
    }
    assert(qn >= an - bn + 1);
    assert(r == nullptr || rn >= bn);
    if (bn > 2) {
        divideLong(q, r, a, an, b, bn);
    } else {
        const Limb remainder = divideShort(q, a, an, b, bn);
        if (r != nullptr) {
            storeRemainder(r, bn, remainder);
        }
    }
    std::fill(q + (an - bn + 1), q + qn, 0U);
    if (r != nullptr) {
        std::fill(r + bn, r + rn, 0U);
    }
}

} // namespace orv::words
