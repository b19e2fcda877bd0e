// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief GBK: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/dbcs_bytes.h"
#include "orv/liborvxx/charset/sets/dbcs_decoder.h"
#include "orv/liborvxx/charset/sets/dbcs_encoder.h"
#include "orv/liborvxx/charset/tables/gbk.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

struct GBK_Traits : WideRangeBytes {
    static constexpr unsigned int DECODE_SHIFT = tables::gbk::DECODE_SHIFT;
    static constexpr unsigned int ENCODE_SHIFT = tables::gbk::ENCODE_SHIFT;
    static constexpr std::uint32_t MAX_KEY = tables::gbk::MAX_KEY;
};

} // namespace

constinit const SetDefinition definitions::GBK = {
    113,
    u"GBK"_u,
    {u"CP936"_u, u"windows-936"_u, u"csGBK"_u},
    makeDecoder<DBCSDecoder<GBK_Traits>, tables::gbk::DECODE_INDEX, tables::gbk::DECODE_DATA>,
    makeEncoder<DBCSEncoder<GBK_Traits>, tables::gbk::ENCODE_INDEX, tables::gbk::ENCODE_DATA>};

} // namespace orv
