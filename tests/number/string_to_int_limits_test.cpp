// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Integers from text at the limits of their types, and beyond, in every radix.
#include "tests/number/integer_readers.h"

#include "orv/liborvxx/base/platform.h"

#include <limits>

namespace {

using namespace orvtest;

template <class Name>
class IntegerLimits : public testing::Test {
public:
    using Type = typename Name::Type;
    static constexpr Type MAX = std::numeric_limits<Type>::max();
    static constexpr Type MIN = std::numeric_limits<Type>::min();
};
TYPED_TEST_SUITE(IntegerLimits, IntegerNames);

template <class Name>
using SignedIntegerLimits = IntegerLimits<Name>;
TYPED_TEST_SUITE(SignedIntegerLimits, SignedIntegerNames);

// The text of a number, with letters from `ten` on.
std::string digitsOf(orv::uint128 value, unsigned radix, char ten) {
    std::string text;
    do {
        const auto digit = static_cast<int>(value % radix);
        text.insert(text.begin(), static_cast<char>(digit < 10 ? '0' + digit : ten + digit - 10));
        value /= radix;
    } while (value != 0);
    return text;
}

TYPED_TEST(IntegerLimits, ReadsTheLargestValueInEachRadixAndNoMore) {
    const std::string zeros(70, '0');
    for (int radix = 2; radix <= 36; ++radix) {
        for (const char ten : {'a', 'A'}) {
            const auto base = static_cast<unsigned>(radix);
            const std::string max = digitsOf(TestFixture::MAX, base, ten);
            const std::string next =
                digitsOf(static_cast<orv::uint128>(TestFixture::MAX) + 1, base, ten);
            EXPECT_EQ(readEverywhere<TypeParam>(max, radix),
                      number<TypeParam>(TestFixture::MAX, max.size()));
            EXPECT_EQ(readEverywhere<TypeParam>(zeros + max + '!', radix),
                      number<TypeParam>(TestFixture::MAX, max.size() + 70));
            EXPECT_EQ(readEverywhere<TypeParam>(next, radix),
                      outOfRange<TypeParam>(TestFixture::MAX, next.size()));
            EXPECT_EQ(readEverywhere<TypeParam>(zeros + next + '!', radix),
                      outOfRange<TypeParam>(TestFixture::MAX, next.size() + 70));
            EXPECT_EQ(readEverywhere<TypeParam>(max + "0!", radix),
                      outOfRange<TypeParam>(TestFixture::MAX, max.size() + 1));
        }
    }
}

TYPED_TEST(IntegerLimits, ReadsOverlongNumbersToTheirLastDigit) {
    for (std::size_t digits = 21; digits < 100; ++digits) {
        EXPECT_EQ(readEverywhere<TypeParam>("1" + std::string(digits - 1, '0') + "."),
                  outOfRange<TypeParam>(TestFixture::MAX, digits));
    }
    // 2^64 + 1, 2^128 and the like are not the small numbers that their low bits make.
    for (const char* text : {"4294967297", "18446744073709551616", "18446744073709551617",
                             "340282366920938463463374607431768211456"}) {
        if (std::string_view(text) == "4294967297" && sizeof(typename TypeParam::Type) == 8) {
            continue;
        }
        EXPECT_EQ(readEverywhere<TypeParam>(text),
                  outOfRange<TypeParam>(TestFixture::MAX, std::string_view(text).size()));
    }
}

TYPED_TEST(SignedIntegerLimits, ReadsTheSmallestValueInEachRadixAndNoLess) {
    using Bits = std::make_unsigned_t<typename TypeParam::Type>;
    const auto magnitude = static_cast<Bits>(static_cast<Bits>(TestFixture::MAX) + 1);
    for (int radix = 2; radix <= 36; ++radix) {
        const auto base = static_cast<unsigned>(radix);
        const std::string min = '-' + digitsOf(magnitude, base, 'a');
        const std::string next =
            '-' + digitsOf(static_cast<orv::uint128>(magnitude) + 1, base, 'a');
        EXPECT_EQ(readEverywhere<TypeParam>(min, radix),
                  number<TypeParam>(TestFixture::MIN, min.size()));
        EXPECT_EQ(readEverywhere<TypeParam>(next, radix),
                  outOfRange<TypeParam>(TestFixture::MIN, next.size()));
        EXPECT_EQ(readEverywhere<TypeParam>(min + "0", radix),
                  outOfRange<TypeParam>(TestFixture::MIN, min.size() + 1));
    }
    EXPECT_EQ(readEverywhere<TypeParam>("-18446744073709551616x"),
              outOfRange<TypeParam>(TestFixture::MIN, 21));
    EXPECT_EQ(readEverywhere<TypeParam>("-99999999999999999999999999999999999999"),
              outOfRange<TypeParam>(TestFixture::MIN, 39));
}

TEST(StringToIntegerLimits, StandAsEveryoneKnowsThem) {
    EXPECT_EQ(orv::stoi_c("2147483647"), 2147483647);
    EXPECT_EQ(orv::stoi_c("-2147483648"), -2147483647 - 1);
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { orv::stoi_c("2147483648"); }),
              "number out of range");
    EXPECT_EQ(orv::stoui_c("4294967295"), 4294967295U);
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { orv::stoui_c("4294967296"); }),
              "number out of range");
    EXPECT_EQ(orv::stoll_c("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(orv::stoull_c("18446744073709551615"), std::numeric_limits<std::uint64_t>::max());
    char text[] = "99999999999";
    char* end = nullptr;
    errno = 0;
    EXPECT_EQ(orv::strtoi_c(text, &end, 10), 0x7FFFFFFF);
    EXPECT_EQ(errno, ERANGE);
    EXPECT_EQ(end, text + 11);
    EXPECT_EQ(orv::strtol_c("-99999999999", &end, 10), -0x7FFFFFFF - 1);
    EXPECT_EQ(orv::strtoul_c("99999999999", &end, 10), 0xFFFFFFFFU);
}

} // namespace
