// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random texts and decimal numbers, most of them near what is hard.
#ifndef ORV_TESTS_LIBORV_DECIMAL_DECIMAL_TEXTS_H
#define ORV_TESTS_LIBORV_DECIMAL_DECIMAL_TEXTS_H

#include "tests/reference/decimal_text_model.h"
#include "tests/support/number_source.h"

#include <string>

namespace orvtest {

/// Digits: random ones, or long runs of zeros, nines, and a five with zeros behind.
inline std::string digitText(NumberSource& source, unsigned most) {
    const char runs[] = {'0', '9', '5', '4'};
    std::string text;
    for (unsigned left = source.below(most + 1); left > 0;) {
        const unsigned run = 1 + source.below(left);
        const bool same = source.coin();
        const char c = runs[source.below(4)];
        for (unsigned i = 0; i < run; ++i) {
            text += same ? c : static_cast<char>('0' + source.below(10));
        }
        left -= run;
    }
    return text;
}

/// A number with '.' for a point: up to 50 digits, exponents from anywhere in the formats' ranges
/// and from near their ends.
inline std::string numberText(NumberSource& source) {
    const char* const signs[] = {"", "", "-", "+"};
    std::string text = signs[source.below(4)];
    text += static_cast<char>('0' + source.below(10));
    text += digitText(source, source.coin() ? 20 : 40);
    if (source.coin()) {
        text += '.' + digitText(source, 30);
    }
    const int ends[] = {0, -101, 96, -398, 384, -6176, 6144};
    if (source.below(4) != 0) {
        const int exponent = ends[source.below(7)] + source.between(-45, 45);
        text += (source.coin() ? "e" : "E") + std::to_string(exponent);
    }
    return text;
}

/// A text that is a number up to some character, with the punctuation given.
inline std::string anyText(NumberSource& source, char point, char separator) {
    std::string pieces[] = {"0", "1", "9", "5",     "+",   "-",  "e",       "E",
                            "i", "n", "f", "inf",   "nan", " ",  "\t",      "a",
                            "t", "y", "x", "inity", "NaN", "00", "12345678"};
    std::string text = source.below(4) == 0 ? " " : "";
    for (unsigned left = source.below(14); left > 0; --left) {
        const unsigned kind = source.below(8);
        if (kind == 0) {
            text += point;
        } else if (kind == 1 && separator != '\0') {
            text += separator;
        } else if (kind < 4) {
            text += digitText(source, 20);
        } else {
            text += pieces[source.below(23)];
        }
    }
    return text;
}

/// A number of a format, canonical: coefficients of any count of digits, exponents from anywhere
/// and from near 0 and the ends; at times an infinity or a NaN.
inline ModelDecimal anyDecimal(NumberSource& source, const ModelFormat& format) {
    ModelDecimal number;
    if (source.below(50) == 0) {
        number.kind = source.coin() ? ModelKind::INFINITE : ModelKind::NOT_A_NUMBER;
        number.negative = number.kind == ModelKind::INFINITE && source.coin();
        return number;
    }
    number.kind = ModelKind::FINITE;
    number.negative = source.coin();
    number.coefficient = mpz_class("0" + digitText(source, format.digits), 10);
    const int digits = static_cast<int>(format.digits);
    switch (source.below(4)) {
    case 0:
        number.exponent = source.between(format.minExponent, format.maxExponent);
        break;
    case 1:
        number.exponent = format.minExponent + source.between(0, digits);
        break;
    case 2:
        number.exponent = format.maxExponent - source.between(0, digits);
        break;
    default:
        number.exponent = source.between(-digits - 8, 8);
        break;
    }
    return number;
}

/// Any bits of a format.
inline mpz_class anyBits(NumberSource& source, const ModelFormat& format) {
    mpz_class bits;
    for (unsigned i = 0; i < 4; ++i) {
        bits = (bits << 32) + static_cast<unsigned long>(source.bits() >> 32U);
    }
    mpz_class low;
    mpz_fdiv_r_2exp(low.get_mpz_t(), bits.get_mpz_t(), format.bits);
    return low;
}

} // namespace orvtest

#endif
