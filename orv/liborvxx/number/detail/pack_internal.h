// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The packers of pack_binary.h, make_binary.h and pack_decimal.h for callers that have cut
/// something off already and know how much.
///
/// \p rounding is rounding information (rounding.h) on what lies below the lowest bit or digit of
/// the coefficient.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_PACK_INTERNAL_H
#define ORV_LIBORVXX_NUMBER_DETAIL_PACK_INTERNAL_H

#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/number/big_uint.h"

#include <cstdint>
#include <limits>

namespace orv::detail {

/// \name Decimal exponents too long to be read
/// `makeBinary` takes them for certain overflow and for certain underflow, whatever the
/// coefficient.
/// @{
inline constexpr int EXPONENT_OVERFLOW = std::numeric_limits<int>::max();
inline constexpr int EXPONENT_UNDERFLOW = std::numeric_limits<int>::min();
/// @}

/// The `Float` (`float` or `double`) nearest to (coefficient + what rounding tells) * 2^exponent,
/// ties to even: infinity beyond the range, zero below it. Allocates nothing.
///
/// Where the coefficient has fewer bits than a Float, it is padded with zeros first, and the
/// rounding information is taken for the lowest bit of what that gives.
/// \param bits the coefficient's bit length
template <class Float>
Float packBinary(bool negative, int exponent, const big_uint& coefficient, unsigned bits,
                 unsigned rounding) noexcept;

extern template float packBinary<float>(bool, int, const big_uint&, unsigned, unsigned) noexcept;
extern template double packBinary<double>(bool, int, const big_uint&, unsigned, unsigned) noexcept;

/// The `Float` (`float` or `double`) for (coefficient + what rounding tells) * 10^exponent:
/// `make_float` and `make_double` tell how exact it is.
///
/// `EXPONENT_OVERFLOW` gives infinity and `EXPONENT_UNDERFLOW` zero, also where the coefficient
/// is zero. With an exponent of 0 \p rounding has its full meaning; with others it rounds the
/// coefficient to an integer before anything else, and is not looked at where the coefficient
/// fits a Float and so does 10^|exponent|.
/// \exception std::out_of_range "big_uint::pow10" as `make_double`
template <class Float>
Float makeBinary(bool negative, int exponent, const big_uint& coefficient, unsigned rounding);

extern template float makeBinary<float>(bool, int, const big_uint&, unsigned);
extern template double makeBinary<double>(bool, int, const big_uint&, unsigned);

/// The `Decimal` (`decimal32`, `decimal64` or `decimal128`) nearest to (coefficient + what
/// rounding tells) * 10^exponent, ties to even: infinity beyond the range, zero below it. The
/// exponent is kept where it can be. Allocates nothing.
/// \pre the coefficient has no more digits than a Decimal
template <class Decimal>
Decimal packDecimal(bool negative, std::int64_t exponent, const big_uint& coefficient,
                    unsigned rounding);

extern template decimal::decimal32 packDecimal<decimal::decimal32>(bool, std::int64_t,
                                                                   const big_uint&, unsigned);
extern template decimal::decimal64 packDecimal<decimal::decimal64>(bool, std::int64_t,
                                                                   const big_uint&, unsigned);
extern template decimal::decimal128 packDecimal<decimal::decimal128>(bool, std::int64_t,
                                                                     const big_uint&, unsigned);

} // namespace orv::detail

#endif
