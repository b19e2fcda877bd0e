// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The classes of differences between this library and others, each with its condition and
/// an example.
#ifndef ORV_TESTS_DIFFERENTIAL_NET_URI_DIFFERENCES_H
#define ORV_TESTS_DIFFERENTIAL_NET_URI_DIFFERENCES_H

#include "tests/differential/net/uri_peers.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvtest {

enum class UriOperation { PARSE, NORMALIZE, RESOLVE };

/// What libraries are asked: \p text, and for RESOLVE the base.
struct UriQuestion {
    UriOperation operation = UriOperation::PARSE;
    std::string text;
    std::string base;
};

/// What a class is told by: the components as this library parses them, and as the other does.
struct UriComparison {
    std::optional<UriParts> own;
    std::optional<UriParts> other;
    std::optional<UriParts> base; ///< by this library
};

/// Whom a class concerns.
enum class UriPeers { BOOST, URIPARSER, BOTH };

/// A class of differences.
struct UriDifference {
    const char* name;
    const char* why;
    UriPeers peers;
    bool (*applies)(const UriComparison& comparison);
    UriQuestion example;
};

/// Classes of an operation; the first that applies explains a difference.
const std::vector<UriDifference>& uriDifferences(UriOperation operation);

/// An answer in one line; "refused" for none.
std::string uriAnswer(const UriLibrary& library, const UriQuestion& question);

bool concerns(const UriDifference& difference, const UriLibrary& other);

/// The class that explains why the answers of the two libraries differ, null for none.
const UriDifference* explanation(const UriLibrary& other, const UriQuestion& question);

} // namespace orvtest

#endif
