// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Punctuations of decimal numbers for streams over `char` and `char16` alike.
#ifndef ORV_TESTS_DECIMAL_DECIMAL_U16_LOCALES_H
#define ORV_TESTS_DECIMAL_DECIMAL_U16_LOCALES_H

#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/text/ustring.h"
#include "tests/decimal/decimal_locales.h"

#include <cstddef>
#include <locale>
#include <string>
#include <utility>

namespace orvtest {

using orv::char16;
using orv::ustring;

class Punctuation16 : public std::numpunct<char16> {
public:
    Punctuation16(char16 point, char16 separator, std::string grouping)
        : point_(point), separator_(separator), grouping_(std::move(grouping)) {}

private:
    char16 do_decimal_point() const override { return point_; }
    char16 do_thousands_sep() const override { return separator_; }
    std::string do_grouping() const override { return grouping_; }

    char16 point_;
    char16 separator_;
    std::string grouping_;
};

inline std::locale withFacets(const std::locale& base, std::numpunct<char16>* punctuation) {
    return {std::locale(base, new std::ctype<char16>), punctuation};
}

inline std::locale locale16(char16 point, char16 separator, std::string grouping) {
    return withFacets(std::locale::classic(),
                      new Punctuation16(point, separator, std::move(grouping)));
}

inline const std::locale& plain16() {
    static const std::locale locale = withFacets(std::locale::classic(), new std::numpunct<char16>);
    return locale;
}

// One punctuation for both kinds of streams. Marks beyond ASCII are the same number in either.
inline std::locale forBoth(char point, char separator, const std::string& grouping) {
    const auto unitOf = [](char c) { return char16(static_cast<unsigned char>(c)); };
    return withFacets(localeWith(point, separator, grouping),
                      new Punctuation16(unitOf(point), unitOf(separator), grouping));
}

inline std::locale german() {
    return withFacets(std::locale("de_DE.UTF-8"), new std::numpunct_byname<char16>("de_DE.UTF-8"));
}

// The same text, each byte a unit.
inline ustring wide(const std::string& text) {
    ustring units;
    for (const char c : text) {
        units.push_back(char16(static_cast<unsigned char>(c)));
    }
    return units;
}

inline std::locale localeNumber(std::size_t index) {
    switch (index) {
    case 0:
        return plain16();
    case 1:
        return german();
    case 2:
        return forBoth(',', '.', "\3");
    case 3:
        return forBoth('.', '\'', "\2\3");
    case 4:
        return forBoth(',', ' ', std::string("\1\x7F"));
    case 5:
        return forBoth('\xB7', '\xA0', "\3");
    case 6:
        return forBoth('\xA0', '\xA0', "\3"); // refused when it is read
    case 7:
        return forBoth('\0', '\0', "\3");
    case 8:
        return forBoth('5', '-', "\3");
    case 9:
        return forBoth('.', '\xB7', "\1\2\3\1\2\3\1\2"); // too many sizes: nothing is grouped
    default:
        return forBoth('\x80', '.', "\2");
    }
}

inline constexpr unsigned LOCALES = 11;

} // namespace orvtest

#endif
