// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What could not be converted, and the sentence that tells it to the user.
#ifndef ORV_EXAMPLES_RECODE_BAD_INPUT_H
#define ORV_EXAMPLES_RECODE_BAD_INPUT_H

#include "orv/liborvxx/charset/charset.h"

#include <cstdint>
#include <string>

namespace recode {

/// The first place of an input that could not be converted.
struct BadInput {
    enum Kind {
        /// The bytes are not valid in the set they are read in.
        MALFORMED,
        /// They are, but Unicode has no character for them.
        NOT_IN_UNICODE,
        /// The character cannot be written in the target set.
        NO_COUNTERPART,
        /// Half of a surrogate pair: no character by itself.
        LONE_SURROGATE
    };

    Kind kind = MALFORMED;
    /// Where the bytes begin in the input, counted from 0.
    std::uint64_t offset = 0;
    std::string bytes;
    /// For the last two kinds.
    char32_t character = 0;
};

/// Says where and what, and what was expected; without a full stop.
std::string describe(const BadInput& bad, const orv::Charset& from, const orv::Charset& to);

} // namespace recode

#endif
