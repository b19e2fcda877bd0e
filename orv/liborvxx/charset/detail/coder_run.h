// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The state machine that decoders and encoders share: one step of a run, and a whole input.
#ifndef ORV_LIBORVXX_CHARSET_DETAIL_CODER_RUN_H
#define ORV_LIBORVXX_CHARSET_DETAIL_CODER_RUN_H

#include "orv/liborvxx/charset/buffer.h"
#include "orv/liborvxx/charset/coder_result.h"
#include "orv/liborvxx/charset/coding_error.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>

namespace orv::detail {

/// What a coder says when its state machine or its loop goes wrong.
struct CoderMessages {
    const char* illegalConvert;
    const char* illegalFlush;
    const char* unexpectedOverflow;
    const char* unexpectedUnderflow;
};

/// One incremental step. \p loop converts; \p actionFor tells what to do about an error that it
/// returns; \p replacement is a string of output elements.
template <typename In, typename Out, typename Replacement, typename Loop, typename ActionFor>
CoderResult convertStep(CoderState& state, const CoderMessages& messages, In& in, Out& out,
                        bool endOfInput, const Replacement& replacement, Loop loop,
                        ActionFor actionFor) {
    if (state == ST_FLUSHED || (state == ST_END && !endOfInput)) {
        throw std::logic_error(messages.illegalConvert);
    }
    state = endOfInput ? ST_END : ST_CODING;
    for (;;) {
        CoderResult result;
        try {
            result = loop();
        } catch (const BufferOverflowError&) {
            throw CoderMalfunctionError(messages.unexpectedOverflow);
        } catch (const BufferUnderflowError&) {
            throw CoderMalfunctionError(messages.unexpectedUnderflow);
        }
        if (result.kind == CoderResult::UNDERFLOW) {
            if (!endOfInput || !in.hasRemaining()) {
                return result;
            }
            // The input ended inside a sequence.
            constexpr std::size_t longest = std::numeric_limits<unsigned int>::max();
            result = CoderResult::malformed(
                static_cast<unsigned int>(std::min(in.remaining(), longest)));
        }
        if (result.kind == CoderResult::OVERFLOW) {
            return result;
        }
        const CodingErrorAction action = actionFor(result);
        if (action == REPORT) {
            return result;
        }
        if (action == REPLACE) {
            const std::size_t room = out.hasRemaining() ? out.remaining() : 0;
            if (room < replacement.size()) {
                return CoderResult::overflow();
            }
            out.put(replacement.data(), replacement.size());
        }
        in.position(in.position() + result.length);
    }
}

/// The end of a run; \p implFlush writes what the coder held back.
template <typename ImplFlush>
CoderResult flushRun(CoderState& state, const CoderMessages& messages, ImplFlush implFlush) {
    if (state == ST_FLUSHED) {
        return CoderResult::underflow();
    }
    if (state != ST_END) {
        throw std::logic_error(messages.illegalFlush);
    }
    const CoderResult result = implFlush();
    if (result.kind == CoderResult::UNDERFLOW) {
        state = ST_FLUSHED;
    }
    return result;
}

[[noreturn]] inline void throwCodingError(CoderResult result) {
    switch (result.kind) {
    case CoderResult::UNDERFLOW:
        throw BufferUnderflowError();
    case CoderResult::OVERFLOW:
        throw BufferOverflowError();
    case CoderResult::MALFORMED:
        throw MalformedInputError(result.length);
    default:
        throw UnmappableCharacterError(result.length);
    }
}

/// Converts the \p inputSize elements of an input as one run. \p step makes a step of it into the
/// given buffer, the last input; \p flush ends it. `Element` is that of the output buffer, as wide
/// as the string's own.
template <typename String, typename Element, typename Step, typename Flush>
String convertAll(std::size_t inputSize, float averageOutput, Step step, Flush flush) {
    static_assert(sizeof(Element) == sizeof(typename String::value_type));
    auto size = static_cast<std::size_t>(static_cast<float>(inputSize) * averageOutput);
    String text(size, typename String::value_type());
    Buffer<Element> out(reinterpret_cast<Element*>(text.data()), size);
    for (;;) {
        CoderResult result = step(out);
        if (result.kind == CoderResult::UNDERFLOW) {
            result = flush(out);
            if (result.kind == CoderResult::UNDERFLOW) {
                text.resize(out.position());
                return text;
            }
        }
        if (result.kind != CoderResult::OVERFLOW) {
            throwCodingError(result);
        }
        size = 2 * size + 1;
        text.resize(size);
        out.init(reinterpret_cast<Element*>(text.data()), out.position(), size, size);
    }
}

} // namespace orv::detail

#endif
