// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The ISO-8859 family but for part 1: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/sbcs_decoder.h"
#include "orv/liborvxx/charset/sets/sbcs_encoder.h"
#include "orv/liborvxx/charset/tables/iso_8859_10.h"
#include "orv/liborvxx/charset/tables/iso_8859_11.h"
#include "orv/liborvxx/charset/tables/iso_8859_13.h"
#include "orv/liborvxx/charset/tables/iso_8859_14.h"
#include "orv/liborvxx/charset/tables/iso_8859_15.h"
#include "orv/liborvxx/charset/tables/iso_8859_16.h"
#include "orv/liborvxx/charset/tables/iso_8859_2.h"
#include "orv/liborvxx/charset/tables/iso_8859_3.h"
#include "orv/liborvxx/charset/tables/iso_8859_4.h"
#include "orv/liborvxx/charset/tables/iso_8859_5.h"
#include "orv/liborvxx/charset/tables/iso_8859_6.h"
#include "orv/liborvxx/charset/tables/iso_8859_7.h"
#include "orv/liborvxx/charset/tables/iso_8859_8.h"
#include "orv/liborvxx/charset/tables/iso_8859_9.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

constinit const SetDefinition definitions::ISO_8859_2 = {
    5,
    u"ISO-8859-2"_u,
    {u"ISO_8859-2:1987"_u, u"iso-ir-101"_u, u"ISO_8859-2"_u, u"latin2"_u, u"l2"_u, u"csISOLatin2"_u,
     u"ISO8859-2"_u, u"ibm912"_u, u"8859_2"_u, u"cp912"_u, u"iso8859_2"_u, u"912"_u, u"ibm-912"_u},
    makeSbcsDecoder<1, tables::iso_8859_2::DECODE>,
    makeSbcsEncoder<tables::iso_8859_2::MAX_CHAR, tables::iso_8859_2::ENCODE>};

constinit const SetDefinition definitions::ISO_8859_3 = {
    6,
    u"ISO-8859-3"_u,
    {u"ISO_8859-3:1988"_u, u"iso-ir-109"_u, u"ISO_8859-3"_u, u"latin3"_u, u"l3"_u, u"csISOLatin3"_u,
     u"ISO8859-3"_u, u"ibm913"_u, u"8859_3"_u, u"cp913"_u, u"iso8859_3"_u, u"913"_u, u"ibm-913"_u},
    makeSbcsDecoder<0, tables::iso_8859_3::DECODE>,
    makeSbcsEncoder<tables::iso_8859_3::MAX_CHAR, tables::iso_8859_3::ENCODE>};

constinit const SetDefinition definitions::ISO_8859_4 = {
    7,
    u"ISO-8859-4"_u,
    {u"ISO_8859-4:1988"_u, u"iso-ir-110"_u, u"ISO_8859-4"_u, u"latin4"_u, u"l4"_u, u"csISOLatin4"_u,
     u"8859_4"_u, u"cp914"_u, u"ibm914"_u, u"iso8859_4"_u, u"iso8859-4"_u, u"914"_u, u"ibm-914"_u},
    makeSbcsDecoder<1, tables::iso_8859_4::DECODE>,
    makeSbcsEncoder<tables::iso_8859_4::MAX_CHAR, tables::iso_8859_4::ENCODE>};

constinit const SetDefinition definitions::ISO_8859_5 = {
    8,
    u"ISO-8859-5"_u,
    {u"ISO_8859-5:1988"_u, u"iso-ir-144"_u, u"ISO_8859-5"_u, u"cyrillic"_u, u"csISOLatinCyrillic"_u,
     u"iso8859_5"_u, u"cp915"_u, u"8859_5"_u, u"ibm-915"_u, u"ibm915"_u, u"915"_u, u"ISO8859-5"_u},
    makeSbcsDecoder<1, tables::iso_8859_5::DECODE>,
    makeSbcsSparseEncoder<7, tables::iso_8859_5::MAX_CHAR, tables::iso_8859_5::ENCODE_INDEX,
                          tables::iso_8859_5::ENCODE_DATA>};

constinit const SetDefinition definitions::ISO_8859_6 = {
    9,
    u"ISO-8859-6"_u,
    {u"ISO_8859-6:1987"_u, u"iso-ir-127"_u, u"ISO_8859-6"_u, u"ECMA-114"_u, u"ASMO-708"_u,
     u"arabic"_u, u"csISOLatinArabic"_u, u"8859_6"_u, u"iso8859_6"_u, u"ibm1089"_u, u"ibm-1089"_u,
     u"1089"_u, u"ISO8859-6"_u, u"cp1089"_u},
    makeSbcsDecoder<0, tables::iso_8859_6::DECODE>,
    makeSbcsSparseEncoder<6, tables::iso_8859_6::MAX_CHAR, tables::iso_8859_6::ENCODE_INDEX,
                          tables::iso_8859_6::ENCODE_DATA>};

constinit const SetDefinition definitions::ISO_8859_7 = {
    10,
    u"ISO-8859-7"_u,
    {u"ISO_8859-7:1987"_u, u"iso-ir-126"_u, u"ISO_8859-7"_u, u"ELOT_928"_u, u"ECMA-118"_u,
     u"greek"_u, u"greek8"_u, u"csISOLatinGreek"_u, u"8859_7"_u, u"ibm813"_u, u"iso8859_7"_u,
     u"cp813"_u, u"sun_eu_greek"_u, u"813"_u, u"iso8859-7"_u, u"ibm-813"_u},
    makeSbcsDecoder<0, tables::iso_8859_7::DECODE>,
    makeSbcsSparseEncoder<6, tables::iso_8859_7::MAX_CHAR, tables::iso_8859_7::ENCODE_INDEX,
                          tables::iso_8859_7::ENCODE_DATA>};

