// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The coder harness: the ways in which a vector is run, and the comparison at every call.
#include "tests/support/coder_harness.h"

#include "tests/support/coding_direction.h"
#include "tests/support/hex_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

namespace orvtest {

namespace {

using orv::Buffer;
using orv::char16;
using orv::CoderResult;
using orv::CodingErrorAction;

// How the input arrives and what happens when the output is full.
struct Plan {
    enum Feed { TWO_SLICES, ONE_BY_ONE };
    enum Full { MORE_ROOM, SAME_ROOM };

    Feed feed = TWO_SLICES;
    std::size_t split = 0;
    Full full = MORE_ROOM;
    std::size_t capacity = 0;
};

template <typename D>
class Runner {
public:
    using In = typename D::In;
    using Out = typename D::Out;
    using Trace = CodingTrace<In, Out>;

    Runner(orv::Charset& charset, Trace trace, std::size_t padding)
        : charset_(charset), trace_(std::move(trace)), padding_(padding), coder_(D::make(charset)) {
        replacement_.assign(coder_->replacement().begin(), coder_->replacement().end());
    }

    std::size_t inputSize() const { return trace_.input().size(); }

    void use(CodingErrorAction action) {
        action_ = action;
        coder_->onMalformedInput(action).onUnmappableCharacter(action);
        // With errors reported the run steps over them, so its output is that of IGNORE.
        expected_.clear();
        TracePlace place;
        predict(trace_, place, inputSize(), true, static_cast<std::size_t>(-1),
                action == orv::REPORT ? orv::IGNORE : action, replacement_, expected_);
        expected_.insert(expected_.end(), trace_.flushed().begin(), trace_.flushed().end());
    }

    // Elements that the output takes under the action in use.
    std::size_t outputSize() const { return expected_.size(); }

    bool run(const Plan& plan) {
        plan_ = plan;
        coder_->reset();
        place_ = {};
        collected_.clear();
        aim(plan.capacity);
        if (plan.feed == Plan::ONE_BY_ONE) {
            for (std::size_t end = 1; end <= inputSize(); ++end) {
                if (!convert(end, false)) {
                    return false;
                }
            }
        } else if (!convert(plan.split, false)) {
            return false;
        }
        return convert(inputSize(), true) && flush() && finish();
    }

    // The forms that take a whole input: over a buffer in the middle of an array, over a view, and
    // those of the character set.
    bool runWhole() {
        plan_ = {};
        std::vector<In> array(3, In());
        array.insert(array.end(), trace_.input().begin(), trace_.input().end());
        array.insert(array.end(), 2, In());
        Buffer<const In> in(array.data(), 3, 3 + inputSize(), array.size());
        TracePlace place;
        std::vector<Out> written;
        const CoderResult result =
            predict(trace_, place, inputSize(), true, static_cast<std::size_t>(-1), action_,
                    replacement_, written);
        const auto viaBuffer = outcome([&] { return D::whole(*coder_, in); });
        const auto viaView = outcome([&] { return D::wholeView(*coder_, trace_.input()); });
        if (!result.isError() && inputSize() != 0) {
            written.insert(written.end(), trace_.flushed().begin(), trace_.flushed().end());
        } else {
            written.clear();
        }
        const Outcome expected{result, written};
        bool same = viaBuffer == expected ? true : fail("decode or encode of a buffer", viaBuffer);
        same = viaView == expected ? same : fail("decode or encode of a view", viaView);
        if (in.position() != 3 + place.inPosition) {
            same = fail("position after the whole input", in.position() - 3, place.inPosition);
        }
        if (action_ == orv::REPLACE) {
            const auto viaSet = outcome([&] { return D::whole(charset_, trace_.input()); });
            same = viaSet == expected ? same : fail("the set's own form", viaSet);
        }
        return same;
    }

private:
    struct Outcome {
        CoderResult result;
        std::vector<Out> text;
        bool operator==(const Outcome&) const = default;
    };

    template <typename Call>
    static Outcome outcome(Call call) {
        try {
            const auto text = call();
            Outcome good{CoderResult::underflow(), {}};
            for (const auto element : text) {
                good.text.push_back(static_cast<Out>(element));
            }
            return good;
        } catch (const orv::MalformedInputError& e) {
            return {CoderResult::malformed(e.getInputLength()), {}};
        } catch (const orv::UnmappableCharacterError& e) {
            return {CoderResult::unmappable(e.getInputLength()), {}};
        }
    }

    // Elements in front of the output and behind it: a vector register and more.
    static constexpr std::size_t FRONT = 2;
    static constexpr std::size_t BEHIND = 72;
    static constexpr Out GUARD = static_cast<Out>(static_cast<unsigned short>(0xB6B6));

    // A new output with the given room, and guards all around.
    void aim(std::size_t room) {
        array_.assign(FRONT + std::max(room, outputSize()) + 1 + BEHIND, GUARD);
        out_.emplace(array_.data(), FRONT, FRONT + room, array_.size());
    }

