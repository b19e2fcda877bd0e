// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The encoder's settings, hooks, actions and whole-input form, on encoders defined here.
#include "orv/liborvxx/charset/charset_encoder.h"

#include "orv/liborvxx/charset/charset.h"
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
using orv::CharsetEncoder;
using orv::CoderResult;
using orvtest::ScriptedCharset;
using orvtest::scriptedCharset;
using orvtest::ScriptedDecoder;
using orvtest::ScriptedEncoder;
using orvtest::thrownMessage;
using testing::ElementsAre;

using Bench = orvtest::EncoderBench;
using Units = Buffer<const char16>;
using Bytes = Buffer<unsigned char>;

constexpr const char* ILLEGAL_ENCODE = "CharsetEncoder::encode: illegal state";
constexpr const char* BAD_REPLACEMENT = "CharsetEncoder::replaceWith";

static_assert(!std::is_copy_constructible_v<CharsetEncoder>);
static_assert(std::has_virtual_destructor_v<CharsetEncoder>);

TEST(CharsetEncoder, StartsWithReportAndAQuestionMark) {
    ScriptedEncoder encoder(&scriptedCharset(), 1.5F, 4);
    EXPECT_EQ(encoder.charset(), &scriptedCharset());
    EXPECT_EQ(encoder.averageBytesPerChar(), 1.5F);
    EXPECT_EQ(encoder.maxBytesPerChar(), 4U);
    EXPECT_EQ(encoder.malformedInputAction(), orv::REPORT);
    EXPECT_EQ(encoder.unmappableCharacterAction(), orv::REPORT);
    EXPECT_EQ(encoder.replacement(), "?");
    EXPECT_TRUE(encoder.hooks.empty()) << "the hook of the base class ran, not that of this one";
}

TEST(CharsetEncoder, TakesAReplacementOfItsSet) {
    ScriptedEncoder encoder(&scriptedCharset(), 1.0F, 2, "!!");
    EXPECT_EQ(encoder.replacement(), "!!");
    EXPECT_TRUE(encoder.hooks.empty());
    const auto make = [](orv::string_ref replacement) {
        return thrownMessage<std::invalid_argument>(
            [=] { ScriptedEncoder e(&scriptedCharset(), 1.0F, 2, replacement); });
    };
    EXPECT_EQ(make(""), BAD_REPLACEMENT);
    EXPECT_EQ(make("???"), BAD_REPLACEMENT);
    EXPECT_EQ(make("\x80"), BAD_REPLACEMENT);
}

TEST(CharsetEncoder, TheConstructorChecksTheSizes) {
    const auto make = [](float average, unsigned int most) {
        return thrownMessage<std::invalid_argument>(
            [=] { ScriptedEncoder encoder(&scriptedCharset(), average, most); });
    };
    const char* const refused = "CharsetEncoder::CharsetEncoder";
    EXPECT_EQ(make(2.5F, 2), refused);
    EXPECT_EQ(make(0.0F, 1), refused);
    EXPECT_EQ(make(-1.0F, 1), refused);
    EXPECT_EQ(make(1.0F, 0), refused);
    EXPECT_EQ(make(std::numeric_limits<float>::quiet_NaN(), 1), refused);
    EXPECT_EQ(make(std::numeric_limits<float>::infinity(), 1), refused);
    EXPECT_EQ(make(2.0F, 2), "nothing thrown");
}

TEST(CharsetEncoder, TheConstructorAsksItsSetForADecoder) {
    const int before = scriptedCharset().decodersMade;
    ScriptedEncoder encoder(&scriptedCharset());
    EXPECT_EQ(scriptedCharset().decodersMade, before + 1);
    EXPECT_TRUE(encoder.isLegalReplacement("a"));
    encoder.replaceWith("b");
    EXPECT_EQ(scriptedCharset().decodersMade, before + 1) << "and keeps it";
}

