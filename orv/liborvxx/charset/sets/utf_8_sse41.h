// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 kernels for x86-64 processors with SSE4.1.
///
/// The files behind this header are compiled for SSE4.1 and must share no inline function with the
/// rest of the library, of which the linker might keep their copy. So they take plain pointers.
#ifndef ORV_LIBORVXX_CHARSET_SETS_UTF_8_SSE41_H
#define ORV_LIBORVXX_CHARSET_SETS_UTF_8_SSE41_H

namespace orv::utf_8 {

struct DecodePointers {
    const unsigned char* src;
    const unsigned char* srcEnd;
    char16_t* dst;
    char16_t* dstEnd;
};

struct EncodePointers {
    const char16_t* src;
    const char16_t* srcEnd;
    unsigned char* dst;
    unsigned char* dstEnd;
};

/// Converts valid UTF-8 or CESU-8 ahead; see utf_8_fast.h.
void decodeSse41(DecodePointers& p, bool cesu8) noexcept;

/// Converts valid UTF-16 ahead to UTF-8, or to CESU-8, which has three bytes for each half of a
/// surrogate pair; see utf_8_fast.h.
void encodeSse41(EncodePointers& p, bool cesu8) noexcept;

} // namespace orv::utf_8

#endif
