// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A character set with shift states, defined outside the library, through the coder
/// harness: what the bases do for coders that keep a state and hold output back.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/locale/charset_streambuf.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/coder_harness.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace orv::literals;
using orv::Buffer;
using orv::char16;
using orv::CoderResult;
using orvtest::checkDecoder;
using orvtest::checkEncoder;
using orvtest::DecodeVector;
using orvtest::EncodeVector;

constexpr unsigned char SHIFT_OUT = 0x0E;
constexpr unsigned char SHIFT_IN = 0x0F;
constexpr unsigned char ESCAPE = 0x1B;

// ASCII, with letters a to q for U+03B1 to U+03C1 between SHIFT_OUT and SHIFT_IN. A byte of 0x80
// and above is malformed, ESCAPE and another byte unmappable. A text that ends shifted out gives
// "]" when flushed; an encoder that ends so writes SHIFT_IN and "\n" together.
class ShiftSet : public orv::Charset {
public:
    ShiftSet() : Charset(9003, u"X-Test-Shift"_u, {u"x-shift"_u}) {}
    std::unique_ptr<orv::CharsetDecoder> newDecoder() override {
        return std::make_unique<Decoder>(this);
    }
    std::unique_ptr<orv::CharsetEncoder> newEncoder() override {
        return std::make_unique<Encoder>(this);
    }

private:
    class Decoder : public orv::CharsetDecoder {
    public:
        explicit Decoder(orv::Charset* set) : CharsetDecoder(set, 0.5F, 2) {}

    protected:
        CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) override {
            for (; in.hasRemaining(); in.position(in.position() + 1)) {
                const unsigned char byte = in.get(in.position());
                if (byte == SHIFT_OUT || byte == SHIFT_IN) {
                    shifted_ = byte == SHIFT_OUT;
                    continue;
                }
                if (byte >= 0x80) {
                    return CoderResult::malformed(1);
                }
                if (byte == ESCAPE) {
                    return in.remaining() < 2 ? CoderResult::underflow()
                                              : CoderResult::unmappable(2);
                }
                if (!out.hasRemaining()) {
                    return CoderResult::overflow();
                }
                const bool greek = shifted_ && byte >= 'a' && byte <= 'q';
                out.put(char16(greek ? 0x3B1U + byte - 'a' : byte));
            }
            return CoderResult::underflow();
        }
        CoderResult implFlush(Buffer<char16>& out) override {
            if (!shifted_) {
                return CoderResult::underflow();
            }
            if (!out.hasRemaining()) {
                return CoderResult::overflow();
            }
            out.put(u']');
            return CoderResult::underflow();
        }
        void implReset() override { shifted_ = false; }

    private:
        bool shifted_ = false;
    };

    class Encoder : public orv::CharsetEncoder {
    public:
        explicit Encoder(orv::Charset* set) : CharsetEncoder(set, 1.0F, 2, "??") {}

    protected:
        CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override {
            for (; in.hasRemaining(); in.position(in.position() + 1)) {
                const char16 unit = in.get(in.position());
                const bool greek = unit >= u'\x3B1' && unit <= u'\x3C1';
                if (!greek && unit > u'\x7F') {
                    return unmappableCodeUnit(in.data() + in.position(), in.data() + in.limit());
                }
                if (out.remaining() < (greek == shifted_ ? 1U : 2U)) {
                    return CoderResult::overflow();
                }
                if (greek != shifted_) {
                    out.put(greek ? SHIFT_OUT : SHIFT_IN);
                    shifted_ = greek;
                }
                const auto value = static_cast<unsigned int>(unit);
                out.put(static_cast<unsigned char>(greek ? 'a' + value - 0x3B1 : value));
            }
            return CoderResult::underflow();
        }
        CoderResult implFlush(Buffer<unsigned char>& out) override {
            if (!shifted_) {
                return CoderResult::underflow();
            }
            if (out.remaining() < 2) {
                return CoderResult::overflow();
            }
            out.put(SHIFT_IN).put('\n');
            return CoderResult::underflow();
        }
        void implReset() override { shifted_ = false; }

    private:
        bool shifted_ = false;
    };
};

ShiftSet& shiftSet() {
    static ShiftSet* const set = new ShiftSet;
    return *set;
}

TEST(StatefulDecoder, KeepsItsStateOverSplitsAndOverflows) {
    checkDecoder(shiftSet(), DecodeVector()
                                 .maps("a", u"a")
                                 .maps("\x0E", u"")
                                 .maps("a", u"\u03B1")
                                 .maps("q", u"\u03C1")
                                 .maps("\x0F", u"")
                                 .maps("q", u"q"));
}

