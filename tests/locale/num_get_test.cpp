// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers from text over char16: values, states, and where reading stops.
#include "orv/liborvxx/locale/num_get.h"

#include "tests/locale/number_facets.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

namespace {

using orvtest::expectRow;
using orvtest::GROUPED;
using orvtest::PLAIN;
using orvtest::Punctuation;
using orvtest::ReadingRow;
using Ios = std::ios_base;
using Facet = std::num_get<orv::char16>;

constexpr auto GOOD = Ios::goodbit;
constexpr auto FAIL = Ios::failbit;
constexpr auto END = Ios::eofbit;
constexpr Ios::fmtflags ANY_BASE{};
constexpr auto HEX_FLOAT = Ios::fixed | Ios::scientific;
constexpr char MAX = std::numeric_limits<char>::max();

static_assert(std::is_base_of_v<std::locale::facet, Facet>);
static_assert(std::is_same_v<Facet::char_type, orv::char16>);
static_assert(std::is_same_v<Facet::iter_type, std::istreambuf_iterator<orv::char16>>);

TEST(NumGet, ReadsDecimalIntegers) {
    const ReadingRow<long> rows[] = {
        {u"0", 0, END, 0},
        {u"12 ", 12, GOOD, 1},
        {u"-12", -12, END, 0},
        {u"+7x", 7, GOOD, 1},
        {u"007", 7, END, 0},
        {u"0x1F", 0, GOOD, 3},
        {u"1,5", 1, GOOD, 2},
        {u"1.5", 1, GOOD, 2},
        {u"", 0, FAIL | END, 0},
        {u"-", 0, FAIL | END, 0},
        {u"--1", 0, FAIL, 2},
        {u" 1", 0, FAIL, 2},
        {u"x", 0, FAIL, 1},
        {u"9223372036854775807", 9223372036854775807, END, 0},
        {u"9223372036854775808;", 9223372036854775807, FAIL, 1},
        {u"-9223372036854775808", std::numeric_limits<long>::min(), END, 0},
        {u"-9223372036854775809", std::numeric_limits<long>::min(), FAIL | END, 0},
        {u"99999999999999999999999999", 9223372036854775807, FAIL | END, 0},
        {u"18446744073709551616", 9223372036854775807, FAIL | END, 0},
    };
    for (const auto& row : rows) {
        expectRow(row);
    }
}

TEST(NumGet, StopsAtADigitOfAnotherScript) {
    expectRow<long>({u"\u0663", 0, FAIL, 1});
    expectRow<long>({u"1\u0663", 1, GOOD, 1});
    expectRow<double>({u"\uFF11", 0, FAIL, 1});
    expectRow<double>({u"1.5\u0663", 1.5, GOOD, 1});
    expectRow<double>({u"\uFF21", 0, FAIL, 1}, PLAIN, HEX_FLOAT);
    expectRow<long>({u"\uFF21", 0, FAIL, 1}, PLAIN, Ios::hex);
}

TEST(NumGet, TakesTheBaseFromTheFlagsOrThePrefix) {
    expectRow<long>({u"0x1Fg", 31, GOOD, 1}, PLAIN, ANY_BASE);
    expectRow<long>({u"0X1f", 31, END, 0}, PLAIN, ANY_BASE);
    expectRow<long>({u"0178", 15, GOOD, 1}, PLAIN, ANY_BASE);
    expectRow<long>({u"08", 0, GOOD, 1}, PLAIN, ANY_BASE);
    expectRow<long>({u"18", 18, END, 0}, PLAIN, ANY_BASE);
    expectRow<long>({u"0", 0, END, 0}, PLAIN, ANY_BASE);
    expectRow<long>({u"0x", 0, FAIL | END, 0}, PLAIN, ANY_BASE);
    expectRow<long>({u"0xg", 0, FAIL, 1}, PLAIN, ANY_BASE);
    expectRow<long>({u"ff", 255, END, 0}, PLAIN, Ios::hex);
    expectRow<long>({u"-0XfF", -255, END, 0}, PLAIN, Ios::hex);
    expectRow<long>({u"00x1", 0, GOOD, 2}, PLAIN, Ios::hex);
    expectRow<long>({u"9:", 9, GOOD, 1}, PLAIN, Ios::hex);
    expectRow<long>({u"9/", 9, GOOD, 1}, PLAIN, Ios::hex);
    expectRow<long>({u"1@", 1, GOOD, 1}, PLAIN, Ios::hex);
    expectRow<long>({u"1`", 1, GOOD, 1}, PLAIN, Ios::hex);
    expectRow<long>({u"0778", 63, GOOD, 1}, PLAIN, Ios::oct);
    expectRow<long>({u"0x7", 0, GOOD, 2}, PLAIN, Ios::oct);
    expectRow<long>({u"1f", 1, GOOD, 1}, PLAIN, Ios::oct | Ios::hex);
    expectRow<std::uint64_t>({u"ffffffffffffffff", ~std::uint64_t{0}, END, 0}, PLAIN, Ios::hex);
    expectRow<std::uint64_t>({u"10000000000000000", ~std::uint64_t{0}, FAIL | END, 0}, PLAIN,
                             Ios::hex);
    expectRow<std::uint64_t>({u"1777777777777777777777", ~std::uint64_t{0}, END, 0}, PLAIN,
                             Ios::oct);
    expectRow<std::uint64_t>({u"2000000000000000000000", ~std::uint64_t{0}, FAIL | END, 0}, PLAIN,
                             Ios::oct);
}

TEST(NumGet, KeepsToTheLimitsOfUnsignedTypes) {
    expectRow<unsigned short>({u"70000", 0xFFFF, FAIL | END, 0});
    expectRow<unsigned short>({u"65535", 0xFFFF, END, 0});
    expectRow<unsigned short>({u"-1", 0xFFFF, END, 0});
    expectRow<unsigned short>({u"-65535", 1, END, 0});
    expectRow<unsigned short>({u"-65536", 0xFFFF, FAIL | END, 0});
    expectRow<unsigned int>({u"4294967296", 0xFFFFFFFF, FAIL | END, 0});
    expectRow<unsigned int>({u"-2", 0xFFFFFFFE, END, 0});
    expectRow<unsigned long>({u"-1", ~0UL, END, 0});
    expectRow<unsigned long long>({u"18446744073709551615", ~0ULL, END, 0});
    expectRow<unsigned long long>({u"18446744073709551616", ~0ULL, FAIL | END, 0});
    expectRow<long long>({u"-9223372036854775808", std::numeric_limits<long long>::min(), END, 0});
}

TEST(NumGet, ReadsPointersInHexadecimal) {
    const auto at = [](std::uintptr_t address) { return std::bit_cast<void*>(address); };
    expectRow<void*>({u"0x1f", at(0x1F), END, 0}, PLAIN, Ios::dec);
    expectRow<void*>({u"10", at(0x10), END, 0}, PLAIN, Ios::oct);
    expectRow<void*>({u"", at(0), FAIL | END, 0});
    expectRow<void*>({u"-1", at(~std::uintptr_t{0}), END, 0});
    expectRow<void*>({u"-10000000000000000", at(~std::uintptr_t{0}), FAIL | END, 0});
}

TEST(NumGet, ReadsTheNumbersOfTruthValues) {
    expectRow<bool>({u"0", false, END, 0});
    expectRow<bool>({u"1", true, END, 0});
    expectRow<bool>({u"2", true, FAIL | END, 0});
    expectRow<bool>({u"-1;", true, FAIL, 1});
    expectRow<bool>({u"99999999999999999999", true, FAIL | END, 0});
    expectRow<bool>({u"true", false, FAIL, 4});
    expectRow<bool>({u"", false, FAIL | END, 0});
}

TEST(NumGet, ReadsTruthValuesWhateverAFacetMakesOfLong) {
    struct Sevens : Facet {
        using Facet::do_get;
        iter_type do_get(iter_type in, iter_type, Ios&, Ios::iostate&, long& v) const override {
            v = 7;
            return in;
        }
    };
    std::wios stream(nullptr);
    stream.imbue(std::locale(orvtest::localeOf(PLAIN), new Sevens));
    const auto truth = orvtest::read<orv::char16, bool>(stream, u"1");
    EXPECT_TRUE(truth.value);
    EXPECT_EQ(truth.state, END);
    EXPECT_EQ((orvtest::read<orv::char16, long>(stream, u"1").value), 7);
}

TEST(NumGet, ReadsTheNamesOfTruthValues) {
    const auto expectName = [](const ReadingRow<bool>& row, const std::u16string& yes,
                               const std::u16string& no) {
        expectRow(row, {u'.', u',', "", yes, no}, Ios::boolalpha);
    };
    // The end is seen behind a name that is whole as well.
    expectName({u"true", true, END, 0}, u"true", u"false");
    expectName({u"falsely", false, GOOD, 2}, u"true", u"false");
    expectName({u"tru", false, FAIL | END, 0}, u"true", u"false");
    expectName({u"trux", false, FAIL, 1}, u"true", u"false");
    expectName({u"1", false, FAIL, 1}, u"true", u"false");
    expectName({u"", false, FAIL | END, 0}, u"true", u"false");
    // One the beginning of the other.
    expectName({u"ja", true, END, 0}, u"ja", u"janein");
    expectName({u"jax", true, GOOD, 1}, u"ja", u"janein");
    expectName({u"janein", false, END, 0}, u"ja", u"janein");
    expectName({u"jane", false, FAIL | END, 0}, u"ja", u"janein");
    expectName({u"jawohl", true, END, 0}, u"jawohl", u"ja");
    expectName({u"ja ", false, GOOD, 1}, u"jawohl", u"ja");
    // What was another name from its first unit on does not become that again.
    expectName({u"ab", true, END, 0}, u"ab", u"xb");
    expectName({u"xb", false, END, 0}, u"ab", u"xb");
    // The same name for both says nothing; an empty one is never found.
    expectName({u"same", false, FAIL | END, 0}, u"same", u"same");
    expectName({u"yes", true, END, 0}, u"yes", u"");
    expectName({u"no", false, FAIL, 2}, u"yes", u"");
    expectName({u"no", false, FAIL, 2}, u"", u"");
    expectName({u"\u0939\u093E\u0901", true, END, 0}, u"\u0939\u093E\u0901", u"\u0928");
}

TEST(NumGet, ChecksGroups) {
    const ReadingRow<long> rows[] = {
        {u"1.234.567", 1234567, END, 0},
        {u"1234567", 1234567, END, 0},
        {u"12.345", 12345, END, 0},
        {u"1.23", 0, FAIL | END, 0},
        {u"1234.567", 0, FAIL | END, 0},
        {u"1.2345", 0, FAIL | END, 0},
        {u"1.", 0, FAIL | END, 0},
        {u"1.;", 0, FAIL, 1},
        {u".123", 0, FAIL, 4},
        {u"1..234", 0, FAIL, 4},
        {u"-.1", 0, FAIL, 2},
        {u"1.234,5", 1234, GOOD, 2},
        {u"0.000", 0, END, 0},
        {u"99.999.999.999.999.999.999", std::numeric_limits<long>::max(), FAIL | END, 0},
        {u"99.999.999.999.999.999.99", 0, FAIL | END, 0},
    };
    for (const auto& row : rows) {
        expectRow(row, GROUPED);
    }
    expectRow<unsigned short>({u"70.000", 0xFFFF, FAIL | END, 0}, GROUPED);
    expectRow<bool>({u"0.001", true, END, 0}, GROUPED);
    expectRow<bool>({u"0.1", false, FAIL | END, 0}, GROUPED);
    expectRow<long>({u"0xA.BCD", 0xABCD, END, 0}, GROUPED, Ios::hex);
    // The zero that says "octal" is in no group.
    expectRow<long>({u"01.234", 01234, END, 0}, GROUPED, Ios::oct);
    expectRow<long>({u"0.123", 0, FAIL, 4}, GROUPED, Ios::oct);
}

TEST(NumGet, ChecksGroupsOfManySizes) {
    const Punctuation indian{u'.', u',', "\3\2"};
    expectRow<long>({u"12,34,567", 1234567, END, 0}, indian);
    expectRow<long>({u"1,234,567", 0, FAIL | END, 0}, indian);
    expectRow<long>({u"34,567", 34567, END, 0}, indian);
    expectRow<long>({u"134,567", 0, FAIL | END, 0}, indian);
    const Punctuation odd{u'.', u',', {1, 2, 3}};
    expectRow<long>({u"7,654,321,43,2", 7654321432, END, 0}, odd);
    expectRow<long>({u"7,654,321,4,32", 0, FAIL | END, 0}, odd);
    expectRow<long>({u"43,2", 432, END, 0}, odd);
    expectRow<long>({u"543,2", 0, FAIL | END, 0}, odd);
    // Nothing is separated left of a size that is no size.
    for (const char last : {MAX, char{0}, static_cast<char>(-1)}) {
        const Punctuation once{u'.', u',', {3, last}};
        expectRow<long>({u"1234567,890", 1234567890, END, 0}, once);
        expectRow<long>({u"1,234,567", 0, FAIL | END, 0}, once);
        const Punctuation never{u'.', u',', {last, 3}};
        expectRow<long>({u"1,234", 1, GOOD, 4}, never);
    }
    const Punctuation arabic{u'\u066B', u'\u066C', "\3"};
    expectRow<double>({u"1\u066C234\u066B5", 1234.5, END, 0}, arabic);
    // The separator comes before the point, and both before signs and digits.
    expectRow<double>({u"1.23", 0, FAIL | END, 0}, {u'.', u'.', "\3"});
    expectRow<double>({u"1.234", 1234, END, 0}, {u'.', u'.', "\3"});
    expectRow<long>({u"-5", 0, FAIL, 2}, {u'-', u',', ""});
    expectRow<double>({u"-5", 0.5, END, 0}, {u'-', u',', ""});
    expectRow<long>({u"12", 1, GOOD, 1}, {u'2', u',', ""});
    expectRow<long>({u"0x1", 0, FAIL, 3}, {u'0', u',', ""}, Ios::hex);
    expectRow<double>({u"1.27", 1.2, GOOD, 1}, {u'.', u'7', "\3"});
}

TEST(NumGet, ChecksAHundredThousandGroups) {
    std::u16string text = u"1";
    for (int i = 0; i < 100000; ++i) {
        text += u".000";
    }
    expectRow<double>({text, std::numeric_limits<double>::max(), FAIL | END, 0}, GROUPED);
    expectRow<long>({text, std::numeric_limits<long>::max(), FAIL | END, 0}, GROUPED);
    text[5] = u'0';
    expectRow<long>({text, 0, FAIL | END, 0}, GROUPED);
}

TEST(NumGet, CountsGroupsOfManyDigits) {
    // 259 digits are not 3, whatever is left of that in a byte.
    const std::u16string many(259, u'1');
    expectRow<double>({u"1." + many, 0, FAIL | END, 0}, GROUPED);
    expectRow<double>({many + u".111", 0, FAIL | END, 0}, GROUPED);
}

// A facet that a locale does not delete can live on its own.
TEST(NumGet, LivesWithoutALocale) {
    struct Own : Facet {
        Own() : Facet(1) {}
        ~Own() override = default;
    };
    const auto facet = std::make_unique<Own>();
    std::basic_stringbuf<orv::char16> buffer(
        orvtest::convertText<orv::char16>(std::u16string(u"5")));
    std::wios stream(nullptr);
    stream.imbue(orvtest::localeOf(PLAIN));
    auto state = GOOD;
    long value = 0;
    using In = Facet::iter_type;
    facet->get(In(&buffer), In(), stream, state, value);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(state, END);
}

} // namespace
