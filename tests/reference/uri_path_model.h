// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIParser::normalizePath` as sentences on a list of segments.
#ifndef ORV_TESTS_REFERENCE_URI_PATH_MODEL_H
#define ORV_TESTS_REFERENCE_URI_PATH_MODEL_H

#include <string>

namespace orvtest {

/// The path that `URIParser::normalizePath` makes of \p path.
std::string parserNormalPath(const std::string& path);

} // namespace orvtest

#endif