TEST(StatefulDecoder, WritesWhatItHeldBackWhenFlushed) {
    checkDecoder(shiftSet(), DecodeVector().maps("\x0E", u"").maps("b", u"\u03B2").flushes(u"]"));
}

TEST(StatefulDecoder, KeepsItsStateOverErrors) {
    checkDecoder(shiftSet(), DecodeVector()
                                 .maps("\x0E", u"")
                                 .malformed("\x80")
                                 .maps("a", u"\u03B1")
                                 .unmappable("\x1B\x80")
                                 .maps("a", u"\u03B1")
                                 .incomplete("\x1B")
                                 .flushes(u"]"));
}

TEST(StatefulEncoder, KeepsItsStateOverSplitsAndOverflows) {
    checkEncoder(shiftSet(), EncodeVector()
                                 .maps(u"a", "a")
                                 .maps(u"\u03B1", "\x0E"
                                                  "a")
                                 .maps(u"\u03C1", "q")
                                 .maps(u"z", "\x0Fz"));
}

TEST(StatefulEncoder, WritesWhatItHeldBackWhenFlushed) {
    checkEncoder(shiftSet(), EncodeVector()
                                 .maps(u"\u03B1", "\x0E"
                                                  "a")
                                 .flushes("\x0F\n"));
}

TEST(StatefulEncoder, KeepsItsStateOverErrorsAndCharactersThatVanish) {
    const char16_t lone[] = {0xDC00};
    const char16_t high[] = {0xD800};
    checkEncoder(shiftSet(), EncodeVector()
                                 .maps(u"\u03B1", "\x0E"
                                                  "a")
                                 .unmappable(u"\u20AC")
                                 .maps(u"\u00AD", "")
                                 .malformed({lone, 1})
                                 .maps(u"\u03B1", "a")
                                 .unmappable(u"\U0001F600")
                                 .incomplete({high, 1})
                                 .flushes("\x0F\n"));
}

TEST(StatefulCharset, EveryCallStartsFresh) {
    // The kept coder was left shifted out; the next text must not see it.
    EXPECT_EQ(shiftSet().decode("\x0E"
                                "ab"),
              u"\u03B1\u03B2]"_u);
    EXPECT_EQ(shiftSet().decode("ab"), u"ab"_u);
    EXPECT_EQ(shiftSet().encode(u"\u03B1"_u), "\x0E"
                                              "a\x0F\n");
    EXPECT_EQ(shiftSet().encode(u"a"_u), "a");
    EXPECT_EQ(orv::Charset::forName(u"X-SHIFT"_u), &shiftSet());
}

TEST(StatefulCharset, AStreamBufferReadsWhatIsHeldBackAtTheEndOfAText) {
    // Sizes around that of its area, where there is no room for it.
    for (const std::size_t size : {1U, 4095U, 4096U, 4097U}) {
        std::stringbuf bytes("\x0E" + std::string(size, 'a'));
        bytes.pubseekoff(0, std::ios_base::end, std::ios_base::out);
        orv::charset_streambuf in(bytes, shiftSet());
        std::vector<char16> units(5000);
        const auto read = [&] {
            const std::streamsize count = in.sgetn(units.data(), 5000);
            return orv::ustring(units.data(), static_cast<std::size_t>(count));
        };
        EXPECT_EQ(read(), orv::ustring(size, u'\u03B1') + char16(u']'));
        bytes.sputc('a');
        EXPECT_EQ(read(), u"a"_u) << "another text starts fresh";
    }
}

TEST(StatefulCharset, AStreamBufferWritesWhatIsHeldBackWhenATextIsFinished) {
    std::stringbuf bytes;
    orv::charset_streambuf out(bytes, shiftSet());
    out.sputc(u'\u03B1');
    EXPECT_EQ(out.pubsync(), 0);
    EXPECT_EQ(out.pubsync(), 0);
    EXPECT_EQ(bytes.str(), "\x0E"
                           "a");
    EXPECT_TRUE(out.finish());
    EXPECT_TRUE(out.finish());
    EXPECT_EQ(bytes.str(), "\x0E"
                           "a\x0F\n");
    out.sputc(u'a');
    EXPECT_TRUE(out.finish());
    EXPECT_EQ(bytes.str(), "\x0E"
                           "a\x0F\na");
}

} // namespace
