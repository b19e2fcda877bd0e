// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal arithmetic beside exact integers: every result is the exact one, rounded once,
/// with the preferred exponent, and in its canonical encoding.
#include "tests/differential/decimal/decimal_cases.h"
#include "tests/support/case_count.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>

namespace {

using orvtest::DecimalValue;
using orvtest::decode;

template <class Record>
class DecimalArithmeticGmp : public testing::Test {
protected:
    using Functions = orvtest::Functions<Record>;

    static constexpr orvtest::DecimalFormat FORMAT = Functions::FORMAT;

    // Whether a result is the expected one, in the encoding that is canonical.
    static testing::AssertionResult isCanonically(Record result, const DecimalValue& expected) {
        const DecimalValue value = decode(result);
        Record canonical{};
        encode(expected, canonical);
        const bool isQuiet = Functions::isNaN(result) != 0 && Functions::isSignalling(result) == 0;
        if (expected.isNaN() ? isQuiet : orvtest::sameBits(result, canonical)) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << value << " instead of " << expected;
    }

    template <class Check>
    void forAll(std::size_t count, Check check) {
        for (std::size_t i = orvtest::caseCount(count); i > 0; --i) {
            const Record x = cases_.operand();
            const Record y = cases_.partner();
            SCOPED_TRACE(testing::Message() << decode(x) << " and " << decode(y));
            check(x, y);
            if (this->HasFailure()) {
                return;
            }
        }
    }

    orvtest::DecimalCases<Record> cases_{71};
};

using Records = testing::Types<ODecimal32, ODecimal64, ODecimal128>;
TYPED_TEST_SUITE(DecimalArithmeticGmp, Records);

TYPED_TEST(DecimalArithmeticGmp, AddsAndSubtracts) {
    this->forAll(5'000, [](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        EXPECT_TRUE(
            TestFixture::isCanonically(F::add(x, y), modelAdd(F::FORMAT, decode(x), decode(y))));
        DecimalValue minusY = decode(y);
        minusY.negative = !minusY.negative;
        EXPECT_TRUE(
            TestFixture::isCanonically(F::subtract(x, y), modelAdd(F::FORMAT, decode(x), minusY)));
    });
}

TYPED_TEST(DecimalArithmeticGmp, Multiplies) {
    this->forAll(5'000, [](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        EXPECT_TRUE(TestFixture::isCanonically(F::multiply(x, y),
                                               modelMultiply(F::FORMAT, decode(x), decode(y))));
    });
}

TYPED_TEST(DecimalArithmeticGmp, Divides) {
    this->forAll(5'000, [](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        EXPECT_TRUE(TestFixture::isCanonically(F::divide(x, y),
                                               modelDivide(F::FORMAT, decode(x), decode(y))));
    });
}

TYPED_TEST(DecimalArithmeticGmp, MultipliesAndAddsRoundingOnce) {
    this->forAll(5'000, [this](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        // The third operand meets the second, or the product.
        auto z = this->cases_.partner();
        if (this->cases_.source().coin()) {
            z = F::negate(F::multiply(x, y));
        }
        SCOPED_TRACE(testing::Message() << "and " << decode(z));
        EXPECT_TRUE(TestFixture::isCanonically(
            F::fusedMultiplyAdd(x, y, z),
            modelFusedMultiplyAdd(F::FORMAT, decode(x), decode(y), decode(z))));
    });
}

// At the bottom of the range nearly all of the sum is lost: what is left has the exact sum's sign.
TYPED_TEST(DecimalArithmeticGmp, MultipliesAndAddsWhereTheSumCancelsBelowTheRange) {
    this->forAll(5'000, [this](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        orvtest::NumberSource& source = this->cases_.source();
        DecimalValue first = decode(x);
        DecimalValue second = decode(y);
        if (!first.isFinite() || !second.isFinite()) {
            return;
        }
        first.exponent = source.between(F::FORMAT.least, F::FORMAT.greatest);
        second.exponent =
            std::clamp(F::FORMAT.least - source.between(0, 2 * F::FORMAT.digits) - first.exponent,
                       F::FORMAT.least, F::FORMAT.greatest);
        encode(first, x);
        encode(second, y);
        auto z = F::negate(F::multiply(x, y));
        if (source.below(4) == 0) {
            z = source.coin() ? F::nextUp(z) : F::nextDown(z);
        }
        SCOPED_TRACE(testing::Message() << first << " * " << second << " + " << decode(z));
        EXPECT_TRUE(
            TestFixture::isCanonically(F::fusedMultiplyAdd(x, y, z),
                                       modelFusedMultiplyAdd(F::FORMAT, first, second, decode(z))));
    });
}

