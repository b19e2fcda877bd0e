// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Words for bad input.
#include "examples/recode/bad_input.h"

#include "orv/liborvxx/text/cvtstr.h"

#include <cstddef>
#include <cstdio>
#include <string_view>

namespace recode {

namespace {

std::string hex(unsigned int value, int digits, const char* prefix) {
    char text[16];
    std::snprintf(text, sizeof text, "%s%0*X", prefix, digits, value);
    return text;
}

unsigned int byteAt(std::string_view bytes, std::size_t i) {
    return static_cast<unsigned char>(bytes[i]);
}

std::string hexByte(unsigned int byte) {
    return hex(byte, 2, "0x");
}

std::string unicodeName(char32_t cp) {
    return hex(static_cast<unsigned int>(cp), 4, "U+");
}

std::string hexDump(std::string_view bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        text += hex(byteAt(bytes, i), 2, i == 0 ? "" : " ");
    }
    return text;
}

// Bytes that the sequence with this lead byte has; 1 if no sequence begins so.
std::size_t sequenceLength(unsigned int lead, bool isCesu8) {
    if (lead < 0xC0 || lead >= (isCesu8 ? 0xF0U : 0xF8U)) {
        return 1;
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// UTF-8 and CESU-8 share their rules but for supplementary characters.
std::string explainUtf8(std::string_view bytes, bool isCesu8) {
    const unsigned int lead = byteAt(bytes, 0);
    const std::size_t length = sequenceLength(lead, isCesu8);
    if (lead < 0xC0) {
        return "expected a lead byte, not a continuation byte (0x80 to 0xBF)";
    }
    if (length == 1) {
        return isCesu8 && lead < 0xF8
                   ? "expected a supplementary character as two sequences of three bytes"
                   : "no sequence begins with " + hexByte(lead);
    }
    char32_t value = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < bytes.size(); ++i) {
        if ((byteAt(bytes, i) & 0xC0U) != 0x80U) {
            return "expected a continuation byte (0x80 to 0xBF) after " +
                   hexByte(byteAt(bytes, i - 1));
        }
        value = value << 6 | (byteAt(bytes, i) & 0x3FU);
    }
    if (bytes.size() < length) {
        return "the input ends where a continuation byte (0x80 to 0xBF) is expected";
    }
    if (value >= 0xD800 && value <= 0xDFFF) {
        return "expected no surrogate, and this is " + unicodeName(value);
    }
    return value > 0x10FFFF ? "expected nothing beyond U+10FFFF"
                            : "expected the shortest form of " + unicodeName(value);
}

std::string explainUtf16(std::string_view bytes, bool isBigEndian) {
    if (bytes.size() % 2 != 0) {
        return "the input ends inside a unit";
    }
    const unsigned int unit =
        byteAt(bytes, isBigEndian ? 0 : 1) << 8 | byteAt(bytes, isBigEndian ? 1 : 0);
    if (unit == 0xFFFE) {
        return "a byte order mark of the other byte order";
    }
    return unit < 0xDC00 ? "expected the other half of a surrogate pair after " + unicodeName(unit)
                         : "expected half of a surrogate pair before " + unicodeName(unit);
}

std::string explainMalformed(std::string_view bytes, const orv::Charset& from) {
    if (&from == orv::Charset::UTF_8 || &from == orv::Charset::CESU_8) {
        return ": " + explainUtf8(bytes, &from == orv::Charset::CESU_8);
    }
    if (&from == orv::Charset::US_ASCII) {
        return ": expected 0x00 to 0x7F";
    }
    if (&from == orv::Charset::UTF_16BE || &from == orv::Charset::UTF_16LE) {
        return ": " + explainUtf16(bytes, &from == orv::Charset::UTF_16BE);
    }
    // The other sets have characters of several bytes. A lead byte that stands alone is told
    // without what follows it.
    if (bytes.size() == 1 && (byteAt(bytes, 0) == 0x80 || byteAt(bytes, 0) == 0xFF)) {
        return ": no character begins so";
    }
    return ": expected the rest of a character";
}

} // namespace

std::string describe(const BadInput& bad, const orv::Charset& from, const orv::Charset& to) {
    const std::string fromName = orv::cvtstr<std::string>(from.name());
    const std::string toName = orv::cvtstr<std::string>(to.name());
    const std::string place =
        "byte " + std::to_string(bad.offset) + ": " + hexDump(bad.bytes) + " is ";
    switch (bad.kind) {
    case BadInput::MALFORMED:
        return place + "not valid " + fromName + explainMalformed(bad.bytes, from);
    case BadInput::NOT_IN_UNICODE:
        return place + "unassigned in " + fromName;
    case BadInput::NO_COUNTERPART:
        break;
    case BadInput::LONE_SURROGATE:
        return place + unicodeName(bad.character) +
               ", half of a surrogate pair, and the other half is missing";
    }
    return place + unicodeName(bad.character) + ", which has no counterpart in " + toName;
}

} // namespace recode
