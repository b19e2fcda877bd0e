// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The single-byte sets with tables: names, numbers, aliases, and what is no name.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/support/charset_facts.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using orv::Charset;

Charset* find(std::u16string_view name) {
    return Charset::forName(orv::as_ustring_ref(name));
}

// A row of the catalogue. All coders convert one to one.
orvtest::CharsetFacts row(int mibEnum, std::u16string_view name,
                          std::vector<std::u16string_view> aliases) {
    return {name, mibEnum, std::move(aliases), 1.0F, 1, 1.0F, 1};
}

const std::vector<orvtest::CharsetFacts>& catalogue() {
    static const std::vector<orvtest::CharsetFacts> rows = {
        row(5, u"ISO-8859-2",
            {u"ISO_8859-2:1987", u"iso-ir-101", u"ISO_8859-2", u"latin2", u"l2", u"csISOLatin2",
             u"ISO8859-2", u"ibm912", u"8859_2", u"cp912", u"iso8859_2", u"912", u"ibm-912"}),
        row(6, u"ISO-8859-3",
            {u"ISO_8859-3:1988", u"iso-ir-109", u"ISO_8859-3", u"latin3", u"l3", u"csISOLatin3",
             u"ISO8859-3", u"ibm913", u"8859_3", u"cp913", u"iso8859_3", u"913", u"ibm-913"}),
        row(7, u"ISO-8859-4",
            {u"ISO_8859-4:1988", u"iso-ir-110", u"ISO_8859-4", u"latin4", u"l4", u"csISOLatin4",
             u"8859_4", u"cp914", u"ibm914", u"iso8859_4", u"iso8859-4", u"914", u"ibm-914"}),
        row(8, u"ISO-8859-5",
            {u"ISO_8859-5:1988", u"iso-ir-144", u"ISO_8859-5", u"cyrillic", u"csISOLatinCyrillic",
             u"iso8859_5", u"cp915", u"8859_5", u"ibm-915", u"ibm915", u"915", u"ISO8859-5"}),
        row(9, u"ISO-8859-6",
            {u"ISO_8859-6:1987", u"iso-ir-127", u"ISO_8859-6", u"ECMA-114", u"ASMO-708", u"arabic",
             u"csISOLatinArabic", u"8859_6", u"iso8859_6", u"ibm1089", u"ibm-1089", u"1089",
             u"ISO8859-6", u"cp1089"}),
        row(10, u"ISO-8859-7",
            {u"ISO_8859-7:1987", u"iso-ir-126", u"ISO_8859-7", u"ELOT_928", u"ECMA-118", u"greek",
             u"greek8", u"csISOLatinGreek", u"8859_7", u"ibm813", u"iso8859_7", u"cp813",
             u"sun_eu_greek", u"813", u"iso8859-7", u"ibm-813"}),
        row(11, u"ISO-8859-8",
            {u"ISO_8859-8:1988", u"iso-ir-138", u"ISO_8859-8", u"hebrew", u"csISOLatinHebrew",
             u"8859_8", u"cp916", u"ISO8859-8", u"iso8859_8", u"ibm-916", u"916", u"ibm916"}),
        row(12, u"ISO-8859-9",
            {u"ISO_8859-9:1989", u"iso-ir-148", u"ISO_8859-9", u"latin5", u"l5", u"csISOLatin5",
             u"ibm-920", u"8859_9", u"ibm920", u"iso8859_9", u"cp920", u"920", u"ISO8859-9"}),
        row(13, u"ISO-8859-10",
            {u"ISO_8859-10:1992", u"iso-ir-157", u"l6", u"csISOLatin6", u"latin6"}),
        row(0, u"x-iso-8859-11", {u"iso-8859-11", u"iso8859_11"}),
        row(109, u"ISO-8859-13",
            {u"csISO885913", u"iso_8859-13", u"ISO8859-13", u"iso8859_13", u"8859_13"}),
        row(110, u"ISO-8859-14",
            {u"ISO_8859-14:1998", u"iso-ir-199", u"ISO_8859-14", u"latin8", u"iso-celtic", u"l8",
             u"csISO885914"}),
        row(111, u"ISO-8859-15",
            {u"ISO_8859-15", u"Latin-9csISO885915ISO8859-15", u"LATIN0", u"ISO8859_15_FDIS",
             u"ISO8859_15", u"cp923", u"8859_15", u"L9", u"IBM923", u"csISOlatin9", u"IBM-923",
             u"csISOlatin0", u"923", u"LATIN9"}),
        row(112, u"ISO-8859-16",
            {u"ISO_8859-16:2001", u"iso-ir-226ISO_8859-16latin10", u"l10", u"csISO885916"}),
        row(2084, u"KOI8-R",
            {u"csKOI8R", u"cp878", u"ibm-878", u"ibm-878_P100-1996", u"koi8", u"windows-20866"}),
        row(2088, u"KOI8-U", {u"csKOI8U", u"ibm-1168", u"ibm-1168_P100-2002", u"windows-21866"}),
        row(2109, u"windows-874", {u"cswindows874", u"ms-874", u"ms874", u"x-windows-874"}),
        row(2250, u"windows-1250", {u"cswindows1250", u"cp1250", u"cp5346"}),
        row(2251, u"windows-1251", {u"cswindows1251", u"ansi-1251", u"cp1251", u"cp5347"}),
        row(2252, u"windows-1252", {u"cswindows1252", u"cp1252", u"cp5348"}),
        row(2253, u"windows-1253", {u"cswindows1253", u"cp1253", u"cp5349"}),
        row(2254, u"windows-1254", {u"cswindows1254", u"cp1254", u"cp5350"}),
        row(2255, u"windows-1255", {u"cswindows1255", u"cp1255"}),
        row(2256, u"windows-1256", {u"cswindows1256", u"cp1256"}),
        row(2257, u"windows-1257", {u"cswindows1257", u"cp1257", u"cp5353"}),
        row(2258, u"windows-1258", {u"cswindows1258", u"cp1258"})};
    return rows;
}

