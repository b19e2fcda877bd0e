// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The punctuation of a locale, as the C library's parser and formatter take it.
#ifndef ORV_LIBORVXX_DECIMAL_DETAIL_DECIMAL_PUNCTUATION_H
#define ORV_LIBORVXX_DECIMAL_DETAIL_DECIMAL_PUNCTUATION_H

#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/text/char16.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <locale>
#include <string>
#include <type_traits>

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

    /// What the parser takes for a character of a stream.
    static char narrow(char c) noexcept { return c; }

protected:
    /// Whether digits are grouped by these \p sizes; \c grouping has them then, if they fit.
    bool setGrouping(const std::string& sizes) {
        if (sizes.size() < GROUPING_SIZE) {
            constexpr char NO_MORE = std::numeric_limits<signed char>::max();
            std::transform(sizes.begin(), sizes.end(), grouping, [](char size) {
                return static_cast<signed char>(size) > 0 ? size : NO_MORE;
            });
        }
        return !sizes.empty();
    }

private:
    void ask(const std::numpunct<char>& facet) {
        point = facet.decimal_point();
        if (setGrouping(facet.grouping())) {
            separator = facet.thousands_sep();
        }
    }
};

/// The punctuation of a locale over UTF-16. A mark that is not ASCII is told to the C library as a
/// byte that stands for it.
class DecimalPunctuation16 : public DecimalPunctuation {
public:
    explicit DecimalPunctuation16(const std::locale& locale) {
        const auto& facet = std::use_facet<std::numpunct<char16>>(locale);
        pointUnit_ = facet.decimal_point();
        point = standIn(pointUnit_);
        if (setGrouping(facet.grouping())) {
            separatorUnit_ = facet.thousands_sep();
            separator = standIn(separatorUnit_);
        }
    }

    /// What the parser takes for a unit: NUL for one that no number holds.
    char narrow(char16 unit) const noexcept {
        return unit < ASCII_END || unit == pointUnit_ || unit == separatorUnit_ ? standIn(unit)
                                                                                : '\0';
    }

    /// The unit for what the formatter wrote.
    char16 widen(char c) const noexcept {
        return c == POINT ? pointUnit_ : c == SEPARATOR ? separatorUnit_ : char16(c);
    }

private:
    static constexpr char16 ASCII_END = u'\x80';
    static constexpr char POINT = '\x80';
    static constexpr char SEPARATOR = '\x81';

    char standIn(char16 unit) const noexcept {
        if (unit < ASCII_END) {
            return static_cast<char>(unit);
        }
        return unit == pointUnit_ ? POINT : SEPARATOR;
    }

    char16 pointUnit_ = u'\0';
    char16 separatorUnit_ = u'\0';
};

/// The one for streams of \p CharT.
template <typename CharT>
using DecimalPunctuationOf =
    std::conditional_t<std::is_same_v<CharT, char>, DecimalPunctuation, DecimalPunctuation16>;

} // namespace orv::decimal::detail

#endif
