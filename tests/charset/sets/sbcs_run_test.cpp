// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The block loop of the single-byte coders beside the plain one: texts of all lengths, with
/// an error at every place and with every amount of room.
#include "orv/liborvxx/charset/detail/unit_runs.h"
#include "orv/liborvxx/charset/sets/sbcs_run.h"
#include "orv/liborvxx/text/char16.h"
#include "tests/charset/sets/single_byte_shapes.h"
#include "tests/support/coding_call.h"
#include "tests/support/coding_direction.h"
#include "tests/support/coding_trace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

using orv::char16;
using orv::CoderResult;
using orvtest::DecodeVector;
using orvtest::EncodeVector;
using orvtest::SingleByteShape;

// Which places of a text are beyond ASCII. Blocks of ASCII stand between others in some.
using Pattern = bool (*)(std::size_t place);
constexpr Pattern PATTERNS[] = {
    [](std::size_t) { return false; },
    [](std::size_t) { return true; },
    [](std::size_t place) { return place % 7 == 3; },
    [](std::size_t place) { return place % 100 < 5; },
    [](std::size_t place) { return place % 64 == 31 || place % 64 == 63; },
    [](std::size_t place) { return place >= 32 && place < 64; },
};

// Long enough for a block of ASCII, the rest of the test for it, and another block.
constexpr std::size_t LONGEST = 32 + 64 + 32 + 16 + 4;

// Marked as counterpart of nothing.
constexpr unsigned char BAD_BYTE = 0xFF;
constexpr char16 GUARD = u'\xB6B6';

TEST(SbcsRun, CountsAsThePlainLoopAndWritesNothingElse) {
    const auto lookUp = [](unsigned char byte, char16& unit) {
        if (byte == BAD_BYTE) {
            return false;
        }
        unit = byte < 0x80 ? char16(byte) : char16(0x400 + byte);
        return true;
    };
    for (const Pattern pattern : PATTERNS) {
        for (std::size_t size = 0; size <= LONGEST; ++size) {
            // `size` itself stands for no error.
            for (std::size_t bad = 0; bad <= size; ++bad) {
                std::vector<unsigned char> bytes(size);
                for (std::size_t i = 0; i < size; ++i) {
                    bytes[i] = static_cast<unsigned char>(pattern(i) ? 0x80 + i % 0x7F : i % 0x80);
                }
                if (bad < size) {
                    bytes[bad] = BAD_BYTE;
                }
                std::vector<char16> expected(size + 1, GUARD);
                std::vector<char16> actual(size + 1, GUARD);
                ASSERT_EQ(orv::sbcs::runPlain(bytes.data(), expected.data(), size, lookUp), bad);
                ASSERT_EQ(orv::sbcs::run(bytes.data(), actual.data(), size, lookUp), bad);
                for (std::size_t i = 0; i < bad; ++i) {
                    ASSERT_EQ(expected[i],
                              bytes[i] < 0x80 ? char16(bytes[i]) : char16(0x400 + bytes[i]));
                }
                ASSERT_EQ(expected[bad], GUARD);
                ASSERT_EQ(actual, expected);
            }
        }
    }
}

TEST(SbcsRun, TellsAsciiBlocksApart) {
    std::array<unsigned char, orv::detail::ASCII_BLOCK> bytes{};
    std::array<char16, orv::detail::ASCII_BLOCK> units{};
    bytes.fill(0x7F);
    units.fill(u'\x7F');
    EXPECT_TRUE(orv::detail::isAsciiBlock(bytes.data()));
    EXPECT_TRUE(orv::detail::isAsciiBlock(units.data()));
    for (std::size_t i = 0; i < orv::detail::ASCII_BLOCK; ++i) {
        for (unsigned int bit = 7; bit < 16; ++bit) {
            units[i] = char16(1U << bit);
            EXPECT_FALSE(orv::detail::isAsciiBlock(units.data())) << i << ' ' << bit;
        }
        units[i] = u'\x7F';
        bytes[i] = 0x80;
        EXPECT_FALSE(orv::detail::isAsciiBlock(bytes.data())) << i;
        bytes[i] = 0x7F;
    }
}

