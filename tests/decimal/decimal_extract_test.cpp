// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from streams: what is read, what is left, and the state of the stream.
#include "orv/liborvxx/decimal/decimal_io.h"
#include "tests/decimal/decimal_locales.h"
#include "tests/decimal/slow_buffers.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <istream>
#include <iterator>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orvtest::bitsOf;
using orvtest::LayoutOf;
using orvtest::localeWith;
using orvtest::number;
using orvtest::Trickle;
using orvtest::Unbuffered;

constexpr std::ios_base::iostate GOOD = std::ios::goodbit;
constexpr std::ios_base::iostate END = std::ios::eofbit;
constexpr std::ios_base::iostate FAIL = std::ios::failbit;
constexpr std::ios_base::iostate BAD = std::ios::badbit;

std::string rest(std::istream& is) {
    std::string text;
    is.exceptions(GOOD);
    is.clear();
    for (char c = '\0'; is.get(c);) {
        text += c;
    }
    return text;
}

template <class Decimal>
Decimal unread() {
    return number<Decimal>(-77, -2);
}

template <class Decimal>
struct Case {
    std::string text;
    std::ios_base::iostate state;
    std::string rest;
    Decimal value = unread<Decimal>();
};

template <class Decimal>
void expectReadsFrom(std::streambuf& buffer, const std::locale& locale, const Case<Decimal>& c,
                     bool skipsSpace) {
    SCOPED_TRACE("\"" + c.text + "\"");
    std::istream is(&buffer);
    is.imbue(locale);
    if (!skipsSpace) {
        is.unsetf(std::ios::skipws);
    }
    Decimal value = unread<Decimal>();
    EXPECT_EQ(&(is >> value), &is);
    EXPECT_EQ(bitsOf(value), bitsOf(c.value));
    EXPECT_EQ(is.rdstate(), c.state);
    EXPECT_EQ(rest(is), c.rest);
}

// From three kinds of buffers.
template <class Decimal>
void expectReads(const std::locale& locale, const Case<Decimal>& c, bool skipsSpace = true) {
    std::stringbuf whole(c.text);
    expectReadsFrom(whole, locale, c, skipsSpace);
    Trickle trickle(c.text);
    expectReadsFrom(trickle, locale, c, skipsSpace);
    Unbuffered unbuffered(c.text);
    expectReadsFrom(unbuffered, locale, c, skipsSpace);
}

template <class Decimal>
class DecimalExtract : public testing::Test {};

using Decimals = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalExtract, Decimals, );

TYPED_TEST(DecimalExtract, ReadsWhatBelongsToANumber) {
    using D = TypeParam;
    const D infinity = LayoutOf<D>::infinity(false);
    const D minusInfinity = LayoutOf<D>::infinity(true);
    const D nan = LayoutOf<D>::quietNan();
    const Case<D> cases[] = {
        {"12.5", END, "", number<D>(125, -1)},
        {"12.5 ", GOOD, " ", number<D>(125, -1)},
        {"12.50;", GOOD, ";", number<D>(1250, -2)},
        {"12.5x", GOOD, "x", number<D>(125, -1)},
        {"  -12.5\n", GOOD, "\n", number<D>(-125, -1)},
        {" \t\v\f\r\n+1e3", END, "", number<D>(1, 3)},
        {"1E-3,", GOOD, ",", number<D>(1, -3)},
        {"12.", END, "", number<D>(12, 0)},
        {"12.;", GOOD, ";", number<D>(12, 0)},
        {".5", END, "", number<D>(5, -1)},
        {"-0", END, "", D(LayoutOf<D>::encode(true, 0, 0))},
        {"1,5", GOOD, ",5", number<D>(1, 0)},
        {"1.5.5", GOOD, ".5", number<D>(15, -1)},
        {"1-2", GOOD, "-2", number<D>(1, 0)},
        {"inf", END, "", infinity},
        {"-Infinity;", GOOD, ";", minusInfinity},
        {"NaN(1)", GOOD, "(1)", nan},
        {std::string("1\0"
                     "2",
                     3),
         GOOD,
         std::string("\0"
                     "2",
                     2),
         number<D>(1, 0)},
    };
    for (const Case<D>& c : cases) {
        expectReads(std::locale::classic(), c);
    }
}

