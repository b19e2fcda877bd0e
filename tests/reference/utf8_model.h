// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 and CESU-8 by definition: slow, obvious, and sharing nothing with the library.
#ifndef ORV_TESTS_REFERENCE_UTF8_MODEL_H
#define ORV_TESTS_REFERENCE_UTF8_MODEL_H

#include "tests/support/coding_trace.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvtest {

/// Which of the two formats.
enum class Utf8Form { UTF_8, CESU_8 };

/// What stands at the front of an input.
template <typename Out>
struct Utf8Step {
    enum Kind { CHARACTER, MALFORMED, INCOMPLETE };

    Kind kind = INCOMPLETE;
    /// Elements of the character or of the malformed sequence.
    std::size_t length = 0;
    /// Elements that decide, which may be more.
    std::size_t need = 0;
    std::size_t outLength = 0;
    std::array<Out, 6> out{};
};

/// The first sequence of \p n > 0 bytes.
Utf8Step<std::uint16_t> decodeFront(Utf8Form form, const unsigned char* bytes, std::size_t n);

/// The first character of \p n > 0 units.
Utf8Step<unsigned char> encodeFront(Utf8Form form, const orv::char16* units, std::size_t n);

/// A whole input as the steps that a coder takes.
DecodeVector decodeTrace(Utf8Form form, const std::vector<unsigned char>& bytes);
EncodeVector encodeTrace(Utf8Form form, const std::vector<orv::char16>& units);

} // namespace orvtest

#endif
