// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers from text: the grammar, and which digits are kept.
#include "orv/liborv/decimal/parse.h"

#include "orv/liborv/decimal/detail/digits.h"
#include "orv/liborv/decimal/detail/encoding.h"
#include "orv/liborv/decimal/detail/parse_tail.h"

#include <assert.h>
#include <string.h>

// A written exponent above this is as good as any. No count of characters makes up for it.
#define HUGE_EXPONENT (INT64_MAX / 100)

// Where in the grammar: what was read last.
enum Place {
    PLACE_BEGIN = 0, // nothing but white space
    PLACE_SIGN,
    PLACE_SEPARATOR,
    PLACE_WHOLE,      // a digit before the point
    PLACE_FRACTION,   // a digit behind the point, or a point behind a digit
    PLACE_BARE_POINT, // a point with no digit before it
    PLACE_EXPONENT_MARK,
    PLACE_EXPONENT_SIGN,
    PLACE_EXPONENT,
    PLACE_STOPPED,
    PLACE_NAN_WORD = 0x10,      // and as many more as letters of "nan" were read
    PLACE_INFINITY_WORD = 0x20, // the same of "infinity"
};

// How far the digits are.
enum Stage {
    STAGE_ZEROS = 0, // only leading zeros so far, which are not kept
    STAGE_FIRST,     // the first half
    STAGE_SECOND,    // the second half
    STAGE_TAIL       // digits that are not kept
};

static int isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

static int isDigit(char c) {
    return c >= '0' && c <= '9';
}

static char toLower(char c) {
    return c >= 'A' && c <= 'Z' ? (char)(c - 'A' + 'a') : c;
}

// Can a number without punctuation hold the character?
static int isOfNumber(char c) {
    // A bit for each of "+-0123456789", then of "aefinty" and their capitals.
    static const uint64_t characters[4] = {UINT64_C(0x03FF280000000000),
                                           UINT64_C(0x0210426202104262), 0, 0};
    return (int)(characters[(unsigned char)c >> 6] >> ((unsigned char)c & 63) & 1);
}

int orvDecParseInit(DecimalParseState* state, int maxDigits, char point, char separator,
                    int options) {
    const int skipsSpace = (options & ORV_DEC_PARSE_SKIP_SPACE) != 0;
    if (state == 0 || (maxDigits != 7 && maxDigits != 16 && maxDigits != 34)) {
        return -1;
    }
    if (point == '\0' || point == separator || isOfNumber(point) || isOfNumber(separator) ||
        (skipsSpace && isSpace(point))) {
        return -1;
    }
    memset(state, 0, sizeof *state);
    state->maxDigits = (uint8_t)maxDigits;
    state->skipsSpace = (uint8_t)skipsSpace;
    state->point = point;
    state->separator = separator;
    return 0;
}

// Makes room for the first digit that is not 0.
static inline void beginDigits(DecimalParseState* state) {
    state->kind = DECIMAL_FINITE;
    state->stage = STAGE_FIRST;
    state->room = state->maxDigits < ORV_DEC_HALF_DIGITS ? state->maxDigits : ORV_DEC_HALF_DIGITS;
}

// Takes a digit of the number proper when the half at work has no room, or none is at work yet.
static void takeDigitWithoutRoom(DecimalParseState* state, unsigned digit, int ofFraction) {
    state->kind = DECIMAL_FINITE;
    if (state->stage == STAGE_ZEROS) {
        if (digit == 0) {
            state->scale -= ofFraction;
            return;
        }
        beginDigits(state);
    } else if (state->stage == STAGE_FIRST && state->maxDigits > ORV_DEC_HALF_DIGITS) {
        state->stage = STAGE_SECOND;
        state->high = state->low;
        state->low = 0;
        state->room = ORV_DEC_HALF_DIGITS;
    } else {
        state->tail = (uint8_t)(state->stage == STAGE_TAIL ? orvNextOfTail(state->tail, digit)
                                                           : orvFirstOfTail(digit));
        state->stage = STAGE_TAIL;
        state->scale += !ofFraction;
        return;
    }
    state->low = state->low * 10 + digit;
    state->scale -= ofFraction;
    --state->room;
}

