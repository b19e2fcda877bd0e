// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Texts that are URI references but for one place, and what is wrong there.
#ifndef ORV_TESTS_SUPPORT_URI_NEAR_MISS_H
#define ORV_TESTS_SUPPORT_URI_NEAR_MISS_H

#include "orv/liborvxx/text/ustring.h"
#include "tests/support/uri_source.h"

#include <cstddef>

namespace orvtest {

/// The reason for a rest that may stand behind a URI in a longer text.
inline constexpr const char* UNEXPECTED = "unexpected character";
/// The reason for a rest that may not.
inline constexpr const char* UNEXPECTED_AT_END = "unexpected character at end of URI";

/// A broken sentence, with the index and the reason that its construction gives.
struct UriNearMiss {
    orv::ustring text;
    std::size_t index = 0;
    const char* reason = nullptr;
    bool outOfRange = false; ///< an octet above 255
};

/// Where the parser stops in a sentence if it finds, at a place in no IP literal, the end or a unit
/// that is in no class: there, before the escape that the place is in, or in what looks like a port
/// as long as the "@" behind it has not been seen.
std::size_t stopIfEndedAt(const UriSentence& sentence, std::size_t at);

/// What is wrong with units put into the IP literal at \p at; null elsewhere.
const AddressTrap* trapAt(const UriSentence& sentence, std::size_t at);

/// A sentence of \p source, broken in one of these ways: a unit that is in no class, a "[" or "]",
/// or a "%" without two digits, anywhere; such units and others within an IP literal, or its end;
/// a field or octet that is too long or too large; a letter in a port; a second "#"; an "@" behind
/// the user info; a ":" in the first segment of a relative path; text behind a "]".
UriNearMiss nearMissOf(UriSource& source);

} // namespace orvtest

#endif
