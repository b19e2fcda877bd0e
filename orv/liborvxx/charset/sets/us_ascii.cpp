// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief US-ASCII: names and coders.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/charset/detail/unit_runs.h"
#include "orv/liborvxx/charset/sets/identity_encoder.h"
#include "orv/liborvxx/text/literals.h"

#include <algorithm>

namespace orv {

using namespace orv::literals;

namespace {

class Decoder : public CharsetDecoder {
public:
    explicit Decoder(Charset* charset) : CharsetDecoder(charset, 1.0F, 1) {}

protected:
    CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) override {
        detail::DecodeCursor cursor(in, out);
        const std::size_t done = detail::widenAscii(cursor.src, cursor.dst,
                                                    std::min(cursor.srcLeft(), cursor.dstLeft()));
        cursor.src += done;
        cursor.dst += done;
        if (cursor.src == cursor.srcEnd) {
            return cursor.commit(CoderResult::underflow());
        }
        // The byte is judged before the room.
        return cursor.commit(*cursor.src >= 0x80 ? CoderResult::malformed(1)
                                                 : CoderResult::overflow());
    }
};

class Encoder : public IdentityEncoder<0x7F> {
public:
    using IdentityEncoder::IdentityEncoder;
};

} // namespace

constinit const SetDefinition definitions::US_ASCII = {
    3,
    u"US-ASCII"_u,
    {u"iso-ir-6"_u, u"ANSI_X3.4-1968"_u, u"ANSI_X3.4-1986"_u, u"ISO_646.irv:1991"_u, u"ISO646-US"_u,
     u"us"_u, u"IBM367"_u, u"cp367"_u, u"csASCII"_u, u"ASCII"_u, u"iso_646.irv:1983"_u, u"ascii7"_u,
     u"default"_u, u"646"_u},
    makeDecoder<Decoder>,
    makeEncoder<Encoder>};

} // namespace orv