// Takes a digit of the number proper.
static inline void takeDigit(DecimalParseState* state, unsigned digit, int ofFraction) {
    if (state->room == 0) {
        takeDigitWithoutRoom(state, digit, ofFraction);
        return;
    }
    state->low = state->low * 10 + digit;
    state->scale -= ofFraction;
    --state->room;
}

static int stop(DecimalParseState* state) {
    state->place = PLACE_STOPPED;
    return ORV_DEC_PARSE_STOP;
}

static int moveTo(DecimalParseState* state, unsigned place, int result) {
    state->place = (uint8_t)place;
    return result;
}

// Takes a digit, wherever it stands.
static int takeDigitAnywhere(DecimalParseState* state, unsigned digit) {
    switch (state->place) {
    case PLACE_BEGIN:
    case PLACE_SIGN:
    case PLACE_SEPARATOR:
    case PLACE_WHOLE:
        takeDigit(state, digit, 0);
        return moveTo(state, PLACE_WHOLE, ORV_DEC_PARSE_COMPLETE);
    case PLACE_FRACTION:
    case PLACE_BARE_POINT:
        takeDigit(state, digit, 1);
        return moveTo(state, PLACE_FRACTION, ORV_DEC_PARSE_COMPLETE);
    case PLACE_EXPONENT_MARK:
    case PLACE_EXPONENT_SIGN:
    case PLACE_EXPONENT:
        if (state->exponent < HUGE_EXPONENT) {
            state->exponent = state->exponent * 10 + (int64_t)digit;
        }
        return moveTo(state, PLACE_EXPONENT, ORV_DEC_PARSE_COMPLETE);
    default:
        return stop(state);
    }
}

// Takes the next letter of a word.
static int takeLetter(DecimalParseState* state, char c) {
    const int ofInfinity = state->place >= PLACE_INFINITY_WORD;
    const char* word = ofInfinity ? "infinity" : "nan";
    const unsigned index = state->place & 0xFU;
    if (word[index] == '\0' || toLower(c) != word[index]) {
        return stop(state);
    }
    ++state->place;
    const int ends = word[index + 1] == '\0' || (ofInfinity && index == 2);
    if (ends && ofInfinity) {
        state->kind = DECIMAL_INFINITE;
    }
    return ends ? ORV_DEC_PARSE_COMPLETE : 0;
}

// Takes what is not a digit at the begin or behind the sign.
static int takeFirst(DecimalParseState* state, char c) {
    if (c == state->point) {
        return moveTo(state, PLACE_BARE_POINT, 0);
    }
    switch (c) {
    case 'i':
    case 'I':
        return moveTo(state, PLACE_INFINITY_WORD + 1, 0);
    case 'n':
    case 'N':
        return moveTo(state, PLACE_NAN_WORD + 1, 0);
    default:
        break;
    }
    if (state->place == PLACE_SIGN) {
        return stop(state);
    }
    if (c == '+' || c == '-') {
        state->negative = c == '-';
        return moveTo(state, PLACE_SIGN, 0);
    }
    return state->skipsSpace && isSpace(c) ? 0 : stop(state);
}

// Takes what is not a digit.
static int takeOther(DecimalParseState* state, char c) {
    switch (state->place) {
    case PLACE_BEGIN:
    case PLACE_SIGN:
        return takeFirst(state, c);
    case PLACE_WHOLE:
        if (c == state->point) {
            return moveTo(state, PLACE_FRACTION, ORV_DEC_PARSE_COMPLETE);
        }
        if (c == state->separator && c != '\0') {
            return moveTo(state, PLACE_SEPARATOR, 0);
        }
        return c == 'e' || c == 'E' ? moveTo(state, PLACE_EXPONENT_MARK, 0) : stop(state);
    case PLACE_FRACTION:
        return c == 'e' || c == 'E' ? moveTo(state, PLACE_EXPONENT_MARK, 0) : stop(state);
    case PLACE_EXPONENT_MARK:
        if (c == '+' || c == '-') {
            state->negativeExponent = c == '-';
            return moveTo(state, PLACE_EXPONENT_SIGN, 0);
        }
        return stop(state);
    default:
        return state->place >= PLACE_NAN_WORD ? takeLetter(state, c) : stop(state);
    }
}

