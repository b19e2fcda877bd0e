// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a stream writes for a decimal number, made from the number's digits by operations on
/// strings alone.
#ifndef ORV_TESTS_DECIMAL_DECIMAL_STREAM_MODEL_H
#define ORV_TESTS_DECIMAL_DECIMAL_STREAM_MODEL_H

#include "orv/liborvxx/decimal/decimal_io.h"
#include "tests/decimal/decimal_locales.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <ios>
#include <locale>
#include <string>

namespace orvtest {

/// digits * 10^exponent, or the word that stands for a number without digits.
struct DecimalDigits {
    bool negative = false;
    std::string digits; ///< without leading zeros; a zero has one digit
    int exponent = 0;
    std::string word; ///< "inf" or "nan"
};

/// The number with these digits, which must fit.
template <class Decimal>
Decimal decimalOf(const DecimalDigits& x) {
    using Layout = LayoutOf<Decimal>;
    if (x.word == "nan") {
        return Layout::quietNan();
    }
    if (x.word == "inf") {
        return Layout::infinity(x.negative);
    }
    if (x.digits.size() < 20) {
        return Layout::encode(x.negative, x.exponent, std::stoull(x.digits));
    }
    if constexpr (Layout::DIGITS > 20) {
        return orv::decimal::strtod128((x.negative ? "-" : "") + x.digits + 'e' +
                                       std::to_string(x.exponent));
    }
    return Layout::quietNan();
}

/// Drops the last \p drop digits, rounding half to even.
inline void dropDigits(DecimalDigits& x, int drop) {
    x.exponent += drop;
    const int size = static_cast<int>(x.digits.size());
    if (drop > size) {
        x.digits = "0";
        return;
    }
    const auto kept = static_cast<std::size_t>(size - drop);
    const std::string rest = x.digits.substr(kept);
    const std::string half = '5' + std::string(rest.size() - 1, '0');
    x.digits.resize(kept);
    const bool isOdd = kept > 0 && (x.digits.back() - '0') % 2 == 1;
    if (rest > half || (rest == half && isOdd)) {
        std::size_t i = kept;
        while (i > 0 && x.digits[i - 1] == '9') {
            x.digits[--i] = '0';
        }
        if (i == 0) {
            x.digits.insert(0, 1, '1');
        } else {
            ++x.digits[i - 1];
        }
    } else if (kept == 0) {
        x.digits = "0";
    }
}

/// Leaves \p count digits, of more.
inline void keepDigits(DecimalDigits& x, int count) {
    const int size = static_cast<int>(x.digits.size());
    if (size > count) {
        dropDigits(x, size - count);
        if (static_cast<int>(x.digits.size()) > count) { // 9.99 became 10.0
            x.digits.pop_back();
            ++x.exponent;
        }
    }
}

inline std::string grouped(const std::string& digits, const std::string& sizes, char separator) {
    if (sizes.empty() || sizes.size() >= 8 || separator == '\0') {
        return digits;
    }
    std::string rest = digits;
    std::string text;
    for (std::size_t i = 0;; i = std::min(i + 1, sizes.size() - 1)) {
        const int size = static_cast<signed char>(sizes[i]);
        if (size <= 0 || size == 127 || static_cast<int>(rest.size()) <= size) {
            return rest + text;
        }
        const std::size_t cut = rest.size() - static_cast<std::size_t>(size);
        text = separator + rest.substr(cut) + text;
        rest.resize(cut);
    }
}

/// The flags and the locale of a stream, as far as they count for a number.
struct StreamLook {
    std::ios_base::fmtflags flags = std::ios_base::dec | std::ios_base::skipws;
    std::streamsize precision = 6;
    std::streamsize width = 0;
    char fill = ' ';
    std::locale locale = std::locale::classic();
};

/// The unsigned text.
class StreamModel {
public:
    explicit StreamModel(const StreamLook& look)
        : look_(look), facet_(std::use_facet<std::numpunct<char>>(look_.locale)),
          point_(facet_.decimal_point() == '\0' ? '.' : facet_.decimal_point()) {}

    std::string text(const DecimalDigits& x) const {
        std::string all = x.word == "nan"          ? ""
                          : x.negative             ? "-"
                          : has(std::ios::showpos) ? "+"
                                                   : "";
        all += x.word.empty() ? finite(x) : x.word;
        if (has(std::ios::uppercase)) {
            for (char& c : all) {
                c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
            }
        }
        return padded(all);
    }

private:
    bool has(std::ios_base::fmtflags flag) const { return (look_.flags & flag) == flag; }

    std::string finite(const DecimalDigits& x) const {
        const auto most = std::clamp<std::streamsize>(look_.precision, -1, 100000);
        int precision = static_cast<int>(most);
        if (!has(std::ios::fixed) && precision < 1) {
            precision = -1;
        }
        if (has(std::ios::fixed) && !has(std::ios::scientific)) {
            return fixed(x, precision < 0 ? std::max(0, -x.exponent) : precision);
        }
        if (has(std::ios::scientific) && !has(std::ios::fixed)) {
            return scientific(x, precision < 0 ? static_cast<int>(x.digits.size()) - 1 : precision);
        }
        return general(x, precision == 0 ? 1 : precision);
    }

    std::string fixed(DecimalDigits x, int places) const {
        if (x.exponent + places < 0) {
            dropDigits(x, -(x.exponent + places));
        }
        x.digits.append(static_cast<std::size_t>(x.exponent + places), '0');
        x.digits.erase(0, x.digits.find_first_not_of('0'));
        const auto behind = static_cast<std::size_t>(places);
        if (x.digits.size() <= behind) {
            x.digits.insert(0, behind + 1 - x.digits.size(), '0');
        }
        const std::size_t whole = x.digits.size() - behind;
        return grouped(x.digits.substr(0, whole), facet_.grouping(), facet_.thousands_sep()) +
               fraction(x.digits.substr(whole));
    }

    std::string scientific(DecimalDigits x, int places) const {
        keepDigits(x, places + 1);
        const int exponent = x.exponent + static_cast<int>(x.digits.size()) - 1;
        x.digits.resize(static_cast<std::size_t>(places) + 1, '0');
        std::string size = std::to_string(exponent < 0 ? -exponent : exponent);
        if (size.size() < 2) {
            size.insert(0, 1, '0');
        }
        return x.digits[0] + fraction(x.digits.substr(1)) + 'e' + (exponent < 0 ? '-' : '+') + size;
    }

    std::string general(DecimalDigits x, int precision) const {
        if (precision > 0) {
            keepDigits(x, precision);
        }
        const int count = static_cast<int>(x.digits.size());
        if (x.exponent <= 0 && x.exponent >= -(count + 5)) {
            return fixed(x, -x.exponent);
        }
        return scientific(x, count - 1);
    }

    std::string fraction(const std::string& digits) const {
        return digits.empty() && !has(std::ios::showpoint) ? "" : point_ + digits;
    }

    std::string padded(const std::string& text) const {
        const auto width = static_cast<std::size_t>(std::max<std::streamsize>(look_.width, 0));
        const std::string fill(width > text.size() ? width - text.size() : 0, look_.fill);
        return (look_.flags & std::ios::adjustfield) == std::ios::left ? text + fill : fill + text;
    }

    StreamLook look_;
    const std::numpunct<char>& facet_;
    char point_;
};

} // namespace orvtest

#endif
