// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16 over bytes by definition.
#include "tests/reference/utf16_model.h"

#include <cstddef>

namespace orvtest {

namespace {

bool isHigh(unsigned int unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLow(unsigned int unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

std::vector<unsigned char> bytesOf(ByteOrder order, const std::vector<orv::char16>& units) {
    std::vector<unsigned char> bytes;
    for (const orv::char16 unit : units) {
        const auto value = static_cast<unsigned int>(unit);
        const auto more = static_cast<unsigned char>(value / 0x100);
        const auto less = static_cast<unsigned char>(value % 0x100);
        bytes.push_back(order == ByteOrder::BIG ? more : less);
        bytes.push_back(order == ByteOrder::BIG ? less : more);
    }
    return bytes;
}

DecodeVector utf16DecodeTrace(ByteOrder order, const std::vector<unsigned char>& bytes) {
    const auto unitAt = [&](std::size_t at) {
        const unsigned int first = bytes[at];
        const unsigned int second = bytes[at + 1];
        return order == ByteOrder::BIG ? 0x100 * first + second : 0x100 * second + first;
    };
    DecodeVector trace;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t left = bytes.size() - at;
        const unsigned int unit = left >= 2 ? unitAt(at) : 0;
        // A high surrogate is judged with its partner.
        const std::size_t need = isHigh(unit) ? 4 : 2;
        const bool pair = isHigh(unit) && left >= 4 && isLow(unitAt(at + 2));
        const bool single = left >= 2 && !isHigh(unit) && !isLow(unit) && unit != 0xFFFE;
        const std::size_t length = left < need ? left : pair ? 4 : 2;
        std::vector<orv::char16> text;
        if (single || pair) {
            text.emplace_back(unit);
        }
        if (pair) {
            text.emplace_back(unitAt(at + 2));
        }
        trace.add(text.empty() ? orv::CoderResult::MALFORMED : orv::CoderResult::UNDERFLOW,
                  bytes.data() + at, length, need, text.data(), text.size());
        at += length;
    }
    return trace;
}

EncodeVector utf16EncodeTrace(ByteOrder order, const std::vector<orv::char16>& units) {
    EncodeVector trace;
    for (std::size_t at = 0; at < units.size();) {
        const auto unit = static_cast<unsigned int>(units[at]);
        const bool more = units.size() - at > 1;
        const bool pair = isHigh(unit) && more && isLow(static_cast<unsigned int>(units[at + 1]));
        const bool single = !isHigh(unit) && !isLow(unit);
        const std::size_t length = pair ? 2 : 1;
        std::vector<unsigned char> bytes;
        if (single || pair) {
            const orv::char16* const begin = units.data() + at;
            bytes = bytesOf(order, std::vector<orv::char16>(begin, begin + length));
        }
        trace.add(bytes.empty() ? orv::CoderResult::MALFORMED : orv::CoderResult::UNDERFLOW,
                  units.data() + at, length, isHigh(unit) ? 2 : 1, bytes.data(), bytes.size());
        at += length;
    }
    return trace;
}

} // namespace orvtest