    bool guardsStand() const {
        const auto isGuard = [](Out element) { return element == GUARD; };
        return std::all_of(array_.begin(), array_.begin() + FRONT, isGuard) &&
               std::all_of(array_.begin() + static_cast<std::ptrdiff_t>(out_->limit()),
                           array_.end(), isGuard);
    }

    bool convert(std::size_t inEnd, bool endOfInput) {
        // Each round steps over an error or makes room, so there are only so many.
        for (std::size_t rounds = 0; rounds <= 3 * (inputSize() + outputSize()) + 3; ++rounds) {
            const std::size_t inBegin = place_.inPosition;
            written_.clear();
            const CoderResult expected =
                predict(trace_, place_, inEnd, endOfInput, out_->remaining(), action_, replacement_,
                        written_);
            // What arrives element by element is an array of its own; slices are a window.
            std::vector<In> carried;
            const bool copied = plan_.feed == Plan::ONE_BY_ONE;
            if (copied) {
                carried.assign(trace_.input().data() + inBegin, trace_.input().data() + inEnd);
            }
            Buffer<const In> in =
                copied ? Buffer<const In>(carried.data(), carried.size())
                       : Buffer<const In>(trace_.input().data(), inBegin, inEnd, inputSize());
            const std::size_t origin = copied ? inBegin : 0;
            const std::size_t outBegin = out_->position();
            const CoderResult result = D::step(*coder_, in, *out_, endOfInput);
            if (result != expected) {
                return fail("result " + textOf(result) + ", expected " + textOf(expected));
            }
            if (origin + in.position() != place_.inPosition) {
                return fail("input position", origin + in.position(), place_.inPosition);
            }
            if (!checkOutput(outBegin)) {
                return false;
            }
            if (result.kind == CoderResult::UNDERFLOW) {
                return true;
            }
            if (result.kind == CoderResult::OVERFLOW) {
                makeRoom();
            } else {
                place_.inPosition += result.length;
                ++place_.step;
            }
        }
        return fail("no end of the run in sight");
    }

    bool checkOutput(std::size_t outBegin) {
        if (out_->position() != outBegin + written_.size()) {
            return fail("output position", out_->position() - outBegin, written_.size());
        }
        if (!std::equal(written_.begin(), written_.end(),
                        array_.begin() + static_cast<std::ptrdiff_t>(outBegin))) {
            return fail("output differs");
        }
        if (!guardsStand()) {
            return fail("an element outside of the output was written");
        }
        collected_.insert(collected_.end(), written_.begin(), written_.end());
        return true;
    }

    // After an overflow: the rest of the room behind what was written, or the same room anew.
    void makeRoom() {
        const std::size_t capacity = out_->limit() - FRONT;
        if (plan_.full == Plan::MORE_ROOM) {
            out_->limit(FRONT + std::max(outputSize(), capacity + 1));
        } else {
            aim(out_->position() == FRONT ? capacity + 1 : capacity);
        }
    }

    bool flush() {
        for (;;) {
            const std::size_t outBegin = out_->position();
            const bool fits = out_->remaining() >= trace_.flushed().size();
            written_.clear();
            if (fits) {
                written_ = trace_.flushed();
            }
            const CoderResult expected = fits ? CoderResult::underflow() : CoderResult::overflow();
            const CoderResult result = coder_->flush(*out_);
            if (result != expected) {
                return fail("flush gives " + textOf(result) + ", expected " + textOf(expected));
            }
            if (!checkOutput(outBegin)) {
                return false;
            }
            if (fits) {
                return coder_->flush(*out_) == CoderResult::underflow() &&
                               out_->position() == outBegin + written_.size()
                           ? true
                           : fail("a second flush does something");
            }
            makeRoom();
        }
    }

    bool finish() {
        if (collected_ != expected_) {
            return fail("all output", Outcome{CoderResult::underflow(), collected_});
        }
        // A flushed coder takes no more input. Throwing is slow, so one plan does for the check.
        if (plan_.feed == Plan::ONE_BY_ONE && plan_.full == Plan::MORE_ROOM) {
            Buffer<const In> none(trace_.input().data(), 0);
            try {
                D::step(*coder_, none, *out_, true);
                return fail("a flushed coder goes on");
            } catch (const std::logic_error&) {
                return true;
            }
        }
        return true;
    }

