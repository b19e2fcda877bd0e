// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The punctuation of numbers over UTF-16: the classic one, and that of the C library's
/// locales.
#include "orv/liborvxx/locale/numpunct.h"

#include "orv/liborvxx/text/literals.h"

#include <gtest/gtest.h>

#include <clocale>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

using namespace orv::literals;
using orv::char16;
using Facet = std::numpunct<char16>;
using ByName = std::numpunct_byname<char16>;

static_assert(std::is_base_of_v<std::locale::facet, Facet>);
static_assert(std::is_base_of_v<Facet, ByName>);
static_assert(std::is_same_v<Facet::char_type, char16>);
static_assert(std::is_same_v<Facet::string_type, orv::ustring>);

// The facet as a locale hands it out.
const Facet& in(const std::locale& locale) {
    return std::use_facet<Facet>(locale);
}
std::locale with(Facet* facet) {
    return std::locale(std::locale::classic(), facet);
}

struct Punctuation {
    char16_t point;
    char16_t separator;
    std::string grouping;
};

void expectPunctuation(const Facet& facet, const Punctuation& expected) {
    EXPECT_EQ(facet.decimal_point(), char16(expected.point));
    EXPECT_EQ(facet.thousands_sep(), char16(expected.separator));
    EXPECT_EQ(facet.grouping(), expected.grouping);
    EXPECT_EQ(facet.truename(), u"true"_u);
    EXPECT_EQ(facet.falsename(), u"false"_u);
}

TEST(Numpunct, IsThatOfTheClassicLocale) {
    expectPunctuation(in(with(new Facet)), {u'.', u',', ""});
}

TEST(Numpunct, IsTheSameUnderEveryProcessLocale) {
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    expectPunctuation(in(with(new Facet)), {u'.', u',', ""});
    std::setlocale(LC_ALL, "C");
}

TEST(NumpunctByName, IsThatOfTheNamedLocale) {
    const std::string three = "\3";
    const std::string threes = "\3\3";
    const struct {
        const char* name;
        Punctuation expected;
    } rows[] = {
        {"C", {u'.', u',', ""}},
        {"POSIX", {u'.', u',', ""}},
        {"de_DE.UTF-8", {u',', u'.', threes}},
        {"en_US.UTF-8", {u'.', u',', threes}},
        {"fa_IR.UTF-8", {u'.', u',', three}},
        {"fr_FR.UTF-8", {u',', u'\u202F', three}},
        {"tr_TR.UTF-8", {u',', u'.', threes}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        expectPunctuation(in(with(new ByName(row.name))), row.expected);
        expectPunctuation(in(with(new ByName(std::string(row.name)))), row.expected);
    }
}

TEST(NumpunctByName, DoesNotFollowTheProcessLocale) {
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    const std::locale english = with(new ByName("en_US.UTF-8"));
    std::setlocale(LC_ALL, "fr_FR.UTF-8");
    expectPunctuation(in(english), {u'.', u',', "\3\3"});
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "fr_FR.UTF-8") << "and leaves it alone";
    std::setlocale(LC_ALL, "C");
}

TEST(NumpunctByName, RefusesNamesOfNoLocaleAsTheStandardLibraryDoes) {
    for (const char* name : {"xx_XX.UTF-8", "de_DE.no-such-set", "no locale at all"}) {
        EXPECT_THROW(with(new ByName(name)), std::runtime_error) << name;
        EXPECT_THROW(with(new ByName(std::string(name))), std::runtime_error) << name;
    }
}

#ifndef NDEBUG
TEST(NumpunctByNameDeathTest, WantsAName) {
    EXPECT_DEATH(with(new ByName(static_cast<const char*>(nullptr))), "name");
}
#endif

TEST(NumpunctByName, IsDeletedWithTheLastLocaleUnlessItsOwnerDoes) {
    static int alive = 0;
    struct Counted : ByName {
        explicit Counted(std::size_t refs) : ByName("de_DE.UTF-8", refs) { ++alive; }
        ~Counted() override { --alive; }
    };
    {
        const std::locale one = with(new Counted(0));
        EXPECT_EQ(in(one).decimal_point(), u',');
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
    {
        Counted owned(1);
        { const std::locale holder = with(&owned); }
        EXPECT_EQ(alive, 1);
        EXPECT_EQ(owned.decimal_point(), u',') << "alive and well";
    }
    EXPECT_EQ(alive, 0);
}

// The bridge from any wide facet: what the standard facets never say must come through too.

struct OddWide : std::numpunct<wchar_t> {
    OddWide() : std::numpunct<wchar_t>(1) {}

protected:
    wchar_t do_decimal_point() const override { return L'\u066B'; }
    wchar_t do_thousands_sep() const override { return L'\u066C'; }
    std::string do_grouping() const override { return std::string("\2\0\3", 3); }
    std::wstring do_truename() const override { return L"\u0434\u0430 \U0001F600"; }
    std::wstring do_falsename() const override { return L"\u043D\u0435\u0442"; }
};

TEST(StoredNumpunct, CopiesPointSeparatorGroupingAndBothNamesEachToItsPlace) {
    struct Bridged : orv::detail::StoredNumpunct {
        Bridged() : StoredNumpunct(1) { copy(OddWide()); }
    };
    const Bridged facet;
    EXPECT_EQ(facet.decimal_point(), u'\u066B');
    EXPECT_EQ(facet.thousands_sep(), u'\u066C');
    EXPECT_EQ(facet.grouping(), std::string("\2\0\3", 3));
    EXPECT_EQ(facet.truename(), u"\u0434\u0430 \U0001F600"_u);
    EXPECT_EQ(facet.falsename(), u"\u043D\u0435\u0442"_u);
}

} // namespace