static int takeChar(DecimalParseState* state, char c) {
    const unsigned digit = (unsigned char)c - (unsigned)'0';
    return digit <= 9 ? takeDigitAnywhere(state, digit) : takeOther(state, c);
}

int orvDecParseNextChar(DecimalParseState* state, char c) {
    const unsigned digit = (unsigned char)c - (unsigned)'0';
    const unsigned ofFraction = (unsigned)state->place - PLACE_WHOLE;
    if (digit <= 9 && ofFraction <= PLACE_FRACTION - PLACE_WHOLE && state->room != 0) {
        // The most frequent case in a few instructions.
        state->low = state->low * 10 + digit;
        state->scale -= ofFraction;
        --state->room;
        return ORV_DEC_PARSE_COMPLETE;
    }
    return takeChar(state, c);
}

// The digits \p before with those of text[from, to) behind them.
static inline uint64_t appendRun(uint64_t before, const char* text, size_t from, size_t to) {
    for (; to - from >= 8; from += 8) {
        before = before * 100000000 + orvDigitValue(orvLoadEight(text + from), 8);
    }
    if (to == from) {
        return before;
    }
    if (to >= 8) {
        // What stands in front may be read with them.
        const size_t count = to - from;
        return before * orvPowersOfTen[count] +
               orvDigitValue(orvLoadEight(text + to - 8), (unsigned)count);
    }
    for (; from < to; ++from) {
        before = before * 10 + (unsigned)(text[from] - '0');
    }
    return before;
}

// Takes the digits text[from, to) of the number proper.
static inline void takeDigits(DecimalParseState* state, const char* text, size_t from, size_t to,
                              int ofFraction) {
    if (state->stage == STAGE_ZEROS && text[from] != '0') {
        beginDigits(state);
    }
    while (from < to) {
        if (state->room == 0) {
            takeDigitWithoutRoom(state, (unsigned)(text[from] - '0'), ofFraction);
            ++from;
            continue;
        }
        const size_t count = to - from < state->room ? to - from : state->room;
        state->low = appendRun(state->low, text, from, from + count);
        state->room = (uint8_t)(state->room - count);
        state->scale -= ofFraction ? (int64_t)count : 0;
        from += count;
    }
}

// The end of the run of digits that begins at \p at.
static inline size_t endOfDigits(const char* text, size_t at, size_t size) {
    if (size != SIZE_MAX) {
        while (size - at >= 8 && orvAreEightDigits(orvLoadEight(text + at))) {
            at += 8;
        }
    }
    while (at < size && isDigit(text[at])) {
        ++at;
    }
    return at;
}

size_t orvDecParseText(DecimalParseState* state, const char* text, size_t size, size_t* complete) {
    assert(text != 0 || size == 0);
    size_t at = 0;
    size_t end = 0;
    while (at < size) {
        if (state->place <= PLACE_BARE_POINT && isDigit(text[at])) {
            const int ofFraction = state->place >= PLACE_FRACTION;
            const size_t begin = at;
            at = end = endOfDigits(text, begin + 1, size);
            state->place = ofFraction ? PLACE_FRACTION : PLACE_WHOLE;
            takeDigits(state, text, begin, at, ofFraction);
            continue;
        }
        const int result = takeChar(state, text[at]);
        if ((result & ORV_DEC_PARSE_STOP) != 0) {
            break;
        }
        ++at;
        if ((result & ORV_DEC_PARSE_COMPLETE) != 0) {
            end = at;
        }
    }
    if (complete != 0) {
        *complete = end;
    }
    return at;
}
