// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint` to and from the integers of GMP, which tests compare with.
#ifndef ORV_TESTS_SUPPORT_GMP_NUMBER_H
#define ORV_TESTS_SUPPORT_GMP_NUMBER_H

#include "orv/liborvxx/number/big_uint.h"

#include <gmpxx.h>

#include <algorithm>
#include <cstddef>

namespace orvtest {

inline mpz_class toGmp(const unsigned* words, std::size_t size) {
    mpz_class value;
    mpz_import(value.get_mpz_t(), size, -1, sizeof *words, 0, 0, words);
    return value;
}

inline mpz_class toGmp(const orv::big_uint& n) {
    return toGmp(n.data(), n.size());
}

/// The low \p size words of a number that is not negative.
inline orv::big_uint fromGmp(const mpz_class& value, unsigned size) {
    mpz_class low;
    mpz_fdiv_r_2exp(low.get_mpz_t(), value.get_mpz_t(), std::size_t{size} * 32);
    orv::big_uint n;
    n.set_size(size);
    mpz_export(n.data(), nullptr, -1, sizeof(unsigned), 0, 0, low.get_mpz_t());
    return n;
}

/// The whole number, in the words it needs.
inline orv::big_uint fromGmp(const mpz_class& value) {
    const std::size_t bits = mpz_sizeinbase(value.get_mpz_t(), 2);
    return fromGmp(value, static_cast<unsigned>(std::max<std::size_t>(1, (bits + 31) / 32)));
}

/// Whether the words of \p n, all of them, are the number modulo 2^(32 * size).
inline bool hasWordsOf(const orv::big_uint& n, const mpz_class& value) {
    const orv::big_uint expected = fromGmp(value, n.size());
    return std::equal(n.data(), n.data() + n.size(), expected.data());
}

} // namespace orvtest

#endif
