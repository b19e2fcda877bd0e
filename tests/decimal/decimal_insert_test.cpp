// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What streams write for decimal numbers, under all flags and in many locales.
#include "orv/liborvxx/decimal/decimal_io.h"
#include "tests/decimal/decimal_locales.h"
#include "tests/decimal/decimal_stream_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <ios>
#include <limits>
#include <locale>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <vector>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orvtest::DecimalDigits;
using orvtest::LayoutOf;
using orvtest::localeWith;
using orvtest::number;
using orvtest::StreamLook;
using orvtest::StreamModel;

void prepare(std::ostringstream& os, const StreamLook& look) {
    os.imbue(look.locale);
    os.flags(look.flags);
    os.precision(look.precision);
    os.width(look.width);
    os.fill(look.fill);
}

template <class Decimal>
std::string written(const StreamLook& look, const Decimal& x) {
    std::ostringstream os;
    prepare(os, look);
    os << x;
    return os.str();
}

template <class Decimal, class... Manipulators>
std::string written(const Decimal& x, Manipulators... manipulators) {
    std::ostringstream os;
    static_cast<void>((os << ... << manipulators));
    os << x;
    return os.str();
}

std::vector<std::locale> locales() {
    return {
        std::locale::classic(),
        localeWith(',', '.', "\3"),
        localeWith('.', ',', "\3\2"),
        localeWith('.', '\'', "\3"),
        localeWith(',', ' ', "\1"),
        localeWith('.', ',', ""),
        localeWith('.', ',', std::string("\2\x7F")),    // one group only
        localeWith('.', ',', std::string("\3\0\2", 3)), // an end within
        localeWith('.', ',', "\2\xFE"),                 // the same
        localeWith('.', ',', std::string("\0", 1)),     // no group at all
        localeWith('.', ',', "\1\2\3\1\2\3\1"),         // as many sizes as are looked at
        localeWith('.', ',', "\1\2\3\1\2\3\1\2"),       // one more
        localeWith('.', ',', std::string(20, '\3')),    // many more
        localeWith('.', ',', "\x7E"),                   // a group that no number fills
        localeWith('\xB7', '\xA0', "\3"),               // bytes beyond ASCII
        localeWith('\0', '\0', "\3"),                   // no punctuation
        localeWith('.', '.', "\3"),                     // the same for both
        std::locale("de_DE.UTF-8"),
        std::locale("en_US.UTF-8"),
        std::locale("fa_IR.UTF-8"),
        std::locale("fr_FR.UTF-8"),
        std::locale("en_IN.UTF-8"),
    };
}

std::vector<DecimalDigits> values() {
    return {
        {false, "0", 0, ""},         {true, "0", 0, ""},         {false, "0", -3, ""},
        {false, "0", -6, ""},        {false, "0", -7, ""},       {false, "0", 5, ""},
        {false, "1", 0, ""},         {true, "1", 0, ""},         {false, "150", -2, ""},
        {false, "5", -1, ""},        {false, "15", -1, ""},      {false, "25", -1, ""},
        {true, "25", -2, ""},        {false, "999", -2, ""},     {false, "9999999", -3, ""},
        {false, "1234567", 0, ""},   {true, "1234567", -1, ""},  {false, "1234567", -12, ""},
        {false, "1234567", -13, ""}, {false, "12", 1, ""},       {true, "12", 20, ""},
        {false, "1", -101, ""},      {false, "9999999", 90, ""}, {false, "", 0, "inf"},
        {true, "", 0, "inf"},        {false, "", 0, "nan"},      {true, "", 0, "nan"},
    };
}

constexpr std::ios_base::fmtflags NOTATIONS[] = {
    {}, std::ios::fixed, std::ios::scientific, std::ios::fixed | std::ios::scientific};
constexpr std::ios_base::fmtflags ADJUSTMENTS[] = {
    {}, std::ios::left, std::ios::right, std::ios::internal, std::ios::left | std::ios::right};
constexpr std::streamsize PRECISIONS[] = {-3, -1, 0, 1, 2, 3, 6, 7, 16, 34, 50, 70};

// Signs, points and capitals in all combinations.
std::ios_base::fmtflags marks(unsigned combination) {
    std::ios_base::fmtflags flags{};
    flags |= (combination & 1U) != 0 ? std::ios::showpos : std::ios_base::fmtflags{};
    flags |= (combination & 2U) != 0 ? std::ios::showpoint : std::ios_base::fmtflags{};
    flags |= (combination & 4U) != 0 ? std::ios::uppercase : std::ios_base::fmtflags{};
    return flags;
}

