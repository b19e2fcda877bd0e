// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The codeset question under different environments.

#include "orv/liborv/system/codepage.h"
#include "orv/liborv/system/error.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

/// Sets the three variables for the time of one test and restores them after it.
class Codeset : public testing::Test {
protected:
    static constexpr std::array<const char*, 3> names = {"LC_ALL", "LC_CTYPE", "LANG"};

    void SetUp() override {
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (const char* value = std::getenv(names[i]))
                saved[i] = value;
            unsetenv(names[i]);
        }
    }

    void TearDown() override {
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (saved[i])
                setenv(names[i], saved[i]->c_str(), 1);
            else
                unsetenv(names[i]);
        }
    }

    static void set(const char* name, const char* value) { setenv(name, value, 1); }

    static std::string ask() {
        std::array<char, 64> buffer;
        const int length = orvSystemCodeset(buffer.data(), buffer.size());
        if (length < 0)
            return orvStrError(length);
        EXPECT_EQ(std::string(buffer.data()).size(), static_cast<std::size_t>(length));
        return buffer.data();
    }

private:
    std::array<std::optional<std::string>, 3> saved;
};

TEST_F(Codeset, WithoutVariablesItIsTheOneOfTheCLocale) {
    EXPECT_EQ(ask(), "ANSI_X3.4-1968");
}

TEST_F(Codeset, TheCAndPosixLocalesAreUsAscii) {
    set("LC_ALL", "C");
    EXPECT_EQ(ask(), "ANSI_X3.4-1968");
    set("LC_ALL", "POSIX");
    EXPECT_EQ(ask(), "ANSI_X3.4-1968");
}

TEST_F(Codeset, AnInstalledLocaleGivesTheLibrarysNameOfItsCodeset) {
    set("LC_ALL", "C.UTF-8");
    EXPECT_EQ(ask(), "UTF-8");
    set("LC_ALL", "C.utf8");
    EXPECT_EQ(ask(), "UTF-8") << "the C library's spelling, not the variable's";
}

TEST_F(Codeset, AllOverridesCharacterTypeOverridesLanguage) {
    set("LANG", "C.UTF-8");
    EXPECT_EQ(ask(), "UTF-8");
    set("LC_CTYPE", "C");
    EXPECT_EQ(ask(), "ANSI_X3.4-1968");
    set("LC_ALL", "C.UTF-8");
    EXPECT_EQ(ask(), "UTF-8");
}

TEST_F(Codeset, AnEmptyVariableCountsAsUnset) {
    set("LC_ALL", "");
    set("LC_CTYPE", "");
    set("LANG", "C.UTF-8");
    EXPECT_EQ(ask(), "UTF-8");
}

// No system has these locales installed.

TEST_F(Codeset, AMissingLocaleGivesTheCodesetPartOfItsName) {
    set("LC_ALL", "xx_QQ.ISO-8859-15");
    EXPECT_EQ(ask(), "ISO-8859-15");
    set("LC_ALL", "xx_QQ.KOI8-R@phonebook");
    EXPECT_EQ(ask(), "KOI8-R");
}

TEST_F(Codeset, AMissingLocaleIsLookedForInTheSameOrder) {
    set("LANG", "xx_QQ.windows-1252");
    EXPECT_EQ(ask(), "windows-1252");
    set("LC_CTYPE", "xx_QQ.KOI8-U");
    EXPECT_EQ(ask(), "KOI8-U");
    set("LC_ALL", "");
    EXPECT_EQ(ask(), "KOI8-U");
    set("LC_ALL", "xx_QQ.Big5");
    EXPECT_EQ(ask(), "Big5");
}

TEST_F(Codeset, AMissingLocaleWithoutACodesetPartIsNotFound) {
    for (const char* value : {"xx_QQ", "xx_QQ@euro", "xx_QQ.", "xx_QQ.@euro", "xx_QQ@v1.2"}) {
        set("LC_ALL", value);
        EXPECT_EQ(ask(), "not found") << value;
    }
}

TEST_F(Codeset, TheNameNeedsRoomForItsTerminator) {
    set("LC_ALL", "C.UTF-8");
    std::array<char, 6> buffer;
    EXPECT_EQ(orvSystemCodeset(buffer.data(), 6), 5);
    EXPECT_STREQ(buffer.data(), "UTF-8");

    set("LC_ALL", "xx_QQ.KOI8-R");
    buffer.fill('#');
    EXPECT_EQ(orvSystemCodeset(buffer.data(), 6), ORV_ERROR_RANGE);
    EXPECT_EQ(orvSystemCodeset(buffer.data(), 0), ORV_ERROR_RANGE);
    for (char c : buffer)
        EXPECT_EQ(c, '#') << "nothing is written on failure";
}

TEST_F(Codeset, RefusesANullBuffer) {
    EXPECT_EQ(orvSystemCodeset(nullptr, 64), ORV_ERROR_INVALID_ARGUMENT);
    EXPECT_EQ(orvSystemCodeset(nullptr, 0), ORV_ERROR_INVALID_ARGUMENT);
}

TEST_F(Codeset, LeavesTheProcesssLocaleAlone) {
    set("LC_ALL", "C.UTF-8");
    const std::string before = std::setlocale(LC_ALL, nullptr);
    EXPECT_EQ(ask(), "UTF-8");
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
    EXPECT_EQ(before, "C");
}

TEST(CodePage, ASystemWithLocaleCodesetsHasNone) {
    EXPECT_EQ(orvSystemCodePage(), 0);
}

} // namespace
