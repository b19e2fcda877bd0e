// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers over streams of `char16`: the same as over `char`, but for the marks that
/// a byte cannot be.
#include "orv/liborvxx/decimal/decimal_io.h"
#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/num_get.h"
#include "orv/liborvxx/locale/num_put.h"
#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/locale/ustringstream.h"
#include "orv/liborvxx/text/cvtstr.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/decimal/decimal_locales.h"
#include "tests/decimal/decimal_u16_locales.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <istream>
#include <iterator>
#include <locale>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <typeinfo>
#include <utility>

namespace {

using namespace orv::literals;

using orv::char16;
using orv::ustring;
using orv::ustring_ref;
using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orvtest::bitsOf;
using orvtest::german;
using orvtest::LayoutOf;
using orvtest::locale16;
using orvtest::localeNumber;
using orvtest::LOCALES;
using orvtest::number;
using orvtest::plain16;
using orvtest::wide;

constexpr std::ios_base::iostate GOOD = std::ios::goodbit;
constexpr std::ios_base::iostate END = std::ios::eofbit;
constexpr std::ios_base::iostate FAIL = std::ios::failbit;
constexpr std::ios_base::iostate BAD = std::ios::badbit;

template <class Decimal>
class DecimalStream16 : public testing::Test {};

using Decimals = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalStream16, Decimals, );

// Writing.

struct Look {
    std::ios_base::fmtflags flags{};
    std::streamsize precision = 6;
    std::streamsize width = 0;
    char fill = ' ';
};

template <class CharT, class Decimal>
std::basic_string<CharT> written(const std::locale& locale, const Look& look, const Decimal& x) {
    std::basic_ostringstream<CharT> os;
    os.imbue(locale);
    os.flags(look.flags);
    os.precision(look.precision);
    os.width(look.width);
    os.fill(CharT(static_cast<char16_t>(static_cast<unsigned char>(look.fill))));
    EXPECT_EQ(&(os << x), &os);
    EXPECT_TRUE(os.good());
    EXPECT_EQ(os.width(), 0);
    return os.str();
}

template <class Decimal>
Decimal anyNumber(orvtest::NumberSource& source) {
    using Layout = LayoutOf<Decimal>;
    if (source.below(20) == 0) {
        return source.coin() ? Layout::quietNan() : Layout::infinity(source.coin());
    }
    const std::uint64_t coefficient =
        (source.bits() >> source.below(64)) % (std::uint64_t{1} << 23U);
    const int exponent = source.below(4) != 0
                             ? source.between(-12, 2)
                             : source.between(Layout::MIN_EXPONENT, Layout::MAX_EXPONENT);
    return Layout::encode(source.coin(), exponent, coefficient);
}

Look anyLook(orvtest::NumberSource& source) {
    constexpr std::ios_base::fmtflags NOTATIONS[] = {
        {}, std::ios::fixed, std::ios::scientific, std::ios::fixed | std::ios::scientific};
    constexpr std::ios_base::fmtflags ADJUSTMENTS[] = {
        {}, std::ios::left, std::ios::right, std::ios::internal};
    constexpr std::ios_base::fmtflags MARKS[] = {std::ios::showpos, std::ios::showpoint,
                                                 std::ios::uppercase};
    Look look;
    look.flags = NOTATIONS[source.below(4)] | ADJUSTMENTS[source.below(4)];
    for (const std::ios_base::fmtflags mark : MARKS) {
        look.flags |= source.coin() ? mark : std::ios_base::fmtflags{};
    }
    look.precision = source.below(8) == 0 ? source.between(50, 70) : source.between(-2, 20);
    look.width = source.coin() ? source.between(0, 90) : 0;
    look.fill = " *0\xA9"[source.below(4)];
    return look;
}

TYPED_TEST(DecimalStream16, WritesWhatANarrowStreamWrites) {
    orvtest::NumberSource source(8101);
    for (unsigned which = 0; which < LOCALES; ++which) {
        const std::locale locale = localeNumber(which);
        for (std::size_t i = orvtest::caseCount(4000); i > 0; --i) {
            const Look look = anyLook(source);
            const auto x = anyNumber<TypeParam>(source);
            const std::string narrow = written<char>(locale, look, x);
            ASSERT_EQ(written<char16>(locale, look, x), wide(narrow))
                << which << ": " << narrow << ", flags " << look.flags;
        }
    }
}

