// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decoders driven by tables beside their mapping files: every byte, every pair, every
/// sequence of four, with every amount of room.
#include "orv/liborvxx/charset/charset.h"
#include "tests/charset/sets/mapping_model.h"
#include "tests/support/coding_direction.h"
#include "tests/support/hex_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace {

using orv::Buffer;
using orv::char16;
using orv::CoderResult;
using orvtest::CharCode;
using orvtest::FrontOfBytes;
using orvtest::MappedSet;
using orvtest::Mapping;

class MappedDecoder : public testing::TestWithParam<MappedSet> {
protected:
    static constexpr std::size_t MAX_UNITS = 8;

    // What a decoder reports, where it stops, what it writes.
    struct Outcome {
        CoderResult result;
        std::size_t inPosition = 0;
        std::size_t outPosition = 0;
        std::array<char16, MAX_UNITS> units{};

        bool operator==(const Outcome& other) const {
            return result == other.result && inPosition == other.inPosition &&
                   outPosition == other.outPosition &&
                   std::equal(units.begin(),
                              units.begin() + static_cast<std::ptrdiff_t>(outPosition),
                              other.units.begin());
        }
    };

    // Decodes the bytes up to the first thing to report, as a part of an input or as its end.
    bool agrees(const unsigned char* bytes, std::size_t n, std::size_t room, bool endOfInput) {
        const Outcome expected = predicted(bytes, n, room, endOfInput);
        orv::CharsetDecoder& decoder = endOfInput ? *last_ : *middle_;
        Outcome outcome;
        Buffer<const unsigned char> in(bytes, n);
        Buffer<char16> out(outcome.units.data(), room);
        outcome.result = decoder.decode(in, out, endOfInput);
        outcome.inPosition = in.position();
        outcome.outPosition = out.position();
        if (outcome == expected) {
            return true;
        }
        ADD_FAILURE() << orvtest::hexText(std::vector<unsigned char>(bytes, bytes + n))
                      << (endOfInput ? " at the end" : "") << ", room " << room << ": "
                      << textOf(outcome) << "\n  and not " << textOf(expected);
        return false;
    }

    // With no room, with room for all, and with what lies between.
    bool agreesInEveryRoom(const unsigned char* bytes, std::size_t n) {
        for (std::size_t room = 0; room <= n; ++room) {
            if (!agrees(bytes, n, room, false)) {
                return false;
            }
        }
        return agrees(bytes, n, 0, true) && agrees(bytes, n, n, true);
    }

    const Mapping& mapping() const { return mapping_; }

private:
    static std::string textOf(const Outcome& outcome) {
        const auto end = outcome.units.begin() + static_cast<std::ptrdiff_t>(outcome.outPosition);
        return orvtest::textOf(outcome.result) + " at " + std::to_string(outcome.inPosition) +
               " after " + orvtest::hexText(std::vector<char16>(outcome.units.begin(), end));
    }

    Outcome predicted(const unsigned char* bytes, std::size_t n, std::size_t room,
                      bool endOfInput) const {
        Outcome outcome;
        while (outcome.inPosition < n) {
            const std::size_t remaining = n - outcome.inPosition;
            const FrontOfBytes front =
                orvtest::frontOf(mapping_, bytes + outcome.inPosition, remaining);
            if (front.kind == FrontOfBytes::INCOMPLETE) {
                if (endOfInput) {
                    outcome.result = CoderResult::malformed(static_cast<unsigned int>(remaining));
                }
                return outcome;
            }
            if (front.kind != FrontOfBytes::CHARACTER) {
                outcome.result = front.kind == FrontOfBytes::MALFORMED
                                     ? CoderResult::malformed(front.length)
                                     : CoderResult::unmappable(front.length);
                return outcome;
            }
            const bool isPair = front.character > 0xFFFF;
            if (room - outcome.outPosition < (isPair ? 2 : 1)) {
                outcome.result = CoderResult::overflow();
                return outcome;
            }
            if (isPair) {
                outcome.units[outcome.outPosition++] = char16(0xD7C0 + (front.character >> 10));
                outcome.units[outcome.outPosition++] = char16(0xDC00 + (front.character & 0x3FF));
            } else {
                outcome.units[outcome.outPosition++] = char16(front.character);
            }
            outcome.inPosition += front.length;
        }
        return outcome;
    }

    orv::Charset& charset_ = GetParam().charset();
    const Mapping& mapping_ = GetParam().mapping();
    std::unique_ptr<orv::CharsetDecoder> middle_ = charset_.newDecoder();
    std::unique_ptr<orv::CharsetDecoder> last_ = charset_.newDecoder();
};

