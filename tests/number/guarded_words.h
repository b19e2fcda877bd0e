// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief An array of words between guards, which tell who writes beside it.
#ifndef ORV_TESTS_NUMBER_GUARDED_WORDS_H
#define ORV_TESTS_NUMBER_GUARDED_WORDS_H

#include "orv/liborvxx/number/words/limb.h"

#include <cstddef>
#include <vector>

namespace orvtest {

class GuardedWords {
public:
    /// \p n words of rubbish.
    explicit GuardedWords(std::size_t n) : words_(n + 2 * MARGIN, GUARD) {}

    /// A copy of \p n words.
    GuardedWords(const orv::words::Word* from, std::size_t n) : GuardedWords(n) {
        for (std::size_t i = 0; i < n; ++i) {
            words_[MARGIN + i] = from[i];
        }
    }

    orv::words::Word* data() { return &words_[MARGIN]; }

    bool intact() const {
        for (std::size_t i = 0; i < MARGIN; ++i) {
            if (words_[i] != GUARD || words_[words_.size() - 1 - i] != GUARD) {
                return false;
            }
        }
        return true;
    }

    /// Whether the first \p n words are these.
    bool startsWith(const orv::words::Word* expected, std::size_t n) const {
        for (std::size_t i = 0; i < n; ++i) {
            if (words_[MARGIN + i] != expected[i]) {
                return false;
            }
        }
        return true;
    }

private:
    static constexpr std::size_t MARGIN = 4;
    static constexpr orv::words::Word GUARD = 0xA5A5A5A5U;

    std::vector<orv::words::Word> words_;
};

} // namespace orvtest

#endif
