// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Whole numbers: the laws of arithmetic hold, and text and floats agree with them.
///
/// Input: two bytes that tell how many belong to the first number, the low one first; a byte for
/// the bits of shifts and the exponent of floats; the numbers' bytes, least significant first.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/make_binary.h"
#include "orv/liborvxx/number/pack_binary.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

using orv::big_uint;

// Long enough for every method of multiplication, division and text.
constexpr std::size_t MAX_BYTES = 2048;

big_uint number(const std::string& bytes) {
    big_uint n;
    n.set_size(static_cast<unsigned>(bytes.size() / 4 + 1));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        n[static_cast<unsigned>(i / 4)] |= unsigned{static_cast<unsigned char>(bytes[i])}
                                           << i % 4 * 8;
    }
    return n;
}

big_uint ofSize(unsigned words) {
    return big_uint::make_uninitialized(words);
}

void checkSum(const big_uint& a, const big_uint& b) {
    big_uint sum = ofSize(std::max(a.size(), b.size()) + 1);
    FUZZ_CHECK(!sum.add(a, b));
    FUZZ_CHECK(sum >= a && sum >= b);
    big_uint back = ofSize(sum.size());
    FUZZ_CHECK(back.subtract(sum, b) == 0 && back == a);
    FUZZ_CHECK(sum.subtract(a) == 0 && sum == b);
    const int order = back.subtract(a, b);
    FUZZ_CHECK((order < 0) == (a < b) && order == -back.subtract(b, a) - (a == b ? 0 : 1));
}

// The quotient's remainder is the number itself again.
void checkDivision(const big_uint& a, const big_uint& b) {
    big_uint quotient = ofSize(a.size());
    big_uint remainder = ofSize(std::max(a.size(), b.size()));
    quotient.divide(a, b, remainder);
    FUZZ_CHECK(remainder < b);
    big_uint product = ofSize(quotient.size() + b.size());
    product.multiply(quotient, b);
    FUZZ_CHECK(!product.add(product, remainder) && product == a);
    big_uint alone = ofSize(a.size());
    alone.divide(a, b);
    FUZZ_CHECK(alone == quotient);
}

void checkProduct(const big_uint& a, const big_uint& b) {
    big_uint product = ofSize(a.size() + b.size());
    product.multiply(a, b);
    big_uint swapped = ofSize(a.size() + b.size());
    swapped.multiply(b, a);
    FUZZ_CHECK(product == swapped);
    big_uint quotient = ofSize(product.size());
    big_uint remainder = ofSize(product.size());
    quotient.divide(product, b, remainder);
    FUZZ_CHECK(quotient == a && remainder.is_zero());
}

void checkShifts(const big_uint& a, unsigned bits) {
    big_uint up = ofSize(a.size() + bits / 32 + 1);
    up.shift_left(a, bits);
    FUZZ_CHECK(up.compute_rounding_info(bits) == 0);
    FUZZ_CHECK(a.is_zero() || up.bit_length() == a.bit_length() + bits);
    up.shift_right(bits);
    FUZZ_CHECK(up == a);
    big_uint down(a);
    down.shift_right(bits);
    big_uint cut(a);
    big_uint low = ofSize(a.size());
    cut.shift_right(a, bits);
    cut.shift_left(bits);
    FUZZ_CHECK(low.subtract(a, cut) == 0 && low.bit_length() <= bits);
    const unsigned info = a.compute_rounding_info(bits);
    FUZZ_CHECK((info >> 1U != 0) == (bits > 0 && low.bit_length() == bits));
    FUZZ_CHECK(((info & 1U) != 0) == (low.bit_count() > (info >> 1U)));
}

void checkText(const big_uint& a) {
    const std::string text = a.to_string();
    big_uint back = ofSize(a.size() + 1);
    std::fill(back.data(), back.data() + back.size(), 0U);
    for (const char digit : text) {
        FUZZ_CHECK(digit >= '0' && digit <= '9');
        FUZZ_CHECK(back.multiply_by_10() == 0);
        FUZZ_CHECK(!back.add(static_cast<unsigned>(digit - '0')));
    }
    FUZZ_CHECK(back == a);
    FUZZ_CHECK(text == "0" ? a.is_zero() : text[0] != '0');
    FUZZ_CHECK(a.is_zero() || a.bit_length() > 27000 ||
               a.ilog10() == static_cast<int>(text.size()) - 1);
}

void checkFloats(const big_uint& a, int exponent) {
    const double packed = orv::pack_double(false, exponent, a);
    FUZZ_CHECK(orv::pack_double(true, exponent, a) == -packed);
    if (a.bit_length() <= 53) {
        FUZZ_CHECK(packed == std::ldexp(static_cast<double>(a.to_uint64()), exponent));
    }
    if (a.bit_length() <= 24) {
        FUZZ_CHECK(orv::pack_float(false, exponent, a) ==
                   std::ldexp(static_cast<float>(a.to_uint64()), exponent));
    }
    FUZZ_CHECK(orv::make_double(false, 0, a) == orv::pack_double(false, 0, a));
    // A digit more and an exponent less are the same number, as long as no bit is dropped.
    big_uint tens(a);
    tens.set_size(a.size() + 1);
    tens.multiply_by_10();
    if (tens.bit_length() <= 56) {
        FUZZ_CHECK(orv::make_double(false, exponent, a) ==
                   orv::make_double(false, exponent - 1, tens));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min(size, MAX_BYTES));
    const std::size_t low = input.byte();
    const std::size_t wanted = low | std::size_t{input.byte()} << 8U;
    const unsigned shift = input.byte() * 5U;
    const std::string bytes = input.rest();
    const std::size_t ofFirst = std::min(wanted, bytes.size());
    const big_uint a = number(bytes.substr(0, ofFirst));
    const big_uint b = number(bytes.substr(ofFirst));
    checkSum(a, b);
    if (!b.is_zero()) {
        checkDivision(a, b);
        checkProduct(a, b);
    }
    checkShifts(a, shift);
    checkText(a);
    checkFloats(a, static_cast<int>(shift) - 700);
    return 0;
}
