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

/// Widens the ASCII bytes at the front of \p n bytes and returns their count. Nothing is written
/// behind them.
inline std::size_t widenAscii(const unsigned char* src, char16* dst, std::size_t n) noexcept {
    constexpr std::size_t BLOCK = 32;
    std::size_t i = 0;
    for (; n - i >= BLOCK; i += BLOCK) {
        std::uint64_t words[BLOCK / 8];
        std::memcpy(words, src + i, BLOCK);
        if (((words[0] | words[1] | words[2] | words[3]) & 0x8080808080808080U) != 0) {
            break;
        }
        widen(src + i, dst + i, BLOCK);
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
