// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Big5: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/dbcs_bytes.h"
#include "orv/liborvxx/charset/sets/dbcs_decoder.h"
#include "orv/liborvxx/charset/sets/dbcs_encoder.h"
#include "orv/liborvxx/charset/tables/big5.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

struct Big5_Traits : WideRangeBytes {
    static constexpr unsigned int DECODE_SHIFT = tables::big5::DECODE_SHIFT;
    static constexpr unsigned int ENCODE_SHIFT = tables::big5::ENCODE_SHIFT;
    static constexpr std::uint32_t MAX_KEY = tables::big5::MAX_KEY;
};

} // namespace

constinit const SetDefinition definitions::Big5 = {
    2026,
    u"Big5"_u,
    {u"csBig5"_u},
    makeDecoder<DBCSDecoder<Big5_Traits>, tables::big5::DECODE_INDEX, tables::big5::DECODE_DATA>,
    makeEncoder<DBCSEncoder<Big5_Traits>, tables::big5::ENCODE_INDEX, tables::big5::ENCODE_DATA>};

} // namespace orv
