// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point numbers from text: the common texts in one inlined piece, all
/// others by the full scan, and the shapes around them.
#include "orv/liborvxx/number/string_to_decimal.h"

#include "orv/liborvxx/number/detail/decimal_format.h"
#include "orv/liborvxx/number/detail/float_scanner.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/quick_pack.h"
#include "orv/liborvxx/number/detail/reading_forms.h"
#include "orv/liborvxx/number/detail/scan_decimal.h"
#include "orv/liborvxx/number/detail/text_source.h"
#include "orv/liborvxx/number/from_chars.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>

namespace orv {

namespace {

using decimal::decimal128;
using decimal::decimal32;
using decimal::decimal64;
using detail::NulTerminatedSource;
using detail::RangeSource;
using words::Limb;
using words::Wide;
using words::Word;

// What stands for no number: all bits 0.
template <class Decimal>
constexpr Decimal NOTHING =
    detail::DecimalFormat<Decimal>::encode(false, detail::DecimalFormat<Decimal>::MIN_EXPONENT, 0);

big_uint bigUint(const Wide& n) noexcept {
    const Word words[] = {static_cast<Word>(n.low), static_cast<Word>(n.low >> 32U),
                          static_cast<Word>(n.high), static_cast<Word>(n.high >> 32U)};
    big_uint number = big_uint::make_uninitialized(4);
    std::copy_n(words, 4, number.data());
    return number;
}

template <class Decimal>
Decimal convertScan(const detail::float_scanner& state) {
    using Format = detail::DecimalFormat<Decimal>;
    if (state.radix == 0) {
        return state.exponent == detail::WORD_NAN ? Format::quietNan()
                                                  : Format::infinity(state.negative);
    }
    return detail::packDecimal<Decimal>(state.negative, state.exponent, bigUint(state.coefficient),
                                        state.rounding);
}

// The general road.
template <class Decimal, class Source>
from_chars_result<Decimal> readByScan(Source text) noexcept {
    const auto* const start = text.position();
    detail::float_scanner state{detail::DecimalFormat<Decimal>::DIGITS, 0};
    const number_status status = detail::scan_float(state, text, true);
    if (status != number_status::ok) {
        return {NOTHING<Decimal>, 0, status};
    }
    const auto length = static_cast<std::size_t>(text.position() - start);
    return {convertScan<Decimal>(state), length, status};
}

// The value of `count` digits at `first`, 19 at most; they may have a point among them.
template <class CharT>
Limb valueOf(const CharT* first, std::ptrdiff_t count) noexcept {
    RangeSource<CharT> text{basic_string_ref<CharT>(first, static_cast<std::size_t>(count))};
    const Limb value = detail::takeDigits(text, 0);
    const std::ptrdiff_t rest = count - (text.position() - first);
    if (rest == 0) {
        return value;
    }
    text = RangeSource<CharT>{
        basic_string_ref<CharT>(text.position() + 1, static_cast<std::size_t>(rest))};
    return detail::takeDigits(text, value);
}

// The digits a number may have on the quick road: those of a decimal128, or as many as two limbs
// hold for sure.
template <class Decimal>
constexpr std::ptrdiff_t QUICK_DIGITS = 2 * detail::LIMB_DIGITS;
template <>
constexpr std::ptrdiff_t QUICK_DIGITS<decimal128> = 34;

// A number of more digits than a limb holds, or nothing that is worth the quick road.
template <class Decimal, class CharT>
bool packLong(bool negative, std::int32_t exponent, const detail::DecimalDigits<CharT>& digits,
              Decimal& value) noexcept {
    if (digits.count > QUICK_DIGITS<Decimal> || !detail::isExponentOf<Decimal>(exponent)) {
        return false;
    }
    // Of the last digits `digits.value` has what is left modulo 2^64 after the others.
    constexpr Limb POWER = words::POW10_IN_LIMBS[detail::LIMB_DIGITS];
    const Limb upper = valueOf(digits.first, digits.count - detail::LIMB_DIGITS);
    const Limb lower = digits.value - upper * POWER;
    assert(lower < POWER);
    value = detail::quickPack<Decimal>(negative, exponent, upper, lower);
    return true;
}

// A number that begins with its sign, digits or point. What has very many digits and all else goes
// the general road, from the start.
template <class Decimal, class Source>
ORVXX_ALWAYS_INLINE from_chars_result<Decimal> readNumber(Source text) noexcept {
    using CharT = typename Source::char_type;
    const Source whole = text;
    const bool negative = text.unit() == CharT(u'-');
    if (negative) {
        text.step();
    }
    const auto digits = detail::takeDecimal(text);
    if (digits.count == 0) {
        return readByScan<Decimal>(whole);
    }
    const std::int32_t exponent = detail::takeExponent(text, 'e', -digits.fraction);
    const auto length = static_cast<std::size_t>(text.position() - whole.position());
    if (digits.count > detail::LIMB_DIGITS) {
        Decimal value;
        return packLong(negative, exponent, digits, value)
                   ? from_chars_result<Decimal>{value, length, number_status::ok}
                   : readByScan<Decimal>(whole);
    }
    return {detail::quickPack<Decimal>(negative, exponent, digits.value), length,
            number_status::ok};
}

template <class Decimal, class CharT>
Decimal readView(basic_string_ref<CharT> text, std::size_t* index) {
    const from_chars_result<Decimal> read = from_chars_c<Decimal>(text);
    if (read.status != number_status::ok) {
        detail::throwNoNumber(read.status);
    }
    if (index != nullptr) {
        *index = read.length;
    }
    return read.value;
}

template <class Decimal, class CharT>
Decimal readCursor(BasicCharIterator<CharT>& it) {
    return detail::readAtCursor(it, readView<Decimal, CharT>);
}

template <class Decimal, class CharT>
Decimal readPointer(const CharT* text, CharT** end) noexcept {
    return detail::inShapeOfC(readNumber<Decimal>(NulTerminatedSource<CharT>(text)), text, end);
}

} // namespace

namespace detail {

from_chars_result<decimal32> readDecimal32(string_ref text) noexcept {
    return readNumber<decimal32>(RangeSource<char>(text));
}

from_chars_result<decimal32> readDecimal32(ustring_ref text) noexcept {
    return readNumber<decimal32>(RangeSource<char16>(text));
}

from_chars_result<decimal64> readDecimal64(string_ref text) noexcept {
    return readNumber<decimal64>(RangeSource<char>(text));
}

from_chars_result<decimal64> readDecimal64(ustring_ref text) noexcept {
    return readNumber<decimal64>(RangeSource<char16>(text));
}

from_chars_result<decimal128> readDecimal128(string_ref text) noexcept {
    return readNumber<decimal128>(RangeSource<char>(text));
}

from_chars_result<decimal128> readDecimal128(ustring_ref text) noexcept {
    return readNumber<decimal128>(RangeSource<char16>(text));
}

} // namespace detail

decimal32 stod32_c(string_ref text, std::size_t* index) {
    return readView<decimal32>(text, index);
}

decimal32 stod32_c(ustring_ref text, std::size_t* index) {
    return readView<decimal32>(text, index);
}

decimal64 stod64_c(string_ref text, std::size_t* index) {
    return readView<decimal64>(text, index);
}

decimal64 stod64_c(ustring_ref text, std::size_t* index) {
    return readView<decimal64>(text, index);
}

decimal128 stod128_c(string_ref text, std::size_t* index) {
    return readView<decimal128>(text, index);
}

decimal128 stod128_c(ustring_ref text, std::size_t* index) {
    return readView<decimal128>(text, index);
}

decimal32 stod32_c(BasicCharIterator<char>& it) {
    return readCursor<decimal32>(it);
}

decimal32 stod32_c(BasicCharIterator<char16>& it) {
    return readCursor<decimal32>(it);
}

decimal64 stod64_c(BasicCharIterator<char>& it) {
    return readCursor<decimal64>(it);
}

decimal64 stod64_c(BasicCharIterator<char16>& it) {
    return readCursor<decimal64>(it);
}

decimal128 stod128_c(BasicCharIterator<char>& it) {
    return readCursor<decimal128>(it);
}

decimal128 stod128_c(BasicCharIterator<char16>& it) {
    return readCursor<decimal128>(it);
}

decimal32 strtod32_c(const char* text, char** end) noexcept {
    return readPointer<decimal32>(text, end);
}

decimal32 strtod32_c(const char16* text, char16** end) noexcept {
    return readPointer<decimal32>(text, end);
}

decimal64 strtod64_c(const char* text, char** end) noexcept {
    return readPointer<decimal64>(text, end);
}

decimal64 strtod64_c(const char16* text, char16** end) noexcept {
    return readPointer<decimal64>(text, end);
}

decimal128 strtod128_c(const char* text, char** end) noexcept {
    return readPointer<decimal128>(text, end);
}

decimal128 strtod128_c(const char16* text, char16** end) noexcept {
    return readPointer<decimal128>(text, end);
}

} // namespace orv
