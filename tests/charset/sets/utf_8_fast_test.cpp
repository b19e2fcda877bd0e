// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The fast loops of UTF-8 and CESU-8 give what the plain loops give, on random mixtures.
#include "orv/liborvxx/charset/sets/utf_8_fast.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace orv::utf_8;
using orv::char16;
using orv::CoderResult;
using orv::detail::DecodeCursor;
using orv::detail::EncodeCursor;

constexpr int ROUNDS = 20'000;
constexpr std::size_t GUARD = 64;

class RandomText {
public:
    explicit RandomText(unsigned int seed) : engine_(seed) {}

    std::size_t below(std::size_t n) { return static_cast<std::size_t>(engine_() % n); }
    bool oneIn(std::size_t n) { return below(n) == 0; }

    // Runs of characters of one length, some of them surrogates; sometimes a stray byte.
    std::vector<unsigned char> bytes() {
        const std::size_t size = below(oneIn(2) ? 600 : 100);
        const bool runs = oneIn(2);
        const std::size_t strayOneIn = oneIn(3) ? 100 : 0;
        std::vector<unsigned char> text;
        for (std::size_t length = 1 + below(4); text.size() < size;) {
            if (!runs || oneIn(8)) {
                length = 1 + below(4);
            }
            unsigned char sequence[4];
            put(sequence, valueOfLength(length), length);
            text.insert(text.end(), sequence, sequence + length);
            if (strayOneIn != 0 && oneIn(strayOneIn)) {
                text.push_back(static_cast<unsigned char>(below(256)));
            }
        }
        if (oneIn(3)) {
            text.resize(below(text.size() + 1));
        }
        return text;
    }

    // The units of such a text, sometimes with a surrogate put somewhere.
    std::vector<char16> units() {
        std::vector<char16> text;
        const std::size_t size = below(oneIn(2) ? 300 : 40);
        const bool runs = oneIn(2);
        for (std::size_t length = 1 + below(4); text.size() < size;) {
            if (!runs || oneIn(8)) {
                length = 1 + below(4);
            }
            char32_t value = valueOfLength(length);
            if (value >= 0x10000) {
                text.push_back(orv::Char16::highSurrogate(value));
                text.push_back(orv::Char16::lowSurrogate(value));
            } else if ((value & 0xF800) != 0xD800) {
                text.push_back(char16(value));
            }
        }
        if (oneIn(2) && !text.empty()) {
            text[below(text.size())] = char16(0xD800 + below(0x800));
        }
        return text;
    }

private:
    char32_t valueOfLength(std::size_t length) {
        switch (length) {
        case 1:
            return static_cast<char32_t>(below(0x80));
        case 2:
            return static_cast<char32_t>(0x80 + below(0x780));
        case 3:
            return static_cast<char32_t>(oneIn(200) ? 0xD800 + below(0x800)
                                                    : 0x800 + below(0xD000));
        default:
            return static_cast<char32_t>(0x10000 + below(0x100000));
        }
    }

    std::mt19937 engine_;
};

// What a loop left behind.
template <typename Out>
struct Outcome {
    CoderResult result;
    std::size_t inPosition = 0;
    std::vector<Out> written;
    bool guardStands = false;

    bool operator==(const Outcome&) const = default;
};

template <typename Cursor, typename In, typename Out, typename Loop>
Outcome<Out> run(const std::vector<In>& input, std::size_t capacity, Out guard, Loop loop) {
    // Arrays of just the right size, so that AddressSanitizer sees a read past the input.
    const std::vector<In> exact(input);
    std::vector<Out> output(capacity + GUARD, guard);
    orv::Buffer<const In> in(exact.data(), exact.size());
    orv::Buffer<Out> out(output.data(), 0, capacity, output.size());
    Cursor cursor(in, out);
    const CoderResult result = cursor.commit(loop(cursor));
    Outcome<Out> outcome{result, in.position(), {}, false};
    const auto end = output.begin() + static_cast<std::ptrdiff_t>(capacity);
    outcome.guardStands =
        std::all_of(end, output.end(), [guard](Out element) { return element == guard; });
    output.resize(out.position());
    outcome.written = std::move(output);
    return outcome;
}

template <Format format>
void compareDecoders(unsigned int seed) {
    RandomText random(seed);
    for (int round = 0; round < ROUNDS; ++round) {
        const auto bytes = random.bytes();
        const std::size_t capacity =
            random.oneIn(2) ? bytes.size() + 100 : random.below(bytes.size() + 1);
        const char16 guard = u'\xB6B6';
        const auto fast = run<DecodeCursor>(bytes, capacity, guard,
                                            [](DecodeCursor& c) { return decode<format>(c); });
        const auto plain = run<DecodeCursor>(
            bytes, capacity, guard, [](DecodeCursor& c) { return runPlain(c, decodeOne<format>); });
        ASSERT_TRUE(fast.guardStands) << "round " << round;
        ASSERT_TRUE(fast == plain) << "round " << round << ", " << bytes.size() << " bytes";
    }
}

template <Format format>
void compareEncoders(unsigned int seed) {
    RandomText random(seed);
    for (int round = 0; round < ROUNDS; ++round) {
        const auto units = random.units();
        const std::size_t capacity =
            random.oneIn(2) ? 3 * units.size() + 50 : random.below(3 * units.size() + 1);
        const unsigned char guard = 0xB6;
        const auto fast = run<EncodeCursor>(units, capacity, guard,
                                            [](EncodeCursor& c) { return encode<format>(c); });
        const auto plain = run<EncodeCursor>(
            units, capacity, guard, [](EncodeCursor& c) { return runPlain(c, encodeOne<format>); });
        ASSERT_TRUE(fast.guardStands) << "round " << round;
        ASSERT_TRUE(fast == plain) << "round " << round << ", " << units.size() << " units";
    }
}

TEST(Utf8FastLoops, DecodeUtf8AsThePlainLoopDoes) {
    compareDecoders<Format::UTF_8>(1);
}

TEST(Utf8FastLoops, DecodeCesu8AsThePlainLoopDoes) {
    compareDecoders<Format::CESU_8>(2);
}

TEST(Utf8FastLoops, EncodeUtf8AsThePlainLoopDoes) {
    compareEncoders<Format::UTF_8>(3);
}

TEST(Utf8FastLoops, EncodeCesu8AsThePlainLoopDoes) {
    compareEncoders<Format::CESU_8>(4);
}

} // namespace