TYPED_TEST(DecimalStream16, WritesMarksThatAByteCannotBe) {
    const auto x = number<TypeParam>(-1234567, -1);
    Look look;
    look.flags = std::ios::fixed;
    look.precision = 2;
    // As in French: NARROW NO-BREAK SPACE.
    EXPECT_EQ(written<char16>(locale16(u',', u'\u202F', "\3"), look, x), u"-123\u202F456,70"_u);
    // As in Persian.
    EXPECT_EQ(written<char16>(locale16(u'\u066B', u'\u066C', "\3"), look, x),
              u"-123\u066C456\u066B70"_u);
    // Units are not looked at: halves of a pair, the end mark, and those of the low byte of ASCII.
    EXPECT_EQ(written<char16>(locale16(u'\xD800', u'\xDC00', "\3"), look, x),
              ustring(u"-123"_u) + char16(u'\xDC00') + ustring(u"456"_u) + char16(u'\xD800') +
                  ustring(u"70"_u));
    EXPECT_EQ(written<char16>(locale16(u'\uFFFF', u'\u0130', "\3"), look, x),
              u"-123\u0130456\uFFFF70"_u);
    EXPECT_EQ(written<char16>(locale16(u'\x80', u'\x81', "\3"), look, x), u"-123\x81"
                                                                          u"456\x80"
                                                                          u"70"_u);
    EXPECT_EQ(written<char16>(locale16(u'\x81', u'\x80', "\3"), look, x), u"-123\x80"
                                                                          u"456\x81"
                                                                          u"70"_u);
    EXPECT_EQ(written<char16>(locale16(u'\u2E31', u'\u2E31', "\3"), look, x),
              u"-123\u2E31456\u2E3170"_u);
}

TYPED_TEST(DecimalStream16, WritesTheMarksInLongTexts) {
    Look look;
    look.flags = std::ios::fixed;
    const std::locale french = locale16(u',', u'\u202F', "\3");
    const auto x = number<TypeParam>(1234, 0);
    const ustring whole = u"1\u202F234,"_u.to_string();
    for (std::size_t places = 50; places < 70; ++places) {
        look.precision = static_cast<std::streamsize>(places);
        EXPECT_EQ(written<char16>(french, look, x), whole + ustring(places, u'0'));
    }
}

TYPED_TEST(DecimalStream16, PadsWithAnyUnit) {
    std::basic_ostringstream<char16> os;
    os.imbue(plain16());
    os.fill(u'\u2007');
    os.width(6);
    os << number<TypeParam>(15, -1);
    os.width(5);
    os.setf(std::ios::left, std::ios::adjustfield);
    os << number<TypeParam>(-2, 0) << number<TypeParam>(3, 0);
    EXPECT_EQ(os.str(), u"\u2007\u2007\u20071.5-2\u2007\u2007\u20073"_u);
}

TYPED_TEST(DecimalStream16, ThrowsWithoutPunctuationWhereItWrites) {
    std::basic_ostringstream<char16> os;
    os.imbue(std::locale(std::locale::classic(), new std::ctype<char16>));
    EXPECT_THROW(os << number<TypeParam>(1, 0), std::bad_cast);
    EXPECT_TRUE(os.good());
    EXPECT_EQ(os.str(), u""_u);
}

// Takes so many units.
class FullBuffer : public std::basic_streambuf<char16> {
public:
    explicit FullBuffer(std::size_t room) : room_(room) {}

    const ustring& text() const { return text_; }

private:
    int_type overflow(int_type c) override {
        if (text_.size() == room_) {
            return traits_type::eof();
        }
        text_ += traits_type::to_char_type(c);
        return c;
    }

    ustring text_;
    std::size_t room_;
};

TYPED_TEST(DecimalStream16, FailsWithItsBuffer) {
    FullBuffer buffer(3);
    std::basic_ostream<char16> os(&buffer);
    os.imbue(plain16());
    os << number<TypeParam>(12345, 0);
    EXPECT_EQ(os.rdstate(), BAD);
    EXPECT_EQ(buffer.text(), u"123"_u);
    os << number<TypeParam>(1, 0);
    EXPECT_EQ(buffer.text(), u"123"_u);
}

// Reading.

template <class CharT>
struct Outcome {
    std::string value;
    std::ios_base::iostate state;
    std::basic_string<CharT> rest;
};

template <class Decimal, class CharT>
Outcome<CharT> outcomeOf(const std::locale& locale, const std::basic_string<CharT>& text,
                         bool skipsSpace = true) {
    std::basic_istringstream<CharT> is(text);
    is.imbue(locale);
    if (!skipsSpace) {
        is.unsetf(std::ios::skipws);
    }
    auto value = number<Decimal>(-77, -2);
    EXPECT_EQ(&(is >> value), &is);
    Outcome<CharT> outcome = {bitsOf(value), is.rdstate(), {}};
    is.clear();
    for (CharT c{}; is.get(c);) {
        outcome.rest += c;
    }
    return outcome;
}

