// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal digits of 64-bit numbers as text, eight at a time.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_DECIMAL_DIGITS_H
#define ORV_LIBORVXX_NUMBER_WORDS_DECIMAL_DIGITS_H

#include "orv/liborvxx/number/words/limb.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

namespace orv::words {

/// 10^0 to 10^19.
inline constexpr auto POW10_IN_LIMBS = [] {
    std::array<Limb, 20> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) {
        powers[i] = powers[i - 1] * 10;
    }
    return powers;
}();

/// How many decimal digits \p value has; 1 for 0. 1233 / 2^12 is near enough to log10(2).
constexpr unsigned countDigits(Limb value) noexcept {
    const auto bits = static_cast<unsigned>(std::bit_width(value | 1U));
    const unsigned estimate = bits * 1233 >> 12U;
    return estimate + (value >= POW10_IN_LIMBS[estimate] ? 1U : 0U) + (value == 0 ? 1U : 0U);
}

/// The digits of a number below 10^8, each in a byte, the first in the lowest.
constexpr Limb eightDigits(Word value) noexcept {
    // Two halves of four digits, then four quarters of two. 10486 / 2^20 is 1/100 and 103 / 2^10 is
    // 1/10, near enough for such numbers.
    const Limb halves = value / 10000 | Limb{value % 10000} << 32U;
    const Limb hundreds = halves * 10486 >> 20U & 0x0000007F0000007FU;
    const Limb quarters = hundreds | (halves - hundreds * 100) << 16U;
    const Limb tens = quarters * 103 >> 10U & 0x000F000F000F000FU;
    return tens | (quarters - tens * 10) << 8U;
}

/// Writes eight ASCII characters, the first in the lowest byte.
template <class Unit>
ORVXX_ALWAYS_INLINE void storeEight(Unit* text, Limb characters) noexcept {
    if constexpr (std::endian::native == std::endian::little && sizeof(Unit) == 1) {
        std::memcpy(static_cast<void*>(text), &characters, sizeof characters);
    } else if constexpr (std::endian::native == std::endian::little && sizeof(Unit) == 2) {
        for (unsigned half = 0; half < 2; ++half) {
            Limb units = characters >> 32 * half & 0xFFFFFFFFU;
            units = (units | units << 16U) & 0x0000FFFF0000FFFFU;
            units = (units | units << 8U) & 0x00FF00FF00FF00FFU;
            std::memcpy(static_cast<void*>(text + 4 * half), &units, sizeof units);
        }
    } else {
        for (unsigned i = 0; i < 8; ++i) {
            text[i] = static_cast<Unit>(static_cast<char>(characters >> 8 * i & 0xFFU));
        }
    }
}

/// '0' in each byte
inline constexpr Limb EIGHT_ZEROS = 0x3030303030303030U;

/// Writes a number below 10^8 with eight digits.
template <class Unit>
ORVXX_ALWAYS_INLINE void writeEight(Unit* text, Word value) noexcept {
    storeEight(text, eightDigits(value) + EIGHT_ZEROS);
}

/// Writes the low four bytes of \p digits, the lowest first.
template <class Unit>
ORVXX_ALWAYS_INLINE void writeFour(Unit* text, Limb digits) noexcept {
    for (unsigned i = 0; i < 4; ++i) {
        text[i] = static_cast<Unit>(static_cast<char>(digits >> 8 * i & 0xFFU));
    }
}

/// Writes \p count digits, from 1 to 3, of a number below 1000.
template <class Unit>
ORVXX_ALWAYS_INLINE void writeUpToThree(Unit* text, std::size_t count, Word value) noexcept {
    const Word tens = value / 10;
    const Word hundreds = value / 100;
    const Word digits =
        (hundreds | (tens - hundreds * 10) << 8U | (value - tens * 10) << 16U) + 0x303030U;
    const auto put = [=](std::size_t i) {
        text[i] = static_cast<Unit>(static_cast<char>(digits >> 8 * (i + 3 - count) & 0xFFU));
    };
    // First, middle and last: the same one several times, if there are fewer.
    put(0);
    put(count / 2);
    put(count - 1);
}

/// Writes the low \p count digits, from 1 to 8, of any number. No branch depends on the count but
/// one: it would be wrong half the time where numbers are of many lengths.
template <class Unit>
ORVXX_ALWAYS_INLINE void writeUpToEight(Unit* text, std::size_t count, Limb value) noexcept {
    if (count < 4) {
        return writeUpToThree(text, count, static_cast<Word>(value % 1000));
    }
    const Limb digits =
        (eightDigits(static_cast<Word>(value % 100000000)) + EIGHT_ZEROS) >> (64 - 8 * count);
    // The first four and the last four may overlap.
    writeFour(text, digits);
    writeFour(text + count - 4, digits >> (8 * count - 32));
}

/// Writes the low \p digits digits of any number.
template <class Unit>
ORVXX_ALWAYS_INLINE void writeDigits(Unit* text, std::size_t digits, Limb value) noexcept {
    for (; digits > 8; digits -= 8) {
        writeEight(text + digits - 8, static_cast<Word>(value % 100000000));
        value /= 100000000;
    }
    if (digits > 0) {
        writeUpToEight(text, digits, value);
    }
}

} // namespace orv::words

#endif
