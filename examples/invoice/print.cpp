// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The columns of an invoice.
#include "examples/invoice/print.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace invoice {

namespace {

// Characters of UTF-8 text, as far as a column is concerned.
std::size_t width(const std::string& text) {
    const orv::ustring units = orv::Charset::UTF_8->decode(text);
    return orv::Char16::codePointCount(units, 0, units.size());
}

std::string spaces(std::size_t wanted, std::size_t there) {
    return std::string(wanted > there ? wanted - there : 0, ' ');
}

class Table {
public:
    Table(std::ostream& out, const Invoice& invoice, const Style& style)
        : out_(out), invoice_(invoice), style_(style) {
        nameWidth_ = std::size_t{20};
        for (const Item& item : invoice.items) {
            nameWidth_ = std::max(nameWidth_, width(item.name));
        }
        amountWidth_ = std::max<std::size_t>(12, width(amount(invoice.total)));
    }

    void print() {
        for (const Item& item : invoice_.items) {
            row(item.name, {number(item.quantity), price(item.price), amount(item.net)});
        }
        rule();
        row("net", {"", "", amount(invoice_.net)});
        for (const TaxGroup& tax : invoice_.taxes) {
            row("tax " + number(tax.percent) + " % of", {"", amount(tax.net), amount(tax.tax)});
        }
        rule();
        row("total", {"", "", amount(invoice_.total)}, style_.currency);
        if (style_.instalments > 1) {
            payments();
        }
    }

private:
    // Two digits behind the point, and the groups of the locale.
    std::string amount(const Money& money) const {
        return orv::decimal::to_string(style_.locale, money, CENTS);
    }

    // With the digits that it was written with, and at least so many behind the point.
    std::string number(const Money& value, int leastDigits = 0) const {
        return orv::decimal::to_string(style_.locale, value,
                                       std::max(leastDigits, -orv::decimal::quantexp(value)));
    }

    std::string price(const Money& value) const { return number(value, CENTS); }

    void row(const std::string& name, const std::vector<std::string>& amounts,
             const std::string& behind = "") {
        out_ << name << spaces(nameWidth_, width(name));
        for (const std::string& text : amounts) {
            out_ << ' ' << spaces(amountWidth_, width(text)) << text;
        }
        out_ << (behind.empty() ? "" : " ") << behind << '\n';
    }

    void rule() { out_ << std::string(nameWidth_ + 3 * (amountWidth_ + 1), '-') << '\n'; }

    void payments() {
        std::size_t number = 0;
        for (const Money& part : instalments(invoice_.total, style_.instalments)) {
            row("payment " + std::to_string(++number), {"", "", amount(part)}, style_.currency);
        }
    }

    std::ostream& out_;
    const Invoice& invoice_;
    const Style& style_;
    std::size_t nameWidth_;
    std::size_t amountWidth_;
};

} // namespace

void print(std::ostream& out, const Invoice& invoice, const Style& style) {
    Table(out, invoice, style).print();
}

} // namespace invoice
