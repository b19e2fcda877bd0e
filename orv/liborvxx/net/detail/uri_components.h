// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI::Components`, the parts that a URI is assembled from.
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_COMPONENTS_H
#define ORV_LIBORVXX_NET_DETAIL_URI_COMPONENTS_H

#include "orv/liborvxx/base/optional.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/string_ref.h"

namespace orv::net {

/// Views of encoded text, of one object or of several. There is an authority exactly if `host` has
/// a value; user info and port stand only beside a host.
struct URI::Components {
    Optional<ustring_ref> scheme;
    Optional<ustring_ref> userInfo;
    Optional<ustring_ref> host;
    Optional<ustring_ref> port;
    ustring_ref path;
    Optional<ustring_ref> query;
    Optional<ustring_ref> fragment;
};

} // namespace orv::net

#endif