// Products that are half a step of the least exponent but for digits far behind: what decides on
// the last digit is whether any of those is not 0.
TYPED_TEST(DecimalArithmeticGmp, MultipliesAndAddsNextToATieBelowTheRange) {
    this->forAll(2'500, [this](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        orvtest::NumberSource& source = this->cases_.source();
        constexpr int DIGITS = F::FORMAT.digits;
        const int kept = source.between(1, DIGITS - 1);
        const mpz_class whole = decode(y).coefficient % orvtest::powerOfTen(kept);
        const mpz_class tie = (10 * whole + 5) * orvtest::powerOfTen(2 * DIGITS - 2 - kept);
        const int exponent = F::FORMAT.least - 1 - (2 * DIGITS - 2 - kept);
        DecimalValue first;
        first.kind = DecimalValue::Kind::FINITE;
        first.coefficient = orvtest::powerOfTen(DIGITS) / 10 * 3 + source.below(1'000'000);
        first.exponent = exponent / 2;
        DecimalValue second = first;
        second.negative = source.coin();
        second.coefficient = tie / first.coefficient + source.below(2);
        second.exponent = exponent - first.exponent;
        auto z = x;
        encode(first, x);
        encode(second, y);
        first.coefficient = source.below(3);
        first.exponent = F::FORMAT.least;
        encode(first, z);
        SCOPED_TRACE(testing::Message() << decode(x) << " * " << second << " + " << first);
        EXPECT_TRUE(
            TestFixture::isCanonically(F::fusedMultiplyAdd(x, y, z),
                                       modelFusedMultiplyAdd(F::FORMAT, decode(x), second, first)));
    });
}

TYPED_TEST(DecimalArithmeticGmp, TakesSquareRoots) {
    this->forAll(3'000, [](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        const auto square = F::multiply(y, y);
        EXPECT_TRUE(
            TestFixture::isCanonically(F::squareRoot(x), modelSquareRoot(F::FORMAT, decode(x))));
        EXPECT_TRUE(TestFixture::isCanonically(F::squareRoot(square),
                                               modelSquareRoot(F::FORMAT, decode(square))));
    });
}

TYPED_TEST(DecimalArithmeticGmp, GivesTheIeeeRemainder) {
    this->forAll(2'500, [](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        EXPECT_TRUE(TestFixture::isCanonically(F::remainder(x, y),
                                               modelRemainder(F::FORMAT, decode(x), decode(y))));
    });
}

TYPED_TEST(DecimalArithmeticGmp, QuantizesInEveryMode) {
    this->forAll(2'500, [](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        for (int mode = ORV_DEC_HALF_EVEN; mode <= ORV_DEC_HALF_AWAY; ++mode) {
            EXPECT_TRUE(TestFixture::isCanonically(
                F::quantize(x, y, mode), modelQuantize(F::FORMAT, decode(x), decode(y), mode)))
                << "mode " << mode;
        }
    });
}

TYPED_TEST(DecimalArithmeticGmp, RoundsToIntegersInEveryMode) {
    this->forAll(2'500, [](auto x, auto) {
        using F = orvtest::Functions<decltype(x)>;
        for (int mode = ORV_DEC_HALF_EVEN; mode <= ORV_DEC_HALF_AWAY; ++mode) {
            EXPECT_TRUE(TestFixture::isCanonically(F::roundExact(x, mode),
                                                   modelRoundExact(decode(x), mode)))
                << "mode " << mode;
        }
        EXPECT_TRUE(TestFixture::isCanonically(F::roundHalfUp(x),
                                               modelRoundExact(decode(x), ORV_DEC_HALF_AWAY)));
    });
}

TYPED_TEST(DecimalArithmeticGmp, Scales) {
    this->forAll(5'000, [this](auto x, auto) {
        using F = orvtest::Functions<decltype(x)>;
        const int range = F::FORMAT.greatest - F::FORMAT.least + F::FORMAT.digits;
        const DecimalValue value = decode(x);
        // Where zeros are appended, and no more fit.
        const int border = value.isFinite() ? F::FORMAT.greatest - value.exponent : 0;
        for (const int n : {this->cases_.source().between(-range, range),
                            border + this->cases_.source().between(-1, F::FORMAT.digits + 1),
                            this->cases_.source().between(-9, 9), INT_MAX, INT_MIN}) {
            EXPECT_TRUE(
                TestFixture::isCanonically(F::scaleB(x, n), modelScaleB(F::FORMAT, value, n)))
                << "by " << n;
        }
    });
}

TYPED_TEST(DecimalArithmeticGmp, TellsTheExponentOfTheFirstDigit) {
    this->forAll(5'000, [](auto x, auto) {
        using F = orvtest::Functions<decltype(x)>;
        const DecimalValue value = decode(x);
        int expected = INT_MIN;
        if (value.isInfinite()) {
            expected = INT_MAX;
        } else if (value.isFinite() && !value.isZero()) {
            expected = static_cast<int>(value.coefficient.get_str().size()) - 1 + value.exponent;
        }
        EXPECT_EQ(expected, F::logB(x));
    });
}

TYPED_TEST(DecimalArithmeticGmp, Compares) {
    this->forAll(5'000, [](auto x, auto y) {
        using F = orvtest::Functions<decltype(x)>;
        if (decode(x).isNaN() || decode(y).isNaN()) {
            EXPECT_EQ(ORV_DEC_UNORDERED, F::compare(x, y));
            EXPECT_FALSE(F::quietEqual(x, y));
            EXPECT_TRUE(F::quietNotEqual(x, y));
            EXPECT_FALSE(F::quietLess(x, y));
            EXPECT_FALSE(F::quietLessEqual(x, y));
            return;
        }
        const int order = modelCompare(decode(x), decode(y));
        EXPECT_EQ(order, F::compare(x, y));
        EXPECT_EQ(order == 0, F::quietEqual(x, y) != 0);
        EXPECT_EQ(order != 0, F::quietNotEqual(x, y) != 0);
        EXPECT_EQ(order < 0, F::quietLess(x, y) != 0);
        EXPECT_EQ(order <= 0, F::quietLessEqual(x, y) != 0);
    });
}

} // namespace
