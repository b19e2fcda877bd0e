// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 to UTF-16 with SSE4.1.
///
/// Blocks of 64 bytes are validated with the three-table method of J. Keiser and D. Lemire,
/// "Validating UTF-8 In Less Than One Instruction Per Byte" (Software: Practice and Experience 51,
/// 2021), and converted twelve bytes at a time: the positions of the last bytes of characters
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

__m128i highHalves(__m128i bytes) {
    return _mm_and_si128(_mm_srli_epi16(bytes, 4), _mm_set1_epi8(0x0F));
}

__m128i pairFaults(__m128i bytes, __m128i previous) {
    const __m128i firstHigh =
        _mm_shuffle_epi8(_mm_setr_epi8(TOO_LONG, TOO_LONG, TOO_LONG, TOO_LONG, TOO_LONG, TOO_LONG,
                                       TOO_LONG, TOO_LONG, TWO_CONTINUATIONS, TWO_CONTINUATIONS,
                                       TWO_CONTINUATIONS, TWO_CONTINUATIONS, TOO_SHORT | OVERLONG_2,
                                       TOO_SHORT, TOO_SHORT | OVERLONG_3 | SURROGATE,
                                       TOO_SHORT | TOO_LARGE | TOO_LARGE_1000 | OVERLONG_4),
                         highHalves(previous));
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
        highHalves(bytes));
    return _mm_and_si128(_mm_and_si128(firstHigh, firstLow), secondHigh);
}

// Non-zero bytes where the text is bad. `before` holds the 16 bytes in front of `bytes`.
__m128i faults(__m128i bytes, __m128i before) {
    const __m128i previous1 = _mm_alignr_epi8(bytes, before, 15);
    const __m128i previous2 = _mm_alignr_epi8(bytes, before, 14);
    const __m128i previous3 = _mm_alignr_epi8(bytes, before, 13);
    // Two continuations in a row are right exactly in third and fourth place.
    const __m128i third = _mm_subs_epu8(previous2, _mm_set1_epi8(0xE0 - 0x80));
    const __m128i fourth = _mm_subs_epu8(previous3, _mm_set1_epi8(0xF0 - 0x80));
    const __m128i expected =
        _mm_and_si128(_mm_or_si128(third, fourth), _mm_set1_epi8(TWO_CONTINUATIONS));
    return _mm_xor_si128(expected, pairFaults(bytes, previous1));
}

// Shuffles.

// How to take the characters of a window apart, by kind.
enum WindowKind : std::uint8_t {
    SIX_SHORT, // six characters of one or two bytes
    FOUR_BMP,  // four of one to three
    THREE_ANY, // three of one to four
};

struct Window {
    std::uint8_t shuffle;
    std::uint8_t kind;
    std::uint8_t consumed;
};

constexpr int SIX_SHORT_SHUFFLES = 64; // 2^6
constexpr int FOUR_BMP_SHUFFLES = 81;  // 3^4
constexpr int THREE_ANY_SHUFFLES = 64; // 4^3
constexpr int SHUFFLES = SIX_SHORT_SHUFFLES + FOUR_BMP_SHUFFLES + THREE_ANY_SHUFFLES;

struct Tables {
    Window windows[1 << WINDOW] = {};
    alignas(16) std::uint8_t shuffles[SHUFFLES][16] = {};
};

// Byte k of lane i is byte k from the end of character i; 0x80 makes a zero.
constexpr void fillShuffle(std::uint8_t (&shuffle)[16], const int* lengths, int count,
                           int laneBytes) {
    for (std::uint8_t& byte : shuffle) {
        byte = 0x80;
    }
    int start = 0;
    for (int i = 0; i < count; ++i) {
        for (int k = 0; k < lengths[i]; ++k) {
            shuffle[i * laneBytes + k] = static_cast<std::uint8_t>(start + lengths[i] - 1 - k);
        }
        start += lengths[i];
    }
}

// If the first `count` characters have at most `longest` bytes, describes them in `window`.
constexpr bool fitWindow(Tables& tables, Window& window, const int* lengths, int found, int count,
                         int longest, WindowKind kind, int firstShuffle, int laneBytes) {
    if (found < count) {
        return false;
    }
    int index = 0;
    int consumed = 0;
    for (int i = 0; i < count; ++i) {
        if (lengths[i] > longest) {
            return false;
        }
        index = index * longest + lengths[i] - 1;
        consumed += lengths[i];
    }
    window = {static_cast<std::uint8_t>(firstShuffle + index), kind,
              static_cast<std::uint8_t>(consumed)};
    fillShuffle(tables.shuffles[firstShuffle + index], lengths, count, laneBytes);
    return true;
}

