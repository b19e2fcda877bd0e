// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The numbers that number_text_bench reads and writes, the same in every run.
#ifndef ORV_BENCH_NUMBER_TEXTS_H
#define ORV_BENCH_NUMBER_TEXTS_H

#include "orv/liborvxx/text/char16.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

/// Texts one behind the other, each with a NUL behind it.
template <class CharT>
class TextList {
public:
    void add(std::string_view text) {
        for (const char c : text) {
            units_.push_back(CharT(static_cast<CharT>(c)));
        }
        units_.push_back(CharT());
        ends_.push_back(units_.size() - 1);
    }

    std::size_t size() const { return ends_.size(); }
    const CharT* begin(std::size_t i) const { return &units_[i == 0 ? 0 : ends_[i - 1] + 1]; }
    const CharT* end(std::size_t i) const { return &units_[ends_[i]]; }

private:
    std::vector<CharT> units_;
    std::vector<std::size_t> ends_;
};

/// One kind of numbers: as values and as texts.
template <class Value>
struct NumberSet {
    std::string name;
    std::vector<Value> values;
    TextList<char> narrow;
    TextList<orv::char16> wide;
};

/// Floats as they come in practice: of a mesh, with all digits, whole ones, sums of money.
const std::vector<NumberSet<double>>& floatSets();

/// Whole numbers, small ones and of every length.
const std::vector<NumberSet<std::int64_t>>& integerSets();

} // namespace bench

#endif
