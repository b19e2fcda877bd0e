// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 10^exponent beside the plain steps in GMP, and beside MPFR where the result
/// is the correctly rounded one.
#include "orv/liborvxx/number/make_binary.h"

#include "orv/liborvxx/number/detail/pack_internal.h"
#include "tests/differential/number/float_cases.h"
#include "tests/reference/binary_float_model.h"
#include "tests/support/case_count.h"
#include "tests/support/gmp_number.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <mpfr.h>

#include <cstddef>
#include <limits>

namespace {

using orv::big_uint;
using orvtest::floatBits;
using orvtest::NumberSource;

double model(double /*type*/, bool negative, int exponent, const mpz_class& coefficient,
             unsigned rounding) {
    return orvtest::modelMakeDouble(negative, exponent, coefficient, rounding);
}
float model(float /*type*/, bool negative, int exponent, const mpz_class& coefficient,
            unsigned rounding) {
    return orvtest::modelMakeFloat(negative, exponent, coefficient, rounding);
}

// Compares with the steps, for one value of the rounding information.
template <class Float>
void expectSteps(bool negative, int exponent, const big_uint& coefficient, unsigned rounding,
                 mpz_class& scratch) {
    orvtest::assign(scratch, coefficient);
    ASSERT_EQ(floatBits(orv::detail::makeBinary<Float>(negative, exponent, coefficient, rounding)),
              floatBits(model(Float{}, negative, exponent, scratch, rounding)))
        << scratch << " * 10^" << exponent << ", " << rounding;
}

// A number with a random count of decimal digits, as texts have them.
big_uint digits(NumberSource& source, unsigned most) {
    big_uint n;
    n.set_size(most / 9 + 1);
    for (unsigned i = 1 + source.below(most); i > 0; --i) {
        n.multiply_by_10();
        n.add(source.below(10));
    }
    return n;
}

// A decimal that lies at a tie or as near as it can: (odd number) * 2^k / 10^exponent, rounded to
// an integer one way or the other.
big_uint decimalNearTie(NumberSource& source, unsigned precision, int exponent) {
    const unsigned kept = source.below(4) == 0 ? 1 + source.below(precision) : precision;
    mpz_class n = orvtest::toGmp(
        big_uint(static_cast<unsigned long long>(source.bits() >> (63 - kept) | 1U)));
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10,
                  static_cast<unsigned>(exponent < 0 ? -exponent : exponent));
    const int length = source.between(1, 70);
    if (exponent < 0) { // n * 10^-exponent, about so many bits longer than n
        n *= power;
        const int cut = static_cast<int>(mpz_sizeinbase(n.get_mpz_t(), 2)) -
                        static_cast<int>(precision) - length;
        if (cut > 0) {
            n /= mpz_class(1) << static_cast<unsigned>(cut);
        }
    } else {
        n = (n << static_cast<unsigned>(source.below(1100))) / power;
    }
    big_uint result = orvtest::fromGmp(n);
    result.set_size(result.size() + 1);
    orvtest::disturb(source, result);
    return result;
}

template <class Float>
class MakeBinaryGmp : public testing::Test {};

struct NameOfFloat {
    template <class Float>
    static const char* GetName(int /*index*/) {
        return sizeof(Float) == 4 ? "Float" : "Double";
    }
};
using Floats = testing::Types<float, double>;
TYPED_TEST_SUITE(MakeBinaryGmp, Floats, NameOfFloat);

template <class Float>
constexpr int LEAST = sizeof(Float) == 4 ? -75 : -365;
template <class Float>
constexpr int GREATEST = sizeof(Float) == 4 ? 40 : 312;
template <class Float>
constexpr unsigned PRECISION = std::numeric_limits<Float>::digits;

