// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The values of decimal digits in a text, one at a time and eight at a time.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_DIGIT_GROUPS_H
#define ORV_LIBORVXX_NUMBER_DETAIL_DIGIT_GROUPS_H

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/words/limb.h"
#include "orv/liborvxx/text/char16.h"

#include <bit>
#include <cstring>

namespace orv::detail {

/// The value of a decimal digit, or more than 9.
constexpr unsigned digitOf(char unit) noexcept {
    return static_cast<unsigned char>(unit) - unsigned{'0'};
}

/// The value of a decimal digit of any script, or more than 9.
inline unsigned digitOf(char16 unit) noexcept {
    const auto value = static_cast<unsigned>(unit);
    return value < 0x80 ? value - '0' : static_cast<unsigned>(orvUniCharDigitValue(value));
}

/// Units in a group, and 10 to that power.
/// @{
inline constexpr int DIGIT_GROUP = 8;
inline constexpr words::Limb DIGIT_GROUP_POWER = 100000000;
/// @}

/// The value of eight digits, each in a byte, the first in the lowest.
constexpr words::Limb joinDigits(words::Limb digits) noexcept {
    // Each byte with the next one as a number of two digits, then pairs of these, then both halves.
    const words::Limb tens = (digits * (1 + (10U << 8U)) >> 8U) & 0x00FF00FF00FF00FFU;
    const words::Limb hundreds = (tens * (1 + (100U << 16U)) >> 16U) & 0x0000FFFF0000FFFFU;
    return hundreds * (1 + (words::Limb{10000} << 32U)) >> 32U;
}

/// The value of four digits, each in 16 bits, the first in the lowest.
constexpr words::Limb joinWideDigits(words::Limb digits) noexcept {
    const words::Limb tens = (digits * (1 + (10U << 16U)) >> 16U) & 0x0000FFFF0000FFFFU;
    return tens * (1 + (words::Limb{100} << 32U)) >> 32U;
}

/// Eight units at \p text as ASCII digits, or not: whether they were, and their value.
/// @{
ORVXX_ALWAYS_INLINE bool takeDigitGroup(const char* text, words::Limb& value) noexcept {
    if constexpr (std::endian::native != std::endian::little) {
        return false;
    }
    words::Limb units;
    std::memcpy(&units, text, sizeof units);
    // Below '0' the first term has another upper half than 0, above '9' the second one.
    const words::Limb digits = units ^ 0x3030303030303030U;
    if (((digits | (digits + 0x0606060606060606U)) & 0xF0F0F0F0F0F0F0F0U) != 0) {
        return false;
    }
    value = joinDigits(digits);
    return true;
}

ORVXX_ALWAYS_INLINE bool takeDigitGroup(const char16* text, words::Limb& value) noexcept {
    if constexpr (std::endian::native != std::endian::little) {
        return false;
    }
    words::Limb first;
    words::Limb second;
    std::memcpy(&first, text, sizeof first);
    std::memcpy(&second, text + 4, sizeof second);
    first ^= 0x0030003000300030U;
    second ^= 0x0030003000300030U;
    const words::Limb over = (first + 0x0006000600060006U) | (second + 0x0006000600060006U);
    if (((first | second | over) & 0xFFF0FFF0FFF0FFF0U) != 0) {
        return false;
    }
    value = joinWideDigits(first) * 10000 + joinWideDigits(second);
    return true;
}
/// @}

} // namespace orv::detail

#endif
