// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The loops of the GB18030 decoder.
#include "orv/liborvxx/charset/sets/gb18030_coders.h"

#include "orv/liborvxx/charset/detail/ascii_words.h"
#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/charset/sets/gb18030_forms.h"
#include "orv/liborvxx/charset/tables/gb18030.h"
#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <cstddef>

namespace orv {

using namespace gb18030;
using detail::DecodeCursor;

namespace {

// What is looked up in, as locals of a loop.
struct Tables {
    const std::uint16_t* index;
    const char16* data;

    // The character of a form of the BMP. Every form that the loops ask for has one.
    char16 character(std::uint32_t linear) const noexcept {
        const std::uint32_t entry = index[linear >> PAGE_SHIFT];
        if (entry < FIRST_LINEAR) {
            return data[(linear & PAGE_MASK) | entry];
        }
        const std::int32_t delta = tables::gb18030::DELTAS[FIRST_ROW - entry];
        return char16(linear - static_cast<std::uint32_t>(delta));
    }
};

constexpr bool isSupplementary(std::uint32_t linear) noexcept {
    return Char16::isSupplementaryCodePoint(char32_t{linear - SUPPLEMENTARY_DELTA});
}

void putSupplementary(char16* dst, std::uint32_t linear) noexcept {
    const char32_t value = linear - SUPPLEMENTARY_DELTA;
    dst[0] = Char16::highSurrogate(value);
    dst[1] = Char16::lowSurrogate(value);
}

// The functions on one character find input at the cursor. Underflow means that it was decoded, or,
// where the cursor has not moved, that the input ends inside it.

CoderResult put(DecodeCursor& cursor, char16 unit, std::size_t length) noexcept {
    if (cursor.dst == cursor.dstEnd) {
        return CoderResult::overflow();
    }
    *cursor.dst++ = unit;
    cursor.src += length;
    return CoderResult::underflow();
}

// The first two bytes are there and begin a four-byte form.
CoderResult decodeQuad(DecodeCursor& cursor, Tables tables) noexcept {
    const unsigned char* const src = cursor.src;
    if (cursor.srcLeft() < 3) {
        return CoderResult::underflow();
    }
    if (!isLead(src[2])) {
        return CoderResult::malformed(3);
    }
    if (cursor.srcLeft() < 4) {
        return CoderResult::underflow();
    }
    if (!isDigit(src[3])) {
        return CoderResult::malformed(4);
    }
    const std::uint32_t linear = quadIndex(src[0], src[1], src[2], src[3]);
    if (linear < END_OF_BMP) {
        return put(cursor, tables.character(linear), 4);
    }
    if (!isSupplementary(linear)) {
        return CoderResult::unmappable(4);
    }
    if (cursor.dstLeft() < 2) {
        return CoderResult::overflow();
    }
    putSupplementary(cursor.dst, linear);
    cursor.dst += 2;
    cursor.src += 4;
    return CoderResult::underflow();
}

CoderResult decodeOne(DecodeCursor& cursor, Tables tables) noexcept {
    const unsigned char first = *cursor.src;
    if (first < 0x80) {
        return put(cursor, char16(first), 1);
    }
    if (!isLead(first)) {
        return CoderResult::malformed(1);
    }
    if (cursor.srcLeft() == 1) {
        return CoderResult::underflow();
    }
    const unsigned char second = cursor.src[1];
    if (isTrail(second)) {
        return put(cursor, tables.character(pairIndex(first, second)), 2);
    }
    return isDigit(second) ? decodeQuad(cursor, tables) : CoderResult::malformed(2);
}

// The functions that follow are the fast loops. They look at the ends of the buffers once for many
// characters and stop before whatever is no plain case of theirs.

void decodePairs(DecodeCursor& cursor, Tables tables) noexcept {
    const unsigned char* src = cursor.src;
    char16* dst = cursor.dst;
    const std::size_t n = std::min(cursor.srcLeft() / 2, cursor.dstLeft());
    for (char16* const stop = dst + n; dst != stop; ++dst) {
        const std::uint32_t first = src[0];
        const std::uint32_t second = src[1];
        if (!isLead(first) || !isTrail(second)) {
            break;
        }
        *dst = tables.character(pairIndex(first, second));
        src += 2;
    }
    cursor.src = src;
    cursor.dst = dst;
}

void decodeQuads(DecodeCursor& cursor, Tables tables) noexcept {
    const unsigned char* src = cursor.src;
    char16* dst = cursor.dst;
    const std::size_t n = std::min(cursor.srcLeft() / 4, cursor.dstLeft() / 2);
    for (const unsigned char* const stop = src + 4 * n; src != stop; src += 4) {
        if (!isLead(src[0]) || !isDigit(src[1]) || !isLead(src[2]) || !isDigit(src[3])) {
            break;
        }
        const std::uint32_t linear = quadIndex(src[0], src[1], src[2], src[3]);
        if (linear < END_OF_BMP) {
            *dst++ = tables.character(linear);
        } else if (isSupplementary(linear)) {
            putSupplementary(dst, linear);
            dst += 2;
        } else {
            break;
        }
    }
    cursor.src = src;
    cursor.dst = dst;
}

void decodeAhead(DecodeCursor& cursor, Tables tables) noexcept {
    for (const unsigned char* before = nullptr; cursor.src != before;) {
        before = cursor.src;
        const std::size_t n = std::min(cursor.srcLeft(), cursor.dstLeft());
        if (n != 0 && *cursor.src < 0x80) {
            const std::size_t done = detail::widenAsciiWord(cursor.src, cursor.dst, n);
            cursor.src += done;
            cursor.dst += done;
        }
        decodePairs(cursor, tables);
        decodeQuads(cursor, tables);
    }
}

} // namespace

CoderResult GB18030Decoder::decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) {
    const Tables tables{index_, data_};
    DecodeCursor cursor(in, out);
    while (cursor.src != cursor.srcEnd) {
        decodeAhead(cursor, tables);
        if (cursor.src == cursor.srcEnd) {
            break;
        }
        const unsigned char* const before = cursor.src;
        const CoderResult result = decodeOne(cursor, tables);
        if (result.kind != CoderResult::UNDERFLOW || cursor.src == before) {
            return cursor.commit(result);
        }
    }
    return cursor.commit(CoderResult::underflow());
}

} // namespace orv
