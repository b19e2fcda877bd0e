// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief One locale with the same punctuation for char16 and wchar_t, and numbers read and written
/// in it by the facets of both.
#ifndef ORV_TESTS_SUPPORT_BOTH_WIDTHS_H
#define ORV_TESTS_SUPPORT_BOTH_WIDTHS_H

#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/num_get.h"
#include "orv/liborvxx/locale/num_put.h"
#include "orv/liborvxx/locale/numpunct.h"

#include <algorithm>
#include <cstddef>
#include <ios>
#include <iterator>
#include <locale>
#include <sstream>
#include <string>
#include <utility>

namespace orvtest {

struct Punctuation {
    char16_t point;
    char16_t separator;
    std::string grouping;
    std::u16string trueName = u"true";
    std::u16string falseName = u"false";
};

template <class CharT>
class SetNumpunct : public std::numpunct<CharT> {
public:
    explicit SetNumpunct(Punctuation data) : data_(std::move(data)) {}

protected:
    using String = typename std::numpunct<CharT>::string_type;

    CharT do_decimal_point() const override { return static_cast<CharT>(data_.point); }
    CharT do_thousands_sep() const override { return static_cast<CharT>(data_.separator); }
    std::string do_grouping() const override { return data_.grouping; }
    String do_truename() const override { return as(data_.trueName); }
    String do_falsename() const override { return as(data_.falseName); }

private:
    static String as(const std::u16string& text) {
        String result;
        for (const char16_t unit : text) {
            result.push_back(static_cast<CharT>(unit));
        }
        return result;
    }

    Punctuation data_;
};

inline std::locale localeOf(const Punctuation& punctuation) {
    using orv::char16;
    std::locale locale(std::locale::classic(), new std::ctype<char16>);
    locale = std::locale(locale, new std::num_get<char16>);
    locale = std::locale(locale, new std::num_put<char16>);
    locale = std::locale(locale, new SetNumpunct<char16>(punctuation));
    return {locale, new SetNumpunct<wchar_t>(punctuation)};
}

template <class To, class From>
std::basic_string<To> convertText(const std::basic_string<From>& text) {
    std::basic_string<To> result;
    for (const From unit : text) {
        result.push_back(static_cast<To>(unit));
    }
    return result;
}

/// What a facet made of a text.
template <class Value>
struct Reading {
    Value value;
    std::ios_base::iostate state;
    std::size_t rest; ///< units that were not read
};

template <class CharT, class Value>
Reading<Value> read(std::ios_base& stream, const std::u16string& text) {
    using In = std::istreambuf_iterator<CharT>;
    std::basic_stringbuf<CharT> buffer(convertText<CharT>(text), std::ios_base::in);
    Reading<Value> reading{Value{}, std::ios_base::goodbit, 0};
    const auto& facet = std::use_facet<std::num_get<CharT>>(stream.getloc());
    const In behind = facet.get(In(&buffer), In(), stream, reading.state, reading.value);
    reading.rest = static_cast<std::size_t>(std::distance(behind, In()));
    return reading;
}

/// The text that a facet makes of a value. The width is set before, and must be 0 behind it.
template <class CharT, class Value>
std::u16string write(std::ios_base& stream, std::streamsize width, char16_t fill, Value value) {
    using Out = std::ostreambuf_iterator<CharT>;
    std::basic_stringbuf<CharT> buffer;
    stream.width(width);
    const auto& facet = std::use_facet<std::num_put<CharT>>(stream.getloc());
    const Out behind = facet.put(Out(&buffer), stream, static_cast<CharT>(fill), value);
    std::u16string text = convertText<char16_t>(buffer.str());
    return behind.failed() || stream.width() != 0 ? u"(failed)" + text : text;
}

} // namespace orvtest

#endif
