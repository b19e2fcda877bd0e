// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Classification and total order of decimal floating-point numbers.
#include "orv/liborv/decimal/compare.h"
#include "orv/liborv/decimal/detail/encoding.h"
#include "orv/liborv/decimal/detail/magnitude.h"

// What any encoding says, NaNs and coefficients that do not fit included.
typedef struct Shape {
    DecimalFields fields; // of a NaN with the payload as coefficient
    int isSignalling;
    int isCanonical;
} Shape;

// Payloads have one digit less than coefficients.
static const Wide largestPayload32 = {0, 999999};
static const Wide largestPayload64 = {0, UINT64_C(999999999999999)};
static const Wide largestPayload128 = {UINT64_C(0x314DC6448D93), UINT64_C(0x38C15B09FFFFFFFF)};

// 0 is for a payload that is too large.
static void setPayload(Shape* shape, Wide payload, Wide largest) {
    const int fits = compareWide(payload, largest) <= 0;
    shape->fields.high = fits ? payload.high : 0;
    shape->fields.low = fits ? payload.low : 0;
    shape->isCanonical = shape->isCanonical && fits;
}

static Shape shape32(ODecimal32 x) {
    Shape shape = {orvDec32Fields(x), 0, 0};
    if (shape.fields.kind == DECIMAL_FINITE) {
        shape.isCanonical = orvDec32Encode(&shape.fields).bits == x.bits;
    } else if (shape.fields.kind == DECIMAL_INFINITE) {
        shape.isCanonical = (x.bits & UINT32_C(0x3FFFFFF)) == 0;
    } else {
        const Wide payload = {0, x.bits & UINT32_C(0xFFFFF)};
        shape.isSignalling = (x.bits >> 25 & 1) != 0;
        shape.isCanonical = (x.bits & UINT32_C(0x1F00000)) == 0;
        setPayload(&shape, payload, largestPayload32);
    }
    return shape;
}

static Shape shape64(ODecimal64 x) {
    Shape shape = {orvDec64Fields(x), 0, 0};
    if (shape.fields.kind == DECIMAL_FINITE) {
        shape.isCanonical = orvDec64Encode(&shape.fields).bits == x.bits;
    } else if (shape.fields.kind == DECIMAL_INFINITE) {
        shape.isCanonical = (x.bits & UINT64_C(0x3FFFFFFFFFFFFFF)) == 0;
    } else {
        const Wide payload = {0, x.bits & UINT64_C(0x3FFFFFFFFFFFF)};
        shape.isSignalling = (x.bits >> 57 & 1) != 0;
        shape.isCanonical = (x.bits & UINT64_C(0x1FC000000000000)) == 0;
        setPayload(&shape, payload, largestPayload64);
    }
    return shape;
}

static Shape shape128(ODecimal128 x) {
    Shape shape = {orvDec128Fields(x), 0, 0};
    if (shape.fields.kind == DECIMAL_FINITE) {
        const ODecimal128 canonical = orvDec128Encode(&shape.fields);
        shape.isCanonical = canonical.high == x.high && canonical.low == x.low;
    } else if (shape.fields.kind == DECIMAL_INFINITE) {
        shape.isCanonical = ((x.high & UINT64_C(0x3FFFFFFFFFFFFFF)) | x.low) == 0;
    } else {
        const Wide payload = {x.high & UINT64_C(0x3FFFFFFFFFFF), x.low};
        shape.isSignalling = (x.high >> 57 & 1) != 0;
        shape.isCanonical = (x.high & UINT64_C(0x1FFC00000000000)) == 0;
        setPayload(&shape, payload, largestPayload128);
    }
    return shape;
}

static int isZero(DecimalFields x) {
    return x.kind == DECIMAL_FINITE && (x.high | x.low) == 0;
}

// A finite number of the least exponent is normal if it has all digits, hence one more than the
// largest payload; others by what they are with that exponent. \p bias is the exponent's.
static int isNormal(DecimalFields x, int bias, Wide largestPayload) {
    return x.kind == DECIMAL_FINITE &&
           compareWide(withZeros(coefficientOf(&x), x.exponent + bias), largestPayload) > 0;
}

