// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIData`, where the components of a URI lie in its text.
#ifndef ORV_LIBORVXX_NET_URI_DATA_H
#define ORV_LIBORVXX_NET_URI_DATA_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <cstddef>
#include <cstdint>

namespace orv::net {

/// The common base of `URIParser` and `URI`: for each component of a URI reference (RFC 3986,
/// section 3) the range of its units, and the classes of units of the grammar.
///
/// It holds no text. Accessors take the text that was parsed, or a copy of it, and give views into
/// it; they never read beyond the text that they are given. Nothing but `decode` allocates.
///
///     https://me@host:8080/a/b?q=1#top
///     scheme  userInfo host port path query fragment      each a pair of 16-bit indices
///             `---- authority --'
///            `--- schemeSpecificPart ---'
///
/// Indices keep their low 16 bits. So in texts of 65,536 units and more ranges wrap, and then name
/// other units of the text or none; there is no check and no error.
///
/// The grammar is that of RFC 3986 with `unreserved` widened to units above 127 (RFC 3987 does so
/// for IRIs): those whose general category is neither unassigned, control, private use nor a
/// separator. Surrogates count as unreserved, so characters beyond U+FFFF are.
///
/// A plain value; read it from any number of threads.
class ORVXX_API URIData {
protected:
    /// A component: units \p begin up to \p end. Undefined if `begin` exceeds `end`; defined and
    /// empty if they are equal, as the query of "s://h/?" is.
    struct SubstrRange {
        std::uint16_t begin = 0xFFFF;
        std::uint16_t end = 0;

        constexpr SubstrRange() noexcept = default;

        /// The low 16 bits of both.
        constexpr SubstrRange(std::size_t first, std::size_t last) noexcept
            : begin(static_cast<std::uint16_t>(first)), end(static_cast<std::uint16_t>(last)) {}

        constexpr bool isDefined() const noexcept { return begin <= end; }

        /// Units, 0 if it is undefined.
        constexpr std::size_t size() const noexcept {
            return isDefined() ? static_cast<std::size_t>(end - begin) : 0;
        }

        friend constexpr bool operator==(SubstrRange, SubstrRange) noexcept = default;
    };

    /// No component defined. With \p asciiOnly no unit above 127 is unreserved. \p charset, which
    /// is not owned, turns escaped bytes into text and text into escaped bytes.
    URIData(bool asciiOnly, Charset* charset) noexcept;

    /// \name Sets of delimiters (RFC 3986, section 2.2)
    /// @{
    static const ustring_ref GEN_DELIMS; ///< ":/?#[]@"
    static const ustring_ref SUB_DELIMS; ///< "!$&'()*+,;="
    static const ustring_ref RESERVED;   ///< both
    /// @}
    /// \name Classes of units
    /// @{

    /// ALPHA / DIGIT / "-" / "." / "_" / "~"
    static bool is_ascii_unreserved(char16 c) noexcept;
    /// The same, and the units above 127 that the class comment admits.
    bool is_unreserved(char16 c) const noexcept;
    static bool is_sub_delim(char16 c) noexcept;
    static bool is_reserved(char16 c) noexcept;
    /// unreserved / sub-delims / ":" / "@"; an escape is for the parser to see.
    bool is_pchar(char16 c) const noexcept;
    /// The same without ":".
    bool is_pchar_nc(char16 c) const noexcept;
    /// unreserved / reserved / "%": what may not stand directly behind a URI.
    bool is_uri_char(char16 c) const noexcept;

    /// @}
    /// \name Escapes
    /// @{

    /// The value of a hexadecimal digit, 0 to 15.
    /// \exception AssertionError "toHexDigit[801]: assertion failed" for any other unit
    static unsigned int toHexDigit(char16 c);
    /// The upper-case digit of the low four bits of \p value.
    static char16 forHexDigit(unsigned int value) noexcept;
    /// The byte of two hexadecimal digits. \exception AssertionError as `toHexDigit`
    static unsigned char decode(char16 high, char16 low);