TEST(CharsetEncoder, ActionsAreStoredAndTheHooksAreTold) {
    ScriptedEncoder encoder(&scriptedCharset());
    EXPECT_EQ(&encoder.onMalformedInput(orv::IGNORE).onUnmappableCharacter(orv::REPLACE), &encoder);
    EXPECT_EQ(encoder.malformedInputAction(), orv::IGNORE);
    EXPECT_EQ(encoder.unmappableCharacterAction(), orv::REPLACE);
    EXPECT_THAT(encoder.hooks, ElementsAre("malformed 0", "unmappable 1"));
}

TEST(CharsetEncoder, AnActionThatIsNoEnumeratorIsRefused) {
    ScriptedEncoder encoder(&scriptedCharset());
    const auto none = static_cast<orv::CodingErrorAction>(3);
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { encoder.onMalformedInput(none); }),
              "CharsetEncoder::onMalformedInput");
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { encoder.onUnmappableCharacter(none); }),
              "CharsetEncoder::onUnmappableCharacter");
    EXPECT_EQ(encoder.malformedInputAction(), orv::REPORT);
    EXPECT_EQ(encoder.unmappableCharacterAction(), orv::REPORT);
    EXPECT_TRUE(encoder.hooks.empty());
}

// Replacements.

TEST(CharsetEncoderReplacement, HasOneToTheMaximumOfLegalBytes) {
    ScriptedEncoder encoder(&scriptedCharset(), 1.0F, 2);
    const auto replace = [&](orv::string_ref bytes) {
        return thrownMessage<std::invalid_argument>([&] { encoder.replaceWith(bytes); });
    };
    EXPECT_EQ(replace(""), BAD_REPLACEMENT);
    EXPECT_EQ(replace("abc"), BAD_REPLACEMENT);
    EXPECT_EQ(replace("a\x80"), BAD_REPLACEMENT) << "malformed";
    EXPECT_EQ(replace("a\x81"), BAD_REPLACEMENT) << "unmappable";
    EXPECT_EQ(encoder.replacement(), "?");
    EXPECT_TRUE(encoder.hooks.empty());
    EXPECT_EQ(&encoder.replaceWith("ab"), &encoder);
    EXPECT_EQ(encoder.replacement(), "ab");
    encoder.replaceWith(encoder.replacement());
    EXPECT_EQ(encoder.replacement(), "ab");
    EXPECT_THAT(encoder.hooks, ElementsAre("replaceWith 2 stored", "replaceWith 2 stored"));
}

// A set whose decoder counts its calls and takes two bytes a character.
class PairSet : public orv::Charset {
public:
    PairSet() : Charset(9002, u"X-Test-Pairs"_u, {}) {}
    std::unique_ptr<orv::CharsetDecoder> newDecoder() override {
        auto decoder = std::make_unique<ScriptedDecoder>(
            this,
            [this](Buffer<const unsigned char>& in, Buffer<char16>& out) {
                ++decodings;
                while (in.remaining() >= 2) {
                    if (in.get(in.position()) == '#') {
                        return CoderResult::overflow();
                    }
                    out.put(static_cast<char16>(in.get() * 256U + in.get()));
                }
                return CoderResult::underflow();
            },
            0.5F, 1);
        decoder->flushing = [](Buffer<char16>&) -> CoderResult {
            throw std::runtime_error("the checker is not flushed");
        };
        return decoder;
    }
    std::unique_ptr<orv::CharsetEncoder> newEncoder() override {
        return std::make_unique<ScriptedEncoder>(this, 2.0F, 2, "??");
    }
    int decodings = 0;
};

PairSet& pairSet() {
    static PairSet* const set = new PairSet;
    return *set;
}

