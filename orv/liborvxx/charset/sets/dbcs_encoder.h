// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The encoder of the double-byte sets.
#ifndef ORV_LIBORVXX_CHARSET_SETS_DBCS_ENCODER_H
#define ORV_LIBORVXX_CHARSET_SETS_DBCS_ENCODER_H

#include "orv/liborvxx/charset/charset_encoder.h"
#include "orv/liborvxx/charset/detail/ascii_words.h"
#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orv {

/// Encodes units through a table of two levels.
///
/// `index[key >> ENCODE_SHIFT]` is the offset of the key's page in `data`, or 0xFFFF for a page
/// with nothing mapped. An entry of a page is a single byte below 0x100, 0xFFFF for unmapped, and
/// else two bytes, the high one first.
///
/// `Traits` has the constants `ENCODE_SHIFT` and `MAX_KEY`, the highest key that the index covers.
/// With a `MAX_KEY` beyond the BMP the keys are code points, else code units. `HAS_SHORT_WORDS`
/// says that text of the set has spaces between words of a few characters, at places that no branch
/// predictor guesses: lengths are computed then, which costs more where single bytes are rare.
///
/// The tables are borrowed. They have ASCII too, as single bytes, and nothing for surrogates.
template <typename Traits>
class DBCSEncoder : public CharsetEncoder {
public:
    DBCSEncoder(Charset* charset, const std::uint16_t* index, const std::uint16_t* data)
        : CharsetEncoder(charset, 2.0F, 2), index_(index), data_(data) {}

protected:
    CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override {
        detail::EncodeCursor cursor(in, out);
        while (cursor.src != cursor.srcEnd) {
            encodeAhead(cursor);
            if (cursor.src == cursor.srcEnd) {
                break;
            }
            const char16* const before = cursor.src;
            const CoderResult result = encodeOne(cursor);
            if (result.kind != CoderResult::UNDERFLOW || cursor.src == before) {
                return cursor.commit(result);
            }
        }
        return cursor.commit(CoderResult::underflow());
    }

private:
    static constexpr bool HAS_SUPPLEMENTARY = Traits::MAX_KEY > 0xFFFF;
    static constexpr unsigned int UNMAPPED = 0xFFFF;

    static unsigned int lookUp(const std::uint16_t* index, const std::uint16_t* data,
                               char32_t key) noexcept {
        constexpr char32_t PAGE_MASK = (char32_t{1} << Traits::ENCODE_SHIFT) - 1;
        if (key > Traits::MAX_KEY) {
            return UNMAPPED;
        }
        const unsigned int page = index[key >> Traits::ENCODE_SHIFT];
        return page == UNMAPPED ? UNMAPPED : data[(key & PAGE_MASK) | page];
    }

    // The character at the cursor, which has input left. Underflow means that it was encoded, or,
    // where the cursor has not moved, that the input ends inside a pair.
    CoderResult encodeOne(detail::EncodeCursor& cursor) const {
        const char16 first = *cursor.src;
        auto key = static_cast<char32_t>(first);
        const char16* next = cursor.src + 1;
        if constexpr (HAS_SUPPLEMENTARY) {
            if (Char16::isSurrogate(first)) {
                CoderResult result = CoderResult::underflow();
                key = fetchSurrogatePair(first, next, cursor.srcEnd, &result);
                if (key == 0) {
                    return result;
                }
            }
        }
        const unsigned int entry = key < 0x80 ? key : lookUp(index_, data_, key);
        if (entry == UNMAPPED) {
            return unmappableCodeUnit(cursor.src, cursor.srcEnd);
        }
        const std::size_t length = entry < 0x100 ? 1 : 2;
        if (cursor.dstLeft() < length) {
            return CoderResult::overflow();
        }
        if (length == 1) {
            *cursor.dst = static_cast<unsigned char>(entry);
        } else {
            cursor.dst[0] = static_cast<unsigned char>(entry >> 8);
            cursor.dst[1] = static_cast<unsigned char>(entry & 0xFF);
        }
        cursor.dst += length;
        cursor.src = next;
        return CoderResult::underflow();
    }

    // Encodes units, up to the last of them, an end of the output, or a character for encodeOne.
    void encodeAhead(detail::EncodeCursor& cursor) const noexcept {
        for (;;) {
            const std::size_t n = std::min(cursor.srcLeft(), cursor.dstLeft() / 2);
            if (n < 2) {
                return;
            }
            if (std::max(cursor.src[0], cursor.src[1]) < u'\x80') {
                const std::size_t done = detail::narrowAsciiWord(
                    cursor.src, cursor.dst, std::min(cursor.srcLeft(), cursor.dstLeft()));
                cursor.src += done;
                cursor.dst += done;
            } else if (!encodeWide(cursor, n - 1)) {
                return;
            }
        }
    }

    // Encodes up to n units, behind which there is another, into room for 2n bytes, so that none of
    // them looks at the ends. Stops before a word of ASCII; a lone letter goes through the table,
    // which costs less than a change of loops. Returns false at a character for encodeOne.
    bool encodeWide(detail::EncodeCursor& cursor, std::size_t n) const noexcept {
        // Locals, as a byte that is written might be one of the object's.
        const std::uint16_t* const index = index_;
        const std::uint16_t* const data = data_;
        const char16* src = cursor.src;
        unsigned char* dst = cursor.dst;
        bool good = true;
        for (const char16* const stop = src + n; src != stop; ++src) {
            const auto key = static_cast<char32_t>(src[0]);
            if ((key | static_cast<char32_t>(src[1])) < 0x80) {
                break;
            }
            const unsigned int entry = lookUp(index, data, key);
            if (entry == UNMAPPED) {
                good = false;
                break;
            }
            // A single byte is written twice; the next character covers one.
            if constexpr (Traits::HAS_SHORT_WORDS) {
                const unsigned int single = (entry - 0x100) >> 31;
                dst[0] = static_cast<unsigned char>(entry >> 8 | (entry & (0U - single)));
                dst[1] = static_cast<unsigned char>(entry & 0xFF);
                dst += 2 - single;
            } else {
                const unsigned int high = entry >> 8;
                dst[0] = static_cast<unsigned char>(high == 0 ? entry : high);
                dst[1] = static_cast<unsigned char>(entry & 0xFF);
                dst += high == 0 ? 1 : 2;
            }
        }
        cursor.src = src;
        cursor.dst = dst;
        return good;
    }

    const std::uint16_t* index_;
    const std::uint16_t* data_;
};

} // namespace orv

#endif