std::string shown(const StreamLook& look, const DecimalDigits& x) {
    std::ostringstream os;
    os << (x.negative ? "-" : "") << x.digits << x.word << "e" << x.exponent << ", flags "
       << look.flags << ", precision " << look.precision << ", width " << look.width
       << ", grouping of " << std::use_facet<std::numpunct<char>>(look.locale).grouping().size()
       << " bytes";
    return os.str();
}

template <class Decimal>
void expectAsModel(const StreamLook& look, const DecimalDigits& x) {
    EXPECT_EQ(written(look, orvtest::decimalOf<Decimal>(x)), StreamModel(look).text(x))
        << shown(look, x);
}

template <class Decimal>
class DecimalInsert : public testing::Test {};

using Decimals = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalInsert, Decimals, );

TYPED_TEST(DecimalInsert, WritesTheValueAsItStandsUpToThePrecision) {
    using D = TypeParam;
    EXPECT_EQ(written(number<D>(150, -2)), "1.50");
    EXPECT_EQ(written(number<D>(-5, 0)), "-5");
    EXPECT_EQ(written(number<D>(1234567, -3)), "1234.57");
    EXPECT_EQ(written(number<D>(1234567, -3), std::setprecision(0)), "1234.567");
    EXPECT_EQ(written(number<D>(1234567, -3), std::setprecision(-5)), "1234.567");
    EXPECT_EQ(written(number<D>(1234567, -3), std::setprecision(2)), "1.2e+03");
    EXPECT_EQ(written(number<D>(15, 1)), "1.5e+02");
    EXPECT_EQ(written(number<D>(15, 1), std::uppercase), "1.5E+02");
    EXPECT_EQ(written(number<D>(5, -20)), "5e-20");
    EXPECT_EQ(written(number<D>(5, 0), std::showpos, std::showpoint), "+5.");
    EXPECT_EQ(written(number<D>(5, 0), std::hexfloat, std::setprecision(0)), "5");
    EXPECT_EQ(written(number<D>(15, 0), std::hexfloat, std::setprecision(0)), "2e+01");
}

TYPED_TEST(DecimalInsert, WritesFixedAndScientific) {
    using D = TypeParam;
    EXPECT_EQ(written(number<D>(12345, -2), std::fixed), "123.450000");
    EXPECT_EQ(written(number<D>(12345, -2), std::fixed, std::setprecision(1)), "123.4");
    EXPECT_EQ(written(number<D>(12355, -2), std::fixed, std::setprecision(1)), "123.6");
    EXPECT_EQ(written(number<D>(25, -1), std::fixed, std::setprecision(0)), "2");
    EXPECT_EQ(written(number<D>(25, -1), std::fixed, std::setprecision(0), std::showpoint), "2.");
    EXPECT_EQ(written(number<D>(12345, -2), std::fixed, std::setprecision(-1)), "123.45");
    EXPECT_EQ(written(number<D>(12345, 2), std::fixed, std::setprecision(-1)), "1234500");
    EXPECT_EQ(written(number<D>(12345, -2), std::scientific), "1.234500e+02");
    EXPECT_EQ(written(number<D>(12345, -2), std::scientific, std::setprecision(2)), "1.23e+02");
    // There are as many digits as the value has, where a double would have one.
    EXPECT_EQ(written(number<D>(12345, -2), std::scientific, std::setprecision(0)), "1.2345e+02");
    EXPECT_EQ(written(number<D>(12345, -2), std::scientific, std::uppercase), "1.234500E+02");
}

TYPED_TEST(DecimalInsert, WritesWordsForWhatHasNoDigits) {
    using D = TypeParam;
    const D infinity = LayoutOf<D>::infinity(false);
    EXPECT_EQ(written(infinity), "inf");
    EXPECT_EQ(written(infinity, std::showpos, std::uppercase, std::showpoint), "+INF");
    EXPECT_EQ(written(D(LayoutOf<D>::infinity(true)), std::fixed), "-inf");
    EXPECT_EQ(written(D(LayoutOf<D>::quietNan())), "nan");
    EXPECT_EQ(written(D(LayoutOf<D>::quietNan()), std::showpos, std::uppercase), "NAN");
}

