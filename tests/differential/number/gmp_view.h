// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A `big_uint` as GMP reads it, for hot loops: no memory is allocated twice.
#ifndef ORV_TESTS_DIFFERENTIAL_NUMBER_GMP_VIEW_H
#define ORV_TESTS_DIFFERENTIAL_NUMBER_GMP_VIEW_H

#include "orv/liborvxx/number/big_uint.h"

#include <gmpxx.h>

#include <cstddef>
#include <vector>

namespace orvtest {

static_assert(sizeof(mp_limb_t) == 8, "GMP has limbs of 64 bits");

/// A copy of a number's words that GMP can read.
class GmpView {
public:
    GmpView() = default;
    GmpView(const GmpView&) = delete;
    GmpView& operator=(const GmpView&) = delete;
    ~GmpView() = default;

    /// Takes the words of another number.
    void set(const orv::big_uint& n) {
        limbs_.assign(std::size_t{n.size() + 1} / 2, 0);
        for (unsigned i = 0; i < n.size(); ++i) {
            limbs_[i / 2] |= mp_limb_t{n[i]} << i % 2 * 32;
        }
        mpz_roinit_n(value_, limbs_.data(), static_cast<mp_size_t>(limbs_.size()));
    }

    /// The number, until the next `set`.
    mpz_srcptr get() const { return value_; }

private:
    std::vector<mp_limb_t> limbs_;
    mpz_t value_ = {};
};

/// Compares the words of results with whole numbers.
class ResultCheck {
public:
    /// Whether the words of \p n, all of them, are \p value modulo 2^(32 * size).
    bool hasWordsOf(const orv::big_uint& n, const mpz_class& value) {
        mpz_fdiv_r_2exp(low_.get_mpz_t(), value.get_mpz_t(), std::size_t{n.size()} * 32);
        view_.set(n);
        return mpz_cmp(low_.get_mpz_t(), view_.get()) == 0;
    }

private:
    GmpView view_;
    mpz_class low_;
};

} // namespace orvtest

#endif
