// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random choices that are the same in every run and with every standard library.
#ifndef ORV_BENCH_CHOOSER_H
#define ORV_BENCH_CHOOSER_H

#include <algorithm>
#include <cstddef>
#include <random>
#include <string_view>
#include <vector>

namespace bench {

using Words = std::vector<std::u16string_view>;

/// The words of a list, which stand between single spaces.
inline Words split(std::u16string_view list) {
    Words words;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(u' '), list.size());
        words.push_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return words;
}

/// A source of choices. The distributions of the standard library differ from one to the next, so
/// these are its own.
class Chooser {
public:
    unsigned int below(std::size_t n) { return static_cast<unsigned int>(engine_() % n); }

    bool oneIn(unsigned int n) { return n != 0 && below(n) == 0; }

    /// Prefers the front of the list, as common words are.
    std::u16string_view word(const Words& words) {
        return words[std::min(below(words.size()), below(words.size()))];
    }

private:
    std::mt19937 engine_{20240229};
};

} // namespace bench

#endif
