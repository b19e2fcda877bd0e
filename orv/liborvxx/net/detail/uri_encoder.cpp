// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIEncoder`.
#include "orv/liborvxx/net/detail/uri_encoder.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/detail/ip_address.h"
#include "orv/liborvxx/net/detail/uri_units.h"
#include "orv/liborvxx/net/uri_syntax_error.h"
#include "orv/liborvxx/text/literals.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace orv::net::detail {

using namespace literals;

namespace {

[[noreturn]] void raiseSyntaxError(ustring_ref input, ustring_ref reason) {
    throw URISyntaxError(input.to_string(), reason.to_string());
}

constexpr bool isNonAscii(char16 c) noexcept {
    return static_cast<unsigned int>(c) > 127;
}

// Which units of a component stand as they are.
struct AsciiUnits {
    unsigned int bits;
    bool operator()(char16 c) const noexcept { return isAscii(c, bits); }
};
struct Units {
    unsigned int bits;
    bool operator()(char16 c) const noexcept { return isUnit(c, bits, false); }
};

// Appends runs of such units as they are and escapes the others.
template <typename IsPlain>
void appendEncoded(StringBuilder& sb, ustring_ref text, IsPlain isPlain) {
    const char16* at = text.begin();
    while (at != text.end()) {
        const char16* const run = at;
        at = std::find_if_not(run, text.end(), isPlain);
        sb.append(ustring_ref(run, static_cast<std::size_t>(at - run)));
        const char16* const rest = at;
        at = std::find_if(rest, text.end(), isPlain);
        URIEncoder::pct_encode(sb, ustring_ref(rest, static_cast<std::size_t>(at - rest)));
    }
}

std::size_t sizeOf(const Optional<ustring_ref>& part) {
    return part.hasValue() ? part->size() : 0;
}

} // namespace

URIEncoder::URIEncoder() noexcept : URIData(false, Charset::UTF_8) {}

void URIEncoder::encode(StringBuilder& sb, const Part& schemeText, const Part& userInfoText,
                        const Part& hostText, const Part& portText, ustring_ref pathText,
                        const Part& queryText, const Part& fragmentText) {
    // What is not escaped, and "://@[]:?#".
    sb.ensureCapacity(sizeOf(schemeText) + sizeOf(userInfoText) + sizeOf(hostText) +
                      sizeOf(portText) + pathText.size() + sizeOf(queryText) +
                      sizeOf(fragmentText) + 9);
    if (schemeText.hasValue()) {
        encode_scheme(sb, *schemeText);
    }
    const std::size_t sspBegin = sb.length();
    if (encode_authority(sb, userInfoText, hostText, portText)) {
        encode_path_abempty(sb, pathText);
    } else if (pathText.empty()) {
        encode_path_empty(sb);
    } else if (pathText.front() == u'/') {
        encode_path_absolute(sb, pathText);
    } else if (schemeText.hasValue()) {
        encode_path_rootless(sb, pathText);
    } else {
        encode_path_noscheme(sb, pathText);
    }
    if (queryText.hasValue()) {
        encode_query(sb, *queryText);
    }
    schemeSpecificPart = SubstrRange(sspBegin, sb.length());
    if (fragmentText.hasValue()) {
        encode_fragment(sb, *fragmentText);
    }
}

void URIEncoder::encode_opaque(StringBuilder& sb, ustring_ref schemeText, ustring_ref sspText,
                               const Part& fragmentText) {
    sb.ensureCapacity(schemeText.size() + sspText.size() + sizeOf(fragmentText) + 2);
    encode_scheme(sb, schemeText);
    encode_opaque_ssp(sb, sspText);
    if (fragmentText.hasValue()) {
        encode_fragment(sb, *fragmentText);
    }
}

void URIEncoder::pct_encode(StringBuilder& sb, unsigned int byte) {
    const std::array<char16, 3> escape = {u'%', forHexDigit(byte >> 4), forHexDigit(byte)};
    sb.append(ustring_ref(escape.data(), escape.size()));
}

void URIEncoder::pct_encode(StringBuilder& sb, ustring_ref text) {
    const char16* at = text.begin();
    while (at != text.end()) {
        if (!isNonAscii(*at)) {
            pct_encode(sb, static_cast<unsigned int>(*at));
            ++at;
            continue;
        }
        const char16* const run = at;
        at = std::find_if_not(run, text.end(), isNonAscii);
        const auto length = static_cast<std::size_t>(at - run);
        for (const char byte : Charset::UTF_8->encode(ustring_ref(run, length))) {
            pct_encode(sb, static_cast<unsigned char>(byte));
        }
    }
}

void URIEncoder::encode_scheme(StringBuilder& sb, ustring_ref text) {
    if (text.empty()) {
        raiseSyntaxError(text, u"empty scheme"_u);
    }
    if (!isAscii(text.front(), ALPHA)) {
        raiseSyntaxError(text, u"scheme does not start with alphabetic character"_u);
    }
    if (!std::all_of(text.begin(), text.end(), AsciiUnits{SCHEME_UNIT})) {
        raiseSyntaxError(text, u"scheme contains invalid character"_u);
    }
    const std::size_t begin = sb.length();
    sb.append(text);
    scheme = SubstrRange(begin, sb.length());
    sb.append(u':');
}

