// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Where two libraries have different tables for a character set.
#include "tests/differential/mapping_differences.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>

namespace orvtest {

namespace {

using Value = MappingDifference::Value;

constexpr char32_t CHARACTERS = 0x110000;
constexpr char32_t BLOCK = 256;

bool isTrail(unsigned int byte, CodeForm form) {
    switch (form) {
    case CodeForm::SINGLE_BYTE:
        return false;
    case CodeForm::PAIRS_OF_JIS:
        return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
    case CodeForm::PAIRS_OF_HKSCS:
        return (byte >= 0x40 && byte <= 0x7E) || (byte >= 0xA1 && byte <= 0xFE);
    default:
        return byte >= 0x40 && byte <= 0xFE && byte != 0x7F;
    }
}

// The place of a code among those of its length; none for a code that the set cannot have.
std::optional<std::size_t> placeOf(const Value& bytes, CodeForm form) {
    constexpr std::size_t PAIRS_AT = 0x1000;
    constexpr std::size_t FOURS_AT = 0x100000;
    switch (bytes.size()) {
    case 1:
        return bytes[0];
    case 2: {
        if (bytes[0] < 0x81 || !isTrail(bytes[1], form)) {
            return std::nullopt;
        }
        std::size_t trails = 0;
        std::size_t before = 0;
        for (unsigned int byte = 0; byte < 0x100; ++byte) {
            if (isTrail(byte, form)) {
                ++trails;
                if (byte < bytes[1]) {
                    ++before;
                }
            }
        }
        return PAIRS_AT + bytes[0] * trails + before;
    }
    case 4:
        return FOURS_AT +
               (((bytes[0] - 0x81) * 10 + (bytes[1] - 0x30)) * 126 + (bytes[2] - 0x81)) * 10 +
               (bytes[3] - 0x30);
    default:
        return std::nullopt;
    }
}

Value valueOf(std::u32string_view text) {
    return {text.begin(), text.end()};
}

Value valueOf(std::string_view bytes) {
    Value value;
    for (const char c : bytes) {
        value.push_back(static_cast<unsigned char>(c));
    }
    return value;
}

/// Compares code after code.
class CodeComparison {
public:
    CodeComparison(CharsetPeer& ours, CharsetPeer& theirs, CodeForm form)
        : ours_(ours), theirs_(theirs), form_(form) {}

    std::vector<MappingDifference> run() {
        // Where a byte is a code by itself, none begins with it.
        bool ourSingles[0x100];
        bool theirSingles[0x100];
        for (unsigned int byte = 0; byte < 0x100; ++byte) {
            const std::string bytes(1, static_cast<char>(byte));
            ourSingles[byte] = !ours_.decode(bytes).empty();
            theirSingles[byte] = !theirs_.decode(bytes).empty();
            compare(bytes, true, true);
        }
        if (form_ == CodeForm::SINGLE_BYTE) {
            return std::move(differences_);
        }
        for (unsigned int first = 0; first < 0x100; ++first) {
            for (unsigned int second = 0; second < 0x100; ++second) {
                compare({static_cast<char>(first), static_cast<char>(second)}, !ourSingles[first],
                        !theirSingles[first]);
            }
        }
        if (form_ == CodeForm::FOUR_BYTES) {
            compareFours();
        }
        return std::move(differences_);
    }

private:
    void compareFours() {
        for (unsigned int first = 0x81; first <= 0xFE; ++first) {
            for (unsigned int second = 0x30; second <= 0x39; ++second) {
                for (unsigned int third = 0x81; third <= 0xFE; ++third) {
                    for (unsigned int fourth = 0x30; fourth <= 0x39; ++fourth) {
                        compare({static_cast<char>(first), static_cast<char>(second),
                                 static_cast<char>(third), static_cast<char>(fourth)},
                                true, true);
                    }
                }
            }
        }
    }

    void compare(const std::string& bytes, bool askUs, bool askThem) {
        const std::u32string ours = askUs ? ours_.decode(bytes) : std::u32string();
        const std::u32string theirs = askThem ? theirs_.decode(bytes) : std::u32string();
        if (ours == theirs) {
            return;
        }
        std::uint32_t key = 0;
        for (const char c : bytes) {
            key = key << 8 | static_cast<unsigned char>(c);
        }
        // A code that the set cannot have is nobody's neighbour.
        const std::optional<std::size_t> place = placeOf(valueOf(bytes), form_);
        differences_.push_back(
            {key, place.value_or(std::size_t{2} * key), valueOf(ours), valueOf(theirs)});
    }

