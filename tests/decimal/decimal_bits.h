// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The bits of decimals as hexadecimal text, which tests compare and failures show.
#ifndef ORV_TESTS_DECIMAL_DECIMAL_BITS_H
#define ORV_TESTS_DECIMAL_DECIMAL_BITS_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"

#include <cstdint>
#include <string>

namespace orvtest {

inline std::string hexOf(std::uint64_t bits, int digits) {
    std::string text;
    for (int i = digits - 1; i >= 0; --i) {
        text += "0123456789ABCDEF"[bits >> static_cast<unsigned>(4 * i) & 0xFU];
    }
    return text;
}

inline std::string bitsOf(const ODecimal32& x) {
    return hexOf(x.bits, 8);
}
inline std::string bitsOf(const ODecimal64& x) {
    return hexOf(x.bits, 16);
}
/// The upper half first.
inline std::string bitsOf(const ODecimal128& x) {
    return hexOf(x.high, 16) + "'" + hexOf(x.low, 16);
}

template <class Decimal>
std::string bitsOf(const Decimal& x) {
    return bitsOf(x.record());
}

} // namespace orvtest

#endif
