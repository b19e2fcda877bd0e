// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `binary_to_decimal64` and its kin: the decimal number a person would read in a binary
/// one.
///
/// The result has the shortest digits that read back as the value, those that `to_string_c` writes
/// (number_to_string.h), and not the binary expansion: 0.1 gives 0.1, with one digit and the
/// exponent -1. There are no zeros behind the last digit: 100.0 is 1 * 10^2.
///
/// Where a format has room for fewer digits, the value itself is rounded to them, to nearest, ties
/// to even; the digits are at most
///
/// | from                    | to `decimal32` | to `decimal64` | to `decimal128` |
/// |-------------------------|----------------|----------------|-----------------|
/// | `binary16`              | 5              | 5              | 5               |
/// | `float`                 | 7              | 9              | 9               |
/// | `double`, `long double` | 7              | 16             | 17              |
///
/// A `long double` counts as the nearest `double`. What is too large for a `decimal32` is infinity,
/// and what is too small is rounded to its least exponent, if need be to zero; the other
/// conversions are always in range. A zero keeps its sign and has the least exponent (all other
/// bits are 0), infinities keep their sign, and every NaN gives the quiet NaN without sign and
/// payload.
///
/// Nothing here fails, allocates memory or changes `errno`. The other way, to the nearest binary
/// number, go the explicit conversions of the decimal types.
#ifndef ORV_LIBORVXX_DECIMAL_BINARY_TO_DECIMAL_H
#define ORV_LIBORVXX_DECIMAL_BINARY_TO_DECIMAL_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/number/binary16.h"

namespace orv::decimal {

// The classes declare them too, for their constructors, and stand in front of this for its users.
// NOLINTBEGIN(readability-redundant-declaration)

/// \name To 7 digits
/// @{
ORVXX_API decimal32 binary_to_decimal32(float value) noexcept;
ORVXX_API decimal32 binary_to_decimal32(double value) noexcept;
ORVXX_API decimal32 binary_to_decimal32(long double value) noexcept;
ORVXX_API decimal32 binary_to_decimal32(const binary16& value) noexcept;
/// @}

/// \name To 16 digits
/// @{
ORVXX_API decimal64 binary_to_decimal64(float value) noexcept;
ORVXX_API decimal64 binary_to_decimal64(double value) noexcept;
ORVXX_API decimal64 binary_to_decimal64(long double value) noexcept;
ORVXX_API decimal64 binary_to_decimal64(const binary16& value) noexcept;
/// @}

/// \name To 34 digits
/// @{
ORVXX_API decimal128 binary_to_decimal128(float value) noexcept;
ORVXX_API decimal128 binary_to_decimal128(double value) noexcept;
ORVXX_API decimal128 binary_to_decimal128(long double value) noexcept;
ORVXX_API decimal128 binary_to_decimal128(const binary16& value) noexcept;
/// @}

// NOLINTEND(readability-redundant-declaration)

} // namespace orv::decimal

#endif
