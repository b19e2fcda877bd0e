// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The tables of the single-byte sets: shapes, identities, and encoding as the inverse of
/// decoding.
#include "orv/liborvxx/charset/sets/sbcs_decoder.h"
#include "orv/liborvxx/charset/sets/sbcs_encoder.h"
#include "tests/charset/sets/single_byte_shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

using orv::char16;
using orvtest::SingleByteShape;

constexpr char16 UNMAPPED_BYTE = u'\xDFFF';
constexpr std::uint16_t NONE = 0xFFFF;

class SingleByteTables : public testing::TestWithParam<SingleByteShape> {
protected:
    const SingleByteShape& shape() const { return GetParam(); }
    std::size_t pageSize() const { return std::size_t{1} << shape().shift; }

    // The entry of a unit, by what the shape means; 0xFFFF where nothing is stored.
    std::uint16_t entryOf(std::size_t unit) const {
        if (unit > shape().tableMaxChar) {
            return NONE;
        }
        if (shape().shift == 0) {
            return shape().data[unit];
        }
        const std::uint16_t begin = shape().index[unit >> shape().shift];
        return begin == NONE ? NONE : shape().data[begin + unit % pageSize()];
    }
};

std::string hex(unsigned int byte) {
    static constexpr char DIGITS[] = "0123456789ABCDEF";
    return {DIGITS[byte >> 4], DIGITS[byte & 0xF]};
}

TEST_P(SingleByteTables, LeaveTheBytesOfTheCatalogueUnmapped) {
    ASSERT_EQ(shape().decodeTable.size(), 256U);
    const auto isUnmapped = [&](unsigned int byte) {
        return byte < 256 && shape().decodeTable[byte] == UNMAPPED_BYTE;
    };
    std::string unmapped;
    for (unsigned int byte = 0; byte < 256; ++byte) {
        if (!isUnmapped(byte)) {
            continue;
        }
        const unsigned int first = byte;
        while (isUnmapped(byte + 1)) {
            ++byte;
        }
        unmapped += unmapped.empty() ? "" : " ";
        unmapped += first == byte ? hex(first) : hex(first) + "-" + hex(byte);
    }
    EXPECT_EQ(unmapped, shape().unmapped);
}

TEST_P(SingleByteTables, HaveTheCountsOfTheCatalogue) {
    EXPECT_EQ(shape().tableMaxChar, shape().maxChar);
    EXPECT_EQ(shape().tableShift, shape().shift);
    EXPECT_EQ(shape().index.size(), shape().indexEntries);
    if (shape().shift == 0) {
        EXPECT_EQ(shape().data.size(), shape().dataEntries);
        EXPECT_EQ(shape().dataEntries, shape().maxChar + 1);
        return;
    }
    const auto& index = shape().index;
    EXPECT_EQ(index.size(), (shape().maxChar >> shape().shift) + 1);
    const auto pages =
        index.size() - static_cast<std::size_t>(std::count(index.begin(), index.end(), NONE));
    EXPECT_EQ(pages, shape().pages);
    EXPECT_EQ(pages * pageSize(), shape().dataEntries);
    // The last page ends with the highest unit.
    EXPECT_EQ(shape().data.size(),
              shape().dataEntries - (pageSize() - 1 - shape().maxChar % pageSize()));
}

TEST_P(SingleByteTables, StorePagesInOrderEachOnce) {
    std::size_t next = 0;
    for (std::size_t page = 0; page < shape().index.size(); ++page) {
        const std::uint16_t begin = shape().index[page];
        bool used = false;
        for (std::size_t k = 0; k < pageSize(); ++k) {
            const std::size_t unit = page * pageSize() + k;
            const auto& decode = shape().decodeTable;
            used = used || std::find(decode.begin(), decode.end(), char16(unit)) != decode.end();
        }
        ASSERT_EQ(begin, used ? next : NONE) << page;
        next += used ? pageSize() : 0;
    }
    EXPECT_EQ(next, shape().shift == 0 ? 0 : shape().dataEntries);
}

