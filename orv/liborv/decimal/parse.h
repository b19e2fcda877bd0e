// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point numbers from text, one character at a time.
///
/// The grammar, in the manner of ABNF (RFC 5234), where `point` and `separator` are the
/// characters given to `orvDecParseInit` and letters may be of either case:
///
///     number   = *space [sign] ( word / decimal )
///     space    = " " / %x09-0D                ; with ORV_DEC_PARSE_SKIP_SPACE
///     sign     = "+" / "-"
///     word     = "inf" / "infinity" / "nan"
///     decimal  = ( whole [ point *digit ] / point 1*digit ) [ "e" [sign] 1*digit ]
///     whole    = digit *( [separator] digit ) ; separators only where one is given
///
/// A separator stands between two digits before the point; the sizes of the groups are not
/// checked.
///
/// The value is the number written, rounded once, half to even, however many digits come. It
/// keeps its zeros: "1.50" is 150 * 10^-2. What has more digits than the format is rounded to
/// the most; an exponent beyond the range moves into it as far as digits or zeros allow.
/// Overflow gives infinity, underflow the nearest subnormal number or a zero, both without
/// complaint. "nan" is the canonical NaN, without a sign.
///
///     DecimalParseState state;
///     orvDecParseInit(&state, 16, '.', 0, 0);
///     const char* p = "1.50;";
///     while ((orvDecParseNextChar(&state, *p) & ORV_DEC_PARSE_STOP) == 0) {
///         ++p;
///     }
///     ODecimal64 value = orvDec64ParseGetValue(&state); // 1.50
///
/// With "," for a separator:
///
/// | text     | state after it         | value         |
/// |----------|------------------------|---------------|
/// | `1.50`   | complete               | 150 * 10^-2   |
/// | `1.`     | complete               | 1             |
/// | `.`      | needs more             | NaN           |
/// | `1e+`    | needs more             | 1             |
/// | `1,23,`  | needs more             | 123           |
/// | `1,,`    | stopped at the second  | 1             |
/// | `0.00`   | complete               | 0 * 10^-2     |
/// | `-infin` | needs more             | -infinity     |
/// | `1e9999` | complete               | infinity      |
#ifndef ORV_LIBORV_DECIMAL_PARSE_H
#define ORV_LIBORV_DECIMAL_PARSE_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborv/platform.h"

#include <stddef.h>
#include <stdint.h>

ORV_EXTERN_C_BEGIN

/// A parse under way. The fields are the library's own; the record may be copied, which forks
/// the parse.
typedef struct DecimalParseState {
    uint64_t high;            ///< the first 17 digits kept, once there are more
    uint64_t low;             ///< the digits kept, or those behind the first 17
    int64_t scale;            ///< exponent of the lowest digit kept, without the one written
    int64_t exponent;         ///< written behind "e"; stays where it is once it is huge
    uint8_t room;             ///< digits that still go into `low`
    uint8_t stage;            ///< of keeping digits
    uint8_t place;            ///< in the grammar
    uint8_t kind;             ///< NaN, infinite or finite
    uint8_t tail;             ///< what the digits not kept come to, against half a digit
    uint8_t negative;         ///< a '-' leads
    uint8_t negativeExponent; ///< a '-' stands behind "e"
    uint8_t maxDigits;        ///< to keep
    uint8_t skipsSpace;       ///< white space may lead
    char point;               ///< as given
    char separator;           ///< as given, or 0
} DecimalParseState;

/// White space may stand before the number.
#define ORV_DEC_PARSE_SKIP_SPACE 1

/// \name What `orvDecParseNextChar` says
/// @{
#define ORV_DEC_PARSE_COMPLETE 1 ///< the number is complete with this character
#define ORV_DEC_PARSE_STOP 2     ///< this character does not belong to it, and ends the scan
/// @}

/// Begins a parse.
/// \param state     of the parse, to be set
/// \param maxDigits those of the format that will be asked for: 7, 16 or 34
/// \param point     the decimal point
/// \param separator the thousands separator, or 0 where there is none
/// \param options   0 or #ORV_DEC_PARSE_SKIP_SPACE
/// \return 0; -1, and \p state is as it was, if \p state is null, \p maxDigits is another
///         number, or \p point or \p separator cannot be told from the rest of a number: a
///         digit, a sign, a letter of "e" or of the words, or the same character twice; for a
///         \p point of 0, and for one that is white space if that is to be skipped
ORV_API int orvDecParseInit(DecimalParseState* state, int maxDigits, char point, char separator,
                            int options) ORV_NOEXCEPT;

/// Takes the next character. NUL never belongs to a number. After a stop every character stops,
/// and the value remains.
/// \return #ORV_DEC_PARSE_COMPLETE if the characters so far are a number, which may go on; 0 if
///         more are needed; #ORV_DEC_PARSE_STOP if this one cannot stand here
ORV_API int orvDecParseNextChar(DecimalParseState* state, char c) ORV_NOEXCEPT;

/// Takes the characters of \p text up to the one that stops, exactly as `orvDecParseNextChar`
/// called for each of them, but several times as fast. A parse may go on in further calls of
/// either.
/// \param state    of a parse begun
/// \param text     the characters
/// \param size     of the text; `SIZE_MAX` if a NUL ends it
/// \param complete takes the count of the characters up to the last with which the number was
///         complete; 0 if there was none. May be null.
/// \return the count of the characters that belong to the number or could have begun it: the
///         size, or the index of the one that stopped
ORV_API size_t orvDecParseText(DecimalParseState* state, const char* text, size_t size,
                               size_t* complete) ORV_NOEXCEPT;

/// \name The value
/// Of the longest number that the characters so far begin with: of "1e+" it is 1. The canonical
/// NaN if there is none. A format of fewer digits than `orvDecParseInit` was told rounds once,
/// too; one of more gets no more than it was told.
/// @{
ORV_API ODecimal32 orvDec32ParseGetValue(const DecimalParseState* state) ORV_NOEXCEPT;
ORV_API ODecimal64 orvDec64ParseGetValue(const DecimalParseState* state) ORV_NOEXCEPT;
ORV_API ODecimal128 orvDec128ParseGetValue(const DecimalParseState* state) ORV_NOEXCEPT;
/// @}

ORV_EXTERN_C_END

#endif
