// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reads the mapping file of a character set: which bytes are which character.
#include "tests/support/mapping_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace orvtest {

namespace {

constexpr std::size_t SHORT_CODES = 0x10000;
constexpr std::uint32_t CHARACTERS = 0x110000;
constexpr std::size_t PAGE = 256;

// The place of a sequence among all of four bytes, or their number if it is none of them.
std::size_t fourBytePlace(CharCode code) {
    const std::uint32_t b1 = code >> 24;
    const std::uint32_t b2 = code >> 16 & 0xFF;
    const std::uint32_t b3 = code >> 8 & 0xFF;
    const std::uint32_t b4 = code & 0xFF;
    const auto isOuter = [](std::uint32_t b) { return b >= 0x81 && b <= 0xFE; };
    const auto isDigit = [](std::uint32_t b) { return b >= 0x30 && b <= 0x39; };
    if (!isOuter(b1) || !isDigit(b2) || !isOuter(b3) || !isDigit(b4)) {
        return FOUR_BYTE_CODES;
    }
    return (((b1 - 0x81) * 10 + (b2 - 0x30)) * 126 + (b3 - 0x81)) * 10 + (b4 - 0x30);
}

bool isCharacter(std::uint32_t value) {
    return value < CHARACTERS && (value < 0xD800 || value > 0xDFFF);
}

// The words of a line; a comment ends it.
std::vector<std::string> wordsOf(std::string_view line) {
    std::istringstream in{std::string(line.substr(0, line.find('#')))};
    return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

} // namespace

void ByteSet::add(unsigned int from, unsigned int to) {
    std::fill(members_ + from, members_ + to + 1, true);
}

bool ByteSet::empty() const {
    return std::none_of(std::begin(members_), std::end(members_), [](bool b) { return b; });
}

CharCode fourByteCode(std::size_t place) {
    const auto n = static_cast<CharCode>(place);
    return (0x81 + n / 12600) << 24 | (0x30 + n / 1260 % 10) << 16 | (0x81 + n / 10 % 126) << 8 |
           (0x30 + n % 10);
}

char32_t Mapping::decode(CharCode code) const {
    if (code < SHORT_CODES) {
        return shortRows_[code];
    }
    const std::size_t place = fourBytePlace(code);
    return place < longRows_.size() ? longRows_[place] : NO_MAPPING;
}

CharCode Mapping::encode(char32_t character) const {
    if (character >= CHARACTERS || encodePages_[character / PAGE].empty()) {
        return NO_MAPPING;
    }
    return encodePages_[character / PAGE][character % PAGE];
}

bool Mapping::isDecodeOnly(CharCode code) const {
    return std::binary_search(decodeOnly_.begin(), decodeOnly_.end(), code);
}

std::vector<CharCode> Mapping::codes() const {
    std::vector<CharCode> codes;
    for (CharCode code = 0; code < SHORT_CODES; ++code) {
        if (shortRows_[code] != NO_MAPPING) {
            codes.push_back(code);
        }
    }
    for (std::size_t place = 0; place < longRows_.size(); ++place) {
        if (longRows_[place] != NO_MAPPING) {
            codes.push_back(fourByteCode(place));
        }
    }
    return codes;
}

/// Reads line by line.
class MappingReader {
public:
    Mapping read(std::string_view text) {
        mapping_.shortRows_.assign(SHORT_CODES, NO_MAPPING);
        mapping_.encodePages_.resize(CHARACTERS / PAGE);
        while (!text.empty()) {
            ++line_;
            const std::size_t end = std::min(text.find('\n'), text.size());
            readLine(wordsOf(text.substr(0, end)));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        finish();
        return std::move(mapping_);
    }

private:
    [[noreturn]] void fail(const std::string& reason) const {
        throw std::runtime_error("line " + std::to_string(line_) + ": " + reason);
    }
    void require(bool condition, const char* reason) const {
        if (!condition) {
            fail(reason);
        }
    }

    void readLine(const std::vector<std::string>& words) {
        if (words.empty()) {
            return;
        }
        const std::string& key = words[0];
        if (key.back() == ':') {
            readRows(words);
        } else if (key == "run") {
            readRun(words);
        } else if (key == "decode-only") {
            readDecodeOnly(words);
        } else if (key == "encode") {
            readEncode(words);
        } else if (key == "lead") {
            readBytes(words, mapping_.leads_);
        } else if (key == "trail") {
            readBytes(words, mapping_.trails_);
        } else if (key == "set") {
            readName(words, mapping_.name_);
        } else if (key == "class") {
            readName(words, mapping_.className_);
        } else {
            fail("unknown line \"" + key + "\"");
        }
    }

    void readName(const std::vector<std::string>& words, std::string& name) const {
        require(words.size() == 2, "one name expected");
        require(name.empty(), "a second name");
        name = words[1];
    }

    void readBytes(const std::vector<std::string>& words, ByteSet& bytes) const {
        require(words.size() >= 2, "ranges of bytes expected");
        require(bytes.empty(), "a second list of bytes");
        for (std::size_t i = 1; i < words.size(); ++i) {
            const std::string& range = words[i];
            require(range.size() == 5 && range[2] == '-', "a range of bytes is written 81-9F");
            const std::uint32_t from = hex(range.substr(0, 2));
            const std::uint32_t to = hex(range.substr(3));
            require(from <= to, "a range that runs backwards");
            bytes.add(from, to);
        }
    }

    std::uint32_t hex(std::string_view digits) const {
        std::uint32_t value = 0;
        require(!digits.empty() && digits.size() <= 8, "a number of one to eight digits expected");
        for (const char c : digits) {
            const bool decimal = c >= '0' && c <= '9';
            require(decimal || (c >= 'A' && c <= 'F'), "a hexadecimal number expected");
            value = value << 4 | static_cast<std::uint32_t>(decimal ? c - '0' : c - 'A' + 10);
        }
        return value;
    }

    char32_t character(std::string_view digits) const {
        require(digits.size() >= 4, "a character has four digits or more");
        const std::uint32_t value = hex(digits);
        require(isCharacter(value), "not a character");
        return value;
    }

    // A code that the set can have, whether it is mapped or not.
    CharCode code(std::string_view digits) const {
        const CharCode value = hex(digits);
        require(digits.size() == 2 * codeLength(value), "a code has two, four or eight digits");
        require(isPossible(value), "a code that the set cannot have");
        return value;
    }

    bool isPossible(CharCode value) const {
        switch (codeLength(value)) {
        case 1:
            return !mapping_.leads_.has(value);
        case 2:
            return mapping_.leads_.has(value >> 8) && mapping_.trails_.has(value & 0xFF);
        default:
            return mapping_.className_ == "GB18030" && fourBytePlace(value) < FOUR_BYTE_CODES;
        }
    }

    // The next possible code of the same length, or `NO_MAPPING`.
    CharCode next(CharCode value) const {
        if (codeLength(value) == 4) {
            const std::size_t place = fourBytePlace(value) + 1;
            return place < FOUR_BYTE_CODES ? fourByteCode(place) : NO_MAPPING;
        }
        const CharCode end = codeLength(value) == 1 ? 0x100 : 0x10000;
        do {
            ++value;
        } while (value < end && !isPossible(value));
        return value < end ? value : NO_MAPPING;
    }

    void addRow(CharCode at, char32_t value) {
        if (codeLength(at) == 4 && mapping_.longRows_.empty()) {
            mapping_.longRows_.assign(FOUR_BYTE_CODES, NO_MAPPING);
        }
        char32_t& row =
            codeLength(at) == 4 ? mapping_.longRows_[fourBytePlace(at)] : mapping_.shortRows_[at];
        require(row == NO_MAPPING, "a second character for a code");
        row = value;
    }

    void addEncodeRow(char32_t value, CharCode to) {
        auto& page = mapping_.encodePages_[value / PAGE];
        if (page.empty()) {
            page.assign(PAGE, NO_MAPPING);
        }
        if (page[value % PAGE] != NO_MAPPING) {
            std::ostringstream reason;
            reason << std::uppercase << std::hex << "two codes to write for character "
                   << static_cast<std::uint32_t>(value);
            fail(reason.str());
        }
        page[value % PAGE] = to;
    }

    // 8140: 3000 3001 . FF0C
    void readRows(const std::vector<std::string>& words) {
        require(words.size() >= 2, "characters expected");
        CharCode at = code(words[0].substr(0, words[0].size() - 1));
        for (std::size_t i = 1; i < words.size(); ++i) {
            if (i > 1) {
                const CharCode following = next(at);
                require(following != NO_MAPPING && following >> 8 == at >> 8,
                        "rows beyond the last byte");
                at = following;
            }
            if (words[i] != ".") {
                addRow(at, character(words[i]));
            }
        }
    }

    // run F040-F9FC E000
    void readRun(const std::vector<std::string>& words) {
        require(words.size() == 3, "a range of codes and a character expected");
        const std::size_t dash = words[1].find('-');
        require(dash != std::string::npos, "a range of codes expected");
        const CharCode last = code(words[1].substr(dash + 1));
        CharCode at = code(words[1].substr(0, dash));
        require(codeLength(at) == codeLength(last), "a range between codes of two lengths");
        require(at <= last, "a range that runs backwards");
        for (std::uint32_t value = character(words[2]);; ++value, at = next(at)) {
            require(isCharacter(value), "the run goes beyond the characters");
            addRow(at, value);
            if (at == last) {
                break;
            }
        }
    }

    // decode-only 81BE 81BF
    void readDecodeOnly(const std::vector<std::string>& words) {
        require(words.size() >= 2, "codes expected");
        for (std::size_t i = 1; i < words.size(); ++i) {
            mapping_.decodeOnly_.push_back(code(words[i]));
        }
    }

    // encode 00A2: 8191 8192
    void readEncode(const std::vector<std::string>& words) {
        require(words.size() >= 3 && words[1].back() == ':', "a character and codes expected");
        std::uint32_t value = character(words[1].substr(0, words[1].size() - 1));
        for (std::size_t i = 2; i < words.size(); ++i, ++value) {
            require(isCharacter(value), "the rows go beyond the characters");
            if (words[i] != ".") {
                addEncodeRow(value, code(words[i]));
            }
        }
    }

    void finish() {
        line_ = 0;
        require(!mapping_.name_.empty(), "no line \"set\"");
        require(!mapping_.className_.empty(), "no line \"class\"");
        require(mapping_.leads_.empty() == mapping_.trails_.empty(), "lead or trail bytes alone");
        auto& only = mapping_.decodeOnly_;
        std::sort(only.begin(), only.end());
        require(std::adjacent_find(only.begin(), only.end()) == only.end(),
                "a code twice for decoding only");
        for (const CharCode at : only) {
            require(mapping_.decode(at) != NO_MAPPING, "an unmapped code for decoding only");
        }
        const std::vector<CharCode> codes = mapping_.codes();
        for (const CharCode at : codes) {
            require(isPossible(at), "rows before the bytes of pairs are known");
            if (!mapping_.isDecodeOnly(at)) {
                addEncodeRow(mapping_.decode(at), at);
            }
        }
        for (const CharCode at : only) {
            require(mapping_.encode(mapping_.decode(at)) != NO_MAPPING,
                    "a character without a code to write");
        }
    }

    Mapping mapping_;
    std::size_t line_ = 0;
};

Mapping parseMapping(std::string_view text) {
    return MappingReader().read(text);
}

Mapping readMappingFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    if (!file) {
        throw std::runtime_error(path + ": cannot be read");
    }
    try {
        return parseMapping(text.str());
    } catch (const std::runtime_error& e) {
        throw std::runtime_error(path + ": " + e.what());
    }
}

} // namespace orvtest
