// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief US-ASCII.
#ifndef ORV_LIBORVXX_CHARSET_SETS_US_ASCII_H
#define ORV_LIBORVXX_CHARSET_SETS_US_ASCII_H

#include "orv/liborvxx/charset/charset.h"

namespace orv {

/// The identity on 0x00 to 0x7F.
class US_ASCII : public Charset {
public:
    US_ASCII();

    std::unique_ptr<CharsetDecoder> newDecoder() override;
    std::unique_ptr<CharsetEncoder> newEncoder() override;

private:
    class Decoder;
    class Encoder;
};

} // namespace orv

#endif
