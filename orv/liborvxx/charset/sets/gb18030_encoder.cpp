// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The loops of the GB18030 encoder.
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
using detail::EncodeCursor;

namespace {

// What is looked up in, as locals of a loop.
struct Tables {
    const std::uint16_t* index;
    const std::uint16_t* data;

    // The linear index of a unit that is no surrogate.
    std::uint32_t linear(std::uint32_t unit) const noexcept {
        const std::uint32_t entry = index[unit >> PAGE_SHIFT];
        if (entry < FIRST_LINEAR) {
            return data[(unit & PAGE_MASK) | entry];
        }
        return unit + static_cast<std::uint32_t>(tables::gb18030::DELTAS[FIRST_ROW - entry]);
    }
};

std::uint32_t linearOfPair(char16 high, char16 low) noexcept {
    return static_cast<std::uint32_t>(Char16::toCodePoint(high, low)) + SUPPLEMENTARY_DELTA;
}

// Writes the form if there is room for it.
CoderResult put(EncodeCursor& cursor, std::uint32_t linear, std::size_t units) noexcept {
    const std::size_t length = linear < FIRST_PAIR ? 1 : linear < FIRST_QUAD ? 2 : 4;
    if (cursor.dstLeft() < length) {
        return CoderResult::overflow();
    }
    if (length == 1) {
        *cursor.dst = static_cast<unsigned char>(linear);
    } else if (length == 2) {
        putPair(cursor.dst, linear);
    } else {
        putQuad(cursor.dst, linear);
    }
    cursor.dst += length;
    cursor.src += units;
    return CoderResult::underflow();
}

// The character at the cursor, which has input left. Underflow means that it was encoded, or, where
// the cursor has not moved, that the input ends inside a surrogate pair.
CoderResult encodeOne(EncodeCursor& cursor, Tables tables) noexcept {
    const char16 first = *cursor.src;
    if (first < u'\x80') {
        return put(cursor, static_cast<std::uint32_t>(first), 1);
    }
    if (!Char16::isSurrogate(first)) {
        return put(cursor, tables.linear(static_cast<std::uint32_t>(first)), 1);
    }
    if (Char16::isLowSurrogate(first)) {
        return CoderResult::malformed(1);
    }
    if (cursor.srcLeft() == 1) {
        return CoderResult::underflow();
    }
    const char16 second = cursor.src[1];
    if (!Char16::isLowSurrogate(second)) {
        return CoderResult::malformed(1);
    }
    return put(cursor, linearOfPair(first, second), 2);
}

// The fast loop beyond ASCII: it looks at the ends of the buffers once for many units and stops
// before a word of ASCII and before what is bad or cut. A lone letter or space costs less here than
// a change of loops.
void encodeWide(EncodeCursor& cursor, Tables tables) noexcept {
    const char16* src = cursor.src;
    unsigned char* dst = cursor.dst;
    const char16* const stop = src + std::min(cursor.srcLeft(), cursor.dstLeft() / 4);
    while (src < stop) {
        const auto unit = static_cast<std::uint32_t>(*src);
        if (unit < 0x80) {
            if (stop - src < 2 || src[1] < u'\x80') {
                break;
            }
            *dst++ = static_cast<unsigned char>(unit);
            ++src;
            continue;
        }
        if ((unit & 0xF800) != 0xD800) {
            const std::uint32_t linear = tables.linear(unit);
            if (linear < FIRST_QUAD) {
                putPair(dst, linear);
                dst += 2;
            } else {
                putQuad(dst, linear);
                dst += 4;
            }
            ++src;
            continue;
        }
        // The second half may stand behind the stop; it needs no room of its own.
        if (cursor.srcEnd - src < 2 || !Char16::isSurrogatePair(src[0], src[1])) {
            break;
        }
        putQuad(dst, linearOfPair(src[0], src[1]));
        dst += 4;
        src += 2;
    }
    cursor.src = src;
    cursor.dst = dst;
}

void encodeAhead(EncodeCursor& cursor, Tables tables) noexcept {
    for (const char16* before = nullptr; cursor.src != before;) {
        before = cursor.src;
        const std::size_t n = std::min(cursor.srcLeft(), cursor.dstLeft());
        if (n != 0 && *cursor.src < u'\x80') {
            const std::size_t done = detail::narrowAsciiWord(cursor.src, cursor.dst, n);
            cursor.src += done;
            cursor.dst += done;
        }
        encodeWide(cursor, tables);
    }
}

} // namespace

CoderResult GB18030Encoder::encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) {
    const Tables tables{index_, data_};
    EncodeCursor cursor(in, out);
    while (cursor.src != cursor.srcEnd) {
        encodeAhead(cursor, tables);
        if (cursor.src == cursor.srcEnd) {
            break;
        }
        const char16* const before = cursor.src;
        const CoderResult result = encodeOne(cursor, tables);
        if (result.kind != CoderResult::UNDERFLOW || cursor.src == before) {
            return cursor.commit(result);
        }
    }
    return cursor.commit(CoderResult::underflow());
}

} // namespace orv
