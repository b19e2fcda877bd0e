// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `stoi_c` and its kin: integers from text, the same in every locale.
///
/// All read a number from the front of a text and leave the rest:
///
/// 1. White space is skipped: the blank, and U+0009 to U+000D.
/// 2. A sign, '+' or '-', is taken by the signed types alone: to the unsigned ones it is no digit.
/// 3. A prefix decides on the radix if that is 0: "0x" or "0X" with a hexadecimal digit behind it
///    means 16, any other '0' means 8 and is itself a digit, and all else is 10. The radix 16
///    accepts the same prefix. So "0x" alone is the number 0, followed by an 'x'.
/// 4. Digits are '0' to '9', then the letters of either case. What is no digit below the radix
///    ends the number, and so does a NUL within the text.
///
/// In `char16` text the decimal digits of every script are digits like '0' to '9'.
///
/// The radix is not checked. 1 knows the digit 0 alone; 37 and more know no digit beyond 'z'; below
/// 0 there are no digits, so every text fails.
///
/// What does not fit is read to its last digit all the same. `int` and `long` in the names stand
/// for 32 bits on every platform, and `long long` for 64.
///
/// Where bad text is no exception, `from_chars_c` (from_chars.h) reads the same with a status.
///
/// \par Example
/// \code
/// std::size_t length = 0;
/// orv::stoi_c("12 mm", &length);      // 12, length 2
/// orv::stoi_c("0x1F", nullptr, 0);    // 31
/// orv::stoi_c("zz", nullptr, 36);     // 1295
/// \endcode
#ifndef ORV_LIBORVXX_NUMBER_STRING_TO_INT_H
#define ORV_LIBORVXX_NUMBER_STRING_TO_INT_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstddef>
#include <cstdint>

namespace orv {

/// \name From a view
/// The number at the front of \p text. \p index, where not null, receives the units read, white
/// space and sign included; a failure leaves it as it was.
/// \param radix from 2 to 36, or 0 to let a prefix decide
/// \exception std::invalid_argument if there is no digit: "decimal number expected", "octal number
///            expected" or "hexadecimal number expected"; in other radixes "digit ([0..1])
///            expected" with the highest digit, up to 'Z', in place of the 1. That is the character
///            '0' + radix - 1 up to radix 10 and 'A' + radix - 11 above, also in radixes that have
///            no such digit, with the low eight bits of the sum.
/// \exception std::out_of_range "number out of range" if the type cannot hold the number
/// @{

ORVXX_API std::int32_t stoi_c(string_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::int32_t stoi_c(ustring_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::int32_t stol_c(string_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::int32_t stol_c(ustring_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::int64_t stoll_c(string_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::int64_t stoll_c(ustring_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::uint32_t stoui_c(string_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::uint32_t stoui_c(ustring_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::uint32_t stoul_c(string_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::uint32_t stoul_c(ustring_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::uint64_t stoull_c(string_ref text, std::size_t* index = nullptr, int radix = 10);
ORVXX_API std::uint64_t stoull_c(ustring_ref text, std::size_t* index = nullptr, int radix = 10);

/// @}
/// \name From a cursor
/// The number at the cursor's position. The cursor moves to the first unit behind it; a failure
/// leaves it where it was.
/// \param radix from 2 to 36, or 0 to let a prefix decide
/// \exception std::invalid_argument if there is no digit, with the texts told above
/// \exception std::out_of_range "number out of range" if the type cannot hold the number
/// @{

ORVXX_API std::int32_t stoi_c(BasicCharIterator<char>& it, int radix = 10);
ORVXX_API std::int32_t stoi_c(BasicCharIterator<char16>& it, int radix = 10);
ORVXX_API std::int32_t stol_c(BasicCharIterator<char>& it, int radix = 10);
ORVXX_API std::int32_t stol_c(BasicCharIterator<char16>& it, int radix = 10);
ORVXX_API std::int64_t stoll_c(BasicCharIterator<char>& it, int radix = 10);
ORVXX_API std::int64_t stoll_c(BasicCharIterator<char16>& it, int radix = 10);
ORVXX_API std::uint32_t stoui_c(BasicCharIterator<char>& it, int radix = 10);
ORVXX_API std::uint32_t stoui_c(BasicCharIterator<char16>& it, int radix = 10);
ORVXX_API std::uint32_t stoul_c(BasicCharIterator<char>& it, int radix = 10);
ORVXX_API std::uint32_t stoul_c(BasicCharIterator<char16>& it, int radix = 10);
ORVXX_API std::uint64_t stoull_c(BasicCharIterator<char>& it, int radix = 10);
ORVXX_API std::uint64_t stoull_c(BasicCharIterator<char16>& it, int radix = 10);

/// @}
/// \name In the shape of the C library
/// The number at the front of \p text, which ends with a NUL. \p end, where not null, receives the
/// place behind the number.
///
/// Without a digit the result is 0 and \p end receives \p text. A number that does not fit gives
/// the nearest limit of the type and sets `errno` to `ERANGE`; \p end receives the place behind its
/// last digit. Nothing else changes `errno`, and nothing is thrown.
/// \param radix from 2 to 36, or 0 to let a prefix decide
/// @{

ORVXX_API std::int32_t strtoi_c(const char* text, char** end, int radix = 10) noexcept;
ORVXX_API std::int32_t strtoi_c(const char16* text, char16** end, int radix = 10) noexcept;
ORVXX_API std::int32_t strtol_c(const char* text, char** end, int radix = 10) noexcept;
ORVXX_API std::int32_t strtol_c(const char16* text, char16** end, int radix = 10) noexcept;
ORVXX_API std::int64_t strtoll_c(const char* text, char** end, int radix = 10) noexcept;
ORVXX_API std::int64_t strtoll_c(const char16* text, char16** end, int radix = 10) noexcept;
ORVXX_API std::uint32_t strtoui_c(const char* text, char** end, int radix = 10) noexcept;
ORVXX_API std::uint32_t strtoui_c(const char16* text, char16** end, int radix = 10) noexcept;
ORVXX_API std::uint32_t strtoul_c(const char* text, char** end, int radix = 10) noexcept;
ORVXX_API std::uint32_t strtoul_c(const char16* text, char16** end, int radix = 10) noexcept;
ORVXX_API std::uint64_t strtoull_c(const char* text, char** end, int radix = 10) noexcept;
ORVXX_API std::uint64_t strtoull_c(const char16* text, char16** end, int radix = 10) noexcept;

/// @}

} // namespace orv

#endif
