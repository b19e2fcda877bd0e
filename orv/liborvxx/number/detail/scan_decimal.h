// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal digits and exponents at the front of a text: the parts of a number that nearly
/// all texts are made of, to be inlined.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_SCAN_DECIMAL_H
#define ORV_LIBORVXX_NUMBER_DETAIL_SCAN_DECIMAL_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/detail/digit_groups.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/text_source.h"
#include "orv/liborvxx/number/words/limb.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orv::detail {

/// Digits that always fit a limb.
inline constexpr std::ptrdiff_t LIMB_DIGITS = 19;

/// So many digits are taken one by one before groups of eight are tried.
inline constexpr int SHORT_RUN = 4;

/// The value of the digit at the front of \p text, or more than 9.
/// @{
template <class CharT>
ORVXX_ALWAYS_INLINE unsigned currentDigit(const RangeSource<CharT>& text) noexcept {
    return text.known() != 0 ? digitOf(*text.position()) : 10;
}
template <class CharT>
ORVXX_ALWAYS_INLINE unsigned currentDigit(const NulTerminatedSource<CharT>& text) noexcept {
    return digitOf(text.unit());
}
/// @}

/// Takes the digits at the front of \p text, and appends them to \p value, modulo 2^64. One by one.
template <class Source>
ORVXX_ALWAYS_INLINE words::Limb takeFewDigits(Source& text, words::Limb value) noexcept {
    for (;;) {
        const unsigned digit = currentDigit(text);
        if (digit > 9) {
            return value;
        }
        value = value * 10 + digit;
        text.step();
    }
}

/// The same in groups.
template <class Source>
ORVXX_ALWAYS_INLINE words::Limb takeDigits(Source& text, words::Limb value) noexcept {
    words::Limb group = 0;
    while (text.known() >= DIGIT_GROUP && takeDigitGroup(text.position(), group)) {
        value = value * DIGIT_GROUP_POWER + group;
        text.setPosition(text.position() + DIGIT_GROUP);
    }
    return takeFewDigits(text, value);
}

/// The same from 0 on, where few digits are likely: those in front of a point.
template <class Source>
ORVXX_ALWAYS_INLINE words::Limb takeShortRun(Source& text) noexcept {
    words::Limb value = 0;
    for (int i = 0; i < SHORT_RUN; ++i) {
        const unsigned digit = currentDigit(text);
        if (digit > 9) {
            return value;
        }
        value = value * 10 + digit;
        text.step();
    }
    return takeDigits(text, value);
}

/// Digits with at most one point among them.
template <class CharT>
struct DecimalDigits {
    words::Limb value;       ///< of all digits, modulo 2^64
    const CharT* first;      ///< where they begin
    std::ptrdiff_t count;    ///< all digits
    std::ptrdiff_t fraction; ///< those behind the point
};

/// Takes digits, a point and digits, each of which may be missing.
template <class Source>
ORVXX_ALWAYS_INLINE auto takeDecimal(Source& text) noexcept {
    DecimalDigits<typename Source::char_type> digits{0, text.position(), 0, 0};
    digits.value = takeShortRun(text);
    digits.count = text.position() - digits.first;
    if (text.unit() == typename Source::char_type(u'.')) {
        text.step();
        const auto* const fraction = text.position();
        digits.value = takeDigits(text, digits.value);
        digits.fraction = text.position() - fraction;
        digits.count += digits.fraction;
    }
    return digits;
}

/// \p scale as an exponent, or the mark of one that is beyond its type.
constexpr std::int32_t exponentOf(std::int64_t scale) noexcept {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(scale, EXPONENT_UNDERFLOW, EXPONENT_OVERFLOW));
}

/// A letter in lower case; what else comes out is no letter.
/// @{
constexpr unsigned lowerCase(char unit) noexcept {
    return static_cast<unsigned char>(unit) | 0x20U;
}
constexpr unsigned lowerCase(char16 unit) noexcept {
    return static_cast<unsigned>(unit) | 0x20U;
}
/// @}

/// Takes an exponent with a \p mark in lower case, if there is one, and adds it to \p scale. A mark
/// without a digit behind it is not part of the number.
template <class Source>
ORVXX_ALWAYS_INLINE std::int32_t takeExponent(Source& text, char mark,
                                              std::int64_t scale) noexcept {
    // Ten digits are too many, even if they are zeros.
    constexpr std::ptrdiff_t MAX_EXPONENT_DIGITS = 9;
    if (lowerCase(text.unit()) != static_cast<unsigned char>(mark)) {
        return exponentOf(scale);
    }
    const auto* const before = text.position();
    text.step();
    using CharT = typename Source::char_type;
    const bool negative = text.unit() == CharT(u'-');
    if (negative || text.unit() == CharT(u'+')) {
        text.step();
    }
    const auto* const first = text.position();
    const words::Limb value = takeFewDigits(text, 0);
    const std::ptrdiff_t count = text.position() - first;
    if (count == 0) {
        text.setPosition(before);
        return exponentOf(scale);
    }
    if (count > MAX_EXPONENT_DIGITS) {
        return negative ? EXPONENT_UNDERFLOW : EXPONENT_OVERFLOW;
    }
    const auto magnitude = static_cast<std::int64_t>(value);
    return exponentOf(negative ? scale - magnitude : scale + magnitude);
}

} // namespace orv::detail

#endif
