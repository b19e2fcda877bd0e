// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI::hashCode`.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/detail/uri_mix.h"
#include "orv/liborvxx/net/uri.h"

#include <algorithm>

namespace orv::net {

namespace detail {

// Units none of which is a "%". Four at a time, so that they wait for one multiplication.
void URIMix::addPlain(const char16* units, std::size_t size) noexcept {
    const auto at = [units](std::size_t i) { return static_cast<std::size_t>(units[i]); };
    std::size_t i = 0;
    for (; size - i >= 4; i += 4) {
        hash_ = hash_ * (31 * 31 * 31 * 31) + at(i) * (31 * 31 * 31) + at(i + 1) * (31 * 31) +
                at(i + 2) * 31 + at(i + 3);
    }
    for (; i != size; ++i) {
        add(units[i]);
    }
}

void URIMix::addComponent(ustring_ref text) noexcept {
    while (!text.empty()) {
        const std::size_t escape = std::min(text.find(char16(u'%')), text.size());
        addPlain(text.data(), escape);
        text.remove_prefix(escape);
        if (text.empty()) {
            return;
        }
        add(u'%');
        for (std::size_t i = 1; i <= 2; ++i) {
            add(i < text.size() ? upperAscii(text[i]) : char16(u'\xFFFF'));
        }
        text.remove_prefix(std::min<std::size_t>(3, text.size()));
    }
}

void URIMix::addPort(ustring_ref text) noexcept {
    if (text.empty()) {
        return;
    }
    add(u':');
    while (text.size() > 1 && text.front() == u'0') {
        text.remove_prefix(1);
    }
    addPlain(text.data(), text.size());
}

} // namespace detail

std::size_t URI::hashCode() const {
    std::size_t hash = cachedHash.load(std::memory_order_relaxed);
    if (hash != 0) {
        return hash;
    }
    detail::URIMix mix;
    mix.addScheme(getScheme());
    if (const ustring_ref info = getRawUserInfo(); info.data() != nullptr) {
        mix.addComponent(u'@', info);
        // And once more, where the host might be expected; kept for callers that store the hash.
        mix.add(u'/');
        const std::size_t escape = std::min(info.find(char16(u'%')), info.size());
        mix.addFolded(ustring_ref(info.data(), escape));
        if (escape != info.size()) {
            mix.addFolded(URIData::decode(Charset::UTF_8, info.substr(escape), 0));
        }
    }
    mix.addPort(getRawPort());
    mix.addComponent(getRawPath());
    mix.addComponent(u'?', getRawQuery());
    mix.addComponent(u'#', getRawFragment());
    hash = mix.value();
    cachedHash.store(hash, std::memory_order_relaxed);
    return hash;
}

} // namespace orv::net