    /// The text with its escapes replaced: each run of escapes is read as bytes in `charset`, whose
    /// replacement stands for bytes that are none of it.
    /// \exception AssertionError as `toHexDigit`, for a "%" not followed by two digits in \p text
    ustring decode(ustring_ref text) const;

    /// The same with \p charset. Units before \p start are copied, and the unit at \p start is
    /// taken for "%" whatever it is: kept for callers that compare hosts by it.
    static ustring decode(Charset* charset, ustring_ref text, std::size_t start);

    /// @}
    /// \name Components of \p text
    ///
    /// The `getRaw` members and those without another form give views of units as they stand, null
    /// for an undefined component and never null for a defined one. The others give `decode` of the
    /// same view.
    /// \exception AssertionError as `decode`, for decoded forms of texts that were not parsed
    /// @{

    ustring_ref getScheme(ustring_ref text) const noexcept;
    ustring_ref getRawSchemeSpecificPart(ustring_ref text) const noexcept;
    ustring_ref getRawAuthority(ustring_ref text) const noexcept;
    ustring_ref getRawUserInfo(ustring_ref text) const noexcept;
    ustring_ref getRawHost(ustring_ref text) const noexcept;
    ustring_ref getPort(ustring_ref text) const noexcept;
    ustring_ref getRawPath(ustring_ref text) const noexcept;
    ustring_ref getRawQuery(ustring_ref text) const noexcept;
    ustring_ref getRawFragment(ustring_ref text) const noexcept;

    ustring getSchemeSpecificPart(ustring_ref text) const;
    ustring getAuthority(ustring_ref text) const;
    ustring getUserInfo(ustring_ref text) const;
    ustring getHost(ustring_ref text) const;
    ustring getPath(ustring_ref text) const;
    ustring getQuery(ustring_ref text) const;
    ustring getFragment(ustring_ref text) const;

    /// @}
    /// \name Kind of the reference
    /// @{

    bool isSchemeDefined() const noexcept { return scheme.isDefined(); }
    bool isAuthorityDefined() const noexcept { return authority.isDefined(); }
    bool isUserInfoDefined() const noexcept { return userInfo.isDefined(); }
    bool isHostDefined() const noexcept { return host.isDefined(); }
    bool isPortDefined() const noexcept { return port.isDefined(); }
    bool isQueryDefined() const noexcept { return query.isDefined(); }
    bool isFragmentDefined() const noexcept { return fragment.isDefined(); }

    /// No scheme.
    bool isRelativeReference() const noexcept { return !scheme.isDefined(); }
    /// A scheme and no fragment.
    bool isAbsoluteURI() const noexcept { return scheme.isDefined() && !fragment.isDefined(); }
    /// A scheme and no hierarchy: "mailto:me".
    bool isOpaque() const noexcept { return scheme.isDefined() && !hierarchical; }
    /// "//host/path"
    bool isNetworkPathReference() const noexcept {
        return !scheme.isDefined() && authority.isDefined();
    }
    /// "/path"
    bool isAbsolutePathReference() const noexcept {
        return hierarchical && !scheme.isDefined() && !authority.isDefined();
    }
    /// "path", and the empty reference.
    bool isRelativePathReference() const noexcept { return !scheme.isDefined() && !hierarchical; }

    /// @}

    /// The units of \p range in \p text, cut to the text; null if \p range is undefined.
    static ustring_ref viewOf(ustring_ref text, SubstrRange range) noexcept;

    bool asciiOnly;
    Charset* charset;
    SubstrRange scheme;             ///< without its ":"
    SubstrRange schemeSpecificPart; ///< behind the ":", up to the "#"
    SubstrRange authority;          ///< behind "//", up to the path
    SubstrRange userInfo;           ///< without the "@"
    SubstrRange host;               ///< with the brackets of an IP literal
    SubstrRange port;               ///< without the ":"
    SubstrRange path;               ///< defined in every parsed reference
    SubstrRange query;              ///< without the "?"
    SubstrRange fragment;           ///< without the "#"
    bool hierarchical = false;      ///< the path starts with "/", or there is an authority
};

} // namespace orv::net

#endif
