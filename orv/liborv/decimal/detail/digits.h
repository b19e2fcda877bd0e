// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decimal digits of coefficients, as characters and back.
#ifndef ORV_LIBORV_DECIMAL_DETAIL_DIGITS_H
#define ORV_LIBORV_DECIMAL_DETAIL_DIGITS_H

#include "orv/liborv/platform.h"

#include <stdint.h>
#include <string.h>

#define ORV_DEC_MAX_DIGITS 34  ///< of a coefficient
#define ORV_DEC_DIGIT_SPACE 40 ///< characters that orvDecimalDigits may touch

/// Powers of ten, as far as 64 bits hold them.
static const uint64_t orvPowersOfTen[20] = {1,
                                            10,
                                            100,
                                            1000,
                                            10000,
                                            100000,
                                            1000000,
                                            10000000,
                                            100000000,
                                            1000000000,
                                            10000000000,
                                            100000000000,
                                            1000000000000,
                                            10000000000000,
                                            100000000000000,
                                            1000000000000000,
                                            10000000000000000,
                                            100000000000000000,
                                            1000000000000000000,
                                            UINT64_C(10000000000000000000)};

/// Leading zero bits of \p x, which is not 0.
static inline int32_t orvLeadingZeros(uint64_t x) {
#if defined(ORV_LEADING_ZEROS_64)
    return ORV_LEADING_ZEROS_64(x);
#else
    int32_t count = 0;
    for (int32_t step = 32; step > 0; step /= 2) {
        if (x >> (64 - step) == 0) {
            x <<= step;
            count += step;
        }
    }
    return count;
#endif
}

/// The upper half of \p a * \p b.
static inline uint64_t orvMultiplyHigh(uint64_t a, uint64_t b) {
#if defined(ORV_MULTIPLY_HIGH_64)
    return ORV_MULTIPLY_HIGH_64(a, b);
#else
    const uint64_t low = (a & 0xFFFFFFFF) * (b & 0xFFFFFFFF);
    const uint64_t left = (a >> 32) * (b & 0xFFFFFFFF) + (low >> 32);
    const uint64_t right = (a & 0xFFFFFFFF) * (b >> 32) + (left & 0xFFFFFFFF);
    return (a >> 32) * (b >> 32) + (left >> 32) + (right >> 32);
#endif
}

/// The number of digits of \p x, at most 10^17; 1 for zero.
static inline int32_t orvDigitCount(uint64_t x) {
    const int32_t bits = 64 - orvLeadingZeros(x | 1);
    const int32_t low = bits * 1233 >> 12; // bits * log10(2), never above the answer
    return low + ((x | 1) >= orvPowersOfTen[low]);
}

/// The characters of a number of 8 digits, the first one in the lowest byte.
static inline uint64_t orvEightDigits(uint32_t x) {
    // Halves of 32, then 16, then 8 bits; the quotients come by multiplication in all parts at
    // once.
    const uint64_t fours = x / 10000 | (uint64_t)(x % 10000) << 32;
    const uint64_t hundreds = (fours * 10486 >> 20) & UINT64_C(0x7F0000007F);
    const uint64_t twos = hundreds | (fours - hundreds * 100) << 16;
    const uint64_t tens = (twos * 103 >> 10) & UINT64_C(0xF000F000F000F);
    return (tens | (twos - tens * 10) << 8) + UINT64_C(0x3030303030303030);
}

/// \name A number in 8 bytes, the lowest byte first
/// @{
static inline uint64_t orvLoadEight(const char* from) {
    uint64_t x = 0;
#if defined(ORV_LITTLE_ENDIAN)
    memcpy(&x, from, sizeof x);
#else
    for (int i = 0; i < 8; ++i) {
        x |= (uint64_t)(unsigned char)from[i] << (8 * i);
    }
#endif
    return x;
}

static inline void orvStoreEight(char* to, uint64_t x) {
#if defined(ORV_LITTLE_ENDIAN)
    memcpy(to, &x, sizeof x);
#else
    for (int i = 0; i < 8; ++i) {
        to[i] = (char)(x >> (8 * i) & 0xFF);
    }
#endif
}
/// @}

/// Are 8 characters digits?
static inline int orvAreEightDigits(uint64_t x) {
    const uint64_t tops = UINT64_C(0xF0F0F0F0F0F0F0F0);
    return (((x & tops) ^ UINT64_C(0x3030303030303030)) |
            (((x + UINT64_C(0x0606060606060606)) & tops) ^ UINT64_C(0x3030303030303030))) == 0;
}

/// The value of the last \p count, 1 to 8, of 8 characters; these are digits.
static inline uint32_t orvDigitValue(uint64_t x, unsigned count) {
    x = (x & UINT64_C(0x0F0F0F0F0F0F0F0F)) >> (64 - 8 * count) << (64 - 8 * count);
    x = (x * 10 + (x >> 8)) & UINT64_C(0x00FF00FF00FF00FF);
    x = (x * 100 + (x >> 16)) & UINT64_C(0x0000FFFF0000FFFF);
    return (uint32_t)(x * 10000 + (x >> 32));
}

/// Writes the 16 digits of \p x, leading zeros included.
static inline void orvWriteSixteen(char* out, uint64_t x) {
    orvStoreEight(out, orvEightDigits((uint32_t)(x / 100000000)));
    orvStoreEight(out + 8, orvEightDigits((uint32_t)(x % 100000000)));
}

/// Writes the 17 digits of \p x, leading zeros included.
static inline void orvWriteSeventeen(char* out, uint64_t x) {
    out[0] = (char)('0' + x / orvPowersOfTen[16]);
    orvWriteSixteen(out + 1, x % orvPowersOfTen[16]);
}

/// Divides a coefficient, at most 10^34, by 10^17.
/// \return the quotient; the rest goes to \p remainder
static inline uint64_t orvHighSeventeen(uint64_t high, uint64_t low, uint64_t* remainder) {
    // The upper 64 of 113 bits times 2^120 / 10^17, rounded down: at most 2 below the quotient.
    const uint64_t upper = high << 15 | low >> 49;
    uint64_t quotient = orvMultiplyHigh(upper, UINT64_C(13292279957849158729)) >> 7;
    uint64_t rest = low - quotient * orvPowersOfTen[17];
    while (rest >= orvPowersOfTen[17]) {
        rest -= orvPowersOfTen[17];
        ++quotient;
    }
    *remainder = rest;
    return quotient;
}

/// Writes the digits of a coefficient, below 10^34, without leading zeros: "0" for zero.
/// \param out room for ORV_DEC_DIGIT_SPACE characters; what stands behind the digits is not
///         kept
/// \return how many there are
static inline int32_t orvDecimalDigits(char* out, uint64_t high, uint64_t low) {
    if (high == 0 && low < orvPowersOfTen[16]) {
        const int32_t count = orvDigitCount(low);
        orvWriteSixteen(out, low * orvPowersOfTen[16 - count]);
        return count;
    }
    uint64_t rest;
    const uint64_t first = orvHighSeventeen(high, low, &rest);
    if (first == 0) {
        orvWriteSeventeen(out, rest); // at least 10^16
        return 17;
    }
    const int32_t count = orvDigitCount(first);
    orvWriteSeventeen(out, first * orvPowersOfTen[17 - count]);
    orvWriteSeventeen(out + count, rest);
    return count + 17;
}

#endif
