// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief An invoice: its lines, the tax by rate, and sums that add up to the cent.
#ifndef INVOICE_INVOICE_H
#define INVOICE_INVOICE_H

#include "orv/liborvxx/decimal/decimal.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace invoice {

using Money = orv::decimal::decimal64;

/// So many digits behind the point.
inline constexpr int CENTS = 2;

/// A line of an invoice.
struct Item {
    Money quantity;
    Money price;      ///< of one
    Money taxPercent; ///< rate
    std::string name; ///< UTF-8
    Money net;        ///< quantity * price, rounded to cents
};

/// What is due at one rate of tax.
struct TaxGroup {
    Money percent;
    Money net; ///< sum of the items at this rate
    Money tax; ///< of that sum, rounded to cents once
};

/// The items and what follows from them. `net`, `tax` and `total` are exact sums of rounded
/// numbers.
struct Invoice {
    std::vector<Item> items;
    std::vector<TaxGroup> taxes; ///< by rate, the lowest first
    Money net;
    Money tax;
    Money total;
};

/// A line that is no item. `what()` tells why.
class BadLine : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads "quantity;price;tax in percent;name", with blanks around the fields and '.' as the point.
/// \exception BadLine if a field is missing, is no finite number, or the amount is too large for
/// cents
Item readItem(orv::string_ref line);

/// Adds everything up.
/// \exception std::overflow_error if the total is too large for cents
Invoice addUp(std::vector<Item> items);

/// \p total in \p count parts that differ by no more than a cent, larger ones first, and add up to
/// it exactly.
/// \pre count is at least 1, \p total has whole cents
std::vector<Money> instalments(const Money& total, std::size_t count);

} // namespace invoice

#endif
