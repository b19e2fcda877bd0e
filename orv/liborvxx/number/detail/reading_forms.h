// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the shapes of the readers of numbers have in common: messages, a cursor that moves,
/// and the shape of the C library's functions.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_READING_FORMS_H
#define ORV_LIBORVXX_NUMBER_DETAIL_READING_FORMS_H

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_status.h"
#include "orv/liborvxx/text/char_iterator.h"

#include <cerrno>
#include <cstddef>
#include <stdexcept>

namespace orv::detail {

/// Throws what a text that holds no number deserves.
/// \exception std::invalid_argument always
[[noreturn]] inline void throwNoNumber(number_status status) {
    switch (status) {
    case number_status::infinity_expected:
        throw std::invalid_argument("'infinity' expected");
    case number_status::nan_expected:
        throw std::invalid_argument("'nan' expected");
    default:
        throw std::invalid_argument("decimal digit expected");
    }
}

/// Reads from the cursor's position by \p read, of a view and of a pointer for the length read,
/// and moves the cursor behind the number. A failure that \p read throws leaves the cursor where
/// it was.
template <class CharT, class Read>
auto readAtCursor(BasicCharIterator<CharT>& it, const Read& read) {
    const std::size_t start = it.position();
    std::size_t length = 0;
    const auto value = read(it.text().substr(start), &length);
    it.setPosition(start + length);
    return value;
}

/// Hands out what was read from \p text in the shape of `strtod`: \p end, where not null, gets the
/// place behind the number, or the start if there is none; a number that does not fit sets `errno`
/// to `ERANGE`.
template <class T, class CharT>
T inShapeOfC(const from_chars_result<T>& read, const CharT* text, CharT** end) noexcept {
    if (end != nullptr) {
        *end = const_cast<CharT*>(text + read.length); // as the C library does it
    }
    if (read.status == number_status::out_of_range) {
        errno = ERANGE;
    }
    return read.value;
}

} // namespace orv::detail

#endif
