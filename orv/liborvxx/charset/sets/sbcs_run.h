// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The loop under the single-byte coders: one element in, one element out.
#ifndef ORV_LIBORVXX_CHARSET_SETS_SBCS_RUN_H
#define ORV_LIBORVXX_CHARSET_SETS_SBCS_RUN_H

#include "orv/liborvxx/charset/detail/unit_runs.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace orv::sbcs {

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
    constexpr std::size_t REST = 2 * detail::ASCII_BLOCK;
    std::size_t i = 0;
    while (n - i >= detail::ASCII_BLOCK) {
        if (detail::isAsciiBlock(src + i)) {
            // By way of a local array, which cannot overlap the input: with that in sight both
            // compilers make vector code of the loop.
            Out block[detail::ASCII_BLOCK];
            for (std::size_t k = 0; k < detail::ASCII_BLOCK; ++k) {
                block[k] = static_cast<Out>(src[i + k]);
            }
            std::memcpy(dst + i, block, sizeof block);
            i += detail::ASCII_BLOCK;
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
