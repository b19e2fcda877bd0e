// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Where two libraries have different tables for a character set: all single codes, all
/// single characters, and what differs, folded into ranges.
#ifndef ORV_TESTS_DIFFERENTIAL_MAPPING_DIFFERENCES_H
#define ORV_TESTS_DIFFERENTIAL_MAPPING_DIFFERENCES_H

#include "tests/differential/charset_peers.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orvtest {

/// Which byte sequences of a set are neighbours.
enum class CodeForm { SINGLE_BYTE, PAIRS_OF_JIS, PAIRS_OF_HKSCS, PAIRS, FOUR_BYTES };

/// A code or a character on which the libraries differ: what it becomes, in one and in the other.
/// A text is its code points, a byte sequence its bytes; empty where there is none.
struct MappingDifference {
    using Value = std::vector<std::uint32_t>;

    /// The code as one number, or the character.
    std::uint32_t key;
    /// Neighbours have places that differ by 1.
    std::size_t place;
    Value ours;
    Value theirs;
};

/// All codes of one, two and, for that form, four bytes that do not decode to the same text. A
/// longer code counts where its first byte is no code by itself.
std::vector<MappingDifference> differencesOfCodes(CharsetPeer& ours, CharsetPeer& theirs,
                                                  CodeForm form);

/// All characters that do not encode to the same bytes.
std::vector<MappingDifference> differencesOfCharacters(CharsetPeer& ours, CharsetPeer& theirs);

/// Those differences of characters that do not follow from the differences of codes: all but those
/// where each library writes nothing, or a code of the list that it decodes to that character.
std::vector<MappingDifference>
independentDifferences(const std::vector<MappingDifference>& characters,
                       const std::vector<MappingDifference>& codes);

/// A row of a list of differences.
struct DifferenceRow {
    std::string key;
    std::string ours;
    std::string theirs;
};

/// The differences as rows. Neighbours share a row where each library has nothing there, or counts
/// up; more than two such rows in succession become one where one library has nothing there. In a
/// long list these need not be neighbours, only near each other.
std::vector<DifferenceRow> foldedCodes(const std::vector<MappingDifference>& differences);
std::vector<DifferenceRow> foldedCharacters(const std::vector<MappingDifference>& differences,
                                            CodeForm form);

} // namespace orvtest

#endif
