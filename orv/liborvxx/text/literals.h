// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `u"text"_u`: UTF-16 literals as views on static storage, made by the compiler.
#ifndef ORV_LIBORVXX_TEXT_LITERALS_H
#define ORV_LIBORVXX_TEXT_LITERALS_H

#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"

#include <array>
#include <cstddef>

namespace orv {

namespace detail {

/// A UTF-16 literal as a template argument; `N` counts the terminating 0.
template <std::size_t N>
struct utf16_literal {
    // Not explicit: the compiler converts the literal to it.
    consteval utf16_literal(const char16_t (&text)[N]) {
        for (std::size_t i = 0; i < N; ++i) {
            units[i] = text[i];
        }
    }
    static constexpr std::size_t size = N;
    char16_t units[N] = {};
};

/// One array for each distinct literal, terminated by 0.
template <utf16_literal Literal>
inline constexpr auto literal_units = [] {
    std::array<char16, Literal.size> units{};
    for (std::size_t i = 0; i < Literal.size; ++i) {
        units[i] = Literal.units[i];
    }
    return units;
}();

/// The view of each.
template <utf16_literal Literal>
inline constexpr ustring_ref literal_view{literal_units<Literal>.data(), Literal.size - 1};

} // namespace detail

inline namespace literals {

/// A view of the literal's units, without the terminating 0 that follows them. It lives as long as
/// the program; nothing is computed or copied at run time.
///
/// \code
/// using namespace orv::literals;
/// constexpr orv::ustring_ref name = u"UTF-8"_u;
/// \endcode
// A reference to a named constant: Clang 14 crashes over a string initialised from a temporary. And
// constexpr, not consteval: within templates Clang 14 takes a consteval operator for a function to
// be called, and no file has it.
template <detail::utf16_literal Literal>
constexpr const ustring_ref& operator""_u() noexcept {
    return detail::literal_view<Literal>;
}

} // namespace literals

} // namespace orv

#endif
