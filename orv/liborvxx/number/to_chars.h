// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `to_chars_c`: numbers as text in the caller's memory.
///
/// The same text as `to_string_c` and `to_ustring_c` (number_to_string.h, which tells the form)
/// gives. Nothing here throws or allocates, and the text is the same in every locale. No NUL is
/// written behind it.
///
///     char text[orv::MAX_DOUBLE_LENGTH];
///     auto [end, fits] = orv::to_chars_c(text, text + sizeof text, 0.1); // "0.1"
#ifndef ORV_LIBORVXX_NUMBER_TO_CHARS_H
#define ORV_LIBORVXX_NUMBER_TO_CHARS_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal_fwd.h"
#include "orv/liborvxx/number/binary16.h"
#include "orv/liborvxx/text/char16.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace orv {

/// \name Room that is enough, in code units
/// @{
inline constexpr std::size_t MAX_BINARY16_LENGTH = 10;   ///< for any `binary16`
inline constexpr std::size_t MAX_FLOAT_LENGTH = 15;      ///< for any `float`
inline constexpr std::size_t MAX_DOUBLE_LENGTH = 24;     ///< for any `double` or `long double`
inline constexpr std::size_t MAX_DECIMAL32_LENGTH = 13;  ///< for any `decimal32`
inline constexpr std::size_t MAX_DECIMAL64_LENGTH = 23;  ///< for any `decimal64`
inline constexpr std::size_t MAX_DECIMAL128_LENGTH = 42; ///< for any `decimal128`
inline constexpr std::size_t MAX_INTEGER_LENGTH = 20;    ///< for any integer in radix 10
/// @}

/// What `to_chars_c` did.
template <class CharT>
struct to_chars_result {
    /// Behind the text; where it does not fit, the end of the room.
    CharT* end;
    /// Whether the text fits. If not, what the room holds is unspecified.
    bool fits;

    explicit constexpr operator bool() const noexcept { return fits; }
};

namespace detail {

template <class T>
concept WritableInteger = std::integral<T> && sizeof(T) <= sizeof(std::uint64_t) &&
                          !std::same_as<T, bool> && !std::same_as<T, char> &&
                          !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> &&
                          !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

/// \name What does the writing
/// @{
ORVXX_API to_chars_result<char> writeInteger(char* first, char* last, bool negative,
                                             std::uint64_t magnitude, int radix) noexcept;
ORVXX_API to_chars_result<char16> writeInteger(char16* first, char16* last, bool negative,
                                               std::uint64_t magnitude, int radix) noexcept;
/// @}

template <WritableInteger T>
constexpr std::uint64_t magnitudeOf(T value) noexcept {
    const auto bits = static_cast<std::uint64_t>(value);
    return value < T{} ? 0 - bits : bits;
}

} // namespace detail

/// \name Floating point
/// Writes the shortest text that reads back as \p value into [\p first, \p last).
/// @{

/// Text of at most `MAX_DOUBLE_LENGTH` units.
ORVXX_API to_chars_result<char> to_chars_c(char* first, char* last, double value) noexcept;
/// Text of at most `MAX_DOUBLE_LENGTH` units.
ORVXX_API to_chars_result<char16> to_chars_c(char16* first, char16* last, double value) noexcept;
/// The text of the nearest `double`: at most `MAX_DOUBLE_LENGTH` units.
ORVXX_API to_chars_result<char> to_chars_c(char* first, char* last, long double value) noexcept;
/// The text of the nearest `double`: at most `MAX_DOUBLE_LENGTH` units.
ORVXX_API to_chars_result<char16> to_chars_c(char16* first, char16* last,
                                             long double value) noexcept;
/// Text of at most `MAX_FLOAT_LENGTH` units.
ORVXX_API to_chars_result<char> to_chars_c(char* first, char* last, float value) noexcept;
/// Text of at most `MAX_FLOAT_LENGTH` units.
ORVXX_API to_chars_result<char16> to_chars_c(char16* first, char16* last, float value) noexcept;
/// Text of at most `MAX_BINARY16_LENGTH` units.
ORVXX_API to_chars_result<char> to_chars_c(char* first, char* last, binary16 value) noexcept;
/// Text of at most `MAX_BINARY16_LENGTH` units.
ORVXX_API to_chars_result<char16> to_chars_c(char16* first, char16* last, binary16 value) noexcept;

/// @}
/// \name Decimal floating point
/// Writes all digits of the coefficient into [\p first, \p last), trailing zeros too: the text
/// tells the exponent. Declared in decimal/decimal32.h and so on are the types.
/// @{

/// Text of at most `MAX_DECIMAL32_LENGTH` units.
ORVXX_API to_chars_result<char> to_chars_c(char* first, char* last,
                                           decimal::decimal32 value) noexcept;
/// Text of at most `MAX_DECIMAL32_LENGTH` units.
ORVXX_API to_chars_result<char16> to_chars_c(char16* first, char16* last,
                                             decimal::decimal32 value) noexcept;
/// Text of at most `MAX_DECIMAL64_LENGTH` units.
ORVXX_API to_chars_result<char> to_chars_c(char* first, char* last,
                                           decimal::decimal64 value) noexcept;
/// Text of at most `MAX_DECIMAL64_LENGTH` units.
ORVXX_API to_chars_result<char16> to_chars_c(char16* first, char16* last,
                                             decimal::decimal64 value) noexcept;
/// Text of at most `MAX_DECIMAL128_LENGTH` units.
ORVXX_API to_chars_result<char> to_chars_c(char* first, char* last,
                                           decimal::decimal128 value) noexcept;
/// Text of at most `MAX_DECIMAL128_LENGTH` units.
ORVXX_API to_chars_result<char16> to_chars_c(char16* first, char16* last,
                                             decimal::decimal128 value) noexcept;

/// @}
/// \name Integers
/// Writes an integer of any type into [\p first, \p last): '-' if it is negative, and its digits,
/// from 10 on the small letters. The radix is from 2 to 36, which is asserted.
/// @{

/// Text of at most `MAX_INTEGER_LENGTH` units in radix 10.
template <detail::WritableInteger T>
to_chars_result<char> to_chars_c(char* first, char* last, T value, int radix = 10) noexcept {
    return detail::writeInteger(first, last, value < T{}, detail::magnitudeOf(value), radix);
}
/// Text of at most `MAX_INTEGER_LENGTH` units in radix 10.
template <detail::WritableInteger T>
to_chars_result<char16> to_chars_c(char16* first, char16* last, T value, int radix = 10) noexcept {
    return detail::writeInteger(first, last, value < T{}, detail::magnitudeOf(value), radix);
}

/// @}

} // namespace orv

#endif
