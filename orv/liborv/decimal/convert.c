// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Conversions of decimal floating-point numbers.
#include "orv/liborv/decimal/convert.h"

#include "orv/liborv/decimal/detail/bid.h"

// One function of Intel's library each, under the type that its width names.

#define TO(Result, width, name, bidName)                                                           \
    Result name(ODecimal##width x) {                                                               \
        _IDEC_flags flags = 0;                                                                     \
        return bidName(toBid##width(x), &flags);                                                   \
    }

#define TO_BINARY(Result, width, name, bidName)                                                    \
    Result name(ODecimal##width x) {                                                               \
        _IDEC_flags flags = 0;                                                                     \
        return bidName(toBid##width(x), ORV_DEC_HALF_EVEN, &flags);                                \
    }

#define WIDER(width, to, name, bidName)                                                            \
    ODecimal##to name(ODecimal##width x) {                                                         \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##to(bidName(toBid##width(x), &flags));                                      \
    }

#define NARROWER(width, to, name, bidName)                                                         \
    ODecimal##to name(ODecimal##width x) {                                                         \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##to(bidName(toBid##width(x), ORV_DEC_HALF_EVEN, &flags));                   \
    }

#define FROM(Integer, width, name, bidName)                                                        \
    ODecimal##width name(Integer n) {                                                              \
        _IDEC_flags flags = 0;                                                                     \
        return fromBid##width(bidName(n, ORV_DEC_HALF_EVEN, &flags));                              \
    }

FROM(int64_t, 32, orvDec32FromInt64, bid32_from_int64)
FROM(int64_t, 64, orvDec64FromInt64, bid64_from_int64)
FROM(uint64_t, 32, orvDec32FromUInt64, bid32_from_uint64)
FROM(uint64_t, 64, orvDec64FromUInt64, bid64_from_uint64)

ODecimal128 orvDec128FromInt64(int64_t n) {
    return fromBid128(bid128_from_int64(n));
}

ODecimal128 orvDec128FromUInt64(uint64_t n) {
    return fromBid128(bid128_from_uint64(n));
}

TO(int32_t, 32, orvDec32ToInt32, bid32_to_int32_int)
TO(int32_t, 64, orvDec64ToInt32, bid64_to_int32_int)
TO(int32_t, 128, orvDec128ToInt32, bid128_to_int32_int)
TO(int64_t, 32, orvDec32ToInt64, bid32_to_int64_int)
TO(int64_t, 64, orvDec64ToInt64, bid64_to_int64_int)
TO(int64_t, 128, orvDec128ToInt64, bid128_to_int64_int)
TO(uint64_t, 32, orvDec32ToUInt64, bid32_to_uint64_int)
TO(uint64_t, 64, orvDec64ToUInt64, bid64_to_uint64_int)
TO(uint64_t, 128, orvDec128ToUInt64, bid128_to_uint64_int)

WIDER(32, 64, orvDec32ToDec64, bid32_to_bid64)
WIDER(32, 128, orvDec32ToDec128, bid32_to_bid128)
WIDER(64, 128, orvDec64ToDec128, bid64_to_bid128)
NARROWER(64, 32, orvDec64ToDec32, bid64_to_bid32)
NARROWER(128, 32, orvDec128ToDec32, bid128_to_bid32)
NARROWER(128, 64, orvDec128ToDec64, bid128_to_bid64)

TO_BINARY(float, 32, orvDec32ToFloat, bid32_to_binary32)
TO_BINARY(float, 64, orvDec64ToFloat, bid64_to_binary32)
TO_BINARY(float, 128, orvDec128ToFloat, bid128_to_binary32)
TO_BINARY(double, 32, orvDec32ToDouble, bid32_to_binary64)
TO_BINARY(double, 64, orvDec64ToDouble, bid64_to_binary64)
TO_BINARY(double, 128, orvDec128ToDouble, bid128_to_binary64)
