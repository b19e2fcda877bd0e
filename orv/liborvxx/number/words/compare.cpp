// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison of numbers in word arrays.
#include "orv/liborvxx/number/words/compare.h"

#include <algorithm>
#include <cassert>

namespace orv::words {

int compare(const Word* a, unsigned an, const Word* b, unsigned bn) noexcept {
    assert(an > 0 && bn > 0);
    unsigned n = std::min(an, bn);
    if (an != bn && !isZero((an > bn ? a : b) + n, std::max(an, bn) - n)) {
        return an > bn ? 1 : -1;
    }
    for (; n >= 2; n -= 2) {
        const Limb x = load(a + n - 2);
        const Limb y = load(b + n - 2);
        if (x != y) {
            return x < y ? -1 : 1;
        }
    }
    return n == 0 || *a == *b ? 0 : *a < *b ? -1 : 1;
}

bool equals(const Word* a, unsigned an, const Word* b, unsigned bn) noexcept {
    assert(an > 0 && bn > 0);
    const unsigned n = std::min(an, bn);
    unsigned i = 0;
    for (; n - i >= 2; i += 2) {
        if (load(a + i) != load(b + i)) {
            return false;
        }
    }
    return (i == n || a[i] == b[i]) &&
           (an == bn || isZero((an > bn ? a : b) + n, std::max(an, bn) - n));
}

bool isZero(const Word* a, unsigned n) noexcept {
    unsigned i = 0;
    for (; n - i >= 2; i += 2) {
        if (load(a + i) != 0) {
            return false;
        }
    }
    return i == n || a[i] == 0;
}

} // namespace orv::words
