// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 to UTF-16 with SSE4.1.
///
/// Blocks of 64 bytes are validated with the three-table method of J. Keiser and D. Lemire,
/// "Validating UTF-8 In Less Than One Instruction Per Byte" (Software: Practice and Experience 51,
/// 2021), and converted up to twelve bytes at a time: the positions of the last bytes of characters
/// select a byte shuffle (D. Lemire and W. Mula, "Transcoding Billions of Unicode Characters per
/// Second with SIMD Instructions", Software: Practice and Experience 52, 2022).
#include "orv/liborvxx/charset/sets/utf_8_sse41.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <smmintrin.h>

namespace orv::utf_8 {

namespace {

constexpr int BLOCK = 64;
// A window is what one shuffle looks at; its load reaches 16 bytes.
constexpr int WINDOW = 12;
constexpr int LOAD = 16;
// Units that a store may reach beyond what it adds.
constexpr int STORE_SLACK = 16;

// Validation.
//
// Each pair of neighbouring bytes is looked up by the high half of the first, the low half of the
// first and the high half of the second. A bit that is set in all three answers names the fault.

constexpr char TOO_SHORT = 1 << 0;      // lead byte, then no continuation
constexpr char TOO_LONG = 1 << 1;       // ASCII, then a continuation
constexpr char OVERLONG_3 = 1 << 2;     // 11100000 100_____
constexpr char TOO_LARGE = 1 << 3;      // above U+10FFFF, second byte 1001____ or more
constexpr char SURROGATE = 1 << 4;      // 11101101 101_____
constexpr char OVERLONG_2 = 1 << 5;     // 1100000_ 10______
constexpr char TOO_LARGE_1000 = 1 << 6; // above U+10FFFF, second byte 1000____
constexpr char OVERLONG_4 = 1 << 6;     // 11110000 1000____
constexpr char TWO_CONTINUATIONS = static_cast<char>(1 << 7);
// Faults that the low half of the first byte says nothing about.
constexpr char CARRY = TOO_SHORT | TOO_LONG | TWO_CONTINUATIONS;

__m128i highNibbles(__m128i bytes) {
    return _mm_and_si128(_mm_srli_epi16(bytes, 4), _mm_set1_epi8(0x0F));
}

__m128i pairFaults(__m128i bytes, __m128i previous) {
    const __m128i firstHigh =
        _mm_shuffle_epi8(_mm_setr_epi8(TOO_LONG, TOO_LONG, TOO_LONG, TOO_LONG, TOO_LONG, TOO_LONG,
                                       TOO_LONG, TOO_LONG, TWO_CONTINUATIONS, TWO_CONTINUATIONS,
                                       TWO_CONTINUATIONS, TWO_CONTINUATIONS, TOO_SHORT | OVERLONG_2,
                                       TOO_SHORT, TOO_SHORT | OVERLONG_3 | SURROGATE,
                                       TOO_SHORT | TOO_LARGE | TOO_LARGE_1000 | OVERLONG_4),
                         highNibbles(previous));
    constexpr char LARGE = CARRY | TOO_LARGE | TOO_LARGE_1000;
    const __m128i firstLow = _mm_shuffle_epi8(
        _mm_setr_epi8(CARRY | OVERLONG_3 | OVERLONG_2 | OVERLONG_4, CARRY | OVERLONG_2, CARRY,
                      CARRY, CARRY | TOO_LARGE, LARGE, LARGE, LARGE, LARGE, LARGE, LARGE, LARGE,
                      LARGE, LARGE | SURROGATE, LARGE, LARGE),
        _mm_and_si128(previous, _mm_set1_epi8(0x0F)));
    constexpr char CONTINUED = TOO_LONG | OVERLONG_2 | TWO_CONTINUATIONS;
    const __m128i secondHigh = _mm_shuffle_epi8(
        _mm_setr_epi8(TOO_SHORT, TOO_SHORT, TOO_SHORT, TOO_SHORT, TOO_SHORT, TOO_SHORT, TOO_SHORT,
                      TOO_SHORT, CONTINUED | OVERLONG_3 | TOO_LARGE_1000 | OVERLONG_4,
                      CONTINUED | OVERLONG_3 | TOO_LARGE, CONTINUED | SURROGATE | TOO_LARGE,
                      CONTINUED | SURROGATE | TOO_LARGE, TOO_SHORT, TOO_SHORT, TOO_SHORT,
                      TOO_SHORT),
        highNibbles(bytes));
    return _mm_and_si128(_mm_and_si128(firstHigh, firstLow), secondHigh);
}

// Non-zero bytes where the text is bad. `before` holds the 16 bytes in front of `bytes`; only
// faults in `counted` are faults.
__m128i faults(__m128i bytes, __m128i before, __m128i counted) {
    const __m128i previous1 = _mm_alignr_epi8(bytes, before, 15);
    const __m128i previous2 = _mm_alignr_epi8(bytes, before, 14);
    const __m128i previous3 = _mm_alignr_epi8(bytes, before, 13);
    // Two continuations in a row are right exactly in third and fourth place.
    const __m128i third = _mm_subs_epu8(previous2, _mm_set1_epi8(0xE0 - 0x80));
    const __m128i fourth = _mm_subs_epu8(previous3, _mm_set1_epi8(0xF0 - 0x80));
    const __m128i expected =
        _mm_and_si128(_mm_or_si128(third, fourth), _mm_set1_epi8(TWO_CONTINUATIONS));
    return _mm_xor_si128(expected, _mm_and_si128(pairFaults(bytes, previous1), counted));
}

// Shuffles.

// How to take a window apart: each unit in a lane of 32 bits, up to eight of them.
struct Window {
    std::uint16_t shuffle;
    std::uint8_t units;
    std::uint8_t consumed;
};

constexpr int LANES = 8;
constexpr int LANE_BYTES = 4;
// One for each row of whole characters that fits a window and the lanes.
constexpr int SHUFFLES = 2732;

struct Tables {
    Window windows[1 << WINDOW] = {};
    alignas(16) std::uint8_t shuffles[SHUFFLES][LANES * LANE_BYTES] = {};
    int shufflesMade = 0;
};

// Puts the bytes from `first` to `last` in a lane, the last one lowest. 0x80 makes a zero.
constexpr void fillLane(std::uint8_t* lane, int first, int last) {
    for (int k = 0; k < LANE_BYTES; ++k) {
        lane[k] = static_cast<std::uint8_t>(last - k >= first ? last - k : 0x80);
    }
}

constexpr Tables makeTables() {
    Tables tables;
    // Bit i of `ends` says that byte i ends a character.
    for (int ends = 1; ends < 1 << WINDOW; ++ends) {
        std::uint8_t lanes[LANES * LANE_BYTES] = {};
        int units = 0;
        int start = 0;
        for (int i = 0; i < WINDOW; ++i) {
            if ((ends >> i & 1) == 0) {
                continue;
            }
            const int length = i + 1 - start;
            // A character of five bytes and more is in no valid text.
            if (length > 4 || units + (length == 4 ? 2 : 1) > LANES) {
                break;
            }
            if (length == 4) {
                // The lanes of a pair: three bytes, and the last two.
                fillLane(lanes + LANE_BYTES * units++, start, i - 1);
                fillLane(lanes + LANE_BYTES * units++, i - 1, i);
            } else {
                fillLane(lanes + LANE_BYTES * units++, start, i);
            }
            start = i + 1;
        }
        const int whole = ends & ((1 << start) - 1);
        if (whole != ends) {
            // The same characters have come up before, with nothing behind them.
            tables.windows[ends] = tables.windows[whole];
            continue;
        }
        std::uint8_t* const shuffle = tables.shuffles[tables.shufflesMade];
        for (int k = 0; k < LANES * LANE_BYTES; ++k) {
            shuffle[k] = k < units * LANE_BYTES ? lanes[k] : 0x80;
        }
        tables.windows[ends] = {static_cast<std::uint16_t>(tables.shufflesMade++),
                                static_cast<std::uint8_t>(units), static_cast<std::uint8_t>(start)};
    }
    return tables;
}

constexpr Tables TABLES = makeTables();
static_assert(TABLES.shufflesMade == SHUFFLES);

// Conversion.

__m128i load(const unsigned char* src) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(src));
}

