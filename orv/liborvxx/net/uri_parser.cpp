// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIParser`: parsing out of a text.
#include "orv/liborvxx/net/uri_parser.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/detail/uri_grammar.h"

namespace orv::net {

namespace {

Charset* charsetFor(bool asciiOnly) noexcept {
    return asciiOnly ? Charset::US_ASCII : Charset::UTF_8;
}

} // namespace

URIParser URIParser::parse(BasicCharIterator<char16>& it, bool needsScheme, bool asciiOnly,
                           Charset* charset) {
    detail::URIGrammar grammar(asciiOnly, charset);
    if (needsScheme) {
        grammar.parse_uri(it);
    } else {
        grammar.parse_uri_reference(it);
    }
    if (const auto& failure = grammar.failure(); failure.reason != nullptr) {
        it.setPosition(failure.position);
        failure.raise();
    }
    return URIParser(grammar);
}

std::unique_ptr<URIParser> URIParser::parseURI(BasicCharIterator<char16>& it) {
    return parseURI(it, true);
}

std::unique_ptr<URIParser> URIParser::parseURI(BasicCharIterator<char16>& it, bool asciiOnly) {
    return parseURI(it, asciiOnly, charsetFor(asciiOnly));
}

std::unique_ptr<URIParser> URIParser::parseURI(BasicCharIterator<char16>& it, bool asciiOnly,
                                               Charset* charset) {
    if (charset == nullptr) {
        AssertionError::raise(nullptr, nullptr, 2974, "parseURI");
    }
    return std::make_unique<URIParser>(parse(it, true, asciiOnly, charset));
}

std::unique_ptr<URIParser> URIParser::parseURIReference(BasicCharIterator<char16>& it) {
    return parseURIReference(it, true);
}

std::unique_ptr<URIParser> URIParser::parseURIReference(BasicCharIterator<char16>& it,
                                                        bool asciiOnly) {
    return parseURIReference(it, asciiOnly, charsetFor(asciiOnly));
}

std::unique_ptr<URIParser> URIParser::parseURIReference(BasicCharIterator<char16>& it,
                                                        bool asciiOnly, Charset* charset) {
    if (charset == nullptr) {
        AssertionError::raise(nullptr, nullptr, 3111, "parseURIReference");
    }
    return std::make_unique<URIParser>(parse(it, false, asciiOnly, charset));
}

ustring URIParser::normalize(ustring_ref text) {
    BasicCharIterator<char16> it(text);
    const URIParser parser = parse(it, false, false, Charset::UTF_8);
    if (!it.atEnd()) {
        throw ParseError("extra character(s) following valid URI reference", it.position());
    }
    return parser.normalForm(text, NORM_CASE | NORM_PERCENT);
}

} // namespace orv::net
