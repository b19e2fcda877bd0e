// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Intel's decimal library, and the records in its types.
///
/// Its functions take the status flags to set through a pointer. Nobody reads them here.
#ifndef ORV_LIBORV_DECIMAL_DETAIL_BID_H
#define ORV_LIBORV_DECIMAL_DETAIL_BID_H

#include "orv/liborv/decimal/decimal.h"

#include <bid_conf.h>

#include <bid_functions.h>

static inline BID_UINT32 toBid32(ODecimal32 x) {
    return x.bits;
}

static inline BID_UINT64 toBid64(ODecimal64 x) {
    return x.bits;
}

static inline BID_UINT128 toBid128(ODecimal128 x) {
    const BID_UINT128 bid = {{x.low, x.high}};
    return bid;
}

static inline ODecimal32 fromBid32(BID_UINT32 bid) {
    const ODecimal32 x = {bid};
    return x;
}

static inline ODecimal64 fromBid64(BID_UINT64 bid) {
    const ODecimal64 x = {bid};
    return x;
}

static inline ODecimal128 fromBid128(BID_UINT128 bid) {
    const ODecimal128 x = {bid.w[0], bid.w[1]};
    return x;
}

#endif
