// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decoder's settings, hooks, actions and whole-input form, on decoders defined here.
#include "orv/liborvxx/charset/charset_decoder.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/coder_bench.h"
#include "tests/support/thrown_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace orv::literals;
using orv::Buffer;
using orv::char16;
using orv::CharsetDecoder;
using orv::CoderResult;
using orvtest::scriptedCharset;
using orvtest::ScriptedDecoder;
using orvtest::thrownMessage;
using testing::ElementsAre;

using Bench = orvtest::DecoderBench;
using Bytes = Buffer<const unsigned char>;
using Units = Buffer<char16>;

constexpr const char* ILLEGAL_DECODE = "CharsetDecoder::decode: illegal state";
constexpr const char* ILLEGAL_FLUSH = "CharsetDecoder::flush: illegal state";

static_assert(!std::is_copy_constructible_v<CharsetDecoder>);
static_assert(std::has_virtual_destructor_v<CharsetDecoder>);
static_assert(ScriptedDecoder::MARKER == 0xDFFF, "the entry of decode tables for an unmapped byte");

TEST(CharsetDecoder, StartsWithReportAndAReplacementCharacter) {
    ScriptedDecoder decoder(&scriptedCharset(), 0.5F, 3);
    EXPECT_EQ(decoder.charset(), &scriptedCharset());
    EXPECT_EQ(decoder.averageCharsPerByte(), 0.5F);
    EXPECT_EQ(decoder.maxCharsPerByte(), 3U);
    EXPECT_EQ(decoder.malformedInputAction(), orv::REPORT);
    EXPECT_EQ(decoder.unmappableCharacterAction(), orv::REPORT);
    EXPECT_EQ(decoder.replacement(), u"\uFFFD"_u);
    EXPECT_TRUE(decoder.hooks.empty());
}

TEST(CharsetDecoder, TheConstructorChecksTheSizes) {
    const auto make = [](float average, unsigned int most) {
        return thrownMessage<std::invalid_argument>(
            [=] { ScriptedDecoder decoder(&scriptedCharset(), average, most); });
    };
    const char* const refused = "CharsetDecoder::CharsetDecoder";
    EXPECT_EQ(make(2.5F, 2), refused);
    EXPECT_EQ(make(0.0F, 1), refused);
    EXPECT_EQ(make(-1.0F, 1), refused);
    EXPECT_EQ(make(1.0F, 0), refused);
    EXPECT_EQ(make(0.5F, 0), refused);
    EXPECT_EQ(make(std::numeric_limits<float>::quiet_NaN(), 1), refused);
    EXPECT_EQ(make(std::numeric_limits<float>::infinity(), 1), refused);
    EXPECT_EQ(make(2.0F, 2), "nothing thrown");
    EXPECT_EQ(make(0.001F, 1), "nothing thrown");
}

TEST(CharsetDecoder, DetectsNothing) {
    const ScriptedDecoder decoder(&scriptedCharset());
    EXPECT_FALSE(decoder.isAutoDetecting());
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { decoder.isCharsetDetected(); }),
              "CharsetDecoder::isCharsetDetected");
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { decoder.detectedCharset(); }),
              "CharsetDecoder::detectedCharset");
}

TEST(CharsetDecoder, ActionsAreStoredAndTheHooksAreTold) {
    ScriptedDecoder decoder(&scriptedCharset());
    EXPECT_EQ(&decoder.onMalformedInput(orv::IGNORE).onUnmappableCharacter(orv::REPLACE), &decoder);
    EXPECT_EQ(decoder.malformedInputAction(), orv::IGNORE);
    EXPECT_EQ(decoder.unmappableCharacterAction(), orv::REPLACE);
    EXPECT_THAT(decoder.hooks, ElementsAre("malformed 0", "unmappable 1"));
}

