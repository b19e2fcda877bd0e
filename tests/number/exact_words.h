// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Arrays of words with nothing around them.
#ifndef ORV_TESTS_NUMBER_EXACT_WORDS_H
#define ORV_TESTS_NUMBER_EXACT_WORDS_H

#include "orv/liborvxx/number/words/limb.h"

#include "tests/support/number_source.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace orvtest {

using orv::words::Word;

/// A block of exactly these words, so that a sanitizer sees every access beyond them.
struct Exact {
    explicit Exact(const std::vector<Word>& from)
        : size(static_cast<unsigned>(from.size())), words(new Word[size]) {
        std::copy(from.begin(), from.end(), words.get());
    }
    std::vector<Word> all() const { return {words.get(), words.get() + size}; }

    unsigned size;
    std::unique_ptr<Word[]> words;
};

/// Words of the shapes of the source's numbers.
inline std::vector<Word> someWords(NumberSource& source, unsigned size) {
    if (size == 0) {
        return {};
    }
    const orv::big_uint n = source.number(size);
    return {n.data(), n.data() + size};
}

/// Word \p i of a number: 0 above its words.
inline Word at(const std::vector<Word>& words, std::size_t i) {
    return i < words.size() ? words[i] : 0;
}

} // namespace orvtest

#endif
