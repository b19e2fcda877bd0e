// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Division of word arrays.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_DIVIDE_H
#define ORV_LIBORVXX_NUMBER_WORDS_DIVIDE_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// Divides \p n words in place; 0 words are allowed.
/// \exception std::overflow_error "divide by zero"
/// \return the remainder
Word divide(Word* p, unsigned n, Word divisor);

/// The same by 10.
Word divideBy10(Word* p, unsigned n) noexcept;

/// q = a / b, and r = a mod b unless \p r is null; words above the results become 0.
/// \pre with m and n the numbers of words of \p a and \p b without zero words at the top (but at
///      least 1): \p qn is at least m - n + 1 (and 1); \p rn at least n, and at least m where m <
///      n; no result overlaps an operand or the other result
/// \exception std::overflow_error "divide by zero": nothing has been stored then
/// \exception std::bad_alloc for lack of scratch memory: nothing has been stored then
void divide(Word* q, unsigned qn, Word* r, unsigned rn, const Word* a, unsigned an, const Word* b,
            unsigned bn);

} // namespace orv::words

#endif
