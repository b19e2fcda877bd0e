// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The punctuation of numbers in a stream's locale, asked for once per number.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_NUMBER_PUNCTUATION_H
#define ORV_LIBORVXX_LOCALE_DETAIL_NUMBER_PUNCTUATION_H

#include <ios>
#include <limits>
#include <string>

namespace orv::detail {

/// Whether there are no more separators left of a group that should have this size: it is not
/// positive, or the greatest.
constexpr bool endsGrouping(char size) noexcept {
    const auto value = static_cast<signed char>(size);
    return value <= 0 || value == std::numeric_limits<signed char>::max();
}

/// Whether \p stream is on the classic locale: all its facets are the library's own then.
/// \exception std::bad_alloc when the classic locale is made
bool isOnClassicLocale(const std::ios_base& stream);

struct NumberPunctuation {
    /// What `separator` is if digits are not grouped: no unit.
    static constexpr unsigned NONE = 0x110000;

    /// The punctuation of the classic locale: ".", and no groups.
    NumberPunctuation() noexcept = default;

    /// Asks the facet of \p stream. The classic locale is known without it.
    /// \exception std::bad_cast if the locale has no `std::numpunct<char16>`
    explicit NumberPunctuation(const std::ios_base& stream);

    /// Whether a unit has its meaning from here, whatever it means elsewhere.
    bool has(unsigned unit) const noexcept { return unit == separator || unit == point; }

    unsigned point = '.';
    unsigned separator = NONE;
    /// As `std::numpunct` has it; empty if there are no separators.
    std::string grouping;
};

} // namespace orv::detail

#endif
