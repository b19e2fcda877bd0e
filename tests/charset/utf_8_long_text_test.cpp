// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 and CESU-8 over long text against the reference model: mixtures of all lengths,
/// errors and ends and full outputs at every offset.
#include "orv/liborvxx/charset/charset.h"
#include "tests/reference/utf8_model.h"
#include "tests/support/coding_call.h"
#include "tests/support/sample_texts.h"

#include <gtest/gtest.h>

#include <random>
#include <string_view>
#include <vector>

namespace {

using orv::char16;
using orvtest::CodingCall;
using orvtest::decodeTrace;
using orvtest::Decoding;
using orvtest::encodeTrace;
using orvtest::Encoding;
using orvtest::Utf8Form;

using Bytes = std::vector<unsigned char>;
using Units = std::vector<char16>;

class Utf8LongText : public testing::TestWithParam<Utf8Form> {
protected:
    static orv::Charset& charset() {
        return *(GetParam() == Utf8Form::UTF_8 ? orv::Charset::UTF_8 : orv::Charset::CESU_8);
    }

    // The bytes of good text, by the model.
    static Bytes encoded(const Units& units) {
        const auto trace = encodeTrace(GetParam(), units);
        Bytes bytes;
        for (const auto& step : trace.steps()) {
            bytes.insert(bytes.end(), trace.outputOf(step), trace.outputOf(step) + step.outLength);
        }
        return bytes;
    }

    bool decodes(const Bytes& bytes) { return decoding_.checkAll(decodeTrace(GetParam(), bytes)); }
    bool encodes(const Units& units) { return encoding_.checkAll(encodeTrace(GetParam(), units)); }

    CodingCall<Decoding> decoding_{charset()};
    CodingCall<Encoding> encoding_{charset()};
};

// Texts of about 200 bytes with changes of length in them.
std::vector<Units> texts200() {
    std::vector<Units> texts = orvtest::sampleTexts();
    std::mt19937 random(200);
    for (const std::size_t longestRun : {1U, 3U, 9U, 40U}) {
        texts.push_back(orvtest::mixedText(90, longestRun, random));
    }
    return texts;
}

TEST_P(Utf8LongText, RunsThatChangeAtEveryOffset) {
    std::mt19937 random(64);
    for (int first = 1; first <= 4; ++first) {
        for (int second = 1; second <= 4; ++second) {
            for (std::size_t offset = 0; offset <= 130; ++offset) {
                // The bytes in front fix where the change comes, the run behind them how.
                Units text(offset % 3, char16(u'x'));
                for (std::size_t i = 0; i < offset; ++i) {
                    orvtest::appendCharacter(text, first, random);
                }
                for (std::size_t i = 0; i < 70; ++i) {
                    orvtest::appendCharacter(text, second, random);
                }
                orvtest::appendCharacter(text, first, random);
                ASSERT_TRUE(encodes(text));
                ASSERT_TRUE(decodes(encoded(text)));
            }
        }
    }
}

TEST_P(Utf8LongText, MixturesOfSeveralKibibytes) {
    std::mt19937 random(4096);
    for (const std::size_t longestRun : {1U, 2U, 5U, 17U, 64U, 300U}) {
        for (const std::size_t size : {64U, 65U, 100U, 127U, 128U, 1000U, 1024U, 5000U}) {
            for (int i = 0; i < 4; ++i) {
                const Units text = orvtest::mixedText(size, longestRun, random);
                ASSERT_TRUE(encodes(text));
                ASSERT_TRUE(decodes(encoded(text)));
            }
        }
    }
}

TEST_P(Utf8LongText, ErrorsAtEveryOffsetOfTheBytes) {
    static constexpr std::string_view ERRORS[] = {
        "\x80",         "\xBF",         "\xC0\x80",         "\xC3",
        "\xC3\x41",     "\xE0\x80\x80", "\xE2\x82",         "\xE2\x28\xA1",
        "\xED\xA0\x80", "\xED\xB0\x80", "\xF0\x80\x80\x80", "\xF0\x90\x80",
        "\xF0\x41",     "\xF0\x90\x41", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
        "\xF8",         "\xFF",         "\x80\x80\x80\x80", "\xE2\xE2\x82\xAC",
    };
    for (const Units& text : texts200()) {
        const Bytes good = encoded(text);
        for (std::size_t offset = 0; offset <= good.size(); ++offset) {
            for (const std::string_view error : ERRORS) {
                // In place of what is there, or in between.
                Bytes inserted = good;
                inserted.insert(inserted.begin() + static_cast<std::ptrdiff_t>(offset),
                                error.begin(), error.end());
                const auto trace = decodeTrace(GetParam(), inserted);
                const auto action = offset % 2 == 0 ? orv::REPORT : orv::REPLACE;
                ASSERT_TRUE(decoding_.check(trace, inserted.size(), true, inserted.size(), action));
            }
            if (offset < good.size()) {
                Bytes changed = good;
                changed[offset] = static_cast<unsigned char>(offset * 57 + 0x80);
                ASSERT_TRUE(decodes(changed));
                changed[offset] = 0xFF;
                ASSERT_TRUE(decodes(changed));
            }
        }
    }
}

TEST_P(Utf8LongText, LoneSurrogatesAtEveryOffsetOfTheUnits) {
    for (const Units& text : texts200()) {
        for (std::size_t offset = 0; offset <= text.size(); ++offset) {
            for (const char16_t lone : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF'}) {
                Units inserted = text;
                inserted.insert(inserted.begin() + static_cast<std::ptrdiff_t>(offset),
                                char16(lone));
                ASSERT_TRUE(encodes(inserted));
                if (offset < text.size()) {
                    Units changed = text;
                    changed[offset] = lone;
                    ASSERT_TRUE(encodes(changed));
                }
            }
        }
    }
}

TEST_P(Utf8LongText, EndsAtEveryOffset) {
    for (const Units& text : texts200()) {
        const Bytes bytes = encoded(text);
        const auto decode = decodeTrace(GetParam(), bytes);
        for (std::size_t end = 0; end <= bytes.size(); ++end) {
            ASSERT_TRUE(decoding_.check(decode, end, false, bytes.size(), orv::REPORT));
            ASSERT_TRUE(
                decodes(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end))));
        }
        const auto encode = encodeTrace(GetParam(), text);
        for (std::size_t end = 0; end <= text.size(); ++end) {
            ASSERT_TRUE(encoding_.check(encode, end, false, bytes.size(), orv::REPORT));
            ASSERT_TRUE(
                encodes(Units(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end))));
        }
    }
}

