// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Big5-HKSCS: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/dbcs_bytes.h"
#include "orv/liborvxx/charset/sets/dbcs_decoder.h"
#include "orv/liborvxx/charset/sets/dbcs_encoder.h"
#include "orv/liborvxx/charset/tables/big5_hkscs.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

struct Big5_HKSCS_Traits : Big5HkscsBytes {
    static constexpr unsigned int DECODE_SHIFT = tables::big5_hkscs::DECODE_SHIFT;
    static constexpr unsigned int ENCODE_SHIFT = tables::big5_hkscs::ENCODE_SHIFT;
    static constexpr std::uint32_t MAX_KEY = tables::big5_hkscs::MAX_KEY;
};

} // namespace

constinit const SetDefinition definitions::Big5_HKSCS = {
    2101,
    u"Big5-HKSCS"_u,
    {u"csBig5HKSCSBig5_HKSCS"_u, u"big5hk"_u, u"big5hkscs"_u},
    makeDecoder<DBCSDecoder<Big5_HKSCS_Traits>, tables::big5_hkscs::DECODE_INDEX,
                tables::big5_hkscs::DECODE_DATA>,
    makeEncoder<DBCSEncoder<Big5_HKSCS_Traits>, tables::big5_hkscs::ENCODE_INDEX,
                tables::big5_hkscs::ENCODE_DATA>};

} // namespace orv
