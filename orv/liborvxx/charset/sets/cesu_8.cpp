// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief CESU-8: names and coders.
#include "orv/liborvxx/charset/sets/cesu_8.h"

#include "orv/liborvxx/charset/sets/utf_8_fast.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

CESU_8::CESU_8() : Charset(1016, u"CESU-8"_u, {u"csCESU8"_u, u"csCESU-8"_u, u"CESU8"_u}) {}

class CESU_8::Decoder : public CharsetDecoder {
public:
    explicit Decoder(Charset* charset) : CharsetDecoder(charset, 1.0F, 1) {}

protected:
    CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) override {
        detail::DecodeCursor cursor(in, out);
        return cursor.commit(utf_8::decode<utf_8::Format::CESU_8>(cursor));
    }
};

class CESU_8::Encoder : public CharsetEncoder {
public:
    explicit Encoder(Charset* charset) : CharsetEncoder(charset, 1.1F, 3) {}

protected:
    CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override {
        detail::EncodeCursor cursor(in, out);
        return cursor.commit(utf_8::encode<utf_8::Format::CESU_8>(cursor));
    }
};

std::unique_ptr<CharsetDecoder> CESU_8::newDecoder() {
    return std::make_unique<Decoder>(this);
}

std::unique_ptr<CharsetEncoder> CESU_8::newEncoder() {
    return std::make_unique<Encoder>(this);
}

} // namespace orv
