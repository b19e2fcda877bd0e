// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Writes the page on where the tables of ICU and glibc differ from those of the library, or
/// checks that it is current.
///
///     charset_differences --write FILE
///     charset_differences --check FILE
#include "tests/differential/mapping_differences.h"
#include "tests/differential/page_check.h"

#include <array>
#include <cstddef>
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using orvtest::CodeForm;
using orvtest::DifferenceRow;
using orvtest::MappingDifference;

// A set with the closest converter of each other library; none where that has no such set.
struct ComparedSet {
    const char* name;
    CodeForm form;
    const char* icu;
    const char* iconv;
};

constexpr CodeForm BYTE = CodeForm::SINGLE_BYTE;

constexpr ComparedSet SETS[] = {
    {"ISO-8859-2", BYTE, "ibm-912_P100-1995", "ISO-8859-2"},
    {"ISO-8859-3", BYTE, "ibm-913_P100-2000", "ISO-8859-3"},
    {"ISO-8859-4", BYTE, "ibm-914_P100-1995", "ISO-8859-4"},
    {"ISO-8859-5", BYTE, "ibm-915_P100-1995", "ISO-8859-5"},
    {"ISO-8859-6", BYTE, "ibm-1089_P100-1995", "ISO-8859-6"},
    {"ISO-8859-7", BYTE, "ibm-9005_X110-2007", "ISO-8859-7"},
    {"ISO-8859-8", BYTE, "ibm-5012_P100-1999", "ISO-8859-8"},
    {"ISO-8859-9", BYTE, "ibm-920_P100-1995", "ISO-8859-9"},
    {"ISO-8859-10", BYTE, "iso-8859_10-1998", "ISO-8859-10"},
    {"x-iso-8859-11", BYTE, "iso-8859_11-2001", "ISO-8859-11"},
    {"ISO-8859-13", BYTE, "ibm-921_P100-1995", "ISO-8859-13"},
    {"ISO-8859-14", BYTE, "iso-8859_14-1998", "ISO-8859-14"},
    {"ISO-8859-15", BYTE, "ibm-923_P100-1998", "ISO-8859-15"},
    {"ISO-8859-16", BYTE, nullptr, "ISO-8859-16"},
    {"KOI8-R", BYTE, "ibm-878_P100-1996", "KOI8-R"},
    {"KOI8-U", BYTE, "ibm-1168_P100-2002", "KOI8-U"},
    {"windows-874", BYTE, "windows-874-2000", "WINDOWS-874"},
    {"windows-1250", BYTE, "ibm-5346_P100-1998", "CP1250"},
    {"windows-1251", BYTE, "ibm-5347_P100-1998", "CP1251"},
    {"windows-1252", BYTE, "ibm-5348_P100-1997", "CP1252"},
    {"windows-1253", BYTE, "ibm-5349_P100-1998", "CP1253"},
    {"windows-1254", BYTE, "ibm-5350_P100-1998", "CP1254"},
    {"windows-1255", BYTE, "ibm-9447_P100-2002", "CP1255"},
    {"windows-1256", BYTE, "ibm-9448_X100-2005", "CP1256"},
    {"windows-1257", BYTE, "ibm-9449_P100-2002", "CP1257"},
    {"windows-1258", BYTE, "ibm-5354_P100-1998", "CP1258"},
    {"Shift_JIS", CodeForm::PAIRS_OF_JIS, "ibm-943_P15A-2003", "SJIS"},
    {"Windows-31J", CodeForm::PAIRS_OF_JIS, "ibm-943_P15A-2003", "CP932"},
    {"GBK", CodeForm::PAIRS, "windows-936-2000", "GBK"},
    {"x-mswin-936", CodeForm::PAIRS, "windows-936-2000", "CP936"},
    {"x-windows-949", CodeForm::PAIRS, "windows-949-2000", "UHC"},
    {"Big5", CodeForm::PAIRS, "windows-950-2000", "BIG5"},
    {"x-windows-950", CodeForm::PAIRS, "windows-950-2000", "CP950"},
    {"Big5-HKSCS", CodeForm::PAIRS_OF_HKSCS, "ibm-1375_P100-2008", "BIG5-HKSCS"},
    {"GB18030", CodeForm::FOUR_BYTES, "gb18030", "GB18030"},
};

constexpr const char* INTRODUCTION =
    R"(The sets that are driven by tables follow published mappings, and publications differ. This page
lists every code and every character on which the tables of this library are not those of the
closest converter of ICU and of glibc's `iconv`. `charset_differences --write` makes it, from the
libraries as they are installed.

All single bytes, all pairs where the set has pairs, all sequences of four bytes of GB18030, and all
characters are converted one at a time, each as a whole text. The other converters run as they are
after opening: ICU without its optional one-way rows from Unicode. "None" is any kind of refusal, and
for a character that is dropped in silence too. The second column is what this library gives.

