// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The scan of an integer's text.
#include "orv/liborvxx/number/detail/integer_scanner.h"

#include "orv/liborvxx/number/detail/text_source.h"
#include "orv/liborvxx/number/words/limb.h"

#include <algorithm>
#include <array>

namespace orv::detail {

namespace {

constexpr unsigned MAX_RADIX = 36;

// What characters are worth as digits; MAX_RADIX where they are none.
constexpr auto DIGIT_VALUES = [] {
    std::array<unsigned char, 256> values{};
    values.fill(MAX_RADIX);
    for (unsigned i = 0; i < MAX_RADIX; ++i) {
        if (i < 10) {
            values['0' + i] = static_cast<unsigned char>(i);
        } else {
            values['a' + i - 10] = values['A' + i - 10] = static_cast<unsigned char>(i);
        }
    }
    return values;
}();

constexpr unsigned digitValue(char c) noexcept {
    return DIGIT_VALUES[static_cast<unsigned char>(c)];
}

// How many digits of a radix make a number below 2^64, whatever they are.
constexpr auto SAFE_DIGITS = [] {
    std::array<unsigned char, MAX_RADIX + 1> counts{};
    for (unsigned radix = 2; radix <= MAX_RADIX; ++radix) {
        std::uint64_t rest = ~std::uint64_t{0};
        for (; rest >= radix - 1; rest = (rest - (radix - 1)) / radix) {
            ++counts[radix];
        }
    }
    return counts;
}();

// Whether the source stands before "0x" and a hexadecimal digit. If so, goes past the "0x".
template <class Source>
bool takeHexPrefix(Source& source) noexcept {
    const auto* const start = source.position();
    if (source.ascii() == '0') {
        source.step();
        if (source.ascii() == 'x' || source.ascii() == 'X') {
            source.step();
            if (digitValue(source.ascii()) < 16) {
                return true;
            }
        }
        source.setPosition(start);
    }
    return false;
}

template <class Source>
int takePrefix(Source& source, int radix) noexcept {
    if ((radix == 0 || radix == 16) && takeHexPrefix(source)) {
        return 16;
    }
    if (radix == 0) {
        return source.ascii() == '0' ? 8 : 10;
    }
    return radix;
}

// Digits of a radix, read one at a time.
template <class Source>
struct DigitReader {
    Source& source;
    unsigned bound;      // what is at or above it is no digit
    std::uint64_t radix; // may be more than the bound
    unsigned safe;       // so many digits more cannot make the value overflow
    std::uint64_t value = 0;

    // Reads all there are and tells whether the value still fits.
    bool read() noexcept {
        unsigned digit = digitValue(source.ascii());
        for (; digit < bound && safe > 0; --safe) {
            value = value * radix + digit;
            source.step();
            digit = digitValue(source.ascii());
        }
        bool fits = true;
        for (; digit < bound; digit = digitValue(source.ascii())) {
            const words::Wide next = words::multiplyAdd(value, radix, digit, 0);
            fits = fits && next.high == 0;
            value = next.low;
            source.step();
        }
        return fits;
    }
};

} // namespace

template <class Source>
ScannedDigits scanDigits(Source& source, int radix) noexcept {
    const auto base = static_cast<unsigned>(std::max(takePrefix(source, radix), 0));
    const auto* const start = source.position();
    DigitReader<Source> reader{source, std::min(base, MAX_RADIX), base,
                               base <= MAX_RADIX ? SAFE_DIGITS[base] : 0U};
    const bool fits = reader.read();
    const auto status = source.position() == start ? number_status::digit_expected
                        : fits                     ? number_status::ok
                                                   : number_status::out_of_range;
    return {reader.value, status};
}

template ScannedDigits scanDigits(RangeSource<char>&, int) noexcept;
template ScannedDigits scanDigits(RangeSource<char16>&, int) noexcept;
template ScannedDigits scanDigits(NulTerminatedSource<char>&, int) noexcept;
template ScannedDigits scanDigits(NulTerminatedSource<char16>&, int) noexcept;

} // namespace orv::detail
