// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison of URIs by component.
#include "orv/liborvxx/net/detail/uri_compare.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/detail/uri_fold.h"
#include "orv/liborvxx/net/uri.h"

#include <algorithm>
#include <cstddef>

namespace orv::net {

namespace detail {

namespace {

bool isDefined(ustring_ref component) noexcept {
    return component.data() != nullptr;
}

int compareDefined(ustring_ref a, ustring_ref b) noexcept {
    return (isDefined(a) ? 1 : 0) - (isDefined(b) ? 1 : 0);
}

int compareSize(ustring_ref a, ustring_ref b) noexcept {
    return a.size() == b.size() ? 0 : a.size() > b.size() ? 1 : -1;
}

int difference(char16 a, char16 b) noexcept {
    return static_cast<int>(a) - static_cast<int>(b);
}

bool isEscapeAt(ustring_ref text, std::size_t index) noexcept {
    return index < text.size() && text[index] == u'%';
}

// Opens the decoder of the store to the comparison of hosts.
class HostDecoder : URIData {
public:
    HostDecoder() = delete;

    // The unit at the front is taken for "%", where there is room for an escape or it is one.
    static ustring decodeRest(ustring_ref rest) {
        const bool hasRoom = rest.size() >= 3 || isEscapeAt(rest, 0);
        return hasRoom ? decode(Charset::UTF_8, rest, 0) : rest.to_string();
    }
};

// How many units match before the hosts end, differ, or one of them has a "%".
std::size_t commonHostPrefix(ustring_ref a, ustring_ref b) noexcept {
    const std::size_t size = std::min(a.size(), b.size());
    std::size_t i = 0;
    while (i < size && a[i] != u'%' && b[i] != u'%' && equalsIgnoreCase(a[i], b[i])) {
        ++i;
    }
    return i;
}

ustring_ref withoutLeadingZeros(ustring_ref port) noexcept {
    while (!port.empty() && port.front() == u'0') {
        port.remove_prefix(1);
    }
    return port;
}

} // namespace

int compareIgnoreCase(ustring_ref a, ustring_ref b) noexcept {
    const std::size_t size = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < size; ++i) {
        if (const int result = compareIgnoreCase(a[i], b[i]); result != 0) {
            return result;
        }
    }
    return compareSize(a, b);
}

bool equalsIgnoreCase(ustring_ref a, ustring_ref b) noexcept {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](char16 left, char16 right) { return equalsIgnoreCase(left, right); });
}

int compareComponent(ustring_ref a, ustring_ref b) noexcept {
    if (!isDefined(a) || !isDefined(b)) {
        return compareDefined(a, b);
    }
    const std::size_t size = std::min(a.size(), b.size());
    std::size_t escapeEnd = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const int result = i < escapeEnd ? compareIgnoreCase(a[i], b[i]) : difference(a[i], b[i]);
        if (result != 0) {
            return result;
        }
        if (i >= escapeEnd && a[i] == u'%') {
            escapeEnd = i + 3;
        }
    }
    return compareSize(a, b);
}

bool componentEquals(ustring_ref a, ustring_ref b) noexcept {
    if (a.size() != b.size() || isDefined(a) != isDefined(b)) {
        return false;
    }
    return a == b || compareComponent(a, b) == 0;
}

int compareScheme(ustring_ref a, ustring_ref b) noexcept {
    return isDefined(a) && isDefined(b) ? compareIgnoreCase(a, b) : compareDefined(a, b);
}

bool schemeEquals(ustring_ref a, ustring_ref b) noexcept {
    return isDefined(a) == isDefined(b) && equalsIgnoreCase(a, b);
}

int compareHost(ustring_ref a, ustring_ref b) {
    if (!isDefined(a) || !isDefined(b)) {
        return compareDefined(a, b);
    }
    const std::size_t i = commonHostPrefix(a, b);
    if (isEscapeAt(a, i) || isEscapeAt(b, i)) {
        const ustring restA = HostDecoder::decodeRest(a.substr(i));
        const ustring restB = HostDecoder::decodeRest(b.substr(i));
        return compareIgnoreCase(ustring_ref(restA), ustring_ref(restB));
    }
    if (i == a.size() || i == b.size()) {
        return compareSize(a, b);
    }
    return compareIgnoreCase(a[i], b[i]);
}

bool hostEquals(ustring_ref a, ustring_ref b) {
    return compareHost(a, b) == 0;
}

int comparePort(ustring_ref a, ustring_ref b) noexcept {
    if (a.empty() || b.empty()) {
        return (a.empty() ? 0 : 1) - (b.empty() ? 0 : 1);
    }
    a = withoutLeadingZeros(a);
    b = withoutLeadingZeros(b);
    return a.size() != b.size() ? compareSize(a, b) : a.compare(b);
}

bool portEquals(ustring_ref a, ustring_ref b) noexcept {
    return a.empty() == b.empty() && withoutLeadingZeros(a) == withoutLeadingZeros(b);
}

} // namespace detail

// The quick answer for an object and itself, and for objects with the same text. Where ranges may
// have wrapped, beyond 16 bits, it is none: comparing hosts may throw there.
bool URI::hasSameComponents(const URI& that) const noexcept {
    if (uriText.size() > 0xFFFF || uriText.size() != that.uriText.size()) {
        return false;
    }
    return this == &that ||
           (scheme == that.scheme && userInfo == that.userInfo && host == that.host &&
            port == that.port && path == that.path && query == that.query &&
            fragment == that.fragment && ustring_ref(uriText) == that.uriText);
}

int URI::compareTo(const gref<URI>& other) const {
    if (!other) {
        AssertionError::raise(nullptr, nullptr, 1244, "compareTo");
    }
    const URI& that = *other;
    if (hasSameComponents(that)) {
        return 0;
    }
    if (const int order = detail::compareScheme(getScheme(), that.getScheme()); order != 0) {
        return order;
    }
    if (const int order = detail::compareComponent(getRawUserInfo(), that.getRawUserInfo());
        order != 0) {
        return order;
    }
    if (!detail::hostEquals(getRawHost(), that.getRawHost())) {
        return 0; // kept for callers that rely on it
    }
    if (const int order = detail::comparePort(getRawPort(), that.getRawPort()); order != 0) {
        return order;
    }
    if (const int order = detail::compareComponent(getRawPath(), that.getRawPath()); order != 0) {
        return order;
    }
    if (const int order = detail::compareComponent(getRawQuery(), that.getRawQuery()); order != 0) {
        return order;
    }
    return detail::compareComponent(getRawFragment(), that.getRawFragment());
}

bool URI::equals(const gref<URI>& other) const {
    if (!other) {
        return false;
    }
    const URI& that = *other;
    return hasSameComponents(that) ||
           (detail::schemeEquals(getScheme(), that.getScheme()) &&
            detail::componentEquals(getRawUserInfo(), that.getRawUserInfo()) &&
            detail::hostEquals(getRawHost(), that.getRawHost()) &&
            detail::portEquals(getRawPort(), that.getRawPort()) &&
            detail::componentEquals(getRawPath(), that.getRawPath()) &&
            detail::componentEquals(getRawQuery(), that.getRawQuery()) &&
            detail::componentEquals(getRawFragment(), that.getRawFragment()));
}

} // namespace orv::net
