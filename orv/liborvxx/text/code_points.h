// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Char16`: classification, case, surrogates and radix digits of code units and code
/// points.
#ifndef ORV_LIBORVXX_TEXT_CODE_POINTS_H
#define ORV_LIBORVXX_TEXT_CODE_POINTS_H

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <concepts>
#include <cstddef>
#include <type_traits>

namespace orv {

/// Static operations on UTF-16 code units and Unicode code points.
///
/// Character properties come from the C library `orv` (see unichar.h there for the Unicode
/// version). The overloads on 16-bit units ask about the code point of the same number, so a lone
/// surrogate is asked about as such. Everything here is a pure function and safe from any thread.
class Char16 {
public:
    Char16() = delete;

    /// \name Bounds
    /// @{
    static constexpr char16 MIN_VALUE = u'\0';
    static constexpr char16 MAX_VALUE{0xFFFF};
    static constexpr char16 MIN_HIGH_SURROGATE{0xD800};
    static constexpr char16 MAX_HIGH_SURROGATE{0xDBFF};
    static constexpr char16 MIN_LOW_SURROGATE{0xDC00};
    static constexpr char16 MAX_LOW_SURROGATE{0xDFFF};
    static constexpr char16 MIN_SURROGATE{0xD800};
    static constexpr char16 MAX_SURROGATE{0xDFFF};
    static constexpr char32_t MIN_SUPPLEMENTARY_CODE_POINT = 0x10000;
    static constexpr char32_t MIN_CODE_POINT = 0;
    static constexpr char32_t MAX_CODE_POINT = 0x10FFFF;
    static constexpr unsigned int MIN_RADIX = 2;
    static constexpr unsigned int MAX_RADIX = 36;
    /// @}

    /// \name Classification
    /// Each is one property lookup, O(1).
    /// @{

