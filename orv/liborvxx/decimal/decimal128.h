// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `decimal128`: a decimal floating-point number of 34 digits.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL128_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL128_H

#include "orv/liborv/decimal/decimal.h"

#include <cstdint>

namespace orv::decimal {

/// A value of the IEEE 754 format decimal128 in binary integer encoding, with the layout of
/// `ODecimal128`.
class decimal128 {
public:
    /// +0 with an exponent of 0.
    constexpr decimal128() noexcept : record_{0, std::uint64_t{6176} << 49U} {}

    constexpr decimal128(const ODecimal128& record) noexcept : record_(record) {}

    constexpr const ODecimal128& record() const noexcept { return record_; }

private:
    ODecimal128 record_;
};

static_assert(sizeof(decimal128) == 16, "nothing but the record");

} // namespace orv::decimal

#endif
