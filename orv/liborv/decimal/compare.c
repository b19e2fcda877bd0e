// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison of decimal floating-point numbers.
#include "orv/liborv/decimal/compare.h"

#include "orv/liborv/decimal/detail/encoding.h"
#include "orv/liborv/decimal/detail/magnitude.h"
#include "orv/liborv/decimal/detail/parts.h"

// Where one of the two at least is infinite or a NaN.
static int compareSpecial(DecimalFields x, DecimalFields y) {
    if (x.kind == DECIMAL_NAN || y.kind == DECIMAL_NAN) {
        return ORV_DEC_UNORDERED;
    }
    const int xSide = x.kind == DECIMAL_FINITE ? 0 : x.negative ? -1 : 1;
    const int ySide = y.kind == DECIMAL_FINITE ? 0 : y.negative ? -1 : 1;
    return (xSide > ySide) - (xSide < ySide);
}

static ORV_NO_INLINE int compareSpecial32(ODecimal32 x, ODecimal32 y) {
    return compareSpecial(orvDec32Fields(x), orvDec32Fields(y));
}

static ORV_NO_INLINE int compareSpecial64(ODecimal64 x, ODecimal64 y) {
    return compareSpecial(orvDec64Fields(x), orvDec64Fields(y));
}

// What 64 bits do not hold.
static ORV_NO_INLINE int compareLong128(ODecimal128 x, ODecimal128 y) {
    const DecimalFields xFields = orvDec128Fields(x);
    const DecimalFields yFields = orvDec128Fields(y);
    if (xFields.kind != DECIMAL_FINITE || yFields.kind != DECIMAL_FINITE) {
        return compareSpecial(xFields, yFields);
    }
    if (xFields.negative == yFields.negative) {
        const int order = compareMagnitudes(&xFields, &yFields);
        return xFields.negative ? -order : order;
    }
    if ((xFields.high | xFields.low | yFields.high | yFields.low) == 0) {
        return 0;
    }
    return xFields.negative ? -1 : 1;
}

static inline int compare32(ODecimal32 x, ODecimal32 y) {
    Parts xParts;
    Parts yParts;
    return split32(x, &xParts) && split32(y, &yParts) ? compareParts(xParts, yParts, &format32)
                                                      : compareSpecial32(x, y);
}

static inline int compare64(ODecimal64 x, ODecimal64 y) {
    Parts xParts;
    Parts yParts;
    return split64(x, &xParts) && split64(y, &yParts) ? compareParts(xParts, yParts, &format64)
                                                      : compareSpecial64(x, y);
}

static inline int compare128(ODecimal128 x, ODecimal128 y) {
    Parts xParts;
    Parts yParts;
    return split128(x, &xParts) && split128(y, &yParts) ? compareParts(xParts, yParts, &format128)
                                                        : compareLong128(x, y);
}

#define RELATIONS(width)                                                                           \
    int orvDec##width##Compare(ODecimal##width x, ODecimal##width y) {                             \
        return compare##width(x, y);                                                               \
    }                                                                                              \
    int orvDec##width##QuietEqual(ODecimal##width x, ODecimal##width y) {                          \
        return compare##width(x, y) == 0;                                                          \
    }                                                                                              \
    int orvDec##width##QuietNotEqual(ODecimal##width x, ODecimal##width y) {                       \
        return compare##width(x, y) != 0;                                                          \
    }                                                                                              \
    int orvDec##width##QuietLess(ODecimal##width x, ODecimal##width y) {                           \
        return compare##width(x, y) < 0;                                                           \
    }                                                                                              \
    int orvDec##width##QuietLessEqual(ODecimal##width x, ODecimal##width y) {                      \
        return compare##width(x, y) <= 0;                                                          \
    }

RELATIONS(32)
RELATIONS(64)
RELATIONS(128)
