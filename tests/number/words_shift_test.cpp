// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Kernels of shifts and bits, on arrays with nothing around them.
#include "orv/liborvxx/number/words/bits.h"
#include "orv/liborvxx/number/words/shift.h"

#include "tests/number/exact_words.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <vector>

namespace {

using orv::words::Limb;
using orv::words::Word;
using orvtest::at;
using orvtest::caseCount;
using orvtest::Exact;
using orvtest::NumberSource;
using orvtest::someWords;

// Word by word through two words of the number.
std::vector<Word> shiftedLeft(const std::vector<Word>& a, std::size_t size, unsigned bits) {
    std::vector<Word> result(size);
    for (std::size_t i = bits / 32; i < size; ++i) {
        const std::size_t from = i - bits / 32;
        const Limb both = Limb{at(a, from)} << 32U | (from == 0 ? 0 : at(a, from - 1));
        result[i] = static_cast<Word>(both << bits % 32 >> 32U);
    }
    return result;
}

std::vector<Word> shiftedRight(const std::vector<Word>& a, std::size_t size, unsigned bits) {
    std::vector<Word> result(size);
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t from = i + bits / 32;
        const Limb both = Limb{at(a, from + 1)} << 32U | at(a, from);
        result[i] = static_cast<Word>(both >> bits % 32);
    }
    return result;
}

TEST(WordsShift, StaysWithinItsArrays) {
    NumberSource source(1);
    for (std::size_t i = caseCount(200'000); i > 0; --i) {
        const std::vector<Word> x = someWords(source, 1 + source.below(14));
        const Exact a(x);
        Exact dst(std::vector<Word>(1 + source.below(14), 0xDEADBEEFU));
        const unsigned bits = source.below(3) == 0 ? source.below(16) * 32 : source.below(15 * 32);
        orv::words::shiftLeft(dst.words.get(), dst.size, a.words.get(), a.size, bits);
        ASSERT_EQ(dst.all(), shiftedLeft(x, dst.size, bits)) << bits;
        orv::words::shiftRight(dst.words.get(), dst.size, a.words.get(), a.size, bits);
        ASSERT_EQ(dst.all(), shiftedRight(x, dst.size, bits)) << bits;
    }
}

TEST(WordsShift, ShiftsAnArrayIntoItself) {
    NumberSource source(2);
    for (std::size_t i = caseCount(200'000); i > 0; --i) {
        const std::vector<Word> x = someWords(source, 1 + source.below(14));
        const unsigned bits = source.below(3) == 0 ? source.below(16) * 32 : source.below(15 * 32);
        Exact dst(x);
        orv::words::shiftLeft(dst.words.get(), dst.size, dst.words.get(), dst.size, bits);
        ASSERT_EQ(dst.all(), shiftedLeft(x, dst.size, bits)) << bits;
        Exact other(x);
        orv::words::shiftRight(other.words.get(), other.size, other.words.get(), other.size, bits);
        ASSERT_EQ(other.all(), shiftedRight(x, other.size, bits)) << bits;
    }
}

TEST(WordsBits, AreCountedWithinTheArray) {
    NumberSource source(3);
    for (std::size_t i = caseCount(50'000); i > 0; --i) {
        const std::vector<Word> x = someWords(source, source.below(140));
        const Exact a(x);
        int count = 0;
        for (const Word word : x) {
            count += std::popcount(word);
        }
        ASSERT_EQ(orv::words::countBits(a.words.get(), a.size), static_cast<unsigned>(count));
        ASSERT_EQ(orv::words::isPowerOfTwo(a.words.get(), a.size), count < 2);
    }
}

TEST(WordsBits, AreCombinedWithinTheArray) {
    NumberSource source(4);
    for (unsigned n = 0; n < 40; ++n) {
        const std::vector<Word> x = someWords(source, n);
        const std::vector<Word> y = someWords(source, n);
        const Exact a(x);
        const Exact b(y);
        Exact both(x);
        Exact inverse(x);
        orv::words::bitAnd(both.words.get(), a.words.get(), b.words.get(), n);
        orv::words::bitNot(inverse.words.get(), a.words.get(), n);
        for (unsigned i = 0; i < n; ++i) {
            ASSERT_EQ(both.words[i], x[i] & y[i]);
            ASSERT_EQ(inverse.words[i], ~x[i]);
        }
    }
}

TEST(WordsBits, TellOfRoundingWithinTheArray) {
    for (unsigned n = 1; n <= 6; ++n) {
        Exact a(std::vector<Word>(n, 0xFFFFFFFFU));
        for (unsigned bits = 0; bits <= n * 32 + 40; ++bits) {
            const unsigned expected = bits == 0 ? 0 : bits == 1 ? 2 : bits <= n * 32 ? 3 : 1;
            ASSERT_EQ(orv::words::computeRoundingInfo(a.words.get(), n, bits), expected) << bits;
        }
    }
}

} // namespace
