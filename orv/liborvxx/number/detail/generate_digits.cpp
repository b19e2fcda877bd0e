// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The digits of a binary number one by one, on numbers of limited precision.
#include "orv/liborvxx/number/detail/float_digits.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

namespace orv::detail {

namespace {

// The integer part of a fixed-point number is the top 8 bits of its top word.
constexpr unsigned DIGIT_SHIFT = 24;
constexpr std::uint32_t ONE_TOP_WORD = 1U << DIGIT_SHIFT;

// log2(10) in 16.16 fixed point
constexpr std::int64_t BITS_PER_DIGIT = 0x3526A;

unsigned workingPrecision(int precision) {
    const auto bits = static_cast<unsigned>(2 * precision);
    return bits <= 64 ? 64 : bits <= 128 ? 128 : bits <= 256 ? 256 : bits;
}

// The floor of log10(2^top), or at times one less.
int estimatedExponent(int top) {
    if (top == 0) {
        return 0;
    }
    const std::int64_t log10Of2 = top < 0 ? 0x4D104D43 : 0x4D104D42;
    return static_cast<int>(top * log10Of2 >> 32U);
}

// What the digits are taken from. All numbers are in units of the digit that comes next, with 8
// bits before the point.
class DigitSource {
public:
    DigitSource(const big_binary& value, int precision, int lowestExponent);

    // Of the first digit.
    int exponent() const { return exponent_; }

    // Takes the next digit out of the rest.
    unsigned take() {
        std::uint32_t& top = rest_[rest_.size() - 1U];
        const unsigned digit = top >> DIGIT_SHIFT;
        top &= ONE_TOP_WORD - 1U;
        complement_.subtract(one_, rest_);
        return digit;
    }

    // Goes on to the next digit.
    void advance() {
        rest_.multiply_by_10();
        margin_.multiply_by_10();
        if (uneven_) {
            upperMargin_.multiply_by_10();
        }
        error_ += BITS_PER_DIGIT;
    }

    bool isUneven() const { return uneven_; }

    // Whether the number cut behind the digit just taken is near enough to the value.
    bool isCutInside() const;
    // Whether the number with the next higher digit is near enough to the value.
    bool isNextInside() const;
    // -1, 0 or 1: the rest against one half.
    int compareWithHalf() const { return compare_within(rest_, complement_, tolerance()); }

private:
    void scale(big_binary& value, big_binary& margin, unsigned bits);
    void makeFixedPoint(const big_binary& value, const big_binary& margin, unsigned bits);

    const big_uint& upperMargin() const { return uneven_ ? upperMargin_ : margin_; }
    int tolerance() const { return static_cast<int>(error_ >> 16U); }
    bool isBelow(const big_uint& a, const big_uint& b) const {
        const int sign = compare_within(a, b, tolerance());
        return sign < 0 || (sign == 0 && even_);
    }

