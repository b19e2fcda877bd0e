// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief recode: converts text from one character set to another.
#include "examples/recode/bad_input.h"
#include "examples/recode/converter.h"
#include "examples/recode/files.h"
#include "examples/recode/listing.h"
#include "examples/recode/options.h"
#include "examples/recode/progress.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace recode {

namespace {

// Bytes to come, if all inputs can tell.
std::optional<std::uint64_t> totalSize(const std::vector<InputFacts>& inputs) {
    std::uint64_t total = 0;
    for (const InputFacts& input : inputs) {
        if (!input.size) {
            return std::nullopt;
        }
        total += *input.size;
    }
    return total;
}

// Where somebody types or reads the text itself, the line would stand in its middle.
bool disturbs(const std::vector<InputFacts>& inputs, const Output& output) {
    return output.isTerminal() ||
           std::any_of(inputs.begin(), inputs.end(),
                       [](const InputFacts& input) { return input.isTerminal; });
}

ExitStatus convertFiles(const Options& options) {
    // All inputs are looked at before the output is touched.
    std::vector<InputFacts> inputs;
    for (const std::string& file : options.files) {
        inputs.push_back(inspectInput(file));
    }
    Output output(options.output, inputs);
    Converter converter(*options.from, *options.to, options.onError);
    std::string complaint;
    {
        Progress progress(!disturbs(inputs, output), totalSize(inputs));
        for (const std::string& file : options.files) {
            Input input(file);
            const auto bad = converter.convert(input, output,
                                               [&](std::size_t count) { progress.advance(count); });
            if (bad) {
                complaint = input.name() + ": " + describe(*bad, *options.from, *options.to);
                break;
            }
        }
    }
    output.close();
    if (complaint.empty()) {
        return SUCCESS;
    }
    std::cerr << "recode: " << complaint << '\n';
    return BAD_INPUT;
}

ExitStatus run(const Options& options) {
    if (!options.list) {
        return convertFiles(options);
    }
    Output output("-", {});
    const std::string table = listCharsets();
    output.write(table.data(), table.size());
    output.close();
    return SUCCESS;
}

// Ends as a program ends that leaves the signal alone, so that a shell sees the usual status.
ExitStatus endQuietly() {
    std::signal(SIGPIPE, SIG_DFL);
    std::raise(SIGPIPE);
    return TROUBLE;
}

} // namespace

} // namespace recode

int main(int argc, char** argv) {
    try {
        const auto parsed = recode::parseCommandLine(argc, argv);
        if (const auto* status = std::get_if<recode::ExitStatus>(&parsed)) {
            return *status;
        }
        // A write then fails instead, and the line of progress is taken away before the end.
        std::signal(SIGPIPE, SIG_IGN);
        return recode::run(std::get<recode::Options>(parsed));
    } catch (const recode::BrokenPipe&) {
        return recode::endQuietly();
    } catch (const std::exception& error) {
        std::cerr << "recode: " << error.what() << '\n';
        return recode::TROUBLE;
    }
}
