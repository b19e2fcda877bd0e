// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief CESU-8: names and coders.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/utf_8_fast.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

class Decoder : public CharsetDecoder {
public:
    explicit Decoder(Charset* charset) : CharsetDecoder(charset, 1.0F, 1) {}

protected:
    CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) override {
        detail::DecodeCursor cursor(in, out);
        return cursor.commit(utf_8::decode<utf_8::Format::CESU_8>(cursor));
    }
};

class Encoder : public CharsetEncoder {
public:
    explicit Encoder(Charset* charset) : CharsetEncoder(charset, 1.1F, 3) {}

protected:
    CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override {
        detail::EncodeCursor cursor(in, out);
        return cursor.commit(utf_8::encode<utf_8::Format::CESU_8>(cursor));
    }
};

} // namespace

constinit const SetDefinition definitions::CESU_8 = {1016,
                                                     u"CESU-8"_u,
                                                     {u"csCESU8"_u, u"csCESU-8"_u, u"CESU8"_u},
                                                     makeDecoder<Decoder>,
                                                     makeEncoder<Encoder>};

} // namespace orv
