// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `decimal128`: a decimal floating-point number of 34 digits.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL128_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL128_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/decimal/decimal_operators.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstdint>

namespace orv {

class binary16;

namespace decimal {

class decimal128;

/// \cond declared with its fellows in binary_to_decimal.h
ORVXX_API decimal128 binary_to_decimal128(float value) noexcept;
ORVXX_API decimal128 binary_to_decimal128(double value) noexcept;
ORVXX_API decimal128 binary_to_decimal128(long double value) noexcept;
ORVXX_API decimal128 binary_to_decimal128(const binary16& value) noexcept;
/// \endcond

namespace detail {

/// What the constructors from text do.
/// @{
ORVXX_API ODecimal128 record128Of(string_ref text);
ORVXX_API ODecimal128 record128Of(ustring_ref text);
/// @}

} // namespace detail

/// A number of the IEEE 754-2008 format decimal128 in binary integer encoding, with the layout of
/// `ODecimal128`: 34 digits, a sign and a power of ten from -6176 to 6111 for the last of them;
/// infinities and NaNs.
///
/// It keeps its exponent: 1.5 and 1.50 are equal, and written as they are. What is exact converts
/// implicitly, what may round explicitly. The object is trivial to copy and holds nothing but the
/// record; distinct objects may be used from distinct threads.
///
/// \code
/// const orv::decimal::decimal128 price("19.90");
/// const orv::decimal::decimal128 total = price * 3; // 59.70
/// \endcode
class decimal128 : public detail::DecimalOperators<decimal128> {
public:
    /// The C library's functions on the record.
    using Functions = detail::DecimalFunctions<ODecimal128>;

    /// +0 with an exponent of 0.
    constexpr decimal128() noexcept : record_(detail::recordOf<ODecimal128>(0)) {}

    /// The number with these bits.
    constexpr decimal128(const ODecimal128& record) noexcept : record_(record) {}

    /// An integer, with an exponent of 0. Every integer type fits.
    template <detail::DecimalInteger T>
    constexpr explicit(!detail::HOLDS_ALL_OF<ODecimal128, T>) decimal128(T n) noexcept
        : record_(detail::recordOf<ODecimal128>(n)) {}

    /// \name From narrower formats
    /// The same number with the same exponent.
    /// @{
    decimal128(const decimal32& x) noexcept : record_(orvDec32ToDec128(x.record())) {}
    decimal128(const decimal64& x) noexcept : record_(orvDec64ToDec128(x.record())) {}
    /// @}

    /// \name From binary floating point
    /// The shortest decimal digits that read back as \p value, as `binary_to_decimal128`: 0.1 gives
    /// 0.1.
    /// @{
    explicit decimal128(float value) : decimal128(binary_to_decimal128(value)) {}
    explicit decimal128(double value) : decimal128(binary_to_decimal128(value)) {}
    explicit decimal128(long double value) : decimal128(binary_to_decimal128(value)) {}
    explicit decimal128(const binary16& value) : decimal128(binary_to_decimal128(value)) {}
    /// @}

    /// \name From text
    /// The number that the whole of \p text is, as `stod128_c` reads it.
    /// \exception std::invalid_argument if there is no number, with the texts of `stod128_c`;
    ///            "end of number expected" if something stands behind it
    /// @{
    explicit decimal128(string_ref text) : record_(detail::record128Of(text)) {}
    explicit decimal128(ustring_ref text) : record_(detail::record128Of(text)) {}
    /// @}

    /// The bits.
    constexpr const ODecimal128& record() const noexcept { return record_; }

    /// The number without the digits behind the point; the nearest limit if it is out of range, 0
    /// for a NaN.
    template <detail::DecimalInteger T>
    explicit operator T() const noexcept {
        return detail::integerOf<T>(record_);
    }

    /// \name To narrower formats
    /// Rounded to 7 or 16 digits, half to even; infinity on overflow.
    /// @{
    explicit operator decimal32() const noexcept { return orvDec128ToDec32(record_); }
    explicit operator decimal64() const noexcept { return orvDec128ToDec64(record_); }
    /// @}

    /// \name To binary floating point
    /// The nearest number, ties to even; infinity on overflow. A `long double` has the precision of
    /// a `double`.
    /// @{
    explicit operator float() const noexcept { return Functions::toFloat(record_); }
    explicit operator double() const noexcept { return Functions::toDouble(record_); }
    explicit operator long double() const noexcept { return Functions::toDouble(record_); }
    /// @}

private:
    ODecimal128 record_;
};

static_assert(sizeof(decimal128) == 16, "nothing but the record");

} // namespace decimal

} // namespace orv

#endif
