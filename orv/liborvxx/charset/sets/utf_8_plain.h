// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 and CESU-8, one sequence at a time.
///
/// These loops say what the formats are. They finish whatever the fast loops leave: ends of
/// buffers, errors, and all of CESU-8 beyond ASCII.
#ifndef ORV_LIBORVXX_CHARSET_SETS_UTF_8_PLAIN_H
#define ORV_LIBORVXX_CHARSET_SETS_UTF_8_PLAIN_H

#include "orv/liborvxx/charset/coder_result.h"
#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/text/code_points.h"

#include <cstddef>

namespace orv::utf_8 {

/// The two formats: they differ in the treatment of surrogates and supplementary characters.
enum class Format { UTF_8, CESU_8 };

/// Bytes of the sequence that a lead byte opens; 0 for a byte that opens none.
template <Format format>
constexpr std::size_t sequenceLength(unsigned char lead) noexcept {
    if (lead < 0x80) {
        return 1;
    }
    if ((lead & 0xE0) == 0xC0) {
        return 2;
    }
    if ((lead & 0xF0) == 0xE0) {
        return 3;
    }
    return format == Format::UTF_8 && (lead & 0xF8) == 0xF0 ? 4 : 0;
}

/// Whether the value of a complete sequence of \p length bytes is one that may stand in it.
template <Format format>
constexpr bool isAllowed(char32_t value, std::size_t length) noexcept {
    switch (length) {
    case 2:
        return value >= 0x80;
    case 3:
        return value >= 0x800 && (format == Format::CESU_8 || (value & 0xFFFFF800U) != 0xD800);
    case 4:
        return value >= 0x10000 && value <= 0x10FFFF;
    default:
        return true;
    }
}

/// Decodes the sequence at the cursor, which has input left. Underflow means that it was decoded,
/// or, where the cursor has not moved, that the input ends inside it. A bad continuation byte
/// counts into the malformed length.
template <Format format>
CoderResult decodeOne(detail::DecodeCursor& cursor) noexcept {
    const unsigned char lead = *cursor.src;
    const std::size_t length = sequenceLength<format>(lead);
    if (length == 0) {
        return CoderResult::malformed(1);
    }
    if (cursor.srcLeft() < length) {
        return CoderResult::underflow();
    }
    // The lead byte keeps its 7, 5, 4 or 3 low bits.
    char32_t value = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char byte = cursor.src[i];
        if ((byte & 0xC0) != 0x80) {
            return CoderResult::malformed(static_cast<unsigned int>(i + 1));
        }
        value = value << 6 | (byte & 0x3FU);
    }
    if (!isAllowed<format>(value, length)) {
        return CoderResult::malformed(static_cast<unsigned int>(length));
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

/// Writes \p value as \p length bytes of ordinary UTF-8 at \p dst.
inline void put(unsigned char* dst, char32_t value, std::size_t length) noexcept {
    if (length == 1) {
        *dst = static_cast<unsigned char>(value);
        return;
    }
    for (std::size_t i = length - 1; i != 0; --i) {
        dst[i] = static_cast<unsigned char>(0x80U | (value & 0x3FU));
        value >>= 6;
    }
    // 110xxxxx, 1110xxxx, 11110xxx.
    dst[0] =
        static_cast<unsigned char>((0xF00U >> length) & 0xFFU) | static_cast<unsigned char>(value);
}

/// Encodes the character at the cursor, which has input left. Underflow means that it was encoded,
/// or, where the cursor has not moved, that the input ends inside a pair.
template <Format format>
CoderResult encodeOne(detail::EncodeCursor& cursor) noexcept {
    const char16 first = *cursor.src;
    if (!Char16::isSurrogate(first)) {
        const auto value = static_cast<char32_t>(first);
        const std::size_t length = value < 0x80 ? 1 : value < 0x800 ? 2 : 3;
        if (cursor.dstLeft() < length) {
            return CoderResult::overflow();
        }
        put(cursor.dst, value, length);
        cursor.dst += length;
        ++cursor.src;
        return CoderResult::underflow();
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
    constexpr std::size_t length = format == Format::UTF_8 ? 4 : 6;
    if (cursor.dstLeft() < length) {
        return CoderResult::overflow();
    }
    if constexpr (format == Format::UTF_8) {
        put(cursor.dst, Char16::toCodePoint(first, second), 4);
    } else {
        put(cursor.dst, static_cast<char32_t>(first), 3);
        put(cursor.dst + 3, static_cast<char32_t>(second), 3);
    }
    cursor.dst += length;
    cursor.src += 2;
    return CoderResult::underflow();
}

/// Runs \p one until it stops or the input is used up.
template <typename Cursor, typename One>
CoderResult runPlain(Cursor& cursor, One one) noexcept {
    while (cursor.src != cursor.srcEnd) {
        const auto* const before = cursor.src;
        const CoderResult result = one(cursor);
        if (result.kind != CoderResult::UNDERFLOW || cursor.src == before) {
            return result;
        }
    }
    return CoderResult::underflow();
}

} // namespace orv::utf_8

#endif
