// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Sign, exponent and coefficient of finite numbers, and arithmetic on them where
/// integers of 64 bits hold all of it.
///
/// Everyday numbers have few digits and near exponents. What they need is done here, with the
/// results of the general functions to the bit; a function that gives up returns 0, and the
/// caller asks the general one.
#ifndef ORV_LIBORV_DECIMAL_DETAIL_PARTS_H
#define ORV_LIBORV_DECIMAL_DETAIL_PARTS_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborv/decimal/detail/digits.h"

#include <stdint.h>

/// (-1)^negative * coefficient * 10^(field - bias)
typedef struct Parts {
    uint64_t coefficient;
    int field; ///< the exponent as encoded
    int negative;
} Parts;

/// A format, as far as arithmetic asks.
typedef struct Format {
    uint64_t largest; ///< coefficient, of those that 64 bits hold
    uint64_t full;    ///< a power of 2 that numbers of all digits hardly stay below
    int digits;       ///< that split numbers have at most
    int bias;
    int lastField;
} Format;

#define ORV_DEC32_SIGN UINT32_C(0x80000000)
#define ORV_DEC64_SIGN UINT64_C(0x8000000000000000)

/// Two bits that are both set in large coefficients, infinities and NaNs.
#define ORV_DEC32_STEERING UINT32_C(0x60000000)
#define ORV_DEC64_STEERING UINT64_C(0x6000000000000000)

/// Two more that are set in infinities and NaNs.
#define ORV_DEC32_SPECIAL UINT32_C(0x78000000)
#define ORV_DEC64_SPECIAL UINT64_C(0x7800000000000000)

static const Format format32 = {9999999, UINT64_C(1) << 20, 7, 101, 191};
static const Format format64 = {UINT64_C(9999999999999999), UINT64_C(1) << 50, 16, 398, 767};
static const Format format128 = {UINT64_MAX, UINT64_C(1) << 50, 18, 6176, 12287};

/// \name Splitting
/// 0 for an infinity, a NaN, and a coefficient of 128 bits that is 10^18 or more. A coefficient of
/// 32 or 64 bits above the largest counts as 0.
/// @{
static inline int split32(ODecimal32 x, Parts* parts) {
    parts->negative = (int)(x.bits >> 31);
    parts->field = (int)(x.bits >> 23 & 0xFFU);
    parts->coefficient = x.bits & 0x7FFFFFU;
    if ((x.bits & ORV_DEC32_STEERING) == ORV_DEC32_STEERING) {
        const uint32_t coefficient = (x.bits & 0x1FFFFFU) | 0x800000U;
        parts->field = (int)(x.bits >> 21 & 0xFFU);
        parts->coefficient = coefficient <= format32.largest ? coefficient : 0;
        return (x.bits & ORV_DEC32_SPECIAL) != ORV_DEC32_SPECIAL;
    }
    return 1;
}

static inline int split64(ODecimal64 x, Parts* parts) {
    parts->negative = (int)(x.bits >> 63);
    parts->field = (int)(x.bits >> 53 & 0x3FFU);
    parts->coefficient = x.bits & UINT64_C(0x1FFFFFFFFFFFFF);
    if ((x.bits & ORV_DEC64_STEERING) == ORV_DEC64_STEERING) {
        const uint64_t coefficient =
            (x.bits & UINT64_C(0x7FFFFFFFFFFFF)) | UINT64_C(0x20000000000000);
        parts->field = (int)(x.bits >> 51 & 0x3FFU);
        parts->coefficient = coefficient <= format64.largest ? coefficient : 0;
        return (x.bits & ORV_DEC64_SPECIAL) != ORV_DEC64_SPECIAL;
    }
    return 1;
}

static inline int split128(ODecimal128 x, Parts* parts) {
    parts->coefficient = x.low;
    parts->field = (int)(x.high >> 49 & 0x3FFFU);
    parts->negative = (int)(x.high >> 63);
    return (x.high & ORV_DEC64_STEERING) != ORV_DEC64_STEERING &&
           (x.high & UINT64_C(0x1FFFFFFFFFFFF)) == 0 && x.low < UINT64_C(1000000000000000000);
}
/// @}

/// \name Joining
/// @{
static inline ODecimal32 join32(Parts parts) {
    const uint32_t sign = (uint32_t)parts.negative << 31;
    const uint32_t field = (uint32_t)parts.field;
    const uint32_t coefficient = (uint32_t)parts.coefficient;
    ODecimal32 x = {sign | field << 23 | coefficient};
    if (coefficient >> 23 != 0) {
        x.bits = sign | ORV_DEC32_STEERING | field << 21 | (coefficient & 0x1FFFFFU);
    }
    return x;
}

static inline ODecimal64 join64(Parts parts) {
    const uint64_t sign = (uint64_t)parts.negative << 63;
    const uint64_t field = (uint64_t)parts.field;
    ODecimal64 x = {sign | field << 53 | parts.coefficient};
    if (parts.coefficient >> 53 != 0) {
        x.bits = sign | ORV_DEC64_STEERING | field << 51 |
                 (parts.coefficient & UINT64_C(0x7FFFFFFFFFFFF));
    }
    return x;
}

static inline ODecimal128 join128(Parts parts) {
    const ODecimal128 x = {parts.coefficient,
                           (uint64_t)parts.negative << 63 | (uint64_t)parts.field << 49};
    return x;
}
/// @}

