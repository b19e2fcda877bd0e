// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Queries about single bits of numbers in word arrays.
#include "orv/liborvxx/number/words/bits.h"

#include "orv/liborvxx/number/words/compare.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace orv::words {

namespace {

// Numbers of set bits of each byte, by sums of neighbours. In a row this is faster than
// std::popcount, which calls a function where the processor may lack the instruction.
ORVXX_ALWAYS_INLINE Limb countInBytes(Limb x) {
    x -= x >> 1U & 0x5555555555555555U;
    x = (x & 0x3333333333333333U) + (x >> 2U & 0x3333333333333333U);
    return (x + (x >> 4U)) & 0x0F0F0F0F0F0F0F0FU;
}

ORVXX_ALWAYS_INLINE unsigned sumOfBytes(Limb x) {
    x = (x & 0x00FF00FF00FF00FFU) + (x >> 8U & 0x00FF00FF00FF00FFU);
    return static_cast<unsigned>(x * 0x0001000100010001U >> 48U);
}

} // namespace

int highestSetBit(const Word* a, unsigned n) noexcept {
    while (n > 0 && a[n - 1] == 0) {
        --n;
    }
    return n == 0 ? -1 : static_cast<int>(n * 32) - 1 - std::countl_zero(a[n - 1]);
}

int lowestSetBit(const Word* a, unsigned n) noexcept {
    for (unsigned i = 0; i < n; ++i) {
        if (a[i] != 0) {
            return static_cast<int>(i * 32) + std::countr_zero(a[i]);
        }
    }
    return -1;
}

unsigned countBits(const Word* a, unsigned n) noexcept {
    unsigned count = 0;
    while (n >= 2) {
        // As many limbs as the bytes of a sum can take: 31 * 8 is below 256.
        const unsigned chunk = std::min(n / 2, 31U);
        Limb sums = 0;
        for (unsigned i = 0; i < chunk; ++i) {
            sums += countInBytes(load(a + std::size_t{i} * 2));
        }
        count += sumOfBytes(sums);
        a += std::size_t{chunk} * 2;
        n -= chunk * 2;
    }
    return n == 0 ? count : count + sumOfBytes(countInBytes(*a));
}

bool isPowerOfTwo(const Word* a, unsigned n) noexcept {
    unsigned i = 0;
    while (i < n && a[i] == 0) {
        ++i;
    }
    return i == n || (std::has_single_bit(a[i]) && isZero(a + i + 1, n - i - 1));
}

unsigned computeRoundingInfo(const Word* a, unsigned n, unsigned bits) noexcept {
    if (bits == 0) {
        return 0;
    }
    const unsigned word = (bits - 1) / 32;
    if (word >= n) {
        return isZero(a, n) ? 0 : 1;
    }
    const Word half = Word{1} << (bits - 1) % 32;
    const bool below = (a[word] & (half - 1)) != 0 || !isZero(a, word);
    return ((a[word] & half) != 0 ? 2U : 0U) | (below ? 1U : 0U);
}

void bitAnd(Word* dst, const Word* a, const Word* b, unsigned n) noexcept {
    for (unsigned i = 0; i < n; ++i) {
        dst[i] = a[i] & b[i];
    }
}

void bitNot(Word* dst, const Word* a, unsigned n) noexcept {
    for (unsigned i = 0; i < n; ++i) {
        dst[i] = ~a[i];
    }
}

} // namespace orv::words
