// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The multi-byte sets with tables: names, numbers, aliases, and what is no name.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/support/charset_facts.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace {

using orv::Charset;

Charset* find(std::u16string_view name) {
    return Charset::forName(orv::as_ustring_ref(name));
}

// A row of the catalogue of double-byte sets, whose coders all have the same measures.
orvtest::CharsetFacts row(std::u16string_view name, int mibEnum,
                          std::vector<std::u16string_view> aliases) {
    return {name, mibEnum, std::move(aliases), 0.5F, 1, 2.0F, 2};
}

TEST(DoubleByteSets, AreAsTheCatalogueSays) {
    const orvtest::CharsetFacts rows[] = {
        row(u"Shift_JIS", 17, {u"MS_Kanji", u"csShiftJIS", u"shift-jis", u"sjis", u"x-sjis"}),
        row(u"Windows-31J", 2024, {u"csWindows31J", u"MS932", u"windows-932"}),
        row(u"GBK", 113, {u"CP936", u"windows-936", u"csGBK"}),
        row(u"x-mswin-936", 0, {u"ms936", u"ms_936"}),
        row(u"x-windows-949", 0, {u"ms949", u"ms_949", u"windows-949", u"windows949"}),
        row(u"Big5", 2026, {u"csBig5"}),
        row(u"x-windows-950", 0, {u"ms950", u"windows-950"}),
        row(u"Big5-HKSCS", 2101, {u"csBig5HKSCSBig5_HKSCS", u"big5hk", u"big5hkscs"}),
    };
    for (const orvtest::CharsetFacts& facts : rows) {
        SCOPED_TRACE(testing::PrintToString(facts.name));
        Charset* const charset = find(facts.name);
        ASSERT_NE(charset, nullptr);
        orvtest::checkCharsetFacts(*charset, facts);
    }
}

TEST(Gb18030Set, IsAsTheCatalogueSays) {
    Charset* const charset = find(u"GB18030");
    ASSERT_NE(charset, nullptr);
    orvtest::checkCharsetFacts(
        *charset, {u"GB18030", 114, {u"csGB18030", u"GB18030-2000"}, 1.0F, 1, 2.0F, 4});
}

TEST(DoubleByteSets, TellCodePage936FromGbk) {
    Charset* const gbk = find(u"GBK");
    EXPECT_EQ(find(u"CP936"), gbk);
    EXPECT_EQ(find(u"cp-936"), gbk);
    EXPECT_EQ(find(u"windows-936"), gbk);
    EXPECT_EQ(find(u"WINDOWS_936"), gbk);
    EXPECT_NE(find(u"ms936"), gbk);
    EXPECT_EQ(find(u"MS-936"), find(u"x-mswin-936"));
}

TEST(DoubleByteSets, AreFoundWithoutRegardToCase) {
    EXPECT_EQ(find(u"SHIFT_JIS"), find(u"Shift_JIS"));
    EXPECT_EQ(find(u"SJIS"), find(u"Shift_JIS"));
    EXPECT_EQ(find(u"windows-31j"), find(u"MS932"));
    EXPECT_EQ(find(u"BIG5"), find(u"csbig5"));
    EXPECT_EQ(find(u"gb18030"), find(u"GB18030-2000"));
}

TEST(DoubleByteSets, AreNotFoundByPiecesOfAnAliasOrByNamesOfOthers) {
    for (const std::u16string_view name :
         {u"csBig5HKSCS", u"Big5HKSCSBig5_HKSCS", u"CP932", u"CP949", u"CP950", u"GB2312",
          u"EUC-KR", u"x-windows-936", u"x-mswin-949", u"GB18030-2005", u"windows-31"}) {
        EXPECT_EQ(find(name), nullptr) << testing::PrintToString(name);
    }
    // The registry passes over the underscore of the canonical name.
    EXPECT_NE(find(u"Big5_HKSCS"), nullptr);
}

} // namespace
