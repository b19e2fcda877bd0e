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
/// The code units as two bytes each, in a fixed order. No byte order mark is written or looked for;
/// the decoder refuses U+FFFE, the mark in the wrong order.
extern const SetDefinition UTF_16BE;
extern const SetDefinition UTF_16LE;
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

/// \name ISO/IEC 8859
/// ASCII, the C1 controls as 0x80 to 0x9F, and the 96 characters of one part of the standard.
/// @{
/// Part 2, Latin 2: Central European.
extern const SetDefinition ISO_8859_2;
/// Part 3, Latin 3: South European, Esperanto.
extern const SetDefinition ISO_8859_3;
/// Part 4, Latin 4: North European.
extern const SetDefinition ISO_8859_4;
/// Part 5: Cyrillic.
extern const SetDefinition ISO_8859_5;
/// Part 6: Arabic, the letters without their forms.
extern const SetDefinition ISO_8859_6;
/// Part 7: Greek, with the euro sign of 2003.
extern const SetDefinition ISO_8859_7;
/// Part 8: Hebrew, with the two direction marks.
extern const SetDefinition ISO_8859_8;
/// Part 9, Latin 5: Turkish.
extern const SetDefinition ISO_8859_9;
/// Part 10, Latin 6: Nordic.
extern const SetDefinition ISO_8859_10;
/// Part 11: Thai, with a no-break space at 0xA0. It has no number in IANA's registry.
extern const SetDefinition ISO_8859_11;
/// Part 13, Latin 7: Baltic.
extern const SetDefinition ISO_8859_13;
/// Part 14, Latin 8: Celtic.
extern const SetDefinition ISO_8859_14;
/// Part 15, Latin 9: Western European with the euro sign.
extern const SetDefinition ISO_8859_15;
/// Part 16, Latin 10: South-Eastern European with the euro sign.
extern const SetDefinition ISO_8859_16;
/// @}

/// \name KOI8
/// Cyrillic in the order of the Latin letters that sound alike, and line drawing.
/// @{
/// Russian (RFC 1489).
extern const SetDefinition KOI8_R;
/// The same with eight Ukrainian letters in place of line drawing (RFC 2319).
extern const SetDefinition KOI8_U;
/// @}

/// \name Single-byte code pages
/// Bytes that a code page leaves undefined stay unmapped: none stands for a C1 control.
/// @{
/// Thai.
extern const SetDefinition Micsft_874;
/// Central European.
extern const SetDefinition Micsft_1250;
/// Cyrillic.
extern const SetDefinition Micsft_1251;
/// Western European.
extern const SetDefinition Micsft_1252;
/// Greek.
extern const SetDefinition Micsft_1253;
/// Turkish.
extern const SetDefinition Micsft_1254;
/// Hebrew.
extern const SetDefinition Micsft_1255;
/// Arabic.
extern const SetDefinition Micsft_1256;
/// Baltic.
extern const SetDefinition Micsft_1257;
/// Vietnamese, with combining tone marks.
extern const SetDefinition Micsft_1258;
/// @}

/// \name Double-byte
/// ASCII in single bytes, all else in pairs, but for katakana and a few others. No two characters
/// share a pair, so a base letter with a combining mark that has a pair in a standard has none
/// here.
/// @{
/// JIS X 0208, with the katakana of JIS X 0201 as single bytes.
extern const SetDefinition Shift_JIS;
/// Code page 932: Shift_JIS with the characters of two makers and a private area.
extern const SetDefinition Micsft_932;
/// Code page 936: GBK with the euro sign as 0x80 and a private area.
extern const SetDefinition Micsft_936;
/// Code page 949: the Unified Hangul Code.
extern const SetDefinition Micsft_949;
/// Code page 950: Big5 with a private area.
extern const SetDefinition Micsft_950;
/// Big5 with the ETEN rows.
extern const SetDefinition Big5;
/// Big5 with the Hong Kong Supplementary Character Set, which reaches beyond the BMP. The encoder
/// also takes the private code units that once stood for its characters.
extern const SetDefinition Big5_HKSCS;
/// Chinese in both scripts. Unlike code page 936 it has the euro sign as a pair.
extern const SetDefinition GBK;
/// @}

/// \name One, two or four bytes
/// @{
/// GB18030-2000: all of Unicode.
extern const SetDefinition GB18030;
/// @}

} // namespace orv::definitions

#endif
