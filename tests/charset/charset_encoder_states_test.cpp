// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The states of an encoder: what each event does in each of them, and `canEncode`.
#include "orv/liborvxx/charset/charset_encoder.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/coder_bench.h"
#include "tests/support/thrown_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::CoderResult;
using orvtest::RunState;
using orvtest::scriptedCharset;
using orvtest::ScriptedEncoder;
using orvtest::thrownMessage;
using testing::ElementsAre;
using Bench = orvtest::EncoderBench;
using Units = orv::Buffer<const char16>;
using Bytes = orv::Buffer<unsigned char>;

constexpr const char* ILLEGAL_ENCODE = "CharsetEncoder::encode: illegal state";
constexpr const char* ILLEGAL_FLUSH = "CharsetEncoder::flush: illegal state";
constexpr const char* ILLEGAL_TEST = "CharsetEncoder::canEncode: illegal state";
constexpr const char* LEGAL = "nothing thrown";
constexpr RunState STATES[] = {RunState::RESET, RunState::CODING, RunState::END, RunState::FLUSHED};

TEST(CharsetEncoderStates, EncodeWithMoreToComeIsForResetAndCoding) {
    for (const RunState state : {RunState::RESET, RunState::CODING}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(b.encode(u"b"_u, false), CoderResult::underflow());
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encoder.flush(b.out); }), ILLEGAL_FLUSH);
        EXPECT_EQ(b.encode(u"c"_u, false), CoderResult::underflow());
    }
    for (const RunState state : {RunState::END, RunState::FLUSHED}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encode(u"b"_u, false); }),
                  ILLEGAL_ENCODE);
        EXPECT_EQ(b.in.position(), 0U);
    }
}

TEST(CharsetEncoderStates, EncodeOfTheLastInputIsForAllButFlushed) {
    for (const RunState state : {RunState::RESET, RunState::CODING, RunState::END}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(b.encode(u"b"_u, true), CoderResult::underflow());
        EXPECT_EQ(b.encoder.flush(b.out), CoderResult::underflow());
    }
    Bench b;
    b.reach(RunState::FLUSHED);
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encode(u"b"_u, true); }), ILLEGAL_ENCODE);
}

TEST(CharsetEncoderStates, FlushIsForEndAndFlushed) {
    for (const RunState state : {RunState::RESET, RunState::CODING}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encoder.flush(b.out); }), ILLEGAL_FLUSH);
    }
    Bench b;
    b.reach(RunState::END);
    EXPECT_EQ(b.encoder.flush(b.out), CoderResult::underflow());
    EXPECT_EQ(b.encoder.flush(b.out), CoderResult::underflow());
    EXPECT_THAT(b.encoder.hooks, ElementsAre("flush"));
}

TEST(CharsetEncoderStates, AFlushThatIsNotDoneMayBeRepeated) {
    Bench b({}, 2);
    b.encoder.flushing = [](Bytes& out) {
        if (!out.hasRemaining()) {
            return CoderResult::overflow();
        }
        out.put('!');
        return CoderResult::underflow();
    };
    b.encode(u"ab"_u, true);
    EXPECT_EQ(b.encoder.flush(b.out), CoderResult::overflow());
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.again(false); }), ILLEGAL_ENCODE);
    b.out.clear();
    EXPECT_EQ(b.encoder.flush(b.out), CoderResult::underflow());
    EXPECT_EQ(b.encoder.flush(b.out), CoderResult::underflow());
    EXPECT_EQ(b.written(), "!");
}

TEST(CharsetEncoderStates, ResetLeadsBackFromAnywhere) {
    for (const RunState state :
         {RunState::RESET, RunState::CODING, RunState::END, RunState::FLUSHED}) {
        Bench b;
        b.reach(state);
        b.encoder.hooks.clear();
        EXPECT_EQ(&b.encoder.reset(), &b.encoder);
        EXPECT_THAT(b.encoder.hooks, ElementsAre("reset"));
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encoder.flush(b.out); }), ILLEGAL_FLUSH);
        EXPECT_EQ(b.encode(u"b"_u, false), CoderResult::underflow());
    }
}