TYPED_TEST(DecimalExtract, FailsWhereTheLastCharacterCompletesNoNumber) {
    using D = TypeParam;
    const Case<D> cases[] = {
        {"x", FAIL, "x"},
        {"", END | FAIL, ""},
        {"  ", END | FAIL, ""},
        {"  x", FAIL, "x"},
        {"-", END | FAIL, ""},
        {"- 1", FAIL, " 1"},
        {".", END | FAIL, ""},
        {".x", FAIL, "x"},
        {"1e", END | FAIL, ""},
        {"1e+", END | FAIL, ""},
        {"1e+;", FAIL, ";"},
        {"1ex", FAIL, "x"},
        {"in", END | FAIL, ""},
        {"infi", END | FAIL, ""},
        {"infinit;", FAIL, ";"},
        {"nab", FAIL, "b"},
        {"\xA0"
         "1",
         FAIL,
         "\xA0"
         "1"},
    };
    for (const Case<D>& c : cases) {
        expectReads(std::locale::classic(), c);
    }
}

TYPED_TEST(DecimalExtract, SkipsNoSpaceUnlessToldTo) {
    using D = TypeParam;
    for (const Case<D>& c : {
             Case<D>{"1.5", END, "", number<D>(15, -1)},
             Case<D>{"1.5 ", GOOD, " ", number<D>(15, -1)},
             Case<D>{" 1.5", FAIL, " 1.5"},
             Case<D>{"\n1.5", FAIL, "\n1.5"},
             Case<D>{"", END | FAIL, ""},
         }) {
        expectReads(std::locale::classic(), c, false);
    }
}

TYPED_TEST(DecimalExtract, ReadsThePunctuationOfTheLocale) {
    using D = TypeParam;
    const std::locale german = localeWith(',', '.', "\3");
    for (const Case<D>& c : {
             Case<D>{"1.234,5;", GOOD, ";", number<D>(12345, -1)},
             Case<D>{"1.2.34,5", END, "", number<D>(12345, -1)},
             Case<D>{"1,5.", GOOD, ".", number<D>(15, -1)},
             Case<D>{"1.", END | FAIL, ""},
             Case<D>{"1..", FAIL, "."},
             Case<D>{".5", FAIL, ".5"},
         }) {
        expectReads(german, c);
    }
    const std::locale comma = localeWith(',', '.', "");
    expectReads(comma, Case<D>{"1.234,5", GOOD, ".234,5", number<D>(1, 0)});
    expectReads(comma, Case<D>{"1,5.", GOOD, ".", number<D>(15, -1)});
    expectReads(localeWith(',', ' ', "\3"), Case<D>{" 1 2;", GOOD, ";", number<D>(12, 0)});
    expectReads(std::locale("en_IN.UTF-8"), Case<D>{"1,23,456.5", END, "", number<D>(1234565, -1)});
    expectReads(std::locale("de_DE.UTF-8"), Case<D>{"-1.234,5", END, "", number<D>(-12345, -1)});
}

TYPED_TEST(DecimalExtract, DoesNothingWithAmbiguousPunctuation) {
    using D = TypeParam;
    for (const std::locale& locale :
         {localeWith('.', '.', "\3"), localeWith('5', ',', "\3"), localeWith('.', '-', "\3")}) {
        expectReads(locale, Case<D>{"  1.5", GOOD, "1.5"});
        expectReads(locale, Case<D>{"x", GOOD, "x"});
        expectReads(locale, Case<D>{"", END | FAIL, ""}); // which is found before
    }
}

