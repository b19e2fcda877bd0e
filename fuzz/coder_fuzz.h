// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Runs a coder over one input in several ways and checks that all of them say the same.
///
/// Decoders and encoders share it. `Traits` names what differs: the elements, the owning strings,
/// and how a step, a flush and a whole-input conversion are called.
#ifndef ORV_FUZZ_CODER_FUZZ_H
#define ORV_FUZZ_CODER_FUZZ_H

#include "fuzz/charsets.h"
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/coding_error.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace fuzz {

/// The action that a byte chooses.
inline orv::CodingErrorAction chooseAction(std::uint8_t choice) {
    static constexpr std::array ACTIONS = {orv::REPORT, orv::REPLACE, orv::IGNORE};
    return ACTIONS[choice % ACTIONS.size()];
}

/// How an input is cut up: for each step, how much of it is added and how much room there is. The
/// steps come round again when they are used up.
struct Plan {
    struct Step {
        std::size_t more;
        std::size_t room;
    };
    std::vector<Step> steps;

    Step at(std::size_t i) const { return steps[i % steps.size()]; }
};

/// A plan from a count and twice that many bytes: input added and room, of each step.
inline Plan choosePlan(Input& input) {
    Plan plan;
    for (int count = input.byte() % 16; count > 0; --count) {
        const std::size_t more = input.byte();
        plan.steps.push_back({more, input.byte()});
    }
    if (plan.steps.empty()) {
        plan.steps.push_back({64, 64});
    }
    return plan;
}

/// An error that was reported, and where.
struct Event {
    int kind;
    unsigned int length;
    std::size_t inputPosition;
    std::size_t outputPosition;
    friend bool operator==(const Event&, const Event&) = default;
};

/// What a run gave: the output, and with `REPORT` the errors, which the runner skips.
template <typename Traits>
struct Outcome {
    typename Traits::OutString output;
    std::vector<Event> errors;
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

/// Calls a coder as the plan says.
template <typename Traits>
class Runner {
public:
    using Coder = typename Traits::Coder;
    using InElement = typename Traits::InElement;
    using OutElement = typename Traits::OutElement;
    using InString = typename Traits::InString;

    Runner(Coder& coder, const InString& input)
        : coder_(coder), input_(input.begin(), input.end()) {}

    Outcome<Traits> run(const Plan& plan) {
        coder_.reset();
        for (std::size_t i = 0;; ++i) {
            const Plan::Step step = plan.at(i);
            available_ += std::min(step.more, input_.size() - available_);
            if (stalled_ >= plan.steps.size()) {
                // The whole plan went round in vain, because it never adds anything or has no room.
                // A character takes no more than this.
                available_ += std::min<std::size_t>(8, input_.size() - available_);
                if (finish(convert(8))) {
                    break;
                }
            } else if (finish(convert(step.room))) {
                break;
            }
            // At least one element is used or made, or one error skipped, each time that a plan has
            // gone round, so a run that goes on longer than this hangs.
            FUZZ_CHECK(i < (plan.steps.size() + 1) * (8 * input_.size() + 16));
        }
        flush();
        return std::move(outcome_);
    }

private:
    static constexpr std::size_t GUARD = 24;
    static constexpr int GUARD_BYTE = 0x5A;

    // One step with `room` elements of output. The input lies in a block of exactly its own size,
    // so that a sanitizer sees a read beyond it; the output between guards, so that any build sees
    // a write.
    orv::CoderResult convert(std::size_t room) {
        const std::size_t before = position_;
        const std::unique_ptr<InElement[]> block(new InElement[available_ - position_]);
        const InElement* const from = input_.data() + position_;
        std::copy(from, input_.data() + available_, block.get());
        orv::Buffer<const InElement> in(block.get(), available_ - position_);
        std::vector<OutElement> memory(room + 2 * GUARD, OutElement(GUARD_BYTE));
        orv::Buffer<OutElement> out(memory.data(), GUARD, GUARD + room, memory.size());

        const bool last = available_ == input_.size();
        const orv::CoderResult result = Traits::step(coder_, in, out, last);

        FUZZ_CHECK(in.position() <= in.limit() && in.limit() == available_ - position_);
        FUZZ_CHECK(out.position() >= GUARD && out.position() <= out.limit());
        FUZZ_CHECK(out.limit() == GUARD + room);
        // Nothing was written through the read-only buffer.
        FUZZ_CHECK(std::equal(block.get(), block.get() + in.limit(), from));
        keep(memory, out);
        position_ += in.position();
        stalled_ = position_ == before && out.position() == GUARD ? stalled_ + 1 : 0;
        return result;
    }

    void flush() {
        std::vector<OutElement> memory(GUARD + 16 + GUARD, OutElement(GUARD_BYTE));
        orv::Buffer<OutElement> out(memory.data(), GUARD, GUARD + 16, memory.size());
        FUZZ_CHECK(coder_.flush(out) == orv::CoderResult::underflow());
        keep(memory, out);
    }

    void keep(const std::vector<OutElement>& memory, const orv::Buffer<OutElement>& out) {
        const auto isGuard = [](OutElement e) { return e == OutElement(GUARD_BYTE); };
        FUZZ_CHECK(std::all_of(memory.begin(), memory.begin() + GUARD, isGuard));
        FUZZ_CHECK(std::all_of(memory.end() - GUARD, memory.end(), isGuard));
        for (std::size_t i = GUARD; i < out.position(); ++i) {
            using Unit = typename Traits::OutString::value_type;
            outcome_.output.push_back(static_cast<Unit>(memory[i]));
        }
    }

    // Whether the run is over. An error is noted and skipped as a caller would.
    bool finish(orv::CoderResult result) {
        switch (result.kind) {
        case orv::CoderResult::UNDERFLOW:
            FUZZ_CHECK(result.length == 0);
            // What is left is the beginning of a character, whose end is still to come.
            FUZZ_CHECK(available_ - position_ < 8);
            if (available_ == input_.size()) {
                FUZZ_CHECK(position_ == available_);
                return true;
            }
            return false;
        case orv::CoderResult::OVERFLOW:
            FUZZ_CHECK(result.length == 0);
            return false;
        default:
            FUZZ_CHECK(result.kind == orv::CoderResult::MALFORMED ||
                       result.kind == orv::CoderResult::UNMAPPABLE);
            FUZZ_CHECK(Traits::actionFor(coder_, result) == orv::REPORT);
            FUZZ_CHECK(result.length >= 1 && result.length <= available_ - position_);
            outcome_.errors.push_back(
                {result.kind, result.length, position_, outcome_.output.size()});
            position_ += result.length;
            stalled_ = 0;
            return false;
        }
    }

    Coder& coder_;
    const std::vector<InElement> input_;
    // Input up to here is converted, and input up to there has been handed over.
    std::size_t position_ = 0;
    std::size_t available_ = 0;
    std::size_t stalled_ = 0;
    Outcome<Traits> outcome_;
};

/// The whole-input form must give the output of the run, or throw its first error.
template <typename Traits>
void checkWhole(typename Traits::Coder& coder, const typename Traits::InString& input,
                const Outcome<Traits>& expected) {
    const std::vector<typename Traits::InElement> block(input.begin(), input.end());
    orv::Buffer<const typename Traits::InElement> in(block.data(), block.size());
    try {
        const typename Traits::OutString output = Traits::whole(coder, in);
        FUZZ_CHECK(expected.errors.empty());
        FUZZ_CHECK(output == expected.output);
        FUZZ_CHECK(!in.hasRemaining());
    } catch (const orv::MalformedInputError& error) {
        FUZZ_CHECK(!expected.errors.empty());
        const Event& first = expected.errors.front();
        FUZZ_CHECK(first.kind == orv::CoderResult::MALFORMED);
        FUZZ_CHECK(first.length == error.getInputLength());
        FUZZ_CHECK(first.inputPosition == in.position());
    } catch (const orv::UnmappableCharacterError& error) {
        FUZZ_CHECK(!expected.errors.empty());
        const Event& first = expected.errors.front();
        FUZZ_CHECK(first.kind == orv::CoderResult::UNMAPPABLE);
        FUZZ_CHECK(first.length == error.getInputLength());
        FUZZ_CHECK(first.inputPosition == in.position());
    }
}

/// What the actions in force must make of a run in which all errors were reported.
template <typename Traits>
Outcome<Traits> applyActions(const typename Traits::Coder& coder, const Outcome<Traits>& reported) {
    Outcome<Traits> applied;
    std::size_t copied = 0;
    const auto copyUpTo = [&](std::size_t position) {
        applied.output.append(reported.output, copied, position - copied);
        copied = position;
    };
    for (const Event& event : reported.errors) {
        copyUpTo(event.outputPosition);
        switch (Traits::actionFor(coder, {event.kind, event.length})) {
        case orv::REPLACE:
            applied.output += coder.replacement();
            break;
        case orv::REPORT:
            applied.errors.push_back(event);
            applied.errors.back().outputPosition = applied.output.size();
            break;
        case orv::IGNORE:
            break;
        }
    }
    copyUpTo(reported.output.size());
    return applied;
}

/// All ways of converting \p input agree: in one step, by \p plan, element by element (where no
/// fast loop can work), with room for exactly the output or for one element less, and by the
/// whole-input form.
template <typename Traits>
void checkCoder(typename Traits::Coder& coder, const typename Traits::InString& input,
                const Plan& plan, orv::CodingErrorAction onMalformed,
                orv::CodingErrorAction onUnmappable) {
    const auto run = [&](const Plan& p) { return Runner<Traits>(coder, input).run(p); };
    const std::size_t all = input.size();
    const Plan atOnce = {{{all, 8 * all + 8}}};
    coder.onMalformedInput(orv::REPORT).onUnmappableCharacter(orv::REPORT);
    const Outcome<Traits> reported = run(atOnce);
    coder.onMalformedInput(onMalformed).onUnmappableCharacter(onUnmappable);
    const Outcome<Traits> expected = applyActions<Traits>(coder, reported);
    FUZZ_CHECK(run(atOnce) == expected);
    const std::size_t size = expected.output.size();
    FUZZ_CHECK(run(plan) == expected);
    FUZZ_CHECK(run({{{1, 8}}}) == expected);
    FUZZ_CHECK(run({{{all, size}}}) == expected);
    FUZZ_CHECK(run({{{all, size - std::min<std::size_t>(size, 1)}}}) == expected);
    checkWhole<Traits>(coder, input, expected);
}

} // namespace fuzz

#endif
