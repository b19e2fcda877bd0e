// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief An invoice as a table of text.
#ifndef INVOICE_PRINT_H
#define INVOICE_PRINT_H

#include "examples/invoice/invoice.h"

#include <cstddef>
#include <iosfwd>
#include <locale>
#include <string>

namespace invoice {

/// How to print.
struct Style {
    std::locale locale = std::locale::classic(); ///< punctuation of the amounts
    std::string currency;                        ///< UTF-8, behind the totals
    std::size_t instalments = 1;                 ///< how many payments; 1 prints none
};

/// Prints items, tax by rate, totals, and the payments, each amount with two digits.
void print(std::ostream& out, const Invoice& invoice, const Style& style);

} // namespace invoice

#endif