void store(char16_t* dst, __m128i units) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), units);
}

void widen(char16_t* dst, __m128i bytes) {
    store(dst, _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
    store(dst + 8, _mm_unpackhi_epi8(bytes, _mm_setzero_si128()));
}

bool isAscii(__m128i bytes) {
    return _mm_movemask_epi8(bytes) == 0;
}

// 32-bit lanes [0 1110aaaa 10bbbbbb 10cccccc] or shorter.
__m128i joinBmp(__m128i lanes) {
    const __m128i low = _mm_and_si128(lanes, _mm_set1_epi32(0x7F));
    const __m128i middle = _mm_and_si128(lanes, _mm_set1_epi32(0x3F00));
    const __m128i high = _mm_and_si128(lanes, _mm_set1_epi32(0x0F0000));
    return _mm_or_si128(_mm_or_si128(low, _mm_srli_epi32(middle, 2)), _mm_srli_epi32(high, 4));
}

// Marks the 16-bit lanes whose 32-bit lanes hold the first three bytes of a four-byte form: bit 4
// of the lead byte is set in 11110aaa and in no other.
__m128i highHalves(__m128i lanes, __m128i moreLanes) {
    const auto mark = [](__m128i l) { return _mm_srai_epi32(_mm_slli_epi32(l, 31 - 20), 31); };
    return _mm_packs_epi32(mark(lanes), mark(moreLanes));
}

// Makes surrogates of the joined lanes of a four-byte form, [0aaabbbb bbcccccc] with the bytes
// [11110aaa 10bbbbbb 10cccccc] and [0000cccc ccdddddd] with the bytes [10cccccc 10dddddd].
__m128i makeSurrogates(__m128i units, __m128i isHigh) {
    // The 0x10000 that a pair does not hold is 0x40 in its high half.
    const __m128i high =
        _mm_add_epi16(_mm_srli_epi16(units, 4), _mm_set1_epi16(static_cast<short>(0xD800 - 0x40)));
    const __m128i low = _mm_or_si128(_mm_and_si128(units, _mm_set1_epi16(0x3FF)),
                                     _mm_set1_epi16(static_cast<short>(0xDC00)));
    const __m128i isLow = _mm_slli_si128(isHigh, 2);
    return _mm_blendv_epi8(_mm_blendv_epi8(units, high, isHigh), low, isLow);
}

// Converts the characters in front of a window whose `ends` mark last bytes; returns the bytes
// consumed.
int convertWindow(__m128i bytes, std::uint64_t ends, char16_t*& dst) {
    if ((ends & 0xFFFF) == 0xFFFF) {
        widen(dst, bytes);
        dst += 16;
        return 16;
    }
    const Window window = TABLES.windows[ends & ((1 << WINDOW) - 1)];
    const auto* const shuffle = reinterpret_cast<const __m128i*>(TABLES.shuffles[window.shuffle]);
    const __m128i lanes = _mm_shuffle_epi8(bytes, _mm_load_si128(shuffle));
    const __m128i moreLanes = _mm_shuffle_epi8(bytes, _mm_load_si128(shuffle + 1));
    const __m128i units = _mm_packus_epi32(joinBmp(lanes), joinBmp(moreLanes));
    store(dst, makeSurrogates(units, highHalves(lanes, moreLanes)));
    dst += window.units;
    return window.consumed;
}

// Blocks.

// What is known of up to 64 bytes, fed 16 at a time. They begin with a character.
class Scan {
public:
    // CESU-8 has surrogates and no four-byte forms.
    explicit Scan(bool cesu8)
        : cesu8_(cesu8), counted_(_mm_set1_epi8(static_cast<char>(cesu8 ? ~SURROGATE : ~0))) {}

    void feed(__m128i bytes, int position) {
        bad_ = _mm_or_si128(bad_, faults(bytes, before_, counted_));
        highest_ = _mm_max_epu8(highest_, bytes);
        // Continuation bytes are the signed values below -64.
        const int mask = _mm_movemask_epi8(_mm_cmplt_epi8(bytes, _mm_set1_epi8(-64)));
        continuations_ |= static_cast<std::uint64_t>(mask) << position;
        before_ = bytes;
    }

    // A sequence that goes on behind the bytes passes.
    bool isValid() const {
        if (_mm_testz_si128(bad_, bad_) == 0) {
            return false;
        }
        const __m128i firstLead = _mm_set1_epi8(static_cast<char>(0xF0));
        const __m128i isLead = _mm_cmpeq_epi8(_mm_max_epu8(highest_, firstLead), highest_);
        return !cesu8_ || _mm_movemask_epi8(isLead) == 0;
    }

    // Bit i says that byte i is a continuation byte.
    std::uint64_t continuations() const { return continuations_; }

private:
    bool cesu8_;
    __m128i counted_;
    __m128i bad_ = _mm_setzero_si128();
    __m128i highest_ = _mm_setzero_si128();
    __m128i before_ = _mm_setzero_si128();
    std::uint64_t continuations_ = 0;
};

// Converts blocks as long as whole ones, with what their stores may overwrite, fit in both buffers.
// Returns false if it met bad text.
bool decodeBlocks(DecodePointers& p, bool cesu8) {
    const unsigned char* src = p.src;
    char16_t* dst = p.dst;
    bool good = true;
    while (p.srcEnd - src >= BLOCK + LOAD && p.dstEnd - dst >= BLOCK + STORE_SLACK) {
        const __m128i b0 = load(src);
        const __m128i b1 = load(src + 16);
        const __m128i b2 = load(src + 32);
        const __m128i b3 = load(src + 48);
        if (isAscii(_mm_or_si128(_mm_or_si128(b0, b1), _mm_or_si128(b2, b3)))) {
            widen(dst, b0);
            widen(dst + 16, b1);
            widen(dst + 32, b2);
            widen(dst + 48, b3);
            src += BLOCK;
            dst += BLOCK;
            continue;
        }
        Scan scan(cesu8);
        scan.feed(b0, 0);
        scan.feed(b1, 16);
        scan.feed(b2, 32);
        scan.feed(b3, 48);
        if (!scan.isValid()) {
            good = false;
            break;
        }
        // A byte is a last one if a lead follows. The last byte of the block stays open, so no
        // window may reach it: of twelve bytes that are known, three characters are complete.
        std::uint64_t ends = ~scan.continuations() >> 1;
        const unsigned char* const lastWindow = src + BLOCK - WINDOW;
        while (src < lastWindow) {
            const int consumed = convertWindow(load(src), ends, dst);
            src += consumed;
            ends >>= consumed;
        }
    }
    p.src = src;
    p.dst = dst;
    return good;
}

// The length of the whole sequences among `n` bytes, if they are valid.
int withoutOpenSequence(const unsigned char* src, int n) {
    for (int k = 1; k <= 3 && k <= n; ++k) {
        const unsigned char byte = src[n - k];
        if (byte >= 0xC0) {
            const int length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
            return length > k ? n - k : n;
        }
        if (byte < 0x80) {
            break;
        }
    }
    return n;
}

// Converts runs of ASCII at the ends of buffers.
void widenEnd(DecodePointers& p) {
    while (p.srcEnd - p.src >= LOAD && p.dstEnd - p.dst >= LOAD) {
        const __m128i bytes = load(p.src);
        if (!isAscii(bytes)) {
            return;
        }
        widen(p.dst, bytes);
        p.src += LOAD;
        p.dst += LOAD;
    }
}

// The last bytes of an input, which can be looked at 16 at a time: behind the end there are zeros.
class InputEnd {
public:
    InputEnd(const unsigned char* src, std::ptrdiff_t size) : src_(src), size_(size) {
        if (size_ >= LOAD) {
            last_ = load(src_ + size_ - LOAD);
            return;
        }
        unsigned char bytes[LOAD] = {};
        std::memcpy(bytes + LOAD - size_, src_, static_cast<std::size_t>(size_));
        last_ = load(bytes);
    }

    // The bytes from `position`, which does not exceed the size.
    __m128i at(std::ptrdiff_t position) const {
        const std::ptrdiff_t missing = position + LOAD - size_;
        if (missing <= 0) {
            return load(src_ + position);
        }
        // The bytes of the last load, moved to the front.
        static constexpr signed char MOVES[2 * LOAD] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10,
                                                        11, 12, 13, 14, 15, -1, -1, -1, -1, -1, -1,
                                                        -1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
        return _mm_shuffle_epi8(last_,
                                _mm_loadu_si128(reinterpret_cast<const __m128i*>(MOVES + missing)));
    }

private:
    const unsigned char* src_;
    std::ptrdiff_t size_;
    __m128i last_;
};

// Converts the ends of buffers: up to 64 bytes at a time.
void decodeEnd(DecodePointers& p, bool cesu8) {
    constexpr int SHORTEST = 4;
    constexpr int UNITS = BLOCK + WINDOW + STORE_SLACK;
    for (;;) {
        widenEnd(p);
        const auto left = p.srcEnd - p.src;
        if (left < SHORTEST) {
            return;
        }
        const InputEnd input(p.src, left);
        const int n = withoutOpenSequence(p.src, left < BLOCK ? static_cast<int>(left) : BLOCK);
        Scan scan(cesu8);
        for (int pos = 0; pos < n; pos += LOAD) {
            scan.feed(input.at(pos), pos);
        }
        // Bad text may be open once more in front of an open sequence; a scan to a block's end
        // would let it pass.
        if (n == 0 || withoutOpenSequence(p.src, n) != n || !scan.isValid()) {
            return;
        }
        // Straight into the output where there is room for all that the stores may overwrite.
        const auto room = p.dstEnd - p.dst;
        char16_t copy[UNITS];
        char16_t* const units = room >= UNITS ? p.dst : copy;
        char16_t* dst = units;
        // Each byte behind the n counts as a character, and gives a unit that does not.
        const std::uint64_t counted = n == BLOCK ? ~std::uint64_t{0} : (std::uint64_t{1} << n) - 1;
        std::uint64_t continuations = (scan.continuations() & counted) >> 1;
        int pos = 0;
        while (pos < n) {
            const int consumed = convertWindow(input.at(pos), ~continuations, dst);
            pos += consumed;
            continuations >>= consumed;
        }
        const auto count = (dst - units) - (pos - n);
        if (units == copy) {
            if (count > room) {
                return;
            }
            std::memcpy(p.dst, copy, static_cast<std::size_t>(count) * sizeof(char16_t));
        }
        p.src += n;
        p.dst += count;
    }
}

} // namespace

void decodeSse41(DecodePointers& p, bool cesu8) noexcept {
    if (decodeBlocks(p, cesu8)) {
        decodeEnd(p, cesu8);
    }
}

} // namespace orv::utf_8
