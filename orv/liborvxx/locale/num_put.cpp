// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Writing of numbers ([facet.num.put.virtuals]).
#include "orv/liborvxx/locale/num_put.h"

#include "orv/liborvxx/locale/detail/float_text.h"
#include "orv/liborvxx/locale/detail/number_punctuation.h"
#include "orv/liborvxx/locale/detail/number_text.h"
#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/number/words/decimal_digits.h"
#include "orv/liborvxx/text/ustring.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace {

using orv::char16;
using orv::detail::NumberPunctuation;
using orv::detail::NumberText;
using Flags = std::ios_base::fmtflags;
using Iterator = std::ostreambuf_iterator<char16>;

// The digits of an integer: the octal ones of 64 bits are the most.
class IntegerDigits {
public:
    explicit IntegerDigits(std::uint64_t value) noexcept : size_(orv::words::countDigits(value)) {
        orv::words::writeDigits(text_, size_, value);
    }

    // bits: of a digit
    IntegerDigits(std::uint64_t value, unsigned bits, std::string_view digits) noexcept
        : size_((static_cast<unsigned>(std::bit_width(value | 1U)) + bits - 1) / bits) {
        for (unsigned i = size_; i-- > 0; value >>= bits) {
            text_[i] = digits[value & ((1U << bits) - 1)];
        }
    }

    std::string_view view() const noexcept { return {text_, size_}; }

private:
    char text_[22];
    unsigned size_;
};

Iterator putDigits(Iterator out, std::ios_base& str, char16 fill, NumberText& text,
                   const IntegerDigits& digits) {
    text.integer = digits.view();
    text.isGrouped = true;
    return orv::detail::putNumber(out, str, fill, NumberPunctuation(str), text);
}

Iterator putDecimal(Iterator out, std::ios_base& str, char16 fill, std::uint64_t magnitude,
                    bool isNegative, bool showsPlus) {
    NumberText text;
    if (isNegative || showsPlus) {
        text.prefix.add(isNegative ? '-' : '+');
        text.padding = 1;
    }
    return putDigits(out, str, fill, text, IntegerDigits(magnitude));
}

// A zero has no prefix, and that of octal numbers is no place to pad behind.
Iterator putBits(Iterator out, std::ios_base& str, char16 fill, std::uint64_t value, Flags flags) {
    NumberText text;
    const bool showsBase = (flags & std::ios_base::showbase) != 0 && value != 0;
    if (showsBase) {
        text.prefix.add('0');
    }
    if ((flags & std::ios_base::basefield) == std::ios_base::oct) {
        return putDigits(out, str, fill, text, IntegerDigits(value, 3, "01234567"));
    }
    const bool isUpper = (flags & std::ios_base::uppercase) != 0;
    if (showsBase) {
        text.prefix.add(isUpper ? 'X' : 'x');
        text.padding = 2;
    }
    const std::string_view hex = isUpper ? "0123456789ABCDEF" : "0123456789abcdef";
    return putDigits(out, str, fill, text, IntegerDigits(value, 4, hex));
}

// Octal and hexadecimal numbers are those of the bits in the width of the type.
template <class Integer>
Iterator putInteger(Iterator out, std::ios_base& str, char16 fill, Integer v) {
    const Flags flags = str.flags();
    const Flags base = flags & std::ios_base::basefield;
    if (base == std::ios_base::oct || base == std::ios_base::hex) {
        return putBits(out, str, fill, static_cast<std::make_unsigned_t<Integer>>(v), flags);
    }
    const auto value = static_cast<std::uint64_t>(v);
    if constexpr (std::is_signed_v<Integer>) {
        return putDecimal(out, str, fill, v < 0 ? -value : value, v < 0,
                          (flags & std::ios_base::showpos) != 0);
    }
    return putDecimal(out, str, fill, value, false, false);
}

template <class Float>
Iterator putFloat(Iterator out, std::ios_base& str, char16 fill, Float v) {
    orv::detail::FloatText layout;
    orv::detail::layOut(layout, str, v);
    return orv::detail::putNumber(out, str, fill, NumberPunctuation(str), layout.text);
}

} // namespace

std::locale::id std::num_put<char16>::id;

std::num_put<char16>::num_put(std::size_t refs) : std::locale::facet(refs) {}

std::num_put<char16>::num_put::~num_put() = default;

Iterator std::num_put<char16>::do_put(Iterator out, std::ios_base& str, char16 fill,
                                      const void* v) const {
    const auto address = reinterpret_cast<std::uintptr_t>(v);
    return putBits(out, str, fill, address, std::ios_base::hex | std::ios_base::showbase);
}

Iterator std::num_put<char16>::do_put(Iterator out, std::ios_base& str, char16 fill,
                                      long double v) const {
    return putFloat(out, str, fill, v);
}

Iterator std::num_put<char16>::do_put(Iterator out, std::ios_base& str, char16 fill,
                                      double v) const {
    return putFloat(out, str, fill, v);
}

Iterator std::num_put<char16>::do_put(Iterator out, std::ios_base& str, char16 fill,
                                      unsigned long long v) const {
    return putInteger(out, str, fill, v);
}

Iterator std::num_put<char16>::do_put(Iterator out, std::ios_base& str, char16 fill,
                                      long long v) const {
    return putInteger(out, str, fill, v);
}

Iterator std::num_put<char16>::do_put(Iterator out, std::ios_base& str, char16 fill,
                                      unsigned long v) const {
    return putInteger(out, str, fill, v);
}

Iterator std::num_put<char16>::do_put(Iterator out, std::ios_base& str, char16 fill, long v) const {
    return putInteger(out, str, fill, v);
}

Iterator std::num_put<char16>::do_put(Iterator out, std::ios_base& str, char16 fill, bool v) const {
    if ((str.flags() & std::ios_base::boolalpha) == 0) {
        return putInteger(out, str, fill, long{v});
    }
    const std::locale locale = str.getloc();
    const auto& names = std::use_facet<std::numpunct<char16>>(locale);
    const orv::ustring name = v ? names.truename() : names.falsename();
    return orv::detail::putName(out, str, fill, name);
}
