// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Which side of the middle between two floats a decimal lies on, where only exact
/// arithmetic tells.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_EXACT_TIE_H
#define ORV_LIBORVXX_NUMBER_DETAIL_EXACT_TIE_H

#include "orv/liborvxx/number/words/limb.h"

#include <compare>

namespace orv::detail {

/// Compares \p number * 2^scale * 10^exponent with \p middle * 2^middleScale. Takes no memory from
/// the heap.
/// \pre neither number is 0, none is four times the other, and \p exponent is one of pow10_table.h
std::strong_ordering compareWithMiddle(const words::Wide& number, int scale, int exponent,
                                       words::Limb middle, int middleScale) noexcept;

} // namespace orv::detail

#endif
