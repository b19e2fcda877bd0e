// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `decimal32`: a decimal floating-point number of 7 digits.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL32_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL32_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/decimal/decimal_operators.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstdint>

namespace orv {

class binary16;

namespace decimal {

class decimal32;

/// \cond declared with its fellows in binary_to_decimal.h
ORVXX_API decimal32 binary_to_decimal32(float value) noexcept;
ORVXX_API decimal32 binary_to_decimal32(double value) noexcept;
ORVXX_API decimal32 binary_to_decimal32(long double value) noexcept;
ORVXX_API decimal32 binary_to_decimal32(const binary16& value) noexcept;
/// \endcond

namespace detail {

/// What the constructors from text do.
/// @{
ORVXX_API ODecimal32 record32Of(string_ref text);
ORVXX_API ODecimal32 record32Of(ustring_ref text);
/// @}

} // namespace detail

/// A number of the IEEE 754-2008 format decimal32 in binary integer encoding, with the layout of
/// `ODecimal32`: 7 digits, a sign and a power of ten from -101 to 90 for the last of them;
/// infinities and NaNs.
///
/// It keeps its exponent: 1.5 and 1.50 are equal, and written as they are. What is exact converts
/// implicitly, what may round explicitly. The object is trivial to copy and holds nothing but the
/// record; distinct objects may be used from distinct threads.
///
/// \code
/// const orv::decimal::decimal32 price("19.90");
/// const orv::decimal::decimal32 total = price + price; // 39.80
/// \endcode
class decimal32 : public detail::DecimalOperators<decimal32> {
public:
    /// The C library's functions on the record.
    using Functions = detail::DecimalFunctions<ODecimal32>;

    /// +0 with an exponent of 0.
    constexpr decimal32() noexcept : record_(detail::recordOf<ODecimal32>(0)) {}

    /// The number with these bits.
    constexpr decimal32(const ODecimal32& record) noexcept : record_(record) {}

    /// An integer, with an exponent of 0. Explicit from types that may have more
    /// than 7 digits, which are rounded.
    template <detail::DecimalInteger T>
    constexpr explicit(!detail::HOLDS_ALL_OF<ODecimal32, T>) decimal32(T n) noexcept
        : record_(detail::recordOf<ODecimal32>(n)) {}

    /// \name From binary floating point
    /// The shortest decimal digits that read back as \p value, as `binary_to_decimal32`: 0.1 gives
    /// 0.1.
    /// @{
    explicit decimal32(float value) : decimal32(binary_to_decimal32(value)) {}
    explicit decimal32(double value) : decimal32(binary_to_decimal32(value)) {}
    explicit decimal32(long double value) : decimal32(binary_to_decimal32(value)) {}
    explicit decimal32(const binary16& value) : decimal32(binary_to_decimal32(value)) {}
    /// @}

    /// \name From text
    /// The number that the whole of \p text is, as `stod32_c` reads it.
    /// \exception std::invalid_argument if there is no number, with the texts of `stod32_c`;
    ///            "end of number expected" if something stands behind it
    /// @{
    explicit decimal32(string_ref text) : record_(detail::record32Of(text)) {}
    explicit decimal32(ustring_ref text) : record_(detail::record32Of(text)) {}
    /// @}

    /// The bits.
    constexpr const ODecimal32& record() const noexcept { return record_; }

    /// The number without the digits behind the point; the nearest limit if it is out of range, 0
    /// for a NaN.
    template <detail::DecimalInteger T>
    explicit operator T() const noexcept {
        return detail::integerOf<T>(record_);
    }

    /// \name To binary floating point
    /// The nearest number, ties to even; infinity on overflow. A `long double` has the precision of
    /// a `double`.
    /// @{
    explicit operator float() const noexcept { return Functions::toFloat(record_); }
    explicit operator double() const noexcept { return Functions::toDouble(record_); }
    explicit operator long double() const noexcept { return Functions::toDouble(record_); }
    /// @}

private:
    ODecimal32 record_;
};

static_assert(sizeof(decimal32) == 4, "nothing but the record");

} // namespace decimal

} // namespace orv

#endif
