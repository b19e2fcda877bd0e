// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `uostream`: the standard operations under its own type, and inserters of text.
#include "orv/liborvxx/locale/uostream.h"

#include "orv/liborvxx/locale/detail/number_punctuation.h"
#include "orv/liborvxx/locale/detail/seek_direction.h"
#include "orv/liborvxx/locale/detail/stream_failure.h"
#include "orv/liborvxx/locale/uiostream.h"
#include "orv/liborvxx/number/words/decimal_digits.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

namespace orv {

using Base = std::basic_ostream<char16>;

// The stream on the classic locale, whatever the global one is.

uostream::uostream(Buffer* buffer) : Base(buffer) {
    imbue(ulocale::classic());
    fill(u' ');
}

// Asks the half that is complete: a base of the whole cannot be reached through one that is not.
uostream::uostream(uiostream& whole) : uostream(static_cast<uistream&>(whole).rdbuf()) {}

uostream::uostream(uostream&& other) : Base(std::move(other)) {}

uostream& uostream::operator=(uostream&& other) {
    Base::operator=(std::move(other));
    return *this;
}

uostream::~uostream() = default;

void uostream::swap(uostream& other) {
    Base::swap(other);
}

std::locale uostream::imbue(const ulocale& loc) {
    return Base::imbue(static_cast<std::locale>(loc));
}

// Formatted output.

namespace {

// Whether integers are their digits and "-", which the library's own facet is to write.
bool isPlain(const Base& os) {
    constexpr auto FLAGS = std::ios_base::basefield | std::ios_base::showpos;
    return (os.flags() & FLAGS) == std::ios_base::dec && os.width() == 0 &&
           detail::isOnClassicLocale(os);
}

void putPlain(Base& os, std::uint64_t magnitude, bool isNegative) {
    const Base::sentry sentry(os);
    if (!sentry) {
        return;
    }
    char16 text[21] = {u'-'};
    const unsigned start = isNegative ? 1 : 0;
    const unsigned size = start + words::countDigits(magnitude);
    words::writeDigits(text + start, size - start, magnitude);
    std::streamsize written = 0;
    try {
        written = os.rdbuf()->sputn(text, size);
    } catch (...) {
        detail::setBadAndRethrow(os);
        return;
    }
    if (written != size) {
        os.setstate(std::ios_base::badbit);
    }
}

// Twice as fast as through the facet, whose iterator takes unit by unit.
template <typename Integer>
void putInteger(Base& os, Integer value) {
    if (!isPlain(os)) {
        os << value;
        return;
    }
    const auto bits = static_cast<std::uint64_t>(value);
    const bool isNegative = std::is_signed_v<Integer> && value < 0;
    putPlain(os, isNegative ? -bits : bits, isNegative);
}

} // namespace

uostream& uostream::operator<<(bool value) {
    Base::operator<<(value);
    return *this;
}

uostream& uostream::operator<<(short value) {
    putInteger(*this, value);
    return *this;
}

uostream& uostream::operator<<(unsigned short value) {
    putInteger(*this, value);
    return *this;
}

uostream& uostream::operator<<(int value) {
    putInteger(*this, value);
    return *this;
}

uostream& uostream::operator<<(unsigned int value) {
    putInteger(*this, value);
    return *this;
}

uostream& uostream::operator<<(long value) {
    putInteger(*this, value);
    return *this;
}

uostream& uostream::operator<<(unsigned long value) {
    putInteger(*this, value);
    return *this;
}

uostream& uostream::operator<<(long long value) {
    putInteger(*this, value);
    return *this;
}

uostream& uostream::operator<<(unsigned long long value) {
    putInteger(*this, value);
    return *this;
}

uostream& uostream::operator<<(float value) {
    Base::operator<<(value);
    return *this;
}

uostream& uostream::operator<<(double value) {
    Base::operator<<(value);
    return *this;
}

uostream& uostream::operator<<(long double value) {
    Base::operator<<(value);
    return *this;
}

uostream& uostream::operator<<(const void* value) {
    Base::operator<<(value);
    return *this;
}

uostream& uostream::operator<<(std::nullptr_t) {
    detail::insert(*this, "nullptr");
    return *this;
}

uostream& uostream::operator<<(Buffer* source) {
    Base::operator<<(source);
    return *this;
}

uostream& uostream::operator<<(Base& (*manipulator)(Base&)) {
    manipulator(*this);
    return *this;
}

uostream& uostream::operator<<(std::basic_ios<char16>& (*manipulator)(std::basic_ios<char16>&)) {
    manipulator(*this);
    return *this;
}

uostream& uostream::operator<<(std::ios_base& (*manipulator)(std::ios_base&)) {
    manipulator(*this);
    return *this;
}

// Unformatted output.

uostream& uostream::put(char16 unit) {
    Base::put(unit);
    return *this;
}

uostream& uostream::write(const char16* text, std::int64_t size) {
    Base::write(text, size);
    return *this;
}

uostream& uostream::flush() {
    Base::flush();
    return *this;
}

uostream& uostream::seekp(pos_type position) {
    Base::seekp(position);
    return *this;
}

uostream& uostream::seekp(std::int64_t offset, int direction) {
    if (const auto known = detail::seekDirection(direction)) {
        Base::seekp(offset, *known);
    } else {
        setstate(failbit);
    }
    return *this;
}

// Text.

uostream& operator<<(uostream& os, ustring_ref text) {
    static_cast<Base&>(os) << text;
    os.width(0); // also of a stream that was not good
    return os;
}

void detail::insert(Base& os, char16 unit) {
    if (os.width() == 0) {
        os.put(unit);
        return;
    }
    os << ustring_ref(&unit, 1);
}

void detail::insert(Base& os, char32_t codePoint) {
    if (codePoint > 0x10FFFF || (0xD800 <= codePoint && codePoint <= 0xDFFF)) {
        codePoint = U'\uFFFD';
    }
    if (codePoint <= 0xFFFF) {
        insert(os, char16(codePoint));
        return;
    }
    const char16 pair[] = {Char16::highSurrogate(codePoint), Char16::lowSurrogate(codePoint)};
    os << ustring_ref(pair, 2);
}

void detail::insert(Base& os, const char16* text) {
    if (text == nullptr) {
        os.setstate(std::ios_base::badbit);
        return;
    }
    os << ustring_ref(text);
}

void detail::insert(Base& os, char byte) {
    insert(os, std::string_view(&byte, 1));
}

void detail::insert(Base& os, const char* text) {
    if (text == nullptr) {
        os.setstate(std::ios_base::badbit);
        return;
    }
    insert(os, std::string_view(text));
}

void detail::insert(Base& os, std::string_view text) {
    std::array<char16, 64> space;
    ustring more;
    char16* units = space.data();
    try {
        if (text.size() > space.size()) {
            more.resize(text.size());
            units = more.data();
        }
        for (std::size_t i = 0; i < text.size(); ++i) {
            units[i] = os.widen(text[i]);
        }
    } catch (...) {
        setBadAndRethrow(os);
        return;
    }
    os << ustring_ref(units, text.size());
}

} // namespace orv
