// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `SBCSDecoder`: the loop.
#include "orv/liborvxx/charset/sets/sbcs_decoder.h"

#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/charset/sets/sbcs_run.h"

#include <algorithm>

namespace orv {

template <int Total>
CoderResult SBCSDecoder<Total>::decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) {
    // The lambda holds the pointer by itself: read through `this`, it would be loaded anew for each
    // byte.
    const auto lookUp = [table = table_](unsigned char byte, char16& unit) noexcept {
        const char16 entry = table[byte];
        if (Total == 0 && entry == UNMAPPABLE) {
            return false;
        }
        unit = entry;
        return true;
    };
    detail::DecodeCursor cursor(in, out);
    const std::size_t done =
        sbcs::run(cursor.src, cursor.dst, std::min(cursor.srcLeft(), cursor.dstLeft()), lookUp);
    cursor.src += done;
    cursor.dst += done;
    if (cursor.src == cursor.srcEnd) {
        return cursor.commit(CoderResult::underflow());
    }
    // The byte is judged before the room.
    char16 unit;
    return cursor.commit(lookUp(*cursor.src, unit) ? CoderResult::overflow()
                                                   : CoderResult::unmappable(1));
}

template class SBCSDecoder<0>;
template class SBCSDecoder<1>;

} // namespace orv
