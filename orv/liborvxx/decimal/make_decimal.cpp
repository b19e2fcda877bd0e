// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from integers and exponents that do not fit as they are.
#include "orv/liborvxx/decimal/make_decimal.h"

#include "orv/liborv/decimal/arithmetic.h"
#include "orv/liborv/decimal/convert.h"

#include <cerrno>
#include <cstdint>

namespace orv::decimal::detail {

namespace {

// x, of which an infinity is told.
template <class Record>
Record told(const Record& x) noexcept {
    if (!DecimalLayout<Record>::isFinite(DecimalLayout<Record>::topWord(x))) {
        errno = ERANGE;
    }
    return x;
}

} // namespace

ODecimal32 makeDecimal32OutOfRange(std::int64_t coefficient, int exponent) noexcept {
    return told(orvDec64ToDec32(orvDec64ScaleB(orvDec64FromInt64(coefficient), exponent)));
}

ODecimal32 makeDecimal32OutOfRange(std::uint64_t coefficient, int exponent) noexcept {
    return told(orvDec64ToDec32(orvDec64ScaleB(orvDec64FromUInt64(coefficient), exponent)));
}

ODecimal64 makeDecimal64OutOfRange(std::int64_t coefficient, int exponent) noexcept {
    return told(orvDec64ScaleB(orvDec64FromInt64(coefficient), exponent));
}

ODecimal64 makeDecimal64OutOfRange(std::uint64_t coefficient, int exponent) noexcept {
    return told(orvDec64ScaleB(orvDec64FromUInt64(coefficient), exponent));
}

ODecimal128 makeDecimal128OutOfRange(std::int64_t coefficient, int exponent) noexcept {
    return told(orvDec128ScaleB(orvDec128FromInt64(coefficient), exponent));
}

ODecimal128 makeDecimal128OutOfRange(std::uint64_t coefficient, int exponent) noexcept {
    return told(orvDec128ScaleB(orvDec128FromUInt64(coefficient), exponent));
}

} // namespace orv::decimal::detail
