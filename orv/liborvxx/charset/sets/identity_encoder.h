// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The encoder of the sets whose bytes are the units of the same value.
#ifndef ORV_LIBORVXX_CHARSET_SETS_IDENTITY_ENCODER_H
#define ORV_LIBORVXX_CHARSET_SETS_IDENTITY_ENCODER_H

#include "orv/liborvxx/charset/charset_encoder.h"
#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/charset/detail/unit_runs.h"

#include <algorithm>

namespace orv {

/// Encodes the units up to \p Max as the bytes of the same value; nothing else has a byte.
template <unsigned int Max>
class IdentityEncoder : public CharsetEncoder {
public:
    explicit IdentityEncoder(Charset* charset) : CharsetEncoder(charset, 1.0F, 1) {}

protected:
    CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override {
        detail::EncodeCursor cursor(in, out);
        const std::size_t done = detail::narrowUpTo<Max>(
            cursor.src, cursor.dst, std::min(cursor.srcLeft(), cursor.dstLeft()));
        cursor.src += done;
        cursor.dst += done;
        if (cursor.src == cursor.srcEnd) {
            return cursor.commit(CoderResult::underflow());
        }
        // The unit is judged before the room.
        if (static_cast<unsigned int>(*cursor.src) > Max) {
            return cursor.commit(unmappableCodeUnit(cursor.src, cursor.srcEnd));
        }
        return cursor.commit(CoderResult::overflow());
    }
};

} // namespace orv

#endif
