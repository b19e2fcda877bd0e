// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `EncodedText`, `PathSegments`, `QueryParameters`.
#include "orv/liborvxx/net/uri_parts.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/detail/uri_escapes.h"

#include <algorithm>
#include <cassert>
#include <iterator>

namespace orv::net {

namespace {

ustring_ref between(const char16* first, const char16* last) noexcept {
    return {first, static_cast<std::size_t>(last - first)};
}

// The unit as it is read outside of escapes.
char16 decodedUnit(char16 c, PlusSign plus) noexcept {
    return c == u'+' && plus == PlusSign::SPACE ? char16(u' ') : c;
}

// A "%" that begins no escape stays.
ustring decode(ustring_ref text) {
    const std::size_t start = text.find(u'%');
    const auto keep = [](std::size_t) {};
    return start == ustring_ref::npos ? text.to_string()
                                      : detail::decodeEscapes(*Charset::UTF_8, text, start, keep);
}

// Whether `encoded` decodes to `text`.
bool decodesTo(EncodedText encoded, ustring_ref text, PlusSign plus) {
    const ustring_ref raw = encoded.raw();
    const std::size_t plain = std::min(raw.find(u'%'), raw.size());
    const auto same = [plus](char16 c, char16 wanted) { return decodedUnit(c, plus) == wanted; };
    if (plain > text.size() || !std::equal(raw.begin(), raw.begin() + plain, text.begin(), same)) {
        return false;
    }
    return plain == raw.size() ? plain == text.size() : encoded.decoded(plus) == text;
}

} // namespace

ustring EncodedText::decoded(PlusSign plus) const {
    if (plus == PlusSign::LITERAL || raw_.find(u'+') == ustring_ref::npos) {
        return decode(raw_);
    }
    // Before the escapes, since an escaped plus sign is one.
    ustring spaced = raw_;
    std::replace(spaced.begin(), spaced.end(), char16(u'+'), char16(u' '));
    return decode(spaced);
}

PathSegments::iterator::iterator(const char16* first, const char16* end) noexcept
    : segment_(between(first, std::find(first, end, char16(u'/')))), end_(end) {}

PathSegments::iterator& PathSegments::iterator::operator++() noexcept {
    assert(!segment_.isNull());
    const char16* const slash = segment_.raw().end();
    return *this = slash == end_ ? iterator() : iterator(slash + 1, end_);
}

PathSegments::iterator PathSegments::begin() const noexcept {
    if (path_.empty()) {
        return end();
    }
    return {path_.begin() + (path_.front() == u'/' ? 1 : 0), path_.end()};
}

std::size_t PathSegments::count() const noexcept {
    return static_cast<std::size_t>(std::distance(begin(), end()));
}

QueryParameters::iterator::iterator(const char16* next, const char16* end) noexcept : end_(end) {
    const char16* const first = std::find_if(next, end, [](char16 c) { return c != char16(u'&'); });
    next_ = std::find(first, end, char16(u'&'));
    if (first != end) {
        const char16* const equals = std::find(first, next_, char16(u'='));
        parameter_.name = EncodedText(between(first, equals));
        if (equals != next_) {
            parameter_.value = EncodedText(between(equals + 1, next_));
        }
    }
}

QueryParameters::iterator& QueryParameters::iterator::operator++() noexcept {
    assert(!parameter_.name.isNull());
    return *this = iterator(next_, end_);
}

QueryParameters::iterator QueryParameters::begin() const noexcept {
    return {query_.begin(), query_.end()};
}

EncodedText QueryParameters::find(ustring_ref name, PlusSign plus) const {
    for (const QueryParameter parameter : *this) {
        if (decodesTo(parameter.name, name, plus)) {
            return parameter.value;
        }
    }
    return {};
}

} // namespace orv::net
