// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIParser`, the recursive-descent parser of URI references, and URI text in normal form.
#ifndef ORV_LIBORVXX_NET_URI_PARSER_H
#define ORV_LIBORVXX_NET_URI_PARSER_H

#include "orv/liborvxx/base/flags.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/uri_data.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <cstddef>
#include <memory>

namespace orv::net {

/// Parses a URI reference (RFC 3986, appendix A, with `unreserved` widened as `URIData` says) out
/// of a text, from the position of a cursor, which it leaves on the first unit that it did not use:
/// a URI may stand in a longer text, and whether a rest is an error is for the caller to say. A
/// rest that looks like more of the URI is one: "s://a/b c" gives "s://a/b" and leaves " c",
/// "s://a/b%" fails.
///
/// Parsing is linear in the text, allocates one object and copies nothing. The object is filled
/// once and then only read; it does not keep the text, which every accessor takes.
///
/// \par Example
/// \code
/// using namespace orv::literals;
/// using orv::net::URIParser;
/// orv::ustring_ref text = u"see http://a/b?c for more"_u;
/// orv::BasicCharIterator<orv::char16> it(text);
/// it.setPosition(4);
/// auto uri = URIParser::parseURI(it);
/// bool good = uri->getRawPath(text) == u"/b"_u && it.position() == 16;
/// \endcode
class ORVXX_API URIParser : public URIData {
public:
    /// What `normalize` changes.
    enum NormFlag : unsigned int {
        NORM_CASE = 1,    ///< lower-case scheme and host, upper-case the digits of escapes
        NORM_PERCENT = 2, ///< decode escapes of ASCII unreserved characters, escape units above 127
        NORM_PATH = 4     ///< remove dot segments and duplicate slashes from the path
    };
    friend constexpr Flags<NormFlag> operator|(NormFlag a, NormFlag b) noexcept {
        return Flags<NormFlag>(a) | b;
    }

    /// \name Parsing
    ///
    /// `parseURI` needs a scheme, `parseURIReference` takes a relative reference too. Without
    /// \p asciiOnly text is ASCII alone. Without \p charset, escapes stand for US-ASCII if text is
    /// ASCII alone, else for UTF-8.
    /// \exception ParseError with one of these texts and the position where the text is wrong,
    /// where the cursor then stands: "<ALPHA> expected", "':' expected", "']' expected", "<HEXDIG>
    /// expected", "'.' expected", "<unreserved>, <sub-delims> or ':' expected", "digit expected",
    /// "letter, digit and '.' not allowed here", "IPv6 address field expected", "IPv6 address field
    /// or double colon expected", "single or double colon expected", "end of IPv6 address
    /// expected", "IPv6 address field or end of address expected", "single colon or end of IPv6
    /// address expected", "unexpected character at end of URI"
    /// \exception OutOfRangeError "value greater than 255" and the position of the digit with which
    /// the octet exceeds it
    /// \exception AssertionError if \p charset is null: "parseURI[2974]: assertion failed",
    /// "parseURIReference[3111]: assertion failed"
    /// @{

    static std::unique_ptr<URIParser> parseURI(BasicCharIterator<char16>& it);
    static std::unique_ptr<URIParser> parseURI(BasicCharIterator<char16>& it, bool asciiOnly);
    static std::unique_ptr<URIParser> parseURI(BasicCharIterator<char16>& it, bool asciiOnly,
                                               Charset* charset);
    static std::unique_ptr<URIParser> parseURIReference(BasicCharIterator<char16>& it);
    static std::unique_ptr<URIParser> parseURIReference(BasicCharIterator<char16>& it,
                                                        bool asciiOnly);
    static std::unique_ptr<URIParser> parseURIReference(BasicCharIterator<char16>& it,
                                                        bool asciiOnly, Charset* charset);

    /// @}
    /// \name What was parsed
    ///
    /// The accessors of `URIData`, to be called with the text of the cursor.
    /// @{

    const URIData& getURIData() const noexcept { return *this; }

    using URIData::getAuthority;
    using URIData::getFragment;
    using URIData::getHost;
    using URIData::getPath;
    using URIData::getPort;
    using URIData::getQuery;
    using URIData::getRawAuthority;
    using URIData::getRawFragment;
    using URIData::getRawHost;
    using URIData::getRawPath;
    using URIData::getRawQuery;
    using URIData::getRawSchemeSpecificPart;
    using URIData::getRawUserInfo;
    using URIData::getScheme;
    using URIData::getSchemeSpecificPart;
    using URIData::getUserInfo;
    using URIData::isAbsolutePathReference;
    using URIData::isAbsoluteURI;
    using URIData::isAuthorityDefined;
    using URIData::isFragmentDefined;
    using URIData::isHostDefined;
    using URIData::isNetworkPathReference;
    using URIData::isOpaque;
    using URIData::isPortDefined;
    using URIData::isQueryDefined;
    using URIData::isRelativePathReference;
    using URIData::isRelativeReference;
    using URIData::isSchemeDefined;
    using URIData::isUserInfoDefined;

    /// @}
    /// \name URI text in normal form (RFC 3986, section 6.2.2)
    /// @{

    /// The reference with `NORM_CASE` and `NORM_PERCENT`, escapes and text in UTF-8: so text beyond
    /// ASCII comes out as ASCII. Leading zeros of a port always go.
    /// \exception ParseError as `parseURIReference`; "extra character(s) following valid URI
    /// reference"
    static ustring normalize(ustring_ref text);

    /// The same for a text that \p parser has parsed from its start, without parsing again; in the
    /// parser's character set. The host is taken to lower case before its escapes are decoded, so
    /// "//%41" gives "//A"; and `NORM_PATH` makes "." of an empty path, even behind a host.
    /// \exception AssertionError as `getPath`, for an escape that the end of \p text cuts off
    static ustring normalize(ustring_ref text, URIParser* parser);
    static ustring normalize(ustring_ref text, URIParser* parser, Flags<NormFlag> flags);

    /// The path without "." segments, without what ".." segments cancel, and without duplicate
    /// slashes. Unlike RFC 3986, section 5.2.4: "" gives ".", "a/.." gives ".", "/." stays, "a/."
    /// gives "a", and ".." segments that nothing is left for stay. In one pass and in place,
    /// without an allocation.
    static ustring normalizePath(ustring path);

    /// @}

private:
    explicit URIParser(const URIData& parsed) noexcept : URIData(parsed) {}

    ORVXX_LOCAL static URIParser parse(BasicCharIterator<char16>& it, bool needsScheme,
                                       bool asciiOnly, Charset* charset);

    ORVXX_LOCAL ustring normalForm(ustring_ref text, Flags<NormFlag> flags) const;
    ORVXX_LOCAL void normalizeAuthority(ustring& out, ustring_ref text,
                                        Flags<NormFlag> flags) const;
    ORVXX_LOCAL void normalizePercentEncoding(ustring& out, ustring_ref text,
                                              Flags<NormFlag> flags) const;
    ORVXX_LOCAL static void normalizeEscape(ustring& out, ustring_ref text, std::size_t index,
                                            Flags<NormFlag> flags);
    ORVXX_LOCAL void escape(ustring& out, ustring_ref character) const;
    ORVXX_LOCAL static void normalizePath(ustring& text, std::size_t start);
};

static_assert(sizeof(URIParser) == sizeof(URIData));

} // namespace orv::net

#endif
