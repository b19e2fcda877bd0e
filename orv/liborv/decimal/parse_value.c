// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers from text: the value of what was read, rounded once.
#include "orv/liborv/decimal/parse.h"

#include "orv/liborv/decimal/detail/digits.h"
#include "orv/liborv/decimal/detail/encoding.h"
#include "orv/liborv/decimal/detail/parse_tail.h"

// A format as the value functions see it.
typedef struct Format {
    int32_t digits;
    int32_t minExponent;
    int32_t maxExponent;
} Format;

// Appends a digit to the coefficient.
static void appendDigit(DecimalFields* fields, unsigned digit) {
    const uint64_t carry = orvMultiplyHigh(fields->low, 10);
    fields->low *= 10;
    fields->high = fields->high * 10 + carry + (fields->low + digit < digit);
    fields->low += digit;
}

// Drops the last digits of the coefficient, of which there are \p count, and says what they and the
// tail come to.
static unsigned dropDigits(DecimalFields* fields, int32_t drop, int32_t count, unsigned tail) {
    char digits[ORV_DEC_DIGIT_SPACE];
    orvDecimalDigits(digits, fields->high, fields->low);
    fields->high = 0;
    fields->low = 0;
    for (int32_t i = 0; i < count - drop; ++i) {
        appendDigit(fields, (unsigned)(digits[i] - '0'));
    }
    int32_t at = count - drop;
    unsigned dropped = at < 0 ? TAIL_NONE : orvFirstOfTail((unsigned)(digits[at++] - '0'));
    for (int32_t i = at < 0 ? 0 : at; i < count; ++i) {
        dropped = orvNextOfTail(dropped, (unsigned)(digits[i] - '0'));
    }
    return orvNextOfTail(dropped, tail != TAIL_NONE);
}

static void setPowerOfTen(DecimalFields* fields, int32_t exponent) {
    fields->high = 0;
    fields->low = 1;
    for (; exponent > 0; --exponent) {
        appendDigit(fields, 0);
    }
}

static void addOne(DecimalFields* fields) {
    ++fields->low;
    fields->high += fields->low == 0;
}

static int32_t countDigits(const DecimalFields* fields) {
    uint64_t rest;
    const uint64_t first = orvHighSeventeen(fields->high, fields->low, &rest);
    return first != 0 ? ORV_DEC_HALF_DIGITS + orvDigitCount(first) : orvDigitCount(rest);
}

// Rounds the coefficient to so many digits and an exponent that is not below that of the format.
// Returns the exponent then.
static int64_t roundOnce(DecimalFields* fields, int64_t exponent, unsigned tail, int32_t digits,
                         int32_t minExponent) {
    const int32_t count = countDigits(fields);
    int64_t drop = count > digits ? count - digits : 0;
    if (exponent + drop < minExponent) {
        drop = minExponent - exponent;
    }
    if (drop > 0) {
        const int32_t few = drop > ORV_DEC_MAX_DIGITS ? ORV_DEC_MAX_DIGITS + 1 : (int32_t)drop;
        tail = dropDigits(fields, few, count, tail);
        exponent += drop;
    }
    if (tail == TAIL_ABOVE_HALF || (tail == TAIL_HALF && (fields->low & 1) != 0)) {
        addOne(fields);
        if (countDigits(fields) > digits) { // 10^digits
            setPowerOfTen(fields, digits - 1);
            ++exponent;
        }
    }
    return exponent;
}

// Moves a coefficient and its exponent into the format: rounds, appends zeros, overflows.
static void fitFormat(DecimalFields* fields, int64_t exponent, const DecimalParseState* state,
                      const Format* format) {
    const int32_t digits = state->maxDigits < format->digits ? state->maxDigits : format->digits;
    if ((fields->high | fields->low) != 0) {
        exponent = roundOnce(fields, exponent, state->tail, digits, format->minExponent);
    }
    if ((fields->high | fields->low) == 0) {
        exponent = exponent < format->minExponent   ? format->minExponent
                   : exponent > format->maxExponent ? format->maxExponent
                                                    : exponent;
    } else if (exponent > format->maxExponent) {
        const int32_t space = format->digits - countDigits(fields);
        if (exponent - format->maxExponent > space) {
            fields->kind = DECIMAL_INFINITE;
            return;
        }
        for (; exponent > format->maxExponent; --exponent) {
            appendDigit(fields, 0);
        }
    }
    fields->exponent = (int32_t)exponent;
}

static inline void getFields(const DecimalParseState* state, const Format* format,
                             DecimalFields* fields) {
    fields->negative = state->negative;
    fields->kind = state->kind;
    fields->high = 0;
    fields->low = state->low;
    fields->exponent = 0;
    if (state->kind != DECIMAL_FINITE) {
        return;
    }
    if (state->high != 0) {
        const uint64_t power = orvPowersOfTen[ORV_DEC_HALF_DIGITS - state->room];
        fields->low += state->high * power;
        fields->high = orvMultiplyHigh(state->high, power) + (fields->low < state->low);
    }
    const int64_t exponent =
        state->scale + (state->negativeExponent ? -state->exponent : state->exponent);
    if (state->tail == TAIL_NONE && state->maxDigits <= format->digits &&
        exponent >= format->minExponent && exponent <= format->maxExponent) {
        fields->exponent = (int32_t)exponent;
    } else {
        fitFormat(fields, exponent, state, format);
    }
}

ODecimal32 orvDec32ParseGetValue(const DecimalParseState* state) {
    static const Format format = {7, -101, 90};
    DecimalFields fields;
    getFields(state, &format, &fields);
    return orvDec32Encode(&fields);
}

ODecimal64 orvDec64ParseGetValue(const DecimalParseState* state) {
    static const Format format = {16, -398, 369};
    DecimalFields fields;
    getFields(state, &format, &fields);
    return orvDec64Encode(&fields);
}

ODecimal128 orvDec128ParseGetValue(const DecimalParseState* state) {
    static const Format format = {34, -6176, 6111};
    DecimalFields fields;
    getFields(state, &format, &fields);
    return orvDec128Encode(&fields);
}
