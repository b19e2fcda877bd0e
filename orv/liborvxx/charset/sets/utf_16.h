// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16 over bytes in a fixed byte order: plain loops and fast loops.
///
/// The plain loops say what the format is. A fast loop copies valid text from the cursor on, whole
/// characters only, and stops early wherever it likes; it never reports anything. The plain loop
/// goes on from there, so every result and position is the plain loop's.
#ifndef ORV_LIBORVXX_CHARSET_SETS_UTF_16_H
#define ORV_LIBORVXX_CHARSET_SETS_UTF_16_H

#include "orv/liborvxx/charset/coder_result.h"
#include "orv/liborvxx/charset/detail/loop_cursor.h"
#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orv::utf_16 {

/// The template argument of everything here: 0 for big-endian, 1 for little-endian.
inline constexpr int BIG_ENDIAN_ORDER = 0;
inline constexpr int LITTLE_ENDIAN_ORDER = 1;

/// The order of the machine.
inline constexpr int NATIVE_ORDER =
    std::endian::native == std::endian::little ? LITTLE_ENDIAN_ORDER : BIG_ENDIAN_ORDER;

/// The byte order mark read in the wrong order, which the decoder refuses.
inline constexpr char16 SWAPPED_MARK{0xFFFE};

/// The unit at \p bytes.
template <int LE>
char16 readUnit(const unsigned char* bytes) noexcept {
    return char16(LE != 0 ? bytes[0] | bytes[1] << 8 : bytes[0] << 8 | bytes[1]);
}

/// Writes a unit to \p bytes.
template <int LE>
void writeUnit(unsigned char* bytes, char16 unit) noexcept {
    bytes[LE != 0 ? 0 : 1] = static_cast<unsigned char>(static_cast<unsigned int>(unit) & 0xFF);
    bytes[LE != 0 ? 1 : 0] = static_cast<unsigned char>(static_cast<unsigned int>(unit) >> 8);
}

/// Decodes character by character. An odd byte and a high surrogate at the end of the input stay
/// unread. Malformed, of length 2, is a surrogate without its partner, and U+FFFE. A pair is
/// written whole or not at all.
template <int LE>
CoderResult decodePlain(detail::DecodeCursor& cursor) noexcept {
    while (cursor.srcLeft() >= 2) {
        const char16 unit = readUnit<LE>(cursor.src);
        if (Char16::isLowSurrogate(unit) || unit == SWAPPED_MARK) {
            return CoderResult::malformed(2);
        }
        if (!Char16::isHighSurrogate(unit)) {
            if (cursor.dst == cursor.dstEnd) {
                return CoderResult::overflow();
            }
            *cursor.dst++ = unit;
            cursor.src += 2;
            continue;
        }
        if (cursor.srcLeft() < 4) {
            return CoderResult::underflow();
        }
        const char16 low = readUnit<LE>(cursor.src + 2);
        if (!Char16::isLowSurrogate(low)) {
            return CoderResult::malformed(2);
        }
        if (cursor.dstLeft() < 2) {
            return CoderResult::overflow();
        }
        *cursor.dst++ = unit;
        *cursor.dst++ = low;
        cursor.src += 4;
    }
    return CoderResult::underflow();
}

/// Encodes character by character. A high surrogate at the end of the input stays unread;
/// malformed, of length 1, is a surrogate without its partner. U+FFFE is written like any other.
template <int LE>
CoderResult encodePlain(detail::EncodeCursor& cursor) noexcept {
    while (cursor.src != cursor.srcEnd) {
        const char16 unit = *cursor.src;
        if (Char16::isLowSurrogate(unit)) {
            return CoderResult::malformed(1);
        }
        if (!Char16::isHighSurrogate(unit)) {
            if (cursor.dstLeft() < 2) {
                return CoderResult::overflow();
            }
            writeUnit<LE>(cursor.dst, unit);
            cursor.dst += 2;
            ++cursor.src;
            continue;
        }
        if (cursor.srcLeft() == 1) {
            return CoderResult::underflow();
        }
        const char16 low = cursor.src[1];
        if (!Char16::isLowSurrogate(low)) {
            return CoderResult::malformed(1);
        }
        if (cursor.dstLeft() < 4) {
            return CoderResult::overflow();
        }
        writeUnit<LE>(cursor.dst, unit);
        writeUnit<LE>(cursor.dst + 2, low);
        cursor.dst += 4;
        cursor.src += 2;
    }
    return CoderResult::underflow();
}

