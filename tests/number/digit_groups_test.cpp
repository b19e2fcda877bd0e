// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Eight digits at a time, with every unit in every place.
#include "orv/liborvxx/number/detail/digit_groups.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>

namespace {

using namespace orv::detail;

template <class CharT>
class DigitGroups : public testing::Test {};
using Units = testing::Types<char, orv::char16>;
TYPED_TEST_SUITE(DigitGroups, Units);

TYPED_TEST(DigitGroups, TakeEightDigitsAndNothingElse) {
    // Where the first unit lies in the highest byte, digits are taken one by one.
    constexpr bool TAKES = std::endian::native == std::endian::little;
    constexpr unsigned UNITS = sizeof(TypeParam) == 1 ? 0x100 : 0x10000;
    for (const char other : {'0', '5', '9'}) {
        for (std::size_t place = 0; place < 8; ++place) {
            std::array<TypeParam, 8> text{};
            text.fill(static_cast<TypeParam>(other));
            for (unsigned unit = 0; unit < UNITS; ++unit) {
                text[place] = static_cast<TypeParam>(unit);
                std::uint64_t expected = 0;
                for (std::size_t i = 0; i < 8; ++i) {
                    expected = expected * 10 +
                               (i == place ? unit - '0' : static_cast<unsigned>(other - '0'));
                }
                orv::words::Limb value = 0;
                const bool digit = TAKES && unit >= '0' && unit <= '9';
                ASSERT_EQ(takeDigitGroup(text.data(), value), digit) << unit << " at " << place;
                if (digit) {
                    ASSERT_EQ(value, expected) << unit << " at " << place;
                }
            }
        }
    }
}

TEST(DigitOf, KnowsDigitsOfEveryScriptInUnitsOnly) {
    EXPECT_EQ(digitOf('7'), 7U);
    EXPECT_EQ(digitOf(orv::char16(u'7')), 7U);
    EXPECT_EQ(digitOf(orv::char16(u'\u0667')), 7U);
    for (const char unit : {'/', ':', '\0', '\xB2', '\xFF'}) {
        EXPECT_GT(digitOf(unit), 9U) << static_cast<int>(unit);
    }
    for (const char16_t unit : {u'/', u':', u'\0', u'\u00B2', u'\uFFFF', u'\xD835'}) {
        EXPECT_GT(digitOf(orv::char16(unit)), 9U) << static_cast<unsigned>(unit);
    }
}

} // namespace
