// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reading beside exact rational arithmetic: the number of the text lies no further from the
/// float than the middles to its neighbours, and on a middle only if the float is even.
///
/// The texts have no more digits than are read without loss: 17 for a double, 8 for a float, and 19
/// where no point divides them.
#include "orv/liborvxx/number/from_chars.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>
#include <type_traits>

namespace {

using orvtest::NumberSource;

// coefficient * 10^exponent
struct Decimal {
    std::uint64_t coefficient;
    int exponent;
};

// The text, with a point somewhere.
std::string textOf(const Decimal& decimal, NumberSource& source) {
    std::string digits = std::to_string(decimal.coefficient);
    const unsigned point = source.below(static_cast<unsigned>(digits.size()) + 1);
    const int exponent = decimal.exponent + static_cast<int>(digits.size() - point);
    digits.insert(point, ".");
    return digits + 'e' + std::to_string(exponent);
}

// A positive float as integers: coefficient * 2^exponent, as its neighbours see it.
template <class Float>
struct Binary {
    using Bits = std::conditional_t<sizeof(Float) == 4, std::uint32_t, std::uint64_t>;
    static constexpr int FRACTION = std::numeric_limits<Float>::digits - 1;
    static constexpr int LOWEST = std::numeric_limits<Float>::min_exponent - 1 - FRACTION;

    explicit Binary(Float value) {
        const auto bits = std::bit_cast<Bits>(value);
        const int field = static_cast<int>(bits >> FRACTION);
        const std::uint64_t fraction = bits & ((Bits{1} << FRACTION) - 1);
        coefficient = field == 0 ? fraction : fraction | std::uint64_t{1} << FRACTION;
        exponent = field == 0 ? LOWEST : LOWEST + field - 1;
        isPower = fraction == 0 && field > 1;
    }

    std::uint64_t coefficient;
    int exponent;
    bool isPower; // the neighbour below is half as far as the one above
};

// Compares a decimal with n * 2^exponent, exactly. Keeps its memory.
class Comparer {
public:
    int operator()(const Decimal& decimal, std::uint64_t n, int exponent) {
        left_ = decimal.coefficient;
        right_ = n;
        mpz_class& scaled = decimal.exponent < 0 ? right_ : left_;
        mpz_ui_pow_ui(power_.get_mpz_t(), 10,
                      static_cast<unsigned long>(std::abs(decimal.exponent)));
        scaled *= power_;
        if (exponent < 0) {
            left_ <<= static_cast<mp_bitcnt_t>(-exponent);
        } else {
            right_ <<= static_cast<mp_bitcnt_t>(exponent);
        }
        return cmp(left_, right_);
    }

private:
    mpz_class left_;
    mpz_class right_;
    mpz_class power_;
};

template <class Float>
bool isNearest(Float value, const Decimal& decimal, Comparer& compare) {
    if (std::isinf(value)) { // from the middle to the power of two behind the largest float
        constexpr int DIGITS = std::numeric_limits<Float>::digits;
        return compare(decimal, (std::uint64_t{1} << (DIGITS + 1)) - 1,
                       std::numeric_limits<Float>::max_exponent - DIGITS - 1) >= 0;
    }
    const Binary<Float> binary(value);
    const bool even = binary.coefficient % 2 == 0;
    const int above = compare(decimal, 2 * binary.coefficient + 1, binary.exponent - 1);
    if (above > 0 || (above == 0 && !even)) {
        return false;
    }
    if (binary.coefficient == 0) {
        return true;
    }
    const int below = binary.isPower
                          ? compare(decimal, 4 * binary.coefficient - 1, binary.exponent - 2)
                          : compare(decimal, 2 * binary.coefficient - 1, binary.exponent - 1);
    return below > 0 || (below == 0 && even);
}

template <class Float>
class ExactReading : public testing::Test {
protected:
    void expectNearest(const Decimal& decimal) {
        const std::string text = textOf(decimal, source);
        const auto read = orv::from_chars_c<Float>(text);
        ASSERT_EQ(read.length, text.size()) << text;
        ASSERT_TRUE(isNearest(read.value, decimal, compare)) << text;
        ASSERT_EQ(read.status == orv::number_status::out_of_range, std::isinf(read.value)) << text;
    }

    NumberSource source{71};
    Comparer compare;
};

using FloatTypes = testing::Types<float, double>;
TYPED_TEST_SUITE(ExactReading, FloatTypes);

TYPED_TEST(ExactReading, OfRandomDecimals) {
    using Limits = std::numeric_limits<TypeParam>;
    constexpr std::uint64_t LIMIT = sizeof(TypeParam) == 4 ? 100000000 : 100000000000000000;
    for (std::size_t i = orvtest::caseCount(300000); i > 0; --i) {
        const std::uint64_t coefficient = (this->source.bits() >> this->source.below(64)) % LIMIT;
        const int exponent =
            this->source.between(Limits::min_exponent10 - 30, Limits::max_exponent10 + 1);
        ASSERT_NO_FATAL_FAILURE(this->expectNearest({coefficient, exponent}));
    }
}

TYPED_TEST(ExactReading, OfNumbersAroundThePoint) {
    constexpr std::uint64_t LIMIT = sizeof(TypeParam) == 4 ? 100000000 : 100000000000000000;
    for (std::size_t i = orvtest::caseCount(300000); i > 0; --i) {
        const std::uint64_t coefficient = this->source.bits() % LIMIT;
        ASSERT_NO_FATAL_FAILURE(this->expectNearest({coefficient, this->source.between(-20, 5)}));
    }
}

// Middles of neighbours, and numbers next to them, that end before or behind the point.
TYPED_TEST(ExactReading, OfTiesAndTheirNeighbours) {
    constexpr int DIGITS = std::numeric_limits<TypeParam>::digits;
    for (std::size_t i = orvtest::caseCount(200000); i > 0; --i) {
        const int zeros = this->source.between(0, 62 - DIGITS);
        const std::uint64_t middle = (this->source.bits() >> (63 - DIGITS)) | 1U;
        const std::uint64_t integer = middle << static_cast<unsigned>(zeros);
        for (const std::uint64_t n : {integer - 1, integer, integer + 1}) {
            ASSERT_NO_FATAL_FAILURE(this->expectNearest({n, 0}));
        }
    }
}

// Of subnormal numbers a few digits are ties: odd multiples of half the smallest have no short
// texts, so these are numbers of the seventeen digits nearest to them.
TYPED_TEST(ExactReading, NextToMiddlesOfSubnormalNumbers) {
    constexpr TypeParam SMALLEST = std::numeric_limits<TypeParam>::denorm_min();
    constexpr int PRECISION = sizeof(TypeParam) == 4 ? 7 : 16;
    for (std::size_t i = orvtest::caseCount(100000); i > 0; --i) {
        const auto multiple = static_cast<TypeParam>(this->source.below(1U << 20U));
        const long double middle =
            static_cast<long double>(multiple * SMALLEST) + static_cast<long double>(SMALLEST) / 2;
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), "%.*Le", PRECISION, middle);
        // d.ddde-nnn
        const std::string digits =
            std::string(1, text[0]) + std::string(&text[2], static_cast<std::size_t>(PRECISION));
        const int exponent = std::atoi(&text[static_cast<std::size_t>(PRECISION) + 3]);
        ASSERT_NO_FATAL_FAILURE(this->expectNearest({std::stoull(digits), exponent - PRECISION}));
    }
}

} // namespace
