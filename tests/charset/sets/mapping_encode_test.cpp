// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Every encoder over every code point, lone surrogates too, beside the mapping files and,
/// for the sets without tables, beside the rule of the format.
#include "orv/liborvxx/charset/charset.h"
#include "tests/charset/sets/mapping_model.h"
#include "tests/support/case_count.h"
#include "tests/support/coding_direction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <vector>

namespace {

using orv::Buffer;
using orv::char16;
using orv::CoderResult;
using orvtest::CharCode;
using orvtest::MappedSet;

// The bytes of a character; none if the set lacks it.
struct EncodedCharacter {
    std::size_t size = 0;
    std::array<unsigned char, 6> bytes{};

    EncodedCharacter() = default;
    EncodedCharacter(std::initializer_list<char32_t> list) {
        for (const char32_t byte : list) {
            bytes[size++] = static_cast<unsigned char>(byte);
        }
    }
};

using EncodeRule = EncodedCharacter (*)(char32_t);

EncodedCharacter usAscii(char32_t c) {
    return c < 0x80 ? EncodedCharacter{c} : EncodedCharacter{};
}

EncodedCharacter latin1(char32_t c) {
    return c < 0x100 ? EncodedCharacter{c} : EncodedCharacter{};
}

EncodedCharacter threeBytes(char32_t c) {
    return {0xE0 | c >> 12, 0x80 | (c >> 6 & 0x3F), 0x80 | (c & 0x3F)};
}

EncodedCharacter utf8(char32_t c) {
    if (c < 0x80) {
        return {c};
    }
    if (c < 0x800) {
        return {0xC0 | c >> 6, 0x80 | (c & 0x3F)};
    }
    if (c < 0x10000) {
        return threeBytes(c);
    }
    return {0xF0 | c >> 18, 0x80 | (c >> 12 & 0x3F), 0x80 | (c >> 6 & 0x3F), 0x80 | (c & 0x3F)};
}

EncodedCharacter cesu8(char32_t c) {
    if (c < 0x10000) {
        return utf8(c);
    }
    EncodedCharacter both = threeBytes(0xD7C0 + (c >> 10));
    const EncodedCharacter low = threeBytes(0xDC00 + (c & 0x3FF));
    std::copy_n(low.bytes.begin(), low.size, both.bytes.begin() + 3);
    both.size += low.size;
    return both;
}

EncodedCharacter utf16be(char32_t c) {
    if (c < 0x10000) {
        return {c >> 8, c & 0xFF};
    }
    const char32_t high = 0xD7C0 + (c >> 10);
    const char32_t low = 0xDC00 + (c & 0x3FF);
    return {high >> 8, high & 0xFF, low >> 8, low & 0xFF};
}

EncodedCharacter utf16le(char32_t c) {
    EncodedCharacter swapped = utf16be(c);
    for (std::size_t i = 0; i < swapped.size; i += 2) {
        std::swap(swapped.bytes[i], swapped.bytes[i + 1]);
    }
    return swapped;
}

// A set with its rule; without one, its mapping file counts.
struct EncodedSet {
    MappedSet set;
    EncodeRule rule;
    const char* className = set.className;

    EncodedCharacter encode(char32_t c, const orvtest::Mapping* mapping) const {
        if (rule != nullptr) {
            return rule(c);
        }
        EncodedCharacter result;
        const CharCode code = mapping->encode(c);
        if (code != orvtest::NO_MAPPING) {
            result.size = orvtest::codeLength(code);
            for (std::size_t i = 0; i < result.size; ++i) {
                result.bytes[i] = static_cast<unsigned char>(code >> 8 * (result.size - 1 - i));
            }
        }
        return result;
    }
};

void PrintTo(const EncodedSet& set, std::ostream* out) {
    PrintTo(set.set, out);
}

std::vector<EncodedSet> encodedSets() {
    std::vector<EncodedSet> sets = {
        {{"US_ASCII", "US-ASCII"}, usAscii}, {{"ISO_8859_1", "ISO-8859-1"}, latin1},
        {{"UTF_8", "UTF-8"}, utf8},          {{"CESU_8", "CESU-8"}, cesu8},
        {{"UTF_16BE", "UTF-16BE"}, utf16be}, {{"UTF_16LE", "UTF-16LE"}, utf16le},
    };
    for (const MappedSet& set : orvtest::mappedSets()) {
        sets.push_back({set, nullptr});
    }
    return sets;
}

// What vanishes where it has no bytes.
bool isDefaultIgnorable(char32_t c) {
    const auto within = [c](char32_t first, char32_t last) { return c >= first && c <= last; };
    return c == 0x00AD || c == 0x034F || c == 0x061C || within(0x115F, 0x1160) ||
           within(0x17B4, 0x17B5) || within(0x180B, 0x180E) || within(0x200B, 0x200F) ||
           within(0x202A, 0x202E) || within(0x2060, 0x206F) || c == 0x3164 ||
           within(0xFE00, 0xFEFF) || c == 0xFFA0 || within(0xFFF0, 0xFFF8) ||
           within(0x1BCA0, 0x1BCA3) || within(0x1D173, 0x1D17A) || within(0xE0000, 0xE0FFF);
}

bool isSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

class EveryEncoder : public testing::TestWithParam<EncodedSet> {
protected:
    EncodedCharacter encode(char32_t c) const { return GetParam().encode(c, mapping_); }

