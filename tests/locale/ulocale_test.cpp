// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Named, classic, global and environment locales, and their facets.
#include "orv/liborvxx/locale/ulocale.h"

#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/num_get.h"
#include "orv/liborvxx/locale/num_put.h"
#include "orv/liborvxx/text/cvtstr.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/in_all_threads.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <locale>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using orv::char16;
using orv::ulocale;
using orv::ustring;
using orv::ustring_ref;
using orvtest::shown;
using orvtest::textIn;
using orvtest::thrownMessage;
using namespace orv::literals;

// Sets the environment's locale for the life of the object.
class Environment {
public:
    explicit Environment(const char* name) : name_(std::getenv("LC_ALL") != nullptr) {
        if (name_) {
            before_ = std::getenv("LC_ALL");
        }
        setenv("LC_ALL", name, 1);
    }
    ~Environment() {
        if (name_) {
            setenv("LC_ALL", before_.c_str(), 1);
        } else {
            unsetenv("LC_ALL");
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    bool name_;
    std::string before_;
};

const std::numpunct<char16>& punctuation(const std::locale& loc) {
    return std::use_facet<std::numpunct<char16>>(loc);
}

void expectFacets(const std::locale& loc) {
    EXPECT_TRUE(std::has_facet<std::ctype<char16>>(loc));
    EXPECT_TRUE(std::has_facet<std::numpunct<char16>>(loc));
    EXPECT_TRUE(std::has_facet<std::num_get<char16>>(loc));
    EXPECT_TRUE(std::has_facet<std::num_put<char16>>(loc));
    EXPECT_EQ(loc.name(), "*");
}

// The punctuation is that of wide text in the C library's locale of the name.
void expectPunctuationOf(const std::string& cName, const std::locale& loc) {
    const std::locale cLocale(cName.c_str());
    const auto& wide = std::use_facet<std::numpunct<wchar_t>>(cLocale);
    const auto& ours = punctuation(loc);
    EXPECT_EQ(ours.decimal_point(), char16(wide.decimal_point()));
    EXPECT_EQ(ours.thousands_sep(), char16(wide.thousands_sep()));
    EXPECT_EQ(ours.grouping(), wide.grouping());
    EXPECT_EQ(shown(ours.truename()), shown(orv::cvtstr<ustring>(wide.truename())));
    EXPECT_EQ(shown(ours.falsename()), shown(orv::cvtstr<ustring>(wide.falsename())));
}

TEST(ULocale, ClassicIsC) {
    const ulocale& classic = ulocale::classic();
    EXPECT_EQ(&classic, &ulocale::classic());
    EXPECT_EQ(shown(classic.name()), "C");
    const std::locale loc = classic;
    expectFacets(loc);
    EXPECT_EQ(punctuation(loc).decimal_point(), u'.');
    EXPECT_EQ(punctuation(loc).thousands_sep(), u',');
    EXPECT_EQ(punctuation(loc).grouping(), "");
    EXPECT_EQ(shown(punctuation(loc).truename()), "true");
    EXPECT_EQ(shown(punctuation(loc).falsename()), "false");
}

TEST(ULocale, NamedLocaleHasThePunctuationOfTheCLibrary) {
    for (const char* const name :
         {"de_CH", "de_DE", "en_IN", "en_US", "fa_IR", "fr_FR", "ps_AF", "tr_TR"}) {
        SCOPED_TRACE(name);
        const ulocale named(textIn<char16>(name));
        EXPECT_EQ(shown(named.name()), name);
        EXPECT_FALSE(named == ulocale::classic());
        expectFacets(named);
        expectPunctuationOf(std::string(name) + ".UTF-8", named);
    }
}

TEST(ULocale, NamedLocaleHasTheOtherFacetsOfTheCLibrary) {
    const std::locale german = ulocale(u"de_DE"_u);
    EXPECT_EQ(std::use_facet<std::numpunct<char>>(german).decimal_point(), ',');
    EXPECT_EQ(std::use_facet<std::numpunct<wchar_t>>(german).thousands_sep(), L'.');
}

TEST(ULocale, SeparatorsBeyondAsciiAreUnits) {
    EXPECT_EQ(punctuation(ulocale(u"de_CH"_u)).thousands_sep(), u'\u2019');
    EXPECT_EQ(punctuation(ulocale(u"fr_FR"_u)).thousands_sep(), u'\u202F');
    EXPECT_EQ(punctuation(ulocale(u"ps_AF"_u)).decimal_point(), u'\u066B');
}

TEST(ULocale, NameOfAnotherFormIsClassic) {
    for (const char* const name :
         {"de",    "DE_de", "de-DE", "de_DE.UTF-8", "C",      "POSIX", "*",     "de_De",
          "dE_DE", "De_DE", "de_dE", "deDE_",       "de_DE ", " e_DE", "`e_DE", "{e_DE",
          "d`_DE", "d{_DE", "de_@E", "de_[E",       "de_D@",  "de_D[", "de_D"}) {
        SCOPED_TRACE(name);
        const ulocale named(textIn<char16>(name));
        EXPECT_EQ(shown(named.name()), "C");
        EXPECT_TRUE(named == ulocale::classic());
        EXPECT_EQ(punctuation(named).decimal_point(), u'.');
    }
}

TEST(ULocale, NameIsReadInAllSixteenBits) {
    ustring name = u"de_DE"_u;
    name[0] = char16(0xFF00 + 'd');
    EXPECT_EQ(shown(ulocale(name).name()), "C");
    name = u"de_DE"_u;
    name[4] = char16(0x100 + 'E');
    EXPECT_EQ(shown(ulocale(name).name()), "C");
}

TEST(ULocale, UnknownNameOfTheFormThrows) {
    EXPECT_EQ(thrownMessage<std::runtime_error>([] { const ulocale unknown(u"xx_YY"_u); }),
              "bad locale name");
}

// A folder of locales under other names, in which the C library looks for the life of the object.
class OtherNames {
public:
    OtherNames() : real_(std::getenv("LOCPATH")) {
        folder_ = fs::path(testing::TempDir()) / ("locales-" + std::to_string(getpid()));
        fs::create_directory(folder_);
        setenv("LOCPATH", folder_.c_str(), 1);
    }
    ~OtherNames() {
        setenv("LOCPATH", real_.c_str(), 1);
        fs::remove_all(folder_);
    }
    OtherNames(const OtherNames&) = delete;
    OtherNames& operator=(const OtherNames&) = delete;

    void add(const std::string& name, const std::string& real) const {
        fs::create_directory_symlink(fs::path(real_) / real, folder_ / name);
    }

private:
    std::string real_;
    fs::path folder_;
};

TEST(ULocale, NameIsLookedUpInOtherSpellings) {
    const OtherNames names;
    names.add("aa_AA.utf8", "de_DE.UTF-8");
    names.add("bb_BB", "de_DE.UTF-8");
    names.add("cc-CC", "de_DE.UTF-8");
    names.add("dd-DD", "de_DE.UTF-8"); // the earlier spelling counts
    names.add("dd_DD", "fr_FR.UTF-8");
    names.add("ee.UTF-8", "de_DE.UTF-8");
    names.add("ff_FF.utf8", "fr_FR.UTF-8");
    names.add("ff_FF", "de_DE.UTF-8");
    names.add("zz_ZZ.UTF-8", "de_DE.UTF-8");
    for (const char* const name : {"aa_AA", "bb_BB", "cc_CC", "dd_DD", "ff_FF", "zz_ZZ"}) {
        SCOPED_TRACE(name);
        const ulocale named(textIn<char16>(name));
        EXPECT_EQ(shown(named.name()), name);
        EXPECT_EQ(punctuation(named).decimal_point(), u',');
        EXPECT_EQ(punctuation(named).thousands_sep(),
                  std::string(name) == "dd_DD" || std::string(name) == "ff_FF" ? u'\u202F' : u'.');
    }
}

TEST(ULocale, EnvironmentMaySpellItsNameWithADash) {
    const OtherNames names;
    names.add("cc-CC", "de_DE.UTF-8");
    const Environment environment("cc-CC");
    EXPECT_EQ(shown(ulocale(u""_u).name()), "cc_CC");
}

TEST(ULocale, LocalesOfOneNameAreEqual) {
    const ulocale german(u"de_DE"_u);
    const ulocale again(u"de_DE"_u);
    const ulocale french(u"fr_FR"_u);
    EXPECT_TRUE(german == german); // NOLINT(misc-redundant-expression)
    EXPECT_TRUE(german == again);
    EXPECT_FALSE(german == french);
    EXPECT_TRUE(german != french);
    EXPECT_FALSE(german != again);
    EXPECT_TRUE(ulocale(u"de"_u) == ulocale(u"C"_u));
}

TEST(ULocale, CopyOutlivesTheOriginal) {
    ulocale copy = ulocale::classic();
    {
        const ulocale german(u"de_DE"_u);
        copy = german;
    }
    EXPECT_EQ(shown(copy.name()), "de_DE");
    std::locale loc = copy;
    copy = ulocale::classic();
    EXPECT_EQ(punctuation(loc).decimal_point(), u',');
    static_assert(std::is_nothrow_copy_constructible_v<ulocale>);
    static_assert(std::is_nothrow_copy_assignable_v<ulocale>);
    static_assert(!std::is_convertible_v<ustring_ref, ulocale>);
}

// In a program of its own, where no classic locale keeps the facets that all locales share.
TEST(ULocaleDeathTest, SharedFacetsOutliveTheFirstNamedLocales) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            for (const char* const name : {"de_DE", "fr_FR"}) {
                const std::locale loc = ulocale(textIn<char16>(name));
                const auto& facet = std::use_facet<std::ctype<char16>>(loc);
                if (facet.widen('x') != u'x') {
                    std::_Exit(1);
                }
            }
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(ULocale, EmptyNameIsTheEnvironmentsLocale) {
    for (const auto& [variable, name] :
         std::vector<std::pair<const char*, const char*>>{{"de_DE.UTF-8", "de_DE"},
                                                          {"fr_FR.UTF-8", "fr_FR"},
                                                          {"C", "*"},
                                                          {"POSIX", "*"},
                                                          {"C.UTF-8", "*"}}) {
        SCOPED_TRACE(variable);
        const Environment environment(variable);
        const ulocale loc(u""_u);
        EXPECT_EQ(shown(loc.name()), name);
        expectFacets(loc);
        expectPunctuationOf(variable, loc);
    }
}

TEST(ULocale, EnvironmentOfSeveralLocalesHasNoName) {
    const Environment environment("");
    setenv("LC_NUMERIC", "de_DE.UTF-8", 1);
    const ulocale loc(ustring_ref{});
    unsetenv("LC_NUMERIC");
    EXPECT_EQ(shown(loc.name()), "*");
    EXPECT_EQ(punctuation(loc).decimal_point(), u',');
}

TEST(ULocale, UnknownEnvironmentThrows) {
    const Environment environment("xx_YY.UTF-8");
    EXPECT_EQ(thrownMessage<std::runtime_error>([] { const ulocale unknown(u""_u); }),
              "bad locale name");
}

TEST(ULocale, NumpunctFromWideCopiesAnyFacet) {
    struct Odd : std::numpunct<wchar_t> {
        wchar_t do_decimal_point() const override { return L'\U0001F600'; }
        wchar_t do_thousands_sep() const override { return L'\u2019'; }
        std::string do_grouping() const override { return "\1\2"; }
        std::wstring do_truename() const override { return L"\U0001F600"; }
        std::wstring do_falsename() const override { return L""; }
    };
    const std::locale odd(std::locale::classic(), new Odd);
    const std::locale loc(odd, new ulocale::numpunct_from_wide(odd));
    EXPECT_EQ(punctuation(loc).decimal_point(), u'\uF600'); // the low 16 bits
    EXPECT_EQ(punctuation(loc).thousands_sep(), u'\u2019');
    EXPECT_EQ(punctuation(loc).grouping(), "\1\2");
    EXPECT_EQ(shown(punctuation(loc).truename()), "<D83D><DE00>");
    EXPECT_EQ(shown(punctuation(loc).falsename()), "");
}

// One test, as the first call in a program is another than the later ones.
TEST(ULocaleGlobal, IsClassicUntilItIsSet) {
    EXPECT_TRUE(ulocale() == ulocale::classic());
    const std::locale standard;
    const ulocale german(u"de_DE"_u);
    {
        ulocale empty = ulocale::global(german);
        const ulocale copy = empty; // what an empty handle may be used for
        empty = copy;
        empty = german;
        EXPECT_TRUE(empty == german);
    }
    EXPECT_EQ(shown(ulocale().name()), "de_DE");
    EXPECT_TRUE(std::locale() == standard);

    EXPECT_EQ(shown(ulocale::global(ulocale(u"fr_FR"_u)).name()), "de_DE");
    EXPECT_EQ(shown(ulocale().name()), "fr_FR");
    EXPECT_EQ(shown(ulocale::global(ulocale()).name()), "fr_FR");
    EXPECT_EQ(shown(ulocale::global(ulocale::classic()).name()), "fr_FR");
    EXPECT_EQ(shown(ulocale().name()), "C");
}

TEST(ULocaleGlobal, IsSafeFromAllThreads) {
    const ulocale german(u"de_DE"_u);
    const ulocale french(u"fr_FR"_u);
    ulocale::global(german);
    orvtest::inAllThreads([&](std::size_t thread) {
        const ulocale& own = thread % 2 == 0 ? german : french;
        for (int i = 0; i < 200; ++i) {
            const ulocale now;
            const ulocale before = ulocale::global(own);
            EXPECT_TRUE(now == german || now == french);
            EXPECT_TRUE(before == german || before == french);
            EXPECT_EQ(punctuation(before).decimal_point(), u',');
            EXPECT_EQ(shown(ulocale::classic().name()), "C");
        }
    });
    ulocale::global(ulocale::classic());
}

TEST(ULocaleThreads, LocalesAreMadeAndCopiedInAllThreads) {
    const ulocale shared(u"de_DE"_u);
    orvtest::inAllThreads([&](std::size_t) {
        for (int i = 0; i < 20; ++i) {
            const ulocale made(i % 2 == 0 ? u"de_DE"_u : u"de_CH"_u);
            const ulocale copy = shared;
            EXPECT_EQ(made == copy, i % 2 == 0);
            const std::locale loc = copy;
            EXPECT_EQ(punctuation(loc).thousands_sep(), u'.');
        }
    });
}

} // namespace
