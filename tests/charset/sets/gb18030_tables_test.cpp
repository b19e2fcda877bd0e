// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The tables of GB18030: counts, the range table row by row, and the two as inverses.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/tables/gb18030.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/one_step.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace orv::literals;
namespace tables = orv::tables::gb18030;

constexpr std::uint32_t PAGE = 64;
constexpr std::uint32_t UNREACHED = 0xFFFF;
constexpr std::uint32_t FIRST_ROW = 0xFFFE;
constexpr std::uint32_t FIRST_LINEAR = 0xFFF2;
constexpr std::uint32_t END_OF_BMP = 63'742;
constexpr std::uint32_t NO_CHARACTER = 0xDFFF;

orv::Charset& gb18030() {
    return *orv::Charset::forName(u"GB18030"_u);
}

std::size_t pagesStored(const auto& index) {
    return static_cast<std::size_t>(std::count_if(std::begin(index), std::end(index),
                                                  [](auto entry) { return entry < FIRST_LINEAR; }));
}

// Pages that the row stands for, as one stretch from its first position to its last.
struct Stretch {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::size_t pages = 0;

    bool operator==(const Stretch&) const = default;
};

Stretch stretchOf(const auto& index, std::uint32_t row) {
    Stretch stretch;
    for (std::uint32_t page = 0; page < std::size(index); ++page) {
        if (index[page] != FIRST_ROW - row) {
            continue;
        }
        if (stretch.pages++ == 0) {
            stretch.first = page * PAGE;
        }
        stretch.last = page * PAGE + PAGE - 1;
    }
    return stretch;
}

Stretch stretch(std::uint32_t first, std::uint32_t last) {
    return {first, last, (last + 1 - first) / PAGE};
}

std::uint32_t characterAt(std::uint32_t linear) {
    const std::uint32_t entry = tables::DECODE_INDEX[linear / PAGE];
    if (entry < FIRST_LINEAR) {
        return static_cast<std::uint32_t>(tables::DECODE_DATA[linear % PAGE + entry]);
    }
    return linear - static_cast<std::uint32_t>(tables::DELTAS[FIRST_ROW - entry]);
}

std::uint32_t linearOf(std::uint32_t unit) {
    const std::uint32_t entry = tables::ENCODE_INDEX[unit / PAGE];
    if (entry < FIRST_LINEAR) {
        return tables::ENCODE_DATA[unit % PAGE + entry];
    }
    return unit + static_cast<std::uint32_t>(tables::DELTAS[FIRST_ROW - entry]);
}

