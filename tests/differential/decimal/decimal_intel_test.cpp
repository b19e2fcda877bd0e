// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the library computes itself, bit for bit beside Intel's decimal library: NaNs and
/// their payloads, and encodings that are not canonical, included.
#include "tests/differential/decimal/decimal_cases.h"
#include "tests/support/case_count.h"

#include <gtest/gtest.h>

#include <bid_conf.h>

#include <bid_functions.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

BID_UINT32 toBid(ODecimal32 x) {
    return x.bits;
}

BID_UINT64 toBid(ODecimal64 x) {
    return x.bits;
}

BID_UINT128 toBid(ODecimal128 x) {
    return {{x.low, x.high}};
}

bool same(ODecimal32 x, BID_UINT32 bid) {
    return x.bits == bid;
}

bool same(ODecimal64 x, BID_UINT64 bid) {
    return x.bits == bid;
}

bool same(ODecimal128 x, BID_UINT128 bid) {
    return x.low == bid.w[0] && x.high == bid.w[1];
}

// The other library's functions of one width. The names are macros there, which do the rest.
template <class Record>
struct Intel;

#define ORV_INTEL(width)                                                                           \
    template <>                                                                                    \
    struct Intel<ODecimal##width> {                                                                \
        static constexpr auto add = bid##width##_add;                                              \
        static constexpr auto subtract = bid##width##_sub;                                         \
        static constexpr auto multiply = bid##width##_mul;                                         \
        static constexpr auto quantize = bid##width##_quantize;                                    \
        static constexpr auto abs = bid##width##_abs;                                              \
        static constexpr auto negate = bid##width##_negate;                                        \
        static constexpr auto copySign = bid##width##_copySign;                                    \
        static constexpr auto equal = bid##width##_quiet_equal;                                    \
        static constexpr auto notEqual = bid##width##_quiet_not_equal;                             \
        static constexpr auto less = bid##width##_quiet_less;                                      \
        static constexpr auto lessEqual = bid##width##_quiet_less_equal;                           \
        static constexpr auto unordered = bid##width##_quiet_unordered;                            \
        static constexpr auto isInfinite = bid##width##_isInf;                                     \
        static constexpr auto isNaN = bid##width##_isNaN;                                          \
        static constexpr auto isSignalling = bid##width##_isSignaling;                             \
        static constexpr auto isFinite = bid##width##_isFinite;                                    \
        static constexpr auto isSigned = bid##width##_isSigned;                                    \
        static constexpr auto isNormal = bid##width##_isNormal;                                    \
        static constexpr auto isZero = bid##width##_isZero;                                        \
        static constexpr auto isCanonical = bid##width##_isCanonical;                              \
        static constexpr auto classOf = bid##width##_class;                                        \
        static constexpr auto sameQuantum = bid##width##_sameQuantum;                              \
        static constexpr auto totalOrder = bid##width##_totalOrder;                                \
    };

ORV_INTEL(32)
ORV_INTEL(64)
ORV_INTEL(128)
#undef ORV_INTEL