    /// The derived property Alphabetic.
    static bool isAlphabetic(char16 c) noexcept { return isAlphabetic(value(c)); }
    static bool isAlphabetic(char16_t c) noexcept { return isAlphabetic(char32_t{c}); }
    static bool isAlphabetic(char32_t c) noexcept { return orvUniCharIsAlphabetic(c) != 0; }
    /// Any general category but unassigned.
    static bool isDefined(char16 c) noexcept { return isDefined(value(c)); }
    static bool isDefined(char16_t c) noexcept { return isDefined(char32_t{c}); }
    static bool isDefined(char32_t c) noexcept { return orvUniCharIsDefined(c) != 0; }
    /// A decimal digit of any script (category Nd).
    static bool isDigit(char16 c) noexcept { return isDigit(value(c)); }
    static bool isDigit(char16_t c) noexcept { return isDigit(char32_t{c}); }
    static bool isDigit(char32_t c) noexcept { return orvUniCharIsDecimalDigit(c) != 0; }
    /// A control character (category Cc).
    static bool isISOControl(char16 c) noexcept { return isISOControl(value(c)); }
    static bool isISOControl(char16_t c) noexcept { return isISOControl(char32_t{c}); }
    static bool isISOControl(char32_t c) noexcept { return orvUniCharIsControl(c) != 0; }
    /// A letter (categories L*).
    static bool isLetter(char16 c) noexcept { return isLetter(value(c)); }
    static bool isLetter(char16_t c) noexcept { return isLetter(char32_t{c}); }
    static bool isLetter(char32_t c) noexcept { return orvUniCharIsLetter(c) != 0; }
    /// A letter or a decimal digit.
    static bool isLetterOrDigit(char16 c) noexcept { return isLetterOrDigit(value(c)); }
    static bool isLetterOrDigit(char16_t c) noexcept { return isLetterOrDigit(char32_t{c}); }
    static bool isLetterOrDigit(char32_t c) noexcept {
        return orvUniCharIsLetterOrDecimalDigit(c) != 0;
    }
    /// The derived property Lowercase.
    static bool isLowerCase(char16 c) noexcept { return isLowerCase(value(c)); }
    static bool isLowerCase(char16_t c) noexcept { return isLowerCase(char32_t{c}); }
    static bool isLowerCase(char32_t c) noexcept { return orvUniCharIsLower(c) != 0; }
    /// The derived property Uppercase.
    static bool isUpperCase(char16 c) noexcept { return isUpperCase(value(c)); }
    static bool isUpperCase(char16_t c) noexcept { return isUpperCase(char32_t{c}); }
    static bool isUpperCase(char32_t c) noexcept { return orvUniCharIsUpper(c) != 0; }
    /// A title-case letter (category Lt).
    static bool isTitleCase(char16 c) noexcept { return isTitleCase(value(c)); }
    static bool isTitleCase(char16_t c) noexcept { return isTitleCase(char32_t{c}); }
    static bool isTitleCase(char32_t c) noexcept { return orvUniCharIsTitle(c) != 0; }
    /// A separator (categories Z*): NO-BREAK SPACE is one, TAB is none. Not the same question as
    /// `isWhitespace`.
    static bool isSpaceChar(char16 c) noexcept { return isSpaceChar(value(c)); }
    static bool isSpaceChar(char16_t c) noexcept { return isSpaceChar(char32_t{c}); }
    static bool isSpaceChar(char32_t c) noexcept {
        return (orvUniCharClass(c) & ORV_UNI_GROUP_MASK) == ORV_UNI_GROUP_SEPARATOR;
    }
    /// The property White_Space, which TAB has.
    static bool isWhitespace(char16 c) noexcept { return isWhitespace(value(c)); }
    static bool isWhitespace(char16_t c) noexcept { return isWhitespace(char32_t{c}); }
    static bool isWhitespace(char32_t c) noexcept { return hasProperty(c, ORV_UNI_WHITE_SPACE); }
    /// The property ID_Start (UAX #31).
    static bool isIdentifierStart(char16 c) noexcept { return isIdentifierStart(value(c)); }
    static bool isIdentifierStart(char16_t c) noexcept { return isIdentifierStart(char32_t{c}); }
    static bool isIdentifierStart(char32_t c) noexcept { return hasProperty(c, ORV_UNI_ID_START); }
    /// The property ID_Continue (UAX #31).
    static bool isIdentifierPart(char16 c) noexcept { return isIdentifierPart(value(c)); }
    static bool isIdentifierPart(char16_t c) noexcept { return isIdentifierPart(char32_t{c}); }
    static bool isIdentifierPart(char32_t c) noexcept {
        return hasProperty(c, ORV_UNI_ID_CONTINUE);
    }
    /// A format character, or a control character that is no white space.
    static bool isIdentifierIgnorable(char16 c) noexcept { return isIdentifierIgnorable(value(c)); }
    static bool isIdentifierIgnorable(char16_t c) noexcept {
        return isIdentifierIgnorable(char32_t{c});
    }
    static bool isIdentifierIgnorable(char32_t c) noexcept {
        return orvUniCharClass(c) == ORV_UNI_CLASS_FORMAT ||
               (orvUniCharClass(c) == ORV_UNI_CLASS_CONTROL &&
                !hasProperty(c, ORV_UNI_WHITE_SPACE));
    }

    /// @}
    /// \name Case
    /// Simple case mappings: one code point to one code point, so no text gets longer. The 16-bit
    /// forms keep the low 16 bits of the answer.
    /// @{
    static char16 toLowerCase(char16 c) noexcept { return char16(toLowerCase(value(c))); }
    static char16_t toLowerCase(char16_t c) noexcept {
        return static_cast<char16_t>(toLowerCase(char32_t{c}));
    }
    static char32_t toLowerCase(char32_t c) noexcept {
        return static_cast<char32_t>(orvUniCharToLower(c));
    }
    static char16 toUpperCase(char16 c) noexcept { return char16(toUpperCase(value(c))); }
    static char16_t toUpperCase(char16_t c) noexcept {
        return static_cast<char16_t>(toUpperCase(char32_t{c}));
    }
    static char32_t toUpperCase(char32_t c) noexcept {
        return static_cast<char32_t>(orvUniCharToUpper(c));
    }
    static char16 toTitleCase(char16 c) noexcept { return char16(toTitleCase(value(c))); }
    static char16_t toTitleCase(char16_t c) noexcept {
        return static_cast<char16_t>(toTitleCase(char32_t{c}));
    }
    static char32_t toTitleCase(char32_t c) noexcept {
        return static_cast<char32_t>(orvUniCharToTitle(c));
    }

