// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The fast loops of the double-byte sets give what the plain coders give: all lengths, all
/// places of an error, all capacities, and random mixtures.
#include "tests/charset/sets/double_byte_shapes.h"

#include "tests/support/hex_text.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

using orvtest::decodeStep;
using orvtest::DoubleByteShape;
using orvtest::encodeStep;

// How a text is put together, from one character to the next.
enum class Pattern { PAIRS, WORDS, MIXED };

class DoubleByteRuns : public testing::TestWithParam<DoubleByteShape> {
protected:
    const DoubleByteShape& shape() const { return GetParam(); }

    std::size_t below(std::size_t n) { return static_cast<std::size_t>(random_() % n); }
    bool oneIn(std::size_t n) { return below(n) == 0; }

    void SetUp() override {
        for (const unsigned int code : shape().mappedCodes()) {
            // Codes that come back, so that one list serves both directions.
            if (shape().encoded(shape().decoded(code)) == code) {
                codes_.push_back(code);
            }
        }
    }

    // A code of a character that has it in both directions.
    unsigned int anyCode(Pattern pattern, std::size_t place) {
        const bool ascii = pattern == Pattern::WORDS   ? place / 5 % 2 == 0
                           : pattern == Pattern::MIXED ? oneIn(3)
                                                       : false;
        if (ascii) {
            return static_cast<unsigned int>(below(0x80));
        }
        // Single bytes are few among the codes, so they get a chance of their own.
        return codes_[oneIn(4) ? below(64) : below(codes_.size())];
    }

    std::string bytesOfText(std::size_t characters, Pattern pattern) {
        std::string bytes;
        for (std::size_t i = 0; i < characters; ++i) {
            bytes += orvtest::bytesOf(anyCode(pattern, i));
        }
        return bytes;
    }

    std::u16string unitsOfText(std::size_t characters, Pattern pattern) {
        std::u16string text;
        for (std::size_t i = 0; i < characters; ++i) {
            text += orvtest::unitsOf(shape().decoded(anyCode(pattern, i)));
        }
        return text;
    }

    // Whether both stop at the same place for the same reason, with the same output.
    bool decodesAsTheModel(std::string_view bytes, std::size_t room) {
        const auto fast = decodeStep(shape().charset(), bytes, room);
        const auto plain = shape().decodeModel(bytes, room);
        EXPECT_EQ(fast.result, plain.result);
        EXPECT_EQ(fast.inPosition, plain.inPosition);
        EXPECT_EQ(fast.text, plain.text);
        if (HasFailure()) {
            ADD_FAILURE() << orvtest::hexText(bytes) << ", room " << room;
        }
        return !HasFailure();
    }

    bool encodesAsTheModel(std::u16string_view text, std::size_t room) {
        const auto fast = encodeStep(shape().charset(), text, room);
        const auto plain = shape().encodeModel(text, room);
        EXPECT_EQ(fast.result, plain.result);
        EXPECT_EQ(fast.inPosition, plain.inPosition);
        EXPECT_EQ(fast.text, plain.text);
        if (HasFailure()) {
            ADD_FAILURE() << testing::PrintToString(std::u16string(text)) << ", room " << room;
        }
        return !HasFailure();
    }

    static constexpr std::size_t LONGEST = 48;
    static constexpr Pattern PATTERNS[] = {Pattern::PAIRS, Pattern::WORDS, Pattern::MIXED};

private:
    std::mt19937 random_{20'220'101};
    std::vector<unsigned int> codes_;
};

TEST_P(DoubleByteRuns, DecodeEveryLengthIntoEveryRoom) {
    for (const Pattern pattern : PATTERNS) {
        for (std::size_t length = 0; length <= LONGEST; ++length) {
            const std::string bytes = bytesOfText(length, pattern);
            for (std::size_t room = 0; room <= length + 1; ++room) {
                ASSERT_TRUE(decodesAsTheModel(bytes, room));
            }
            for (std::size_t end = 0; end < bytes.size(); ++end) {
                ASSERT_TRUE(decodesAsTheModel(std::string_view(bytes).substr(0, end), 2 * LONGEST));
            }
        }
    }
}

