// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Components of a URI as lines.
#include "examples/uri/explain.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <string_view>

namespace uri {

namespace {

constexpr int NAME_WIDTH = 12;

// A component as it stands, and what it says if that differs.
void printPart(std::ostream& os, const char* name, orv::ustring_ref raw,
               const orv::ustring& decoded) {
    os << "  " << std::left << std::setw(NAME_WIDTH) << name << (raw.empty() ? "(empty)" : "")
       << utf8(raw);
    if (raw != decoded) {
        os << "  =  " << utf8(decoded);
    }
    os << '\n';
}

// Nothing for a component that is absent.
void printOptional(std::ostream& os, const char* name, orv::ustring_ref raw,
                   const orv::ustring& decoded) {
    if (raw.data() != nullptr) {
        printPart(os, name, raw, decoded);
    }
}

const char* kindOf(const orv::net::URI& uri) {
    if (uri.isOpaque()) {
        return "absolute, opaque";
    }
    if (uri.isAbsolute()) {
        return "absolute, hierarchical";
    }
    if (uri.isNetworkPathReference()) {
        return "relative, with an authority";
    }
    return uri.isAbsolutePathReference() ? "relative, from the root" : "relative";
}

void printSegments(std::ostream& os, const orv::net::URI& uri) {
    const orv::net::PathSegments segments = uri.pathSegments();
    if (segments.count() < 2) {
        return;
    }
    for (const orv::net::EncodedText segment : segments) {
        printPart(os, "  segment", segment.raw(), segment.decoded());
    }
}

void printParameters(std::ostream& os, const orv::net::URI& uri) {
    for (const orv::net::QueryParameter parameter : uri.queryParameters()) {
        os << "  " << std::left << std::setw(NAME_WIDTH) << "  parameter"
           << utf8(parameter.name.decoded(orv::net::PlusSign::SPACE));
        if (!parameter.value.isNull()) {
            os << ": " << utf8(parameter.value.decoded(orv::net::PlusSign::SPACE));
        }
        os << '\n';
    }
}

} // namespace

std::string utf8(orv::ustring_ref text) {
    return orv::Charset::UTF_8->encode(text);
}

void explain(std::ostream& os, const orv::net::URI& uri) {
    os << utf8(uri.toString()) << '\n' << "  " << kindOf(uri) << '\n';
    printOptional(os, "scheme", uri.getScheme(), uri.getScheme());
    printOptional(os, "user info", uri.getRawUserInfo(), uri.getUserInfo());
    printOptional(os, "host", uri.getRawHost(), uri.getHost());
    printOptional(os, "port", uri.getRawPort(), uri.getRawPort());
    printPart(os, "path", uri.getRawPath(), uri.getPath());
    printSegments(os, uri);
    printOptional(os, "query", uri.getRawQuery(), uri.getQuery());
    printParameters(os, uri);
    printOptional(os, "fragment", uri.getRawFragment(), uri.getFragment());
    if (const orv::ustring ascii = uri.toASCIIString(); ascii != uri.toString()) {
        printPart(os, "in ASCII", ascii, ascii);
    }
}

void complain(std::ostream& os, orv::ustring_ref text, const orv::net::URIResult& result) {
    os << "uri: " << std::string_view(result.reason) << '\n' << "  " << utf8(text) << '\n';
    // A column for each code point, which is right for most scripts.
    const std::size_t columns =
        orv::Char16::codePointCount(text, 0, std::min(result.index, text.size()));
    os << std::string(columns + 2, ' ') << "^ unit " << result.index << '\n';
}

} // namespace uri
