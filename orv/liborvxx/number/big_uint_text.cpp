// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: decimal text.
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/words/scratch.h"
#include "orv/liborvxx/number/words/text.h"

#include <algorithm>

namespace orv {

namespace {

// Words of scratch on the stack.
constexpr unsigned INLINE_SCRATCH = 128;

template <class String>
String toText(const big_uint& number) {
    using Unit = typename String::value_type;
    constexpr Unit ZERO(u'0');
    const unsigned bits = number.bit_length();
    if (bits == 0) {
        return String(1, ZERO);
    }
    String text(words::maxDecimalDigits(bits), ZERO);
    const unsigned n = (bits + 31) / 32;
    const unsigned even = n + n % 2;
    words::Scratch<INLINE_SCRATCH> scratch(even);
    std::fill(std::copy_n(number.data(), n, scratch.data()), scratch.data() + even, 0U);
    words::writeDecimal(text.data(), text.size(), scratch.data(), even);
    if (text[0] == ZERO) {
        text.erase(0, 1);
    }
    return text;
}

} // namespace

std::string big_uint::to_string() const {
    return toText<std::string>(*this);
}

ustring big_uint::to_ustring() const {
    return toText<ustring>(*this);
}

} // namespace orv