TEST(CharsetDecoder, AnActionThatIsNoEnumeratorIsRefused) {
    ScriptedDecoder decoder(&scriptedCharset());
    const auto none = static_cast<orv::CodingErrorAction>(3);
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { decoder.onMalformedInput(none); }),
              "CharsetDecoder::onMalformedInput");
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { decoder.onUnmappableCharacter(none); }),
              "CharsetDecoder::onUnmappableCharacter");
    EXPECT_EQ(decoder.malformedInputAction(), orv::REPORT);
    EXPECT_EQ(decoder.unmappableCharacterAction(), orv::REPORT);
    EXPECT_TRUE(decoder.hooks.empty());
}

TEST(CharsetDecoder, AReplacementHasOneToTheMaximumOfUnits) {
    ScriptedDecoder decoder(&scriptedCharset(), 1.0F, 3);
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { decoder.replaceWith(u""_u); }),
              "CharsetDecoder::replaceWith");
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { decoder.replaceWith(u"abcd"_u); }),
              "CharsetDecoder::replaceWith");
    EXPECT_EQ(decoder.replacement(), u"\uFFFD"_u);
    EXPECT_TRUE(decoder.hooks.empty());
    EXPECT_EQ(&decoder.replaceWith(u"abc"_u), &decoder);
    EXPECT_EQ(decoder.replacement(), u"abc"_u);
    // Nothing is asked about the units.
    const char16 lone = u'\xD800';
    decoder.replaceWith(orv::ustring_ref(&lone, 1));
    EXPECT_EQ(decoder.replacement(), orv::ustring(1, lone));
    decoder.replaceWith(decoder.replacement());
    EXPECT_EQ(decoder.replacement(), orv::ustring(1, lone));
    EXPECT_THAT(decoder.hooks, ElementsAre("replaceWith 3 stored", "replaceWith 1 stored",
                                           "replaceWith 1 stored"));
}

// Actions.

TEST(CharsetDecoderActions, EachKindOfErrorHasItsOwn) {
    Bench b;
    b.decoder.onMalformedInput(orv::REPLACE);
    EXPECT_EQ(b.decode("\x80\x81", true), CoderResult::unmappable(1));
    EXPECT_EQ(b.in.position(), 1U);
    EXPECT_EQ(b.written(), u"\uFFFD"_u);

    Bench c;
    c.decoder.onUnmappableCharacter(orv::IGNORE);
    EXPECT_EQ(c.decode("\x81\x80", true), CoderResult::malformed(1));
    EXPECT_EQ(c.in.position(), 1U);
    EXPECT_EQ(c.written(), u""_u);
}

TEST(CharsetDecoderActions, ReplaceWritesTheReplacementWhole) {
    Bench b([](Bytes& in, Units&) {
        return in.hasRemaining() ? CoderResult::malformed(1) : CoderResult::underflow();
    });
    ScriptedDecoder decoder(&scriptedCharset(), b.decoder.loop, 1.0F, 3);
    decoder.onMalformedInput(orv::REPLACE).replaceWith(u"xyz"_u);
    std::array<char16, 6> units{};
    const std::array<unsigned char, 2> bytes = {1, 2};
    Bytes in(bytes.data(), 2);
    Units out(units.data(), 0, 5, 6);
    EXPECT_EQ(decoder.decode(in, out, true), CoderResult::overflow());
    EXPECT_EQ(in.position(), 1U);
    EXPECT_EQ(out.position(), 3U) << "no part of the second one is written";
    EXPECT_EQ(decoder.decode(in, out, true), CoderResult::overflow()) << "and again";
    EXPECT_EQ(in.position(), 1U);
    out.limit(6);
    EXPECT_EQ(decoder.decode(in, out, true), CoderResult::underflow());
    EXPECT_EQ(orv::ustring(units.data(), 6), u"xyzxyz"_u);
}

TEST(CharsetDecoderActions, ReplaceIntoAFullOutputConsumesNothing) {
    Bench b({}, 1);
    b.decoder.onMalformedInput(orv::REPLACE);
    EXPECT_EQ(b.decode("a\x80", true), CoderResult::overflow());
    EXPECT_EQ(b.in.position(), 1U);
    b.out.clear();
    EXPECT_EQ(b.again(true), CoderResult::underflow());
    EXPECT_EQ(b.written(), u"\uFFFD"_u);
}

