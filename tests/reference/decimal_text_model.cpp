// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal text by rule: the slow way.
#include "tests/reference/decimal_text_model.h"

#include <algorithm>
#include <cstdint>

namespace orvtest {
namespace {

mpz_class fromWord(std::uint64_t word) {
    mpz_class value;
    mpz_import(value.get_mpz_t(), 1, 1, sizeof word, 0, 0, &word);
    return value;
}

unsigned long digitCount(const mpz_class& n) {
    return n.get_str().size();
}

// The quotient, a half going to the even one.
mpz_class divideHalfEven(const mpz_class& n, const mpz_class& by) {
    mpz_class quotient;
    mpz_class rest;
    mpz_fdiv_qr(quotient.get_mpz_t(), rest.get_mpz_t(), n.get_mpz_t(), by.get_mpz_t());
    const int half = cmp(2 * rest, by);
    if (half > 0 || (half == 0 && mpz_odd_p(quotient.get_mpz_t()) != 0)) {
        ++quotient;
    }
    return quotient;
}

unsigned exponentBits(const ModelFormat& format) {
    return format.bits == 32 ? 8 : format.bits == 64 ? 10 : 14;
}

// The text with each character replaced by what it is: s(pace), +, d(igit), p(oint), c(omma), a
// letter of a word or of "e", or ?.
std::string classesOf(std::string_view text, const ModelReading& reading) {
    std::string classes;
    for (const char c : text) {
        const std::string_view spaces(" \t\n\v\f\r");
        const std::string_view letters("aefintyAEFINTY");
        if (c == reading.point) {
            classes += 'p';
        } else if (c == reading.separator && c != '\0') {
            classes += 'c';
        } else if (c >= '0' && c <= '9') {
            classes += 'd';
        } else if (c == '+' || c == '-') {
            classes += '+';
        } else if (letters.find(c) != std::string_view::npos) {
            classes += static_cast<char>(c | 0x20);
        } else {
            classes += spaces.find(c) != std::string_view::npos ? 's' : '?';
        }
    }
    // A separator may be white space too; in front it is that.
    if (reading.skipsSpace &&
        std::string_view(" \t\n\v\f\r").find(reading.separator) != std::string_view::npos) {
        for (std::size_t i = 0; i < classes.size() && (classes[i] == 'c' || classes[i] == 's');
             ++i) {
            classes[i] = 's';
        }
    }
    return classes;
}

bool areDigits(std::string_view classes) {
    return !classes.empty() && classes.find_first_not_of('d') == std::string_view::npos;
}

bool isWhole(std::string_view classes) {
    return !classes.empty() && classes.find_first_not_of("dc") == std::string_view::npos &&
           classes.front() == 'd' && classes.back() == 'd' &&
           classes.find("cc") == std::string_view::npos;
}

bool isMantissa(std::string_view classes) {
    const std::size_t point = classes.find('p');
    if (point == std::string_view::npos) {
        return isWhole(classes);
    }
    const std::string_view fraction = classes.substr(point + 1);
    return point == 0
               ? areDigits(fraction)
               : isWhole(classes.substr(0, point)) && (fraction.empty() || areDigits(fraction));
}

std::string_view withoutSign(std::string_view classes) {
    return classes.substr(!classes.empty() && classes.front() == '+' ? 1 : 0);
}

bool isNumber(std::string_view classes, bool skipsSpace) {
    while (skipsSpace && !classes.empty() && classes.front() == 's') {
        classes.remove_prefix(1);
    }
    classes = withoutSign(classes);
    if (classes == "inf" || classes == "infinity" || classes == "nan") {
        return true;
    }
    const std::size_t mark = classes.find('e');
    return isMantissa(classes.substr(0, mark)) &&
           (mark == std::string_view::npos || areDigits(withoutSign(classes.substr(mark + 1))));
}

// The digits of a finite number without its sign, and its exponent.
void readDigits(std::string_view text, std::string_view classes, ModelDecimal& number) {
    std::string digits;
    bool behindPoint = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (classes[i] == 'e') {
            const bool plus = text[i + 1] == '+';
            number.exponent += mpz_class(std::string(text.substr(i + (plus ? 2 : 1))), 10);
            break;
        }
        behindPoint = behindPoint || classes[i] == 'p';
        if (classes[i] == 'd') {
            digits += text[i];
            number.exponent -= behindPoint ? 1 : 0;
        }
    }
    number.coefficient = mpz_class(digits, 10);
}

std::string utf8(std::uint32_t c) {
    if (c <= 0xFF) {
        return {static_cast<char>(c)};
    }
    if (c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) {
        c = 0xFFFD;
    }
    std::string text;
    const unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
    unsigned parts = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    text += static_cast<char>(leads[parts] | c >> 6 * parts);
    while (parts-- > 0) {
        text += static_cast<char>(0x80 | (c >> 6 * parts & 0x3F));
    }
    return text;
}

std::string grouped(const DecimalFormat& format, const std::string& digits) {
    if (format.grouping == nullptr || *format.grouping == '\0' || format.thousandsSeparator == 0) {
        return digits;
    }
    const std::string separator = utf8(format.thousandsSeparator);
    std::string text;
    std::size_t left = digits.size();
    const char* size = format.grouping;
    while (static_cast<unsigned char>(*size) < 127 && static_cast<std::size_t>(*size) < left) {
        left -= static_cast<std::size_t>(*size);
        text.insert(0, digits, left, static_cast<std::size_t>(*size));
        text.insert(0, separator);
        size += size[1] == '\0' ? 0 : 1;
    }
    return digits.substr(0, left) + text;
}

std::string withPoint(const DecimalFormat& format, const std::string& whole,
                      const std::string& fraction) {
    const bool shows = !fraction.empty() || format.showPoint != 0;
    return whole + (shows ? utf8(format.decimalPoint == 0 ? '.' : format.decimalPoint) : "") +
           fraction;
}

// |number| with exactly so many digits behind the point.
std::string fixedText(const DecimalFormat& format, const ModelDecimal& number,
                      unsigned long fraction) {
    const long shift = number.exponent.get_si() + static_cast<long>(fraction);
    const mpz_class scaled =
        shift >= 0
            ? mpz_class(number.coefficient * modelPowerOfTen(static_cast<unsigned long>(shift)))
            : divideHalfEven(number.coefficient,
                             modelPowerOfTen(static_cast<unsigned long>(-shift)));
    std::string digits = scaled.get_str();
    if (digits.size() <= fraction) {
        digits.insert(0, fraction + 1 - digits.size(), '0');
    }
    const std::size_t whole = digits.size() - fraction;
    return withPoint(format, grouped(format, digits.substr(0, whole)), digits.substr(whole));
}

// The number with at most so many digits.
ModelDecimal withDigits(ModelDecimal number, unsigned long digits) {
    const unsigned long count = digitCount(number.coefficient);
    if (count > digits) {
        number.coefficient = divideHalfEven(number.coefficient, modelPowerOfTen(count - digits));
        number.exponent += count - digits;
        if (digitCount(number.coefficient) > digits) {
            number.coefficient /= 10;
            ++number.exponent;
        }
    }
    return number;
}

std::string scientificText(const DecimalFormat& format, const ModelDecimal& number,
                           unsigned long fraction, bool small) {
    const ModelDecimal rounded = withDigits(number, fraction + 1);
    std::string digits = rounded.coefficient.get_str();
    const mpz_class exponent = rounded.exponent + (digits.size() - 1);
    digits.append(fraction + 1 - digits.size(), '0');
    const std::string size = mpz_class(abs(exponent)).get_str();
    return withPoint(format, digits.substr(0, 1), digits.substr(1)) + (small ? "e" : "E") +
           (exponent < 0 ? "-" : "+") + (size.size() < 2 ? "0" : "") + size;
}

std::string generalText(const DecimalFormat& format, const ModelDecimal& number, bool small) {
    const ModelDecimal rounded =
        format.precision < 0
            ? number
            : withDigits(number, static_cast<unsigned long>(std::max(format.precision, 1)));
    const long count = static_cast<long>(digitCount(rounded.coefficient));
    const long exponent = rounded.exponent.get_si();
    if (exponent <= 0 && exponent >= -(count + 5)) {
        return fixedText(format, rounded, static_cast<unsigned long>(-exponent));
    }
    return scientificText(format, rounded, static_cast<unsigned long>(count - 1), small);
}

} // namespace

