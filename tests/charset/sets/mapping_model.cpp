// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What decoders and encoders must do, by the mapping file and the rules of the set's form.
#include "tests/charset/sets/mapping_model.h"

#include "orv/liborvxx/text/utf16_interop.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <stdexcept>

namespace orvtest {

namespace {

// GB18030: single bytes, pairs and sequences of four. A bad byte counts into the malformed length.
FrontOfBytes frontOfGb18030(const Mapping& mapping, const unsigned char* b, std::size_t n) {
    const auto malformed = [](unsigned int length) {
        return FrontOfBytes{FrontOfBytes::MALFORMED, length, 0};
    };
    const auto mapped = [&](unsigned int length) {
        CharCode code = 0;
        for (unsigned int i = 0; i < length; ++i) {
            code = code << 8 | b[i];
        }
        const char32_t character = mapping.decode(code);
        return FrontOfBytes{character == NO_MAPPING ? FrontOfBytes::UNMAPPABLE
                                                    : FrontOfBytes::CHARACTER,
                            length, character};
    };
    constexpr FrontOfBytes INCOMPLETE{FrontOfBytes::INCOMPLETE, 0, 0};
    if (b[0] < 0x80) {
        return mapped(1);
    }
    if (b[0] == 0x80 || b[0] == 0xFF) {
        return malformed(1);
    }
    if (n < 2) {
        return INCOMPLETE;
    }
    if (b[1] >= 0x40) {
        return b[1] == 0x7F || b[1] == 0xFF ? malformed(2) : mapped(2);
    }
    if (b[1] < 0x30 || b[1] > 0x39) {
        return malformed(2);
    }
    if (n < 3) {
        return INCOMPLETE;
    }
    if (b[2] < 0x81 || b[2] > 0xFE) {
        return malformed(3);
    }
    if (n < 4) {
        return INCOMPLETE;
    }
    return b[3] < 0x30 || b[3] > 0x39 ? malformed(4) : mapped(4);
}

bool isSingleByte(const MappedSet& set) {
    const std::string name = set.className;
    return name.starts_with("ISO") || name.starts_with("KOI8") || name.starts_with("Micsft_125") ||
           name == "Micsft_874";
}

} // namespace

orv::Charset& MappedSet::charset() const {
    orv::ustring text;
    for (const char* c = name; *c != '\0'; ++c) {
        text.push_back(orv::char16(static_cast<unsigned char>(*c)));
    }
    orv::Charset* const found = orv::Charset::forName(text);
    if (found == nullptr) {
        throw std::runtime_error(std::string("no character set ") + name);
    }
    return *found;
}

const Mapping& MappedSet::mapping() const {
    static Mapping last;
    if (last.className() != className) {
        std::string file = className;
        std::transform(file.begin(), file.end(), file.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        last = readMappingFile(std::string(ORV_CHARSET_MAPPINGS) + "/" + file + ".map");
    }
    return last;
}

void PrintTo(const MappedSet& set, std::ostream* out) {
    *out << set.name;
}

const std::vector<MappedSet>& mappedSets() {
    static const std::vector<MappedSet> sets = {
        {"ISO_8859_2", "ISO-8859-2"},
        {"ISO_8859_3", "ISO-8859-3"},
        {"ISO_8859_4", "ISO-8859-4"},
        {"ISO_8859_5", "ISO-8859-5"},
        {"ISO_8859_6", "ISO-8859-6"},
        {"ISO_8859_7", "ISO-8859-7"},
        {"ISO_8859_8", "ISO-8859-8"},
        {"ISO_8859_9", "ISO-8859-9"},
        {"ISO_8859_10", "ISO-8859-10"},
        {"ISO_8859_11", "x-iso-8859-11"},
        {"ISO_8859_13", "ISO-8859-13"},
        {"ISO_8859_14", "ISO-8859-14"},
        {"ISO_8859_15", "ISO-8859-15"},
        {"ISO_8859_16", "ISO-8859-16"},
        {"Micsft_1250", "windows-1250"},
        {"Micsft_1251", "windows-1251"},
        {"Micsft_1252", "windows-1252"},
        {"Micsft_1253", "windows-1253"},
        {"Micsft_1254", "windows-1254"},
        {"Micsft_1255", "windows-1255"},
        {"Micsft_1256", "windows-1256"},
        {"Micsft_1257", "windows-1257"},
        {"Micsft_1258", "windows-1258"},
        {"Micsft_874", "windows-874"},
        {"Micsft_932", "Windows-31J"},
        {"Micsft_936", "x-mswin-936"},
        {"Micsft_949", "x-windows-949"},
        {"Micsft_950", "x-windows-950"},
        {"KOI8_R", "KOI8-R"},
        {"KOI8_U", "KOI8-U"},
        {"Big5", "Big5"},
        {"Big5_HKSCS", "Big5-HKSCS"},
        {"GBK", "GBK"},
        {"GB18030", "GB18030"},
        {"Shift_JIS", "Shift_JIS"},
    };
    return sets;
}

std::vector<MappedSet> singleByteSets() {
    std::vector<MappedSet> sets;
    std::copy_if(mappedSets().begin(), mappedSets().end(), std::back_inserter(sets), isSingleByte);
    return sets;
}

std::vector<MappedSet> multiByteSets() {
    std::vector<MappedSet> sets;
    std::remove_copy_if(mappedSets().begin(), mappedSets().end(), std::back_inserter(sets),
                        isSingleByte);
    return sets;
}

FrontOfBytes frontOf(const Mapping& mapping, const unsigned char* bytes, std::size_t n) {
    if (mapping.className() == "GB18030") {
        return frontOfGb18030(mapping, bytes, n);
    }
    CharCode code = bytes[0];
    if (mapping.leads().has(bytes[0])) {
        if (n < 2) {
            return {FrontOfBytes::INCOMPLETE, 0, 0};
        }
        if (!mapping.trails().has(bytes[1])) {
            // The second byte is read again, as a character of its own.
            return {FrontOfBytes::MALFORMED, 1, 0};
        }
        code = code << 8 | bytes[1];
    }
    const char32_t character = mapping.decode(code);
    return {character == NO_MAPPING ? FrontOfBytes::UNMAPPABLE : FrontOfBytes::CHARACTER,
            codeLength(code), character};
}

void appendCode(CharCode code, std::string& bytes) {
    for (unsigned int i = codeLength(code); i-- > 0;) {
        bytes.push_back(static_cast<char>(code >> 8 * i));
    }
}

void appendUnits(char32_t character, std::vector<orv::char16>& units) {
    if (character > 0xFFFF) {
        units.push_back(orv::char16(0xD7C0 + (character >> 10)));
        units.push_back(orv::char16(0xDC00 + (character & 0x3FF)));
    } else {
        units.push_back(orv::char16(character));
    }
}

} // namespace orvtest
