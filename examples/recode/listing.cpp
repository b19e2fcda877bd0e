// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Laying out the registry as a table.
#include "examples/recode/listing.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/cvtstr.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace recode {

namespace {

constexpr std::size_t LINE_WIDTH = 80;
constexpr std::size_t GAP = 2;

struct Row {
    std::string name;
    std::string mib;
    std::vector<std::string> aliases;
};

std::vector<Row> collectRows() {
    std::vector<Row> rows;
    for (const orv::Charset* set : orv::Charset::availableCharsets()) {
        Row row{orv::cvtstr<std::string>(set->name()), std::to_string(set->MIBenum()), {}};
        for (const orv::ustring_ref alias : set->aliases()) {
            row.aliases.push_back(orv::cvtstr<std::string>(alias));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::string leftAligned(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size() + GAP, ' ');
}

std::string rightAligned(const std::string& text, std::size_t width) {
    return std::string(width - text.size(), ' ') + text + std::string(GAP, ' ');
}

// The aliases with commas, broken into lines that begin at the given column.
std::string aliasColumn(const std::vector<std::string>& aliases, std::size_t column) {
    std::string text;
    std::size_t at = column;
    for (std::size_t i = 0; i < aliases.size(); ++i) {
        const std::string item = aliases[i] + (i + 1 < aliases.size() ? "," : "");
        if (at != column && at + 1 + item.size() > LINE_WIDTH) {
            text += "\n" + std::string(column, ' ');
            at = column;
        } else if (at != column) {
            text += ' ';
            ++at;
        }
        text += item;
        at += item.size();
    }
    return text;
}

} // namespace

std::string listCharsets() {
    std::vector<Row> rows = collectRows();
    rows.insert(rows.begin(), Row{"NAME", "MIB", {"ALIASES"}});
    std::size_t nameWidth = 0;
    std::size_t mibWidth = 0;
    for (const Row& row : rows) {
        nameWidth = std::max(nameWidth, row.name.size());
        mibWidth = std::max(mibWidth, row.mib.size());
    }
    std::string text;
    for (const Row& row : rows) {
        const std::string start =
            leftAligned(row.name, nameWidth) + rightAligned(row.mib, mibWidth);
        text += start + aliasColumn(row.aliases, start.size());
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

} // namespace recode
