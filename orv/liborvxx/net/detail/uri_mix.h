// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIMix`, the polynomial hash of components of URIs.
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_MIX_H
#define ORV_LIBORVXX_NET_DETAIL_URI_MIX_H

#include "orv/liborvxx/net/detail/uri_fold.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstddef>

namespace orv::net::detail {

/// A running hash h, 0 at first. Mixing a value v makes it h * 31 + v, in the arithmetic of
/// `std::size_t`. Absent components are null views.
class URIMix {
public:
    std::size_t value() const noexcept { return hash_; }

    void add(char16 unit) noexcept { hash_ = hash_ * 31 + static_cast<std::size_t>(unit); }

    /// Each unit, without regard to case.
    void addFolded(ustring_ref text) noexcept {
        for (const char16 c : text) {
            add(foldUnit(c));
        }
    }

    /// User info, path, query and fragment: each unit, and the two units behind a "%" in upper
    /// case. At the end of the view 0xFFFF stands for those that are missing.
    void addComponent(ustring_ref text) noexcept;

    /// \p prefix and then the component, unless that is absent.
    void addComponent(char16 prefix, ustring_ref text) noexcept {
        if (text.data() != nullptr) {
            add(prefix);
            addComponent(text);
        }
    }

    /// ":" and the folded units, unless the scheme is absent.
    void addScheme(ustring_ref text) noexcept {
        if (text.data() != nullptr) {
            add(u':');
            addFolded(text);
        }
    }

    /// ":" and the digits without leading zeros, "0" at least, unless the port is empty or absent.
    void addPort(ustring_ref text) noexcept;

private:
    void addPlain(const char16* units, std::size_t size) noexcept;

    std::size_t hash_ = 0;
};

} // namespace orv::net::detail

#endif