TEST_P(MappedDecoder, AllMappedCodesInARowGiveTheirCharacters) {
    // In order, and in an order that mixes the kinds: by steps of a number prime to the count.
    const std::vector<CharCode> codes = mapping().codes();
    for (const std::size_t stride : {std::size_t{1}, std::size_t{314159}}) {
        std::string bytes;
        std::vector<char16> expected;
        for (std::size_t i = 0, at = 0; i < codes.size(); ++i, at = (at + stride) % codes.size()) {
            orvtest::appendCode(codes[at], bytes);
            orvtest::appendUnits(mapping().decode(codes[at]), expected);
        }
        const orv::ustring text = GetParam().charset().newDecoder()->decode(bytes);
        ASSERT_EQ(text.size(), expected.size());
        const auto difference = std::mismatch(text.begin(), text.end(), expected.begin());
        EXPECT_TRUE(difference.first == text.end())
            << "unit " << difference.first - text.begin() << " of the row";
    }
}

TEST_P(MappedDecoder, EveryByteAloneGivesWhatTheMappingSays) {
    for (unsigned int value = 0; value < 0x100; ++value) {
        const auto byte = static_cast<unsigned char>(value);
        ASSERT_TRUE(agreesInEveryRoom(&byte, 1));
    }
}

TEST_P(MappedDecoder, EveryPairOfBytesGivesWhatTheMappingSays) {
    std::array<unsigned char, 2> bytes{};
    for (unsigned int pair = 0; pair < 0x10000; ++pair) {
        bytes = {static_cast<unsigned char>(pair >> 8), static_cast<unsigned char>(pair)};
        ASSERT_TRUE(agreesInEveryRoom(bytes.data(), bytes.size()));
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, MappedDecoder, testing::ValuesIn(orvtest::mappedSets()),
                         orvtest::ClassNameOf());

using LongSequenceDecoder = MappedDecoder;

TEST_P(LongSequenceDecoder, EveryThirdByteAfterEveryPairThatNeedsOne) {
    std::array<unsigned char, 3> bytes{};
    for (unsigned int lead = 0x81; lead <= 0xFE; ++lead) {
        for (unsigned int second = 0x30; second <= 0x39; ++second) {
            for (unsigned int third = 0; third < 0x100; ++third) {
                bytes = {static_cast<unsigned char>(lead), static_cast<unsigned char>(second),
                         static_cast<unsigned char>(third)};
                ASSERT_TRUE(agrees(bytes.data(), bytes.size(), MAX_UNITS, false));
                ASSERT_TRUE(agrees(bytes.data(), bytes.size(), 0, true));
            }
        }
    }
}

TEST_P(LongSequenceDecoder, EverySequenceOfFourBytesGivesWhatTheMappingSays) {
    std::array<unsigned char, 4> bytes{};
    for (std::size_t place = 0; place < orvtest::FOUR_BYTE_CODES; ++place) {
        const CharCode code = orvtest::fourByteCode(place);
        for (unsigned int i = 0; i < 4; ++i) {
            bytes[i] = static_cast<unsigned char>(code >> 8 * (3 - i));
        }
        ASSERT_TRUE(agrees(bytes.data(), bytes.size(), MAX_UNITS, true));
        ASSERT_TRUE(agrees(bytes.data(), bytes.size(), 1, false));
        ASSERT_TRUE(agrees(bytes.data(), bytes.size(), 0, false));
    }
}

TEST_P(LongSequenceDecoder, EveryBadFourthByteIsMalformed) {
    std::array<unsigned char, 4> bytes{};
    for (unsigned int lead = 0x81; lead <= 0xFE; ++lead) {
        for (const unsigned int second : {0x30U, 0x35U, 0x39U}) {
            for (const unsigned int third : {0x81U, 0xA0U, 0xFEU}) {
                for (unsigned int fourth = 0; fourth < 0x100; ++fourth) {
                    bytes = {static_cast<unsigned char>(lead), static_cast<unsigned char>(second),
                             static_cast<unsigned char>(third), static_cast<unsigned char>(fourth)};
                    ASSERT_TRUE(agrees(bytes.data(), bytes.size(), MAX_UNITS, false));
                    ASSERT_TRUE(agrees(bytes.data(), bytes.size(), 0, true));
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, LongSequenceDecoder,
                         testing::Values(MappedSet{"GB18030", "GB18030"}), orvtest::ClassNameOf());

} // namespace