    bool fail(const std::string& what) const {
        std::ostringstream message;
        for (const char16 unit : charset_.name()) {
            message << static_cast<char>(unit);
        }
        message << ": " << hexText(trace_.input()) << "\n  padding " << padding_ << ", "
                << nameOf(action_) << ", "
                << (plan_.feed == Plan::ONE_BY_ONE ? std::string("one by one")
                                                   : "split at " + std::to_string(plan_.split))
                << ", capacity " << plan_.capacity
                << (plan_.full == Plan::MORE_ROOM ? " and then the rest" : " each time")
                << ", at input position " << place_.inPosition << ": " << what;
        ADD_FAILURE() << message.str();
        return false;
    }
    bool fail(const std::string& what, std::size_t actual, std::size_t expected) const {
        return fail(what + " " + std::to_string(actual) + ", expected " + std::to_string(expected));
    }
    bool fail(const std::string& what, const Outcome& actual) const {
        return fail(what + ": " + textOf(actual.result) + " with [" + hexText(actual.text) +
                    "], expected [" + hexText(expected_) + "]");
    }

    orv::Charset& charset_;
    Trace trace_;
    std::size_t padding_;
    std::unique_ptr<typename D::Coder> coder_;
    std::vector<Out> replacement_;
    CodingErrorAction action_ = orv::REPORT;
    std::vector<Out> expected_;

    Plan plan_;
    TracePlace place_;
    std::vector<Out> array_;
    std::optional<Buffer<Out>> out_;
    std::vector<Out> written_;
    std::vector<Out> collected_;
};

constexpr std::array ACTIONS = {orv::IGNORE, orv::REPLACE, orv::REPORT};
constexpr std::array FULLS = {Plan::MORE_ROOM, Plan::SAME_ROOM};

// Every split with every capacity, from the given ones on.
template <typename D>
bool runSplitsAndCapacities(Runner<D>& runner, std::size_t firstSplit, std::size_t firstCapacity) {
    for (std::size_t split = firstSplit; split <= runner.inputSize(); ++split) {
        for (std::size_t capacity = firstCapacity; capacity <= runner.outputSize() + 1;
             ++capacity) {
            for (const Plan::Full full : FULLS) {
                if (!runner.run({Plan::TWO_SLICES, split, full, capacity})) {
                    return false;
                }
            }
        }
    }
    return true;
}

// Every split with room enough, every capacity without a split, and element by element.
template <typename D>
bool runEachAlone(Runner<D>& runner) {
    for (std::size_t split = 0; split <= runner.inputSize(); ++split) {
        if (!runner.run({Plan::TWO_SLICES, split, Plan::MORE_ROOM, runner.outputSize()})) {
            return false;
        }
    }
    for (std::size_t capacity = 0; capacity <= runner.outputSize() + 1; ++capacity) {
        for (const Plan::Full full : FULLS) {
            if (!runner.run({Plan::TWO_SLICES, 0, full, capacity})) {
                return false;
            }
        }
    }
    for (const std::size_t capacity : {std::size_t{1}, runner.outputSize()}) {
        for (const Plan::Full full : FULLS) {
            if (!runner.run({Plan::ONE_BY_ONE, 0, full, capacity})) {
                return false;
            }
        }
    }
    return true;
}

template <typename D, typename Trace, typename Padding>
bool check(orv::Charset& charset, const Trace& vector, Padding padding) {
    for (std::size_t count = 0; count < 32; ++count) {
        Trace padded;
        for (std::size_t place = 0; place < count; ++place) {
            padded.append(padding(place));
        }
        const std::size_t paddingIn = padded.input().size();
        std::size_t paddingOut = 0;
        for (const auto& step : padded.steps()) {
            paddingOut += step.outLength;
        }
        padded.append(vector);
        Runner<D> runner(charset, std::move(padded), count);
        // All pairs of split and capacity that meet the vector, where blocks of 16 and 32 end.
        const bool allPairs =
            count == 0 || count == 1 || (count >= 15 && count <= 17) || count == 31;
        for (const CodingErrorAction action : ACTIONS) {
            runner.use(action);
            if (!runner.runWhole() || !runEachAlone(runner) ||
                (allPairs && !runSplitsAndCapacities(runner, paddingIn, paddingOut))) {
                return false;
            }
        }
    }
    return true;
}

constexpr char LETTERS[] = "abcdefghijklmnopqrstuvwxyz";

} // namespace

DecodeVector asciiDecodePadding(std::size_t place) {
    const char letter = LETTERS[place % 26];
    const char16_t unit = static_cast<unsigned char>(letter);
    return DecodeVector().maps({&letter, 1}, {&unit, 1});
}

EncodeVector asciiEncodePadding(std::size_t place) {
    const char letter = LETTERS[place % 26];
    const char16_t unit = static_cast<unsigned char>(letter);
    return EncodeVector().maps({&unit, 1}, {&letter, 1});
}

bool checkDecoder(orv::Charset& charset, const DecodeVector& vector, DecodePadding padding) {
    return check<Decoding>(charset, vector, padding);
}

bool checkEncoder(orv::Charset& charset, const EncodeVector& vector, EncodePadding padding) {
    return check<Encoding>(charset, vector, padding);
}

} // namespace orvtest
