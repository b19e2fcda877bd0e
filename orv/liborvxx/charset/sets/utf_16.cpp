// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16BE and UTF-16LE: names and coders.
#include "orv/liborvxx/charset/sets/utf_16.h"

#include "orv/liborvxx/charset/sets/definitions.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

template <int LE>
class UTF16Decoder : public CharsetDecoder {
public:
    explicit UTF16Decoder(Charset* charset) : CharsetDecoder(charset, 0.5F, 1) {}

protected:
    CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) override {
        detail::DecodeCursor cursor(in, out);
        return cursor.commit(utf_16::decode<LE>(cursor));
    }
};

template <int LE>
class UTF16Encoder : public CharsetEncoder {
public:
    // The replacement is U+FFFD in the byte order of the set: a single byte is no text here.
    explicit UTF16Encoder(Charset* charset)
        : CharsetEncoder(charset, 2.0F, 2, LE != 0 ? "\xFD\xFF" : "\xFF\xFD") {}

protected:
    CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override {
        detail::EncodeCursor cursor(in, out);
        return cursor.commit(utf_16::encode<LE>(cursor));
    }
};

} // namespace

constinit const SetDefinition definitions::UTF_16BE = {
    1013,
    u"UTF-16BE"_u,
    {u"csUTF16BE"_u, u"ISO-10646-UCS-2"_u, u"UnicodeBigUnmarked"_u, u"UTF_16BE"_u, u"X-UTF-16BE"_u},
    makeDecoder<UTF16Decoder<utf_16::BIG_ENDIAN_ORDER>>,
    makeEncoder<UTF16Encoder<utf_16::BIG_ENDIAN_ORDER>>};

constinit const SetDefinition definitions::UTF_16LE = {
    1014,
    u"UTF-16LE"_u,
    {u"csUTF16LE"_u, u"UnicodeLittleUnmarked"_u, u"UTF_16LE"_u, u"X-UTF-16LE"_u},
    makeDecoder<UTF16Decoder<utf_16::LITTLE_ENDIAN_ORDER>>,
    makeEncoder<UTF16Encoder<utf_16::LITTLE_ENDIAN_ORDER>>};

} // namespace orv