TYPED_TEST(DecimalExtract, ReadsSeveralNumbersInARow) {
    using D = TypeParam;
    std::istringstream is("1.5 -2\n\t3e1;nan");
    D a;
    D b;
    D c;
    is >> a >> b >> c;
    EXPECT_TRUE(is.good());
    EXPECT_EQ(bitsOf(a), bitsOf(number<D>(15, -1)));
    EXPECT_EQ(bitsOf(b), bitsOf(number<D>(-2, 0)));
    EXPECT_EQ(bitsOf(c), bitsOf(number<D>(3, 1)));
    char semicolon = '\0';
    EXPECT_TRUE(is >> semicolon >> a);
    EXPECT_EQ(semicolon, ';');
    EXPECT_EQ(bitsOf(a), orvtest::nanBits<D>());
    EXPECT_EQ(is.rdstate(), END);
    EXPECT_FALSE(is >> b);
    EXPECT_EQ(is.rdstate(), END | FAIL);
    EXPECT_EQ(bitsOf(b), bitsOf(number<D>(-2, 0)));
}

TYPED_TEST(DecimalExtract, ReadsNothingFromAStreamThatHasFailed) {
    using D = TypeParam;
    for (const std::ios_base::iostate state : {END, FAIL, BAD}) {
        std::istringstream is("1.5");
        is.setstate(state);
        D value = unread<D>();
        is >> value;
        EXPECT_EQ(is.rdstate(), state | FAIL);
        EXPECT_EQ(bitsOf(value), bitsOf(unread<D>()));
        EXPECT_EQ(rest(is), "1.5");
    }
}

TYPED_TEST(DecimalExtract, ReadsFromNoBufferAtAll) {
    std::istream is(nullptr);
    TypeParam value = unread<TypeParam>();
    is >> value;
    EXPECT_TRUE(is.bad());
    EXPECT_EQ(bitsOf(value), bitsOf(unread<TypeParam>()));
}

TYPED_TEST(DecimalExtract, LeavesTheWidthAlone) {
    std::istringstream is("123456");
    is.width(3);
    TypeParam value;
    is >> value;
    EXPECT_EQ(bitsOf(value), bitsOf(number<TypeParam>(123456, 0)));
    EXPECT_EQ(is.width(), 3);
}

TYPED_TEST(DecimalExtract, SetsBadbitWhereItsBufferThrows) {
    using D = TypeParam;
    for (std::size_t trap = 0; trap < 5; ++trap) {
        Trickle buffer("12.5;", trap);
        std::istream is(&buffer);
        is >> std::noskipws; // libc++ lets through what its own skipping meets
        D value = unread<D>();
        EXPECT_NO_THROW(is >> value);
        EXPECT_TRUE(is.bad()) << trap;
        EXPECT_EQ(bitsOf(value), bitsOf(unread<D>())) << trap;
    }
}

TYPED_TEST(DecimalExtract, PassesOnWhatItsBufferThrowsIfToldTo) {
    using D = TypeParam;
    for (std::size_t trap = 2; trap < 6; ++trap) {
        for (const std::ios_base::iostate mask : {BAD, BAD | FAIL | END}) {
            Trickle buffer(" 12.5;", trap);
            std::istream is(&buffer);
            is.exceptions(mask);
            D value = unread<D>();
            EXPECT_THROW(is >> value, std::runtime_error);
            EXPECT_EQ(is.rdstate(), BAD);
            EXPECT_EQ(bitsOf(value), bitsOf(unread<D>()));
        }
        Trickle buffer(" 12.5;", trap);
        std::istream is(&buffer);
        is.exceptions(FAIL | END);
        D value = unread<D>();
        EXPECT_NO_THROW(is >> value);
        EXPECT_EQ(is.rdstate(), BAD);
    }
}

TYPED_TEST(DecimalExtract, ThrowsAsItsStreamIsToldTo) {
    using D = TypeParam;
    std::istringstream failing("x");
    failing.exceptions(FAIL);
    D value = unread<D>();
    EXPECT_THROW(failing >> value, std::ios_base::failure);
    EXPECT_EQ(failing.rdstate(), FAIL);
    EXPECT_EQ(bitsOf(value), bitsOf(unread<D>()));

    // At the end of the stream the number is there already.
    std::istringstream ending("1.5");
    ending.exceptions(END);
    EXPECT_THROW(ending >> value, std::ios_base::failure);
    EXPECT_EQ(ending.rdstate(), END);
    EXPECT_EQ(bitsOf(value), bitsOf(number<D>(15, -1)));

    std::istringstream both("1e");
    both.exceptions(END);
    EXPECT_THROW(both >> value, std::ios_base::failure);
    EXPECT_EQ(both.rdstate(), END | FAIL);
    EXPECT_EQ(bitsOf(value), bitsOf(number<D>(15, -1)));

    std::istringstream whole("1.5 ");
    whole.exceptions(FAIL | END | BAD);
    EXPECT_NO_THROW(whole >> value);
}

