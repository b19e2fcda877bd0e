// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief URI references out of arbitrary text: components lie in the text and make it up again,
/// normal forms parse and stay.
///
/// Input: one byte of switches, one byte that says where parsing starts, and the text, in one or
/// two bytes a unit.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/uri_parser.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace {

using orv::ustring;
using orv::ustring_ref;
using orv::net::URIParser;
using Iterator = orv::BasicCharIterator<orv::char16>;

constexpr auto CASE = URIParser::NORM_CASE;
constexpr auto PERCENT = URIParser::NORM_PERCENT;
constexpr auto PATH = URIParser::NORM_PATH;

struct Mode {
    bool needsScheme;
    bool asciiOnly;
};

std::unique_ptr<URIParser> parse(Iterator& it, Mode mode) {
    const std::size_t start = it.position();
    try {
        return mode.needsScheme ? URIParser::parseURI(it, mode.asciiOnly)
                                : URIParser::parseURIReference(it, mode.asciiOnly);
    } catch (const orv::ParseError& error) {
        FUZZ_CHECK(error.getErrorOffset() == it.position());
        FUZZ_CHECK(it.position() >= start && it.position() <= it.text().size());
        FUZZ_CHECK(!std::string_view(error.what()).empty());
        return nullptr;
    }
}

bool contains(ustring_ref outer, ustring_ref inner) {
    return inner.data() == nullptr ||
           (outer.begin() <= inner.begin() && inner.end() <= outer.end());
}

// The reference put together from its smallest components, each of which lies in its place.
ustring reassembled(const URIParser& uri, ustring_ref text) {
    ustring whole;
    const auto add = [&whole](ustring_ref part) { whole.append(part.data(), part.size()); };
    if (uri.isSchemeDefined()) {
        add(uri.getScheme(text));
        whole.push_back(u':');
    }
    const std::size_t sspStart = whole.size();
    if (uri.isAuthorityDefined()) {
        whole.append(2, u'/');
        const std::size_t authorityStart = whole.size();
        if (uri.isUserInfoDefined()) {
            add(uri.getRawUserInfo(text));
            whole.push_back(u'@');
        }
        FUZZ_CHECK(uri.isHostDefined());
        add(uri.getRawHost(text));
        if (uri.isPortDefined()) {
            whole.push_back(u':');
            add(uri.getPort(text));
        }
        FUZZ_CHECK(uri.getRawAuthority(text) == ustring_ref(whole).substr(authorityStart));
    }
    add(uri.getRawPath(text));
    if (uri.isQueryDefined()) {
        whole.push_back(u'?');
        add(uri.getRawQuery(text));
    }
    FUZZ_CHECK(uri.getRawSchemeSpecificPart(text) == ustring_ref(whole).substr(sspStart));
    if (uri.isFragmentDefined()) {
        whole.push_back(u'#');
        add(uri.getRawFragment(text));
    }
    return whole;
}

void checkComponents(const URIParser& uri, ustring_ref text, ustring_ref parsed) {
    for (const ustring_ref part :
         {uri.getScheme(text), uri.getRawSchemeSpecificPart(text), uri.getRawAuthority(text),
          uri.getRawUserInfo(text), uri.getRawHost(text), uri.getPort(text), uri.getRawPath(text),
          uri.getRawQuery(text), uri.getRawFragment(text)}) {
        FUZZ_CHECK(contains(parsed, part));
    }
    FUZZ_CHECK(contains(uri.getRawAuthority(text), uri.getRawUserInfo(text)));
    FUZZ_CHECK(contains(uri.getRawAuthority(text), uri.getRawHost(text)));
    FUZZ_CHECK(contains(uri.getRawAuthority(text), uri.getPort(text)));
    FUZZ_CHECK(ustring_ref(reassembled(uri, text)) == parsed);
    // Escapes of parsed text are well formed, so decoding does not throw.
    FUZZ_CHECK(uri.getSchemeSpecificPart(text).size() <= parsed.size());
    FUZZ_CHECK(uri.getHost(text).size() <= parsed.size());
    FUZZ_CHECK(uri.getFragment(text).size() <= parsed.size());
}

// Parses the whole text, which must be a reference.
std::unique_ptr<URIParser> parseWhole(ustring_ref text, Mode mode) {
    Iterator it(text);
    auto uri = parse(it, mode);
    FUZZ_CHECK(uri != nullptr && it.atEnd());
    return uri;
}

ustring normalized(ustring_ref text, Mode mode, orv::Flags<URIParser::NormFlag> flags) {
    const auto uri = parseWhole(text, mode);
    return URIParser::normalize(text, uri.get(), flags);
}

// An address of the future may hold units above 127, and no escape: in ASCII it is none any more.
bool hasWideAddress(ustring_ref host) {
    return !host.empty() && host.front() == u'[' &&
           std::any_of(host.begin(), host.end(), [](orv::char16 c) { return c > u'\x7F'; });
}

void checkNormalForms(ustring_ref text, Mode mode) {
    if (hasWideAddress(parseWhole(text, mode)->getRawHost(text))) {
        return;
    }
    FUZZ_CHECK(ustring_ref(normalized(text, mode, {})).size() <= text.size());
    for (const auto flags : {orv::Flags(CASE), orv::Flags(PERCENT), CASE | PERCENT}) {
        // The first pass may bring capitals of a host out of escapes; from then on nothing changes.
        const ustring once = normalized(text, mode, flags);
        const ustring twice = normalized(once, mode, flags);
        FUZZ_CHECK(normalized(twice, mode, flags) == twice);
        FUZZ_CHECK(once == twice || flags == (CASE | PERCENT));
    }
    if (!mode.asciiOnly) {
        FUZZ_CHECK(URIParser::normalize(text) == normalized(text, mode, CASE | PERCENT));
        for (const orv::char16 c : URIParser::normalize(text)) {
            FUZZ_CHECK(c < u'\x80');
        }
    }
    const ustring withPath = normalized(text, mode, CASE | PERCENT | PATH);
    FUZZ_CHECK(withPath.size() <= 9 * text.size() + 1);
}

void checkPath(const ustring& text) {
    const ustring once = URIParser::normalizePath(text);
    FUZZ_CHECK(once.size() <= text.size() || (text.empty() && once.size() == 1));
    // Nothing is left of "/a/..", and "." comes of nothing.
    FUZZ_CHECK(once.empty() || URIParser::normalizePath(once) == once);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const unsigned int switches = input.byte();
    const std::size_t startByte = input.byte();
    const Mode mode = {(switches & 1) != 0, (switches & 2) != 0};
    const std::string bytes = input.rest();
    const ustring text = (switches & 4) != 0 ? fuzz::toUnits(bytes) : fuzz::widen(bytes);
    checkPath(text);

    Iterator it{ustring_ref(text)};
    it.setPosition((switches & 8) != 0 ? startByte % (text.size() + 1) : 0);
    const std::size_t start = it.position();
    const auto uri = parse(it, mode);
    if (uri == nullptr) {
        return 0;
    }
    const ustring_ref parsed = ustring_ref(text).substr(start, it.position() - start);
    checkComponents(*uri, text, parsed);
    checkNormalForms(parsed, mode);
    return 0;
}
