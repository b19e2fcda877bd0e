// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers in streams, and as strings of a locale.
#include "orv/liborvxx/decimal/decimal_io.h"

#include "orv/liborv/decimal/format.h"
#include "orv/liborv/decimal/parse.h"
#include "orv/liborvxx/decimal/decimal_layout.h"
#include "orv/liborvxx/decimal/detail/decimal_punctuation.h"
#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/num_get.h"
#include "orv/liborvxx/locale/num_put.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ios>
#include <istream>
#include <limits>
#include <ostream>
#include <streambuf>
#include <string>
#include <type_traits>
#include <utility>

namespace orv::decimal {

namespace {

using detail::DecimalPunctuation;
using detail::DecimalPunctuation16;
using detail::DecimalPunctuationOf;

// The C library's functions, one name for the three widths.
std::size_t write(const DecimalFormat& format, const decimal32& value, char* text,
                  std::size_t size) {
    return orvDec32FormatString(&format, value.record(), text, size);
}

std::size_t write(const DecimalFormat& format, const decimal64& value, char* text,
                  std::size_t size) {
    return orvDec64FormatString(&format, value.record(), text, size);
}

std::size_t write(const DecimalFormat& format, const decimal128& value, char* text,
                  std::size_t size) {
    return orvDec128FormatString(&format, value.record(), text, size);
}

void getValue(const DecimalParseState& state, decimal32& value) {
    value = orvDec32ParseGetValue(&state);
}

void getValue(const DecimalParseState& state, decimal64& value) {
    value = orvDec64ParseGetValue(&state);
}

void getValue(const DecimalParseState& state, decimal128& value) {
    value = orvDec128ParseGetValue(&state);
}

template <class Decimal>
constexpr int DIGITS =
    detail::DecimalLayout<std::remove_cvref_t<decltype(std::declval<Decimal>().record())>>::DIGITS;

// Texts of up to this size less one are made on the stack.
constexpr std::size_t BUFFER_SIZE = 64;

// The text that was too long for the buffer, in a string. The formatter writes the string's own
// NUL.
template <class Decimal>
std::string longText(const DecimalFormat& format, const Decimal& value, std::size_t size) {
    std::string text(size, '\0');
    write(format, value, text.data(), size + 1);
    return text;
}

std::uint32_t codeOf(char c) noexcept {
    return static_cast<unsigned char>(c);
}

/// \p punctuation must outlive the format.
DecimalFormat formatOf(char conversion, std::streamsize precision,
                       const DecimalPunctuation& punctuation) noexcept {
    constexpr std::streamsize MOST = std::numeric_limits<std::int32_t>::max();
    DecimalFormat format = {};
    format.conversion = conversion;
    format.precision = static_cast<std::int32_t>(std::clamp<std::streamsize>(precision, -1, MOST));
    format.decimalPoint = codeOf(punctuation.point);
    format.thousandsSeparator = codeOf(punctuation.separator);
    format.grouping = punctuation.grouping;
    return format;
}

DecimalFormat formatOf(const std::ios_base& stream,
                       const DecimalPunctuation& punctuation) noexcept {
    const std::ios_base::fmtflags flags = stream.flags();
    const std::ios_base::fmtflags notation = flags & std::ios_base::floatfield;
    const bool upper = (flags & std::ios_base::uppercase) != 0;
    char conversion = upper ? 'G' : 'g';
    if (notation == std::ios_base::scientific) {
        conversion = upper ? 'E' : 'e';
    } else if (notation == std::ios_base::fixed) {
        conversion = upper ? 'F' : 'f';
    }
    std::streamsize precision = stream.precision();
    if ((flags & std::ios_base::fixed) == 0 && precision < 1) {
        precision = -1;
    }
    DecimalFormat format = formatOf(conversion, precision, punctuation);
    format.plusSign = (flags & std::ios_base::showpos) != 0 ? '+' : '\0';
    format.showPoint = (flags & std::ios_base::showpoint) != 0 ? 1 : 0;
    return format;
}

// Puts what the formatter wrote, which a NUL ends.
std::ostream& put(std::ostream& os, const DecimalPunctuation& /*punctuation*/, string_ref text) {
    return os << text.data();
}

std::basic_ostream<char16>& put(std::basic_ostream<char16>& os,
                                const DecimalPunctuation16& punctuation, string_ref text) {
    const auto widen = [&](char16* units) {
        std::transform(text.begin(), text.end(), units,
                       [&](char c) { return punctuation.widen(c); });
    };
    if (text.size() < BUFFER_SIZE) {
        char16 buffer[BUFFER_SIZE];
        widen(buffer);
        return os << ustring_ref(buffer, text.size());
    }
    ustring units(text.size(), u'\0');
    widen(units.data());
    return os << ustring_ref(units);
}

template <class CharT, class Decimal>
std::basic_ostream<CharT>& insert(std::basic_ostream<CharT>& os, const Decimal& value) {
    const DecimalPunctuationOf<CharT> punctuation(os.getloc());
    const DecimalFormat format = formatOf(os, punctuation);
    char buffer[BUFFER_SIZE];
    const std::size_t size = write(format, value, buffer, BUFFER_SIZE);
    return size < BUFFER_SIZE ? put(os, punctuation, string_ref(buffer, size))
                              : put(os, punctuation, longText(format, value, size));
}

template <class Decimal>
std::string fixedText(const DecimalPunctuation& punctuation, const Decimal& value, int precision) {
    const DecimalFormat format = formatOf('f', precision, punctuation);
    char buffer[BUFFER_SIZE];
    const std::size_t size = write(format, value, buffer, BUFFER_SIZE);
    return size < BUFFER_SIZE ? std::string(buffer, size) : longText(format, value, size);
}

// Feeds the parser from the stream. Takes a character only when it is known to belong to the
// number.
template <class CharT>
std::ios_base::iostate scan(std::basic_streambuf<CharT>& source,
                            const DecimalPunctuationOf<CharT>& punctuation,
                            DecimalParseState& state) {
    using Traits = std::char_traits<CharT>;
    int said = 0;
    for (typename Traits::int_type c = source.sgetc(); !Traits::eq_int_type(c, Traits::eof());
         c = source.snextc()) {
        const int next = orvDecParseNextChar(&state, punctuation.narrow(Traits::to_char_type(c)));
        if ((next & ORV_DEC_PARSE_STOP) != 0) {
            if ((next & ORV_DEC_PARSE_COMPLETE) != 0) {
                source.sbumpc();
                said = next;
            }
            return (said & ORV_DEC_PARSE_COMPLETE) != 0 ? std::ios_base::goodbit
                                                        : std::ios_base::failbit;
        }
        said = next;
    }
    return (said & ORV_DEC_PARSE_COMPLETE) != 0 ? std::ios_base::eofbit
                                                : std::ios_base::eofbit | std::ios_base::failbit;
}

// Reads a number, if there is one, and returns what becomes of the stream.
template <class CharT, class Decimal>
std::ios_base::iostate read(std::basic_istream<CharT>& is, Decimal& value) {
    const DecimalPunctuationOf<CharT> punctuation(is.getloc());
    const bool skipsSpace = (is.flags() & std::ios_base::skipws) != 0;
    DecimalParseState state;
    if (orvDecParseInit(&state, DIGITS<Decimal>, punctuation.point, punctuation.separator,
                        skipsSpace ? ORV_DEC_PARSE_SKIP_SPACE : 0) == -1) {
        return std::ios_base::goodbit;
    }
    const std::ios_base::iostate result = scan(*is.rdbuf(), punctuation, state);
    if ((result & std::ios_base::failbit) == 0) {
        getValue(state, value);
    }
    return result;
}

// Formatted input function in the sense of the standard ([istream.formatted.reqmts]).
template <class CharT, class Decimal>
std::basic_istream<CharT>& extract(std::basic_istream<CharT>& is, Decimal& value) {
    const typename std::basic_istream<CharT>::sentry sentry(is);
    if (!sentry) {
        return is;
    }
    std::ios_base::iostate state = std::ios_base::goodbit;
    try {
        state = read(is, value);
    } catch (...) {
        try {
            is.setstate(std::ios_base::badbit);
        } catch (const std::ios_base::failure&) { // the cause is thrown in its place
        }
        if ((is.exceptions() & std::ios_base::badbit) != 0) {
            throw;
        }
        return is;
    }
    is.setstate(state);
    return is;
}

} // namespace

std::istream& operator>>(std::istream& is, decimal32& value) {
    return extract(is, value);
}

std::istream& operator>>(std::istream& is, decimal64& value) {
    return extract(is, value);
}

std::istream& operator>>(std::istream& is, decimal128& value) {
    return extract(is, value);
}

std::basic_istream<char16>& operator>>(std::basic_istream<char16>& is, decimal32& value) {
    return extract(is, value);
}

std::basic_istream<char16>& operator>>(std::basic_istream<char16>& is, decimal64& value) {
    return extract(is, value);
}

std::basic_istream<char16>& operator>>(std::basic_istream<char16>& is, decimal128& value) {
    return extract(is, value);
}

std::ostream& operator<<(std::ostream& os, const decimal32& value) {
    return insert(os, value);
}

std::ostream& operator<<(std::ostream& os, const decimal64& value) {
    return insert(os, value);
}

std::ostream& operator<<(std::ostream& os, const decimal128& value) {
    return insert(os, value);
}

std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os, const decimal32& value) {
    return insert(os, value);
}

std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os, const decimal64& value) {
    return insert(os, value);
}

std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os, const decimal128& value) {
    return insert(os, value);
}

std::string to_string(const decimal32& value, int precision) {
    return fixedText(DecimalPunctuation(), value, precision);
}

std::string to_string(const decimal64& value, int precision) {
    return fixedText(DecimalPunctuation(), value, precision);
}

std::string to_string(const decimal128& value, int precision) {
    return fixedText(DecimalPunctuation(), value, precision);
}

std::string to_string(const std::locale& locale, const decimal32& value, int precision) {
    return fixedText(DecimalPunctuation(locale), value, precision);
}

std::string to_string(const std::locale& locale, const decimal64& value, int precision) {
    return fixedText(DecimalPunctuation(locale), value, precision);
}

std::string to_string(const std::locale& locale, const decimal128& value, int precision) {
    return fixedText(DecimalPunctuation(locale), value, precision);
}

} // namespace orv::decimal