    CharsetPeer& ours_;
    CharsetPeer& theirs_;
    CodeForm form_;
    std::vector<MappingDifference> differences_;
};

std::string hex(std::uint32_t value, unsigned int digits) {
    std::string text;
    for (unsigned int shift = 32; shift > 0; shift -= 4) {
        const std::uint32_t rest = value >> (shift - 4);
        if (rest != 0 || shift <= 4 * digits) {
            text += "0123456789ABCDEF"[rest & 0xF];
        }
    }
    return text;
}

std::string textName(const Value& text) {
    std::string name;
    for (const std::uint32_t c : text) {
        name += (name.empty() ? "U+" : " U+") + hex(c, 4);
    }
    return name;
}

std::string bytesName(const Value& bytes) {
    std::string name;
    for (const std::uint32_t byte : bytes) {
        name += hex(byte, 2);
    }
    return name;
}

std::string codeName(std::uint32_t code) {
    return hex(code, 2);
}

std::string characterName(std::uint32_t character) {
    return "U+" + hex(character, 4);
}

// Neighbours in a list of differences.
struct Stretch {
    const MappingDifference* first;
    const MappingDifference* last;

    std::size_t size() const { return static_cast<std::size_t>(last - first) + 1; }
};

// Whether the first of a stretch is the neighbour of the last of another.
bool isNeighbour(const Stretch& a, const Stretch& b) {
    return b.first->place == a.last->place + 1;
}

// The stretches where each library has nothing, or counts up.
template <typename Follows>
std::vector<Stretch> stretchesOf(const std::vector<MappingDifference>& differences,
                                 Follows follows) {
    std::vector<Stretch> stretches;
    for (const MappingDifference& next : differences) {
        const Stretch one{&next, &next};
        if (!stretches.empty() && isNeighbour(stretches.back(), one) &&
            follows(stretches.back().last->ours, next.ours) &&
            follows(stretches.back().last->theirs, next.theirs)) {
            stretches.back().last = &next;
        } else {
            stretches.push_back(one);
        }
    }
    return stretches;
}

std::string rangeName(const std::string& first, const std::string& last) {
    return first == last ? first : first + " to " + last;
}

// How a fold writes keys and values, and whether a value follows another.
template <typename Follows>
class FoldForm {
public:
    using Side = Value MappingDifference::*;

    FoldForm(std::string (*keyName)(std::uint32_t), std::string (*valueName)(const Value&),
             Follows follows)
        : keyName_(keyName), valueName_(valueName), follows_(follows) {}

    std::vector<DifferenceRow> rowsOf(const std::vector<MappingDifference>& differences) const {
        const std::vector<Stretch> stretches = stretchesOf(differences, follows_);
        std::vector<DifferenceRow> rows = rowsOf(stretches, 1);
        return rows.size() <= LONG_LIST ? rows : rowsOf(stretches, LONG_LIST_DISTANCE);
    }

private:
    static constexpr std::size_t LONG_LIST = 100;
    static constexpr std::size_t LONG_LIST_DISTANCE = 100;

    std::vector<DifferenceRow> rowsOf(const std::vector<Stretch>& stretches,
                                      std::size_t distance) const {
        std::vector<DifferenceRow> rows;
        for (std::size_t i = 0; i < stretches.size();) {
            const std::size_t end =
                std::max(endWithout(stretches, i, distance, &MappingDifference::ours),
                         endWithout(stretches, i, distance, &MappingDifference::theirs));
            const std::size_t next = end - i > 2 ? end : i + 1;
            const Stretch whole{stretches[i].first, stretches[next - 1].last};
            rows.push_back({keysOf(whole), valuesOf(whole, &MappingDifference::ours),
                            valuesOf(whole, &MappingDifference::theirs)});
            i = next;
        }
        return rows;
    }

