// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief x-windows-950, code page 950: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/dbcs_bytes.h"
#include "orv/liborvxx/charset/sets/dbcs_decoder.h"
#include "orv/liborvxx/charset/sets/dbcs_encoder.h"
#include "orv/liborvxx/charset/tables/micsft_950.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

struct Micsft_950_Traits : WideRangeBytes {
    static constexpr unsigned int DECODE_SHIFT = tables::micsft_950::DECODE_SHIFT;
    static constexpr unsigned int ENCODE_SHIFT = tables::micsft_950::ENCODE_SHIFT;
    static constexpr std::uint32_t MAX_KEY = tables::micsft_950::MAX_KEY;
};

} // namespace

constinit const SetDefinition definitions::Micsft_950 = {
    0,
    u"x-windows-950"_u,
    {u"ms950"_u, u"windows-950"_u},
    makeDecoder<DBCSDecoder<Micsft_950_Traits>, tables::micsft_950::DECODE_INDEX,
                tables::micsft_950::DECODE_DATA>,
    makeEncoder<DBCSEncoder<Micsft_950_Traits>, tables::micsft_950::ENCODE_INDEX,
                tables::micsft_950::ENCODE_DATA>};

} // namespace orv