// Three bytes a character; the first unit of each is given.
CoderResult triples(Bytes& in, Units& out) {
    while (in.remaining() >= 3) {
        if (!out.hasRemaining()) {
            return CoderResult::overflow();
        }
        out.put(static_cast<char16>(in.get()));
        in.position(in.position() + 2);
    }
    return CoderResult::underflow();
}

TEST(CharsetDecoderActions, ATruncatedSequenceIsMalformedAsAWholeOnceTheInputEnds) {
    Bench b(triples);
    EXPECT_EQ(b.decode("abcde", false), CoderResult::underflow());
    EXPECT_EQ(b.in.position(), 3U) << "the tail stays";
    EXPECT_EQ(b.again(true), CoderResult::malformed(2));
    EXPECT_EQ(b.in.position(), 3U);
    EXPECT_EQ(b.again(true), CoderResult::malformed(2));

    Bench dropped(triples);
    dropped.decoder.onMalformedInput(orv::IGNORE);
    EXPECT_EQ(dropped.decode("abcde", true), CoderResult::underflow());
    EXPECT_EQ(dropped.in.position(), 5U);
    EXPECT_EQ(dropped.written(), u"a"_u);

    Bench replaced(triples);
    replaced.decoder.onMalformedInput(orv::REPLACE).onUnmappableCharacter(orv::IGNORE);
    EXPECT_EQ(replaced.decode("abcde", true), CoderResult::underflow());
    EXPECT_EQ(replaced.written(), u"a\uFFFD"_u) << "one replacement for both bytes";
}

TEST(CharsetDecoderActions, ResetBetweenTwoRunsAllowsMoreInput) {
    Bench b;
    EXPECT_EQ(b.decode("a", true), CoderResult::underflow());
    EXPECT_THROW(b.decode("b", false), std::logic_error);
    b.decoder.reset();
    EXPECT_EQ(b.decode("b", false), CoderResult::underflow());
}

// Loops that go wrong.

TEST(CharsetDecoderMalfunctions, ALoopThatRunsIntoALimitIsToldSo) {
    Bench over(
        [](Bytes& in, Units& out) {
            while (in.hasRemaining()) {
                out.put(static_cast<char16>(in.get()));
            }
            return CoderResult::underflow();
        },
        1);
    EXPECT_EQ(thrownMessage<orv::CoderMalfunctionError>([&] { over.decode("ab", false); }),
              "CharsetDecoder::decode: unexpected buffer overflow");
    // The state was set before the loop ran.
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { over.decoder.flush(over.out); }),
              ILLEGAL_FLUSH);

    Bench under([](Bytes& in, Units&) {
        in.get();
        in.get();
        return CoderResult::underflow();
    });
    EXPECT_EQ(thrownMessage<orv::CoderMalfunctionError>([&] { under.decode("a", true); }),
              "CharsetDecoder::decode: unexpected buffer underflow");
    EXPECT_EQ(thrownMessage<orv::CoderMalfunctionError>([&] { under.decoder.decode("a"); }),
              "CharsetDecoder::decode: unexpected buffer underflow");
}

TEST(CharsetDecoderMalfunctions, OtherExceptionsPassThrough) {
    Bench beyond([](Bytes& in, Units&) {
        in.position(in.limit() + 1);
        return CoderResult::underflow();
    });
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { beyond.decode("a", true); }),
              "new_position > limit()");
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { beyond.again(false); }), ILLEGAL_DECODE)
        << "the state stands as it was set";

    Bench overlong([](Bytes&, Units&) { return CoderResult::malformed(7); });
    overlong.decoder.onMalformedInput(orv::IGNORE);
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { overlong.decode("abc", true); }),
              "new_position > limit()");
    EXPECT_EQ(overlong.in.position(), 0U);
}

TEST(CharsetDecoderMalfunctions, AnOverflowOutOfTheFlushHookIsNotTranslated) {
    Bench b({}, 0);
    b.decoder.flushing = [](Units& out) {
        out.put(u'x');
        return CoderResult::underflow();
    };
    b.decode("", true);
    EXPECT_EQ(thrownMessage<orv::BufferOverflowError>([&] { b.decoder.flush(b.out); }),
              "buffer overflow");
    EXPECT_EQ(b.again(true), CoderResult::underflow()) << "the state is still that of the end";
}