/// Copies valid characters. \p Decoding tells which side is in the byte order \p LE: the source,
/// or, in encoding, the destination. The other is in the machine's order.
///
/// The loops over a block are of fixed length, read or write, and have no branch: then compilers
/// turn them into vector code.
template <int LE, bool Decoding>
class Copier {
public:
    /// Copies the valid characters at the front of \p n units and returns the count of their units;
    /// a few of the last may be left.
    static std::size_t copy(const unsigned char* src, unsigned char* dst, std::size_t n) noexcept {
        std::size_t done = 0;
        bool valid = true;
        while (valid && n - done > BLOCK) {
            while (n - done > BLOCK && isWithoutPairs(src + 2 * done)) {
                transfer<BLOCK>(src + 2 * done, dst + 2 * done);
                done += BLOCK;
            }
            // Blocks with pairs come together, and blocks without. So a pair lets the checks of
            // pairs begin, for a while: choosing anew for each block would be a guess each time.
            valid = copyPaired<BLOCK>(src, dst, n, 16, done);
        }
        valid = valid && copyPaired<SMALL_BLOCK>(src, dst, n, 1, done);
        while (n - done >= WORD && copyWord(src + 2 * done, dst + 2 * done)) {
            done += WORD;
        }
        if (valid && n - done >= WORTH_A_BLOCK && n - done <= SMALL_BLOCK) {
            done += copyRest(src + 2 * done, dst + 2 * done, n - done);
        }
        return done;
    }

private:
    // In units. Compilers unroll shorter loops before they see vectors in them.
    static constexpr std::size_t BLOCK = 64;
    static constexpr std::size_t SMALL_BLOCK = 32;
    // Units in a machine word.
    static constexpr std::size_t WORD = sizeof(std::uint64_t) / sizeof(std::uint16_t);
    // Fewer units are quicker one by one.
    static constexpr std::size_t WORTH_A_BLOCK = 8;

    static constexpr std::uint16_t swapped(std::uint16_t unit) noexcept {
        return LE == NATIVE_ORDER ? unit : static_cast<std::uint16_t>(unit << 8 | unit >> 8);
    }
    // A value as the source has it.
    static constexpr std::uint16_t inSource(std::uint16_t unit) noexcept {
        return Decoding ? swapped(unit) : unit;
    }
    static std::uint16_t load(const unsigned char* src) noexcept {
        std::uint16_t unit = 0;
        std::memcpy(&unit, src, sizeof unit);
        return unit;
    }

    static bool isHigh(std::uint16_t loaded) noexcept {
        return (loaded & inSource(0xFC00)) == inSource(0xD800);
    }
    static bool isLow(std::uint16_t loaded) noexcept {
        return (loaded & inSource(0xFC00)) == inSource(0xDC00);
    }
    static bool isSurrogate(std::uint16_t loaded) noexcept {
        return (loaded & inSource(0xF800)) == inSource(0xD800);
    }

    // Whether the predicate holds at some place of a block.
    template <std::size_t Size, typename Predicate>
    static bool any(Predicate predicate) noexcept {
        std::uint16_t found = 0;
        for (std::size_t k = 0; k < Size; ++k) {
            found = static_cast<std::uint16_t>(found | -static_cast<int>(predicate(2 * k)));
        }
        return found != 0;
    }

    template <std::size_t Size>
    static bool hasRefused(const unsigned char* src) noexcept {
        return Decoding &&
               any<Size>([src](std::size_t at) { return load(src + at) == inSource(0xFFFE); });
    }

    // Whether one of the units in a word is zero. The carry of a zero unit may reach the next one,
    // so which one it is cannot be told.
    static bool hasZero(std::uint64_t word) noexcept {
        return ((word - LANES * 1) & ~word & LANES * 0x8000) != 0;
    }
    static constexpr std::uint64_t LANES = 0x0001000100010001U;

