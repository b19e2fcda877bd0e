// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decoder of the double-byte sets.
#ifndef ORV_LIBORVXX_CHARSET_SETS_DBCS_DECODER_H
#define ORV_LIBORVXX_CHARSET_SETS_DBCS_DECODER_H

#include "orv/liborvxx/charset/charset_decoder.h"
#include "orv/liborvxx/charset/detail/ascii_words.h"
#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orv {

/// Decodes single bytes and pairs through one table of two levels.
///
/// A single byte of 0x80 or above has the id of its value; a pair has the id (lead - 0x80) * 192 +
/// trail, which is 256 or above as trail bytes are 0x40 or above. `index[id >> DECODE_SHIFT]` is
/// the offset of the id's page in `data`, or 0xFFFF for a page with nothing mapped; `UNMAPPABLE`
/// marks what is unmapped inside a page.
///
/// `Traits` has the functions `isLead` and `isTrail`, the constant `DECODE_SHIFT`, and the type
/// `Entry` of an element of `data`: `char16`, or `std::uint32_t` for code points.
///
/// The tables are borrowed. They have ASCII too, as itself under the ids below 0x80, and nothing
/// for pairs whose second byte is no trail byte.
template <typename Traits>
class DBCSDecoder : public CharsetDecoder {
public:
    using Entry = typename Traits::Entry;

    DBCSDecoder(Charset* charset, const std::uint16_t* index, const Entry* data)
        : CharsetDecoder(charset, 0.5F, 1), index_(index), data_(data) {}

protected:
    CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) override {
        detail::DecodeCursor cursor(in, out);
        while (cursor.src != cursor.srcEnd) {
            decodeAhead(cursor);
            if (cursor.src == cursor.srcEnd) {
                break;
            }
            const unsigned char* const before = cursor.src;
            const CoderResult result = decodeOne(cursor);
            if (result.kind != CoderResult::UNDERFLOW || cursor.src == before) {
                return cursor.commit(result);
            }
        }
        return cursor.commit(CoderResult::underflow());
    }

private:
    static constexpr std::uint32_t UNMAPPED = UNMAPPABLE;

    static unsigned int pairId(unsigned int lead, unsigned int trail) noexcept {
        return (lead - 0x80) * 192 + trail;
    }

    static std::uint32_t lookUp(const std::uint16_t* index, const Entry* data,
                                unsigned int id) noexcept {
        constexpr unsigned int PAGE_MASK = (1U << Traits::DECODE_SHIFT) - 1;
        const unsigned int page = index[id >> Traits::DECODE_SHIFT];
        return page == 0xFFFF ? UNMAPPED
                              : static_cast<std::uint32_t>(data[(id & PAGE_MASK) | page]);
    }

    // The character at the cursor, which has input left. Underflow means that it was decoded, or,
    // where the cursor has not moved, that its second byte is not there.
    CoderResult decodeOne(detail::DecodeCursor& cursor) const noexcept {
        const unsigned int first = *cursor.src;
        std::uint32_t value = first;
        unsigned int length = 1;
        if (Traits::isLead(first)) {
            if (cursor.srcLeft() == 1) {
                return CoderResult::underflow();
            }
            const unsigned int trail = cursor.src[1];
            if (!Traits::isTrail(trail)) {
                return CoderResult::malformed(1);
            }
            value = lookUp(index_, data_, pairId(first, trail));
            length = 2;
        } else if (first >= 0x80) {
            value = lookUp(index_, data_, first);
        }
        if (value == UNMAPPED) {
            return CoderResult::unmappable(length);
        }
        if (cursor.dstLeft() < Char16::charCount(value)) {
            return CoderResult::overflow();
        }
        if (Char16::isBmpCodePoint(value)) {
            *cursor.dst++ = char16(value);
        } else {
            *cursor.dst++ = Char16::highSurrogate(value);
            *cursor.dst++ = Char16::lowSurrogate(value);
        }
        cursor.src += length;
        return CoderResult::underflow();
    }

    // Decodes what takes one unit, up to an end of a buffer or to a character for decodeOne.
    void decodeAhead(detail::DecodeCursor& cursor) const noexcept {
        while (const std::size_t n = std::min(cursor.srcLeft() / 2, cursor.dstLeft())) {
            if ((cursor.src[0] | cursor.src[1]) < 0x80) {
                const std::size_t done = detail::widenAsciiWord(
                    cursor.src, cursor.dst, std::min(cursor.srcLeft(), cursor.dstLeft()));
                cursor.src += done;
                cursor.dst += done;
            } else if (!decodeWide(cursor, n)) {
                return;
            }
        }
    }

    // Decodes up to n characters, for which there are 2n bytes and room for n units, so that none
    // of them looks at the ends. Stops before a word of ASCII; a lone letter goes through the
    // table, which costs less than a change of loops. Returns false at a character for decodeOne.
    bool decodeWide(detail::DecodeCursor& cursor, std::size_t n) const noexcept {
        const std::uint16_t* const index = index_;
        const Entry* const data = data_;
        const unsigned char* src = cursor.src;
        char16* dst = cursor.dst;
        bool good = true;
        for (char16* const stop = dst + n; dst != stop; ++dst) {
            const unsigned int first = src[0];
            const unsigned int second = src[1];
            unsigned int id = first;
            unsigned int length = 1;
            if (Traits::isLead(first)) {
                // A second byte below 0x40 would give the id of another pair. One that is no trail
                // byte for another reason has an id of its own, with nothing mapped.
                if (second < 0x40) {
                    good = false;
                    break;
                }
                id = pairId(first, second);
                length = 2;
            } else if ((first | second) < 0x80) {
                break;
            }
            const std::uint32_t value = lookUp(index, data, id);
            if (value == UNMAPPED || !Char16::isBmpCodePoint(value)) {
                good = false;
                break;
            }
            *dst = char16(value);
            src += length;
        }
        cursor.src = src;
        cursor.dst = dst;
        return good;
    }

    const std::uint16_t* index_;
    const Entry* data_;
};

} // namespace orv

#endif
