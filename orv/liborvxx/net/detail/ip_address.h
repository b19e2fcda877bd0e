// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Whether a text is an IP address (RFC 3986, section 3.2.2).
///
/// These look at a whole text and give an answer; the rules of `URIGrammar` look for an address
/// within a text and say what is wrong with it.
#ifndef ORV_LIBORVXX_NET_DETAIL_IP_ADDRESS_H
#define ORV_LIBORVXX_NET_DETAIL_IP_ADDRESS_H

#include "orv/liborvxx/text/string_ref.h"

namespace orv::net::detail {

/// "192.0.2.1": four numbers up to 255 without leading zeros.
bool is_IPv4_address(ustring_ref text) noexcept;

/// "2001:db8::1", "::ffff:192.0.2.1": eight groups of up to four hexadecimal digits, of which the
/// last two may be an IPv4 address, or fewer and "::". That stands for one group or more.
bool is_IPv6_address(ustring_ref text) noexcept;

/// "v1.x", an address of a version to come. "V" will do too, which the grammar's rule refuses.
bool is_IPvFuture(ustring_ref text) noexcept;

/// "[", an IPv6 address or one of a version to come, "]".
bool is_IP_literal(ustring_ref text) noexcept;

} // namespace orv::net::detail

#endif
