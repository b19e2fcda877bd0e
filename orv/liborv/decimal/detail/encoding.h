// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers as sign, exponent and coefficient, and back.
///
/// Binary integer encoding (IEEE 754-2008, 3.5.2). Behind the sign stands the exponent, or two
/// set bits and then the exponent, which moves the coefficient's top bits out of the record:
/// they are binary 100. Four set bits behind the sign are an infinity, five a NaN.
#ifndef ORV_LIBORV_DECIMAL_DETAIL_ENCODING_H
#define ORV_LIBORV_DECIMAL_DETAIL_ENCODING_H

#include "orv/liborv/decimal/decimal.h"

#include <stdint.h>

#define ORV_DEC128_MAX_HIGH UINT64_C(0x0001ED09BEAD87C0) ///< of 10^34 - 1
#define ORV_DEC128_MAX_LOW UINT64_C(0x378D8E63FFFFFFFF)
#define ORV_DEC64_MAX UINT64_C(9999999999999999)
#define ORV_DEC32_MAX UINT32_C(9999999)

typedef enum DecimalKind { DECIMAL_NAN, DECIMAL_INFINITE, DECIMAL_FINITE } DecimalKind;

/// A number taken apart. A coefficient that the format has no digits for counts as 0.
typedef struct DecimalFields {
    uint64_t high; ///< upper half of the coefficient
    uint64_t low;
    int32_t exponent; ///< of the lowest digit
    uint8_t negative;
    uint8_t kind; ///< a DecimalKind; exponent and coefficient are those of finite ones only
} DecimalFields;

/// \param top the 5 bits behind the sign
static inline DecimalKind orvDecimalKind(uint64_t top) {
    return top < 0x1E ? DECIMAL_FINITE : top == 0x1E ? DECIMAL_INFINITE : DECIMAL_NAN;
}

static inline DecimalFields orvDec32Fields(ODecimal32 value) {
    const uint32_t bits = value.bits;
    const int large = (bits & UINT32_C(0x60000000)) == UINT32_C(0x60000000);
    const uint32_t coefficient = large ? (bits & 0x1FFFFF) | 0x800000 : bits & 0x7FFFFF;
    DecimalFields fields;
    fields.high = 0;
    fields.low = coefficient > ORV_DEC32_MAX ? 0 : coefficient;
    fields.exponent = (int32_t)(bits >> (large ? 21 : 23) & 0xFF) - 101;
    fields.negative = (uint8_t)(bits >> 31);
    fields.kind = (uint8_t)orvDecimalKind(bits >> 26 & 0x1F);
    return fields;
}

static inline DecimalFields orvDec64Fields(ODecimal64 value) {
    const uint64_t bits = value.bits;
    const int large = (bits & UINT64_C(0x6000000000000000)) == UINT64_C(0x6000000000000000);
    const uint64_t coefficient =
        large ? (bits & UINT64_C(0x7FFFFFFFFFFFF)) | UINT64_C(0x20000000000000)
              : bits & UINT64_C(0x1FFFFFFFFFFFFF);
    DecimalFields fields;
    fields.high = 0;
    fields.low = coefficient > ORV_DEC64_MAX ? 0 : coefficient;
    fields.exponent = (int32_t)(bits >> (large ? 51 : 53) & 0x3FF) - 398;
    fields.negative = (uint8_t)(bits >> 63);
    fields.kind = (uint8_t)orvDecimalKind(bits >> 58 & 0x1F);
    return fields;
}

static inline DecimalFields orvDec128Fields(ODecimal128 value) {
    const uint64_t top = value.high;
    // With the top bits moved out every coefficient is above the largest.
    const int large = (top & UINT64_C(0x6000000000000000)) == UINT64_C(0x6000000000000000);
    const uint64_t high = top & UINT64_C(0x1FFFFFFFFFFFF);
    const int canonical =
        !large && (high < ORV_DEC128_MAX_HIGH ||
                   (high == ORV_DEC128_MAX_HIGH && value.low <= ORV_DEC128_MAX_LOW));
    DecimalFields fields;
    fields.high = canonical ? high : 0;
    fields.low = canonical ? value.low : 0;
    fields.exponent = (int32_t)(top >> (large ? 47 : 49) & 0x3FFF) - 6176;
    fields.negative = (uint8_t)(top >> 63);
    fields.kind = (uint8_t)orvDecimalKind(top >> 58 & 0x1F);
    return fields;
}

/// \name From fields that are in the range of the format
/// The NaN is the canonical one.
/// @{
static inline ODecimal32 orvDec32Encode(const DecimalFields* fields) {
    const uint32_t sign = (uint32_t)fields->negative << 31;
    const uint32_t coefficient = (uint32_t)fields->low;
    const uint32_t exponent = (uint32_t)(fields->exponent + 101);
    ODecimal32 value;
    if (fields->kind != DECIMAL_FINITE) {
        value.bits = fields->kind == DECIMAL_NAN ? UINT32_C(0x7C000000) : sign | 0x78000000;
    } else if (coefficient <= 0x7FFFFF) {
        value.bits = sign | exponent << 23 | coefficient;
    } else {
        value.bits = sign | UINT32_C(0x60000000) | exponent << 21 | (coefficient & 0x1FFFFF);
    }
    return value;
}

static inline ODecimal64 orvDec64Encode(const DecimalFields* fields) {
    const uint64_t sign = (uint64_t)fields->negative << 63;
    const uint64_t coefficient = fields->low;
    const uint64_t exponent = (uint64_t)((int64_t)fields->exponent + 398);
    ODecimal64 value;
    if (fields->kind != DECIMAL_FINITE) {
        value.bits = fields->kind == DECIMAL_NAN ? UINT64_C(0x7C00000000000000)
                                                 : sign | UINT64_C(0x7800000000000000);
    } else if (coefficient <= UINT64_C(0x1FFFFFFFFFFFFF)) {
        value.bits = sign | exponent << 53 | coefficient;
    } else {
        value.bits = sign | UINT64_C(0x6000000000000000) | exponent << 51 |
                     (coefficient & UINT64_C(0x7FFFFFFFFFFFF));
    }
    return value;
}

static inline ODecimal128 orvDec128Encode(const DecimalFields* fields) {
    const uint64_t sign = (uint64_t)fields->negative << 63;
    ODecimal128 value;
    value.low = fields->kind == DECIMAL_FINITE ? fields->low : 0;
    if (fields->kind == DECIMAL_FINITE) {
        value.high = sign | (uint64_t)((int64_t)fields->exponent + 6176) << 49 | fields->high;
    } else {
        value.high = fields->kind == DECIMAL_NAN ? UINT64_C(0x7C00000000000000)
                                                 : sign | UINT64_C(0x7800000000000000);
    }
    return value;
}
/// @}

#endif
