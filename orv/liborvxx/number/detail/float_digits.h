// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `float_digits`: a floating-point value as a sign, decimal digits and a decimal exponent,
/// which is what texts are made of; and the ways to it.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_FLOAT_DIGITS_H
#define ORV_LIBORVXX_NUMBER_DETAIL_FLOAT_DIGITS_H

#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/number/big_binary.h"
#include "orv/liborvxx/number/binary16.h"

#include <cstdint>
#include <limits>

namespace orv::detail {

/// \name What `exponent` says where there are no digits
/// @{
inline constexpr std::int32_t INFINITY_MARKER = 0x7FFFFFFE;
inline constexpr std::int32_t NAN_MARKER = 0x7FFFFFFF;
inline constexpr std::int32_t ZERO_MARKER = std::numeric_limits<std::int32_t>::min();
/// @}

/// \name The most digits of each type
/// @{
inline constexpr unsigned BINARY16_DIGITS = 5;
inline constexpr unsigned FLOAT_DIGITS = 9;
inline constexpr unsigned DOUBLE_DIGITS = 17;
/// @}

/// A value `sign` * d.ddd * 10^`exponent`, or one without digits.
///
/// `digits` points into the record itself, which therefore is not copied.
struct float_digits {
    std::int32_t sign = 1;                ///< 1, -1, or 0 for a NaN
    std::int32_t exponent = ZERO_MARKER;  ///< of the first digit, or a marker
    const std::uint8_t* digits = nullptr; ///< 0 to 9, the first one first; null with a marker
    std::uint32_t count = 0;              ///< of digits
    std::int32_t radix = 2;               ///< of the value's type: 2 or 10
    std::uint8_t buffer[36] = {};         ///< room for the 34 digits of the widest type

    float_digits() = default;
    float_digits(const float_digits&) = delete;
    float_digits& operator=(const float_digits&) = delete;
    ~float_digits() = default;
};

/// \name Digits of binary floating point
/// The shortest digits that read back as \p value, as `generate_digits` finds them, and at most
/// \p max_digits of them, which counts for no more than the type's most digits. Zeros, infinities
/// and NaNs have markers; a NaN has no sign.
///
/// With the type's most digits nothing is allocated and nothing thrown; with less, as
/// `generate_digits`.
/// \pre \p max_digits is at least 2
/// @{
void digits_of(float_digits& out, binary16 value, unsigned max_digits = BINARY16_DIGITS);
void digits_of(float_digits& out, float value, unsigned max_digits = FLOAT_DIGITS);
void digits_of(float_digits& out, double value, unsigned max_digits = DOUBLE_DIGITS);
/// @}

/// \name Digits of decimal floating point
/// The digits of the coefficient, all of them, trailing zeros too; one 0 for a zero, with the
/// exponent of the lowest digit. A coefficient above the type's largest counts as 0. Infinities and
/// NaNs have markers; a NaN has no sign.
/// @{
void digits_of(float_digits& out, const decimal::decimal32& value) noexcept;
void digits_of(float_digits& out, const decimal::decimal64& value) noexcept;
void digits_of(float_digits& out, const decimal::decimal128& value) noexcept;
/// @}

/// Digits of a binary floating-point number, in the manner of Steele and White with margins that
/// close (Burger and Dybvig, "Printing floating-point numbers quickly and accurately", 1996), but
/// on numbers of twice the precision: what is nearer than their error counts as equal.
///
/// The digits are those of the value until the number cut or rounded there lies between the middles
/// to the neighbouring numbers, a middle itself included if the coefficient is even. Then they are
/// rounded to the nearest, ties to the even digit; at a power of two, where the neighbour below is
/// nearer, digits go on until that nearest one lies between. The first digit never ends it: so the
/// number 5 * 10^-324, one step from 0, is 4.9 * 10^-324. Trailing zeros are dropped.
///
/// It sets `exponent`, `digits` and `count` of \p out.
///
/// It is slow, serves numbers of digits below the type's own, and is what the fast way
/// (shortest_digits.h) is measured by.
/// \param value positive, at most \p precision bits
/// \param precision of the value's type, in bits
/// \param lowest_exponent of the top bit of the type's normal numbers
/// \param max_digits from 2 to 34
/// \exception std::bad_alloc
void generate_digits(float_digits& out, const big_binary& value, int precision, int lowest_exponent,
                     unsigned max_digits);

} // namespace orv::detail

#endif
