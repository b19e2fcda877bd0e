// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Products of long word arrays with three half-size products instead of four: A. Karatsuba
/// and Yu. Ofman, 1962, in the form with differences (Knuth, 4.3.3).
#ifndef ORV_LIBORVXX_NUMBER_WORDS_KARATSUBA_H
#define ORV_LIBORVXX_NUMBER_WORDS_KARATSUBA_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// The least number of words in the shorter operand for which the method pays.
inline constexpr unsigned KARATSUBA_MIN = 40;

/// The words of scratch that a product of these sizes takes.
unsigned karatsubaScratch(unsigned an, unsigned bn) noexcept;

/// dst = a * b; writes an + bn words. Operands of unequal sizes are multiplied in blocks.
/// \pre \p an is at least \p bn, \p bn at least 1; \p dst overlaps neither operand nor \p scratch,
///      which has karatsubaScratch(an, bn) words
void multiplyKaratsuba(Word* dst, const Word* a, unsigned an, const Word* b, unsigned bn,
                       Word* scratch) noexcept;

} // namespace orv::words

#endif
