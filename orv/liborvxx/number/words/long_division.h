// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Long division in place by a normalised divisor.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_LONG_DIVISION_H
#define ORV_LIBORVXX_NUMBER_WORDS_LONG_DIVISION_H

#include "orv/liborvxx/number/words/reciprocal.h"

namespace orv::words {

/// A divisor of an even number of words, at least 4, with the top bit set.
struct LongDivisor {
    LongDivisor() = default;

    LongDivisor(const Word* d, unsigned dn) noexcept
        : words(d), n(dn), top(withReciprocal(load(d + dn - 2), load(d + dn - 4))) {}

    /// The top words of another divisor.
    LongDivisor(const LongDivisor& whole, unsigned dn) noexcept
        : words(whole.words + (whole.n - dn)), n(dn), top(whole.top) {}

    const Word* words = nullptr;
    unsigned n = 0;
    TwoLimbs top{};
};

/// The words of scratch that a division takes whose quotient has \p qn words.
unsigned longDivisionScratch(unsigned qn, unsigned dn) noexcept;

/// Divides \p u of d.n + roundUp(qn) words: the low \p qn words of the quotient go to \p q, the
/// remainder to the low d.n words of \p u. What \p u has above is lost.
///
/// Knuth's algorithm D (4.3.1) on limbs; for long quotients by long divisors recursive: C.
/// Burnikel and J. Ziegler, "Fast recursive division", 1998.
/// \pre the quotient has at most \p qn words; what stands in the top d.n words of \p u is less
///      than the divisor; \p qn is at least 1; \p scratch has longDivisionScratch(qn, d.n) words;
///      nothing overlaps
void divideNormalised(Word* q, unsigned qn, Word* u, const LongDivisor& d, Word* scratch) noexcept;

/// The next even number.
constexpr unsigned roundUp(unsigned n) noexcept {
    return n + n % 2;
}

} // namespace orv::words

#endif
