// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Pieces of floating-point numbers as text: single characters, exponents, and a point among
/// eight digits.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_NUMBER_LAYOUT_H
#define ORV_LIBORVXX_NUMBER_DETAIL_NUMBER_LAYOUT_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/words/decimal_digits.h"
#include "orv/liborvxx/number/words/limb.h"
#include "orv/liborvxx/text/string_ref.h"

#include <algorithm>
#include <cassert>

namespace orv::detail {

/// Each writes at \p text and returns what is behind.
/// @{

template <class CharT>
ORVXX_ALWAYS_INLINE CharT* put(CharT* text, char character) noexcept {
    *text = static_cast<CharT>(character);
    return text + 1;
}

template <class CharT>
ORVXX_ALWAYS_INLINE CharT* putDigit(CharT* text, unsigned digit) noexcept {
    return put(text, static_cast<char>('0' + digit));
}

template <class CharT>
CharT* writeFixed(CharT* text, const basic_string_ref<CharT>& fixed) noexcept {
    return std::copy(fixed.begin(), fixed.end(), text);
}

/// 'E', '-' for a negative exponent, and one to four digits.
template <class CharT>
ORVXX_ALWAYS_INLINE CharT* writeExponent(CharT* text, int exponent) noexcept {
    text = put(text, 'E');
    if (exponent < 0) {
        text = put(text, '-');
    }
    auto magnitude = static_cast<unsigned>(exponent < 0 ? -exponent : exponent);
    assert(magnitude < 10000);
    if (magnitude >= 10) {
        if (magnitude >= 100) {
            if (magnitude >= 1000) {
                text = putDigit(text, magnitude / 1000);
                magnitude %= 1000;
            }
            text = putDigit(text, magnitude / 100);
            magnitude %= 100;
        }
        text = putDigit(text, magnitude / 10);
        magnitude %= 10;
    }
    return putDigit(text, magnitude);
}

/// @}

/// Eight characters for the first digits of a number, of which \p whole stand in front of the
/// point, 7 at most. \param digits each in a byte, the first in the lowest
constexpr words::Limb withPoint(words::Limb digits, unsigned whole) noexcept {
    assert(whole < 8);
    const words::Limb head = digits + words::EIGHT_ZEROS;
    const words::Limb before = (words::Limb{1} << 8 * whole) - 1;
    const words::Limb point = words::Limb{'.'} << 8 * whole;
    const words::Limb behind = ~(before << 8U | 0xFFU);
    return (head & before) | point | (head << 8U & behind);
}

} // namespace orv::detail

#endif
