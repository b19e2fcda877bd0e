// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Long division in place, by rows and by halves.
#include "orv/liborvxx/number/words/long_division.h"

#include "orv/liborvxx/number/words/add.h"
#include "orv/liborvxx/number/words/compare.h"
#include "orv/liborvxx/number/words/karatsuba.h"
#include "orv/liborvxx/number/words/multiply.h"
#include "orv/liborvxx/number/words/rows.h"

#include <algorithm>
#include <cassert>

namespace orv::words {

namespace {

// The least number of words in quotient and divisor for which halves pay.
constexpr unsigned HALVES_MIN = 56;

// One step (Knuth's D3 to D6): the divisor is subtracted from the d.n + 2 words at u as often as it
// fits, which is less than B times. The estimate from three limbs by two is the quotient or one
// more. The top limb of u is not cleared.
ORVXX_ALWAYS_INLINE Limb divideStep(Word* u, const LongDivisor& d) noexcept {
    const unsigned n = d.n;
    Limb n2 = load(u + n);
    Limb n1 = load(u + n - 2);
    if (n2 == d.top.d1 && n1 == d.top.d0) { // B - 1, exactly
        subtractMultipliedRow(u, d.words, n, ~Limb{0});
        return ~Limb{0};
    }
    Limb q = divideThreeByTwo(n2, n1, load(u + n - 4), d.top);
    const Limb borrow = subtractMultipliedRow(u, d.words, n - 4, q);
    const Limb borrowAbove = n1 < borrow ? 1 : 0;
    store(u + n - 4, n1 - borrow);
    store(u + n - 2, n2 - borrowAbove);
    if (n2 < borrowAbove) {
        --q;
        add(u, u, d.words, n);
    }
    return q;
}

// Quotient of qn words, an even number.
void divideByRows(Word* q, unsigned qn, Word* u, const LongDivisor& d) noexcept {
    for (unsigned j = qn; j > 0;) {
        j -= 2;
        store(q + j, divideStep(u + j, d));
    }
}

void divideBlock(Word* q, unsigned qn, Word* u, const LongDivisor& d, Word* scratch) noexcept;

// product = a * b
void multiplyAny(Word* product, const Word* a, unsigned an, const Word* b, unsigned bn,
                 Word* scratch) noexcept {
    if (an < bn) {
        multiplyKaratsuba(product, b, bn, a, an, scratch);
    } else {
        multiplyKaratsuba(product, a, an, b, bn, scratch);
    }
}

// A quotient shorter than the divisor: the top qn words of the divisor give an estimate, which is
// right or up to 2 too large, as the divisor is normalised.
void divideByTop(Word* q, unsigned qn, Word* u, const LongDivisor& d, Word* scratch) noexcept {
    const LongDivisor top(d, qn);
    const unsigned low = d.n - qn;
    divideBlock(q, qn, u + low, top, scratch);
    multiplyAny(scratch, q, qn, d.words, low, scratch + d.n);
    bool negative = subtract(u, u, scratch, d.n);
    while (negative) {
        decrement(q, qn);
        negative = !add(u, u, d.words, d.n);
    }
}

// A quotient of at most as many words as the divisor, both even.
void divideBlock(Word* q, unsigned qn, Word* u, const LongDivisor& d, Word* scratch) noexcept {
    assert(qn <= d.n);
    // With tops that are equal an estimate by the top would not fit. Next to no number has them.
    if (qn < HALVES_MIN || (qn < d.n && compare(u + d.n, qn, d.words + (d.n - qn), qn) >= 0)) {
        divideByRows(q, qn, u, d);
    } else if (qn == d.n) {
        const unsigned low = roundUp(qn / 2);
        divideBlock(q + low, qn - low, u + low, d, scratch);
        divideBlock(q, low, u, d, scratch);
    } else {
        divideByTop(q, qn, u, d, scratch);
    }
}

} // namespace

// For the product in divideByTop, whose factors have d.n words together.
unsigned longDivisionScratch(unsigned qn, unsigned dn) noexcept {
    return std::min(qn, dn) < HALVES_MIN ? 0 : dn + karatsubaScratch(dn, dn);
}

void divideNormalised(Word* q, unsigned qn, Word* u, const LongDivisor& d, Word* scratch) noexcept {
    assert(d.words[d.n - 1] >> 31U == 1 && d.n % 2 == 0 && d.n >= 4);
    assert(compare(u + roundUp(qn), d.n, d.words, d.n) < 0);
    if (qn % 2 != 0) { // the quotient's top limb is one word
        --qn;
        q[qn] = static_cast<Word>(divideStep(u + qn, d));
    }
    if (d.n < HALVES_MIN) {
        divideByRows(q, qn, u, d);
        return;
    }
    const unsigned first = qn % d.n;
    qn -= first;
    divideBlock(q + qn, first, u + qn, d, scratch);
    while (qn > 0) {
        qn -= d.n;
        divideBlock(q + qn, d.n, u + qn, d, scratch);
    }
}

} // namespace orv::words
