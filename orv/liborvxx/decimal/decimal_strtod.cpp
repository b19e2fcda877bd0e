// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from text, with the punctuation of a locale.
#include "orv/liborv/decimal/parse.h"
#include "orv/liborvxx/decimal/decimal_access.h"
#include "orv/liborvxx/decimal/decimal_io.h"
#include "orv/liborvxx/decimal/decimal_layout.h"
#include "orv/liborvxx/decimal/detail/decimal_punctuation.h"
#include "orv/liborvxx/number/detail/text_source.h"
#include "orv/liborvxx/number/string_to_decimal.h"

#include <cassert>
#include <cstdint>

namespace orv::decimal {

namespace {

using detail::DecimalLayout;
using detail::DecimalPunctuation;

bool isWhiteSpace(const char* text) noexcept {
    while (orv::detail::isAsciiSpace(*text)) {
        ++text;
    }
    return *text == '\0';
}

// Everyday numbers are the same to the reader that knows no locale, and which is faster. It takes
// exponents of ten digits and more for something else, which gives a zero or an infinity; and it
// stops in front of an exponent that lacks its digits.
template <class Decimal>
bool readEveryday(const char* text, Decimal (*reader)(const char*, char**) noexcept, Decimal& value,
                  const char*& behind) noexcept {
    char* end = nullptr;
    value = reader(text, &end);
    behind = end;
    return isfinite(value) && !Decimal::Functions::isZero(value.record()) && *end != 'e' &&
           *end != 'E';
}

template <class Decimal, class Record>
Decimal read(const DecimalPunctuation& punctuation, const char* text, const char** end,
             Decimal (*reader)(const char*, char**) noexcept,
             Record (*getValue)(const DecimalParseState*) noexcept) noexcept {
    assert(text != nullptr);
    Decimal value;
    const char* behind = text;
    if (punctuation.isClassic() && readEveryday(text, reader, value, behind)) {
        if (end != nullptr) {
            *end = behind;
        } else if (!isWhiteSpace(behind)) {
            return DecimalLayout<Record>::quietNan();
        }
        return value;
    }
    if (end != nullptr) {
        *end = text;
    }
    DecimalParseState state;
    if (orvDecParseInit(&state, DecimalLayout<Record>::DIGITS, punctuation.point,
                        punctuation.separator, ORV_DEC_PARSE_SKIP_SPACE) == -1) {
        return DecimalLayout<Record>::quietNan();
    }
    std::size_t complete = 0;
    const std::size_t scanned = orvDecParseText(&state, text, SIZE_MAX, &complete);
    if (end != nullptr) {
        *end = text + complete;
    } else if (!isWhiteSpace(text + scanned)) {
        return DecimalLayout<Record>::quietNan();
    }
    return getValue(&state);
}

decimal64 read64(const DecimalPunctuation& punctuation, const char* text,
                 const char** end) noexcept {
    return read<decimal64>(punctuation, text, end, strtod64_c, orvDec64ParseGetValue);
}

decimal128 read128(const DecimalPunctuation& punctuation, const char* text,
                   const char** end) noexcept {
    return read<decimal128>(punctuation, text, end, strtod128_c, orvDec128ParseGetValue);
}

// The same for a string: read at *index, which the end of the number is counted into.
template <class Read>
auto readString(Read read, const DecimalPunctuation& punctuation, const std::string& text,
                std::size_t* index) noexcept {
    if (index == nullptr) {
        return read(punctuation, text.c_str(), nullptr);
    }
    assert(*index <= text.size());
    const char* const begin = text.c_str() + *index;
    const char* end = begin;
    const auto value = read(punctuation, begin, &end);
    *index += static_cast<std::size_t>(end - begin);
    return value;
}

} // namespace

decimal64 strtod64(const char* text, const char** end) {
    return read64(DecimalPunctuation(), text, end);
}

decimal64 strtod64(const std::locale& locale, const char* text, const char** end) {
    return read64(DecimalPunctuation(locale), text, end);
}

decimal64 strtod64(const std::string& text, std::size_t* index) {
    return readString(read64, DecimalPunctuation(), text, index);
}

decimal64 strtod64(const std::locale& locale, const std::string& text, std::size_t* index) {
    return readString(read64, DecimalPunctuation(locale), text, index);
}

decimal128 strtod128(const char* text, const char** end) {
    return read128(DecimalPunctuation(), text, end);
}

decimal128 strtod128(const std::locale& locale, const char* text, const char** end) {
    return read128(DecimalPunctuation(locale), text, end);
}

decimal128 strtod128(const std::string& text, std::size_t* index) {
    return readString(read128, DecimalPunctuation(), text, index);
}

decimal128 strtod128(const std::locale& locale, const std::string& text, std::size_t* index) {
    return readString(read128, DecimalPunctuation(locale), text, index);
}

} // namespace orv::decimal
