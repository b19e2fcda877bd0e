// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Shift_JIS: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/dbcs_bytes.h"
#include "orv/liborvxx/charset/sets/dbcs_decoder.h"
#include "orv/liborvxx/charset/sets/dbcs_encoder.h"
#include "orv/liborvxx/charset/tables/shift_jis.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

struct Shift_JIS_Traits : ShiftJisBytes {
    static constexpr unsigned int DECODE_SHIFT = tables::shift_jis::DECODE_SHIFT;
    static constexpr unsigned int ENCODE_SHIFT = tables::shift_jis::ENCODE_SHIFT;
    static constexpr std::uint32_t MAX_KEY = tables::shift_jis::MAX_KEY;
};

} // namespace

constinit const SetDefinition definitions::Shift_JIS = {
    17,
    u"Shift_JIS"_u,
    {u"MS_Kanji"_u, u"csShiftJIS"_u, u"shift-jis"_u, u"sjis"_u, u"x-sjis"_u},
    makeDecoder<DBCSDecoder<Shift_JIS_Traits>, tables::shift_jis::DECODE_INDEX,
                tables::shift_jis::DECODE_DATA>,
    makeEncoder<DBCSEncoder<Shift_JIS_Traits>, tables::shift_jis::ENCODE_INDEX,
                tables::shift_jis::ENCODE_DATA>};

} // namespace orv
