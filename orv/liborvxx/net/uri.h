// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI`, an immutable URI reference that is shared by reference count.
#ifndef ORV_LIBORVXX_NET_URI_H
#define ORV_LIBORVXX_NET_URI_H

#include "orv/liborvxx/base/gref.h"
#include "orv/liborvxx/base/optional.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/net/uri_data.h"
#include "orv/liborvxx/net/uri_parts.h"
#include "orv/liborvxx/net/uri_syntax_error.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <atomic>
#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <type_traits>

namespace orv::net {

class URI;
struct URIResult;

namespace detail {

/// What may stand for a port: an integer that is neither a truth value nor a unit of text.
template <typename T>
concept PortNumber = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> &&
                     !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> &&
                     !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

} // namespace detail

} // namespace orv::net

extern template class ORVXX_API orv::gref_base<orv::net::URI>;

namespace orv::net {

/// A URI reference (RFC 3986), absolute or relative, that may hold text beyond ASCII (as IRIs do,
/// RFC 3987). The grammar is that of `URIData`.
///
/// An object holds its text once and where the components lie in it; it is made on the heap, lives
/// as long as a `gref<URI>` refers to it, and never changes. So views that the raw getters give are
/// valid as long as the object, and one object may be read, compared, hashed, normalised and
/// resolved from many threads at once.
///
/// Components come in two forms: as they stand in the text (`getRawX`, views, no allocation), and
/// with their escapes decoded as UTF-8 (`getX`). Absent and empty components differ: "s://h/?" has
/// an empty query, "s://h/" has none.
///
/// Ranges are 16-bit: a URI of 65,536 units and more is kept whole, but its getters then give other
/// units of it, or nothing.
///
/// \par Example
/// \code
/// using namespace orv::literals;
/// using orv::net::URI;
/// auto base = URI::create(u"http://example.org/a/b?x=1"_u);
/// auto next = base->resolve(u"../c#top"_u);
/// bool same = next->toString() == u"http://example.org/c#top"_u;
/// \endcode
class ORVXX_API URI : public gref_base<URI>, public URIData {
public:
    /// \name From finished text
    ///
    /// \exception URISyntaxError with the text, the reason and the index: a reason of `URIParser`,
    /// or "unexpected character" for a rest behind the URI
    /// @{

    explicit URI(ustring text);
    explicit URI(ustring_ref text);

    /// A new object and the reference to it.
    static gref<URI> create(ustring text);
    static gref<URI> create(ustring_ref text);

    /// The same without an exception for bad text: what is wrong stands in the result. Only memory
    /// that runs out throws, `std::bad_alloc`.
    static URIResult tryCreate(ustring text);
    static URIResult tryCreate(ustring_ref text);

    /// @}
    /// \name From plain components
    ///
    /// Units that may not stand in a component are escaped, as bytes of UTF-8; "%" always is, so
    /// components that are escaped already are not meant. A host may be an IPv4 or IPv6 address,
    /// with or without brackets, or any text. Use `make_gref<URI>`.
    /// \exception URISyntaxError with the component, index -1 and one of the reasons "empty
    /// scheme", "scheme does not start with alphabetic character", "scheme contains invalid
    /// character", "user info without host", "port without host", "invalid port", "non-empty path
    /// must start with '/'" (behind an authority), "path must not start with '//'" (without one)
    /// @{

    URI(const Optional<ustring_ref>& schemeText, const Optional<ustring_ref>& userInfoText,
        const Optional<ustring_ref>& hostText, const Optional<ustring_ref>& portText,
        ustring_ref pathText, const Optional<ustring_ref>& queryText,
        const Optional<ustring_ref>& fragmentText);

    /// With a number as port; a negative one stands for none.
    template <detail::PortNumber Port>
    URI(const Optional<ustring_ref>& schemeText, const Optional<ustring_ref>& userInfoText,
        const Optional<ustring_ref>& hostText, Port portNumber, ustring_ref pathText,
        const Optional<ustring_ref>& queryText, const Optional<ustring_ref>& fragmentText)
        : URI(schemeText, userInfoText, hostText,
              viewOfPort(
                  format_port(static_cast<std::conditional_t<std::is_signed_v<Port>, long long,
                                                             unsigned long long>>(portNumber))),
              pathText, queryText, fragmentText) {}

    /// Without user info, port and query.
    URI(const Optional<ustring_ref>& schemeText, const Optional<ustring_ref>& hostText,
        ustring_ref pathText, const Optional<ustring_ref>& fragmentText);