TEST(CharsetEncoderReplacement, IsDecodedToItsEnd) {
    const auto encoder = pairSet().newEncoder();
    EXPECT_TRUE(encoder->isLegalReplacement("ab"));
    EXPECT_TRUE(encoder->isLegalReplacement("abcd")) << "of any length";
    EXPECT_TRUE(encoder->isLegalReplacement("")) << "no bytes, no error";
    EXPECT_FALSE(encoder->isLegalReplacement("a")) << "half a character is malformed at the end";
    EXPECT_TRUE(encoder->isLegalReplacement("ab")) << "also after one that was not";
    EXPECT_TRUE(encoder->isLegalReplacement("#a")) << "an overflow is no error";
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { encoder->replaceWith("a"); }),
              BAD_REPLACEMENT);
}

TEST(CharsetEncoderReplacement, IsRefusedForItsLengthBeforeItIsDecoded) {
    const auto encoder = pairSet().newEncoder();
    const int before = pairSet().decodings;
    EXPECT_THROW(encoder->replaceWith("abc"), std::invalid_argument);
    EXPECT_THROW(encoder->replaceWith(""), std::invalid_argument);
    EXPECT_EQ(pairSet().decodings, before);
    encoder->replaceWith("ab");
    EXPECT_EQ(pairSet().decodings, before + 1);
}

// Actions.

TEST(CharsetEncoderActions, EachKindOfErrorHasItsOwn) {
    Bench b;
    b.encoder.onMalformedInput(orv::REPLACE);
    EXPECT_EQ(b.encode(orv::ustring{u'\xDC00', u'\xE9'}, true), CoderResult::unmappable(1));
    EXPECT_EQ(b.in.position(), 1U);
    EXPECT_EQ(b.written(), "?");

    Bench c;
    c.encoder.onUnmappableCharacter(orv::IGNORE);
    EXPECT_EQ(c.encode(orv::ustring{u'\xE9', u'\xDC00'}, true), CoderResult::malformed(1));
    EXPECT_EQ(c.in.position(), 1U);
    EXPECT_EQ(c.written(), "");
}

TEST(CharsetEncoderActions, ReplaceWritesTheReplacementWholeOrNotAtAll) {
    ScriptedEncoder encoder(&scriptedCharset(), 1.0F, 3, "xyz");
    encoder.onUnmappableCharacter(orv::REPLACE);
    const orv::ustring_ref units = u"\u00E9\U0001F600"_u;
    Units in(units.data(), units.size());
    std::array<unsigned char, 6> bytes{};
    Bytes out(bytes.data(), 0, 5, 6);
    EXPECT_EQ(encoder.encode(in, out, true), CoderResult::overflow());
    EXPECT_EQ(in.position(), 1U);
    EXPECT_EQ(out.position(), 3U);
    EXPECT_EQ(encoder.encode(in, out, true), CoderResult::overflow());
    out.limit(6);
    EXPECT_EQ(encoder.encode(in, out, true), CoderResult::underflow());
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "xyzxyz") << "one for a pair";
}

TEST(CharsetEncoderActions, AHighSurrogateAtTheVeryEndIsMalformed) {
    Bench b;
    const orv::ustring text{u'a', u'\xD800'};
    EXPECT_EQ(b.encode(text, false), CoderResult::underflow());
    EXPECT_EQ(b.in.position(), 1U);
    EXPECT_EQ(b.again(true), CoderResult::malformed(1));
    EXPECT_EQ(b.in.position(), 1U);

    Bench replaced;
    replaced.encoder.onMalformedInput(orv::REPLACE);
    EXPECT_EQ(replaced.encode(text, true), CoderResult::underflow());
    EXPECT_EQ(replaced.written(), "a?");
}

// Loops that go wrong.

