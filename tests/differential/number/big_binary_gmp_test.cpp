// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief big_binary beside the same steps worked out in GMP.
#include "orv/liborvxx/number/big_binary.h"

#include "tests/support/case_count.h"
#include "tests/support/gmp_number.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <utility>
#include <vector>

namespace {

using orv::big_binary;
using orv::big_uint;
using orvtest::caseCount;
using orvtest::NumberSource;
using orvtest::toGmp;

// A number as GMP has it.
struct Exact {
    mpz_class coefficient;
    long exponent = 0;

    friend bool operator==(const Exact& a, const Exact& b) {
        return a.coefficient == b.coefficient && a.exponent == b.exponent;
    }
    friend std::ostream& operator<<(std::ostream& out, const Exact& number) {
        return out << number.coefficient << " * 2^" << number.exponent;
    }
};

Exact exact(const big_binary& number) {
    return {toGmp(number.coefficient), number.exponent};
}

unsigned bitsOf(const mpz_class& n) {
    return n == 0 ? 0 : static_cast<unsigned>(mpz_sizeinbase(n.get_mpz_t(), 2));
}

// Whether n / 2^bits lies nearer to the integer above, or as near to both and that below is odd.
bool roundsUp(const mpz_class& n, unsigned bits) {
    const mpz_class below = n >> bits;
    const mpz_class twice = (n - (below << bits)) * 2;
    const mpz_class unit = mpz_class(1) << bits;
    return twice > unit || (twice == unit && below % 2 == 1);
}

// n cut to `bits` bits, which rounding up may make one more.
Exact cut(Exact n, unsigned bits) {
    const unsigned length = bitsOf(n.coefficient);
    if (length > bits) {
        const unsigned dropped = length - bits;
        const bool up = roundsUp(n.coefficient, dropped);
        n.coefficient = (n.coefficient >> dropped) + (up ? 1 : 0);
        n.exponent += dropped;
    }
    return n;
}

Exact rounded(Exact n, unsigned precision) {
    if (n.coefficient == 0) {
        return {};
    }
    n = cut(std::move(n), precision);
    if (bitsOf(n.coefficient) > precision) {
        n.coefficient >>= 1;
        n.exponent += 1;
    }
    return n;
}

// So many bits of the quotient that a last one can tell of all the rest, then rounded once.
Exact quotient(const Exact& a, const Exact& b, unsigned precision) {
    if (a.coefficient == 0) {
        return {};
    }
    const unsigned shift = precision + bitsOf(b.coefficient) + 2;
    Exact result = {(a.coefficient << shift) / b.coefficient, a.exponent - b.exponent - shift};
    const bool rest = result.coefficient * b.coefficient != a.coefficient << shift;
    result.coefficient = result.coefficient * 2 + (rest ? 1 : 0);
    result.exponent -= 1;
    return rounded(result, precision);
}

Exact power(int n, unsigned precision) {
    unsigned magnitude = static_cast<unsigned>(n < 0 ? -n : n);
    if (magnitude >= 8192) {
        return {};
    }
    std::vector<bool> lost;
    while (magnitude > 77) {
        lost.push_back(magnitude % 2 != 0);
        magnitude /= 2;
    }
    Exact result;
    mpz_ui_pow_ui(result.coefficient.get_mpz_t(), 10, magnitude);
    if (!lost.empty() || bitsOf(result.coefficient) > precision) {
        const unsigned bits = precision + 7 + 4 * static_cast<unsigned>(lost.size());
        const Exact odd = {result.coefficient >> magnitude, static_cast<long>(magnitude)};
        result = bitsOf(odd.coefficient) <= bits ? odd : cut(result, bits);
        for (; !lost.empty(); lost.pop_back()) {
            result.coefficient *= result.coefficient * (lost.back() ? 10 : 1);
            result.exponent *= 2;
            result = cut(result, bits);
        }
    }
    return n < 0 ? quotient({1, 0}, result, precision) : rounded(result, precision);
}

// Precisions of every kind, most of them near the ends of words.
unsigned anyPrecision(NumberSource& source) {
    switch (source.below(4)) {
    case 0:
        return 64U << source.below(3);
    case 1:
        return 1 + source.below(300);
    default:
        return 32 * (1 + source.below(9)) + source.below(3) - 1;
    }
}

big_binary anyNumber(NumberSource& source, unsigned maxWords) {
    big_binary number;
    number.coefficient = source.numberUpTo(maxWords);
    number.exponent = number.coefficient.is_zero() ? 0 : source.between(-3000, 3000);
    return number;
}

TEST(BigBinaryGmp, RoundsAsTheExactNumberDoes) {
    NumberSource source(1);
    for (std::size_t i = caseCount(400000); i > 0; --i) {
        big_binary number = anyNumber(source, 20);
        const unsigned precision = anyPrecision(source);
        const Exact before = exact(number);
        const Exact expected = rounded(before, precision);
        const unsigned width = number.coefficient.size();
        const big_binary result(number.exponent, std::move(number.coefficient), precision);
        ASSERT_EQ(exact(result), expected) << before << " to " << precision;
        const bool narrowed =
            bitsOf(before.coefficient) > precision && width > (precision + 32) / 32 + 1;
        ASSERT_EQ(result.coefficient.size(), narrowed ? (precision + 32) / 32 : width);
    }
}

TEST(BigBinaryGmp, DecidesOnRoundingUp) {
    NumberSource source(2);
    for (std::size_t i = caseCount(200000); i > 0; --i) {
        const big_uint number = source.numberUpTo(6);
        const unsigned bits = source.below(32 * number.size() + 40);
        ASSERT_EQ(orv::detail::round_up_half_even(number, bits), roundsUp(toGmp(number), bits))
            << toGmp(number) << ' ' << bits;
    }
}

TEST(BigBinaryGmp, Multiplies) {
    NumberSource source(3);
    for (std::size_t i = caseCount(300000); i > 0; --i) {
        const big_binary a = anyNumber(source, 9);
        const big_binary b = anyNumber(source, 9);
        const unsigned precision = anyPrecision(source);
        const Exact product = {toGmp(a.coefficient) * toGmp(b.coefficient),
                               long{a.exponent} + b.exponent};
        ASSERT_EQ(exact(big_binary::multiply(a, b, precision)), rounded(product, precision))
            << exact(a) << ", " << exact(b) << " to " << precision;
    }
}

TEST(BigBinaryGmp, Divides) {
    NumberSource source(4);
    for (std::size_t i = caseCount(300000); i > 0; --i) {
        big_binary a = anyNumber(source, 12);
        const big_binary b = anyNumber(source, 9);
        if (b.coefficient.is_zero()) {
            continue;
        }
        const unsigned precision = anyPrecision(source);
        if (source.below(4) == 0) { // exact quotients and ties
            const big_binary q = anyNumber(source, 1 + precision / 32);
            a = big_binary::multiply(q, b, 100000);
        }
        ASSERT_EQ(exact(big_binary::divide(a, b, precision)),
                  quotient(exact(a), exact(b), precision))
            << exact(a) << ", " << exact(b) << " to " << precision;
    }
}

// The same number in another form: more trailing zeros, a smaller exponent.
big_binary otherForm(const big_binary& number, unsigned shift) {
    big_binary other;
    other.coefficient.set_size(number.coefficient.size() + shift / 32 + 1);
    other.coefficient.shift_left(number.coefficient, shift);
    other.exponent = number.coefficient.is_zero() ? 0 : number.exponent - static_cast<int>(shift);
    return other;
}

int compareExactly(const Exact& a, const Exact& b) {
    const long low = std::min(a.exponent, b.exponent);
    const mpz_class left = a.coefficient << static_cast<unsigned>(a.exponent - low);
    const mpz_class right = b.coefficient << static_cast<unsigned>(b.exponent - low);
    return cmp(left, right) < 0 ? -1 : cmp(left, right) > 0 ? 1 : 0;
}

TEST(BigBinaryGmp, Compares) {
    NumberSource source(5);
    for (std::size_t i = caseCount(400000); i > 0; --i) {
        big_binary a = anyNumber(source, 6);
        big_binary b =
            source.below(4) == 0 ? anyNumber(source, 6) : otherForm(a, source.below(150));
        if (source.coin() && !b.coefficient.is_zero()) {
            const int step = source.between(-1, 1);
            if (step < 0) {
                b.coefficient.decrement();
            } else if (step > 0) {
                b.coefficient.increment();
            }
            b.exponent = b.coefficient.is_zero() ? 0 : b.exponent + source.between(-1, 1) / 2;
        }
        if (source.coin()) {
            std::swap(a, b);
        }
        ASSERT_EQ(big_binary::compare(a, b), compareExactly(exact(a), exact(b)))
            << exact(a) << ", " << exact(b);
    }
}

TEST(BigBinaryGmp, ComparesWithin) {
    NumberSource source(6);
    for (std::size_t i = caseCount(400000); i > 0; --i) {
        const unsigned size = 1 + source.below(6);
        big_uint a = source.number(size);
        big_uint b = source.number(size);
        if (source.below(4) != 0) { // near each other
            b = a;
            const big_uint step = source.number(size);
            big_uint small;
            small.set_size(size);
            small.shift_right(step, source.below(32 * size));
            if (source.coin()) {
                b.add(small);
            } else {
                b.subtract(small);
            }
        }
        const mpz_class difference = toGmp(a) - toGmp(b);
        const int top = static_cast<int>(bitsOf(abs(difference))) - 1;
        const int tolerance = source.coin() ? top + source.between(-1, 1)
                                            : source.between(-2, static_cast<int>(32 * size));
        const int expected =
            sgn(difference) == 0 || (tolerance >= 0 && top <= tolerance) ? 0 : sgn(difference);
        ASSERT_EQ(orv::detail::compare_within(a, b, tolerance), expected)
            << toGmp(a) << ' ' << toGmp(b) << ' ' << tolerance;
    }
}

TEST(BigBinaryGmp, Rescales) {
    NumberSource source(7);
    for (std::size_t i = caseCount(300000); i > 0; --i) {
        big_uint number = source.numberUpTo(10);
        const unsigned words = source.coin() ? number.size() : 1 + source.below(10);
        const int from = source.between(-200, 400);
        const int to = source.below(4) == 0 ? from : source.between(-200, 400);
        const mpz_class before = toGmp(number);
        mpz_class expected;
        if (from >= to) {
            expected = before >> static_cast<unsigned>(from - to);
        } else {
            expected = before << static_cast<unsigned>(to - from);
        }
        orv::detail::rescale(number, from, to, words);
        ASSERT_EQ(number.size(), words);
        ASSERT_TRUE(orvtest::hasWordsOf(number, expected))
            << before << ' ' << from << ' ' << to << ' ' << words;
    }
}

TEST(BigBinaryGmp, MakesPowersOfTenByTheSameSteps) {
    const auto check = [](int n, unsigned precision) {
        ASSERT_EQ(exact(big_binary::binary_pow10(n, precision)), power(n, precision))
            << "10^" << n << " to " << precision;
    };
    for (const unsigned precision : {1U, 24U, 64U, 65U, 128U, 256U, 300U, 1000U}) {
        for (int n = -400; n <= 400; ++n) {
            check(n, precision);
        }
        for (int n = 401; n <= 8200; n += 59) {
            check(n, precision);
            check(-n, precision);
        }
        for (const int n : {4095, 4096, 8190, 8191, 8192}) {
            check(n, precision);
            check(-n, precision);
        }
    }
}

TEST(BigBinaryGmp, MakesPowersOfTenAtRandomPrecisions) {
    NumberSource source(8);
    for (std::size_t i = caseCount(30000); i > 0; --i) {
        const int n = source.between(-8191, 8191);
        const unsigned precision = 1 + source.below(400);
        ASSERT_EQ(exact(big_binary::binary_pow10(n, precision)), power(n, precision))
            << "10^" << n << " to " << precision;
    }
}

} // namespace
