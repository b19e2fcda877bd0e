// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `decimal64`: a decimal floating-point number of 16 digits.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL64_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL64_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal_operators.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstdint>

namespace orv {

class binary16;

namespace decimal {

class decimal64;

/// \cond declared with its fellows in binary_to_decimal.h
ORVXX_API decimal64 binary_to_decimal64(float value) noexcept;
ORVXX_API decimal64 binary_to_decimal64(double value) noexcept;
ORVXX_API decimal64 binary_to_decimal64(long double value) noexcept;
ORVXX_API decimal64 binary_to_decimal64(const binary16& value) noexcept;
/// \endcond

namespace detail {

/// What the constructors from text do.
/// @{
ORVXX_API ODecimal64 record64Of(string_ref text);
ORVXX_API ODecimal64 record64Of(ustring_ref text);
/// @}

} // namespace detail

/// A number of the IEEE 754-2008 format decimal64 in binary integer encoding, with the layout of
/// `ODecimal64`: 16 digits, a sign and a power of ten from -398 to 369 for the last of them;
/// infinities and NaNs.
///
/// It keeps its exponent: 1.5 and 1.50 are equal, and written as they are. What is exact converts
/// implicitly, what may round explicitly. The object is trivial to copy and holds nothing but the
/// record; distinct objects may be used from distinct threads.
///
/// \code
/// const orv::decimal::decimal64 price("19.90");
/// const orv::decimal::decimal64 total = price * 3; // 59.70
/// \endcode
class decimal64 : public detail::DecimalOperators<decimal64> {
public:
    /// The C library's functions on the record.
    using Functions = detail::DecimalFunctions<ODecimal64>;

    /// +0 with an exponent of 0.
    constexpr decimal64() noexcept : record_(detail::recordOf<ODecimal64>(0)) {}

    /// The number with these bits.
    constexpr decimal64(const ODecimal64& record) noexcept : record_(record) {}

    /// An integer, with an exponent of 0. Explicit from 64-bit types, which may have
    /// more than 16 digits and are rounded then.
    template <detail::DecimalInteger T>
    constexpr explicit(!detail::HOLDS_ALL_OF<ODecimal64, T>) decimal64(T n) noexcept
        : record_(detail::recordOf<ODecimal64>(n)) {}

    /// The same number with the same exponent.
    decimal64(const decimal32& x) noexcept : record_(orvDec32ToDec64(x.record())) {}

    /// \name From binary floating point
    /// The shortest decimal digits that read back as \p value, as `binary_to_decimal64`: 0.1 gives
    /// 0.1.
    /// @{
    explicit decimal64(float value) : decimal64(binary_to_decimal64(value)) {}
    explicit decimal64(double value) : decimal64(binary_to_decimal64(value)) {}
    explicit decimal64(long double value) : decimal64(binary_to_decimal64(value)) {}
    explicit decimal64(const binary16& value) : decimal64(binary_to_decimal64(value)) {}
    /// @}

    /// \name From text
    /// The number that the whole of \p text is, as `stod64_c` reads it.
    /// \exception std::invalid_argument if there is no number, with the texts of `stod64_c`;
    ///            "end of number expected" if something stands behind it
    /// @{
    explicit decimal64(string_ref text) : record_(detail::record64Of(text)) {}
    explicit decimal64(ustring_ref text) : record_(detail::record64Of(text)) {}
    /// @}

    /// The bits.
    constexpr const ODecimal64& record() const noexcept { return record_; }

    /// The number without the digits behind the point; the nearest limit if it is out of range, 0
    /// for a NaN.
    template <detail::DecimalInteger T>
    explicit operator T() const noexcept {
        return detail::integerOf<T>(record_);
    }

    /// Rounded to 7 digits, half to even; infinity on overflow.
    explicit operator decimal32() const noexcept { return orvDec64ToDec32(record_); }

    /// \name To binary floating point
    /// The nearest number, ties to even; infinity on overflow. A `long double` has the precision of
    /// a `double`.
    /// @{
    explicit operator float() const noexcept { return Functions::toFloat(record_); }
    explicit operator double() const noexcept { return Functions::toDouble(record_); }
    explicit operator long double() const noexcept { return Functions::toDouble(record_); }
    /// @}

private:
    ODecimal64 record_;
};

static_assert(sizeof(decimal64) == 8, "nothing but the record");

} // namespace decimal

} // namespace orv

#endif
