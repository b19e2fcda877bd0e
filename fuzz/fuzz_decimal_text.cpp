// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from text and as text: the reader of whole texts does what the one of
/// characters does, buffers of any size hold the front of one and the same text, and all digits
/// written read back as the same number.
///
/// Input: a byte, even for text to read, odd for a number to write. Text: bytes for the point, the
/// separator, the digits and the option, and where to cut; the text. Number: bytes for the width,
/// the conversion, the flags, the precision and the group sizes (two); the bits.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborv/decimal/format.h"
#include "orv/liborv/decimal/parse.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace {

bool isSame(ODecimal32 a, ODecimal32 b) {
    return a.bits == b.bits;
}
bool isSame(ODecimal64 a, ODecimal64 b) {
    return a.bits == b.bits;
}
bool isSame(ODecimal128 a, ODecimal128 b) {
    return a.low == b.low && a.high == b.high;
}

bool isSameValue(const DecimalParseState& a, const DecimalParseState& b) {
    return isSame(orvDec32ParseGetValue(&a), orvDec32ParseGetValue(&b)) &&
           isSame(orvDec64ParseGetValue(&a), orvDec64ParseGetValue(&b)) &&
           isSame(orvDec128ParseGetValue(&a), orvDec128ParseGetValue(&b));
}

// Feeds the text; the count of characters taken, and that of the longest complete number.
std::size_t feed(DecimalParseState& state, const std::string& text, std::size_t& complete) {
    complete = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const int result = orvDecParseNextChar(&state, text[at]);
        FUZZ_CHECK(result == 0 || result == ORV_DEC_PARSE_COMPLETE || result == ORV_DEC_PARSE_STOP);
        if (result == ORV_DEC_PARSE_STOP) {
            return at;
        }
        complete = result == ORV_DEC_PARSE_COMPLETE ? at + 1 : complete;
    }
    return text.size();
}

void checkReading(fuzz::Input& input) {
    const char point = static_cast<char>(input.byte());
    const char separator = static_cast<char>(input.byte());
    const int digits[] = {7, 16, 34};
    const int mode = input.byte();
    const std::size_t cutByte = input.byte();
    const std::string text = input.rest();
    const std::size_t cut = std::min(cutByte, text.size());
    DecimalParseState begun;
    if (orvDecParseInit(&begun, digits[mode % 3], point, separator, mode / 3 % 2) != 0) {
        return;
    }
    DecimalParseState fed = begun;
    std::size_t complete = 0;
    const std::size_t taken = feed(fed, text, complete);

    DecimalParseState whole = begun;
    std::size_t wholeComplete = 0;
    FUZZ_CHECK(orvDecParseText(&whole, text.data(), text.size(), &wholeComplete) == taken);
    FUZZ_CHECK(wholeComplete == complete && isSameValue(whole, fed));

    DecimalParseState pieces = begun;
    std::size_t first = 0;
    std::size_t second = 0;
    if (orvDecParseText(&pieces, text.data(), cut, &first) == cut) {
        orvDecParseText(&pieces, text.data() + cut, text.size() - cut, &second);
    }
    FUZZ_CHECK((second == 0 ? first : cut + second) == complete && isSameValue(pieces, fed));

    // What stands behind the number takes no part in the value.
    DecimalParseState number = begun;
    orvDecParseText(&number, text.data(), complete, nullptr);
    FUZZ_CHECK(complete == 0 || isSameValue(number, fed));
}

template <class Value>
using Writer = std::size_t (*)(const DecimalFormat*, Value, char*, std::size_t);

template <class Value>
std::string checkSizes(Writer<Value> write, const DecimalFormat& format, Value value) {
    const std::size_t length = write(&format, value, nullptr, 0);
    std::string text(length + 1, '#');
    FUZZ_CHECK(write(&format, value, text.data(), text.size()) == length);
    FUZZ_CHECK(text.back() == '\0');
    text.pop_back();
    for (std::size_t size = 1; size <= std::min<std::size_t>(length, 80); ++size) {
        std::string front(size + 1, '#');
        FUZZ_CHECK(write(&format, value, front.data(), size) == length);
        FUZZ_CHECK(front.compare(0, size - 1, text, 0, size - 1) == 0);
        FUZZ_CHECK(front[size - 1] == '\0' && front[size] == '#');
    }
    return text;
}

template <class Value>
void checkReadBack(Writer<Value> write, Value (*read)(const DecimalParseState*), int digits,
                   char conversion, Value value) {
    DecimalFormat format{};
    format.conversion = conversion;
    format.precision = -1;
    const std::string text = checkSizes(write, format, value);
    DecimalParseState state;
    FUZZ_CHECK(orvDecParseInit(&state, digits, '.', '\0', 0) == 0);
    std::size_t complete = 0;
    FUZZ_CHECK(orvDecParseText(&state, text.data(), text.size(), &complete) == text.size());
    FUZZ_CHECK(complete == text.size());
    // The number read is canonical: the same again, where the one written may not have been.
    const Value canonical = read(&state);
    FUZZ_CHECK(checkSizes(write, format, canonical) == text);
    FUZZ_CHECK(orvDecParseInit(&state, digits, '.', '\0', 0) == 0);
    orvDecParseText(&state, text.data(), text.size(), nullptr);
    FUZZ_CHECK(isSame(read(&state), canonical));
}

DecimalFormat takeFormat(fuzz::Input& input, char (&grouping)[3]) {
    const std::uint32_t marks[] = {'.', ',', 0xA0, 0x202F, 0x1F600, 0xD800, 0xFFFFFFFF, 0};
    DecimalFormat format{};
    format.conversion = "GEFgef?\xFF"[input.byte() % 8];
    const unsigned flags = input.byte();
    format.plusSign = (flags & 1U) != 0 ? '+' : '\0';
    format.showPoint = (flags & 2U) != 0 ? 1 : 0;
    format.decimalPoint = marks[flags >> 2U & 7U];
    format.thousandsSeparator = marks[flags >> 5U & 7U];
    format.precision = static_cast<std::int8_t>(input.byte());
    grouping[0] = static_cast<char>(input.byte());
    grouping[1] = static_cast<char>(input.byte());
    grouping[2] = '\0';
    format.grouping = grouping;
    return format;
}

std::uint64_t takeWord(fuzz::Input& input) {
    std::uint64_t word = 0;
    for (int i = 0; i < 8; ++i) {
        word = word << 8U | input.byte();
    }
    return word;
}

void checkWriting(fuzz::Input& input) {
    const int width = input.byte() % 3;
    char grouping[3];
    const DecimalFormat format = takeFormat(input, grouping);
    const std::uint64_t high = takeWord(input);
    const char conversion = (high & 1U) != 0 ? 'E' : 'g';
    if (width == 0) {
        const ODecimal32 value{static_cast<std::uint32_t>(high >> 32U)};
        checkSizes(&orvDec32FormatString, format, value);
        checkReadBack(&orvDec32FormatString, &orvDec32ParseGetValue, 7, conversion, value);
    } else if (width == 1) {
        const ODecimal64 value{high};
        checkSizes(&orvDec64FormatString, format, value);
        checkReadBack(&orvDec64FormatString, &orvDec64ParseGetValue, 16, conversion, value);
    } else {
        const ODecimal128 value{takeWord(input), high};
        checkSizes(&orvDec128FormatString, format, value);
        checkReadBack(&orvDec128FormatString, &orvDec128ParseGetValue, 34, conversion, value);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    if (input.byte() % 2 == 0) {
        checkReading(input);
    } else {
        checkWriting(input);
    }
    return 0;
}
