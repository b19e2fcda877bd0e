// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `StringBuilder`.
#include "orv/liborvxx/text/string_builder.h"

#include "orv/liborvxx/number/to_chars.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/detail/range_message.h"
#include "orv/liborvxx/text/literals.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace orv {

using namespace literals;

namespace {

// The text of a number, or of a truth value, where it stands.
class Text {
public:
    template <typename Number>
    explicit Text(Number value) noexcept {
        const auto [end, fits] = to_chars_c(units_, units_ + MAX_DOUBLE_LENGTH, value);
        assert(fits);
        size_ = static_cast<std::size_t>(end - units_);
    }

    operator ustring_ref() const noexcept { return {units_, size_}; }

private:
    static_assert(MAX_INTEGER_LENGTH <= MAX_DOUBLE_LENGTH && MAX_FLOAT_LENGTH <= MAX_DOUBLE_LENGTH);

    char16 units_[MAX_DOUBLE_LENGTH];
    std::size_t size_;
};

ustring_ref textOf(bool value) noexcept {
    return value ? u"true"_u : u"false"_u;
}

} // namespace

// Construction.

StringBuilder::StringBuilder() noexcept = default;

StringBuilder::StringBuilder(std::size_t capacity) {
    text_.reserve(capacity);
}

StringBuilder::StringBuilder(ustring s) noexcept : text_(std::move(s)) {}

StringBuilder::StringBuilder(ustring_ref s) : text_(s.data(), s.size()) {}

StringBuilder::~StringBuilder() = default;

// Reading.

std::size_t StringBuilder::length() const {
    return text_.size();
}

char16 StringBuilder::charAt(std::size_t index) const {
    if (index >= text_.size()) {
        detail::throwInvalidPosition();
    }
    return text_[index];
}

char16 StringBuilder::operator[](std::size_t index) const noexcept {
    assert(index < text_.size());
    return text_[index];
}

ustring StringBuilder::toString() const {
    return text_;
}

ustring StringBuilder::release() noexcept {
    return std::exchange(text_, ustring());
}

std::unique_ptr<CharSequence> StringBuilder::subSequence(std::size_t start, std::size_t end) const {
    if (start > end) {
        detail::throwOutOfRange("%s: start (%d) > end (%d)", "subSequence", start, end);
    }
    if (end > text_.size()) {
        detail::throwOutOfRange("%s: end (%d) > this->length() (%d)", "subSequence", end,
                                text_.size());
    }
    return std::make_unique<StringCharSequence>(ustring_ref(text_.data() + start, end - start));
}

char32_t StringBuilder::codePointAt(std::size_t index) const {
    return Char16::codePointAt(text_, index);
}

char32_t StringBuilder::codePointBefore(std::size_t index) const {
    return Char16::codePointBefore(text_, index);
}

std::size_t StringBuilder::codePointCount(std::size_t begin, std::size_t end) const {
    if (begin > end) {
        detail::throwOutOfRange("%s: beginIndex (%d) > endIndex (%d)", "codePointCount", begin,
                                end);
    }
    if (end > text_.size()) {
        detail::throwOutOfRange("%s: endIndex (%d) >= this->length() (%d)", "codePointCount", end,
                                text_.size());
    }
    return Char16::codePointCount(text_, begin, end - begin);
}

std::size_t StringBuilder::offsetByCodePoints(std::size_t index, std::ptrdiff_t n) const {
    return Char16::offsetByCodePoints(text_, index, n);
}

std::size_t StringBuilder::indexOf(ustring_ref str, std::size_t from) const noexcept {
    return ustring_ref(text_).find(str, from);
}

std::size_t StringBuilder::lastIndexOf(ustring_ref str, std::size_t from) const noexcept {
    return ustring_ref(text_).rfind(str, from);
}

// Appending.

StringBuilder& StringBuilder::append(char16 c) {
    text_.push_back(c);
    return *this;
}

StringBuilder& StringBuilder::append(ustring_ref str) {
    checkRoom(str.size());
    text_.append(str.data(), str.size());
    return *this;
}

StringBuilder& StringBuilder::append(ustring_ref str, std::size_t start, std::size_t end) {
    if (start > end) {
        detail::throwOutOfRange("%s: start (%d) > end (%d)", "append", start, end);
    }
    if (end > str.size()) {
        detail::throwOutOfRange("%s: end (%d) > str.length() (%d)", "append", end, str.size());
    }
    return append(ustring_ref(str.data() + start, end - start));
}

StringBuilder& StringBuilder::append(CharSequence* csq) {
    return csq == nullptr ? append(u"null"_u) : appendImpl(*csq, 0, csq->length());
}

StringBuilder& StringBuilder::append(CharSequence* csq, std::size_t start, std::size_t end) {
    if (csq == nullptr) {
        return append(u"null"_u, start, end);
    }
    if (start > end) {
        detail::throwOutOfRange("%s: start (%d) > end (%d)", "append", start, end);
    }
    if (const std::size_t length = csq->length(); end > length) {
        detail::throwOutOfRange("%s: end (%d) > csq->length() (%d)", "append", end, length);
    }
    return appendImpl(*csq, start, end);
}

