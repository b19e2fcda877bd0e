// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::char_traits<char16>`, on which `ustring` and the streams over `char16` stand.
///
/// A stream over `char16` needs the facets of locale/ctype.h too: without them it does not compile,
/// rather than that it is made of the standard library's general templates.
#ifndef ORV_LIBORVXX_TEXT_CHAR_TRAITS_H
#define ORV_LIBORVXX_TEXT_CHAR_TRAITS_H

#include "orv/liborvxx/text/char16.h"

#include <cassert>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ios>
#include <string>
#include <type_traits>

/// Character traits of `char16`.
///
/// `compare` returns the difference of the first two units that differ, -65535 to 65535, and not
/// just a sign. `eof()` is 0xFFFF, a value of the code-unit range: see `orv::char16_int`.
template <>
struct std::char_traits<orv::char16> {
    using char_type = orv::char16;
    using int_type = orv::char16_int;
    using off_type = std::streamoff;
    using pos_type = std::u16streampos;
    using state_type = std::mbstate_t;
    using comparison_category = std::strong_ordering;

    /// Unit equality and code-unit order.
    static constexpr bool eq(char_type a, char_type b) noexcept { return a == b; }
    static constexpr bool lt(char_type a, char_type b) noexcept { return a < b; }

    /// Difference a[i] - b[i] of the first units that differ among \p n, 0 if there are none.
    static constexpr int compare(const char_type* a, const char_type* b, std::size_t n) noexcept {
        std::size_t i = 0;
        if (!std::is_constant_evaluated()) {
            // Equal stretches go four units at a time; the loop below finds the place inside.
            std::uint64_t left;
            std::uint64_t right;
            for (; n - i >= 4; i += 4) {
                std::memcpy(&left, a + i, sizeof left);
                std::memcpy(&right, b + i, sizeof right);
                if (left != right) {
                    break;
                }
            }
        }
        for (; i < n; ++i) {
            if (a[i] != b[i]) {
                return static_cast<int>(a[i]) - static_cast<int>(b[i]);
            }
        }
        return 0;
    }

    /// Units before the first unit 0.
    static constexpr std::size_t length(const char_type* p) noexcept {
        std::size_t n = 0;
        while (p[n] != u'\0') {
            ++n;
        }
        return n;
    }

    /// The first unit equal to \p c among \p n, or null.
    static constexpr const char_type* find(const char_type* p, std::size_t n,
                                           const char_type& c) noexcept {
        const char_type wanted = c;
        std::size_t i = 0;
        if (!std::is_constant_evaluated()) {
            while (n - i >= 32 && !contains<32>(p + i, wanted)) {
                i += 32;
            }
            while (n - i >= 8 && !contains<8>(p + i, wanted)) {
                i += 8;
            }
        }
        for (; i < n; ++i) {
            if (p[i] == wanted) {
                return p + i;
            }
        }
        return nullptr;
    }

    /// One unit.
    static constexpr void assign(char_type& a, const char_type& b) noexcept { a = b; }

    /// \p n units \p c; returns \p p.
    static constexpr char_type* assign(char_type* p, std::size_t n, char_type c) noexcept {
        for (std::size_t i = 0; i < n; ++i) {
            p[i] = c;
        }
        return p;
    }

    /// Copies \p n units that do not overlap; returns \p d.
    static constexpr char_type* copy(char_type* d, const char_type* s, std::size_t n) noexcept {
        if (std::is_constant_evaluated()) {
            for (std::size_t i = 0; i < n; ++i) {
                d[i] = s[i];
            }
        } else if (n != 0) {
            std::memcpy(d, s, n * sizeof(char_type));
        }
        return d;
    }

    /// Copies \p n units that may overlap; returns \p d.
    static constexpr char_type* move(char_type* d, const char_type* s, std::size_t n) noexcept {
        if (std::is_constant_evaluated()) {
            // Pointers into different arrays have no order to ask, so the units go through a copy.
            auto* copied = new char_type[n];
            copy(copied, s, n);
            copy(d, copied, n);
            delete[] copied;
        } else if (n != 0) {
            std::memmove(d, s, n * sizeof(char_type));
        }
        return d;
    }

    /// `copy` and `move` with a destination size, which is not consulted: kept for callers that
    /// spell them so.
    static constexpr char_type* _Copy_s(char_type* d, [[maybe_unused]] std::size_t dn,
                                        const char_type* s, std::size_t n) noexcept {
        return copy(d, s, n);
    }
    static constexpr char_type* _Move_s(char_type* d, [[maybe_unused]] std::size_t dn,
                                        const char_type* s, std::size_t n) noexcept {
        return move(d, s, n);
    }

    /// The value unchanged, both ways.
    static constexpr char_type to_char_type(int_type x) noexcept {
        return static_cast<char_type>(x);
    }
    static constexpr int_type to_int_type(char_type c) noexcept { return c; }

    /// 16-bit equality.
    static constexpr bool eq_int_type(int_type a, int_type b) noexcept { return a == b; }

    /// The end mark, 0xFFFF.
    static constexpr int_type eof() noexcept { return u'\xFFFF'; }

    /// 0 if \p x is the end mark, otherwise \p x.
    static constexpr int_type not_eof(int_type x) noexcept {
        return x == eof() ? int_type(u'\0') : x;
    }

private:
    // Never ends early, so that compilers make vector code of it.
    template <std::size_t SIZE>
    static bool contains(const char_type* p, char_type c) noexcept {
        std::uint16_t found = 0;
        for (std::size_t i = 0; i < SIZE; ++i) {
            found = static_cast<std::uint16_t>(found | -static_cast<int>(p[i] == c));
        }
        return found != 0;
    }
};

// Declared before a stream over char16 can be made with the general template.
template <>
class std::ctype<orv::char16>;

#endif
