// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The operations of `URI` on single components, as sentences on lists of segments and units
/// rather than as one pass over the text.
#ifndef ORV_TESTS_REFERENCE_URI_MODEL_H
#define ORV_TESTS_REFERENCE_URI_MODEL_H

#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/ustring.h"

#include <cstddef>

namespace orvtest {

/// Whether `URI::normalize` keeps a path.
bool isNormalPath(const orv::ustring& path);

/// The path that `URI::normalize` makes.
orv::ustring normalPath(const orv::ustring& path);

/// `URI::hashCode`, from the raw components of a URI of up to 65,535 units.
std::size_t uriHash(const orv::net::URI& uri);

/// A unit without its case, by the two steps of upper and lower case.
unsigned foldedUnit(unsigned unit);

} // namespace orvtest

#endif
