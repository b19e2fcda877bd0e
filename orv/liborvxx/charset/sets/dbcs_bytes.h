// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Which bytes lead and which trail, by family of double-byte sets.
///
/// The traits of a set derive from one of these.
#ifndef ORV_LIBORVXX_CHARSET_SETS_DBCS_BYTES_H
#define ORV_LIBORVXX_CHARSET_SETS_DBCS_BYTES_H

#include "orv/liborvxx/text/char16.h"

#include <cstdint>

namespace orv {

/// Shift_JIS and its extensions, which leave 0xA0 to 0xDF to single-byte katakana.
struct ShiftJisBytes {
    using Entry = char16;
    static constexpr bool HAS_SHORT_WORDS = false;
    static constexpr bool isLead(unsigned int byte) noexcept {
        // Flipping bit 5 brings 0x81-0x9F and 0xE0-0xFC together.
        return (byte ^ 0x20U) - 0xA1U <= 0xDCU - 0xA1U;
    }
    static constexpr bool isTrail(unsigned int byte) noexcept {
        return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
    }
};

/// The sets with the whole range of lead and trail bytes.
struct WideRangeBytes {
    using Entry = char16;
    static constexpr bool HAS_SHORT_WORDS = false;
    static constexpr bool isLead(unsigned int byte) noexcept {
        return byte >= 0x81 && byte <= 0xFE;
    }
    static constexpr bool isTrail(unsigned int byte) noexcept {
        return byte >= 0x40 && byte <= 0xFE && byte != 0x7F;
    }
};

/// Big5 with the Hong Kong supplement: no trail bytes from 0x7F to 0xA0, and characters beyond the
/// BMP.
struct Big5HkscsBytes {
    using Entry = std::uint32_t;
    static constexpr bool HAS_SHORT_WORDS = false;
    static constexpr bool isLead(unsigned int byte) noexcept {
        return byte >= 0x81 && byte <= 0xFE;
    }
    static constexpr bool isTrail(unsigned int byte) noexcept {
        return (byte >= 0x40 && byte <= 0x7E) || (byte >= 0xA1 && byte <= 0xFE);
    }
};

} // namespace orv

#endif
