// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief ISO-8859-1: names and coders.
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
        const std::size_t n = std::min(cursor.srcLeft(), cursor.dstLeft());
        detail::widen(cursor.src, cursor.dst, n);
        cursor.src += n;
        cursor.dst += n;
        return cursor.commit(cursor.src == cursor.srcEnd ? CoderResult::underflow()
                                                         : CoderResult::overflow());
    }
};

class Encoder : public IdentityEncoder<0xFF> {
public:
    using IdentityEncoder::IdentityEncoder;
};

} // namespace

constinit const SetDefinition definitions::ISO_8859_1 = {
    4,
    u"ISO-8859-1"_u,
    {u"ISO_8859-1:1987"_u, u"iso-ir-100"_u, u"ISO_8859-1"_u, u"latin1"_u, u"l1"_u, u"IBM819"_u,
     u"CP819"_u, u"csISOLatin1"_u, u"819"_u, u"ISO8859-1"_u, u"8859_1"_u, u"ISO8859_1"_u,
     u"ISO_8859_1"_u, u"IBM-819"_u},
    makeDecoder<Decoder>,
    makeEncoder<Encoder>};

} // namespace orv
