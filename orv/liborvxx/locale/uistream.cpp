// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `uistream`: the standard operations under its own type, and extractors of text.
#include "orv/liborvxx/locale/uistream.h"

#include "orv/liborvxx/locale/detail/seek_direction.h"
#include "orv/liborvxx/locale/detail/stream_failure.h"
#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <climits>
#include <utility>

namespace orv {

using Base = std::basic_istream<char16>;

// The stream on the classic locale, whatever the global one is.

uistream::uistream(Buffer* buffer) : Base(buffer) {
    imbue(ulocale::classic());
    fill(u' ');
}

uistream::uistream(uistream&& other) : Base(std::move(other)) {}

uistream& uistream::operator=(uistream&& other) {
    Base::operator=(std::move(other));
    return *this;
}

uistream::~uistream() = default;

void uistream::swap(uistream& other) {
    Base::swap(other);
}

std::locale uistream::imbue(const ulocale& loc) {
    return Base::imbue(static_cast<std::locale>(loc));
}

// Formatted input.

uistream& uistream::operator>>(bool& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(short& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(unsigned short& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(int& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(unsigned int& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(long& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(unsigned long& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(long long& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(unsigned long long& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(float& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(double& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(long double& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(void*& value) {
    Base::operator>>(value);
    return *this;
}

uistream& uistream::operator>>(Buffer* sink) {
    Base::operator>>(sink);
    return *this;
}

uistream& uistream::operator>>(Base& (*manipulator)(Base&)) {
    manipulator(*this);
    return *this;
}

uistream& uistream::operator>>(std::basic_ios<char16>& (*manipulator)(std::basic_ios<char16>&)) {
    manipulator(*this);
    return *this;
}

uistream& uistream::operator>>(std::ios_base& (*manipulator)(std::ios_base&)) {
    manipulator(*this);
    return *this;
}

// Unformatted input.

char16_int uistream::get() {
    return Base::get();
}

uistream& uistream::get(char16& unit) {
    Base::get(unit);
    return *this;
}

uistream& uistream::get(char16* text, std::int64_t size) {
    Base::get(text, size);
    return *this;
}

uistream& uistream::get(char16* text, std::int64_t size, char16 delimiter) {
    Base::get(text, size, delimiter);
    return *this;
}

uistream& uistream::get(Buffer& sink) {
    Base::get(sink);
    return *this;
}

uistream& uistream::get(Buffer& sink, char16 delimiter) {
    Base::get(sink, delimiter);
    return *this;
}

uistream& uistream::getline(char16* text, std::int64_t size) {
    Base::getline(text, size);
    return *this;
}

uistream& uistream::getline(char16* text, std::int64_t size, char16 delimiter) {
    Base::getline(text, size, delimiter);
    return *this;
}

uistream& uistream::ignore(std::int64_t count, char16_int delimiter) {
    using Traits = std::char_traits<char16>;
    if (count == 1 && Traits::eq_int_type(delimiter, Traits::eof())) {
        Base::ignore(); // does not wait for the unit behind, as that with a delimiter may
    } else {
        Base::ignore(count, delimiter);
    }
    return *this;
}

uistream& uistream::read(char16* text, std::int64_t size) {
    Base::read(text, size);
    return *this;
}

uistream& uistream::putback(char16 unit) {
    Base::putback(unit);
    return *this;
}

uistream& uistream::unget() {
    Base::unget();
    return *this;
}

uistream& uistream::seekg(pos_type position) {
    Base::seekg(position);
    return *this;
}

uistream& uistream::seekg(std::int64_t offset, int direction) {
    if (const auto known = detail::seekDirection(direction)) {
        Base::seekg(offset, *known);
    } else {
        setstate(failbit);
    }
    return *this;
}

// Text.

namespace {

// Reads a code point from a buffer that has white space behind it.
std::ios_base::iostate readCodePoint(uistream::Buffer& source, char32_t& value) {
    using Traits = std::char_traits<char16>;
    const auto first = source.sbumpc();
    if (Traits::eq_int_type(first, Traits::eof())) {
        return std::ios_base::eofbit | std::ios_base::failbit;
    }
    value = static_cast<char32_t>(first);
    if (!Char16::isHighSurrogate(Traits::to_char_type(first))) {
        return std::ios_base::goodbit;
    }
    const auto second = source.sgetc();
    if (Traits::eq_int_type(second, Traits::eof())) {
        return std::ios_base::eofbit;
    }
    if (Char16::isLowSurrogate(Traits::to_char_type(second))) {
        source.sbumpc();
        value = Char16::toCodePoint(Traits::to_char_type(first), Traits::to_char_type(second));
    }
    return std::ios_base::goodbit;
}

// Reaches the units that a buffer holds ready, which it shows to classes derived from it only.
struct ReadyUnits : uistream::Buffer {
    static ustring_view of(const uistream::Buffer& source) {
        const char16* const begin = (source.*&ReadyUnits::gptr)();
        const auto size = (source.*&ReadyUnits::egptr)() - begin;
        return {begin, static_cast<std::size_t>(std::min<std::ptrdiff_t>(size, INT_MAX))};
    }
    static void skip(uistream::Buffer& source, std::size_t count) {
        (source.*&ReadyUnits::gbump)(static_cast<int>(count));
    }
};

// Appends the rest of a line and takes the delimiter away.
std::ios_base::iostate readLine(uistream::Buffer& source, ustring& text, char16 delimiter) {
    using Traits = std::char_traits<char16>;
    const char16 endMark = Traits::to_char_type(Traits::eof());
    for (bool isEmpty = true;; isEmpty = false) {
        const char16 next = Traits::to_char_type(source.sgetc());
        if (next == endMark) {
            return isEmpty ? std::ios_base::eofbit | std::ios_base::failbit : std::ios_base::eofbit;
        }
        if (next == delimiter) {
            source.sbumpc();
            return std::ios_base::goodbit;
        }
        const ustring_view ready = ReadyUnits::of(source);
        const ustring_view line = ready.substr(0, ready.find(delimiter));
        const std::size_t size = std::min(line.find(endMark), line.size());
        if (size == 0) { // the buffer holds none
            text.push_back(next);
            source.sbumpc();
        } else {
            text.append(line, 0, size);
            ReadyUnits::skip(source, size);
        }
    }
}

// A formatted input function, or an unformatted one, whose work says what state it ends in.
template <typename Read>
void input(Base& is, bool keepsWhiteSpace, Read read) {
    const Base::sentry sentry(is, keepsWhiteSpace);
    if (!sentry) {
        return;
    }
    std::ios_base::iostate state = std::ios_base::goodbit;
    try {
        state = read(*is.rdbuf());
    } catch (...) {
        detail::setBadAndRethrow(is);
        return;
    }
    is.setstate(state);
}

} // namespace

void detail::extract(Base& is, char16_t& value) {
    char16 unit{};
    if (is >> unit) {
        value = static_cast<char16_t>(unit);
    }
}

void detail::extract(Base& is, char32_t& value) {
    input(is, false, [&](uistream::Buffer& source) { return readCodePoint(source, value); });
}

void detail::extractLine(Base& is, ustring& line, char16 delimiter) {
    input(is, true, [&](uistream::Buffer& source) {
        line.clear();
        return readLine(source, line, delimiter);
    });
}

} // namespace orv
