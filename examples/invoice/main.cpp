// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief invoice: adds up the lines of an invoice to the cent.
#include "examples/invoice/invoice.h"
#include "examples/invoice/print.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <fstream>
#include <iostream>
#include <locale>
#include <string>
#include <utility>
#include <vector>

namespace invoice {

namespace {

enum ExitStatus { GOOD = 0, BAD_INVOICE = 1, FAILED = 2 };

struct Options {
    std::string file = "-";
    std::string locale;
    Style style;
};

void declareOptions(CLI::App& app, Options& options) {
    app.add_option("FILE", options.file, "The invoice; standard input if there is none or \"-\"");
    app.add_option("-l,--locale", options.locale,
                   "Punctuation of the amounts, as in \"de_DE.UTF-8\"");
    app.add_option("-c,--currency", options.style.currency, "What stands behind the totals");
    app.add_option("-p,--payments", options.style.instalments, "Split the total into so many")
        ->check(CLI::Range(1, 1000))
        ->type_name("N");
    app.set_version_flag("--version", "invoice (orvxx) " INVOICE_VERSION, "Print the version");
    app.footer("A line of the file is \"quantity; price; tax in percent; name\". Empty lines and\n"
               "lines that begin with # are skipped.\n"
               "Exit status: 0 if all went well, 1 if a line is bad, 2 for any other failure.");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "invoice: " + std::string(error.what()) + "\ninvoice --help tells how to call it.\n";
    });
}

std::vector<Item> readItems(std::istream& in) {
    std::vector<Item> items;
    std::size_t number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.empty() || line == "\r" || line[0] == '#') {
            continue;
        }
        try {
            items.push_back(readItem(line));
        } catch (const BadLine& error) {
            throw BadLine("line " + std::to_string(number) + ": " + error.what());
        }
    }
    if (in.bad()) {
        throw std::runtime_error("cannot read the invoice");
    }
    return items;
}

std::vector<Item> readItems(const std::string& file) {
    if (file == "-") {
        return readItems(std::cin);
    }
    std::ifstream in(file);
    if (!in) {
        throw std::runtime_error("cannot open " + file);
    }
    return readItems(in);
}

std::locale namedLocale(const std::string& name) {
    try {
        return name.empty() ? std::locale::classic() : std::locale(name);
    } catch (const std::runtime_error&) {
        throw std::runtime_error("no locale " + name + " on this system");
    }
}

ExitStatus run(Options options) {
    options.style.locale = namedLocale(options.locale);
    print(std::cout, addUp(readItems(options.file)), options.style);
    std::cout.flush();
    if (!std::cout) {
        throw std::runtime_error("cannot write to standard output");
    }
    return GOOD;
}

} // namespace

} // namespace invoice

int main(int argc, char** argv) {
    try {
        CLI::App app("Adds up the lines of an invoice to the cent.", "invoice");
        invoice::Options options;
        invoice::declareOptions(app, options);
        try {
            app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            return app.exit(error) == 0 ? invoice::GOOD : invoice::FAILED;
        }
        return invoice::run(std::move(options));
    } catch (const invoice::BadLine& error) {
        std::cerr << "invoice: " << error.what() << '\n';
        return invoice::BAD_INVOICE;
    } catch (const std::exception& error) {
        std::cerr << "invoice: " << error.what() << '\n';
        return invoice::FAILED;
    }
}
