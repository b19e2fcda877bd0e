// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The rules of `URIGrammar` for IP addresses.
#include "orv/liborvxx/net/detail/uri_grammar.h"
#include "orv/liborvxx/net/detail/uri_units.h"

#include "orv/liborv/unicode/unichar.h"

namespace orv::net::detail {

namespace {

// What may come next in an IPv6 address, and the text that says so. The constants below are all
// there is.
struct Expected {
    bool field;
    bool colon;
    bool doubleColon;
    bool end;
    const char* reason;
};

constexpr Expected START = {true, false, true, false,
                            "IPv6 address field or double colon expected"};
constexpr Expected BEHIND_FIELD = {false, true, true, false, "single or double colon expected"};
constexpr Expected BEHIND_COLON = {true, false, false, false, "IPv6 address field expected"};
constexpr Expected BEHIND_DOUBLE_COLON = {true, false, false, true,
                                          "IPv6 address field or end of address expected"};
constexpr Expected BEHIND_LATER_FIELD = {false, true, false, true,
                                         "single colon or end of IPv6 address expected"};
constexpr Expected COMPLETE = {false, false, false, true, "end of IPv6 address expected"};

bool isLetterOrDigit(char16 unit) noexcept {
    return orvUniCharIsLetterOrDecimalDigit(static_cast<std::uint32_t>(unit)) != 0;
}

} // namespace

// IP-literal = "[" ( IPv6address / IPvFuture ) "]"
char16 URIGrammar::parse_IP_literal(Iterator& it) noexcept {
    it.step();
    const char16 unit = it.current() == u'v' ? parse_IPvFuture(it) : skip_IPv6_address(it);
    if (unit != u']') {
        return raiseParseError(it, "']' expected");
    }
    it.step();
    return it.current();
}

// IPvFuture = "v" 1*HEXDIG "." 1*( unreserved / sub-delims / ":" )
// Of the two cases only the lower one is taken.
char16 URIGrammar::parse_IPvFuture(Iterator& it) noexcept {
    it.step();
    if (!isAscii(it.current(), HEX_DIGIT)) {
        return raiseParseError(it, "<HEXDIG> expected");
    }
    while (isAscii(it.current(), HEX_DIGIT)) {
        it.step();
    }
    if (it.current() != u'.') {
        return raiseParseError(it, "'.' expected");
    }
    it.step();
    if (!isUnit(it.current(), USER_INFO_UNIT, asciiOnly)) {
        return raiseParseError(it, "<unreserved>, <sub-delims> or ':' expected");
    }
    while (isUnit(it.current(), USER_INFO_UNIT, asciiOnly)) {
        it.step();
    }
    return it.current();
}

// IPv4address = dec-octet "." dec-octet "." dec-octet "." dec-octet
char16 URIGrammar::skip_IPv4_address(Iterator& it) noexcept {
    for (int octet = 1; octet <= 4; ++octet) {
        if (octet != 1) {
            if (it.current() != u'.') {
                return raiseParseError(it, "'.' expected");
            }
            it.step();
        }
        if (!skip_octet(it)) {
            return it.current();
        }
    }
    if (isLetterOrDigit(it.current()) || it.current() == u'.') {
        return raiseParseError(it, "letter, digit and '.' not allowed here");
    }
    return it.current();
}

// dec-octet = DIGIT / %x31-39 DIGIT / "1" 2DIGIT / "2" %x30-34 DIGIT / "25" %x30-35
// Behind a first 0 the octet ends. False after a failure.
bool URIGrammar::skip_octet(Iterator& it) noexcept {
    if (!isAscii(it.current(), DIGIT)) {
        raiseParseError(it, "digit expected");
        return false;
    }
    unsigned int value = 0;
    do {
        value = value * 10 + (static_cast<unsigned int>(it.current()) - u'0');
        if (value > 255) {
            raiseOutOfRangeError(it, "value greater than 255");
            return false;
        }
        it.step();
    } while (value != 0 && isAscii(it.current(), DIGIT));
    return true;
}

// IPv6address =                            6( h16 ":" ) ls32
//             /                       "::" 5( h16 ":" ) ls32
//             / [               h16 ] "::" 4( h16 ":" ) ls32
//             / [ *1( h16 ":" ) h16 ] "::" 3( h16 ":" ) ls32
//             / [ *2( h16 ":" ) h16 ] "::" 2( h16 ":" ) ls32
//             / [ *3( h16 ":" ) h16 ] "::"    h16 ":"   ls32
//             / [ *4( h16 ":" ) h16 ] "::"              ls32
//             / [ *5( h16 ":" ) h16 ] "::"              h16
//             / [ *6( h16 ":" ) h16 ] "::"
// h16 = 1*4HEXDIG
// ls32 = ( h16 ":" h16 ) / IPv4address
char16 URIGrammar::skip_IPv6_address(Iterator& it) noexcept {
    const Expected* next = &START;
    int fields = 0; // "::" counts as one
    bool doubleColonSeen = false;
    for (;;) {
        if (isAscii(it.current(), HEX_DIGIT)) {
            if (!next->field) {
                return raiseParseError(it, next->reason);
            }
            const Iterator field = it;
            for (int digits = 0; digits < 4 && isAscii(it.current(), HEX_DIGIT); ++digits) {
                it.step();
            }
            if (it.current() == u'.' && (fields == 6 || (fields < 6 && doubleColonSeen))) {
                it = field;
                skip_IPv4_address(it);
                next = &COMPLETE;
                fields = 8;
            } else {
                ++fields;
                next = fields == 8       ? &COMPLETE
                       : doubleColonSeen ? &BEHIND_LATER_FIELD
                                         : &BEHIND_FIELD;
            }
        } else if (it.current() == u':') {
            if (!next->colon && !next->doubleColon) {
                return raiseParseError(it, next->reason);
            }
            it.step();
            if (it.current() == u':') {
                if (!next->doubleColon) {
                    return raiseParseError(it, next->reason);
                }
                it.step();
                doubleColonSeen = true;
                ++fields;
                next = fields == 8 ? &COMPLETE : &BEHIND_DOUBLE_COLON;
            } else {
                if (!next->colon) {
                    return raiseParseError(it, next->reason);
                }
                next = &BEHIND_COLON;
            }
        } else if (next->end && !isLetterOrDigit(it.current()) && it.current() != u'.') {
            return it.current();
        } else {
            return raiseParseError(it, next->reason);
        }
    }
}

} // namespace orv::net::detail
