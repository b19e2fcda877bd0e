// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal arithmetic as the contestants call it: ours, and Intel's library
/// directly.
#ifndef ORV_BENCH_DECIMAL_PEERS_H
#define ORV_BENCH_DECIMAL_PEERS_H

#include "orv/liborvxx/decimal/decimal.h"

#include <bid_conf.h>
#include <bid_functions.h>

namespace bench {

/// Intel's functions for one of our types: `Value`, and the operations on it.
template <class Decimal>
struct Intel;

#define ORV_BENCH_INTEL(width, type)                                                               \
    template <>                                                                                    \
    struct Intel<orv::decimal::decimal##width> {                                                   \
        using Value = type;                                                                        \
        static Value add(const Value& x, const Value& y) {                                         \
            return bid##width##_add(x, y, 0, &flags);                                              \
        }                                                                                          \
        static Value multiply(const Value& x, const Value& y) {                                    \
            return bid##width##_mul(x, y, 0, &flags);                                              \
        }                                                                                          \
        static Value divide(const Value& x, const Value& y) {                                      \
            return bid##width##_div(x, y, 0, &flags);                                              \
        }                                                                                          \
        static Value quantize(const Value& x, const Value& y) {                                    \
            return bid##width##_quantize(x, y, 0, &flags);                                         \
        }                                                                                          \
        static bool less(const Value& x, const Value& y) {                                         \
            return bid##width##_quiet_less(x, y, &flags) != 0;                                     \
        }                                                                                          \
        static Value read(char* text) { return bid##width##_from_string(text, 0, &flags); }        \
        static void write(const Value& x, char* text) { bid##width##_to_string(text, x, &flags); } \
        static inline _IDEC_flags flags = 0;                                                       \
    }

ORV_BENCH_INTEL(32, BID_UINT32);
ORV_BENCH_INTEL(64, BID_UINT64);
ORV_BENCH_INTEL(128, BID_UINT128);

#undef ORV_BENCH_INTEL

/// Ours, with the operators that a user writes.
template <class Decimal>
struct Own {
    using Value = Decimal;
    static Value add(const Value& x, const Value& y) { return x + y; }
    static Value multiply(const Value& x, const Value& y) { return x * y; }
    static Value divide(const Value& x, const Value& y) { return x / y; }
    static Value quantize(const Value& x, const Value& y) { return orv::decimal::quantize(x, y); }
    static bool less(const Value& x, const Value& y) { return x < y; }
};

} // namespace bench

#endif
