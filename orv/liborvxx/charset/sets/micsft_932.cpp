// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Windows-31J, code page 932: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/dbcs_bytes.h"
#include "orv/liborvxx/charset/sets/dbcs_decoder.h"
#include "orv/liborvxx/charset/sets/dbcs_encoder.h"
#include "orv/liborvxx/charset/tables/micsft_932.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

namespace {

struct Micsft_932_Traits : ShiftJisBytes {
    static constexpr unsigned int DECODE_SHIFT = tables::micsft_932::DECODE_SHIFT;
    static constexpr unsigned int ENCODE_SHIFT = tables::micsft_932::ENCODE_SHIFT;
    static constexpr std::uint32_t MAX_KEY = tables::micsft_932::MAX_KEY;
};

} // namespace

constinit const SetDefinition definitions::Micsft_932 = {
    2024,
    u"Windows-31J"_u,
    {u"csWindows31J"_u, u"MS932"_u, u"windows-932"_u},
    makeDecoder<DBCSDecoder<Micsft_932_Traits>, tables::micsft_932::DECODE_INDEX,
                tables::micsft_932::DECODE_DATA>,
    makeEncoder<DBCSEncoder<Micsft_932_Traits>, tables::micsft_932::ENCODE_INDEX,
                tables::micsft_932::ENCODE_DATA>};

} // namespace orv
