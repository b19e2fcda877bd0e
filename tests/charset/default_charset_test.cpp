// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The choice of the default character set from what the environment and the system say. The
/// function is internal; its file is compiled into this program.
#include "orv/liborvxx/charset/default_charset.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/literals.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace orv::literals;
using orv::Charset;
using orv::detail::chooseDefaultCharset;

// Stands in for a set that the library does not have, so that its name can be chosen.
class StandIn : public Charset {
public:
    explicit StandIn(orv::ustring_ref name) : Charset(0, name, {}) {}

    std::unique_ptr<orv::CharsetDecoder> newDecoder() override {
        return Charset::US_ASCII->newDecoder();
    }
    std::unique_ptr<orv::CharsetEncoder> newEncoder() override {
        return Charset::US_ASCII->newEncoder();
    }
};

// The set of that name; one is made if there is none. Sets live for ever.
Charset* named(orv::ustring_ref name) {
    Charset* const set = Charset::forName(name);
    return set != nullptr ? set : new StandIn(name);
}

TEST(ChooseDefaultCharset, TheWantedNameComesFirst) {
    EXPECT_EQ(chooseDefaultCharset("utf8", 1252, "ISO-8859-1"), Charset::UTF_8);
    EXPECT_EQ(chooseDefaultCharset("latin1", 0, "UTF-8"), Charset::ISO_8859_1);
    EXPECT_EQ(chooseDefaultCharset("CESU-8", 0, ""), Charset::CESU_8);
}

TEST(ChooseDefaultCharset, AnUnknownWantedNameIsUsAscii) {
    EXPECT_EQ(chooseDefaultCharset("no such set", 1252, "UTF-8"), Charset::US_ASCII);
    EXPECT_EQ(chooseDefaultCharset("\xFF", 0, "UTF-8"), Charset::US_ASCII);
    EXPECT_EQ(chooseDefaultCharset("-", 0, "UTF-8"), Charset::US_ASCII);
    EXPECT_EQ(chooseDefaultCharset("$$", 932, "UTF-8"), Charset::US_ASCII);
}

TEST(ChooseDefaultCharset, ACodePageComesSecond) {
    const struct {
        int codePage;
        orv::ustring_ref name;
    } rows[] = {
        {874, u"windows-874"_u},   {932, u"Windows-31J"_u},   {936, u"x-mswin-936"_u},
        {949, u"x-windows-949"_u}, {950, u"Big5"_u},          {1250, u"windows-1250"_u},
        {1251, u"windows-1251"_u}, {1252, u"windows-1252"_u}, {1253, u"windows-1253"_u},
        {1254, u"windows-1254"_u}, {1255, u"windows-1255"_u}, {1256, u"windows-1256"_u},
        {1257, u"windows-1257"_u}, {1258, u"windows-1258"_u},
    };
    // All names, so that a wrong one of them would be found.
    for (const auto& row : rows) {
        named(row.name);
    }
    named(u"x-windows-950"_u);
    for (const auto& row : rows) {
        EXPECT_EQ(chooseDefaultCharset("", row.codePage, "UTF-8"), Charset::forName(row.name))
            << row.codePage;
    }
}

TEST(ChooseDefaultCharset, AnyOtherCodePageIsUsAscii) {
    for (const int codePage : {1, 437, 850, 873, 875, 1249, 1259, 65001, -1, 28591}) {
        EXPECT_EQ(chooseDefaultCharset("", codePage, "UTF-8"), Charset::US_ASCII) << codePage;
    }
}

TEST(ChooseDefaultCharset, TheCodesetOfTheLocaleComesThird) {
    EXPECT_EQ(chooseDefaultCharset("", 0, "UTF-8"), Charset::UTF_8);
    EXPECT_EQ(chooseDefaultCharset("", 0, "utf8"), Charset::UTF_8);
    EXPECT_EQ(chooseDefaultCharset("", 0, "ISO-8859-1"), Charset::ISO_8859_1);
    EXPECT_EQ(chooseDefaultCharset("", 0, "ANSI_X3.4-1968"), Charset::US_ASCII);
    Charset* const cyrillic = named(u"KOI8-R"_u);
    EXPECT_EQ(chooseDefaultCharset("", 0, "KOI8-R"), cyrillic);
    EXPECT_EQ(chooseDefaultCharset("", 0, "EUC-XX"), Charset::US_ASCII);
    EXPECT_EQ(chooseDefaultCharset("", 0, ""), Charset::US_ASCII);
    EXPECT_EQ(chooseDefaultCharset(orv::string_ref(), 0, orv::string_ref()), Charset::US_ASCII);
}

} // namespace
