// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::ctype<char16>`: each function over all units, and the facet in a locale.
#include "orv/liborvxx/locale/ctype.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/locale/char_class.h"
#include "orv/liborvxx/text/literals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::char16_int;
using Facet = std::ctype<char16>;
using Mask = std::ctype_base::mask;

constexpr unsigned UNITS = 0x10000;

static_assert(std::is_base_of_v<std::locale::facet, Facet>);
static_assert(std::is_base_of_v<std::ctype_base, Facet>);
static_assert(std::is_same_v<Facet::char_type, char16>);

const std::locale& here() {
    static const std::locale made(std::locale::classic(), new Facet);
    return made;
}
const Facet& facet() {
    return std::use_facet<Facet>(here());
}

// Every unit once, in order.
const orv::ustring& allUnits() {
    static const orv::ustring units = [] {
        orv::ustring text;
        for (unsigned unit = 0; unit < UNITS; ++unit) {
            text.push_back(char16(unit));
        }
        return text;
    }();
    return units;
}

bool isBlank(char16 c) {
    const bool endsLine = orv::isucntrl(c) || c == u'\u2028' || c == u'\u2029';
    return c == u'\t' || (orv::isuspace(c) && !endsLine);
}

struct Class {
    Mask mask;
    bool (*holds)(char16);
};
template <bool (*Asks)(char16_int) noexcept>
bool asks(char16 c) {
    return Asks(c);
}
const Class CLASSES[] = {
    {Facet::alnum, asks<orv::isualnum>},
    {Facet::alpha, asks<orv::isualpha>},
    {Facet::blank, isBlank},
    {Facet::cntrl, asks<orv::isucntrl>},
    {Facet::digit, asks<orv::isudigit>},
    {Facet::graph, asks<orv::isugraph>},
    {Facet::lower, asks<orv::isulower>},
    {Facet::print, asks<orv::isuprint>},
    {Facet::punct, asks<orv::isupunct>},
    {Facet::space, asks<orv::isuspace>},
    {Facet::upper, asks<orv::isuupper>},
    {Facet::xdigit, asks<orv::isuxdigit>},
};

TEST(CtypeIs, SaysOfEachUnitWhatTheFreeFunctionsSay) {
    for (const Class& c : CLASSES) {
        for (const char16 unit : allUnits()) {
            ASSERT_EQ(facet().is(c.mask, unit), c.holds(unit))
                << static_cast<unsigned>(unit) << ' ' << c.mask;
        }
    }
}

TEST(CtypeIs, TakesSeveralClassesAtOnce) {
    const Mask either = static_cast<Mask>(Facet::digit | Facet::punct);
    EXPECT_TRUE(facet().is(either, u'5'));
    EXPECT_TRUE(facet().is(either, u'!'));
    EXPECT_FALSE(facet().is(either, u'a'));
    EXPECT_FALSE(facet().is(Mask(), u'a'));
}

TEST(CtypeIs, WritesTheMasksOfARange) {
    std::vector<Mask> masks(UNITS + 1, Mask());
    const orv::ustring& units = allUnits();
    const char16* end = units.data() + units.size();
    EXPECT_EQ(facet().is(units.data(), end, masks.data()), end);
    EXPECT_EQ(masks[UNITS], Mask()) << "nothing behind the range";
    for (const Class& c : CLASSES) {
        for (std::size_t i = 0; i < UNITS; ++i) {
            ASSERT_EQ((masks[i] & c.mask) != 0, c.holds(units[i])) << i << ' ' << c.mask;
        }
    }
    EXPECT_EQ(facet().is(end, end, nullptr), end);
}

TEST(CtypeIs, CountsATabAsBlankAndPrintableAndALineFeedAsPrintableAlone) {
    EXPECT_TRUE(facet().is(Facet::blank, u'\t'));
    EXPECT_TRUE(facet().is(Facet::print, u'\t'));
    EXPECT_TRUE(facet().is(Facet::print, u'\n'));
    for (const char16 c : u"\n\v\f\r\u0085\u2028\u2029\u200B"_u) {
        EXPECT_FALSE(facet().is(Facet::blank, c)) << static_cast<unsigned>(c);
    }
    for (const char16 c : u" \u00A0\u1680\u180E\u2000\u200A\u202F\u205F\u3000"_u) {
        EXPECT_TRUE(facet().is(Facet::blank, c)) << static_cast<unsigned>(c);
    }
}