    /// An opaque URI: "mailto", "me@example.org". The first "?" of \p sspText begins the
    /// query. \exception URISyntaxError also "scheme-specific part of opaque URI must not start
    /// with '/'"
    URI(ustring_ref schemeText, ustring_ref sspText, const Optional<ustring_ref>& fragmentText);

    /// @}
    /// \name Components as they stand, null views for absent ones
    /// @{

    ustring_ref getScheme() const noexcept { return URIData::getScheme(uriText); }
    ustring_ref getRawSchemeSpecificPart() const noexcept {
        return URIData::getRawSchemeSpecificPart(uriText);
    }
    ustring_ref getRawAuthority() const noexcept { return URIData::getRawAuthority(uriText); }
    ustring_ref getRawUserInfo() const noexcept { return URIData::getRawUserInfo(uriText); }
    ustring_ref getRawHost() const noexcept { return URIData::getRawHost(uriText); }
    ustring_ref getRawPort() const noexcept { return URIData::getPort(uriText); }
    ustring_ref getRawPath() const noexcept { return URIData::getRawPath(uriText); }
    ustring_ref getRawQuery() const noexcept { return URIData::getRawQuery(uriText); }
    ustring_ref getRawFragment() const noexcept { return URIData::getRawFragment(uriText); }

    /// @}
    /// \name Components with their escapes decoded, empty for absent ones
    ///
    /// \exception AssertionError "toHexDigit[801]: assertion failed" where a range of a text of
    /// 65,536 units and more cuts through an escape
    /// @{

    ustring getSchemeSpecificPart() const { return URIData::getSchemeSpecificPart(uriText); }
    ustring getAuthority() const { return URIData::getAuthority(uriText); }
    ustring getUserInfo() const { return URIData::getUserInfo(uriText); }
    ustring getHost() const { return URIData::getHost(uriText); }
    ustring getPath() const { return URIData::getPath(uriText); }
    ustring getQuery() const { return URIData::getQuery(uriText); }
    ustring getFragment() const { return URIData::getFragment(uriText); }

    /// @}

    /// The port as a number, -1 if it is absent or empty.
    /// \exception std::out_of_range as `stoi_c` if it exceeds an `int`
    /// \exception std::invalid_argument as `stoi_c` where the range of a text of 65,536 units and
    /// more has wrapped to other units than digits
    int getPort() const;

    /// The parts of the raw path between its slashes, as a range of views. No allocation.
    PathSegments pathSegments() const noexcept { return PathSegments(getRawPath()); }

    /// The parts of the raw query between "&", each cut at its first "=". No allocation.
    QueryParameters queryParameters() const noexcept { return QueryParameters(getRawQuery()); }

    /// \name Kind of the reference
    /// @{
    /// Whether there is a scheme.
    bool isAbsolute() const noexcept { return isSchemeDefined(); }
    using URIData::isAbsolutePathReference;
    using URIData::isAbsoluteURI;
    using URIData::isNetworkPathReference;
    using URIData::isOpaque;
    using URIData::isRelativePathReference;
    using URIData::isRelativeReference;
    /// @}

    /// The text itself.
    const ustring& toString() const noexcept { return uriText; }

    /// The text with each unit above 127 escaped, as bytes of UTF-8; a surrogate without its
    /// partner as the replacement of UTF-8.
    ustring toASCIIString() const;

    /// \name New URIs from old ones
    ///
    /// Nothing here changes an object; where nothing is to be changed the result is one of the
    /// operands.
    /// @{

    /// Without "." segments, without what ".." segments cancel, and without duplicate slashes:
    /// "a/b/../c" gives "a/c". Leading ".." segments stay. Opaque URIs are normal. Scheme, host and
    /// escapes stay as they are (see `URIParser::normalize`).
    gref<URI> normalize() const;

    /// \p other as seen from this URI. Unlike RFC 3986, section 5.2: an empty path is merged like
    /// any other, so "" and "?q" resolve to the folder of this path; and dot segments stay in paths
    /// that begin with "/" or follow an authority.
    /// \exception AssertionError "resolve[1350]: assertion failed" if \p other is null
    gref<URI> resolve(const gref<URI>& other) const;

    /// The same for text, with no object in between.
    /// \exception ParseError, OutOfRangeError as the parsers of `URIParser` throw them
    /// \exception std::invalid_argument "unexpected character" for a rest behind the reference
    gref<URI> resolve(ustring_ref text) const;

    /// A reference with the path that leads from this URI to \p other, and its query and fragment:
    /// the reverse of `resolve`. Or \p other itself, if it does not lie below this path, has
    /// another scheme or authority, or one of the two is opaque. \p other must not be null.
    /// \exception AssertionError as `equals`, where hosts with escapes are compared
    gref<URI> relativize(const gref<URI>& other) const;

