// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI::relativize`: the way from one URI to another leads back to it when it is resolved.
/// And of the same two: comparison, hash and order agree.
///
/// Input: how the rest becomes text and the length of the base, one byte each; base; other.
#include "fuzz/check.h"
#include "fuzz/input.h"
#include "fuzz/uri_input.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/uri.h"

#include <functional>

namespace {

using orv::gref;
using orv::ustring_ref;
using orv::net::URI;

bool endsInSlash(ustring_ref path) {
    return !path.empty() && path.back() == u'/';
}

void checkWay(const gref<URI>& base, const gref<URI>& other, const gref<URI>& way) {
    FUZZ_CHECK(!way->isAbsolute() && way->getRawAuthority().data() == nullptr);
    FUZZ_CHECK(way->getRawQuery() == other->getRawQuery());
    FUZZ_CHECK(way->getRawFragment() == other->getRawFragment());
    FUZZ_CHECK(way->normalize().get() == way.get());
    // It is the end of the other path, so a base that ends in a folder gives that path back.
    if (endsInSlash(base->getRawPath()) && endsInSlash(base->normalize()->getRawPath()) &&
        !way->getRawPath().empty()) {
        FUZZ_CHECK(base->resolve(way)->equals(other->normalize()));
    }
}

void checkComparison(const gref<URI>& a, const gref<URI>& b) {
    const auto sign = [](int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; };
    FUZZ_CHECK(sign(a->compareTo(b)) == -sign(b->compareTo(a)));
    const bool equal = a->equals(b);
    FUZZ_CHECK(equal == b->equals(a));
    if (equal) {
        FUZZ_CHECK(a->hashCode() == b->hashCode() && a->compareTo(b) == 0);
    }
}

void checkOrder(const gref<URI>& a, const gref<URI>& b) {
    FUZZ_CHECK((a == b) == (b == a) && (a == b) == (a <=> b == 0));
    FUZZ_CHECK((a < b) == (b > a));
    if (a == b) {
        const std::hash<gref<URI>> hash;
        FUZZ_CHECK(hash(a) == hash(b));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const bool wide = input.byte() % 2 != 0;
    const std::size_t baseSize = input.byte();
    const auto base = fuzz::toURI(input.bytes(baseSize), wide);
    const auto other = fuzz::toURI(input.rest(), wide);
    if (!base || !other) {
        return 0;
    }
    checkOrder(base, other);
    checkOrder(base, base->normalize());
    try {
        checkComparison(base, other);
        const auto way = base->relativize(other);
        if (way.get() != other.get()) {
            checkWay(base, other, way);
        }
    } catch (const orv::AssertionError&) { // hosts that are taken for escapes where they have none
    }
    return 0;
}
