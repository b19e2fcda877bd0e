// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reading the command line.
#include "examples/recode/options.h"

#include "examples/recode/suggestions.h"
#include "orv/liborvxx/text/cvtstr.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <map>
#include <utility>

namespace recode {

namespace {

const std::map<std::string, orv::CodingErrorAction> ACTIONS = {
    {"report", orv::REPORT}, {"replace", orv::REPLACE}, {"ignore", orv::IGNORE}};

// The words of the command line, before they are understood.
struct Words {
    bool list = false;
    std::string from;
    std::string to;
    std::string onError = "report";
    std::string output = "-";
    std::vector<std::string> files;
};

void declareOptions(CLI::App& app, Words& words) {
    app.add_option("-f,--from", words.from, "Character set of the input")->type_name("NAME");
    app.add_option("-t,--to", words.to, "Character set of the output")->type_name("NAME");
    app.add_option("--on-error", words.onError,
                   "What to do about input that cannot be converted: report it and stop\n"
                   "(the default), replace it, or ignore it")
        ->type_name("ACTION")
        ->check(CLI::IsMember({"report", "replace", "ignore"}));
    app.add_option("-o,--output", words.output, "Write to this file, not to standard output")
        ->type_name("FILE");
    app.add_option("FILE", words.files,
                   "Files to convert, one after another; standard input for - and for none")
        ->type_name("");
    app.add_flag("-l,--list", words.list, "Show all character sets: name, MIB number, aliases");
    app.set_version_flag("--version", "recode (orvxx) " RECODE_VERSION, "Print the version");
    app.footer("Exit status: 0 if all went well, 1 for input that cannot be converted, 2 for any\n"
               "other failure. Names need not be exact: utf8, UTF-8 and utf_8 are one.");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "recode: " + std::string(error.what()) + "\nrecode --help tells how to call it.\n";
    });
}

// Tells the user what is wrong with the name.
void rejectName(const std::string& name, orv::ustring_ref text) {
    if (orv::Charset::isSupported(text.to_string())) {
        std::cerr << "recode: several character sets are called \"" << name << "\"";
    } else {
        std::cerr << "recode: unknown character set \"" << name << "\"";
        const char* separator = "; near to it: ";
        for (const std::string& suggestion : suggestNames(text)) {
            std::cerr << std::exchange(separator, ", ") << suggestion;
        }
    }
    std::cerr << "\nrecode --list shows all character sets.\n";
}

// Null, after a message, for a name that stands for no character set.
orv::Charset* findCharset(const std::string& name) {
    const orv::ustring text = orv::cvtstr<orv::ustring>(name);
    orv::Charset* const set = orv::Charset::forName(text);
    if (set == nullptr) {
        rejectName(name, text);
    }
    return set;
}

std::variant<Options, ExitStatus> understand(const Words& words) {
    Options options;
    options.list = words.list;
    if (words.list) {
        return options;
    }
    // Both, so that two bad names are told in one go.
    options.from = findCharset(words.from);
    options.to = findCharset(words.to);
    if (options.from == nullptr || options.to == nullptr) {
        return TROUBLE;
    }
    options.onError = ACTIONS.at(words.onError);
    options.output = words.output;
    if (!words.files.empty()) {
        options.files = words.files;
    }
    return options;
}

} // namespace

std::variant<Options, ExitStatus> parseCommandLine(int argc, char** argv) {
    CLI::App app("Converts text from one character set to another.", "recode");
    Words words;
    declareOptions(app, words);
    try {
        app.parse(argc, argv);
        for (const char* required : {"--from", "--to"}) {
            if (!words.list && app.count(required) == 0) {
                throw CLI::RequiredError(required);
            }
        }
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? SUCCESS : TROUBLE;
    }
    return understand(words);
}

} // namespace recode
