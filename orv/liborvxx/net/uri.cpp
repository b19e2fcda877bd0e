// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI`: construction and components.
#include "orv/liborvxx/net/uri.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/detail/uri_components.h"
#include "orv/liborvxx/net/detail/uri_encoder.h"
#include "orv/liborvxx/net/detail/uri_grammar.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_int.h"
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_builder.h"

#include <algorithm>
#include <limits>
#include <utility>

template class orv::gref_base<orv::net::URI>;

namespace orv::net {

using namespace literals;
using detail::URIEncoder;
using detail::URIFailure;
using detail::URIGrammar;

namespace {

// The one reason that is not of the grammar: the text goes on behind a URI.
constexpr char UNEXPECTED_CHARACTER[] = "unexpected character";

// Fills the store from the whole text.
URIFailure parseAll(URIGrammar& grammar, ustring_ref text) noexcept {
    URIGrammar::Iterator it(text);
    grammar.parse_uri_reference(it);
    if (grammar.failure().reason == nullptr && !it.atEnd()) {
        return {UNEXPECTED_CHARACTER, it.position(), false};
    }
    return grammar.failure();
}

[[noreturn]] void throwSyntaxError(ustring_ref text, const URIFailure& failure) {
    ustring reason = failure.reason == UNEXPECTED_CHARACTER
                         ? u"unexpected character"_u.to_string()
                         : Charset::defaultCharset()->decode(string_ref(failure.reason));
    constexpr std::size_t MOST = std::numeric_limits<int>::max();
    throw URISyntaxError(text.to_string(), std::move(reason),
                         static_cast<int>(std::min(failure.position, MOST)));
}

// A copy of a store, open to its reader: a class sees the protected members of its own objects
// alone.
struct Ranges : URIData {
    explicit Ranges(const URIData& data) noexcept : URIData(data) {}
    using URIData::fragment;
    using URIData::host;
    using URIData::path;
    using URIData::port;
    using URIData::query;
    using URIData::scheme;
    using URIData::userInfo;
};

std::size_t sizeOf(const Optional<ustring_ref>& part) {
    return part.hasValue() ? part->size() : 0;
}

} // namespace

URIData URI::parse(ustring_ref text) {
    URIGrammar grammar(false, Charset::UTF_8);
    const URIFailure failure = parseAll(grammar, text);
    if (failure.reason != nullptr) {
        throwSyntaxError(text, failure);
    }
    return grammar;
}

// The braces see to it that the text is parsed before it is moved or copied.
URI::URI(ustring text) : URI{parse(text), std::move(text)} {}
URI::URI(ustring_ref text) : URI{parse(text), text.to_string()} {}

URI::URI(const URIData& data, ustring text) noexcept : URIData(data), uriText(std::move(text)) {}

URI::URI(const Optional<ustring_ref>& schemeText, const Optional<ustring_ref>& userInfoText,
         const Optional<ustring_ref>& hostText, const Optional<ustring_ref>& portText,
         ustring_ref pathText, const Optional<ustring_ref>& queryText,
         const Optional<ustring_ref>& fragmentText)
    : URIData(false, Charset::UTF_8) {
    URIEncoder encoder;
    StringBuilder sb;
    encoder.encode(sb, schemeText, userInfoText, hostText, portText, pathText, queryText,
                   fragmentText);
    static_cast<URIData&>(*this) = encoder;
    uriText = sb.release();
}

URI::URI(const Optional<ustring_ref>& schemeText, const Optional<ustring_ref>& hostText,
         ustring_ref pathText, const Optional<ustring_ref>& fragmentText)
    : URI(schemeText, {}, hostText, Optional<ustring_ref>(), pathText, {}, fragmentText) {}

URI::URI(ustring_ref schemeText, ustring_ref sspText, const Optional<ustring_ref>& fragmentText)
    : URIData(false, Charset::UTF_8) {
    URIEncoder encoder;
    StringBuilder sb;
    encoder.encode_opaque(sb, schemeText, sspText, fragmentText);
    static_cast<URIData&>(*this) = encoder;
    uriText = sb.release();
}

URI::URI(const Components& components, const Optional<bool>& normal)
    : URIData(false, Charset::UTF_8), pathNormalized(normal.hasValue() ? (*normal ? 1 : 0) : -1) {
    const auto append = [this](ustring_ref text) {
        const std::size_t begin = uriText.size();
        uriText += ustring_view(text);
        return SubstrRange(begin, uriText.size());
    };
    uriText.reserve(sizeOf(components.scheme) + sizeOf(components.userInfo) +
                    sizeOf(components.host) + sizeOf(components.port) + components.path.size() +
                    sizeOf(components.query) + sizeOf(components.fragment) + 7); // "://@:?#"
    if (components.scheme.hasValue()) {
        scheme = append(*components.scheme);
        uriText += u':';
    }
    const std::size_t sspBegin = uriText.size();
    if (components.host.hasValue()) {
        uriText += u"//"_u;
        const std::size_t begin = uriText.size();
        if (components.userInfo.hasValue()) {
            userInfo = append(*components.userInfo);
            uriText += u'@';
        }
        host = append(*components.host);
        if (components.port.hasValue()) {
            uriText += u':';
            port = append(*components.port);
        }
        authority = SubstrRange(begin, uriText.size());
    }
    path = append(components.path);
    hierarchical =
        components.path.empty() ? components.host.hasValue() : components.path.front() == u'/';
    if (components.query.hasValue()) {
        uriText += u'?';
        query = append(*components.query);
    }
    schemeSpecificPart = SubstrRange(sspBegin, uriText.size());
    if (components.fragment.hasValue()) {
        uriText += u'#';
        fragment = append(*components.fragment);
    }
}

URI::~URI() = default;

gref<URI> URI::create(ustring text) {
    const URIData data = parse(text);
    return gref<URI>(new URI(data, std::move(text)));
}

gref<URI> URI::create(ustring_ref text) {
    const URIData data = parse(text);
    return gref<URI>(new URI(data, text.to_string()));
}

URIResult URI::tryCreate(ustring text) {
    URIGrammar grammar(false, Charset::UTF_8);
    const URIFailure failure = parseAll(grammar, text);
    if (failure.reason != nullptr) {
        return {{}, failure.reason, failure.position};
    }
    return {gref<URI>(new URI(grammar, std::move(text))), {}, 0};
}

URIResult URI::tryCreate(ustring_ref text) {
    URIGrammar grammar(false, Charset::UTF_8);
    const URIFailure failure = parseAll(grammar, text);
    if (failure.reason != nullptr) {
        return {{}, failure.reason, failure.position};
    }
    return {gref<URI>(new URI(grammar, text.to_string())), {}, 0};
}

Optional<ustring> URI::format_port(long long number) {
    return number < 0 ? Optional<ustring>() : Optional<ustring>(to_ustring_c(number));
}

Optional<ustring> URI::format_port(unsigned long long number) {
    return to_ustring_c(number);
}

int URI::getPort() const {
    const ustring_ref text = getRawPort();
    return text.empty() ? -1 : stoi_c(text);
}

ustring URI::toASCIIString() const {
    const ustring_ref text = uriText;
    const auto isAsciiUnit = [](char16 c) { return static_cast<unsigned int>(c) < 128; };
    const char16* at = std::find_if_not(text.begin(), text.end(), isAsciiUnit);
    if (at == text.end()) {
        return uriText;
    }
    StringBuilder sb(text.size() + 16);
    const char16* run = text.begin();
    while (run != text.end()) {
        sb.append(ustring_ref(run, static_cast<std::size_t>(at - run)));
        run = std::find_if(at, text.end(), isAsciiUnit);
        URIEncoder::pct_encode(sb, ustring_ref(at, static_cast<std::size_t>(run - at)));
        at = std::find_if_not(run, text.end(), isAsciiUnit);
    }
    return sb.release();
}

URI::Components URI::getComponents() const noexcept {
    return getComponents(*this, uriText);
}

URI::Components URI::getComponents(const URIData& data, ustring_ref text) noexcept {
    const Ranges ranges(data);
    const auto part = [text](SubstrRange range) {
        return range.isDefined() ? Optional<ustring_ref>(viewOf(text, range))
                                 : Optional<ustring_ref>();
    };
    return {part(ranges.scheme),  part(ranges.userInfo),     part(ranges.host),
            part(ranges.port),    viewOf(text, ranges.path), part(ranges.query),
            part(ranges.fragment)};
}

} // namespace orv::net
