// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Drawing the line of progress.
#include "examples/recode/progress.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <sys/ioctl.h>
#include <unistd.h>

namespace recode {

namespace {

constexpr auto FIRST_SHOW = std::chrono::milliseconds(500);
constexpr auto BETWEEN_SHOWS = std::chrono::milliseconds(100);
constexpr std::size_t LONGEST_BAR = 40;

std::string decimal(double value, int places) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", places, value);
    return text;
}

std::string size(double bytes) {
    const char* const units[] = {"B", "KiB", "MiB", "GiB", "TiB"};
    std::size_t i = 0;
    while (bytes >= 1024 && i + 1 < std::size(units)) {
        bytes /= 1024;
        ++i;
    }
    return decimal(bytes, i == 0 ? 0 : 1) + " " + units[i];
}

std::string bar(double part, std::size_t length) {
    const auto full = static_cast<std::size_t>(part * static_cast<double>(length));
    return "[" + std::string(full, '#') + std::string(length - full, '.') + "] ";
}

std::size_t terminalWidth() {
    ::winsize window = {};
    const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &window) == 0 && window.ws_col != 0;
    return known ? window.ws_col : 80;
}

} // namespace

std::string progressLine(std::uint64_t done, std::optional<std::uint64_t> total, double seconds,
                         std::size_t width) {
    const auto bytes = static_cast<double>(done);
    const std::string rate = seconds > 0 ? ", " + size(bytes / seconds) + "/s" : "";
    std::string line = size(bytes) + rate;
    if (total && *total != 0) {
        const auto all = static_cast<double>(*total);
        // A file may grow while it is read.
        const double part = std::min(bytes / all, 1.0);
        line = decimal(100 * part, 0) + " %, " + size(bytes) + " of " + size(all) + rate;
        // "[] " and a free last column, as some terminals wrap when it is written.
        if (width > line.size() + 8) {
            line.insert(0, bar(part, std::min(LONGEST_BAR, width - line.size() - 4)));
        }
    }
    if (line.size() >= width) {
        line.resize(width == 0 ? 0 : width - 1);
    }
    return line;
}

Progress::Progress(bool enabled, std::optional<std::uint64_t> total)
    : enabled_(enabled && ::isatty(STDERR_FILENO) != 0), total_(total),
      nextShow_(start_ + FIRST_SHOW) {}

Progress::~Progress() {
    if (shown_) {
        std::fputs("\r\x1B[K", stderr);
    }
}

void Progress::advance(std::size_t bytes) {
    done_ += bytes;
    if (!enabled_) {
        return;
    }
    const Clock::time_point now = Clock::now();
    if (now >= nextShow_) {
        show(std::chrono::duration<double>(now - start_).count());
        nextShow_ = now + BETWEEN_SHOWS;
    }
}

void Progress::show(double seconds) {
    const std::string line =
        "\r" + progressLine(done_, total_, seconds, terminalWidth()) + "\x1B[K";
    std::fputs(line.c_str(), stderr);
    shown_ = true;
}

} // namespace recode
