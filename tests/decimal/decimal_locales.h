// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Locales with a punctuation as a test wants it, and decimal numbers by their fields.
#ifndef ORV_TESTS_DECIMAL_DECIMAL_LOCALES_H
#define ORV_TESTS_DECIMAL_DECIMAL_LOCALES_H

#include "orv/liborvxx/decimal/decimal_io.h"
#include "orv/liborvxx/decimal/decimal_layout.h"
#include "tests/decimal/decimal_bits.h"

#include <cstdint>
#include <locale>
#include <string>
#include <utility>

namespace orvtest {

/// A facet that says what it is told to.
class Punctuation : public std::numpunct<char> {
public:
    Punctuation(char point, char separator, std::string grouping)
        : point_(point), separator_(separator), grouping_(std::move(grouping)) {}

private:
    char do_decimal_point() const override { return point_; }
    char do_thousands_sep() const override { return separator_; }
    std::string do_grouping() const override { return grouping_; }

    char point_;
    char separator_;
    std::string grouping_;
};

/// The classic locale but for its punctuation.
inline std::locale localeWith(char point, char separator, std::string grouping) {
    return {std::locale::classic(), new Punctuation(point, separator, std::move(grouping))};
}

template <class Decimal>
using RecordOf = std::remove_cvref_t<decltype(std::declval<Decimal>().record())>;

template <class Decimal>
using LayoutOf = orv::decimal::detail::DecimalLayout<RecordOf<Decimal>>;

/// \p coefficient * 10^\p exponent, which must fit.
template <class Decimal>
Decimal number(std::int64_t coefficient, int exponent) {
    const bool negative = coefficient < 0;
    const auto magnitude = static_cast<std::uint64_t>(negative ? -coefficient : coefficient);
    return LayoutOf<Decimal>::encode(negative, exponent, magnitude);
}

template <class Decimal>
std::string nanBits() {
    return bitsOf(Decimal(LayoutOf<Decimal>::quietNan()));
}

} // namespace orvtest

#endif
