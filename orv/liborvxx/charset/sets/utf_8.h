// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 (RFC 3629).
#ifndef ORV_LIBORVXX_CHARSET_SETS_UTF_8_H
#define ORV_LIBORVXX_CHARSET_SETS_UTF_8_H

#include "orv/liborvxx/charset/charset.h"

namespace orv {

/// The strict form: no surrogates, no overlong forms, nothing above U+10FFFF, in either direction.
/// A bad continuation byte counts into the malformed length.
class UTF_8 : public Charset {
public:
    UTF_8();

    std::unique_ptr<CharsetDecoder> newDecoder() override;
    std::unique_ptr<CharsetEncoder> newEncoder() override;

private:
    class Decoder;
    class Encoder;
};

} // namespace orv

#endif
