// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a coder has to do with an input, character by character: the expectation that the
/// coder harness and the reference models hand to the tests.
#ifndef ORV_TESTS_SUPPORT_CODING_TRACE_H
#define ORV_TESTS_SUPPORT_CODING_TRACE_H

#include "orv/liborvxx/charset/coder_result.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <cstddef>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orvtest {

/// How a test writes bytes and units down.
template <typename E>
using Literal =
    std::conditional_t<std::is_same_v<E, orv::char16>, std::u16string_view, std::string_view>;

/// The elements of a literal.
inline const unsigned char* elements(std::string_view bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.data());
}
inline const orv::char16* elements(std::u16string_view units) {
    return orv::as_char16(units.data());
}

/// An input as the sequence of steps in which a coder takes it, with what each must give.
///
/// `In` and `Out` are `unsigned char` and `orv::char16`, or the other way round. A trace is built
/// one character at a time, as a coder stops between any two: \code DecodeVector()
///     .maps("A", u"A")
///     .malformed("\xE2\x28", 3)   // judged once three bytes are there
///     .incomplete("\xE2\x82");
/// \endcode
template <typename In, typename Out>
class CodingTrace {
public:
    struct Step {
        std::size_t inLength;
        /// Elements that must be there before the coder judges the step; fewer are underflow.
        std::size_t need;
        /// `UNDERFLOW` for a conversion, else the error.
        int kind;
        std::size_t outBegin;
        std::size_t outLength;
    };

    /// A character, or a sequence that gives nothing.
    CodingTrace& maps(Literal<In> in, Literal<Out> out, std::size_t need = 0) {
        return add(orv::CoderResult::UNDERFLOW, elements(in), in.size(), need, elements(out),
                   out.size());
    }

    /// Bad input; \p need if the coder looks further than the length that it reports.
    CodingTrace& malformed(Literal<In> in, std::size_t need = 0) {
        return add(orv::CoderResult::MALFORMED, elements(in), in.size(), need, nullptr, 0);
    }

    /// Good input without a counterpart.
    CodingTrace& unmappable(Literal<In> in, std::size_t need = 0) {
        return add(orv::CoderResult::UNMAPPABLE, elements(in), in.size(), need, nullptr, 0);
    }

    /// The beginning of a sequence, at the end of the input: malformed as a whole, once the input
    /// has ended. The last step of a trace.
    CodingTrace& incomplete(Literal<In> in) {
        return add(orv::CoderResult::MALFORMED, elements(in), in.size(), in.size() + 1, nullptr, 0);
    }

    /// What the coder writes when it is flushed, all at once.
    CodingTrace& flushes(Literal<Out> out) {
        flushed_.assign(elements(out), elements(out) + out.size());
        return *this;
    }

    /// Any step.
    CodingTrace& add(int kind, const In* in, std::size_t inLength, std::size_t need, const Out* out,
                     std::size_t outLength) {
        steps_.push_back(
            {inLength, need > inLength ? need : inLength, kind, output_.size(), outLength});
        input_.insert(input_.end(), in, in + inLength);
        if (outLength != 0) {
            output_.insert(output_.end(), out, out + outLength);
        }
        return *this;
    }

    /// Appends the steps of another trace, and what it flushes.
    CodingTrace& append(const CodingTrace& other) {
        for (const Step& step : other.steps_) {
            Step moved = step;
            moved.outBegin += output_.size();
            steps_.push_back(moved);
        }
        input_.insert(input_.end(), other.input_.begin(), other.input_.end());
        output_.insert(output_.end(), other.output_.begin(), other.output_.end());
        flushed_.insert(flushed_.end(), other.flushed_.begin(), other.flushed_.end());
        return *this;
    }

    const std::vector<In>& input() const { return input_; }
    const std::vector<Step>& steps() const { return steps_; }
    const Out* outputOf(const Step& step) const { return output_.data() + step.outBegin; }
    const std::vector<Out>& flushed() const { return flushed_; }

private:
    std::vector<In> input_;
    std::vector<Step> steps_;
    std::vector<Out> output_;
    std::vector<Out> flushed_;
};

using DecodeVector = CodingTrace<unsigned char, orv::char16>;
using EncodeVector = CodingTrace<orv::char16, unsigned char>;

/// Where a run stands in a trace.
struct TracePlace {
    std::size_t step = 0;
    std::size_t inPosition = 0;
};

/// What one call of a coder must do: from \p place, with the input up to \p inEnd in sight and \p
/// room elements of output. Moves \p place, appends to \p written, and gives the result.
template <typename In, typename Out>
orv::CoderResult predict(const CodingTrace<In, Out>& trace, TracePlace& place, std::size_t inEnd,
                         bool endOfInput, std::size_t room, orv::CodingErrorAction action,
                         const std::vector<Out>& replacement, std::vector<Out>& written) {
    while (place.inPosition < inEnd) {
        const auto& step = trace.steps()[place.step];
        const std::size_t inSight = inEnd - place.inPosition;
        const bool tooShort = inSight < step.need;
        if (tooShort && !endOfInput) {
            return orv::CoderResult::underflow();
        }
        const std::size_t length = tooShort ? inSight : step.inLength;
        const Out* out = trace.outputOf(step);
        std::size_t outLength = step.outLength;
        if (tooShort || step.kind != orv::CoderResult::UNDERFLOW) {
            if (action == orv::REPORT) {
                return {step.kind, static_cast<unsigned int>(length)};
            }
            out = replacement.data();
            outLength = action == orv::REPLACE ? replacement.size() : 0;
        }
        if (room < outLength) {
            return orv::CoderResult::overflow();
        }
        written.insert(written.end(), out, out + outLength);
        room -= outLength;
        place.inPosition += length;
        ++place.step;
    }
    return orv::CoderResult::underflow();
}

} // namespace orvtest

#endif
