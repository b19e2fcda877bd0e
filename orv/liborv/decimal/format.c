// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers as text.
///
/// The digits of the coefficient are rounded to those wanted and then laid out. Everything is
/// written through a `Sink`, which counts what does not fit.
#include "orv/liborv/decimal/format.h"

#include "orv/liborv/decimal/detail/digits.h"
#include "orv/liborv/decimal/detail/encoding.h"

#include <assert.h>
#include <string.h>

// A group size from which on digits are not grouped any more.
#define NO_MORE_GROUPS 127

// The zeros between the point and the first digit that G puts up with.
#define MAX_LEADING_ZEROS 5

// As many characters as a coefficient may have digits, or a few more.
#define COPY_SIZE ORV_DEC_DIGIT_SPACE

// Where the text goes.
typedef struct Sink {
    char* at;
    char* end;
    size_t missing; // characters that did not fit
} Sink;

// The finite number to be written: digits[0..count) * 10^exponent.
typedef struct Digits {
    char digits[2 * COPY_SIZE]; // so that COPY_SIZE may be read from each
    int32_t count;
    int32_t exponent;
} Digits;

static int isSmall(const DecimalFormat* format) {
    return format->conversion >= 'a' && format->conversion <= 'z';
}

static inline void putChar(Sink* sink, char c) {
    if (sink->at != sink->end) {
        *sink->at++ = c;
    } else {
        ++sink->missing;
    }
}

// Writes \p size characters, at most COPY_SIZE, of \p text, which has COPY_SIZE to read. What
// follows is written over, as far as there is room: copies of a constant size need no call.
static inline void put(Sink* sink, const char* text, size_t size) {
    const size_t room = (size_t)(sink->end - sink->at);
    if (room >= COPY_SIZE) {
        memcpy(sink->at, text, COPY_SIZE);
        sink->at += size;
        return;
    }
    const size_t fitting = size < room ? size : room;
    for (size_t i = 0; i < fitting; ++i) {
        *sink->at++ = text[i];
    }
    sink->missing += size - fitting;
}

static void fillMany(Sink* sink, char c, size_t size) {
    const size_t room = (size_t)(sink->end - sink->at);
    const size_t fitting = size < room ? size : room;
    if (fitting != 0) {
        memset(sink->at, c, fitting);
        sink->at += fitting;
    }
    sink->missing += size - fitting;
}

static inline void fill(Sink* sink, char c, size_t size) {
    if (size != 0) {
        fillMany(sink, c, size);
    }
}

static void putWord(Sink* sink, const char* word) {
    for (; *word != '\0'; ++word) {
        putChar(sink, *word);
    }
}

static char continuation(uint32_t bits) {
    return (char)(0x80 | (bits & 0x3F));
}

static void putUtf8(Sink* sink, uint32_t c) {
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
        c = 0xFFFD;
    }
    if (c < 0x800) {
        putChar(sink, (char)(0xC0 | c >> 6));
    } else if (c < 0x10000) {
        putChar(sink, (char)(0xE0 | c >> 12));
        putChar(sink, continuation(c >> 6));
    } else {
        putChar(sink, (char)(0xF0 | c >> 18));
        putChar(sink, continuation(c >> 12));
        putChar(sink, continuation(c >> 6));
    }
    putChar(sink, continuation(c));
}

// Writes a character of the punctuation.
static inline void putMark(Sink* sink, uint32_t c) {
    if (c <= 0xFF) {
        putChar(sink, (char)c);
    } else {
        putUtf8(sink, c);
    }
}

// Do the digits behind the first \p keep round up?
static int roundsUp(const Digits* number, int32_t keep) {
    const char first = number->digits[keep];
    if (first != '5') {
        return first > '5';
    }
    for (int32_t i = keep + 1; i < number->count; ++i) {
        if (number->digits[i] != '0') {
            return 1;
        }
    }
    return keep > 0 && (number->digits[keep - 1] & 1) != 0;
}

// Rounds to the first \p keep digits, fewer than there are. With none or less a zero remains or, by
// rounding up, a one in the place before the first digit.
static void keepDigits(Digits* number, int32_t keep) {
    const int up = keep >= 0 && roundsUp(number, keep);
    number->exponent += number->count - keep;
    number->count = keep;
    if (keep <= 0) {
        number->digits[0] = up ? '1' : '0';
        number->count = 1;
        return;
    }
    if (!up) {
        return;
    }
    int32_t last = keep - 1;
    for (; last >= 0 && number->digits[last] == '9'; --last) {
        number->digits[last] = '0';
    }
    if (last >= 0) {
        ++number->digits[last];
        return;
    }
    number->digits[0] = '1';
    ++number->exponent;
}

