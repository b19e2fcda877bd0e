// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What stopped a coder, what to do about bad input, and the states of a coder.
#ifndef ORV_LIBORVXX_CHARSET_CODER_RESULT_H
#define ORV_LIBORVXX_CHARSET_CODER_RESULT_H

#include "orv/liborvxx/base/macros_push.h"

namespace orv {

/// What stopped a conversion loop, and for bad input how many input units are concerned.
///
/// A loop leaves the input position at the first unit of an offending sequence; `length` is how far
/// it is from there to the sequence's end, in bytes for a decoder and in code units for an encoder.
struct CoderResult {
    /// All input is consumed, or more is needed to finish a sequence.
    static constexpr int UNDERFLOW = 0;
    /// No more room in the output.
    static constexpr int OVERFLOW = 1;
    /// The input is not valid in this character set.
    static constexpr int MALFORMED = 2;
    /// The input is valid but has no counterpart.
    static constexpr int UNMAPPABLE = 3;

    int kind = UNDERFLOW;
    /// Input units concerned; 0 unless the kind is `MALFORMED` or `UNMAPPABLE`.
    unsigned int length = 0;

    /// \name The four results
    /// @{
    static constexpr CoderResult underflow() noexcept { return {UNDERFLOW, 0}; }
    static constexpr CoderResult overflow() noexcept { return {OVERFLOW, 0}; }
    static constexpr CoderResult malformed(unsigned int length) noexcept {
        return {MALFORMED, length};
    }
    static constexpr CoderResult unmappable(unsigned int length) noexcept {
        return {UNMAPPABLE, length};
    }
    /// @}

    /// True for `MALFORMED` and `UNMAPPABLE`.
    constexpr bool isError() const noexcept { return kind == MALFORMED || kind == UNMAPPABLE; }

    friend constexpr bool operator==(const CoderResult&, const CoderResult&) noexcept = default;
};

/// What a coder does about bad input.
enum CodingErrorAction {
    /// Drops the input.
    IGNORE = 0,
    /// Writes the replacement and drops the input.
    REPLACE = 1,
    /// Hands the error to the caller.
    REPORT = 2
};

namespace detail {

/// Where a coder is in a run.
enum CoderState { ST_RESET = 0, ST_CODING = 1, ST_END = 2, ST_FLUSHED = 3 };

/// Whether \p action is one of the three enumerators.
constexpr bool isValid(CodingErrorAction action) noexcept {
    return action == IGNORE || action == REPLACE || action == REPORT;
}

} // namespace detail

} // namespace orv

#include "orv/liborvxx/base/macros_pop.h"

#endif
