// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the readers of numbers read: text in `char` or `char16`, with an end or with a NUL
/// behind it.
///
/// A source shows its current unit as the ASCII character that the unit stands for, and 0 at the
/// end: so the readers need no test for the end, and an embedded NUL ends the number too.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_TEXT_SOURCE_H
#define ORV_LIBORVXX_NUMBER_DETAIL_TEXT_SOURCE_H

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cassert>
#include <cstddef>

namespace orv::detail {

/// A byte stands for itself.
constexpr char asciiOf(char unit) noexcept {
    return unit;
}

/// A unit beyond ASCII stands for a digit if it is a decimal digit of any script, else for '?'.
inline char asciiOf(char16 unit) noexcept {
    const auto value = static_cast<char16_t>(unit);
    if (value < 0x80) {
        return static_cast<char>(value);
    }
    const int digit = orvUniCharDigitValue(value);
    return digit >= 0 ? static_cast<char>('0' + digit) : '?';
}

/// White space of ASCII: the blank, and U+0009 to U+000D.
constexpr bool isAsciiSpace(char unit) noexcept {
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}

/// The text of a view.
template <class CharT>
class RangeSource {
public:
    using char_type = CharT;

    explicit RangeSource(basic_string_ref<CharT> text) noexcept
        : position_(text.data()), end_(text.data() + text.size()) {}

    /// The current unit as it is; 0 at the end.
    CharT unit() const noexcept { return position_ != end_ ? *position_ : CharT(); }
    /// What the current unit stands for; 0 at the end.
    char ascii() const noexcept { return position_ != end_ ? asciiOf(*position_) : '\0'; }
    /// Steps to the next unit. Not at the end.
    void step() noexcept {
        assert(position_ != end_);
        ++position_;
    }

    /// The current place, and a jump back to it.
    const CharT* position() const noexcept { return position_; }
    void setPosition(const CharT* position) noexcept { position_ = position; }

    /// Units known to lie before the end.
    std::size_t known() const noexcept { return static_cast<std::size_t>(end_ - position_); }

private:
    const CharT* position_;
    const CharT* end_;
};

/// The text before the first NUL. Never looks beyond it.
template <class CharT>
class NulTerminatedSource {
public:
    using char_type = CharT;

    explicit NulTerminatedSource(const CharT* text) noexcept : position_(text) {}

    CharT unit() const noexcept { return *position_; }
    char ascii() const noexcept { return asciiOf(*position_); }
    void step() noexcept {
        assert(*position_ != CharT());
        ++position_;
    }

    const CharT* position() const noexcept { return position_; }
    void setPosition(const CharT* position) noexcept { position_ = position; }

    /// Only what was read is known.
    static constexpr std::size_t known() noexcept { return 0; }

private:
    const CharT* position_;
};

} // namespace orv::detail

#endif
