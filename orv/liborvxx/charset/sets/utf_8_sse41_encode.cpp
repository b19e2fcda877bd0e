// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16 to UTF-8 with SSE4.1.
///
/// Eight units at a time are spread to their bytes and packed by a shuffle that the units' lengths
/// select (D. Lemire and W. Mula, "Transcoding Billions of Unicode Characters per Second with SIMD
/// Instructions", Software: Practice and Experience 52, 2022). Surrogates take the scalar road.
#include "orv/liborvxx/charset/sets/utf_8_sse41.h"

#include <cstdint>

#include <smmintrin.h>

namespace orv::utf_8 {

namespace {

// Units of a step, and input that a step may look at.
constexpr int STEP = 8;
constexpr int LOOK_AHEAD = 2 * STEP;
// Output that a step may overwrite: two stores of 16 bytes.
constexpr int ROOM = 32;

struct Packing {
    std::uint8_t length;
    // What stands behind the bytes does not matter: the next store overwrites it.
    std::uint8_t shuffle[16];
};

struct Tables {
    // For eight 16-bit lanes; bit i says that unit i is ASCII, the others have two bytes.
    Packing eightShort[256] = {};
    // For four 32-bit lanes; bit 2 i says that unit i is ASCII, bit 2 i + 1 that it is below 0x800.
    Packing fourBmp[256] = {};
};

constexpr Tables makeTables() {
    Tables tables;
    const auto take = [](Packing& packing, int byte) {
        packing.shuffle[packing.length++] = static_cast<std::uint8_t>(byte);
    };
    for (int mask = 0; mask < 256; ++mask) {
        Packing& eight = tables.eightShort[mask];
        for (int lane = 0; lane < 8; ++lane) {
            // Lane bytes: continuation or ASCII, lead.
            if ((mask >> lane & 1) == 0) {
                take(eight, 2 * lane + 1);
            }
            take(eight, 2 * lane);
        }
        Packing& four = tables.fourBmp[mask];
        for (int lane = 0; lane < 4; ++lane) {
            // Lane bytes: ASCII, last continuation, lead of three, lead of two or first
            // continuation.
            const int first = 4 * lane;
            if ((mask >> (2 * lane) & 1) != 0) {
                take(four, first);
                continue;
            }
            if ((mask >> (2 * lane + 1) & 1) == 0) {
                take(four, first + 2);
            }
            take(four, first + 3);
            take(four, first + 1);
        }
    }
    return tables;
}

alignas(16) constexpr Tables TABLES = makeTables();

__m128i load(const void* src) {
    return _mm_loadu_si128(static_cast<const __m128i*>(src));
}

void store(unsigned char* dst, __m128i bytes) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), bytes);
}

unsigned char* pack(unsigned char* dst, __m128i lanes, const Packing& packing) {
    store(dst, _mm_shuffle_epi8(lanes, load(packing.shuffle)));
    return dst + packing.length;
}

// All lanes of a comparison hold.
bool all(__m128i lanes) {
    return _mm_movemask_epi8(lanes) == 0xFFFF;
}

// Units below 0x800; the lanes of `ascii` tell which have one byte.
unsigned char* putShort(unsigned char* dst, __m128i units, __m128i ascii) {
    // [00000aaa aabbbbbb] to [110aaaaa 10bbbbbb].
    const __m128i high = _mm_and_si128(_mm_slli_epi16(units, 2), _mm_set1_epi16(0x1F00));
    const __m128i low = _mm_and_si128(units, _mm_set1_epi16(0x003F));
    const __m128i two =
        _mm_or_si128(_mm_or_si128(high, low), _mm_set1_epi16(static_cast<short>(0xC080)));
    const __m128i lanes = _mm_blendv_epi8(two, units, ascii);
    const int mask = _mm_movemask_epi8(_mm_packs_epi16(ascii, _mm_setzero_si128()));
    return pack(dst, lanes, TABLES.eightShort[mask]);
}

