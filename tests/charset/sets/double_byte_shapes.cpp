// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The rows of the catalogue, and the plain coders.
#include "tests/charset/sets/double_byte_shapes.h"

#include "orv/liborvxx/charset/tables/big5.h"
#include "orv/liborvxx/charset/tables/big5_hkscs.h"
#include "orv/liborvxx/charset/tables/gbk.h"
#include "orv/liborvxx/charset/tables/micsft_932.h"
#include "orv/liborvxx/charset/tables/micsft_936.h"
#include "orv/liborvxx/charset/tables/micsft_949.h"
#include "orv/liborvxx/charset/tables/micsft_950.h"
#include "orv/liborvxx/charset/tables/shift_jis.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <stdexcept>

namespace orvtest {

namespace {

using orv::CoderResult;

constexpr std::uint32_t UNMAPPED_ID = 0xDFFF;
constexpr std::uint32_t UNMAPPED_KEY = 0xFFFF;

template <typename Data>
TwoLevelTable makeTable(unsigned int shift, const auto& index, const Data& data) {
    TwoLevelTable table{shift, {std::begin(index), std::end(index)}, {}};
    std::transform(std::begin(data), std::end(data), std::back_inserter(table.data),
                   [](auto entry) { return static_cast<std::uint32_t>(entry); });
    return table;
}

bool isIn(const ByteRanges& ranges, unsigned int byte) {
    return std::any_of(ranges.begin(), ranges.end(), [byte](const auto& range) {
        return byte >= range.first && byte <= range.second;
    });
}

const ByteRanges JAPANESE_LEADS = {{0x81, 0x9F}, {0xE0, 0xFC}};
const ByteRanges JAPANESE_TRAILS = {{0x40, 0x7E}, {0x80, 0xFC}};
const ByteRanges ALL_LEADS = {{0x81, 0xFE}};
const ByteRanges ALL_TRAILS = {{0x40, 0x7E}, {0x80, 0xFE}};
const ByteRanges HKSCS_TRAILS = {{0x40, 0x7E}, {0xA1, 0xFE}};

bool isHigh(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLow(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

std::size_t TwoLevelTable::pages() const {
    return static_cast<std::size_t>(std::count_if(
        index.begin(), index.end(), [](std::uint16_t begin) { return begin != 0xFFFF; }));
}

std::uint32_t TwoLevelTable::at(std::size_t key, std::uint32_t none) const {
    const std::uint16_t begin = index.at(key >> shift);
    return begin == 0xFFFF ? none : data.at(begin + key % pageSize());
}

orv::Charset& DoubleByteShape::charset() const {
    return *orv::Charset::forName(orv::as_ustring_ref(name));
}

bool DoubleByteShape::isLead(unsigned int byte) const {
    return isIn(leads, byte);
}

bool DoubleByteShape::isTrail(unsigned int byte) const {
    return isIn(trails, byte);
}

std::uint32_t DoubleByteShape::decoded(unsigned int code) const {
    if (code < 0x80) {
        return code;
    }
    const unsigned int id = code < 0x100 ? code : ((code >> 8) - 0x80) * 192 + (code & 0xFF);
    const std::uint32_t entry = decodeTable.at(id, UNMAPPED_ID);
    return entry == UNMAPPED_ID ? NONE : entry;
}

std::uint32_t DoubleByteShape::encoded(std::uint32_t character) const {
    if (character < 0x80) {
        return character;
    }
    if (character > highestKey) {
        return NONE;
    }
    const std::uint32_t entry = encodeTable.at(character, UNMAPPED_KEY);
    return entry == UNMAPPED_KEY ? NONE : entry;
}

std::vector<unsigned int> DoubleByteShape::mappedCodes() const {
    std::vector<unsigned int> codes;
    for (unsigned int byte = 0x80; byte < 0x100; ++byte) {
        if (!isLead(byte) && decoded(byte) != NONE) {
            codes.push_back(byte);
        }
    }
    for (unsigned int code = 0x8000; code < 0x10000; ++code) {
        if (isLead(code >> 8) && isTrail(code & 0xFF) && decoded(code) != NONE) {
            codes.push_back(code);
        }
    }
    return codes;
}

OneStep<std::u16string> DoubleByteShape::decodeModel(std::string_view bytes,
                                                     std::size_t room) const {
    std::u16string text;
    std::size_t i = 0;
    while (i < bytes.size()) {
        const unsigned int first = static_cast<unsigned char>(bytes[i]);
        unsigned int code = first;
        if (isLead(first)) {
            if (i + 1 == bytes.size()) {
                break;
            }
            const unsigned int second = static_cast<unsigned char>(bytes[i + 1]);
            if (!isTrail(second)) {
                return {CoderResult::malformed(1), i, text};
            }
            code = first << 8 | second;
        }
        const std::uint32_t character = decoded(code);
        const unsigned int length = code < 0x100 ? 1 : 2;
        if (character == NONE) {
            return {CoderResult::unmappable(length), i, text};
        }
        const std::u16string units = unitsOf(character);
        if (room - text.size() < units.size()) {
            return {CoderResult::overflow(), i, text};
        }
        text += units;
        i += length;
    }
    return {CoderResult::underflow(), i, text};
}

OneStep<std::string> DoubleByteShape::encodeModel(std::u16string_view text,
                                                  std::size_t room) const {
    std::string bytes;
    std::size_t i = 0;
    while (i < text.size()) {
        std::uint32_t character = text[i];
        unsigned int length = 1;
        if (isHigh(text[i])) {
            if (i + 1 == text.size()) {
                break;
            }
            if (!isLow(text[i + 1])) {
                return {CoderResult::malformed(1), i, bytes};
            }
            character = 0x10000 + ((text[i] & 0x3FFU) << 10) + (text[i + 1] & 0x3FFU);
            length = 2;
        } else if (isLow(text[i])) {
            return {CoderResult::malformed(1), i, bytes};
        }
        const std::uint32_t code = encoded(character);
        if (code == NONE) {
            return {CoderResult::unmappable(length), i, bytes};
        }
        if (room - bytes.size() < (code < 0x100 ? 1U : 2U)) {
            return {CoderResult::overflow(), i, bytes};
        }
        bytes += bytesOf(code);
        i += length;
    }
    return {CoderResult::underflow(), i, bytes};
}

// The class and what its header defines.
#define ORV_TABLES(tables)                                                                         \
    makeTable(tables::DECODE_SHIFT, tables::DECODE_INDEX, tables::DECODE_DATA),                    \
        makeTable(tables::ENCODE_SHIFT, tables::ENCODE_INDEX, tables::ENCODE_DATA),                \
        tables::MAX_KEY

const std::vector<DoubleByteShape>& doubleByteShapes() {
    namespace t = orv::tables;
    static const std::vector<DoubleByteShape> shapes = {
        {"Shift_JIS",
         u"Shift_JIS",
         JAPANESE_LEADS,
         JAPANESE_TRAILS,
         {6, 384, 118, 7'552},
         6'942,
         {6, 1'024, 352, 22'528},
         0xFFE5,
         false,
         ORV_TABLES(t::shift_jis)},
        {"Micsft_932",
         u"Windows-31J",
         JAPANESE_LEADS,
         JAPANESE_TRAILS,
         {6, 384, 163, 10'432},
         9'667,
         {5, 2'048, 752, 24'064},
         0xFFE5,
         false,
         ORV_TABLES(t::micsft_932)},
        {"GBK",
         u"GBK",
         ALL_LEADS,
         ALL_TRAILS,
         {14, 2, 2, 24'448},
         23'940,
         {6, 1'024, 410, 26'240},
         0xFFE5,
         false,
         ORV_TABLES(t::gbk)},
        {"Micsft_936",
         u"x-mswin-936",
         ALL_LEADS,
         ALL_TRAILS,
         {14, 2, 2, 24'448},
         23'941,
         {6, 1'024, 410, 26'240},
         0xFFE5,
         false,
         ORV_TABLES(t::micsft_936)},
        {"Micsft_949",
         u"x-windows-949",
         ALL_LEADS,
         ALL_TRAILS,
         {5, 768, 584, 18'688},
         17'236,
         {5, 2'048, 1'060, 33'920},
         0xFFE6,
         false,
         ORV_TABLES(t::micsft_949)},
        {"Big5",
         u"Big5",
         ALL_LEADS,
         ALL_TRAILS,
         {5, 768, 441, 14'112},
         13'708,
         {6, 1'022, 358, 22'912},
         0xFF64,
         false,
         ORV_TABLES(t::big5)},
        {"Micsft_950",
         u"x-windows-950",
         ALL_LEADS,
         ALL_TRAILS,
         {5, 768, 633, 20'256},
         19'720,
         {6, 1'024, 452, 28'928},
         0xFFE5,
         false,
         ORV_TABLES(t::micsft_950)},
        {"Big5_HKSCS",
         u"Big5-HKSCS",
         ALL_LEADS,
         HKSCS_TRAILS,
         {5, 768, 599, 19'168},
         18'470,
         {4, 12'288, 3'041, 48'656},
         0x2FFFD,
         true,
         ORV_TABLES(t::big5_hkscs)},
    };
    return shapes;
}

#undef ORV_TABLES

const DoubleByteShape& shapeOf(std::string_view className) {
    for (const DoubleByteShape& shape : doubleByteShapes()) {
        if (shape.className == className) {
            return shape;
        }
    }
    throw std::invalid_argument("no such class");
}

std::string bytesOf(unsigned int code) {
    std::string bytes;
    if (code >= 0x100) {
        bytes += static_cast<char>(code >> 8);
    }
    bytes += static_cast<char>(code & 0xFF);
    return bytes;
}

std::u16string unitsOf(std::uint32_t character) {
    if (character < 0x10000) {
        return {static_cast<char16_t>(character)};
    }
    return {static_cast<char16_t>(0xD7C0 + (character >> 10)),
            static_cast<char16_t>(0xDC00 | (character & 0x3FF))};
}

void PrintTo(const DoubleByteShape& shape, std::ostream* out) {
    *out << shape.className;
}

} // namespace orvtest
