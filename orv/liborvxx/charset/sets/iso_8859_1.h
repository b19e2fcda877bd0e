// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief ISO-8859-1.
#ifndef ORV_LIBORVXX_CHARSET_SETS_ISO_8859_1_H
#define ORV_LIBORVXX_CHARSET_SETS_ISO_8859_1_H

#include "orv/liborvxx/charset/charset.h"

namespace orv {

/// The identity on 0x00 to 0xFF.
class ISO_8859_1 : public Charset {
public:
    ISO_8859_1();

    std::unique_ptr<CharsetDecoder> newDecoder() override;
    std::unique_ptr<CharsetEncoder> newEncoder() override;

private:
    class Decoder;
    class Encoder;
};

} // namespace orv

#endif
