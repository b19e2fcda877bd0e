// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The floating-point number nearest to digits with an exponent.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_NEAREST_FLOAT_H
#define ORV_LIBORVXX_LOCALE_DETAIL_NEAREST_FLOAT_H

#include "orv/liborvxx/locale/detail/significant_digits.h"

#include <cstdint>

namespace orv::detail {

/// The Float nearest to \p digits * 10^\p exponent or, with hexadecimal digits, * 2^\p exponent;
/// ties to the even one, an infinity where it is too large. Defined for `float`, `double` and
/// `long double`.
///
/// Memory from the heap is taken only for numbers very near the middle between two Floats, for
/// which 19 digits and 128 bits of a power of ten do not decide; for a `long double` of many
/// digits, above 10^350 or below 10^-350; and for every one of more than 64 bits of precision.
/// Hexadecimal digits never take any.
/// \exception std::bad_alloc
/// @{
template <class Float>
Float nearestFloat(bool negative, const DecimalDigitsFor<Float>& digits, std::int64_t exponent);
template <class Float>
Float nearestFloat(bool negative, const HexDigits& digits, std::int64_t exponent);
/// @}

extern template float nearestFloat(bool, const DecimalDigitsFor<float>&, std::int64_t);
extern template double nearestFloat(bool, const DecimalDigitsFor<double>&, std::int64_t);
extern template long double nearestFloat(bool, const DecimalDigitsFor<long double>&, std::int64_t);
extern template float nearestFloat<float>(bool, const HexDigits&, std::int64_t);
extern template double nearestFloat<double>(bool, const HexDigits&, std::int64_t);
extern template long double nearestFloat<long double>(bool, const HexDigits&, std::int64_t);

} // namespace orv::detail

#endif
