// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief uri: explains URIs, resolves them against a base, and puts them into normal form.
#include "examples/uri/explain.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/net/uri_parser.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace uri {

namespace {

enum ExitStatus { GOOD = 0, BAD_URI = 1, FAILED = 2 };

struct Options {
    std::string base;
    bool resolves = false;
    bool normalizes = false;
    std::vector<std::string> texts;
};

void declareOptions(CLI::App& app, Options& options) {
    app.add_option("-b,--base", options.base, "Resolve each text against this URI")
        ->type_name("URI");
    app.add_flag("-n,--normalize", options.normalizes,
                 "Print the normal form: case, escapes, path; all in ASCII");
    app.add_option("TEXT", options.texts, "URIs; the lines of standard input if there are none")
        ->type_name("");
    app.set_version_flag("--version", "uri (orvxx) " URI_VERSION, "Print the version");
    app.footer("Without -b and -n each URI is explained. Text is UTF-8.\n"
               "Exit status: 0 if all went well, 1 if a text is no URI, 2 for any other failure.");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "uri: " + std::string(error.what()) + "\nuri --help tells how to call it.\n";
    });
}

// Null, after a message, for a text that is no URI.
orv::gref<orv::net::URI> read(const std::string& bytes) {
    const orv::ustring text = orv::Charset::UTF_8->decode(bytes);
    orv::net::URIResult result = orv::net::URI::tryCreate(orv::ustring_ref(text));
    if (!result) {
        complain(std::cerr, text, result);
    }
    return result.uri;
}

// Case and escapes first, since an escape may hide a dot of the path.
orv::ustring normalForm(const orv::net::URI& uri) {
    const orv::ustring text = orv::net::URIParser::normalize(uri.toString());
    return orv::net::URI::create(orv::ustring_ref(text))->normalize()->toString();
}

bool handle(const std::string& bytes, const orv::gref<orv::net::URI>& base,
            const Options& options) {
    orv::gref<orv::net::URI> uri = read(bytes);
    if (!uri) {
        return false;
    }
    if (base) {
        uri = base->resolve(uri);
    }
    if (options.normalizes) {
        std::cout << utf8(normalForm(*uri)) << '\n';
    } else if (base) {
        std::cout << utf8(uri->toString()) << '\n';
    } else {
        explain(std::cout, *uri);
    }
    return true;
}

ExitStatus run(const Options& options) {
    orv::gref<orv::net::URI> base;
    if (options.resolves) {
        base = read(options.base);
        if (!base) {
            return BAD_URI;
        }
    }
    bool allGood = true;
    for (const std::string& text : options.texts) {
        allGood = handle(text, base, options) && allGood;
    }
    if (options.texts.empty()) {
        for (std::string line; std::getline(std::cin, line);) {
            allGood = handle(line, base, options) && allGood;
        }
    }
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "uri: cannot write to standard output\n";
        return FAILED;
    }
    return allGood ? GOOD : BAD_URI;
}

} // namespace

} // namespace uri

int main(int argc, char** argv) {
    try {
        CLI::App app("Explains URIs, resolves them, and puts them into normal form.", "uri");
        uri::Options options;
        uri::declareOptions(app, options);
        try {
            app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            return app.exit(error) == 0 ? uri::GOOD : uri::FAILED;
        }
        options.resolves = app.count("--base") != 0;
        return uri::run(options);
    } catch (const std::exception& error) {
        std::cerr << "uri: " << error.what() << '\n';
        return uri::FAILED;
    }
}
