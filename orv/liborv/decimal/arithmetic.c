// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Arithmetic of decimal floating-point numbers.
#include "orv/liborv/decimal/arithmetic.h"

#include "orv/liborv/decimal/compare.h"
#include "orv/liborv/decimal/detail/bid.h"
#include "orv/liborv/decimal/detail/parts.h"

// One function of Intel's library each, under the type that its width names.

#define ROUNDED_1(width, name, bidName)                                                            \
    ODecimal##width name(ODecimal##width x) {                                                      \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##width(bidName(toBid##width(x), ORV_DEC_HALF_EVEN, &flags));                \
    }

#define ROUNDED_2(width, name, bidName)                                                            \
    ODecimal##width name(ODecimal##width x, ODecimal##width y) {                                   \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##width(                                                                     \
            bidName(toBid##width(x), toBid##width(y), ORV_DEC_HALF_EVEN, &flags));                 \
    }

#define LONG_2(width, name, bidName) static ORV_NO_INLINE ROUNDED_2(width, name, bidName)

// Arithmetic with integers for short operands; name##Long, which is Intel's, for the others.
#define SHORT_2(width, name, shortName)                                                            \
    ODecimal##width name(ODecimal##width x, ODecimal##width y) {                                   \
        Parts xParts;                                                                              \
        Parts yParts;                                                                              \
        Parts result;                                                                              \
        if (split##width(x, &xParts) && split##width(y, &yParts) &&                                \
            shortName(xParts, yParts, &format##width, &result)) {                                  \
            return join##width(result);                                                            \
        }                                                                                          \
        return name##Long(x, y);                                                                   \
    }

#define SCALED(width, storage, name, bidName)                                                      \
    storage ODecimal##width name(ODecimal##width x, int n) {                                       \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##width(bidName(toBid##width(x), n, ORV_DEC_HALF_EVEN, &flags));             \
    }

#define IN_MODE_1(width, name, bidName)                                                            \
    ODecimal##width name(ODecimal##width x, int mode) {                                            \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##width(bidName(toBid##width(x), (_IDEC_round)mode, &flags));                \
    }

#define IN_MODE_2(width, name, bidName)                                                            \
    ODecimal##width name(ODecimal##width x, ODecimal##width y, int mode) {                         \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##width(                                                                     \
            bidName(toBid##width(x), toBid##width(y), (_IDEC_round)mode, &flags));                 \
    }

#define LONG_IN_MODE_2(width, name, bidName) static ORV_NO_INLINE IN_MODE_2(width, name, bidName)

#define SHORT_IN_MODE_2(width, name, shortName)                                                    \
    ODecimal##width name(ODecimal##width x, ODecimal##width y, int mode) {                         \
        Parts xParts;                                                                              \
        Parts yParts;                                                                              \
        Parts result;                                                                              \
        if (split##width(x, &xParts) && split##width(y, &yParts) &&                                \
            shortName(xParts, yParts, &format##width, mode, &result)) {                            \
            return join##width(result);                                                            \
        }                                                                                          \
        return name##Long(x, y, mode);                                                             \
    }

#define EXACT_1(width, name, bidName)                                                              \
    ODecimal##width name(ODecimal##width x) {                                                      \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##width(bidName(toBid##width(x), &flags));                                   \
    }

#define EXACT_2(width, name, bidName)                                                              \
    ODecimal##width name(ODecimal##width x, ODecimal##width y) {                                   \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##width(bidName(toBid##width(x), toBid##width(y), &flags));                  \
    }

