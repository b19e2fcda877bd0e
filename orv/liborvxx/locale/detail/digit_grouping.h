// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Groups of digits: a check of those that are read, and the places of separators in those
/// that are written.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_DIGIT_GROUPING_H
#define ORV_LIBORVXX_LOCALE_DETAIL_DIGIT_GROUPING_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace orv::detail {

/// Compares the groups of a number that is read from left to right with a grouping, which tells
/// their sizes from right to left.
///
/// No more is kept than the last groups, as many as the grouping has sizes: what is left of these
/// is of the last size, which repeats. A number of a million groups takes no more memory than one
/// of two, and none from the heap for groupings of up to 15 sizes.
class GroupingCheck {
public:
    /// \param grouping of `NumberPunctuation`; outlives the check
    explicit GroupingCheck(const std::string& grouping) noexcept : grouping_(grouping) {}

    /// A digit was read.
    void digit() noexcept { ++size_; }

    /// A separator was read.
    /// \return whether there was a digit since the start or the last separator
    /// \pre the grouping is not empty
    bool separator();

    /// The integer part ends here.
    /// \return whether the groups are as they should be: all of their size, but the first one,
    ///         which may be smaller; without separators they always are
    bool matches();

private:
    void close();
    bool check(unsigned char size, std::size_t place) noexcept;

    const std::string& grouping_;
    std::uint64_t size_ = 0;
    bool hasSeparator_ = false;
    bool hasFirst_ = false; // the first group was checked
    bool isGood_ = true;
    std::string last_; // sizes of the last groups, the rightmost at the end
};

/// Where separators go in an integer part that is written.
class GroupPlaces {
public:
    /// \param grouping of `NumberPunctuation`; outlives this
    GroupPlaces(const std::string& grouping, std::uint64_t digits) noexcept;

    std::uint64_t separators() const noexcept { return repeats_ + size_; }

    /// To be called before each digit, from left to right.
    /// \return whether there is a separator before the digit
    bool beforeDigit() noexcept {
        if (untilSeparator_-- > 0) {
            return false;
        }
        untilSeparator_ = nextGroup() - 1;
        return true;
    }

private:
    std::uint64_t nextGroup() noexcept;

    const std::string& grouping_;
    std::size_t size_ = 0;         // groups that have a size of their own
    std::uint64_t repeats_ = 0;    // groups of the last size, left of these
    std::uint64_t untilSeparator_; // digits
};

} // namespace orv::detail

#endif