A range is of codes or characters that are neighbours in the set. Where values are given by their
number, they do not count up, and the first and the last of them stand for all. "5 of U+E000 to
U+E010" are five, and the others of that range do not differ.

Where a code differs, so does, as a rule, the way back from its characters. The tables of characters
leave out what so follows from the table of codes above them.
)";

// The line with the versions is not checked: other versions may well have the same tables.
constexpr const char* VERSION_LINE = "Compared with ";

/// A set beside one other library.
class Comparison {
public:
    Comparison(const ComparedSet& set, orvtest::CharsetPeer& ours, const std::string& library,
               const char* converter)
        : name_(converter == nullptr ? std::string() : converter),
          title_(library + " `" + name_ + "`") {
        if (converter == nullptr) {
            return;
        }
        const auto theirs = library == "ICU" ? orvtest::openIcuConverter(name_)
                                             : orvtest::openIconvConverter(name_);
        const auto codes = orvtest::differencesOfCodes(ours, *theirs, set.form);
        const auto characters = orvtest::differencesOfCharacters(ours, *theirs);
        codes_ = codes.size();
        characters_ = characters.size();
        codeRows_ = orvtest::foldedCodes(codes);
        characterRows_ =
            orvtest::foldedCharacters(orvtest::independentDifferences(characters, codes), set.form);
    }

    void writeSummary(std::ostream& out) const {
        if (name_.empty()) {
            out << " none | | |";
        } else {
            out << " `" << name_ << "` | " << codes_ << " | " << characters_ << " |";
        }
    }

    bool differs() const { return codes_ + characters_ > 0; }

    void write(std::ostream& out) const {
        out << "\n"
            << title_ << ": " << count(codes_, " code") << ", " << count(characters_, " character")
            << ".\n";
        writeTable(out, "Code", codeRows_);
        writeTable(out, "Character", characterRows_);
    }

private:
    static std::string count(std::size_t n, const char* what) {
        return std::to_string(n) + what + (n == 1 ? "" : "s");
    }

    static void writeTable(std::ostream& out, const char* key,
                           const std::vector<DifferenceRow>& rows) {
        if (rows.empty()) {
            return;
        }
        out << "\n| " << key << " | Here | There |\n|---|---|---|\n";
        for (const DifferenceRow& row : rows) {
            out << "| " << row.key << " | " << row.ours << " | " << row.theirs << " |\n";
        }
    }

    std::string name_;
    std::string title_;
    std::size_t codes_ = 0;
    std::size_t characters_ = 0;
    std::vector<DifferenceRow> codeRows_;
    std::vector<DifferenceRow> characterRows_;
};

std::string page() {
    std::ostringstream summary;
    std::ostringstream lists;
    for (const ComparedSet& set : SETS) {
        const auto ours = orvtest::openOwnCharset(set.name);
        const std::array<Comparison, 2> both = {Comparison(set, *ours, "ICU", set.icu),
                                                Comparison(set, *ours, "glibc", set.iconv)};
        summary << "| " << set.name << " |";
        bool any = false;
        for (const Comparison& comparison : both) {
            comparison.writeSummary(summary);
            if (comparison.differs()) {
                lists << (any ? "" : std::string("\n## ") + set.name + "\n");
                comparison.write(lists);
                any = true;
            }
        }
        summary << "\n";
    }
    std::ostringstream out;
    out << "# Character sets beside ICU and glibc\n\n"
        << INTRODUCTION << "\n"
        << VERSION_LINE << orvtest::icuVersion() << " and " << orvtest::iconvVersion() << ".\n\n"
        << "## Summary\n\n"
        << "How many codes and how many characters differ.\n\n"
        << "| Set | ICU | Codes | Characters | glibc | Codes | Characters |\n"
        << "|---|---|---|---|---|---|---|\n"
        << summary.str() << lists.str();
    return out.str();
}

// Says where the file is not current.
bool isCurrent(const std::string& path, const std::string& wanted) {
    std::ifstream file(path);
    std::ostringstream page;
    page << file.rdbuf();
    const std::string difference = orvtest::pageDifference(page.str(), wanted, VERSION_LINE);
    if (!difference.empty()) {
        std::cerr << path << ", " << difference << "\n"
                  << orvtest::icuVersion() << " and " << orvtest::iconvVersion()
                  << " are installed; charset_differences --write makes the page anew\n";
    }
    return difference.empty();
}

} // namespace

int main(int argc, char** argv) {
    const std::string action = argc == 3 ? argv[1] : "";
    if (action != "--write" && action != "--check") {
        std::cerr << "usage: charset_differences --write|--check FILE\n";
        return 2;
    }
    try {
        const std::string text = page();
        if (action == "--check") {
            return isCurrent(argv[2], text) ? 0 : 1;
        }
        std::ofstream file(argv[2]);
        file << text << std::flush;
        return file ? 0 : 1;
    } catch (const std::exception& e) {
        std::cerr << "charset_differences: " << e.what() << "\n";
        return 2;
    }
}