TEST(CharsetEncoderMalfunctions, ALoopThatRunsIntoALimitIsToldSo) {
    Bench over(
        [](Units& in, Bytes& out) {
            while (in.hasRemaining()) {
                out.put(static_cast<unsigned char>(in.get()));
            }
            return CoderResult::underflow();
        },
        1);
    EXPECT_EQ(thrownMessage<orv::CoderMalfunctionError>([&] { over.encode(u"ab"_u, false); }),
              "CharsetEncoder::encode: unexpected buffer overflow");
    Bench under([](Units& in, Bytes&) {
        in.get();
        in.get();
        return CoderResult::underflow();
    });
    EXPECT_EQ(thrownMessage<orv::CoderMalfunctionError>([&] { under.encode(u"a"_u, true); }),
              "CharsetEncoder::encode: unexpected buffer underflow");
}

TEST(CharsetEncoderMalfunctions, OtherExceptionsPassThrough) {
    Bench beyond([](Units& in, Bytes&) {
        in.position(in.limit() + 1);
        return CoderResult::underflow();
    });
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { beyond.encode(u"a"_u, true); }),
              "new_position > limit()");
    EXPECT_EQ(thrownMessage<std::logic_error>([&] { beyond.again(false); }), ILLEGAL_ENCODE);
    // An error that is longer than the input cannot be stepped over, whatever its code point.
    for (const orv::ustring_ref text : {u"\u00E9"_u, u"\u00AD"_u, u"\xDB40\xDC01"_u}) {
        Bench overlong([](Units&, Bytes&) { return CoderResult::unmappable(3); });
        overlong.encoder.onUnmappableCharacter(orv::IGNORE);
        EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { overlong.encode(text, true); }),
                  "new_position > limit()");
    }
}

// The whole input.

TEST(CharsetEncoderWhole, GrowsFromNothingToOneMoreThanTwice) {
    std::vector<std::size_t> rooms;
    ScriptedEncoder encoder(&scriptedCharset(), 0.25F, 1);
    encoder.loop = [&](Units& in, Bytes& out) {
        rooms.push_back(out.limit());
        EXPECT_EQ(out.limit(), out.capacity());
        while (in.hasRemaining() && out.hasRemaining()) {
            out.put(static_cast<unsigned char>(in.get()));
        }
        return in.hasRemaining() ? CoderResult::overflow() : CoderResult::underflow();
    };
    EXPECT_EQ(encoder.encode(u"a"_u), "a");
    EXPECT_THAT(rooms, ElementsAre(0U, 1U));
    rooms.clear();
    EXPECT_EQ(encoder.encode(u"abcdefghij"_u), "abcdefghij");
    EXPECT_THAT(rooms, ElementsAre(2U, 5U, 11U));
}

TEST(CharsetEncoderWhole, AFlushThatNeedsRoomGetsIt) {
    Bench b;
    b.encoder.flushing = [](Bytes& out) {
        if (out.remaining() < 5) {
            return CoderResult::overflow();
        }
        out.put(reinterpret_cast<const unsigned char*>("tail!"), 5);
        return CoderResult::underflow();
    };
    EXPECT_EQ(b.encoder.encode(u"abc"_u), "abctail!");
}

TEST(CharsetEncoderWhole, ReportThrowsAndLeavesThePositionOnTheCharacter) {
    const orv::ustring_ref text = u"xa\U0001F600yz"_u;
    Units in(text.data(), 1, 5, 6);
    ScriptedEncoder encoder(&scriptedCharset());
    try {
        encoder.encode(in);
        FAIL() << "nothing thrown";
    } catch (const orv::UnmappableCharacterError& e) {
        EXPECT_EQ(e.getInputLength(), 2U);
    }
    EXPECT_EQ(in.position(), 2U);
    const char16 lone = u'\xDC00';
    try {
        encoder.encode(orv::ustring_ref(&lone, 1));
        FAIL() << "nothing thrown";
    } catch (const orv::MalformedInputError& e) {
        EXPECT_EQ(e.getInputLength(), 1U);
    }
    Units rest(text.data(), 4, 6, 6);
    EXPECT_EQ(encoder.encode(rest), "yz");
    EXPECT_EQ(rest.position(), 6U);
}

} // namespace
