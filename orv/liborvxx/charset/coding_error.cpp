// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The exceptions of coders.
#include "orv/liborvxx/charset/coding_error.h"

namespace orv {

CharacterCodingError::CharacterCodingError(string_ref message)
    : std::ios_base::failure(message.to_string(), std::io_errc::stream) {}
CharacterCodingError::~CharacterCodingError() = default;

MalformedInputError::MalformedInputError(unsigned int inputLength)
    : CharacterCodingError("malformed input"), inputLength_(inputLength) {}
MalformedInputError::~MalformedInputError() = default;

UnmappableCharacterError::UnmappableCharacterError(unsigned int inputLength)
    : CharacterCodingError("unmappable character"), inputLength_(inputLength) {}
UnmappableCharacterError::~UnmappableCharacterError() = default;

CoderMalfunctionError::CoderMalfunctionError(string_ref message)
    : std::logic_error(message.to_string()) {}
CoderMalfunctionError::~CoderMalfunctionError() = default;

} // namespace orv
