// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point numbers as text.
///
/// The layout is that of detail/format_digits.cpp, written eight digits at a time: zeros that fill
/// the last eight are written too, and the text ends before them.
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/number/detail/decimal_fields.h"
#include "orv/liborvxx/number/detail/format_digits.h"
#include "orv/liborvxx/number/detail/number_layout.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/to_chars.h"
#include "orv/liborvxx/number/words/decimal_digits.h"
#include "orv/liborvxx/number/words/reciprocal.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>

namespace orv {

namespace {

using detail::put;
using detail::putDigit;
using words::Limb;
using words::Wide;
using words::Word;

constexpr Limb EIGHT = 100000000;

// The digits of a coefficient, each in a byte, the first in the lowest of the first limb; zeros
// fill the last one.
template <std::size_t LIMBS>
struct DigitBytes {
    std::array<Limb, LIMBS> limbs;
    unsigned count; // of digits

    template <class CharT>
    ORVXX_ALWAYS_INLINE void write(CharT* text) const noexcept {
        for (std::size_t i = 0; i < LIMBS; ++i) {
            words::storeEight(text + 8 * i, limbs[i] + words::EIGHT_ZEROS);
        }
    }
};

// At most 8 * LIMBS digits, in one limb or two.
template <std::size_t LIMBS>
ORVXX_ALWAYS_INLINE DigitBytes<LIMBS> shortDigits(Limb coefficient) noexcept {
    static_assert(LIMBS == 1 || LIMBS == 2);
    const unsigned count = words::countDigits(coefficient);
    assert(count <= 8 * LIMBS);
    const Limb filled = coefficient * words::POW10_IN_LIMBS[8 * LIMBS - count];
    if constexpr (LIMBS == 1) {
        return {{words::eightDigits(static_cast<Word>(filled))}, count};
    } else {
        return {{words::eightDigits(static_cast<Word>(filled / EIGHT)),
                 words::eightDigits(static_cast<Word>(filled % EIGHT))},
                count};
    }
}

// From 10^16 up to below 10^34.
DigitBytes<5> longDigits(const Wide& coefficient) noexcept {
    // 10^16, moved up to the top bit, and its reciprocal.
    constexpr unsigned SHIFT = 10;
    constexpr Limb DIVISOR = Limb{10000000000000000} << SHIFT;
    constexpr Limb RECIPROCAL = 0xCD2B297D889BC2B6;
    assert(words::reciprocal(DIVISOR) == RECIPROCAL);
    Limb rest = coefficient.high << SHIFT | coefficient.low >> (64 - SHIFT);
    const Limb upper = words::divideTwoByOne(rest, coefficient.low << SHIFT, DIVISOR, RECIPROCAL);
    rest >>= SHIFT;

    // Behind up to 23 zeros, and then in front of them.
    constexpr Limb SIXTEEN = EIGHT * EIGHT;
    const std::array<Limb, 8> limbs{words::eightDigits(static_cast<Word>(upper / SIXTEEN)),
                                    words::eightDigits(static_cast<Word>(upper / EIGHT % EIGHT)),
                                    words::eightDigits(static_cast<Word>(upper % EIGHT)),
                                    words::eightDigits(static_cast<Word>(rest / EIGHT)),
                                    words::eightDigits(static_cast<Word>(rest % EIGHT))};
    DigitBytes<5> digits{{}, 16 + words::countDigits(upper)};
    const unsigned zeros = 40 - digits.count;
    const unsigned bits = 8 * (zeros % 8);
    for (std::size_t i = 0; i < 5; ++i) {
        const std::size_t from = i + zeros / 8;
        digits.limbs[i] = limbs[from] >> bits | limbs[from + 1] << 1U << (63 - bits);
    }
    return digits;
}

// Writes digits with the point behind the first and then 10^exponent; or plainly, if the lowest
// digit stands for 1 or less.
template <std::size_t LIMBS, class CharT>
ORVXX_ALWAYS_INLINE CharT* writeDigits(CharT* text, const DigitBytes<LIMBS>& digits,
                                       int exponent) noexcept {
    if (exponent < detail::LEAST_PLAIN_EXPONENT || exponent > detail::MOST_PLAIN_EXPONENT ||
        exponent >= static_cast<int>(digits.count)) { // "1.23E45"
        digits.write(text + 1);
        putDigit(text, static_cast<unsigned>(digits.limbs[0] & 0xFFU));
        put(text + 1, '.');
        return detail::writeExponent(text + 1 + digits.count, exponent);
    }
    if (exponent < 0) { // "0.00123"
        put(text, '0');
        put(text + 1, '.');
        put(text + 2, '0');
        put(text + 3, '0');
        text += 1 - exponent;
        digits.write(text);
        return text + digits.count;
    }
    // "123.45": the digits, and the first of them again one place further left.
    digits.write(text + 1);
    words::storeEight(text,
                      detail::withPoint(digits.limbs[0], static_cast<unsigned>(exponent) + 1));
    return text + digits.count + 1;
}

template <class CharT>
CharT* writeSpecial(CharT* text, bool negative, detail::DecimalKind kind) noexcept {
    using Texts = detail::FixedTexts<CharT>;
    if (kind == detail::DecimalKind::NOT_A_NUMBER) {
        return detail::writeFixed(text, Texts::NOT_A_NUMBER);
    }
    return detail::writeFixed(text, negative ? Texts::NEGATIVE_INFINITY : Texts::POSITIVE_INFINITY);
}

// Units that may be written to: a sign, four units in front of the digits, and these.
template <class Record>
constexpr std::size_t ROOM = 5 + 8 * 5;
template <>
constexpr std::size_t ROOM<ODecimal32> = MAX_DECIMAL32_LENGTH;
template <>
constexpr std::size_t ROOM<ODecimal64> = MAX_DECIMAL64_LENGTH;

template <std::size_t LIMBS, class CharT>
ORVXX_ALWAYS_INLINE CharT* writeShort(CharT* text, Limb coefficient, int exponent) noexcept {
    const DigitBytes<LIMBS> digits = shortDigits<LIMBS>(coefficient);
    return writeDigits(text, digits, exponent + static_cast<int>(digits.count) - 1);
}

// The digits of a coefficient, and the exponent of the last one.
template <class Record, class CharT>
ORVXX_ALWAYS_INLINE CharT* writeFinite(CharT* text, const Record& record) noexcept {
    const auto [coefficient, exponent] = detail::fieldsOf(record);
    if (sizeof(Record) == 4 || (coefficient.high == 0 && coefficient.low < EIGHT)) {
        return writeShort<1>(text, coefficient.low, exponent);
    }
    if (sizeof(Record) == 8 || (coefficient.high == 0 && coefficient.low < EIGHT * EIGHT)) {
        return writeShort<2>(text, coefficient.low, exponent);
    }
    const DigitBytes<5> digits = longDigits(coefficient);
    return writeDigits(text, digits, exponent + static_cast<int>(digits.count) - 1);
}

// Writes the text of a value at `text`, where there is ROOM, which may all be written to.
template <class Record, class CharT>
ORVXX_ALWAYS_INLINE CharT* write(CharT* text, const Record& record) noexcept {
    const unsigned topBits = detail::topBitsOf(record);
    const bool negative = topBits >> 7U != 0;
    const detail::DecimalKind kind = detail::decimalKind(topBits);
    if (kind != detail::DecimalKind::FINITE) {
        return writeSpecial(text, negative, kind);
    }
    put(text, '-'); // written over, if there is none: no branch for the sign
    return writeFinite(text + (negative ? 1 : 0), record);
}

template <class Record, class CharT>
to_chars_result<CharT> toChars(CharT* first, CharT* last, const Record& record) noexcept {
    assert(first <= last);
    const auto room = static_cast<std::size_t>(last - first);
    if (room >= ROOM<Record>) {
        return {write(first, record), true};
    }
    CharT text[ROOM<Record>];
    const CharT* const end = write(text, record);
    const auto length = static_cast<std::size_t>(end - text);
    if (length > room) {
        return {last, false};
    }
    return {std::copy_n(text, length, first), true};
}

// The text is written beside, so that a string that has room for short texts in itself asks for no
// memory.
template <class String, class Record>
String toString(const Record& record) {
    typename String::value_type text[ROOM<Record>];
    return String(text, write(text, record));
}

} // namespace

to_chars_result<char> to_chars_c(char* first, char* last, decimal::decimal32 value) noexcept {
    return toChars(first, last, value.record());
}

to_chars_result<char16> to_chars_c(char16* first, char16* last, decimal::decimal32 value) noexcept {
    return toChars(first, last, value.record());
}

to_chars_result<char> to_chars_c(char* first, char* last, decimal::decimal64 value) noexcept {
    return toChars(first, last, value.record());
}

to_chars_result<char16> to_chars_c(char16* first, char16* last, decimal::decimal64 value) noexcept {
    return toChars(first, last, value.record());
}

to_chars_result<char> to_chars_c(char* first, char* last, decimal::decimal128 value) noexcept {
    return toChars(first, last, value.record());
}

to_chars_result<char16> to_chars_c(char16* first, char16* last,
                                   decimal::decimal128 value) noexcept {
    return toChars(first, last, value.record());
}

std::string to_string_c(decimal::decimal32 value) {
    return toString<std::string>(value.record());
}

std::string to_string_c(decimal::decimal64 value) {
    return toString<std::string>(value.record());
}

std::string to_string_c(decimal::decimal128 value) {
    return toString<std::string>(value.record());
}

ustring to_ustring_c(decimal::decimal32 value) {
    return toString<ustring>(value.record());
}

ustring to_ustring_c(decimal::decimal64 value) {
    return toString<ustring>(value.record());
}

ustring to_ustring_c(decimal::decimal128 value) {
    return toString<ustring>(value.record());
}

} // namespace orv
