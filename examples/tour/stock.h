// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What lies in the warehouse: a file that streams read item by item.
#ifndef ORV_EXAMPLES_TOUR_STOCK_H
#define ORV_EXAMPLES_TOUR_STOCK_H

#include "orv/liborvxx/orvxx.h"

#include <locale>
#include <string>
#include <vector>

namespace stock {

/// A line of the file: "3 19,90 8d3f2c1e-... https://shop.example.org/..."
struct Item {
    int count = 0;
    orv::decimal::decimal64 price;
    orv::UUID id;
    orv::gref<orv::net::URI> link;
};

/// The classic locale of streams over UTF-16, but "1.234,50". A locale of the system does as well:
/// `orv::ulocale(u"de_DE"_u)`.
std::locale punctuation();

/// The items of a file in windows-1252.
/// \exception std::runtime_error if it cannot be read to its end
std::vector<Item> read(const std::string& path);

} // namespace stock

#endif