TYPED_TEST(DecimalInsert, WritesThePunctuationOfTheLocale) {
    using D = TypeParam;
    StreamLook look;
    look.flags |= std::ios::fixed;
    look.precision = 2;
    const D x = number<D>(-1234567, 0);
    look.locale = std::locale("de_DE.UTF-8");
    EXPECT_EQ(written(look, x), "-1.234.567,00");
    look.locale = std::locale("en_IN.UTF-8");
    EXPECT_EQ(written(look, x), "-12,34,567.00");
    look.locale = localeWith('.', '\'', std::string("\2\x7F"));
    EXPECT_EQ(written(look, x), "-12345'67.00");
    look.locale = localeWith('.', '\'', "\1\2\1\2\1\2\1");
    EXPECT_EQ(written(look, x), "-1'23'4'56'7.00");
    look.locale = localeWith('.', '\'', "\1\2\1\2\1\2\1\2");
    EXPECT_EQ(written(look, x), "-1234567.00");
}

TYPED_TEST(DecimalInsert, WritesAsTheModelUnderAllFlagsInAllLocales) {
    const std::vector<std::locale> all = locales();
    // All values in the classic locale, some of them in each other one.
    const std::size_t step = orvtest::IS_SANITIZED ? 101 : 7;
    std::size_t turn = 0;
    for (const std::locale& locale : all) {
        for (const std::ios_base::fmtflags notation : NOTATIONS) {
            for (unsigned combination = 0; combination < 8; ++combination) {
                for (const std::streamsize precision : PRECISIONS) {
                    for (const DecimalDigits& x : values()) {
                        if (&locale != all.data() && ++turn % step != 0) {
                            continue;
                        }
                        StreamLook look;
                        look.locale = locale;
                        look.flags |= notation | marks(combination);
                        look.precision = precision;
                        expectAsModel<TypeParam>(look, x);
                    }
                }
            }
        }
        ASSERT_FALSE(this->HasFailure());
    }
}

TYPED_TEST(DecimalInsert, PadsAsForACString) {
    for (const std::ios_base::fmtflags adjustment : ADJUSTMENTS) {
        for (const std::streamsize width : {-1, 0, 1, 5, 10, 80}) {
            for (const char fill : {' ', '*', '0'}) {
                for (const DecimalDigits& x : values()) {
                    StreamLook look;
                    look.flags |= adjustment | std::ios::showpos | std::ios::fixed;
                    look.width = width;
                    look.fill = fill;
                    std::ostringstream expected;
                    StreamLook unpadded = look;
                    unpadded.width = 0;
                    const std::string text = StreamModel(unpadded).text(x);
                    prepare(expected, look);
                    expected << text.c_str();
                    EXPECT_EQ(written(look, orvtest::decimalOf<TypeParam>(x)), expected.str())
                        << shown(look, x);
                    expectAsModel<TypeParam>(look, x);
                }
            }
        }
    }
}

TYPED_TEST(DecimalInsert, UsesUpTheWidthAndNothingElse) {
    std::ostringstream os;
    os << std::setw(10) << std::setfill('*') << std::left << std::showpos << std::setprecision(3)
       << number<TypeParam>(15, -1);
    EXPECT_EQ(os.width(), 0);
    EXPECT_EQ(os.precision(), 3);
    EXPECT_EQ(os.fill(), '*');
    os << number<TypeParam>(-25, -1);
    EXPECT_EQ(os.str(), "+1.5******-2.5");
    EXPECT_TRUE(os.good());
}

TYPED_TEST(DecimalInsert, WritesTextsAroundTheSizeOfTheBuffer) {
    for (std::streamsize precision = 55; precision < 75; ++precision) {
        for (const std::streamsize width : {0, 64, 100}) {
            StreamLook look;
            look.flags |= std::ios::fixed;
            look.precision = precision;
            look.width = width;
            const std::string digits(static_cast<std::size_t>(precision) - 1, '0');
            const std::string text = "1.5" + digits;
            const std::string all =
                std::string(std::max(text.size(), static_cast<std::size_t>(width)) - text.size(),
                            ' ') +
                text;
            EXPECT_EQ(written(look, number<TypeParam>(15, -1)), all);
        }
    }
    StreamLook look;
    look.flags |= std::ios::fixed;
    look.precision = 5000;
    EXPECT_EQ(written(look, number<TypeParam>(5, 0)), "5." + std::string(5000, '0'));
}