TEST_P(SingleByteTables, AreTheIdentityOnAscii) {
    for (unsigned int value = 0; value < 0x80; ++value) {
        EXPECT_EQ(shape().decodeTable[value], char16(value));
        EXPECT_EQ(entryOf(value), value);
    }
}

TEST_P(SingleByteTables, HaveTheC1ControlsInTheIsoSetsAlone) {
    const bool iso = std::string_view(shape().className).substr(0, 4) == "ISO_";
    bool allC1 = true;
    for (unsigned int value = 0x80; value < 0xA0; ++value) {
        const bool same = shape().decodeTable[value] == char16(value);
        allC1 = allC1 && same;
        EXPECT_TRUE(iso || !same) << value;
    }
    EXPECT_EQ(allC1, iso);
}

TEST_P(SingleByteTables, EncodeExactlyWhatTheyDecode) {
    std::vector<std::uint16_t> inverse(0x10000, NONE);
    for (std::uint16_t byte = 0; byte < 256; ++byte) {
        const char16 unit = shape().decodeTable[byte];
        if (unit != UNMAPPED_BYTE) {
            std::uint16_t& entry = inverse[static_cast<std::size_t>(unit)];
            EXPECT_EQ(entry, NONE) << "a second byte for one character";
            entry = byte;
        }
    }
    for (std::size_t unit = 0; unit < 0x10000; ++unit) {
        ASSERT_EQ(entryOf(unit), inverse[unit]) << unit;
    }
    EXPECT_EQ(std::count_if(shape().data.begin(), shape().data.end(),
                            [](std::uint16_t entry) { return entry != NONE; }),
              std::count_if(inverse.begin(), inverse.end(),
                            [](std::uint16_t entry) { return entry != NONE; }))
        << "an entry that no unit reaches";
    EXPECT_NE(entryOf(shape().maxChar), NONE);
    for (std::size_t surrogate = 0xD800; surrogate < 0xE000; ++surrogate) {
        ASSERT_EQ(entryOf(surrogate), NONE);
    }
}

TEST_P(SingleByteTables, GoWithTheCodersOfTheCatalogue) {
    const auto decoder = shape().charset().newDecoder();
    const orv::CharsetDecoder& decoderObject = *decoder;
    EXPECT_EQ(typeid(decoderObject),
              shape().unmapped.empty() ? typeid(orv::SBCSDecoder<1>) : typeid(orv::SBCSDecoder<0>));
    const auto encoder = shape().charset().newEncoder();
    const orv::CharsetEncoder& encoderObject = *encoder;
    const std::type_info& expected = shape().shift == 0   ? typeid(orv::SBCSEncoder)
                                     : shape().shift == 5 ? typeid(orv::SBCSSparseEncoder<5>)
                                     : shape().shift == 6 ? typeid(orv::SBCSSparseEncoder<6>)
                                                          : typeid(orv::SBCSSparseEncoder<7>);
    EXPECT_EQ(typeid(encoderObject), expected);
}

INSTANTIATE_TEST_SUITE_P(Sets, SingleByteTables, testing::ValuesIn(orvtest::singleByteShapes()),
                         orvtest::ShapeName());

// What ties a table to a coder at compile time.
constexpr std::uint16_t withHole(std::size_t place) {
    return place == 0x90 ? NONE : static_cast<std::uint16_t>(place);
}

struct Tables {
    char16 decode[256];
    std::uint16_t direct[0xF1];
    std::uint16_t index[4];
    std::uint16_t data[0xB1];
};