TEST_P(DoubleByteRuns, EveryAsciiCharacterAloneAmongPairs) {
    std::string bytes;
    std::u16string text;
    for (unsigned int ascii = 0; ascii < 0x80; ++ascii) {
        for (const unsigned int code : {ascii, anyCode(Pattern::PAIRS, 0)}) {
            bytes += orvtest::bytesOf(code);
            text += orvtest::unitsOf(shape().decoded(code));
        }
    }
    EXPECT_TRUE(decodesAsTheModel(bytes, bytes.size()));
    EXPECT_TRUE(encodesAsTheModel(text, 2 * text.size()));
}

TEST_P(DoubleByteRuns, StopDecodingAtAnErrorAnywhere) {
    const std::string errors[] = {"\x80",     "\xFF",     "\xA0",     "\xFD ",   "\x81 ",
                                  "\x81\x7F", "\xE0\xFF", "\x85\x40", "\xFC\xFE"};
    for (const Pattern pattern : PATTERNS) {
        for (const std::string& error : errors) {
            for (std::size_t before = 0; before <= LONGEST; ++before) {
                const std::string bytes =
                    bytesOfText(before, pattern) + error + bytesOfText(9, pattern);
                ASSERT_TRUE(decodesAsTheModel(bytes, 2 * LONGEST));
                ASSERT_TRUE(decodesAsTheModel(bytes, before));
            }
        }
    }
}

TEST_P(DoubleByteRuns, EncodeEveryLengthIntoEveryRoom) {
    for (const Pattern pattern : PATTERNS) {
        for (std::size_t length = 0; length <= LONGEST; ++length) {
            const std::u16string text = unitsOfText(length, pattern);
            for (std::size_t room = 0; room <= 2 * length + 1; ++room) {
                ASSERT_TRUE(encodesAsTheModel(text, room));
            }
        }
    }
}

TEST_P(DoubleByteRuns, StopEncodingAtAnErrorAnywhere) {
    const std::u16string errors[] = {u"\u0E01",
                                     u"\U0001F600",
                                     {char16_t{0xD800}},
                                     {char16_t{0xDFFF}},
                                     {char16_t{0xD840}, char16_t{0xD840}},
                                     u"\uFFFF"};
    for (const Pattern pattern : PATTERNS) {
        for (const std::u16string& error : errors) {
            for (std::size_t before = 0; before <= LONGEST; ++before) {
                const std::u16string front = unitsOfText(before, pattern) + error;
                ASSERT_TRUE(encodesAsTheModel(front, 4 * LONGEST));
                ASSERT_TRUE(encodesAsTheModel(front + unitsOfText(9, pattern), 4 * LONGEST));
            }
        }
    }
}

TEST_P(DoubleByteRuns, DecodeRandomMixtures) {
    for (int round = 0; round < 3'000; ++round) {
        std::string bytes = bytesOfText(below(200), PATTERNS[below(3)]);
        for (std::size_t strays = below(4); strays != 0 && !bytes.empty(); --strays) {
            bytes[below(bytes.size())] = static_cast<char>(below(256));
        }
        std::string_view rest = bytes;
        // On from each error, as a caller would.
        for (;;) {
            const std::size_t room = oneIn(3) ? below(rest.size() + 1) : rest.size() + 9;
            ASSERT_TRUE(decodesAsTheModel(rest, room));
            const auto step = shape().decodeModel(rest, room);
            if (!step.result.isError()) {
                break;
            }
            rest.remove_prefix(step.inPosition + step.result.length);
        }
    }
}

TEST_P(DoubleByteRuns, EncodeRandomMixtures) {
    // With their neighbours none of them makes a character that encoders drop without a word.
    constexpr char16_t STRAYS[] = {0xD7FF, 0xD800, 0xD840, 0xDBFF, 0xDC00, 0xDFFF};
    for (int round = 0; round < 3'000; ++round) {
        std::u16string text = unitsOfText(below(200), PATTERNS[below(3)]);
        for (std::size_t strays = below(4); strays != 0 && !text.empty(); --strays) {
            text[below(text.size())] = STRAYS[below(std::size(STRAYS))];
        }
        std::u16string_view rest = text;
        for (;;) {
            const std::size_t room = oneIn(3) ? below(2 * rest.size() + 1) : 2 * rest.size() + 9;
            ASSERT_TRUE(encodesAsTheModel(rest, room));
            const auto step = shape().encodeModel(rest, room);
            if (!step.result.isError()) {
                break;
            }
            rest.remove_prefix(step.inPosition + step.result.length);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, DoubleByteRuns, testing::ValuesIn(orvtest::doubleByteShapes()),
                         orvtest::DoubleByteName());

} // namespace
