// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What comes of parsing a text, in one line to compare.
#ifndef ORV_TESTS_NET_PARSE_OUTCOME_H
#define ORV_TESTS_NET_PARSE_OUTCOME_H

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/uri_parser.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <typeinfo>

namespace orvtest {

enum class Entry { URI, REFERENCE };

/// The defined components, as "s:scheme a:authority u:user h:host p:port /:path ?:query
/// #:fragment", and behind "@" where the cursor stands.
inline std::string shownComponents(const orv::net::URIParser& uri, orv::ustring_ref text,
                                   std::size_t position) {
    std::string line;
    const auto add = [&line](const char* name, bool defined, orv::ustring_ref part) {
        if (defined) {
            line += name + shown(part) + ' ';
        }
    };
    add("s:", uri.isSchemeDefined(), uri.getScheme(text));
    add("a:", uri.isAuthorityDefined(), uri.getRawAuthority(text));
    add("u:", uri.isUserInfoDefined(), uri.getRawUserInfo(text));
    add("h:", uri.isHostDefined(), uri.getRawHost(text));
    add("p:", uri.isPortDefined(), uri.getPort(text));
    add("/:", true, uri.getRawPath(text));
    add("?:", uri.isQueryDefined(), uri.getRawQuery(text));
    add("#:", uri.isFragmentDefined(), uri.getRawFragment(text));
    return line + '@' + std::to_string(position);
}

/// The same, or "message at N" with the place of the error; "too big: " goes before an
/// `OutOfRangeError`, and " but @M" behind it if the cursor is elsewhere.
inline std::string outcome(orv::ustring_ref text, Entry entry = Entry::REFERENCE,
                           bool asciiOnly = false, std::size_t start = 0) {
    using orv::net::URIParser;
    orv::BasicCharIterator<orv::char16> it(text);
    it.setPosition(start);
    try {
        const auto uri = entry == Entry::URI ? URIParser::parseURI(it, asciiOnly)
                                             : URIParser::parseURIReference(it, asciiOnly);
        return shownComponents(*uri, text, it.position());
    } catch (const orv::ParseError& error) {
        std::string line = typeid(error) == typeid(orv::OutOfRangeError) ? "too big: " : "";
        line += std::string(error.what()) + " at " + std::to_string(error.getErrorOffset());
        if (it.position() != error.getErrorOffset()) {
            line += " but @" + std::to_string(it.position());
        }
        return line;
    }
}

/// One unit for each byte.
inline std::string outcome(std::string_view text, Entry entry = Entry::REFERENCE,
                           bool asciiOnly = false, std::size_t start = 0) {
    return outcome(orv::ustring_ref(textIn<orv::char16>(text)), entry, asciiOnly, start);
}

} // namespace orvtest

#endif
