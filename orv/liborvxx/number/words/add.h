// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Addition and subtraction of numbers in word arrays, in the width of the destination.
///
/// A destination may be the same array as an operand, but not overlap it otherwise.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_ADD_H
#define ORV_LIBORVXX_NUMBER_WORDS_ADD_H

#include "orv/liborvxx/number/words/limb.h"

namespace orv::words {

/// Adds \p n words to \p n words.
/// \return the carry
bool add(Word* dst, const Word* a, const Word* b, unsigned n) noexcept;

/// Subtracts \p n words from \p n words.
/// \return the borrow
bool subtract(Word* dst, const Word* a, const Word* b, unsigned n) noexcept;

/// dst = the low \p dn words of a + b.
/// \pre all sizes are at least 1
/// \return whether the sum does not fit
/// @{
bool addAnySizes(Word* dst, unsigned dn, const Word* a, unsigned an, const Word* b,
                 unsigned bn) noexcept;
inline bool add(Word* dst, unsigned dn, const Word* a, unsigned an, const Word* b,
                unsigned bn) noexcept {
    return an == dn && bn == dn ? add(dst, a, b, dn) : addAnySizes(dst, dn, a, an, b, bn);
}
/// @}

/// dst = the low \p dn words of the two's-complement difference a - b.
/// \pre all sizes are at least 1
/// \return what stands above these words, brought into the range from -2 to 2: 0 if the
///         difference is not negative and fits; less if a is less than b; more if the difference
///         is too wide
/// @{
int subtractAnySizes(Word* dst, unsigned dn, const Word* a, unsigned an, const Word* b,
                     unsigned bn) noexcept;
inline int subtract(Word* dst, unsigned dn, const Word* a, unsigned an, const Word* b,
                    unsigned bn) noexcept {
    if (an == dn && bn == dn) {
        return subtract(dst, a, b, dn) ? -1 : 0;
    }
    return subtractAnySizes(dst, dn, a, an, b, bn);
}
/// @}

/// Adds a word in place.
/// \return the carry: \p value != 0 where \p n is 0
bool add(Word* dst, unsigned n, Word value) noexcept;

/// Subtracts in place.
/// \pre \p bn is at most \p dn
/// \return the borrow
bool subtract(Word* dst, unsigned dn, const Word* b, unsigned bn) noexcept;

/// Adds 1 in place.
/// \return whether all words were ones, as none are where \p n is 0
bool increment(Word* dst, unsigned n) noexcept;

/// Subtracts 1 in place.
/// \return whether all words were zeros, as none are where \p n is 0
bool decrement(Word* dst, unsigned n) noexcept;

} // namespace orv::words

#endif
