// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Values taken apart into `float_digits`.
#include "orv/liborvxx/number/detail/decimal_fields.h"
#include "orv/liborvxx/number/detail/float_digits.h"
#include "orv/liborvxx/number/detail/shortest_digits.h"
#include "orv/liborvxx/number/words/decimal_digits.h"

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace orv::detail {

namespace {

using words::Limb;

// A value without digits.
void setMarker(float_digits& out, std::int32_t sign, std::int32_t marker, std::int32_t radix) {
    out.sign = sign;
    out.exponent = marker;
    out.digits = nullptr;
    out.count = 0;
    out.radix = radix;
}

// The digits of a number of at most 19, at \p buffer; 0 has one.
// \return how many
unsigned putDigits(std::uint8_t* buffer, std::uint64_t number) {
    const unsigned count = words::countDigits(number);
    for (unsigned i = count; i-- > 0; number /= 10) {
        buffer[i] = static_cast<std::uint8_t>(number % 10);
    }
    return count;
}

void setShortest(float_digits& out, const DecimalNumber& number) {
    out.digits = out.buffer;
    out.count = putDigits(out.buffer, number.coefficient);
    out.exponent = number.exponent + static_cast<int>(out.count) - 1;
    while (out.count > 1 && out.buffer[out.count - 1] == 0) {
        --out.count;
    }
}

template <class Layout>
void digitsOf(float_digits& out, typename Layout::Bits bits, unsigned maxDigits) {
    constexpr int PRECISION = int{Layout::FRACTION_BITS} + 1;
    constexpr int LOWEST_NORMAL = 1 - Layout::BIAS;
    assert(maxDigits >= 2);
    const std::int32_t sign = Layout::signBit(bits) ? -1 : 1;
    const typename Layout::Bits magnitude = bits & Layout::MAGNITUDE;
    if (Layout::isNan(bits)) {
        return setMarker(out, 0, NAN_MARKER, 2);
    }
    if (Layout::isInf(bits)) {
        return setMarker(out, sign, INFINITY_MARKER, 2);
    }
    if (magnitude == 0) {
        return setMarker(out, sign, ZERO_MARKER, 2);
    }
    out.sign = sign;
    out.radix = 2;
    if (maxDigits >= MOST_DIGITS<Layout>) {
        return setShortest(out, shortestDecimal<Layout>(magnitude));
    }
    const BinaryNumber number = binaryNumber<Layout>(magnitude);
    const big_binary value(number.exponent, big_uint(number.coefficient), PRECISION);
    generate_digits(out, value, PRECISION, LOWEST_NORMAL, maxDigits);
}

// The coefficient's digits, nine at a time from the end.
void setDigits(float_digits& out, const DecimalFields& fields) {
    constexpr unsigned GROUP = 9;
    const auto [low, high] = fields.coefficient;
    std::uint32_t words[] = {
        static_cast<std::uint32_t>(low), static_cast<std::uint32_t>(low >> 32U),
        static_cast<std::uint32_t>(high), static_cast<std::uint32_t>(high >> 32U)};
    std::uint32_t groups[4];
    for (std::uint32_t& group : groups) {
        Limb rest = 0;
        for (std::size_t i = std::size(words); i-- > 0;) {
            rest = rest << 32U | words[i];
            words[i] = static_cast<std::uint32_t>(rest / 1000000000);
            rest %= 1000000000;
        }
        group = static_cast<std::uint32_t>(rest);
    }
    std::size_t top = std::size(groups) - 1;
    while (top > 0 && groups[top] == 0) {
        --top;
    }
    out.digits = out.buffer;
    out.count = putDigits(out.buffer, groups[top]);
    while (top-- > 0) {
        std::uint32_t group = groups[top];
        for (unsigned i = GROUP; i-- > 0; group /= 10) {
            out.buffer[out.count + i] = static_cast<std::uint8_t>(group % 10);
        }
        out.count += GROUP;
    }
    out.exponent = fields.exponent + static_cast<int>(out.count) - 1;
}

template <class Record>
void decimalDigitsOf(float_digits& out, const Record& record) {
    const unsigned topBits = topBitsOf(record);
    const std::int32_t sign = topBits >> 7U != 0 ? -1 : 1;
    switch (decimalKind(topBits)) {
    case DecimalKind::NOT_A_NUMBER:
        return setMarker(out, 0, NAN_MARKER, 10);
    case DecimalKind::INFINITE:
        return setMarker(out, sign, INFINITY_MARKER, 10);
    case DecimalKind::FINITE:
        break;
    }
    out.sign = sign;
    out.radix = 10;
    setDigits(out, fieldsOf(record));
}

} // namespace

void digits_of(float_digits& out, binary16 value, unsigned max_digits) {
    digitsOf<HalfBits>(out, value.bits(), max_digits);
}

void digits_of(float_digits& out, float value, unsigned max_digits) {
    digitsOf<FloatBits>(out, bitsOf(value), max_digits);
}

void digits_of(float_digits& out, double value, unsigned max_digits) {
    digitsOf<DoubleBits>(out, bitsOf(value), max_digits);
}

void digits_of(float_digits& out, const decimal::decimal32& value) noexcept {
    decimalDigitsOf(out, value.record());
}

void digits_of(float_digits& out, const decimal::decimal64& value) noexcept {
    decimalDigitsOf(out, value.record());
}

void digits_of(float_digits& out, const decimal::decimal128& value) noexcept {
    decimalDigitsOf(out, value.record());
}

} // namespace orv::detail
