// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The catalogue of the shapes of the single-byte tables.
#include "tests/charset/sets/single_byte_shapes.h"

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
#include "orv/liborvxx/charset/tables/koi8_r.h"
#include "orv/liborvxx/charset/tables/koi8_u.h"
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

namespace orvtest {

namespace {

using Units = std::span<const orv::char16>;
using Entries = std::span<const std::uint16_t>;

SingleByteShape direct(const char* className, std::u16string_view name, std::string_view unmapped,
                       std::uint32_t maxChar, std::size_t entries, Units decodeTable,
                       std::uint32_t tableMaxChar, Entries encodeTable) {
    return {className, name,        unmapped,     0, maxChar, 0,          0,
            entries,   decodeTable, tableMaxChar, 0, {},      encodeTable};
}

SingleByteShape paged(const char* className, std::u16string_view name, std::string_view unmapped,
                      unsigned int shift, std::uint32_t maxChar, std::size_t indexEntries,
                      std::size_t pages, std::size_t dataEntries, Units decodeTable,
                      std::uint32_t tableMaxChar, unsigned int tableShift, Entries index,
                      Entries data) {
    return {className,   name,        unmapped,     shift,      maxChar, indexEntries, pages,
            dataEntries, decodeTable, tableMaxChar, tableShift, index,   data};
}

} // namespace

const std::vector<SingleByteShape>& singleByteShapes() {
    namespace tables = orv::tables;
    static const std::vector<SingleByteShape> shapes = {
        direct("ISO_8859_2", u"ISO-8859-2", "", 0x02DD, 734, tables::iso_8859_2::DECODE,
               tables::iso_8859_2::MAX_CHAR, tables::iso_8859_2::ENCODE),
        direct("ISO_8859_3", u"ISO-8859-3", "A5 AE BE C3 D0 E3 F0", 0x02D9, 730,
               tables::iso_8859_3::DECODE, tables::iso_8859_3::MAX_CHAR,
               tables::iso_8859_3::ENCODE),
        direct("ISO_8859_4", u"ISO-8859-4", "", 0x02DB, 732, tables::iso_8859_4::DECODE,
               tables::iso_8859_4::MAX_CHAR, tables::iso_8859_4::ENCODE),
        paged("ISO_8859_5", u"ISO-8859-5", "", 7, 0x2116, 67, 4, 512, tables::iso_8859_5::DECODE,
              tables::iso_8859_5::MAX_CHAR, tables::iso_8859_5::ENCODE_SHIFT,
              tables::iso_8859_5::ENCODE_INDEX, tables::iso_8859_5::ENCODE_DATA),
        paged("ISO_8859_6", u"ISO-8859-6", "A1-A3 A5-AB AE-BA BC-BE C0 DB-DF F3-FF", 6, 0x0652, 26,
              5, 320, tables::iso_8859_6::DECODE, tables::iso_8859_6::MAX_CHAR,
              tables::iso_8859_6::ENCODE_SHIFT, tables::iso_8859_6::ENCODE_INDEX,
              tables::iso_8859_6::ENCODE_DATA),
        paged("ISO_8859_7", u"ISO-8859-7", "AE D2 FF", 6, 0x20AF, 131, 8, 512,
              tables::iso_8859_7::DECODE, tables::iso_8859_7::MAX_CHAR,
              tables::iso_8859_7::ENCODE_SHIFT, tables::iso_8859_7::ENCODE_INDEX,
              tables::iso_8859_7::ENCODE_DATA),
        paged("ISO_8859_8", u"ISO-8859-8", "A1 BF-DE FB-FC FF", 6, 0x2017, 129, 6, 384,
              tables::iso_8859_8::DECODE, tables::iso_8859_8::MAX_CHAR,
              tables::iso_8859_8::ENCODE_SHIFT, tables::iso_8859_8::ENCODE_INDEX,
              tables::iso_8859_8::ENCODE_DATA),
        direct("ISO_8859_9", u"ISO-8859-9", "", 0x015F, 352, tables::iso_8859_9::DECODE,
               tables::iso_8859_9::MAX_CHAR, tables::iso_8859_9::ENCODE),
        paged("ISO_8859_10", u"ISO-8859-10", "", 7, 0x2015, 65, 4, 512, tables::iso_8859_10::DECODE,
              tables::iso_8859_10::MAX_CHAR, tables::iso_8859_10::ENCODE_SHIFT,
              tables::iso_8859_10::ENCODE_INDEX, tables::iso_8859_10::ENCODE_DATA),
        paged("ISO_8859_11", u"x-iso-8859-11", "DB-DE FC-FF", 6, 0x0E5B, 58, 5, 320,
              tables::iso_8859_11::DECODE, tables::iso_8859_11::MAX_CHAR,
              tables::iso_8859_11::ENCODE_SHIFT, tables::iso_8859_11::ENCODE_INDEX,
              tables::iso_8859_11::ENCODE_DATA),
        paged("ISO_8859_13", u"ISO-8859-13", "", 7, 0x201E, 65, 4, 512, tables::iso_8859_13::DECODE,
              tables::iso_8859_13::MAX_CHAR, tables::iso_8859_13::ENCODE_SHIFT,
              tables::iso_8859_13::ENCODE_INDEX, tables::iso_8859_13::ENCODE_DATA),
        paged("ISO_8859_14", u"ISO-8859-14", "", 7, 0x1EF3, 62, 5, 640, tables::iso_8859_14::DECODE,
              tables::iso_8859_14::MAX_CHAR, tables::iso_8859_14::ENCODE_SHIFT,
              tables::iso_8859_14::ENCODE_INDEX, tables::iso_8859_14::ENCODE_DATA),
        paged("ISO_8859_15", u"ISO-8859-15", "", 7, 0x20AC, 66, 4, 512, tables::iso_8859_15::DECODE,
              tables::iso_8859_15::MAX_CHAR, tables::iso_8859_15::ENCODE_SHIFT,
              tables::iso_8859_15::ENCODE_INDEX, tables::iso_8859_15::ENCODE_DATA),
        paged("ISO_8859_16", u"ISO-8859-16", "", 6, 0x20AC, 131, 9, 576,
              tables::iso_8859_16::DECODE, tables::iso_8859_16::MAX_CHAR,
              tables::iso_8859_16::ENCODE_SHIFT, tables::iso_8859_16::ENCODE_INDEX,
              tables::iso_8859_16::ENCODE_DATA),
        paged("KOI8_R", u"KOI8-R", "", 7, 0x25A0, 76, 7, 896, tables::koi8_r::DECODE,
              tables::koi8_r::MAX_CHAR, tables::koi8_r::ENCODE_SHIFT, tables::koi8_r::ENCODE_INDEX,
              tables::koi8_r::ENCODE_DATA),
        paged("KOI8_U", u"KOI8-U", "", 5, 0x25A0, 302, 20, 640, tables::koi8_u::DECODE,
              tables::koi8_u::MAX_CHAR, tables::koi8_u::ENCODE_SHIFT, tables::koi8_u::ENCODE_INDEX,
              tables::koi8_u::ENCODE_DATA),
        paged("Micsft_874", u"windows-874", "81-84 86-90 98-9F DB-DE FC-FF", 6, 0x20AC, 131, 7, 448,
              tables::micsft_874::DECODE, tables::micsft_874::MAX_CHAR,
              tables::micsft_874::ENCODE_SHIFT, tables::micsft_874::ENCODE_INDEX,
              tables::micsft_874::ENCODE_DATA),
        paged("Micsft_1250", u"windows-1250", "81 83 88 90 98", 6, 0x2122, 133, 10, 640,
              tables::micsft_1250::DECODE, tables::micsft_1250::MAX_CHAR,
              tables::micsft_1250::ENCODE_SHIFT, tables::micsft_1250::ENCODE_INDEX,
              tables::micsft_1250::ENCODE_DATA),
        paged("Micsft_1251", u"windows-1251", "98", 6, 0x2122, 133, 9, 576,
              tables::micsft_1251::DECODE, tables::micsft_1251::MAX_CHAR,
              tables::micsft_1251::ENCODE_SHIFT, tables::micsft_1251::ENCODE_INDEX,
              tables::micsft_1251::ENCODE_DATA),
        paged("Micsft_1252", u"windows-1252", "81 8D 8F-90 9D", 5, 0x2122, 266, 15, 480,
              tables::micsft_1252::DECODE, tables::micsft_1252::MAX_CHAR,
              tables::micsft_1252::ENCODE_SHIFT, tables::micsft_1252::ENCODE_INDEX,
              tables::micsft_1252::ENCODE_DATA),
        paged("Micsft_1253", u"windows-1253", "81 88 8A 8C-90 98 9A 9C-9F AA D2 FF", 5, 0x2122, 266,
              13, 416, tables::micsft_1253::DECODE, tables::micsft_1253::MAX_CHAR,
              tables::micsft_1253::ENCODE_SHIFT, tables::micsft_1253::ENCODE_INDEX,
              tables::micsft_1253::ENCODE_DATA),
        paged("Micsft_1254", u"windows-1254", "81 8D-90 9D-9E", 5, 0x2122, 266, 17, 544,
              tables::micsft_1254::DECODE, tables::micsft_1254::MAX_CHAR,
              tables::micsft_1254::ENCODE_SHIFT, tables::micsft_1254::ENCODE_INDEX,
              tables::micsft_1254::ENCODE_DATA),
        paged("Micsft_1255", u"windows-1255", "81 8A 8C-90 9A 9C-9F CA D9-DF FB-FC FF", 5, 0x2122,
              266, 16, 512, tables::micsft_1255::DECODE, tables::micsft_1255::MAX_CHAR,
              tables::micsft_1255::ENCODE_SHIFT, tables::micsft_1255::ENCODE_INDEX,
              tables::micsft_1255::ENCODE_DATA),
        paged("Micsft_1256", u"windows-1256", "", 5, 0x2122, 266, 21, 672,
              tables::micsft_1256::DECODE, tables::micsft_1256::MAX_CHAR,
              tables::micsft_1256::ENCODE_SHIFT, tables::micsft_1256::ENCODE_INDEX,
              tables::micsft_1256::ENCODE_DATA),
        paged("Micsft_1257", u"windows-1257", "81 83 88 8A 8C 90 98 9A 9C 9F A1 A5", 6, 0x2122, 133,
              10, 640, tables::micsft_1257::DECODE, tables::micsft_1257::MAX_CHAR,
              tables::micsft_1257::ENCODE_SHIFT, tables::micsft_1257::ENCODE_INDEX,
              tables::micsft_1257::ENCODE_DATA),
        paged("Micsft_1258", u"windows-1258", "81 8A 8D-90 9A 9D-9E", 5, 0x2122, 266, 19, 608,
              tables::micsft_1258::DECODE, tables::micsft_1258::MAX_CHAR,
              tables::micsft_1258::ENCODE_SHIFT, tables::micsft_1258::ENCODE_INDEX,
              tables::micsft_1258::ENCODE_DATA)};
    return shapes;
}

} // namespace orvtest
