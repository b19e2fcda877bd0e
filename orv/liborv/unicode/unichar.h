// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Properties and simple case mappings of Unicode code points.
///
/// Every function here is a table lookup: constant time, no allocation, no locale, no state, safe
/// from any thread. Every 32-bit value is a legal argument. Surrogates are asked about as the code
/// points of the same number; values above U+10FFFF answer as an unassigned code point does.

#ifndef ORV_LIBORV_UNICODE_UNICHAR_H
#define ORV_LIBORV_UNICODE_UNICHAR_H

#include "orv/liborv/platform.h"

#include <stdint.h>

ORV_EXTERN_C_BEGIN

/// The general categories of Unicode, numbered in groups of eight: masked with
/// #ORV_UNI_GROUP_MASK, a class gives the first number of its group.
typedef enum OrvUniClass {
    ORV_UNI_CLASS_UNASSIGNED = 0, ///< Cn, noncharacters included

    ORV_UNI_GROUP_LETTER = 8,
    ORV_UNI_CLASS_UPPERCASE_LETTER = 8,  ///< Lu
    ORV_UNI_CLASS_LOWERCASE_LETTER = 9,  ///< Ll
    ORV_UNI_CLASS_TITLECASE_LETTER = 10, ///< Lt
    ORV_UNI_CLASS_MODIFIER_LETTER = 11,  ///< Lm
    ORV_UNI_CLASS_OTHER_LETTER = 12,     ///< Lo

    ORV_UNI_GROUP_MARK = 16,
    ORV_UNI_CLASS_NONSPACING_MARK = 16, ///< Mn
    ORV_UNI_CLASS_SPACING_MARK = 17,    ///< Mc
    ORV_UNI_CLASS_ENCLOSING_MARK = 18,  ///< Me

    ORV_UNI_GROUP_NUMBER = 24,
    ORV_UNI_CLASS_DECIMAL_NUMBER = 24, ///< Nd
    ORV_UNI_CLASS_LETTER_NUMBER = 25,  ///< Nl
    ORV_UNI_CLASS_OTHER_NUMBER = 26,   ///< No

    ORV_UNI_GROUP_PUNCTUATION = 32,
    ORV_UNI_CLASS_CONNECTOR_PUNCTUATION = 32, ///< Pc
    ORV_UNI_CLASS_DASH_PUNCTUATION = 33,      ///< Pd
    ORV_UNI_CLASS_OPEN_PUNCTUATION = 34,      ///< Ps
    ORV_UNI_CLASS_CLOSE_PUNCTUATION = 35,     ///< Pe
    ORV_UNI_CLASS_INITIAL_PUNCTUATION = 36,   ///< Pi
    ORV_UNI_CLASS_FINAL_PUNCTUATION = 37,     ///< Pf
    ORV_UNI_CLASS_OTHER_PUNCTUATION = 38,     ///< Po

    ORV_UNI_GROUP_SYMBOL = 40,
    ORV_UNI_CLASS_MATH_SYMBOL = 40,     ///< Sm
    ORV_UNI_CLASS_CURRENCY_SYMBOL = 41, ///< Sc
    ORV_UNI_CLASS_MODIFIER_SYMBOL = 42, ///< Sk
    ORV_UNI_CLASS_OTHER_SYMBOL = 43,    ///< So

    ORV_UNI_GROUP_SEPARATOR = 48,
    ORV_UNI_CLASS_SPACE_SEPARATOR = 48,     ///< Zs
    ORV_UNI_CLASS_LINE_SEPARATOR = 49,      ///< Zl
    ORV_UNI_CLASS_PARAGRAPH_SEPARATOR = 50, ///< Zp

    ORV_UNI_GROUP_OTHER = 56,
    ORV_UNI_CLASS_CONTROL = 57,    ///< Cc
    ORV_UNI_CLASS_FORMAT = 58,     ///< Cf
    ORV_UNI_CLASS_SURROGATE = 60,  ///< Cs
    ORV_UNI_CLASS_PRIVATE_USE = 61 ///< Co
} OrvUniClass;

