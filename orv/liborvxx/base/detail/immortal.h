// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Static storage for an object that is never destroyed.
#ifndef ORV_LIBORVXX_BASE_DETAIL_IMMORTAL_H
#define ORV_LIBORVXX_BASE_DETAIL_IMMORTAL_H

#include <new>
#include <utility>

namespace orv::detail {

/// Holds an object that destructors of other libraries may still use when the program ends.
template <typename T>
union Immortal {
    /// Storage in which `make` makes the object by hand.
    constexpr Immortal() noexcept : unused() {}

    /// Storage with the object in it, which is made of \p arguments.
    template <typename... Arguments>
    constexpr explicit Immortal(std::in_place_t, Arguments&&... arguments)
        : object(std::forward<Arguments>(arguments)...) {}

    constexpr ~Immortal() {}
    Immortal(const Immortal&) = delete;
    Immortal& operator=(const Immortal&) = delete;

    /// Makes the object of \p arguments; once.
    template <typename... Arguments>
    T* make(Arguments&&... arguments) {
        return ::new (static_cast<void*>(&object)) T(std::forward<Arguments>(arguments)...);
    }

    char unused;
    T object;
};

} // namespace orv::detail

#endif
