// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Parses UnicodeData.txt and the property files.

#include "tests/liborv/unicode/ucd_files.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace orv::test {

namespace {

std::ifstream openFile(const std::string& directory, const std::string& file) {
    std::ifstream stream(directory + "/" + file);
    if (!stream)
        throw std::runtime_error("cannot read " + directory + "/" + file);
    return stream;
}

std::uint32_t parseCodePoint(const std::string& hex) {
    return static_cast<std::uint32_t>(std::stoul(hex, nullptr, 16));
}

std::vector<std::string> split(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, ';');)
        fields.push_back(field);
    fields.resize(15); // getline drops an empty last field
    return fields;
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

} // namespace

std::vector<UcdCharacter> readUnicodeData(const std::string& directory) {
    std::vector<UcdCharacter> characters(codePointCount);
    for (std::uint32_t i = 0; i < codePointCount; ++i)
        characters[i].lower = characters[i].upper = characters[i].title = i;

    std::ifstream stream = openFile(directory, "UnicodeData.txt");
    std::uint32_t next = 0;
    for (std::string line; std::getline(stream, line);) {
        const std::vector<std::string> fields = split(line);
        const std::uint32_t last = parseCodePoint(fields[0]);
        // The line before a "Last" line was its "First" line; the range goes on from there.
        for (std::uint32_t i = endsWith(fields[1], ", Last>") ? next : last; i <= last; ++i) {
            UcdCharacter& character = characters.at(i);
            character.category = fields[2];
            if (!fields[6].empty())
                character.digit = std::stoi(fields[6]);
            if (!fields[12].empty())
                character.upper = character.title = parseCodePoint(fields[12]);
            if (!fields[13].empty())
                character.lower = parseCodePoint(fields[13]);
            if (!fields[14].empty())
                character.title = parseCodePoint(fields[14]);
        }
        next = last + 1;
    }
    return characters;
}

std::vector<bool> readProperty(const std::string& directory, const std::string& file,
                               const std::string& property) {
    std::vector<bool> result(codePointCount);
    std::ifstream stream = openFile(directory, file);
    for (std::string line; std::getline(stream, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::string range, semicolon, name;
        words >> range >> semicolon >> name;
        if (name != property)
            continue;
        const std::size_t dots = range.find("..");
        const std::uint32_t first = parseCodePoint(range.substr(0, dots));
        const std::uint32_t last =
            dots == std::string::npos ? first : parseCodePoint(range.substr(dots + 2));
        for (std::uint32_t i = first; i <= last; ++i)
            result.at(i) = true;
    }
    return result;
}

std::string readVersion(const std::string& directory, const std::string& file) {
    std::ifstream stream = openFile(directory, file);
    std::string line;
    std::getline(stream, line);
    const std::size_t dash = line.find('-');
    const std::size_t end = line.rfind(".txt");
    if (dash == std::string::npos || end == std::string::npos)
        throw std::runtime_error(file + " names no version");
    return line.substr(dash + 1, end - dash - 1);
}

} // namespace orv::test