mpz_class modelPowerOfTen(unsigned long exponent) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, exponent);
    return power;
}

ModelDecimal modelFit(const ModelDecimal& number, const ModelFormat& format, unsigned digits) {
    ModelDecimal fit = number;
    if (number.kind != ModelKind::FINITE) {
        return fit;
    }
    const mpz_class low = format.minExponent;
    const mpz_class high = format.maxExponent;
    if (fit.coefficient != 0) {
        const mpz_class count = digitCount(fit.coefficient);
        const mpz_class drop =
            std::max({mpz_class(count - digits), mpz_class(low - fit.exponent), mpz_class(0)});
        // More than one place below the first digit all come to nothing.
        fit.coefficient = drop > count
                              ? mpz_class(0)
                              : divideHalfEven(fit.coefficient, modelPowerOfTen(drop.get_ui()));
        fit.exponent += drop;
        if (fit.coefficient == modelPowerOfTen(digits)) {
            fit.coefficient /= 10;
            ++fit.exponent;
        }
    }
    if (fit.coefficient == 0) {
        fit.exponent = std::clamp(fit.exponent, low, high);
        return fit;
    }
    while (fit.exponent > high && fit.coefficient * 10 < modelPowerOfTen(format.digits)) {
        fit.coefficient *= 10;
        --fit.exponent;
    }
    if (fit.exponent > high) {
        fit.kind = ModelKind::INFINITE;
    }
    return fit;
}

