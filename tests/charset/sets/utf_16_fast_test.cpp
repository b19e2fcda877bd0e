// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The fast loops of UTF-16 give what the plain loops give, on random mixtures at every
/// alignment of the bytes.
#include "orv/liborvxx/charset/sets/utf_16.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <vector>

namespace {

using orv::char16;
using orv::CoderResult;
using orv::detail::DecodeCursor;
using orv::detail::EncodeCursor;
using namespace orv::utf_16;

constexpr int ROUNDS = 40'000;

// Runs of characters with and without pairs; sometimes a fault.
std::vector<char16> randomUnits(std::mt19937& random) {
    const std::size_t size = random() % (random() % 8 == 0 ? 3000 : 300);
    std::vector<char16> units;
    bool pairs = false;
    while (units.size() < size) {
        pairs = random() % 60 == 0 ? !pairs : pairs;
        if (pairs && random() % 3 == 0) {
            units.emplace_back(0xD800 + random() % 0x400);
            units.emplace_back(0xDC00 + random() % 0x400);
        } else {
            units.emplace_back(random() % 0xD800);
        }
    }
    if (random() % 2 == 0 && !units.empty()) {
        const bool mark = random() % 4 == 0;
        units[random() % units.size()] = mark ? char16(0xFFFE) : char16(0xD800 + random() % 0x800);
    }
    return units;
}

// What a loop left behind.
template <typename Out>
struct Outcome {
    CoderResult result;
    std::size_t inPosition = 0;
    std::vector<Out> written;

    bool operator==(const Outcome&) const = default;
};

// Runs a loop over input and output that end where their arrays end, for the eyes of a sanitizer;
// bytes may lie at an odd address.
template <typename Cursor, typename In, typename Out, typename Loop>
Outcome<Out> run(const std::vector<In>& input, std::size_t room, std::size_t shift, Loop loop) {
    const std::size_t inShift = sizeof(In) == 1 ? shift : 0;
    const std::size_t outShift = sizeof(Out) == 1 ? shift : 0;
    const std::unique_ptr<In[]> source(new In[inShift + input.size()]);
    std::copy(input.begin(), input.end(), source.get() + inShift);
    const std::unique_ptr<Out[]> target(new Out[outShift + room]);
    orv::Buffer<const In> in(source.get() + inShift, input.size());
    orv::Buffer<Out> out(target.get() + outShift, room);
    Cursor cursor(in, out);
    const CoderResult result = cursor.commit(loop(cursor));
    const Out* const begin = target.get() + outShift;
    return {result, in.position(), std::vector<Out>(begin, begin + out.position())};
}

template <int LE>
void compareDecoders(unsigned int seed) {
    std::mt19937 random(seed);
    for (int round = 0; round < ROUNDS; ++round) {
        std::vector<unsigned char> bytes;
        for (const char16 unit : randomUnits(random)) {
            unsigned char two[2];
            writeUnit<LE>(two, unit);
            bytes.insert(bytes.end(), two, two + 2);
        }
        bytes.resize(bytes.size() - (random() % 4 == 0 && !bytes.empty() ? 1 : 0));
        const std::size_t room = random() % 2 == 0 ? bytes.size() : random() % (bytes.size() + 1);
        const std::size_t shift = random() % 2;
        const auto fast = run<DecodeCursor, unsigned char, char16>(bytes, room, shift, decode<LE>);
        const auto plain =
            run<DecodeCursor, unsigned char, char16>(bytes, room, shift, decodePlain<LE>);
        ASSERT_TRUE(fast == plain) << "round " << round << ", " << bytes.size() << " bytes";
    }
}

template <int LE>
void compareEncoders(unsigned int seed) {
    std::mt19937 random(seed);
    for (int round = 0; round < ROUNDS; ++round) {
        const std::vector<char16> units = randomUnits(random);
        const std::size_t most = 2 * units.size();
        const std::size_t room = random() % 2 == 0 ? most : random() % (most + 1);
        const std::size_t shift = random() % 2;
        const auto fast = run<EncodeCursor, char16, unsigned char>(units, room, shift, encode<LE>);
        const auto plain =
            run<EncodeCursor, char16, unsigned char>(units, room, shift, encodePlain<LE>);
        ASSERT_TRUE(fast == plain) << "round " << round << ", " << units.size() << " units";
    }
}

TEST(Utf16FastLoops, DecodeBigEndianAsThePlainLoopDoes) {
    compareDecoders<BIG_ENDIAN_ORDER>(1);
}

TEST(Utf16FastLoops, DecodeLittleEndianAsThePlainLoopDoes) {
    compareDecoders<LITTLE_ENDIAN_ORDER>(2);
}

TEST(Utf16FastLoops, EncodeBigEndianAsThePlainLoopDoes) {
    compareEncoders<BIG_ENDIAN_ORDER>(3);
}

TEST(Utf16FastLoops, EncodeLittleEndianAsThePlainLoopDoes) {
    compareEncoders<LITTLE_ENDIAN_ORDER>(4);
}

} // namespace
