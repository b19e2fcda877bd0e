// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Up to eight decimal digits at the front of a text, read at once however many they are.
///
/// The units are gathered in a number, a byte for each, the first in the lowest. What follows has
/// no branch that depends on the count of digits: such a branch is wrong half the time where
/// numbers are of many lengths.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_DIGIT_RUN_H
#define ORV_LIBORVXX_NUMBER_DETAIL_DIGIT_RUN_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/detail/digit_groups.h"
#include "orv/liborvxx/number/words/decimal_digits.h"
#include "orv/liborvxx/number/words/limb.h"
#include "orv/liborvxx/text/char16.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace orv::detail {

/// Four units, a byte for each, the first in the lowest.
/// \return whether all are ASCII; if not, the bytes are of no use
/// @{
ORVXX_ALWAYS_INLINE bool gatherFour(const char* text, words::Limb& bytes) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
        std::uint32_t units;
        std::memcpy(&units, text, sizeof units);
        bytes = units;
    } else {
        bytes = 0;
        for (unsigned i = 0; i < 4; ++i) {
            bytes |= words::Limb{static_cast<unsigned char>(text[i])} << 8 * i;
        }
    }
    return true; // or no digits, which is seen later
}

ORVXX_ALWAYS_INLINE bool gatherFour(const char16* text, words::Limb& bytes) noexcept {
    words::Limb units = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&units, text, sizeof units);
    } else {
        for (unsigned i = 0; i < 4; ++i) {
            units |= words::Limb{static_cast<char16_t>(text[i])} << 16 * i;
        }
    }
    bytes = (units | units >> 8U) & 0x0000FFFF0000FFFFU;
    bytes = (bytes | bytes >> 16U) & 0xFFFFFFFFU;
    return (units & 0xFF80FF80FF80FF80U) == 0;
}
/// @}

/// Up to three units in the same way.
template <class CharT>
ORVXX_ALWAYS_INLINE bool gatherFew(const CharT* text, std::size_t count,
                                   words::Limb& bytes) noexcept {
    using Unit = std::conditional_t<sizeof(CharT) == 1, unsigned char, char16_t>;
    const auto unitAt = [text](std::size_t i) { return words::Limb{static_cast<Unit>(text[i])}; };
    if (count == 0) {
        bytes = 0;
        return true;
    }
    // First, middle and last: the same unit several times, if there are fewer.
    const std::size_t middle = count / 2;
    const std::size_t last = count - 1;
    bytes = unitAt(0) | unitAt(middle) << 8 * middle | unitAt(last) << 8 * last;
    return sizeof(CharT) == 1 || (unitAt(0) | unitAt(middle) | unitAt(last)) < 0x80;
}

/// Up to eight units of the \p known ones; zeros fill the rest.
template <class CharT>
ORVXX_ALWAYS_INLINE bool gatherUnits(const CharT* text, std::size_t known,
                                     words::Limb& bytes) noexcept {
    if (known < 4) {
        return gatherFew(text, known, bytes);
    }
    // The first four and the last four may overlap.
    const std::size_t second = (known < 8 ? known : 8) - 4;
    words::Limb high = 0;
    const bool firstAscii = gatherFour(text, bytes);
    const bool secondAscii = gatherFour(text + second, high);
    bytes |= high << 8 * second;
    return firstAscii && secondAscii;
}

/// Some digits and what they are worth.
struct DigitRun {
    unsigned count;
    words::Limb value;
};

/// The digits in front of the first byte that is none.
ORVXX_ALWAYS_INLINE DigitRun leadingDigits(words::Limb bytes) noexcept {
    // A byte's upper half is not 0 if it is below '0', by the first term, or above '9'. The sum may
    // carry into the byte behind, which then lies behind the end anyway.
    const words::Limb digits = bytes ^ 0x3030303030303030U;
    const words::Limb others = (digits | (digits + 0x0606060606060606U)) & 0xF0F0F0F0F0F0F0F0U;
    const auto count = static_cast<unsigned>(std::countr_zero(others)) / 8;
    // Moved to the end of the eight, behind zeros.
    const words::Limb moved = count == 0 ? 0 : digits << (64 - 8 * count);
    return {count, joinDigits(moved)};
}

/// The digits at the front of \p known units, if they are ASCII and from 1 to 19; else a count of 0
/// and no value.
template <class CharT>
ORVXX_ALWAYS_INLINE DigitRun shortDecimal(const CharT* text, std::size_t known) noexcept {
    words::Limb bytes = 0;
    if (!gatherUnits(text, known, bytes)) {
        return {0, 0};
    }
    DigitRun all = leadingDigits(bytes);
    for (unsigned count = all.count; count == DIGIT_GROUP;) {
        if (!gatherUnits(text + all.count, known - all.count, bytes)) {
            return {0, 0};
        }
        const DigitRun run = leadingDigits(bytes);
        count = run.count;
        all.count += count;
        if (all.count >= words::POW10_IN_LIMBS.size()) {
            return {0, 0};
        }
        all.value = all.value * words::POW10_IN_LIMBS[count] + run.value;
    }
    return all;
}

} // namespace orv::detail

#endif