TEST(Gb18030Tables, HaveTheCountsOfTheirDescription) {
    EXPECT_EQ(std::size(tables::DECODE_INDEX), 996U);
    EXPECT_EQ(pagesStored(tables::DECODE_INDEX), 494U);
    EXPECT_EQ(std::size(tables::DECODE_DATA), 31'616U);
    EXPECT_EQ(std::size(tables::ENCODE_INDEX), 1'024U);
    EXPECT_EQ(pagesStored(tables::ENCODE_INDEX), 493U);
    EXPECT_EQ(std::size(tables::ENCODE_DATA), 31'552U);
    EXPECT_EQ(std::size(tables::DELTAS), 13U);
}

TEST(Gb18030Tables, StorePagesInOrderEachOnce) {
    const auto check = [](const auto& index, std::size_t dataSize) {
        std::size_t next = 0;
        for (const std::uint32_t entry : index) {
            if (entry < FIRST_LINEAR) {
                EXPECT_EQ(entry, next);
                next += PAGE;
            }
        }
        EXPECT_EQ(next, dataSize);
    };
    check(tables::DECODE_INDEX, std::size(tables::DECODE_DATA));
    check(tables::ENCODE_INDEX, std::size(tables::ENCODE_DATA));
}

TEST(Gb18030Tables, MarkWhatIsNeverReached) {
    for (std::uint32_t page = 0; page < std::size(tables::DECODE_INDEX); ++page) {
        EXPECT_EQ(tables::DECODE_INDEX[page] == UNREACHED, page == 2 || page == 3) << page;
    }
    for (std::uint32_t page = 0; page < std::size(tables::ENCODE_INDEX); ++page) {
        EXPECT_EQ(tables::ENCODE_INDEX[page] == UNREACHED,
                  page >= 0xD800 / PAGE && page < 0xE000 / PAGE)
            << page;
    }
}

TEST(Gb18030Tables, HaveTheRangesOfTheirDescription) {
    const struct {
        std::int32_t delta;
        Stretch linear;
        Stretch units;
    } rows[] = {
        {24'036, stretch(25'152, 32'191), stretch(0x0480, 0x1FFF)},
        {23'746, stretch(33'600, 35'647), stretch(0x2680, 0x2E7F)},
        {23'444, stretch(37'312, 38'015), stretch(0x3640, 0x38FF)},
        {23'435, stretch(39'040, 39'871), stretch(0x3D00, 0x403F)},
        {23'433, stretch(40'192, 40'639), stretch(0x4180, 0x42FF)},
        {23'428, stretch(41'088, 41'407), stretch(0x4500, 0x463F)},
        {23'422, stretch(41'792, 42'175), stretch(0x47C0, 0x493F)},
        {23'411, stretch(42'304, 42'943), stretch(0x49C0, 0x4C3F)},
        {2'495, stretch(43'392, 57'727), stretch(0x9FC0, 0xD7FF)},
        {-1'621, stretch(57'920, 62'143), stretch(0xE880, 0xF8FF)},
        {-1'642, stretch(62'400, 63'423), stretch(0xFA40, 0xFDFF)},
        {-1'794, {}, {}},
        {147'786, {}, {}},
    };
    ASSERT_EQ(std::size(rows), std::size(tables::DELTAS));
    for (std::uint32_t row = 0; row < std::size(rows); ++row) {
        EXPECT_EQ(tables::DELTAS[row], rows[row].delta) << row;
        EXPECT_EQ(stretchOf(tables::DECODE_INDEX, row), rows[row].linear) << row;
        EXPECT_EQ(stretchOf(tables::ENCODE_INDEX, row), rows[row].units) << row;
    }
}

// The forms of the BMP are all linear indices up to 63,741 but for the single bytes from 0x80 on
// and the positions of trail byte 0x7F.
TEST(Gb18030Tables, AreInversesOverTheWholeBmpWithoutSurrogates) {
    std::vector<bool> reached(0x10000);
    std::uint32_t forms = 0;
    for (std::uint32_t linear = 0; linear < END_OF_BMP; ++linear) {
        if (linear >= 128 && linear < 256) {
            continue;
        }
        const bool trail7F =
            linear >= 256 && linear < 24'322 && (linear - 256) % 191 == 0x7F - 0x40;
        const std::uint32_t unit = characterAt(linear);
        if (trail7F) {
            ASSERT_EQ(unit, NO_CHARACTER) << linear;
            continue;
        }
        ASSERT_LT(unit, 0x10000U) << linear;
        ASSERT_NE(unit & 0xF800, 0xD800U) << linear;
        ASSERT_FALSE(reached[unit]) << linear;
        reached[unit] = true;
        ASSERT_EQ(linearOf(unit), linear);
        ++forms;
    }
    EXPECT_EQ(forms, 0x10000U - 0x800U);
}

TEST(Gb18030Tables, AreOfTheEditionOf2000) {
    const struct {
        const char* bytes;
        std::u16string text;
    } rows[] = {{"\xA2\xE3", u"\u20AC"}, {"\xA8\xBC", u"\uE7C7"}, {"\xA6\xD9", u"\uE78D"}};
    for (const auto& row : rows) {
        EXPECT_EQ(orvtest::decodeStep(gb18030(), row.bytes, 1).text, row.text);
        EXPECT_EQ(orvtest::encodeStep(gb18030(), row.text, 2).text, row.bytes);
    }
}

} // namespace
