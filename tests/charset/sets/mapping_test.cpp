// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The mapping files as a whole, and the way there and back through both coders of a set.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/charset/sets/mapping_model.h"
#include "tests/support/hex_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using orvtest::CharCode;
using orvtest::MappedSet;
using orvtest::Mapping;

TEST(MappingFiles, AreThoseOfTheSetsDrivenByTables) {
    std::vector<std::string> expected;
    for (const MappedSet& set : orvtest::mappedSets()) {
        std::string file = std::string(set.className) + ".map";
        std::transform(file.begin(), file.end(), file.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        expected.push_back(file);
    }
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(ORV_CHARSET_MAPPINGS)) {
        if (entry.path().extension() == ".map") {
            found.push_back(entry.path().filename().string());
        }
    }
    EXPECT_EQ(found.size(), 35U);
    EXPECT_THAT(found, testing::UnorderedElementsAreArray(expected));
}

class MappedCharset : public testing::TestWithParam<MappedSet> {
protected:
    const Mapping& mapping() const { return GetParam().mapping(); }
    orv::Charset& charset() const { return GetParam().charset(); }
};

TEST_P(MappedCharset, HasTheNamesOfItsMappingFile) {
    EXPECT_EQ(mapping().className(), GetParam().className);
    EXPECT_EQ(mapping().name(), GetParam().name);
    const std::u16string name = orv::to_u16string(charset().name());
    EXPECT_EQ(std::string(name.begin(), name.end()), GetParam().name);
}

TEST_P(MappedCharset, IsAsciiBelow80AndTakesItBack) {
    for (CharCode code = 0; code < 0x80; ++code) {
        ASSERT_EQ(mapping().decode(code), code);
        ASSERT_EQ(mapping().encode(code), code);
        const std::string byte(1, static_cast<char>(code));
        const orv::ustring text = charset().newDecoder()->decode(byte);
        ASSERT_EQ(text.size(), 1U);
        ASSERT_EQ(static_cast<char16_t>(text[0]), code);
        ASSERT_EQ(charset().newEncoder()->encode(text), byte);
    }
}

TEST_P(MappedCharset, WhatDecodesComesBackUnlessItIsForDecodingOnly) {
    const auto decoder = charset().newDecoder();
    const auto encoder = charset().newEncoder();
    std::string bytes;
    for (const CharCode code : mapping().codes()) {
        bytes.clear();
        orvtest::appendCode(code, bytes);
        const orv::ustring text = decoder->decode(bytes);
        const std::string back = encoder->encode(text);
        if ((back == bytes) == mapping().isDecodeOnly(code)) {
            FAIL() << orvtest::hexText(bytes) << " decodes to " << orvtest::hexText(text)
                   << ", which encodes to " << orvtest::hexText(back);
        }
        // What is written instead is another code of the same character.
        if (back != bytes) {
            ASSERT_TRUE(decoder->decode(back) == text) << orvtest::hexText(bytes);
        }
    }
}

TEST_P(MappedCharset, WhatEncodesComesBackUnlessItIsForEncodingOnly) {
    const auto encoder = charset().newEncoder();
    std::vector<orv::char16> units;
    for (char32_t character = 0; character < 0x110000; ++character) {
        const CharCode code = mapping().encode(character);
        if (code == orvtest::NO_MAPPING) {
            continue;
        }
        units.clear();
        orvtest::appendUnits(character, units);
        const orv::ustring_ref text(units.data(), units.size());
        // Some of the codes that are for encoding only decode to nothing.
        const orv::ustring back = charset().decode(encoder->encode(text));
        if ((orv::ustring_ref(back) == text) != (mapping().decode(code) == character)) {
            FAIL() << orvtest::hexText(units) << " comes back as " << orvtest::hexText(back);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, MappedCharset, testing::ValuesIn(orvtest::mappedSets()),
                         orvtest::ClassNameOf());

class SingleByteCharset : public MappedCharset {};

TEST_P(SingleByteCharset, EncodesExactlyWhatItDecodes) {
    EXPECT_TRUE(mapping().leads().empty());
    std::size_t encoded = 0;
    for (char32_t character = 0; character < 0x110000; ++character) {
        const CharCode code = mapping().encode(character);
        if (code != orvtest::NO_MAPPING) {
            ++encoded;
            EXPECT_EQ(mapping().decode(code), character);
        }
    }
    EXPECT_EQ(encoded, mapping().codes().size());
}

INSTANTIATE_TEST_SUITE_P(Sets, SingleByteCharset, testing::ValuesIn(orvtest::singleByteSets()),
                         orvtest::ClassNameOf());

class MultiByteCharset : public MappedCharset {};

TEST_P(MultiByteCharset, HasTheLeadAndTrailBytesOfItsFamily) {
    const std::string name = GetParam().className;
    const bool isJapanese = name == "Shift_JIS" || name == "Micsft_932";
    for (unsigned int byte = 0; byte < 0x100; ++byte) {
        const bool isLead = isJapanese
                                ? (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC)
                                : byte >= 0x81 && byte <= 0xFE;
        bool isTrail = byte >= 0x40 && byte <= (isJapanese ? 0xFCU : 0xFEU) && byte != 0x7F;
        if (name == "Big5_HKSCS" && byte > 0x7E && byte < 0xA1) {
            isTrail = false;
        }
        EXPECT_EQ(mapping().leads().has(byte), isLead) << byte;
        EXPECT_EQ(mapping().trails().has(byte), isTrail) << byte;
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, MultiByteCharset, testing::ValuesIn(orvtest::multiByteSets()),
                         orvtest::ClassNameOf());

} // namespace