void addNumbers(std::vector<ODecimal32>& shapes) {
    for (const std::uint32_t field : {0U, 1U, 5U, 6U, 7U, 101U, 190U, 191U}) {
        for (const std::uint32_t coefficient : {0U, 1U, 10U, 999'999U, 1'000'000U, 0x7FFFFFU}) {
            shapes.push_back({field << 23U | coefficient});
        }
        for (const std::uint32_t coefficient : {8'388'608U, 9'999'999U, 10'000'000U, 0x9FFFFFU}) {
            shapes.push_back({0x60000000U | field << 21U | (coefficient & 0x1FFFFFU)});
        }
    }
}

void addNumbers(std::vector<ODecimal64>& shapes) {
    for (const std::uint64_t field : {0U, 1U, 14U, 15U, 16U, 398U, 766U, 767U}) {
        for (const std::uint64_t coefficient :
             {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{10}, 999'999'999'999'999U,
              1'000'000'000'000'000U, 0x1FFFFFFFFFFFFFU}) {
            shapes.push_back({field << 53U | coefficient});
        }
        for (const std::uint64_t coefficient : {9'007'199'254'740'992U, 9'999'999'999'999'999U,
                                                10'000'000'000'000'000U, 0x27FFFFFFFFFFFFU}) {
            shapes.push_back(
                {0x6000000000000000U | field << 51U | (coefficient & 0x7FFFFFFFFFFFFU)});
        }
    }
}

void addNumbers(std::vector<ODecimal128>& shapes) {
    for (const std::uint64_t field : {0U, 1U, 32U, 33U, 34U, 6176U, 12286U, 12287U}) {
        for (const std::uint64_t low : {0U, 1U, 10U}) {
            shapes.push_back({low, field << 49U});
        }
        // Next to 2^64, 10^33 and 10^34, and the largest that the bits hold.
        shapes.push_back({~std::uint64_t{0}, field << 49U});
        shapes.push_back({0, field << 49U | 1U});
        shapes.push_back({0x38C15B09FFFFFFFF, field << 49U | 0x314DC6448D93U});
        shapes.push_back({0x38C15B0A00000000, field << 49U | 0x314DC6448D93U});
        shapes.push_back({0x378D8E63FFFFFFFF, field << 49U | 0x1ED09BEAD87C0U});
        shapes.push_back({0x378D8E6400000000, field << 49U | 0x1ED09BEAD87C0U});
        shapes.push_back({~std::uint64_t{0}, field << 49U | 0x1FFFFFFFFFFFFU});
        // The large form, where no coefficient fits.
        shapes.push_back({0, 0x6000000000000000U | field << 47U});
        shapes.push_back({5, 0x6000000000000000U | field << 47U | 7U});
    }
}

constexpr std::uint32_t PAYLOADS_32[] = {0, 1, 999'999, 1'000'000, 0xFFFFF};
constexpr std::uint64_t PAYLOADS_64[] = {0, 1, 999'999'999'999'999, 1'000'000'000'000'000,
                                         0x3FFFFFFFFFFFF};
constexpr std::uint64_t PAYLOAD_ENDS_128[] = {0, 1, 0x38C15B09FFFFFFFF, 0x38C15B0A00000000};

// Numbers at both ends of the range and in the middle, with coefficients that do not fit too;
// infinities and NaNs of both kinds with stray bits and with payloads around the largest.
template <class Record>
std::vector<Record> allShapes() {
    std::vector<Record> shapes;
    addNumbers(shapes);
    const auto addSpecial = [&shapes](std::uint64_t high) {
        if constexpr (std::same_as<Record, ODecimal128>) {
            for (const std::uint64_t low : PAYLOAD_ENDS_128) {
                shapes.push_back({low, high});
                shapes.push_back({low, high | 0x314DC6448D93U});
                shapes.push_back({low, high | 0x3FFFFFFFFFFFU});
            }
        } else if constexpr (std::same_as<Record, ODecimal64>) {
            for (const std::uint64_t payload : PAYLOADS_64) {
                shapes.push_back({high | payload});
            }
        } else {
            for (const std::uint32_t payload : PAYLOADS_32) {
                shapes.push_back({static_cast<std::uint32_t>(high >> 32U) | payload});
            }
        }
    };
    for (const std::uint64_t top : {0x78U, 0x7AU, 0x79U, 0x7CU, 0x7DU, 0x7EU, 0x7FU}) {
        addSpecial(top << 56U);
        // The lowest bit above the payload, of each width.
        for (const unsigned bit : {46U, 50U, 52U}) {
            addSpecial(top << 56U | std::uint64_t{1} << bit);
        }
    }
    const std::size_t count = shapes.size();
    for (std::size_t i = 0; i < count; ++i) {
        shapes.push_back(orvtest::Functions<Record>::negate(shapes[i]));
    }
    return shapes;
}

template <class Record>
class DecimalIntel : public testing::Test {
protected:
    template <class Check>
    void forAll(std::size_t count, Check check) {
        orvtest::DecimalCases<Record> cases(73);
        for (std::size_t i = orvtest::caseCount(count); i > 0; --i) {
            const Record x = cases.operand();
            const Record y = cases.partner();
            check(x, y);
            if (this->HasFailure()) {
                describe(x, y);
                return;
            }
        }
    }

    // All pairs of the shapes.
    template <class Check>
    void forShapes(Check check) {
        const std::vector<Record> shapes = allShapes<Record>();
        for (std::size_t i = 0; i < shapes.size(); i += orvtest::strideUnderSanitizers(7)) {
            for (const Record& y : shapes) {
                check(shapes[i], y);
                if (this->HasFailure()) {
                    describe(shapes[i], y);
                    return;
                }
            }
        }
    }

private:
    static void describe(Record x, Record y) {
        ADD_FAILURE() << std::hex << orvtest::highBits(x) << " " << orvtest::lowBits(x) << " and "
                      << orvtest::highBits(y) << " " << orvtest::lowBits(y);
    }
};

using Records = testing::Types<ODecimal32, ODecimal64, ODecimal128>;
TYPED_TEST_SUITE(DecimalIntel, Records);

TYPED_TEST(DecimalIntel, ArithmeticIsTheSame) {
    using F = orvtest::Functions<TypeParam>;
    using I = Intel<TypeParam>;
    this->forAll(80'000, [](TypeParam x, TypeParam y) {
        _IDEC_flags flags = 0;
        EXPECT_TRUE(same(F::add(x, y), I::add(toBid(x), toBid(y), 0, &flags)));
        EXPECT_TRUE(same(F::subtract(x, y), I::subtract(toBid(x), toBid(y), 0, &flags)));
        EXPECT_TRUE(same(F::multiply(x, y), I::multiply(toBid(x), toBid(y), 0, &flags)));
        for (int mode = ORV_DEC_HALF_EVEN; mode <= ORV_DEC_HALF_AWAY; ++mode) {
            const auto expected =
                I::quantize(toBid(x), toBid(y), static_cast<_IDEC_round>(mode), &flags);
            EXPECT_TRUE(same(F::quantize(x, y, mode), expected)) << "mode " << mode;
        }
    });
}

template <class Record>
void expectSameOrder(Record x, Record y) {
    using F = orvtest::Functions<Record>;
    using I = Intel<Record>;
    _IDEC_flags flags = 0;
    const int less = I::less(toBid(x), toBid(y), &flags);
    const int equal = I::equal(toBid(x), toBid(y), &flags);
    const bool unordered = I::unordered(toBid(x), toBid(y), &flags) != 0;
    EXPECT_EQ(equal != 0, F::quietEqual(x, y) != 0);
    EXPECT_EQ(I::notEqual(toBid(x), toBid(y), &flags) != 0, F::quietNotEqual(x, y) != 0);
    EXPECT_EQ(less != 0, F::quietLess(x, y) != 0);
    EXPECT_EQ(I::lessEqual(toBid(x), toBid(y), &flags) != 0, F::quietLessEqual(x, y) != 0);
    EXPECT_EQ(unordered ? ORV_DEC_UNORDERED : 1 - 2 * less - equal, F::compare(x, y));
}

TYPED_TEST(DecimalIntel, ComparisonIsTheSame) {
    this->forAll(80'000, expectSameOrder<TypeParam>);
}

TYPED_TEST(DecimalIntel, SignsAndKindsAreTheSame) {
    using F = orvtest::Functions<TypeParam>;
    using I = Intel<TypeParam>;
    this->forAll(80'000, [](TypeParam x, TypeParam y) {
        EXPECT_TRUE(same(F::abs(x), I::abs(toBid(x))));
        EXPECT_TRUE(same(F::negate(x), I::negate(toBid(x))));
        EXPECT_TRUE(same(F::copySign(x, y), I::copySign(toBid(x), toBid(y))));
        EXPECT_EQ(I::isInfinite(toBid(x)) != 0, F::isInfinite(x) != 0);
        EXPECT_EQ(I::isNaN(toBid(x)) != 0, F::isNaN(x) != 0);
        EXPECT_EQ(I::isSignalling(toBid(x)) != 0, F::isSignalling(x) != 0);
        EXPECT_EQ(I::isFinite(toBid(x)) != 0, F::isFinite(x) != 0);
        EXPECT_EQ(I::isSigned(toBid(x)) != 0, F::isSigned(x) != 0);
    });
}

template <class Record>
void expectSameClassification(Record x, Record y) {
    using F = orvtest::Functions<Record>;
    using I = Intel<Record>;
    EXPECT_EQ(I::isNormal(toBid(x)) != 0, F::isNormal(x) != 0);
    EXPECT_EQ(I::isZero(toBid(x)) != 0, F::isZero(x) != 0);
    EXPECT_EQ(I::isCanonical(toBid(x)) != 0, F::isCanonical(x) != 0);
    EXPECT_EQ(I::classOf(toBid(x)), F::classOf(x));
    EXPECT_EQ(I::sameQuantum(toBid(x), toBid(y)) != 0, F::sameQuantum(x, y) != 0);
    EXPECT_EQ(I::totalOrder(toBid(x), toBid(y)) != 0, F::totalOrder(x, y) != 0);
}

TYPED_TEST(DecimalIntel, ClassificationIsTheSame) {
    this->forAll(80'000, expectSameClassification<TypeParam>);
    this->forShapes(expectSameClassification<TypeParam>);
}

TYPED_TEST(DecimalIntel, OrderOfAllShapesIsTheSame) {
    this->forShapes(expectSameOrder<TypeParam>);
}

} // namespace
