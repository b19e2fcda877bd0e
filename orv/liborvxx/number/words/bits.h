// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Queries about single bits of numbers in word arrays.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_BITS_H
#define ORV_LIBORVXX_NUMBER_WORDS_BITS_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// Index of the top set bit, from 0; -1 for zero.
int highestSetBit(const Word* a, unsigned n) noexcept;

/// Index of the lowest set bit, from 0; -1 for zero.
int lowestSetBit(const Word* a, unsigned n) noexcept;

/// Number of set bits.
unsigned countBits(const Word* a, unsigned n) noexcept;

/// Whether at most one bit is set.
bool isPowerOfTwo(const Word* a, unsigned n) noexcept;

/// What a right shift by \p bits would throw away: 0 nothing but zeros, 1 less than one half of
/// the lowest bit that stays, 2 one half, 3 more. 1 is also the answer for a value that is
/// not zero if bit `bits - 1` lies beyond the words.
unsigned computeRoundingInfo(const Word* a, unsigned n, unsigned bits) noexcept;

/// dst = a & b. The destination may be the same array as an operand.
void bitAnd(Word* dst, const Word* a, const Word* b, unsigned n) noexcept;

/// dst = ~a. The destination may be the same array as the operand.
void bitNot(Word* dst, const Word* a, unsigned n) noexcept;

} // namespace orv::words

#endif
