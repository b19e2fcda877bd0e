// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Multiplication of word arrays.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_MULTIPLY_H
#define ORV_LIBORVXX_NUMBER_WORDS_MULTIPLY_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// Multiplies \p n words in place; 0 words are allowed.
/// \return the word that did not fit
Word multiply(Word* p, unsigned n, Word factor) noexcept;

/// dst = a * b; words of \p dst above an + bn become 0.
/// \pre \p an and \p bn are at least 1, \p dn at least an + bn; \p dst overlaps neither operand
void multiply(Word* dst, unsigned dn, const Word* a, unsigned an, const Word* b,
              unsigned bn) noexcept;

/// The same with schoolbook rows whatever the sizes, O(an * bn), and without the zeros above:
/// writes an + bn words. Fastest with \p an at least \p bn.
void multiplySchoolbook(Word* dst, const Word* a, unsigned an, const Word* b, unsigned bn) noexcept;

} // namespace orv::words

#endif
