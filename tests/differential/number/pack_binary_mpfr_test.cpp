// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 2^exponent beside MPFR, which rounds exactly, and beside the plain steps.
#include "orv/liborvxx/number/pack_binary.h"

#include "orv/liborvxx/number/detail/pack_internal.h"
#include "tests/differential/number/float_cases.h"
#include "tests/reference/binary_float_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <mpfr.h>

#include <cstddef>
#include <limits>

namespace {

using orv::big_uint;
using orvtest::floatBits;

// A variable of MPFR with the precision and the range of a format; the range is global.
class MpfrFormat {
public:
    MpfrFormat(mpfr_prec_t precision, mpfr_exp_t least, mpfr_exp_t greatest) {
        mpfr_set_emin(least);
        mpfr_set_emax(greatest);
        mpfr_init2(value_, precision);
    }
    MpfrFormat(const MpfrFormat&) = delete;
    MpfrFormat& operator=(const MpfrFormat&) = delete;
    ~MpfrFormat() { mpfr_clear(value_); }

    double pack(const mpz_class& coefficient, int exponent) {
        const int ternary = mpfr_set_z_2exp(value_, coefficient.get_mpz_t(), exponent, MPFR_RNDN);
        mpfr_subnormalize(value_, ternary, MPFR_RNDN);
        return mpfr_get_d(value_, MPFR_RNDN);
    }

private:
    mpfr_t value_;
};

struct Case {
    big_uint coefficient;
    int exponent;
};

// Half of the exponents put the result anywhere in the range, the others near its ends.
int exponentFor(orvtest::NumberSource& source, int bits, int least, int greatest) {
    switch (source.below(8)) {
    case 0:
        return source.between(least - 2, least + 60) - bits;
    case 1:
        return source.between(greatest - 2, greatest + 2) - bits;
    case 2:
        return source.coin() ? std::numeric_limits<int>::max() : std::numeric_limits<int>::min();
    case 3:
        return static_cast<int>(source.bits());
    default:
        return source.between(least - 10, greatest + 3) - bits;
    }
}

Case nextCase(orvtest::NumberSource& source, unsigned precision, int least, int greatest) {
    Case next{source.coin() ? orvtest::nearTie(source, precision)
                            : source.numberUpTo(source.below(4) == 0 ? 20 : 3),
              0};
    next.exponent = exponentFor(source, next.coefficient.highest_set_bit(), least, greatest);
    return next;
}

TEST(PackBinaryMpfr, DoublesAreRoundedExactly) {
    orvtest::NumberSource source(11);
    MpfrFormat format(53, -1073, 1024);
    mpz_class coefficient;
    for (std::size_t i = orvtest::caseCount(800'000); i > 0; --i) {
        const Case next = nextCase(source, 53, -1074, 1024);
        const double expected =
            format.pack(orvtest::assign(coefficient, next.coefficient), next.exponent);
        ASSERT_EQ(floatBits(orv::pack_double(false, next.exponent, next.coefficient)),
                  floatBits(expected))
            << coefficient << " * 2^" << next.exponent;
        ASSERT_EQ(floatBits(orv::pack_double(true, next.exponent, next.coefficient)),
                  floatBits(-expected));
    }
}

TEST(PackBinaryMpfr, FloatsAreRoundedExactly) {
    orvtest::NumberSource source(12);
    MpfrFormat format(24, -148, 128);
    mpz_class coefficient;
    for (std::size_t i = orvtest::caseCount(600'000); i > 0; --i) {
        const Case next = nextCase(source, 24, -149, 128);
        const double expected =
            format.pack(orvtest::assign(coefficient, next.coefficient), next.exponent);
        ASSERT_EQ(floatBits(orv::pack_float(false, next.exponent, next.coefficient)),
                  floatBits(static_cast<float>(expected)))
            << coefficient << " * 2^" << next.exponent;
    }
}

TEST(PackBinaryModel, RoundingInformationIsUsedStepByStep) {
    orvtest::NumberSource source(13);
    mpz_class coefficient;
    for (std::size_t i = orvtest::caseCount(200'000); i > 0; --i) {
        const Case next = nextCase(source, 53, -1074, 1024);
        const Case small = nextCase(source, 24, -149, 128);
        const bool negative = source.coin();
        for (unsigned rounding = 0; rounding < 4; ++rounding) {
            orvtest::assign(coefficient, next.coefficient);
            ASSERT_EQ(
                floatBits(orv::detail::packBinary<double>(negative, next.exponent, next.coefficient,
                                                          next.coefficient.bit_length(), rounding)),
                floatBits(orvtest::modelPackDouble(negative, next.exponent, coefficient, rounding)))
                << coefficient << " * 2^" << next.exponent << ", " << rounding;
            orvtest::assign(coefficient, small.coefficient);
            ASSERT_EQ(
                floatBits(orv::detail::packBinary<float>(negative, small.exponent,
                                                         small.coefficient,
                                                         small.coefficient.bit_length(), rounding)),
                floatBits(orvtest::modelPackFloat(negative, small.exponent, coefficient, rounding)))
                << coefficient << " * 2^" << small.exponent << ", " << rounding;
        }
    }
}

} // namespace
