// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `from_chars_c`: numbers from text, with a status instead of exceptions.
///
/// The same readers as `stod_c`, `stod64_c` and `stoi_c` (string_to_float.h, string_to_decimal.h
/// and string_to_int.h, which tell the grammar), for callers that expect bad text as a matter of
/// course. They throw nothing, allocate nothing, leave `errno` alone and give the same in every
/// locale.
///
///     auto [value, length, status] = orv::from_chars_c<double>("2.5 mm"); // 2.5, 3, ok
#ifndef ORV_LIBORVXX_NUMBER_FROM_CHARS_H
#define ORV_LIBORVXX_NUMBER_FROM_CHARS_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal_fwd.h"
#include "orv/liborvxx/number/number_status.h"
#include "orv/liborvxx/text/string_ref.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace orv {

/// What `from_chars_c` found.
template <class T>
struct from_chars_result {
    /// The number. What does not fit gives the nearest limit (an infinity, or the largest or
    /// smallest integer); what is no number gives 0, as a decimal one with all bits 0.
    T value;
    /// Code units read, white space and sign included, also where the number does not fit; 0 if
    /// there is no number.
    std::size_t length;
    /// What `value` and `length` are worth.
    number_status status;

    /// Whether there is a number, and fits.
    explicit constexpr operator bool() const noexcept { return status == number_status::ok; }
};

namespace detail {

template <class T>
concept ReadableFloat =
    std::same_as<T, float> || std::same_as<T, double> || std::same_as<T, long double>;

template <class T>
concept ReadableDecimal = std::same_as<T, decimal::decimal32> ||
    std::same_as<T, decimal::decimal64> || std::same_as<T, decimal::decimal128>;

template <class T>
concept ReadableInteger = std::same_as<T, int> || std::same_as<T, long> ||
    std::same_as<T, long long> || std::same_as<T, unsigned> || std::same_as<T, unsigned long> ||
    std::same_as<T, unsigned long long>;

/// \name What does the reading
/// @{
ORVXX_API from_chars_result<float> readFloat(string_ref text) noexcept;
ORVXX_API from_chars_result<float> readFloat(ustring_ref text) noexcept;
ORVXX_API from_chars_result<double> readDouble(string_ref text) noexcept;
ORVXX_API from_chars_result<double> readDouble(ustring_ref text) noexcept;
ORVXX_API from_chars_result<decimal::decimal32> readDecimal32(string_ref text) noexcept;
ORVXX_API from_chars_result<decimal::decimal32> readDecimal32(ustring_ref text) noexcept;
ORVXX_API from_chars_result<decimal::decimal64> readDecimal64(string_ref text) noexcept;
ORVXX_API from_chars_result<decimal::decimal64> readDecimal64(ustring_ref text) noexcept;
ORVXX_API from_chars_result<decimal::decimal128> readDecimal128(string_ref text) noexcept;
ORVXX_API from_chars_result<decimal::decimal128> readDecimal128(ustring_ref text) noexcept;
ORVXX_API from_chars_result<std::int32_t> readInt32(string_ref text, int radix) noexcept;
ORVXX_API from_chars_result<std::int32_t> readInt32(ustring_ref text, int radix) noexcept;
ORVXX_API from_chars_result<std::int64_t> readInt64(string_ref text, int radix) noexcept;
ORVXX_API from_chars_result<std::int64_t> readInt64(ustring_ref text, int radix) noexcept;
ORVXX_API from_chars_result<std::uint32_t> readUint32(string_ref text, int radix) noexcept;
ORVXX_API from_chars_result<std::uint32_t> readUint32(ustring_ref text, int radix) noexcept;
ORVXX_API from_chars_result<std::uint64_t> readUint64(string_ref text, int radix) noexcept;
ORVXX_API from_chars_result<std::uint64_t> readUint64(ustring_ref text, int radix) noexcept;
/// @}

template <ReadableFloat T, class CharT>
from_chars_result<T> readFloatAs(basic_string_ref<CharT> text) noexcept {
    if constexpr (std::same_as<T, float>) {
        return readFloat(text);
    } else {
        const auto [value, length, status] = readDouble(text);
        return {value, length, status};
    }
}

template <ReadableDecimal T, class CharT>
from_chars_result<T> readDecimalAs(basic_string_ref<CharT> text) noexcept {
    if constexpr (std::same_as<T, decimal::decimal32>) {
        return readDecimal32(text);
    } else if constexpr (std::same_as<T, decimal::decimal64>) {
        return readDecimal64(text);
    } else {
        return readDecimal128(text);
    }
}

template <ReadableInteger T, class CharT>
from_chars_result<T> readIntegerAs(basic_string_ref<CharT> text, int radix) noexcept {
    const auto as = [](const auto& read) {
        return from_chars_result<T>{static_cast<T>(read.value), read.length, read.status};
    };
    if constexpr (std::is_signed_v<T>) {
        if constexpr (sizeof(T) == sizeof(std::int32_t)) {
            return as(readInt32(text, radix));
        } else {
            return as(readInt64(text, radix));
        }
    } else if constexpr (sizeof(T) == sizeof(std::uint32_t)) {
        return as(readUint32(text, radix));
    } else {
        return as(readUint64(text, radix));
    }
}

} // namespace detail

/// Reads a `float`, `double` or `long double` from the front of \p text, as `stof_c`, `stod_c` and
/// `stold_c` do. The rest of the text is left: `length` tells where it begins.
///
/// Status: `digit_expected`, `infinity_expected`, `nan_expected`; `out_of_range` with an infinity
/// of the number's sign. What is too small is no error: it gives a subnormal number or zero.
template <detail::ReadableFloat T>
from_chars_result<T> from_chars_c(string_ref text) noexcept {
    return detail::readFloatAs<T>(text);
}
/// The same from UTF-16 text, where the decimal digits of every script are digits.
template <detail::ReadableFloat T>
from_chars_result<T> from_chars_c(ustring_ref text) noexcept {
    return detail::readFloatAs<T>(text);
}

/// Reads a decimal number (decimal/decimal32.h and so on) from the front of \p text, as `stod64_c`
/// and its kin do. The rest of the text is left: `length` tells where it begins.
///
/// Status: `digit_expected`, `infinity_expected`, `nan_expected`. What is too large is an infinity
/// and no error.
template <detail::ReadableDecimal T>
from_chars_result<T> from_chars_c(string_ref text) noexcept {
    return detail::readDecimalAs<T>(text);
}
/// The same from UTF-16 text, where the decimal digits of every script are digits.
template <detail::ReadableDecimal T>
from_chars_result<T> from_chars_c(ustring_ref text) noexcept {
    return detail::readDecimalAs<T>(text);
}

/// Reads an integer of any type from `int` up from the front of \p text, as `stoi_c` and its kin
/// do. The rest of the text is left: `length` tells where it begins.
///
/// Status: `digit_expected`; `out_of_range` with the nearest limit of the type. The radix is 2 to
/// 36, or 0 to let a prefix decide, as `stoi_c` takes it.
template <detail::ReadableInteger T>
from_chars_result<T> from_chars_c(string_ref text, int radix = 10) noexcept {
    return detail::readIntegerAs<T>(text, radix);
}
/// The same from UTF-16 text, where the decimal digits of every script are digits.
template <detail::ReadableInteger T>
from_chars_result<T> from_chars_c(ustring_ref text, int radix = 10) noexcept {
    return detail::readIntegerAs<T>(text, radix);
}

} // namespace orv

#endif
