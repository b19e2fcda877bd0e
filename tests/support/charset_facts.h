// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the catalogue says about a character set, compared with the set and its coders.
#ifndef ORV_TESTS_SUPPORT_CHARSET_FACTS_H
#define ORV_TESTS_SUPPORT_CHARSET_FACTS_H

#include "orv/liborvxx/charset/charset.h"

#include <string_view>
#include <vector>

namespace orvtest {

/// A row of the catalogue.
struct CharsetFacts {
    std::u16string_view name;
    int mibEnum;
    std::vector<std::u16string_view> aliases;
    float averageCharsPerByte;
    unsigned int maxCharsPerByte;
    float averageBytesPerChar;
    unsigned int maxBytesPerChar;
    std::string_view encoderReplacement = "?";
};

/// Names, number, aliases (each of them found by `forName`), and what fresh coders say of
/// themselves.
void checkCharsetFacts(orv::Charset& charset, const CharsetFacts& facts);

} // namespace orvtest

#endif