// A bit of masks that no class has, or 0 if there is none.
constexpr Mask strayBits() {
    Mask known = Mask();
    for (const Mask mask :
         {Facet::alnum, Facet::alpha, Facet::blank, Facet::cntrl, Facet::digit, Facet::graph,
          Facet::lower, Facet::print, Facet::punct, Facet::space, Facet::upper, Facet::xdigit}) {
        known = static_cast<Mask>(known | mask);
    }
    return static_cast<Mask>(~known);
}

TEST(CtypeIs, IgnoresBitsThatNoClassHas) {
    const Mask stray = strayBits();
    EXPECT_NE(stray, 0) << "the test says nothing where each bit has its class";
    std::vector<Mask> masks(UNITS);
    const orv::ustring& units = allUnits();
    facet().is(units.data(), units.data() + UNITS, masks.data());
    EXPECT_TRUE(
        std::all_of(masks.begin(), masks.end(), [&](Mask mask) { return (mask & stray) == 0; }));
    EXPECT_FALSE(facet().is(stray, u'a'));
    const auto text = u"ab c"_u;
    const auto both = static_cast<Mask>(Facet::space | stray);
    EXPECT_EQ(facet().scan_is(both, text.begin(), text.end()), text.begin() + 2);
    EXPECT_EQ(facet().scan_is(stray, text.begin(), text.end()), text.end());
    EXPECT_EQ(facet().scan_not(both, text.begin(), text.end()), text.begin());
}

TEST(CtypeScan, FindsTheFirstUnitOfAClassAndTheFirstOfNone) {
    const auto text = u"12\u0663ab\u3000c"_u;
    const char16* low = text.begin();
    const char16* high = text.end();
    EXPECT_EQ(facet().scan_is(Facet::alpha, low, high), low + 3);
    EXPECT_EQ(facet().scan_is(Facet::space, low, high), low + 5);
    EXPECT_EQ(facet().scan_is(Facet::digit, low, high), low);
    EXPECT_EQ(facet().scan_is(Facet::punct, low, high), high);
    EXPECT_EQ(facet().scan_not(Facet::digit, low, high), low + 3);
    EXPECT_EQ(facet().scan_not(Facet::space, low, high), low);
    EXPECT_EQ(facet().scan_not(Facet::print, low, high), high);
    EXPECT_EQ(facet().scan_is(Facet::digit, high, high), high);
    EXPECT_EQ(facet().scan_not(Facet::digit, high, high), high);
}

TEST(CtypeScan, AgreesWithIsAtEveryUnit) {
    for (const Class& c : CLASSES) {
        for (const char16& unit : allUnits()) {
            const bool is = c.holds(unit);
            ASSERT_EQ(facet().scan_is(c.mask, &unit, &unit + 1), &unit + (is ? 0 : 1));
            ASSERT_EQ(facet().scan_not(c.mask, &unit, &unit + 1), &unit + (is ? 1 : 0));
        }
    }
}

TEST(CtypeCase, MapsEachUnitByTheSimpleMapping) {
    for (const char16 unit : allUnits()) {
        const auto value = static_cast<std::uint32_t>(unit);
        ASSERT_EQ(facet().toupper(unit), char16(orvUniCharToUpper(value))) << value;
        ASSERT_EQ(facet().tolower(unit), char16(orvUniCharToLower(value))) << value;
    }
    EXPECT_EQ(facet().toupper(u'\u00DF'), u'\u00DF');
    EXPECT_EQ(facet().tolower(u'\xFFFF'), u'\xFFFF');
}

TEST(CtypeCase, MapsARangeInPlace) {
    orv::ustring upper = allUnits();
    EXPECT_EQ(facet().toupper(upper.data(), upper.data() + UNITS), upper.data() + UNITS);
    orv::ustring lower = allUnits();
    EXPECT_EQ(facet().tolower(lower.data(), lower.data() + UNITS), lower.data() + UNITS);
    for (std::size_t i = 0; i < UNITS; ++i) {
        ASSERT_EQ(upper[i], facet().toupper(char16(i))) << i;
        ASSERT_EQ(lower[i], facet().tolower(char16(i))) << i;
    }
    orv::ustring text = u"aBc"_u;
    facet().toupper(text.data() + 1, text.data() + 2);
    facet().tolower(text.data() + 2, text.data() + 2);
    EXPECT_EQ(text, u"aBc"_u);
    facet().toupper(text.data(), text.data() + 1);
    EXPECT_EQ(text, u"ABc"_u) << "nothing outside the range";
}

