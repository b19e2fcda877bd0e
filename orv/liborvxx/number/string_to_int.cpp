// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Integers from text: the shapes of the readers around the scan.
#include "orv/liborvxx/number/string_to_int.h"

#include "orv/liborvxx/number/detail/integer_scanner.h"
#include "orv/liborvxx/number/detail/reading_forms.h"
#include "orv/liborvxx/number/detail/text_source.h"
#include "orv/liborvxx/number/from_chars.h"

#include <stdexcept>
#include <string>

namespace orv {

namespace {

using detail::NulTerminatedSource;
using detail::RangeSource;

std::string digitExpected(int radix) {
    switch (radix) {
    case 8:
        return "octal number expected";
    case 0: // which no prefix has changed
    case 10:
        return "decimal number expected";
    case 16:
        return "hexadecimal number expected";
    default:
        break;
    }
    const auto highest =
        static_cast<unsigned char>(radix <= 10 ? '0' - 1U + static_cast<unsigned>(radix)
                                               : 'A' - 11U + static_cast<unsigned>(radix));
    return std::string("digit ([0..") + static_cast<char>(highest) + "]) expected";
}

[[noreturn]] void throwFailure(number_status status, int radix) {
    if (status == number_status::out_of_range) {
        throw std::out_of_range("number out of range");
    }
    throw std::invalid_argument(digitExpected(radix));
}

template <class T, class CharT>
T readView(basic_string_ref<CharT> text, std::size_t* index, int radix) {
    const auto read = detail::readInteger<T>(RangeSource<CharT>(text), radix);
    if (read.status != number_status::ok) {
        throwFailure(read.status, radix);
    }
    if (index != nullptr) {
        *index = read.length;
    }
    return read.value;
}

template <class T, class CharT>
T readCursor(BasicCharIterator<CharT>& it, int radix) {
    return detail::readAtCursor(it, [radix](basic_string_ref<CharT> text, std::size_t* length) {
        return readView<T>(text, length, radix);
    });
}

template <class T, class CharT>
T readPointer(const CharT* text, CharT** end, int radix) noexcept {
    const auto read = detail::readInteger<T>(NulTerminatedSource<CharT>(text), radix);
    return detail::inShapeOfC(read, text, end);
}

} // namespace

namespace detail {

from_chars_result<std::int32_t> readInt32(string_ref text, int radix) noexcept {
    return readInteger<std::int32_t>(RangeSource<char>(text), radix);
}

from_chars_result<std::int32_t> readInt32(ustring_ref text, int radix) noexcept {
    return readInteger<std::int32_t>(RangeSource<char16>(text), radix);
}

from_chars_result<std::int64_t> readInt64(string_ref text, int radix) noexcept {
    return readInteger<std::int64_t>(RangeSource<char>(text), radix);
}

from_chars_result<std::int64_t> readInt64(ustring_ref text, int radix) noexcept {
    return readInteger<std::int64_t>(RangeSource<char16>(text), radix);
}

from_chars_result<std::uint32_t> readUint32(string_ref text, int radix) noexcept {
    return readInteger<std::uint32_t>(RangeSource<char>(text), radix);
}

from_chars_result<std::uint32_t> readUint32(ustring_ref text, int radix) noexcept {
    return readInteger<std::uint32_t>(RangeSource<char16>(text), radix);
}

from_chars_result<std::uint64_t> readUint64(string_ref text, int radix) noexcept {
    return readInteger<std::uint64_t>(RangeSource<char>(text), radix);
}

from_chars_result<std::uint64_t> readUint64(ustring_ref text, int radix) noexcept {
    return readInteger<std::uint64_t>(RangeSource<char16>(text), radix);
}

} // namespace detail

std::int32_t stoi_c(string_ref text, std::size_t* index, int radix) {
    return readView<std::int32_t>(text, index, radix);
}

std::int32_t stoi_c(ustring_ref text, std::size_t* index, int radix) {
    return readView<std::int32_t>(text, index, radix);
}

std::int32_t stol_c(string_ref text, std::size_t* index, int radix) {
    return readView<std::int32_t>(text, index, radix);
}

std::int32_t stol_c(ustring_ref text, std::size_t* index, int radix) {
    return readView<std::int32_t>(text, index, radix);
}

std::int64_t stoll_c(string_ref text, std::size_t* index, int radix) {
    return readView<std::int64_t>(text, index, radix);
}

std::int64_t stoll_c(ustring_ref text, std::size_t* index, int radix) {
    return readView<std::int64_t>(text, index, radix);
}

std::uint32_t stoui_c(string_ref text, std::size_t* index, int radix) {
    return readView<std::uint32_t>(text, index, radix);
}

std::uint32_t stoui_c(ustring_ref text, std::size_t* index, int radix) {
    return readView<std::uint32_t>(text, index, radix);
}

std::uint32_t stoul_c(string_ref text, std::size_t* index, int radix) {
    return readView<std::uint32_t>(text, index, radix);
}

std::uint32_t stoul_c(ustring_ref text, std::size_t* index, int radix) {
    return readView<std::uint32_t>(text, index, radix);
}

std::uint64_t stoull_c(string_ref text, std::size_t* index, int radix) {
    return readView<std::uint64_t>(text, index, radix);
}

std::uint64_t stoull_c(ustring_ref text, std::size_t* index, int radix) {
    return readView<std::uint64_t>(text, index, radix);
}

std::int32_t stoi_c(BasicCharIterator<char>& it, int radix) {
    return readCursor<std::int32_t>(it, radix);
}

std::int32_t stoi_c(BasicCharIterator<char16>& it, int radix) {
    return readCursor<std::int32_t>(it, radix);
}

std::int32_t stol_c(BasicCharIterator<char>& it, int radix) {
    return readCursor<std::int32_t>(it, radix);
}

std::int32_t stol_c(BasicCharIterator<char16>& it, int radix) {
    return readCursor<std::int32_t>(it, radix);
}

std::int64_t stoll_c(BasicCharIterator<char>& it, int radix) {
    return readCursor<std::int64_t>(it, radix);
}

std::int64_t stoll_c(BasicCharIterator<char16>& it, int radix) {
    return readCursor<std::int64_t>(it, radix);
}

std::uint32_t stoui_c(BasicCharIterator<char>& it, int radix) {
    return readCursor<std::uint32_t>(it, radix);
}

std::uint32_t stoui_c(BasicCharIterator<char16>& it, int radix) {
    return readCursor<std::uint32_t>(it, radix);
}

std::uint32_t stoul_c(BasicCharIterator<char>& it, int radix) {
    return readCursor<std::uint32_t>(it, radix);
}

std::uint32_t stoul_c(BasicCharIterator<char16>& it, int radix) {
    return readCursor<std::uint32_t>(it, radix);
}

std::uint64_t stoull_c(BasicCharIterator<char>& it, int radix) {
    return readCursor<std::uint64_t>(it, radix);
}

std::uint64_t stoull_c(BasicCharIterator<char16>& it, int radix) {
    return readCursor<std::uint64_t>(it, radix);
}

std::int32_t strtoi_c(const char* text, char** end, int radix) noexcept {
    return readPointer<std::int32_t>(text, end, radix);
}

std::int32_t strtoi_c(const char16* text, char16** end, int radix) noexcept {
    return readPointer<std::int32_t>(text, end, radix);
}

std::int32_t strtol_c(const char* text, char** end, int radix) noexcept {
    return readPointer<std::int32_t>(text, end, radix);
}

std::int32_t strtol_c(const char16* text, char16** end, int radix) noexcept {
    return readPointer<std::int32_t>(text, end, radix);
}

std::int64_t strtoll_c(const char* text, char** end, int radix) noexcept {
    return readPointer<std::int64_t>(text, end, radix);
}

std::int64_t strtoll_c(const char16* text, char16** end, int radix) noexcept {
    return readPointer<std::int64_t>(text, end, radix);
}

std::uint32_t strtoui_c(const char* text, char** end, int radix) noexcept {
    return readPointer<std::uint32_t>(text, end, radix);
}

std::uint32_t strtoui_c(const char16* text, char16** end, int radix) noexcept {
    return readPointer<std::uint32_t>(text, end, radix);
}

std::uint32_t strtoul_c(const char* text, char** end, int radix) noexcept {
    return readPointer<std::uint32_t>(text, end, radix);
}

std::uint32_t strtoul_c(const char16* text, char16** end, int radix) noexcept {
    return readPointer<std::uint32_t>(text, end, radix);
}

std::uint64_t strtoull_c(const char* text, char** end, int radix) noexcept {
    return readPointer<std::uint64_t>(text, end, radix);
}

std::uint64_t strtoull_c(const char16* text, char16** end, int radix) noexcept {
    return readPointer<std::uint64_t>(text, end, radix);
}

} // namespace orv
