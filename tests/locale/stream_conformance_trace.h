// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What scripts of operations make of a stream, over buffers that work and others.
#ifndef ORV_TESTS_LOCALE_STREAM_CONFORMANCE_TRACE_H
#define ORV_TESTS_LOCALE_STREAM_CONFORMANCE_TRACE_H

#include "tests/locale/stream_conformance_input.h"
#include "tests/locale/stream_conformance_output.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvtest {

/// How far a stream's buffer works, and what it does then.
struct Fault {
    std::size_t good;
    bool throws;
};

template <class CharT>
std::string inputTrace(std::string_view text, const std::vector<std::string>& script) {
    typename StreamsOf<CharT>::StringIn in(textIn<CharT>(text));
    InputScript<CharT> run(in);
    std::string trace;
    for (const std::string& operation : script) {
        trace += run.perform(operation);
    }
    return trace;
}

template <class CharT>
std::string inputTrace(std::string_view text, const std::vector<std::string>& script, Fault fault) {
    FaultyBuffer<CharT> buffer(textIn<CharT>(text), fault.good, fault.throws);
    typename StreamsOf<CharT>::In in(&buffer);
    InputScript<CharT> run(in);
    std::string trace;
    for (const std::string& operation : script) {
        trace += run.perform(operation);
    }
    return trace;
}

template <class CharT>
std::string outputTrace(const std::vector<std::string>& script) {
    typename StreamsOf<CharT>::StringOut out;
    OutputScript<CharT> run(out);
    std::string trace;
    for (const std::string& operation : script) {
        trace += run.perform(operation);
        trace += "  " + shownUnits(std::basic_string<CharT>(out.str())) + '\n';
    }
    return trace;
}

template <class CharT>
std::string outputTrace(const std::vector<std::string>& script, Fault fault) {
    FaultyBuffer<CharT> buffer({}, fault.good, fault.throws);
    typename StreamsOf<CharT>::Out out(&buffer);
    OutputScript<CharT> run(out);
    std::string trace;
    for (const std::string& operation : script) {
        std::string line = run.perform(operation);
        // Only text over char16 says what the width is after the buffer has failed.
        line.erase(line.rfind(" width"));
        out.width(0);
        line += '\n';
        trace += line + "  " + shownUnits(buffer.written()) + '\n';
    }
    return trace;
}

} // namespace orvtest

#endif
