// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Flags`.
#include "orv/liborvxx/base/flags.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

namespace {

using orv::Flags;

enum Colour : unsigned int { RED = 1, GREEN = 2, BLUE = 4 };
enum class Side : unsigned char { LEFT = 1, RIGHT = 0x80 };
enum class Signed : signed char { FIRST = 1, LAST = -0x80 };

using Colours = Flags<Colour>;
using Sides = Flags<Side>;

static_assert(sizeof(Colours) == sizeof(unsigned int) && sizeof(Sides) == 1 &&
              std::is_trivially_copyable_v<Colours>);
static_assert(std::is_convertible_v<Colour, Colours> && !std::is_convertible_v<int, Colours> &&
              !std::is_constructible_v<Colours, unsigned int> &&
              !std::is_convertible_v<Side, Colours> && !std::is_constructible_v<Sides, Colours>);
// A set is no number and no truth value by oversight.
static_assert(!std::is_convertible_v<Colours, bool> && !std::is_convertible_v<Colours, int>);
static_assert(std::is_same_v<Flags<Signed>::mask_type, unsigned char>);

static_assert(Colours().mask() == 0 && !Colours() && Colours(BLUE).mask() == 4);
static_assert((Colours(RED) | BLUE).mask() == 5 && (RED | Colours(BLUE)).mask() == 5);

TEST(FlagsTest, HoldsWhatWasPutIn) {
    Colours colours;
    EXPECT_FALSE(static_cast<bool>(colours));
    EXPECT_FALSE(colours.has(RED));
    colours |= RED;
    colours |= BLUE;
    EXPECT_TRUE(static_cast<bool>(colours));
    EXPECT_TRUE(colours.has(RED));
    EXPECT_FALSE(colours.has(GREEN));
    EXPECT_TRUE(colours.has(BLUE));
    EXPECT_EQ(colours.mask(), 5U);
    colours = GREEN;
    EXPECT_EQ(colours, Colours(GREEN));
}

TEST(FlagsTest, HasSeveralIfItHasEach) {
    const Colours colours = Colours(RED) | BLUE;
    EXPECT_TRUE(colours.has(Colours(RED) | BLUE));
    EXPECT_FALSE(colours.has(Colours(RED) | GREEN));
    EXPECT_TRUE(colours.has(Colours()));
}

TEST(FlagsTest, CombinesAsSetsDo) {
    const Colours a = Colours(RED) | GREEN;
    const Colours b = Colours(GREEN) | BLUE;
    EXPECT_EQ((a | b).mask(), 7U);
    EXPECT_EQ(a & b, Colours(GREEN));
    EXPECT_EQ(a ^ b, Colours(RED) | BLUE);
    EXPECT_EQ(a & ~b, Colours(RED));
    EXPECT_EQ(~~a, a);
    EXPECT_NE(a, b);
    Colours c = a;
    c &= b;
    EXPECT_EQ(c, Colours(GREEN));
    c ^= b;
    EXPECT_EQ(c, Colours(BLUE));
    c ^= BLUE;
    EXPECT_EQ(c, Colours());
}

TEST(FlagsTest, StaysWithinTheIntegerOfTheEnumeration) {
    EXPECT_EQ((~Sides()).mask(), 0xFF);
    EXPECT_EQ((~Sides(Side::LEFT)).mask(), 0xFE);
    EXPECT_EQ((Sides(Side::LEFT) | Side::RIGHT).mask(), 0x81);
    EXPECT_EQ(Flags<Signed>(Signed::LAST).mask(), 0x80);
    EXPECT_TRUE((Flags<Signed>(Signed::FIRST) | Signed::LAST).has(Signed::LAST));
    EXPECT_EQ((~Colours()).mask(), 0xFFFFFFFFU);
}

TEST(FlagsTest, GoesThroughItsMask) {
    for (unsigned int mask = 0; mask < 8; ++mask) {
        EXPECT_EQ(Colours::fromMask(mask).mask(), mask);
    }
    EXPECT_EQ(Colours::fromMask(5), Colours(RED) | BLUE);
}

} // namespace
