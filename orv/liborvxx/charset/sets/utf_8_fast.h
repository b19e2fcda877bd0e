// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 and CESU-8 in bulk: what the plain loops do, many characters at a time.
///
/// A fast loop converts valid text from the cursor on, whole characters only, and stops early
/// wherever it likes: before bad text, near the end of a buffer, or at once. It never reports
/// anything. The plain loop goes on from there, so every result, position and error length is the
/// plain loop's.
#ifndef ORV_LIBORVXX_CHARSET_SETS_UTF_8_FAST_H
#define ORV_LIBORVXX_CHARSET_SETS_UTF_8_FAST_H

#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/charset/sets/utf_8_plain.h"

namespace orv::utf_8 {

/// Converts ahead and moves the cursor. Between the cursor and the end of the output, elements may
/// be overwritten.
template <Format format>
void decodeAhead(detail::DecodeCursor& cursor) noexcept;
template <Format format>
void encodeAhead(detail::EncodeCursor& cursor) noexcept;

extern template void decodeAhead<Format::UTF_8>(detail::DecodeCursor&) noexcept;
extern template void decodeAhead<Format::CESU_8>(detail::DecodeCursor&) noexcept;
extern template void encodeAhead<Format::UTF_8>(detail::EncodeCursor&) noexcept;
extern template void encodeAhead<Format::CESU_8>(detail::EncodeCursor&) noexcept;

/// Fast loop, then plain loop.
template <Format format>
CoderResult decode(detail::DecodeCursor& cursor) noexcept {
    decodeAhead<format>(cursor);
    return runPlain(cursor, decodeOne<format>);
}
template <Format format>
CoderResult encode(detail::EncodeCursor& cursor) noexcept {
    encodeAhead<format>(cursor);
    return runPlain(cursor, encodeOne<format>);
}

} // namespace orv::utf_8

#endif
