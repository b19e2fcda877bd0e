// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief GB18030: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/gb18030_coders.h"
#include "orv/liborvxx/charset/tables/gb18030.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

constinit const SetDefinition definitions::GB18030 = {
    114,
    u"GB18030"_u,
    {u"csGB18030"_u, u"GB18030-2000"_u},
    makeDecoder<GB18030Decoder, tables::gb18030::DECODE_INDEX, tables::gb18030::DECODE_DATA>,
    makeEncoder<GB18030Encoder, tables::gb18030::ENCODE_INDEX, tables::gb18030::ENCODE_DATA>};

} // namespace orv
