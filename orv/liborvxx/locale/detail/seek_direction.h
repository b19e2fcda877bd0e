// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A place to seek from, given as a number.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_SEEK_DIRECTION_H
#define ORV_LIBORVXX_LOCALE_DETAIL_SEEK_DIRECTION_H

#include <ios>
#include <optional>

namespace orv::detail {

/// The direction whose value \p number is, if there is one.
inline std::optional<std::ios_base::seekdir> seekDirection(int number) noexcept {
    for (const std::ios_base::seekdir direction :
         {std::ios_base::beg, std::ios_base::cur, std::ios_base::end}) {
        if (static_cast<int>(direction) == number) {
            return direction;
        }
    }
    return std::nullopt;
}

} // namespace orv::detail

#endif
