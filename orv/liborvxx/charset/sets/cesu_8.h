// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief CESU-8 (Unicode Technical Report #26).
#ifndef ORV_LIBORVXX_CHARSET_SETS_CESU_8_H
#define ORV_LIBORVXX_CHARSET_SETS_CESU_8_H

#include "orv/liborvxx/charset/charset.h"

namespace orv {

/// Each code unit by itself in one to three bytes, so a supplementary character takes six. The
/// decoder passes unpaired surrogates; the encoder refuses them.
class CESU_8 : public Charset {
public:
    CESU_8();

    std::unique_ptr<CharsetDecoder> newDecoder() override;
    std::unique_ptr<CharsetEncoder> newEncoder() override;

private:
    class Decoder;
    class Encoder;
};

} // namespace orv

#endif
