// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Whether word arrays overlap, for assertions.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_OVERLAP_H
#define ORV_LIBORVXX_NUMBER_WORDS_OVERLAP_H

#include "orv/liborvxx/number/words/limb.h"

#include <functional>

namespace orv::words {

/// Whether two arrays, of \p xn and \p yn words, have no word in common.
inline bool apart(const Word* x, unsigned xn, const Word* y, unsigned yn) noexcept {
    // std::less_equal orders also pointers that are not into one array.
    return std::less_equal<>()(x + xn, y) || std::less_equal<>()(y + yn, x);
}

} // namespace orv::words

#endif
