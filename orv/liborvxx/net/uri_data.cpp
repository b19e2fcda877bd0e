// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIData`: classes of units, escapes, components as views.
#include "orv/liborvxx/net/uri_data.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/detail/uri_escapes.h"
#include "orv/liborvxx/net/detail/uri_units.h"
#include "orv/liborvxx/text/literals.h"

#include <algorithm>
#include <cassert>

namespace orv::net {

using namespace literals;

namespace {

[[noreturn]] void raiseNoHexDigit() {
    AssertionError::raise(nullptr, nullptr, 801, "toHexDigit");
}

} // namespace

constinit const ustring_ref URIData::GEN_DELIMS = u":/?#[]@"_u;
constinit const ustring_ref URIData::SUB_DELIMS = u"!$&'()*+,;="_u;
constinit const ustring_ref URIData::RESERVED = u":/?#[]@!$&'()*+,;="_u;

URIData::URIData(bool ascii, Charset* set) noexcept : asciiOnly(ascii), charset(set) {}

bool URIData::is_ascii_unreserved(char16 c) noexcept {
    return detail::isAscii(c, detail::UNRESERVED);
}

bool URIData::is_unreserved(char16 c) const noexcept {
    return detail::isUnit(c, detail::UNRESERVED, asciiOnly);
}

bool URIData::is_sub_delim(char16 c) noexcept {
    return detail::isAscii(c, detail::SUB_DELIM);
}

bool URIData::is_reserved(char16 c) noexcept {
    return detail::isAscii(c, detail::RESERVED_UNIT);
}

bool URIData::is_pchar(char16 c) const noexcept {
    return detail::isUnit(c, detail::PCHAR, asciiOnly);
}

bool URIData::is_pchar_nc(char16 c) const noexcept {
    return detail::isUnit(c, detail::PCHAR_NC, asciiOnly);
}

bool URIData::is_uri_char(char16 c) const noexcept {
    return detail::isUnit(c, detail::URI_UNIT, asciiOnly);
}

unsigned int URIData::toHexDigit(char16 c) {
    const int value = detail::hexDigitValue(c);
    if (value < 0) {
        raiseNoHexDigit();
    }
    return static_cast<unsigned int>(value);
}

char16 URIData::forHexDigit(unsigned int value) noexcept {
    return u"0123456789ABCDEF"_u[value & 15];
}

unsigned char URIData::decode(char16 high, char16 low) {
    const unsigned int bits = toHexDigit(high);
    return static_cast<unsigned char>(bits << 4 | toHexDigit(low));
}

ustring URIData::decode(ustring_ref text) const {
    const std::size_t start = text.find(u'%');
    return start == ustring_ref::npos ? text.to_string() : decode(charset, text, start);
}

ustring URIData::decode(Charset* set, ustring_ref text, std::size_t start) {
    assert(set != nullptr && start <= text.size());
    return detail::decodeEscapes(*set, text, start, [](std::size_t) { raiseNoHexDigit(); });
}

ustring_ref URIData::viewOf(ustring_ref text, SubstrRange range) noexcept {
    if (!range.isDefined()) {
        return {};
    }
    if (text.data() == nullptr) {
        return u""_u; // defined, so not null
    }
    const std::size_t begin = std::min<std::size_t>(range.begin, text.size());
    const std::size_t end = std::min<std::size_t>(range.end, text.size());
    return {text.data() + begin, end - begin};
}

ustring_ref URIData::getScheme(ustring_ref text) const noexcept {
    return viewOf(text, scheme);
}

ustring_ref URIData::getRawSchemeSpecificPart(ustring_ref text) const noexcept {
    return viewOf(text, schemeSpecificPart);
}

ustring_ref URIData::getRawAuthority(ustring_ref text) const noexcept {
    return viewOf(text, authority);
}

ustring_ref URIData::getRawUserInfo(ustring_ref text) const noexcept {
    return viewOf(text, userInfo);
}

ustring_ref URIData::getRawHost(ustring_ref text) const noexcept {
    return viewOf(text, host);
}

ustring_ref URIData::getPort(ustring_ref text) const noexcept {
    return viewOf(text, port);
}

ustring_ref URIData::getRawPath(ustring_ref text) const noexcept {
    return viewOf(text, path);
}

ustring_ref URIData::getRawQuery(ustring_ref text) const noexcept {
    return viewOf(text, query);
}

ustring_ref URIData::getRawFragment(ustring_ref text) const noexcept {
    return viewOf(text, fragment);
}

ustring URIData::getSchemeSpecificPart(ustring_ref text) const {
    return decode(getRawSchemeSpecificPart(text));
}

ustring URIData::getAuthority(ustring_ref text) const {
    return decode(getRawAuthority(text));
}

ustring URIData::getUserInfo(ustring_ref text) const {
    return decode(getRawUserInfo(text));
}

ustring URIData::getHost(ustring_ref text) const {
    return decode(getRawHost(text));
}

ustring URIData::getPath(ustring_ref text) const {
    return decode(getRawPath(text));
}

ustring URIData::getQuery(ustring_ref text) const {
    return decode(getRawQuery(text));
}

ustring URIData::getFragment(ustring_ref text) const {
    return decode(getRawFragment(text));
}

} // namespace orv::net
