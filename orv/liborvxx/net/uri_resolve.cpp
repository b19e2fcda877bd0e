// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI::resolve`, `relativize` and `normalize`.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/detail/uri_compare.h"
#include "orv/liborvxx/net/detail/uri_components.h"
#include "orv/liborvxx/net/detail/uri_grammar.h"
#include "orv/liborvxx/net/detail/uri_path.h"
#include "orv/liborvxx/net/uri.h"

#include <cassert>
#include <stdexcept>

namespace orv::net {

Optional<bool> URI::knownPathNormalized() const noexcept {
    const signed char known = pathNormalized.load(std::memory_order_relaxed);
    return known < 0 ? Optional<bool>() : Optional<bool>(known != 0);
}

bool URI::isPathNormalized() const noexcept {
    if (const auto known = knownPathNormalized(); known.hasValue()) {
        return *known;
    }
    const bool normal = isOpaque() || detail::isNormalizedPath(getRawPath());
    pathNormalized.store(normal ? 1 : 0, std::memory_order_relaxed);
    return normal;
}

gref<URI> URI::normalize() const {
    if (isPathNormalized()) {
        return gref_from_this();
    }
    Components components = getComponents();
    detail::PathText normal(components.path.size());
    normal.append(components.path);
    normal.normalize();
    components.path = normal.view();
    return gref<URI>(new URI(components, true));
}

gref<URI> URI::resolve(const Components& ref, const Optional<bool>& refPathNormalized) const {
    Components result = getComponents();
    if (ref.fragment.hasValue() && ref.path.empty() && !ref.host.hasValue() &&
        !ref.query.hasValue()) {
        result.fragment = ref.fragment;
        return gref<URI>(new URI(result, knownPathNormalized()));
    }
    result.query = ref.query;
    result.fragment = ref.fragment;
    if (ref.host.hasValue()) {
        result.userInfo = ref.userInfo;
        result.host = ref.host;
        result.port = ref.port;
    } else if (ref.path.empty() || ref.path.front() != u'/') {
        detail::PathText merged(result.path.size() + ref.path.size() + 1);
        detail::mergePaths(result.host.hasValue(), result.path, ref.path, merged);
        merged.normalize();
        result.path = merged.view();
        return gref<URI>(new URI(result, true));
    }
    result.path = ref.path;
    return gref<URI>(new URI(result, refPathNormalized));
}

gref<URI> URI::resolve(const gref<URI>& other) const {
    if (!other) {
        AssertionError::raise(nullptr, nullptr, 1350, "resolve");
    }
    if (other->isAbsolute() || isOpaque()) {
        return other;
    }
    return resolve(other->getComponents(), other->knownPathNormalized());
}

gref<URI> URI::resolve(ustring_ref text) const {
    detail::URIGrammar grammar(false, Charset::UTF_8);
    detail::URIGrammar::Iterator it(text);
    grammar.parse_uri_reference(it);
    if (const detail::URIFailure& failure = grammar.failure(); failure.reason != nullptr) {
        failure.raise();
    }
    if (!it.atEnd()) {
        throw std::invalid_argument("unexpected character");
    }
    const Components ref = getComponents(grammar, text);
    if (ref.scheme.hasValue() || isOpaque()) {
        return gref<URI>(new URI(grammar, text.to_string()));
    }
    return resolve(ref, std::nullopt);
}

// The path, if need be normalised into \p storage.
ustring_ref URI::getNormalizedPath(ustring& storage) const {
    const ustring_ref raw = getRawPath();
    if (isPathNormalized()) {
        return raw;
    }
    detail::PathText normal(raw.size());
    normal.append(raw);
    normal.normalize();
    storage = normal.view().to_string();
    return storage;
}

gref<URI> URI::relativize(const gref<URI>& other) const {
    assert(other);
    if (isOpaque() || other->isOpaque() || !detail::schemeEquals(getScheme(), other->getScheme()) ||
        !detail::componentEquals(getRawUserInfo(), other->getRawUserInfo()) ||
        !detail::hostEquals(getRawHost(), other->getRawHost()) ||
        !detail::portEquals(getRawPort(), other->getRawPort())) {
        return other;
    }
    ustring baseStorage;
    ustring otherStorage;
    const ustring_ref basePath = getNormalizedPath(baseStorage);
    ustring_ref pathText = other->getNormalizedPath(otherStorage);
    if (basePath.size() > pathText.size() || pathText.substr(0, basePath.size()) != basePath) {
        return other;
    }
    pathText.remove_prefix(basePath.size());
    if (!pathText.empty() && (basePath.empty() || basePath.back() != u'/')) {
        if (pathText.front() != u'/') {
            return other;
        }
        pathText.remove_prefix(1);
    }
    Components relative;
    relative.path = pathText;
    const Components components = other->getComponents();
    relative.query = components.query;
    relative.fragment = components.fragment;
    return gref<URI>(new URI(relative, true));
}

} // namespace orv::net
