// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URI::resolve`: of text and of an object alike, and each component from the right side.
///
/// Input: how the rest becomes text and the length of the base, one byte each; base; reference.
#include "fuzz/check.h"
#include "fuzz/input.h"
#include "fuzz/uri_input.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/uri.h"

#include <stdexcept>
#include <string>

namespace {

using orv::gref;
using orv::ustring_ref;
using orv::net::URI;

bool isAbsent(ustring_ref component) {
    return component.data() == nullptr;
}

// Text that is no reference fails where `tryCreate` fails.
void checkFailure(const gref<URI>& base, ustring_ref text) {
    const auto failure = URI::tryCreate(text);
    FUZZ_CHECK(!failure);
    try {
        base->resolve(text);
    } catch (const orv::ParseError& e) {
        FUZZ_CHECK(e.getErrorOffset() == failure.index);
        FUZZ_CHECK(e.what() == failure.reason.to_string());
        return;
    } catch (const std::invalid_argument& e) {
        FUZZ_CHECK(std::string(e.what()) == "unexpected character");
        FUZZ_CHECK(failure.reason.to_string() == "unexpected character");
        return;
    }
    FUZZ_CHECK(false);
}

void checkSame(ustring_ref a, ustring_ref b) {
    FUZZ_CHECK(a == b && isAbsent(a) == isAbsent(b));
}

void checkPath(const gref<URI>& base, const gref<URI>& ref, const gref<URI>& result) {
    const ustring_ref path = ref->getRawPath();
    if (!isAbsent(ref->getRawHost()) || (!path.empty() && path.front() == u'/')) {
        checkSame(result->getRawPath(), path);
        return;
    }
    // A merged path is a normal one, and the text says the same as the object.
    FUZZ_CHECK(result->normalize().get() == result.get());
    const auto again = URI::create(result->toString());
    FUZZ_CHECK(again->normalize().get() == again.get() ||
               again->normalize()->toString() == result->toString());
    const ustring_ref basePath = base->getRawPath();
    FUZZ_CHECK(result->getRawPath().size() <= basePath.size() + path.size() + 2);
}

void check(const gref<URI>& base, const gref<URI>& ref) {
    const auto result = base->resolve(ref);
    if (ref->isAbsolute() || base->isOpaque()) {
        FUZZ_CHECK(result.get() == ref.get());
        return;
    }
    checkSame(result->getScheme(), base->getScheme());
    checkSame(result->getRawFragment(), ref->getRawFragment());
    const auto& authority = isAbsent(ref->getRawHost()) ? base : ref;
    checkSame(result->getRawAuthority(), authority->getRawAuthority());
    const bool fragmentAlone = !isAbsent(ref->getRawFragment()) && ref->getRawPath().empty() &&
                               isAbsent(ref->getRawHost()) && isAbsent(ref->getRawQuery());
    if (fragmentAlone) {
        checkSame(result->getRawPath(), base->getRawPath());
        checkSame(result->getRawQuery(), base->getRawQuery());
    } else {
        checkSame(result->getRawQuery(), ref->getRawQuery());
        checkPath(base, ref, result);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const bool wide = input.byte() % 2 != 0;
    const std::size_t baseSize = input.byte();
    const auto base = fuzz::toURI(input.bytes(baseSize), wide);
    const orv::ustring text = fuzz::uriText(input.rest(), wide);
    if (!base || base->toString().size() + text.size() + 3 > fuzz::MAX_EXACT_URI) {
        return 0;
    }
    if (const auto ref = URI::tryCreate(ustring_ref(text)).uri) {
        check(base, ref);
        const auto result = base->resolve(ustring_ref(text));
        FUZZ_CHECK(result->equals(base->resolve(ref)));
        FUZZ_CHECK(result->toString() == base->resolve(ref)->toString());
    } else {
        checkFailure(base, text);
    }
    return 0;
}
