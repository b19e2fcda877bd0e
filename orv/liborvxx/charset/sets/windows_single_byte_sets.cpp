// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The single-byte code pages, 874 and 1250 to 1258: names, coders and tables.
#include "orv/liborvxx/charset/sets/definitions.h"

#include "orv/liborvxx/charset/sets/sbcs_decoder.h"
#include "orv/liborvxx/charset/sets/sbcs_encoder.h"
#include "orv/liborvxx/charset/tables/micsft_1250.h"
#include "orv/liborvxx/charset/tables/micsft_1251.h"
#include "orv/liborvxx/charset/tables/micsft_1252.h"
#include "orv/liborvxx/charset/tables/micsft_1253.h"
#include "orv/liborvxx/charset/tables/micsft_1254.h"
#include "orv/liborvxx/charset/tables/micsft_1255.h"
#include "orv/liborvxx/charset/tables/micsft_1256.h"
#include "orv/liborvxx/charset/tables/micsft_1257.h"
#include "orv/liborvxx/charset/tables/micsft_1258.h"
#include "orv/liborvxx/charset/tables/micsft_874.h"
#include "orv/liborvxx/text/literals.h"

namespace orv {

using namespace orv::literals;

constinit const SetDefinition definitions::Micsft_874 = {
    2109,
    u"windows-874"_u,
    {u"cswindows874"_u, u"ms-874"_u, u"ms874"_u, u"x-windows-874"_u},
    makeSbcsDecoder<0, tables::micsft_874::DECODE>,
    makeSbcsSparseEncoder<6, tables::micsft_874::MAX_CHAR, tables::micsft_874::ENCODE_INDEX,
                          tables::micsft_874::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1250 = {
    2250,
    u"windows-1250"_u,
    {u"cswindows1250"_u, u"cp1250"_u, u"cp5346"_u},
    makeSbcsDecoder<0, tables::micsft_1250::DECODE>,
    makeSbcsSparseEncoder<6, tables::micsft_1250::MAX_CHAR, tables::micsft_1250::ENCODE_INDEX,
                          tables::micsft_1250::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1251 = {
    2251,
    u"windows-1251"_u,
    {u"cswindows1251"_u, u"ansi-1251"_u, u"cp1251"_u, u"cp5347"_u},
    makeSbcsDecoder<0, tables::micsft_1251::DECODE>,
    makeSbcsSparseEncoder<6, tables::micsft_1251::MAX_CHAR, tables::micsft_1251::ENCODE_INDEX,
                          tables::micsft_1251::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1252 = {
    2252,
    u"windows-1252"_u,
    {u"cswindows1252"_u, u"cp1252"_u, u"cp5348"_u},
    makeSbcsDecoder<0, tables::micsft_1252::DECODE>,
    makeSbcsSparseEncoder<5, tables::micsft_1252::MAX_CHAR, tables::micsft_1252::ENCODE_INDEX,
                          tables::micsft_1252::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1253 = {
    2253,
    u"windows-1253"_u,
    {u"cswindows1253"_u, u"cp1253"_u, u"cp5349"_u},
    makeSbcsDecoder<0, tables::micsft_1253::DECODE>,
    makeSbcsSparseEncoder<5, tables::micsft_1253::MAX_CHAR, tables::micsft_1253::ENCODE_INDEX,
                          tables::micsft_1253::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1254 = {
    2254,
    u"windows-1254"_u,
    {u"cswindows1254"_u, u"cp1254"_u, u"cp5350"_u},
    makeSbcsDecoder<0, tables::micsft_1254::DECODE>,
    makeSbcsSparseEncoder<5, tables::micsft_1254::MAX_CHAR, tables::micsft_1254::ENCODE_INDEX,
                          tables::micsft_1254::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1255 = {
    2255,
    u"windows-1255"_u,
    {u"cswindows1255"_u, u"cp1255"_u},
    makeSbcsDecoder<0, tables::micsft_1255::DECODE>,
    makeSbcsSparseEncoder<5, tables::micsft_1255::MAX_CHAR, tables::micsft_1255::ENCODE_INDEX,
                          tables::micsft_1255::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1256 = {
    2256,
    u"windows-1256"_u,
    {u"cswindows1256"_u, u"cp1256"_u},
    makeSbcsDecoder<1, tables::micsft_1256::DECODE>,
    makeSbcsSparseEncoder<5, tables::micsft_1256::MAX_CHAR, tables::micsft_1256::ENCODE_INDEX,
                          tables::micsft_1256::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1257 = {
    2257,
    u"windows-1257"_u,
    {u"cswindows1257"_u, u"cp1257"_u, u"cp5353"_u},
    makeSbcsDecoder<0, tables::micsft_1257::DECODE>,
    makeSbcsSparseEncoder<6, tables::micsft_1257::MAX_CHAR, tables::micsft_1257::ENCODE_INDEX,
                          tables::micsft_1257::ENCODE_DATA>};

constinit const SetDefinition definitions::Micsft_1258 = {
    2258,
    u"windows-1258"_u,
    {u"cswindows1258"_u, u"cp1258"_u},
    makeSbcsDecoder<0, tables::micsft_1258::DECODE>,
    makeSbcsSparseEncoder<5, tables::micsft_1258::MAX_CHAR, tables::micsft_1258::ENCODE_INDEX,
                          tables::micsft_1258::ENCODE_DATA>};

} // namespace orv
