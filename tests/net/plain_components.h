// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The seven plain components that a `URI` is made of, by name.
#ifndef ORV_TESTS_NET_PLAIN_COMPONENTS_H
#define ORV_TESTS_NET_PLAIN_COMPONENTS_H

#include "orv/liborvxx/net/uri.h"

namespace orvtest {

/// A component, or none.
using Part = orv::Optional<orv::ustring_ref>;

struct Plain {
    Part scheme{};
    Part userInfo{};
    Part host{};
    Part port{};
    orv::ustring_ref path{};
    Part query{};
    Part fragment{};
};

inline orv::gref<orv::net::URI> built(const Plain& p) {
    return orv::make_gref<orv::net::URI>(p.scheme, p.userInfo, p.host, p.port, p.path, p.query,
                                         p.fragment);
}

} // namespace orvtest

#endif