template <class Decimal>
void expectReadsAlike(const std::locale& locale, const std::string& text, bool skipsSpace = true) {
    const Outcome<char> narrow = outcomeOf<Decimal>(locale, text, skipsSpace);
    const Outcome<char16> units = outcomeOf<Decimal>(locale, wide(text), skipsSpace);
    ASSERT_EQ(units.value, narrow.value) << '"' << text << '"';
    ASSERT_EQ(units.state, narrow.state) << '"' << text << '"';
    ASSERT_EQ(units.rest, wide(narrow.rest)) << '"' << text << '"';
}

TYPED_TEST(DecimalStream16, ReadsWhatANarrowStreamReads) {
    const std::string texts[] = {"12.5",
                                 "12.5 ",
                                 "12.50;",
                                 "  -12.5\n",
                                 " \t\v\f\r\n+1e3",
                                 "1E-3,",
                                 "12.",
                                 ".5",
                                 "-0",
                                 "1,5",
                                 "1.5.5",
                                 "1-2",
                                 "inf",
                                 "-Infinity;",
                                 "-infin",
                                 "NaN(1)",
                                 "1e+;",
                                 "1e",
                                 "+-1",
                                 "",
                                 " ",
                                 "x",
                                 ".",
                                 "1.234.567,89",
                                 "1,234,567.89",
                                 "1,,2",
                                 "1,",
                                 "1'2",
                                 "1\240234\2675",
                                 "0x10",
                                 "12345678901234567890123456789012345678901234567890",
                                 "1e999999999999999999999",
                                 std::string("1\0"
                                             "2",
                                             3)};
    for (unsigned which = 0; which < LOCALES; ++which) {
        const std::locale locale = localeNumber(which);
        for (const std::string& text : texts) {
            expectReadsAlike<TypeParam>(locale, text);
            expectReadsAlike<TypeParam>(locale, text, false);
        }
    }
}

TYPED_TEST(DecimalStream16, ReadsRandomTextsAsANarrowStreamDoes) {
    constexpr char ALPHABET[] = "0123456789+-.,eE'infaty \xA0\xB7\x80";
    orvtest::NumberSource source(8102);
    for (unsigned which = 0; which < LOCALES; ++which) {
        const std::locale locale = localeNumber(which);
        for (std::size_t i = orvtest::caseCount(4000); i > 0; --i) {
            std::string text;
            for (int size = source.between(0, 12); size > 0; --size) {
                const unsigned among = source.coin() ? 10 : sizeof ALPHABET - 1;
                text += ALPHABET[source.below(among)];
            }
            // NO-BREAK SPACE is white space in UTF-16 alone.
            if (text.find_first_not_of(" \xA0") < text.find('\xA0')) {
                expectReadsAlike<TypeParam>(locale, text, source.coin());
                ASSERT_FALSE(this->HasFailure()) << which;
            }
        }
    }
}

template <class Decimal>
void expectReads(const std::locale& locale, ustring_ref text, const Decimal& value,
                 std::ios_base::iostate state, ustring_ref rest) {
    const Outcome<char16> outcome = outcomeOf<Decimal>(locale, text.to_string());
    EXPECT_EQ(outcome.value, bitsOf(value));
    EXPECT_EQ(outcome.state, state);
    EXPECT_EQ(outcome.rest, rest);
}

TYPED_TEST(DecimalStream16, ReadsMarksThatAByteCannotBe) {
    using D = TypeParam;
    const std::locale french = locale16(u',', u'\u202F', "\3");
    expectReads(french, u"-123\u202F456,7"_u, number<D>(-1234567, -1), END, u""_u);
    expectReads(french, u"1\u202F\u202F2"_u, number<D>(-77, -2), FAIL, u"\u202F2"_u);
    expectReads(french, u"1/2"_u, number<D>(1, 0), GOOD, u"/2"_u);
    expectReads(french, u"1.5"_u, number<D>(1, 0), GOOD, u".5"_u);
    // A unit that shares its low byte with the separator, or with the byte that stands for it.
    expectReads(french, u"1\u012F2"_u, number<D>(1, 0), GOOD, u"\u012F2"_u);
    expectReads(french,
                u"1\x81"
                u"2"_u,
                number<D>(1, 0), GOOD,
                u"\x81"
                u"2"_u);
    const std::locale persian = locale16(u'\u066B', u'\u066C', "\3");
    expectReads(persian, u"1\u066C234\u066B5;"_u, number<D>(12345, -1), GOOD, u";"_u);
    expectReads(persian, u"1\u066B2\u066B3"_u, number<D>(12, -1), GOOD, u"\u066B3"_u);
    expectReads(persian, u"\u066B5"_u, number<D>(5, -1), END, u""_u);
    expectReads(persian,
                u"1\x80"
                u"5"_u,
                number<D>(1, 0), GOOD,
                u"\x80"
                u"5"_u);
    expectReads(persian, u"1,2"_u, number<D>(1, 0), GOOD, u",2"_u);
    // The separator counts only where digits are grouped.
    expectReads(locale16(u',', u'\u202F', ""), u"1\u202F2"_u, number<D>(1, 0), GOOD, u"\u202F2"_u);
    // The same mark for both is no punctuation.
    expectReads(locale16(u'\u2E31', u'\u2E31', "\3"), u"1"_u, number<D>(-77, -2), GOOD, u"1"_u);
}

