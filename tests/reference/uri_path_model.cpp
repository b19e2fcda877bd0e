// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIParser::normalizePath` as sentences on a list of segments.
#include "tests/reference/uri_path_model.h"

#include <sstream>
#include <vector>

namespace orvtest {

std::string parserNormalPath(const std::string& path) {
    const bool isAbsolute = path.starts_with('/');
    const bool endsInSlash = path.ends_with('/');

    // Empty and "." segments go; ".." goes with a segment before it, if that is not ".." itself.
    std::vector<std::string> kept;
    std::string segment;
    for (std::istringstream segments(path); std::getline(segments, segment, '/');) {
        if (segment == ".." && !kept.empty() && kept.back() != "..") {
            kept.pop_back();
        } else if (!segment.empty() && segment != ".") {
            kept.push_back(segment);
        }
    }
    if (kept.empty() && isAbsolute) {
        // Of "/a/.." nothing is left, of "/a/../" the slash, and a last "." stays behind it.
        const bool endsInDot = path.ends_with("/.");
        return endsInSlash ? "/" : endsInDot ? "/." : "";
    }
    if (kept.empty()) {
        return endsInSlash ? "./" : ".";
    }
    std::string result;
    for (const std::string& one : kept) {
        result += (result.empty() && !isAbsolute ? "" : "/") + one;
    }
    return endsInSlash ? result + '/' : result;
}

} // namespace orvtest
