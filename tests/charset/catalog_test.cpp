// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The catalogue as a whole: which sets there are, in which order, under how many names.
///
/// A program of its own, since other tests register sets.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using orv::Charset;

struct CatalogRow {
    std::u16string_view name;
    int mibEnum;
    std::size_t aliases;
};

// In the order of their names.
constexpr CatalogRow CATALOG[] = {
    {u"Big5", 2026, 1},         {u"Big5-HKSCS", 2101, 3},   {u"CESU-8", 1016, 3},
    {u"GB18030", 114, 2},       {u"GBK", 113, 3},           {u"ISO-8859-1", 4, 14},
    {u"ISO-8859-10", 13, 5},    {u"ISO-8859-13", 109, 5},   {u"ISO-8859-14", 110, 7},
    {u"ISO-8859-15", 111, 14},  {u"ISO-8859-16", 112, 4},   {u"ISO-8859-2", 5, 13},
    {u"ISO-8859-3", 6, 13},     {u"ISO-8859-4", 7, 13},     {u"ISO-8859-5", 8, 12},
    {u"ISO-8859-6", 9, 14},     {u"ISO-8859-7", 10, 16},    {u"ISO-8859-8", 11, 12},
    {u"ISO-8859-9", 12, 13},    {u"KOI8-R", 2084, 6},       {u"KOI8-U", 2088, 4},
    {u"Shift_JIS", 17, 5},      {u"US-ASCII", 3, 14},       {u"UTF-16BE", 1013, 5},
    {u"UTF-16LE", 1014, 4},     {u"UTF-8", 106, 2},         {u"windows-1250", 2250, 3},
    {u"windows-1251", 2251, 4}, {u"windows-1252", 2252, 3}, {u"windows-1253", 2253, 3},
    {u"windows-1254", 2254, 3}, {u"windows-1255", 2255, 2}, {u"windows-1256", 2256, 2},
    {u"windows-1257", 2257, 3}, {u"windows-1258", 2258, 2}, {u"Windows-31J", 2024, 3},
    {u"windows-874", 2109, 4},  {u"x-iso-8859-11", 0, 2},   {u"x-mswin-936", 0, 2},
    {u"x-windows-949", 0, 4},   {u"x-windows-950", 0, 2},
};

std::string narrow(std::u16string_view text) {
    return {text.begin(), text.end()};
}

std::string nameOf(const Charset& set) {
    return narrow(orv::to_u16string(set.name()));
}

TEST(Catalog, HasFortyOneSetsInTheOrderOfTheirNames) {
    std::vector<std::string> expected;
    for (const CatalogRow& row : CATALOG) {
        expected.push_back(narrow(row.name));
    }
    std::vector<std::string> found;
    for (const Charset* set : Charset::availableCharsets()) {
        found.push_back(nameOf(*set));
    }
    EXPECT_EQ(found.size(), 41U);
    EXPECT_EQ(found, expected);
}

TEST(Catalog, FindsEachSetByItsName) {
    for (const CatalogRow& row : CATALOG) {
        Charset* const set = Charset::forName(orv::as_ustring_ref(row.name));
        ASSERT_NE(set, nullptr) << narrow(row.name);
        EXPECT_EQ(nameOf(*set), narrow(row.name));
        EXPECT_EQ(set->MIBenum(), row.mibEnum) << narrow(row.name);
        EXPECT_EQ(set->aliases().size(), row.aliases) << narrow(row.name);
    }
}

TEST(Catalog, NoAliasBelongsToTwoSets) {
    for (Charset* const set : Charset::availableCharsets()) {
        for (const orv::ustring_ref alias : set->aliases()) {
            EXPECT_EQ(Charset::forName(alias), set)
                << narrow(orv::to_u16string(alias)) << " of " << nameOf(*set);
        }
    }
}

TEST(Catalog, HasTwoHundredAndNinetyNamesOf234Spellings) {
    std::size_t names = 0;
    std::set<orv::ustring_ref, Charset::NameLess<orv::ustring_ref>> spellings;
    for (const Charset* const set : Charset::availableCharsets()) {
        names += 1 + set->aliases().size();
        spellings.insert(set->name());
        spellings.insert(set->aliases().begin(), set->aliases().end());
    }
    EXPECT_EQ(names, 290U);
    // Those that differ by more than case and punctuation.
    EXPECT_EQ(spellings.size(), 234U);
}

TEST(Catalog, GivesEachSetCodersOfItsOwn) {
    for (Charset* const set : Charset::availableCharsets()) {
        EXPECT_EQ(set->newDecoder()->charset(), set) << nameOf(*set);
        EXPECT_EQ(set->newEncoder()->charset(), set) << nameOf(*set);
    }
}

} // namespace
