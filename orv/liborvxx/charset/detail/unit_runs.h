// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Runs of bytes and units of equal value, converted a block at a time.
///
/// The blocks are plain loops of fixed length, which compilers turn into vector code.
#ifndef ORV_LIBORVXX_CHARSET_DETAIL_UNIT_RUNS_H
#define ORV_LIBORVXX_CHARSET_DETAIL_UNIT_RUNS_H

#include "orv/liborvxx/text/char16.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orv::detail {

/// Widens \p n bytes to units.
inline void widen(const unsigned char* src, char16* dst, std::size_t n) noexcept {
    for (std::size_t i = 0; i < n; ++i) {
        dst[i] = char16(src[i]);
    }
}

/// Elements that are tested for ASCII together.
inline constexpr std::size_t ASCII_BLOCK = 32;

/// Whether a block of bytes or units is all ASCII.
template <typename In>
bool isAsciiBlock(const In* src) noexcept {
    constexpr std::uint64_t ABOVE_ASCII =
        sizeof(In) == 1 ? 0x8080808080808080U : 0xFF80FF80FF80FF80U;
    std::uint64_t words[ASCII_BLOCK * sizeof(In) / sizeof(std::uint64_t)];
    std::memcpy(words, src, sizeof words);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words) {
        all |= word;
    }
    return (all & ABOVE_ASCII) == 0;
}

/// Widens the ASCII bytes at the front of \p n bytes and returns their count. Nothing is written
/// behind them.
inline std::size_t widenAscii(const unsigned char* src, char16* dst, std::size_t n) noexcept {
    std::size_t i = 0;
    for (; n - i >= ASCII_BLOCK && isAsciiBlock(src + i); i += ASCII_BLOCK) {
        widen(src + i, dst + i, ASCII_BLOCK);
    }
    for (; i < n && src[i] < 0x80; ++i) {
        dst[i] = char16(src[i]);
    }
    return i;
}

/// Narrows the units up to \p Max at the front of \p n units and returns their count. Nothing is
/// written behind them. \p Max is 2^k - 1.
template <unsigned int Max>
std::size_t narrowUpTo(const char16* src, unsigned char* dst, std::size_t n) noexcept {
    static_assert(Max <= 0xFF && (Max & (Max + 1)) == 0);
    constexpr std::size_t BLOCK = 32;
    std::size_t i = 0;
    for (; n - i >= BLOCK; i += BLOCK) {
        unsigned int all = 0;
        for (std::size_t k = 0; k < BLOCK; ++k) {
            all |= static_cast<unsigned int>(src[i + k]);
        }
        if (all > Max) {
            break;
        }
        for (std::size_t k = 0; k < BLOCK; ++k) {
            dst[i + k] = static_cast<unsigned char>(src[i + k]);
        }
    }
    for (; i < n && static_cast<unsigned int>(src[i]) <= Max; ++i) {
        dst[i] = static_cast<unsigned char>(src[i]);
    }
    return i;
}

} // namespace orv::detail

#endif
