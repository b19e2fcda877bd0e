// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Multiplication of word arrays by schoolbook rows, and the choice of the method.
#include "orv/liborvxx/number/words/multiply.h"

#include "orv/liborvxx/number/words/karatsuba.h"
#include "orv/liborvxx/number/words/overlap.h"
#include "orv/liborvxx/number/words/rows.h"
#include "orv/liborvxx/number/words/scratch.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace orv::words {

namespace {

// Words of scratch on the stack.
constexpr unsigned INLINE_SCRATCH = 640;

// Without memory the schoolbook has to do.
void multiplyLong(Word* dst, const Word* a, unsigned an, const Word* b, unsigned bn) noexcept {
    if (bn < KARATSUBA_MIN) {
        multiplySchoolbook(dst, a, an, b, bn);
        return;
    }
    Scratch<INLINE_SCRATCH> scratch(karatsubaScratch(an, bn), std::nothrow);
    if (scratch.data() != nullptr) {
        multiplyKaratsuba(dst, a, an, b, bn, scratch.data());
    } else {
        multiplySchoolbook(dst, a, an, b, bn);
    }
}

} // namespace

Word multiply(Word* p, unsigned n, Word factor) noexcept {
    return static_cast<Word>(multiplyRow(p, p, n, factor));
}

void multiplySchoolbook(Word* dst, const Word* a, unsigned an, const Word* b,
                        unsigned bn) noexcept {
    if (bn == 1) {
        dst[an] = static_cast<Word>(multiplyRow(dst, a, an, b[0]));
        return;
    }
    unsigned j = 2;
    if (bn < 4) {
        store(dst + an, multiplyRow(dst, a, an, load(b)));
    } else {
        multiplyTwoRows<false>(dst, a, an, load(b), load(b + 2));
        for (j = 4; j + 4 <= bn; j += 4) {
            multiplyTwoRows<true>(dst + j, a, an, load(b + j), load(b + j + 2));
        }
        if (j + 2 <= bn) {
            store(dst + j + an, addMultipliedRow(dst + j, a, an, load(b + j)));
            j += 2;
        }
    }
    if (j < bn) {
        dst[j + an] = static_cast<Word>(addMultipliedRow(dst + j, a, an, b[j]));
    }
}

void multiply(Word* dst, unsigned dn, const Word* a, unsigned an, const Word* b,
              unsigned bn) noexcept {
    assert(an > 0 && bn > 0 && dn >= an + bn);
    assert(apart(dst, dn, a, an) && apart(dst, dn, b, bn));
    if (an < bn) {
        std::swap(a, b);
        std::swap(an, bn);
    }
    multiplyLong(dst, a, an, b, bn);
    std::fill(dst + an + bn, dst + dn, 0U);
}

} // namespace orv::words