// A facet that fails to answer from some time on.
class LostPunctuation : public std::numpunct<char> {
public:
    void lose() { isLost_ = true; }

private:
    std::string do_grouping() const override {
        return isLost_ ? throw std::runtime_error("no grouping") : "";
    }

    bool isLost_ = false;
};

TYPED_TEST(DecimalExtract, SetsBadbitWhereItsLocaleThrows) {
    std::istringstream is("1.5");
    auto* const facet = new LostPunctuation;
    is.imbue(std::locale(std::locale::classic(), facet));
    facet->lose();
    TypeParam value = unread<TypeParam>();
    EXPECT_NO_THROW(is >> value);
    EXPECT_EQ(is.rdstate(), BAD);
    EXPECT_EQ(bitsOf(value), bitsOf(unread<TypeParam>()));
}

TYPED_TEST(DecimalExtract, RoundsToTheDigitsOfTheFormat) {
    using D = TypeParam;
    constexpr int DIGITS = LayoutOf<D>::DIGITS;
    const std::string one = "1" + std::string(static_cast<std::size_t>(DIGITS) - 2, '0');
    for (const char* const tail : {"25", "1500000", "2499999999999", "15"}) {
        // One more digit, and more behind it: 10...02|5, 10...01|5.
        std::istringstream is(one + tail);
        D value;
        is >> value;
        D shifted;
        std::istringstream(one + "2e" + std::to_string(std::string(tail).size() - 1)) >> shifted;
        EXPECT_EQ(bitsOf(value), bitsOf(shifted)) << tail;
    }
    D big;
    std::istringstream("1e7000") >> big;
    EXPECT_EQ(bitsOf(big), bitsOf(D(LayoutOf<D>::infinity(false))));
    std::istringstream("1e-7000") >> big;
    EXPECT_EQ(bitsOf(big), bitsOf(number<D>(0, LayoutOf<D>::MIN_EXPONENT)));
}

template <class Decimal>
Decimal anyNumber(orvtest::NumberSource& source) {
    using Layout = LayoutOf<Decimal>;
    std::uint64_t coefficient = source.bits() >> source.below(64);
    std::uint64_t high = 0;
    if constexpr (Layout::DIGITS < 20) {
        coefficient %= Layout::MAX_COEFFICIENT + 1;
    } else {
        high = source.coin() ? 0 : source.bits() >> 16U >> source.below(48);
    }
    const int exponent = source.coin() ? source.between(-20, 4)
                                       : source.between(Layout::MIN_EXPONENT, Layout::MAX_EXPONENT);
    return Layout::encode(source.coin(), exponent, coefficient, high);
}

TYPED_TEST(DecimalExtract, ReadsBackWhatIsWritten) {
    using D = TypeParam;
    const std::locale all[] = {std::locale::classic(), std::locale("de_DE.UTF-8"),
                               std::locale("en_IN.UTF-8"), localeWith(',', ' ', "\3"),
                               localeWith('.', '\'', "\1\2")};
    constexpr std::ios_base::fmtflags NOTATIONS[] = {{}, std::ios::scientific};
    orvtest::NumberSource source(623);
    for (std::size_t i = orvtest::caseCount(30000); i > 0; --i) {
        std::stringstream stream;
        stream.imbue(all[source.below(std::size(all))]);
        stream.flags(NOTATIONS[source.below(2)] | std::ios::skipws);
        stream.precision(0); // all digits
        const D written = anyNumber<D>(source);
        stream << written << ';';
        D value;
        ASSERT_TRUE(stream >> value) << stream.str();
        ASSERT_EQ(bitsOf(value), bitsOf(written)) << stream.str();
        ASSERT_EQ(stream.peek(), ';');
    }
}

} // namespace
