// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from text, with the punctuation of a locale.
#include "orv/liborv/decimal/parse.h"
#include "orv/liborvxx/decimal/decimal_io.h"
#include "orv/liborvxx/decimal/decimal_layout.h"
#include "orv/liborvxx/decimal/detail/decimal_punctuation.h"
#include "orv/liborvxx/number/detail/text_source.h"

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

template <class Record>
Record read(const DecimalPunctuation& punctuation, const char* text, const char** end,
            Record (*value)(const DecimalParseState*) noexcept) noexcept {
    assert(text != nullptr);
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
    return value(&state);
}

ODecimal64 read64(const DecimalPunctuation& punctuation, const char* text,
                  const char** end) noexcept {
    return read<ODecimal64>(punctuation, text, end, orvDec64ParseGetValue);
}

ODecimal128 read128(const DecimalPunctuation& punctuation, const char* text,
                    const char** end) noexcept {
    return read<ODecimal128>(punctuation, text, end, orvDec128ParseGetValue);
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
