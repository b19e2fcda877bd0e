// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `char16`, one UTF-16 code unit, and `char16_int`, its companion in the character traits.
#ifndef ORV_LIBORVXX_TEXT_CHAR16_H
#define ORV_LIBORVXX_TEXT_CHAR16_H

#include "orv/liborvxx/base/platform.h"

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <type_traits>

namespace orv {

/// One UTF-16 code unit: a class of its own, and no alias of an integer type.
///
/// Trivial and 2 bytes wide, so an array of `char16` is an array of UTF-16 units; see
/// utf16_interop.h for handing one to an interface over `char16_t`. Conversion from `char16_t` is
/// implicit, so `u'x'` and comparisons with it read naturally; every other integer needs a cast,
/// and keeps its low 16 bits. A value-initialised unit is 0, a default-initialised one
/// indeterminate.
///
/// \par Example
/// \code
/// orv::char16 unit = u'\u20AC';
/// bool isEuro = unit == u'\u20AC';
/// auto number = static_cast<unsigned>(unit);
/// \endcode
class ORVXX_API char16 {
public:
    /// Leaves the unit indeterminate, as a built-in integer is.
    char16() = default;

    /// The unit of the same value. A template, so that no other integer slips in by conversion.
    template <std::same_as<char16_t> T>
    constexpr char16(T unit) noexcept : unit_(unit) {}

    /// The low 16 bits of \p value.
    template <std::integral T>
    requires(!std::same_as<T, char16_t> &&
             !std::same_as<T, bool>) explicit constexpr char16(T value) noexcept
        : unit_(static_cast<char16_t>(value)) {}

    /// The value, converted as an unsigned 16-bit number.
    template <std::integral T>
    requires(!std::same_as<T, bool>) explicit constexpr operator T() const noexcept {
        return static_cast<T>(unit_);
    }

    /// Code-unit order: the order of the unsigned values. It is not the order of code points.
    friend constexpr bool operator==(char16, char16) noexcept = default;
    friend constexpr std::strong_ordering operator<=>(char16, char16) noexcept = default;

private:
    char16_t unit_;
};

static_assert(std::is_trivial_v<char16> && std::is_standard_layout_v<char16>);
static_assert(sizeof(char16) == 2 && alignof(char16) == alignof(char16_t));

/// The `int_type` of `std::char_traits<char16>`: one 16-bit value.
///
/// It is no wider than `char16`, so the end-of-file mark 0xFFFF cannot be told from U+FFFF.
class ORVXX_API char16_int {
public:
    /// Leaves the value indeterminate.
    char16_int() = default;

    /// The value of a unit, unchanged.
    constexpr char16_int(char16 unit) noexcept : value_(static_cast<char16_t>(unit)) {}

    /// The value of a unit, unchanged.
    template <std::same_as<char16_t> T>
    constexpr char16_int(T unit) noexcept : value_(unit) {}

    /// The low 16 bits of \p value.
    template <std::integral T>
    requires(!std::same_as<T, char16_t> &&
             !std::same_as<T, bool>) explicit constexpr char16_int(T value) noexcept
        : value_(static_cast<char16_t>(value)) {}

    /// The value, converted as an unsigned 16-bit number.
    template <std::integral T>
    requires(!std::same_as<T, bool>) explicit constexpr operator T() const noexcept {
        return static_cast<T>(value_);
    }

    /// The unit of the same value. Implicit, since a standard library may keep a unit, such as the
    /// fill of a stream, as the `int_type` and hand it out without a word.
    constexpr operator char16() const noexcept { return value_; }

    /// The order of the unsigned values.
    friend constexpr bool operator==(char16_int, char16_int) noexcept = default;
    friend constexpr std::strong_ordering operator<=>(char16_int, char16_int) noexcept = default;

    /// The same beside a unit, which converts in both directions.
    template <std::same_as<char16> T>
    friend constexpr bool operator==(char16_int a, T b) noexcept {
        return a == char16_int(b);
    }
    template <std::same_as<char16> T>
    friend constexpr std::strong_ordering operator<=>(char16_int a, T b) noexcept {
        return a <=> char16_int(b);
    }

private:
    char16_t value_;
};

static_assert(std::is_trivial_v<char16_int> && sizeof(char16_int) == 2);

} // namespace orv

/// Hash of a unit: that of its value.
template <>
struct std::hash<orv::char16> {
    std::size_t operator()(orv::char16 unit) const noexcept {
        return std::hash<char16_t>()(static_cast<char16_t>(unit));
    }
};

#endif
