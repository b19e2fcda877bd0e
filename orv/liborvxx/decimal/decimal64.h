// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `decimal64`: a decimal floating-point number of 16 digits.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL64_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL64_H

#include "orv/liborv/decimal/decimal.h"

#include <cstdint>

namespace orv::decimal {

/// A value of the IEEE 754 format decimal64 in binary integer encoding, with the layout of
/// `ODecimal64`.
class decimal64 {
public:
    /// +0 with an exponent of 0.
    constexpr decimal64() noexcept : record_{std::uint64_t{398} << 53U} {}

    constexpr decimal64(const ODecimal64& record) noexcept : record_(record) {}

    constexpr const ODecimal64& record() const noexcept { return record_; }

private:
    ODecimal64 record_;
};

static_assert(sizeof(decimal64) == 8, "nothing but the record");

} // namespace orv::decimal

#endif