    // The end of the stretches from this one on that are near each other and have nothing on the
    // side.
    static std::size_t endWithout(const std::vector<Stretch>& stretches, std::size_t from,
                                  std::size_t distance, Side side) {
        std::size_t at = from;
        while (at < stretches.size() && (stretches[at].first->*side).empty() &&
               (at == from ||
                stretches[at].first->place <= stretches[at - 1].last->place + distance)) {
            ++at;
        }
        return at;
    }

    std::string keysOf(const Stretch& s) const {
        const std::string range = rangeName(keyName_(s.first->key), keyName_(s.last->key));
        const bool isWhole = s.last->place - s.first->place + 1 == s.size();
        return isWhole ? range : std::to_string(s.size()) + " of " + range;
    }

    std::string valuesOf(const Stretch& s, Side side) const {
        const Value& first = s.first->*side;
        const Value& last = s.last->*side;
        if (first.empty()) {
            return "none";
        }
        for (const MappingDifference* at = s.first; at != s.last; ++at) {
            if (!follows_(at->*side, (at + 1)->*side)) {
                return std::to_string(s.size()) + " values, " + valueName_(first) + " ... " +
                       valueName_(last);
            }
        }
        return rangeName(valueName_(first), valueName_(last));
    }

    std::string (*keyName_)(std::uint32_t);
    std::string (*valueName_)(const Value&);
    Follows follows_;
};

} // namespace

std::vector<MappingDifference> differencesOfCodes(CharsetPeer& ours, CharsetPeer& theirs,
                                                  CodeForm form) {
    return CodeComparison(ours, theirs, form).run();
}

std::vector<MappingDifference> differencesOfCharacters(CharsetPeer& ours, CharsetPeer& theirs) {
    std::vector<MappingDifference> differences;
    const std::vector<bool>& ourBlocks = ours.encodedBlocks();
    const std::vector<bool>& theirBlocks = theirs.encodedBlocks();
    for (char32_t c = 0; c < CHARACTERS; ++c) {
        if (!ourBlocks[c / BLOCK] && !theirBlocks[c / BLOCK]) {
            continue;
        }
        const std::string our = ours.encode(c);
        const std::string their = theirs.encode(c);
        if (our != their) {
            differences.push_back({c, c, valueOf(our), valueOf(their)});
        }
    }
    return differences;
}

std::vector<MappingDifference>
independentDifferences(const std::vector<MappingDifference>& characters,
                       const std::vector<MappingDifference>& codes) {
    // What the codes of the list decode to.
    std::map<std::uint32_t, const MappingDifference*> byCode;
    for (const MappingDifference& code : codes) {
        byCode.emplace(code.key, &code);
    }
    const auto isInverse = [&](const Value& bytes, std::uint32_t character,
                               Value MappingDifference::*side) {
        std::uint32_t key = 0;
        for (const std::uint32_t byte : bytes) {
            key = key << 8 | byte;
        }
        const auto found = byCode.find(key);
        return bytes.empty() || (found != byCode.end() && found->second->*side == Value{character});
    };
    std::vector<MappingDifference> rest;
    for (const MappingDifference& character : characters) {
        if (!isInverse(character.ours, character.key, &MappingDifference::ours) ||
            !isInverse(character.theirs, character.key, &MappingDifference::theirs)) {
            rest.push_back(character);
        }
    }
    return rest;
}

std::vector<DifferenceRow> foldedCodes(const std::vector<MappingDifference>& differences) {
    const auto follows = [](const Value& a, const Value& b) {
        return (a.empty() && b.empty()) || (a.size() == 1 && b.size() == 1 && b[0] == a[0] + 1);
    };
    return FoldForm(codeName, textName, follows).rowsOf(differences);
}

std::vector<DifferenceRow> foldedCharacters(const std::vector<MappingDifference>& differences,
                                            CodeForm form) {
    const auto follows = [form](const Value& a, const Value& b) {
        if (a.empty() || b.empty()) {
            return a.empty() && b.empty();
        }
        const std::optional<std::size_t> placeA = placeOf(a, form);
        const std::optional<std::size_t> placeB = placeOf(b, form);
        return placeA && placeB && *placeB == *placeA + 1;
    };
    return FoldForm(characterName, bytesName, follows).rowsOf(differences);
}

} // namespace orvtest
