// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `SBCSEncoder` and `SBCSSparseEncoder`: the loops.
#include "orv/liborvxx/charset/sets/sbcs_encoder.h"

#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/charset/sets/sbcs_run.h"

#include <algorithm>

namespace orv {

namespace {

// The byte in an entry of a table.
bool takeByte(std::uint16_t entry, unsigned char& byte) noexcept {
    // Negative as a signed value: 0xFFFF, no byte.
    if ((entry & 0x8000U) != 0) {
        return false;
    }
    byte = static_cast<unsigned char>(entry);
    return true;
}

// Encodes up to the end of a buffer or a unit without a byte. \p unmappable judges the latter.
template <typename LookUp, typename Unmappable>
CoderResult encodeRun(detail::EncodeCursor cursor, LookUp lookUp, Unmappable unmappable) {
    const std::size_t done =
        sbcs::run(cursor.src, cursor.dst, std::min(cursor.srcLeft(), cursor.dstLeft()), lookUp);
    cursor.src += done;
    cursor.dst += done;
    if (cursor.src == cursor.srcEnd) {
        return cursor.commit(CoderResult::underflow());
    }
    // The unit is judged before the room.
    unsigned char byte = 0;
    return cursor.commit(lookUp(*cursor.src, byte) ? CoderResult::overflow()
                                                   : unmappable(cursor.src, cursor.srcEnd));
}

} // namespace

// The lambdas hold the fields by themselves: read through `this`, they would be loaded anew behind
// each byte stored, which might have been part of them.

CoderResult SBCSEncoder::encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) {
    const auto lookUp = [maxChar = maxChar_, table = table_](char16 unit,
                                                             unsigned char& byte) noexcept {
        const auto c = static_cast<std::uint32_t>(unit);
        return c <= maxChar && takeByte(table[c], byte);
    };
    return encodeRun(detail::EncodeCursor(in, out), lookUp, unmappableCodeUnit);
}

template <unsigned int Shift>
CoderResult SBCSSparseEncoder<Shift>::encodeLoop(Buffer<const char16>& in,
                                                 Buffer<unsigned char>& out) {
    const auto lookUp = [maxChar = maxChar_, index = index_,
                         data = data_](char16 unit, unsigned char& byte) noexcept {
        const auto c = static_cast<std::uint32_t>(unit);
        // Beyond it there is neither index nor data, in the page of the highest unit too.
        if (c > maxChar) {
            return false;
        }
        const std::uint32_t page = index[c >> Shift];
        return page != 0xFFFF && takeByte(data[(c & (PAGE - 1)) | page], byte);
    };
    return encodeRun(detail::EncodeCursor(in, out), lookUp, unmappableCodeUnit);
}

template class SBCSSparseEncoder<5>;
template class SBCSSparseEncoder<6>;
template class SBCSSparseEncoder<7>;

} // namespace orv