// The whole input.

TEST(CharsetDecoderWhole, GrowsFromNothingToOneMoreThanTwice) {
    std::vector<std::size_t> rooms;
    Bench b([&](Bytes& in, Units& out) {
        rooms.push_back(out.limit());
        EXPECT_EQ(out.limit(), out.capacity());
        while (in.hasRemaining() && out.hasRemaining()) {
            out.put(static_cast<char16>(in.get()));
        }
        return in.hasRemaining() ? CoderResult::overflow() : CoderResult::underflow();
    });
    ScriptedDecoder frugal(&scriptedCharset(), b.decoder.loop, 0.25F, 1);
    EXPECT_EQ(frugal.decode("a"), u"a"_u);
    EXPECT_THAT(rooms, ElementsAre(0U, 1U));
    rooms.clear();
    EXPECT_EQ(frugal.decode("abcdefghij"), u"abcdefghij"_u);
    EXPECT_THAT(rooms, ElementsAre(2U, 5U, 11U)) << "10 / 4, cut to a whole number; then 2n + 1";
    rooms.clear();
    EXPECT_EQ(b.decoder.decode("abc"), u"abc"_u);
    EXPECT_THAT(rooms, ElementsAre(3U));
}

TEST(CharsetDecoderWhole, AFlushThatNeedsRoomGetsIt) {
    Bench b;
    b.decoder.flushing = [](Units& out) {
        if (out.remaining() < 5) {
            return CoderResult::overflow();
        }
        out.put(u"tail!"_u.data(), 5);
        return CoderResult::underflow();
    };
    EXPECT_EQ(b.decoder.decode("abc"), u"abctail!"_u);
}

TEST(CharsetDecoderWhole, TheOutputStartsAsZeros) {
    Bench b([](Bytes& in, Units& out) {
        // Moves over units without writing them.
        out.position(out.position() + in.remaining());
        in.position(in.limit());
        return CoderResult::underflow();
    });
    EXPECT_EQ(b.decoder.decode("abc"), orv::ustring(3, u'\0'));
}

TEST(CharsetDecoderWhole, ReadsFromThePositionToTheLimit) {
    const std::array<unsigned char, 6> bytes = {'x', 'a', 'b', 'c', 'y', 'z'};
    Bytes in(bytes.data(), 1, 4, 6);
    ScriptedDecoder decoder(&scriptedCharset());
    EXPECT_EQ(decoder.decode(in), u"abc"_u);
    EXPECT_EQ(in.position(), 4U);
    EXPECT_EQ(decoder.decode(in), u""_u) << "nothing is left";
}

TEST(CharsetDecoderWhole, ReportThrowsAndLeavesThePositionOnTheSequence) {
    const std::array<unsigned char, 4> bytes = {'a', 'b', 0x80, 'c'};
    Bytes in(bytes.data(), 4);
    ScriptedDecoder decoder(&scriptedCharset());
    EXPECT_THROW(decoder.decode(in), orv::MalformedInputError);
    EXPECT_EQ(in.position(), 2U);

    Bench b([](Bytes& input, Units&) {
        input.position(1);
        return CoderResult::unmappable(2);
    });
    try {
        b.decoder.decode("abcd");
        FAIL() << "nothing thrown";
    } catch (const orv::UnmappableCharacterError& e) {
        EXPECT_EQ(e.getInputLength(), 2U);
    }
    try {
        ScriptedDecoder(&scriptedCharset(), triples).decode("abcde");
        FAIL() << "nothing thrown";
    } catch (const orv::MalformedInputError& e) {
        EXPECT_EQ(e.getInputLength(), 2U);
    }
}

TEST(CharsetDecoderWhole, AViewWithZerosIsTakenWhole) {
    EXPECT_EQ(ScriptedDecoder(&scriptedCharset()).decode(orv::string_ref("a\0b", 3)),
              orv::ustring(u"a\0b"_u));
}

} // namespace
