// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The command line of recode.
#ifndef ORV_EXAMPLES_RECODE_OPTIONS_H
#define ORV_EXAMPLES_RECODE_OPTIONS_H

#include "orv/liborvxx/charset/charset.h"

#include <string>
#include <variant>
#include <vector>

namespace recode {

/// What the program gives back to the system.
enum ExitStatus {
    SUCCESS = 0,
    /// The input holds something that cannot be converted.
    BAD_INPUT = 1,
    /// A wrong command line, an unknown name, a file that cannot be read or written.
    TROUBLE = 2
};

/// What the user asks for.
struct Options {
    /// Show the character sets, and do nothing else.
    bool list = false;
    /// Not null unless `list` is set.
    orv::Charset* from = nullptr;
    orv::Charset* to = nullptr;
    orv::CodingErrorAction onError = orv::REPORT;
    /// "-" is the standard output, and among the files the standard input.
    std::string output = "-";
    std::vector<std::string> files = {"-"};
};

/// Reads the command line. Help, version and errors are told to the user here, and the status to
/// end with is returned.
std::variant<Options, ExitStatus> parseCommandLine(int argc, char** argv);

} // namespace recode

#endif
