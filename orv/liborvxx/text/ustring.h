// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `ustring`, the standard string over `char16`.
#ifndef ORV_LIBORVXX_TEXT_USTRING_H
#define ORV_LIBORVXX_TEXT_USTRING_H

#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace orv {

/// Owning UTF-16 text: the standard string, with the whole of its standard interface.
using ustring = std::basic_string<char16, std::char_traits<char16>, std::allocator<char16>>;

/// The standard view over `char16`. Interfaces of this library take `ustring_ref` instead.
using ustring_view = std::basic_string_view<char16, std::char_traits<char16>>;

} // namespace orv

/// Hash of UTF-16 text. Equal texts hash alike, whether owned or viewed.
template <>
struct std::hash<orv::ustring_view> {
    std::size_t operator()(orv::ustring_view text) const noexcept {
        return std::hash<std::string_view>()(std::string_view(
            reinterpret_cast<const char*>(text.data()), text.size() * sizeof(orv::char16)));
    }
};

/// Hash of UTF-16 text. Equal texts hash alike, whether owned or viewed.
template <>
struct std::hash<orv::ustring> {
    std::size_t operator()(const orv::ustring& text) const noexcept {
        return std::hash<orv::ustring_view>()(text);
    }
};

#endif
