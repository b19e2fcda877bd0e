// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Shifts of numbers in word arrays, in the width of the destination: bits beyond it are
/// lost, zeros come in.
///
/// The destination may be the same array as the operand.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_SHIFT_H
#define ORV_LIBORVXX_NUMBER_WORDS_SHIFT_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// dst = the low \p dn words of a * 2^bits.
void shiftLeft(Word* dst, unsigned dn, const Word* a, unsigned an, unsigned bits) noexcept;

/// dst = the low \p dn words of a / 2^bits.
void shiftRight(Word* dst, unsigned dn, const Word* a, unsigned an, unsigned bits) noexcept;

} // namespace orv::words

#endif