    /// @}
    /// \name Surrogates
    /// For `char16` alone: a code point is no code unit, so other types do not compile.
    /// @{
    template <std::same_as<char16> T>
    static constexpr bool isHighSurrogate(T u) noexcept {
        return (value(u) & 0xFC00U) == 0xD800U;
    }
    template <std::same_as<char16> T>
    static constexpr bool isLowSurrogate(T u) noexcept {
        return (value(u) & 0xFC00U) == 0xDC00U;
    }
    template <std::same_as<char16> T>
    static constexpr bool isSurrogate(T u) noexcept {
        return (value(u) & 0xF800U) == 0xD800U;
    }
    template <std::same_as<char16> T, std::same_as<char16> U>
    static constexpr bool isSurrogatePair(T high, U low) noexcept {
        return isHighSurrogate(high) && isLowSurrogate(low);
    }

    /// @}
    /// \name Code points
    /// Nothing is validated beyond what is said.
    /// @{

    /// Below 0x10000.
    static constexpr bool isBmpCodePoint(char32_t cp) noexcept { return cp < 0x10000; }
    /// Below 0x110000.
    static constexpr bool isValidCodePoint(char32_t cp) noexcept { return cp < 0x110000; }
    /// 0x10000 to 0x10FFFF.
    static constexpr bool isSupplementaryCodePoint(char32_t cp) noexcept {
        return cp - 0x10000 < 0x100000;
    }
    /// Units that \p cp takes: 1 below 0x10000, otherwise 2.
    static constexpr std::size_t charCount(char32_t cp) noexcept { return cp < 0x10000 ? 1 : 2; }
    /// The two halves of a supplementary code point; other values are folded through the masks.
    static constexpr char16 highSurrogate(char32_t cp) noexcept {
        return char16((((cp - 0x10000) >> 10) & 0x3FF) | 0xD800);
    }
    static constexpr char16 lowSurrogate(char32_t cp) noexcept {
        return char16((cp & 0x3FF) | 0xDC00);
    }
    /// The code point of a pair. The arguments are masked and never checked.
    static constexpr char32_t toCodePoint(char16 high, char16 low) noexcept {
        return ((static_cast<char32_t>(value(high) & 0x3FFU) << 10) |
                static_cast<char32_t>(value(low) & 0x3FFU)) +
               0x10000;
    }
    /// The value of a unit.
    static constexpr char16_t toCodeUnit(char16 u) noexcept { return static_cast<char16_t>(u); }

    /// @}
    /// \name Digits and narrow text
    /// @{

    /// Value of a digit in a radix of 2 to 36, or -1. Digits are ASCII digits and letters, the
    /// decimal digits of every script, and the full-width Latin letters.
    ORVXX_API static int digit(char16 c, unsigned int radix) noexcept;
    ORVXX_API static int digit(char16_t c, unsigned int radix) noexcept;
    ORVXX_API static int digit(char32_t c, unsigned int radix) noexcept;

    /// The ASCII digit or lower-case letter for \p digit, or U+0000 if \p digit is not below \p
    /// radix or \p radix is not 2 to 36.
    ORVXX_API static char16 forDigit(unsigned int digit, unsigned int radix) noexcept;

    /// A unit below 0x80 as that byte, a decimal digit of any script as its ASCII digit, and \p
    /// dflt for the rest.
    ORVXX_API static char narrow(char16 c, char dflt) noexcept;

