// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief x * y + z of decimal floating-point numbers, rounded once.
///
/// Intel's functions of 64 and 128 bits round twice where the sum is below the normal numbers: once
/// to all digits that the format has, and again to those that are left at the least exponent. The
/// result may then be one off in the last digit, or a zero of the wrong sign. It shows in sums
/// that have the exponent field 0 alone. Those are taken again: 10 to some power times the
/// operands, so that the sum is normal and its digits behind the last are dropped; whether any
/// was is kept in its last digit; and then it is brought down, which rounds it once.
#include "orv/liborv/decimal/arithmetic.h"
#include "orv/liborv/decimal/detail/bid.h"
#include "orv/liborv/decimal/detail/encoding.h"

// More than enough digits between the least exponent and the sum's.
#define DIGITS_ABOVE 34

static int isZero(DecimalFields x) {
    return (x.high | x.low) == 0;
}

// How far to lift the operands of a finite sum, as a power of ten; 0 if it was rounded once. With
// exponents of x and y that add up to the least one or more, all digits of x * y count.
static int liftFor(DecimalFields x, DecimalFields y, int least) {
    const int below = least - x.exponent - y.exponent;
    return below <= 0 || isZero(x) || isZero(y) ? 0 : below + DIGITS_ABOVE;
}

// One more in the last digit if that is 0 or 5: no tie then, and not exact.
static BID_UINT64 withRest64(BID_UINT64 x) {
    const DecimalFields fields = orvDec64Fields(fromBid64(x));
    return x + (fields.low % 5 == 0);
}

static BID_UINT128 withRest128(BID_UINT128 x) {
    const DecimalFields fields = orvDec128Fields(fromBid128(x));
    // 2^64 is 1 modulo 5.
    x.w[0] += (fields.low % 5 + fields.high % 5) % 5 == 0;
    x.w[1] += x.w[0] == 0;
    return x;
}

static ORV_NO_INLINE ODecimal64 lowSum64(ODecimal64 x, ODecimal64 y, ODecimal64 z, ODecimal64 sum) {
    const DecimalFields xFields = orvDec64Fields(x);
    const DecimalFields yFields = orvDec64Fields(y);
    const int lift = liftFor(xFields, yFields, -398);
    if (lift == 0) {
        return sum;
    }
    // The lesser exponent has the room.
    const int xIsLower = xFields.exponent < yFields.exponent;
    _IDEC_flags flags = 0;
    const BID_UINT64 lower =
        bid64_scalbn(toBid64(xIsLower ? x : y), lift, ORV_DEC_HALF_EVEN, &flags);
    const BID_UINT64 addend = bid64_scalbn(toBid64(z), lift, ORV_DEC_HALF_EVEN, &flags);
    flags = 0;
    BID_UINT64 high =
        bid64_fma(lower, toBid64(xIsLower ? y : x), addend, ORV_DEC_TOWARD_ZERO, &flags);
    const DecimalFields highFields = orvDec64Fields(fromBid64(high));
    if (isZero(highFields)) {
        return sum;
    }
    if ((flags & BID_INEXACT_EXCEPTION) != 0) {
        if (highFields.exponent >= lift - 398) {
            return sum; // still normal when it is down
        }
        high = withRest64(high);
    }
    return fromBid64(bid64_scalbn(high, -lift, ORV_DEC_HALF_EVEN, &flags));
}

static ORV_NO_INLINE ODecimal128 lowSum128(ODecimal128 x, ODecimal128 y, ODecimal128 z,
                                           ODecimal128 sum) {
    const DecimalFields xFields = orvDec128Fields(x);
    const DecimalFields yFields = orvDec128Fields(y);
    const int lift = liftFor(xFields, yFields, -6176);
    if (lift == 0) {
        return sum;
    }
    const int xIsLower = xFields.exponent < yFields.exponent;
    _IDEC_flags flags = 0;
    const BID_UINT128 lower =
        bid128_scalbn(toBid128(xIsLower ? x : y), lift, ORV_DEC_HALF_EVEN, &flags);
    const BID_UINT128 addend = bid128_scalbn(toBid128(z), lift, ORV_DEC_HALF_EVEN, &flags);
    flags = 0;
    BID_UINT128 high =
        bid128_fma(lower, toBid128(xIsLower ? y : x), addend, ORV_DEC_TOWARD_ZERO, &flags);
    const DecimalFields highFields = orvDec128Fields(fromBid128(high));
    if (isZero(highFields)) {
        return sum;
    }
    if ((flags & BID_INEXACT_EXCEPTION) != 0) {
        if (highFields.exponent >= lift - 6176) {
            return sum;
        }
        high = withRest128(high);
    }
    return fromBid128(bid128_scalbn(high, -lift, ORV_DEC_HALF_EVEN, &flags));
}

ODecimal32 orvDec32FusedMultiplyAdd(ODecimal32 x, ODecimal32 y, ODecimal32 z) {
    _IDEC_flags flags = 0;
    return fromBid32(bid32_fma(toBid32(x), toBid32(y), toBid32(z), ORV_DEC_HALF_EVEN, &flags));
}

ODecimal64 orvDec64FusedMultiplyAdd(ODecimal64 x, ODecimal64 y, ODecimal64 z) {
    _IDEC_flags flags = 0;
    const ODecimal64 sum =
        fromBid64(bid64_fma(toBid64(x), toBid64(y), toBid64(z), ORV_DEC_HALF_EVEN, &flags));
    // Few digits at the least exponent, so the form of large coefficients does not occur.
    const int isLow = (sum.bits >> 53 & 0x3FFU) == 0;
    return isLow ? lowSum64(x, y, z, sum) : sum;
}

ODecimal128 orvDec128FusedMultiplyAdd(ODecimal128 x, ODecimal128 y, ODecimal128 z) {
    _IDEC_flags flags = 0;
    const ODecimal128 sum =
        fromBid128(bid128_fma(toBid128(x), toBid128(y), toBid128(z), ORV_DEC_HALF_EVEN, &flags));
    const int isLow = (sum.high >> 49 & 0x3FFFU) == 0;
    return isLow ? lowSum128(x, y, z, sum) : sum;
}
