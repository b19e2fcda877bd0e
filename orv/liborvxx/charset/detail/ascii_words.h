// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief ASCII in the midst of wider characters, eight characters at a time.
///
/// In text of a multi-byte set ASCII comes in words of a few letters. A loop with a branch for each
/// letter mispredicts at the end of nearly every word; here the end is found by counting bits, and
/// the letters are converted in 64-bit words.
#ifndef ORV_LIBORVXX_CHARSET_DETAIL_ASCII_WORDS_H
#define ORV_LIBORVXX_CHARSET_DETAIL_ASCII_WORDS_H

#include "orv/liborvxx/charset/detail/unit_runs.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orv::detail {

/// The eight bytes at \p src as one word, in the machine's order.
template <typename E>
std::uint64_t loadWord(const E* src) noexcept {
    std::uint64_t word;
    std::memcpy(&word, src, sizeof word);
    return word;
}

/// Bits of \p word in front of the first one that is set, in the order of memory; 64 if none is.
constexpr std::size_t bitsInFront(std::uint64_t word) noexcept {
    return static_cast<std::size_t>(std::endian::native == std::endian::little
                                        ? std::countr_zero(word)
                                        : std::countl_zero(word));
}

/// Widens the ASCII bytes at the front of 8 bytes and returns their count; writes 8 units.
inline std::size_t widenAscii8(const unsigned char* src, char16* dst) noexcept {
    const std::uint64_t word = loadWord(src);
    // Moves the bytes of half a word apart.
    const auto spread = [](std::uint64_t half) {
        half = (half | half << 16) & 0x0000FFFF0000FFFFU;
        return (half | half << 8) & 0x00FF00FF00FF00FFU;
    };
    const std::uint64_t low = spread(word & 0xFFFFFFFFU);
    const std::uint64_t high = spread(word >> 32);
    constexpr bool little = std::endian::native == std::endian::little;
    const std::uint64_t units[2] = {little ? low : high, little ? high : low};
    std::memcpy(as_char16_t(dst), units, sizeof units);
    return bitsInFront(word & 0x8080808080808080U) / 8;
}

/// Narrows the ASCII units at the front of 8 units and returns their count; writes 8 bytes.
inline std::size_t narrowAscii8(const char16* src, unsigned char* dst) noexcept {
    const std::uint64_t front = loadWord(src);
    const std::uint64_t back = loadWord(src + 4);
    // Moves the low bytes of four units together.
    const auto gather = [](std::uint64_t units) {
        units &= 0x00FF00FF00FF00FFU;
        units = (units | units >> 8) & 0x0000FFFF0000FFFFU;
        return static_cast<std::uint32_t>(units | units >> 16);
    };
    const std::uint32_t bytes[2] = {gather(front), gather(back)};
    std::memcpy(dst, bytes, 8);
    constexpr std::uint64_t BEYOND_ASCII = 0xFF80FF80FF80FF80U;
    const std::size_t inFront = bitsInFront(front & BEYOND_ASCII) / 16;
    const std::size_t inBack = bitsInFront(back & BEYOND_ASCII) / 16;
    return inFront == 4 ? 4 + inBack : inFront;
}

/// Converts the ASCII at the front of \p n elements and returns its count; may write to all of the
/// \p n elements. \p take8 converts 8 at a time, \p takeRun is for the few at an end and for what
/// is no word but a long run.
template <typename In, typename Out, typename Take8, typename TakeRun>
std::size_t convertAsciiWord(const In* src, Out* dst, std::size_t n, Take8 take8,
                             TakeRun takeRun) noexcept {
    constexpr std::size_t LONG = 32;
    std::size_t i = 0;
    while (i < LONG && n - i >= 8) {
        const std::size_t count = take8(src + i, dst + i);
        i += count;
        if (count < 8) {
            return i;
        }
    }
    return i + takeRun(src + i, dst + i, n - i);
}

/// `convertAsciiWord` from bytes to units.
inline std::size_t widenAsciiWord(const unsigned char* src, char16* dst, std::size_t n) noexcept {
    return convertAsciiWord(src, dst, n, widenAscii8, widenAscii);
}

/// `convertAsciiWord` from units to bytes.
inline std::size_t narrowAsciiWord(const char16* src, unsigned char* dst, std::size_t n) noexcept {
    return convertAsciiWord(src, dst, n, narrowAscii8, narrowUpTo<0x7F>);
}

} // namespace orv::detail

#endif
