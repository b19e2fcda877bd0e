// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 and CESU-8 against the reference model: every short byte sequence (under
/// sanitizers a share of them), every unit, every code point.
#include "orv/liborvxx/charset/charset.h"
#include "tests/reference/utf8_model.h"
#include "tests/support/case_count.h"
#include "tests/support/coding_call.h"
#include "tests/support/hex_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <memory>
#include <vector>

namespace {

using orv::Buffer;
using orv::char16;
using orv::CoderResult;
using orvtest::CodingCall;
using orvtest::Decoding;
using orvtest::Encoding;
using orvtest::Utf8Form;

class Utf8AllSequences : public testing::TestWithParam<Utf8Form> {
protected:
    static orv::Charset& charset() {
        return *(GetParam() == Utf8Form::UTF_8 ? orv::Charset::UTF_8 : orv::Charset::CESU_8);
    }

    // Decodes the bytes as a whole input up to the first error, and compares.
    bool agrees(const unsigned char* bytes, std::size_t n) {
        std::array<std::uint16_t, 8> expected{};
        std::size_t units = 0;
        std::size_t at = 0;
        CoderResult expectedResult = CoderResult::underflow();
        while (at < n) {
            const auto step = orvtest::decodeFront(GetParam(), bytes + at, n - at);
            if (step.kind != step.CHARACTER) {
                const std::size_t length = step.kind == step.MALFORMED ? step.length : n - at;
                expectedResult = CoderResult::malformed(static_cast<unsigned int>(length));
                break;
            }
            std::copy_n(step.out.begin(), step.outLength,
                        expected.begin() + static_cast<int>(units));
            units += step.outLength;
            at += step.length;
        }
        std::array<char16, 8> text;
        Buffer<const unsigned char> in(bytes, n);
        Buffer<char16> out(text.data(), text.size());
        // In the state of the end, a further call is a further whole input.
        const CoderResult result = decoder_->decode(in, out, true);
        bool same = result == expectedResult && in.position() == at && out.position() == units;
        for (std::size_t i = 0; same && i < units; ++i) {
            same = static_cast<std::uint16_t>(text[i]) == expected[i];
        }
        if (!same) {
            ADD_FAILURE() << orvtest::hexText(std::vector<unsigned char>(bytes, bytes + n)) << ": "
                          << orvtest::textOf(result) << " at " << in.position() << ", expected "
                          << orvtest::textOf(expectedResult) << " at " << at;
        }
        return same;
    }

private:
    std::unique_ptr<orv::CharsetDecoder> decoder_ = charset().newDecoder();
};

TEST_P(Utf8AllSequences, UpToThreeBytes) {
    constexpr unsigned int THIRD_STRIDE = orvtest::strideUnderSanitizers(7);
    std::array<unsigned char, 3> bytes{};
    for (unsigned int first = 0; first < 0x100; ++first) {
        bytes[0] = static_cast<unsigned char>(first);
        ASSERT_TRUE(agrees(bytes.data(), 1));
        for (unsigned int second = 0; second < 0x100; ++second) {
            bytes[1] = static_cast<unsigned char>(second);
            ASSERT_TRUE(agrees(bytes.data(), 2));
            for (unsigned int third = (first + second) % THIRD_STRIDE; third < 0x100;
                 third += THIRD_STRIDE) {
                bytes[2] = static_cast<unsigned char>(third);
                ASSERT_TRUE(agrees(bytes.data(), 3));
            }
        }
    }
}

TEST_P(Utf8AllSequences, OfTwoBytesAndContinuations) {
    std::array<unsigned char, 6> bytes{};
    for (unsigned int pair = 0; pair < 0x10000; pair += orvtest::strideUnderSanitizers(3)) {
        bytes[0] = static_cast<unsigned char>(pair >> 8);
        bytes[1] = static_cast<unsigned char>(pair);
        for (const unsigned char continuation :
             std::initializer_list<unsigned char>{0x80, 0x9F, 0xBF}) {
            std::fill(bytes.begin() + 2, bytes.end(), continuation);
            for (std::size_t n = 3; n <= bytes.size(); ++n) {
                ASSERT_TRUE(agrees(bytes.data(), n));
            }
        }
    }
}

TEST_P(Utf8AllSequences, OfFourBytesWithTheirLead) {
#ifdef NDEBUG
    // Every last byte.
    std::array<unsigned char, 256> lasts{};
    for (std::size_t i = 0; i < lasts.size(); ++i) {
        lasts[i] = static_cast<unsigned char>(i);
    }
#else
    // The last byte at the borders of the continuation bytes.
    const std::array<unsigned char, 8> lasts = {0x00, 0x3F, 0x7F, 0x80, 0xBF, 0xC0, 0xF0, 0xFF};
#endif
    std::array<unsigned char, 4> bytes{};
    for (unsigned int front = 0xF00000; front <= 0xF7FFFF;
         front += orvtest::strideUnderSanitizers(5)) {
        bytes[0] = static_cast<unsigned char>(front >> 16);
        bytes[1] = static_cast<unsigned char>(front >> 8);
        bytes[2] = static_cast<unsigned char>(front);
        for (const unsigned char last : lasts) {
            bytes[3] = last;
            ASSERT_TRUE(agrees(bytes.data(), 4));
        }
    }
}

TEST_P(Utf8AllSequences, OfFourBordersWithinLongText) {
    // Every sequence of four bytes at the borders of the ranges, in the middle of runs of each
    // kind.
    static constexpr unsigned char BORDERS[] = {0x00, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF,
                                                0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED,
                                                0xEE, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5, 0xF8};
    static constexpr std::string_view RUNS[] = {"a", "\xC3\xA9", "\xE2\x82\xAC",
                                                "\xF0\x9F\x98\x80"};
    CodingCall<Decoding> call(charset());
    std::size_t serial = 0;
    for (const unsigned char a : BORDERS) {
        for (const unsigned char b : BORDERS) {
            for (const unsigned char c : BORDERS) {
                for (const unsigned char d : BORDERS) {
                    if (++serial % orvtest::strideUnderSanitizers(5) != 0) {
                        continue;
                    }
                    std::vector<unsigned char> bytes;
                    const std::string_view run = RUNS[serial % 4];
                    while (bytes.size() < 17 + serial % 37) {
                        bytes.insert(bytes.end(), run.begin(), run.end());
                    }
                    bytes.insert(bytes.end(), {a, b, c, d});
                    const std::string_view tail = RUNS[serial / 4 % 4];
                    for (std::size_t i = 0; i < 40; i += tail.size()) {
                        bytes.insert(bytes.end(), tail.begin(), tail.end());
                    }
                    const auto trace = orvtest::decodeTrace(GetParam(), bytes);
                    ASSERT_TRUE(call.check(trace, bytes.size(), true, bytes.size(),
                                           serial % 2 == 0 ? orv::REPLACE : orv::REPORT));
                }
            }
        }
    }
}

TEST_P(Utf8AllSequences, EveryUnitAloneAndBetweenOthers) {
    CodingCall<Encoding> call(charset());
    static constexpr std::u16string_view NEIGHBOURS[] = {u"a", u"\u00E9", u"\u20AC", u"\U0001F600"};
    for (unsigned int value = 0; value < 0x10000; value += orvtest::strideUnderSanitizers(7)) {
        std::vector<char16> text{char16(value)};
        ASSERT_TRUE(call.checkAll(orvtest::encodeTrace(GetParam(), text)));
        for (const std::u16string_view neighbour : NEIGHBOURS) {
            text.clear();
            for (std::size_t i = 0; i < 1 + value % 41; i += neighbour.size()) {
                text.insert(text.end(), neighbour.begin(), neighbour.end());
            }
            text.push_back(char16(value));
            for (std::size_t i = 0; i < 24; i += neighbour.size()) {
                text.insert(text.end(), neighbour.begin(), neighbour.end());
            }
            ASSERT_TRUE(call.check(orvtest::encodeTrace(GetParam(), text), text.size(), true,
                                   3 * text.size(), orv::REPORT));
        }
    }
}

TEST_P(Utf8AllSequences, EveryCodePointGoesThereAndBack) {
    // In order, and in an order that mixes the lengths: by steps of a number prime to the count.
    constexpr std::size_t COUNT = 0x110000 - 0x800;
    for (const std::size_t stride : {std::size_t{1}, std::size_t{314159}}) {
        std::vector<char16> text;
        for (std::size_t i = 0, at = 0; i < COUNT; ++i, at = (at + stride) % COUNT) {
            const std::size_t cp = at < 0xD800 ? at : at + 0x800;
            if (cp > 0xFFFF) {
                text.push_back(char16(0xD7C0 + (cp >> 10)));
                text.push_back(char16(0xDC00 + (cp & 0x3FF)));
            } else {
                text.push_back(char16(cp));
            }
        }
        const orv::ustring_ref view(text.data(), text.size());
        const std::string bytes = charset().newEncoder()->encode(view);
        std::size_t at = 0;
        for (std::size_t i = 0; i < text.size();) {
            const auto step = orvtest::encodeFront(GetParam(), text.data() + i, text.size() - i);
            ASSERT_LE(at + step.outLength, bytes.size());
            ASSERT_TRUE(std::equal(step.out.begin(),
                                   step.out.begin() + static_cast<std::ptrdiff_t>(step.outLength),
                                   reinterpret_cast<const unsigned char*>(bytes.data()) + at));
            at += step.outLength;
            i += step.length;
        }
        EXPECT_EQ(at, bytes.size());
        EXPECT_TRUE(charset().newDecoder()->decode(bytes) == view);
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, Utf8AllSequences,
                         testing::Values(Utf8Form::UTF_8, Utf8Form::CESU_8),
                         [](const testing::TestParamInfo<Utf8Form>& form) {
                             return form.param == Utf8Form::UTF_8 ? "Utf8" : "Cesu8";
                         });

} // namespace
