// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI::normalize`: a path without dot segments, the same twice, and nothing else changed.
///
/// Input: how the rest becomes text, one byte; the text.
#include "fuzz/check.h"
#include "fuzz/input.h"
#include "fuzz/uri_input.h"

#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"

namespace {

using namespace orv::literals;
using orv::ustring_ref;
using orv::net::URI;

// ".." may stand at the front alone, and "." there only where it keeps a ":" from ending a scheme.
void checkPath(ustring_ref path) {
    FUZZ_CHECK(path.find(u"//"_u) == ustring_ref::npos);
    bool atFront = true;
    for (const orv::net::EncodedText segment : orv::net::PathSegments(path)) {
        if (segment.raw() == u"."_u) {
            FUZZ_CHECK(segment.raw().data() == path.data());
            const ustring_ref rest = path.substr(2);
            FUZZ_CHECK(rest.find(orv::char16(u':')) < rest.find(orv::char16(u'/')));
        } else if (segment.raw() == u".."_u) {
            FUZZ_CHECK(atFront);
        } else {
            atFront = false;
        }
    }
}

void check(const orv::gref<URI>& uri) {
    const auto normal = uri->normalize();
    FUZZ_CHECK(normal->normalize().get() == normal.get());
    if (uri->isOpaque()) {
        FUZZ_CHECK(normal.get() == uri.get());
        return;
    }
    checkPath(normal->getRawPath());
    FUZZ_CHECK(normal->getScheme() == uri->getScheme());
    FUZZ_CHECK(normal->getRawAuthority() == uri->getRawAuthority());
    FUZZ_CHECK(normal->getRawQuery() == uri->getRawQuery());
    FUZZ_CHECK(normal->getRawFragment() == uri->getRawFragment());
    FUZZ_CHECK(normal->toString().size() <= uri->toString().size());
    // The text says the same as the object.
    const auto again = URI::create(normal->toString());
    FUZZ_CHECK(again->equals(normal) && again->hashCode() == normal->hashCode());
    FUZZ_CHECK(again->normalize()->toString() == normal->toString());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const bool wide = input.byte() % 2 != 0;
    if (const auto uri = fuzz::toURI(input.rest(), wide)) {
        check(uri);
    }
    return 0;
}