TEST(CharsetEncoderStates, AWholeInputStartsFromAnyStateAndEndsFlushed) {
    for (const RunState state :
         {RunState::RESET, RunState::CODING, RunState::END, RunState::FLUSHED}) {
        Bench b;
        b.reach(state);
        b.encoder.hooks.clear();
        EXPECT_EQ(b.encoder.encode(u"text"_u), "text");
        EXPECT_THAT(b.encoder.hooks, ElementsAre("reset", "flush"));
        EXPECT_EQ(b.encoder.flush(b.out), CoderResult::underflow());
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encode(u"b"_u, true); }), ILLEGAL_ENCODE);
    }
}

TEST(CharsetEncoderStates, AnEmptyWholeInputChangesNothing) {
    for (const RunState state :
         {RunState::RESET, RunState::CODING, RunState::END, RunState::FLUSHED}) {
        Bench b;
        b.reach(state);
        b.encoder.hooks.clear();
        EXPECT_EQ(b.encoder.encode(u""_u), "");
        EXPECT_TRUE(b.encoder.hooks.empty());
        const bool flushable = state == RunState::END || state == RunState::FLUSHED;
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encoder.flush(b.out); }),
                  flushable ? "nothing thrown" : ILLEGAL_FLUSH);
    }
}

// Settings.

using Setting = void (*)(ScriptedEncoder&);

constexpr Setting SETTINGS[] = {
    [](ScriptedEncoder& encoder) { encoder.onMalformedInput(orv::REPLACE); },
    [](ScriptedEncoder& encoder) { encoder.onUnmappableCharacter(orv::IGNORE); },
    [](ScriptedEncoder& encoder) { encoder.replaceWith("!"); },
};

// What a step throws in a state in which a setting was made.
template <class Step>
std::string thrownBy(RunState state, Setting set, Step step) {
    Bench b;
    b.reach(state);
    set(b.encoder);
    return thrownMessage<std::logic_error>([&] { step(b); });
}

TEST(CharsetEncoderStates, ASettingLeavesEachStateAsItIs) {
    for (const RunState state : STATES) {
        const bool isOpen = state == RunState::RESET || state == RunState::CODING;
        const bool isInRun = state == RunState::CODING || state == RunState::END;
        for (const Setting set : SETTINGS) {
            EXPECT_EQ(thrownBy(state, set, [](Bench& b) { b.encode(u"b"_u, false); }),
                      isOpen ? LEGAL : ILLEGAL_ENCODE);
            EXPECT_EQ(thrownBy(state, set, [](Bench& b) { b.encode(u"b"_u, true); }),
                      state == RunState::FLUSHED ? ILLEGAL_ENCODE : LEGAL);
            EXPECT_EQ(thrownBy(state, set,
                               [](Bench& b) {
                                   EXPECT_EQ(b.encoder.flush(b.out), CoderResult::underflow());
                               }),
                      isOpen ? ILLEGAL_FLUSH : LEGAL);
            EXPECT_EQ(
                thrownBy(state, set, [](Bench& b) { EXPECT_TRUE(b.encoder.canEncode(u"b"_u)); }),
                isInRun ? ILLEGAL_TEST : LEGAL);
        }
    }
}

TEST(CharsetEncoderStates, SettingsOfAnyStateHoldForWhatIsEncodedNext) {
    for (const RunState state : STATES) {
        Bench b;
        b.reach(state);
        for (const Setting set : SETTINGS) {
            set(b.encoder);
        }
        b.out.clear();
        if (state == RunState::FLUSHED) {
            b.encoder.reset();
        }
        const orv::ustring text{u'b', u'\xDC00', u'\xE9', u'c'};
        EXPECT_EQ(b.encode(text, state == RunState::END), CoderResult::underflow());
        EXPECT_EQ(b.written(), "b!c");
        // A run later they still hold.
        EXPECT_EQ(b.encoder.encode(text), "b!c");
    }
}

TEST(CharsetEncoderStates, AnErrorThatComesUpAgainIsTreatedAsTheActionsSayThen) {
    Bench b;
    EXPECT_EQ(b.encode(orv::ustring{u'a', u'\xE9', u'\xDC00'}, true), CoderResult::unmappable(1));
    b.encoder.onUnmappableCharacter(orv::REPLACE);
    EXPECT_EQ(b.again(true), CoderResult::malformed(1));
    EXPECT_EQ(b.written(), "a?");
    b.encoder.onMalformedInput(orv::REPLACE).replaceWith("!");
    EXPECT_EQ(b.again(true), CoderResult::underflow());
    EXPECT_EQ(b.written(), "a?!");
    EXPECT_EQ(b.encoder.flush(b.out), CoderResult::underflow());
}

