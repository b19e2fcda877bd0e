// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Texts of `float_digits`, digit by digit: the layout that float_to_chars.cpp writes eight
/// digits at a time.
#include "orv/liborvxx/number/detail/format_digits.h"

#include "orv/liborvxx/number/words/decimal_digits.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <iterator>
#include <stdexcept>

namespace orv::detail {

namespace {

// Appends units to the caller's memory.
template <class CharT>
class Writer {
public:
    explicit Writer(CharT* text) : end_(text) {}

    CharT* end() const { return end_; }

    void put(char character) { *end_++ = static_cast<CharT>(character); }

    // Digits [first, last) of a value; 0 where it has none.
    void putDigits(const float_digits& value, unsigned first, unsigned last) {
        for (unsigned i = first; i < last; ++i) {
            put(static_cast<char>('0' + (i < value.count ? value.digits[i] : 0)));
        }
    }

    // The point, and digits from `first` on. There is always one in binary types.
    void putFraction(const float_digits& value, unsigned first) {
        put('.');
        putDigits(value, first, std::max(value.count, value.radix == 2 ? first + 1 : 0));
    }

    void putExponent(std::int32_t exponent) {
        put('E');
        const std::int64_t wide = exponent;
        if (wide < 0) {
            put('-');
        }
        const auto magnitude = static_cast<std::uint64_t>(wide < 0 ? -wide : wide);
        const unsigned digits = words::countDigits(magnitude);
        words::writeDigits(end_, digits, magnitude);
        end_ += digits;
    }

private:
    CharT* end_;
};

template <class CharT>
basic_string_ref<CharT> fixedText(const float_digits& value) {
    using Texts = FixedTexts<CharT>;
    switch (value.exponent) {
    case ZERO_MARKER:
        return value.sign > 0 ? Texts::POSITIVE_ZERO : Texts::NEGATIVE_ZERO;
    case INFINITY_MARKER:
        return value.sign < 0 ? Texts::NEGATIVE_INFINITY : Texts::POSITIVE_INFINITY;
    case NAN_MARKER:
        return Texts::NOT_A_NUMBER;
    default:
        throw std::logic_error("no digits for non-special exponent");
    }
}

bool isPlain(const float_digits& value) {
    return value.exponent >= LEAST_PLAIN_EXPONENT && value.exponent <= MOST_PLAIN_EXPONENT &&
           (value.radix == 2 || value.exponent < static_cast<std::int32_t>(value.count));
}

template <class CharT>
CharT* format(CharT* text, const float_digits& value) {
    if (value.digits == nullptr) {
        const basic_string_ref<CharT> fixed = fixedText<CharT>(value);
        return std::copy(fixed.begin(), fixed.end(), text);
    }
    assert(value.count > 0 && value.count <= std::size(value.buffer));
    Writer<CharT> writer(text);
    if (value.sign < 0) {
        writer.put('-');
    }
    if (!isPlain(value)) {
        writer.putDigits(value, 0, 1);
        writer.putFraction(value, 1);
        writer.putExponent(value.exponent);
    } else if (value.exponent >= 0) {
        const auto whole = static_cast<unsigned>(value.exponent) + 1;
        writer.putDigits(value, 0, whole);
        writer.putFraction(value, whole);
    } else {
        writer.put('0');
        writer.put('.');
        for (int i = value.exponent; i < -1; ++i) {
            writer.put('0');
        }
        writer.putDigits(value, 0, value.count);
    }
    return writer.end();
}

} // namespace

char* formatDigits(char* text, const float_digits& value) {
    return format(text, value);
}

char16* formatDigits(char16* text, const float_digits& value) {
    return format(text, value);
}

std::string format_digits(const float_digits& value) {
    char text[MAX_FORMATTED_LENGTH];
    return {text, format(text, value)};
}

ustring format_udigits(const float_digits& value) {
    char16 text[MAX_FORMATTED_LENGTH];
    return {text, format(text, value)};
}

} // namespace orv::detail
