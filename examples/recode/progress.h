// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Progress`: a line on the terminal that tells how far long work has come.
#ifndef ORV_EXAMPLES_RECODE_PROGRESS_H
#define ORV_EXAMPLES_RECODE_PROGRESS_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace recode {

/// Shows a bar, or bytes and rate where the total is unknown, on the standard error stream. Nothing
/// appears in the first half second, nor where that stream is no terminal; nothing is left at the
/// end.
class Progress {
public:
    /// \p enabled is false where the line would disturb other output.
    Progress(bool enabled, std::optional<std::uint64_t> total);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    /// Takes the line away.
    ~Progress();

    /// \p bytes more are read.
    void advance(std::size_t bytes);

private:
    using Clock = std::chrono::steady_clock;

    void show(double seconds);

    bool enabled_;
    std::optional<std::uint64_t> total_;
    std::uint64_t done_ = 0;
    Clock::time_point start_ = Clock::now();
    Clock::time_point nextShow_;
    bool shown_ = false;
};

/// The line itself, at most \p width columns.
std::string progressLine(std::uint64_t done, std::optional<std::uint64_t> total, double seconds,
                         std::size_t width);

} // namespace recode

#endif
