// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers and text: all readers agree on any text, and what is written of the number reads
/// back as the same number.
///
/// Input: a byte for the radix of integers (0 to 39 are themselves, others are 10); 0 or 1, the
/// latter for units of two bytes each, the high byte first; the text.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "orv/liborvxx/number/string_to_int.h"
#include "orv/liborvxx/number/to_chars.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <concepts>
#include <stdexcept>
#include <string>

namespace {

using orv::char16;
using orv::number_status;

template <class T>
bool sameNumber(T a, T b) {
    if constexpr (std::floating_point<T>) {
        return std::bit_cast<std::uint64_t>(double{a}) == std::bit_cast<std::uint64_t>(double{b});
    } else {
        return a == b;
    }
}

// The shape with a cursor throws what the status says, and stays or moves by the length.
template <class CharT, class T, class OfCursor>
void checkCursor(orv::basic_string_ref<CharT> text, const orv::from_chars_result<T>& read,
                 const OfCursor& ofCursor) {
    orv::BasicCharIterator<CharT> it{text};
    number_status status = number_status::ok;
    try {
        FUZZ_CHECK(sameNumber<T>(ofCursor(it), read.value));
    } catch (const std::out_of_range&) {
        status = number_status::out_of_range;
    } catch (const std::invalid_argument&) {
        status = number_status::digit_expected;
    }
    const bool isText = read.status == number_status::infinity_expected ||
                        read.status == number_status::nan_expected;
    FUZZ_CHECK(status == (isText ? number_status::digit_expected : read.status));
    FUZZ_CHECK(it.position() == (read ? read.length : 0));
}

// The shape of the C library sees the text up to its first NUL, where every number ends.
template <class CharT, class T, class InC>
void checkC(const std::basic_string<CharT>& text, const orv::from_chars_result<T>& read,
            const InC& inC) {
    CharT* end = nullptr;
    errno = 0;
    FUZZ_CHECK(sameNumber<T>(inC(text.c_str(), &end), read.value));
    FUZZ_CHECK(static_cast<std::size_t>(end - text.c_str()) == read.length);
    FUZZ_CHECK(errno == (read.status == number_status::out_of_range ? ERANGE : 0));
}

template <class CharT, class T>
void checkWritten(T value, int radix) {
    CharT text[70];
    const auto written = orv::to_chars_c(text, text + 70, value, radix);
    FUZZ_CHECK(written.fits);
    const auto size = static_cast<std::size_t>(written.end - text);
    const auto back = orv::from_chars_c<T>(orv::basic_string_ref<CharT>(text, size), radix);
    FUZZ_CHECK(back && back.value == value && back.length == size);
}

template <class T, class CharT, class OfCursor, class InC>
void checkInteger(const std::basic_string<CharT>& text, int radix, const OfCursor& ofCursor,
                  const InC& inC) {
    const orv::basic_string_ref<CharT> view(text);
    const auto read = orv::from_chars_c<T>(view, radix);
    FUZZ_CHECK(read.length <= text.size());
    checkCursor(view, read, [&](auto& it) { return ofCursor(it, radix); });
    checkC(text, read, [&](const CharT* p, CharT** end) { return inC(p, end, radix); });
    const int written = std::clamp(radix, 2, 36);
    checkWritten<char>(read.value, written);
    checkWritten<char16>(read.value, written);
}

template <class T, class CharT, class OfCursor, class InC>
void checkFloat(const std::basic_string<CharT>& text, const OfCursor& ofCursor, const InC& inC) {
    const orv::basic_string_ref<CharT> view(text);
    const auto read = orv::from_chars_c<T>(view);
    FUZZ_CHECK(read.length <= text.size());
    checkCursor(view, read, ofCursor);
    checkC(text, read, inC);
    const std::string narrow = orv::to_string_c(read.value);
    const orv::ustring wide = orv::to_ustring_c(read.value);
    const auto back = orv::from_chars_c<T>(orv::string_ref(narrow));
    const auto same = orv::from_chars_c<T>(orv::ustring_ref(wide));
    FUZZ_CHECK(back && sameNumber(back.value, read.value) && back.length == narrow.size());
    FUZZ_CHECK(same && sameNumber(same.value, read.value) && same.length == wide.size());
}

template <class CharT>
void checkText(const std::basic_string<CharT>& text, int radix) {
    using Cursor = orv::BasicCharIterator<CharT>;
    using Text = const CharT*;
    using End = CharT**;
    checkInteger<std::int32_t>(
        text, radix, [](Cursor& it, int r) { return orv::stoi_c(it, r); },
        [](Text p, End end, int r) { return orv::strtoi_c(p, end, r); });
    checkInteger<std::int64_t>(
        text, radix, [](Cursor& it, int r) { return orv::stoll_c(it, r); },
        [](Text p, End end, int r) { return orv::strtoll_c(p, end, r); });
    checkInteger<std::uint32_t>(
        text, radix, [](Cursor& it, int r) { return orv::stoui_c(it, r); },
        [](Text p, End end, int r) { return orv::strtoui_c(p, end, r); });
    checkInteger<std::uint64_t>(
        text, radix, [](Cursor& it, int r) { return orv::stoull_c(it, r); },
        [](Text p, End end, int r) { return orv::strtoull_c(p, end, r); });
    checkFloat<float>(
        text, [](Cursor& it) { return orv::stof_c(it); },
        [](Text p, End end) { return orv::strtof_c(p, end); });
    checkFloat<double>(
        text, [](Cursor& it) { return orv::stod_c(it); },
        [](Text p, End end) { return orv::strtod_c(p, end); });
}

// An ASCII text reads the same in both types of characters.
void checkTypes(const std::string& text, int radix) {
    const orv::ustring wide = fuzz::widen(text);
    const auto integer = orv::from_chars_c<std::int64_t>(orv::string_ref(text), radix);
    const auto wideInteger = orv::from_chars_c<std::int64_t>(orv::ustring_ref(wide), radix);
    FUZZ_CHECK(integer.value == wideInteger.value && integer.length == wideInteger.length &&
               integer.status == wideInteger.status);
    const auto number = orv::from_chars_c<double>(orv::string_ref(text));
    const auto wideNumber = orv::from_chars_c<double>(orv::ustring_ref(wide));
    FUZZ_CHECK(sameNumber(number.value, wideNumber.value) && number.length == wideNumber.length &&
               number.status == wideNumber.status);
}

bool isAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const int first = input.byte();
    const int radix = first < 40 ? first : 10;
    if (input.byte() % 2 == 1) {
        checkText(fuzz::toUnits(input.rest()), radix);
        return 0;
    }
    const std::string text = input.rest();
    checkText(text, radix);
    if (isAscii(text)) {
        checkTypes(text, radix);
    }
    return 0;
}