    bool even_;
    bool uneven_ = false;
    int exponent_ = 0;
    std::int64_t error_ = 0; // position of the highest wrong bit, 16.16
    big_uint rest_;
    big_uint complement_; // 1 - rest
    big_uint margin_;     // to the middle below; above as well, if not uneven
    big_uint upperMargin_;
    big_uint one_;
};

DigitSource::DigitSource(const big_binary& value, int precision, int lowestExponent)
    : even_(!value.coefficient.lsb()) {
    const bool isPower = value.coefficient.is_power_of_two();
    const int top = value.exponent + value.coefficient.highest_set_bit();
    const int middle = top - precision - (isPower ? 1 : 0);
    const int lowestMiddle = lowestExponent - precision;
    uneven_ = isPower && lowestMiddle < middle;

    const unsigned bits = workingPrecision(precision);
    exponent_ = estimatedExponent(top);
    big_binary number = value;
    big_binary margin(std::max(middle, lowestMiddle), 1U, 1);
    scale(number, margin, bits);
    makeFixedPoint(number, margin, bits);
}

// Corrects the exponent and divides both numbers by its power of ten.
void DigitSource::scale(big_binary& value, big_binary& margin, unsigned bits) {
    big_binary power = big_binary::cached_pow10(exponent_, bits);
    for (;;) {
        big_binary next = big_binary::cached_pow10(exponent_ + 1, bits);
        if (big_binary::compare(next, value) > 0) {
            break;
        }
        power = std::move(next);
        ++exponent_;
    }
    if (exponent_ < 0) {
        const big_binary inverse = big_binary::cached_pow10(-exponent_, bits);
        value = big_binary::multiply(value, inverse, bits);
        margin = big_binary::multiply(margin, inverse, bits);
    } else if (exponent_ > 0) {
        value = big_binary::divide(value, power, bits);
        margin = big_binary::divide(margin, power, bits);
    }
}

void DigitSource::makeFixedPoint(const big_binary& value, const big_binary& margin, unsigned bits) {
    rest_ = value.get_coefficient(bits);
    margin_ = margin.get_coefficient(bits);
    const int fractionBits = std::max(-value.exponent - rest_.lowest_set_bit(),
                                      -margin.exponent - margin_.lowest_set_bit());
    assert(fractionBits >= 0);
    const unsigned words = (static_cast<unsigned>(fractionBits) + 39) / 32;
    const unsigned fraction = 32 * words - 8;
    rescale(rest_, -value.exponent, static_cast<int>(fraction), words);
    rescale(margin_, -margin.exponent, static_cast<int>(fraction), words);
    if (uneven_) {
        upperMargin_ = margin_;
        upperMargin_.shift_left();
    }
    one_ = big_uint::make_uninitialized(words);
    std::fill_n(one_.data(), words, 0U);
    one_.set_bit(fraction);
    complement_ = one_;
    error_ = (std::int64_t{1} - bits + rest_.highest_set_bit()) * 65536;
}

// The top words mostly decide.
bool DigitSource::isCutInside() const {
    const std::uint32_t r = rest_.msw();
    const std::uint32_t m = margin_.msw();
    if (r > m + 1) {
        return false;
    }
    return r + 1 < m || isBelow(rest_, margin_);
}

bool DigitSource::isNextInside() const {
    const std::uint32_t c = ONE_TOP_WORD - rest_.msw();
    const std::uint32_t m = upperMargin().msw();
    if (c > m + 2) {
        return false;
    }
    return c < m || isBelow(complement_, upperMargin());
}

enum class Step { NEXT_DIGIT, KEEP, ROUND_UP };

Step decideByHalf(const DigitSource& source, unsigned digit) {
    const int sign = source.compareWithHalf();
    return sign > 0 || (sign == 0 && digit % 2 != 0) ? Step::ROUND_UP : Step::KEEP;
}

Step decide(const DigitSource& source, unsigned digit, bool isLast) {
    const bool low = source.isCutInside();
    const bool high = source.isNextInside();
    if (low) {
        return high ? decideByHalf(source, digit) : Step::KEEP;
    }
    if (high) {
        if (!source.isUneven() || decideByHalf(source, digit) == Step::ROUND_UP) {
            return Step::ROUND_UP;
        }
    }
    return isLast ? decideByHalf(source, digit) : Step::NEXT_DIGIT;
}

void dropZeros(float_digits& out) {
    while (out.count > 1 && out.buffer[out.count - 1] == 0) {
        --out.count;
    }
}

// Adds 1 to the last digit; digits that become 10 go, as zeros at the end would.
void roundUp(float_digits& out) {
    while (out.count > 0 && out.buffer[out.count - 1] >= 9) {
        --out.count;
    }
    if (out.count > 0) {
        ++out.buffer[out.count - 1];
    } else {
        out.buffer[out.count++] = 1;
        ++out.exponent;
    }
}

} // namespace

void generate_digits(float_digits& out, const big_binary& value, int precision, int lowest_exponent,
                     unsigned max_digits) {
    assert(precision > 0 && !value.coefficient.is_zero() &&
           value.coefficient.bit_length() <= static_cast<unsigned>(precision));
    assert(max_digits >= 2 && max_digits <= std::size(out.buffer));
    DigitSource source(value, precision, lowest_exponent);
    out.exponent = source.exponent();
    out.digits = out.buffer;
    out.count = 0;
    Step step = Step::NEXT_DIGIT;
    while (step == Step::NEXT_DIGIT) {
        if (out.count > 0) {
            source.advance();
        }
        const unsigned digit = source.take();
        out.buffer[out.count++] = static_cast<std::uint8_t>(digit);
        if (out.count > 1) {
            step = decide(source, digit, out.count == max_digits);
        }
    }
    if (step == Step::ROUND_UP) {
        roundUp(out);
    } else {
        dropZeros(out);
    }
}

} // namespace orv::detail
