// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `to_string` of decimal numbers gives what a stream with the flag `fixed` gives.
#include "orv/liborvxx/decimal/decimal_io.h"
#include "tests/decimal/decimal_locales.h"
#include "tests/support/case_count.h"
#include "tests/support/in_all_threads.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <ios>
#include <iterator>
#include <locale>
#include <sstream>
#include <string>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orv::decimal::to_string;
using orvtest::LayoutOf;
using orvtest::localeWith;
using orvtest::number;

template <class Decimal>
class DecimalToString : public testing::Test {};

using Decimals = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalToString, Decimals, );

TYPED_TEST(DecimalToString, WritesAsManyDigitsBehindThePointAsToldTo) {
    using D = TypeParam;
    EXPECT_EQ(to_string(number<D>(12345, -3), 2), "12.34");
    EXPECT_EQ(to_string(number<D>(12355, -3), 2), "12.36");
    EXPECT_EQ(to_string(number<D>(-5, -1), 2), "-0.50");
    EXPECT_EQ(to_string(number<D>(5, -1), 0), "0");
    EXPECT_EQ(to_string(number<D>(15, -1), 0), "2");
    EXPECT_EQ(to_string(number<D>(15, 2), 2), "1500.00");
    EXPECT_EQ(to_string(number<D>(0, 50), 2), "0.00");
    EXPECT_EQ(to_string(number<D>(150, -2), -1), "1.50");
    EXPECT_EQ(to_string(number<D>(150, -2), -7), "1.50");
    EXPECT_EQ(to_string(number<D>(1, -101), 1), "0.0");
    EXPECT_EQ(to_string(D(LayoutOf<D>::infinity(true)), 2), "-inf");
    EXPECT_EQ(to_string(D(LayoutOf<D>::quietNan()), 2), "nan");
}

TYPED_TEST(DecimalToString, WritesThePunctuationOfTheLocaleGiven) {
    using D = TypeParam;
    const D x = number<D>(1234567, 0);
    EXPECT_EQ(to_string(std::locale::classic(), x, 2), "1234567.00");
    EXPECT_EQ(to_string(std::locale("de_DE.UTF-8"), x, 2), "1.234.567,00");
    EXPECT_EQ(to_string(std::locale("en_IN.UTF-8"), x, 0), "12,34,567");
    EXPECT_EQ(to_string(localeWith(',', '\'', "\3"), x, 1), "1'234'567,0");
    const std::locale named("C");
    EXPECT_EQ(to_string(named, x, 1), "1234567.0");
    const std::locale replaced(named, new orvtest::Punctuation(',', '.', "\3"));
    EXPECT_EQ(to_string(replaced, x, 1), "1.234.567,0");
}

TYPED_TEST(DecimalToString, ReadsNoGlobalLocale) {
    const std::locale before = std::locale::global(std::locale("de_DE.UTF-8"));
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    EXPECT_EQ(to_string(number<TypeParam>(1234567, -2), 2), "12345.67");
    EXPECT_EQ(to_string(std::locale::classic(), number<TypeParam>(1234567, -2), 2), "12345.67");
    std::setlocale(LC_ALL, "C");
    std::locale::global(before);
}

TYPED_TEST(DecimalToString, WritesTextsAroundTheSizeOfABuffer) {
    for (int precision = 55; precision < 75; ++precision) {
        EXPECT_EQ(to_string(number<TypeParam>(15, -1), precision),
                  "1.5" + std::string(static_cast<std::size_t>(precision) - 1, '0'));
    }
    EXPECT_EQ(to_string(number<TypeParam>(5, 0), 5000), "5." + std::string(5000, '0'));
}

template <class Decimal>
std::string streamed(const std::locale& locale, const Decimal& x, int precision) {
    std::ostringstream os;
    os.imbue(locale);
    os << std::fixed << std::setprecision(precision) << x;
    return os.str();
}

template <class Decimal>
Decimal anyBits(orvtest::NumberSource& source) {
    orvtest::RecordOf<Decimal> record;
    if constexpr (sizeof record == 16) {
        record = {source.bits(), source.bits()};
    } else {
        record.bits = static_cast<decltype(record.bits)>(source.bits());
    }
    return record;
}

template <class Decimal>
Decimal modest(orvtest::NumberSource& source) {
    using Layout = LayoutOf<Decimal>;
    const int shift = source.between(std::max(64 - Layout::DIGITS * 3, 0), 63);
    const std::uint64_t high = source.coin() ? 0 : source.bits() >> 16U;
    return Layout::encode(source.coin(), source.between(-30, 5),
                          source.bits() >> static_cast<unsigned>(shift), high);
}

TYPED_TEST(DecimalToString, WritesWhatAStreamWrites) {
    const std::locale all[] = {
        std::locale::classic(),       std::locale("de_DE.UTF-8"),
        std::locale("fr_FR.UTF-8"),   std::locale("en_IN.UTF-8"),
        std::locale("fa_IR.UTF-8"),   localeWith('.', ',', "\1\2"),
        localeWith('\0', '\0', "\3"), localeWith('.', ',', std::string(9, '\3'))};
    orvtest::NumberSource source(622);
    for (std::size_t i = orvtest::caseCount(40000); i > 0; --i) {
        const auto x =
            source.below(8) == 0 ? anyBits<TypeParam>(source) : modest<TypeParam>(source);
        const int precision = source.between(-2, source.below(8) == 0 ? 90 : 20);
        const std::locale& locale = all[source.below(std::size(all))];
        ASSERT_EQ(to_string(locale, x, precision), streamed(locale, x, precision))
            << orvtest::bitsOf(x) << " with " << precision;
        ASSERT_EQ(to_string(x, precision), streamed(std::locale::classic(), x, precision))
            << orvtest::bitsOf(x) << " with " << precision;
    }
}

TEST(DecimalToStringThreads, WriteInAllThreadsAtOnce) {
    const std::locale german("de_DE.UTF-8");
    orvtest::inAllThreads([&german](std::size_t thread) {
        const auto coefficient = static_cast<int>(100000 + thread);
        const std::string digits = std::to_string(coefficient);
        for (int i = 0; i < 500; ++i) {
            ASSERT_EQ(to_string(number<decimal64>(coefficient, -2), 2),
                      digits.substr(0, 4) + '.' + digits.substr(4));
            ASSERT_EQ(to_string(german, number<decimal128>(coefficient, 0), 0),
                      digits.substr(0, 3) + '.' + digits.substr(3));
        }
    });
}

} // namespace
