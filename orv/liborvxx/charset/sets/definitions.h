// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The definitions of all sets. Each module of a set or a family defines its own.
#ifndef ORV_LIBORVXX_CHARSET_SETS_DEFINITIONS_H
#define ORV_LIBORVXX_CHARSET_SETS_DEFINITIONS_H

#include "orv/liborvxx/charset/sets/set_definition.h"

namespace orv::definitions {

/// \name Unicode
/// @{
/// The strict form (RFC 3629): no surrogates, no overlong forms, nothing above U+10FFFF, in either
/// direction. A bad continuation byte counts into the malformed length.
extern const SetDefinition UTF_8;
/// Each code unit by itself in one to three bytes, so a supplementary character takes six (Unicode
/// Technical Report 26). The decoder passes unpaired surrogates; the encoder refuses them.
extern const SetDefinition CESU_8;
/// @}

/// \name Without a table
/// @{
/// The identity on 0x00 to 0x7F.
extern const SetDefinition US_ASCII;
/// The identity on 0x00 to 0xFF.
extern const SetDefinition ISO_8859_1;
/// @}

} // namespace orv::definitions

#endif
