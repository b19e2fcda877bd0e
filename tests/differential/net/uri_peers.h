// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief URI references as this library, Boost.URL and uriparser have them.
#ifndef ORV_TESTS_DIFFERENTIAL_NET_URI_PEERS_H
#define ORV_TESTS_DIFFERENTIAL_NET_URI_PEERS_H

#include <optional>
#include <string>

namespace orvtest {

/// A URI reference taken apart; components as they stand in the text, hosts with their brackets.
struct UriParts {
    std::optional<std::string> scheme;
    std::optional<std::string> userInfo;
    std::optional<std::string> host;
    std::optional<std::string> port;
    std::string path;
    std::optional<std::string> query;
    std::optional<std::string> fragment;

    friend bool operator==(const UriParts&, const UriParts&) = default;
};

/// A library, by what it makes of ASCII texts. No value stands for a refusal.
struct UriLibrary {
    const char* name;
    std::optional<UriParts> (*parse)(const std::string& text);
    /// Case, escapes and dot segments.
    std::optional<std::string> (*normalize)(const std::string& text);
    /// The text behind \p reference as seen from \p base.
    std::optional<std::string> (*resolve)(const std::string& base, const std::string& reference);
};

extern const UriLibrary OWN_URIS;
extern const UriLibrary BOOST_URIS;
extern const UriLibrary URIPARSER_URIS;

/// The versions of the other two.
std::string uriPeerVersions();

} // namespace orvtest

#endif
