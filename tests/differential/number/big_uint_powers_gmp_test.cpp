// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Powers of 5 and 10 over their whole range, and decimal logarithms, beside GMP.
#include "orv/liborvxx/number/big_uint.h"
#include "tests/support/case_count.h"
#include "tests/support/gmp_number.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace {

using orv::big_uint;

// Under sanitizers every seventh number of a range has to do.
unsigned stride() {
    return orvtest::caseCount(100) < 10 ? 7 : 1;
}

bool isPower(const big_uint& n, const mpz_class& power, mpz_class& scratch) {
    mpz_import(scratch.get_mpz_t(), n.size(), -1, sizeof(unsigned), 0, 0, n.data());
    return scratch == power;
}

TEST(BigUintPow5Gmp, IsRightOverItsWholeRange) {
    mpz_class power;
    mpz_class scratch;
    big_uint cache;
    for (unsigned n = 0; n <= 32767; n += stride()) {
        mpz_ui_pow_ui(power.get_mpz_t(), 5, n);
        ASSERT_TRUE(isPower(big_uint::pow5(n, &cache), power, scratch)) << n;
    }
}

TEST(BigUintPow10Gmp, IsRightOverItsWholeRange) {
    mpz_class power = 1;
    mpz_class scratch;
    big_uint cache;
    for (unsigned n = 0; n <= 8191; ++n) {
        ASSERT_TRUE(isPower(big_uint::pow10(n, &cache), power, scratch)) << n;
        power *= 10;
    }
}

TEST(BigUintLogarithmGmp, IsRightAroundEveryPowerOfTen) {
    mpz_class power = 1;
    for (int n = 0; n <= 8191; ++n) {
        if (n % static_cast<int>(stride()) == 0 || n > 8100) {
            const big_uint exact = orvtest::fromGmp(power);
            ASSERT_EQ(exact.ilog10(), n);
            ASSERT_EQ(orvtest::fromGmp(power - 1).ilog10(), n - 1);
            ASSERT_EQ(orvtest::fromGmp(power + 1).ilog10(), n);
        }
        power *= 10;
    }
}

TEST(BigUintLogarithmGmp, IsRightOfRandomNumbers) {
    orvtest::NumberSource source(0x106);
    mpz_class value;
    mpz_class power;
    for (std::size_t i = 0; i < orvtest::caseCount(1'000'000); ++i) {
        const big_uint n = source.numberUpTo(i % 64 == 0 ? 200 : 12);
        const int log = n.ilog10();
        mpz_import(value.get_mpz_t(), n.size(), -1, sizeof(unsigned), 0, 0, n.data());
        if (value == 0) {
            ASSERT_EQ(log, -1);
            continue;
        }
        mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned>(log));
        ASSERT_LE(power, value);
        power *= 10;
        ASSERT_GT(power, value);
    }
}

} // namespace
