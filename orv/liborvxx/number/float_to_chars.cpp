// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point numbers as text in the caller's memory.
///
/// The layout is that of detail/format_digits.cpp, written eight digits at a time: all digits that
/// a type can have are written, and the text ends before the zeros among them.
#include "orv/liborvxx/number/detail/format_digits.h"
#include "orv/liborvxx/number/detail/number_layout.h"
#include "orv/liborvxx/number/detail/shortest_digits.h"
#include "orv/liborvxx/number/to_chars.h"
#include "orv/liborvxx/number/words/decimal_digits.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>

namespace orv {

namespace {

using detail::put;
using detail::putDigit;
using detail::writeExponent;
using words::Limb;
using words::Word;

// The digits of a number d.ddd * 10^exponent, each in a byte of its own, the first in the lowest.
template <unsigned DIGITS>
struct DigitBytes {
    static_assert(DIGITS == 9 || DIGITS == 17);

    explicit DigitBytes(const detail::DecimalNumber& number) noexcept;

    // Text of digits 1 to the last.
    template <class CharT>
    void writeRest(CharT* text) const noexcept {
        words::storeEight(text, second + words::EIGHT_ZEROS);
        if constexpr (DIGITS == 17) {
            words::storeEight(text + 8, third + words::EIGHT_ZEROS);
        }
    }