// In pages of 64 that of U+0080 is not there; U+00F0 is the highest unit.
constexpr Tables makeTables() {
    Tables tables{};
    for (unsigned int byte = 0; byte < 256; ++byte) {
        tables.decode[byte] = char16(byte);
    }
    for (std::size_t unit = 0; unit <= 0xF0; ++unit) {
        tables.direct[unit] = withHole(unit);
    }
    for (std::size_t place = 0; place <= 0xB0; ++place) {
        tables.data[place] = withHole(place);
    }
    for (std::uint16_t page = 0; page < 4; ++page) {
        tables.index[page] = static_cast<std::uint16_t>(page * 64);
    }
    tables.index[2] = NONE;
    tables.index[3] = 128;
    return tables;
}

TEST(SbcsTableChecks, AcceptTablesThatFitAndNoOthers) {
    using Sparse = orv::SBCSSparseEncoder<6>;
    constexpr Tables GOOD = makeTables();
    static_assert(orv::SBCSDecoder<1>::fits(GOOD.decode));
    static_assert(!orv::SBCSDecoder<0>::fits(GOOD.decode));
    static_assert(orv::SBCSEncoder::fits(0xF0, GOOD.direct));
    static_assert(!orv::SBCSEncoder::fits(0xEF, GOOD.direct));
    static_assert(Sparse::fits(0xF0, GOOD.index, GOOD.data));
    static_assert(!Sparse::fits(0xEF, GOOD.index, GOOD.data));
    static_assert(!orv::SBCSSparseEncoder<5>::fits(0xF0, GOOD.index, GOOD.data));
    static_assert(!orv::SBCSSparseEncoder<7>::fits(0xF0, GOOD.index, GOOD.data));

    Tables bad = GOOD;
    bad.decode[0x85] = UNMAPPED_BYTE;
    EXPECT_FALSE(orv::SBCSDecoder<1>::fits(bad.decode));
    EXPECT_TRUE(orv::SBCSDecoder<0>::fits(bad.decode));
    bad.decode[0x5C] = u'\xA5';
    EXPECT_FALSE(orv::SBCSDecoder<0>::fits(bad.decode));

    bad.direct[0x5C] = NONE;
    EXPECT_FALSE(orv::SBCSEncoder::fits(0xF0, bad.direct));
    bad = GOOD;
    bad.direct[0xE0] = 0x100;
    EXPECT_FALSE(orv::SBCSEncoder::fits(0xF0, bad.direct));
    bad.direct[0xE0] = 0xE0;
    EXPECT_TRUE(orv::SBCSEncoder::fits(0xF0, bad.direct));
    bad.direct[0xF0] = NONE;
    EXPECT_FALSE(orv::SBCSEncoder::fits(0xF0, bad.direct));

    // Each of these by itself.
    const auto rejects = [&](auto change) {
        Tables changed = GOOD;
        change(changed);
        return !Sparse::fits(0xF0, changed.index, changed.data);
    };
    EXPECT_TRUE(rejects([](Tables& t) { t.index[3] = 64; })) << "a shared page";
    EXPECT_TRUE(rejects([](Tables& t) { t.index[3] = 100; })) << "no multiple";
    EXPECT_TRUE(rejects([](Tables& t) { t.index[3] = NONE; })) << "no last page";
    EXPECT_TRUE(rejects([](Tables& t) { t.index[2] = 192; })) << "a page that is not there";
    EXPECT_TRUE(rejects([](Tables& t) { std::swap(t.index[0], t.index[1]); })) << "order";
    EXPECT_TRUE(rejects([](Tables& t) { std::swap(t.index[1], t.index[2]); })) << "ASCII";
    EXPECT_TRUE(rejects([](Tables& t) { t.data[0x41] = 0x61; })) << "ASCII";
    EXPECT_TRUE(rejects([](Tables& t) { t.data[0xA0] = 0x8000; })) << "no byte";
    EXPECT_TRUE(rejects([](Tables& t) { t.data[0xB0] = NONE; })) << "no highest unit";
    EXPECT_FALSE(rejects([](Tables& t) { t.data[0xA0] = NONE; }));
}

} // namespace
