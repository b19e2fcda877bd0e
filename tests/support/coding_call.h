// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief One run of a coder over a long trace, compared with the prediction: lighter than the
/// harness, for inputs by the thousand.
#ifndef ORV_TESTS_SUPPORT_CODING_CALL_H
#define ORV_TESTS_SUPPORT_CODING_CALL_H

#include "tests/support/coding_direction.h"
#include "tests/support/coding_trace.h"
#include "tests/support/hex_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orvtest {

/// A coder of a set, which is called again and again.
template <typename D>
class CodingCall {
public:
    using In = typename D::In;
    using Out = typename D::Out;

    explicit CodingCall(orv::Charset& charset) : coder_(D::make(charset)) {
        replacement_.assign(coder_->replacement().begin(), coder_->replacement().end());
    }

    /// A new run over the first \p inEnd elements of the trace with the given room. A reported
    /// error is stepped over; an overflow ends the run. A difference is a test failure, and false.
    bool check(const CodingTrace<In, Out>& trace, std::size_t inEnd, bool endOfInput,
               std::size_t room, orv::CodingErrorAction action) {
        coder_->reset().onMalformedInput(action).onUnmappableCharacter(action);
        // An array of its own, so that a sanitizer sees a read beyond it.
        const std::unique_ptr<In[]> input(new In[inEnd]);
        std::copy_n(trace.input().data(), inEnd, input.get());
        array_.assign(room + GUARDS, GUARD);
        orv::Buffer<const In> in(input.get(), inEnd);
        orv::Buffer<Out> out(array_.data(), 0, room, array_.size());
        TracePlace place;
        written_.clear();
        for (;;) {
            const orv::CoderResult expected =
                predict(trace, place, inEnd, endOfInput, room - written_.size(), action,
                        replacement_, written_);
            const orv::CoderResult result = D::step(*coder_, in, out, endOfInput);
            const bool same =
                result == expected && in.position() == place.inPosition &&
                out.position() == written_.size() &&
                std::equal(written_.begin(), written_.end(), array_.begin()) &&
                std::all_of(array_.begin() + static_cast<std::ptrdiff_t>(room), array_.end(),
                            [](Out element) { return element == GUARD; });
            if (!same) {
                array_.resize(out.position());
                ADD_FAILURE() << nameOf(action) << ", room " << room << ", input of " << inEnd
                              << ": " << hexText(std::vector<In>(input.get(), input.get() + inEnd))
                              << "\n  gives   " << textOf(result) << " at " << in.position()
                              << " after " << hexText(array_) << "\n  and not " << textOf(expected)
                              << " at " << place.inPosition << " after " << hexText(written_);
                return false;
            }
            if (!result.isError()) {
                return true;
            }
            place.inPosition += result.length;
            ++place.step;
            in.position(place.inPosition);
        }
    }

    /// The whole trace, under each action, with room enough.
    bool checkAll(const CodingTrace<In, Out>& trace) {
        const std::size_t size = trace.input().size();
        const std::size_t room = 6 * size + 8;
        return check(trace, size, true, room, orv::REPORT) &&
               check(trace, size, true, room, orv::REPLACE) &&
               check(trace, size, true, room, orv::IGNORE);
    }

private:
    static constexpr std::size_t GUARDS = 72;
    static constexpr Out GUARD = static_cast<Out>(static_cast<unsigned short>(0xB6B6));

    std::unique_ptr<typename D::Coder> coder_;
    std::vector<Out> replacement_;
    std::vector<Out> array_;
    std::vector<Out> written_;
};

} // namespace orvtest

#endif
