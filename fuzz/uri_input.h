// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief URIs from a fuzzer's bytes.
#ifndef ORV_FUZZ_URI_INPUT_H
#define ORV_FUZZ_URI_INPUT_H

#include "fuzz/input.h"

#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/ustring.h"

#include <cstddef>
#include <string>
#include <utility>

namespace fuzz {

/// Texts up to this length have their components where they belong; in longer ones ranges wrap.
inline constexpr std::size_t MAX_EXACT_URI = 0xFFFF;

/// A unit for each byte, or for each two.
inline orv::ustring uriText(const std::string& bytes, bool wide) {
    return wide ? toUnits(bytes) : widen(bytes);
}

/// Null if the bytes are no URI reference, or too long a one.
inline orv::gref<orv::net::URI> toURI(const std::string& bytes, bool wide) {
    orv::ustring text = uriText(bytes, wide);
    return text.size() > MAX_EXACT_URI ? nullptr : orv::net::URI::tryCreate(std::move(text)).uri;
}

} // namespace fuzz

#endif
