// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief lines: numbers the lines of a text in any character set and measures them.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/coding_error.h"
#include "orv/liborvxx/locale/charset_streambuf.h"
#include "orv/liborvxx/locale/ulocale.h"
#include "orv/liborvxx/locale/uostream.h"
#include "orv/liborvxx/locale/ustringstream.h"
#include "orv/liborvxx/text/code_points.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>

namespace lines {

namespace {

enum ExitStatus { GOOD = 0, BAD_TEXT = 1, FAILED = 2 };

struct Options {
    std::string file = "-";
    std::string charset = "UTF-8";
    std::string locale = "C";
};

struct BadText : std::runtime_error {
    using runtime_error::runtime_error;
};

void declareOptions(CLI::App& app, Options& options) {
    app.add_option("FILE", options.file, "The text; standard input if there is none or \"-\"");
    app.add_option("-e,--encoding", options.charset, "Its character set, UTF-8 if not given")
        ->type_name("SET");
    app.add_option("-l,--locale", options.locale, "Punctuation of the numbers, as in \"de_DE\"");
    app.set_version_flag("--version", "lines (orvxx) " LINES_VERSION, "Print the version");
    app.footer("Prints the number and the length of each line before it, in UTF-8. A character is\n"
               "a code point; a word is what stands between white space.\n"
               "Exit status: 0 if all went well, 1 if the text is bad, 2 for any other failure.");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "lines: " + std::string(error.what()) + "\nlines --help tells how to call it.\n";
    });
}

orv::Charset& namedCharset(const std::string& name) {
    orv::Charset* const charset = orv::Charset::forName(orv::Charset::UTF_8->decode(name));
    if (charset == nullptr) {
        throw std::runtime_error("no character set " + name);
    }
    return *charset;
}

// A name of another form than xx_YY would be taken for "C".
orv::ulocale namedLocale(const std::string& name) {
    try {
        const orv::ustring text = orv::Charset::UTF_8->decode(name);
        const orv::ulocale locale{orv::ustring_ref(text)};
        if (locale.name() == text) {
            return locale;
        }
    } catch (const std::runtime_error&) {
    }
    throw std::runtime_error("no locale " + name + " on this system");
}

// A pair of surrogates is one character.
std::size_t lengthOf(const orv::ustring& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](orv::char16 unit) {
        return !orv::Char16::isLowSurrogate(unit);
    }));
}

struct Longest {
    std::size_t length = 0;
    std::size_t line = 0;
    orv::ustring text;

    void see(const orv::ustring& candidate, std::size_t lineNumber) {
        if (const std::size_t n = lengthOf(candidate); n > length) {
            *this = {n, lineNumber, candidate};
        }
    }
};

void report(orv::uistream& in, orv::uostream& out, std::size_t& number) {
    Longest longestLine;
    Longest longestWord;
    orv::uistringstream words;
    for (orv::ustring line, word; getline(in, line);) {
        out << std::setw(7) << ++number << std::setw(7) << lengthOf(line) << u"  " << line << u'\n';
        longestLine.see(line, number);
        words.clear();
        words.str(line);
        while (words >> word) {
            longestWord.see(word, number);
        }
    }
    out << u"lines         " << number << u'\n';
    if (longestLine.length != 0) {
        out << u"longest line  " << longestLine.length << u" characters, line " << longestLine.line
            << u'\n';
    }
    if (longestWord.length != 0) {
        out << u"longest word  " << longestWord.length << u" characters, line " << longestWord.line
            << u": " << longestWord.text << u'\n';
    }
}

void read(std::streambuf& bytes, orv::Charset& charset, orv::uostream& out) {
    orv::charset_streambuf buffer(bytes, charset, orv::REPORT);
    orv::uistream in(&buffer);
    // Bad text throws out of getline, which otherwise sees an end of the text.
    in.exceptions(std::ios_base::badbit);
    std::size_t number = 0;
    try {
        report(in, out, number);
    } catch (const orv::CharacterCodingError&) {
        const std::string name = orv::Charset::UTF_8->encode(charset.name());
        throw BadText("line " + std::to_string(number + 1) + " is not valid " + name);
    }
}

void run(const Options& options) {
    std::ios_base::sync_with_stdio(false);
    orv::Charset& charset = namedCharset(options.charset);
    orv::charset_streambuf buffer(*std::cout.rdbuf());
    orv::uostream out(&buffer);
    out.imbue(namedLocale(options.locale));
    if (options.file == "-") {
        read(*std::cin.rdbuf(), charset, out);
    } else {
        std::ifstream file(options.file, std::ios_base::binary);
        if (!file) {
            throw std::runtime_error("cannot open " + options.file);
        }
        read(*file.rdbuf(), charset, out);
    }
    if (!out || !buffer.finish()) {
        throw std::runtime_error("cannot write to standard output");
    }
}

} // namespace

} // namespace lines

int main(int argc, char** argv) {
    lines::Options options;
    try {
        CLI::App app("Numbers the lines of a text and measures them.", "lines");
        lines::declareOptions(app, options);
        try {
            app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            return app.exit(error) == 0 ? lines::GOOD : lines::FAILED;
        }
        lines::run(options);
        return lines::GOOD;
    } catch (const lines::BadText& error) {
        std::cerr << "lines: " << error.what() << '\n';
        return lines::BAD_TEXT;
    } catch (const std::ios_base::failure&) {
        std::cerr << "lines: cannot read " << options.file << '\n';
        return lines::FAILED;
    } catch (const std::exception& error) {
        std::cerr << "lines: " << error.what() << '\n';
        return lines::FAILED;
    }
}
