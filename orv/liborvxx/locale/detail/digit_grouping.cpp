// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Checks and places the separators between groups of digits.
#include "orv/liborvxx/locale/detail/digit_grouping.h"

#include "orv/liborvxx/locale/detail/number_punctuation.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace orv::detail {

bool GroupingCheck::separator() {
    assert(!grouping_.empty());
    if (size_ == 0) {
        return false;
    }
    hasSeparator_ = true;
    close();
    return true;
}

bool GroupingCheck::matches() {
    if (!hasSeparator_) {
        return true;
    }
    close();
    for (std::size_t place = last_.size(); place-- > 0;) {
        const char size = last_[last_.size() - 1 - place];
        isGood_ &= check(static_cast<unsigned char>(size), place);
    }
    return isGood_;
}

// Of more groups than sizes in the grouping the leftmost one is checked and forgotten.
void GroupingCheck::close() {
    constexpr std::uint64_t MOST = std::numeric_limits<unsigned char>::max();
    last_.push_back(static_cast<char>(std::min(size_, MOST)));
    size_ = 0;
    if (last_.size() == grouping_.size()) {
        isGood_ &= check(static_cast<unsigned char>(last_.front()), grouping_.size() - 1);
        last_.erase(0, 1);
    }
}

// place: of the group, from the right; all places beyond the grouping are the last one.
bool GroupingCheck::check(unsigned char size, std::size_t place) noexcept {
    const char expected = grouping_[place];
    const bool isFirst = !hasFirst_;
    hasFirst_ = true;
    if (endsGrouping(expected)) {
        return isFirst;
    }
    const auto most = static_cast<unsigned char>(expected);
    return isFirst ? size <= most : size == most;
}

GroupPlaces::GroupPlaces(const std::string& grouping, std::uint64_t digits) noexcept
    : grouping_(grouping), untilSeparator_(digits) {
    for (; size_ < grouping.size() && !endsGrouping(grouping[size_]); ++size_) {
        const auto group = static_cast<unsigned char>(grouping[size_]);
        if (untilSeparator_ <= group) {
            return;
        }
        untilSeparator_ -= group;
    }
    if (size_ > 0 && size_ == grouping.size()) {
        const auto group = static_cast<unsigned char>(grouping.back());
        repeats_ = (untilSeparator_ - 1) / group;
        untilSeparator_ -= repeats_ * group;
    }
}

std::uint64_t GroupPlaces::nextGroup() noexcept {
    assert(separators() > 0);
    if (repeats_ > 0) {
        --repeats_;
        return static_cast<unsigned char>(grouping_.back());
    }
    return static_cast<unsigned char>(grouping_[--size_]);
}

} // namespace orv::detail
