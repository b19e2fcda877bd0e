// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison of numbers in word arrays, by value: zero words at the top change nothing.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_COMPARE_H
#define ORV_LIBORVXX_NUMBER_WORDS_COMPARE_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// -1, 0 or 1. Stops at the first difference from the top.
/// \pre \p an and \p bn are at least 1
int compare(const Word* a, unsigned an, const Word* b, unsigned bn) noexcept;

/// \pre \p an and \p bn are at least 1
bool equals(const Word* a, unsigned an, const Word* b, unsigned bn) noexcept;

/// Whether all words are 0: true for none.
bool isZero(const Word* a, unsigned n) noexcept;

/// Whether all words but word 0 are 0: true for \p n of 0 or 1.
inline bool leadingWordsAreZero(const Word* a, unsigned n) noexcept {
    return n < 2 || isZero(a + 1, n - 1);
}

/// The size without zero words at the top; 1 at least.
/// \pre \p n is at least 1
inline unsigned trimmedSize(const Word* a, unsigned n) noexcept {
    while (n > 1 && a[n - 1] == 0) {
        --n;
    }
    return n;
}

} // namespace orv::words

#endif
