// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Writes the page on where Boost.URL and uriparser treat URIs otherwise than the library,
/// or checks that it is current.
///
///     uri_differences --write FILE
///     uri_differences --check FILE
#include "tests/differential/net/uri_differences.h"
#include "tests/differential/net/uri_peers.h"
#include "tests/differential/page_check.h"

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using orvtest::BOOST_URIS;
using orvtest::OWN_URIS;
using orvtest::uriAnswer;
using orvtest::UriDifference;
using orvtest::uriDifferences;
using orvtest::UriLibrary;
using orvtest::UriOperation;
using orvtest::URIPARSER_URIS;
using orvtest::UriQuestion;

constexpr const char* FREE = "Compared with ";

constexpr const char* INTRODUCTION =
    R"(Boost.URL and uriparser follow RFC 3986. This page lists where this library does otherwise, and
where they do: each class of differences with an example and what each of the three makes of it.
`uri_differences --write` makes it, from the libraries as they are installed.

The classes are complete for what random texts of ASCII show: sentences of the grammar, broken and
edited ones, and rows of delimiters. The test `uri_peers_test` compares the three and fails for a
difference that is in no class. Where texts are parsed differently, they are compared no further.
)";

constexpr const char* PARSING =
    R"(What `URI::create` takes, against `parse_uri_reference` and `uriParseSingleUri`.
)";

constexpr const char* NORMALIZING =
    R"(`URIParser::normalize` with all its flags, against `url::normalize` and `uriNormalizeSyntax`.
Without `NORM_PATH` paths stay as they are, but for their escapes.
)";

constexpr const char* RESOLVING =
    R"(`URI::resolve`, against `urls::resolve` and `uriAddBaseUri`.
)";

std::string code(const std::string& text) {
    return text.empty() ? "empty" : text == "refused" ? text : "`" + text + "`";
}

void writeAnswer(std::ostream& out, const UriLibrary& library, const UriQuestion& question) {
    const std::string answer = uriAnswer(library, question);
    out << "| " << library.name << " | "
        << (question.operation == UriOperation::PARSE ? answer : code(answer)) << " |\n";
}

void writeSection(std::ostream& out, const char* title, const char* text, UriOperation operation) {
    out << "\n## " << title << "\n\n" << text;
    for (const UriDifference& difference : uriDifferences(operation)) {
        const UriQuestion& example = difference.example;
        out << "\n### " << difference.name << "\n\n"
            << difference.why << "\n\n| | " << code(example.text);
        if (operation == UriOperation::RESOLVE) {
            out << " from " << code(example.base);
        }
        out << " |\n|---|---|\n";
        writeAnswer(out, OWN_URIS, example);
        writeAnswer(out, BOOST_URIS, example);
        writeAnswer(out, URIPARSER_URIS, example);
    }
}

std::string page() {
    std::ostringstream out;
    out << "# URIs beside Boost.URL and uriparser\n\n"
        << INTRODUCTION << '\n'
        << FREE << orvtest::uriPeerVersions() << ".\n";
    writeSection(out, "Parsing", PARSING, UriOperation::PARSE);
    writeSection(out, "Normal form", NORMALIZING, UriOperation::NORMALIZE);
    writeSection(out, "Resolution", RESOLVING, UriOperation::RESOLVE);
    return out.str();
}

int run(std::string_view mode, const char* path) {
    if (mode == "--write") {
        std::ofstream(path) << page();
        return 0;
    }
    std::ostringstream have;
    have << std::ifstream(path).rdbuf();
    const std::string difference = orvtest::pageDifference(have.str(), page(), FREE);
    if (!difference.empty()) {
        std::cerr << path << " is not current, run with --write.\n" << difference << '\n';
    }
    return difference.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc == 3) {
            return run(argv[1], argv[2]);
        }
        std::cerr << "uri_differences --write FILE | --check FILE\n";
    } catch (const std::exception& e) {
        std::cerr << e.what() << '\n';
    }
    return 2;
}
