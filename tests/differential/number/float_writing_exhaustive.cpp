// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Every positive float as text, for a long run by hand: beside `std::to_chars`, read back,
/// and beside the slow digits.
///
/// Takes two numbers: the part to check and how many parts there are. Prints what differs, and how
/// often digits differ from those of the standard library for either reason that is known.
#include "orv/liborvxx/number/detail/format_digits.h"
#include "tests/support/float_texts.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace orv::detail;

std::string slowText(std::uint32_t bits) {
    const auto value = std::bit_cast<float>(bits);
    const int field = static_cast<int>(bits >> FloatBits::FRACTION_BITS);
    const std::uint32_t coefficient =
        (bits & FloatBits::FRACTION) | (field == 0 ? 0 : FloatBits::IMPLIED);
    float_digits digits;
    digits_of(digits, value); // sign and radix
    generate_digits(
        digits, orv::big_binary(field == 0 ? -149 : field - 150, orv::big_uint(coefficient), 24),
        24, -126, FLOAT_DIGITS);
    return format_digits(digits);
}

} // namespace

int main(int count, char** arguments) {
    const std::uint32_t part = count > 1 ? static_cast<std::uint32_t>(std::atoi(arguments[1])) : 0;
    const std::uint32_t parts = count > 2 ? static_cast<std::uint32_t>(std::atoi(arguments[2])) : 1;
    std::array<std::size_t, 4> counts{};
    std::size_t wrong = 0;
    for (std::uint32_t bits = 1 + part; bits < FloatBits::EXPONENT; bits += parts) {
        const auto value = std::bit_cast<float>(bits);
        const std::string text = orvtest::textOf(value);
        const orvtest::Comparison comparison = orvtest::compareWithStandard(value, text);
        ++counts[static_cast<std::size_t>(comparison)];
        if (comparison == orvtest::Comparison::DIFFERENT || !orvtest::readsBackAs(text, value) ||
            text != slowText(bits)) {
            ++wrong;
            std::printf("%08X is %s, by digits %s\n", static_cast<unsigned>(bits), text.c_str(),
                        slowText(bits).c_str());
        }
    }
    std::printf("%zu as the standard library, %zu with two digits for one, %zu powers of two with "
                "more, %zu wrong\n",
                counts[0], counts[1], counts[2], wrong);
    return wrong == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
