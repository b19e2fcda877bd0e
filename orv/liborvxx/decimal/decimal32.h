// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `decimal32`: a decimal floating-point number of 7 digits.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL32_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL32_H

#include "orv/liborv/decimal/decimal.h"

#include <cstdint>

namespace orv::decimal {

/// A value of the IEEE 754 format decimal32 in binary integer encoding, with the layout of
/// `ODecimal32`.
class decimal32 {
public:
    /// +0 with an exponent of 0.
    constexpr decimal32() noexcept : record_{std::uint32_t{101} << 23U} {}

    constexpr decimal32(const ODecimal32& record) noexcept : record_(record) {}

    constexpr const ODecimal32& record() const noexcept { return record_; }

private:
    ODecimal32 record_;
};

static_assert(sizeof(decimal32) == 4, "nothing but the record");

} // namespace orv::decimal

#endif