/// The bits of a class number that name its group.
#define ORV_UNI_GROUP_MASK 0x38

/// The bits of orvUniCharProperties(). Bits that are not named here are 0 in this version.
typedef enum OrvUniProperty {
    ORV_UNI_DEFINED = 1 << 0,       ///< the class is not 0
    ORV_UNI_LETTER = 1 << 1,        ///< Lu, Ll, Lt, Lm, Lo
    ORV_UNI_ALPHABETIC = 1 << 2,    ///< derived property Alphabetic
    ORV_UNI_LOWERCASE = 1 << 3,     ///< derived property Lowercase
    ORV_UNI_UPPERCASE = 1 << 4,     ///< derived property Uppercase
    ORV_UNI_TITLECASE = 1 << 5,     ///< Lt
    ORV_UNI_DECIMAL_DIGIT = 1 << 6, ///< Nd
    ORV_UNI_CONTROL = 1 << 7,       ///< Cc
    ORV_UNI_ID_START = 1 << 14,     ///< derived property ID_Start (UAX #31)
    ORV_UNI_ID_CONTINUE = 1 << 15,  ///< derived property ID_Continue (UAX #31)
    ORV_UNI_WHITE_SPACE = 1 << 18   ///< property White_Space
} OrvUniProperty;

/// The version of the Unicode Character Database behind the answers, such as "15.0.0".
ORV_API const char* orvUnicodeVersion(void) ORV_NOEXCEPT;

/// The general category, as a number of #OrvUniClass.
ORV_API int32_t orvUniCharClass(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// The properties, as a set of #OrvUniProperty bits.
///
/// The identifier bits are Unicode's ID_Start and ID_Continue as they stand: letters, letter
/// numbers and (for ID_Continue) marks, digits and connectors. What a language adds to them, such
/// as "_" or "$" in front, is that language's own business.
ORV_API int32_t orvUniCharProperties(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// The value 0 to 9 of a decimal digit (Nd) of any script, or -1. Superscripts, fractions and
/// other numbers have none.
ORV_API int32_t orvUniCharDigitValue(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 if the code point has the derived property Alphabetic, else 0.
ORV_API int32_t orvUniCharIsAlphabetic(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 if the code point has a general category other than "unassigned", else 0. Surrogates and
/// private-use code points have one; noncharacters have none.
ORV_API int32_t orvUniCharIsDefined(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 for a decimal digit (Nd) of any script, else 0.
ORV_API int32_t orvUniCharIsDecimalDigit(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 for a control character (Cc: U+0000 to U+001F, U+007F to U+009F), else 0.
ORV_API int32_t orvUniCharIsControl(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 for a letter (Lu, Ll, Lt, Lm, Lo), else 0.
ORV_API int32_t orvUniCharIsLetter(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 for a letter (Lu, Ll, Lt, Lm, Lo) or a decimal digit (Nd), else 0.
ORV_API int32_t orvUniCharIsLetterOrDecimalDigit(uint32_t codePoint)
    ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 if the code point has the derived property Lowercase, else 0. It holds for some characters
/// that are no letters (small roman numerals, circled small letters).
ORV_API int32_t orvUniCharIsLower(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 if the code point has the derived property Uppercase, else 0. It holds for some characters
/// that are no letters, as with orvUniCharIsLower().
ORV_API int32_t orvUniCharIsUpper(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// 1 for a titlecase letter (Lt), else 0.
ORV_API int32_t orvUniCharIsTitle(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// The simple lower-case mapping: one code point to one, whatever the language and the
/// neighbours. A code point without a mapping, or above U+10FFFF, is returned unchanged.
ORV_API uint32_t orvUniCharToLower(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// The simple upper-case mapping, by the rules of orvUniCharToLower().
ORV_API uint32_t orvUniCharToUpper(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

/// The simple title-case mapping, by the rules of orvUniCharToLower().
ORV_API uint32_t orvUniCharToTitle(uint32_t codePoint) ORV_NOEXCEPT ORV_CONST_FUNCTION;

ORV_EXTERN_C_END

#endif
