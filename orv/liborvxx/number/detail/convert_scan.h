// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a scan found as a `float` or `double`.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_CONVERT_SCAN_H
#define ORV_LIBORVXX_NUMBER_DETAIL_CONVERT_SCAN_H

#include "orv/liborvxx/number/detail/float_scanner.h"
#include "orv/liborvxx/number/number_status.h"

#include <limits>

namespace orv::detail {

/// A scanner that keeps as many digits as a `Float` (`float` or `double`) is made from: 20 decimal
/// ones, and the hexadecimal ones of 24 and of 53 to 56 bits.
template <class Float>
inline constexpr float_scanner SCANNER_FOR{20, 14};
template <>
inline constexpr float_scanner SCANNER_FOR<float>{20, 6};

/// The Float that the text of a scan stands for. A NaN is positive, whatever its sign. Takes no
/// memory.
/// \exception std::logic_error "string_to_float" if the radix is none that a scan sets; a scan's
///            own results never throw
template <class Float>
Float convertScan(const float_scanner& state);

extern template float convertScan<float>(const float_scanner&);
extern template double convertScan<double>(const float_scanner&);

/// What an infinity says depends on whether digits made it.
template <class Float>
constexpr number_status statusOf(bool fromDigits, Float value) noexcept {
    constexpr Float INFINITE = std::numeric_limits<Float>::infinity();
    return fromDigits && (value == INFINITE || value == -INFINITE) ? number_status::out_of_range
                                                                   : number_status::ok;
}

} // namespace orv::detail

#endif
