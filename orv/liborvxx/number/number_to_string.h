// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `to_string_c` and `to_ustring_c`: numbers as text, the same in every locale.
///
/// Floats are written with the fewest digits that read back as the same value, but never cut to
/// one digit where a second one says more; of several texts of that many digits with the nearest.
/// From 0.001 up to below 10^7 they have the plain form ("0.001", "1234567.0"), else the
/// scientific one ("1.0E7", "4.9E-324"): always a point with a digit on either side, never a '+'.
/// The others are "Infinity", "-Infinity", "NaN" whatever its sign and payload, "0.0" and "-0.0".
///
/// Decimal floating-point numbers are written with all digits of their coefficient, trailing zeros
/// too, and always with a point: "1.50", "0.00", "-0.". From 0.001 up to below 10^7 they have the
/// plain form, unless their lowest digit stands for more than 1: so "100." is 100 with an exponent
/// of 0, and "1.E2" is 1 * 10^2. Nothing is written behind a point where there are no digits, and
/// no
/// '+'. Read back, the text gives the same number with the same exponent; a coefficient above the
/// largest of its type is 0, as everywhere. Infinities and NaNs have the texts told above.
///
/// Integers are written in radix 10, with a '-' if they are negative, and no separators.
///
/// The only failure is memory that runs out: `std::bad_alloc`. `to_chars_c` (to_chars.h) writes
/// the same text without allocation.
#ifndef ORV_LIBORVXX_NUMBER_NUMBER_TO_STRING_H
#define ORV_LIBORVXX_NUMBER_NUMBER_TO_STRING_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal_fwd.h"
#include "orv/liborvxx/number/binary16.h"
#include "orv/liborvxx/text/ustring.h"

#include <string>

namespace orv {

/// \name Floating point, as `std::string`
/// @{

ORVXX_API std::string to_string_c(float value);
ORVXX_API std::string to_string_c(double value);
/// The text of the nearest `double`.
ORVXX_API std::string to_string_c(long double value);
ORVXX_API std::string to_string_c(binary16 value);

/// @}
/// \name Floating point, as `ustring`
/// @{

ORVXX_API ustring to_ustring_c(float value);
ORVXX_API ustring to_ustring_c(double value);
/// The text of the nearest `double`.
ORVXX_API ustring to_ustring_c(long double value);
ORVXX_API ustring to_ustring_c(binary16 value);

/// @}
/// \name Decimal floating point
/// @{

ORVXX_API std::string to_string_c(decimal::decimal32 value);
ORVXX_API std::string to_string_c(decimal::decimal64 value);
ORVXX_API std::string to_string_c(decimal::decimal128 value);
ORVXX_API ustring to_ustring_c(decimal::decimal32 value);
ORVXX_API ustring to_ustring_c(decimal::decimal64 value);
ORVXX_API ustring to_ustring_c(decimal::decimal128 value);

/// @}
/// \name Integers, as `std::string`
/// @{

ORVXX_API std::string to_string_c(int value);
ORVXX_API std::string to_string_c(long value);
ORVXX_API std::string to_string_c(long long value);
ORVXX_API std::string to_string_c(unsigned int value);
ORVXX_API std::string to_string_c(unsigned long value);
ORVXX_API std::string to_string_c(unsigned long long value);

/// @}
/// \name Integers, as `ustring`
/// @{

ORVXX_API ustring to_ustring_c(int value);
ORVXX_API ustring to_ustring_c(long value);
ORVXX_API ustring to_ustring_c(long long value);
ORVXX_API ustring to_ustring_c(unsigned int value);
ORVXX_API ustring to_ustring_c(unsigned long value);
ORVXX_API ustring to_ustring_c(unsigned long long value);

/// @}

} // namespace orv

#endif
