// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `char16` text as `char16_t` text and back: in place for views, by copy for strings.
///
/// A `char16` holds one `char16_t` and nothing else, so the pointer forms and the views cost
/// nothing and share the storage of their argument.
#ifndef ORV_LIBORVXX_TEXT_UTF16_INTEROP_H
#define ORV_LIBORVXX_TEXT_UTF16_INTEROP_H

#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <string>
#include <string_view>

namespace orv {

/// The same units under the other type. Null stays null.
inline const char16_t* as_char16_t(const char16* units) noexcept {
    return reinterpret_cast<const char16_t*>(units);
}
inline char16_t* as_char16_t(char16* units) noexcept {
    return reinterpret_cast<char16_t*>(units);
}
inline const char16* as_char16(const char16_t* units) noexcept {
    return reinterpret_cast<const char16*>(units);
}
inline char16* as_char16(char16_t* units) noexcept {
    return reinterpret_cast<char16*>(units);
}

/// A view of the same units.
inline std::u16string_view as_u16string_view(ustring_ref text) noexcept {
    return {as_char16_t(text.data()), text.size()};
}
inline ustring_ref as_ustring_ref(std::u16string_view text) noexcept {
    return {as_char16(text.data()), text.size()};
}

/// A string of the same units.
inline std::u16string to_u16string(ustring_ref text) {
    return std::u16string(as_u16string_view(text));
}
inline ustring to_ustring(std::u16string_view text) {
    return as_ustring_ref(text).to_string();
}

} // namespace orv

#endif
