// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief 64 bits out of a `big_uint`, from any bit on.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_BIT_WINDOW_H
#define ORV_LIBORVXX_NUMBER_DETAIL_BIT_WINDOW_H

#include "orv/liborvxx/number/big_uint.h"

#include <cstdint>

namespace orv::detail {

/// Bits \p from to \p from + 63; beyond the width there are zeros.
inline std::uint64_t bitWindow(const big_uint& n, unsigned from) noexcept {
    const unsigned first = from / 32;
    const unsigned offset = from % 32;
    const auto word = [&n, first](unsigned i) {
        return first + i < n.size() ? std::uint64_t{n[first + i]} : 0U;
    };
    const std::uint64_t low = word(0) | word(1) << 32U;
    return offset == 0 ? low : low >> offset | word(2) << (64 - offset);
}

} // namespace orv::detail

#endif
