// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What uriparser makes of ASCII texts.
#include "tests/differential/net/uri_peers.h"

#include <boost/version.hpp>
#include <uriparser/Uri.h>

namespace orvtest {

namespace {

// Frees what a URI holds.
class Uri {
public:
    Uri() = default;
    explicit Uri(const std::string& text)
        : parsed_(uriParseSingleUriExA(&uri_, text.data(), text.data() + text.size(), nullptr) ==
                  URI_SUCCESS) {}
    Uri(const Uri&) = delete;
    Uri& operator=(const Uri&) = delete;
    ~Uri() { uriFreeUriMembersA(&uri_); }

    explicit operator bool() const { return parsed_; }
    UriUriA* get() { return &uri_; }
    const UriUriA* get() const { return &uri_; }

    std::optional<std::string> text() const {
        int length = 0;
        if (uriToStringCharsRequiredA(&uri_, &length) != URI_SUCCESS) {
            return std::nullopt;
        }
        std::string result(static_cast<std::size_t>(length) + 1, '\0');
        if (uriToStringA(result.data(), &uri_, length + 1, nullptr) != URI_SUCCESS) {
            return std::nullopt;
        }
        result.pop_back();
        return result;
    }

private:
    UriUriA uri_{};
    bool parsed_ = false;
};

std::optional<std::string> part(const UriTextRangeA& range) {
    return range.first == nullptr
               ? std::nullopt
               : std::optional<std::string>(std::in_place, range.first, range.afterLast);
}

std::string pathOf(const UriUriA& uri) {
    std::string path = uri.absolutePath != 0 ? "/" : "";
    for (const UriPathSegmentA* segment = uri.pathHead; segment != nullptr;
         segment = segment->next) {
        if (segment != uri.pathHead || uri.hostText.first != nullptr) {
            path += '/';
        }
        path.append(segment->text.first, segment->text.afterLast);
    }
    return path;
}

std::optional<UriParts> parse(const std::string& text) {
    const Uri parsed(text);
    if (!parsed) {
        return std::nullopt;
    }
    const UriUriA& uri = *parsed.get();
    UriParts parts{.scheme = part(uri.scheme),
                   .userInfo = part(uri.userInfo),
                   .host = part(uri.hostText),
                   .port = part(uri.portText),
                   .path = pathOf(uri),
                   .query = part(uri.query),
                   .fragment = part(uri.fragment)};
    if (uri.hostData.ip6 != nullptr || uri.hostData.ipFuture.first != nullptr) {
        parts.host = "[" + *parts.host + "]";
    }
    return parts;
}

std::optional<std::string> normalize(const std::string& text) {
    Uri uri(text);
    if (!uri || uriNormalizeSyntaxA(uri.get()) != URI_SUCCESS) {
        return std::nullopt;
    }
    return uri.text();
}

std::optional<std::string> resolve(const std::string& base, const std::string& reference) {
    const Uri from(base);
    const Uri to(reference);
    Uri target;
    if (!from || !to || uriAddBaseUriA(target.get(), to.get(), from.get()) != URI_SUCCESS) {
        return std::nullopt;
    }
    return target.text();
}

} // namespace

const UriLibrary URIPARSER_URIS = {
    .name = "uriparser", .parse = parse, .normalize = normalize, .resolve = resolve};

std::string uriPeerVersions() {
    return "Boost.URL " + std::to_string(BOOST_VERSION / 100000) + "." +
           std::to_string(BOOST_VERSION / 100 % 1000) + " and uriparser " + URI_VER_ANSI;
}

} // namespace orvtest
