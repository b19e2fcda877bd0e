// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIEncoder`, which assembles a URI from plain components: checks them, escapes what may
/// not stand in them and notes the ranges.
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_ENCODER_H
#define ORV_LIBORVXX_NET_DETAIL_URI_ENCODER_H

#include "orv/liborvxx/base/optional.h"
#include "orv/liborvxx/net/uri_data.h"
#include "orv/liborvxx/text/string_builder.h"
#include "orv/liborvxx/text/string_ref.h"

namespace orv::net::detail {

/// A store of ranges that grows with the text in a builder.
class URIEncoder : public URIData {
public:
    using Part = Optional<ustring_ref>;

    URIEncoder() noexcept;

    /// The whole reference from its seven components, into an empty builder.
    /// \exception URISyntaxError for a bad component, with the component as its input
    void encode(StringBuilder& sb, const Part& schemeText, const Part& userInfoText,
                const Part& hostText, const Part& portText, ustring_ref pathText,
                const Part& queryText, const Part& fragmentText);

    /// An opaque URI, likewise.
    void encode_opaque(StringBuilder& sb, ustring_ref schemeText, ustring_ref sspText,
                       const Part& fragmentText);

    /// Appends all of \p text escaped, as the bytes of UTF-8. A surrogate without its partner
    /// becomes the replacement of UTF-8.
    static void pct_encode(StringBuilder& sb, ustring_ref text);

private:
    static void pct_encode(StringBuilder& sb, unsigned int byte);
    void encode_scheme(StringBuilder& sb, ustring_ref text);
    bool encode_authority(StringBuilder& sb, const Part& userInfoText, const Part& hostText,
                          const Part& portText);
    void encode_user_info(StringBuilder& sb, const Part& text);
    void encode_host(StringBuilder& sb, ustring_ref text);
    void encode_port(StringBuilder& sb, const Part& text);
    void encode_path_abempty(StringBuilder& sb, ustring_ref text);
    void encode_path_absolute(StringBuilder& sb, ustring_ref text);
    void encode_path_rootless(StringBuilder& sb, ustring_ref text);
    void encode_path_noscheme(StringBuilder& sb, ustring_ref text);
    void encode_path_empty(StringBuilder& sb);
    void encode_query(StringBuilder& sb, ustring_ref text);
    void encode_fragment(StringBuilder& sb, ustring_ref text);
    void encode_opaque_ssp(StringBuilder& sb, ustring_ref text);
};

} // namespace orv::net::detail

#endif
