// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Sign, exponent and coefficient of decimal floating-point numbers.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_FIELDS_H
#define ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_FIELDS_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal_layout.h"
#include "orv/liborvxx/number/words/decimal_digits.h"
#include "orv/liborvxx/number/words/limb.h"

namespace orv::detail {

/// What a record holds.
enum class DecimalKind { FINITE, INFINITE, NOT_A_NUMBER };

/// The kind told by the five bits behind the sign.
/// \param topBits the top byte, or more with it
constexpr DecimalKind decimalKind(unsigned topBits) noexcept {
    if ((topBits & 0x78U) != 0x78) {
        return DecimalKind::FINITE;
    }
    return (topBits & 0x7CU) == 0x78 ? DecimalKind::INFINITE : DecimalKind::NOT_A_NUMBER;
}

/// The sign and top byte of a record.
/// @{
constexpr unsigned topBitsOf(const ODecimal32& record) noexcept {
    return record.bits >> 24U;
}
constexpr unsigned topBitsOf(const ODecimal64& record) noexcept {
    return static_cast<unsigned>(record.bits >> 56U);
}
constexpr unsigned topBitsOf(const ODecimal128& record) noexcept {
    return static_cast<unsigned>(record.high >> 56U);
}
/// @}

/// The fields of a finite number.
struct DecimalFields {
    words::Wide coefficient;
    int exponent; ///< of the lowest digit
};

/// The fields of a finite number; a coefficient above the largest counts as 0.
/// @{

/// Coefficients wider than their field are marked by two set bits, which move the exponent.
template <class Record>
ORVXX_ALWAYS_INLINE DecimalFields fieldsOf(const Record& record) noexcept {
    using Layout = decimal::detail::DecimalLayout<Record>;
    using Bits = typename Layout::Bits;
    constexpr int WIDTH = Layout::WIDTH;
    constexpr int FIELD = Layout::FIELD;
    constexpr Bits EXPONENT = (Bits{1} << (WIDTH - 1 - FIELD)) - 1;
    const Bits bits = record.bits;
    const bool isWide = (bits >> (WIDTH - 3) & 3U) == 3;
    const words::Limb coefficient =
        isWide ? words::Limb{1} << FIELD | (bits & ((Bits{1} << (FIELD - 2)) - 1))
               : words::Limb{bits & ((Bits{1} << FIELD) - 1)};
    const auto exponent = static_cast<int>(bits >> (isWide ? FIELD - 2 : FIELD) & EXPONENT);
    return {{coefficient > Layout::MAX_COEFFICIENT ? 0 : coefficient, 0},
            exponent + Layout::MIN_EXPONENT};
}

/// Here all wide coefficients are too large.
ORVXX_ALWAYS_INLINE DecimalFields fieldsOf(const ODecimal128& record) noexcept {
    using Layout = decimal::detail::DecimalLayout<ODecimal128>;
    // 10^34
    constexpr words::Limb LIMIT_HIGH = 0x0001ED09BEAD87C0;
    constexpr words::Limb LIMIT_LOW = 0x378D8E6400000000;
    constexpr int FIELD = Layout::FIELD;
    const bool isWide = (record.high >> 61U & 3U) == 3;
    const auto exponent = static_cast<int>(record.high >> (isWide ? FIELD - 2 : FIELD) & 0x3FFFU) +
                          Layout::MIN_EXPONENT;
    const words::Limb high = record.high & ((words::Limb{1} << FIELD) - 1);
    const bool isTooLarge =
        isWide || high > LIMIT_HIGH || (high == LIMIT_HIGH && record.low >= LIMIT_LOW);
    return isTooLarge ? DecimalFields{{0, 0}, exponent}
                      : DecimalFields{{record.low, high}, exponent};
}

/// @}

} // namespace orv::detail

#endif