/// Whether a result is rounded away from zero that lies between two numbers: \p twice the rest,
/// \p whole what one step is worth.
static inline int roundsAway(uint64_t twice, uint64_t whole, int isOdd, int negative, int mode) {
    switch (mode) {
    case ORV_DEC_HALF_EVEN:
        return twice > whole || (twice == whole && isOdd);
    case ORV_DEC_FLOOR:
        return negative && twice != 0;
    case ORV_DEC_CEILING:
        return !negative && twice != 0;
    case ORV_DEC_TOWARD_ZERO:
        return 0;
    default:
        return twice >= whole;
    }
}

/// Gives \p x the exponent \p field, which is below its own; 0 if it has more digits then than
/// the format.
static inline int lowerExponent(Parts* x, int field, const Format* format) {
    const int zeros = x->field - field;
    x->field = field;
    if (zeros > format->digits || x->coefficient >= orvPowersOfTen[format->digits - zeros]) {
        return x->coefficient == 0;
    }
    x->coefficient *= orvPowersOfTen[zeros];
    return 1;
}

/// Drops the last digit of a coefficient that has one too many, half to even.
static inline int dropDigit(Parts* x, const Format* format) {
    const uint64_t digit = x->coefficient % 10;
    x->coefficient /= 10;
    x->coefficient += (uint64_t)roundsAway(2 * digit, 10, (int)(x->coefficient & 1U), 0, 0);
    return ++x->field <= format->lastField;
}

static inline int addParts(Parts x, Parts y, const Format* format, Parts* sum) {
    if (x.field != y.field) {
        // One branch foreseen, where the two below are not.
        if ((x.coefficient | y.coefficient) >= format->full) {
            return 0;
        }
        if (!(x.field > y.field ? lowerExponent(&x, y.field, format)
                                : lowerExponent(&y, x.field, format))) {
            return 0;
        }
    }
    *sum = x;
    if (x.negative == y.negative) {
        sum->coefficient += y.coefficient;
        return sum->coefficient <= format->largest || dropDigit(sum, format);
    }
    if (x.coefficient > y.coefficient) {
        sum->coefficient -= y.coefficient;
        return 1;
    }
    sum->coefficient = y.coefficient - x.coefficient;
    sum->negative = y.negative && sum->coefficient != 0; // x + -x is 0
    return 1;
}

static inline int subtractParts(Parts x, Parts y, const Format* format, Parts* difference) {
    y.negative ^= 1;
    return addParts(x, y, format, difference);
}

static inline int multiplyParts(Parts x, Parts y, const Format* format, Parts* product) {
    if ((x.coefficient | y.coefficient) >> 32 != 0) {
        return 0;
    }
    product->coefficient = x.coefficient * y.coefficient;
    product->field = x.field + y.field - format->bias;
    product->negative = x.negative ^ y.negative;
    return product->coefficient <= format->largest && product->field >= 0 &&
           product->field <= format->lastField;
}

/// -1, 0 or 1 as x is less in magnitude than y, equal, or greater. Of two exponents neither is
/// foreseen to be the greater one, so there is no branch on that.
static inline int compareMagnitudesOfParts(Parts x, Parts y, const Format* format) {
    if (x.field == y.field) {
        return (x.coefficient > y.coefficient) - (x.coefficient < y.coefficient);
    }
    const int xIsUpper = x.field > y.field;
    const uint64_t upper = xIsUpper ? x.coefficient : y.coefficient;
    const uint64_t lower = xIsUpper ? y.coefficient : x.coefficient;
    const int distance = x.field - y.field;
    const int zeros = xIsUpper ? distance : -distance;
    const int most = zeros > format->digits ? format->digits : zeros;
    const int isLong = upper >= orvPowersOfTen[format->digits - most];
    const uint64_t lifted = upper * orvPowersOfTen[most];
    const int order = (isLong | (lifted > lower)) - (!isLong & (lifted < lower));
    return xIsUpper ? order : -order;
}

/// -1, 0 or 1 as x is less than y, equal, or greater.
static inline int compareParts(Parts x, Parts y, const Format* format) {
    if (x.negative != y.negative) {
        return (x.coefficient | y.coefficient) == 0 ? 0 : x.negative ? -1 : 1;
    }
    const int order = compareMagnitudesOfParts(x, y, format);
    return x.negative ? -order : order;
}

/// x with the exponent of y.
static inline int quantizeParts(Parts x, Parts y, const Format* format, int mode, Parts* result) {
    *result = x;
    if (x.field == y.field) {
        return 1;
    }
    if (x.field > y.field) {
        return lowerExponent(result, y.field, format);
    }
    // With one digit more than there are all are dropped, and less than a half.
    const int distance = y.field - x.field;
    const int dropped = distance > format->digits ? format->digits + 1 : distance;
    const uint64_t whole = orvPowersOfTen[dropped];
    const uint64_t quotient = x.coefficient / whole;
    const uint64_t rest = x.coefficient - quotient * whole;
    const int isOdd = (int)(quotient & 1U);
    result->field = y.field;
    result->coefficient = quotient + (uint64_t)roundsAway(2 * rest, whole, isOdd, x.negative, mode);
    return 1;
}

#endif
