// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What this library makes of ASCII texts.
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/net/uri_parser.h"
#include "tests/differential/net/uri_peers.h"
#include "tests/support/text_in.h"

namespace orvtest {

namespace {

using orv::net::URI;
using orv::net::URIParser;
using orv::net::URIResult;

std::string narrow(orv::ustring_ref text) {
    std::string result;
    result.reserve(text.size());
    for (const orv::char16 unit : text) {
        result.push_back(static_cast<char>(unit));
    }
    return result;
}

std::optional<std::string> part(orv::ustring_ref view) {
    return view.data() == nullptr ? std::nullopt : std::optional<std::string>(narrow(view));
}

std::optional<UriParts> parse(const std::string& text) {
    const URIResult result = URI::tryCreate(textIn<orv::char16>(text));
    if (!result) {
        return std::nullopt;
    }
    const URI& uri = *result.uri;
    return UriParts{.scheme = part(uri.getScheme()),
                    .userInfo = part(uri.getRawUserInfo()),
                    .host = part(uri.getRawHost()),
                    .port = part(uri.getRawPort()),
                    .path = narrow(uri.getRawPath()),
                    .query = part(uri.getRawQuery()),
                    .fragment = part(uri.getRawFragment())};
}

std::optional<std::string> normalize(const std::string& text) {
    const orv::ustring wide = textIn<orv::char16>(text);
    if (!URI::tryCreate(wide)) {
        return std::nullopt;
    }
    orv::BasicCharIterator<orv::char16> it{orv::ustring_ref(wide)};
    const auto parser = URIParser::parseURIReference(it);
    return narrow(URIParser::normalize(
        wide, parser.get(), URIParser::NORM_CASE | URIParser::NORM_PERCENT | URIParser::NORM_PATH));
}

std::optional<std::string> resolve(const std::string& base, const std::string& reference) {
    const URIResult from = URI::tryCreate(textIn<orv::char16>(base));
    const URIResult to = URI::tryCreate(textIn<orv::char16>(reference));
    if (!from || !to) {
        return std::nullopt;
    }
    return narrow(from.uri->resolve(to.uri)->toString());
}

} // namespace

const UriLibrary OWN_URIS = {
    .name = "orvxx", .parse = parse, .normalize = normalize, .resolve = resolve};

} // namespace orvtest
