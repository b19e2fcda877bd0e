// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Equality, order, hash and output of references to URIs.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/detail/uri_compare.h"
#include "orv/liborvxx/net/detail/uri_mix.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/net/uri_parts.h"

#include <compare>
#include <ostream>
#include <string>

namespace orv::net {

namespace {

bool hasEscape(ustring_ref text) noexcept {
    return text.find(char16(u'%')) != ustring_ref::npos;
}

// The whole of it; "%" without two digits stays.
ustring decodeHost(ustring_ref host) {
    return EncodedText(host).decoded();
}

int compareDecodedHost(ustring_ref a, ustring_ref b) {
    if (a.data() == nullptr || b.data() == nullptr || (!hasEscape(a) && !hasEscape(b))) {
        return detail::compareScheme(a, b); // alike: without regard to case, absent before present
    }
    return detail::compareIgnoreCase(ustring_ref(decodeHost(a)), ustring_ref(decodeHost(b)));
}

std::weak_ordering ordering(int value) noexcept {
    return value <=> 0;
}

} // namespace

std::weak_ordering operator<=>(const gref<URI>& a, const gref<URI>& b) {
    if (a.get() == b.get() || !a || !b) {
        return static_cast<bool>(a) <=> static_cast<bool>(b);
    }
    int order = detail::compareScheme(a->getScheme(), b->getScheme());
    order = order != 0 ? order : detail::compareComponent(a->getRawUserInfo(), b->getRawUserInfo());
    order = order != 0 ? order : compareDecodedHost(a->getRawHost(), b->getRawHost());
    order = order != 0 ? order : detail::comparePort(a->getRawPort(), b->getRawPort());
    order = order != 0 ? order : detail::compareComponent(a->getRawPath(), b->getRawPath());
    order = order != 0 ? order : detail::compareComponent(a->getRawQuery(), b->getRawQuery());
    order = order != 0 ? order : detail::compareComponent(a->getRawFragment(), b->getRawFragment());
    return ordering(order);
}

bool operator==(const gref<URI>& a, const gref<URI>& b) {
    if (a.get() == b.get() || !a || !b) {
        return a.get() == b.get();
    }
    return detail::componentEquals(a->getRawPath(), b->getRawPath()) &&
           detail::schemeEquals(a->getScheme(), b->getScheme()) &&
           detail::portEquals(a->getRawPort(), b->getRawPort()) &&
           detail::componentEquals(a->getRawUserInfo(), b->getRawUserInfo()) &&
           detail::componentEquals(a->getRawQuery(), b->getRawQuery()) &&
           detail::componentEquals(a->getRawFragment(), b->getRawFragment()) &&
           compareDecodedHost(a->getRawHost(), b->getRawHost()) == 0;
}

std::size_t hash_value(const gref<URI>& uri) {
    if (!uri) {
        return 0;
    }
    detail::URIMix mix;
    mix.addScheme(uri->getScheme());
    mix.addComponent(u'@', uri->getRawUserInfo());
    if (const ustring_ref host = uri->getRawHost(); host.data() != nullptr) {
        mix.add(u'/');
        if (hasEscape(host)) {
            mix.addFolded(decodeHost(host));
        } else {
            mix.addFolded(host);
        }
    }
    mix.addPort(uri->getRawPort());
    mix.addComponent(uri->getRawPath());
    mix.addComponent(u'?', uri->getRawQuery());
    mix.addComponent(u'#', uri->getRawFragment());
    return mix.value();
}

std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os, const gref<URI>& uri) {
    if (uri) {
        return os << ustring_ref(uri->toString());
    }
    os.width(0);
    return os;
}

std::ostream& operator<<(std::ostream& os, const gref<URI>& uri) {
    if (uri) {
        return os << string_ref(Charset::defaultCharset()->encode(uri->toString()));
    }
    os.width(0);
    return os;
}

} // namespace orv::net
