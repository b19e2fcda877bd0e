// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The coders of GB18030.
#ifndef ORV_LIBORVXX_CHARSET_SETS_GB18030_CODERS_H
#define ORV_LIBORVXX_CHARSET_SETS_GB18030_CODERS_H

#include "orv/liborvxx/charset/charset_decoder.h"
#include "orv/liborvxx/charset/charset_encoder.h"

#include <cstdint>

namespace orv {

/// Decodes bytes by way of the linear index (see gb18030_forms.h), by which the borrowed tables are
/// laid out. A malformed length runs through the offending byte.
class GB18030Decoder : public CharsetDecoder {
public:
    GB18030Decoder(Charset* charset, const std::uint16_t* index, const char16* data)
        : CharsetDecoder(charset, 1.0F, 1), index_(index), data_(data) {}

protected:
    CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) override;

private:
    const std::uint16_t* index_;
    const char16* data_;
};

/// Encodes units by way of the linear index, which is what the borrowed tables hold. No character
/// is unmappable.
class GB18030Encoder : public CharsetEncoder {
public:
    GB18030Encoder(Charset* charset, const std::uint16_t* index, const std::uint16_t* data)
        : CharsetEncoder(charset, 2.0F, 4), index_(index), data_(data) {}

protected:
    CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override;

private:
    const std::uint16_t* index_;
    const std::uint16_t* data_;
};

} // namespace orv

#endif
