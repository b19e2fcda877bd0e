// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The classes of UTF-16 units: the shape of the table, named units, and each function over
/// all units.
#include "orv/liborvxx/locale/char_class.h"

#include "orv/liborvxx/text/char_traits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <map>
#include <set>
#include <type_traits>

namespace {

using namespace orv::detail;
using orv::char16;
using orv::char16_int;

constexpr unsigned UNITS = 0x10000;

unsigned maskOf(unsigned unit) {
    return charClass(char16_int(unit));
}

// The table.

TEST(CharClassTable, HasUniformPagesInTheIndexAndAllOthersInTheDataOnceEach) {
    static_assert(std::size(CharClassTable().index) == 4096);
    static_assert(std::size(CharClassTable().data) == 5856);
    std::map<unsigned, int> uniform;
    std::set<unsigned> places;
    for (const unsigned entry : charClassTable.index) {
        if ((entry & 0x8000U) != 0) {
            ++uniform[entry & 0x7FFFU];
        } else {
            EXPECT_EQ(entry % 16, 0U);
            EXPECT_LE(entry + 16, 5856U);
            EXPECT_TRUE(places.insert(entry).second) << "a page used twice: " << entry;
        }
    }
    EXPECT_EQ(places.size(), 366U);
    EXPECT_EQ(uniform, (std::map<unsigned, int>{{0x0000, 782},
                                                {0x0001, 10},
                                                {0x0002, 29},
                                                {0x0010, 200},
                                                {0x0020, 2},
                                                {0x0100, 2707}}));
}

TEST(CharClassTable, HasNoUniformPageInTheData) {
    for (std::size_t place = 0; place < std::size(charClassTable.data); place += 16) {
        const auto* page = charClassTable.data + place;
        EXPECT_TRUE(std::any_of(page, page + 16, [&](unsigned mask) { return mask != *page; }))
            << place;
    }
}

// Units by name.

TEST(CharClassMask, IsAsStatedForNamedUnits) {
    struct Row {
        unsigned first;
        unsigned last;
        unsigned mask;
    };
    const Row rows[] = {
        {0x0009, 0x000D, 0x0068}, {0x0085, 0x0085, 0x0068}, // white controls
        {0x0000, 0x0008, 0x0020}, {0x000E, 0x001F, 0x0020}, // other controls
        {0x0086, 0x009F, 0x0020}, {0x0020, 0x0020, 0x0048},
        {0x00A0, 0x00A0, 0x0048}, {0x1680, 0x1680, 0x0048}, // spaces
        {0x180E, 0x180E, 0x0048}, {0x2000, 0x200A, 0x0048},
        {0x202F, 0x202F, 0x0048}, {0x205F, 0x205F, 0x0048},
        {0x3000, 0x3000, 0x0048}, {0x2028, 0x2029, 0x0008}, // separators
        {0x200B, 0x200F, 0x0020},                           // zero width: no spaces
        {0x0030, 0x0039, 0x0084}, {0xFF10, 0xFF19, 0x0084}, // digits
        {0x0660, 0x0669, 0x0004}, {0x06F0, 0x06F9, 0x0004},
        {0x0966, 0x096F, 0x0004}, {0x0E50, 0x0E59, 0x0004},
        {0x0041, 0x0046, 0x0081}, {0xFF21, 0xFF26, 0x0081}, // hexadecimal digits
        {0x0061, 0x0066, 0x0082}, {0xFF41, 0xFF46, 0x0082},
        {0x0047, 0x005A, 0x0001}, {0x0067, 0x007A, 0x0002}, // other ASCII letters
        {0xFF27, 0xFF3A, 0x0001}, {0xFF47, 0xFF5A, 0x0002},
        {0x0021, 0x002F, 0x0010}, {0x003A, 0x0040, 0x0010}, // punctuation
        {0x005B, 0x0060, 0x0010}, {0x007B, 0x007E, 0x0010},
        {0xFFFD, 0xFFFD, 0x0010}, {0x00B2, 0x00B3, 0x0010},
        {0x00BC, 0x00BE, 0x0010}, // numbers that are no digits
        {0x2460, 0x2468, 0x0010}, {0x1369, 0x1371, 0x0010},
        {0x007F, 0x007F, 0x0020}, {0x00AD, 0x00AD, 0x0020},
        {0xFEFF, 0xFEFF, 0x0020}, // format
        {0x0600, 0x0603, 0x0020}, {0x06DD, 0x06DD, 0x0020},
        {0xFFF9, 0xFFFB, 0x0020}, {0x01C5, 0x01C5, 0x0003},
        {0x1F88, 0x1F8F, 0x0003}, // title case
        {0x0300, 0x0344, 0x0100}, {0x0345, 0x0345, 0x0002},
        {0x0903, 0x0903, 0x0100},                           // marks
        {0x20DD, 0x20E0, 0x0010}, {0x0488, 0x0489, 0x0010}, // enclosing marks
        {0x2160, 0x216F, 0x0001}, {0x2170, 0x217F, 0x0002}, // Roman numerals
        {0x3007, 0x3007, 0x0100}, {0x16EE, 0x16F0, 0x0100}, // other letters that are numbers
        {0x24B6, 0x24E9, 0x0010},                           // circled letters are symbols
        {0x02B0, 0x02B8, 0x0002}, {0x02B9, 0x02BF, 0x0100}, // modifier letters
        {0x3005, 0x3005, 0x0100}, {0x4E00, 0x4E00, 0x0100},
        {0xAC00, 0xD7A3, 0x0100},                           // letters
        {0xD800, 0xDFFF, 0x0000}, {0xE000, 0xF8FF, 0x0000}, // surrogates and private use
        {0xFDD0, 0xFDEF, 0x0000}, {0xFFFE, 0xFFFF, 0x0000}, // noncharacters
    };
    for (const Row& row : rows) {
        for (unsigned unit = row.first; unit <= row.last; ++unit) {
            EXPECT_EQ(maskOf(unit), row.mask) << std::hex << unit;
        }
    }
}

TEST(CharClassMask, IsThatOfUnicode41) {
    const std::map<unsigned, unsigned> masks = {
        {0x00AA, 0x0002}, {0x00BA, 0x0002}, // ordinal indicators
        {0x0294, 0x0002},                   // glottal stop
        {0x0374, 0x0010},                   // Greek numeral sign
        {0x10D0, 0x0100}, {0x10FA, 0x0100}, {0x10FB, 0x0010}, {0x10FC, 0x0100}, // Georgian
        {0x10A0, 0x0001},                                                       // and its capitals
        {0x13A0, 0x0100}, {0x13F4, 0x0100},                                     // Cherokee
        {0x17B4, 0x0020}, {0x17B5, 0x0020}, // Khmer inherent vowels
        {0x2132, 0x0010}, {0x2183, 0x0100}, // letters that got a lower case later
        {0x0241, 0x0001}, {0x0242, 0x0000}, // the last of one version, the first of the next
        {0x20B1, 0x0010}, {0x20B9, 0x0000}, {0x20BF, 0x0000},
    };
    for (const auto& [unit, mask] : masks) {
        EXPECT_EQ(maskOf(unit), mask) << std::hex << unit;
    }
}

TEST(CharClassMask, HasSoManyUnitsOfEachClass) {
    std::map<unsigned, int> count;
    for (unsigned unit = 0; unit < UNITS; ++unit) {
        for (unsigned bit = 1; bit <= 0x0100; bit <<= 1U) {
            count[bit] += (maskOf(unit) & bit) != 0 ? 1 : 0;
        }
        EXPECT_EQ(maskOf(unit) & ~0x01FFU, 0U);
    }
    EXPECT_EQ(count[CLASS_DIGIT], 210);
    EXPECT_EQ(count[CLASS_XDIGIT], 44);
    EXPECT_EQ(count[CLASS_WHITE], 26);
    EXPECT_EQ(count[CLASS_BLANK], 24);
}

// The functions.

struct Function {
    bool (*asks)(char16_int) noexcept;
    unsigned classes;
};
const Function FUNCTIONS[] = {
    {orv::isualnum, 0x0107}, {orv::isualpha, 0x0103},  {orv::isucntrl, 0x0020},
    {orv::isudigit, 0x0004}, {orv::isugraph, 0x0117},  {orv::isulower, 0x0002},
    {orv::isuprint, 0x01D7}, {orv::isupunct, 0x0010},  {orv::isuspace, 0x0048},
    {orv::isuupper, 0x0001}, {orv::isuxdigit, 0x0080},
};

TEST(CharClassFunctions, AskForTheirClassesInTheMask) {
    for (unsigned unit = 0; unit < UNITS; ++unit) {
        for (const Function& function : FUNCTIONS) {
            ASSERT_EQ(function.asks(char16_int(unit)), (maskOf(unit) & function.classes) != 0)
                << std::hex << unit << ' ' << function.classes;
        }
    }
}

TEST(CharClassFunctions, TakeUnitsLiteralsAndTheLowBitsOfNumbers) {
    EXPECT_TRUE(orv::isualpha(u'\u00E9'));
    EXPECT_TRUE(orv::isualpha(char16(u'\u00E9')));
    EXPECT_TRUE(orv::isudigit(char16_int(0x10030))) << "the low 16 bits";
    static_assert(!std::is_invocable_v<decltype(orv::isudigit), int>, "a number takes a cast");
    static_assert(std::is_same_v<decltype(orv::toulower(u'x')), char16_int>);
}

TEST(CharClassFunctions, AnswerForNamedUnits) {
    EXPECT_TRUE(orv::isuspace(u'\u2028'));
    EXPECT_TRUE(orv::isuspace(u'\u00A0'));
    EXPECT_FALSE(orv::isuspace(u'\u200B'));
    EXPECT_TRUE(orv::isuxdigit(u'\uFF21'));
    EXPECT_FALSE(orv::isuxdigit(u'\u0660'));
    EXPECT_TRUE(orv::isudigit(u'\u0660'));
    EXPECT_TRUE(orv::isuprint(u'\t')) << "blank-like";
    EXPECT_TRUE(orv::isuprint(u'\n'));
    EXPECT_FALSE(orv::isuprint(u'\u2028'));
    EXPECT_FALSE(orv::isugraph(u' '));
    EXPECT_TRUE(orv::isuupper(u'\u01C5') && orv::isulower(u'\u01C5')) << "title case is both";
}

TEST(CharClassFunctions, FindNoClassInTheEndMark) {
    for (const Function& function : FUNCTIONS) {
        EXPECT_FALSE(function.asks(std::char_traits<char16>::eof()));
    }
}

TEST(CharClassFunctions, AgreeWithTheCLibraryOnAsciiButForPrint) {
    for (int c = 0; c < 0x80; ++c) {
        const char16_int unit(c);
        EXPECT_EQ(orv::isualnum(unit), std::isalnum(c) != 0) << c;
        EXPECT_EQ(orv::isualpha(unit), std::isalpha(c) != 0) << c;
        EXPECT_EQ(orv::isucntrl(unit), std::iscntrl(c) != 0) << c;
        EXPECT_EQ(orv::isudigit(unit), std::isdigit(c) != 0) << c;
        EXPECT_EQ(orv::isugraph(unit), std::isgraph(c) != 0) << c;
        EXPECT_EQ(orv::isulower(unit), std::islower(c) != 0) << c;
        EXPECT_EQ(orv::isuprint(unit), std::isprint(c) != 0 || (c >= 9 && c <= 13)) << c;
        EXPECT_EQ(orv::isupunct(unit), std::ispunct(c) != 0) << c;
        EXPECT_EQ(orv::isuspace(unit), std::isspace(c) != 0) << c;
        EXPECT_EQ(orv::isuupper(unit), std::isupper(c) != 0) << c;
        EXPECT_EQ(orv::isuxdigit(unit), std::isxdigit(c) != 0) << c;
    }
}

TEST(CharClassFunctions, MapCaseByTheSimpleMapping) {
    for (unsigned unit = 0; unit < UNITS - 1; ++unit) {
        ASSERT_LT(orvUniCharToLower(unit), UNITS) << std::hex << unit;
        ASSERT_LT(orvUniCharToUpper(unit), UNITS) << std::hex << unit;
        ASSERT_EQ(orv::toulower(char16_int(unit)), char16_int(orvUniCharToLower(unit)));
        ASSERT_EQ(orv::touupper(char16_int(unit)), char16_int(orvUniCharToUpper(unit)));
    }
    EXPECT_EQ(orv::toulower(u'A'), u'a');
    EXPECT_EQ(orv::touupper(u'\u00E9'), u'\u00C9');
    EXPECT_EQ(orv::touupper(u'\u00DF'), u'\u00DF') << "one unit has no two as its upper case";
    EXPECT_EQ(orv::toulower(u'\u0130'), u'i');
    EXPECT_EQ(orv::touupper(u'\u01C5'), u'\u01C4');
    EXPECT_EQ(orv::toulower(u'\u01C5'), u'\u01C6');
    EXPECT_EQ(orv::toulower(u'\xFFFF'), u'\xFFFF');
    EXPECT_EQ(orv::touupper(u'\xFFFF'), u'\xFFFF');
}

} // namespace
