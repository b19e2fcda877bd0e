// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The punctuation of a locale, as the C library's parser and formatter take it.
#ifndef ORV_LIBORVXX_DECIMAL_DETAIL_DECIMAL_PUNCTUATION_H
#define ORV_LIBORVXX_DECIMAL_DETAIL_DECIMAL_PUNCTUATION_H

#include <algorithm>
#include <cstddef>
#include <limits>
#include <locale>
#include <string>

namespace orv::decimal::detail {

/// Made without a locale, that of the classic one.
struct DecimalPunctuation {
    /// What `grouping` holds, the NUL included.
    static constexpr std::size_t GROUPING_SIZE = 8;

    DecimalPunctuation() noexcept = default;

    explicit DecimalPunctuation(const std::locale& locale) {
        // The classic facet cannot be changed: it is known without asking it.
        static const auto& classic = std::use_facet<std::numpunct<char>>(std::locale::classic());
        const auto& facet = std::use_facet<std::numpunct<char>>(locale);
        if (&facet != &classic) {
            ask(facet);
        }
    }

    /// Whether numbers are read as in the classic locale.
    bool isClassic() const noexcept { return point == '.' && separator == '\0'; }

    char point = '.';
    /// 0 if digits are not grouped.
    char separator = '\0';
    /// Group sizes, ended by 0: a byte that is no size is 127, which ends the grouping. Empty if
    /// they are too many.
    char grouping[GROUPING_SIZE] = {};

private:
    void ask(const std::numpunct<char>& facet) {
        point = facet.decimal_point();
        const std::string sizes = facet.grouping();
        if (sizes.empty()) {
            return;
        }
        separator = facet.thousands_sep();
        if (sizes.size() < GROUPING_SIZE) {
            constexpr char NO_MORE = std::numeric_limits<signed char>::max();
            std::transform(sizes.begin(), sizes.end(), grouping, [](char size) {
                return static_cast<signed char>(size) > 0 ? size : NO_MORE;
            });
        }
    }
};

} // namespace orv::decimal::detail

#endif
