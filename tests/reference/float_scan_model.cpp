// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The steps of a scan, one by one.
#include "tests/reference/float_scan_model.h"

#include "orv/liborv/unicode/unichar.h"
#include "tests/reference/binary_float_model.h"

#include <limits>
#include <string>

namespace orvtest {

namespace {

constexpr std::int32_t LARGEST = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t SMALLEST = std::numeric_limits<std::int32_t>::min();

class Scan {
public:
    Scan(std::u16string_view text, Units units, int maxDigits, int maxHexDigits)
        : text_(text), units_(units), maxDigits_(maxDigits), maxHexDigits_(maxHexDigits) {}

    ModelScan run() {
        while (isSpace(unit())) {
            ++at_;
        }
        if (ascii() == '+' || ascii() == '-') {
            scan_.negative = ascii() == '-';
            ++at_;
        }
        if (ascii() == 'i' || ascii() == 'I') {
            scan_.exponent = LARGEST;
            return word("infinity", 3, ScanFailure::NO_INFINITY);
        }
        if (ascii() == 'n' || ascii() == 'N') {
            return word("nan", 3, ScanFailure::NO_NAN);
        }
        scan_.radix = 10;
        if (maxHexDigits_ != 0 && ascii() == '0' && (ascii(1) == 'x' || ascii(1) == 'X')) {
            scan_.radix = 2;
            at_ += 2;
        }
        if (!mantissa()) {
            scan_.failure = ScanFailure::NO_DIGIT;
            return scan_;
        }
        exponent();
        scan_.length = at_;
        return scan_;
    }

private:
    char16_t unit(std::size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0';
    }

    static char narrow(char16_t unit, Units units) {
        if (unit < 0x80) {
            return static_cast<char>(unit);
        }
        const int digit = units == Units::UTF16 ? orvUniCharDigitValue(unit) : -1;
        return digit >= 0 ? static_cast<char>('0' + digit) : '?';
    }

    char ascii(std::size_t ahead = 0) const { return narrow(unit(ahead), units_); }

    bool isSpace(char16_t c) const {
        static const std::u16string ASCII = u" \t\n\v\f\r";
        static const std::u16string OTHERS =
            u"\u0085\u00A0\u1680\u180E\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"
            u"\u200A\u2028\u2029\u202F\u205F\u3000";
        return ASCII.find(c) != ASCII.npos ||
               (units_ == Units::UTF16 && OTHERS.find(c) != OTHERS.npos);
    }

    bool isAlphanumeric(char16_t c) const {
        if (c < 0x80) {
            return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        }
        return units_ == Units::UTF16 && orvUniCharIsLetterOrDecimalDigit(c) != 0;
    }

    char16_t lower(char16_t c) const {
        if (units_ == Units::UTF16) {
            return static_cast<char16_t>(orvUniCharToLower(c));
        }
        return c >= 'A' && c <= 'Z' ? static_cast<char16_t>(c + 32) : c;
    }

    // The first letters alone do, if nothing goes on from them.
    ModelScan word(std::string_view letters, std::size_t shortest, ScanFailure failure) {
        std::size_t matched = 0;
        while (matched < letters.size() &&
               lower(unit()) == static_cast<char16_t>(letters[matched])) {
            ++matched;
            ++at_;
        }
        const bool right = matched == letters.size() || matched == shortest;
        if (!right || isAlphanumeric(unit()) || unit() == u'_') {
            scan_.failure = failure;
        }
        scan_.length = at_;
        return scan_;
    }

    // The value of a digit of the mantissa, or -1.
    int digit() const {
        const char c = ascii();
        if (c >= '0' && c <= '9') {
            return c - '0';
        }
        if (scan_.radix == 2 && c >= 'a' && c <= 'f') {
            return c - 'a' + 10;
        }
        return scan_.radix == 2 && c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
    }

    void flush(std::uint32_t accumulator, unsigned pending) {
        for (unsigned i = 0; i < pending; ++i) {
            scan_.coefficient *= scan_.radix == 10 ? 10 : 16;
        }
        scan_.coefficient += accumulator;
    }

    bool mantissa() {
        const int base = scan_.radix == 10 ? 10 : 16;
        const std::int64_t limit = scan_.radix == 10 ? maxDigits_ : maxHexDigits_;
        std::int64_t fraction = 0;
        std::int64_t significant = 0;
        std::uint32_t accumulator = 0;
        unsigned pending = 0;
        bool point = false;
        bool any = false;
        for (;; ++at_) {
            const int d = digit();
            if (d >= 0) {
                fraction += point ? 1 : 0;
                any = true;
                if (d == 0 && significant == 0) {
                    continue;
                }
                ++significant;
                if (significant <= limit) {
                    if (pending == 8) {
                        flush(accumulator, pending);
                        accumulator = 0;
                        pending = 0;
                    }
                    accumulator = accumulator * static_cast<std::uint32_t>(base) +
                                  static_cast<std::uint32_t>(d);
                    ++pending;
                } else if (significant == limit + 1) {
                    const int half = base / 2;
                    scan_.rounding = d > half ? 3 : d == half ? 2 : d > 0 ? 1 : 0;
                } else if (d != 0) {
                    scan_.rounding |= 1U;
                }
            } else if (ascii() == '.' && !point) {
                point = true;
            } else {
                break;
            }
        }
        flush(accumulator, pending);
        const std::int64_t dropped = significant > limit ? significant - limit : 0;
        scale_ = (dropped - fraction) * (scan_.radix == 2 ? 4 : 1);
        scan_.exponent = static_cast<std::int32_t>(scale_);
        return any;
    }

    void exponent() {
        const char mark = scan_.radix == 10 ? 'e' : 'p';
        if (ascii() != mark && ascii() != mark - 32) {
            return;
        }
        const std::size_t before = at_;
        ++at_;
        const bool minus = ascii() == '-';
        if (minus || ascii() == '+') {
            ++at_;
        }
        std::string digits;
        while (ascii() >= '0' && ascii() <= '9') {
            digits += ascii();
            ++at_;
        }
        if (digits.empty()) {
            at_ = before;
        } else if (digits.size() >= 10) {
            scan_.exponent = minus ? SMALLEST : LARGEST;
        } else {
            const std::int64_t value = std::stoll(digits);
            scan_.exponent = static_cast<std::int32_t>(scale_ + (minus ? -value : value));
        }
    }

    std::u16string_view text_;
    Units units_;
    int maxDigits_;
    int maxHexDigits_;
    std::size_t at_ = 0;
    std::int64_t scale_ = 0;
    ModelScan scan_;
};

template <class Float, class Make, class Pack>
Float convert(const ModelScan& scan, Make make, Pack pack) {
    if (scan.radix == 0) {
        const Float infinity = std::numeric_limits<Float>::infinity();
        return scan.exponent == 0 ? std::numeric_limits<Float>::quiet_NaN()
               : scan.negative    ? -infinity
                                  : infinity;
    }
    return scan.radix == 2 ? pack(scan.negative, scan.exponent, scan.coefficient, scan.rounding)
                           : make(scan.negative, scan.exponent, scan.coefficient, scan.rounding);
}

} // namespace

ModelScan modelScan(std::u16string_view text, Units units, int maxDigits, int maxHexDigits) {
    return Scan(text, units, maxDigits, maxHexDigits).run();
}

double modelToDouble(const ModelScan& scan) {
    return convert<double>(scan, modelMakeDouble, modelPackDouble);
}

float modelToFloat(const ModelScan& scan) {
    return convert<float>(scan, modelMakeFloat, modelPackFloat);
}

} // namespace orvtest
