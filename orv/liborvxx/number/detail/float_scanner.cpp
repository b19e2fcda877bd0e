// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief All roads of a scan: white space, words, hexadecimal digits and long texts.
#include "orv/liborvxx/number/detail/float_scanner.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/locale/char_class.h"
#include "orv/liborvxx/number/detail/scan_decimal.h"
#include "orv/liborvxx/number/detail/text_source.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <string_view>

namespace orv::detail {

namespace {

using words::Limb;
using words::Wide;

constexpr bool isSpace(char unit) noexcept {
    return isAsciiSpace(unit);
}

bool isSpace(char16 unit) noexcept {
    return isuspace(unit);
}

constexpr char toLower(char unit) noexcept {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
}

// All of Unicode's letters: a capital I with a dot is an 'i'.
char toLower(char16 unit) noexcept {
    const std::uint32_t lower = orvUniCharToLower(static_cast<char16_t>(unit));
    return lower < 0x80 ? static_cast<char>(lower) : '\0';
}

constexpr bool isLetter(char unit) noexcept {
    return toLower(unit) >= 'a' && toLower(unit) <= 'z';
}

bool isLetter(char16 unit) noexcept {
    return isualnum(unit);
}

// Whether a word would go on with the unit.
template <class CharT>
bool continuesWord(CharT unit) noexcept {
    return isLetter(unit) || digitOf(unit) <= 9 || asciiOf(unit) == '_';
}

// Takes the longest beginning of \p word; its length.
template <class Source>
std::size_t takeBeginning(Source& text, std::string_view word) noexcept {
    std::size_t length = 0;
    while (length < word.size() && toLower(text.unit()) == word[length]) {
        text.step();
        ++length;
    }
    return length;
}

template <class Source>
number_status scanInfinity(float_scanner& state, Source& text) noexcept {
    constexpr std::string_view WORD = "infinity";
    constexpr std::size_t SHORT = 3;
    state.exponent = WORD_INFINITY;
    const std::size_t length = takeBeginning(text, WORD);
    const bool whole = length == WORD.size() || length == SHORT;
    return whole && !continuesWord(text.unit()) ? number_status::ok
                                                : number_status::infinity_expected;
}

template <class Source>
number_status scanNan(float_scanner& state, Source& text) noexcept {
    constexpr std::string_view WORD = "nan";
    state.exponent = WORD_NAN;
    const std::size_t length = takeBeginning(text, WORD);
    return length == WORD.size() && !continuesWord(text.unit()) ? number_status::ok
                                                                : number_status::nan_expected;
}

// The value of a digit, or RADIX or more. Only ASCII letters are hexadecimal digits.
template <unsigned RADIX, class CharT>
ORVXX_ALWAYS_INLINE unsigned digitValue(CharT unit) noexcept {
    const unsigned digit = digitOf(unit);
    if (RADIX == 16 && digit > 9) {
        const unsigned letter = lowerCase(unit) - 'a';
        return letter < 6 ? letter + 10 : RADIX;
    }
    return digit;
}

// What the first digit that is not kept tells.
template <unsigned RADIX>
constexpr unsigned roundingOfDigit(unsigned digit) noexcept {
    return roundingOfRemainder(digit, RADIX);
}

void appendDigit(Wide& number, unsigned radix, unsigned digit) noexcept {
    const Wide low = words::multiplyAdd(number.low, radix, digit, 0);
    number = {low.low, number.high * radix + low.high};
}

// Keeps the first \p limit of the \p count digits from \p first to \p end, which may have a point
// among them, and what the others tell. Returns how many were not kept. Zeros in front do not
// count.
template <unsigned RADIX, class CharT>
std::ptrdiff_t keepDigits(float_scanner& state, const CharT* first, const CharT* end,
                          std::ptrdiff_t count, std::ptrdiff_t limit) noexcept {
    const auto isPoint = [](CharT unit) { return unit == CharT(u'.'); };
    std::ptrdiff_t kept = 0;
    const CharT* at = first;
    for (; count > 0 && kept < limit; ++at) {
        if (isPoint(*at)) {
            continue;
        }
        const unsigned digit = digitValue<RADIX>(*at);
        appendDigit(state.coefficient, RADIX, digit);
        kept += digit != 0 || kept != 0 ? 1 : 0;
        --count;
    }
    if (count > 0) {
        at += isPoint(*at) ? 1 : 0;
        const bool zeros = std::all_of(
            at + 1, end, [isPoint](CharT unit) { return isPoint(unit) || digitOf(unit) == 0; });
        state.rounding = combineRounding(roundingOfDigit<RADIX>(digitValue<RADIX>(*at)),
                                         zeros ? ROUNDING_EXACT : ROUNDING_BELOW_HALF);
    }
    return count;
}

template <class Source>
number_status scanDecimal(float_scanner& state, Source& text) noexcept {
    const auto digits = takeDecimal(text);
    if (digits.count == 0) {
        return number_status::digit_expected;
    }
    const std::ptrdiff_t limit = state.max_digits;
    state.radix = 10;
    std::ptrdiff_t dropped = 0;
    if (digits.count <= std::min(limit, LIMB_DIGITS)) {
        state.coefficient = {digits.value, 0};
    } else {
        dropped = keepDigits<10>(state, digits.first, text.position(), digits.count, limit);
    }
    state.exponent = takeExponent(text, 'e', dropped - digits.fraction);
    return number_status::ok;
}

// Takes the hexadecimal digits at the front of \p text, and appends them to \p value, modulo 2^64.
template <class Source>
Limb takeHexDigits(Source& text, Limb value) noexcept {
    for (;;) {
        const unsigned digit = digitValue<16>(text.unit());
        if (digit >= 16) {
            return value;
        }
        value = value << 4U | digit;
        text.step();
    }
}

// Behind the prefix.
template <class Source>
number_status scanHexadecimal(float_scanner& state, Source& text) noexcept {
    constexpr std::ptrdiff_t LIMB_HEX_DIGITS = 16;
    const auto* const first = text.position();
    Limb value = takeHexDigits(text, 0);
    std::ptrdiff_t count = text.position() - first;
    std::ptrdiff_t fraction = 0;
    if (text.ascii() == '.') {
        text.step();
        const auto* const point = text.position();
        value = takeHexDigits(text, value);
        fraction = text.position() - point;
        count += fraction;
    }
    if (count == 0) {
        return number_status::digit_expected;
    }
    const std::ptrdiff_t limit = state.max_hex_digits;
    state.radix = 2;
    std::ptrdiff_t dropped = 0;
    if (count <= std::min(limit, LIMB_HEX_DIGITS)) {
        state.coefficient = {value, 0};
    } else {
        dropped = keepDigits<16>(state, first, text.position(), count, limit);
    }
    state.exponent = takeExponent(text, 'p', 4 * (dropped - fraction));
    return number_status::ok;
}

// Steps past "0x", if it is there.
template <class Source>
bool takePrefix(Source& text) noexcept {
    if (text.ascii() != '0') {
        return false;
    }
    const auto* const zero = text.position();
    text.step();
    if (toLower(text.ascii()) == 'x') {
        text.step();
        return true;
    }
    text.setPosition(zero);
    return false;
}

} // namespace

template <class Source>
number_status scan_float(float_scanner& state, Source& text, bool skip_space) noexcept {
    assert(state.max_digits > 0 && state.max_digits <= 38);
    assert(state.max_hex_digits >= 0 && state.max_hex_digits <= 32);
    state = {state.max_digits, state.max_hex_digits};
    while (skip_space && isSpace(text.unit())) {
        text.step();
    }
    const char sign = text.ascii();
    state.negative = sign == '-';
    if (sign == '+' || sign == '-') {
        text.step();
    }
    switch (toLower(text.ascii())) {
    case 'i':
        return scanInfinity(state, text);
    case 'n':
        return scanNan(state, text);
    default:
        return state.max_hex_digits != 0 && takePrefix(text) ? scanHexadecimal(state, text)
                                                             : scanDecimal(state, text);
    }
}

template number_status scan_float(float_scanner&, RangeSource<char>&, bool) noexcept;
template number_status scan_float(float_scanner&, RangeSource<char16>&, bool) noexcept;
template number_status scan_float(float_scanner&, NulTerminatedSource<char>&, bool) noexcept;
template number_status scan_float(float_scanner&, NulTerminatedSource<char16>&, bool) noexcept;

} // namespace orv::detail
