// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `strtod64` and `strtod128` in all shapes.
#include "orv/liborvxx/decimal/decimal_io.h"
#include "tests/decimal/decimal_locales.h"
#include "tests/support/in_all_threads.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <clocale>
#include <cstddef>
#include <locale>
#include <string>
#include <string_view>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal64;
using orvtest::bitsOf;
using orvtest::LayoutOf;
using orvtest::localeWith;
using orvtest::nanBits;
using orvtest::number;

template <class Decimal, class... Args>
Decimal read(Args&&... args) {
    if constexpr (std::is_same_v<Decimal, decimal64>) {
        return orv::decimal::strtod64(std::forward<Args>(args)...);
    } else {
        return orv::decimal::strtod128(std::forward<Args>(args)...);
    }
}

// A text, the number it begins with (an empty text: none) and how much of it that number is.
template <class Decimal>
struct Case {
    std::string text;
    std::string bits;
    std::size_t size;
    bool isWhole; // read without an end
};

template <class Decimal>
Case<Decimal> is(std::string text, Decimal value) {
    const std::size_t size = text.size();
    return {std::move(text), bitsOf(value), size, true};
}

template <class Decimal>
Case<Decimal> begins(std::string text, Decimal value, std::size_t size, bool isWhole) {
    return {std::move(text), bitsOf(value), size, isWhole};
}

template <class Decimal>
Case<Decimal> none(std::string text) {
    return {std::move(text), nanBits<Decimal>(), 0, false};
}

// Reads the text in the six shapes that a locale allows.
template <class Decimal>
void expectReads(const std::locale& locale, const Case<Decimal>& c) {
    SCOPED_TRACE("\"" + c.text + "\"");
    const std::string whole = c.isWhole ? c.bits : nanBits<Decimal>();
    const char* end = nullptr;
    EXPECT_EQ(bitsOf(read<Decimal>(locale, c.text.c_str(), &end)), c.bits);
    EXPECT_EQ(end - c.text.c_str(), static_cast<std::ptrdiff_t>(c.size));
    EXPECT_EQ(bitsOf(read<Decimal>(locale, c.text.c_str(), nullptr)), whole);
    EXPECT_EQ(bitsOf(read<Decimal>(locale, c.text.c_str())), whole);

    const std::string led = "ab" + c.text;
    std::size_t index = 2;
    EXPECT_EQ(bitsOf(read<Decimal>(locale, led, &index)), c.bits);
    EXPECT_EQ(index, 2 + c.size);
    EXPECT_EQ(bitsOf(read<Decimal>(locale, c.text, nullptr)), whole);
    EXPECT_EQ(bitsOf(read<Decimal>(locale, c.text)), whole);
}

// The same without a locale.
template <class Decimal>
void expectReads(const Case<Decimal>& c) {
    SCOPED_TRACE("\"" + c.text + "\"");
    const std::string whole = c.isWhole ? c.bits : nanBits<Decimal>();
    const char* end = nullptr;
    EXPECT_EQ(bitsOf(read<Decimal>(c.text.c_str(), &end)), c.bits);
    EXPECT_EQ(end - c.text.c_str(), static_cast<std::ptrdiff_t>(c.size));
    EXPECT_EQ(bitsOf(read<Decimal>(c.text.c_str(), nullptr)), whole);
    EXPECT_EQ(bitsOf(read<Decimal>(c.text.c_str())), whole);

    const std::string led = "ab" + c.text;
    std::size_t index = 2;
    EXPECT_EQ(bitsOf(read<Decimal>(led, &index)), c.bits);
    EXPECT_EQ(index, 2 + c.size);
    EXPECT_EQ(bitsOf(read<Decimal>(c.text, nullptr)), whole);
    EXPECT_EQ(bitsOf(read<Decimal>(c.text)), whole);
}

template <class Decimal>
class Strtod : public testing::Test {};

using Decimals = testing::Types<decimal64, decimal128>;
TYPED_TEST_SUITE(Strtod, Decimals, );

