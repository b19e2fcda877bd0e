// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The table of character classes against the current properties of all units, cut to the
/// repertoire of Unicode 4.1: they agree but for what later versions changed.
#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/locale/char_class.h"
#include "tests/liborv/unicode/ucd_files.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

using orv::char16_int;

// Whether a unit is in Unicode 4.1.
std::vector<bool> repertoire() {
    std::vector<bool> known(0x10000);
    for (const char* version : {"1.1", "2.0", "2.1", "3.0", "3.1", "3.2", "4.0", "4.1"}) {
        const auto added = orv::test::readProperty(ORV_UCD_DIR, "DerivedAge.txt", version);
        for (std::size_t unit = 0; unit < known.size(); ++unit) {
            known[unit] = known[unit] || added[unit];
        }
    }
    return known;
}

// Letters, marks and letter numbers take their case from the derived properties.
unsigned letterMask(unsigned unit) {
    const auto properties = static_cast<unsigned>(orvUniCharProperties(unit));
    if ((properties & ORV_UNI_TITLECASE) != 0) {
        return 0x0003;
    }
    return (properties & ORV_UNI_UPPERCASE) != 0   ? 0x0001
           : (properties & ORV_UNI_LOWERCASE) != 0 ? 0x0002
                                                   : 0x0100;
}

unsigned hexBit(unsigned unit) {
    const unsigned ascii = unit >= 0xFF01 && unit <= 0xFF5E ? unit - 0xFEE0 : unit;
    return ascii < 0x80 && std::string("0123456789ABCDEFabcdef").find(static_cast<char>(ascii)) !=
                               std::string::npos
               ? 0x0080
               : 0;
}

// The mask by the properties of today.
unsigned maskToday(unsigned unit) {
    switch (orvUniCharClass(unit)) {
    case ORV_UNI_CLASS_UPPERCASE_LETTER:
    case ORV_UNI_CLASS_LOWERCASE_LETTER:
    case ORV_UNI_CLASS_TITLECASE_LETTER:
    case ORV_UNI_CLASS_MODIFIER_LETTER:
    case ORV_UNI_CLASS_OTHER_LETTER:
    case ORV_UNI_CLASS_NONSPACING_MARK:
    case ORV_UNI_CLASS_SPACING_MARK:
    case ORV_UNI_CLASS_LETTER_NUMBER:
        return letterMask(unit) | hexBit(unit);
    case ORV_UNI_CLASS_DECIMAL_NUMBER:
        return 0x0004 | hexBit(unit);
    case ORV_UNI_CLASS_SPACE_SEPARATOR:
        return 0x0048;
    case ORV_UNI_CLASS_LINE_SEPARATOR:
    case ORV_UNI_CLASS_PARAGRAPH_SEPARATOR:
        return 0x0008;
    case ORV_UNI_CLASS_CONTROL:
        return (orvUniCharProperties(unit) & ORV_UNI_WHITE_SPACE) != 0 ? 0x0068 : 0x0020;
    case ORV_UNI_CLASS_FORMAT:
        return 0x0020;
    case ORV_UNI_CLASS_UNASSIGNED:
    case ORV_UNI_CLASS_SURROGATE:
    case ORV_UNI_CLASS_PRIVATE_USE:
        return 0;
    default: // punctuation, symbols, other numbers, enclosing marks
        return 0x0010;
    }
}

// What later versions changed, and how many units each change is about.
struct Change {
    const char* what;
    unsigned first;
    unsigned last;
    unsigned then;
    unsigned today;
    int units;
};
const Change CHANGES[] = {
    {"the glottal stop lost its case", 0x0294, 0x0294, 0x0002, 0x0100, 1},
    {"a Greek sign became a letter", 0x0374, 0x0374, 0x0010, 0x0100, 1},
    {"Georgian letters got case", 0x10D0, 0x10FA, 0x0100, 0x0002, 43},
    {"a Georgian modifier letter got case", 0x10FC, 0x10FC, 0x0100, 0x0002, 1},
    {"Cherokee letters got case", 0x13A0, 0x13F4, 0x0100, 0x0001, 85},
    {"Khmer format characters became marks", 0x17B4, 0x17B5, 0x0020, 0x0100, 2},
    {"a Mongolian space became a format character", 0x180E, 0x180E, 0x0048, 0x0020, 1},
    {"a symbol became a letter", 0x2132, 0x2132, 0x0010, 0x0001, 1},
    {"a number became an upper-case letter", 0x2183, 0x2183, 0x0100, 0x0001, 1},
};

TEST(CharClassTableAgainstProperties, DiffersOnlyInWhatLaterVersionsChanged) {
    const auto known = repertoire();
    std::map<std::string, int> found;
    int agreeing = 0;
    for (unsigned unit = 0; unit < known.size(); ++unit) {
        const unsigned mask = orv::detail::charClass(char16_int(unit));
        const unsigned today = known[unit] ? maskToday(unit) : 0;
        if (mask == today) {
            ++agreeing;
            continue;
        }
        bool explained = false;
        for (const Change& change : CHANGES) {
            if (unit >= change.first && unit <= change.last && mask == change.then &&
                today == change.today) {
                ++found[change.what];
                explained = true;
            }
        }
        EXPECT_TRUE(explained) << std::hex << unit << ": " << mask << ", today " << today;
    }
    int changed = 0;
    for (const Change& change : CHANGES) {
        EXPECT_EQ(found[change.what], change.units) << change.what;
        changed += change.units;
    }
    EXPECT_EQ(agreeing, 0x10000 - changed);
}

TEST(CharClassTableAgainstProperties, GivesNoClassToWhatLaterVersionsAdded) {
    const auto known = repertoire();
    int later = 0;
    for (unsigned unit = 0; unit < known.size(); ++unit) {
        if (!known[unit] && orvUniCharIsDefined(unit) != 0) {
            EXPECT_EQ(orv::detail::charClass(char16_int(unit)), 0U) << std::hex << unit;
            ++later;
        }
    }
    EXPECT_GT(later, 3000) << "the comparison says nothing unless there are such units";
}

} // namespace
