// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIGrammar`, the rules of RFC 3986, appendix A, as functions over a cursor. It stands
/// under `URIParser` and `URI`.
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_GRAMMAR_H
#define ORV_LIBORVXX_NET_DETAIL_URI_GRAMMAR_H

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/uri_data.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_iterator.h"

#include <cstddef>

namespace orv::net::detail {

/// Why and where a text is no URI reference.
struct URIFailure {
    const char* reason = nullptr; ///< null: none; else a text of static storage
    std::size_t position = 0;     ///< the unit that is wrong, or the length
    bool outOfRange = false;      ///< an octet of an address above 255

    /// Throws the `ParseError` or `OutOfRangeError` that says so.
    [[noreturn]] void raise() const;
};

/// A store of ranges and the rules that fill it.
///
/// Each rule stands below its production, is called with the cursor and the unit under it, and
/// returns the unit under the cursor when it is done. None throws or allocates: a rule that fails
/// notes the failure, of which the first is kept, and goes to the end of the text, where every rule
/// stops.
///
/// Rules that take a run of units read it in one loop over the text and then move the cursor; so
/// the segments of a path are one run. No run is read more than twice.
class URIGrammar : public URIData {
public:
    using Iterator = BasicCharIterator<char16>;

    URIGrammar(bool ascii, Charset* set) noexcept : URIData(ascii, set) {}

    const URIFailure& failure() const noexcept { return failure_; }

    /// \name Whole references, from the unit under the cursor
    ///
    /// They return the unit behind the reference, which is none that could belong to it. Behind a
    /// failure the cursor stands at the end of the text.
    /// @{
    char16 parse_uri(Iterator& it) noexcept;
    char16 parse_uri_reference(Iterator& it) noexcept;
    /// @}

private:
    char16 parse_uri_after_scheme(Iterator& it) noexcept;
    char16 parse_relative_ref(Iterator& it) noexcept;
    bool try_parse_scheme(Iterator& it) noexcept;
    char16 parse_scheme(Iterator& it, char16 unit) noexcept;
    char16 parse_hier_part(Iterator& it, char16 unit) noexcept;
    char16 parse_relative_part(Iterator& it, char16 unit) noexcept;
    char16 parse_hierarchy(Iterator& it) noexcept;
    char16 parse_authority(Iterator& it, char16 unit) noexcept;
    bool parse_user_info(Iterator& it, std::size_t start) noexcept;
    char16 parse_host(Iterator& it, char16 unit) noexcept;
    char16 parse_port(Iterator& it) noexcept;
    char16 parse_reg_name(Iterator& it) noexcept;
    char16 parse_IP_literal(Iterator& it) noexcept;
    char16 parse_IPvFuture(Iterator& it) noexcept;
    char16 parse_path_abempty(Iterator& it, char16 unit) noexcept;
    char16 parse_path_absolute(Iterator& it) noexcept;
    char16 parse_path_noscheme(Iterator& it) noexcept;
    char16 parse_path_rootless(Iterator& it) noexcept;
    char16 parse_path_empty(Iterator& it) noexcept;
    char16 parse_query(Iterator& it) noexcept;
    char16 parse_fragment(Iterator& it) noexcept;
    char16 parse_query_and_fragment(Iterator& it, char16 unit, std::size_t* sspEnd) noexcept;

    char16 skip_IPv4_address(Iterator& it) noexcept;
    bool skip_octet(Iterator& it) noexcept;
    char16 skip_IPv6_address(Iterator& it) noexcept;

    bool is_pchar(const Iterator& it, char16 unit) const noexcept;
    bool is_pchar_nc(const Iterator& it, char16 unit) const noexcept;
    static bool is_pct_encoded(const Iterator& it, char16 unit) noexcept;
    char16 skip_run(Iterator& it, unsigned int classes) const noexcept;
    char16 raiseParseError(Iterator& it, const char* reason) noexcept;
    char16 raiseOutOfRangeError(Iterator& it, const char* reason) noexcept;

    URIFailure failure_;
};

} // namespace orv::net::detail

#endif
