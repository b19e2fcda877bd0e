// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point numbers laid out as the conversions "%e", "%f", "%g" and "%a" of C do.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_FLOAT_TEXT_H
#define ORV_LIBORVXX_LOCALE_DETAIL_FLOAT_TEXT_H

#include "orv/liborvxx/locale/detail/decimal_expansion.h"
#include "orv/liborvxx/locale/detail/number_text.h"

#include <cstdint>
#include <ios>

namespace orv::detail {

/// The text of a number, and what it points into: it is not copied.
struct FloatText {
    NumberText text;
    DecimalExpansion decimal;
    /// The one digit before a hexadecimal point, and those behind it.
    char hex[32] = {};
};

/// Lays out \p value with the flags and the precision of \p stream. Defined for `double` and `long
/// double`.
///
/// A negative precision is 6; hexadecimal numbers have the digits that they need. A `long double`
/// of 64 bits has four bits in its first hexadecimal digit, other types have one.
/// \exception std::bad_alloc, see `DecimalExpansion`
/// @{
void layOut(FloatText& out, const std::ios_base& stream, double value);
void layOut(FloatText& out, const std::ios_base& stream, long double value);
/// @}

} // namespace orv::detail

#endif
