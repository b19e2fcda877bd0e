// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16 over long text against the reference model: every length, and errors, ends and
/// full outputs at every offset.
#include "orv/liborvxx/charset/charset.h"
#include "tests/reference/utf16_model.h"
#include "tests/support/coding_call.h"
#include "tests/support/sample_texts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <vector>

namespace {

using orv::char16;
using orvtest::ByteOrder;
using orvtest::CodingCall;
using orvtest::Decoding;
using orvtest::Encoding;

using Bytes = std::vector<unsigned char>;
using Units = std::vector<char16>;

// The blocks of the fast loops have up to 64 units, and 16 of those with pairs come in a row.
constexpr std::size_t SOME_BLOCKS = 200;

class Utf16LongText : public testing::TestWithParam<ByteOrder> {
protected:
    static orv::Charset& charset() {
        return *(GetParam() == ByteOrder::BIG ? orv::Charset::UTF_16BE : orv::Charset::UTF_16LE);
    }
    static orvtest::DecodeVector decodeTrace(const Bytes& bytes) {
        return orvtest::utf16DecodeTrace(GetParam(), bytes);
    }
    static orvtest::EncodeVector encodeTrace(const Units& units) {
        return orvtest::utf16EncodeTrace(GetParam(), units);
    }
    static Bytes bytesOf(const Units& units) { return orvtest::bytesOf(GetParam(), units); }

    bool decodes(const Bytes& bytes, orv::CodingErrorAction action = orv::REPORT) {
        return decoding_.check(decodeTrace(bytes), bytes.size(), true, bytes.size(), action);
    }
    bool encodes(const Units& units, orv::CodingErrorAction action = orv::REPORT) {
        return encoding_.check(encodeTrace(units), units.size(), true, 2 * units.size(), action);
    }

