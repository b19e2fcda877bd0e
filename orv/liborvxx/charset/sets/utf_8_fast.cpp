// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Choice of the fast UTF-8 loop, once for each large call.
#include "orv/liborvxx/charset/sets/utf_8_fast.h"

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/charset/detail/unit_runs.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <algorithm>

#if ORVXX_SSE41_KERNELS
#include "orv/liborvxx/charset/sets/utf_8_sse41.h"
#endif

namespace orv::utf_8 {

namespace {

// Below this many input elements the plain loop is as quick, and no choice is made.
constexpr std::size_t SHORT_INPUT = 16;

// For processors without a kernel: runs of ASCII in blocks, and single characters between them.
template <typename Cursor, typename AsciiRun, typename One>
void convertByRuns(Cursor& cursor, AsciiRun asciiRun, One one) noexcept {
    constexpr int CHARACTERS_BETWEEN_RUNS = 16;
    for (;;) {
        const std::size_t run =
            asciiRun(cursor.src, cursor.dst, std::min(cursor.srcLeft(), cursor.dstLeft()));
        cursor.src += run;
        cursor.dst += run;
        for (int i = 0; i < CHARACTERS_BETWEEN_RUNS; ++i) {
            if (cursor.src == cursor.srcEnd) {
                return;
            }
            const auto* const before = cursor.src;
            one(cursor);
            if (cursor.src == before) {
                return;
            }
        }
    }
}

#if ORVXX_SSE41_KERNELS
bool hasSse41() noexcept {
    static const bool supported = ORVXX_CPU_SUPPORTS("sse4.1");
    return supported;
}
#endif

} // namespace

template <Format format>
void decodeAhead(detail::DecodeCursor& cursor) noexcept {
    if (cursor.srcLeft() < SHORT_INPUT) {
        return;
    }
#if ORVXX_SSE41_KERNELS
    if (hasSse41()) {
        DecodePointers p{cursor.src, cursor.srcEnd, as_char16_t(cursor.dst),
                         as_char16_t(cursor.dstEnd)};
        decodeSse41(p, format == Format::CESU_8);
        cursor.src = p.src;
        cursor.dst = as_char16(p.dst);
        return;
    }
#endif
    convertByRuns(cursor, detail::widenAscii, decodeOne<format>);
}

template <Format format>
void encodeAhead(detail::EncodeCursor& cursor) noexcept {
    if (cursor.srcLeft() < SHORT_INPUT) {
        return;
    }
#if ORVXX_SSE41_KERNELS
    if (hasSse41()) {
        EncodePointers p{as_char16_t(cursor.src), as_char16_t(cursor.srcEnd), cursor.dst,
                         cursor.dstEnd};
        encodeSse41(p, format == Format::CESU_8);
        cursor.src = as_char16(p.src);
        cursor.dst = p.dst;
        return;
    }
#endif
    convertByRuns(cursor, detail::narrowUpTo<0x7F>, encodeOne<format>);
}

template void decodeAhead<Format::UTF_8>(detail::DecodeCursor&) noexcept;
template void decodeAhead<Format::CESU_8>(detail::DecodeCursor&) noexcept;
template void encodeAhead<Format::UTF_8>(detail::EncodeCursor&) noexcept;
template void encodeAhead<Format::CESU_8>(detail::EncodeCursor&) noexcept;

} // namespace orv::utf_8
