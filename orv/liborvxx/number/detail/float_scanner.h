// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The scan of a floating-point number's text: an exact coefficient, a scale, and what is
/// known of the digits that the coefficient has no room for.
///
/// The grammar is that of string_to_float.h.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_FLOAT_SCANNER_H
#define ORV_LIBORVXX_NUMBER_DETAIL_FLOAT_SCANNER_H

#include "orv/liborvxx/number/detail/rounding.h"
#include "orv/liborvxx/number/number_status.h"
#include "orv/liborvxx/number/words/limb.h"

#include <cstdint>
#include <limits>

namespace orv::detail {

/// What a scan is to keep, and what it found.
struct float_scanner {
    /// \name Set by the caller
    /// @{
    /// Decimal digits to keep, from 1 to 38; the others go into `rounding`.
    std::int32_t max_digits;
    /// Hexadecimal digits to keep, up to 32; 0 reads "0x1" as the number 0 with "x1" behind it.
    std::int32_t max_hex_digits;
    /// @}
    /// \name Set by the scan
    /// @{
    /// A '-' was read.
    bool negative = false;
    /// What the scale is a power of: 10 or 2; 0 for a word.
    std::int32_t radix = 0;
    /// The digits kept, as an integer.
    words::Wide coefficient{0, 0};
    /// Rounding information (rounding.h) on the digits that were not kept.
    unsigned rounding = ROUNDING_EXACT;
    /// The scale; `EXPONENT_OVERFLOW` or `EXPONENT_UNDERFLOW` (pack_internal.h) where it is beyond
    /// the type, or was written with ten digits and more. For a word what the word means.
    std::int32_t exponent = 0;
    /// @}
};

/// \name `exponent` for the words
/// @{
inline constexpr std::int32_t WORD_NAN = 0;
inline constexpr std::int32_t WORD_INFINITY = std::numeric_limits<std::int32_t>::max();
/// @}

/// Scans a number and leaves \p text behind it; where there is none, anywhere. Made for the sources
/// of text_source.h. Time is linear in the length of the number, and no memory is taken.
/// \param skip_space skip white space in front
/// \return `ok`, `digit_expected`, `infinity_expected` or `nan_expected`
template <class Source>
number_status scan_float(float_scanner& state, Source& text, bool skip_space) noexcept;

} // namespace orv::detail

#endif
