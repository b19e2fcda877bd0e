// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decimal formats in numbers, by the class.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_FORMAT_H
#define ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_FORMAT_H

#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/decimal/decimal_layout.h"

#include <type_traits>
#include <utility>

namespace orv::detail {

/// The layout of the record that a Decimal holds.
template <class Decimal>
using DecimalFormat = decimal::detail::DecimalLayout<
    std::remove_cvref_t<decltype(std::declval<const Decimal&>().record())>>;

} // namespace orv::detail

#endif
