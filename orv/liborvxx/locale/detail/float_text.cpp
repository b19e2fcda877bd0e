// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Lays out a floating-point number as the flags of a stream say.
#include "orv/liborvxx/locale/detail/float_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>

namespace orv::detail {

namespace {

using words::Wide;

// What the flags say.
struct Style {
    explicit Style(const std::ios_base& stream) noexcept
        : flags(stream.flags()),
          precision(stream.precision() < 0 ? 6 : std::min<std::int64_t>(stream.precision(), MOST)) {
    }

    // A text so long never ends; sums with it are in range.
    static constexpr std::int64_t MOST = std::numeric_limits<std::int64_t>::max() / 2;

    bool has(std::ios_base::fmtflags flag) const noexcept {
        return (flags & flag) != std::ios_base::fmtflags{};
    }
    bool isUpper() const noexcept { return has(std::ios_base::uppercase); }
    bool isFixed() const noexcept {
        return (flags & std::ios_base::floatfield) == std::ios_base::fixed;
    }
    bool isScientific() const noexcept {
        return (flags & std::ios_base::floatfield) == std::ios_base::scientific;
    }
    bool isHex() const noexcept {
        return (flags & std::ios_base::floatfield) == std::ios_base::floatfield;
    }

    std::ios_base::fmtflags flags;
    std::int64_t precision;
};

void addSign(NumberText& text, const Style& style, bool negative) noexcept {
    if (negative || style.has(std::ios_base::showpos)) {
        text.prefix.add(negative ? '-' : '+');
    }
    text.padding = text.prefix.size();
}

void addExponent(NumberText& text, char mark, std::int64_t exponent, unsigned digits) noexcept {
    text.exponent.add(mark);
    text.exponent.add(exponent < 0 ? '-' : '+');
    const auto magnitude = static_cast<unsigned>(exponent < 0 ? -exponent : exponent);
    unsigned power = 1;
    for (unsigned count = 1; count < digits || magnitude / power >= 10; ++count) {
        power *= 10;
    }
    for (; power > 0; power /= 10) {
        text.exponent.add(static_cast<char>('0' + magnitude / power % 10));
    }
}

// The point, and zeros up to the precision; or neither, and no zeros at the end at all.
void finishFraction(NumberText& text, const Style& style, std::int64_t places, bool isShort) {
    if (isShort) {
        text.fraction = text.fraction.substr(0, text.fraction.find_last_not_of('0') + 1);
        text.zeros = text.fraction.empty() ? 0 : text.zeros;
        text.hasPoint = !text.fraction.empty();
        return;
    }
    text.lastZeros = static_cast<std::uint64_t>(places) - text.zeros - text.fraction.size();
    text.hasPoint = places > 0 || style.has(std::ios_base::showpoint);
}

void placeFixed(FloatText& out, const Style& style, std::int64_t places, bool isShort) {
    NumberText& text = out.text;
    const std::string_view digits = out.decimal.digits();
    const std::int64_t exponent = out.decimal.exponent();
    text.isGrouped = true;
    if (digits.empty() || exponent < 0) {
        text.integer = "0";
        text.zeros = static_cast<std::uint64_t>(digits.empty() ? 0 : -exponent - 1);
        text.fraction = digits;
    } else {
        const auto size = static_cast<std::size_t>(exponent) + 1;
        text.integer = digits.substr(0, size);
        text.integerZeros = size - text.integer.size();
        text.fraction = digits.substr(text.integer.size());
    }
    finishFraction(text, style, places, isShort);
}

void placeScientific(FloatText& out, const Style& style, std::int64_t places, bool isShort) {
    NumberText& text = out.text;
    const std::string_view digits = out.decimal.digits();
    text.integer = digits.empty() ? "0" : digits.substr(0, 1);
    text.fraction = digits.empty() ? digits : digits.substr(1);
    finishFraction(text, style, places, isShort);
    addExponent(text, style.isUpper() ? 'E' : 'e', out.decimal.exponent(), 2);
}

void layOutGeneral(FloatText& out, const Style& style, const BinaryFraction& number) {
    const std::int64_t digits = std::max<std::int64_t>(style.precision, 1);
    const bool isShort = !style.has(std::ios_base::showpoint);
    out.decimal.roundToDigits(number, digits);
    const std::int64_t exponent = out.decimal.exponent();
    if (exponent >= -4 && exponent < digits) {
        placeFixed(out, style, digits - 1 - exponent, isShort);
    } else {
        placeScientific(out, style, digits - 1, isShort);
    }
}

Wide shiftRight(const Wide& bits, unsigned n) noexcept {
    if (n == 0) {
        return bits;
    }
    return n < 64 ? Wide{bits.low >> n | bits.high << (64 - n), bits.high >> n}
                  : Wide{bits.high >> (n - 64), 0};
}

// \tparam HEAD bits in the first digit of normal numbers
// \tparam LOWEST the exponent of the least of these
template <int HEAD, int LOWEST>
void layOutHex(FloatText& out, const Style& style, const BinaryFraction& number) {
    NumberText& text = out.text;
    const std::string_view hex = style.isUpper() ? "0123456789ABCDEFXP" : "0123456789abcdefxp";
    text.prefix.add('0');
    text.prefix.add(hex[16]);
    text.padding = text.padding == 0 ? 2 : text.padding;

    const int cut = 4 - HEAD + std::max(LOWEST - number.exponent, 0);
    Wide bits = shiftRight({number.rest, number.coefficient}, static_cast<unsigned>(cut));
    std::size_t size = 0;
    do {
        out.hex[size++] = hex[bits.high >> 60U];
        bits = {bits.low << 4U, bits.high << 4U | bits.low >> 60U};
    } while ((bits.high | bits.low) != 0);
    const std::string_view digits(out.hex, size);
    text.integer = digits.substr(0, 1);
    text.fraction = digits.substr(1);
    text.hasPoint = size > 1 || style.has(std::ios_base::showpoint);
    const bool isZero = number.coefficient == 0;
    addExponent(text, hex[17], isZero ? 0 : std::max(number.exponent, LOWEST) - HEAD, 1);
}

template <class Float>
void layOutFloat(FloatText& out, const std::ios_base& stream, Float value) {
    using Limits = std::numeric_limits<Float>;
    const Style style(stream);
    addSign(out.text, style, std::signbit(value));
    if (!std::isfinite(value)) {
        const bool isUpper = style.isUpper() && !style.isFixed();
        out.text.integer =
            std::isnan(value) ? (isUpper ? "NAN" : "nan") : (isUpper ? "INF" : "inf");
        return;
    }
    const BinaryFraction number = fractionOf(std::fabs(value));
    if (style.isFixed()) {
        out.decimal.roundToPlaces(number, style.precision);
        placeFixed(out, style, style.precision, false);
    } else if (style.isScientific()) {
        out.decimal.roundToDigits(number, style.precision + 1);
        placeScientific(out, style, style.precision, false);
    } else if (style.isHex()) {
        // As the C library writes the format of 80 bits, which has no implied bit.
        constexpr int HEAD = Limits::digits == 64 ? 4 : 1;
        layOutHex<HEAD, Limits::min_exponent>(out, style, number);
    } else {
        layOutGeneral(out, style, number);
    }
}

} // namespace

void layOut(FloatText& out, const std::ios_base& stream, double value) {
    layOutFloat(out, stream, value);
}

void layOut(FloatText& out, const std::ios_base& stream, long double value) {
    layOutFloat(out, stream, value);
}

} // namespace orv::detail
