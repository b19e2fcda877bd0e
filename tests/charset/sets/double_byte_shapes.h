// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The double-byte sets as the catalogue describes them, beside the tables they have, and
/// coders that follow the description one character at a time.
#ifndef ORV_TESTS_CHARSET_SETS_DOUBLE_BYTE_SHAPES_H
#define ORV_TESTS_CHARSET_SETS_DOUBLE_BYTE_SHAPES_H

#include "orv/liborvxx/charset/charset.h"
#include "tests/support/one_step.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvtest {

/// A table of two levels.
struct TwoLevelTable {
    unsigned int shift;
    std::vector<std::uint16_t> index;
    std::vector<std::uint32_t> data;

    std::size_t pageSize() const { return std::size_t{1} << shift; }
    std::size_t pages() const;
    /// What is stored for a key that the index covers; \p none where the page is not there.
    std::uint32_t at(std::size_t key, std::uint32_t none) const;
};

/// The counts of a table.
struct TableCounts {
    unsigned int shift;
    std::size_t indexEntries;
    std::size_t pages;
    std::size_t dataEntries;
};

using ByteRanges = std::vector<std::pair<unsigned int, unsigned int>>;

struct DoubleByteShape {
    const char* className;
    std::u16string_view name;

    /// The catalogue.
    ByteRanges leads;
    ByteRanges trails;
    TableCounts decode;
    std::size_t mappedIds;
    TableCounts encode;
    std::uint32_t highestKey;
    bool supplementary;

    /// The tables.
    TwoLevelTable decodeTable;
    TwoLevelTable encodeTable;
    std::uint32_t maxKey;

    orv::Charset& charset() const;
    bool isLead(unsigned int byte) const;
    bool isTrail(unsigned int byte) const;

    /// What a code decodes to, and what a character encodes to; `NONE` for nothing.
    static constexpr std::uint32_t NONE = 0xFFFFFFFF;
    std::uint32_t decoded(unsigned int code) const;
    std::uint32_t encoded(std::uint32_t character) const;

    /// All codes above 0x7F that decode to something, in order.
    std::vector<unsigned int> mappedCodes() const;

    /// One step of a decoder and of an encoder.
    OneStep<std::u16string> decodeModel(std::string_view bytes, std::size_t room) const;
    OneStep<std::string> encodeModel(std::u16string_view text, std::size_t room) const;
};

const std::vector<DoubleByteShape>& doubleByteShapes();

/// That of the class.
const DoubleByteShape& shapeOf(std::string_view className);

/// One or two bytes, the high one first.
std::string bytesOf(unsigned int code);

/// One or two units.
std::u16string unitsOf(std::uint32_t character);

/// The class name, for the name of a test.
struct DoubleByteName {
    template <typename Info>
    std::string operator()(const Info& info) const {
        return info.param.className;
    }
};

/// gtest's word for a shape in messages.
void PrintTo(const DoubleByteShape& shape, std::ostream* out);

} // namespace orvtest

#endif