#define LOG_B(width, name, bidName)                                                                \
    int name(ODecimal##width x) {                                                                  \
        _IDEC_flags flags = 0;                                                                     \
        return bidName(toBid##width(x), &flags);                                                   \
    }

LONG_2(32, orvDec32AddLong, bid32_add)
LONG_2(64, orvDec64AddLong, bid64_add)
LONG_2(128, orvDec128AddLong, bid128_add)
LONG_2(32, orvDec32SubtractLong, bid32_sub)
LONG_2(64, orvDec64SubtractLong, bid64_sub)
LONG_2(128, orvDec128SubtractLong, bid128_sub)
LONG_2(32, orvDec32MultiplyLong, bid32_mul)
LONG_2(64, orvDec64MultiplyLong, bid64_mul)
LONG_2(128, orvDec128MultiplyLong, bid128_mul)
LONG_IN_MODE_2(32, orvDec32QuantizeLong, bid32_quantize)
LONG_IN_MODE_2(64, orvDec64QuantizeLong, bid64_quantize)
LONG_IN_MODE_2(128, orvDec128QuantizeLong, bid128_quantize)

SHORT_2(32, orvDec32Add, addParts)
SHORT_2(64, orvDec64Add, addParts)
SHORT_2(128, orvDec128Add, addParts)
SHORT_2(32, orvDec32Subtract, subtractParts)
SHORT_2(64, orvDec64Subtract, subtractParts)
SHORT_2(128, orvDec128Subtract, subtractParts)
SHORT_2(32, orvDec32Multiply, multiplyParts)
SHORT_2(64, orvDec64Multiply, multiplyParts)
SHORT_2(128, orvDec128Multiply, multiplyParts)
ROUNDED_2(32, orvDec32Divide, bid32_div)
ROUNDED_2(64, orvDec64Divide, bid64_div)
ROUNDED_2(128, orvDec128Divide, bid128_div)
ROUNDED_1(32, orvDec32SquareRoot, bid32_sqrt)
ROUNDED_1(64, orvDec64SquareRoot, bid64_sqrt)
ROUNDED_1(128, orvDec128SquareRoot, bid128_sqrt)
EXACT_2(32, orvDec32Remainder, bid32_rem)
EXACT_2(64, orvDec64Remainder, bid64_rem)
EXACT_2(128, orvDec128Remainder, bid128_rem)
SHORT_IN_MODE_2(32, orvDec32Quantize, quantizeParts)
SHORT_IN_MODE_2(64, orvDec64Quantize, quantizeParts)
SHORT_IN_MODE_2(128, orvDec128Quantize, quantizeParts)
SCALED(32, , orvDec32ScaleB, bid32_scalbn)
SCALED(64, , orvDec64ScaleB, bid64_scalbn)
SCALED(128, static, scaleB128, bid128_scalbn)
LOG_B(32, orvDec32LogB, bid32_ilogb)
LOG_B(64, orvDec64LogB, bid64_ilogb)
LOG_B(128, orvDec128LogB, bid128_ilogb)
IN_MODE_1(32, orvDec32RoundExact, bid32_round_integral_exact)
IN_MODE_1(64, orvDec64RoundExact, bid64_round_integral_exact)
IN_MODE_1(128, orvDec128RoundExact, bid128_round_integral_exact)
EXACT_1(32, orvDec32RoundHalfUp, bid32_round_integral_nearest_away)
EXACT_1(64, orvDec64RoundHalfUp, bid64_round_integral_nearest_away)
EXACT_1(128, orvDec128RoundHalfUp, bid128_round_integral_nearest_away)
EXACT_2(32, orvDec32Min, bid32_minnum)
EXACT_2(64, orvDec64Min, bid64_minnum)
EXACT_2(128, orvDec128Min, bid128_minnum)
EXACT_2(32, orvDec32Max, bid32_maxnum)
EXACT_2(64, orvDec64Max, bid64_maxnum)
EXACT_2(128, orvDec128Max, bid128_maxnum)
EXACT_1(32, orvDec32NextUp, bid32_nextup)
EXACT_1(64, orvDec64NextUp, bid64_nextup)
EXACT_1(128, orvDec128NextUp, bid128_nextup)
EXACT_1(32, orvDec32NextDown, bid32_nextdown)
EXACT_1(64, orvDec64NextDown, bid64_nextdown)
EXACT_1(128, orvDec128NextDown, bid128_nextdown)

// Intel's function takes a coefficient for full that zeros have brought near 10^33, and gives
// infinity for some numbers that fit. A product finds room for all zeros.
static ORV_NO_INLINE ODecimal128 appendZeros(ODecimal128 x, int n, ODecimal128 infinity) {
    enum { DIGITS = 34 };
    if (orvDec128IsInfinite(x)) {
        return infinity;
    }
    const int raise = format128.lastField - (int)(x.high >> 49 & 0x3FFFU);
    const int zeros = n - raise;
    if (zeros <= 0 || zeros >= DIGITS) {
        return infinity;
    }
    x.high += (uint64_t)raise << 49;
    const ODecimal128 power = {1, (uint64_t)(format128.bias + zeros) << 49};
    return orvDec128Multiply(x, power);
}

ODecimal128 orvDec128ScaleB(ODecimal128 x, int n) {
    const ODecimal128 scaled = scaleB128(x, n);
    return orvDec128IsInfinite(scaled) ? appendZeros(x, n, scaled) : scaled;
}

ODecimal32 orvDec32Abs(ODecimal32 x) {
    x.bits &= ~ORV_DEC32_SIGN;
    return x;
}

ODecimal32 orvDec32Negate(ODecimal32 x) {
    x.bits ^= ORV_DEC32_SIGN;
    return x;
}

ODecimal32 orvDec32CopySign(ODecimal32 magnitude, ODecimal32 sign) {
    magnitude.bits = (magnitude.bits & ~ORV_DEC32_SIGN) | (sign.bits & ORV_DEC32_SIGN);
    return magnitude;
}

ODecimal64 orvDec64Abs(ODecimal64 x) {
    x.bits &= ~ORV_DEC64_SIGN;
    return x;
}

ODecimal64 orvDec64Negate(ODecimal64 x) {
    x.bits ^= ORV_DEC64_SIGN;
    return x;
}

ODecimal64 orvDec64CopySign(ODecimal64 magnitude, ODecimal64 sign) {
    magnitude.bits = (magnitude.bits & ~ORV_DEC64_SIGN) | (sign.bits & ORV_DEC64_SIGN);
    return magnitude;
}

ODecimal128 orvDec128Abs(ODecimal128 x) {
    x.high &= ~ORV_DEC64_SIGN;
    return x;
}

ODecimal128 orvDec128Negate(ODecimal128 x) {
    x.high ^= ORV_DEC64_SIGN;
    return x;
}

ODecimal128 orvDec128CopySign(ODecimal128 magnitude, ODecimal128 sign) {
    magnitude.high = (magnitude.high & ~ORV_DEC64_SIGN) | (sign.high & ORV_DEC64_SIGN);
    return magnitude;
}