// One set for each form of a coder: direct, and pages of 32, 64 and 128; total and not.
class SbcsLongTexts : public testing::TestWithParam<SingleByteShape> {
protected:
    void SetUp() override {
        for (unsigned int byte = 0x80; byte < 0x100; ++byte) {
            (GetParam().decodeTable[byte] == u'\xDFFF' ? unmapped_ : mapped_)
                .push_back(static_cast<char>(byte));
        }
    }

    // The byte of a text at a place, and its unit.
    std::string byteAt(Pattern pattern, std::size_t place) const {
        return std::string(1, pattern(place) ? mapped_[place * 37 % mapped_.size()]
                                             : static_cast<char>('!' + place % 90));
    }
    std::u16string unitOf(const std::string& byte) const {
        const auto value = static_cast<unsigned char>(byte[0]);
        return std::u16string(1, static_cast<char16_t>(GetParam().decodeTable[value]));
    }

    std::string mapped_;
    std::string unmapped_;
};

TEST_P(SbcsLongTexts, DecodeWithAnErrorAtEveryPlaceAndEveryRoom) {
    orvtest::CodingCall<orvtest::Decoding> call(GetParam().charset());
    for (const Pattern pattern : PATTERNS) {
        for (std::size_t bad = 0; bad <= LONGEST; ++bad) {
            DecodeVector text;
            for (std::size_t i = 0; i < LONGEST; ++i) {
                const std::string byte = byteAt(pattern, i);
                if (i == bad && !unmapped_.empty()) {
                    text.unmappable(unmapped_.substr(bad % unmapped_.size(), 1));
                } else {
                    text.maps(byte, unitOf(byte));
                }
            }
            for (const std::size_t room : {std::size_t{0}, bad, bad + 1, LONGEST}) {
                ASSERT_TRUE(call.check(text, LONGEST, false, room, orv::REPORT));
                ASSERT_TRUE(call.check(text, LONGEST, true, room, orv::REPLACE));
            }
            ASSERT_TRUE(call.check(text, bad, false, LONGEST, orv::REPORT));
        }
    }
}

TEST_P(SbcsLongTexts, EncodeWithAnErrorAtEveryPlaceAndEveryRoom) {
    orvtest::CodingCall<orvtest::Encoding> call(GetParam().charset());
    // Beyond every table, and beyond ASCII by the highest bit alone.
    const std::u16string unmappable = u"\uFFFE\u8041\u4E00\u2E80";
    for (const Pattern pattern : PATTERNS) {
        for (std::size_t bad = 0; bad <= LONGEST; ++bad) {
            EncodeVector text;
            for (std::size_t i = 0; i < LONGEST; ++i) {
                const std::string byte = byteAt(pattern, i);
                if (i == bad) {
                    text.unmappable(unmappable.substr(bad % unmappable.size(), 1));
                } else {
                    text.maps(unitOf(byte), byte);
                }
            }
            for (const std::size_t room : {std::size_t{0}, bad, bad + 1, LONGEST}) {
                ASSERT_TRUE(call.check(text, LONGEST, false, room, orv::REPORT));
                ASSERT_TRUE(call.check(text, LONGEST, true, room, orv::REPLACE));
            }
            ASSERT_TRUE(call.check(text, bad, false, LONGEST, orv::REPORT));
        }
    }
}

std::vector<SingleByteShape> oneOfEachForm() {
    std::vector<SingleByteShape> forms;
    for (const SingleByteShape& shape : orvtest::singleByteShapes()) {
        const bool known =
            std::any_of(forms.begin(), forms.end(), [&](const SingleByteShape& form) {
                return form.shift == shape.shift && form.unmapped.empty() == shape.unmapped.empty();
            });
        if (!known) {
            forms.push_back(shape);
        }
    }
    return forms;
}

INSTANTIATE_TEST_SUITE_P(Forms, SbcsLongTexts, testing::ValuesIn(oneOfEachForm()),
                         orvtest::ShapeName());

// No set has pages of 128 and unmapped bytes.
TEST(SbcsForms, AreSeven) {
    EXPECT_EQ(oneOfEachForm().size(), 7U);
}

} // namespace
