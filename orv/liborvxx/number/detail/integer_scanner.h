// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The scan of an integer's text, which all shapes of the readers share.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_INTEGER_SCANNER_H
#define ORV_LIBORVXX_NUMBER_DETAIL_INTEGER_SCANNER_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/number/detail/digit_run.h"
#include "orv/liborvxx/number/detail/text_source.h"
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_status.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace orv::detail {

/// An integer's digits.
struct ScannedDigits {
    std::uint64_t magnitude; ///< of no use where `status` is not `ok`
    number_status status;    ///< `ok`, `digit_expected`, or `out_of_range` from 2^64 on
};

/// Scans a prefix and digits, as string_to_int.h tells them, and leaves \p source behind the last
/// digit; where there is none, anywhere. Made for the sources of text_source.h.
template <class Source>
ScannedDigits scanDigits(Source& source, int radix) noexcept;

/// Skips white space and, if it \p takesSign, a sign. Whether that was a '-'.
template <class Source>
ORVXX_ALWAYS_INLINE bool takeSpaceAndSign(Source& source, bool takesSign) noexcept {
    char c = source.ascii();
    while (isAsciiSpace(c)) {
        source.step();
        c = source.ascii();
    }
    if (takesSign && (c == '-' || c == '+')) {
        source.step();
    }
    return takesSign && c == '-';
}

/// The number in a type, or the limit nearest to it.
template <class T>
ORVXX_ALWAYS_INLINE from_chars_result<T> fitInteger(const ScannedDigits& scanned, bool negative,
                                                    std::size_t length) noexcept {
    using Bits = std::make_unsigned_t<T>;
    using Limits = std::numeric_limits<T>;
    // The smallest signed value is one further from 0 than the largest.
    const std::uint64_t limit = std::uint64_t{Limits::max()} + (negative ? 1U : 0U);
    if (scanned.status != number_status::ok || scanned.magnitude > limit) {
        if (scanned.status == number_status::digit_expected) {
            return {0, 0, scanned.status};
        }
        return {negative ? Limits::min() : Limits::max(), length, number_status::out_of_range};
    }
    const auto bits = static_cast<Bits>(scanned.magnitude);
    return {static_cast<T>(negative ? Bits{0} - bits : bits), length, number_status::ok};
}

/// Reads a T from the front of \p source.
template <class T, class Source>
from_chars_result<T> readInteger(Source source, int radix) noexcept {
    const auto* const start = source.position();
    const bool negative = takeSpaceAndSign(source, std::is_signed_v<T>);
    const auto* const digits = source.position();
    if (radix == 10 && source.known() > 0) {
        const DigitRun run = shortDecimal(digits, source.known());
        if (run.count > 0) {
            return fitInteger<T>({run.value, number_status::ok}, negative,
                                 static_cast<std::size_t>(digits - start) + run.count);
        }
    }
    Source rest = source; // whose address goes out, so that the other one stays in registers
    const ScannedDigits scanned = scanDigits(rest, radix);
    return fitInteger<T>(scanned, negative, static_cast<std::size_t>(rest.position() - start));
}

} // namespace orv::detail

#endif