    orv::Charset& charset_ = GetParam().set.charset();
    std::unique_ptr<orv::CharsetEncoder> encoder_ = charset_.newEncoder();

private:
    const orvtest::Mapping* mapping_ =
        GetParam().rule == nullptr ? &GetParam().set.mapping() : nullptr;
};

// The next code point to look at. Above plane 2 all sets but those of Unicode have nothing but
// errors, of which sanitizers need not see all.
char32_t next(char32_t c) {
    return c < 0x30000 ? c + 1
                       : std::min<char32_t>(c + orvtest::strideUnderSanitizers(61), 0x110000);
}

TEST_P(EveryEncoder, AllCodePointsInARowGiveTheirBytesOrTheirError) {
    // A lone surrogate has a letter behind it, lest it pair up with the next one.
    std::vector<char16> text;
    for (char32_t c = 0; c < 0x110000; c = next(c)) {
        orvtest::appendUnits(c, text);
        if (isSurrogate(c)) {
            text.push_back(u'a');
        }
    }
    std::vector<unsigned char> bytes(3 * text.size());
    std::vector<unsigned char> expected;
    Buffer<const char16> in(text.data(), text.size());
    Buffer<unsigned char> out(bytes.data(), bytes.size());
    std::size_t at = 0;
    for (char32_t c = 0;; c = next(c)) {
        // The library goes on to the next error, or to the end.
        CoderResult event;
        if (c < 0x110000) {
            const std::size_t length = c > 0xFFFF ? 2 : 1;
            if (isSurrogate(c)) {
                event = CoderResult::malformed(1);
            } else {
                const EncodedCharacter character = encode(c);
                if (character.size > 0 || isDefaultIgnorable(c)) {
                    expected.insert(expected.end(), character.bytes.begin(),
                                    character.bytes.begin() +
                                        static_cast<std::ptrdiff_t>(character.size));
                    at += length;
                    continue;
                }
                event = CoderResult::unmappable(static_cast<unsigned int>(length));
            }
        }
        const CoderResult result = encoder_->encode(in, out, false);
        if (result != event || in.position() != at || out.position() != expected.size()) {
            FAIL() << "before code point " << std::hex << static_cast<std::uint32_t>(c) << std::dec
                   << ": " << orvtest::textOf(result) << " at unit " << in.position() << " after "
                   << out.position() << " bytes, and not " << orvtest::textOf(event) << " at " << at
                   << " after " << expected.size();
        }
        if (c == 0x110000) {
            break;
        }
        at += event.length;
        in.position(at);
        if (isSurrogate(c)) {
            const EncodedCharacter letter = encode(U'a');
            expected.insert(expected.end(), letter.bytes.begin(),
                            letter.bytes.begin() + static_cast<std::ptrdiff_t>(letter.size));
            ++at;
        }
    }
    const auto difference = std::mismatch(expected.begin(), expected.end(), bytes.begin());
    EXPECT_TRUE(difference.first == expected.end())
        << "byte " << difference.first - expected.begin() << " of the row";
}

TEST_P(EveryEncoder, ACodePointAloneIsJudgedBeforeTheRoom) {
    std::array<char16, 2> units{};
    std::array<unsigned char, 6> bytes{};
    for (char32_t c = 0; c < 0x110000; c = next(c)) {
        const std::size_t length = c > 0xFFFF ? 2 : 1;
        units[0] = char16(c > 0xFFFF ? 0xD7C0 + (c >> 10) : c);
        units[1] = char16(c > 0xFFFF ? 0xDC00 + (c & 0x3FF) : 0);
        const EncodedCharacter character = isSurrogate(c) ? EncodedCharacter() : encode(c);
        CoderResult expected = CoderResult::overflow();
        std::size_t consumed = 0;
        if (character.size == 0) {
            const bool isHigh = c >= 0xD800 && c <= 0xDBFF;
            const bool ignored = isDefaultIgnorable(c);
            // A high surrogate waits for its other half.
            expected = isHigh || ignored ? CoderResult::underflow()
                       : isSurrogate(c)
                           ? CoderResult::malformed(1)
                           : CoderResult::unmappable(static_cast<unsigned int>(length));
            consumed = ignored ? length : 0;
        }
        for (std::size_t room = 0; room < std::max<std::size_t>(character.size, 1); ++room) {
            Buffer<const char16> in(units.data(), length);
            Buffer<unsigned char> out(bytes.data(), room);
            const CoderResult result = encoder_->encode(in, out, false);
            if (result != expected || in.position() != consumed || out.position() != 0) {
                FAIL() << "code point " << std::hex << static_cast<std::uint32_t>(c) << ", room "
                       << room << ": " << orvtest::textOf(result) << " at " << in.position()
                       << " after " << out.position() << " bytes, and not "
                       << orvtest::textOf(expected);
            }
        }
    }
}

TEST_P(EveryEncoder, AHighSurrogateNeedsALowOneBehindIt) {
    for (char32_t high = 0xD800; high < 0xDC00; ++high) {
        for (const char16_t next : {u'\0', u'a', u'\uD7FF', u'\uE000', u'\uFFFF'}) {
            const std::array<char16, 2> units = {char16(high), next};
            for (const std::size_t room : {std::size_t{0}, std::size_t{8}}) {
                std::array<unsigned char, 8> bytes{};
                Buffer<const char16> in(units.data(), units.size());
                Buffer<unsigned char> out(bytes.data(), room);
                ASSERT_EQ(encoder_->encode(in, out, false), CoderResult::malformed(1));
                ASSERT_EQ(in.position(), 0U);
                ASSERT_EQ(out.position(), 0U);
            }
        }
        const std::array<char16, 2> twice = {char16(high), char16(high)};
        std::array<unsigned char, 8> bytes{};
        Buffer<const char16> in(twice.data(), twice.size());
        Buffer<unsigned char> out(bytes.data(), bytes.size());
        ASSERT_EQ(encoder_->encode(in, out, false), CoderResult::malformed(1));
        ASSERT_EQ(in.position(), 0U);
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, EveryEncoder, testing::ValuesIn(encodedSets()),
                         orvtest::ClassNameOf());

} // namespace
