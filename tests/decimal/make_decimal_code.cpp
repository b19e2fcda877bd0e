// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Functions whose machine code make_decimal_code_test.py looks at.
#include "orv/liborvxx/decimal/make_decimal.h"

#include <cstdint>

extern "C" {

// An exponent that the compiler knows, and coefficients that surely fit: no other function is
// mentioned.
ODecimal64 shifts64OfInt(int n);
ODecimal64 shifts64OfUnsigned(unsigned n);
ODecimal128 shifts128OfInt(int n);
ODecimal128 shifts128OfSize(std::uint64_t n);

// Coefficients that may have too many digits: one function is mentioned, for these.
ODecimal32 tests32OfInt(int n);
ODecimal64 tests64OfInt64(std::int64_t n);
ODecimal64 tests64OfSize(std::uint64_t n);
// An exponent that may be out of range.
ODecimal64 tests64OfExponent(int n, int exponent);
ODecimal128 tests128OfExponent(std::int64_t n, int exponent);

} // extern "C"

using namespace orv::decimal;

ODecimal64 shifts64OfInt(int n) {
    return _make_decimal64(n, 2);
}
ODecimal64 shifts64OfUnsigned(unsigned n) {
    return _make_decimal64(n, -2);
}
ODecimal128 shifts128OfInt(int n) {
    return _make_decimal128(n, 2);
}
ODecimal128 shifts128OfSize(std::uint64_t n) {
    return _make_decimal128(n, -2);
}
ODecimal32 tests32OfInt(int n) {
    return _make_decimal32(n, 2);
}
ODecimal64 tests64OfInt64(std::int64_t n) {
    return _make_decimal64(n, 2);
}
ODecimal64 tests64OfSize(std::uint64_t n) {
    return _make_decimal64(n, -2);
}
ODecimal64 tests64OfExponent(int n, int exponent) {
    return _make_decimal64(n, exponent);
}
ODecimal128 tests128OfExponent(std::int64_t n, int exponent) {
    return _make_decimal128(n, exponent);
}
