// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief x-mswin-936, code page 936: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/dbcs_bytes.h"
#include "orv/liborvxx/charset/sets/dbcs_decoder.h"
#include "orv/liborvxx/charset/sets/dbcs_encoder.h"
#include "orv/liborvxx/charset/tables/micsft_936.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

struct Micsft_936_Traits : WideRangeBytes {
    static constexpr unsigned int DECODE_SHIFT = tables::micsft_936::DECODE_SHIFT;
    static constexpr unsigned int ENCODE_SHIFT = tables::micsft_936::ENCODE_SHIFT;
    static constexpr std::uint32_t MAX_KEY = tables::micsft_936::MAX_KEY;
};

} // namespace

constinit const SetDefinition definitions::Micsft_936 = {
    0,
    u"x-mswin-936"_u,
    {u"ms936"_u, u"ms_936"_u},
    makeDecoder<DBCSDecoder<Micsft_936_Traits>, tables::micsft_936::DECODE_INDEX,
                tables::micsft_936::DECODE_DATA>,
    makeEncoder<DBCSEncoder<Micsft_936_Traits>, tables::micsft_936::ENCODE_INDEX,
                tables::micsft_936::ENCODE_DATA>};

} // namespace orv
