// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers written to buffers that they just fit.
#ifndef ORV_TESTS_LIBORV_DECIMAL_DECIMAL_WRITING_H
#define ORV_TESTS_LIBORV_DECIMAL_DECIMAL_WRITING_H

#include "orv/liborv/decimal/format.h"
#include "orv/liborv/decimal/parse.h"

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orvtest {

/// \name Records of these bits
/// @{
inline ODecimal128 record128(const mpz_class& bits) {
    std::uint64_t words[2] = {};
    mpz_export(words, nullptr, -1, sizeof words[0], 0, 0, bits.get_mpz_t());
    return {words[0], words[1]};
}
inline ODecimal64 record64(const mpz_class& bits) {
    return {record128(bits).low};
}
inline ODecimal32 record32(const mpz_class& bits) {
    return {static_cast<std::uint32_t>(record128(bits).low)};
}

/// @}

/// The number that a text stands for.
inline ODecimal64 read64(const std::string& text) {
    DecimalParseState state;
    EXPECT_EQ(orvDecParseInit(&state, 16, '.', '\0', 0), 0);
    EXPECT_EQ(orvDecParseText(&state, text.data(), text.size(), nullptr), text.size()) << text;
    return orvDec64ParseGetValue(&state);
}

/// The text in a buffer that it just fits.
template <class Value>
std::string write(std::size_t (*function)(const DecimalFormat*, Value, char*, std::size_t),
                  const DecimalFormat& format, Value value) {
    const std::size_t size = function(&format, value, nullptr, 0);
    std::vector<char> buffer(size + 1, '#');
    EXPECT_EQ(function(&format, value, buffer.data(), buffer.size()), size);
    EXPECT_EQ(buffer[size], '\0');
    return {buffer.data(), size};
}

inline std::string write(const DecimalFormat& format, const std::string& number) {
    return write(&orvDec64FormatString, format, read64(number));
}

inline DecimalFormat form(char conversion, int precision) {
    DecimalFormat format{};
    format.conversion = conversion;
    format.precision = precision;
    format.decimalPoint = '.';
    return format;
}

} // namespace orvtest

#endif
