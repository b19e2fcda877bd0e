// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Addition and subtraction of numbers in word arrays.
#include "orv/liborvxx/number/words/add.h"

#include "orv/liborvxx/number/words/carry.h"
#include "orv/liborvxx/number/words/compare.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace orv::words {

namespace {

constexpr Word ONES = 0xFFFFFFFFU;

// dst = a + carry
bool addCarryOn(Word* dst, const Word* a, unsigned n, bool carry) {
    unsigned i = 0;
    for (; carry && i < n; ++i) {
        dst[i] = a[i] + 1;
        carry = dst[i] == 0;
    }
    if (dst != a) {
        std::copy(a + i, a + n, dst + i);
    }
    return carry;
}

// dst = a - borrow
bool subtractBorrowOn(Word* dst, const Word* a, unsigned n, bool borrow) {
    unsigned i = 0;
    for (; borrow && i < n; ++i) {
        borrow = a[i] == 0;
        dst[i] = a[i] - 1;
    }
    if (dst != a) {
        std::copy(a + i, a + n, dst + i);
    }
    return borrow;
}

// dst = -b - borrow: until the first bit is set, -b has zeros as b has; above it, all is inverted.
bool negate(Word* dst, const Word* b, unsigned n, bool borrow) {
    unsigned i = 0;
    for (; !borrow && i < n; ++i) {
        borrow = b[i] != 0;
        dst[i] = 0 - b[i];
    }
    for (; i < n; ++i) {
        dst[i] = ~b[i];
    }
    return borrow;
}

// What stands at word dn and above in a - b, both longer than dn and an no less than bn: -1 if it
// is negative, 2 if it exceeds 1.
int differenceAbove(unsigned dn, const Word* a, unsigned an, const Word* b, unsigned bn) {
    bool borrow = false;
    Word first = 0;
    Word others = 0;
    for (unsigned i = dn; i < an; ++i) {
        const Word difference = subtractBorrow(a[i], i < bn ? b[i] : 0U, borrow);
        (i == dn ? first : others) |= difference;
    }
    if (borrow) {
        return -1;
    }
    return others != 0 || first > 1 ? 2 : static_cast<int>(first);
}

// What stands at word dn and above in a - b, brought into the range from -1 to 2. Neither number
// has a zero word at its top, unless it is zero.
int highDifference(unsigned dn, const Word* a, unsigned an, const Word* b, unsigned bn) {
    if (bn <= dn) {
        return an <= dn ? 0 : an == dn + 1 && a[dn] == 1 ? 1 : 2;
    }
    if (an < bn) {
        return -1;
    }
    return differenceAbove(dn, a, an, b, bn);
}

} // namespace

bool add(Word* dst, const Word* a, const Word* b, unsigned n) noexcept {
    bool carry = false;
    unsigned i = 0;
    for (; n - i >= 8; i += 8) {
        addFourLimbs(dst + i, a + i, b + i, carry);
    }
    for (; n - i >= 2; i += 2) {
        store(dst + i, addCarry(load(a + i), load(b + i), carry));
    }
    if (i < n) {
        dst[i] = addCarry(a[i], b[i], carry);
    }
    return carry;
}

bool subtract(Word* dst, const Word* a, const Word* b, unsigned n) noexcept {
    bool borrow = false;
    unsigned i = 0;
    for (; n - i >= 8; i += 8) {
        subtractFourLimbs(dst + i, a + i, b + i, borrow);
    }
    for (; n - i >= 2; i += 2) {
        store(dst + i, subtractBorrow(load(a + i), load(b + i), borrow));
    }
    if (i < n) {
        dst[i] = subtractBorrow(a[i], b[i], borrow);
    }
    return borrow;
}

bool addAnySizes(Word* dst, unsigned dn, const Word* a, unsigned an, const Word* b,
                 unsigned bn) noexcept {
    assert(dn > 0 && an > 0 && bn > 0);
    an = trimmedSize(a, an);
    bn = trimmedSize(b, bn);
    // Above the width is a word that is not zero.
    const bool lost = an > dn || bn > dn;
    an = std::min(an, dn);
    bn = std::min(bn, dn);
    if (an < bn) {
        std::swap(a, b);
        std::swap(an, bn);
    }
    bool carry = add(dst, a, b, bn);
    carry = addCarryOn(dst + bn, a + bn, an - bn, carry);
    if (an == dn) {
        return carry || lost;
    }
    dst[an] = carry ? 1 : 0;
    std::fill(dst + an + 1, dst + dn, 0U);
    return lost;
}

int subtractAnySizes(Word* dst, unsigned dn, const Word* a, unsigned an, const Word* b,
                     unsigned bn) noexcept {
    assert(dn > 0 && an > 0 && bn > 0);
    an = trimmedSize(a, an);
    bn = trimmedSize(b, bn);
    const int high = highDifference(dn, a, an, b, bn);
    an = std::min(an, dn);
    bn = std::min(bn, dn);
    const unsigned shared = std::min(an, bn);
    bool borrow = subtract(dst, a, b, shared);
    borrow = an > bn ? subtractBorrowOn(dst + shared, a + shared, an - shared, borrow)
                     : negate(dst + shared, b + shared, bn - shared, borrow);
    std::fill(dst + std::max(an, bn), dst + dn, borrow ? ONES : 0U);
    return high - (borrow ? 1 : 0);
}

bool add(Word* dst, unsigned n, Word value) noexcept {
    if (n == 0) {
        return value != 0;
    }
    *dst += value;
    return *dst < value && increment(dst + 1, n - 1);
}

bool subtract(Word* dst, unsigned dn, const Word* b, unsigned bn) noexcept {
    assert(bn <= dn);
    return subtract(dst, dst, b, bn) && decrement(dst + bn, dn - bn);
}

bool increment(Word* dst, unsigned n) noexcept {
    return addCarryOn(dst, dst, n, true);
}

bool decrement(Word* dst, unsigned n) noexcept {
    return subtractBorrowOn(dst, dst, n, true);
}

} // namespace orv::words
