// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The states of a decoder: what each event does in each of them.
#include "orv/liborvxx/charset/charset_decoder.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/coder_bench.h"
#include "tests/support/thrown_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using namespace orv::literals;
using orv::CoderResult;
using orvtest::RunState;
using orvtest::ScriptedDecoder;
using orvtest::thrownMessage;
using testing::ElementsAre;
using Bench = orvtest::DecoderBench;
using Units = orv::Buffer<orv::char16>;

constexpr const char* ILLEGAL_DECODE = "CharsetDecoder::decode: illegal state";
constexpr const char* ILLEGAL_FLUSH = "CharsetDecoder::flush: illegal state";
constexpr const char* LEGAL = "nothing thrown";
constexpr RunState STATES[] = {RunState::RESET, RunState::CODING, RunState::END, RunState::FLUSHED};

TEST(CharsetDecoderStates, DecodeWithMoreToComeIsForResetAndCoding) {
    for (const RunState state : {RunState::RESET, RunState::CODING}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(b.decode("b", false), CoderResult::underflow());
        // In the state of coding: no flush yet.
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.decoder.flush(b.out); }), ILLEGAL_FLUSH);
        EXPECT_EQ(b.decode("c", false), CoderResult::underflow());
    }
    for (const RunState state : {RunState::END, RunState::FLUSHED}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.decode("b", false); }), ILLEGAL_DECODE);
        EXPECT_EQ(b.in.position(), 0U);
    }
}

TEST(CharsetDecoderStates, DecodeOfTheLastInputIsForAllButFlushed) {
    for (const RunState state : {RunState::RESET, RunState::CODING, RunState::END}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(b.decode("b", true), CoderResult::underflow());
        EXPECT_EQ(b.decoder.flush(b.out), CoderResult::underflow());
    }
    Bench b;
    b.reach(RunState::FLUSHED);
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.decode("b", true); }), ILLEGAL_DECODE);
}

TEST(CharsetDecoderStates, FlushIsForEndAndFlushed) {
    for (const RunState state : {RunState::RESET, RunState::CODING}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.decoder.flush(b.out); }), ILLEGAL_FLUSH);
    }
    Bench b;
    b.reach(RunState::END);
    EXPECT_EQ(b.decoder.flush(b.out), CoderResult::underflow());
    EXPECT_EQ(b.decoder.flush(b.out), CoderResult::underflow());
    EXPECT_THAT(b.decoder.hooks, ElementsAre("flush")) << "the second flush does nothing";
}

TEST(CharsetDecoderStates, AFlushThatIsNotDoneMayBeRepeated) {
    Bench b({}, 2);
    b.decoder.flushing = [](Units& out) {
        if (!out.hasRemaining()) {
            return CoderResult::overflow();
        }
        out.put(u'!');
        return CoderResult::underflow();
    };
    b.decode("ab", true);
    EXPECT_EQ(b.decoder.flush(b.out), CoderResult::overflow());
    EXPECT_EQ(b.decoder.flush(b.out), CoderResult::overflow());
    // The state is still that of the end.
    EXPECT_EQ(b.again(true), CoderResult::underflow());
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.again(false); }), ILLEGAL_DECODE);
    b.out.clear();
    EXPECT_EQ(b.decoder.flush(b.out), CoderResult::underflow());
    EXPECT_EQ(b.written(), u"!"_u);
    EXPECT_EQ(b.decoder.flush(b.out), CoderResult::underflow());
    EXPECT_EQ(b.written(), u"!"_u);
}

TEST(CharsetDecoderStates, ResetLeadsBackFromAnywhere) {
    for (const RunState state :
         {RunState::RESET, RunState::CODING, RunState::END, RunState::FLUSHED}) {
        Bench b;
        b.reach(state);
        b.decoder.hooks.clear();
        EXPECT_EQ(&b.decoder.reset(), &b.decoder);
        EXPECT_THAT(b.decoder.hooks, ElementsAre("reset"));
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.decoder.flush(b.out); }), ILLEGAL_FLUSH);
        EXPECT_EQ(b.decode("b", false), CoderResult::underflow());
    }
}

TEST(CharsetDecoderStates, AWholeInputStartsFromAnyStateAndEndsFlushed) {
    for (const RunState state :
         {RunState::RESET, RunState::CODING, RunState::END, RunState::FLUSHED}) {
        Bench b;
        b.reach(state);
        b.decoder.hooks.clear();
        EXPECT_EQ(b.decoder.decode("text"), u"text"_u);
        EXPECT_THAT(b.decoder.hooks, ElementsAre("reset", "flush"));
        EXPECT_EQ(b.decoder.flush(b.out), CoderResult::underflow());
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.decode("b", true); }), ILLEGAL_DECODE);
    }
}

