// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison of coefficients of up to 34 digits.
#ifndef ORV_LIBORV_DECIMAL_DETAIL_MAGNITUDE_H
#define ORV_LIBORV_DECIMAL_DETAIL_MAGNITUDE_H

#include "orv/liborv/decimal/detail/encoding.h"

#include <stdint.h>

/// An integer of 128 bits.
typedef struct Wide {
    uint64_t high;
    uint64_t low;
} Wide;

/// 10^34 - 1
static const Wide largestWide = {ORV_DEC128_MAX_HIGH, ORV_DEC128_MAX_LOW};

static inline Wide coefficientOf(const DecimalFields* x) {
    const Wide coefficient = {x->high, x->low};
    return coefficient;
}

/// -1, 0 or 1 as x is less than y, equal, or greater.
static inline int compareWide(Wide x, Wide y) {
    return x.high != y.high ? (x.high > y.high) - (x.high < y.high)
                            : (x.low > y.low) - (x.low < y.low);
}

/// x * factor, for an x of less than 10^34 and a factor of at most 10^4.
static inline Wide timesSmall(Wide x, uint64_t factor) {
    const uint64_t low = (x.low & UINT32_MAX) * factor;
    const uint64_t middle = (x.low >> 32) * factor + (low >> 32);
    const Wide product = {x.high * factor + (middle >> 32), middle << 32 | (low & UINT32_MAX)};
    return product;
}

/// x * 10^zeros for an x of less than 10^34; if that is not less, anything that is not.
static inline Wide withZeros(Wide x, int zeros) {
    static const Wide beyond = {ORV_DEC128_MAX_HIGH + 1, 0};
    if (zeros > 0 && x.high >= ORV_DEC128_MAX_HIGH / 10 + 1) {
        return beyond; // most long coefficients have all digits
    }
    if ((x.high | x.low) == 0) {
        return x;
    }
    for (; zeros >= 4 && compareWide(x, largestWide) <= 0; zeros -= 4) {
        x = timesSmall(x, 10000);
    }
    for (; zeros > 0 && compareWide(x, largestWide) <= 0; --zeros) {
        x = timesSmall(x, 10);
    }
    return x;
}

/// -1, 0 or 1 as one finite number is less in magnitude than the other, equal, or greater. Of two
/// exponents neither is foreseen to be the greater one, so there is no branch on that.
static inline int compareMagnitudes(const DecimalFields* x, const DecimalFields* y) {
    const int zeros = (int)x->exponent - (int)y->exponent;
    const int xIsUpper = zeros > 0;
    const Wide upper = {xIsUpper ? x->high : y->high, xIsUpper ? x->low : y->low};
    const Wide lower = {xIsUpper ? y->high : x->high, xIsUpper ? y->low : x->low};
    const int order = compareWide(withZeros(upper, xIsUpper ? zeros : -zeros), lower);
    return xIsUpper ? order : -order;
}

#endif
