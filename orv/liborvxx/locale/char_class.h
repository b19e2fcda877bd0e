// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `isualnum`, `isualpha` and so on: the classes of UTF-16 units, as `<cctype>` has them for
/// bytes, and the case mapping of one unit.
///
/// The classes are the same in every locale. They are those of Unicode 4.1, and stay so: a text is
/// classified tomorrow as it is today. Surrogates, private use, noncharacters and what Unicode
/// added later have no class; `Char16` (code_points.h) asks the current version, about whole code
/// points. The end mark 0xFFFF of `std::char_traits<char16>` has no class either.
///
/// A class costs two reads from a table, and one where 16 neighbours are all alike, as they are in
/// nine tenths of all cases.
#ifndef ORV_LIBORVXX_LOCALE_CHAR_CLASS_H
#define ORV_LIBORVXX_LOCALE_CHAR_CLASS_H

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char16.h"

#include <cstdint>

namespace orv {

namespace detail {

/// The bits of a unit's mask, and the classes that are combinations of them.
enum CharClass : unsigned {
    CLASS_UPPER = 0x0001,        ///< Lu, Lt and upper-case Roman numerals
    CLASS_LOWER = 0x0002,        ///< Ll, Lt, U+0345, and what is lower case among Lm and Nl
    CLASS_DIGIT = 0x0004,        ///< Nd
    CLASS_WHITE = 0x0008,        ///< spaces, separators of lines and paragraphs, white controls
    CLASS_PUNCT = 0x0010,        ///< punctuation, symbols, enclosing marks, No
    CLASS_CNTRL = 0x0020,        ///< Cc, Cf
    CLASS_BLANK = 0x0040,        ///< what is white but for U+2028 and U+2029
    CLASS_XDIGIT = 0x0080,       ///< 0-9, A-F, a-f, and the same in full width
    CLASS_OTHER_LETTER = 0x0100, ///< Lo, Lm, Mn, Mc, Nl, where not upper or lower

    CLASS_ALPHA = CLASS_UPPER | CLASS_LOWER | CLASS_OTHER_LETTER,
    CLASS_ALNUM = CLASS_ALPHA | CLASS_DIGIT,
    CLASS_SPACE = CLASS_WHITE | CLASS_BLANK,
    CLASS_GRAPH = CLASS_ALNUM | CLASS_PUNCT,
    CLASS_PRINT = CLASS_GRAPH | CLASS_XDIGIT | CLASS_BLANK
};

/// The masks of all units, in pages of 16.
struct CharClassTable {
    /// For each page its mask with bit 15 set, if it is uniform; else its place in `data`.
    std::uint16_t index[4096];
    /// The masks of the pages that are not uniform.
    std::uint16_t data[5856];
};

/// The table. A reference, so that a program holds the address and no copy of the table, and its
/// size is no part of the interface. Inline functions over it take a third of the time of
/// calls into the library.
extern ORVXX_API const CharClassTable& charClassTable;

/// The mask of a unit.
inline unsigned charClass(char16_int c) noexcept {
    const auto unit = static_cast<unsigned>(c);
    const unsigned entry = charClassTable.index[unit >> 4U];
    return (entry & 0x8000U) != 0 ? entry & 0x7FFFU : charClassTable.data[entry + (unit & 15U)];
}

/// Whether a unit is of one of the classes.
inline bool hasClass(char16_int c, unsigned classes) noexcept {
    return (charClass(c) & classes) != 0;
}

} // namespace detail

/// \name Classes of units
/// @{

/// A letter, a mark that goes with letters, or a decimal digit.
inline bool isualnum(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_ALNUM);
}

/// A letter or a mark that goes with letters.
inline bool isualpha(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_ALPHA);
}

/// A control or format character: the soft hyphen U+00AD is one.
inline bool isucntrl(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_CNTRL);
}

/// A decimal digit of any script. `Char16::digit` gives its value.
inline bool isudigit(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_DIGIT);
}

/// Letter, digit or punctuation.
inline bool isugraph(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_GRAPH);
}

/// A lower-case letter. A title-case letter (U+01C5) is both lower and upper case.
inline bool isulower(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_LOWER);
}

/// Letter, digit, punctuation or blank. The controls that are white space, U+0009 to U+000D and
/// U+0085, count as blank here; U+2028 and U+2029 do not.
inline bool isuprint(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_PRINT);
}

/// Punctuation or a symbol, or a number that is neither digit nor letter, as "½" is.
inline bool isupunct(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_PUNCT);
}

/// White space, no-break spaces included. U+180E is a space; U+200B is none.
inline bool isuspace(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_SPACE);
}

/// An upper-case letter. A title-case letter (U+01C5) is both lower and upper case.
inline bool isuupper(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_UPPER);
}

/// A hexadecimal digit of ASCII, or its full-width form.
inline bool isuxdigit(char16_int c) noexcept {
    return detail::hasClass(c, detail::CLASS_XDIGIT);
}

/// @}
/// \name Case of units
///
/// The simple mapping of the current version of Unicode, the same in every locale. A unit without
/// one is returned unchanged, and so is the end mark 0xFFFF.
/// @{

inline char16_int toulower(char16_int c) noexcept {
    return c == u'\xFFFF' ? c : char16_int(orvUniCharToLower(static_cast<std::uint32_t>(c)));
}

inline char16_int touupper(char16_int c) noexcept {
    return c == u'\xFFFF' ? c : char16_int(orvUniCharToUpper(static_cast<std::uint32_t>(c)));
}

/// @}

} // namespace orv

#endif
