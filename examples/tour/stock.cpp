// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reads the stock: bytes of a character set become text, and text becomes values.
#include "examples/tour/stock.h"

#include <fstream>
#include <ios>
#include <stdexcept>

using namespace orv::literals;

namespace stock {

namespace {

class DecimalComma : public std::numpunct<orv::char16> {
    orv::char16 do_decimal_point() const override { return u','; }
    orv::char16 do_thousands_sep() const override { return u'.'; }
    std::string do_grouping() const override { return "\3"; }
};

} // namespace

std::locale punctuation() {
    return {orv::ulocale::classic(), new DecimalComma};
}

std::vector<Item> read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    orv::charset_streambuf text(*file.rdbuf(), *orv::Charset::forName(u"windows-1252"_u));
    orv::uistream in(&text);
    in.imbue(punctuation());
    std::vector<Item> items;
    Item item;
    orv::ustring id;
    orv::ustring link;
    while (in >> item.count >> item.price >> id >> link) {
        item.id = orv::UUID::fromString(id);
        item.link = orv::net::URI::create(link);
        items.push_back(item);
    }
    if (!file.is_open() || !in.eof()) {
        throw std::runtime_error("cannot read " + path);
    }
    return items;
}

} // namespace stock