TYPED_TEST(DecimalInsert, TakesPrecisionsBeyondAnInt) {
    StreamLook look;
    look.precision = std::numeric_limits<std::streamsize>::max();
    EXPECT_EQ(written(look, number<TypeParam>(1234567, -3)), "1234.567");
    look.precision = std::streamsize{1} << 32U;
    EXPECT_EQ(written(look, number<TypeParam>(1234567, -3)), "1234.567");
    look.flags |= std::ios::fixed;
    look.precision = std::numeric_limits<std::streamsize>::min();
    EXPECT_EQ(written(look, number<TypeParam>(1234567, -3)), "1234.567");
    look.precision = -(std::streamsize{1} << 32U);
    EXPECT_EQ(written(look, number<TypeParam>(1234567, -3)), "1234.567");
}

template <class Decimal>
DecimalDigits randomDigits(orvtest::NumberSource& source) {
    using Layout = LayoutOf<Decimal>;
    DecimalDigits x;
    x.negative = source.coin();
    const int size = source.between(1, Layout::DIGITS);
    // Nines, zeros and fives at the end, that rounding carries and ties.
    const char last = "0599"[source.below(4)];
    const int plain = source.between(0, size);
    for (int i = 0; i < size; ++i) {
        x.digits += i < plain ? static_cast<char>('0' + source.below(10)) : last;
    }
    x.digits.erase(0, std::min(x.digits.find_first_not_of('0'), x.digits.size() - 1));
    x.exponent = source.below(8) == 0 ? source.between(Layout::MIN_EXPONENT, Layout::MAX_EXPONENT)
                                      : source.between(std::max(-45, Layout::MIN_EXPONENT), 6);
    return x;
}

TYPED_TEST(DecimalInsert, WritesRandomNumbersAsTheModel) {
    const std::vector<std::locale> all = locales();
    orvtest::NumberSource source(621);
    for (std::size_t i = orvtest::caseCount(40000); i > 0; --i) {
        StreamLook look;
        look.locale = all[source.below(static_cast<unsigned>(all.size()))];
        look.flags |=
            NOTATIONS[source.below(4)] | marks(source.below(8)) | ADJUSTMENTS[source.below(5)];
        look.precision = source.between(-2, 40);
        look.width = source.below(3) == 0 ? source.between(0, 90) : 0;
        expectAsModel<TypeParam>(look, randomDigits<TypeParam>(source));
        ASSERT_FALSE(this->HasFailure());
    }
}

// Takes so many characters, and then throws or refuses.
class NarrowBuffer : public std::streambuf {
public:
    NarrowBuffer(std::size_t room, bool throws) : room_(room), throws_(throws) {}

    const std::string& text() const { return text_; }

private:
    int_type overflow(int_type c) override {
        if (text_.size() == room_) {
            if (throws_) {
                throw std::runtime_error("full");
            }
            return traits_type::eof();
        }
        text_ += traits_type::to_char_type(c);
        return c;
    }

    std::string text_;
    std::size_t room_;
    bool throws_;
};

TYPED_TEST(DecimalInsert, FailsWithItsBuffer) {
    for (const bool throws : {false, true}) {
        NarrowBuffer buffer(3, throws);
        std::ostream os(&buffer);
        os << number<TypeParam>(12345, 0);
        EXPECT_TRUE(os.bad());
        EXPECT_EQ(buffer.text(), "123");
        os << number<TypeParam>(6, 0);
        EXPECT_EQ(buffer.text(), "123");
        EXPECT_TRUE(os.bad());
    }
}

TYPED_TEST(DecimalInsert, ThrowsAsItsStreamIsToldTo) {
    NarrowBuffer throwing(3, true);
    std::ostream first(&throwing);
    first.exceptions(std::ios::badbit);
    EXPECT_THROW(first << number<TypeParam>(12345, 0), std::runtime_error);
    EXPECT_TRUE(first.bad());

    NarrowBuffer refusing(3, false);
    std::ostream second(&refusing);
    second.exceptions(std::ios::badbit);
    EXPECT_THROW(second << number<TypeParam>(12345, 0), std::ios_base::failure);
    EXPECT_TRUE(second.bad());
}

} // namespace