constexpr Tables makeTables() {
    Tables tables;
    // Bit i of `ends` says that byte i ends a character.
    for (int ends = 0; ends < 1 << WINDOW; ++ends) {
        int lengths[WINDOW] = {};
        int found = 0;
        int start = 0;
        for (int i = 0; i < WINDOW; ++i) {
            if ((ends >> i & 1) != 0) {
                lengths[found++] = i + 1 - start;
                start = i + 1;
            }
        }
        Window& window = tables.windows[ends];
        // Windows that fit none have a character of five bytes or more: none is in valid text.
        if (!fitWindow(tables, window, lengths, found, 6, 2, SIX_SHORT, 0, 2) &&
            !fitWindow(tables, window, lengths, found, 4, 3, FOUR_BMP, SIX_SHORT_SHUFFLES, 4)) {
            fitWindow(tables, window, lengths, found, 3, 4, THREE_ANY,
                      SIX_SHORT_SHUFFLES + FOUR_BMP_SHUFFLES, 4);
        }
    }
    return tables;
}

constexpr Tables TABLES = makeTables();

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

// 16-bit lanes [110aaaaa 10bbbbbb] or [00000000 0bbbbbbb].
__m128i joinShort(__m128i lanes) {
    const __m128i low = _mm_and_si128(lanes, _mm_set1_epi16(0x007F));
    const __m128i high = _mm_and_si128(lanes, _mm_set1_epi16(0x1F00));
    return _mm_or_si128(low, _mm_srli_epi16(high, 2));
}

// 32-bit lanes [0 1110aaaa 10bbbbbb 10cccccc] or shorter.
__m128i joinBmp(__m128i lanes) {
    const __m128i low = _mm_and_si128(lanes, _mm_set1_epi32(0x7F));
    const __m128i middle = _mm_and_si128(lanes, _mm_set1_epi32(0x3F00));
    const __m128i high = _mm_and_si128(lanes, _mm_set1_epi32(0x0F0000));
    return _mm_or_si128(_mm_or_si128(low, _mm_srli_epi32(middle, 2)), _mm_srli_epi32(high, 4));
}

// 32-bit lanes [11110aaa 10bbbbbb 10cccccc 10dddddd] or shorter.
__m128i joinAny(__m128i lanes) {
    const __m128i low = _mm_and_si128(lanes, _mm_set1_epi32(0x7F));
    const __m128i middle = _mm_and_si128(lanes, _mm_set1_epi32(0x3F00));
    // The lead byte 1110xxxx of a three-byte form leaves a bit too many, told by the bit above it.
    const __m128i excess = _mm_srli_epi32(_mm_and_si128(lanes, _mm_set1_epi32(0x400000)), 1);
    const __m128i high = _mm_xor_si128(_mm_and_si128(lanes, _mm_set1_epi32(0x3F0000)), excess);
    const __m128i highest = _mm_and_si128(lanes, _mm_set1_epi32(0x07000000));
    return _mm_or_si128(_mm_or_si128(low, _mm_srli_epi32(middle, 2)),
                        _mm_or_si128(_mm_srli_epi32(high, 4), _mm_srli_epi32(highest, 6)));
}

// Writes three code points; returns the end of the units.
char16_t* putThree(char16_t* dst, __m128i codePoints) {
    const __m128i isPair = _mm_cmpgt_epi32(codePoints, _mm_set1_epi32(0xFFFF));
    const __m128i offset = _mm_sub_epi32(codePoints, _mm_set1_epi32(0x10000));
    const __m128i high = _mm_or_si128(_mm_srli_epi32(offset, 10), _mm_set1_epi32(0xD800));
    const __m128i low =
        _mm_or_si128(_mm_and_si128(offset, _mm_set1_epi32(0x3FF)), _mm_set1_epi32(0xDC00));
    const __m128i pair = _mm_or_si128(high, _mm_slli_epi32(low, 16));
    alignas(16) std::uint32_t units[4];
    alignas(16) std::uint32_t second[4];
    _mm_store_si128(reinterpret_cast<__m128i*>(units), _mm_blendv_epi8(codePoints, pair, isPair));
    _mm_store_si128(reinterpret_cast<__m128i*>(second), _mm_srli_epi32(isPair, 31));
    for (int i = 0; i < 3; ++i) {
        // Both halves always; the second is overwritten where it is none.
        std::memcpy(dst, &units[i], sizeof units[i]);
        dst += 1 + second[i];
    }
    return dst;
}

