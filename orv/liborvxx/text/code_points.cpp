// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Char16`: radix digits, narrow characters, code points in text.
#include "orv/liborvxx/text/code_points.h"

#include "orv/liborv/unicode/unichar.h"

#include <algorithm>
#include <stdexcept>

namespace orv {

namespace {

bool validRadix(unsigned int radix) noexcept {
    return radix - Char16::MIN_RADIX <= Char16::MAX_RADIX - Char16::MIN_RADIX;
}

constexpr char32_t codePoint(char16 c) noexcept {
    return static_cast<char32_t>(c);
}

} // namespace

int Char16::digit(char32_t c, unsigned int radix) noexcept {
    if (!validRadix(radix)) {
        return -1;
    }
    const auto below = [radix](char32_t value) {
        return value < radix ? static_cast<int>(value) : -1;
    };
    if (c - U'0' < 10) {
        return below(c - U'0');
    }
    if (c - U'A' < 26) {
        return below(c - U'A' + 10);
    }
    if (c - U'a' < 26) {
        return below(c - U'a' + 10);
    }
    if (const int value = orvUniCharDigitValue(c); value >= 0) {
        return below(static_cast<char32_t>(value));
    }
    if (radix > 10) {
        // Full-width 'A' to 'Z' and 'a' to 'z'.
        for (const char32_t start : {U'\xFF21', U'\xFF41'}) {
            if (c - start < radix - 10) {
                return static_cast<int>(c - start + 10);
            }
        }
    }
    return -1;
}

int Char16::digit(char16_t c, unsigned int radix) noexcept {
    return digit(char32_t{c}, radix);
}

int Char16::digit(char16 c, unsigned int radix) noexcept {
    return digit(codePoint(c), radix);
}

char16 Char16::forDigit(unsigned int digit, unsigned int radix) noexcept {
    if (!validRadix(radix) || digit >= radix) {
        return u'\0';
    }
    return char16(digit < 10 ? u'0' + digit : u'a' + (digit - 10));
}

char Char16::narrow(char16 c, char dflt) noexcept {
    if (c < u'\x80') {
        return static_cast<char>(c);
    }
    const int value = orvUniCharDigitValue(codePoint(c));
    return value < 0 ? dflt : static_cast<char>('0' + value);
}

char16 Char16::widen(char c) noexcept {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 ? char16(byte) : char16(u'\xFFFD');
}

namespace {

// The checked access of the standard string words its message as the standard library likes; this
// one words it the same everywhere.
char16 unitAt(const ustring& s, std::size_t index) {
    if (index >= s.size()) {
        throw std::out_of_range("invalid string position");
    }
    return s[index];
}

char16 unitAt(const ustring_ref& s, std::size_t index) {
    return s.at(index);
}

// The index after the code point at `index`, which is below `end`.
template <typename StringT>
std::size_t next(const StringT& s, std::size_t index, std::size_t end) {
    const char16 first = s[index++];
    if (Char16::isHighSurrogate(first) && index != end && Char16::isLowSurrogate(s[index])) {
        ++index;
    }
    return index;
}

// The index of the code point that ends before `index`, which is above 0.
template <typename StringT>
std::size_t previous(const StringT& s, std::size_t index) {
    const char16 last = s[--index];
    if (Char16::isLowSurrogate(last) && index != 0 && Char16::isHighSurrogate(s[index - 1])) {
        --index;
    }
    return index;
}

template <typename StringT>
char32_t codePointIn(const StringT& s, std::size_t index) {
    const char16 first = unitAt(s, index);
    if (Char16::isHighSurrogate(first) && index + 1 != s.size()) {
        if (const char16 second = s[index + 1]; Char16::isLowSurrogate(second)) {
            return Char16::toCodePoint(first, second);
        }
    }
    return codePoint(first);
}

template <typename StringT>
char32_t codePointEndingIn(const StringT& s, std::size_t index) {
    const char16 last = unitAt(s, index - 1);
    if (Char16::isLowSurrogate(last) && index != 1) {
        if (const char16 first = s[index - 2]; Char16::isHighSurrogate(first)) {
            return Char16::toCodePoint(first, last);
        }
    }
    return codePoint(last);
}

template <typename StringT>
std::size_t countCodePoints(const StringT& s, std::size_t index, std::size_t count) {
    if (index > s.size()) {
        throw std::out_of_range("Char16::codePointCount(const StringT &, size_type, size_type)");
    }
    const std::size_t end = index + std::min(count, s.size() - index);
    std::size_t found = 0;
    for (; index != end; ++found) {
        index = next(s, index, end);
    }
    return found;
}

template <typename StringT>
std::size_t offsetIn(const StringT& s, std::size_t index, std::ptrdiff_t codePointOffset) {
    if (index > s.size()) {
        throw std::out_of_range(
            "Char16::offsetByCodePoints(const StringT &, size_type, difference_type)");
    }
    for (; codePointOffset > 0; --codePointOffset) {
        if (index == s.size()) {
            return StringT::npos;
        }
        index = next(s, index, s.size());
    }
    for (; codePointOffset < 0; ++codePointOffset) {
        if (index == 0) {
            return StringT::npos;
        }
        index = previous(s, index);
    }
    return index;
}

} // namespace

template <>
char32_t Char16::codePointAt(const ustring& s, std::size_t index) {
    return codePointIn(s, index);
}

template <>
char32_t Char16::codePointBefore(const ustring& s, std::size_t index) {
    return codePointEndingIn(s, index);
}

template <>
std::size_t Char16::codePointCount(const ustring& s, std::size_t index, std::size_t count) {
    return countCodePoints(s, index, count);
}

template <>
std::size_t Char16::offsetByCodePoints(const ustring& s, std::size_t index,
                                       std::ptrdiff_t codePointOffset) {
    return offsetIn(s, index, codePointOffset);
}

template <>
char32_t Char16::codePointAt(const ustring_ref& s, std::size_t index) {
    return codePointIn(s, index);
}

template <>
char32_t Char16::codePointBefore(const ustring_ref& s, std::size_t index) {
    return codePointEndingIn(s, index);
}

template <>
std::size_t Char16::codePointCount(const ustring_ref& s, std::size_t index, std::size_t count) {
    return countCodePoints(s, index, count);
}

template <>
std::size_t Char16::offsetByCodePoints(const ustring_ref& s, std::size_t index,
                                       std::ptrdiff_t codePointOffset) {
    return offsetIn(s, index, codePointOffset);
}

template <>
std::size_t Char16::toChars(char32_t cp, ustring& s) {
    return toChars(cp, s, s.size());
}

template <>
std::size_t Char16::toChars(char32_t cp, ustring& s, std::size_t index) {
    if (cp <= 0xFFFF) {
        if (index < s.size()) {
            s[index] = char16(cp);
        } else {
            s.push_back(char16(cp));
        }
        return 1;
    }
    // What may allocate comes first, so that a failure leaves no half of a pair behind.
    const char16 pair[] = {highSurrogate(cp), lowSurrogate(cp)};
    if (index >= s.size()) {
        s.append(pair, 2);
    } else if (index + 1 == s.size()) {
        s.push_back(pair[1]);
        s[index] = pair[0];
    } else {
        s[index] = pair[0];
        s[index + 1] = pair[1];
    }
    return 2;
}

} // namespace orv
