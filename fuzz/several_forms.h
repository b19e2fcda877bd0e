// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Characters to which several codes of a set decode.
#ifndef ORV_FUZZ_SEVERAL_FORMS_H
#define ORV_FUZZ_SEVERAL_FORMS_H

#include "orv/liborvxx/charset/charset.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace fuzz {

/// The units to which a pair of bytes decodes without being the bytes that they encode to, in
/// ascending order. No set has a shorter or a longer code of that kind, nor one beyond the BMP.
inline const std::vector<orv::char16>& unitsOfSeveralForms(orv::Charset* charset) {
    static std::map<orv::Charset*, std::vector<orv::char16>> known;
    const auto [place, isNew] = known.try_emplace(charset);
    if (!isNew) {
        return place->second;
    }
    const auto decoder = charset->newDecoder();
    const auto encoder = charset->newEncoder();
    for (int lead = 0x80; lead <= 0xFF; ++lead) {
        for (int trail = 0; trail <= 0xFF; ++trail) {
            const unsigned char pair[] = {static_cast<unsigned char>(lead),
                                          static_cast<unsigned char>(trail)};
            orv::char16 unit;
            unsigned char again[8];
            orv::Buffer<const unsigned char> in(pair, 2);
            orv::Buffer<orv::char16> out(&unit, 1);
            decoder->reset();
            if (decoder->decode(in, out, true) != orv::CoderResult::underflow() ||
                out.position() != 1) {
                continue;
            }
            orv::Buffer<const orv::char16> text(&unit, 1);
            orv::Buffer<unsigned char> bytes(again, sizeof again);
            encoder->reset();
            if (encoder->encode(text, bytes, true) == orv::CoderResult::underflow() &&
                !std::equal(pair, pair + 2, again, again + bytes.position())) {
                place->second.push_back(unit);
            }
        }
    }
    std::sort(place->second.begin(), place->second.end());
    return place->second;
}

/// Whether a text of the set may have been written in several ways.
inline bool hasSeveralForms(orv::Charset* charset, const orv::ustring& text) {
    const std::vector<orv::char16>& units = unitsOfSeveralForms(charset);
    return std::any_of(text.begin(), text.end(), [&](orv::char16 c) {
        return std::binary_search(units.begin(), units.end(), c);
    });
}

} // namespace fuzz

#endif