    /// @}
    /// \name Comparison by component
    ///
    /// Schemes and hosts match without regard to case, as do the digits of escapes; ports match as
    /// numbers; all else unit by unit. Hosts that hold an escape are decoded from there on, with
    /// the unit at the same place of the other host taken for an escape too; see `operator==` for a
    /// comparison that reads both right.
    /// \exception AssertionError "toHexDigit[801]: assertion failed" if a host taken for an escape
    /// has no digits there
    /// @{

    /// Negative, 0 or positive. Of two different hosts none is the lesser: URIs that differ there,
    /// and in no component before it, give 0, whatever follows. No order to sort by; `operator<=>`
    /// is one. \exception AssertionError "compareTo[1244]: assertion failed" if \p other is null
    int compareTo(const gref<URI>& other) const;

    /// False for a null \p other.
    bool equals(const gref<URI>& other) const;

    /// Alike for equal URIs. The host plays no part in it; `std::hash` has it. Computed once. It
    /// decodes user info: \exception AssertionError as `getUserInfo`
    std::size_t hashCode() const;

    /// @}

private:
    friend class gref_base<URI>;
    friend std::weak_ordering operator<=>(const gref<URI>& a, const gref<URI>& b);
    struct Components;

    // From encoded components, unchecked.
    ORVXX_LOCAL URI(const Components& components, const Optional<bool>& normal);
    // From a finished store and its text.
    ORVXX_LOCAL URI(const URIData& data, ustring text) noexcept;
    ORVXX_LOCAL ~URI() override;

    ORVXX_LOCAL static URIData parse(ustring_ref text);
    static Optional<ustring> format_port(long long number);
    static Optional<ustring> format_port(unsigned long long number);
    static Optional<ustring_ref> viewOfPort(const Optional<ustring>& text) {
        return text.hasValue() ? Optional<ustring_ref>(ustring_ref(*text)) : std::nullopt;
    }

    ORVXX_LOCAL Components getComponents() const noexcept;
    ORVXX_LOCAL static Components getComponents(const URIData& data, ustring_ref text) noexcept;
    ORVXX_LOCAL gref<URI> resolve(const Components& ref,
                                  const Optional<bool>& refPathNormalized) const;
    ORVXX_LOCAL bool isPathNormalized() const noexcept;
    ORVXX_LOCAL Optional<bool> knownPathNormalized() const noexcept;
    ORVXX_LOCAL ustring_ref getNormalizedPath(ustring& storage) const;
    ORVXX_LOCAL bool hasSameComponents(const URI& that) const noexcept;

    ustring uriText;
    // Caches. Threads that race write the same value.
    mutable std::atomic<signed char> pathNormalized{-1}; // -1 unknown, 0 no, 1 yes
    mutable std::atomic<std::size_t> cachedHash{0};      // 0 unknown
};

/// What `URI::tryCreate` gives: a URI, or what is wrong with the text.
struct URIResult {
    gref<URI> uri;         ///< null if the text is no URI reference
    string_ref reason;     ///< as in `URISyntaxError`, of static storage; empty if there is a URI
    std::size_t index = 0; ///< the unit that is wrong, up to the length of the text

    explicit operator bool() const noexcept { return static_cast<bool>(uri); }
};

/// \name Equality and order, for containers
///
/// By component, as `URI::equals`, but with hosts decoded whole and ordered like the other
/// components. An equivalence and a total order of its classes: scheme, user info, host, port,
/// path, query, fragment; what is absent comes first, and so does a null reference. The hash is
/// that of all components, the host included, and 0 for a null reference. Only memory that runs out
/// throws.
/// @{
ORVXX_API bool operator==(const gref<URI>& a, const gref<URI>& b);
ORVXX_API std::weak_ordering operator<=>(const gref<URI>& a, const gref<URI>& b);
ORVXX_API std::size_t hash_value(const gref<URI>& uri);
/// @}

/// Formatted output of the text, as that of a view; nothing for a null reference. The narrow form
/// is encoded in the default character set.
ORVXX_API std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os,
                                                 const gref<URI>& uri);
ORVXX_API std::ostream& operator<<(std::ostream& os, const gref<URI>& uri);

} // namespace orv::net

/// Hash that goes with `operator==`: its `hash_value`.
template <>
struct std::hash<orv::gref<orv::net::URI>> {
    std::size_t operator()(const orv::gref<orv::net::URI>& uri) const {
        return orv::net::hash_value(uri);
    }
};

#endif
