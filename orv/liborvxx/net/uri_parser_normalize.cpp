// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief URI text in normal form.
#include "orv/liborvxx/net/uri_parser.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/net/detail/uri_units.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/literals.h"

#include <algorithm>
#include <cassert>
#include <string>

namespace orv::net {

using namespace literals;

namespace {

char16 toLower(char16 c) noexcept {
    const auto value = static_cast<std::uint32_t>(c);
    if (value >= 128) {
        return char16(orvUniCharToLower(value));
    }
    return c >= u'A' && c <= u'Z' ? char16(value + 32) : c;
}

bool isLowerLetter(char16 c) noexcept {
    return c >= u'a' && c <= u'z';
}

char16 toUpper(char16 digit) noexcept {
    return isLowerLetter(digit) ? char16(static_cast<unsigned int>(digit) - 32) : digit;
}

ustring lowerCase(ustring_ref text) {
    ustring lower = text.to_string();
    std::transform(lower.begin(), lower.end(), lower.begin(), toLower);
    return lower;
}

// At least the last one is kept.
ustring_ref withoutLeadingZeros(ustring_ref digits) noexcept {
    while (digits.size() > 1 && digits.front() == u'0') {
        digits.remove_prefix(1);
    }
    return digits;
}

} // namespace

ustring URIParser::normalize(ustring_ref text, URIParser* parser) {
    return normalize(text, parser, NORM_CASE | NORM_PERCENT);
}

ustring URIParser::normalize(ustring_ref text, URIParser* parser, Flags<NormFlag> flags) {
    assert(parser != nullptr);
    return parser->normalForm(text, flags);
}

ustring URIParser::normalForm(ustring_ref text, Flags<NormFlag> flags) const {
    ustring out;
    out.reserve(text.size() + 16);
    if (const ustring_ref name = getScheme(text); name.data() != nullptr) {
        out.append(name);
        if (flags.has(NORM_CASE)) {
            std::transform(out.begin(), out.end(), out.begin(), toLower);
        }
        out.push_back(u':');
    }
    if (isAuthorityDefined()) {
        normalizeAuthority(out, text, flags);
    }
    const std::size_t pathStart = out.size();
    normalizePercentEncoding(out, getRawPath(text), flags);
    if (flags.has(NORM_PATH)) {
        normalizePath(out, pathStart);
    }
    if (const ustring_ref part = getRawQuery(text); part.data() != nullptr) {
        out.push_back(u'?');
        normalizePercentEncoding(out, part, flags);
    }
    if (const ustring_ref part = getRawFragment(text); part.data() != nullptr) {
        out.push_back(u'#');
        normalizePercentEncoding(out, part, flags);
    }
    return out;
}

void URIParser::normalizeAuthority(ustring& out, ustring_ref text, Flags<NormFlag> flags) const {
    out.append(u"//"_u);
    if (const ustring_ref part = getRawUserInfo(text); part.data() != nullptr) {
        normalizePercentEncoding(out, part, flags);
        out.push_back(u'@');
    }
    const ustring_ref name = getRawHost(text);
    if (flags.has(NORM_CASE) &&
        std::any_of(name.begin(), name.end(), [](char16 c) { return toLower(c) != c; })) {
        normalizePercentEncoding(out, lowerCase(name), flags);
    } else {
        normalizePercentEncoding(out, name, flags);
    }
    if (const ustring_ref digits = getPort(text); digits.data() != nullptr) {
        out.push_back(u':');
        out.append(withoutLeadingZeros(digits));
    }
}

void URIParser::normalizePercentEncoding(ustring& out, ustring_ref text,
                                         Flags<NormFlag> flags) const {
    const bool wantsEscapes = flags.has(NORM_PERCENT);
    const bool keepsEscapes = !wantsEscapes && !flags.has(NORM_CASE);
    const auto isPlain = [=](char16 c) {
        return (c != u'%' || keepsEscapes) && (c <= u'\x7F' || !wantsEscapes);
    };
    for (std::size_t i = 0; i < text.size();) {
        const char16* const end = std::find_if_not(text.begin() + i, text.end(), isPlain);
        const auto next = static_cast<std::size_t>(end - text.begin());
        out.append(text.data() + i, next - i);
        i = next;
        if (end == text.end()) {
            return;
        }
        if (*end == u'%') {
            normalizeEscape(out, text, i, flags);
            i += 3;
        } else {
            const bool isPair =
                i + 1 < text.size() && Char16::isSurrogatePair(text[i], text[i + 1]);
            const std::size_t units = isPair ? 2 : 1;
            escape(out, text.substr(i, units));
            i += units;
        }
    }
}

// The escape at the index. One that the end of the text cuts off lacks digits.
void URIParser::normalizeEscape(ustring& out, ustring_ref text, std::size_t index,
                                Flags<NormFlag> flags) {
    const char16 high = detail::unitAt(text, index + 1);
    const char16 low = detail::unitAt(text, index + 2);
    if (index + 2 >= text.size()) {
        static_cast<void>(toHexDigit(detail::END_MARK));
    }
    if (flags.has(NORM_PERCENT)) {
        const char16 plain(decode(high, low));
        if (is_ascii_unreserved(plain)) {
            out.push_back(plain);
            return;
        }
    }
    const bool raised = flags.has(NORM_CASE);
    out.push_back(u'%');
    out.push_back(raised ? toUpper(high) : high);
    out.push_back(raised ? toUpper(low) : low);
}

void URIParser::escape(ustring& out, ustring_ref character) const {
    for (const char byte : charset->encode(character)) {
        const auto value = static_cast<unsigned char>(byte);
        out.push_back(u'%');
        out.push_back(forHexDigit(value >> 4));
        out.push_back(forHexDigit(value));
    }
}

} // namespace orv::net
