// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The loop under the single-byte coders: one element in, one element out.
#ifndef ORV_LIBORVXX_CHARSET_SETS_SBCS_RUN_H
#define ORV_LIBORVXX_CHARSET_SETS_SBCS_RUN_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orv::sbcs {

/// Elements that are tested for ASCII together.
inline constexpr std::size_t BLOCK = 32;

/// Whether a block of bytes or units is all ASCII.
template <typename In>
bool isAsciiBlock(const In* src) noexcept {
    constexpr std::uint64_t ABOVE_ASCII =
        sizeof(In) == 1 ? 0x8080808080808080U : 0xFF80FF80FF80FF80U;
    std::uint64_t words[BLOCK * sizeof(In) / sizeof(std::uint64_t)];
    std::memcpy(words, src, sizeof words);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words) {
        all |= word;
    }
    return (all & ABOVE_ASCII) == 0;
}

/// Looks up the elements at the front of \p n and returns how many have a counterpart. \p lookUp
/// takes an element and the place for its counterpart, and says whether there is one.
template <typename In, typename Out, typename LookUp>
std::size_t runPlain(const In* src, Out* dst, std::size_t n, LookUp lookUp) noexcept {
    // Groups of four take a counter and a jump off three elements of them.
    constexpr std::size_t GROUP = 4;
    std::size_t i = 0;
    for (; n - i >= GROUP; i += GROUP) {
        for (std::size_t k = 0; k < GROUP; ++k) {
            if (!lookUp(src[i + k], dst[i + k])) {
                return i + k;
            }
        }
    }
    for (; i < n && lookUp(src[i], dst[i]); ++i) {
    }
    return i;
}

/// The same where \p lookUp is the identity on ASCII, which goes a block at a time. Nothing is
/// written behind the elements counted.
template <typename In, typename Out, typename LookUp>
std::size_t run(const In* src, Out* dst, std::size_t n, LookUp lookUp) noexcept {
    // A block with another character in it seldom comes alone: in most texts the next ones have
    // some too. So the test rests for a while.
    constexpr std::size_t REST = 2 * BLOCK;
    std::size_t i = 0;
    while (n - i >= BLOCK) {
        if (isAsciiBlock(src + i)) {
            // By way of a local array, which cannot overlap the input: with that in sight both
            // compilers make vector code of the loop.
            Out block[BLOCK];
            for (std::size_t k = 0; k < BLOCK; ++k) {
                block[k] = static_cast<Out>(src[i + k]);
            }
            std::memcpy(dst + i, block, sizeof block);
            i += BLOCK;
            continue;
        }
        const std::size_t size = std::min(n - i, REST);
        const std::size_t done = runPlain(src + i, dst + i, size, lookUp);
        i += done;
        if (done != size) {
            return i;
        }
    }
    return i + runPlain(src + i, dst + i, n - i, lookUp);
}

} // namespace orv::sbcs

#endif