// canEncode.

TEST(CanEncode, TellsWhetherEncodeWouldReturn) {
    ScriptedEncoder encoder(&scriptedCharset());
    EXPECT_TRUE(encoder.canEncode(u"abc"_u));
    EXPECT_TRUE(encoder.canEncode(u""_u));
    EXPECT_FALSE(encoder.canEncode(u"ab\u00E9"_u));
    EXPECT_TRUE(encoder.canEncode(char16(u'x')));
    EXPECT_FALSE(encoder.canEncode(char16(u'\xE9')));
    EXPECT_TRUE(encoder.canEncode(u"abc"_u)) << "a false answer leaves nothing behind";
}

TEST(CanEncode, ASurrogateByItselfIsMalformed) {
    const auto encoder = orv::Charset::UTF_8->newEncoder();
    EXPECT_FALSE(encoder->canEncode(char16(u'\xD800')));
    EXPECT_FALSE(encoder->canEncode(char16(u'\xDC00')));
    EXPECT_TRUE(encoder->canEncode(u"\U00010000"_u));
    encoder->onMalformedInput(orv::IGNORE);
    EXPECT_TRUE(encoder->canEncode(char16(u'\xD800')));
}

TEST(CanEncode, TheActionsInForceDecide) {
    ScriptedEncoder encoder(&scriptedCharset());
    for (const auto action : {orv::REPLACE, orv::IGNORE}) {
        encoder.onUnmappableCharacter(action);
        EXPECT_TRUE(encoder.canEncode(u"\u20AC"_u));
        EXPECT_FALSE(encoder.canEncode(char16(u'\xDC00'))) << "malformed is another action";
        EXPECT_EQ(encoder.unmappableCharacterAction(), action);
    }
    encoder.onMalformedInput(orv::REPLACE);
    EXPECT_TRUE(encoder.canEncode(char16(u'\xDC00')));
    EXPECT_EQ(encoder.malformedInputAction(), orv::REPLACE);
}

TEST(CanEncode, IsForResetAndFlushedAndEndsReset) {
    for (const RunState state : {RunState::RESET, RunState::FLUSHED}) {
        for (const orv::ustring_ref text : {u"a"_u, u"\u20AC"_u}) {
            Bench b;
            b.reach(state);
            EXPECT_EQ(b.encoder.canEncode(text), text == u"a"_u);
            EXPECT_EQ(b.encoder.hooks.back(), "reset");
            EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encoder.flush(b.out); }),
                      ILLEGAL_FLUSH);
            EXPECT_EQ(b.encode(u"a"_u, false), CoderResult::underflow());
        }
    }
    for (const RunState state : {RunState::CODING, RunState::END}) {
        Bench b;
        b.reach(state);
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encoder.canEncode(u"a"_u); }),
                  ILLEGAL_TEST);
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { b.encoder.canEncode(char16(u'a')); }),
                  ILLEGAL_TEST);
        // The run goes on where it was.
        EXPECT_EQ(b.encode(u"b"_u, true), CoderResult::underflow());
        EXPECT_EQ(b.written(), "ab");
    }
}

TEST(CanEncode, PutsBackTheActionsAlsoWhenSomethingElseIsThrown) {
    Bench b;
    b.encoder.onMalformedInput(orv::IGNORE).onUnmappableCharacter(orv::REPLACE);
    b.encoder.loop = [&b](Units&, Bytes&) -> CoderResult {
        b.encoder.onMalformedInput(orv::REPORT).onUnmappableCharacter(orv::IGNORE);
        throw std::runtime_error("loop");
    };
    EXPECT_EQ(thrownMessage<std::runtime_error>([&] { b.encoder.canEncode(u"a"_u); }), "loop");
    EXPECT_EQ(b.encoder.malformedInputAction(), orv::IGNORE);
    EXPECT_EQ(b.encoder.unmappableCharacterAction(), orv::REPLACE);
    b.encoder.reset();
    b.encoder.loop = [&b](Units& in, Bytes&) {
        b.encoder.onMalformedInput(orv::REPORT);
        in.position(in.limit());
        return CoderResult::underflow();
    };
    EXPECT_TRUE(b.encoder.canEncode(u"a"_u));
    EXPECT_EQ(b.encoder.malformedInputAction(), orv::IGNORE);
}

} // namespace