    CodingCall<Decoding> decoding_{charset()};
    CodingCall<Encoding> encoding_{charset()};
};

INSTANTIATE_TEST_SUITE_P(Orders, Utf16LongText, testing::Values(ByteOrder::BIG, ByteOrder::LITTLE),
                         [](const testing::TestParamInfo<ByteOrder>& order) {
                             return order.param == ByteOrder::BIG ? "BigEndian" : "LittleEndian";
                         });

// Characters of one unit, with values of all sorts; of every so many characters one is a pair, at
// random places; 0 for none.
Units text(std::size_t size, std::size_t pairOneIn, std::mt19937& random) {
    Units units;
    while (units.size() < size) {
        if (pairOneIn != 0 && random() % pairOneIn == 0 && units.size() + 2 <= size) {
            units.emplace_back(0xD800 + random() % 0x400);
            units.emplace_back(0xDC00 + random() % 0x400);
            continue;
        }
        // Those whose bytes look like a surrogate or U+FFFE the other way round, among others.
        static constexpr std::size_t ODD[] = {0x00D8, 0x00DC, 0xFEFF, 0xFFFF, 0xD7FF,
                                              0xE000, 0xFFFD, 0xDFD7, 0x0000, 0xFF00};
        const std::size_t value = random() % 3 == 0 ? ODD[random() % 10] : random() % 0xD800;
        units.emplace_back(value >= 0xD800 && value < 0xE000 ? 0x61 : value);
    }
    return units;
}

std::vector<Units> textsOfSomeBlocks() {
    std::mt19937 random(200);
    std::vector<Units> texts;
    for (const std::size_t pairOneIn : {0U, 1U, 2U, 10U, 60U}) {
        texts.push_back(text(SOME_BLOCKS, pairOneIn, random));
    }
    // Pairs that begin at odd places only, so that one lies across the end of each block.
    texts.push_back(text(1, 0, random));
    const Units pairs = text(SOME_BLOCKS - 1, 1, random);
    texts.back().insert(texts.back().end(), pairs.begin(), pairs.end());
    return texts;
}

TEST_P(Utf16LongText, EveryLength) {
    std::mt19937 random(1);
    for (std::size_t size = 0; size <= 2 * SOME_BLOCKS; ++size) {
        for (const std::size_t pairOneIn : {0U, 1U, 3U, 30U, 100U}) {
            const Units units = text(size, pairOneIn, random);
            ASSERT_TRUE(encodes(units));
            ASSERT_TRUE(decodes(bytesOf(units)));
        }
    }
}

TEST_P(Utf16LongText, ThousandsOfUnits) {
    std::mt19937 random(2);
    for (const std::size_t size : {1000U, 1023U, 1024U, 1100U, 5000U, 20'000U}) {
        for (const std::size_t pairOneIn : {0U, 1U, 3U, 30U, 1000U, 5000U}) {
            const Units units = text(size, pairOneIn, random);
            ASSERT_TRUE(encodes(units));
            ASSERT_TRUE(decodes(bytesOf(units)));
        }
    }
}

TEST_P(Utf16LongText, ErrorsAtEveryOffset) {
    static constexpr char16_t ERRORS[] = {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF', u'\xFFFE'};
    for (const Units& good : textsOfSomeBlocks()) {
        for (std::size_t offset = 0; offset < good.size(); ++offset) {
            for (const char16_t error : ERRORS) {
                const auto action = offset % 2 == 0 ? orv::REPORT : orv::REPLACE;
                Units changed = good;
                changed[offset] = error;
                ASSERT_TRUE(encodes(changed, action));
                ASSERT_TRUE(decodes(bytesOf(changed), action));
                Units inserted = good;
                inserted.insert(inserted.begin() + static_cast<std::ptrdiff_t>(offset),
                                char16(error));
                ASSERT_TRUE(encodes(inserted, action));
                ASSERT_TRUE(decodes(bytesOf(inserted), action));
            }
        }
    }
}

TEST_P(Utf16LongText, EndsAtEveryOffset) {
    for (const Units& units : textsOfSomeBlocks()) {
        const Bytes bytes = bytesOf(units);
        const auto decode = decodeTrace(bytes);
        for (std::size_t end = 0; end <= bytes.size(); ++end) {
            ASSERT_TRUE(decoding_.check(decode, end, false, bytes.size(), orv::REPORT));
            ASSERT_TRUE(
                decodes(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end))));
        }
        const auto encode = encodeTrace(units);
        for (std::size_t end = 0; end <= units.size(); ++end) {
            ASSERT_TRUE(encoding_.check(encode, end, false, bytes.size(), orv::REPORT));
            ASSERT_TRUE(
                encodes(Units(units.begin(), units.begin() + static_cast<std::ptrdiff_t>(end))));
        }
    }
}

TEST_P(Utf16LongText, OutputsOfEveryCapacity) {
    for (const Units& units : textsOfSomeBlocks()) {
        const Bytes bytes = bytesOf(units);
        const auto decode = decodeTrace(bytes);
        for (std::size_t room = 0; room <= units.size() + 1; ++room) {
            ASSERT_TRUE(decoding_.check(decode, bytes.size(), true, room, orv::REPORT));
        }
        const auto encode = encodeTrace(units);
        for (std::size_t room = 0; room <= bytes.size() + 1; ++room) {
            ASSERT_TRUE(encoding_.check(encode, units.size(), true, room, orv::REPORT));
        }
    }
}

TEST_P(Utf16LongText, MutationsWithLittleRoom) {
    std::mt19937 random(3);
    for (int round = 0; round < 20'000; ++round) {
        const Units good = text(random() % 300, random() % 20, random);
        const auto action = static_cast<orv::CodingErrorAction>(round % 3);
        const bool end = round % 2 == 0;
        const Bytes bytes = orvtest::mutated(bytesOf(good), random);
        ASSERT_TRUE(decoding_.check(decodeTrace(bytes), bytes.size(), end,
                                    random() % (bytes.size() + 1), action));
        const Units units = orvtest::mutated(good, random);
        ASSERT_TRUE(encoding_.check(encodeTrace(units), units.size(), end,
                                    random() % (2 * units.size() + 1), action));
    }
}

} // namespace