TEST(CtypeCase, DoesNotJoinSurrogatePairs) {
    orv::ustring text = u"\U00010428"_u; // a small letter of Deseret
    facet().toupper(text.data(), text.data() + text.size());
    EXPECT_EQ(text, u"\U00010428"_u);
}

TEST(CtypeWiden, GivesAsciiItsUnitAndOtherBytesTheReplacementCharacter) {
    std::string bytes;
    for (int byte = 0; byte < 0x100; ++byte) {
        bytes.push_back(static_cast<char>(byte));
    }
    orv::ustring units(0x101, u'x');
    const char* end = bytes.data() + bytes.size();
    EXPECT_EQ(facet().widen(bytes.data(), end, units.data()), end);
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const char16 expected = byte < 0x80 ? char16(byte) : char16(u'\uFFFD');
        EXPECT_EQ(facet().widen(bytes[byte]), expected) << byte;
        EXPECT_EQ(units[byte], expected) << byte;
    }
    EXPECT_EQ(units[0x100], u'x');
    EXPECT_EQ(facet().widen('\x80'), u'\uFFFD');
    EXPECT_EQ(facet().widen(end, end, nullptr), end);
}

TEST(CtypeNarrow, GivesAsciiItsByteDigitsTheirAsciiDigitAndTheRestTheDefault) {
    std::string bytes(UNITS + 1, 'x');
    const orv::ustring& units = allUnits();
    const char16* end = units.data() + units.size();
    EXPECT_EQ(facet().narrow(units.data(), end, '?', bytes.data()), end);
    int digits = 0;
    for (unsigned unit = 0; unit < UNITS; ++unit) {
        const int digit = orvUniCharDigitValue(unit);
        const char expected = unit < 0x80  ? static_cast<char>(unit)
                              : digit >= 0 ? static_cast<char>('0' + digit)
                                           : '?';
        digits += unit >= 0x80 && digit >= 0 ? 1 : 0;
        ASSERT_EQ(facet().narrow(units[unit], '?'), expected) << unit;
        ASSERT_EQ(bytes[unit], expected) << unit;
    }
    EXPECT_EQ(bytes[UNITS], 'x');
    EXPECT_GE(digits, 200);
    EXPECT_EQ(facet().narrow(u'\u0663', '?'), '3');
    EXPECT_EQ(facet().narrow(u'\u00E9', '?'), '?');
    EXPECT_EQ(facet().narrow(u'\u00E9', '\0'), '\0');
    EXPECT_EQ(facet().narrow(u'A', '?'), 'A');
    EXPECT_EQ(facet().narrow(end, end, '?', nullptr), end);
}

TEST(CtypeInALocale, ServesTheStandardFunctionsOnCharacters) {
    EXPECT_TRUE(std::has_facet<Facet>(here()));
    EXPECT_FALSE(std::has_facet<Facet>(std::locale::classic()));
    const char16 letter = u'\u0436';
    EXPECT_TRUE(std::isalpha(letter, here()));
    EXPECT_TRUE(std::islower(letter, here()));
    EXPECT_FALSE(std::isspace(letter, here()));
    EXPECT_TRUE(std::isspace(char16(u'\u3000'), here()));
    EXPECT_TRUE(std::use_facet<Facet>(here()).is(std::ctype_base::blank, u'\u3000'));
    EXPECT_EQ(std::toupper(letter, here()), u'\u0416');
    EXPECT_EQ(std::tolower(char16(u'\u0416'), here()), letter);
}

TEST(CtypeInALocale, IsDeletedWithTheLastLocaleUnlessItsOwnerDoes) {
    static int alive = 0;
    struct Counted : Facet {
        explicit Counted(std::size_t refs) : Facet(refs) { ++alive; }
        ~Counted() override { --alive; }
    };
    {
        const std::locale one(std::locale::classic(), new Counted(0));
        const std::locale two = one;
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
    {
        Counted owned(1);
        { const std::locale holder(std::locale::classic(), &owned); }
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

// What derives from the facet can take each function over, the range and the single unit.
TEST(CtypeInALocale, CallsWhatADerivedFacetOverrides) {
    struct Shouting : Facet {
        using Facet::do_is;
        using Facet::do_tolower;
        char16 do_tolower(char16 c) const override { return toupper(c); }
        bool do_is(mask m, char16 c) const override { return c == u'!' || Facet::do_is(m, c); }
    };
    const std::locale loud(std::locale::classic(), new Shouting);
    EXPECT_EQ(std::tolower(char16(u'a'), loud), u'A');
    EXPECT_TRUE(std::isspace(char16(u'!'), loud));
}

} // namespace
