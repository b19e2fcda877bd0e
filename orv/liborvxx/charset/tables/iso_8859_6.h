// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Tables of ISO-8859-6. Made by tools/charsets/generate_tables.py from
/// tools/charsets/mappings/iso_8859_6.map; do not edit.
#ifndef ORV_LIBORVXX_CHARSET_TABLES_ISO_8859_6_H
#define ORV_LIBORVXX_CHARSET_TABLES_ISO_8859_6_H

#include "orv/liborvxx/text/char16.h"

#include <cstdint>

// clang-format off
namespace orv::tables::iso_8859_6 {

inline constexpr char16 DECODE[256] = {
    u'\x0000', u'\x0001', u'\x0002', u'\x0003', u'\x0004', u'\x0005', u'\x0006', u'\x0007',
    u'\x0008', u'\x0009', u'\x000A', u'\x000B', u'\x000C', u'\x000D', u'\x000E', u'\x000F',
    u'\x0010', u'\x0011', u'\x0012', u'\x0013', u'\x0014', u'\x0015', u'\x0016', u'\x0017',
    u'\x0018', u'\x0019', u'\x001A', u'\x001B', u'\x001C', u'\x001D', u'\x001E', u'\x001F',
    u'\x0020', u'\x0021', u'\x0022', u'\x0023', u'\x0024', u'\x0025', u'\x0026', u'\x0027',
    u'\x0028', u'\x0029', u'\x002A', u'\x002B', u'\x002C', u'\x002D', u'\x002E', u'\x002F',
    u'\x0030', u'\x0031', u'\x0032', u'\x0033', u'\x0034', u'\x0035', u'\x0036', u'\x0037',
    u'\x0038', u'\x0039', u'\x003A', u'\x003B', u'\x003C', u'\x003D', u'\x003E', u'\x003F',
    u'\x0040', u'\x0041', u'\x0042', u'\x0043', u'\x0044', u'\x0045', u'\x0046', u'\x0047',
    u'\x0048', u'\x0049', u'\x004A', u'\x004B', u'\x004C', u'\x004D', u'\x004E', u'\x004F',
    u'\x0050', u'\x0051', u'\x0052', u'\x0053', u'\x0054', u'\x0055', u'\x0056', u'\x0057',
    u'\x0058', u'\x0059', u'\x005A', u'\x005B', u'\x005C', u'\x005D', u'\x005E', u'\x005F',
    u'\x0060', u'\x0061', u'\x0062', u'\x0063', u'\x0064', u'\x0065', u'\x0066', u'\x0067',
    u'\x0068', u'\x0069', u'\x006A', u'\x006B', u'\x006C', u'\x006D', u'\x006E', u'\x006F',
    u'\x0070', u'\x0071', u'\x0072', u'\x0073', u'\x0074', u'\x0075', u'\x0076', u'\x0077',
    u'\x0078', u'\x0079', u'\x007A', u'\x007B', u'\x007C', u'\x007D', u'\x007E', u'\x007F',
    u'\x0080', u'\x0081', u'\x0082', u'\x0083', u'\x0084', u'\x0085', u'\x0086', u'\x0087',
    u'\x0088', u'\x0089', u'\x008A', u'\x008B', u'\x008C', u'\x008D', u'\x008E', u'\x008F',
    u'\x0090', u'\x0091', u'\x0092', u'\x0093', u'\x0094', u'\x0095', u'\x0096', u'\x0097',
    u'\x0098', u'\x0099', u'\x009A', u'\x009B', u'\x009C', u'\x009D', u'\x009E', u'\x009F',
    u'\x00A0', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\x00A4', u'\xDFFF', u'\xDFFF', u'\xDFFF',
    u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\x060C', u'\x00AD', u'\xDFFF', u'\xDFFF',
    u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF',
    u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\x061B', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\x061F',
    u'\xDFFF', u'\x0621', u'\x0622', u'\x0623', u'\x0624', u'\x0625', u'\x0626', u'\x0627',
    u'\x0628', u'\x0629', u'\x062A', u'\x062B', u'\x062C', u'\x062D', u'\x062E', u'\x062F',
    u'\x0630', u'\x0631', u'\x0632', u'\x0633', u'\x0634', u'\x0635', u'\x0636', u'\x0637',
    u'\x0638', u'\x0639', u'\x063A', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF',
    u'\x0640', u'\x0641', u'\x0642', u'\x0643', u'\x0644', u'\x0645', u'\x0646', u'\x0647',
    u'\x0648', u'\x0649', u'\x064A', u'\x064B', u'\x064C', u'\x064D', u'\x064E', u'\x064F',
    u'\x0650', u'\x0651', u'\x0652', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF',
    u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF', u'\xDFFF',
};
inline constexpr std::uint32_t MAX_CHAR = 0x0652;
inline constexpr unsigned int ENCODE_SHIFT = 6;
inline constexpr std::uint16_t ENCODE_INDEX[26] = {
    0x0000, 0x0040, 0x0080, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF,
    0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF,
    0x00C0, 0x0100,
};
inline constexpr std::uint16_t ENCODE_DATA[275] = {
    0x0000, 0x0001, 0x0002, 0x0003, 0x0004, 0x0005, 0x0006, 0x0007, 0x0008, 0x0009, 0x000A, 0x000B,
    0x000C, 0x000D, 0x000E, 0x000F, 0x0010, 0x0011, 0x0012, 0x0013, 0x0014, 0x0015, 0x0016, 0x0017,
    0x0018, 0x0019, 0x001A, 0x001B, 0x001C, 0x001D, 0x001E, 0x001F, 0x0020, 0x0021, 0x0022, 0x0023,
    0x0024, 0x0025, 0x0026, 0x0027, 0x0028, 0x0029, 0x002A, 0x002B, 0x002C, 0x002D, 0x002E, 0x002F,
    0x0030, 0x0031, 0x0032, 0x0033, 0x0034, 0x0035, 0x0036, 0x0037, 0x0038, 0x0039, 0x003A, 0x003B,
    0x003C, 0x003D, 0x003E, 0x003F, 0x0040, 0x0041, 0x0042, 0x0043, 0x0044, 0x0045, 0x0046, 0x0047,
    0x0048, 0x0049, 0x004A, 0x004B, 0x004C, 0x004D, 0x004E, 0x004F, 0x0050, 0x0051, 0x0052, 0x0053,
    0x0054, 0x0055, 0x0056, 0x0057, 0x0058, 0x0059, 0x005A, 0x005B, 0x005C, 0x005D, 0x005E, 0x005F,
    0x0060, 0x0061, 0x0062, 0x0063, 0x0064, 0x0065, 0x0066, 0x0067, 0x0068, 0x0069, 0x006A, 0x006B,
    0x006C, 0x006D, 0x006E, 0x006F, 0x0070, 0x0071, 0x0072, 0x0073, 0x0074, 0x0075, 0x0076, 0x0077,
    0x0078, 0x0079, 0x007A, 0x007B, 0x007C, 0x007D, 0x007E, 0x007F, 0x0080, 0x0081, 0x0082, 0x0083,
    0x0084, 0x0085, 0x0086, 0x0087, 0x0088, 0x0089, 0x008A, 0x008B, 0x008C, 0x008D, 0x008E, 0x008F,
    0x0090, 0x0091, 0x0092, 0x0093, 0x0094, 0x0095, 0x0096, 0x0097, 0x0098, 0x0099, 0x009A, 0x009B,
    0x009C, 0x009D, 0x009E, 0x009F, 0x00A0, 0xFFFF, 0xFFFF, 0xFFFF, 0x00A4, 0xFFFF, 0xFFFF, 0xFFFF,
    0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0x00AD, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF,
    0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF,
    0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF,
    0x00AC, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF,
    0xFFFF, 0xFFFF, 0xFFFF, 0x00BB, 0xFFFF, 0xFFFF, 0xFFFF, 0x00BF, 0xFFFF, 0x00C1, 0x00C2, 0x00C3,
    0x00C4, 0x00C5, 0x00C6, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC, 0x00CD, 0x00CE, 0x00CF,
    0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D7, 0x00D8, 0x00D9, 0x00DA, 0xFFFF,
    0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E6, 0x00E7,
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00ED, 0x00EE, 0x00EF, 0x00F0, 0x00F1, 0x00F2,
};

} // namespace orv::tables::iso_8859_6

#endif