bool URIEncoder::encode_authority(StringBuilder& sb, const Part& userInfoText, const Part& hostText,
                                  const Part& portText) {
    if (!hostText.hasValue()) {
        if (userInfoText.hasValue()) {
            raiseSyntaxError(*userInfoText, u"user info without host"_u);
        }
        if (portText.hasValue()) {
            raiseSyntaxError(*portText, u"port without host"_u);
        }
        return false;
    }
    sb.append(u"//"_u);
    const std::size_t begin = sb.length();
    encode_user_info(sb, userInfoText);
    encode_host(sb, *hostText);
    encode_port(sb, portText);
    authority = SubstrRange(begin, sb.length());
    return true;
}

void URIEncoder::encode_user_info(StringBuilder& sb, const Part& text) {
    if (text.hasValue()) {
        const std::size_t begin = sb.length();
        appendEncoded(sb, *text, Units{USER_INFO_UNIT});
        userInfo = SubstrRange(begin, sb.length());
        sb.append(u'@');
    }
}

void URIEncoder::encode_host(StringBuilder& sb, ustring_ref text) {
    const std::size_t begin = sb.length();
    if (is_IPv4_address(text) || is_IP_literal(text)) {
        sb.append(text);
    } else if (is_IPv6_address(text)) {
        sb.append(u'[').append(text).append(u']');
    } else {
        appendEncoded(sb, text, AsciiUnits{REG_NAME_UNIT});
    }
    host = SubstrRange(begin, sb.length());
}

void URIEncoder::encode_port(StringBuilder& sb, const Part& text) {
    if (text.hasValue()) {
        if (!std::all_of(text->begin(), text->end(), AsciiUnits{DIGIT})) {
            raiseSyntaxError(*text, u"invalid port"_u);
        }
        sb.append(u':');
        const std::size_t begin = sb.length();
        sb.append(*text);
        port = SubstrRange(begin, sb.length());
    }
}

void URIEncoder::encode_path_abempty(StringBuilder& sb, ustring_ref text) {
    if (!text.empty() && text.front() != u'/') {
        raiseSyntaxError(text, u"non-empty path must start with '/'"_u);
    }
    const std::size_t begin = sb.length();
    appendEncoded(sb, text, Units{PCHAR | SLASH});
    path = SubstrRange(begin, sb.length());
    hierarchical = true;
}

void URIEncoder::encode_path_absolute(StringBuilder& sb, ustring_ref text) {
    if (text.size() > 1 && text[1] == u'/') {
        raiseSyntaxError(text, u"path must not start with '//'"_u);
    }
    encode_path_abempty(sb, text);
}

void URIEncoder::encode_path_rootless(StringBuilder& sb, ustring_ref text) {
    const std::size_t begin = sb.length();
    appendEncoded(sb, text, Units{PCHAR | SLASH});
    path = SubstrRange(begin, sb.length());
    hierarchical = false;
}

void URIEncoder::encode_path_noscheme(StringBuilder& sb, ustring_ref text) {
    const std::size_t begin = sb.length();
    const std::size_t segment = std::min(text.find(u'/'), text.size());
    appendEncoded(sb, ustring_ref(text.data(), segment), Units{PCHAR_NC});
    text.remove_prefix(segment);
    appendEncoded(sb, text, Units{PCHAR | SLASH});
    path = SubstrRange(begin, sb.length());
    hierarchical = false;
}

void URIEncoder::encode_path_empty(StringBuilder& sb) {
    path = SubstrRange(sb.length(), sb.length());
    hierarchical = false;
}

void URIEncoder::encode_query(StringBuilder& sb, ustring_ref text) {
    sb.append(u'?');
    const std::size_t begin = sb.length();
    appendEncoded(sb, text, Units{QUERY_UNIT});
    query = SubstrRange(begin, sb.length());
}

void URIEncoder::encode_fragment(StringBuilder& sb, ustring_ref text) {
    sb.append(u'#');
    const std::size_t begin = sb.length();
    appendEncoded(sb, text, Units{QUERY_UNIT});
    fragment = SubstrRange(begin, sb.length());
}

void URIEncoder::encode_opaque_ssp(StringBuilder& sb, ustring_ref text) {
    const std::size_t begin = sb.length();
    if (text.empty()) {
        encode_path_empty(sb);
    } else if (text.front() == u'/') {
        raiseSyntaxError(text, u"scheme-specific part of opaque URI must not start with '/'"_u);
    } else {
        const std::size_t mark = text.find(u'?');
        encode_path_rootless(sb, text.substr(0, mark));
        if (mark != ustring_ref::npos) {
            encode_query(sb, text.substr(mark + 1));
        }
    }
    schemeSpecificPart = SubstrRange(begin, sb.length());
}

} // namespace orv::net::detail