// Converts the characters in front of a window whose `ends` mark last bytes; returns the bytes
// consumed.
int convertWindow(__m128i bytes, std::uint64_t ends, char16_t*& dst) {
    if ((ends & 0xFFFF) == 0xFFFF) {
        widen(dst, bytes);
        dst += 16;
        return 16;
    }
    if ((ends & 0xFFFF) == 0xAAAA) {
        const __m128i swap = _mm_setr_epi8(1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14);
        store(dst, joinShort(_mm_shuffle_epi8(bytes, swap)));
        dst += 8;
        return 16;
    }
    const Window window = TABLES.windows[ends & ((1 << WINDOW) - 1)];
    const __m128i lanes = _mm_shuffle_epi8(
        bytes, _mm_load_si128(reinterpret_cast<const __m128i*>(TABLES.shuffles[window.shuffle])));
    switch (window.kind) {
    case SIX_SHORT:
        store(dst, joinShort(lanes));
        dst += 6;
        break;
    case FOUR_BMP: {
        const __m128i joined = joinBmp(lanes);
        store(dst, _mm_packus_epi32(joined, joined));
        dst += 4;
        break;
    }
    default:
        dst = putThree(dst, joinAny(lanes));
        break;
    }
    return window.consumed;
}

// Blocks.

// What is known of up to 64 bytes, fed 16 at a time. They begin with a character.
class Scan {
public:
    void feed(__m128i bytes, int position) {
        bad_ = _mm_or_si128(bad_, faults(bytes, before_));
        highest_ = _mm_max_epu8(highest_, bytes);
        // Continuation bytes are the signed values below -64.
        const int mask = _mm_movemask_epi8(_mm_cmplt_epi8(bytes, _mm_set1_epi8(-64)));
        continuations_ |= static_cast<std::uint64_t>(mask) << position;
        before_ = bytes;
    }

    // A sequence that goes on behind the bytes passes.
    bool isValid(bool fourByteForms) const {
        if (_mm_testz_si128(bad_, bad_) == 0) {
            return false;
        }
        const __m128i firstLead = _mm_set1_epi8(static_cast<char>(0xF0));
        const __m128i isLead = _mm_cmpeq_epi8(_mm_max_epu8(highest_, firstLead), highest_);
        return fourByteForms || _mm_movemask_epi8(isLead) == 0;
    }

    // Bit i says that byte i is a continuation byte.
    std::uint64_t continuations() const { return continuations_; }

private:
    __m128i bad_ = _mm_setzero_si128();
    __m128i highest_ = _mm_setzero_si128();
    __m128i before_ = _mm_setzero_si128();
    std::uint64_t continuations_ = 0;
};

// Converts blocks as long as whole ones, with what their stores may overwrite, fit in both buffers.
// Returns false if it met bad text.
bool decodeBlocks(DecodePointers& p, bool fourByteForms) {
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
        Scan scan;
        scan.feed(b0, 0);
        scan.feed(b1, 16);
        scan.feed(b2, 32);
        scan.feed(b3, 48);
        if (!scan.isValid(fourByteForms)) {
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
void decodeEnd(DecodePointers& p, bool fourByteForms) {
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
        Scan scan;
        for (int pos = 0; pos < n; pos += LOAD) {
            scan.feed(input.at(pos), pos);
        }
        // Bad text may be open once more in front of an open sequence; a scan to a block's end
        // would let it pass.
        if (n == 0 || withoutOpenSequence(p.src, n) != n || !scan.isValid(fourByteForms)) {
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

void decodeSse41(DecodePointers& p, bool fourByteForms) noexcept {
    if (decodeBlocks(p, fourByteForms)) {
        decodeEnd(p, fourByteForms);
    }
}

} // namespace orv::utf_8