    /// An ASCII character as its unit, and U+FFFD for a byte with the high bit set. No code page is
    /// consulted.
    ORVXX_API static char16 widen(char c) noexcept;

    /// @}
    /// \name Code points in text
    /// For `ustring` and `ustring_ref`; no other type compiles. Indices and counts are in units; an
    /// unpaired surrogate counts as a code point of its own.
    /// @{

    /// The code point at \p index: the pair's where a pair begins there, otherwise the unit's.
    /// \exception std::out_of_range if \p index is not below the size: "invalid string position"
    /// for `ustring`, "basic_string_ref<CharT>::at" for `ustring_ref`.
    template <typename StringT>
    static char32_t codePointAt(const StringT& s, std::size_t index) = delete;

    /// The code point that ends just before \p index.
    /// \exception std::out_of_range as `codePointAt`, if \p index is 0 or exceeds the size.
    template <typename StringT>
    static char32_t codePointBefore(const StringT& s, std::size_t index) = delete;

    /// Code points in the \p count units from \p index, fewer at the end of the text. A pair cut by
    /// the end of the range counts 1. O(count). \exception std::out_of_range
    /// "Char16::codePointCount(const StringT &, size_type, size_type)" if \p index exceeds the
    /// size.
    template <typename StringT>
    static std::size_t codePointCount(const StringT& s, std::size_t index,
                                      std::size_t count) = delete;

    /// The index reached from \p index by \p codePointOffset code points, forward or back; `npos`
    /// if that runs off either end. O(|offset|). \exception std::out_of_range
    /// "Char16::offsetByCodePoints(const StringT &, size_type, difference_type)" if \p index
    /// exceeds the size.
    template <typename StringT>
    static std::size_t offsetByCodePoints(const StringT& s, std::size_t index,
                                          std::ptrdiff_t codePointOffset) = delete;

    /// Appends \p cp and returns the units appended, 1 or 2. Values above 0x10FFFF are folded
    /// through the masks of `highSurrogate` and `lowSurrogate`. `ustring` only.
    template <typename StringT>
    static std::size_t toChars(char32_t cp, StringT& s) = delete;

    /// Writes \p cp over the units from \p index, appending those that lie beyond the end, and
    /// returns 1 or 2. An index beyond the size appends. `ustring` only.
    template <typename StringT>
    static std::size_t toChars(char32_t cp, StringT& s, std::size_t index) = delete;

    /// @}

private:
    static constexpr char32_t value(char16 u) noexcept { return static_cast<char32_t>(u); }

    static bool hasProperty(char32_t c, OrvUniProperty bit) noexcept {
        return (orvUniCharProperties(c) & bit) != 0;
    }
};

// The forms that there are.
template <>
ORVXX_API char32_t Char16::codePointAt(const ustring& s, std::size_t index);
template <>
ORVXX_API char32_t Char16::codePointAt(const ustring_ref& s, std::size_t index);
template <>
ORVXX_API char32_t Char16::codePointBefore(const ustring& s, std::size_t index);
template <>
ORVXX_API char32_t Char16::codePointBefore(const ustring_ref& s, std::size_t index);
template <>
ORVXX_API std::size_t Char16::codePointCount(const ustring& s, std::size_t index,
                                             std::size_t count);
template <>
ORVXX_API std::size_t Char16::codePointCount(const ustring_ref& s, std::size_t index,
                                             std::size_t count);
template <>
ORVXX_API std::size_t Char16::offsetByCodePoints(const ustring& s, std::size_t index,
                                                 std::ptrdiff_t codePointOffset);
template <>
ORVXX_API std::size_t Char16::offsetByCodePoints(const ustring_ref& s, std::size_t index,
                                                 std::ptrdiff_t codePointOffset);
template <>
ORVXX_API std::size_t Char16::toChars(char32_t cp, ustring& s);
template <>
ORVXX_API std::size_t Char16::toChars(char32_t cp, ustring& s, std::size_t index);

} // namespace orv

#endif
