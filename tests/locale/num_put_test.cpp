// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers as text over char16: digits, flags, widths and punctuation.
#include "orv/liborvxx/locale/num_put.h"

#include "tests/locale/number_facets.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

namespace {

using orvtest::GROUPED;
using orvtest::Look;
using orvtest::PLAIN;
using orvtest::Punctuation;
using orvtest::writeNumber;
using Ios = std::ios_base;
using Facet = std::num_put<orv::char16>;

constexpr auto HEX_FLOAT = Ios::fixed | Ios::scientific;
constexpr char MAX = std::numeric_limits<char>::max();

static_assert(std::is_base_of_v<std::locale::facet, Facet>);
static_assert(std::is_same_v<Facet::char_type, orv::char16>);
static_assert(std::is_same_v<Facet::iter_type, std::ostreambuf_iterator<orv::char16>>);

TEST(NumPut, WritesIntegersOfAllTypes) {
    EXPECT_EQ(writeNumber(0L), u"0");
    EXPECT_EQ(writeNumber(-5L), u"-5");
    EXPECT_EQ(writeNumber(1234567890UL), u"1234567890");
    EXPECT_EQ(writeNumber(std::numeric_limits<long long>::min()), u"-9223372036854775808");
    EXPECT_EQ(writeNumber(std::numeric_limits<unsigned long long>::max()), u"18446744073709551615");
    EXPECT_EQ(writeNumber(true), u"1");
    EXPECT_EQ(writeNumber(false), u"0");
}

TEST(NumPut, WritesIntegersInEveryBase) {
    const auto hex = Ios::hex | Ios::showbase;
    const auto oct = Ios::oct | Ios::showbase;
    EXPECT_EQ(writeNumber(255L, {Ios::hex}), u"ff");
    EXPECT_EQ(writeNumber(255L, {hex}), u"0xff");
    EXPECT_EQ(writeNumber(255L, {hex | Ios::uppercase}), u"0XFF");
    EXPECT_EQ(writeNumber(8L, {Ios::oct}), u"10");
    EXPECT_EQ(writeNumber(8L, {oct}), u"010");
    EXPECT_EQ(writeNumber(0L, {hex}), u"0");
    EXPECT_EQ(writeNumber(0L, {oct}), u"0");
    EXPECT_EQ(writeNumber(-1LL, {Ios::hex}), u"ffffffffffffffff");
    EXPECT_EQ(writeNumber(-1LL, {oct}), u"01777777777777777777777");
    EXPECT_EQ(writeNumber(-1LL, {Ios::oct | Ios::hex}), u"-1");
    EXPECT_EQ(writeNumber(true, {hex}), u"0x1");
}

TEST(NumPut, ShowsThePlusOfSignedIntegersInDecimal) {
    EXPECT_EQ(writeNumber(5L, {Ios::showpos}), u"+5");
    EXPECT_EQ(writeNumber(0LL, {Ios::showpos}), u"+0");
    EXPECT_EQ(writeNumber(5UL, {Ios::showpos}), u"5");
    EXPECT_EQ(writeNumber(5L, {Ios::showpos | Ios::hex}), u"5");
    EXPECT_EQ(writeNumber(true, {Ios::showpos}), u"+1");
}

TEST(NumPut, Pads) {
    const auto hex = Ios::hex | Ios::showbase;
    const auto oct = Ios::oct | Ios::showbase;
    EXPECT_EQ(writeNumber(-5L, {Ios::dec, 6, 5, PLAIN}), u"***-5");
    EXPECT_EQ(writeNumber(-5L, {Ios::right, 6, 5, PLAIN}), u"***-5");
    EXPECT_EQ(writeNumber(-5L, {Ios::left, 6, 5, PLAIN}), u"-5***");
    EXPECT_EQ(writeNumber(-5L, {Ios::internal, 6, 5, PLAIN}), u"-***5");
    EXPECT_EQ(writeNumber(5L, {Ios::internal, 6, 5, PLAIN}), u"****5");
    EXPECT_EQ(writeNumber(5L, {Ios::internal | hex, 6, 5, PLAIN}), u"0x**5");
    EXPECT_EQ(writeNumber(5L, {Ios::internal | oct, 6, 5, PLAIN}), u"***05");
    EXPECT_EQ(writeNumber(5L, {Ios::left | Ios::internal, 6, 5, PLAIN}), u"****5");
    EXPECT_EQ(writeNumber(12345L, {Ios::dec, 6, 5, PLAIN}), u"12345");
    EXPECT_EQ(writeNumber(12345L, {Ios::dec, 6, -9, PLAIN}), u"12345");
    EXPECT_EQ(writeNumber(-1.5, {Ios::internal, 6, 7, PLAIN}), u"-***1.5");
    EXPECT_EQ(writeNumber(1.5, {Ios::internal | HEX_FLOAT, 6, 10, PLAIN}), u"0x**1.8p+0");
    EXPECT_EQ(writeNumber(-1.5, {Ios::internal | HEX_FLOAT, 6, 10, PLAIN}), u"-*0x1.8p+0");
    EXPECT_EQ(writeNumber(true, {Ios::internal | Ios::boolalpha, 6, 6, PLAIN}), u"**true");
    EXPECT_EQ(writeNumber(true, {Ios::left | Ios::boolalpha, 6, 6, PLAIN}), u"true**");
    EXPECT_EQ(writeNumber(7L, {Ios::dec, 6, 1000, PLAIN}), std::u16string(999, u'*') + u"7");
}

TEST(NumPut, WritesNamesOfTruthValues) {
    const Punctuation hindi{u'.', u',', "", u"\u0939\u093E\u0901", u""};
    EXPECT_EQ(writeNumber(true, {Ios::boolalpha}), u"true");
    EXPECT_EQ(writeNumber(false, {Ios::boolalpha}), u"false");
    EXPECT_EQ(writeNumber(true, {Ios::boolalpha, 6, 4, hindi}), u"*\u0939\u093E\u0901");
    EXPECT_EQ(writeNumber(false, {Ios::boolalpha, 6, 0, hindi}), u"");
}

TEST(NumPut, WritesPointersInSmallHexadecimal) {
    const auto at = [](std::uintptr_t address) { return std::bit_cast<const void*>(address); };
    EXPECT_EQ(writeNumber(at(0xAB), {Ios::oct | Ios::uppercase}), u"0xab");
    EXPECT_EQ(writeNumber(at(0)), u"0");
    EXPECT_EQ(writeNumber(at(0xAB), {Ios::internal, 6, 8, PLAIN}), u"0x****ab");
}

TEST(NumPut, SeparatesGroups) {
    EXPECT_EQ(writeNumber(1234567L, {Ios::dec, 6, 0, GROUPED}), u"1.234.567");
    EXPECT_EQ(writeNumber(-123L, {Ios::dec, 6, 0, GROUPED}), u"-123");
    EXPECT_EQ(writeNumber(1234L, {Ios::dec, 6, 8, GROUPED}), u"***1.234");
    EXPECT_EQ(writeNumber(0x12345L, {Ios::hex | Ios::showbase, 6, 0, GROUPED}), u"0x12.345");
    EXPECT_EQ(writeNumber(01234567L, {Ios::oct | Ios::showbase, 6, 0, GROUPED}), u"01.234.567");
    EXPECT_EQ(writeNumber(1234567.0, {Ios::fixed, 1, 0, GROUPED}), u"1.234.567,0");
    EXPECT_EQ(writeNumber(1234567.0, {Ios::dec, 10, 0, GROUPED}), u"1.234.567");
    EXPECT_EQ(writeNumber(1234567.0, {Ios::dec, 6, 0, GROUPED}), u"1,23457e+06");
    EXPECT_EQ(writeNumber(1e10, {Ios::fixed, 0, 0, GROUPED}), u"10.000.000.000");
    EXPECT_EQ(writeNumber(-1e3L, {Ios::fixed, 2, 0, GROUPED}), u"-1.000,00");
    EXPECT_EQ(writeNumber(1234567L, {Ios::dec, 6, 0, {u'.', u',', "\3\2"}}), u"12,34,567");
    EXPECT_EQ(writeNumber(7654321432L, {Ios::dec, 6, 0, {u'.', u',', {1, 2, 3}}}),
              u"7,654,321,43,2");
    EXPECT_EQ(writeNumber(123L, {Ios::dec, 6, 0, {u'.', u'\u066C', "\1"}}), u"1\u066C2\u066C3");
    EXPECT_EQ(writeNumber(1234.5, {Ios::dec, 6, 0, {u'.', u'.', "\3"}}), u"1.234.5");
    // Nothing is separated left of a size that is no size.
    for (const char last : {MAX, char{0}, static_cast<char>(-1)}) {
        EXPECT_EQ(writeNumber(1234567L, {Ios::dec, 6, 0, {u'.', u',', {3, last}}}), u"1234,567");
        EXPECT_EQ(writeNumber(1234567L, {Ios::dec, 6, 0, {u'.', u',', {last, 3}}}), u"1234567");
    }
    // A hexadecimal number has one digit before the point, and its prefix is none.
    EXPECT_EQ(writeNumber(1.5, {HEX_FLOAT, 6, 0, {u',', u'.', "\1"}}), u"0x1,8p+0");
    EXPECT_EQ(
        writeNumber(std::numeric_limits<double>::infinity(), {Ios::dec, 6, 0, {u',', u'.', "\1"}}),
        u"inf");
}

TEST(NumPut, WritesFloatsInGeneral) {
    EXPECT_EQ(writeNumber(0.0), u"0");
    EXPECT_EQ(writeNumber(-0.0), u"-0");
    EXPECT_EQ(writeNumber(1.0), u"1");
    EXPECT_EQ(writeNumber(0.1), u"0.1");
    EXPECT_EQ(writeNumber(123456.0), u"123456");
    EXPECT_EQ(writeNumber(1234567.0), u"1.23457e+06");
    EXPECT_EQ(writeNumber(999999.5), u"1e+06");
    EXPECT_EQ(writeNumber(0.0001), u"0.0001");
    EXPECT_EQ(writeNumber(0.00001), u"1e-05");
    EXPECT_EQ(writeNumber(0.000099999996), u"0.0001");
    EXPECT_EQ(writeNumber(1e100), u"1e+100");
    EXPECT_EQ(writeNumber(1e-300L), u"1e-300");
    EXPECT_EQ(writeNumber(1e4000L), u"1e+4000");
    EXPECT_EQ(writeNumber(12.5, {Ios::dec, 0, 0, PLAIN}), u"1e+01");
    EXPECT_EQ(writeNumber(12.5, {Ios::dec, -1, 0, PLAIN}), u"12.5");
    EXPECT_EQ(writeNumber(1e5, {Ios::uppercase, 3, 0, PLAIN}), u"1E+05");
    EXPECT_EQ(writeNumber(0.1, {Ios::dec, 17, 0, PLAIN}), u"0.10000000000000001");
    EXPECT_EQ(writeNumber(1.5, {Ios::showpoint | Ios::showpos, 6, 0, PLAIN}), u"+1.50000");
    EXPECT_EQ(writeNumber(100000.0, {Ios::showpoint, 6, 0, PLAIN}), u"100000.");
    EXPECT_EQ(writeNumber(0.0, {Ios::showpoint, 6, 0, PLAIN}), u"0.00000");
    // Where some C libraries drop the zero.
    EXPECT_EQ(writeNumber(99.5, {Ios::showpoint, 2, 0, PLAIN}), u"1.0e+02");
}

TEST(NumPut, WritesFloatsFixedAndScientific) {
    EXPECT_EQ(writeNumber(1.5, {Ios::fixed, 2, 0, PLAIN}), u"1.50");
    EXPECT_EQ(writeNumber(0.0, {Ios::fixed, 0, 0, PLAIN}), u"0");
    EXPECT_EQ(writeNumber(0.0, {Ios::fixed | Ios::showpoint, 0, 0, PLAIN}), u"0.");
    EXPECT_EQ(writeNumber(1e22, {Ios::fixed, 1, 0, PLAIN}), u"10000000000000000000000.0");
    EXPECT_EQ(writeNumber(1e-10, {Ios::fixed, 5, 0, PLAIN}), u"0.00000");
    EXPECT_EQ(writeNumber(1e-4900L, {Ios::fixed, 5, 0, PLAIN}), u"0.00000");
    EXPECT_EQ(writeNumber(0.999, {Ios::fixed, 2, 0, PLAIN}), u"1.00");
    EXPECT_EQ(writeNumber(12345.0, {Ios::scientific, 2, 0, PLAIN}), u"1.23e+04");
    EXPECT_EQ(writeNumber(12345.0, {Ios::scientific | Ios::uppercase, 0, 0, PLAIN}), u"1E+04");
    EXPECT_EQ(writeNumber(0.0, {Ios::scientific, 3, 0, PLAIN}), u"0.000e+00");
    EXPECT_EQ(writeNumber(1.0, {Ios::scientific | Ios::showpoint, 0, 0, PLAIN}), u"1.e+00");
    using Limits = std::numeric_limits<long double>;
    EXPECT_EQ(writeNumber(Limits::denorm_min(), {Ios::scientific, 3, 0, PLAIN}),
              Limits::digits == 113  ? u"6.475e-4966"
              : Limits::digits == 64 ? u"3.645e-4951"
                                     : u"4.941e-324");
}

TEST(NumPut, RoundsTiesToEven) {
    EXPECT_EQ(writeNumber(0.5, {Ios::fixed, 0, 0, PLAIN}), u"0");
    EXPECT_EQ(writeNumber(1.5, {Ios::fixed, 0, 0, PLAIN}), u"2");
    EXPECT_EQ(writeNumber(2.5, {Ios::fixed, 0, 0, PLAIN}), u"2");
    EXPECT_EQ(writeNumber(0.125, {Ios::fixed, 2, 0, PLAIN}), u"0.12");
    EXPECT_EQ(writeNumber(0.375, {Ios::fixed, 2, 0, PLAIN}), u"0.38");
    EXPECT_EQ(writeNumber(1234565.0), u"1.23456e+06");
    EXPECT_EQ(writeNumber(1234575.0), u"1.23458e+06");
    EXPECT_EQ(writeNumber(9999995.0), u"1e+07");
    EXPECT_EQ(writeNumber(2.675, {Ios::fixed, 2, 0, PLAIN}), u"2.67");
    EXPECT_EQ(writeNumber(0x1p-60, {Ios::fixed, 59, 0, PLAIN}),
              u"0.00000000000000000086736173798840354720596224069595336914062");
    EXPECT_EQ(writeNumber(0x1p-1L, {Ios::fixed, 0, 0, PLAIN}), u"0");
    if (std::numeric_limits<long double>::digits == 64) {
        // Above the middle by less than 2^-64 of the last place.
        EXPECT_EQ(writeNumber(0.05L, {Ios::fixed, 1, 0, PLAIN}), u"0.1");
        EXPECT_EQ(writeNumber(0.025L, {Ios::fixed, 2, 0, PLAIN}), u"0.03");
        EXPECT_EQ(writeNumber(0.00005L, {Ios::fixed, 4, 0, PLAIN}), u"0.0001");
    }
}

TEST(NumPut, RoundsToTheFirstPlaceBeforeTheDigits) {
    const std::u16string zeros = u"0." + std::u16string(18, u'0');
    EXPECT_EQ(writeNumber(6e-20, {Ios::fixed, 19, 0, PLAIN}), zeros + u"1");
    EXPECT_EQ(writeNumber(4e-20, {Ios::fixed, 19, 0, PLAIN}), zeros + u"0");
    EXPECT_EQ(writeNumber(9e-21, {Ios::fixed, 19, 0, PLAIN}), zeros + u"0");
    EXPECT_EQ(writeNumber(0.0, {Ios::fixed, 19, 0, PLAIN}), zeros + u"0");
}

TEST(NumPut, WritesEveryDigitThatIsAskedFor) {
    const auto text = writeNumber(0.1, {Ios::fixed, 5000, 0, PLAIN});
    EXPECT_EQ(text.substr(0, 57), u"0.1000000000000000055511151231257827021181583404541015625");
    EXPECT_EQ(text.substr(57), std::u16string(5002 - 57, u'0'));
    const auto least =
        writeNumber(std::numeric_limits<double>::denorm_min(), {Ios::scientific, 760, 0, PLAIN});
    EXPECT_EQ(least.substr(0, 12), u"4.9406564584");
    EXPECT_EQ(least.substr(740), u"5334472656250000000000e-324");
    const auto most = writeNumber(std::numeric_limits<double>::max(), {Ios::fixed, 1, 0, PLAIN});
    EXPECT_EQ(most.size(), 311U);
    EXPECT_EQ(most.substr(290), u"0404026184124858368.0");
    EXPECT_EQ(writeNumber(0.5, {Ios::fixed, 1000001, 0, PLAIN}),
              u"0.5" + std::u16string(1000000, u'0'));
    if (std::numeric_limits<long double>::digits == 64) {
        const auto longest = writeNumber(std::numeric_limits<long double>::denorm_min(),
                                         {Ios::fixed, 16445, 0, PLAIN});
        EXPECT_EQ(longest.size(), 16447U);
        EXPECT_EQ(longest.substr(4950, 7), u"0036451");
        EXPECT_EQ(longest.substr(16443), u"3125"); // as all odd powers of 5 from the fifth
    }
}

TEST(NumPut, WritesWhatIsNoNumber) {
    using Limits = std::numeric_limits<double>;
    const double inf = Limits::infinity();
    EXPECT_EQ(writeNumber(inf), u"inf");
    EXPECT_EQ(writeNumber(-inf, {Ios::uppercase}), u"-INF");
    EXPECT_EQ(writeNumber(inf, {Ios::uppercase | HEX_FLOAT}), u"INF");
    EXPECT_EQ(writeNumber(inf, {Ios::uppercase | Ios::scientific}), u"INF");
    // "f" has no capital form.
    EXPECT_EQ(writeNumber(inf, {Ios::uppercase | Ios::fixed}), u"inf");
    EXPECT_EQ(writeNumber(Limits::quiet_NaN(), {Ios::uppercase | Ios::fixed}), u"nan");
    EXPECT_EQ(writeNumber(Limits::quiet_NaN(), {Ios::showpos}), u"+nan");
    EXPECT_EQ(writeNumber(-Limits::quiet_NaN()), u"-nan");
    EXPECT_EQ(writeNumber(inf, {Ios::internal | Ios::showpos, 6, 6, PLAIN}), u"+**inf");
    EXPECT_EQ(writeNumber(std::numeric_limits<long double>::infinity()), u"inf");
}

TEST(NumPut, WritesHexadecimalFloats) {
    EXPECT_EQ(writeNumber(1.0, {HEX_FLOAT}), u"0x1p+0");
    EXPECT_EQ(writeNumber(0.0, {HEX_FLOAT}), u"0x0p+0");
    EXPECT_EQ(writeNumber(-0.0, {HEX_FLOAT | Ios::showpoint}), u"-0x0.p+0");
    EXPECT_EQ(writeNumber(0.1, {HEX_FLOAT, 2, 0, PLAIN}), u"0x1.999999999999ap-4");
    EXPECT_EQ(writeNumber(1e300, {HEX_FLOAT | Ios::uppercase}), u"0X1.7E43C8800759CP+996");
    EXPECT_EQ(writeNumber(1.5, {HEX_FLOAT | Ios::showpos, 0, 0, GROUPED}), u"+0x1,8p+0");
    EXPECT_EQ(writeNumber(0x1p-1074, {HEX_FLOAT}), u"0x0.0000000000001p-1022");
    EXPECT_EQ(writeNumber(0x1p-1022, {HEX_FLOAT}), u"0x1p-1022");
    if (std::numeric_limits<long double>::digits == 64) {
        EXPECT_EQ(writeNumber(1.0L, {HEX_FLOAT}), u"0x8p-3");
        EXPECT_EQ(writeNumber(0xC.9p-3L, {HEX_FLOAT}), u"0xc.9p-3");
        EXPECT_EQ(writeNumber(0.0L, {HEX_FLOAT}), u"0x0p+0");
        EXPECT_EQ(writeNumber(std::numeric_limits<long double>::denorm_min(), {HEX_FLOAT}),
                  u"0x0.000000000000001p-16385");
    }
}

// A buffer without room takes nothing, and a text without end is given up.
TEST(NumPut, StopsWhereNothingIsTaken) {
    std::basic_stringbuf<orv::char16> closed(std::ios_base::in);
    std::wios stream(nullptr);
    stream.imbue(orvtest::localeOf(PLAIN));
    stream.setf(Ios::fixed);
    stream.precision(std::numeric_limits<std::streamsize>::max());
    const auto& facet = std::use_facet<Facet>(stream.getloc());
    EXPECT_TRUE(facet.put(Facet::iter_type(&closed), stream, u'*', 0.5).failed());
    stream.setf(Ios::scientific, Ios::floatfield);
    EXPECT_TRUE(facet.put(Facet::iter_type(&closed), stream, u'*', 1e300L).failed());
    stream.flags(Ios::showpoint);
    EXPECT_TRUE(facet.put(Facet::iter_type(&closed), stream, u'*', 0.0005).failed());
    stream.width(std::numeric_limits<std::streamsize>::max());
    EXPECT_TRUE(facet.put(Facet::iter_type(&closed), stream, u'*', 5L).failed());
    EXPECT_EQ(stream.width(), 0);
}

} // namespace
