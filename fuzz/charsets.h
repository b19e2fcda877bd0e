// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The character sets that an input can choose.
#ifndef ORV_FUZZ_CHARSETS_H
#define ORV_FUZZ_CHARSETS_H

#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/charset/charset.h"

#include <array>
#include <cstdint>

namespace fuzz {

/// Their names. Sets are only ever added at the end, so that old inputs keep their meaning.
inline constexpr std::array CHARSETS = {
    "UTF-8",         "CESU-8",       "US-ASCII",      "ISO-8859-1",    "UTF-16BE",
    "UTF-16LE",      "ISO-8859-2",   "ISO-8859-3",    "ISO-8859-4",    "ISO-8859-5",
    "ISO-8859-6",    "ISO-8859-7",   "ISO-8859-8",    "ISO-8859-9",    "ISO-8859-10",
    "x-iso-8859-11", "ISO-8859-13",  "ISO-8859-14",   "ISO-8859-15",   "ISO-8859-16",
    "windows-1250",  "windows-1251", "windows-1252",  "windows-1253",  "windows-1254",
    "windows-1255",  "windows-1256", "windows-1257",  "windows-1258",  "windows-874",
    "Windows-31J",   "x-mswin-936",  "x-windows-949", "x-windows-950", "KOI8-R",
    "KOI8-U",        "Big5",         "Big5-HKSCS",    "GBK",           "GB18030",
    "Shift_JIS"};

/// The set that a byte chooses.
inline orv::Charset* chooseCharset(std::uint8_t choice) {
    orv::Charset* const charset = orv::Charset::forName(widen(CHARSETS[choice % CHARSETS.size()]));
    FUZZ_CHECK(charset != nullptr);
    return charset;
}

} // namespace fuzz

#endif
