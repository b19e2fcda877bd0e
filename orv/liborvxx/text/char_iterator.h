// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `BasicCharIterator`, the cursor with which parsers walk a text.
#ifndef ORV_LIBORVXX_TEXT_CHAR_ITERATOR_H
#define ORV_LIBORVXX_TEXT_CHAR_ITERATOR_H

#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cassert>
#include <concepts>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace orv {

/// A place in a text, with the unit at that place always at hand. Made for `char` and `char16`.
///
/// Behind the last unit stands an end mark that no grammar accepts, so a parser that looks at
/// `current()` and steps needs no test for the end. A text may hold the value of the end mark
/// itself; `atEnd()` tells the two apart.
///
/// A plain value of two pointers' size and a little: copy it to remember a place, or keep
/// `position()`. It does not keep the text alive.
///
/// \par Example
/// \code
/// orv::BasicCharIterator<char> it("key=value");
/// while (!it.atEnd() && it.current() != '=') {
///     it.step();
/// }
/// orv::string_ref key = it.text().substr(0, it.position());
/// \endcode
template <typename CharT>
requires std::same_as<CharT, char> || std::same_as<CharT, char16>
class BasicCharIterator {
public:
    /// What `current()` gives at the end: 0 for `char`, 0xFFFF for `char16`.
    static constexpr CharT END_MARK = std::same_as<CharT, char> ? CharT() : CharT(u'\xFFFF');

    /// A cursor at the start of \p text, which must outlive it.
    explicit constexpr BasicCharIterator(basic_string_ref<CharT> text) noexcept
        : text_(text), current_(unitAt(0)) {}

    /// A string that dies at the end of the statement is no text to walk.
    template <typename String>
    requires std::same_as<String, std::basic_string<CharT>>
    explicit BasicCharIterator(const String&& text) = delete;

    /// The unit at the position, or the end mark at the end.
    constexpr CharT current() const noexcept { return current_; }

    /// Whether the position is the end of the text.
    constexpr bool atEnd() const noexcept { return position_ == text_.size(); }

    /// Goes to the next unit, or to the end behind the last one. At the end it stays there.
    constexpr void step() noexcept {
        const std::size_t next = position_ + 1;
        if (next < text_.size()) {
            position_ = next;
            current_ = text_[next];
        } else {
            position_ = text_.size();
            current_ = END_MARK;
        }
    }

    /// Goes \p n units further, at most to the end (unchecked): for loops that have looked at those
    /// units themselves.
    constexpr void advance(std::size_t n) noexcept {
        assert(n <= text_.size() - position_);
        position_ += n;
        current_ = unitAt(position_);
    }

    /// The index of the current unit, from 0 up to and including the length of the text.
    constexpr std::size_t position() const noexcept { return position_; }

    /// Goes to \p position and returns the unit there, or the end mark.
    /// \exception std::out_of_range "BasicCharIterator<CharT>::position" if \p position exceeds the
    /// length of the text; the cursor stays where it was.
    constexpr CharT setPosition(std::size_t position) {
        if (position > text_.size()) {
            throwOutOfRange();
        }
        position_ = position;
        current_ = unitAt(position);
        return current_;
    }

    /// The whole text, and not only what lies ahead.
    constexpr basic_string_ref<CharT> text() const noexcept { return text_; }

private:
    constexpr CharT unitAt(std::size_t position) const noexcept {
        return position < text_.size() ? text_[position] : END_MARK;
    }

    [[noreturn]] static void throwOutOfRange() {
        throw std::out_of_range("BasicCharIterator<CharT>::position");
    }

    basic_string_ref<CharT> text_;
    std::size_t position_ = 0;
    CharT current_; // the unit at position_, or END_MARK at the end
};

} // namespace orv

#endif
