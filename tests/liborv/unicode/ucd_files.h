// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reads the files of the Unicode Character Database for tests.
///
/// Written without a look at the table generator, so that a mistake in one shows in the other.

#ifndef ORV_TESTS_LIBORV_UNICODE_UCD_FILES_H
#define ORV_TESTS_LIBORV_UNICODE_UCD_FILES_H

#include <cstdint>
#include <string>
#include <vector>

namespace orv::test {

inline constexpr std::uint32_t codePointCount = 0x110000;

/// A line of UnicodeData.txt, spread over the code points it stands for.
struct UcdCharacter {
    std::string category = "Cn";
    int digit = -1;
    std::uint32_t lower = 0;
    std::uint32_t upper = 0;
    std::uint32_t title = 0;
};

/// All code points, by UnicodeData.txt. Throws std::runtime_error if the file cannot be read.
std::vector<UcdCharacter> readUnicodeData(const std::string& directory);

/// The code points that a file of "range ; property" lines gives a property.
/// Throws std::runtime_error if the file cannot be read.
std::vector<bool> readProperty(const std::string& directory, const std::string& file,
                               const std::string& property);

/// The version in the first line of a file ("# PropList-15.0.0.txt").
std::string readVersion(const std::string& directory, const std::string& file);

} // namespace orv::test

#endif
