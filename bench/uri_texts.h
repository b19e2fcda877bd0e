// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The URLs that uri_bench works on, the same in every run.
#ifndef ORV_BENCH_URI_TEXTS_H
#define ORV_BENCH_URI_TEXTS_H

#include "orv/liborvxx/text/ustring.h"

#include <string>
#include <vector>

namespace bench {

/// A URL as UTF-16, and in ASCII for peers that know no other: with units beyond ASCII escaped.
struct UriText {
    orv::ustring wide;
    std::string narrow;
};

/// A kind of URLs.
struct UriSet {
    std::string name;
    std::vector<UriText> texts;
};

/// 10,000 of each kind: absolute URLs of exactly 100 units in ASCII; what is found on pages (short
/// and long, with ports, queries, escapes, addresses, relative and opaque ones); and URLs with
/// words in eight scripts.
const std::vector<UriSet>& uriSets();

/// Absolute http URLs whose case, escapes and paths are not in normal form, though without what
/// libraries normalise in ways of their own: ports, empty segments, dots at the end of a path.
const std::vector<UriText>& untidyUris();

/// The same URL as in the first set, with another case in scheme, host and escapes.
std::vector<UriText> respelled(const std::vector<UriText>& texts);

/// References to be resolved against "http://example.org/docs/guide/start?x=1": relative paths,
/// also with "../", with queries and fragments.
const std::vector<UriText>& relativeReferences();

} // namespace bench

#endif
