// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `StringBuilder` against a plain model: random programs for the fuzz target, which does
/// each operation to both and ends the process where they differ.
#include "fuzz/input.h"
#include "tests/support/case_count.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace {

TEST(StringBuilderModel, AgreesOnRandomPrograms) {
    std::mt19937 random(20240607);
    const std::size_t count = orvtest::caseCount(20000);
    for (std::size_t i = 0; i < count; ++i) {
        std::vector<std::uint8_t> program(random() % 400);
        std::generate(program.begin(), program.end(),
                      [&random] { return static_cast<std::uint8_t>(random()); });
        LLVMFuzzerTestOneInput(program.data(), program.size());
    }
}

} // namespace