// The sequence may be this builder: its units from `start` to `end` stay as they are.
StringBuilder& StringBuilder::appendImpl(CharSequence& csq, std::size_t start, std::size_t end) {
    checkRoom(end - start);
    const std::size_t before = text_.size();
    text_.reserve(before + (end - start));
    try {
        for (std::size_t i = start; i < end; ++i) {
            text_.push_back(csq.charAt(i));
        }
    } catch (...) {
        text_.resize(before);
        throw;
    }
    return *this;
}

StringBuilder& StringBuilder::appendBool(bool value) {
    return append(textOf(value));
}

StringBuilder& StringBuilder::append(int value) {
    return append(Text(value));
}

StringBuilder& StringBuilder::append(unsigned int value) {
    return append(Text(value));
}

StringBuilder& StringBuilder::append(long value) {
    return append(Text(value));
}

StringBuilder& StringBuilder::append(unsigned long value) {
    return append(Text(value));
}

StringBuilder& StringBuilder::append(long long value) {
    return append(Text(value));
}

StringBuilder& StringBuilder::append(unsigned long long value) {
    return append(Text(value));
}

StringBuilder& StringBuilder::append(float value) {
    return append(Text(value));
}

StringBuilder& StringBuilder::append(double value) {
    return append(Text(value));
}

StringBuilder& StringBuilder::appendCodePoint(char32_t cp) {
    Char16::toChars(cp, text_);
    return *this;
}

// Inserting.

StringBuilder& StringBuilder::insert(std::size_t pos, char16 c) {
    checkPosition(pos);
    text_.insert(pos, 1, c);
    return *this;
}

StringBuilder& StringBuilder::insert(std::size_t pos, ustring_ref str) {
    checkPosition(pos);
    text_.insert(pos, str.data(), str.size());
    return *this;
}

StringBuilder& StringBuilder::insertBool(std::size_t pos, bool value) {
    return insert(pos, textOf(value));
}

StringBuilder& StringBuilder::insert(std::size_t pos, int value) {
    return insert(pos, Text(value));
}

StringBuilder& StringBuilder::insert(std::size_t pos, unsigned int value) {
    return insert(pos, Text(value));
}

StringBuilder& StringBuilder::insert(std::size_t pos, long value) {
    return insert(pos, Text(value));
}

StringBuilder& StringBuilder::insert(std::size_t pos, unsigned long value) {
    return insert(pos, Text(value));
}

StringBuilder& StringBuilder::insert(std::size_t pos, long long value) {
    return insert(pos, Text(value));
}

StringBuilder& StringBuilder::insert(std::size_t pos, unsigned long long value) {
    return insert(pos, Text(value));
}

StringBuilder& StringBuilder::insert(std::size_t pos, float value) {
    return insert(pos, Text(value));
}

StringBuilder& StringBuilder::insert(std::size_t pos, double value) {
    return insert(pos, Text(value));
}

// Changing.

StringBuilder& StringBuilder::replace(std::size_t start, std::size_t end, ustring_ref str) {
    if (start > end) {
        detail::throwOutOfRange("%s: start (%d) > end (%d)", "replace", start, end);
    }
    checkPosition(start);
    text_.replace(start, end - start, str.data(), str.size());
    return *this;
}

StringBuilder& StringBuilder::deleteChars(std::size_t start, std::size_t end) {
    if (start > end) {
        detail::throwOutOfRange("%s: start (%d) > end (%d)", "deleteChars", start, end);
    }
    checkPosition(start);
    text_.erase(start, end - start);
    return *this;
}

StringBuilder& StringBuilder::deleteCharAt(std::size_t index) {
    if (index >= text_.size()) {
        detail::throwOutOfRange("%s: index (%d) >= this->length() (%d)", "deleteCharAt", index,
                                text_.size());
    }
    text_.erase(index, 1);
    return *this;
}

StringBuilder& StringBuilder::reverse() noexcept {
    std::reverse(text_.begin(), text_.end());
    for (std::size_t i = 1; i < text_.size(); ++i) {
        if (Char16::isLowSurrogate(text_[i - 1]) && Char16::isHighSurrogate(text_[i])) {
            std::swap(text_[i - 1], text_[i]);
            ++i; // both units of the pair are in place
        }
    }
    return *this;
}

void StringBuilder::setCharAt(std::size_t index, char16 c) {
    if (index >= text_.size()) {
        detail::throwInvalidPosition();
    }
    text_[index] = c;
}

void StringBuilder::setLength(std::size_t n) {
    text_.resize(n, u'\0');
}

void StringBuilder::ensureCapacity(std::size_t n) {
    text_.reserve(n);
}

void StringBuilder::checkRoom(std::size_t count) const {
    if (const std::size_t room = text_.max_size() - text_.size(); count > room) {
        detail::throwLengthError("%s: (end - start) (%d) > (<max_size> - this->length()) (%d)",
                                 "appendImpl", count, room);
    }
}

void StringBuilder::checkPosition(std::size_t pos) const {
    if (pos > text_.size()) {
        detail::throwInvalidPosition();
    }
}

} // namespace orv
