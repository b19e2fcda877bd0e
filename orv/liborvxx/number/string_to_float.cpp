// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point numbers from text: the common texts in one inlined piece, all others by
/// the full scan, and the shapes around them.
#include "orv/liborvxx/number/string_to_float.h"

#include "orv/liborvxx/number/detail/convert_scan.h"
#include "orv/liborvxx/number/detail/decimal_to_binary.h"
#include "orv/liborvxx/number/detail/float_scanner.h"
#include "orv/liborvxx/number/detail/reading_forms.h"
#include "orv/liborvxx/number/detail/scan_decimal.h"
#include "orv/liborvxx/number/detail/text_source.h"
#include "orv/liborvxx/number/from_chars.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace orv {

namespace {

using detail::NulTerminatedSource;
using detail::RangeSource;

// What a number of the type is called in messages.
template <class Float>
constexpr const char* NAME = "long double";
template <>
constexpr const char* NAME<float> = "float";
template <>
constexpr const char* NAME<double> = "double";

template <class Float>
[[noreturn]] void throwFailure(number_status status) {
    if (status == number_status::out_of_range) {
        throw std::out_of_range(std::string("string to ") + NAME<Float> +
                                " conversion out of range");
    }
    detail::throwNoNumber(status);
}

// The general road. A scan sets no radix that its conversion refuses.
template <class Float, class Source>
from_chars_result<Float> readByScan(Source text) noexcept {
    const auto* const start = text.position();
    detail::float_scanner state = detail::SCANNER_FOR<Float>;
    const number_status status = detail::scan_float(state, text, true);
    if (status != number_status::ok) {
        return {0, 0, status};
    }
    const auto value = detail::convertScan<Float>(state);
    const auto length = static_cast<std::size_t>(text.position() - start);
    return {value, length, detail::statusOf(state.radix != 0, value)};
}

// A number that begins with its sign, digits or point, and that a limb holds. All else goes the
// general road, from the start.
template <class Float, class Source>
ORVXX_ALWAYS_INLINE from_chars_result<Float> readNumber(Source text) noexcept {
    using CharT = typename Source::char_type;
    const Source whole = text;
    const bool negative = text.unit() == CharT(u'-');
    if (negative) {
        text.step();
    }
    const auto digits = detail::takeDecimal(text);
    if (digits.count == 0 || digits.count > detail::LIMB_DIGITS ||
        detail::lowerCase(text.unit()) == 'x') {
        return readByScan<Float>(whole);
    }
    const std::int32_t exponent = detail::takeExponent(text, 'e', -digits.fraction);
    const auto value = detail::makeBinary<Float>(negative, exponent, digits.value);
    const auto length = static_cast<std::size_t>(text.position() - whole.position());
    return {value, length, detail::statusOf(true, value)};
}

template <class Float, class CharT>
Float readView(basic_string_ref<CharT> text, std::size_t* index) {
    const from_chars_result<Float> read = from_chars_c<Float>(text);
    if (read.status != number_status::ok) {
        throwFailure<Float>(read.status);
    }
    if (index != nullptr) {
        *index = read.length;
    }
    return read.value;
}

template <class Float, class CharT>
Float readCursor(BasicCharIterator<CharT>& it) {
    return detail::readAtCursor(it, readView<Float, CharT>);
}

template <class Float, class CharT>
Float readPointer(const CharT* text, CharT** end) noexcept {
    return detail::inShapeOfC(readNumber<Float>(NulTerminatedSource<CharT>(text)), text, end);
}

} // namespace

namespace detail {

from_chars_result<float> readFloat(string_ref text) noexcept {
    return readNumber<float>(RangeSource<char>(text));
}

from_chars_result<float> readFloat(ustring_ref text) noexcept {
    return readNumber<float>(RangeSource<char16>(text));
}

from_chars_result<double> readDouble(string_ref text) noexcept {
    return readNumber<double>(RangeSource<char>(text));
}

from_chars_result<double> readDouble(ustring_ref text) noexcept {
    return readNumber<double>(RangeSource<char16>(text));
}

} // namespace detail

float stof_c(string_ref text, std::size_t* index) {
    return readView<float>(text, index);
}

float stof_c(ustring_ref text, std::size_t* index) {
    return readView<float>(text, index);
}

double stod_c(string_ref text, std::size_t* index) {
    return readView<double>(text, index);
}

double stod_c(ustring_ref text, std::size_t* index) {
    return readView<double>(text, index);
}

long double stold_c(string_ref text, std::size_t* index) {
    return readView<long double>(text, index);
}

long double stold_c(ustring_ref text, std::size_t* index) {
    return readView<long double>(text, index);
}

float stof_c(BasicCharIterator<char>& it) {
    return readCursor<float>(it);
}

float stof_c(BasicCharIterator<char16>& it) {
    return readCursor<float>(it);
}

double stod_c(BasicCharIterator<char>& it) {
    return readCursor<double>(it);
}

double stod_c(BasicCharIterator<char16>& it) {
    return readCursor<double>(it);
}

long double stold_c(BasicCharIterator<char>& it) {
    return readCursor<long double>(it);
}

long double stold_c(BasicCharIterator<char16>& it) {
    return readCursor<long double>(it);
}

float strtof_c(const char* text, char** end) noexcept {
    return readPointer<float>(text, end);
}

float strtof_c(const char16* text, char16** end) noexcept {
    return readPointer<float>(text, end);
}

double strtod_c(const char* text, char** end) noexcept {
    return readPointer<double>(text, end);
}

double strtod_c(const char16* text, char16** end) noexcept {
    return readPointer<double>(text, end);
}

long double strtold_c(const char* text, char** end) noexcept {
    return strtod_c(text, end);
}

long double strtold_c(const char16* text, char16** end) noexcept {
    return strtod_c(text, end);
}

} // namespace orv