    // Copies a word, if it has only characters of one unit.
    static bool copyWord(const unsigned char* src, unsigned char* dst) noexcept {
        std::uint64_t word = 0;
        std::memcpy(&word, src, sizeof word);
        if (hasZero((word & LANES * inSource(0xF800)) ^ LANES * inSource(0xD800)) ||
            (Decoding && hasZero(word ^ LANES * inSource(0xFFFE)))) {
            return false;
        }
        if (LE != NATIVE_ORDER) {
            word = (word & LANES * 0xFF) << 8 | (word >> 8 & LANES * 0xFF);
        }
        std::memcpy(dst, &word, sizeof word);
        return true;
    }

    // Whether a block has only characters of one unit.
    static bool isWithoutPairs(const unsigned char* src) noexcept {
        const bool surrogates =
            any<BLOCK>([src](std::size_t at) { return isSurrogate(load(src + at)); });
        return !surrogates && !hasRefused<BLOCK>(src);
    }

    // Whether a low surrogate follows on each high one and on nothing else, from the first unit of
    // a block to the one behind it.
    template <std::size_t Size>
    static bool isPaired(const unsigned char* src) noexcept {
        const bool unpaired = any<Size>(
            [src](std::size_t at) { return isHigh(load(src + at)) != isLow(load(src + at + 2)); });
        return !unpaired && !hasRefused<Size>(src);
    }

    template <std::size_t Size>
    static void transfer(const unsigned char* src, unsigned char* dst) noexcept {
        std::uint16_t units[Size];
        std::memcpy(units, src, sizeof units);
        for (std::uint16_t& unit : units) {
            unit = swapped(unit);
        }
        std::memcpy(dst, units, sizeof units);
    }

    // Copies up to \p most blocks from \p done on, where a character begins, and moves \p done to
    // the end of the last character of them. False if it met something that is not valid.
    template <std::size_t Size>
    static bool copyPaired(const unsigned char* src, unsigned char* dst, std::size_t n, int most,
                           std::size_t& done) noexcept {
        if (n - done <= Size) {
            return true;
        }
        // The first unit of a further block was checked as the partner of the unit before it.
        bool valid = !isLow(load(src + 2 * done));
        for (int i = 0; valid && i < most && n - done > Size; ++i) {
            valid = isPaired<Size>(src + 2 * done);
            if (valid) {
                transfer<Size>(src + 2 * done, dst + 2 * done);
                done += Size;
            }
        }
        if (done != 0 && isHigh(load(src + 2 * (done - 1)))) {
            --done;
        }
        return valid;
    }

    // Copies a last block of \p n units, at most SMALL_BLOCK, if all of it is valid, and returns
    // how many units were copied.
    static std::size_t copyRest(const unsigned char* src, unsigned char* dst,
                                std::size_t n) noexcept {
        unsigned char units[2 * (SMALL_BLOCK + 1)] = {};
        std::memcpy(units, src, 2 * n);
        if (isLow(load(units)) || !isPaired<SMALL_BLOCK>(units)) {
            return 0;
        }
        transfer<SMALL_BLOCK>(units, units);
        std::memcpy(dst, units, 2 * n);
        return n;
    }
};

/// Fast loop, then plain loop. Between the cursor and the end of the output, elements may be
/// overwritten.
template <int LE>
CoderResult decode(detail::DecodeCursor& cursor) noexcept {
    const std::size_t done =
        Copier<LE, true>::copy(cursor.src, reinterpret_cast<unsigned char*>(cursor.dst),
                               std::min(cursor.srcLeft() / 2, cursor.dstLeft()));
    cursor.src += 2 * done;
    cursor.dst += done;
    return decodePlain<LE>(cursor);
}
template <int LE>
CoderResult encode(detail::EncodeCursor& cursor) noexcept {
    const std::size_t done =
        Copier<LE, false>::copy(reinterpret_cast<const unsigned char*>(cursor.src), cursor.dst,
                                std::min(cursor.srcLeft(), cursor.dstLeft() / 2));
    cursor.src += done;
    cursor.dst += 2 * done;
    return encodePlain<LE>(cursor);
}

} // namespace orv::utf_16

#endif
