// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief KOI8-R and KOI8-U: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/sbcs_decoder.h"
#include "orv/liborvxx/charset/sets/sbcs_encoder.h"
#include "orv/liborvxx/charset/tables/koi8_r.h"
#include "orv/liborvxx/charset/tables/koi8_u.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

constinit const SetDefinition definitions::KOI8_R = {
    2084,
    u"KOI8-R"_u,
    {u"csKOI8R"_u, u"cp878"_u, u"ibm-878"_u, u"ibm-878_P100-1996"_u, u"koi8"_u, u"windows-20866"_u},
    makeSbcsDecoder<1, tables::koi8_r::DECODE>,
    makeSbcsSparseEncoder<7, tables::koi8_r::MAX_CHAR, tables::koi8_r::ENCODE_INDEX,
                          tables::koi8_r::ENCODE_DATA>};

constinit const SetDefinition definitions::KOI8_U = {
    2088,
    u"KOI8-U"_u,
    {u"csKOI8U"_u, u"ibm-1168"_u, u"ibm-1168_P100-2002"_u, u"windows-21866"_u},
    makeSbcsDecoder<1, tables::koi8_u::DECODE>,
    makeSbcsSparseEncoder<5, tables::koi8_u::MAX_CHAR, tables::koi8_u::ENCODE_INDEX,
                          tables::koi8_u::ENCODE_DATA>};

} // namespace orv
