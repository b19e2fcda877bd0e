// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Runs a fuzz target without a fuzzer: on each file of a corpus, and on variations of it.
///
/// Usage: the program, then folders. The variations are the same in every run: the file cut off at
/// each length, and a few hundred small changes. When the target fails, the input is printed.
#include "fuzz/input.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int CHANGES = 300;
constexpr std::size_t CUTS = 256;

using Bytes = std::vector<std::uint8_t>;

// What the target is working on, for the report.
std::string currentFile;
Bytes currentInput;

void printInput() {
    std::fprintf(stderr, "failed on a variation of %s, the bytes:", currentFile.c_str());
    for (const unsigned int byte : currentInput) {
        std::fprintf(stderr, " %02x", byte);
    }
    std::fputc('\n', stderr);
}

// The process is about to die of what it found, so there is nothing left to break.
extern "C" void onAbort(int signal) {
    printInput();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void runOn(const Bytes& input) {
    currentInput = input;
    // A block of exactly its size, so that a sanitizer sees a read beyond it.
    const std::vector<std::uint8_t> block(input.begin(), input.end());
    LLVMFuzzerTestOneInput(block.data(), block.size());
}

void change(Bytes& input, std::mt19937& random) {
    static constexpr std::uint8_t BOUNDARIES[] = {0x00, 0x01, 0x2D, 0x30, 0x41, 0x7F, 0x80, 0xBF,
                                                  0xC2, 0xD8, 0xDC, 0xE0, 0xED, 0xF0, 0xF4, 0xFF};
    const auto below = [&](std::size_t n) { return static_cast<std::ptrdiff_t>(random() % n); };
    const auto place = input.begin() + below(input.size() + 1);
    const std::uint8_t boundary = BOUNDARIES[below(std::size(BOUNDARIES))];
    if (place == input.end()) {
        input.push_back(boundary);
        return;
    }
    switch (below(5)) {
    case 0:
        *place = static_cast<std::uint8_t>(*place ^ (1U << below(8)));
        break;
    case 1:
        *place = boundary;
        break;
    case 2:
        input.insert(place, boundary);
        break;
    case 3:
        input.erase(place);
        break;
    default:
        // Longer inputs reach what works on blocks.
        const Bytes copy(place, input.end());
        input.insert(place, copy.begin(), copy.end());
        input.resize(std::min<std::size_t>(input.size(), 1024));
        break;
    }
}

void runOnVariations(const Bytes& input) {
    runOn(input);
    const std::size_t stride = input.size() / CUTS + 1;
    for (std::size_t size = 0; size < input.size(); size += stride) {
        runOn(Bytes(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(size)));
    }
    std::mt19937 random(20240229);
    for (int i = 0; i < CHANGES; ++i) {
        Bytes changed = input;
        for (unsigned int n = 1 + random() % 4; n > 0; --n) {
            change(changed, random);
        }
        runOn(changed);
    }
}

Bytes readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

int replay(int count, char** folders) {
    std::vector<std::filesystem::path> files;
    for (int i = 0; i < count; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(folders[i])) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
        currentFile = file.filename().string();
        runOnVariations(readFile(file));
    }
    std::printf("%zu files and their variations\n", files.size());
    // A corpus that is not found must not pass for one without findings.
    return files.empty() ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGABRT, onAbort);
    try {
        return replay(argc - 1, argv + 1);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "unexpected exception: %s\n", error.what());
        printInput();
        return 1;
    }
}