    int exponent;
    unsigned count; // of digits up to the last that is not 0
    Limb first;     // digit 0
    Limb second;    // digits 1 to 8
    Limb third = 0; // digits 9 to 16
};

// How many of the eight digits there are up to the last that is not 0.
unsigned usedDigits(Limb bytes) noexcept {
    return 8 - static_cast<unsigned>(std::countl_zero(bytes)) / 8;
}

template <unsigned DIGITS>
ORVXX_ALWAYS_INLINE DigitBytes<DIGITS>::DigitBytes(const detail::DecimalNumber& number) noexcept {
    constexpr Limb EIGHT = 100000000;
    const unsigned digits = words::countDigits(number.coefficient);
    assert(digits <= DIGITS);
    exponent = number.exponent + static_cast<int>(digits) - 1;
    Limb rest = number.coefficient * words::POW10_IN_LIMBS[DIGITS - digits];
    Limb last = 0;
    if constexpr (DIGITS == 17) {
        last = rest % EIGHT;
        rest /= EIGHT;
        third = words::eightDigits(static_cast<Word>(last));
    }
    first = rest / EIGHT;
    second = words::eightDigits(static_cast<Word>(rest % EIGHT));
    count = 1 + (last != 0 ? 8 + usedDigits(third) : usedDigits(second));
}

// "123.45": the digits, the first eight of them again one place further left, and the point
// between the two.
template <unsigned DIGITS, class CharT>
ORVXX_ALWAYS_INLINE CharT* writeWhole(CharT* text, const DigitBytes<DIGITS>& digits) noexcept {
    digits.writeRest(text + 2);
    const auto whole = static_cast<unsigned>(digits.exponent) + 1; // 7 at most
    words::storeEight(text, detail::withPoint(digits.first | digits.second << 8U, whole));
    return text + std::max(digits.count, whole + 1) + 1;
}

// "0.00123"
template <unsigned DIGITS, class CharT>
ORVXX_ALWAYS_INLINE CharT* writeFraction(CharT* text, const DigitBytes<DIGITS>& digits) noexcept {
    put(text, '0');
    put(text + 1, '.');
    put(text + 2, '0');
    put(text + 3, '0');
    text += 1 - digits.exponent;
    putDigit(text, static_cast<unsigned>(digits.first));
    digits.writeRest(text + 1);
    return text + digits.count;
}

// "1.23E45"
template <unsigned DIGITS, class CharT>
ORVXX_ALWAYS_INLINE CharT* writeScientific(CharT* text, const DigitBytes<DIGITS>& digits) noexcept {
    putDigit(text, static_cast<unsigned>(digits.first));
    put(text + 1, '.');
    digits.writeRest(text + 2);
    return writeExponent(text + std::max(digits.count, 2U) + 1, digits.exponent);
}

// The most digits that are written, and the room for them: the longest text is the longest of those
// in scientific form, "-1.0000000000000000E-324".
template <class Layout>
constexpr unsigned WRITTEN_DIGITS = 9;
template <>
constexpr unsigned WRITTEN_DIGITS<detail::DoubleBits> = 17;
template <class Layout>
constexpr std::size_t ROOM = MAX_FLOAT_LENGTH;
template <>
constexpr std::size_t ROOM<detail::DoubleBits> = MAX_DOUBLE_LENGTH;

template <class Layout, class CharT>
CharT* writeSpecial(CharT* text, typename Layout::Bits bits) noexcept {
    using Texts = detail::FixedTexts<CharT>;
    const bool negative = Layout::signBit(bits);
    if (Layout::isNan(bits)) {
        return detail::writeFixed(text, Texts::NOT_A_NUMBER);
    }
    if (Layout::isInf(bits)) {
        return detail::writeFixed(text,
                                  negative ? Texts::NEGATIVE_INFINITY : Texts::POSITIVE_INFINITY);
    }
    return detail::writeFixed(text, negative ? Texts::NEGATIVE_ZERO : Texts::POSITIVE_ZERO);
}

// Writes the text of a value at `text`, where there is ROOM, which may all be written to.
template <class Layout, class CharT>
ORVXX_ALWAYS_INLINE CharT* write(CharT* text, typename Layout::Bits bits) noexcept {
    if (!Layout::isFinite(bits) || Layout::isZero(bits)) {
        return writeSpecial<Layout>(text, bits);
    }
    if (Layout::signBit(bits)) {
        text = put(text, '-');
    }
    const DigitBytes<WRITTEN_DIGITS<Layout>> digits(
        detail::shortestDecimal<Layout>(bits & Layout::MAGNITUDE));
    if (digits.exponent < detail::LEAST_PLAIN_EXPONENT ||
        digits.exponent > detail::MOST_PLAIN_EXPONENT) {
        return writeScientific(text, digits);
    }
    return digits.exponent < 0 ? writeFraction(text, digits) : writeWhole(text, digits);
}

template <class Layout, class CharT>
to_chars_result<CharT> toChars(CharT* first, CharT* last, typename Layout::Bits bits) noexcept {
    assert(first <= last);
    const auto room = static_cast<std::size_t>(last - first);
    if (room >= ROOM<Layout>) {
        return {write<Layout>(first, bits), true};
    }
    CharT text[ROOM<Layout>];
    const CharT* const end = write<Layout>(text, bits);
    const auto length = static_cast<std::size_t>(end - text);
    if (length > room) {
        return {last, false};
    }
    return {std::copy_n(text, length, first), true};
}

} // namespace

to_chars_result<char> to_chars_c(char* first, char* last, double value) noexcept {
    return toChars<detail::DoubleBits>(first, last, detail::bitsOf(value));
}

to_chars_result<char16> to_chars_c(char16* first, char16* last, double value) noexcept {
    return toChars<detail::DoubleBits>(first, last, detail::bitsOf(value));
}

to_chars_result<char> to_chars_c(char* first, char* last, long double value) noexcept {
    return to_chars_c(first, last, static_cast<double>(value));
}

to_chars_result<char16> to_chars_c(char16* first, char16* last, long double value) noexcept {
    return to_chars_c(first, last, static_cast<double>(value));
}

to_chars_result<char> to_chars_c(char* first, char* last, float value) noexcept {
    return toChars<detail::FloatBits>(first, last, detail::bitsOf(value));
}

to_chars_result<char16> to_chars_c(char16* first, char16* last, float value) noexcept {
    return toChars<detail::FloatBits>(first, last, detail::bitsOf(value));
}

to_chars_result<char> to_chars_c(char* first, char* last, binary16 value) noexcept {
    return toChars<detail::HalfBits>(first, last, value.bits());
}

to_chars_result<char16> to_chars_c(char16* first, char16* last, binary16 value) noexcept {
    return toChars<detail::HalfBits>(first, last, value.bits());
}

} // namespace orv
