// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Conversions of decimal numbers beside exact integers: between widths, from and to
/// integers, and to binary floating point.
#include "tests/differential/decimal/decimal_cases.h"
#include "tests/reference/binary_float_model.h"
#include "tests/support/case_count.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

using orvtest::DecimalValue;
using orvtest::decode;

// Whether a result is the expected one, in the encoding that is canonical; NaNs are quiet.
template <class Record>
testing::AssertionResult isCanonically(Record result, const DecimalValue& expected) {
    using F = orvtest::Functions<Record>;
    Record canonical{};
    encode(expected, canonical);
    if (expected.isNaN() ? F::isNaN(result) != 0 && F::isSignalling(result) == 0
                         : orvtest::sameBits(result, canonical)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << decode(result) << " instead of " << expected;
}

// The integer part of a value if it is one and not outside [least, greatest]; else `sentinel`.
mpz_class truncated(const DecimalValue& x, const mpz_class& least, const mpz_class& greatest,
                    const mpz_class& sentinel) {
    if (!x.isFinite() || x.exponent > 40) {
        return x.isZero() ? mpz_class(0) : sentinel;
    }
    const DecimalValue whole = modelRoundExact(x, ORV_DEC_TOWARD_ZERO);
    mpz_class n = whole.coefficient * orvtest::powerOfTen(whole.exponent);
    n = whole.negative ? mpz_class(-n) : n;
    return n < least || n > greatest ? sentinel : n;
}

mpz_class toGmp(std::int64_t n) {
    mpz_class result;
    const std::uint64_t bits = static_cast<std::uint64_t>(n);
    mpz_import(result.get_mpz_t(), 1, -1, sizeof bits, 0, 0, &bits);
    return n < 0 ? mpz_class(result - (mpz_class(1) << 64)) : result;
}

mpz_class toGmp(std::uint64_t n) {
    mpz_class result;
    mpz_import(result.get_mpz_t(), 1, -1, sizeof n, 0, 0, &n);
    return result;
}

template <class Float>
bool same(Float a, Float b) {
    return std::isnan(a) ? std::isnan(b) : a == b && std::signbit(a) == std::signbit(b);
}

// The nearest binary number, by \p pack, which rounds by what is told of the rest of the quotient.
template <class Pack>
auto nearestBinary(const DecimalValue& x, Pack pack) {
    mpz_class n = x.coefficient * orvtest::powerOfTen(std::max(0, x.exponent));
    const mpz_class d = orvtest::powerOfTen(std::max(0, -x.exponent));
    const mp_bitcnt_t shift = mpz_sizeinbase(d.get_mpz_t(), 2) + 130;
    n <<= shift;
    mpz_class quotient;
    mpz_class rest;
    mpz_fdiv_qr(quotient.get_mpz_t(), rest.get_mpz_t(), n.get_mpz_t(), d.get_mpz_t());
    const int half = cmp(2 * rest, d);
    const unsigned rounding = rest == 0 ? 0U : half < 0 ? 1U : half == 0 ? 2U : 3U;
    return pack(x.negative, -static_cast<int>(shift), quotient, rounding);
}

template <class Record>
class DecimalConvertGmp : public testing::Test {
protected:
    template <class Check>
    void forAll(std::size_t count, Check check) {
        for (std::size_t i = orvtest::caseCount(count); i > 0; --i) {
            const Record x = i % 2 != 0 ? cases_.operand() : cases_.partner();
            SCOPED_TRACE(testing::Message() << decode(x));
            check(x);
            if (this->HasFailure()) {
                return;
            }
        }
    }

    // Random integers, mostly at a power of two or of ten.
    std::uint64_t integer() {
        orvtest::NumberSource& source = cases_.source();
        const std::uint64_t near = static_cast<std::uint64_t>(source.between(-2, 2));
        switch (source.below(4)) {
        case 0:
            return (std::uint64_t{1} << source.below(64)) + near;
        case 1:
            return static_cast<std::uint64_t>(
                       std::pow(10.0, static_cast<double>(source.below(20)))) *
                       (1 + source.below(9)) +
                   near;
        case 2:
            return 0 - (std::uint64_t{1} << source.below(64)) + near;
        default:
            return source.bits() >> source.below(64);
        }
    }

    orvtest::DecimalCases<Record> cases_{72};
};

using Records = testing::Types<ODecimal32, ODecimal64, ODecimal128>;
TYPED_TEST_SUITE(DecimalConvertGmp, Records);

TYPED_TEST(DecimalConvertGmp, TakesIntegers) {
    using F = orvtest::Functions<TypeParam>;
    for (std::size_t i = orvtest::caseCount(15'000); i > 0; --i) {
        const std::uint64_t n = this->integer();
        const auto withSign = static_cast<std::int64_t>(n);
        const mpz_class magnitude = abs(toGmp(withSign));
        ASSERT_TRUE(isCanonically(F::fromUInt64(n), rounded(F::FORMAT, false, toGmp(n), 1, 0, 0)))
            << n;
        ASSERT_TRUE(isCanonically(F::fromInt64(withSign),
                                  rounded(F::FORMAT, withSign < 0, magnitude, 1, 0, 0)))
            << withSign;
    }
}

TYPED_TEST(DecimalConvertGmp, TruncatesToIntegers) {
    this->forAll(15'000, [](auto x) {
        using F = orvtest::Functions<decltype(x)>;
        const mpz_class int32Min = std::numeric_limits<std::int32_t>::min();
        const mpz_class int64Min = toGmp(std::numeric_limits<std::int64_t>::min());
        const DecimalValue value = decode(x);
        EXPECT_EQ(truncated(value, int32Min, -int32Min - 1, int32Min), F::toInt32(x));
        EXPECT_EQ(truncated(value, int64Min, -int64Min - 1, int64Min), toGmp(F::toInt64(x)));
        EXPECT_EQ(truncated(value, 0, -2 * int64Min - 1, -int64Min), toGmp(F::toUInt64(x)));
    });
}

TYPED_TEST(DecimalConvertGmp, TruncatesIntegersAndTheirNeighbours) {
    using F = orvtest::Functions<TypeParam>;
    const mpz_class int64Min = toGmp(std::numeric_limits<std::int64_t>::min());
    for (std::size_t i = orvtest::caseCount(15'000); i > 0; --i) {
        const auto n = static_cast<std::int64_t>(this->integer());
        TypeParam x = F::fromInt64(n);
        const TypeParam half =
            F::divide(F::fromInt64(this->cases_.source().between(-9, 9)), F::fromInt64(10));
        x = F::add(x, half);
        const DecimalValue value = decode(x);
        ASSERT_EQ(truncated(value, int64Min, -int64Min - 1, int64Min), toGmp(F::toInt64(x)))
            << value;
        ASSERT_EQ(truncated(value, 0, -2 * int64Min - 1, -int64Min), toGmp(F::toUInt64(x)))
            << value;
    }
}

TYPED_TEST(DecimalConvertGmp, RoundsToBinaryOnce) {
    this->forAll(10'000, [](auto x) {
        using F = orvtest::Functions<decltype(x)>;
        const DecimalValue value = decode(x);
        if (!value.isFinite()) {
            EXPECT_EQ(value.isNaN(), std::isnan(F::toDouble(x)));
            EXPECT_EQ(value.isNaN(), std::isnan(F::toFloat(x)));
            EXPECT_EQ(value.isInfinite(), std::isinf(F::toDouble(x)));
            EXPECT_EQ(value.isInfinite(), std::isinf(F::toFloat(x)));
            EXPECT_TRUE(value.isNaN() || value.negative == std::signbit(F::toDouble(x)));
            EXPECT_TRUE(value.isNaN() || value.negative == std::signbit(F::toFloat(x)));
            return;
        }
        EXPECT_PRED2(same<double>, F::toDouble(x), nearestBinary(value, orvtest::modelPackDouble));
        EXPECT_PRED2(same<float>, F::toFloat(x), nearestBinary(value, orvtest::modelPackFloat));
    });
}

// Numbers halfway between two binary ones, and their decimal neighbours.
TYPED_TEST(DecimalConvertGmp, RoundsTiesOfBinaryNumbersToTheEvenOne) {
    using F = orvtest::Functions<TypeParam>;
    for (std::size_t i = orvtest::caseCount(10'000); i > 0; --i) {
        const int bits = this->cases_.source().coin() ? 25 : 54;
        const int twos = this->cases_.source().between(-3, 40);
        mpz_class odd = toGmp(this->cases_.source().bits() >> (64 - bits) | 1U);
        odd = odd * (mpz_class(1) << static_cast<mp_bitcnt_t>(std::max(twos, 0)));
        DecimalValue value{DecimalValue::Kind::FINITE, false, odd, 0};
        for (int n = 0; n > twos; --n) {
            value.coefficient *= 5;
            --value.exponent;
        }
        value.coefficient += this->cases_.source().between(-1, 1);
        value = modelConvert(F::FORMAT, value);
        TypeParam x{};
        encode(value, x);
        ASSERT_PRED2(same<double>, F::toDouble(x), nearestBinary(value, orvtest::modelPackDouble))
            << value;
        ASSERT_PRED2(same<float>, F::toFloat(x), nearestBinary(value, orvtest::modelPackFloat))
            << value;
    }
}

using DecimalConvert32 = DecimalConvertGmp<ODecimal32>;
using DecimalConvert64 = DecimalConvertGmp<ODecimal64>;
using DecimalConvert128 = DecimalConvertGmp<ODecimal128>;

TEST_F(DecimalConvert32, Widens) {
    this->forAll(15'000, [](ODecimal32 x) {
        EXPECT_TRUE(isCanonically(orvDec32ToDec64(x), modelConvert(orvtest::DECIMAL64, decode(x))));
        EXPECT_TRUE(
            isCanonically(orvDec32ToDec128(x), modelConvert(orvtest::DECIMAL128, decode(x))));
    });
}

TEST_F(DecimalConvert64, WidensAndNarrows) {
    this->forAll(15'000, [](ODecimal64 x) {
        EXPECT_TRUE(
            isCanonically(orvDec64ToDec128(x), modelConvert(orvtest::DECIMAL128, decode(x))));
        EXPECT_TRUE(isCanonically(orvDec64ToDec32(x), modelConvert(orvtest::DECIMAL32, decode(x))));
    });
}

TEST_F(DecimalConvert128, Narrows) {
    this->forAll(15'000, [](ODecimal128 x) {
        EXPECT_TRUE(
            isCanonically(orvDec128ToDec64(x), modelConvert(orvtest::DECIMAL64, decode(x))));
        EXPECT_TRUE(
            isCanonically(orvDec128ToDec32(x), modelConvert(orvtest::DECIMAL32, decode(x))));
    });
}

// Most wide numbers are out of the narrow range: these are at its ends.
TEST_F(DecimalConvert128, NarrowsAtTheEndsOfTheRange) {
    this->forAll(15'000, [this](ODecimal128 x) {
        DecimalValue value = decode(x);
        orvtest::NumberSource& source = cases_.source();
        value.exponent = source.coin() ? source.between(-440, -360) : source.between(330, 390);
        encode(value, x);
        EXPECT_TRUE(isCanonically(orvDec128ToDec64(x), modelConvert(orvtest::DECIMAL64, value)))
            << value;
        value.exponent = source.coin() ? source.between(-145, -60) : source.between(50, 110);
        encode(value, x);
        EXPECT_TRUE(isCanonically(orvDec128ToDec32(x), modelConvert(orvtest::DECIMAL32, value)))
            << value;
    });
}

} // namespace
