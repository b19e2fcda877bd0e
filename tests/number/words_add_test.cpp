// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Kernels of addition, subtraction and comparison, on arrays with nothing around them.
#include "orv/liborvxx/number/words/add.h"
#include "orv/liborvxx/number/words/carry.h"
#include "orv/liborvxx/number/words/compare.h"

#include "tests/number/exact_words.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

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

// Word by word, in as many words as asked for; sign is 1 for addition and -1 for subtraction.
std::vector<Word> combined(const std::vector<Word>& a, const std::vector<Word>& b,
                           std::int64_t sign, std::size_t size) {
    std::vector<Word> result(size);
    std::int64_t carry = 0;
    for (std::size_t i = 0; i < size; ++i) {
        carry += std::int64_t{at(a, i)} + sign * std::int64_t{at(b, i)};
        result[i] = static_cast<Word>(carry);
        carry >>= 32;
    }
    return result;
}

TEST(WordsAdd, AddsAndSubtractsRowsOfAnyLength) {
    NumberSource source(1);
    for (std::size_t i = caseCount(100'000); i > 0; --i) {
        const unsigned n = source.below(21);
        const std::vector<Word> x = someWords(source, n);
        const std::vector<Word> y = someWords(source, n);
        const Exact a(x);
        const Exact b(y);
        Exact dst(x);

        std::vector<Word> expected = combined(x, y, 1, n + 1);
        const bool carry = orv::words::add(dst.words.get(), a.words.get(), b.words.get(), n);
        ASSERT_EQ(carry, expected.back() != 0);
        expected.pop_back();
        ASSERT_EQ(dst.all(), expected);

        expected = combined(x, y, -1, n + 1);
        const bool borrow = orv::words::subtract(dst.words.get(), a.words.get(), b.words.get(), n);
        ASSERT_EQ(borrow, expected.at(x.size()) != 0);
        expected.resize(x.size());
        ASSERT_EQ(dst.all(), expected);
    }
}

TEST(WordsAdd, AddsAndSubtractsWhatIsOfAnyOtherLength) {
    NumberSource source(2);
    for (std::size_t i = caseCount(100'000); i > 0; --i) {
        const std::vector<Word> x = someWords(source, 1 + source.below(20));
        const std::vector<Word> y = someWords(source, 1 + source.below(20));
        const Exact a(x);
        const Exact b(y);
        Exact dst(std::vector<Word>(1 + source.below(22), 0xDEADBEEFU));

        orv::words::add(dst.words.get(), dst.size, a.words.get(), a.size, b.words.get(), b.size);
        ASSERT_EQ(dst.all(), combined(x, y, 1, dst.size));
        orv::words::subtract(dst.words.get(), dst.size, a.words.get(), a.size, b.words.get(),
                             b.size);
        ASSERT_EQ(dst.all(), combined(x, y, -1, dst.size));
    }
}

TEST(WordsAdd, SubtractsAShorterRowInPlace) {
    NumberSource source(3);
    for (std::size_t i = caseCount(100'000); i > 0; --i) {
        const std::vector<Word> x = someWords(source, source.below(20));
        const std::vector<Word> y =
            someWords(source, source.below(static_cast<unsigned>(x.size()) + 1));
        Exact dst(x);
        const Exact b(y);
        std::vector<Word> expected = combined(x, y, -1, x.size() + 1);
        const bool borrow = orv::words::subtract(dst.words.get(), dst.size, b.words.get(), b.size);
        ASSERT_EQ(borrow, expected.at(x.size()) != 0);
        expected.resize(x.size());
        ASSERT_EQ(dst.all(), expected);
    }
}

TEST(WordsAdd, CarriesOutOfNoWords) {
    EXPECT_TRUE(orv::words::increment(nullptr, 0));
    EXPECT_TRUE(orv::words::decrement(nullptr, 0));
    EXPECT_TRUE(orv::words::add(nullptr, 0, 1));
    EXPECT_FALSE(orv::words::add(nullptr, 0, 0));
}

TEST(WordsCarry, GoesInAndOut) {
    const Limb ones = ~Limb{0};
    for (const Limb a : {Limb{0}, Limb{1}, Limb{1} << 63U, ones - 1, ones}) {
        for (const Limb b : {Limb{0}, Limb{1}, Limb{1} << 63U, ones - 1, ones}) {
            for (const bool in : {false, true}) {
                bool carry = in;
                EXPECT_EQ(orv::words::addCarry(a, b, carry), a + b + (in ? 1 : 0));
                EXPECT_EQ(carry, a > ones - b || (in && a + b == ones));
                bool borrow = in;
                EXPECT_EQ(orv::words::subtractBorrow(a, b, borrow), a - b - (in ? 1 : 0));
                EXPECT_EQ(borrow, a < b || (in && a == b));
            }
        }
    }
}

TEST(WordsCompare, ComparesRowsOfAnyLength) {
    NumberSource source(4);
    for (std::size_t i = caseCount(100'000); i > 0; --i) {
        const std::vector<Word> x = someWords(source, 1 + source.below(12));
        std::vector<Word> y = source.coin() ? x : someWords(source, 1 + source.below(12));
        y.resize(1 + source.below(14));
        const Exact a(x);
        const Exact b(y);
        int expected = 0;
        for (std::size_t k = 20; k-- > 0 && expected == 0;) {
            expected = at(x, k) < at(y, k) ? -1 : at(x, k) > at(y, k) ? 1 : 0;
        }
        ASSERT_EQ(orv::words::compare(a.words.get(), a.size, b.words.get(), b.size), expected);
        ASSERT_EQ(orv::words::equals(a.words.get(), a.size, b.words.get(), b.size), expected == 0);
    }
}

TEST(WordsCompare, FindsZerosInRowsOfAnyLength) {
    for (unsigned n = 0; n <= 12; ++n) {
        Exact a(std::vector<Word>(n, 0));
        EXPECT_TRUE(orv::words::isZero(a.words.get(), n));
        EXPECT_TRUE(orv::words::leadingWordsAreZero(a.words.get(), n));
        EXPECT_EQ(n == 0 ? 1 : orv::words::trimmedSize(a.words.get(), n), 1U);
        for (unsigned i = 0; i < n; ++i) {
            a.words[i] = 1;
            EXPECT_FALSE(orv::words::isZero(a.words.get(), n));
            EXPECT_EQ(orv::words::leadingWordsAreZero(a.words.get(), n), i == 0);
            EXPECT_EQ(orv::words::trimmedSize(a.words.get(), n), i + 1);
            a.words[i] = 0;
        }
    }
}

} // namespace
