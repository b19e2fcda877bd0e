// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The exceptions of coders.
#ifndef ORV_LIBORVXX_CHARSET_CODING_ERROR_H
#define ORV_LIBORVXX_CHARSET_CODING_ERROR_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/string_ref.h"

#include <ios>
#include <stdexcept>

namespace orv {

/// Text could not be converted. The error code is `std::io_errc::stream`; the standard library may
/// append its own words to the message.
class ORVXX_API CharacterCodingError : public std::ios_base::failure {
public:
    explicit CharacterCodingError(string_ref message);
    CharacterCodingError(const CharacterCodingError&) = default;
    CharacterCodingError& operator=(const CharacterCodingError&) = default;
    ~CharacterCodingError() override;
};

/// The input is not valid in its character set: "malformed input".
class ORVXX_API MalformedInputError : public CharacterCodingError {
public:
    explicit MalformedInputError(unsigned int inputLength);
    MalformedInputError(const MalformedInputError&) = default;
    MalformedInputError& operator=(const MalformedInputError&) = default;
    ~MalformedInputError() override;

    /// Length of the offending sequence, in input units.
    unsigned int getInputLength() const noexcept { return inputLength_; }

private:
    unsigned int inputLength_;
};

/// The input is valid but has no counterpart: "unmappable character".
class ORVXX_API UnmappableCharacterError : public CharacterCodingError {
public:
    explicit UnmappableCharacterError(unsigned int inputLength);
    UnmappableCharacterError(const UnmappableCharacterError&) = default;
    UnmappableCharacterError& operator=(const UnmappableCharacterError&) = default;
    ~UnmappableCharacterError() override;

    /// Length of the character, in input units.
    unsigned int getInputLength() const noexcept { return inputLength_; }

private:
    unsigned int inputLength_;
};

/// A conversion loop ran into the limit of a buffer: a mistake in the coder.
class ORVXX_API CoderMalfunctionError : public std::logic_error {
public:
    explicit CoderMalfunctionError(string_ref message);
    CoderMalfunctionError(const CoderMalfunctionError&) = default;
    CoderMalfunctionError& operator=(const CoderMalfunctionError&) = default;
    ~CoderMalfunctionError() override;
};

} // namespace orv

#endif