TYPED_TEST(MakeBinaryGmp, NumbersAsTextsHaveThem) {
    NumberSource source(21);
    mpz_class scratch;
    for (std::size_t i = orvtest::caseCount(500'000); i > 0; --i) {
        const int exponent = source.between(LEAST<TypeParam>, GREATEST<TypeParam>);
        ASSERT_NO_FATAL_FAILURE(expectSteps<TypeParam>(source.coin(), exponent, digits(source, 20),
                                                       source.below(4), scratch));
    }
}

TYPED_TEST(MakeBinaryGmp, SmallExponentsWithLongCoefficients) {
    NumberSource source(22);
    mpz_class scratch;
    for (std::size_t i = orvtest::caseCount(200'000); i > 0; --i) {
        const int exponent = source.between(-30, 30);
        ASSERT_NO_FATAL_FAILURE(expectSteps<TypeParam>(
            source.coin(), exponent, source.numberUpTo(5), source.below(4), scratch));
    }
}

TYPED_TEST(MakeBinaryGmp, DecimalsAtTies) {
    NumberSource source(23);
    mpz_class scratch;
    for (std::size_t i = orvtest::caseCount(200'000); i > 0; --i) {
        const int exponent = source.between(LEAST<TypeParam>, GREATEST<TypeParam>);
        const big_uint coefficient = decimalNearTie(source, PRECISION<TypeParam>, exponent);
        ASSERT_NO_FATAL_FAILURE(
            expectSteps<TypeParam>(source.coin(), exponent, coefficient, source.below(4), scratch));
    }
}

TYPED_TEST(MakeBinaryGmp, WideCoefficientsThatTheExponentCancels) {
    NumberSource source(24);
    mpz_class scratch;
    for (std::size_t i = orvtest::caseCount(10'000); i > 0; --i) {
        const big_uint coefficient = source.numberUpTo(source.below(8) == 0 ? 800 : 60);
        const int magnitude = (coefficient.highest_set_bit() * 1233) >> 12U;
        const int exponent = source.between(LEAST<TypeParam>, GREATEST<TypeParam>) - magnitude;
        ASSERT_NO_FATAL_FAILURE(
            expectSteps<TypeParam>(source.coin(), exponent, coefficient, source.below(4), scratch));
    }
}

TYPED_TEST(MakeBinaryGmp, ACoefficientRoundedUpToAPowerOfTwo) {
    mpz_class scratch;
    for (unsigned bits = 1; bits <= 130; ++bits) {
        big_uint ones;
        ones.set_size(5);
        ones.set_bit(bits);
        ones.decrement();
        for (int exponent = LEAST<TypeParam>; exponent <= GREATEST<TypeParam>; ++exponent) {
            ASSERT_NO_FATAL_FAILURE(expectSteps<TypeParam>(false, exponent, ones, 3, scratch));
        }
    }
}

// coefficient * 10^exponent in one rounding.
class CorrectRounding {
public:
    CorrectRounding(mpfr_prec_t precision, mpfr_exp_t least, mpfr_exp_t greatest) {
        mpfr_set_emin(least);
        mpfr_set_emax(greatest);
        mpfr_init2(value_, precision);
    }
    CorrectRounding(const CorrectRounding&) = delete;
    CorrectRounding& operator=(const CorrectRounding&) = delete;
    ~CorrectRounding() { mpfr_clear(value_); }

    double operator()(int exponent, const mpz_class& coefficient) {
        mpz_ui_pow_ui(power_.get_mpz_t(), 10,
                      static_cast<unsigned>(exponent < 0 ? -exponent : exponent));
        int ternary = 0;
        if (exponent < 0) {
            ratio_.get_num() = coefficient;
            ratio_.get_den() = power_;
            ratio_.canonicalize();
            ternary = mpfr_set_q(value_, ratio_.get_mpq_t(), MPFR_RNDN);
        } else {
            power_ *= coefficient;
            ternary = mpfr_set_z(value_, power_.get_mpz_t(), MPFR_RNDN);
        }
        mpfr_subnormalize(value_, ternary, MPFR_RNDN);
        return mpfr_get_d(value_, MPFR_RNDN);
    }

private:
    mpfr_t value_;
    mpz_class power_;
    mpq_class ratio_;
};

// Whether all bits of a coefficient take part in a division by 10^-exponent.
bool allBitsCount(int exponent, const big_uint& coefficient, unsigned precision) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned>(exponent < 0 ? -exponent : 0));
    return exponent >= 0 ||
           coefficient.bit_length() <= mpz_sizeinbase(power.get_mpz_t(), 2) + precision;
}

TEST(MakeBinaryMpfr, DoublesAreCorrectlyRoundedWhereAllBitsCount) {
    NumberSource source(25);
    CorrectRounding rounded(53, -1073, 1024);
    mpz_class scratch;
    for (std::size_t i = orvtest::caseCount(150'000); i > 0; --i) {
        const int exponent = source.between(LEAST<double>, GREATEST<double>);
        const big_uint coefficient =
            source.coin() ? digits(source, 25) : decimalNearTie(source, 53, exponent);
        if (allBitsCount(exponent, coefficient, 53)) {
            ASSERT_EQ(floatBits(orv::make_double(false, exponent, coefficient)),
                      floatBits(rounded(exponent, orvtest::assign(scratch, coefficient))))
                << scratch << " * 10^" << exponent;
        }
    }
}

TEST(MakeBinaryMpfr, FloatsAreCorrectlyRoundedWhereAllBitsCount) {
    NumberSource source(26);
    CorrectRounding rounded(24, -148, 128);
    mpz_class scratch;
    for (std::size_t i = orvtest::caseCount(150'000); i > 0; --i) {
        const int exponent = source.between(LEAST<float>, GREATEST<float>);
        const big_uint coefficient =
            source.coin() ? digits(source, 18) : decimalNearTie(source, 24, exponent);
        if (allBitsCount(exponent, coefficient, 24)) {
            ASSERT_EQ(floatBits(orv::make_float(false, exponent, coefficient)),
                      floatBits(static_cast<float>(
                          rounded(exponent, orvtest::assign(scratch, coefficient)))))
                << scratch << " * 10^" << exponent;
        }
    }
}

// What happens beyond that is meant and must stay: bits that the division does not take are dropped
// before the rounding. Then ties and what lies just above them can come out one step too low, and
// nothing comes out too high.
TEST(MakeBinaryMpfr, DroppedBitsCostOneStepAtMostAndOnlyDownwards) {
    CorrectRounding rounded(53, -1073, 1024);
    mpz_class scratch;
    std::size_t different = 0;
    for (unsigned i = 1; i < 1000; i += 2) { // a tie * 1000, and a little
        big_uint coefficient(18014398509481986ULL);
        coefficient.set_size(3);
        coefficient.multiply(1000);
        coefficient.add(i);
        const double result = orv::make_double(false, -3, coefficient);
        const double nearest = rounded(-3, orvtest::assign(scratch, coefficient));
        ASSERT_LE(result, nearest);
        ASSERT_GE(result, nearest - 4.0);
        different += result != nearest ? 1U : 0U;
    }
    EXPECT_EQ(different, 1U) << "18014398509481986.001 alone: the bit of 0.001 is the one dropped";
}

} // namespace