TYPED_TEST(Strtod, ReadsTheSameWithAndWithoutTheClassicLocale) {
    using D = TypeParam;
    const D infinity = LayoutOf<D>::infinity(false);
    const D minusInfinity = LayoutOf<D>::infinity(true);
    const D nan = LayoutOf<D>::quietNan();
    const D twelve = number<D>(125, -1);
    const Case<D> cases[] = {
        is("12.5", twelve),
        begins("12.5 ", twelve, 4, true),
        begins("12.5 \t\n\v\f\r ", twelve, 4, true),
        begins("12.5x", twelve, 4, false),
        begins("12.5 x", twelve, 4, false),
        begins("12.5\xA0", twelve, 4, false),
        begins("12.5,", twelve, 4, false),
        is("  12.5", twelve),
        is(" \t\n\v\f\r12.5", twelve),
        is("-12.5", number<D>(-125, -1)),
        is("+12.50", number<D>(1250, -2)),
        is("0", number<D>(0, 0)),
        is("0.000", number<D>(0, -3)),
        is("12.", number<D>(12, 0)),
        is(".5", number<D>(5, -1)),
        is("1e3", number<D>(1, 3)),
        is("1E-3", number<D>(1, -3)),
        is("1e+03", number<D>(1, 3)),
        is("inf", infinity),
        is("-Infinity", minusInfinity),
        is("nan", nan),
        is("-nAn", nan),
        // What might have become more is passed over where white space may follow.
        begins("1e", number<D>(1, 0), 1, true),
        begins("1e+", number<D>(1, 0), 1, true),
        begins("1e+ ", number<D>(1, 0), 1, true),
        begins("1e+x", number<D>(1, 0), 1, false),
        begins("1e+ 5", number<D>(1, 0), 1, false),
        begins("infin", infinity, 3, true),
        begins("infini ty", infinity, 3, false),
        begins("1,5", number<D>(1, 0), 1, false),
        begins("1.5.", number<D>(15, -1), 3, false),
        begins("0x10", number<D>(0, 0), 1, false),
        none<D>(""),
        none<D>(" "),
        none<D>("x"),
        none<D>("."),
        none<D>("-"),
        none<D>("-."),
        none<D>("+ 1"),
        none<D>("e5"),
        none<D>("in"),
        none<D>("na"),
        none<D>(",5"),
        none<D>("\xA0"
                "1"),
    };
    for (const Case<D>& c : cases) {
        expectReads(c);
        expectReads(std::locale::classic(), c);
    }
}

TYPED_TEST(Strtod, ReadsNothingFromAnEmptyText) {
    const char text[] = "";
    const char* end = nullptr;
    EXPECT_EQ(bitsOf(read<TypeParam>(text, &end)), nanBits<TypeParam>());
    EXPECT_EQ(end, text);
}

TYPED_TEST(Strtod, ReadsThePunctuationOfTheLocale) {
    using D = TypeParam;
    const std::locale german = localeWith(',', '.', "\3");
    for (const Case<D>& c : {
             is("1,5", number<D>(15, -1)),
             is("1.234,5", number<D>(12345, -1)),
             is("1.2.3.4,5", number<D>(12345, -1)),
             begins("1..2", number<D>(1, 0), 1, false),
             begins("1.", number<D>(1, 0), 1, true),
             begins("1. ", number<D>(1, 0), 1, true),
             begins("1,234.5", number<D>(1234, -3), 5, false),
             begins("1,5,", number<D>(15, -1), 3, false),
             none<D>(".5"),
         }) {
        expectReads(german, c);
    }
}

TYPED_TEST(Strtod, TakesNoSeparatorsWhereDigitsAreNotGrouped) {
    using D = TypeParam;
    const std::locale comma = localeWith(',', '.', "");
    expectReads(comma, is("1,5", number<D>(15, -1)));
    expectReads(comma, begins("1.234,5", number<D>(1, 0), 1, false));
    // The separator has no part in it then, and may be anything.
    expectReads(localeWith('.', '.', ""), is("1.5", number<D>(15, -1)));
    expectReads(localeWith('.', '7', ""), is("7.5", number<D>(75, -1)));
}

TYPED_TEST(Strtod, TakesSeparatorsWhateverTheGroupSizesAre) {
    using D = TypeParam;
    for (const std::string& grouping :
         {std::string("\x7F"), std::string("\0", 1), std::string("\xFE"), std::string(9, '\1')}) {
        expectReads(localeWith('.', '\'', grouping), is("12'34.5", number<D>(12345, -1)));
    }
}

