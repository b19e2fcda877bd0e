// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The MD5 message digest, after the text of RFC 1321.

#include "orv/liborv/uuid/md5.h"

#include <string.h>

/// The padding before the 8 bytes of the length ends here, section 3.1.
enum { LENGTH_OFFSET = ORV_MD5_BLOCK_SIZE - 8 };

/// T[i] of section 3.4: the whole part of 4294967296 * abs(sin(i + 1)).
static const uint32_t sines[64] = {
    0xD76AA478U, 0xE8C7B756U, 0x242070DBU, 0xC1BDCEEEU, 0xF57C0FAFU, 0x4787C62AU, 0xA8304613U,
    0xFD469501U, 0x698098D8U, 0x8B44F7AFU, 0xFFFF5BB1U, 0x895CD7BEU, 0x6B901122U, 0xFD987193U,
    0xA679438EU, 0x49B40821U, 0xF61E2562U, 0xC040B340U, 0x265E5A51U, 0xE9B6C7AAU, 0xD62F105DU,
    0x02441453U, 0xD8A1E681U, 0xE7D3FBC8U, 0x21E1CDE6U, 0xC33707D6U, 0xF4D50D87U, 0x455A14EDU,
    0xA9E3E905U, 0xFCEFA3F8U, 0x676F02D9U, 0x8D2A4C8AU, 0xFFFA3942U, 0x8771F681U, 0x6D9D6122U,
    0xFDE5380CU, 0xA4BEEA44U, 0x4BDECFA9U, 0xF6BB4B60U, 0xBEBFBC70U, 0x289B7EC6U, 0xEAA127FAU,
    0xD4EF3085U, 0x04881D05U, 0xD9D4D039U, 0xE6DB99E5U, 0x1FA27CF8U, 0xC4AC5665U, 0xF4292244U,
    0x432AFF97U, 0xAB9423A7U, 0xFC93A039U, 0x655B59C3U, 0x8F0CCC92U, 0xFFEFF47DU, 0x85845DD1U,
    0x6FA87E4FU, 0xFE2CE6E0U, 0xA3014314U, 0x4E0811A1U, 0xF7537E82U, 0xBD3AF235U, 0x2AD7D2BBU,
    0xEB86D391U,
};

/// How far the four steps of each round rotate.
static const unsigned char rotations[4][4] = {
    {7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

static uint32_t rotateLeft(uint32_t word, unsigned by) {
    return word << by | word >> (32 - by);
}

static uint32_t loadWord(const uint8_t* bytes) {
    return (uint32_t)bytes[0] | (uint32_t)bytes[1] << 8 | (uint32_t)bytes[2] << 16 |
           (uint32_t)bytes[3] << 24;
}

static void storeWord(uint8_t* bytes, uint32_t word) {
    for (unsigned i = 0; i < 4; ++i)
        bytes[i] = (uint8_t)(word >> 8 * i);
}

/// Section 3.4: mixes one block of 64 bytes into the state.
static void mixBlock(uint32_t state[4], const uint8_t* block) {
    uint32_t words[16];
    for (unsigned i = 0; i < 16; ++i)
        words[i] = loadWord(block + 4 * i);

    uint32_t a = state[0];
    uint32_t b = state[1];
    uint32_t c = state[2];
    uint32_t d = state[3];
    for (unsigned i = 0; i < 64; ++i) {
        const unsigned round = i / 16;
        uint32_t mixed;
        unsigned word;
        switch (round) {
        case 0:
            mixed = (b & c) | (~b & d);
            word = i;
            break;
        case 1:
            mixed = (b & d) | (c & ~d);
            word = (5 * i + 1) % 16;
            break;
        case 2:
            mixed = b ^ c ^ d;
            word = (3 * i + 5) % 16;
            break;
        default:
            mixed = c ^ (b | ~d);
            word = 7 * i % 16;
            break;
        }
        const uint32_t sum = a + mixed + words[word] + sines[i];
        a = d;
        d = c;
        c = b;
        b += rotateLeft(sum, rotations[round][i % 4]);
    }
    state[0] += a;
    state[1] += b;
    state[2] += c;
    state[3] += d;
}

void orvMD5Init(OrvMD5* md5) {
    md5->state[0] = 0x67452301U;
    md5->state[1] = 0xEFCDAB89U;
    md5->state[2] = 0x98BADCFEU;
    md5->state[3] = 0x10325476U;
    md5->size = 0;
}

void orvMD5Update(OrvMD5* md5, const void* data, size_t size) {
    if (size == 0)
        return;
    const uint8_t* bytes = data;
    const size_t held = (size_t)(md5->size % ORV_MD5_BLOCK_SIZE);
    md5->size += size;

    if (held != 0) {
        const size_t missing = ORV_MD5_BLOCK_SIZE - held;
        const size_t taken = size < missing ? size : missing;
        memcpy(md5->block + held, bytes, taken);
        if (taken < missing)
            return;
        mixBlock(md5->state, md5->block);
        bytes += taken;
        size -= taken;
    }
    for (; size >= ORV_MD5_BLOCK_SIZE; size -= ORV_MD5_BLOCK_SIZE) {
        mixBlock(md5->state, bytes);
        bytes += ORV_MD5_BLOCK_SIZE;
    }
    memcpy(md5->block, bytes, size);
}

void orvMD5Final(OrvMD5* md5, uint8_t digest[ORV_MD5_DIGEST_SIZE]) {
    const uint64_t bits = md5->size * 8;
    size_t held = (size_t)(md5->size % ORV_MD5_BLOCK_SIZE);

    md5->block[held++] = 0x80;
    if (held > LENGTH_OFFSET) {
        memset(md5->block + held, 0, ORV_MD5_BLOCK_SIZE - held);
        mixBlock(md5->state, md5->block);
        held = 0;
    }
    memset(md5->block + held, 0, LENGTH_OFFSET - held);
    storeWord(md5->block + LENGTH_OFFSET, (uint32_t)bits);
    storeWord(md5->block + LENGTH_OFFSET + 4, (uint32_t)(bits >> 32));
    mixBlock(md5->state, md5->block);

    for (unsigned i = 0; i < 4; ++i)
        storeWord(digest + 4 * i, md5->state[i]);
}
