// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The fast loops of GB18030 give what plain coders give: all lengths, all places of an
/// error, all capacities, and random mixtures of forms.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/tables/gb18030.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/hex_text.h"
#include "tests/support/one_step.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace {

using namespace orv::literals;
namespace tables = orv::tables::gb18030;
using orv::CoderResult;
using orvtest::OneStep;

orv::Charset& gb18030() {
    return *orv::Charset::forName(u"GB18030"_u);
}

std::uint32_t characterAt(std::uint32_t linear) {
    const std::uint32_t entry = tables::DECODE_INDEX[linear / 64];
    if (entry < 0xFFF2) {
        return static_cast<std::uint32_t>(tables::DECODE_DATA[linear % 64 + entry]);
    }
    return linear - static_cast<std::uint32_t>(tables::DELTAS[0xFFFE - entry]);
}

std::uint32_t linearOf(std::uint32_t unit) {
    const std::uint32_t entry = tables::ENCODE_INDEX[unit / 64];
    if (entry < 0xFFF2) {
        return tables::ENCODE_DATA[unit % 64 + entry];
    }
    return unit + static_cast<std::uint32_t>(tables::DELTAS[0xFFFE - entry]);
}

bool isIn(unsigned int byte, unsigned int first, unsigned int last) {
    return byte >= first && byte <= last;
}
bool isHigh(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLow(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

OneStep<std::u16string> decodeModel(std::string_view bytes, std::size_t room) {
    std::u16string text;
    std::size_t i = 0;
    const auto stop = [&](CoderResult result) { return OneStep<std::u16string>{result, i, text}; };
    while (i < bytes.size()) {
        const auto byte = [&](std::size_t k) {
            return static_cast<unsigned int>(static_cast<unsigned char>(bytes[i + k]));
        };
        const std::size_t left = bytes.size() - i;
        std::uint32_t character = byte(0);
        std::size_t length = 1;
        if (byte(0) >= 0x80) {
            if (!isIn(byte(0), 0x81, 0xFE)) {
                return stop(CoderResult::malformed(1));
            }
            if (left < 2) {
                return stop(CoderResult::underflow());
            }
            if (byte(1) >= 0x40) {
                if (byte(1) == 0x7F || byte(1) == 0xFF) {
                    return stop(CoderResult::malformed(2));
                }
                character = characterAt(byte(0) * 191 + byte(1) - 24'447);
                length = 2;
            } else {
                if (!isIn(byte(1), 0x30, 0x39)) {
                    return stop(CoderResult::malformed(2));
                }
                if (left < 3) {
                    return stop(CoderResult::underflow());
                }
                if (!isIn(byte(2), 0x81, 0xFE)) {
                    return stop(CoderResult::malformed(3));
                }
                if (left < 4) {
                    return stop(CoderResult::underflow());
                }
                if (!isIn(byte(3), 0x30, 0x39)) {
                    return stop(CoderResult::malformed(4));
                }
                const std::uint32_t linear =
                    ((byte(0) * 10 + byte(1)) * 126 + byte(2)) * 10 + byte(3) - 1'662'896;
                length = 4;
                if (linear <= 63'741) {
                    character = characterAt(linear);
                } else if (linear >= 213'322 && linear <= 213'322 + 0xFFFFF) {
                    character = linear - 147'786;
                } else {
                    return stop(CoderResult::unmappable(4));
                }
            }
        }
        if (room - text.size() < (character < 0x10000 ? 1U : 2U)) {
            return stop(CoderResult::overflow());
        }
        if (character < 0x10000) {
            text += static_cast<char16_t>(character);
        } else {
            text += static_cast<char16_t>(0xD7C0 + (character >> 10));
            text += static_cast<char16_t>(0xDC00 | (character & 0x3FF));
        }
        i += length;
    }
    return stop(CoderResult::underflow());
}

OneStep<std::string> encodeModel(std::u16string_view text, std::size_t room) {
    std::string bytes;
    std::size_t i = 0;
    const auto stop = [&](CoderResult result) { return OneStep<std::string>{result, i, bytes}; };
    while (i < text.size()) {
        std::uint32_t linear = text[i];
        std::size_t units = 1;
        if (isLow(text[i])) {
            return stop(CoderResult::malformed(1));
        }
        if (isHigh(text[i])) {
            if (i + 1 == text.size()) {
                break;
            }
            if (!isLow(text[i + 1])) {
                return stop(CoderResult::malformed(1));
            }
            linear = ((text[i] & 0x3FFU) << 10 | (text[i + 1] & 0x3FFU)) + 213'322;
            units = 2;
        } else if (text[i] >= 0x80) {
            linear = linearOf(text[i]);
        }
        std::string form;
        const auto add = [&form](std::uint32_t byte) { form += static_cast<char>(byte); };
        if (linear < 256) {
            add(linear);
        } else if (linear < 24'322) {
            add(0x81 + (linear - 256) / 191);
            add(0x40 + (linear - 256) % 191);
        } else {
            const std::uint32_t v = linear - 24'322;
            add(0x81 + v / 12'600);
            add(0x30 + v % 12'600 / 1'260);
            add(0x81 + v % 1'260 / 10);
            add(0x30 + v % 10);
        }
        if (room - bytes.size() < form.size()) {
            return stop(CoderResult::overflow());
        }
        bytes += form;
        i += units;
    }
    return stop(CoderResult::underflow());
}

class Gb18030Runs : public testing::Test {
protected:
    std::size_t below(std::size_t n) { return static_cast<std::size_t>(random_() % n); }
    bool oneIn(std::size_t n) { return below(n) == 0; }

    // Characters in stretches of one kind: ASCII, ideographs, Latin and Cyrillic, the whole BMP,
    // and those beyond.
    std::u16string anyText(std::size_t characters) {
        std::u16string text;
        for (std::size_t kind = below(5); characters != 0; --characters) {
            kind = oneIn(4) ? below(5) : kind;
            std::size_t value = kind == 0   ? below(0x80)
                                : kind == 1 ? 0x4E00 + below(0x51A0)
                                : kind == 2 ? 0x80 + below(0x480)
                                : kind == 3 ? below(0xF800)
                                            : 0x10000 + below(0x100000);
            value += kind == 3 && value >= 0xD800 ? 0x800 : 0;
            if (value < 0x10000) {
                text += static_cast<char16_t>(value);
            } else {
                text += static_cast<char16_t>(0xD7C0 + (value >> 10));
                text += static_cast<char16_t>(0xDC00 | (value & 0x3FF));
            }
        }
        return text;
    }

    std::string anyBytes(std::size_t characters) {
        return encodeModel(anyText(characters), 4 * characters).text;
    }

    bool decodesAsTheModel(std::string_view bytes, std::size_t room) {
        const auto fast = orvtest::decodeStep(gb18030(), bytes, room);
        const auto plain = decodeModel(bytes, room);
        EXPECT_EQ(fast.result, plain.result);
        EXPECT_EQ(fast.inPosition, plain.inPosition);
        EXPECT_EQ(fast.text, plain.text);
        if (HasFailure()) {
            ADD_FAILURE() << orvtest::hexText(bytes) << ", room " << room;
        }
        return !HasFailure();
    }

    bool encodesAsTheModel(std::u16string_view text, std::size_t room) {
        const auto fast = orvtest::encodeStep(gb18030(), text, room);
        const auto plain = encodeModel(text, room);
        EXPECT_EQ(fast.result, plain.result);
        EXPECT_EQ(fast.inPosition, plain.inPosition);
        EXPECT_EQ(fast.text, plain.text);
        if (HasFailure()) {
            ADD_FAILURE() << orvtest::hexText(text) << ", room " << room;
        }
        return !HasFailure();
    }

    static constexpr std::size_t LONGEST = 40;

private:
    std::mt19937 random_{18'030};
};

TEST_F(Gb18030Runs, DecodeEveryLengthIntoEveryRoom) {
    for (std::size_t length = 0; length <= LONGEST; ++length) {
        for (int round = 0; round < 4; ++round) {
            const std::string bytes = anyBytes(length);
            for (std::size_t room = 0; room <= 2 * length + 1; ++room) {
                ASSERT_TRUE(decodesAsTheModel(bytes, room));
            }
            for (std::size_t end = 0; end < bytes.size(); ++end) {
                ASSERT_TRUE(decodesAsTheModel(std::string_view(bytes).substr(0, end), 2 * LONGEST));
            }
        }
    }
}

TEST_F(Gb18030Runs, StopDecodingAtAnErrorAnywhere) {
    const std::string errors[] = {"\x80",
                                  "\xFF",
                                  "\x81\x7F",
                                  "\x81 ",
                                  "\x81\xFF",
                                  "\x81\x30\x20",
                                  "\x81\x30\xFF",
                                  "\x81\x30\x81",
                                  "\x81\x30\x81\x3A",
                                  "\x84\x32\x81\x30",
                                  "\xFE\x39\xFE\x39"};
    for (const std::string& error : errors) {
        for (std::size_t before = 0; before <= LONGEST; ++before) {
            const std::string bytes = anyBytes(before) + error;
            ASSERT_TRUE(decodesAsTheModel(bytes, 3 * LONGEST));
            ASSERT_TRUE(decodesAsTheModel(bytes + anyBytes(9), 3 * LONGEST));
            ASSERT_TRUE(decodesAsTheModel(bytes, before));
        }
    }
}

TEST_F(Gb18030Runs, EncodeEveryLengthIntoEveryRoom) {
    for (std::size_t length = 0; length <= LONGEST; ++length) {
        for (int round = 0; round < 4; ++round) {
            const std::u16string text = anyText(length);
            for (std::size_t room = 0; room <= 4 * length + 1; ++room) {
                ASSERT_TRUE(encodesAsTheModel(text, room));
            }
            for (std::size_t end = 0; end < text.size(); ++end) {
                const auto front = std::u16string_view(text).substr(0, end);
                ASSERT_TRUE(encodesAsTheModel(front, 4 * LONGEST));
            }
        }
    }
}

TEST_F(Gb18030Runs, AgreeOnRandomMixturesWithStrays) {
    for (int round = 0; round < 10'000; ++round) {
        std::string bytes = anyBytes(below(150));
        std::u16string text = anyText(below(150));
        for (std::size_t strays = below(4); strays != 0; --strays) {
            if (!bytes.empty()) {
                bytes[below(bytes.size())] = static_cast<char>(below(256));
            }
            if (!text.empty()) {
                text[below(text.size())] = static_cast<char16_t>(0xD780 + below(0x900));
            }
        }
        const bool tight = oneIn(3);
        ASSERT_TRUE(decodesAsTheModel(bytes, tight ? below(bytes.size() + 1) : bytes.size() + 9));
        ASSERT_TRUE(encodesAsTheModel(text, tight ? below(4 * text.size() + 1) : 4 * text.size()));
    }
}

} // namespace