TYPED_TEST(Strtod, ReadsPunctuationBeyondAscii) {
    using D = TypeParam;
    const std::locale locale = localeWith('\xB7', '\xA0', "\3");
    expectReads(locale, is("1\xA0"
                           "234\xB7"
                           "5",
                           number<D>(12345, -1)));
    expectReads(locale, begins("1.5", number<D>(1, 0), 1, false));
}

TYPED_TEST(Strtod, ReadsSpacesAsSeparators) {
    using D = TypeParam;
    const std::locale french = localeWith(',', ' ', "\3");
    expectReads(french, is("  1 234,5", number<D>(12345, -1)));
    expectReads(french, begins("12 ", number<D>(12, 0), 2, true));
    expectReads(french, begins("12  ", number<D>(12, 0), 2, true));
    expectReads(french, begins("12 x", number<D>(12, 0), 2, false));
}

TYPED_TEST(Strtod, ReadsNothingWithAmbiguousPunctuation) {
    using D = TypeParam;
    for (const std::locale& locale :
         {localeWith('.', '.', "\3"), localeWith('5', ',', "\3"), localeWith('.', '7', "\3"),
          localeWith('-', ',', "\3"), localeWith('e', ',', ""), localeWith('\0', ',', "\3")}) {
        expectReads(locale, none<D>("1.5"));
        expectReads(locale, none<D>("1"));
        expectReads(locale, none<D>(""));
    }
}

TYPED_TEST(Strtod, SeesAReplacedFacetInALocaleNamedC) {
    // Of a locale made by name, only what stands in it counts.
    const std::locale named("C");
    expectReads(named, is("1.5", number<TypeParam>(15, -1)));
    const std::locale replaced(named, new orvtest::Punctuation(',', '.', "\3"));
    expectReads(replaced, is("1,5", number<TypeParam>(15, -1)));
    const std::locale back(replaced, std::locale::classic(), std::locale::numeric);
    expectReads(back, is("1.5", number<TypeParam>(15, -1)));
}

TYPED_TEST(Strtod, ReadsWithTheLocalesOfTheSystem) {
    using D = TypeParam;
    expectReads(std::locale("de_DE.UTF-8"), is("-1.234,50", number<D>(-123450, -2)));
    expectReads(std::locale("en_US.UTF-8"), is("-1,234.50", number<D>(-123450, -2)));
    expectReads(std::locale("en_IN.UTF-8"), is("12,34,567.5", number<D>(12345675, -1)));
    expectReads(std::locale("fr_FR.UTF-8"), is("1,50", number<D>(150, -2)));
    expectReads(std::locale("tr_TR.UTF-8"), is("INFINITY", D(LayoutOf<D>::infinity(false))));
}

TYPED_TEST(Strtod, ReadsNoGlobalLocale) {
    const std::locale before = std::locale::global(std::locale("de_DE.UTF-8"));
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    expectReads(is("1.5", number<TypeParam>(15, -1)));
    expectReads(begins("1,5", number<TypeParam>(1, 0), 1, false));
    std::setlocale(LC_ALL, "C");
    std::locale::global(before);
}

TYPED_TEST(Strtod, BeginsAtTheIndexAndCountsWhatItReads) {
    std::size_t index = 2;
    EXPECT_EQ(bitsOf(read<TypeParam>(std::string("ab1.5"), &index)),
              bitsOf(number<TypeParam>(15, -1)));
    EXPECT_EQ(index, 5);
    // The end of the text is a place, too.
    EXPECT_EQ(bitsOf(read<TypeParam>(std::string("ab1.5"), &index)), nanBits<TypeParam>());
    EXPECT_EQ(index, 5);

    const std::string list = "1.5 -2;3e1";
    index = 0;
    EXPECT_EQ(bitsOf(read<TypeParam>(list, &index)), bitsOf(number<TypeParam>(15, -1)));
    EXPECT_EQ(index, 3);
    EXPECT_EQ(bitsOf(read<TypeParam>(list, &index)), bitsOf(number<TypeParam>(-2, 0)));
    EXPECT_EQ(index, 6);
    EXPECT_EQ(bitsOf(read<TypeParam>(list, &index)), nanBits<TypeParam>());
    EXPECT_EQ(index, 6);
    ++index;
    EXPECT_EQ(bitsOf(read<TypeParam>(list, &index)), bitsOf(number<TypeParam>(3, 1)));
    EXPECT_EQ(index, list.size());
}

