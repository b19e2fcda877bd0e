// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16 to UTF-8 with SSE4.1.
///
/// Eight units at a time are spread to their bytes and packed by a shuffle that the units' lengths
/// select (D. Lemire and W. Mula, "Transcoding Billions of Unicode Characters per Second with SIMD
/// Instructions", Software: Practice and Experience 52, 2022). A surrogate pair fits in: each half
/// gives two of the four bytes.
#include "orv/liborvxx/charset/sets/utf_8_sse41.h"

#include "orv/liborvxx/base/platform.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <smmintrin.h>

namespace orv::utf_8 {

namespace {

// Units of a step.
constexpr int STEP = 8;
// Output that a step may overwrite: two stores of 16 bytes.
constexpr int ROOM = 32;
// Steps after one with surrogates that are treated as if they had some.
constexpr int AFTER_SURROGATES = 8;
// The bits of a unit that ASCII does not have.
constexpr auto ABOVE_ASCII = static_cast<short>(0xFF80);

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

// The bytes of eight units, in lanes of four for each unit: [left, right].
struct Spread {
    __m128i right; // [last continuation, ASCII]
    __m128i left;  // [lead of two or first continuation of three, lead of three]
};

// As characters of one to three bytes; the lanes of `belowThree` have less than three.
Spread spreadBmp(__m128i units, __m128i belowThree) {
    // [aaaabbbb bbcccccc] to [10cccccc 0bcccccc]...
    const __m128i doubled = _mm_shuffle_epi8(
        units, _mm_setr_epi8(0, 0, 2, 2, 4, 4, 6, 6, 8, 8, 10, 10, 12, 12, 14, 14));
    const __m128i right = _mm_or_si128(_mm_and_si128(doubled, _mm_set1_epi16(0x3F7F)),
                                       _mm_set1_epi16(static_cast<short>(0x8000)));
    // ...and [11bbbbbb 1110aaaa], with three bytes [10bbbbbb 1110aaaa].
    const __m128i shifted =
        _mm_and_si128(_mm_srli_epi16(units, 4), _mm_set1_epi16(0x0FFC)); // [0000aaaa bbbbbb00]
    const __m128i swapped = _mm_maddubs_epi16(shifted, _mm_set1_epi16(0x0140));
    const __m128i marked = _mm_or_si128(swapped, _mm_set1_epi16(static_cast<short>(0xC0E0)));
    const __m128i left =
        _mm_xor_si128(marked, _mm_andnot_si128(belowThree, _mm_set1_epi16(0x4000)));
    return {right, left};
}

// Puts two bytes for each half of a surrogate pair in place. With `top` the ten bits of the high
// half plus 0x40, which adds 0x10000, and `low` those of the low half, they are [11110ttt 10tttttt]
// [10ttllll 10llllll].
void spreadPairs(Spread& spread, __m128i units, __m128i isHigh, __m128i isLow) {
    const __m128i top =
        _mm_add_epi16(_mm_and_si128(units, _mm_set1_epi16(0x3FF)), _mm_set1_epi16(0x40));
    const __m128i highLeft = _mm_or_si128(_mm_and_si128(top, _mm_set1_epi16(0x0700)),
                                          _mm_set1_epi16(static_cast<short>(0xF000)));
    const __m128i highRight =
        _mm_or_si128(_mm_and_si128(_mm_slli_epi16(top, 6), _mm_set1_epi16(0x3F00)),
                     _mm_set1_epi16(static_cast<short>(0x8000)));
    // The low half needs the last two bits of the unit in front.
    const __m128i front = _mm_slli_epi16(_mm_slli_si128(top, 2), 12);
    const __m128i lowLeft =
        _mm_or_si128(_mm_or_si128(_mm_and_si128(front, _mm_set1_epi16(0x3000)),
                                  _mm_and_si128(_mm_slli_epi16(units, 2), _mm_set1_epi16(0x0F00))),
                     _mm_set1_epi16(static_cast<short>(0x8000)));
    spread.right = _mm_blendv_epi8(spread.right, highRight, isHigh);
    spread.left = _mm_blendv_epi8(_mm_blendv_epi8(spread.left, highLeft, isHigh), lowLeft, isLow);
}

unsigned char* putSpread(unsigned char* dst, const Spread& spread, __m128i ascii,
                         __m128i belowThree) {
    const int mask = (_mm_movemask_epi8(ascii) & 0x5555) | (_mm_movemask_epi8(belowThree) & 0xAAAA);
    dst = pack(dst, _mm_unpacklo_epi16(spread.right, spread.left), TABLES.fourBmp[mask & 0xFF]);
    return pack(dst, _mm_unpackhi_epi16(spread.right, spread.left), TABLES.fourBmp[mask >> 8]);
}

int laneMask(__m128i lanes) {
    return _mm_movemask_epi8(_mm_packs_epi16(lanes, lanes)) & 0xFF;
}

// What a step did: the units it converted, eight, or seven if the eighth opens a pair, or none if a
// surrogate has no partner.
struct Step {
    int converted;
    bool surrogates;
};

// A step of any text. Slower than the ones for simpler text, but without a branch to guess wrong.
ORVXX_ALWAYS_INLINE Step putAny(unsigned char*& dst, __m128i units, bool cesu8) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i ascii = _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(ABOVE_ASCII)), zero);
    const __m128i top = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xF800)));
    __m128i belowThree = _mm_cmpeq_epi16(top, zero);
    const __m128i kind = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFC00)));
    const __m128i isHigh = _mm_cmpeq_epi16(kind, _mm_set1_epi16(static_cast<short>(0xD800)));
    const __m128i isLow = _mm_cmpeq_epi16(kind, _mm_set1_epi16(static_cast<short>(0xDC00)));
    const int highs = laneMask(isHigh);
    if ((highs << 1 & 0xFF) != laneMask(isLow)) {
        return {0, true};
    }
    const int open = highs >> (STEP - 1);
    Spread spread = spreadBmp(units, belowThree);
    if (!cesu8) {
        spreadPairs(spread, units, isHigh, isLow);
        belowThree = _mm_or_si128(belowThree, _mm_or_si128(isHigh, isLow));
    }
    dst = putSpread(dst, spread, ascii, belowThree) - open * (cesu8 ? 3 : 2);
    return {STEP - open, highs != 0};
}