TEST_P(Utf8LongText, TwoOpenSequencesAtTheEnd) {
    // The end cuts the second one short, and the second one the first.
    static constexpr std::string_view OPEN[] = {"\xC3",         "\xE2",        "\xE2\x82",
                                                "\xF0",         "\xF0\x90",    "\xF0\x90\x80",
                                                "\xED\xA0\x80", "\x80\x80\x80"};
    for (const Units& text : texts200()) {
        const Bytes good = encoded(text);
        for (std::size_t size = 0; size <= good.size() && size <= 150; ++size) {
            for (const std::string_view first : OPEN) {
                for (const std::string_view second : OPEN) {
                    Bytes bytes(good.end() - static_cast<std::ptrdiff_t>(size), good.end());
                    bytes.insert(bytes.end(), first.begin(), first.end());
                    bytes.insert(bytes.end(), second.begin(), second.end());
                    const auto trace = decodeTrace(GetParam(), bytes);
                    ASSERT_TRUE(
                        decoding_.check(trace, bytes.size(), false, bytes.size(), orv::REPORT));
                }
            }
        }
    }
}

TEST_P(Utf8LongText, OutputsOfEveryCapacity) {
    for (const Units& text : texts200()) {
        const Bytes bytes = encoded(text);
        const auto decode = decodeTrace(GetParam(), bytes);
        for (std::size_t room = 0; room <= text.size() + 33; ++room) {
            ASSERT_TRUE(decoding_.check(decode, bytes.size(), true, room, orv::REPORT));
        }
        const auto encode = encodeTrace(GetParam(), text);
        for (std::size_t room = 0; room <= bytes.size() + 33; ++room) {
            ASSERT_TRUE(encoding_.check(encode, text.size(), true, room, orv::REPORT));
        }
    }
}

TEST_P(Utf8LongText, MutationsOfRealText) {
    std::mt19937 random(20240229);
    for (int round = 0; round < 500; ++round) {
        for (const Units& text : orvtest::sampleTexts()) {
            ASSERT_TRUE(decodes(orvtest::mutated(encoded(text), random)));
            ASSERT_TRUE(encodes(orvtest::mutated(text, random)));
        }
    }
}

TEST_P(Utf8LongText, MutationsWithLittleRoom) {
    std::mt19937 random(1);
    for (int round = 0; round < 4000; ++round) {
        const Units text = orvtest::mixedText(80, 12, random);
        const Bytes bytes = orvtest::mutated(encoded(text), random);
        const auto action = static_cast<orv::CodingErrorAction>(round % 3);
        ASSERT_TRUE(decoding_.check(decodeTrace(GetParam(), bytes), bytes.size(), round % 2 == 0,
                                    random() % (bytes.size() + 1), action));
        const Units units = orvtest::mutated(text, random);
        ASSERT_TRUE(encoding_.check(encodeTrace(GetParam(), units), units.size(), round % 2 == 0,
                                    random() % (3 * units.size() + 1), action));
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, Utf8LongText, testing::Values(Utf8Form::UTF_8, Utf8Form::CESU_8),
                         [](const testing::TestParamInfo<Utf8Form>& form) {
                             return form.param == Utf8Form::UTF_8 ? "Utf8" : "Cesu8";
                         });

} // namespace