TYPED_TEST(Strtod, EndsAStringAtItsFirstNul) {
    const std::string text("1.5\0x2", 6);
    EXPECT_EQ(bitsOf(read<TypeParam>(text)), bitsOf(number<TypeParam>(15, -1)));
    std::size_t index = 0;
    EXPECT_EQ(bitsOf(read<TypeParam>(text, &index)), bitsOf(number<TypeParam>(15, -1)));
    EXPECT_EQ(index, 3);
    EXPECT_EQ(bitsOf(read<TypeParam>(text, &index)), nanBits<TypeParam>());
    EXPECT_EQ(index, 3);
    index = 5;
    EXPECT_EQ(bitsOf(read<TypeParam>(text, &index)), bitsOf(number<TypeParam>(2, 0)));
    EXPECT_EQ(index, 6);
}

TEST(StrtodDigits, AreThoseOfTheFormatAndARestRoundsHalfToEven) {
    EXPECT_EQ(bitsOf(orv::decimal::strtod64("1234567890123456")),
              bitsOf(number<decimal64>(1234567890123456, 0)));
    EXPECT_EQ(bitsOf(orv::decimal::strtod64("12345678901234565")),
              bitsOf(number<decimal64>(1234567890123456, 1)));
    EXPECT_EQ(bitsOf(orv::decimal::strtod64("12345678901234575")),
              bitsOf(number<decimal64>(1234567890123458, 1)));
    EXPECT_EQ(bitsOf(orv::decimal::strtod64("12345678901234565.0000000001")),
              bitsOf(number<decimal64>(1234567890123457, 1)));
    // 34 digits: 10^33 + 1 and, of one more, a tie.
    EXPECT_EQ(bitsOf(orv::decimal::strtod128("1000000000000000000000000000000001")),
              "3040314DC6448D93'38C15B0A00000001");
    EXPECT_EQ(bitsOf(orv::decimal::strtod128("10000000000000000000000000000000005")),
              "3042314DC6448D93'38C15B0A00000000");
    EXPECT_EQ(bitsOf(orv::decimal::strtod128("10000000000000000000000000000000015")),
              "3042314DC6448D93'38C15B0A00000002");
}

TYPED_TEST(Strtod, GivesInfinityAndZeroBeyondTheRangeAndLeavesErrnoAlone) {
    using D = TypeParam;
    errno = 77;
    EXPECT_EQ(bitsOf(read<D>("1e99999999999")), bitsOf(D(LayoutOf<D>::infinity(false))));
    EXPECT_EQ(bitsOf(read<D>("-1e99999")), bitsOf(D(LayoutOf<D>::infinity(true))));
    EXPECT_EQ(bitsOf(read<D>("1e-99999")), bitsOf(number<D>(0, LayoutOf<D>::MIN_EXPONENT)));
    EXPECT_EQ(bitsOf(read<D>("x")), nanBits<D>());
    EXPECT_EQ(errno, 77);
}

TEST(StrtodThreads, ReadInAllThreadsAtOnce) {
    const std::locale german("de_DE.UTF-8");
    orvtest::inAllThreads([&german](std::size_t thread) {
        const auto coefficient = static_cast<int>(100000 + thread);
        const std::string digits = std::to_string(coefficient);
        const std::string plain = digits.substr(0, 4) + '.' + digits.substr(4);
        const std::string grouped =
            digits[0] + ('.' + digits.substr(1, 3)) + ',' + digits.substr(4);
        for (int i = 0; i < 500; ++i) {
            ASSERT_EQ(bitsOf(orv::decimal::strtod64(plain)),
                      bitsOf(number<decimal64>(coefficient, -2)));
            ASSERT_EQ(bitsOf(orv::decimal::strtod128(german, grouped)),
                      bitsOf(number<decimal128>(coefficient, -2)));
        }
    });
}

} // namespace