// Units that are no surrogates; the lanes of `ascii` and `belowThree` tell which are shorter.
unsigned char* putBmp(unsigned char* dst, __m128i units, __m128i ascii, __m128i belowThree) {
    // [aaaabbbb bbcccccc] to the two right bytes [10cccccc 0bcccccc] of a lane of four...
    const __m128i doubled = _mm_shuffle_epi8(
        units, _mm_setr_epi8(0, 0, 2, 2, 4, 4, 6, 6, 8, 8, 10, 10, 12, 12, 14, 14));
    const __m128i right = _mm_or_si128(_mm_and_si128(doubled, _mm_set1_epi16(0x3F7F)),
                                       _mm_set1_epi16(static_cast<short>(0x8000)));
    // ...and the two left ones [11bbbbbb 1110aaaa], the first of them [10bbbbbb ...] with three
    // bytes.
    const __m128i shifted =
        _mm_and_si128(_mm_srli_epi16(units, 4), _mm_set1_epi16(0x0FFC)); // [0000aaaa bbbbbb00]
    const __m128i swapped = _mm_maddubs_epi16(shifted, _mm_set1_epi16(0x0140));
    const __m128i marked = _mm_or_si128(swapped, _mm_set1_epi16(static_cast<short>(0xC0E0)));
    const __m128i left =
        _mm_xor_si128(marked, _mm_andnot_si128(belowThree, _mm_set1_epi16(0x4000)));
    const int mask = (_mm_movemask_epi8(ascii) & 0x5555) | (_mm_movemask_epi8(belowThree) & 0xAAAA);
    dst = pack(dst, _mm_unpacklo_epi16(right, left), TABLES.fourBmp[mask & 0xFF]);
    return pack(dst, _mm_unpackhi_epi16(right, left), TABLES.fourBmp[mask >> 8]);
}

// One unit below 0x10000 that is no surrogate.
unsigned char* putUnit(unsigned char* dst, std::uint32_t unit) {
    if (unit < 0x80) {
        *dst++ = static_cast<unsigned char>(unit);
    } else if (unit < 0x800) {
        *dst++ = static_cast<unsigned char>(0xC0U | unit >> 6);
        *dst++ = static_cast<unsigned char>(0x80U | (unit & 0x3FU));
    } else {
        *dst++ = static_cast<unsigned char>(0xE0U | unit >> 12);
        *dst++ = static_cast<unsigned char>(0x80U | (unit >> 6 & 0x3FU));
        *dst++ = static_cast<unsigned char>(0x80U | (unit & 0x3FU));
    }
    return dst;
}

// About a step of text with surrogates; stops before one without a partner.
bool putMixed(const char16_t*& src, unsigned char*& dst) {
    const char16_t* const stepEnd = src + STEP;
    while (src < stepEnd) {
        const std::uint32_t unit = *src;
        if ((unit & 0xF800U) != 0xD800U) {
            dst = putUnit(dst, unit);
            ++src;
            continue;
        }
        const std::uint32_t second = src[1];
        if ((unit & 0x400U) != 0 || (second & 0xFC00U) != 0xDC00U) {
            return false;
        }
        const std::uint32_t value = ((unit & 0x3FFU) << 10 | (second & 0x3FFU)) + 0x10000U;
        *dst++ = static_cast<unsigned char>(0xF0U | value >> 18);
        *dst++ = static_cast<unsigned char>(0x80U | (value >> 12 & 0x3FU));
        *dst++ = static_cast<unsigned char>(0x80U | (value >> 6 & 0x3FU));
        *dst++ = static_cast<unsigned char>(0x80U | (value & 0x3FU));
        src += 2;
    }
    return true;
}

} // namespace

void encodeSse41(EncodePointers& p, bool pairs) noexcept {
    const char16_t* src = p.src;
    unsigned char* dst = p.dst;
    const __m128i zero = _mm_setzero_si128();
    const __m128i aboveAscii = _mm_set1_epi16(static_cast<short>(0xFF80));
    const __m128i top = _mm_set1_epi16(static_cast<short>(0xF800));
    const __m128i surrogates = _mm_set1_epi16(static_cast<short>(0xD800));
    while (p.srcEnd - src >= LOOK_AHEAD && p.dstEnd - dst >= ROOM) {
        const __m128i units = load(src);
        const __m128i ascii = _mm_cmpeq_epi16(_mm_and_si128(units, aboveAscii), zero);
        if (all(ascii)) {
            const __m128i next = load(src + STEP);
            store(dst, _mm_packus_epi16(units, next));
            // The eight units behind count only if they are ASCII too.
            const bool both = _mm_testz_si128(next, aboveAscii) != 0;
            src += both ? 2 * STEP : STEP;
            dst += both ? 2 * STEP : STEP;
            continue;
        }
        const __m128i belowThree = _mm_cmpeq_epi16(_mm_and_si128(units, top), zero);
        if (all(belowThree)) {
            dst = putShort(dst, units, ascii);
            src += STEP;
            continue;
        }
        const __m128i isSurrogate = _mm_cmpeq_epi16(_mm_and_si128(units, top), surrogates);
        if (_mm_testz_si128(isSurrogate, isSurrogate) != 0) {
            dst = putBmp(dst, units, ascii, belowThree);
            src += STEP;
            continue;
        }
        if (!pairs || !putMixed(src, dst)) {
            break;
        }
    }
    p.src = src;
    p.dst = dst;
}

} // namespace orv::utf_8