TYPED_TEST(DecimalStream16, ReadsAsciiDigitsAndLettersOnly) {
    using D = TypeParam;
    expectReads(plain16(), u"1\u0662"_u, number<D>(1, 0), GOOD, u"\u0662"_u);
    expectReads(plain16(), u"\uFF11"_u, number<D>(-77, -2), FAIL, u"\uFF11"_u);
    expectReads(plain16(), u"1\u0131"_u, number<D>(1, 0), GOOD, u"\u0131"_u); // low byte '1'
    expectReads(plain16(), u"\u012D1"_u, number<D>(-77, -2), FAIL, u"\u012D1"_u);
    expectReads(plain16(), u"1\u0165"_u, number<D>(1, 0), GOOD, u"\u0165"_u);
    expectReads(plain16(), u"1\xD83D\xDE00"_u, number<D>(1, 0), GOOD, u"\xD83D\xDE00"_u);
}

TYPED_TEST(DecimalStream16, SkipsTheWhiteSpaceOfItsLocale) {
    expectReads(plain16(), u"\u3000\u2028 1.5\u3000"_u, number<TypeParam>(15, -1), GOOD,
                u"\u3000"_u);
}

TYPED_TEST(DecimalStream16, SetsBadbitWithoutPunctuationWhereItReads) {
    const std::locale bare(std::locale::classic(), new std::ctype<char16>);
    expectReads(bare, u"1.5"_u, number<TypeParam>(-77, -2), BAD, u"1.5"_u);

    std::basic_istringstream<char16> is(u"1.5"_u);
    is.imbue(bare);
    is.exceptions(BAD);
    TypeParam value;
    EXPECT_THROW(is >> value, std::bad_cast);
}

TYPED_TEST(DecimalStream16, ThrowsAsItsStreamIsToldTo) {
    std::basic_istringstream<char16> is(u"x"_u);
    is.imbue(plain16());
    is.exceptions(FAIL);
    TypeParam value;
    EXPECT_THROW(is >> value, std::ios_base::failure);
    EXPECT_EQ(is.rdstate(), FAIL);
}

TYPED_TEST(DecimalStream16, ReadsBackWhatItWrites) {
    const std::locale all[] = {plain16(), german(), locale16(u',', u'\u202F', "\3"),
                               locale16(u'\u066B', u'\u066C', "\1\2")};
    orvtest::NumberSource source(8103);
    for (std::size_t i = orvtest::caseCount(20000); i > 0; --i) {
        std::basic_stringstream<char16> stream;
        stream.imbue(all[source.below(std::size(all))]);
        stream.precision(0); // all digits
        const auto x = anyNumber<TypeParam>(source);
        stream << x << u";"_u;
        TypeParam value;
        stream >> value;
        ASSERT_EQ(stream.rdstate(), GOOD);
        ASSERT_EQ(bitsOf(value), bitsOf(x));
        ASSERT_EQ(stream.peek(), u';');
    }
}

TYPED_TEST(DecimalStream16, WorksWithTheStreamsOfTheLibrary) {
    orv::ustringstream stream;
    stream << u"sum: " << number<TypeParam>(150, -2) << number<TypeParam>(-2, 0) << u"; "_u;
    EXPECT_EQ(stream.str(), u"sum: 1.50-2; "_u);
    orv::ustring word;
    TypeParam first;
    TypeParam second;
    stream >> word >> first >> second;
    EXPECT_EQ(bitsOf(first), bitsOf(number<TypeParam>(150, -2)));
    EXPECT_EQ(bitsOf(second), bitsOf(number<TypeParam>(-2, 0)));
    EXPECT_EQ(stream.peek(), u';');
}

} // namespace
