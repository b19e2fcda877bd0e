// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The rules of `URIGrammar`, apart from addresses.
#include "orv/liborvxx/net/detail/uri_grammar.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/detail/uri_units.h"

namespace orv::net::detail {

namespace {

// Whether an escape stands at units: "%" HEXDIG HEXDIG.
bool isEscape(const char16* units, const char16* end) noexcept {
    return end - units >= 3 && *units == u'%' && isAscii(units[1], HEX_DIGIT) &&
           isAscii(units[2], HEX_DIGIT);
}

} // namespace

void URIFailure::raise() const {
    if (outOfRange) {
        throw OutOfRangeError(reason, position);
    }
    throw ParseError(reason, position);
}

// URI = scheme ":" hier-part [ "?" query ] [ "#" fragment ]
char16 URIGrammar::parse_uri(Iterator& it) noexcept {
    if (parse_scheme(it, it.current()) != u':') {
        return raiseParseError(it, "':' expected");
    }
    return parse_uri_after_scheme(it);
}

// URI-reference = URI / relative-ref
char16 URIGrammar::parse_uri_reference(Iterator& it) noexcept {
    return try_parse_scheme(it) ? parse_uri_after_scheme(it) : parse_relative_ref(it);
}

// ":" hier-part [ "?" query ] [ "#" fragment ]
char16 URIGrammar::parse_uri_after_scheme(Iterator& it) noexcept {
    it.step();
    const std::size_t start = it.position();
    std::size_t end = 0;
    char16 unit = parse_hier_part(it, it.current());
    unit = parse_query_and_fragment(it, unit, &end);
    schemeSpecificPart = SubstrRange(start, end);
    return unit;
}

// relative-ref = relative-part [ "?" query ] [ "#" fragment ]
char16 URIGrammar::parse_relative_ref(Iterator& it) noexcept {
    const std::size_t start = it.position();
    std::size_t end = 0;
    char16 unit = parse_relative_part(it, it.current());
    unit = parse_query_and_fragment(it, unit, &end);
    schemeSpecificPart = SubstrRange(start, end);
    return unit;
}

// scheme ":", and the cursor goes to the ":"; else it stays where it is.
bool URIGrammar::try_parse_scheme(Iterator& it) noexcept {
    const ustring_ref text = it.text();
    std::size_t end = it.position();
    if (!isAscii(it.current(), ALPHA)) {
        return false;
    }
    do {
        ++end;
    } while (end < text.size() && isAscii(text[end], SCHEME_UNIT));
    if (end == text.size() || text[end] != u':') {
        return false;
    }
    scheme = SubstrRange(it.position(), end);
    it.advance(end - it.position());
    return true;
}

// scheme = ALPHA *( ALPHA / DIGIT / "+" / "-" / "." )
char16 URIGrammar::parse_scheme(Iterator& it, char16 unit) noexcept {
    const std::size_t start = it.position();
    if (!isAscii(unit, ALPHA)) {
        return raiseParseError(it, "<ALPHA> expected");
    }
    do {
        it.step();
    } while (isAscii(it.current(), SCHEME_UNIT));
    scheme = SubstrRange(start, it.position());
    return it.current();
}

// hier-part = "//" authority path-abempty / path-absolute / path-rootless / path-empty
char16 URIGrammar::parse_hier_part(Iterator& it, char16 unit) noexcept {
    hierarchical = unit == u'/';
    if (hierarchical) {
        return parse_hierarchy(it);
    }
    return is_pchar(it, unit) ? parse_path_rootless(it) : parse_path_empty(it);
}

// relative-part = "//" authority path-abempty / path-absolute / path-noscheme / path-empty
char16 URIGrammar::parse_relative_part(Iterator& it, char16 unit) noexcept {
    hierarchical = unit == u'/';
    if (hierarchical) {
        return parse_hierarchy(it);
    }
    return is_pchar_nc(it, unit) ? parse_path_noscheme(it) : parse_path_empty(it);
}

// "//" authority path-abempty / path-absolute
char16 URIGrammar::parse_hierarchy(Iterator& it) noexcept {
    Iterator behind = it;
    behind.step();
    if (behind.current() != u'/') {
        return parse_path_absolute(it);
    }
    it = behind;
    it.step();
    return parse_path_abempty(it, parse_authority(it, it.current()));
}

// authority = [ userinfo "@" ] host [ ":" port ]
char16 URIGrammar::parse_authority(Iterator& it, char16 unit) noexcept {
    const std::size_t start = it.position();
    const bool isLiteral = unit == u'[';
    unit = parse_host(it, unit);
    // What was read as a name may be user information, or the beginning of it.
    if ((unit == u'@' || unit == u':') && !isLiteral && parse_user_info(it, start)) {
        unit = parse_host(it, it.current());
    }
    if (unit == u':') {
        it.step();
        unit = parse_port(it);
    }
    authority = SubstrRange(start, it.position());
    return unit;
}

// userinfo = *( unreserved / pct-encoded / sub-delims / ":" ), begun at start and read up to the
// cursor, and "@". The cursor goes behind it; without "@" it stays where it is.
bool URIGrammar::parse_user_info(Iterator& it, std::size_t start) noexcept {
    Iterator ahead = it;
    if (skip_run(ahead, USER_INFO_UNIT) != u'@') {
        return false;
    }
    userInfo = SubstrRange(start, ahead.position());
    ahead.step();
    it = ahead;
    return true;
}

// host = IP-literal / IPv4address / reg-name
// An IPv4 address is a registered name to this rule.
char16 URIGrammar::parse_host(Iterator& it, char16 unit) noexcept {
    const std::size_t start = it.position();
    unit = unit == u'[' ? parse_IP_literal(it) : parse_reg_name(it);
    host = SubstrRange(start, it.position());
    return unit;
}

// port = *DIGIT
char16 URIGrammar::parse_port(Iterator& it) noexcept {
    const std::size_t start = it.position();
    while (isAscii(it.current(), DIGIT)) {
        it.step();
    }
    port = SubstrRange(start, it.position());
    return it.current();
}

// reg-name = *( unreserved / pct-encoded / sub-delims )
char16 URIGrammar::parse_reg_name(Iterator& it) noexcept {
    return skip_run(it, REG_NAME_UNIT);
}

// path-abempty = *( "/" segment )
// segment = *pchar
char16 URIGrammar::parse_path_abempty(Iterator& it, char16 unit) noexcept {
    const std::size_t start = it.position();
    if (unit == u'/') {
        unit = skip_run(it, PCHAR | SLASH);
    }
    path = SubstrRange(start, it.position());
    return unit;
}

// path-absolute = "/" [ segment-nz *( "/" segment ) ]
// A second "/" is not met here: with it an authority begins.
char16 URIGrammar::parse_path_absolute(Iterator& it) noexcept {
    return parse_path_rootless(it);
}

// path-noscheme = segment-nz-nc *( "/" segment )
// segment-nz-nc = 1*( unreserved / pct-encoded / sub-delims / "@" )
char16 URIGrammar::parse_path_noscheme(Iterator& it) noexcept {
    const std::size_t start = it.position();
    char16 unit = skip_run(it, PCHAR_NC);
    if (unit == u'/') {
        unit = skip_run(it, PCHAR | SLASH);
    }
    path = SubstrRange(start, it.position());
    return unit;
}

// path-rootless = segment-nz *( "/" segment )
// segment-nz = 1*pchar
// The caller has seen that the path begins with neither "/" nor the end of it.
char16 URIGrammar::parse_path_rootless(Iterator& it) noexcept {
    const std::size_t start = it.position();
    const char16 unit = skip_run(it, PCHAR | SLASH);
    path = SubstrRange(start, it.position());
    return unit;
}

// path-empty = 0<pchar>
char16 URIGrammar::parse_path_empty(Iterator& it) noexcept {
    path = SubstrRange(it.position(), it.position());
    return it.current();
}

// query = *( pchar / "/" / "?" )
char16 URIGrammar::parse_query(Iterator& it) noexcept {
    const std::size_t start = it.position();
    const char16 unit = skip_run(it, QUERY_UNIT);
    query = SubstrRange(start, it.position());
    return unit;
}

// fragment = *( pchar / "/" / "?" )
char16 URIGrammar::parse_fragment(Iterator& it) noexcept {
    const std::size_t start = it.position();
    const char16 unit = skip_run(it, QUERY_UNIT);
    fragment = SubstrRange(start, it.position());
    return unit;
}

// [ "?" query ] [ "#" fragment ], and then no unit that looks like more of it.
char16 URIGrammar::parse_query_and_fragment(Iterator& it, char16 unit,
                                            std::size_t* sspEnd) noexcept {
    if (unit == u'?') {
        it.step();
        unit = parse_query(it);
    }
    *sspEnd = it.position();
    if (unit == u'#') {
        it.step();
        unit = parse_fragment(it);
    }
    return is_uri_char(unit) ? raiseParseError(it, "unexpected character at end of URI") : unit;
}

// pchar = unreserved / pct-encoded / sub-delims / ":" / "@"
bool URIGrammar::is_pchar(const Iterator& it, char16 unit) const noexcept {
    return isUnit(unit, PCHAR, asciiOnly) || is_pct_encoded(it, unit);
}

// unreserved / pct-encoded / sub-delims / "@"
bool URIGrammar::is_pchar_nc(const Iterator& it, char16 unit) const noexcept {
    return isUnit(unit, PCHAR_NC, asciiOnly) || is_pct_encoded(it, unit);
}

// pct-encoded = "%" HEXDIG HEXDIG
bool URIGrammar::is_pct_encoded(const Iterator& it, char16 unit) noexcept {
    const ustring_ref text = it.text();
    return unit == u'%' && isEscape(text.begin() + it.position(), text.end());
}

// Units of the classes, and escapes, as many as there are.
char16 URIGrammar::skip_run(Iterator& it, unsigned int classes) const noexcept {
    const char16* const begin = it.text().begin() + it.position();
    const char16* const end = it.text().end();
    const char16* p = begin;
    for (;;) {
        while (p != end && isAscii(*p, classes)) {
            ++p;
        }
        if (p == end) {
            break;
        }
        if (isEscape(p, end)) {
            p += 3;
        } else if (*p > u'\x7F' && isUnit(*p, classes, asciiOnly)) {
            ++p;
        } else {
            break;
        }
    }
    it.advance(static_cast<std::size_t>(p - begin));
    return it.current();
}

char16 URIGrammar::raiseParseError(Iterator& it, const char* reason) noexcept {
    if (failure_.reason == nullptr) {
        failure_ = {reason, it.position(), false};
    }
    it.advance(it.text().size() - it.position());
    return it.current();
}

char16 URIGrammar::raiseOutOfRangeError(Iterator& it, const char* reason) noexcept {
    if (failure_.reason == nullptr) {
        failure_ = {reason, it.position(), true};
    }
    it.advance(it.text().size() - it.position());
    return it.current();
}

} // namespace orv::net::detail
