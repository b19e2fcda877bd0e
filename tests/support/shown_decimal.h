// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers as texts that show every bit: for messages, and to compare by.
#ifndef ORV_TESTS_SUPPORT_SHOWN_DECIMAL_H
#define ORV_TESTS_SUPPORT_SHOWN_DECIMAL_H

#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"

#include <cstdint>
#include <cstdio>
#include <string>

namespace orvtest {

/// "78000000", or two words for a decimal128.
/// @{
inline std::string hexOf(const ODecimal32& record) {
    char text[24];
    std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(record.bits));
    return text;
}
inline std::string hexOf(const ODecimal64& record) {
    char text[24];
    std::snprintf(text, sizeof text, "%016llX", static_cast<unsigned long long>(record.bits));
    return text;
}
inline std::string hexOf(const ODecimal128& record) {
    return hexOf(ODecimal64{record.high}) + ' ' + hexOf(ODecimal64{record.low});
}
/// @}

/// The digits of high * 2^64 + low.
inline std::string digitsOf(std::uint64_t high, std::uint64_t low) {
    std::string digits;
    do {
        std::uint64_t rest = 0;
        for (std::uint64_t* const half : {&high, &low}) {
            for (unsigned part = 2; part-- > 0;) { // 32 bits at a time
                rest = rest << 32U | (*half >> 32 * part & 0xFFFFFFFFU);
                const std::uint64_t quotient = rest / 10;
                *half = (*half & ~(std::uint64_t{0xFFFFFFFF} << 32 * part)) | quotient << 32 * part;
                rest %= 10;
            }
        }
        digits.insert(digits.begin(), static_cast<char>('0' + rest));
    } while (high != 0 || low != 0);
    return digits;
}

/// "-150E-2": coefficient and exponent. "inf", "-inf" and "NaN" with all other bits 0; whatever is
/// not canonical by its bits.
/// @{
template <class Record, unsigned WIDTH, unsigned FIELD, int BIAS, std::uint64_t MOST>
std::string shownRecord(const Record& record) {
    const std::uint64_t bits = record.bits;
    const std::string sign = bits >> (WIDTH - 1) != 0 ? "-" : "";
    const std::uint64_t magnitude = bits & ((std::uint64_t{1} << (WIDTH - 1)) - 1);
    if (magnitude == std::uint64_t{0x78} << (WIDTH - 8)) {
        return sign + "inf";
    }
    if (bits == std::uint64_t{0x7C} << (WIDTH - 8)) {
        return "NaN";
    }
    const bool isWide = magnitude >> (WIDTH - 3) == 3;
    const unsigned field = isWide ? FIELD - 2 : FIELD;
    const std::uint64_t low = magnitude & ((std::uint64_t{1} << field) - 1);
    const std::uint64_t coefficient = isWide ? low | std::uint64_t{1} << FIELD : low;
    if (magnitude >> (WIDTH - 5) >= 0xF || coefficient > MOST) {
        return "bits " + hexOf(record);
    }
    const auto exponent = static_cast<int>(magnitude >> field & ((1U << (WIDTH - 1 - FIELD)) - 1));
    return sign + digitsOf(0, coefficient) + 'E' + std::to_string(exponent - BIAS);
}

inline std::string shown(const orv::decimal::decimal32& value) {
    return shownRecord<ODecimal32, 32, 23, 101, 9999999>(value.record());
}
inline std::string shown(const orv::decimal::decimal64& value) {
    return shownRecord<ODecimal64, 64, 53, 398, 9999999999999999>(value.record());
}
inline std::string shown(const orv::decimal::decimal128& value) {
    const ODecimal128& record = value.record();
    const std::string sign = record.high >> 63U != 0 ? "-" : "";
    const std::uint64_t magnitude = record.high & 0x7FFFFFFFFFFFFFFF;
    if (magnitude == 0x7800000000000000 && record.low == 0) {
        return sign + "inf";
    }
    if (record.high == 0x7C00000000000000 && record.low == 0) {
        return "NaN";
    }
    const std::string digits = digitsOf(magnitude & 0x1FFFFFFFFFFFF, record.low);
    if (magnitude >> 61U == 3 || digits.size() > 34) {
        return "bits " + hexOf(record);
    }
    return sign + digits + 'E' + std::to_string(static_cast<int>(magnitude >> 49U) - 6176);
}
/// @}

} // namespace orvtest

#endif
