// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Scripted coders with an input and an output at hand, and ways into each state of a run.
#ifndef ORV_TESTS_SUPPORT_CODER_BENCH_H
#define ORV_TESTS_SUPPORT_CODER_BENCH_H

#include "orv/liborvxx/text/literals.h"
#include "tests/support/scripted_charset.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvtest {

/// Where a coder is in a run.
enum class RunState { RESET, CODING, END, FLUSHED };

/// A decoder with an input and an output at hand.
class DecoderBench {
    std::string input_;
    std::vector<orv::char16> units_;

public:
    explicit DecoderBench(ScriptedDecoder::Loop loop = {}, std::size_t room = 16)
        : units_(room), decoder(&scriptedCharset(), std::move(loop)), out(units_.data(), room) {}

    orv::CoderResult decode(std::string_view bytes, bool endOfInput) {
        input_ = bytes;
        in = orv::Buffer<const unsigned char>(reinterpret_cast<const unsigned char*>(input_.data()),
                                              input_.size());
        return decoder.decode(in, out, endOfInput);
    }
    /// Once more with what is left.
    orv::CoderResult again(bool endOfInput) { return decoder.decode(in, out, endOfInput); }
    /// Leads a fresh coder into the state, over one letter if need be.
    void reach(RunState state) {
        if (state != RunState::RESET) {
            decode("a", state != RunState::CODING);
        }
        if (state == RunState::FLUSHED) {
            decoder.flush(out);
        }
    }
    orv::ustring written() const { return orv::ustring(units_.data(), out.position()); }

    ScriptedDecoder decoder;
    orv::Buffer<const unsigned char> in{nullptr, 0};
    orv::Buffer<orv::char16> out;
};

/// An encoder with an input and an output at hand.
class EncoderBench {
    orv::ustring input_;
    std::vector<unsigned char> bytes_;

public:
    explicit EncoderBench(ScriptedEncoder::Loop loop = {}, std::size_t room = 16)
        : bytes_(room), encoder(&scriptedCharset()), out(bytes_.data(), room) {
        encoder.loop = std::move(loop);
    }

    orv::CoderResult encode(orv::ustring_ref units, bool endOfInput) {
        input_ = units.to_string();
        in = orv::Buffer<const orv::char16>(input_.data(), input_.size());
        return encoder.encode(in, out, endOfInput);
    }
    /// Once more with what is left.
    orv::CoderResult again(bool endOfInput) { return encoder.encode(in, out, endOfInput); }
    /// Leads a fresh coder into the state, over one letter if need be.
    void reach(RunState state) {
        if (state != RunState::RESET) {
            encode(orv::ustring(1, u'a'), state != RunState::CODING);
        }
        if (state == RunState::FLUSHED) {
            encoder.flush(out);
        }
    }
    std::string written() const {
        return std::string(bytes_.data(), bytes_.data() + out.position());
    }

    ScriptedEncoder encoder;
    orv::Buffer<const orv::char16> in{nullptr, 0};
    orv::Buffer<unsigned char> out;
};

} // namespace orvtest

#endif
