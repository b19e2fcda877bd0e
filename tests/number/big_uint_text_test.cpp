// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: decimal text.
#include "orv/liborvxx/number/big_uint.h"

#include "tests/number/words_of.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using orv::big_uint;
using orvtest::numberOf;
using orvtest::wordsOf;

// The text, if both forms agree.
std::string textOf(const big_uint& n) {
    const std::string text = n.to_string();
    const orv::ustring wide = n.to_ustring();
    const bool same = std::equal(wide.begin(), wide.end(), text.begin(), text.end(),
                                 [](orv::char16 a, char b) { return a == orv::char16(b); });
    return same ? text : "another in char16 than " + text;
}

// The definition: divide by ten until nothing is left.
std::string textByDigits(big_uint n) {
    std::string text;
    do {
        text.push_back(static_cast<char>('0' + static_cast<char>(n.divide_by_10())));
    } while (!n.is_zero());
    std::reverse(text.begin(), text.end());
    return text;
}

TEST(BigUintText, WritesZeroOfAnyWidthAsOneDigit) {
    for (const unsigned size : {1U, 2U, 3U, 8U, 9U, 64U, 100U, 500U}) {
        EXPECT_EQ(textOf(numberOf(size, [](unsigned) { return 0U; })), "0") << size;
    }
    EXPECT_EQ(textOf(big_uint()), "0");
}

TEST(BigUintText, WritesNoLeadingZeros) {
    for (const unsigned zeros : {1U, 2U, 7U, 100U}) {
        big_uint n({1234567890});
        n.set_size(1 + zeros);
        EXPECT_EQ(textOf(n), "1234567890") << zeros;
    }
}

TEST(BigUintText, LeavesTheNumberUnchanged) {
    for (const unsigned size : {1U, 2U, 5U, 8U, 9U, 70U, 300U}) {
        big_uint n = orvtest::counting(size);
        n.set_size(size + 2);
        const auto before = wordsOf(n);
        EXPECT_FALSE(n.to_string().empty());
        EXPECT_FALSE(n.to_ustring().empty());
        EXPECT_EQ(wordsOf(n), before);
        EXPECT_EQ(n.size(), size + 2);
    }
}

TEST(BigUintText, WritesSmallNumbersLikeTheStandardLibrary) {
    for (unsigned i = 0; i < orvtest::caseCount(200000); ++i) {
        ASSERT_EQ(textOf(big_uint(i)), std::to_string(i));
    }
}

TEST(BigUintText, WritesNumbersOf64BitsLikeTheStandardLibrary) {
    orvtest::NumberSource source(64);
    for (std::size_t i = 0; i < orvtest::caseCount(200000); ++i) {
        const std::uint64_t value = source.bits() >> source.below(64);
        ASSERT_EQ(textOf(big_uint(value)), std::to_string(value));
    }
    for (std::uint64_t power = 1; power != 0;
         power = power > ~std::uint64_t{0} / 10 ? 0 : power * 10) {
        EXPECT_EQ(textOf(big_uint(power - 1)), std::to_string(power - 1));
        EXPECT_EQ(textOf(big_uint(power)), std::to_string(power));
        EXPECT_EQ(textOf(big_uint(power * 9)), std::to_string(power * 9));
    }
    EXPECT_EQ(textOf(big_uint(~std::uint64_t{0})), "18446744073709551615");
}

TEST(BigUintText, WritesPowersOfTen) {
    big_uint power(1U);
    power.reserve(700);
    std::string expected = "1";
    for (unsigned k = 0; k <= 6000; ++k) {
        ASSERT_TRUE(textOf(power) == expected) << k;
        big_uint less = power;
        less.decrement();
        ASSERT_TRUE(textOf(less) == (k == 0 ? "0" : std::string(k, '9'))) << k;
        if (k > 700) { // every hundredth from here on, more or less
            for (unsigned i = 0; i < 96; ++i, ++k) {
                if (const unsigned carry = power.multiply_by_10()) {
                    power.prepend(carry);
                }
            }
            expected.append(96, '0');
        }
        if (const unsigned carry = power.multiply_by_10()) {
            power.prepend(carry);
        }
        expected.push_back('0');
    }
}

TEST(BigUintText, WritesTheDigitsThatDivisionByTenGives) {
    orvtest::NumberSource source(10);
    for (std::size_t i = 0; i < orvtest::caseCount(3000); ++i) {
        const big_uint n = source.numberUpTo(i % 16 == 0 ? 200 : 20);
        ASSERT_TRUE(textOf(n) == textByDigits(n)) << n.size() << " words";
    }
}

TEST(BigUintText, WritesTheWidestNumber) {
    const std::string text =
        numberOf(big_uint::max_size(), [](unsigned) { return 0xFFFFFFFFU; }).to_string();
    // 2^2097120 - 1
    ASSERT_EQ(text.size(), 631297U);
    EXPECT_EQ(text.substr(0, 20), "10580515999257020442");
    EXPECT_EQ(text.substr(text.size() - 20), "90118724646077464575");
}

} // namespace
