// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The words of a `big_uint`, for comparison in one line.
#ifndef ORV_TESTS_NUMBER_WORDS_OF_H
#define ORV_TESTS_NUMBER_WORDS_OF_H

#include "orv/liborvxx/number/big_uint.h"

#include <vector>

namespace orvtest {

/// All words in use, least significant first.
inline std::vector<unsigned> wordsOf(const orv::big_uint& n) {
    return {n.data(), n.data() + n.size()};
}

/// A number of \p size words, with word i made by \p word(i).
template <typename Word>
orv::big_uint numberOf(unsigned size, Word word) {
    orv::big_uint n;
    n.set_size(size);
    for (unsigned i = 0; i < size; ++i) {
        n[i] = word(i);
    }
    return n;
}

/// A number whose words count up, so that every word tells its place.
inline orv::big_uint counting(unsigned size, unsigned first = 1) {
    return numberOf(size, [first](unsigned i) { return i + first; });
}

} // namespace orvtest

#endif
