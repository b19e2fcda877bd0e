// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a URI consists of, told line by line.
#ifndef ORV_EXAMPLES_URI_EXPLAIN_H
#define ORV_EXAMPLES_URI_EXPLAIN_H

#include "orv/liborvxx/net/uri.h"

#include <ostream>
#include <string>

namespace uri {

/// The text as UTF-8.
std::string utf8(orv::ustring_ref text);

/// Prints the text, its kind, and a line for each component that it has: as it stands, and decoded
/// where that is something else. Path segments and query parameters get lines of their own.
void explain(std::ostream& os, const orv::net::URI& uri);

/// Prints what is wrong with a text, and the text with a mark below the place.
void complain(std::ostream& os, orv::ustring_ref text, const orv::net::URIResult& result);

} // namespace uri

#endif
