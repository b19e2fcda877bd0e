// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal text of numbers in word arrays.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_TEXT_H
#define ORV_LIBORVXX_NUMBER_WORDS_TEXT_H

#include "orv/liborvxx/number/words/limb.h"

#include <cstddef>

namespace orv::words {

/// The number of decimal digits of the numbers below 2^bits, that is, of 2^bits - 1. A number with
/// exactly so many bits may have one digit less.
constexpr std::size_t maxDecimalDigits(unsigned bits) noexcept {
    // The factor is the log10 of 2, times 2^40, rounded up. No power 2^bits with up to 2,097,120
    // bits is so near below a power of ten that the product reached the next integer.
    return static_cast<std::size_t>(std::uint64_t{bits} * 330985980542U >> 40U) + 1;
}

/// Writes a number of \p n words as exactly \p digits digits, with zeros before it, and destroys
/// it.
/// \tparam Unit `char` or `char16`
/// \pre the number is less than 10^digits; \p n is at least 1
/// \exception std::bad_alloc for lack of scratch memory, with many words
template <class Unit>
void writeDecimal(Unit* text, std::size_t digits, Word* p, unsigned n);

} // namespace orv::words

#endif