class SingleByteSet : public testing::TestWithParam<orvtest::CharsetFacts> {};

TEST_P(SingleByteSet, IsAsTheCatalogueSays) {
    Charset* const set = find(GetParam().name);
    ASSERT_NE(set, nullptr);
    orvtest::checkCharsetFacts(*set, GetParam());
}

std::string nameOf(const testing::TestParamInfo<orvtest::CharsetFacts>& info) {
    std::string name;
    for (const char16_t unit : info.param.name) {
        name += unit == u'-' ? '_' : static_cast<char>(unit);
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(Catalogue, SingleByteSet, testing::ValuesIn(catalogue()), nameOf);

TEST(SingleByteSets, AreTwentySixObjects) {
    std::set<Charset*> sets;
    for (const auto& facts : catalogue()) {
        sets.insert(find(facts.name));
    }
    EXPECT_EQ(sets.size(), 26U);
    EXPECT_EQ(sets.count(nullptr), 0U);
}

TEST(SingleByteSets, HaveTwoAliasesThatAreNoneInPieces) {
    Charset* const latin9 = find(u"ISO-8859-15");
    Charset* const latin10 = find(u"ISO-8859-16");
    EXPECT_EQ(find(u"Latin-9csISO885915ISO8859-15"), latin9);
    EXPECT_EQ(find(u"csISO885915"), nullptr);
    EXPECT_EQ(find(u"iso-ir-226ISO_8859-16latin10"), latin10);
    EXPECT_EQ(find(u"ISO_8859-16:2001"), latin10);
    EXPECT_EQ(find(u"latin10"), nullptr);
    EXPECT_EQ(find(u"iso-ir-226"), nullptr);
    EXPECT_FALSE(Charset::isSupported(orv::as_ustring_ref(u"latin10")));
    EXPECT_EQ(find(u"l10"), latin10);
}

TEST(SingleByteSets, AreFoundByLooseNames) {
    EXPECT_EQ(find(u"iso 8859 2"), find(u"ISO-8859-2"));
    EXPECT_EQ(find(u"LATIN_2"), find(u"ISO-8859-2"));
    EXPECT_EQ(find(u"koi8r"), find(u"KOI8-R"));
    EXPECT_EQ(find(u"Windows1252"), find(u"windows-1252"));
    EXPECT_EQ(find(u"CP-1252"), find(u"windows-1252"));
}

TEST(SingleByteSets, HaveNoNamesBeyondTheCatalogue) {
    for (const std::u16string_view name :
         {u"ISO-8859-12", u"ISO-8859-17", u"latin7", u"tis-620", u"KOI8-RU", u"windows-1249",
          u"windows-1259", u"cp874", u"cp5351", u"Micsft_1252", u"ISO-8859"}) {
        EXPECT_EQ(find(name), nullptr) << testing::PrintToString(name);
    }
}

} // namespace
