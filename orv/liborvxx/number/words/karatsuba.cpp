// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Karatsuba's multiplication of word arrays.
#include "orv/liborvxx/number/words/karatsuba.h"

#include "orv/liborvxx/number/words/add.h"
#include "orv/liborvxx/number/words/compare.h"
#include "orv/liborvxx/number/words/multiply.h"

#include <algorithm>
#include <cassert>

namespace orv::words {

namespace {

// Words of the low halves: even, so that limbs stay whole.
unsigned half(unsigned an) noexcept {
    return (an + 3) / 4 * 2;
}

// dst = |x - y| over n words, of which y has yn.
// Returns whether the difference is negative.
bool absoluteDifference(Word* dst, const Word* x, unsigned n, const Word* y, unsigned yn) noexcept {
    if (compare(x, n, y, yn) < 0) {
        subtract(dst, n, y, yn, x, n);
        return true;
    }
    subtract(dst, n, x, n, y, yn);
    return false;
}

// With a = a1 * H + a0 and b = b1 * H + b0, H = 2^(32 * h):
// a * b = a1 * b1 * H^2 + (a0 * b0 + a1 * b1 - (a0 - a1) * (b0 - b1)) * H + a0 * b0.
// The middle product takes 2h words of scratch and leaves the rest to the recursion.
void multiplyHalves(Word* dst, const Word* a, unsigned an, const Word* b, unsigned bn,
                    Word* scratch) noexcept {
    const unsigned h = half(an);
    const unsigned a1n = an - h;
    const unsigned b1n = bn - h;
    Word* const middle = scratch;
    Word* const rest = scratch + 2 * h;
    const bool negative =
        absoluteDifference(dst, a, h, a + h, a1n) != absoluteDifference(dst + h, b, h, b + h, b1n);
    multiplyKaratsuba(middle, dst, h, dst + h, h, rest);
    multiplyKaratsuba(dst, a, h, b, h, rest);
    multiplyKaratsuba(dst + 2 * h, a + h, a1n, b + h, b1n, rest);
    // The middle, with what stands above its 2h words, is not negative: at most 2H^2.
    Word above = 0;
    if (negative) {
        above = add(middle, middle, dst, 2 * h) ? 1 : 0;
    } else {
        above -= subtract(middle, dst, middle, 2 * h) ? 1U : 0U;
    }
    above += add(middle, 2 * h, middle, 2 * h, dst + 2 * h, a1n + b1n) ? 1U : 0U;
    // The whole product fits, so what the middle has above the words of dst is 0.
    const unsigned room = a1n + bn;
    const unsigned n = std::min(2 * h, room);
    const Word carry = add(dst + h, dst + h, middle, n) ? 1 : 0;
    add(dst + h + n, room - n, above + carry);
}

// a is cut into blocks of bn words.
void multiplyBlocks(Word* dst, const Word* a, unsigned an, const Word* b, unsigned bn,
                    Word* scratch) noexcept {
    multiplyKaratsuba(dst, a, bn, b, bn, scratch);
    Word* const product = scratch;
    Word* const rest = scratch + 2 * bn;
    for (unsigned i = bn; i < an; i += bn) {
        const unsigned n = std::min(bn, an - i);
        multiplyKaratsuba(product, b, bn, a + i, n, rest);
        // The words of dst from i + bn on are still unset.
        const bool carry = add(dst + i, dst + i, product, bn);
        std::copy(product + bn, product + bn + n, dst + i + bn);
        add(dst + i + bn, n, carry ? 1 : 0);
    }
}

} // namespace

// A product in blocks takes 2 * bn and then what two operands of bn words take. Each halving takes
// 2h and then what operands of up to h words take, which is no less in blocks.
unsigned karatsubaScratch(unsigned an, unsigned bn) noexcept {
    if (bn < KARATSUBA_MIN) {
        return 0;
    }
    const bool inBlocks = bn <= half(an);
    unsigned total = inBlocks ? 2 * bn : 0;
    for (unsigned n = inBlocks ? bn : an; n >= KARATSUBA_MIN;) {
        n = half(n);
        total += 2 * n;
    }
    return total;
}

void multiplyKaratsuba(Word* dst, const Word* a, unsigned an, const Word* b, unsigned bn,
                       Word* scratch) noexcept {
    assert(an >= bn);
    if (bn < KARATSUBA_MIN) {
        multiplySchoolbook(dst, a, an, b, bn);
    } else if (bn > half(an)) {
        multiplyHalves(dst, a, an, b, bn, scratch);
    } else {
        multiplyBlocks(dst, a, an, b, bn, scratch);
    }
}

} // namespace orv::words
