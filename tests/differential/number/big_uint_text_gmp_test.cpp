// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal text beside that of GMP.
#include "orv/liborvxx/number/big_uint.h"
#include "tests/support/case_count.h"
#include "tests/support/gmp_number.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace orvtest {

namespace {

using orv::big_uint;

std::string gmpText(const big_uint& n) {
    static mpz_class value;
    static std::string text;
    mpz_import(value.get_mpz_t(), n.size(), -1, sizeof(unsigned), 0, 0, n.data());
    text.resize(mpz_sizeinbase(value.get_mpz_t(), 10) + 2);
    return mpz_get_str(text.data(), 10, value.get_mpz_t());
}

// Tells of a difference without writing thousands of digits.
void check(const big_uint& n) {
    const std::string expected = gmpText(n);
    const std::string text = n.to_string();
    ASSERT_TRUE(text == expected) << n.size() << " words, " << expected.size() << " digits";
    const orv::ustring wide = n.to_ustring();
    ASSERT_TRUE(std::equal(wide.begin(), wide.end(), expected.begin(), expected.end(),
                           [](orv::char16 a, char b) { return a == orv::char16(b); }))
        << n.size() << " words, " << expected.size() << " digits";
}

void checkAround(const mpz_class& value) {
    check(fromGmp(mpz_class(value - 1)));
    check(fromGmp(value));
    check(fromGmp(mpz_class(value + 1)));
}

} // namespace

TEST(BigUintTextGmp, AgreesOnFewWords) {
    NumberSource source(0x74657874);
    for (std::size_t i = 0; i < caseCount(800000); ++i) {
        check(source.numberUpTo(8));
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

TEST(BigUintTextGmp, AgreesOnUpTo300Words) {
    NumberSource source(0x7465787431);
    for (std::size_t i = 0; i < caseCount(20000); ++i) {
        check(source.numberUpTo(300));
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

TEST(BigUintTextGmp, AgreesOnThousandsOfWords) {
    NumberSource source(0x7465787432);
    for (std::size_t i = 0; i < caseCount(200); ++i) {
        check(source.numberUpTo(3000));
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
    check(source.number(65535));
}

TEST(BigUintTextGmp, AgreesAroundPowersOfTen) {
    const unsigned step = caseCount(100) == 1 ? 7 : 1;
    mpz_class power(1);
    for (unsigned k = 0; k <= 2200; k += step) {
        mpz_ui_pow_ui(power.get_mpz_t(), 10, k);
        checkAround(power);
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << k;
    }
    for (const unsigned k : {4863U, 4864U, 4865U, 9728U, 19455U, 19456U, 19457U, 20000U}) {
        mpz_ui_pow_ui(power.get_mpz_t(), 10, k);
        checkAround(power);
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << k;
    }
}

TEST(BigUintTextGmp, AgreesAroundPowersOfTwo) {
    mpz_class power(1);
    for (unsigned k = 0; k <= 2200; ++k, power *= 2) {
        checkAround(power);
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << k;
    }
}

// Groups of zeros and of nines, within and at the limits of the groups that digits are made in.
TEST(BigUintTextGmp, AgreesOnRunsOfZerosAndNines) {
    NumberSource source(0x7465787433);
    for (std::size_t i = 0; i < caseCount(20000); ++i) {
        const std::size_t least = 1 + source.below(800);
        std::string digits;
        while (digits.size() < least) {
            digits.append(1 + source.below(40), "0099951"[source.below(7)]);
        }
        check(fromGmp(mpz_class(digits, 10)));
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << digits;
    }
}

} // namespace orvtest