// Writes \p size characters of the number from the digit at \p from, zeros behind its last one.
static inline void putDigits(Sink* sink, const Digits* number, int32_t from, size_t size) {
    size_t kept = 0;
    if (from < number->count) {
        const size_t left = (size_t)(number->count - from);
        kept = left < size ? left : size;
        put(sink, number->digits + from, kept);
    }
    fill(sink, '0', size - kept);
}

// Writes the digits before the point in groups.
static void putGroups(Sink* sink, const Digits* number, size_t size, const DecimalFormat* format) {
    const unsigned char* sizes = (const unsigned char*)format->grouping;
    size_t leading = size;
    size_t groups = 0; // behind the leading one
    size_t last = 0;   // the group size that repeats
    while (sizes[last] < NO_MORE_GROUPS && sizes[last] < leading) {
        leading -= sizes[last];
        ++groups;
        last += sizes[last + 1] != 0;
    }
    putDigits(sink, number, 0, leading);
    for (size_t at = leading; groups > 0; --groups) {
        const size_t group = sizes[groups - 1 < last ? groups - 1 : last];
        putMark(sink, format->thousandsSeparator);
        putDigits(sink, number, (int32_t)at, group);
        at += group;
    }
}

static void putPoint(Sink* sink, const DecimalFormat* format) {
    putMark(sink, format->decimalPoint == 0 ? '.' : format->decimalPoint);
}

// Writes the number, which has no digits that do not show, with \p fraction digits behind the
// point.
static void putFixed(Sink* sink, const DecimalFormat* format, const Digits* number,
                     size_t fraction) {
    const int32_t whole = number->count + number->exponent;
    if (whole <= 0) {
        putChar(sink, '0');
    } else if (format->thousandsSeparator != 0 && format->grouping != 0 && *format->grouping != 0) {
        putGroups(sink, number, (size_t)whole, format);
    } else {
        putDigits(sink, number, 0, (size_t)whole);
    }
    if (fraction == 0) {
        if (format->showPoint) {
            putPoint(sink, format);
        }
        return;
    }
    putPoint(sink, format);
    const size_t zeros = whole < 0 ? (size_t)-whole : 0;
    fill(sink, '0', zeros);
    putDigits(sink, number, whole < 0 ? 0 : whole, fraction - zeros);
}

// Writes the number with one digit before the point and \p fraction behind it.
static void putScientific(Sink* sink, const DecimalFormat* format, const Digits* number,
                          size_t fraction) {
    putChar(sink, number->digits[0]);
    if (fraction > 0 || format->showPoint) {
        putPoint(sink, format);
    }
    putDigits(sink, number, 1, fraction);
    const int32_t exponent = number->exponent + number->count - 1;
    const uint32_t size = (uint32_t)(exponent < 0 ? -exponent : exponent);
    const uint32_t high = size / 100;
    putChar(sink, isSmall(format) ? 'e' : 'E');
    putChar(sink, exponent < 0 ? '-' : '+');
    if (high >= 10) {
        putChar(sink, (char)('0' + high / 10));
    }
    if (high > 0) {
        putChar(sink, (char)('0' + high % 10));
    }
    putChar(sink, (char)('0' + size / 10 % 10));
    putChar(sink, (char)('0' + size % 10));
}

static void putF(Sink* sink, const DecimalFormat* format, Digits* number) {
    const int32_t below = number->exponent < 0 ? -number->exponent : 0; // digits behind the point
    const int32_t precision = format->precision < 0 ? below : format->precision;
    if (precision < below) {
        keepDigits(number, number->count - (below - precision));
    }
    if (number->digits[0] == '0' && number->exponent > 0) {
        number->exponent = 0;
    }
    putFixed(sink, format, number, (size_t)precision);
}

static void putE(Sink* sink, const DecimalFormat* format, Digits* number) {
    if (format->precision >= 0 && format->precision < number->count - 1) {
        keepDigits(number, format->precision + 1);
    }
    putScientific(sink, format, number,
                  (size_t)(format->precision < 0 ? number->count - 1 : format->precision));
}

static void putG(Sink* sink, const DecimalFormat* format, Digits* number) {
    const int32_t precision = format->precision == 0 ? 1 : format->precision;
    if (precision > 0 && precision < number->count) {
        keepDigits(number, precision);
    }
    if (number->exponent <= 0 && number->exponent >= -(number->count + MAX_LEADING_ZEROS)) {
        putFixed(sink, format, number, (size_t)-number->exponent);
    } else {
        putScientific(sink, format, number, (size_t)(number->count - 1));
    }
}