// A step by the quickest road. Inlined, so that the pointers of the loop stay in registers.
ORVXX_ALWAYS_INLINE Step encodeStep(unsigned char*& dst, __m128i units, bool cesu8) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i ascii = _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(ABOVE_ASCII)), zero);
    if (all(ascii)) {
        store(dst, _mm_packus_epi16(units, zero));
        dst += STEP;
        return {STEP, false};
    }
    const __m128i top = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xF800)));
    const __m128i belowThree = _mm_cmpeq_epi16(top, zero);
    if (all(belowThree)) {
        dst = putShort(dst, units, ascii);
        return {STEP, false};
    }
    const __m128i isSurrogate = _mm_cmpeq_epi16(top, _mm_set1_epi16(static_cast<short>(0xD800)));
    if (_mm_testz_si128(isSurrogate, isSurrogate) == 0) {
        return putAny(dst, units, cesu8);
    }
    dst = putSpread(dst, spreadBmp(units, belowThree), ascii, belowThree);
    return {STEP, false};
}

// Converts as long as whole steps, with what their stores may overwrite, fit in both buffers.
// Returns false if it met bad text.
bool encodeSteps(EncodePointers& p, bool cesu8) {
    const __m128i aboveAscii = _mm_set1_epi16(ABOVE_ASCII);
    const char16_t* src = p.src;
    unsigned char* dst = p.dst;
    // Near surrogates the text changes its kind from step to step, and no choice is made.
    int stepsOfAnyText = 0;
    while (p.srcEnd - src >= 2 * STEP && p.dstEnd - dst >= ROOM) {
        const __m128i units = load(src);
        Step step{};
        if (stepsOfAnyText != 0) {
            step = putAny(dst, units, cesu8);
            --stepsOfAnyText;
        } else if (_mm_testz_si128(units, aboveAscii) != 0) {
            const __m128i next = load(src + STEP);
            store(dst, _mm_packus_epi16(units, next));
            if (_mm_testz_si128(next, aboveAscii) != 0) {
                src += 2 * STEP;
                dst += 2 * STEP;
                continue;
            }
            src += STEP;
            dst += STEP;
            continue;
        } else {
            step = encodeStep(dst, units, cesu8);
        }
        if (step.converted == 0) {
            p.src = src;
            p.dst = dst;
            return false;
        }
        stepsOfAnyText = step.surrogates ? AFTER_SURROGATES : stepsOfAnyText;
        src += step.converted;
    }
    p.src = src;
    p.dst = dst;
    return true;
}

// The last `n` units of an input, less than eight, with zeros behind them. `before` units stand in
// front of them.
__m128i lastUnits(const char16_t* src, int n, std::ptrdiff_t before) {
    if (n + before >= STEP) {
        // A load that ends with the input, moved to the front.
        static constexpr signed char MOVES[4 * STEP] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10,
                                                        11, 12, 13, 14, 15, -1, -1, -1, -1, -1, -1,
                                                        -1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
        return _mm_shuffle_epi8(load(src + n - STEP), load(MOVES + 2 * (STEP - n)));
    }
    char16_t units[STEP] = {};
    std::memcpy(units, src, static_cast<std::size_t>(n) * sizeof(char16_t));
    return load(units);
}

// Converts the ends of buffers: steps of up to eight units, with zeros behind the last.
void encodeEnd(EncodePointers& p, const char16_t* begin, bool cesu8) {
    while (p.src != p.srcEnd) {
        const auto left = p.srcEnd - p.src;
        const int n = left < STEP ? static_cast<int>(left) : STEP;
        const __m128i units = n < STEP ? lastUnits(p.src, n, p.src - begin) : load(p.src);
        // Straight into the output where there is room for all that the stores may overwrite.
        const auto room = p.dstEnd - p.dst;
        unsigned char copy[ROOM];
        unsigned char* const bytes = room >= ROOM ? p.dst : copy;
        unsigned char* dst = bytes;
        const int converted = encodeStep(dst, units, cesu8).converted;
        if (converted == 0) {
            return;
        }
        // Each unit of padding gave a byte.
        const int padding = converted > n ? converted - n : 0;
        const auto count = (dst - bytes) - padding;
        if (bytes == copy) {
            if (count > room) {
                return;
            }
            std::memcpy(p.dst, copy, static_cast<std::size_t>(count));
        }
        p.src += converted - padding;
        p.dst += count;
    }
}

} // namespace

void encodeSse41(EncodePointers& p, bool cesu8) noexcept {
    const char16_t* const begin = p.src;
    if (encodeSteps(p, cesu8)) {
        encodeEnd(p, begin, cesu8);
    }
}

} // namespace orv::utf_8
