// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reads the mapping file of a character set: which bytes are which character.
///
/// The tables of the library are generated from the same files by another reader, in another
/// language, so that a fault in either shows.
#ifndef ORV_TESTS_SUPPORT_MAPPING_FILE_H
#define ORV_TESTS_SUPPORT_MAPPING_FILE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvtest {

/// The bytes of a character as one number, the first byte the highest. The first byte of two or
/// four is not 0, so the number tells the length.
using CharCode = std::uint32_t;

/// A number that is neither a code nor a character.
constexpr std::uint32_t NO_MAPPING = 0xFFFFFFFF;

/// How many bytes a code has: 1, 2 or 4.
constexpr unsigned int codeLength(CharCode code) {
    return code > 0xFFFF ? 4 : code > 0xFF ? 2 : 1;
}

/// Which values a byte at a place of a sequence may have.
class ByteSet {
public:
    void add(unsigned int from, unsigned int to);
    bool has(unsigned int byte) const { return members_[byte]; }
    bool empty() const;
    bool operator==(const ByteSet&) const = default;

private:
    bool members_[256] = {};
};

/// What a mapping file says.
class Mapping {
public:
    /// The lines `set` and `class`.
    const std::string& name() const { return name_; }
    const std::string& className() const { return className_; }

    /// The valid first and second bytes of pairs; both empty for a single-byte set.
    const ByteSet& leads() const { return leads_; }
    const ByteSet& trails() const { return trails_; }

    /// The character of a code, or `NO_MAPPING`, also where no such code can be.
    char32_t decode(CharCode code) const;

    /// The code that is written for a character, or `NO_MAPPING`.
    CharCode encode(char32_t character) const;

    /// Whether the code decodes to a character that has another code to be written.
    bool isDecodeOnly(CharCode code) const;

    /// All codes that decode, in order: single bytes, pairs, four bytes.
    std::vector<CharCode> codes() const;

private:
    friend class MappingReader;

    std::string name_;
    std::string className_;
    ByteSet leads_;
    ByteSet trails_;
    // By code, and for four bytes by their place in the order of all such sequences.
    std::vector<char32_t> shortRows_;
    std::vector<char32_t> longRows_;
    // Pages of 256 characters; empty where none is mapped.
    std::vector<std::vector<CharCode>> encodePages_;
    std::vector<CharCode> decodeOnly_;
};

/// How many sequences of four bytes there are: 126 * 10 * 126 * 10.
constexpr std::size_t FOUR_BYTE_CODES = 1587600;

/// The sequence at a place in the order of all of four bytes.
CharCode fourByteCode(std::size_t place);

/// Reads the text of a mapping file.
/// \exception std::runtime_error "line N: " and the reason, for anything that is not understood,
/// said twice or contradictory
Mapping parseMapping(std::string_view text);

/// Reads a mapping file.
/// \exception std::runtime_error the path and the reason
Mapping readMappingFile(const std::string& path);

} // namespace orvtest

#endif
