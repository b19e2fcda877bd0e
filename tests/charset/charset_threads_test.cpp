// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief One character set used by many threads: right results, and a bounded number of coders.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/scripted_charset.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace orv::literals;
using orv::Charset;

constexpr int THREADS = 8;
constexpr int ROUNDS = 2000;

// Runs the call in all threads at once, as nearly as can be.
void inParallel(const std::function<void(int)>& call) {
    std::atomic<int> waiting = THREADS;
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0) {
                std::this_thread::yield();
            }
            call(i);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(CharsetThreads, ConvertTheirOwnTextsWithTheSameSets) {
    std::atomic<int> wrong = 0;
    inParallel([&](int thread) {
        // Each thread has a text of its own length, good and bad.
        const auto size = static_cast<std::size_t>(3 + 29 * thread);
        orv::ustring text(size, u'a');
        for (std::size_t i = 0; i < size; i += 3) {
            text[i] = u'\xE9';
        }
        std::string latin1;
        std::string utf8;
        std::string ascii;
        for (std::size_t i = 0; i < size; ++i) {
            latin1 += i % 3 == 0 ? "\xE9" : "a";
            utf8 += i % 3 == 0 ? "\xC3\xA9" : "a";
            ascii += i % 3 == 0 ? "?" : "a";
        }
        orv::ustring broken = text;
        broken += u'\xFFFD';
        for (int round = 0; round < ROUNDS; ++round) {
            const bool right = Charset::UTF_8->decode(utf8) == text &&
                               Charset::UTF_8->encode(text) == utf8 &&
                               Charset::UTF_8->decode(utf8 + "\xE2") == broken &&
                               Charset::CESU_8->decode(utf8) == text &&
                               Charset::ISO_8859_1->decode(latin1) == text &&
                               Charset::ISO_8859_1->encode(text) == latin1 &&
                               Charset::US_ASCII->encode(text) == ascii;
            wrong += right ? 0 : 1;
        }
    });
    EXPECT_EQ(wrong, 0);
}

TEST(CharsetThreads, KeepOneCoderBetweenThem) {
    static orvtest::ScriptedCharset* const set =
        new orvtest::ScriptedCharset(9201, u"x-test-threads"_u);
    std::atomic<int> wrong = 0;
    inParallel([&](int) {
        for (int round = 0; round < ROUNDS; ++round) {
            const bool right =
                set->decode("ab\x80") == u"ab\uFFFD"_u && set->encode(u"ab\u00E9"_u) == "ab?";
            wrong += right ? 0 : 1;
        }
    });
    EXPECT_EQ(wrong, 0);
    EXPECT_LT(set->encodersMade, THREADS * ROUNDS) << "coders are used again";
    // In the end one of each is there, whoever put it back.
    const int decoders = set->decodersMade;
    const int encoders = set->encodersMade;
    set->decode("a");
    set->encode(u"a"_u);
    EXPECT_EQ(set->decodersMade, decoders);
    EXPECT_EQ(set->encodersMade, encoders);
}

TEST(CharsetThreads, LookUpNamesAtTheSameTime) {
    std::atomic<int> wrong = 0;
    inParallel([&](int) {
        for (int round = 0; round < ROUNDS / 4; ++round) {
            const bool right = Charset::forName(u"latin1"_u) == Charset::ISO_8859_1 &&
                               Charset::forName(u"utf8"_u) == Charset::UTF_8 &&
                               Charset::forName(u"nothing"_u) == nullptr &&
                               Charset::isSupported(orv::ustring(u"ascii"_u)) &&
                               Charset::availableCharsets().size() >= 4;
            wrong += right ? 0 : 1;
        }
    });
    EXPECT_EQ(wrong, 0);
}

} // namespace