constinit const SetDefinition definitions::ISO_8859_8 = {
    11,
    u"ISO-8859-8"_u,
    {u"ISO_8859-8:1988"_u, u"iso-ir-138"_u, u"ISO_8859-8"_u, u"hebrew"_u, u"csISOLatinHebrew"_u,
     u"8859_8"_u, u"cp916"_u, u"ISO8859-8"_u, u"iso8859_8"_u, u"ibm-916"_u, u"916"_u, u"ibm916"_u},
    makeSbcsDecoder<0, tables::iso_8859_8::DECODE>,
    makeSbcsSparseEncoder<6, tables::iso_8859_8::MAX_CHAR, tables::iso_8859_8::ENCODE_INDEX,
                          tables::iso_8859_8::ENCODE_DATA>};

constinit const SetDefinition definitions::ISO_8859_9 = {
    12,
    u"ISO-8859-9"_u,
    {u"ISO_8859-9:1989"_u, u"iso-ir-148"_u, u"ISO_8859-9"_u, u"latin5"_u, u"l5"_u, u"csISOLatin5"_u,
     u"ibm-920"_u, u"8859_9"_u, u"ibm920"_u, u"iso8859_9"_u, u"cp920"_u, u"920"_u, u"ISO8859-9"_u},
    makeSbcsDecoder<1, tables::iso_8859_9::DECODE>,
    makeSbcsEncoder<tables::iso_8859_9::MAX_CHAR, tables::iso_8859_9::ENCODE>};

constinit const SetDefinition definitions::ISO_8859_10 = {
    13,
    u"ISO-8859-10"_u,
    {u"ISO_8859-10:1992"_u, u"iso-ir-157"_u, u"l6"_u, u"csISOLatin6"_u, u"latin6"_u},
    makeSbcsDecoder<1, tables::iso_8859_10::DECODE>,
    makeSbcsSparseEncoder<7, tables::iso_8859_10::MAX_CHAR, tables::iso_8859_10::ENCODE_INDEX,
                          tables::iso_8859_10::ENCODE_DATA>};

// Has no number of its own in the registry of sets.
constinit const SetDefinition definitions::ISO_8859_11 = {
    0,
    u"x-iso-8859-11"_u,
    {u"iso-8859-11"_u, u"iso8859_11"_u},
    makeSbcsDecoder<0, tables::iso_8859_11::DECODE>,
    makeSbcsSparseEncoder<6, tables::iso_8859_11::MAX_CHAR, tables::iso_8859_11::ENCODE_INDEX,
                          tables::iso_8859_11::ENCODE_DATA>};

constinit const SetDefinition definitions::ISO_8859_13 = {
    109,
    u"ISO-8859-13"_u,
    {u"csISO885913"_u, u"iso_8859-13"_u, u"ISO8859-13"_u, u"iso8859_13"_u, u"8859_13"_u},
    makeSbcsDecoder<1, tables::iso_8859_13::DECODE>,
    makeSbcsSparseEncoder<7, tables::iso_8859_13::MAX_CHAR, tables::iso_8859_13::ENCODE_INDEX,
                          tables::iso_8859_13::ENCODE_DATA>};

constinit const SetDefinition definitions::ISO_8859_14 = {
    110,
    u"ISO-8859-14"_u,
    {u"ISO_8859-14:1998"_u, u"iso-ir-199"_u, u"ISO_8859-14"_u, u"latin8"_u, u"iso-celtic"_u,
     u"l8"_u, u"csISO885914"_u},
    makeSbcsDecoder<1, tables::iso_8859_14::DECODE>,
    makeSbcsSparseEncoder<7, tables::iso_8859_14::MAX_CHAR, tables::iso_8859_14::ENCODE_INDEX,
                          tables::iso_8859_14::ENCODE_DATA>};

// The second alias is one name, as the registry of sets once had it; its pieces are none.
constinit const SetDefinition definitions::ISO_8859_15 = {
    111,
    u"ISO-8859-15"_u,
    {u"ISO_8859-15"_u, u"Latin-9csISO885915ISO8859-15"_u, u"LATIN0"_u, u"ISO8859_15_FDIS"_u,
     u"ISO8859_15"_u, u"cp923"_u, u"8859_15"_u, u"L9"_u, u"IBM923"_u, u"csISOlatin9"_u,
     u"IBM-923"_u, u"csISOlatin0"_u, u"923"_u, u"LATIN9"_u},
    makeSbcsDecoder<1, tables::iso_8859_15::DECODE>,
    makeSbcsSparseEncoder<7, tables::iso_8859_15::MAX_CHAR, tables::iso_8859_15::ENCODE_INDEX,
                          tables::iso_8859_15::ENCODE_DATA>};

// The second alias is one name; "latin10" and "iso-ir-226" by themselves are none.
constinit const SetDefinition definitions::ISO_8859_16 = {
    112,
    u"ISO-8859-16"_u,
    {u"ISO_8859-16:2001"_u, u"iso-ir-226ISO_8859-16latin10"_u, u"l10"_u, u"csISO885916"_u},
    makeSbcsDecoder<1, tables::iso_8859_16::DECODE>,
    makeSbcsSparseEncoder<6, tables::iso_8859_16::MAX_CHAR, tables::iso_8859_16::ENCODE_INDEX,
                          tables::iso_8859_16::ENCODE_DATA>};

} // namespace orv
