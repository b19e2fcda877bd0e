// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Texts of several scripts, and random mixtures of characters of all lengths.
#ifndef ORV_TESTS_SUPPORT_SAMPLE_TEXTS_H
#define ORV_TESTS_SUPPORT_SAMPLE_TEXTS_H

#include "orv/liborvxx/text/char16.h"

#include <cstddef>
#include <random>
#include <vector>

namespace orvtest {

/// Sentences: the first article of the Universal Declaration of Human Rights in scripts of one, two
/// and three bytes a character in UTF-8, and lines of four-byte characters and of markup.
const std::vector<std::vector<orv::char16>>& sampleTexts();

/// A character whose UTF-8 form has the given number of bytes, 1 to 4, as one or two units.
void appendCharacter(std::vector<orv::char16>& text, int utf8Length, std::mt19937& random);

/// Runs of characters of equal length, each run of 1 to \p longestRun characters, until the text
/// has at least \p units units.
std::vector<orv::char16> mixedText(std::size_t units, std::size_t longestRun, std::mt19937& random);

/// The same bytes with a few of them changed, dropped, doubled or added.
std::vector<unsigned char> mutated(std::vector<unsigned char> bytes, std::mt19937& random);

/// The same units with a few of them changed, dropped, doubled or added, surrogates above all.
std::vector<orv::char16> mutated(std::vector<orv::char16> units, std::mt19937& random);

} // namespace orvtest

#endif