mpz_class modelEncode(const ModelDecimal& number, const ModelFormat& format) {
    const mpz_class sign = number.negative ? mpz_class(1) << (format.bits - 1) : mpz_class(0);
    if (number.kind == ModelKind::NOT_A_NUMBER) {
        return mpz_class(0x7C) << (format.bits - 8);
    }
    if (number.kind == ModelKind::INFINITE) {
        return sign + (mpz_class(0x78) << (format.bits - 8));
    }
    const unsigned place = format.bits - 1 - exponentBits(format);
    const mpz_class exponent = number.exponent - format.minExponent;
    if (number.coefficient < mpz_class(1) << place) {
        return sign + (exponent << place) + number.coefficient;
    }
    return sign + (mpz_class(3) << (format.bits - 3)) + (exponent << (place - 2)) +
           (number.coefficient - (mpz_class(1) << place));
}

ModelDecimal modelDecode(const mpz_class& bits, const ModelFormat& format) {
    ModelDecimal number;
    number.negative = mpz_tstbit(bits.get_mpz_t(), format.bits - 1) != 0;
    mpz_class rest = bits;
    mpz_clrbit(rest.get_mpz_t(), format.bits - 1);
    const mpz_class top = rest >> (format.bits - 6);
    if (top >= 30) {
        number.kind = top == 30 ? ModelKind::INFINITE : ModelKind::NOT_A_NUMBER;
        return number;
    }
    number.kind = ModelKind::FINITE;
    unsigned place = format.bits - 1 - exponentBits(format);
    if (top >= 24) {
        rest -= mpz_class(3) << (format.bits - 3);
        number.coefficient = mpz_class(1) << place;
        place -= 2;
    }
    number.exponent = (rest >> place) + format.minExponent;
    mpz_class low;
    mpz_fdiv_r_2exp(low.get_mpz_t(), rest.get_mpz_t(), place);
    number.coefficient += low;
    if (number.coefficient >= modelPowerOfTen(format.digits)) {
        number.coefficient = 0;
    }
    return number;
}

mpz_class modelBits(ODecimal32 value) {
    return fromWord(value.bits);
}
mpz_class modelBits(ODecimal64 value) {
    return fromWord(value.bits);
}
mpz_class modelBits(ODecimal128 value) {
    return (fromWord(value.high) << 64) + fromWord(value.low);
}

bool modelIsNumber(std::string_view text, const ModelReading& reading) {
    return isNumber(classesOf(text, reading), reading.skipsSpace);
}

bool modelBeginsNumber(std::string_view text, const ModelReading& reading) {
    const std::string classes = classesOf(text, reading);
    const std::string_view ends[] = {"",    "d",  "nf", "f",  "inity", "nity",
                                     "ity", "ty", "y",  "an", "n"};
    return std::any_of(std::begin(ends), std::end(ends), [&](std::string_view end) {
        return isNumber(classes + std::string(end), reading.skipsSpace);
    });
}

ModelDecimal modelParse(std::string_view text, const ModelReading& reading) {
    ModelDecimal number;
    std::string classes = classesOf(text, reading);
    const std::size_t spaces = std::min(classes.find_first_not_of('s'), classes.size());
    text.remove_prefix(spaces);
    classes.erase(0, spaces);
    if (!classes.empty() && classes[0] == '+') {
        number.negative = text[0] == '-';
        text.remove_prefix(1);
        classes.erase(0, 1);
    }
    if (classes.empty() || classes[0] == 'n') {
        return number;
    }
    number.kind = classes[0] == 'i' ? ModelKind::INFINITE : ModelKind::FINITE;
    if (number.kind == ModelKind::FINITE) {
        readDigits(text, classes, number);
    }
    return number;
}

std::string modelText(const DecimalFormat& format, const ModelDecimal& number) {
    const bool small = format.conversion >= 'a' && format.conversion <= 'z';
    if (number.kind == ModelKind::NOT_A_NUMBER) {
        return small ? "nan" : "NAN";
    }
    const std::string plus(format.plusSign == 0 ? 0 : 1, format.plusSign);
    const std::string sign = number.negative ? "-" : plus;
    if (number.kind == ModelKind::INFINITE) {
        return sign + (small ? "inf" : "INF");
    }
    const long exponent = number.exponent.get_si();
    const auto precision = static_cast<unsigned long>(std::max(format.precision, 0));
    switch (format.conversion | 0x20) {
    case 'f':
        return sign + fixedText(format, number,
                                format.precision < 0
                                    ? static_cast<unsigned long>(std::max(-exponent, 0L))
                                    : precision);
    case 'e':
        return sign +
               scientificText(format, number,
                              format.precision < 0 ? digitCount(number.coefficient) - 1 : precision,
                              small);
    default:
        return sign + generalText(format, number, small);
    }
}

} // namespace orvtest
