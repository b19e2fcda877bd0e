// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point numbers as plain records: IEEE 754 formats of 32, 64 and 128 bits
/// in binary integer encoding.
///
/// From the top bit down a number holds its sign, its exponent plus a bias, and its coefficient as
/// a binary integer. Coefficients of 32 and 64 bits that need one bit more than fits are told by
/// two set bits behind the sign, which the exponent follows.
///
/// | record     | digits | exponent of the lowest digit | bias |
/// |------------|--------|------------------------------|------|
/// | ODecimal32 | 7      | -101 to 90                   | 101  |
/// | ODecimal64 | 16     | -398 to 369                  | 398  |
/// | ODecimal128| 34     | -6176 to 6111                | 6176 |

#ifndef ORV_LIBORV_DECIMAL_DECIMAL_H
#define ORV_LIBORV_DECIMAL_DECIMAL_H

#include "orv/liborv/platform.h"

#include <stdint.h>

ORV_EXTERN_C_BEGIN

/// A decimal number of 7 digits.
typedef struct ODecimal32 {
    uint32_t bits;
} ODecimal32;

/// A decimal number of 16 digits.
typedef struct ODecimal64 {
    uint64_t bits;
} ODecimal64;

/// A decimal number of 34 digits.
typedef struct ODecimal128 {
    uint64_t low;
    uint64_t high; ///< sign, exponent and the upper bits of the coefficient
} ODecimal128;

/// What a value is, as `orvDec64Class` (compare.h) and its kin tell it.
typedef enum OrvDecClass {
    ORV_DEC_SIGNALLING_NAN = 0,
    ORV_DEC_QUIET_NAN = 1,
    ORV_DEC_NEGATIVE_INFINITY = 2,
    ORV_DEC_NEGATIVE_NORMAL = 3,
    ORV_DEC_NEGATIVE_SUBNORMAL = 4,
    ORV_DEC_NEGATIVE_ZERO = 5,
    ORV_DEC_POSITIVE_ZERO = 6,
    ORV_DEC_POSITIVE_SUBNORMAL = 7,
    ORV_DEC_POSITIVE_NORMAL = 8,
    ORV_DEC_POSITIVE_INFINITY = 9
} OrvDecClass;

/// Where a result goes that lies between two numbers (IEEE 754-2008, 4.3).
typedef enum OrvDecRounding {
    ORV_DEC_HALF_EVEN = 0,   ///< the nearest, a tie to the even digit
    ORV_DEC_FLOOR = 1,       ///< downward
    ORV_DEC_CEILING = 2,     ///< upward
    ORV_DEC_TOWARD_ZERO = 3, ///< the digits behind are dropped
    ORV_DEC_HALF_AWAY = 4    ///< the nearest, a tie away from zero: commercial rounding
} OrvDecRounding;

ORV_EXTERN_C_END

#endif
