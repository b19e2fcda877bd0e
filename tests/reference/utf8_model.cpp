// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 and CESU-8 by definition: bits are collected, and a value is right if it is written
/// in the shortest form.
#include "tests/reference/utf8_model.h"

#include <bit>

namespace orvtest {

namespace {

using DecodeStep = Utf8Step<std::uint16_t>;
using EncodeStep = Utf8Step<unsigned char>;

// Bytes of the shortest form, from the number of significant bits: 7, 11, 16 and 21 fit.
std::size_t shortestForm(std::uint32_t value) {
    const auto bits = static_cast<int>(std::bit_width(value));
    return bits <= 7 ? 1 : bits <= 11 ? 2 : bits <= 16 ? 3 : 4;
}

bool isSurrogate(std::uint32_t value) {
    return value / 0x800 == 0xD800 / 0x800;
}
bool isHigh(orv::char16 unit) {
    return static_cast<unsigned>(unit) / 0x400 == 0xD800 / 0x400;
}
bool isLow(orv::char16 unit) {
    return static_cast<unsigned>(unit) / 0x400 == 0xDC00 / 0x400;
}

// Appends the form of the given length: a lead byte of as many ones, then six bits a byte.
void write(EncodeStep& step, std::uint32_t value, std::size_t length) {
    if (length == 1) {
        step.out[step.outLength++] = static_cast<unsigned char>(value);
        return;
    }
    const std::uint32_t ones = 0xF00U >> length & 0xFF;
    for (std::size_t left = length; left-- > 0;) {
        const std::uint32_t part = value / (1U << 6 * left);
        const std::uint32_t byte = left + 1 == length ? ones + part : 0x80 + part % 0x40;
        step.out[step.outLength++] = static_cast<unsigned char>(byte);
    }
}

} // namespace

DecodeStep decodeFront(Utf8Form form, const unsigned char* bytes, std::size_t n) {
    DecodeStep step;
    const int ones = std::countl_one(bytes[0]);
    const int longest = form == Utf8Form::UTF_8 ? 4 : 3;
    if (ones == 1 || ones > longest) {
        step.kind = DecodeStep::MALFORMED;
        step.length = step.need = 1;
        return step;
    }
    const std::size_t size = ones == 0 ? 1 : static_cast<std::size_t>(ones);
    step.need = size;
    if (n < size) {
        return step;
    }
    std::uint32_t value = bytes[0] % (ones == 0 ? 0x80U : 0x80U >> ones);
    for (std::size_t i = 1; i < size; ++i) {
        if (bytes[i] / 0x40 != 2) {
            // The byte that breaks the sequence is part of it.
            step.kind = DecodeStep::MALFORMED;
            step.length = i + 1;
            return step;
        }
        value = value * 0x40 + bytes[i] % 0x40;
    }
    step.length = size;
    if (shortestForm(value) != size || value > 0x10FFFF ||
        (isSurrogate(value) && form == Utf8Form::UTF_8)) {
        step.kind = DecodeStep::MALFORMED;
        return step;
    }
    step.kind = DecodeStep::CHARACTER;
    if (value <= 0xFFFF) {
        step.out[step.outLength++] = static_cast<std::uint16_t>(value);
    } else {
        step.out[step.outLength++] = static_cast<std::uint16_t>(0xD7C0 + value / 0x400);
        step.out[step.outLength++] = static_cast<std::uint16_t>(0xDC00 + value % 0x400);
    }
    return step;
}

EncodeStep encodeFront(Utf8Form form, const orv::char16* units, std::size_t n) {
    EncodeStep step;
    step.need = step.length = 1;
    const auto first = static_cast<std::uint32_t>(units[0]);
    if (!isSurrogate(first)) {
        step.kind = EncodeStep::CHARACTER;
        write(step, first, shortestForm(first));
        return step;
    }
    if (isLow(units[0])) {
        step.kind = EncodeStep::MALFORMED;
        return step;
    }
    step.need = 2;
    if (n < 2) {
        return step;
    }
    if (!isHigh(units[0]) || !isLow(units[1])) {
        step.kind = EncodeStep::MALFORMED;
        return step;
    }
    step.kind = EncodeStep::CHARACTER;
    step.length = 2;
    const auto second = static_cast<std::uint32_t>(units[1]);
    if (form == Utf8Form::CESU_8) {
        write(step, first, 3);
        write(step, second, 3);
    } else {
        write(step, 0x10000 + (first - 0xD800) * 0x400 + (second - 0xDC00), 4);
    }
    return step;
}

DecodeVector decodeTrace(Utf8Form form, const std::vector<unsigned char>& bytes) {
    DecodeVector trace;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t left = bytes.size() - at;
        const DecodeStep step = decodeFront(form, bytes.data() + at, left);
        const bool incomplete = step.kind == DecodeStep::INCOMPLETE;
        const std::size_t length = incomplete ? left : step.length;
        orv::char16 units[2];
        for (std::size_t i = 0; i < step.outLength; ++i) {
            units[i] = orv::char16(step.out[i]);
        }
        trace.add(step.kind == DecodeStep::CHARACTER ? orv::CoderResult::UNDERFLOW
                                                     : orv::CoderResult::MALFORMED,
                  bytes.data() + at, length, step.need, units, step.outLength);
        at += length;
    }
    return trace;
}

EncodeVector encodeTrace(Utf8Form form, const std::vector<orv::char16>& units) {
    EncodeVector trace;
    for (std::size_t at = 0; at < units.size();) {
        const EncodeStep step = encodeFront(form, units.data() + at, units.size() - at);
        trace.add(step.kind == EncodeStep::CHARACTER ? orv::CoderResult::UNDERFLOW
                                                     : orv::CoderResult::MALFORMED,
                  units.data() + at, step.length, step.need, step.out.data(), step.outLength);
        at += step.length;
    }
    return trace;
}

} // namespace orvtest