TEST(CharsetDecoderStates, AnEmptyWholeInputChangesNothing) {
    for (const RunState state :
         {RunState::RESET, RunState::CODING, RunState::END, RunState::FLUSHED}) {
        Bench b;
        b.reach(state);
        b.decoder.hooks.clear();
        EXPECT_EQ(b.decoder.decode(""), u""_u);
        EXPECT_TRUE(b.decoder.hooks.empty());
        // Each state answers as before.
        const bool flushable = state == RunState::END || state == RunState::FLUSHED;
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.decoder.flush(b.out); }),
                  flushable ? "nothing thrown" : ILLEGAL_FLUSH);
    }
    Bench b;
    b.reach(RunState::END);
    EXPECT_EQ(b.decoder.decode(""), u""_u);
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.decode("b", false); }), ILLEGAL_DECODE);
}

TEST(CharsetDecoderStates, AReportedErrorLeavesTheDecoderUsable) {
    Bench b;
    EXPECT_EQ(b.decode("a\x80"
                       "b",
                       false),
              CoderResult::malformed(1));
    EXPECT_EQ(b.in.position(), 1U);
    EXPECT_EQ(b.again(false), CoderResult::malformed(1)) << "it comes up again";
    b.in.position(2);
    EXPECT_EQ(b.again(false), CoderResult::underflow());
    EXPECT_EQ(b.written(), u"ab"_u);
}

// Settings.

using Setting = void (*)(ScriptedDecoder&);

constexpr Setting SETTINGS[] = {
    [](ScriptedDecoder& decoder) { decoder.onMalformedInput(orv::REPLACE); },
    [](ScriptedDecoder& decoder) { decoder.onUnmappableCharacter(orv::IGNORE); },
    [](ScriptedDecoder& decoder) { decoder.replaceWith(u"!"_u); },
};

// What a step throws in a state in which a setting was made.
template <class Step>
std::string thrownBy(RunState state, Setting set, Step step) {
    Bench b;
    b.reach(state);
    set(b.decoder);
    return thrownMessage<std::logic_error>([&] { step(b); });
}

TEST(CharsetDecoderStates, ASettingLeavesEachStateAsItIs) {
    for (const RunState state : STATES) {
        const bool isOpen = state == RunState::RESET || state == RunState::CODING;
        for (const Setting set : SETTINGS) {
            EXPECT_EQ(thrownBy(state, set, [](Bench& b) { b.decode("b", false); }),
                      isOpen ? LEGAL : ILLEGAL_DECODE);
            EXPECT_EQ(thrownBy(state, set, [](Bench& b) { b.decode("b", true); }),
                      state == RunState::FLUSHED ? ILLEGAL_DECODE : LEGAL);
            EXPECT_EQ(thrownBy(state, set,
                               [](Bench& b) {
                                   EXPECT_EQ(b.decoder.flush(b.out), CoderResult::underflow());
                               }),
                      isOpen ? ILLEGAL_FLUSH : LEGAL);
        }
    }
}

TEST(CharsetDecoderStates, SettingsOfAnyStateHoldForWhatIsDecodedNext) {
    for (const RunState state : STATES) {
        Bench b;
        b.reach(state);
        for (const Setting set : SETTINGS) {
            set(b.decoder);
        }
        b.out.clear();
        if (state == RunState::FLUSHED) {
            b.decoder.reset();
        }
        EXPECT_EQ(b.decode("b\x80\x81"
                           "c",
                           state == RunState::END),
                  CoderResult::underflow());
        EXPECT_EQ(b.written(), u"b!c"_u);
        // A run later they still hold.
        EXPECT_EQ(b.decoder.decode("\x81\x80"), u"!"_u);
    }
}

TEST(CharsetDecoderStates, AnErrorThatComesUpAgainIsTreatedAsTheActionsSayThen) {
    Bench b;
    EXPECT_EQ(b.decode("a\x81\x80", true), CoderResult::unmappable(1));
    b.decoder.onUnmappableCharacter(orv::REPLACE);
    EXPECT_EQ(b.again(true), CoderResult::malformed(1));
    EXPECT_EQ(b.written(), u"a\uFFFD"_u);
    b.decoder.onMalformedInput(orv::REPLACE).replaceWith(u"!"_u);
    EXPECT_EQ(b.again(true), CoderResult::underflow());
    EXPECT_EQ(b.written(), u"a\uFFFD!"_u);
    EXPECT_EQ(b.decoder.flush(b.out), CoderResult::underflow());
}

} // namespace