static int classOf(Shape x, int bias, Wide largestPayload) {
    const int negative = x.fields.negative;
    if (x.fields.kind == DECIMAL_NAN) {
        return x.isSignalling ? ORV_DEC_SIGNALLING_NAN : ORV_DEC_QUIET_NAN;
    }
    if (x.fields.kind == DECIMAL_INFINITE) {
        return negative ? ORV_DEC_NEGATIVE_INFINITY : ORV_DEC_POSITIVE_INFINITY;
    }
    if (isZero(x.fields)) {
        return negative ? ORV_DEC_NEGATIVE_ZERO : ORV_DEC_POSITIVE_ZERO;
    }
    if (isNormal(x.fields, bias, largestPayload)) {
        return negative ? ORV_DEC_NEGATIVE_NORMAL : ORV_DEC_POSITIVE_NORMAL;
    }
    return negative ? ORV_DEC_NEGATIVE_SUBNORMAL : ORV_DEC_POSITIVE_SUBNORMAL;
}

static int sameQuantum(DecimalFields x, DecimalFields y) {
    return x.kind == y.kind && (x.kind != DECIMAL_FINITE || x.exponent == y.exponent);
}

// From the middle outwards.
static int placeInOrder(const Shape* x) {
    return x->fields.kind == DECIMAL_FINITE     ? 0
           : x->fields.kind == DECIMAL_INFINITE ? 1
           : x->isSignalling                    ? 2
                                                : 3;
}

// -1, 0 or 1 as x is nearer to the middle of the total order than y, is y, or is farther.
static int compareDistances(const Shape* x, const Shape* y) {
    const int distance = placeInOrder(x) - placeInOrder(y);
    if (distance != 0 || x->fields.kind == DECIMAL_INFINITE) {
        return distance;
    }
    if (x->fields.kind == DECIMAL_NAN) {
        return compareWide(coefficientOf(&x->fields), coefficientOf(&y->fields));
    }
    const int order = compareMagnitudes(&x->fields, &y->fields);
    return order != 0 ? order : x->fields.exponent - y->fields.exponent;
}

static int totalOrder(Shape x, Shape y) {
    if (x.fields.negative != y.fields.negative) {
        return x.fields.negative;
    }
    return x.fields.negative ? compareDistances(&x, &y) >= 0 : compareDistances(&x, &y) <= 0;
}

#define CLASSIFY(width, bias, top)                                                                 \
    int orvDec##width##SameQuantum(ODecimal##width x, ODecimal##width y) {                         \
        return sameQuantum(orvDec##width##Fields(x), orvDec##width##Fields(y));                    \
    }                                                                                              \
    int orvDec##width##TotalOrder(ODecimal##width x, ODecimal##width y) {                          \
        return totalOrder(shape##width(x), shape##width(y));                                       \
    }                                                                                              \
    int orvDec##width##Class(ODecimal##width x) {                                                  \
        return classOf(shape##width(x), bias, largestPayload##width);                              \
    }                                                                                              \
    int orvDec##width##IsNormal(ODecimal##width x) {                                               \
        return isNormal(orvDec##width##Fields(x), bias, largestPayload##width);                    \
    }                                                                                              \
    int orvDec##width##IsZero(ODecimal##width x) {                                                 \
        return isZero(orvDec##width##Fields(x));                                                   \
    }                                                                                              \
    int orvDec##width##IsCanonical(ODecimal##width x) {                                            \
        return shape##width(x).isCanonical;                                                        \
    }                                                                                              \
    int orvDec##width##IsInfinite(ODecimal##width x) {                                             \
        return ((top)&0x7C) == 0x78;                                                               \
    }                                                                                              \
    int orvDec##width##IsNaN(ODecimal##width x) {                                                  \
        return ((top)&0x7C) == 0x7C;                                                               \
    }                                                                                              \
    int orvDec##width##IsSignalling(ODecimal##width x) {                                           \
        return ((top)&0x7E) == 0x7E;                                                               \
    }                                                                                              \
    int orvDec##width##IsFinite(ODecimal##width x) {                                               \
        return ((top)&0x78) != 0x78;                                                               \
    }                                                                                              \
    int orvDec##width##IsSigned(ODecimal##width x) {                                               \
        return ((top)&0x80) != 0;                                                                  \
    }

// The first 8 bits have the sign, what tells infinities and NaNs, and the signalling bit.
CLASSIFY(32, 101, x.bits >> 24)
CLASSIFY(64, 398, x.bits >> 56)
CLASSIFY(128, 6176, x.high >> 56)