// The digits to write behind the point of a number that needs neither rounding nor an exponent, and
// -1 of others.
static inline int32_t plainFraction(const DecimalFormat* format, const DecimalFields* fields,
                                    int32_t count) {
    const int32_t below = -fields->exponent;
    const int32_t precision = format->precision;
    switch (format->conversion) {
    case 'F':
    case 'f':
        return precision < 0 ? below : precision >= below ? precision : -1;
    case 'E':
    case 'e':
        return -1;
    default:
        return (precision < 0 || precision >= count) && below <= count + MAX_LEADING_ZEROS ? below
                                                                                           : -1;
    }
}

// Writes the last \p count of 16 digits at \p at, and something behind them.
static inline void storeLast(char* at, uint64_t first, uint64_t last, int32_t count) {
    if (count > 8) {
        const int32_t shift = 8 * (16 - count);
        const uint64_t lent = shift == 0 ? 0 : last << (64 - shift);
        orvStoreEight(at, first >> shift | lent);
        orvStoreEight(at + 8, last >> shift);
    } else {
        orvStoreEight(at, last >> 8 * (8 - count));
    }
}

// Writes an everyday number, of up to 16 digits and a point, in two pieces.
// \return 0 if it is none
static inline int putShort(Sink* sink, const DecimalFormat* format, const DecimalFields* fields) {
    enum { MOST = 16 };
    const uint64_t half = 100000000;
    if (fields->high != 0 || fields->low >= half * half || fields->exponent > 0 ||
        fields->exponent <= -MOST || format->thousandsSeparator != 0 || format->showPoint ||
        format->decimalPoint > 0x7F || sink->end - sink->at <= 2 * MOST) {
        return 0;
    }
    int32_t digits = orvDigitCount(fields->low);
    const int32_t fraction = plainFraction(format, fields, digits);
    const int32_t zeros = fraction + fields->exponent; // to be appended
    if (fraction < 0 || fraction >= MOST || (fields->low != 0 && digits + zeros > MOST)) {
        return 0;
    }
    const uint64_t number = fields->low * orvPowersOfTen[zeros];
    digits += fields->low == 0 ? 0 : zeros;
    const int32_t whole = digits > fraction ? digits - fraction : 1;
    const uint64_t first =
        number < half ? UINT64_C(0x3030303030303030) : orvEightDigits((uint32_t)(number / half));
    const uint64_t last = orvEightDigits((uint32_t)(number % half));
    storeLast(sink->at, first, last, whole + fraction);
    sink->at += whole;
    if (fraction != 0) {
        storeLast(sink->at + 1, first, last, fraction);
        *sink->at = format->decimalPoint == 0 ? '.' : (char)format->decimalPoint;
        sink->at += 1 + fraction;
    }
    return 1;
}

static void putNumber(Sink* sink, const DecimalFormat* format, const DecimalFields* fields) {
    if (fields->kind == DECIMAL_NAN) {
        putWord(sink, isSmall(format) ? "nan" : "NAN");
        return;
    }
    if (fields->negative) {
        putChar(sink, '-');
    } else if (format->plusSign != 0) {
        putChar(sink, format->plusSign);
    }
    if (fields->kind == DECIMAL_INFINITE) {
        putWord(sink, isSmall(format) ? "inf" : "INF");
        return;
    }
    if (putShort(sink, format, fields)) {
        return;
    }
    Digits number;
    number.count = orvDecimalDigits(number.digits, fields->high, fields->low);
    number.exponent = fields->exponent;
    switch (format->conversion) {
    case 'F':
    case 'f':
        putF(sink, format, &number);
        break;
    case 'E':
    case 'e':
        putE(sink, format, &number);
        break;
    default:
        putG(sink, format, &number);
        break;
    }
}

static size_t formatFields(const DecimalFormat* format, const DecimalFields* fields, char* buffer,
                           size_t size) {
    assert(format != 0 && (buffer != 0 || size == 0));
    char none = '\0';
    char* const begin = size == 0 ? &none : buffer;
    Sink sink = {begin, size == 0 ? begin : begin + (size - 1), 0};
    putNumber(&sink, format, fields);
    *sink.at = '\0';
    return (size_t)(sink.at - begin) + sink.missing;
}

size_t orvDec32FormatString(const DecimalFormat* format, ODecimal32 value, char* buffer,
                            size_t size) {
    const DecimalFields fields = orvDec32Fields(value);
    return formatFields(format, &fields, buffer, size);
}

size_t orvDec64FormatString(const DecimalFormat* format, ODecimal64 value, char* buffer,
                            size_t size) {
    const DecimalFields fields = orvDec64Fields(value);
    return formatFields(format, &fields, buffer, size);
}

size_t orvDec128FormatString(const DecimalFormat* format, ODecimal128 value, char* buffer,
                             size_t size) {
    const DecimalFields fields = orvDec128Fields(value);
    return formatFields(format, &fields, buffer, size);
}
