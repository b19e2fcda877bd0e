// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief x-windows-949, code page 949: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/dbcs_bytes.h"
#include "orv/liborvxx/charset/sets/dbcs_decoder.h"
#include "orv/liborvxx/charset/sets/dbcs_encoder.h"
#include "orv/liborvxx/charset/tables/micsft_949.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

struct Micsft_949_Traits : WideRangeBytes {
    // Korean is written with spaces.
    static constexpr bool HAS_SHORT_WORDS = true;
    static constexpr unsigned int DECODE_SHIFT = tables::micsft_949::DECODE_SHIFT;
    static constexpr unsigned int ENCODE_SHIFT = tables::micsft_949::ENCODE_SHIFT;
    static constexpr std::uint32_t MAX_KEY = tables::micsft_949::MAX_KEY;
};

} // namespace

constinit const SetDefinition definitions::Micsft_949 = {
    0,
    u"x-windows-949"_u,
    {u"ms949"_u, u"ms_949"_u, u"windows-949"_u, u"windows949"_u},
    makeDecoder<DBCSDecoder<Micsft_949_Traits>, tables::micsft_949::DECODE_INDEX,
                tables::micsft_949::DECODE_DATA>,
    makeEncoder<DBCSEncoder<Micsft_949_Traits>, tables::micsft_949::ENCODE_INDEX,
                tables::micsft_949::ENCODE_DATA>};

} // namespace orv
