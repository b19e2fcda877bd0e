// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The arithmetic of an invoice.
#include "examples/invoice/invoice.h"

#include "orv/liborvxx/number/from_chars.h"

#include <algorithm>
#include <map>
#include <utility>

namespace invoice {

using namespace orv::literals;
namespace decimal = orv::decimal;

namespace {

orv::string_ref trimmed(orv::string_ref text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r')) {
        text.remove_suffix(1);
    }
    return text;
}

// Takes the field in front of the next semicolon off the line.
orv::string_ref takeField(orv::string_ref& line, const char* name) {
    const std::size_t end = line.find(';');
    if (end == orv::string_ref::npos) {
        throw BadLine(std::string("no semicolon behind the ") + name);
    }
    const orv::string_ref field = trimmed(line.substr(0, end));
    line = line.substr(end + 1);
    return field;
}

Money takeNumber(orv::string_ref& line, const char* name) {
    const orv::string_ref field = takeField(line, name);
    const auto [value, length, status] = orv::from_chars_c<Money>(field);
    if (status != orv::number_status::ok || length != field.size() || !decimal::isfinite(value)) {
        throw BadLine('"' + field.to_string() + "\" is no " + name);
    }
    return value;
}

// As in commerce: half a cent goes up.
Money toCents(const Money& amount) {
    return decimal::round(amount, CENTS, decimal::rounding::half_away);
}

// Whether no digit of a sum was lost.
bool isExact(const Money& amount) {
    return decimal::isfinite(amount) && decimal::quantexp(amount) == -CENTS;
}

} // namespace

Item readItem(orv::string_ref line) {
    Item item;
    item.quantity = takeNumber(line, "quantity");
    item.price = takeNumber(line, "price");
    item.taxPercent = takeNumber(line, "tax rate");
    item.name = trimmed(line).to_string();
    item.net = toCents(item.quantity * item.price);
    if (!isExact(item.net)) {
        throw BadLine("the amount has more than 16 digits");
    }
    return item;
}

Invoice addUp(std::vector<Item> items) {
    Invoice invoice;
    std::map<Money, Money> netByRate; // 19 and 19.0 are one rate
    for (const Item& item : items) {
        netByRate.try_emplace(item.taxPercent, 0.00_d64).first->second += item.net;
    }
    invoice.net = invoice.tax = 0.00_d64;
    for (const auto& [percent, net] : netByRate) {
        const Money tax = toCents(net * percent / 100);
        invoice.taxes.push_back({percent, net, tax});
        invoice.net += net;
        invoice.tax += tax;
    }
    invoice.total = invoice.net + invoice.tax;
    if (!isExact(invoice.total)) {
        throw std::overflow_error("the total has more than 16 digits");
    }
    invoice.items = std::move(items);
    return invoice;
}

std::vector<Money> instalments(const Money& total, std::size_t count) {
    constexpr Money CENT = 0.01_d64;
    const Money parts(count);
    const Money share = decimal::round(total / parts, CENTS, decimal::rounding::floor);
    std::vector<Money> amounts(count, share);
    Money rest = total - share * parts; // less than a cent for each
    for (Money& amount : amounts) {
        if (rest > 0) {
            amount += CENT;
            rest -= CENT;
        }
    }
    return amounts;
}

} // namespace invoice
