// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint` to and from the limb arrays of GMP: less than `mpz_class` costs, for loops
/// over millions of cases.
#ifndef ORV_TESTS_DIFFERENTIAL_NUMBER_LIMBS_H
#define ORV_TESTS_DIFFERENTIAL_NUMBER_LIMBS_H

#include "orv/liborvxx/number/big_uint.h"

#include <gmp.h>

#include <cstddef>
#include <vector>

namespace orvtest {

static_assert(GMP_NUMB_BITS == 64, "a limb is two words");

using Limbs = std::vector<mp_limb_t>;

/// The first \p size words of a number; a half limb at the top is filled with zeros.
inline void toLimbs(Limbs& limbs, const orv::big_uint& n, unsigned size) {
    limbs.assign((size + 1) / 2, 0);
    for (unsigned i = 0; i < size; ++i) {
        limbs[i / 2] |= mp_limb_t{n[i]} << i % 2 * 32;
    }
}

/// Whether the words of \p n are those of the limbs: zeros beyond them, and no word of the limbs
/// beyond \p n that is not 0.
inline bool sameWords(const orv::big_uint& n, const Limbs& limbs) {
    bool same = true;
    for (std::size_t i = 0; i < n.size() || i < limbs.size() * 2; ++i) {
        const auto expected =
            i / 2 < limbs.size() ? static_cast<unsigned>(limbs[i / 2] >> i % 2 * 32) : 0U;
        same &= (i < n.size() ? n.data()[i] : 0U) == expected;
    }
    return same;
}

/// Sets the width, and every word to what nobody expects.
inline void fillWithRubbish(orv::big_uint& n, unsigned size) {
    n.set_size(size);
    for (unsigned i = 0; i < size; ++i) {
        n[i] = 0xDEADBEEFU + i;
    }
}

} // namespace orvtest

#endif
