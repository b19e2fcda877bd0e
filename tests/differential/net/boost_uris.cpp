// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What Boost.URL makes of ASCII texts.
#include "tests/differential/net/uri_peers.h"

#include <boost/url.hpp>

namespace orvtest {

namespace {

namespace urls = boost::urls;

template <class View>
std::string textOf(const View& view) {
    return {view.data(), view.size()};
}

template <class View>
std::optional<std::string> part(bool isPresent, const View& view) {
    return isPresent ? std::optional<std::string>(textOf(view)) : std::nullopt;
}

std::optional<UriParts> parse(const std::string& text) {
    const auto result = urls::parse_uri_reference(text);
    if (!result) {
        return std::nullopt;
    }
    const urls::url_view uri = *result;
    return UriParts{.scheme = part(uri.has_scheme(), uri.scheme()),
                    .userInfo = part(uri.has_userinfo(), uri.encoded_userinfo()),
                    .host = part(uri.has_authority(), uri.encoded_host()),
                    .port = part(uri.has_port(), uri.port()),
                    .path = textOf(uri.encoded_path()),
                    .query = part(uri.has_query(), uri.encoded_query()),
                    .fragment = part(uri.has_fragment(), uri.encoded_fragment())};
}

std::optional<std::string> normalize(const std::string& text) {
    const auto result = urls::parse_uri_reference(text);
    if (!result) {
        return std::nullopt;
    }
    urls::url uri(*result);
    uri.normalize();
    return textOf(uri.buffer());
}

std::optional<std::string> resolve(const std::string& base, const std::string& reference) {
    const auto from = urls::parse_uri_reference(base);
    const auto to = urls::parse_uri_reference(reference);
    urls::url target;
    if (!from || !to || !urls::resolve(*from, *to, target)) {
        return std::nullopt;
    }
    return textOf(target.buffer());
}

} // namespace

const UriLibrary BOOST_URIS = {
    .name = "Boost.URL", .parse = parse, .normalize = normalize, .resolve = resolve};

} // namespace orvtest
